#include <algorithm>
#include <cmath>
#include <map>

#include <fmt/format.h>
#include <fmt/ranges.h>

#include "DatabaseText.h"
#include "NameFinder.h"
#include "base/geo/Angles.h"
#include "base/keys/KeyTables.h"
#include "base/text/Numbers.h"
#include "show/SystemJson.h"
#include "system/KnownRecords.h"
#include "system/ProjectionRules.h"
#include "system/Reading.h"

namespace {

constexpr NumberRange kLatitude = {-90.0, 90.0, "a latitude in degrees, -90 to 90, north positive"};
constexpr NumberRange kLongitude = {-180.0, 180.0, "a longitude in degrees, -180 to 180, east positive"};
constexpr NumberRange kAngle = {-360.0, 360.0, "an angle in degrees, -360 to 360"};
constexpr NumberRange kScale = {1e-3, 2.0, "a scale factor near 1"};
constexpr NumberRange kLength = {-1e10, 1e10, "a length in units of the system"};

/// By what the parameter is; a catalogue may tell less than its key does.
const NumberRange& RangeOf(const ProjectionParameter& parameter)
{
    using namespace ProjectionKey;
    switch (parameter.index) {
    case latOrigin:
    case southernParallel:
    case northernParallel:
    case latTrueScale:
        return kLatitude;
    case lonOrigin:
        return kLongitude;
    case scaleFactor:
        return kScale;
    case gridSkew:
    case initialAzimuth:
    case hotineGridSkew:
        return kAngle;
    default:
        return kLength;
    }
}

/// The nodes of the parameters' values, for faults that are seen later.
using Nodes = std::map<int, JsonNode>;

struct MethodChoice {
    int type = -1;
    std::string name;
};

std::optional<MethodChoice> ReadMethod(const Reading& reading, const JsonNode& node)
{
    const auto record = reading.session.NewStaticData();
    CStringArray methods;
    record->GetAllPrjMdNames(methods);
    std::vector<std::string> names;
    for (const CString& method : methods) {
        names.push_back(method.ToUtf8());
    }
    const std::string list = fmt::format("one of {}", fmt::join(names, ", "));
    const auto text = node["method"].RequiredText(list.c_str());
    if (!text) {
        return std::nullopt;
    }
    if (std::find(names.begin(), names.end(), *text) == names.end()) {
        node["method"].Fault(fmt::format("there is no projection method \"{}\"; right is {}", *text, list));
        return std::nullopt;
    }
    const MethodChoice choice{record->GetPrjType(CString::FromUtf8(*text)), *text};
    const auto type = node["type"].Number(AnyNumber("a type number"));
    if (type && *type != choice.type) {
        node["type"].Fault(fmt::format("{} is not the number of \"{}\"; right is {}, or leave it out",
                                       numbers::ToText(*type), *text, choice.type));
    }
    return choice;
}

/// The parameter that an element names by its key, its label or both.
ProjectionParameter* FindParameter(const JsonNode& element, std::vector<ProjectionParameter>& all)
{
    if (!element.IsObjectOf({"key", "name", "value", "unit"})) {
        return nullptr;
    }
    const auto key = element["key"].Text();
    const auto label = element["name"].Text();
    std::vector<std::string> keys;
    for (const ProjectionParameter& parameter : all) {
        keys.push_back(parameter.key);
    }
    const auto found = std::find_if(all.begin(), all.end(), [&](const ProjectionParameter& parameter) {
        return key ? parameter.key == *key : label && parameter.label == *label;
    });
    if (found == all.end()) {
        element.Fault(fmt::format("the method has no parameter \"{}\"; its parameters are {}",
                                  key.value_or(label.value_or("")), fmt::join(keys, ", ")));
        return nullptr;
    }
    if (label && *label != found->label) {
        element["name"].Fault(
            fmt::format("\"{}\" is called \"{}\"; write that, or leave it out", found->key, found->label));
    }
    return &*found;
}

void ReadValue(const JsonNode& element, ProjectionParameter& parameter)
{
    const JsonNode value = element["value"];
    if (parameter.kind == kTextParameter) {
        const auto text = value.RequiredText("a text");
        if (text && text->empty()) {
            value.Fault("the text is empty; see: zorgeo show of a system of this method");
        }
        parameter.text = text.value_or("");
        return;
    }
    element["unit"].MustBe(UnitOfParameter(parameter.kind));
    parameter.value = value.RequiredNumber(RangeOf(parameter)).value_or(std::nan(""));
}

/// Reads every parameter once. False when one of them is missing or no value.
bool ReadParameters(const JsonNode& node, ProjectionParameters& projection, Nodes& nodes)
{
    bool good = true;
    for (const JsonNode& element : node.Elements()) {
        ProjectionParameter* const parameter = FindParameter(element, projection.all);
        if (parameter == nullptr) {
            good = false;
        } else if (!nodes.emplace(parameter->index, element["value"]).second) {
            element.Fault(fmt::format("\"{}\" stands twice; leave one", parameter->key));
        } else {
            ReadValue(element, *parameter);
            good = good && !std::isnan(parameter->value) &&
                   (parameter->kind != kTextParameter || element["value"].Given());
        }
    }
    for (const ProjectionParameter& parameter : projection.all) {
        if (!nodes.contains(parameter.index)) {
            node.Fault(fmt::format("the parameter \"{}\" ({}) is missing; give {}", parameter.key, parameter.label,
                                   parameter.kind == kTextParameter ? "its text" : RangeOf(parameter).what));
            good = false;
        }
    }
    return good;
}

/// The rules of the method. NaN stands for what has told its own fault, and no rule tells of that.
void CheckRules(const JsonNode& node, const ProjectionParameters& projection, const Nodes& nodes,
                const std::optional<UnitParameters>& unit, const std::optional<EllipsoidParameters>& ellipsoid)
{
    const double metres = unit ? unit->metres : std::nan("");
    const double a = ellipsoid ? ellipsoid->a / metres : std::nan("");
    const double e2 = ellipsoid ? ellipsoid->e2 : std::nan("");
    CheckProjectionRules(projection, a, e2, metres, [&](int index, const std::string& what) {
        const auto found = nodes.find(index);
        if (found == nodes.end()) {
            node.Fault(what);
        } else if (!std::isnan(projection[index])) {
            found->second.Fault(what);
        }
    });
}

std::vector<std::string> Differences(const ProjectionParameters& here, const std::string& unit,
                                     const KnownProjection& known)
{
    std::vector<std::string> out;
    const ProjectionParameters& there = known.parameters;
    if (here.type != there.type || here.method != there.method) {
        out.push_back(Differs("method", there.method));
    }
    if (unit != known.unit) {
        out.push_back(Differs("unit", known.unit));
    }
    for (const ProjectionParameter& parameter : here.all) {
        if (here.type != there.type) {
            break;
        }
        // The tolerance with which the module tells projections apart; a pole is stored beside it.
        if (parameter.kind == kTextParameter && parameter.text != there.Text(parameter.index)) {
            out.push_back(Differs(parameter.key, there.Text(parameter.index)));
        } else if (parameter.kind != kTextParameter &&
                   std::fabs(parameter.value - there[parameter.index]) > Epsilon(parameter.value * 100.0)) {
            out.push_back(Differs(parameter.key, there[parameter.index]));
        }
    }
    return out;
}

std::optional<ProjectionParameters> Reused(const Reading& reading, const JsonNode& node,
                                           const ProjectionParameters& projection,
                                           const std::optional<UnitParameters>& unit, const KnownProjection& known)
{
    const std::string& name = known.parameters.name;
    const std::string file = FileOfRecord(reading.session.Files(), kProjectionPrefix, name);
    if (!unit) {
        return std::nullopt;
    }
    if (const auto differences = Differences(projection, unit->name, known); !differences.empty()) {
        TakenFault(node, "projection", name, file, differences);
        return std::nullopt;
    }
    reading.remarks.push_back(fmt::format("the projection \"{}\" is that of {}", name, file));
    return known.parameters;
}

} // namespace

std::optional<ProjectionParameters> ReadProjection(const Reading& reading, const JsonNode& node,
                                                   const std::optional<UnitParameters>& unit,
                                                   const std::optional<EllipsoidParameters>& ellipsoid)
{
    if (!node.IsObjectOf({"name", "type", "method", "parameters"})) {
        return std::nullopt;
    }
    const auto name = reading.Name(node["name"], kProjectionPrefix);
    const auto known = name ? ProjectionInDatabase(reading.session, *name) : std::nullopt;
    if (known && !node["method"].Given() && !node["parameters"].Given() && !node["type"].Given()) {
        return Reused(reading, node, known->parameters, unit, *known);
    }
    const auto method = ReadMethod(reading, node);
    if (!method) {
        return std::nullopt;
    }
    ProjectionParameters projection = ParametersOfType(reading.session, method->type);
    projection.name = name.value_or("");
    projection.method = method->name;
    for (ProjectionParameter& parameter : projection.all) {
        parameter.value = parameter.kind == kTextParameter ? 0.0 : std::nan("");
    }
    Nodes nodes;
    const bool good = ReadParameters(node["parameters"], projection, nodes);
    CheckRules(node, projection, nodes, unit, ellipsoid);
    if (!good || !unit || !ellipsoid) {
        return std::nullopt;
    }
    if (!name) {
        return std::nullopt;
    }
    if (known) {
        return Reused(reading, node, projection, unit, *known);
    }
    reading.remarks.push_back(fmt::format("new projection \"{}\"", *name));
    return projection;
}
