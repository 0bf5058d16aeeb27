#include <algorithm>
#include <limits>
#include <string>
#include <tuple>
#include <vector>

#include <fmt/format.h>
#include <nlohmann/json.hpp>

#include "Command.h"
#include "CommonOptions.h"
#include "DatabaseText.h"
#include "NameFinder.h"
#include "Output.h"
#include "Session.h"
#include "SystemAreas.h"
#include "SystemCheck.h"
#include "base/text/Numbers.h"
#include "convert/PlaceText.h"

namespace {

using Json = nlohmann::ordered_json;

constexpr const char* kFindSchema = "zorgeo.find/1";

constexpr const char* kFooter =
    "One system to the line, apart by tabs: name, group, EPSG code, accuracy of the datum transformation\n"
    "in metres, unit. The best accuracy comes first, those without one last; among equals the smaller\n"
    "area of use. Systems of the user database have no area and are not found. Angles are decimal or\n"
    "degrees, minutes, seconds, 52d22'N,4d54'E.\n\n"
    "Example:\n"
    "  zorgeo find --at 52.37,4.90 --datum amersfoort";

/// A delivered system and what its record says.
struct Found {
    const SystemArea* area;
    CString unit;
    CString datum;
};

bool Before(const Found& a, const Found& b)
{
    const auto rank = [](const Found& found) {
        return std::tuple(found.area->accuracy.value_or(std::numeric_limits<double>::infinity()), found.area->Extent());
    };
    return rank(a) < rank(b);
}

std::string CodeText(const SystemArea& area)
{
    return area.code ? fmt::format("EPSG:{}", *area.code) : std::string();
}

std::string AsText(const std::vector<Found>& systems)
{
    std::string text;
    for (const Found& found : systems) {
        const SystemArea& area = *found.area;
        text += fmt::format("{}\t{}\t{}\t{}\t{}\n", area.name, area.groups.front(), CodeText(area),
                            area.accuracy ? numbers::ToText(*area.accuracy) : "", found.unit.ToUtf8());
    }
    return text;
}

Json AreaJson(const SystemArea& area)
{
    Json boxes = Json::array();
    for (const AreaBox& box : area.boxes) {
        boxes.push_back({{"west", box.west}, {"south", box.south}, {"east", box.east}, {"north", box.north}});
    }
    return boxes;
}

std::string AsJson(double latitude, double longitude, const std::vector<Found>& systems)
{
    Json list = Json::array();
    for (const Found& found : systems) {
        const SystemArea& area = *found.area;
        list.push_back({{"name", area.name},
                        {"group", area.groups.front()},
                        {"groups", area.groups},
                        {"code", area.code ? Json(*area.code) : Json(nullptr)},
                        {"accuracy", area.accuracy ? Json(*area.accuracy) : Json(nullptr)},
                        {"unit", found.unit.ToUtf8()},
                        {"datum", found.datum.ToUtf8()},
                        {"area", AreaJson(area)}});
    }
    const Json json = {
        {"schema", kFindSchema}, {"at", {{"latitude", latitude}, {"longitude", longitude}}}, {"systems", list}};
    return json.dump(2) + "\n";
}

class FindCommand : public Command {
public:
    explicit FindCommand(CLI::App* app) : Command(app)
    {
        app->add_option("--at", m_at, "The place, degrees")->required()->type_name("LAT,LON");
        app->add_option("--datum", m_datum, "Only systems whose datum transformation's name contains this text")
            ->type_name("TEXT");
        app->add_option("--match", m_match, "Only names that contain this text, in any case of letters")
            ->type_name("TEXT");
        m_common.AddTo(*app, "Write a JSON object with the array \"systems\"");
        app->footer(kFooter);
    }

    ExitStatus Run() override
    {
        double latitude = 0.0;
        double longitude = 0.0;
        if (const Fault fault = ReadPlace(m_at, latitude, longitude); fault != nullptr) {
            throw ToolError(
                ExitStatus::usage,
                fmt::format("--at {}: {}; give latitude and longitude like 52.37,4.90 or 52d22'N,4d54'E", m_at, fault));
        }
        Session session(m_common);
        const SystemAreas areas(session.DataDirectory());
        for (const std::string& fault : areas.Faults()) {
            Remark(fault);
        }
        std::vector<Found> systems = Holding(session, areas, latitude, longitude);
        const std::size_t held = systems.size();
        std::erase_if(systems, [this](const Found& found) { return !Wanted(found); });
        std::stable_sort(systems.begin(), systems.end(), Before);
        WriteToStdout(m_common.json ? AsJson(latitude, longitude, systems) : AsText(systems));
        if (systems.empty()) {
            Remark(held == 0
                       ? fmt::format("no system's area of use holds {}", m_at)
                       : fmt::format("none of the {} systems whose area of use holds {} is such a one", held, m_at));
        }
        return areas.Faults().empty() ? ExitStatus::good : ExitStatus::badLines;
    }

private:
    static std::vector<Found> Holding(Session& session, const SystemAreas& areas, double latitude, double longitude)
    {
        std::vector<Found> systems;
        for (const SystemArea& area : areas.All()) {
            if (!area.Holds(latitude, longitude)) {
                continue;
            }
            const SystemName name{CString::FromUtf8(area.groups.front()), CString::FromUtf8(area.name)};
            const FileObject* const file = FileOfSystem(session.Files(), name);
            if (file == nullptr) {
                Remark(
                    fmt::format("the database has no system \"{}\", which {} lists", area.name, kAreasFile.ToUtf8()));
                continue;
            }
            Found& found = systems.emplace_back(Found{&area, {}, {}});
            file->GetItem(kSystemPrefix + name.system, kUnitName, found.unit);
            file->GetItem(kSystemPrefix + name.system, kSystemDatum, found.datum);
        }
        return systems;
    }

    bool Wanted(const Found& found) const
    {
        return ContainsNoCase(found.datum, CString::FromUtf8(m_datum)) &&
               ContainsNoCase(CString::FromUtf8(found.area->name), CString::FromUtf8(m_match));
    }

    std::string m_at;
    std::string m_datum;
    std::string m_match;
    CommonOptions m_common;
};

} // namespace

std::unique_ptr<Command> MakeFindCommand(CLI::App& program)
{
    return std::make_unique<FindCommand>(
        program.add_subcommand("find", "List the systems whose area of use holds a place"));
}
