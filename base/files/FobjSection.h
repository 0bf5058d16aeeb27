#pragma once

#include <cstddef>
#include <memory>

#include "base/Export.h"

class FileObject;

/// A place in a walk over the sections of a FileObject, or over the keys of one section.
///
/// It keeps the contents that the walk started on alive: a change of the file during a walk is
/// not seen by the walk and cannot break it.
class ZORBASE_API FobjSection {
public:
    FobjSection();
    ~FobjSection();
    FobjSection(const FobjSection&);
    FobjSection& operator=(const FobjSection&);

private:
    friend class FileObject;
    std::shared_ptr<const void> m_contents;
    std::size_t m_section = 0;
    std::size_t m_next = 0;
};
