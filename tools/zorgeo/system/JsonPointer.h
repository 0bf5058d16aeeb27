#pragma once

#include <cstddef>
#include <string>

/// One step of a JSON pointer (RFC 6901): to a member by its key, to an element by its number.
std::string PointerTo(const std::string& key);
std::string PointerTo(std::size_t index);
