#include "CommonOptions.h"
#include "Output.h"
#include "Session.h"
#include "show/SystemJson.h"
#include "system/JsonFile.h"
#include "system/NewSystem.h"
#include "system/Subcommands.h"

namespace {

constexpr const char* kFooter = "The same checks as `zorgeo system add`; nothing is written.\n\n"
                                "Example:\n"
                                "  zorgeo system show-new data/examples/harbour-grid.json";

class ShowNewCommand : public Command {
public:
    explicit ShowNewCommand(CLI::App* app) : Command(app)
    {
        app->add_option("FILE", m_file, "The new system; - is standard input")->required();
        m_common.AddTo(*app, "The system as it would be stored, as a JSON object");
        app->footer(kFooter);
    }

    ExitStatus Run() override
    {
        const std::string text = ReadWholeFile(m_file);
        Session session(m_common);
        const NewSystem system = ReadNewSystem(session, m_file, text);
        for (const std::string& remark : system.remarks) {
            Remark(remark);
        }
        WriteToStdout(m_common.json ? SystemJson(system.parameters).dump(2) + "\n"
                                    : AuthoringRecordOf(session, system.parameters)->DumpSysinfoText().ToUtf8());
        return ExitStatus::good;
    }

private:
    std::string m_file;
    CommonOptions m_common;
};

} // namespace

std::unique_ptr<Command> MakeSystemShowNew(CLI::App& system)
{
    return std::make_unique<ShowNewCommand>(
        system.add_subcommand("show-new", "Check a new system and print the report about it"));
}
