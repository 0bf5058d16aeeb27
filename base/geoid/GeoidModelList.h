#pragma once

#include <map>
#include <memory>

#include "base/Export.h"
#include "base/geoid/GeoidModel.h"

/// The registry of geoid and correction models, by type number: an index into
/// GeoidmodelTypeKeys, 2 to 31. Every type is served by GridModel until another maker takes its
/// place.
class ZORBASE_API GeoidModelList {
public:
    static GeoidModelList& GetGeoidModelList();

    /// A new model, owned by the caller; null when no model of that type is registered.
    GeoidModel* Create(const unsigned short& type) const;

    using Maker = GeoidModel* (*)();
    /// Supplies the models of a type in place of what was registered before; null takes it out.
    /// False for a type outside 2 to 31.
    bool Register(unsigned short type, Maker maker);
    bool Has(unsigned short type) const;
    /// What makes the models of a type; null when nothing does.
    Maker MakerOf(unsigned short type) const;

private:
    GeoidModelList();

    std::map<unsigned short, Maker> m_makers;
};
