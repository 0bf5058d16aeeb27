#pragma once

#include <stdexcept>
#include <string>

/// Exit status of the program. The numbers are part of the interface.
enum class ExitStatus : int {
    good = 0,
    badLines = 1, ///< some lines failed
    usage = 2,
    unusable = 3, ///< system, database or model
    inputOutput = 4,
    nobodyToAsk = 5, ///< a naming decision is needed and nobody can be asked
};

/// What ends a command: the status to exit with and the message for stderr, without a line end.
class ToolError : public std::runtime_error {
public:
    ToolError(ExitStatus status, const std::string& message) : std::runtime_error(message), m_status(status) {}
    ExitStatus Status() const noexcept { return m_status; }

private:
    ExitStatus m_status;
};
