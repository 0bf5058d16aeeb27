#include "show/CrsJson.h"

#include <cmath>
#include <numbers>

#include <fmt/format.h>

#include "ToolError.h"
#include "base/keys/KeyTables.h"
#include "show/LinearDatum.h"
#include "show/ProjProjection.h"

namespace {

using Json = nlohmann::ordered_json;
using namespace ProjectionKey;

constexpr double kLargestMiss = 0.001; // metres
constexpr double kHalfTurn = 180.0;
constexpr double kWgs84Axis = 6378137.0;
constexpr double kWgs84InverseFlattening = 298.257223563;
constexpr double kSameInverseFlattening = 1e-8; // 2 micrometres of the polar axis

[[noreturn]] void Refuse(const std::string& reason)
{
    throw ToolError(ExitStatus::unusable, reason + "; --as proj gives the whole system");
}

Json Id(int code)
{
    return {{"authority", "EPSG"}, {"code", code}};
}

Json LinearUnit(const SystemParameters& system)
{
    if (system.metresPerUnit == 1.0) {
        return "metre";
    }
    return {{"type", "LinearUnit"}, {"name", system.unitName}, {"conversion_factor", system.metresPerUnit}};
}

/// A parameter of an EPSG method: its name and code, and where its value comes from.
enum class Unit { degree, unity, length };
struct CrsParameter {
    const char* name;
    int code;
    int index; ///< of projectionParamKeys
    Unit unit;
};

constexpr CrsParameter kLatOrigin = {"Latitude of natural origin", 8801, latOrigin, Unit::degree};
constexpr CrsParameter kLonOrigin = {"Longitude of natural origin", 8802, lonOrigin, Unit::degree};
constexpr CrsParameter kScale = {"Scale factor at natural origin", 8805, scaleFactor, Unit::unity};
constexpr CrsParameter kFalseEasting = {"False easting", 8806, falseEasting, Unit::length};
constexpr CrsParameter kFalseNorthing = {"False northing", 8807, falseNorthing, Unit::length};

/// The parameters of a Hotine projection but for its false origin.
constexpr CrsParameter kCentreLat = {"Latitude of projection centre", 8811, latOrigin, Unit::degree};
constexpr CrsParameter kCentreLon = {"Longitude of projection centre", 8812, lonOrigin, Unit::degree};
constexpr CrsParameter kAzimuth = {"Azimuth of initial line", 8813, initialAzimuth, Unit::degree};
constexpr CrsParameter kSkewAngle = {"Angle from Rectified to Skew Grid", 8814, hotineGridSkew, Unit::degree};
constexpr CrsParameter kCentreScale = {"Scale factor on initial line", 8815, scaleFactor, Unit::unity};

/// An EPSG method and what it is called.
struct CrsMethod {
    int type;
    const char* name;
    int code;
    std::vector<CrsParameter> parameters;
};

const std::vector<CrsMethod>& Methods()
{
    static const std::vector<CrsParameter> kPlain = {kLatOrigin, kLonOrigin, kScale, kFalseEasting, kFalseNorthing};
    static const std::vector<CrsParameter> kUnscaled = {kLatOrigin, kLonOrigin, kFalseEasting, kFalseNorthing};
    static const std::vector<CrsMethod> methods = {
        {0, "Transverse Mercator", 9807, kPlain},
        {1, "Transverse Mercator", 9807, kPlain},
        {2, "Oblique Stereographic", 9809, kPlain},
        {3,
         "Lambert Conic Conformal (2SP)",
         9802,
         {{"Latitude of false origin", 8821, latOrigin, Unit::degree},
          {"Longitude of false origin", 8822, lonOrigin, Unit::degree},
          {"Latitude of 1st standard parallel", 8823, southernParallel, Unit::degree},
          {"Latitude of 2nd standard parallel", 8824, northernParallel, Unit::degree},
          {"Easting at false origin", 8826, falseEasting, Unit::length},
          {"Northing at false origin", 8827, falseNorthing, Unit::length}}},
        {4, "Mercator (variant A)", 9804, kPlain},
        {7, "Oblique Stereographic", 9809, kPlain},
        {8, "Cassini-Soldner", 9806, kUnscaled},
        {9,
         "Hotine Oblique Mercator (variant A)",
         9812,
         {kCentreLat, kCentreLon, kAzimuth, kSkewAngle, kCentreScale, kFalseEasting, kFalseNorthing}},
        {12, "Lambert Conic Conformal (1SP)", 9801, kPlain},
        {13,
         "Hotine Oblique Mercator (variant B)",
         9815,
         {kCentreLat,
          kCentreLon,
          kAzimuth,
          kSkewAngle,
          kCentreScale,
          {"Easting at projection centre", 8816, eastingAtCentre, Unit::length},
          {"Northing at projection centre", 8817, northingAtCentre, Unit::length}}},
        {14, "American Polyconic", 9818, kUnscaled},
        {15, "Polar Stereographic (variant A)", 9810, kPlain}};
    return methods;
}

constexpr int kMercator = 4;
constexpr int kPolar = 15;

bool IsNorthern(const SystemParameters& system)
{
    return system.projection.Text(hemisphere) == "Northern";
}

/// The value of a parameter; the methods of two types take some of them from elsewhere.
double Value(const SystemParameters& system, int index)
{
    const int type = system.projection.type;
    if (type == kPolar && index == latOrigin) {
        return IsNorthern(system) ? 90.0 : -90.0;
    }
    if (type == kMercator && index == latOrigin) {
        return 0.0;
    }
    if (type == kMercator && index == scaleFactor) {
        return OnEquator(system).scale;
    }
    if (type == kMercator && index == falseNorthing) {
        return OnEquator(system).falseNorthing;
    }
    return system.projection[index];
}

bool IsSouthOrientated(const SystemParameters& system)
{
    return std::fabs(system.projection[gridSkew]) == kHalfTurn && system.projection.type != kMercator;
}

Json Conversion(const SystemParameters& system)
{
    const CrsMethod* method = nullptr;
    for (const CrsMethod& row : Methods()) {
        method = row.type == system.projection.type ? &row : method;
    }
    if (method == nullptr) {
        Refuse(fmt::format("there is no published method for projection type {}", system.projection.type));
    }
    Json parameters = Json::array();
    for (const CrsParameter& row : method->parameters) {
        const Json unit = row.unit == Unit::degree  ? Json("degree")
                          : row.unit == Unit::unity ? Json("unity")
                                                    : LinearUnit(system);
        parameters.push_back(
            {{"name", row.name}, {"value", Value(system, row.index)}, {"unit", unit}, {"id", Id(row.code)}});
    }
    const bool south = IsSouthOrientated(system);
    return {{"name", system.projection.name},
            {"method",
             {{"name", south ? "Transverse Mercator (South Orientated)" : method->name},
              {"id", Id(south ? 9808 : method->code)}}},
            {"parameters", parameters}};
}

Json Axis(const char* name, const char* abbreviation, const char* direction, const Json& unit)
{
    return {{"name", name}, {"abbreviation", abbreviation}, {"direction", direction}, {"unit", unit}};
}

Json PolarAxis(const char* name, const char* abbreviation, bool north, double meridian, const Json& unit)
{
    Json axis = Axis(name, abbreviation, north ? "south" : "north", unit);
    axis["meridian"] = {{"longitude", meridian}};
    return axis;
}

Json GridAxes(const SystemParameters& system)
{
    const Json unit = LinearUnit(system);
    Json axes = {Axis("Easting", "E", "east", unit), Axis("Northing", "N", "north", unit)};
    if (IsSouthOrientated(system)) {
        axes = {Axis("Westing", "Y", "west", unit), Axis("Southing", "X", "south", unit)};
    } else if (system.projection.type == kPolar) {
        const bool north = IsNorthern(system);
        axes = {PolarAxis("Easting", "E", north, 90.0, unit),
                PolarAxis("Northing", "N", north, north ? 180.0 : 0.0, unit)};
    }
    return {{"subtype", "Cartesian"}, {"axis", axes}};
}

Json EllipsoidJson(const EllipsoidParameters& ellipsoid)
{
    Json json = {{"name", ellipsoid.name}};
    if (const auto inverse = ellipsoid.InverseFlattening()) {
        json["semi_major_axis"] = ellipsoid.a;
        json["inverse_flattening"] = *inverse;
    } else {
        json["radius"] = ellipsoid.a;
    }
    return json;
}

bool IsWgs84(const EllipsoidParameters& ellipsoid)
{
    const auto inverse = ellipsoid.InverseFlattening();
    return ellipsoid.a == kWgs84Axis && inverse &&
           std::fabs(*inverse - kWgs84InverseFlattening) < kSameInverseFlattening;
}

Json GeographicCrs(const EllipsoidParameters& ellipsoid, const std::string& name, const std::string& datum)
{
    return {{"type", "GeographicCRS"},
            {"name", name},
            {"datum", {{"type", "GeodeticReferenceFrame"}, {"name", datum}, {"ellipsoid", EllipsoidJson(ellipsoid)}}},
            {"coordinate_system",
             {{"subtype", "ellipsoidal"},
              {"axis",
               {Axis("Geodetic latitude", "Lat", "north", "degree"),
                Axis("Geodetic longitude", "Lon", "east", "degree")}}}}};
}

Json SatelliteCrs(const EllipsoidParameters& ellipsoid)
{
    if (IsWgs84(ellipsoid)) {
        return GeographicCrs(ellipsoid, "WGS 84", "World Geodetic System 1984");
    }
    return GeographicCrs(ellipsoid, "Satellite frame on " + ellipsoid.name, "Satellite datum on " + ellipsoid.name);
}

Json LocalCrs(const SystemParameters& system)
{
    if (!system.datum.on && IsWgs84(system.ellipsoid)) {
        return SatelliteCrs(system.ellipsoid);
    }
    return GeographicCrs(system.ellipsoid, system.system + ", local geographic", system.system + ", local datum");
}

Json DatumParameter(const char* name, int code, double value, const Json& unit)
{
    return {{"name", name}, {"value", value}, {"unit", unit}, {"id", Id(code)}};
}

Json Transformation(const SystemParameters& system)
{
    const LinearDatum linear = TurnedRound(system.datum);
    if (linear.largestMiss > kLargestMiss) {
        Refuse(fmt::format("the rotations of the datum transformation are too large for seven published parameters, "
                           "which take small angles as they are: {:.1f} mm",
                           linear.largestMiss * 1000.0));
    }
    const Json seconds = {
        {"type", "AngularUnit"}, {"name", "arc-second"}, {"conversion_factor", std::numbers::pi / 180.0 / 3600.0}};
    const Json millionths = {{"type", "ScaleUnit"}, {"name", "parts per million"}, {"conversion_factor", 1e-6}};
    const Json parameters = {DatumParameter("X-axis translation", 8605, linear.shift[0], "metre"),
                             DatumParameter("Y-axis translation", 8606, linear.shift[1], "metre"),
                             DatumParameter("Z-axis translation", 8607, linear.shift[2], "metre"),
                             DatumParameter("X-axis rotation", 8608, linear.rotation[0], seconds),
                             DatumParameter("Y-axis rotation", 8609, linear.rotation[1], seconds),
                             DatumParameter("Z-axis rotation", 8610, linear.rotation[2], seconds),
                             DatumParameter("Scale difference", 8611, linear.scale, millionths)};
    return {{"name", system.datum.name + ", turned round"},
            {"method", {{"name", "Position Vector transformation (geog2D domain)"}, {"id", Id(9606)}}},
            {"parameters", parameters}};
}

void RefuseProjection(const SystemParameters& system)
{
    const double skew = system.projection.type == kMercator ? 0.0 : system.projection[gridSkew];
    if (skew != 0.0 && !IsSouthOrientated(system)) {
        Refuse(fmt::format("no published method has a grid skew ({} degrees)", skew));
    }
    if (system.projection.type == 3 && system.projection[southernParallel] == system.projection[northernParallel]) {
        Refuse("the two parallels are equal, and the module then has no positions");
    }
}

void RefuseCorrections(const SystemParameters& system)
{
    const PostParameters& post = system.post;
    const bool shifted = post.shift && (*post.shift)[0] != 0.0;
    const bool shiftedNorth = post.shift && ((*post.shift)[1] != 0.0 || (*post.shift)[2] != 0.0);
    if (shifted || shiftedNorth || post.horizontal || post.vertical || !post.model.empty()) {
        Refuse("a coordinate reference system has no post corrections");
    }
    if (!system.geoid.method.empty()) {
        Refuse("a projected coordinate reference system has no heights, and this system has a geoid; to export the "
               "rest: --geoid-model=--None--");
    }
}

void RefuseDatum(const SystemParameters& system)
{
    const DatumParameters& datum = system.datum;
    if (!datum.on) {
        return;
    }
    if (datum.moves) {
        Refuse("the datum transformation moves, and its 14 parameters cannot be turned round in the form that a bound "
               "system needs");
    }
    if (datum.fixedHeight) {
        Refuse("no published method transforms at fixed heights");
    }
    if (std::fabs(datum.target.a - system.ellipsoid.a) > 1e-6 ||
        std::fabs(datum.target.e2 - system.ellipsoid.e2) > 1e-15) {
        Refuse(fmt::format("the datum transformation ends on the ellipsoid \"{}\", and the projection stands on \"{}\"",
                           datum.target.name, system.ellipsoid.name));
    }
}

} // namespace

Json CrsJson(const SystemParameters& system)
{
    RefuseProjection(system);
    RefuseCorrections(system);
    RefuseDatum(system);
    Json projected = {{"type", "ProjectedCRS"},
                      {"name", system.system},
                      {"base_crs", LocalCrs(system)},
                      {"conversion", Conversion(system)},
                      {"coordinate_system", GridAxes(system)}};
    if (!system.datum.on) {
        return projected;
    }
    return {{"type", "BoundCRS"},
            {"source_crs", projected},
            {"target_crs", SatelliteCrs(system.datum.source)},
            {"transformation", Transformation(system)}};
}
