#include "Output.h"

#include <cerrno>

#include <CLI/CLI.hpp>
#include <fmt/format.h>

#include "ToolError.h"
#include "platform/Platform.h"

void WriteToStdout(std::string_view text)
{
    if (!host::StandardOutputIsOpen()) {
        throw ToolError(ExitStatus::inputOutput, "standard output is closed");
    }
    if (const int error = host::WriteAll(host::kStdout, text.data(), text.size()); error != 0) {
        throw ToolError(ExitStatus::inputOutput, "standard output: " + host::ErrorText(error));
    }
}

void WriteToStderr(std::string_view text) noexcept
{
    host::WriteAll(host::kStderr, text.data(), text.size());
}

void Remark(std::string_view text)
{
    WriteToStderr(fmt::format("zorgeo: {}\n", text));
}

std::string UsageOf(const CLI::App& command)
{
    const std::string help = command.help();
    const auto begin = help.find("Usage:");
    if (begin == std::string::npos) {
        return {};
    }
    return help.substr(begin, help.find('\n', begin) - begin + 1);
}
