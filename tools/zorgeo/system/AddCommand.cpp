#include <fmt/format.h>

#include "CommonOptions.h"
#include "Output.h"
#include "Session.h"
#include "UserDatabaseLock.h"
#include "UserDirectory.h"
#include "show/SystemJson.h"
#include "system/JsonFile.h"
#include "system/SavedSystem.h"
#include "system/Subcommands.h"
#include "system/UserSystem.h"

namespace {

constexpr const char* kFooter =
    "FILE has the form of `zorgeo show --as json`; - is standard input. Everything in it is looked at\n"
    "before anything is written: unknown and missing keys, ranges, what the method's formulas refuse,\n"
    "names that are taken. Every fault is told with its place and what would be right. What the\n"
    "database has already with the same content is used as it is, and said. After saving, the system\n"
    "is read back, compared and tried.\n\n"
    "Example:\n"
    "  zorgeo system add data/examples/harbour-grid.json --user zorgeo-try";

class AddCommand : public Command {
public:
    explicit AddCommand(CLI::App* app) : Command(app)
    {
        app->add_option("FILE", m_file, "The new system")->required();
        m_common.AddTo(*app, "The system as it was stored, as a JSON object");
        app->footer(kFooter);
    }

    ExitStatus Run() override
    {
        const std::string text = ReadWholeFile(m_file);
        const UserDatabaseLock lock(UserDirectoryOf(m_common), kChangePatience);
        Session session(m_common);
        const NewSystem system = ReadNewSystem(session, m_file, text);
        SaveAndVerify(session, system);
        for (const std::string& remark : system.remarks) {
            Remark(remark);
        }
        Remark(fmt::format("added the system \"{}\" to the group \"{}\"", system.parameters.system,
                           system.parameters.group));
        if (m_common.json) {
            WriteToStdout(SystemJson(system.parameters).dump(2) + "\n");
        }
        return ExitStatus::good;
    }

private:
    std::string m_file;
    CommonOptions m_common;
};

} // namespace

std::unique_ptr<Command> MakeSystemAdd(CLI::App& system)
{
    return std::make_unique<AddCommand>(
        system.add_subcommand("add", "Check a new system and store it in the user database"));
}
