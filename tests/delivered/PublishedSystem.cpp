#include "PublishedSystem.h"

#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <stdexcept>

namespace {

constexpr int kWgs84 = 4326;
constexpr double kDegrees = 57.295779513082320876798;

using Object = std::unique_ptr<PJ, PJ* (*)(PJ*)>;

Object Made(PJ* raw, const std::string& what)
{
    if (raw == nullptr) {
        throw std::runtime_error("PROJ does not make " + what);
    }
    return {raw, proj_destroy};
}

Object FromDatabase(PJ_CONTEXT* context, int code, PJ_CATEGORY category)
{
    const std::string text = std::to_string(code);
    return Made(proj_create_from_database(context, "EPSG", text.c_str(), category, 0, nullptr), "EPSG " + text);
}

struct FirstAxis {
    std::string name;
    double factor = 1.0;
};

FirstAxis AxisOf(PJ_CONTEXT* context, const PJ* crs)
{
    const Object system = Made(proj_crs_get_coordinate_system(context, crs), "a coordinate system");
    const char* name = nullptr;
    double factor = 1.0;
    proj_cs_get_axis_info(context, system.get(), 0, &name, nullptr, nullptr, &factor, nullptr, nullptr, nullptr);
    return {name == nullptr ? "" : name, factor};
}

// The one step of `text`, a PROJ pipeline, that moves cartesian positions; empty for none.
std::string MovingStep(const std::string& text)
{
    for (const char* name : {"+proj=helmert", "+proj=molobadekas"}) {
        const std::size_t at = text.find(name);
        if (at != std::string::npos) {
            return text.substr(at, text.find("+step", at) - at) + " ";
        }
    }
    return "";
}

std::string ShapeOf(PJ_CONTEXT* context, const PJ* crs)
{
    const Object ellipsoid = Made(proj_get_ellipsoid(context, crs), "an ellipsoid");
    double a = 0.0;
    double b = 0.0;
    proj_ellipsoid_get_parameters(context, ellipsoid.get(), &a, &b, nullptr, nullptr);
    char text[100];
    std::snprintf(text, sizeof text, "+a=%.17g +b=%.17g ", a, b);
    return text;
}

// A parameter of a conversion, in degrees or metres.
double Parameter(PJ_CONTEXT* context, const PJ* conversion, int code)
{
    const int count = proj_coordoperation_get_param_count(context, conversion);
    for (int i = 0; i < count; ++i) {
        const char* found = nullptr;
        double value = 0.0;
        proj_coordoperation_get_param(context, conversion, i, nullptr, nullptr, &found, &value, nullptr, nullptr,
                                      nullptr, nullptr, nullptr, nullptr);
        if (found != nullptr && std::atoi(found) == code) {
            return value;
        }
    }
    throw std::runtime_error("a conversion has no parameter " + std::to_string(code));
}

bool IsPolarVariantC(PJ_CONTEXT* context, const PJ* conversion)
{
    const char* method = nullptr;
    proj_coordoperation_get_method_info(context, conversion, nullptr, nullptr, &method);
    return method != nullptr && std::atoi(method) == 9830;
}

// PROJ 9.1 has no polar stereographic of variant C. It is variant B, moved so that the false origin
// lies on the standard parallel (IOGP guidance note 7-2, method 9830). Latitude and longitude in
// degrees.
Object PolarVariantC(PJ_CONTEXT* context, const PJ* conversion, const std::string& ellipsoid)
{
    char text[300];
    const double parallel = Parameter(context, conversion, 8832);
    const double longitude = Parameter(context, conversion, 8833);
    std::snprintf(text, sizeof text, "+proj=stere +lat_0=-90 +lat_ts=%.17g +lon_0=%.17g ", parallel, longitude);
    const std::string plain = text + ellipsoid;
    const Object map = Made(proj_create(context, plain.c_str()), plain);
    const double northing =
        proj_trans(map.get(), PJ_FWD, proj_coord(longitude / kDegrees, parallel / kDegrees, 0, HUGE_VAL)).xy.y;
    std::snprintf(text, sizeof text, "+x_0=%.17g +y_0=%.17g", Parameter(context, conversion, 8826),
                  Parameter(context, conversion, 8827) - northing);
    const std::string moved = "+proj=pipeline +step +proj=axisswap +order=2,1 +step +proj=unitconvert +xy_in=deg "
                              "+xy_out=rad +step " +
                              plain + text;
    return Made(proj_create(context, moved.c_str()), moved);
}

PJ_COORD Applied(const PJ* operation, PJ_DIRECTION direction, double x, double y)
{
    // proj_trans keeps the error state in the object, and gives HUGE_VAL where it fails.
    PJ* const changing = const_cast<PJ*>(operation);
    proj_errno_reset(changing);
    return proj_trans(changing, direction, proj_coord(x, y, 0.0, HUGE_VAL));
}

} // namespace

PublishedSystem::PublishedSystem(PJ_CONTEXT* context, int code, int transformation)
{
    const Object projected = FromDatabase(context, code, PJ_CATEGORY_CRS);
    const Object geographic = Made(proj_crs_get_geodetic_crs(context, projected.get()), "a geographic system");
    m_conversion = Made(proj_crs_get_coordoperation(context, projected.get()), "a conversion");
    if (IsPolarVariantC(context, m_conversion.get())) {
        m_conversion = PolarVariantC(context, m_conversion.get(), ShapeOf(context, geographic.get()));
    }
    ReadMeridian(context, geographic.get());
    ReadAxes(context, projected.get(), geographic.get());
    if (transformation != 0) {
        MakeRoad(context, geographic.get(), transformation);
    }
}

void PublishedSystem::ReadMeridian(PJ_CONTEXT* context, const PJ* geographic)
{
    const Object meridian = Made(proj_get_prime_meridian(context, geographic), "a meridian");
    double factor = 1.0;
    proj_prime_meridian_get_parameters(context, meridian.get(), &m_meridian, &factor, nullptr);
    m_meridian *= factor * kDegrees;
}

void PublishedSystem::ReadAxes(PJ_CONTEXT* context, const PJ* projected, const PJ* geographic)
{
    const FirstAxis angle = AxisOf(context, geographic);
    m_degreesPerAngle = angle.factor * kDegrees;
    m_latitudeFirst = angle.name.find("atitude") != std::string::npos;
    const std::string first = AxisOf(context, projected).name;
    m_eastingFirst = first == "Easting" || first == "Westing";
}

void PublishedSystem::MakeRoad(PJ_CONTEXT* context, const PJ* geographic, int transformation)
{
    const Object operation = FromDatabase(context, transformation, PJ_CATEGORY_COORDINATE_OPERATION);
    const Object source = Made(proj_get_source_crs(context, operation.get()), "a source");
    m_roadFromSatellite = std::atoi(proj_get_id_code(source.get(), 0)) == kWgs84;
    const char* text = proj_as_proj_string(context, operation.get(), PJ_PROJ_5, nullptr);
    const std::string step = text == nullptr ? "" : MovingStep(text);
    const std::string local = "+step +proj=cart " + ShapeOf(context, geographic);
    const std::string wgs84 = "+step +proj=cart +ellps=WGS84 ";
    // The published pipelines of geographic systems drop heights: here they stay.
    std::string road = "+proj=pipeline +step +proj=unitconvert +xy_in=deg +xy_out=rad ";
    road += m_roadFromSatellite ? wgs84 : local;
    road += step.empty() ? "" : "+step " + step;
    road += "+step +inv " + (m_roadFromSatellite ? local : wgs84).substr(6);
    road += "+step +proj=unitconvert +xy_in=rad +xy_out=deg";
    m_road = Made(proj_create(context, road.c_str()), road);
}

PublishedSystem::Pair PublishedSystem::ToGrid(double latitude, double longitude) const
{
    const double a = latitude / m_degreesPerAngle;
    const double b = (longitude - m_meridian) / m_degreesPerAngle;
    const PJ_COORD grid = Applied(m_conversion.get(), PJ_FWD, m_latitudeFirst ? a : b, m_latitudeFirst ? b : a);
    return m_eastingFirst ? Pair{grid.v[0], grid.v[1]} : Pair{grid.v[1], grid.v[0]};
}

PublishedSystem::Pair PublishedSystem::FromGrid(double easting, double northing) const
{
    const PJ_COORD place =
        Applied(m_conversion.get(), PJ_INV, m_eastingFirst ? easting : northing, m_eastingFirst ? northing : easting);
    return {place.v[m_latitudeFirst ? 0 : 1] * m_degreesPerAngle,
            place.v[m_latitudeFirst ? 1 : 0] * m_degreesPerAngle + m_meridian};
}

PublishedSystem::Pair PublishedSystem::ToSatellite(double latitude, double longitude) const
{
    if (!m_road) {
        return {latitude, longitude};
    }
    const PJ_COORD place = Applied(m_road.get(), m_roadFromSatellite ? PJ_INV : PJ_FWD, longitude, latitude);
    return {place.lpz.phi, place.lpz.lam, place.lpz.z};
}
