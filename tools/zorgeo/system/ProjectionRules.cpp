#include "system/ProjectionRules.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <iterator>
#include <numbers>

#include <fmt/format.h>

#include "base/keys/KeyTables.h"
#include "base/text/Numbers.h"

namespace {

using namespace ProjectionKey;
using Fault = std::function<void(int index, const std::string& what)>;

constexpr double kLeastScale = 0.8;
constexpr double kSmallestAxis = 6000000.0; // system units; some classes use no smaller ellipsoid
constexpr double kRad = std::numbers::pi / 180.0;
constexpr double kSouthernFalseNorthing = 10000000.0; // metres
constexpr double kSameMetres = 0.01;

/// A projection with the ellipsoid that it stands on.
struct Subject {
    const ProjectionParameters& projection;
    double a;
    double e2;
    double metresPerUnit;
    const Fault& fault;

    double operator[](int index) const { return projection[index]; }
};

void RefusesSmallScale(const Subject& p)
{
    if (p[scaleFactor] < kLeastScale) {
        p.fault(scaleFactor, fmt::format("{} is below 0.8, which {} refuses; right is a factor near 1, 0.9996 for UTM",
                                         numbers::ToText(p[scaleFactor]), p.projection.method));
    }
}

void NeedsLargeAxis(const Subject& p)
{
    if (p.a < kSmallestAxis) {
        p.fault(lonOrigin, fmt::format("the semi-major axis is {} units of the system, and {} refuses one below "
                                       "6000000; take a smaller unit, metres or feet",
                                       numbers::ToText(p.a), p.projection.method));
    }
}

void IsNorthern(const Subject& p, int index)
{
    if (p[index] < 0.0) {
        p.fault(index, fmt::format("{} is south of the equator, and {} takes a northern cone alone; right is 0 or more",
                                   numbers::ToText(p[index]), p.projection.method));
    }
}

void TransverseMercator(const Subject& p)
{
    RefusesSmallScale(p);
}

void Lambert2(const Subject& p)
{
    for (const int index : {latOrigin, southernParallel, northernParallel}) {
        IsNorthern(p, index);
    }
    if (p[southernParallel] == p[northernParallel]) {
        p.fault(northernParallel, fmt::format("both parallels are {}, and the cone's constant would be 0/0; right are "
                                              "two parallels, or the method \"Lambert 1 Parallel\"",
                                              numbers::ToText(p[northernParallel])));
    }
}

void Lambert1(const Subject& p)
{
    IsNorthern(p, latOrigin);
    if (p[latOrigin] == 0.0) {
        p.fault(latOrigin, "on the equator the cone is a cylinder without an apex; take the method \"Mercator\"");
    }
}

void Mercator(const Subject& p)
{
    for (const int index : {latOrigin, latTrueScale}) {
        if (std::fabs(p[index]) == 90.0) {
            p.fault(index, "the poles are infinitely far away on this projection; right is a latitude between them");
        }
    }
}

void Stereographic(const Subject& p)
{
    RefusesSmallScale(p);
    if (std::fabs(p[latOrigin]) == 90.0) {
        p.fault(latOrigin, "this method has no formulas at a pole; take \"Universal Polar Stereographic\"");
    }
}

bool IsHemisphere(const Subject& p)
{
    const std::string text = p.projection.Text(hemisphere);
    if (text == "Northern" || text == "Southern") {
        return true;
    }
    if (text.empty()) {
        return false;
    }
    p.fault(hemisphere, fmt::format("\"{}\" is no hemisphere; right is \"Northern\" or \"Southern\"", text));
    return false;
}

void PolarStereographic(const Subject& p)
{
    RefusesSmallScale(p);
    IsHemisphere(p);
}

void CheckZone(const Subject& p)
{
    const std::string text = p.projection.Text(utmZone);
    if (text.empty()) {
        return;
    }
    int zone = 0;
    if (std::sscanf(text.c_str(), "Zone %d", &zone) != 1 && !numbers::Read(text, zone)) {
        zone = 0;
    }
    if (zone < 1 || zone > 60) {
        p.fault(utmZone, fmt::format("\"{}\" is no zone; right is 1 to 60 in the form \"{}\"", text, ZoneText(31)));
        return;
    }
    if (text != ZoneText(zone)) {
        p.fault(utmZone, fmt::format("\"{}\" is not the form of a zone; right is \"{}\"", text, ZoneText(zone)));
    }
    if (std::fabs(p[lonOrigin] - (6.0 * zone - 183.0)) > 0.0) {
        p.fault(lonOrigin, fmt::format("{} is not the central meridian of zone {}; right is {}",
                                       numbers::ToText(p[lonOrigin]), zone, 6 * zone - 183));
    }
}

void Utm(const Subject& p)
{
    RefusesSmallScale(p);
    CheckZone(p);
    if (!IsHemisphere(p)) {
        return;
    }
    const double right = p.projection.Text(hemisphere) == "Northern" ? 0.0 : kSouthernFalseNorthing;
    if (std::fabs(p[falseNorthing] * p.metresPerUnit - right) > kSameMetres) {
        p.fault(falseNorthing, fmt::format("{} is not the false northing of the {} hemisphere; right is {:.10g}",
                                           numbers::ToText(p[falseNorthing]), right == 0.0 ? "northern" : "southern",
                                           right / p.metresPerUnit));
    }
}

/// The constants of the oblique Mercator that can fail to be numbers (Snyder 1987, p. 74, with the
/// letters D, F, gamma0 and lambda0 there), with the steps in the order in which the classes take
/// them: at an azimuth of 90 a last bit decides.
bool HotineHasConstants(const Subject& p, bool fromCentre)
{
    const double phi = p[latOrigin] * kRad;
    const double azimuth = p[initialAzimuth];
    const double sine = std::sin(phi);
    const double cosine = std::cos(phi);
    const double B = std::sqrt(1.0 + cosine * cosine * cosine * cosine * p.e2 / (1.0 - p.e2));
    double D = std::sqrt(1.0 - p.e2) * B / (std::sqrt(1.0 - p.e2 * sine * sine) * cosine);
    const double sign = p[latOrigin] < 0.0 ? -1.0 : 1.0;
    if (!fromCentre && D * D < 1.0) {
        D = 1.0;
    }
    const double F = D >= 1.0 ? std::sqrt(D * D - 1.0) * sign + D : D;
    const double gamma0 = std::asin(std::sin(azimuth * kRad) / D);
    if (fromCentre && azimuth == 90.0) {
        return std::isfinite(gamma0);
    }
    const double lambda0 = std::asin(std::tan(gamma0) * (F - 1.0 / F) / 2.0) / B;
    const double uc = fromCentre ? std::atan(std::sqrt(D * D - 1.0) / std::cos(azimuth * kRad)) : 0.0;
    return std::isfinite(gamma0) && std::isfinite(lambda0) && std::isfinite(uc);
}

void Hotine(const Subject& p, bool fromCentre)
{
    NeedsLargeAxis(p);
    if (std::fabs(p[latOrigin]) == 90.0) {
        p.fault(latOrigin, "the initial line has no azimuth at a pole; right is a latitude between the poles");
    } else if (std::isfinite(p[latOrigin] + p[initialAzimuth] + p.e2) && !HotineHasConstants(p, fromCentre)) {
        p.fault(initialAzimuth,
                fmt::format("with {} the projection's constants are no numbers (an arc sine beyond 1); right is an "
                            "azimuth off the east-west line, {}",
                            numbers::ToText(p[initialAzimuth]),
                            numbers::ToText(std::copysign(89.9999, p[initialAzimuth]))));
    }
}

void HotineA(const Subject& p)
{
    Hotine(p, false);
}

void HotineB(const Subject& p)
{
    Hotine(p, true);
}

struct Rule {
    int type;
    void (*check)(const Subject& subject);
};
constexpr Rule kRules[] = {{0, TransverseMercator}, {1, Utm},     {3, Lambert2},  {4, Mercator}, {7, Stereographic},
                           {8, RefusesSmallScale},  {9, HotineA}, {12, Lambert1}, {13, HotineB}, {14, NeedsLargeAxis},
                           {15, PolarStereographic}};

} // namespace

std::string ZoneText(int zone)
{
    const int meridian = 6 * zone - 183;
    return fmt::format("Zone {:2d}     ({:3d} {})", zone, std::abs(meridian), meridian < 0 ? 'W' : 'E');
}

void CheckProjectionRules(const ProjectionParameters& projection, double a, double e2, double metresPerUnit,
                          const Fault& fault)
{
    const Subject subject{projection, a, e2, metresPerUnit, fault};
    const auto* const rule = std::find_if(std::begin(kRules), std::end(kRules),
                                          [&projection](const Rule& row) { return row.type == projection.type; });
    if (rule != std::end(kRules)) {
        rule->check(subject);
    }
}
