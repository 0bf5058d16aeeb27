#pragma once

#include <stdexcept>
#include <string>

/// Ends an operation whose slot stands before its body is written. Loud on purpose: an answer
/// that looks like one would be taken for one.
[[noreturn]] inline void NotBuilt(const char* operation)
{
    throw std::logic_error(std::string(operation) + " is not built yet");
}
