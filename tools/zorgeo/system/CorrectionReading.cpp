#include <algorithm>
#include <filesystem>

#include <fmt/format.h>

#include "base/keys/KeyTables.h"
#include "platform/Platform.h"
#include "system/Reading.h"

namespace {

constexpr NumberRange kRotation = {-1296000.0, 1296000.0, "arc seconds, -1296000 to 1296000"};
constexpr NumberRange kAdjustScale = {0.5, 2.0, "a ratio near 1"};
constexpr NumberRange kSlope = {-1e6, 1e6, "parts per million, -1000000 to 1000000"};

/// A model's name as the table spells it. A fault for one that is not there.
std::optional<std::string> ModelName(const JsonNode& node, int first)
{
    const auto name = node.RequiredText("the name of a model; see: zorgeo list geoids");
    if (!name) {
        return std::nullopt;
    }
    const auto begin = GeoidmodelTypeKeys.begin() + first;
    if (std::find(begin, GeoidmodelTypeKeys.end(), CString::FromUtf8(*name)) == GeoidmodelTypeKeys.end()) {
        node.Fault(fmt::format("there is no model \"{}\" here; see: zorgeo list geoids", *name));
        return std::nullopt;
    }
    return name;
}

void RemarkWhenMissing(const Reading& reading, const std::string& file)
{
    std::error_code ignored;
    if (!file.empty() && !std::filesystem::exists(host::PathOf(file), ignored)) {
        reading.remarks.push_back(fmt::format("{}: there is no such file here; conversions will ask for it", file));
    }
}

} // namespace

GeoidParameters ReadGeoid(const Reading& reading, const JsonNode& node)
{
    GeoidParameters geoid;
    if (!node.Given() || !node.IsObjectOf({"method", "grid", "chartDatum", "separation"})) {
        return geoid;
    }
    const auto method = ModelName(node["method"], GeoidType::manual);
    geoid.method = method.value_or("");
    geoid.chartDatum = node["chartDatum"].Text().value_or("");
    if (!method) {
        return geoid;
    }
    const auto grid = node["grid"].Text().value_or("");
    const bool manual = CString::FromUtf8(*method) == GeoidmodelTypeKeys[GeoidType::manual];
    if (manual) {
        geoid.separation = node["separation"].RequiredNumber(AnyNumber("the separation in units of the system"));
        if (!grid.empty()) {
            node["grid"].Fault("a fixed separation has no file; leave the grid out, or name the model of the file");
        }
        return geoid;
    }
    if (node["separation"].Given()) {
        node["separation"].Fault(fmt::format("the separation goes with the method \"{}\"; leave it out",
                                             GeoidmodelTypeKeys[GeoidType::manual].ToUtf8()));
    }
    if (grid.empty()) {
        node["grid"].Fault("missing or empty; give the file of the model");
    }
    geoid.grid = grid;
    RemarkWhenMissing(reading, grid);
    return geoid;
}

PostParameters ReadPost(const Reading& reading, const JsonNode& node)
{
    PostParameters post;
    if (!node.Given() || !node.IsObjectOf({"model", "shift", "horizontalAdjust", "verticalAdjust"})) {
        return post;
    }
    const NumberRange length = AnyNumber("units of the system");
    if (const JsonNode model = node["model"]; model.Given() && model.IsObjectOf({"method", "file"})) {
        post.model = ModelName(model["method"], GeoidType::firstModel).value_or("");
        post.file = model["file"].RequiredText("the file of the model").value_or("");
        RemarkWhenMissing(reading, post.file);
    }
    if (const JsonNode shift = node["shift"]; shift.Given() && shift.IsObjectOf({"x", "y", "z"})) {
        post.shift = {shift["x"].RequiredNumber(length).value_or(0.0), shift["y"].RequiredNumber(length).value_or(0.0),
                      shift["z"].RequiredNumber(length).value_or(0.0)};
    }
    if (const JsonNode adjust = node["horizontalAdjust"];
        adjust.Given() && adjust.IsObjectOf({"originX", "originY", "rotation", "scale"})) {
        post.horizontal = {adjust["originX"].RequiredNumber(length).value_or(0.0),
                           adjust["originY"].RequiredNumber(length).value_or(0.0),
                           adjust["rotation"].RequiredMeasure(kRotation, "arcsec").value_or(0.0),
                           adjust["scale"].RequiredNumber(kAdjustScale).value_or(1.0)};
    }
    if (const JsonNode adjust = node["verticalAdjust"];
        adjust.Given() && adjust.IsObjectOf({"originX", "originY", "slopeX", "slopeY"})) {
        post.vertical = {adjust["originX"].RequiredNumber(length).value_or(0.0),
                         adjust["originY"].RequiredNumber(length).value_or(0.0),
                         adjust["slopeX"].RequiredMeasure(kSlope, "ppm").value_or(0.0),
                         adjust["slopeY"].RequiredMeasure(kSlope, "ppm").value_or(0.0)};
    }
    return post;
}
