#include "show/Proj4Reading.h"

#include <algorithm>
#include <cmath>

#include <fmt/format.h>

#include "base/keys/KeyTables.h"
#include "show/LinearDatum.h"

namespace {

using namespace ProjectionKey;
using Lines = std::vector<std::string>;

constexpr double kMillimetre = 0.001;
constexpr double kMetresPerDegree = 111319.5;
constexpr double kReach = 500000.0;    // metres from the origin, at which a scale factor is weighed
constexpr double kEarthRadius = 6.4e6; // metres, to weigh what turns or scales the whole
constexpr double kSecondsPerRadian = 206264.80624709636;
constexpr double kRightAngle = 90.0;

/// As the text has it.
double SixDecimals(double value)
{
    return std::round(value * 1e6) / 1e6;
}

std::string Millimetres(double metres)
{
    return metres < 1.0 ? fmt::format("{:.1f} mm", metres * 1000.0) : fmt::format("{:.1f} m", metres);
}

double Width(double value, double exact)
{
    return std::fabs(value - exact);
}

// The units come from "+units=m", which goes before "+to_meter": coordinates and false origins are
// taken for metres.
void Units(const SystemParameters& system, Lines& lines)
{
    if (system.metresPerUnit != 1.0) {
        lines.push_back(fmt::format("\"+units=m\" goes before \"+to_meter\": coordinates come out in metres, {} times "
                                    "those in {}, and the false origin is taken for metres",
                                    fmt::to_string(system.metresPerUnit), system.unitName));
    }
}

/// What a type's operation does with its parameters.
void TransverseMercator(const ProjectionParameters& p, Lines& lines)
{
    if (p[gridSkew] != 0.0) {
        lines.push_back(fmt::format("the grid skew of {} degrees is not in the text", fmt::to_string(p[gridSkew])));
    }
}

void Utm(const ProjectionParameters& p, double metresPerUnit, Lines& lines)
{
    TransverseMercator(p, lines);
    int zone = 0;
    const std::string text = p.Text(utmZone);
    const auto digits = text.find_first_of("0123456789");
    if (text.rfind("Zone", 0) == 0 && digits != std::string::npos) {
        zone = std::atoi(text.c_str() + digits);
    }
    if (zone < 1 || zone > 60) {
        lines.push_back(fmt::format("the zone text \"{}\" gives zone {}, which PROJ does not have", text, zone));
        return;
    }
    const double meridian = 6.0 * zone - 183.0;
    const double northing = p.Text(hemisphere) == "Southern" ? 10000000.0 : 0.0;
    if (p[lonOrigin] != meridian || p[latOrigin] != 0.0 || p[scaleFactor] != 0.9996 ||
        p[falseEasting] * metresPerUnit != 500000.0 || p[falseNorthing] * metresPerUnit != northing) {
        lines.push_back(fmt::format("\"+proj=utm\" has the constants of zone {}{} in metres, and the record has others",
                                    zone, northing > 0.0 ? " south" : ""));
    }
}

void RD(const ProjectionParameters& p, Lines& lines)
{
    constexpr double kLat = 52.15616055555555;
    constexpr double kLon = 5.38763888888889;
    constexpr double kScale = 0.999908;
    const double shift =
        std::max({Width(p[latOrigin], kLat) * kMetresPerDegree, Width(p[lonOrigin], kLon) * kMetresPerDegree,
                  Width(p[falseEasting], 155000.0), Width(p[falseNorthing], 463000.0)});
    if (shift > kMillimetre) {
        lines.push_back(
            fmt::format("the text has the Dutch grid's origin whatever the record says: {} off", Millimetres(shift)));
    }
    const double stretch = Width(p[scaleFactor], kScale) * 1e5;
    if (stretch > kMillimetre) {
        lines.push_back(fmt::format("the text has the scale factor 0.999908, the record {}: {} at 100 km",
                                    fmt::to_string(p[scaleFactor]), Millimetres(stretch)));
    }
}

void Mercator(const ProjectionParameters& p, Lines& lines)
{
    if (p[lonOrigin] != 0.0) {
        lines.push_back(fmt::format("\"merc\" does not know \"+lonc\": the longitude of origin {} counts as 0",
                                    fmt::to_string(p[lonOrigin])));
    }
    if (p[scaleFactor] != 1.0) {
        lines.push_back(fmt::format("\"+lat_ts\" goes before \"+k_0\": the scale factor {} is not used",
                                    fmt::to_string(p[scaleFactor])));
    }
    if (p[latOrigin] != 0.0) {
        lines.push_back(fmt::format("\"merc\" does not know \"+lat_0\": northings are counted from the equator and not "
                                    "from {}",
                                    fmt::to_string(p[latOrigin])));
    }
}

void Cassini(const ProjectionParameters& p, Lines& lines)
{
    if (p[scaleFactor] != 1.0) {
        lines.push_back(fmt::format("\"cass\" has no scale factor: \"+k_0\" of {} is not used (nor does the module use "
                                    "it)",
                                    fmt::to_string(p[scaleFactor])));
    }
    lines.emplace_back("\"cass\" computes northings otherwise than the module away from latitude 45: up to 55 mm at 2 "
                       "degrees from the central meridian");
}

void Projection(const SystemParameters& system, Lines& lines)
{
    const ProjectionParameters& p = system.projection;
    switch (p.type) {
    case 0:
        return TransverseMercator(p, lines);
    case 1:
        return Utm(p, system.metresPerUnit, lines);
    case 2:
        return RD(p, lines);
    case 4:
        return Mercator(p, lines);
    case 8:
        return Cassini(p, lines);
    case 9:
        lines.emplace_back(
            "type 9 counts from the natural origin, and the text lacks \"+no_uoff\": PROJ counts from the "
            "projection centre");
        return;
    case 13:
        if (p[initialAzimuth] == kRightAngle) {
            lines.emplace_back("with an azimuth of 90 degrees \"omerc\" loses digits: up to 0.1 m");
        }
        return;
    case 14:
        if (p[latOrigin] != 0.0) {
            lines.push_back(
                fmt::format("\"poly\" lacks \"+lat_0\": northings are counted from the equator and not from "
                            "{}",
                            fmt::to_string(p[latOrigin])));
        }
        return;
    default:
        return;
    }
}

/// What a kind of the catalogue weighs on the ground: metres to the unit of the value.
double MetresOfKind(unsigned kind, double metresPerUnit)
{
    constexpr std::array<double, 6> kMetres = {0.0, kMetresPerDegree, kMetresPerDegree, 0.0, kReach, kReach / 57.3};
    return kind == 3 ? metresPerUnit : kind < kMetres.size() ? kMetres[kind] : 0.0;
}

void Digits(const SystemParameters& system, Lines& lines)
{
    // These two texts have none of the record's constants.
    if (system.projection.type == 1 || system.projection.type == 2) {
        return;
    }
    for (const ProjectionParameter& parameter : system.projection.all) {
        const double loss =
            Width(SixDecimals(parameter.value), parameter.value) * MetresOfKind(parameter.kind, system.metresPerUnit);
        if (loss > kMillimetre && parameter.index != gridSkew) {
            lines.push_back(fmt::format("six decimals cut \"{}\", {}: {}{}", parameter.label,
                                        fmt::to_string(parameter.value), Millimetres(loss),
                                        parameter.kind > 3 ? " at 500 km" : ""));
        }
    }
}

/// The largest difference between the seven negated numbers, as PROJ applies them from local to
/// satellite, and the module's way back.
double MissOfNegatedDatum(const DatumParameters& datum)
{
    const LinearDatum exact = TurnedRound(datum);
    double miss = 0.0;
    double turned = 0.0;
    for (std::size_t i = 0; i < 3; ++i) {
        miss += std::pow(SixDecimals(-datum.shift[i]) - exact.shift[i], 2.0);
        turned += std::pow((SixDecimals(-datum.rotation[i]) - exact.rotation[i]) / kSecondsPerRadian, 2.0);
    }
    return std::sqrt(miss) + (std::sqrt(turned) + Width(SixDecimals(-datum.scale), exact.scale) * 1e-6) * kEarthRadius;
}

void Datum(const SystemParameters& system, Lines& lines)
{
    const DatumParameters& datum = system.datum;
    if (!datum.on) {
        if (Width(system.ellipsoid.a, 6378137.0) > kMillimetre ||
            Width(system.ellipsoid.e2, 0.00669437999014) > 1e-12) {
            lines.emplace_back("\"+towgs84\" of zeros changes from this ellipsoid to that of WGS 84, and the module "
                               "changes nothing");
        }
        return;
    }
    if (const double miss = MissOfNegatedDatum(datum); miss > kMillimetre) {
        lines.push_back(fmt::format("the negated datum parameters are not the inverse: up to {}", Millimetres(miss)));
    }
    if (datum.moves) {
        lines.push_back(
            fmt::format("the rates of the datum are not in the text: right at {} alone", fmt::to_string(datum.epoch)));
    }
    if (datum.fixedHeight) {
        lines.emplace_back("the fixed heights of the datum are not in the text");
    }
    if (Width(datum.source.a, 6378137.0) > kMillimetre || Width(datum.source.e2, 0.00669437999014) > 1e-12) {
        lines.push_back(
            fmt::format("\"+towgs84\" ends on the ellipsoid of WGS 84, the datum begins on \"{}\"", datum.source.name));
    }
}

void Corrections(const SystemParameters& system, Lines& lines)
{
    if (!system.geoid.method.empty()) {
        lines.emplace_back("the geoid is not in the text: heights are ellipsoidal");
    }
    const PostParameters& post = system.post;
    if (!post.model.empty() || post.shift || post.horizontal || post.vertical) {
        lines.emplace_back("the post corrections are not in the text");
    }
}

} // namespace

std::vector<std::string> ReadOtherwiseByProj(const SystemParameters& system)
{
    Lines lines;
    Units(system, lines);
    Projection(system, lines);
    Digits(system, lines);
    Datum(system, lines);
    Corrections(system, lines);
    return lines;
}
