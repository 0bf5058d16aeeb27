#include <exception>
#include <vector>

#include <CLI/CLI.hpp>
#include <fmt/format.h>

#include "Command.h"
#include "Output.h"
#include "Version.h"
#include "base/text/CString.h"
#include "platform/Platform.h"

namespace {

using Maker = std::unique_ptr<Command> (*)(CLI::App&);

/// The commands, in the order of the help.
constexpr Maker kMakers[] = {MakeListCommand,    MakeFindCommand,  MakeShowCommand,    MakeConvertCommand,
                             MakeFactorsCommand, MakeGeoidCommand, MakeProjectCommand, MakeSystemCommand,
                             MakeDatumCommand,   MakeDbCommand};

constexpr const char* kFooter = "Exit status: 0 all good; 1 some lines failed; 2 usage; 3 system, database or model\n"
                                "unusable; 4 input or output error; 5 a name is needed and nobody can be asked.\n\n"
                                "Example:\n  zorgeo list systems --match utm";

void Complain(const std::string& message)
{
    WriteToStderr("zorgeo: " + message + "\n");
}

/// The CLI library's answer to a command line that it does not run: help or version, or an error.
ExitStatus Answer(const CLI::App& program, const CLI::ParseError& error)
{
    if (error.get_exit_code() == 0) {
        std::ostringstream text;
        program.exit(error, text, text);
        WriteToStdout(text.str());
        return ExitStatus::good;
    }
    const CLI::App* at = &program;
    std::string command = "zorgeo";
    while (!at->get_subcommands().empty()) {
        at = at->get_subcommands().back();
        command += " " + at->get_name();
    }
    Complain(fmt::format("{}\n{}Try: {} --help", error.what(), at == &program ? "" : UsageOf(*at), command));
    return ExitStatus::usage;
}

ExitStatus Run(const std::vector<std::string>& arguments)
{
    CLI::App program("Coordinate systems for marine survey", "zorgeo");
    program.set_version_flag("--version", std::string("zorgeo ") + Version());
    program.require_subcommand(1);
    program.footer(kFooter);
    std::vector<std::unique_ptr<Command>> commands;
    for (const Maker make : kMakers) {
        commands.push_back(make(program));
    }
    try {
        program.parse(std::vector<std::string>(arguments.rbegin(), arguments.rend()));
    } catch (const CLI::ParseError& error) {
        return Answer(program, error);
    }
    for (const auto& command : commands) {
        if (command->Chosen()) {
            return command->Run();
        }
    }
    return ExitStatus::usage;
}

} // namespace

int main(int argc, char** argv)
{
    ExitStatus status = ExitStatus::good;
    try {
        host::PrepareProcess();
        status = Run(host::Utf8Arguments(argc, argv));
    } catch (const ToolError& error) {
        Complain(error.what());
        status = error.Status();
    } catch (const CString& error) {
        Complain(error.ToUtf8());
        status = ExitStatus::unusable;
    } catch (const std::exception& error) {
        Complain(error.what());
        status = ExitStatus::unusable;
    }
    return static_cast<int>(status);
}
