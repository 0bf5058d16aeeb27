#include "show/SystemJson.h"

#include <array>
#include <cmath>

namespace {

using Json = nlohmann::ordered_json;

/// By the catalogue's kinds of parameters.
constexpr unsigned kKindLength = 3;
constexpr unsigned kKindText = 6;
constexpr std::array<const char*, 7> kUnitOfKind = {"", "degree", "degree", "", "unity", "degree", ""};

Json Triple(const std::array<double, 3>& values, const char* unit)
{
    return {{"x", values[0]}, {"y", values[1]}, {"z", values[2]}, {"unit", unit}};
}

Json EllipsoidJson(const EllipsoidParameters& ellipsoid)
{
    const auto inverse = ellipsoid.InverseFlattening();
    return {{"name", ellipsoid.name},
            {"semiMajorAxis", ellipsoid.a},
            {"semiMinorAxis", ellipsoid.SemiMinor()},
            {"squaredEccentricity", ellipsoid.e2},
            {"inverseFlattening", inverse ? Json(*inverse) : Json(nullptr)}};
}

Json Rates(const DatumParameters& datum)
{
    if (!datum.moves) {
        return nullptr;
    }
    return {{"shift", Triple(datum.shiftRate, "m/yr")},
            {"rotation", Triple(datum.rotationRate, "arcsec/yr")},
            {"scale", {{"value", datum.scaleRate}, {"unit", "ppm/yr"}}},
            {"epoch", datum.epoch}};
}

Json Datum(const DatumParameters& datum)
{
    Json json = {{"name", datum.name}, {"method", datum.method}, {"description", datum.description}};
    if (!datum.on) {
        return json;
    }
    json["source"] = EllipsoidJson(datum.source);
    json["target"] = EllipsoidJson(datum.target);
    json["shift"] = Triple(datum.shift, "m");
    json["rotation"] = Triple(datum.rotation, "arcsec");
    json["scale"] = {{"value", datum.scale}, {"unit", "ppm"}};
    json["rates"] = Rates(datum);
    json["fixedHeight"] = nullptr;
    if (datum.fixedHeight) {
        json["fixedHeight"] = {{"forward", datum.fixedHeightForward}, {"reverse", datum.fixedHeightReverse}};
    }
    return json;
}

Json Parameter(const ProjectionParameter& parameter)
{
    Json json = {{"key", parameter.key}, {"name", parameter.label}};
    if (parameter.kind == kKindText) {
        json["value"] = parameter.text;
        return json;
    }
    json["value"] = parameter.value;
    json["unit"] = UnitOfParameter(parameter.kind);
    return json;
}

Json Projection(const ProjectionParameters& projection)
{
    Json parameters = Json::array();
    for (const ProjectionParameter& parameter : projection.all) {
        parameters.push_back(Parameter(parameter));
    }
    return {{"name", projection.name},
            {"type", projection.type},
            {"method", projection.method},
            {"parameters", parameters}};
}

Json Geoid(const GeoidParameters& geoid)
{
    if (geoid.method.empty()) {
        return nullptr;
    }
    return {{"method", geoid.method},
            {"grid", geoid.grid},
            {"chartDatum", geoid.chartDatum},
            {"separation", geoid.separation ? Json(*geoid.separation) : Json(nullptr)}};
}

Json Post(const PostParameters& post)
{
    Json json = {{"model", nullptr}, {"shift", nullptr}, {"horizontalAdjust", nullptr}, {"verticalAdjust", nullptr}};
    if (!post.model.empty()) {
        json["model"] = {{"method", post.model}, {"file", post.file}};
    }
    if (post.shift) {
        json["shift"] = {{"x", (*post.shift)[0]}, {"y", (*post.shift)[1]}, {"z", (*post.shift)[2]}};
    }
    if (const auto& adjust = post.horizontal) {
        json["horizontalAdjust"] = {{"originX", adjust->originX},
                                    {"originY", adjust->originY},
                                    {"rotation", {{"value", adjust->rotation}, {"unit", "arcsec"}}},
                                    {"scale", adjust->scale}};
    }
    if (const auto& adjust = post.vertical) {
        json["verticalAdjust"] = {{"originX", adjust->originX},
                                  {"originY", adjust->originY},
                                  {"slopeX", {{"value", adjust->slopeX}, {"unit", "ppm"}}},
                                  {"slopeY", {{"value", adjust->slopeY}, {"unit", "ppm"}}}};
    }
    return json;
}

} // namespace

const char* UnitOfParameter(unsigned kind)
{
    if (kind == kKindLength) {
        return "system";
    }
    return kUnitOfKind[kind < kUnitOfKind.size() ? kind : 0];
}

Json SystemJson(const SystemParameters& system)
{
    return {{"schema", kShowSchema},
            {"group", system.group},
            {"system", system.system},
            {"database", system.custom ? "user" : "main"},
            {"description", system.description},
            {"unit", {{"name", system.unitName}, {"metres", system.metresPerUnit}, {"suffix", system.unitSuffix}}},
            {"ellipsoid", EllipsoidJson(system.ellipsoid)},
            {"datum", Datum(system.datum)},
            {"projection", Projection(system.projection)},
            {"geoid", Geoid(system.geoid)},
            {"postCorrections", Post(system.post)}};
}
