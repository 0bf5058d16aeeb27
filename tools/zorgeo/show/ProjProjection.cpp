#include "show/ProjProjection.h"

#include <cmath>
#include <numbers>

#include <fmt/format.h>

#include "ToolError.h"
#include "base/keys/KeyTables.h"

namespace {

using namespace ProjectionKey;

constexpr double kRadiansPerDegree = std::numbers::pi / 180.0;
constexpr double kRightAngle = 90.0;
constexpr int kHotineB = 13;

/// "+lat_0 +lon_0" of the natural origin.
ProjStep& Origin(ProjStep& step, const SystemParameters& system)
{
    return step.With("lat_0", system.projection[latOrigin]).With("lon_0", system.projection[lonOrigin]);
}

ProjStep& FalseOrigin(ProjStep& step, const SystemParameters& system, int easting = falseEasting,
                      int northing = falseNorthing)
{
    return step.With("x_0", system.projection[easting] * system.metresPerUnit)
        .With("y_0", system.projection[northing] * system.metresPerUnit);
}

ProjStep& Scale(ProjStep& step, const SystemParameters& system)
{
    return step.With("k_0", system.projection[scaleFactor]);
}

// The module's series is that of PROJ's approximate algorithm, but for one term.
ProjProjection TransverseMercator(const SystemParameters& system)
{
    ProjStep step("tmerc");
    Scale(Origin(step.Flag("approx"), system), system);
    const double skew = system.projection[gridSkew];
    if (skew == 0.0) {
        FalseOrigin(step, system);
    }
    return {step, skew};
}

// Longitudes are not folded about the central meridian, here and where else PROJ is told so.
ProjProjection ObliqueStereographic(const SystemParameters& system)
{
    ProjStep step("sterea");
    FalseOrigin(Scale(Origin(step, system), system), system).Flag("over");
    return {step};
}

ProjProjection LambertTwoParallels(const SystemParameters& system)
{
    ProjStep step("lcc");
    step.With("lat_1", system.projection[southernParallel]).With("lat_2", system.projection[northernParallel]);
    FalseOrigin(Origin(step, system), system);
    return {step};
}

ProjProjection LambertOneParallel(const SystemParameters& system)
{
    ProjStep step("lcc");
    step.With("lat_1", system.projection[latOrigin]);
    FalseOrigin(Scale(Origin(step, system), system), system);
    return {step};
}

ProjProjection Mercator(const SystemParameters& system)
{
    const EquatorialMercator mercator = OnEquator(system);
    ProjStep step("merc");
    step.With("lon_0", system.projection[lonOrigin])
        .With("k_0", mercator.scale)
        .With("x_0", system.projection[falseEasting] * system.metresPerUnit)
        .With("y_0", mercator.falseNorthing * system.metresPerUnit)
        .Flag("over");
    return {step};
}

// The scale factor enters no formula of the module.
ProjProjection Cassini(const SystemParameters& system)
{
    ProjStep step("cass");
    FalseOrigin(Origin(step, system), system);
    return {step};
}

ProjStep Oblique(const SystemParameters& system)
{
    ProjStep step("omerc");
    step.With("lat_0", system.projection[latOrigin])
        .With("lonc", system.projection[lonOrigin])
        .With("alpha", system.projection[initialAzimuth])
        .With("gamma", system.projection[hotineGridSkew]);
    return Scale(step, system);
}

ProjProjection HotineA(const SystemParameters& system)
{
    ProjStep step = Oblique(system).Flag("no_uoff");
    FalseOrigin(step, system).Flag("over");
    return {step};
}

// A line due east is the double projection of the Swiss grid, for which PROJ has an operation
// without the arcsine at its end.
ProjProjection HotineB(const SystemParameters& system)
{
    const ProjectionParameters& p = system.projection;
    ProjStep step("somerc");
    if (p[initialAzimuth] == kRightAngle && p[hotineGridSkew] == kRightAngle) {
        Scale(Origin(step, system), system);
    } else {
        step = Oblique(system);
    }
    FalseOrigin(step, system, eastingAtCentre, northingAtCentre).Flag("over");
    return {step};
}

ProjProjection Polyconic(const SystemParameters& system)
{
    ProjStep step("poly");
    FalseOrigin(Origin(step, system), system).Flag("over");
    return {step};
}

ProjProjection PolarStereographic(const SystemParameters& system)
{
    ProjStep step("stere");
    step.With("lat_0", system.projection.Text(hemisphere) == "Northern" ? kRightAngle : -kRightAngle);
    FalseOrigin(Scale(step.With("lon_0", 0.0), system), system);
    return {step};
}

struct TypeRow {
    int type;
    ProjProjection (*make)(const SystemParameters&);
    const char* difference; ///< null: none beyond 0.2 mm
};

constexpr const char* kSeries = "farther than 5 degrees from the central meridian the two series differ: 0.5 mm at 6 "
                                "degrees (1.2 mm from the grid), centimetres at 10";
constexpr const char* kTwoPasses =
    "from the grid, latitudes differ by up to 3.1 mm: the module stops after two passes (0.3 mm at 36 degrees, 1.5 mm "
    "at 51)";

constexpr TypeRow kTypes[] = {
    {0, TransverseMercator, kSeries},
    {1, TransverseMercator, kSeries},
    {2, ObliqueStereographic,
     "at the false origin itself, and beyond 90 degrees of longitude, the module gives no latitude"},
    {3, LambertTwoParallels, kTwoPasses},
    {4, Mercator, nullptr},
    {7, ObliqueStereographic,
     "from the grid, latitudes differ by x j^3 / 8, with j the distance east or west of the origin over the radius: 6 "
     "mm "
     "at 50 km, 0.1 m at 100 km, 1.6 m at 200 km at a latitude of 52"},
    {8, Cassini,
     "northings differ away from latitude 45 by the module's tangent in the fourth power of the distance: below 1 mm "
     "within 0.5 degrees of the central meridian, up to 55 mm at 2 degrees; from the grid, 0.4 mm within 1 degree"},
    {9, HotineA, nullptr},
    {12, LambertOneParallel, kTwoPasses},
    {13, HotineB, nullptr},
    {14, Polyconic,
     "from the grid, latitudes differ by up to 7 mm and longitudes by up to 2 mm: the module answers "
     "with the pass before the last; northings differ by up to 0.4 mm, near the equator by up to 15 mm"},
    {15, PolarStereographic, nullptr},
};

const TypeRow* RowOf(int type)
{
    for (const TypeRow& row : kTypes) {
        if (row.type == type) {
            return &row;
        }
    }
    return nullptr;
}

} // namespace

// e eccentricity, s sine of a latitude, q isometric latitude of the origin, m widening on the
// parallel of true scale (Snyder 1987, p. 44).
EquatorialMercator OnEquator(const SystemParameters& system)
{
    const ProjectionParameters& p = system.projection;
    const double e2 = system.ellipsoid.e2;
    const double e = std::sqrt(e2);
    const double trueScale = p[latTrueScale] * kRadiansPerDegree;
    const double s = std::sin(trueScale);
    const double m = std::sqrt(1.0 - e2 * s * s) / std::cos(trueScale);
    const double origin = p[latOrigin] * kRadiansPerDegree;
    const double q = std::asinh(std::tan(origin)) - e * std::atanh(e * std::sin(origin));
    const double scale = p[scaleFactor] / m;
    return {scale, p[falseNorthing] - scale * system.ellipsoid.a / system.metresPerUnit * q};
}

ProjProjection InProj(const SystemParameters& system)
{
    const TypeRow* const row = RowOf(system.projection.type);
    if (row == nullptr) {
        throw ToolError(ExitStatus::unusable,
                        fmt::format("there is no PROJ operation for projection type {}", system.projection.type));
    }
    ProjProjection projection = row->make(system);
    projection.step.On(system.ellipsoid);
    return projection;
}

std::vector<std::string> DifferencesFromProj(const ProjectionParameters& projection)
{
    const TypeRow* const row = RowOf(projection.type);
    std::vector<std::string> differences;
    if (row != nullptr && row->difference != nullptr) {
        differences.emplace_back(row->difference);
    }
    if (projection.type == kHotineB && projection[initialAzimuth] == kRightAngle && projection[latOrigin] < 0.0) {
        differences.emplace_back("with an azimuth of 90 degrees in the south the module's results are of no use");
    }
    return differences;
}
