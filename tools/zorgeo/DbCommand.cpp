#include <fmt/format.h>
#include <nlohmann/json.hpp>

#include "CommandGroup.h"
#include "CommonOptions.h"
#include "DatabaseText.h"
#include "Output.h"
#include "dbcheck/LayoutCheck.h"
#include "dbcheck/ListCheck.h"
#include "dbcheck/RecordsCheck.h"
#include "dbcheck/SystemsCheck.h"

namespace {

using Json = nlohmann::ordered_json;

constexpr const char* kFooter =
    "Walks the main and the user database and writes a line for every fault: file, section, key, what is\n"
    "wrong, what would be right. Notes tell what is allowed and worth knowing. The exit status is 1 when\n"
    "there is a fault.\n\n"
    "Example:\n"
    "  zorgeo db check";

Json ToJson(const std::vector<Finding>& findings)
{
    Json list = Json::array();
    for (const Finding& finding : findings) {
        list.push_back({{"file", finding.file},
                        {"section", finding.section},
                        {"key", finding.key},
                        {"what", finding.what},
                        {"remedy", finding.remedy}});
    }
    return list;
}

class CheckAction : public Command {
public:
    explicit CheckAction(CLI::App* app) : Command(app)
    {
        m_common.AddTo(*app, "Write faults and notes as a JSON object");
        app->footer(kFooter);
    }

    ExitStatus Run() override
    {
        Session session(m_common);
        Findings findings;
        CheckLayout(session.Files().Main(), findings);
        CheckLayout(session.Files().User(), findings);
        CheckLists(session.Files(), findings);
        CheckRecords(session, findings);
        const std::size_t systems = CheckSystems(session, findings);
        WriteToStdout(m_common.json ? AsJson(session, systems, findings) : AsText(findings));
        Remark(fmt::format("{} systems, {} faults, {} notes", systems, findings.AllFaults().size(),
                           findings.AllNotes().size()));
        return findings.AllFaults().empty() ? ExitStatus::good : ExitStatus::badLines;
    }

private:
    static std::string AsText(const Findings& findings)
    {
        std::string text;
        for (const Finding& fault : findings.AllFaults()) {
            text += fault.Line(false) + "\n";
        }
        for (const Finding& note : findings.AllNotes()) {
            text += note.Line(true) + "\n";
        }
        return text;
    }

    static std::string AsJson(const Session& session, std::size_t systems, const Findings& findings)
    {
        const Json object = {
            {"files",
             {session.Files().Main().GetFileName().ToUtf8(), (session.UserDirectory() + kUserDatabaseFile).ToUtf8()}},
            {"systems", systems},
            {"faults", ToJson(findings.AllFaults())},
            {"notes", ToJson(findings.AllNotes())}};
        return object.dump(2) + "\n";
    }

    CommonOptions m_common;
};

std::unique_ptr<Command> MakeCheck(CLI::App& db)
{
    return std::make_unique<CheckAction>(db.add_subcommand("check", "Find what is wrong in the database's files"));
}

} // namespace

std::unique_ptr<Command> MakeDbCommand(CLI::App& program)
{
    CLI::App* const app = program.add_subcommand("db", "Look after the database");
    app->footer("Example:\n  zorgeo db check");
    return std::make_unique<CommandGroup>(app, std::initializer_list<CommandGroup::Maker>{MakeCheck});
}
