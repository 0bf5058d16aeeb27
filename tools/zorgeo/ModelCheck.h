#pragma once

#include <memory>
#include <string>

#include "DatabaseFiles.h"
#include "Session.h"
#include "base/geoid/GeoidModel.h"

/// A geoid or post correction model that an initialised system has in force, tried out.
struct ModelState {
    bool inForce = false;
    std::string fault; ///< why it cannot be used; empty when it can
    /// The model with its file, to ask where it answers; null when it is at fault or is one fixed
    /// separation.
    std::unique_ptr<GeoidModel> model;
};

/// The geoid in force in the system `name`, which `coordSys` was initialised with. The fixed
/// separation is looked for in the system's record.
ModelState TryGeoid(const DatabaseFiles& files, const SystemName& name, ZorGeoCoordSysBase& coordSys);
ModelState TryPostModel(ZorGeoCoordSysBase& coordSys);
