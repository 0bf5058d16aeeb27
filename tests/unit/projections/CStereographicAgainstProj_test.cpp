#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <sstream>

#include "tests/support/GridPositions.h"
#include "tests/support/NumericFactors.h"
#include "tests/support/ProjOracle.h"
#include "tests/support/ProjectionRecord.h"

// The oblique stereographic against PROJ's "sterea": the same formulas forward, the inverse as far as
// tan(j) / 2 is tan(j / 2). The bands are those of docs/accuracy.md.

namespace {

constexpr double kMetresPerDegree = 111200.0;

struct System {
    const char* name;
    EllipsoidShape shape;
    double unit, lat0, lon0, falseEasting, falseNorthing, k0; // false origin in metres
    double south, north, west, east;
};

constexpr double kUsFoot = 1200.0 / 3937.0;

const System kDutch = {"Amersfoort / RD New (EPSG 28992)",
                       {6377397.155, 0.0066743722318021447},
                       1.0,
                       52.156160555555556,
                       5.3876388888888889,
                       155000.0,
                       463000.0,
                       0.9999079,
                       50.75,
                       53.7,
                       3.2,
                       7.22};
const System kStereo70 = {"Stereo 70 (EPSG 31700)",
                          {6378245.0, 0.0066934216229659432},
                          1.0,
                          46.0,
                          25.0,
                          500000.0,
                          500000.0,
                          0.99975,
                          43.44,
                          48.27,
                          20.26,
                          31.41};
const System kNewBrunswick = {"NAD83(CSRS) / New Brunswick (EPSG 2953)",
                              kGrs80,
                              1.0,
                              46.5,
                              -66.5,
                              2500000.0,
                              7500000.0,
                              0.999912,
                              44.56,
                              48.07,
                              -69.05,
                              -63.7};
const System kPrinceEdward = {"NAD83(CSRS) / Prince Edward Island (EPSG 2954)",
                              kGrs80,
                              1.0,
                              47.25,
                              -63.0,
                              400000.0,
                              800000.0,
                              0.999912,
                              45.9,
                              47.09,
                              -64.49,
                              -61.9};
const System kPoland = {"Pulkovo 1942(58) / Poland zone I (EPSG 3120)",
                        {6378245.0, 0.0066934216229659432},
                        1.0,
                        50.625,
                        21.083333333333333,
                        4637000.0,
                        5467000.0,
                        0.9998,
                        49.0,
                        52.34,
                        18.0,
                        24.15};
const System kFeet = {"New Brunswick on the ATS77 ellipsoid, feet",
                      {6378135.0, 0.0066943849995879496},
                      0.3048,
                      46.5,
                      -66.5,
                      300000.0,
                      800000.0,
                      0.999912,
                      44.56,
                      48.07,
                      -69.05,
                      -63.7};
const System kUsFeet = {"a southern system, US survey feet",
                        {6378388.0, 0.006722670022333322},
                        kUsFoot,
                        -36.0,
                        -72.0,
                        500000.0,
                        0.0,
                        0.9999,
                        -40.0,
                        -32.0,
                        -76.0,
                        -68.0};
const System* const kSystems[] = {&kDutch, &kStereo70, &kNewBrunswick, &kPrinceEdward, &kPoland, &kFeet, &kUsFeet};

/// One system here and in PROJ.
class Judged {
public:
    explicit Judged(const System& s)
        : m_unit(s.unit),
          m_ours(Loaded(
              7, s.shape,
              ProjectionRecord(
                  {{3, s.lat0}, {4, s.lon0}, {5, s.falseEasting / s.unit}, {6, s.falseNorthing / s.unit}, {7, s.k0}}))),
          m_proj(Definition(s))
    {
    }
    const CProjection& Ours() const { return *m_ours; }
    GridPosition ProjGrid(double latitude, double longitude) const
    {
        const auto at = m_proj.Forward(ProjOracle::Radians(longitude), ProjOracle::Radians(latitude));
        return {at.x, at.y};
    }
    GeoPosition ProjGeo(double easting, double northing) const
    {
        const auto at = m_proj.Inverse(easting, northing);
        return {ProjOracle::Degrees(at.y), ProjOracle::Degrees(at.x)};
    }

private:
    static std::string Definition(const System& s)
    {
        std::ostringstream text;
        text.precision(17);
        text << "+proj=sterea +lat_0=" << s.lat0 << " +lon_0=" << s.lon0 << " +k=" << s.k0 << " +x_0=" << s.falseEasting
             << " +y_0=" << s.falseNorthing << " +a=" << s.shape.a << " +es=" << s.shape.e2 << " +to_meter=" << s.unit;
        return text.str();
    }

    MainDirectory m_main{MainDirectory::Delivered()};
    LinearUnit m_unit;
    std::unique_ptr<CProjection> m_ours;
    ProjOracle m_proj;
};

template <class Check>
void OverArea(const System& s, Check check)
{
    constexpr int kRows = 40;
    for (int i = 0; i <= kRows; ++i) {
        for (int k = 0; k <= kRows; ++k) {
            check(s.south + (s.north - s.south) * i / kRows, s.west + (s.east - s.west) * k / kRows);
        }
    }
}

TEST(CStereographicAgainstProj, ForwardIsTheSame)
{
    for (const System* system : kSystems) {
        const Judged judged(*system);
        OverArea(*system, [&](double latitude, double longitude) {
            const GridPosition ours = ToGrid(judged.Ours(), latitude, longitude);
            const GridPosition proj = judged.ProjGrid(latitude, longitude);
            EXPECT_NEAR(ours.easting, proj.easting, 1e-7) << system->name;
            EXPECT_NEAR(ours.northing, proj.northing, 1e-7) << system->name;
        });
    }
}

TEST(CStereographicAgainstProj, InverseLongitudeIsTheSameAndLatitudeWithinXTimesJCubedOver8)
{
    for (const System* system : kSystems) {
        const Judged judged(*system);
        const double sign = system->lat0 < 0.0 ? 1.0 : -1.0;
        OverArea(*system, [&](double latitude, double longitude) {
            const GridPosition grid = judged.ProjGrid(latitude, longitude);
            const GeoPosition ours = ToGeo(judged.Ours(), grid.easting, grid.northing);
            const GeoPosition proj = judged.ProjGeo(grid.easting, grid.northing);
            EXPECT_NEAR(ours.longitude, proj.longitude, 1e-11) << system->name;
            const double x = (grid.easting * system->unit - system->falseEasting) / 6.378e6;
            const double y = (grid.northing * system->unit - system->falseNorthing) / 6.378e6;
            const double t0 = std::tan(system->lat0 * D_TO_R);
            const double j = x * (t0 + y / 2.0) / (1.0 - y * t0 - (y * y - x * x) / 4.0);
            const double expected = sign * std::fabs(x * j * j * j / 8.0) / D_TO_R;
            EXPECT_NEAR(ours.latitude - proj.latitude, expected, 0.05 * std::fabs(expected) + 1e-10) << system->name;
        });
    }
}

// The difference of the inverse latitudes due east of the origin, in metres.
TEST(CStereographicAgainstProj, TheErrorOfTheInverseGrowsWithTheFourthPowerOfTheDistance)
{
    struct Row {
        const System* system;
        double distance, low, high; // metres
    };
    const Row rows[] = {{&kDutch, 10e3, -1.1e-5, -0.9e-5},       {&kDutch, 25e3, -0.00041, -0.00039},
                        {&kDutch, 50e3, -0.0065, -0.0063},       {&kDutch, 100e3, -0.103, -0.101},
                        {&kDutch, 150e3, -0.53, -0.51},          {&kStereo70, 50e3, -0.0034, -0.0033},
                        {&kStereo70, 100e3, -0.054, -0.053},     {&kStereo70, 200e3, -0.86, -0.84},
                        {&kStereo70, 300e3, -4.35, -4.25},       {&kStereo70, 400e3, -13.8, -13.4},
                        {&kNewBrunswick, 100e3, -0.057, -0.056}, {&kNewBrunswick, 200e3, -0.91, -0.89},
                        {&kPrinceEdward, 100e3, -0.062, -0.060}, {&kPoland, 100e3, -0.088, -0.086},
                        {&kPoland, 200e3, -1.40, -1.37}};
    for (const Row& row : rows) {
        const Judged judged(*row.system);
        const double easting = row.system->falseEasting + row.distance;
        const GeoPosition ours = ToGeo(judged.Ours(), easting, row.system->falseNorthing);
        const GeoPosition proj = judged.ProjGeo(easting, row.system->falseNorthing);
        const double metres = (ours.latitude - proj.latitude) * kMetresPerDegree;
        EXPECT_GT(metres, row.low) << row.system->name << " " << row.distance;
        EXPECT_LT(metres, row.high) << row.system->name << " " << row.distance;
    }
}

// The scale of the sphere against that of the map: the ellipsoid on the sphere is true to the second
// order, so what is missing goes with the cube of the distance, and with 1 - k0 in R.
TEST(CStereographicAgainstProj, PointScaleIsOfTheSecondOrder)
{
    for (const System* system : kSystems) {
        const Judged judged(*system);
        OverArea(*system, [&](double latitude, double longitude) {
            const GridPosition grid = ToGrid(judged.Ours(), latitude, longitude);
            const NumericFactors exact(judged.Ours(), system->shape.a, system->shape.e2, system->unit, latitude,
                                       longitude);
            const double d = std::hypot(grid.easting * system->unit - system->falseEasting,
                                        grid.northing * system->unit - system->falseNorthing) /
                             6.378e6;
            EXPECT_NEAR(judged.Ours().PointScaleFactor(grid.easting, grid.northing), exact.scale,
                        2e-9 + 0.0035 * d * d * d + 0.5 * d * d * (1.0 - system->k0))
                << system->name;
        });
    }
}

TEST(CStereographicAgainstProj, ConvergenceIsOfTheFirstOrder)
{
    for (const System* system : kSystems) {
        const Judged judged(*system);
        OverArea(*system, [&](double latitude, double longitude) {
            const GridPosition grid = ToGrid(judged.Ours(), latitude, longitude);
            const NumericFactors exact(judged.Ours(), system->shape.a, system->shape.e2, system->unit, latitude,
                                       longitude);
            const double L = (longitude - system->lon0) * D_TO_R;
            const double B = (latitude - system->lat0) * D_TO_R;
            EXPECT_NEAR(ConvergenceAt(judged.Ours(), grid.easting, grid.northing), exact.convergence,
                        2e-7 + (0.6 * std::fabs(L * B) + 0.2 * std::fabs(L * L * L)) / D_TO_R)
                << system->name << " " << latitude << " " << longitude;
        });
    }
}

// The largest differences on a circle about the origin: what the first orders leave out.
TEST(CStereographicAgainstProj, FirstOrderRulesMissTheirBands)
{
    struct Row {
        const System* system;
        double distance;                                 // metres
        double secondsLow, secondsHigh, ppmLow, ppmHigh; // convergence, point scale
    };
    const Row rows[] = {{&kDutch, 50e3, 3.0, 3.4, 0.003, 0.005},      {&kDutch, 100e3, 12.5, 13.1, 0.018, 0.022},
                        {&kDutch, 200e3, 51.0, 52.5, 0.10, 0.12},     {&kStereo70, 100e3, 12.5, 13.1, 0.037, 0.041},
                        {&kStereo70, 400e3, 205.0, 213.0, 0.95, 1.1}, {&kNewBrunswick, 200e3, 51.0, 52.5, 0.10, 0.12}};
    for (const Row& row : rows) {
        const System& s = *row.system;
        const Judged judged(s);
        double seconds = 0.0;
        double ppm = 0.0;
        for (double azimuth = 1.0; azimuth < 360.0; azimuth += 3.0) {
            const double easting = s.falseEasting + row.distance * std::sin(azimuth * D_TO_R);
            const double northing = s.falseNorthing + row.distance * std::cos(azimuth * D_TO_R);
            const GeoPosition at = judged.ProjGeo(easting, northing);
            const NumericFactors exact(judged.Ours(), s.shape.a, s.shape.e2, s.unit, at.latitude, at.longitude);
            seconds = std::max(seconds,
                               3600.0 * std::fabs(ConvergenceAt(judged.Ours(), easting, northing) - exact.convergence));
            ppm = std::max(ppm, 1e6 * std::fabs(judged.Ours().PointScaleFactor(easting, northing) - exact.scale));
        }
        EXPECT_GT(seconds, row.secondsLow) << s.name << " " << row.distance;
        EXPECT_LT(seconds, row.secondsHigh) << s.name << " " << row.distance;
        EXPECT_GT(ppm, row.ppmLow) << s.name << " " << row.distance;
        EXPECT_LT(ppm, row.ppmHigh) << s.name << " " << row.distance;
    }
}

TEST(CStereographicAgainstProj, LineScaleIsGridOverGeodesicDistance)
{
    const Judged dutch(kDutch);
    const Judged feet(kUsFeet);
    struct Row {
        const Judged* judged;
        const System* system;
        double lat1, lon1, lat2, lon2;
    };
    const Row rows[] = {{&dutch, &kDutch, 52.0, 5.0, 52.3, 5.5},
                        {&dutch, &kDutch, 51.0, 4.0, 51.2, 4.4},
                        {&dutch, &kDutch, 53.4, 7.0, 53.2, 6.0},
                        {&feet, &kUsFeet, -36.0, -72.0, -36.5, -71.0},
                        {&feet, &kUsFeet, -34.0, -74.0, -34.3, -73.5}};
    for (const Row& row : rows) {
        const GridPosition from = ToGrid(row.judged->Ours(), row.lat1, row.lon1);
        const GridPosition to = ToGrid(row.judged->Ours(), row.lat2, row.lon2);
        const LinearUnit unit(row.system->unit);
        EXPECT_NEAR(row.judged->Ours().LineScaleFactor(from.easting, from.northing, to.easting, to.northing),
                    NumericLineScale(row.judged->Ours(), row.system->shape.a, row.system->shape.e2, row.system->unit,
                                     row.lat1, row.lon1, row.lat2, row.lon2),
                    3e-7)
            << row.lat1;
    }
}

} // namespace
