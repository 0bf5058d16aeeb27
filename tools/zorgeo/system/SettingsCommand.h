#pragma once

#include <optional>
#include <string>

#include "Command.h"
#include "CommonOptions.h"
#include "Session.h"
#include "SystemOpener.h"

/// A change of settings of one system of the user database: which system it is, the lock, and the
/// look whether the change arrived. What is set is the derived class's.
class SettingsCommand : public Command {
public:
    ExitStatus Run() override;

protected:
    /// `what` is set; it stands in the help and in messages.
    SettingsCommand(CLI::App* app, const char* what);

    /// Throws ToolError (2) for options that do not go together.
    virtual void Check() const = 0;
    /// Makes the change, after a look whether it would work.
    virtual void Change(Session& session, const SystemName& name) = 0;
    /// Whether the database holds what was set.
    virtual bool Arrived(ZorGeoDatabaseBase& database, const SystemName& name) const = 0;
    virtual std::string Told(ZorGeoDatabaseBase& database, const SystemName& name) const = 0;

    /// Opens the system with other models than it has. Throws ToolError (3) when one cannot be used.
    static void Try(Session& session, const SystemName& name, SystemRequest request);
    /// A model of the table from `first` on, by its name or a part of it. Throws ToolError (2).
    static CString FindModel(const std::string& wanted, int first);
    /// Throws ToolError (2) for NaN and infinity.
    static void MustBeFinite(const std::optional<double>& value, const char* option);

    CommonOptions m_common;
    bool m_off = false;

private:
    const char* m_what;
    std::string m_system;
    std::string m_group;
};
