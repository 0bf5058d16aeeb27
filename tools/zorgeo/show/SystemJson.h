#pragma once

#include <nlohmann/json.hpp>

#include "show/SystemParameters.h"

/// The name of the form and its version: the number grows when a reader of the old one would read
/// wrongly or not find what it looks for; what is only added leaves it.
constexpr const char* kShowSchema = "zorgeo.show/1";

/// The "unit" of a projection parameter of the catalogue's kind: degree, unity, and "system" for a length.
const char* UnitOfParameter(unsigned kind);

/// Everything of a system under the names of docs/zorgeo.md, numbers with all digits.
nlohmann::ordered_json SystemJson(const SystemParameters& system);
