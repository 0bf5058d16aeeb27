#include <optional>

#include <fmt/format.h>

#include "ToolDesk.h"
#include "ToolError.h"
#include "base/keys/KeyTables.h"
#include "base/text/Numbers.h"
#include "system/SettingsCommand.h"
#include "system/Subcommands.h"

namespace {

constexpr const char* kFooter =
    "Sets the geoid of a system of the user database. The file is opened before anything is written.\n"
    "--off keeps method and file and switches the geoid off; --method alone keeps the file or value.\n\n"
    "Example:\n"
    "  zorgeo system geoid 'Harbour grid' --method Manual --value 45.2 --user zorgeo-try";

CString Wide(const std::string& utf8)
{
    return CString::FromUtf8(utf8);
}

class GeoidSetting : public SettingsCommand {
public:
    explicit GeoidSetting(CLI::App* app) : SettingsCommand(app, "geoid")
    {
        app->add_option("--method", m_method, "Model, or a part of its name; see: zorgeo list geoids")
            ->type_name("MODEL");
        app->add_option("--grid", m_grid, "File of the model")->type_name("FILE");
        app->add_option("--value", m_value, "Fixed separation in units of the system, with --method Manual")
            ->type_name("NUMBER");
        m_common.AddTo(*app, "No effect");
        app->footer(kFooter);
    }

protected:
    void Check() const override
    {
        MustBeFinite(m_value, "--value");
        if (m_off && (!m_method.empty() || !m_grid.empty() || m_value)) {
            throw ToolError(ExitStatus::usage, "--off stands alone: it keeps method, file and value");
        }
        if (!m_off && m_method.empty()) {
            throw ToolError(ExitStatus::usage, "give --method, or --off; see: zorgeo list geoids");
        }
    }

    void Change(Session& session, const SystemName& name) override
    {
        ZorGeoDatabaseBase& database = session.Database();
        const auto& [group, system] = name;
        m_setMethod = m_off ? database.GetDefaultGeoidModelMd(group, system) : FindModel(m_method, GeoidType::manual);
        m_setGrid = m_grid.empty() ? database.GetDefaultGeoidGrid(group, system) : Wide(m_grid);
        m_setValue = m_value.value_or(database.GetGeoidManualSeparation(group, system));
        if (!m_off) {
            CheckGiven(session, name);
        }
        const ToolDesk desk;
        if (IsManual()) {
            database.SetManualGeoidModel(group, system, m_setMethod, m_setValue, !m_off);
        } else {
            database.SetGeoidModel(group, system, m_setMethod, m_setGrid, !m_off);
        }
    }

    bool Arrived(ZorGeoDatabaseBase& database, const SystemName& name) const override
    {
        const auto& [group, system] = name;
        return database.HasGeoidModel(group, system) == !m_off &&
               database.GetDefaultGeoidModelMd(group, system) == m_setMethod &&
               (IsManual() ? database.GetGeoidManualSeparation(group, system) == m_setValue
                           : database.GetDefaultGeoidGrid(group, system) == m_setGrid);
    }

    std::string Told(ZorGeoDatabaseBase&, const SystemName&) const override
    {
        const std::string what = IsManual() ? numbers::ToText(m_setValue) : m_setGrid.ToUtf8();
        return m_off ? "off" : m_setMethod.ToUtf8() + " " + what;
    }

private:
    bool IsManual() const { return m_setMethod == GeoidmodelTypeKeys[GeoidType::manual]; }

    void CheckGiven(Session& session, const SystemName& name) const
    {
        if (IsManual()) {
            const bool had = session.Database().GetDefaultGeoidModelMd(name.group, name.system) == m_setMethod;
            if (!m_grid.empty() || (!m_value && !had)) {
                throw ToolError(ExitStatus::usage, "a fixed separation takes --value, and no --grid");
            }
            return;
        }
        if (m_value || m_setGrid.IsEmpty()) {
            throw ToolError(ExitStatus::usage,
                            fmt::format("the model \"{}\" takes --grid, and no --value", m_setMethod.ToUtf8()));
        }
        SystemRequest request;
        request.geoidModel = m_setMethod.ToUtf8();
        request.geoidFile = m_setGrid.ToUtf8();
        Try(session, name, request);
    }

    std::string m_method;
    std::string m_grid;
    std::optional<double> m_value;
    CString m_setMethod;
    CString m_setGrid;
    double m_setValue = 0.0;
};

} // namespace

std::unique_ptr<Command> MakeSystemGeoid(CLI::App& system)
{
    return std::make_unique<GeoidSetting>(
        system.add_subcommand("geoid", "Set the geoid of a system of the user database"));
}
