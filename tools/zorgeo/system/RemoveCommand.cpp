#include <fmt/format.h>
#include <nlohmann/json.hpp>

#include "CommonOptions.h"
#include "DatabaseText.h"
#include "Output.h"
#include "Session.h"
#include "ToolDesk.h"
#include "ToolError.h"
#include "UserDatabaseLock.h"
#include "UserDirectory.h"
#include "base/registry/DataSearch.h"
#include "system/Subcommands.h"
#include "system/SystemUse.h"
#include "system/UserSystem.h"

namespace {

constexpr const char* kFooter =
    "Looks through the database and the projects before anything is removed. With the system goes its\n"
    "projection's record, unless another system uses it or it is a delivered one; the datum\n"
    "transformation, ellipsoids and unit stay. Projects that name the system keep their backup of it.\n\n"
    "Example:\n"
    "  zorgeo system remove 'Harbour grid' --user zorgeo-try";

void AddLines(std::string& text, const char* what, const std::vector<std::string>& names)
{
    for (const std::string& name : names) {
        text += fmt::format("\n  {} {}", what, name);
    }
}

std::string Listing(const SystemUse& use)
{
    std::string text;
    AddLines(text, "project", use.projects);
    AddLines(text, "also in the group", use.groups);
    AddLines(text, fmt::format("projection \"{}\" also in", use.projection).c_str(), use.projectionUsers);
    AddLines(text, fmt::format("datum transformation \"{}\" also in", use.datum).c_str(), use.datumUsers);
    if (use.otherwise) {
        text += "\n  the database tells of a further use of its projection or datum transformation";
    }
    return text;
}

nlohmann::ordered_json JsonOf(const SystemName& name, const SystemUse& use, bool projectionGone)
{
    return {{"group", name.group.ToUtf8()},
            {"system", name.system.ToUtf8()},
            {"projects", use.projects},
            {"groups", use.groups},
            {"projection", {{"name", use.projection}, {"removed", projectionGone}, {"users", use.projectionUsers}}},
            {"datum", {{"name", use.datum}, {"removed", false}, {"users", use.datumUsers}}}};
}

class RemoveCommand : public Command {
public:
    explicit RemoveCommand(CLI::App* app) : Command(app)
    {
        app->add_option("SYSTEM", m_system, "System of the user database, or a part of its name")->required();
        app->add_option("--group", m_group, "Its group, or a part of that name")->type_name("GROUP");
        app->add_option("--projects", m_projects, "Directory of the projects, in place of the platform's")
            ->type_name("DIR");
        app->add_flag("--force", m_force, "Remove it although something uses it");
        m_common.AddTo(*app, "What was removed and what used it, as a JSON object");
        app->footer(kFooter);
    }

    ExitStatus Run() override
    {
        if (!m_projects.empty()) {
            DataSearch::GetDataSearch().SetDataPath(DataSearch::projectsRoot, CString::FromUtf8(m_projects));
        }
        const UserDatabaseLock lock(UserDirectoryOf(m_common), kChangePatience);
        Session session(m_common);
        const SystemName name = FindUserSystem(session, m_group, m_system);
        const SystemUse use = UseOf(session, name);
        Ask(name, use);
        Remove(session, name);
        const bool projectionGone =
            !use.projection.empty() &&
            !session.Files().User().HasSection(kProjectionPrefix + CString::FromUtf8(use.projection));
        Tell(name, use, projectionGone);
        if (m_common.json) {
            WriteToStdout(JsonOf(name, use, projectionGone).dump(2) + "\n");
        }
        return ExitStatus::good;
    }

private:
    void Ask(const SystemName& name, const SystemUse& use) const
    {
        for (const std::string& unread : use.unread) {
            Remark(fmt::format("{}; whether this project uses the system is not known", unread));
        }
        if (!use.InUse()) {
            return;
        }
        const std::string what = fmt::format("the system \"{}\" of the group \"{}\" is in use:{}", name.system.ToUtf8(),
                                             name.group.ToUtf8(), Listing(use));
        if (!m_force) {
            throw ToolError(ExitStatus::usage, what + "\nnothing is removed; --force removes it all the same");
        }
        Remark(what);
    }

    static void Remove(Session& session, const SystemName& name)
    {
        const ToolDesk desk;
        const bool answered = session.Database().RemoveSystem(name.group, name.system);
        session.Reopen();
        if (!answered || session.Database().IsSystemCustom(name.group, name.system) ||
            session.Files().User().HasSection(kSystemPrefix + name.system)) {
            throw ToolError(ExitStatus::inputOutput,
                            fmt::format("the system \"{}\" was not removed: the user database cannot be written",
                                        name.system.ToUtf8()));
        }
    }

    static void Tell(const SystemName& name, const SystemUse& use, bool projectionGone)
    {
        Remark(
            fmt::format("removed the system \"{}\" from the group \"{}\"", name.system.ToUtf8(), name.group.ToUtf8()));
        if (projectionGone) {
            Remark(fmt::format("with it went the projection \"{}\"", use.projection));
            for (const std::string& user : use.projectionUsers) {
                Remark(fmt::format("the system {} has lost its projection", user));
            }
        } else if (!use.projection.empty()) {
            Remark(fmt::format("the projection \"{}\" stays, others use it", use.projection));
        }
        if (!use.datum.empty()) {
            Remark(fmt::format("the datum transformation \"{}\" stays", use.datum));
        }
    }

    std::string m_system;
    std::string m_group;
    std::string m_projects;
    bool m_force = false;
    CommonOptions m_common;
};

} // namespace

std::unique_ptr<Command> MakeSystemRemove(CLI::App& system)
{
    return std::make_unique<RemoveCommand>(
        system.add_subcommand("remove", "Remove a system from the user database, unless it is in use"));
}
