#pragma once

#include <string>
#include <string_view>

namespace CLI {
class App;
}

/// Writes UTF-8 text to standard output, whole. Throws ToolError (4) when that fails.
void WriteToStdout(std::string_view text);
/// Writes UTF-8 text to standard error; a failure is ignored, there is nowhere left to tell it.
void WriteToStderr(std::string_view text) noexcept;
/// A remark for the user on standard error: "zorgeo: text".
void Remark(std::string_view text);
/// The usage line of a sub-command, with its line end, from its help.
std::string UsageOf(const CLI::App& command);
