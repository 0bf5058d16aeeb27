#pragma once

#include <string>

#include <nlohmann/json.hpp>

#include "system/FaultList.h"

/// The contents of a file, or of standard input for "-". Throws ToolError (4) when it cannot be read.
std::string ReadWholeFile(const std::string& path);

/// The JSON text `text`. A fault for a syntax error, with its line, for anything behind the value,
/// and for each key that stands twice in one object; the result is null after a syntax error.
nlohmann::ordered_json ParseJson(const std::string& text, FaultList& faults);
