#include "system/NewSystem.h"

#include <algorithm>

#include <fmt/format.h>

#include "DatabaseText.h"
#include "show/SystemJson.h"
#include "system/JsonFile.h"
#include "system/KnownRecords.h"
#include "system/Reading.h"

namespace {

/// Where a system of this name stands: "the group \"Harbours\" of the user database".
std::string PlaceOfSystem(Session& session, const std::string& name)
{
    const CString wide = CString::FromUtf8(name);
    const std::string file = FileOfRecord(session.Files(), kSystemPrefix, name);
    for (const CString& group : session.Groups()) {
        const std::vector<CString> systems = session.Systems(group);
        if (std::find(systems.begin(), systems.end(), wide) != systems.end()) {
            return fmt::format("the group \"{}\" of {}", group.ToUtf8(), file);
        }
    }
    return file + ", in no group";
}

std::optional<std::string> ReadSystemName(const Reading& reading, const JsonNode& node)
{
    const auto name = reading.Name(node, kSystemPrefix);
    if (name && name->find_first_not_of("0123456789") == std::string::npos) {
        node.Fault(fmt::format("the name \"{}\" is a number, which the counter of a group could be taken for; add a "
                               "word",
                               *name));
        return std::nullopt;
    }
    return name;
}

/// A system's name is never taken over, not even with equal content: a file that is added twice is
/// told.
void CheckSystemIsNew(const Reading& reading, const JsonNode& node, const SystemParameters& system)
{
    if (system.system.empty() || !HasRecord(reading.session.Files(), kSystemPrefix, system.system)) {
        return;
    }
    const bool equal = AuthoringRecordOf(reading.session, system)->CheckSystemIsEqual(&reading.session.Database()) == 1;
    node.Fault(fmt::format("the name \"{}\" is taken by a system {} ({}); {}", system.system,
                           equal ? "with the same parts" : "with other parts",
                           PlaceOfSystem(reading.session, system.system),
                           equal ? "there is nothing to add, or take another name" : "take another name"));
}

void CheckHead(const JsonNode& root)
{
    root["schema"].MustBe(kShowSchema);
    if (const auto database = root["database"].Text(); database && *database != "user" && *database != "main") {
        root["database"].Fault(
            "right is \"user\" or \"main\", or leave it out: a new system goes to the user database");
    }
}

void ReadParts(Reading& reading, const JsonNode& root, SystemParameters& out)
{
    out.group = reading.Name(root["group"], kGroupPrefix).value_or("");
    out.system = ReadSystemName(reading, root["system"]).value_or("");
    if (!out.group.empty() && !HasRecord(reading.session.Files(), kGroupPrefix, out.group)) {
        reading.remarks.push_back(fmt::format("new group \"{}\"", out.group));
    }
    out.custom = true;
    if (!root["description"].Text().value_or("").empty()) {
        reading.remarks.push_back("the description is left out: the user database keeps none of a system");
    }
    const auto unit = ReadUnit(reading, root["unit"]);
    const auto ellipsoid = ReadEllipsoid(reading, root["ellipsoid"]);
    const auto datum = ReadDatum(reading, root["datum"], ellipsoid);
    const auto projection = ReadProjection(reading, root["projection"], unit, ellipsoid);
    out.geoid = ReadGeoid(reading, root["geoid"]);
    out.post = ReadPost(reading, root["postCorrections"]);
    if (unit) {
        out.unitName = unit->name;
        out.unitSuffix = unit->suffix;
        out.metresPerUnit = unit->metres;
    }
    out.ellipsoid = ellipsoid.value_or(out.ellipsoid);
    out.datum = datum.value_or(out.datum);
    out.projection = projection.value_or(out.projection);
}

} // namespace

NewSystem ReadNewSystem(Session& session, const std::string& file, const std::string& text)
{
    FaultList faults(file == "-" ? "standard input" : file);
    const nlohmann::ordered_json json = ParseJson(text, faults);
    if (json.is_null()) {
        faults.ThrowIfAny();
    }
    NewSystem out;
    const JsonNode root(json, "", faults);
    if (root.IsObjectOf({"schema", "group", "system", "database", "description", "unit", "ellipsoid", "datum",
                         "projection", "geoid", "postCorrections"})) {
        Reading reading{session, out.remarks};
        CheckHead(root);
        ReadParts(reading, root, out.parameters);
        CheckSystemIsNew(reading, root["system"], out.parameters);
    }
    faults.ThrowIfAny();
    return out;
}
