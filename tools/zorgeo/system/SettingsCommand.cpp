#include "system/SettingsCommand.h"

#include <cmath>

#include <fmt/format.h>

#include "NameFinder.h"
#include "Output.h"
#include "ToolError.h"
#include "UserDatabaseLock.h"
#include "UserDirectory.h"
#include "base/keys/KeyTables.h"
#include "system/SavedSystem.h"
#include "system/UserSystem.h"

SettingsCommand::SettingsCommand(CLI::App* app, const char* what) : Command(app), m_what(what)
{
    app->add_option("SYSTEM", m_system, "System of the user database, or a part of its name")->required();
    app->add_option("--group", m_group, "Its group, or a part of that name")->type_name("GROUP");
    app->add_flag("--off", m_off, fmt::format("Switch the {} off", what));
}

ExitStatus SettingsCommand::Run()
{
    Check();
    const UserDatabaseLock lock(UserDirectoryOf(m_common), kChangePatience);
    Session session(m_common);
    const SystemName name = FindUserSystem(session, m_group, m_system);
    const UserDatabaseCopy before(session);
    Change(session, name);
    session.Reopen();
    if (!Arrived(session.Database(), name)) {
        const bool whole = before.PutBack();
        throw ToolError(ExitStatus::inputOutput,
                        fmt::format("the settings of \"{}\" were not saved: the user database cannot be written{}",
                                    name.system.ToUtf8(), whole ? "" : ", nor put back as it was"));
    }
    Remark(fmt::format("{} of \"{}\": {}", m_what, name.system.ToUtf8(), Told(session.Database(), name)));
    return ExitStatus::good;
}

void SettingsCommand::Try(Session& session, const SystemName& name, SystemRequest request)
{
    request.group = name.group.ToUtf8();
    request.system = name.system.ToUtf8();
    OpenSystem(session, request);
}

CString SettingsCommand::FindModel(const std::string& wanted, int first)
{
    const std::vector<CString> names(GeoidmodelTypeKeys.begin() + first, GeoidmodelTypeKeys.end());
    return FindName(names, wanted, "model");
}

void SettingsCommand::MustBeFinite(const std::optional<double>& value, const char* option)
{
    if (value && !std::isfinite(*value)) {
        throw ToolError(ExitStatus::usage, fmt::format("{} must be a finite number", option));
    }
}
