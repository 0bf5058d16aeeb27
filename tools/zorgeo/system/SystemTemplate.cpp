#include "system/SystemTemplate.h"

#include "DatabaseText.h"
#include "NameFinder.h"
#include "base/keys/KeyTables.h"
#include "show/SystemJson.h"
#include "system/KnownRecords.h"

namespace {

using Json = nlohmann::ordered_json;

Json Triple(const char* unit)
{
    return {{"x", nullptr}, {"y", nullptr}, {"z", nullptr}, {"unit", unit}};
}

Json Measure(const char* unit)
{
    return {{"value", nullptr}, {"unit", unit}};
}

Json Unit(Session& session)
{
    const auto metres = UnitInDatabase(session, "Meters");
    if (!metres) {
        return {{"name", nullptr}};
    }
    return {{"name", metres->name}, {"metres", metres->metres}, {"suffix", metres->suffix}};
}

Json Source(Session& session)
{
    const auto known = EllipsoidInDatabase(session, "WGS84");
    if (!known) {
        return {{"name", nullptr}, {"semiMajorAxis", nullptr}, {"inverseFlattening", nullptr}};
    }
    return {{"name", known->name}, {"semiMajorAxis", known->a}, {"inverseFlattening", *known->InverseFlattening()}};
}

Json Datum(Session& session, const CString& method)
{
    Json datum = {{"name", nullptr}, {"method", method.ToUtf8()}, {"description", ""}};
    if (method == kNoTransformation) {
        return datum;
    }
    datum["source"] = Source(session);
    datum["shift"] = Triple("m");
    datum["rotation"] = Triple("arcsec");
    datum["scale"] = Measure("ppm");
    datum["rates"] = nullptr;
    if (method.Find(kFourteen) >= 0) {
        datum["rates"] = {{"shift", Triple("m/yr")},
                          {"rotation", Triple("arcsec/yr")},
                          {"scale", Measure("ppm/yr")},
                          {"epoch", nullptr}};
    }
    datum["fixedHeight"] = nullptr;
    return datum;
}

Json Projection(Session& session, const CString& method, int type)
{
    Json parameters = Json::array();
    for (const ProjectionParameter& parameter : ParametersOfType(session, type).all) {
        Json one = {{"key", parameter.key}, {"name", parameter.label}, {"value", nullptr}};
        if (parameter.kind != kTextParameter) {
            one["unit"] = UnitOfParameter(parameter.kind);
        }
        if (parameter.index == ProjectionKey::gridSkew) {
            one["value"] = 0.0; // few grids have one
        }
        parameters.push_back(one);
    }
    return {{"name", nullptr}, {"type", type}, {"method", method.ToUtf8()}, {"parameters", parameters}};
}

std::vector<CString> Listed(const CStringArray& names)
{
    return {names.begin(), names.end()};
}

} // namespace

Json SystemTemplate(Session& session, const std::string& method, const std::string& datumMethod)
{
    const auto record = session.NewStaticData();
    CStringArray methods;
    record->GetAllPrjMdNames(methods);
    const CString projection = FindName(Listed(methods), method, "projection method");
    std::vector<CString> datumMethods;
    for (const char* known : kDatumMethods) {
        datumMethods.push_back(CString::FromUtf8(known));
    }
    const CString datum = FindName(datumMethods, datumMethod, "datum transformation method");
    return {{"schema", kShowSchema},
            {"group", nullptr},
            {"system", nullptr},
            {"unit", Unit(session)},
            {"ellipsoid", {{"name", nullptr}, {"semiMajorAxis", nullptr}, {"inverseFlattening", nullptr}}},
            {"datum", Datum(session, datum)},
            {"projection", Projection(session, projection, record->GetPrjType(projection))},
            {"geoid", nullptr},
            {"postCorrections", nullptr}};
}
