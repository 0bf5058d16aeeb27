#pragma once

#include <string>
#include <vector>

#include "Session.h"
#include "show/SystemParameters.h"

/// A system that is to be added, every part of it complete and fit for the database.
struct NewSystem {
    SystemParameters parameters;
    std::vector<std::string> remarks; ///< what is new, and what the database has already
};

/// Reads `text`, the contents of `file`, in the form of `zorgeo show --as json`, against the
/// catalogue and the database. Throws ToolError (3) with every fault.
NewSystem ReadNewSystem(Session& session, const std::string& file, const std::string& text);

/// The record that the module saves and describes. The parameters of the projection have the texts
/// of angles in degrees, minutes and seconds, and all digits otherwise.
std::unique_ptr<ZorGeoStaticDataBase> AuthoringRecordOf(const Session& session, const SystemParameters& system);
