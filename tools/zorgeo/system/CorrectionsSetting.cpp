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
    "Sets the post shifts and the post model of a system of the user database; what is not given stays.\n"
    "--off switches the shifts off and takes the model out, which has no switch of its own.\n"
    "--model None takes the model out alone.\n\n"
    "Example:\n"
    "  zorgeo system corrections 'Harbour grid' --x 1.5 --y -2 --z 0 --user zorgeo-try";

CString Wide(const std::string& utf8)
{
    return CString::FromUtf8(utf8);
}

class CorrectionsSetting : public SettingsCommand {
public:
    explicit CorrectionsSetting(CLI::App* app) : SettingsCommand(app, "post corrections")
    {
        const auto number = [app](const char* option, std::optional<double>& value, const char* help) {
            app->add_option(option, value, help)->type_name("NUMBER");
        };
        number("--x", m_x, "Shift of eastings, in units of the system");
        number("--y", m_y, "Shift of northings");
        number("--z", m_z, "Shift of heights");
        app->add_option("--model", m_model, "Post model, or a part of its name; None for none")->type_name("MODEL");
        app->add_option("--file", m_file, "File of the model")->type_name("FILE");
        m_common.AddTo(*app, "No effect");
        app->footer(kFooter);
    }

protected:
    void Check() const override
    {
        MustBeFinite(m_x, "--x");
        MustBeFinite(m_y, "--y");
        MustBeFinite(m_z, "--z");
        const bool any = m_x || m_y || m_z || !m_model.empty() || !m_file.empty();
        if (m_off && any) {
            throw ToolError(ExitStatus::usage, "--off stands alone");
        }
        if (!m_off && !any) {
            throw ToolError(ExitStatus::usage, "give --x, --y, --z, --model, --file or --off");
        }
    }

    void Change(Session& session, const SystemName& name) override
    {
        ZorGeoDatabaseBase& database = session.Database();
        const auto& [group, system] = name;
        database.GetGridCorrection(group, system, m_setX, m_setY, m_setZ);
        m_setX = m_x.value_or(m_setX);
        m_setY = m_y.value_or(m_setY);
        m_setZ = m_z.value_or(m_setZ);
        m_use = !m_off && (m_x || m_y || m_z || database.HasPostCorrection(group, system));
        if (!m_off) {
            ChooseModel(session, name);
        }
        const ToolDesk desk;
        database.SetpostCorrections(group, system, m_setX, m_setY, m_setZ, m_setModel, m_setFile, m_use);
    }

    bool Arrived(ZorGeoDatabaseBase& database, const SystemName& name) const override
    {
        const auto& [group, system] = name;
        double x = 0.0;
        double y = 0.0;
        double z = 0.0;
        database.GetGridCorrection(group, system, x, y, z);
        return database.HasPostCorrection(group, system) == m_use && x == m_setX && y == m_setY && z == m_setZ &&
               database.GetDefaultGridCorrectionModel(group, system) == m_setModel &&
               database.GetDefaultGridCorrectionFile(group, system) == m_setFile;
    }

    std::string Told(ZorGeoDatabaseBase&, const SystemName&) const override
    {
        const std::string model = m_setModel.IsEmpty() ? "no model" : m_setModel.ToUtf8() + " " + m_setFile.ToUtf8();
        return m_use ? fmt::format("shifts {}, {}, {}; {}", numbers::ToText(m_setX), numbers::ToText(m_setY),
                                   numbers::ToText(m_setZ), model)
                     : "no shifts; " + model;
    }

private:
    void ChooseModel(Session& session, const SystemName& name)
    {
        ZorGeoDatabaseBase& database = session.Database();
        const CString none = GeoidmodelTypeKeys[GeoidType::none];
        if (!m_model.empty()) {
            m_setModel = Wide(m_model).CompareNoCase(none) == 0 ? CString() : FindModel(m_model, GeoidType::firstModel);
        } else {
            m_setModel = database.GetDefaultGridCorrectionModel(name.group, name.system);
        }
        if (m_setModel.IsEmpty()) {
            if (!m_file.empty()) {
                throw ToolError(ExitStatus::usage, "--file needs a model; give --model");
            }
            return;
        }
        m_setFile = m_file.empty() ? database.GetDefaultGridCorrectionFile(name.group, name.system) : Wide(m_file);
        if (m_setFile.IsEmpty()) {
            throw ToolError(ExitStatus::usage, "--model needs a file; give --file");
        }
        SystemRequest request;
        request.geoidModel = "--None--";
        request.postModel = m_setModel.ToUtf8();
        request.postFile = m_setFile.ToUtf8();
        Try(session, name, request);
    }

    std::optional<double> m_x;
    std::optional<double> m_y;
    std::optional<double> m_z;
    std::string m_model;
    std::string m_file;
    double m_setX = 0.0;
    double m_setY = 0.0;
    double m_setZ = 0.0;
    bool m_use = false;
    CString m_setModel;
    CString m_setFile;
};

} // namespace

std::unique_ptr<Command> MakeSystemCorrections(CLI::App& system)
{
    return std::make_unique<CorrectionsSetting>(
        system.add_subcommand("corrections", "Set the post corrections of a system of the user database"));
}
