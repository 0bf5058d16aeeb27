#include <algorithm>
#include <cmath>
#include <iterator>
#include <optional>
#include <string>
#include <vector>

#include <fmt/format.h>
#include <nlohmann/json.hpp>

#include "Command.h"
#include "CommonOptions.h"
#include "Output.h"
#include "Session.h"
#include "SystemOpener.h"
#include "SystemOptions.h"
#include "base/text/Numbers.h"
#include "show/CrsExport.h"
#include "show/ModuleText.h"
#include "show/Proj4Reading.h"
#include "show/ProjPipeline.h"
#include "show/SystemJson.h"
#include "show/TextSheet.h"

namespace {

/// A system in hand, and what is asked about it.
struct Shown {
    Session& session;
    const OpenedSystem& opened;
    std::optional<Place> about;
    bool raw = false;

    ModuleText Text() const { return {session, opened}; }
    SystemParameters Parameters() const { return ReadSystem(session, opened); }
};

SystemExport Sheet(const Shown& shown)
{
    const std::string description = shown.Text().Description(true);
    return {shown.raw ? description : MakeSheet(shown.Parameters(), shown.opened, description, shown.about), {}};
}

SystemExport Id(const Shown& shown)
{
    const std::string description = shown.Text().Description(false);
    return {shown.raw ? description : ForTerminal(description), {}};
}

SystemExport Xml(const Shown& shown)
{
    return shown.Text().Xml();
}

SystemExport Proj4(const Shown& shown)
{
    const CString text = shown.opened.coordSys->GetGDALProj4CoordSysText();
    if (text.IsEmpty()) {
        throw ToolError(ExitStatus::unusable, "this projection has no fixed PROJ.4 text; --as proj gives a pipeline");
    }
    SystemExport out{text.ToUtf8() + "\n", {}};
    for (const std::string& line : ReadOtherwiseByProj(shown.Parameters())) {
        out.remarks.push_back("PROJ reads it otherwise: " + line);
    }
    return out;
}

SystemExport GeoKeys(const Shown& shown)
{
    return {shown.Text().GeoKeys(), {}};
}

SystemExport Utm(const Shown& shown)
{
    return {shown.Text().Utm(), {}};
}

SystemExport JsonText(const Shown& shown)
{
    return {SystemJson(shown.Parameters()).dump(2) + "\n", {}};
}

SystemExport Proj(const Shown& shown)
{
    return MakeProjPipeline(shown.Parameters());
}

SystemExport Wkt2(const Shown& shown)
{
    return MakeCrs(shown.Parameters(), CrsNotation::wkt2);
}

SystemExport ProjJson(const Shown& shown)
{
    return MakeCrs(shown.Parameters(), CrsNotation::projjson);
}

struct Form {
    const char* name;
    SystemExport (*make)(const Shown&);
    bool raw; ///< --raw has a meaning
};

constexpr Form kForms[] = {{"text", Sheet, true},       {"id", Id, true},
                           {"xml", Xml, false},         {"proj4", Proj4, false},
                           {"geokeys", GeoKeys, false}, {"utm", Utm, false},
                           {"json", JsonText, false},   {"proj", Proj, false},
                           {"wkt2", Wkt2, false},       {"projjson", ProjJson, false}};

constexpr const char* kFooter =
    "Forms: text is a sheet to print and sign, id the same parameters without names, xml the module's\n"
    "fragments in one document, proj4 its fixed PROJ.4 text, geokeys its GeoTIFF keys, utm zone and\n"
    "hemisphere, json everything with all digits. Exact, for PROJ: proj is a pipeline from latitude,\n"
    "longitude, height to the grid, wkt2 and projjson a coordinate reference system. What another\n"
    "program has to know stands on standard error; what a form cannot say is refused with status 3.\n\n"
    "Example:\n"
    "  zorgeo show 'ED50 - UTM zone 31N' --group 'North Sea' --as proj";

class ShowCommand : public Command {
public:
    explicit ShowCommand(CLI::App* app) : Command(app)
    {
        std::vector<std::string> names;
        std::transform(std::begin(kForms), std::end(kForms), std::back_inserter(names),
                       [](const Form& form) { return std::string(form.name); });
        AddSystemName(*app, m_system);
        m_form =
            app->add_option("--as", m_as, "The form: text, id, xml, proj4, geokeys, utm, json, proj, wkt2, projjson")
                ->type_name("FORM")
                ->capture_default_str()
                ->check(CLI::IsMember(names));
        app->add_option("--at", m_at, "The place of the worked example, satellite frame, degrees")
            ->type_name("LAT,LON");
        app->add_flag("--raw", m_raw, "text and id: the module's own bytes, with their line ends");
        AddSystemOptions(*app, m_system);
        m_common.AddTo(*app, "The same as --as json");
        app->footer(kFooter);
    }

    ExitStatus Run() override
    {
        const Form& form = ChosenForm();
        const std::optional<Place> about = PlaceOf(m_at);
        Session session(m_common);
        const OpenedSystem opened = OpenSystem(session, m_system);
        const SystemExport shown = form.make({session, opened, about, m_raw});
        WriteToStdout(shown.text);
        for (const std::string& remark : shown.remarks) {
            Remark(remark);
        }
        return ExitStatus::good;
    }

private:
    const Form& ChosenForm() const
    {
        if (m_common.json && m_form->count() > 0 && m_as != "json") {
            throw ToolError(ExitStatus::usage, fmt::format("--json and --as {} exclude each other", m_as));
        }
        const std::string name = m_common.json ? "json" : m_as;
        const Form& form = *std::find_if(std::begin(kForms), std::end(kForms),
                                         [&name](const Form& known) { return name == known.name; });
        if (m_raw && !form.raw) {
            throw ToolError(ExitStatus::usage, "--raw goes with --as text and --as id");
        }
        if (!m_at.empty() && (name != "text" || m_raw)) {
            throw ToolError(ExitStatus::usage, "--at goes with --as text");
        }
        return form;
    }

    static std::optional<Place> PlaceOf(const std::string& text)
    {
        if (text.empty()) {
            return std::nullopt;
        }
        Place place;
        const auto comma = text.find(',');
        const bool read = comma != std::string::npos && numbers::Read(text.substr(0, comma), place.latitude) &&
                          numbers::Read(text.substr(comma + 1), place.longitude);
        // Written so that NaN fails.
        if (!read || !(std::fabs(place.latitude) <= 90.0) || !(std::fabs(place.longitude) <= 360.0)) {
            throw ToolError(ExitStatus::usage,
                            fmt::format("--at {}: give latitude and longitude in degrees, 52.1,5.4", text));
        }
        return place;
    }

    SystemRequest m_system;
    CommonOptions m_common;
    std::string m_as = "text";
    std::string m_at;
    bool m_raw = false;
    CLI::Option* m_form = nullptr; // owned by the sub-command
};

} // namespace

std::unique_ptr<Command> MakeShowCommand(CLI::App& program)
{
    return std::make_unique<ShowCommand>(
        program.add_subcommand("show", "Show one system: for people, and exactly for other programs"));
}
