#pragma once

#include <nlohmann/json.hpp>

#include "show/SystemParameters.h"

/// A system as a coordinate reference system in PROJJSON, bound to the satellite frame when it has a
/// datum transformation. Throws ToolError (3) with the reason for what such a definition cannot say:
/// it never approximates beyond 1 mm.
nlohmann::ordered_json CrsJson(const SystemParameters& system);
