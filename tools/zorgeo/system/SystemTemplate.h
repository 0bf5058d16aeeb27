#pragma once

#include <string>

#include <nlohmann/json.hpp>

#include "Session.h"

/// A new system of a projection method to be filled in: null stands where a value is missing. Unit
/// and satellite ellipsoid are there as the database has them. The names are the user's words; throws
/// ToolError (2) with what there is when they do not fit one alone.
nlohmann::ordered_json SystemTemplate(Session& session, const std::string& method, const std::string& datumMethod);
