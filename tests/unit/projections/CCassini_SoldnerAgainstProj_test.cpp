#include <gtest/gtest.h>

#include <geodesic.h>

#include <algorithm>
#include <cmath>
#include <iomanip>
#include <random>
#include <sstream>

#include "tests/support/GridPositions.h"
#include "tests/support/ProjOracle.h"
#include "tests/support/ProjectionRecord.h"

// Cassini-Soldner against PROJ over the areas of grids in use. The bounds are those of
// docs/accuracy.md.

namespace {

constexpr double kMetresPerDegree = 111300.0;

constexpr EllipsoidShape OfAxes(double a, double b)
{
    return {a, 1.0 - (b / a) * (b / a)};
}

struct CassiniSystem {
    const char* name;
    EllipsoidShape shape;
    double unit; ///< metres
    double phi0, lambda0, FE, FN;
    double south, north, west, east; ///< area of use

    friend void PrintTo(const CassiniSystem& system, std::ostream* stream) { *stream << system.name; }

    std::unique_ptr<CProjection> Load() const
    {
        return Loaded(8, shape, ProjectionRecord({{3, phi0}, {4, lambda0}, {5, FE}, {6, FN}, {7, 1.0}}));
    }
    std::string Proj() const
    {
        std::ostringstream text;
        text << std::setprecision(17) << "+proj=cass +lat_0=" << phi0 << " +lon_0=" << lambda0 << " +x_0=" << FE * unit
             << " +y_0=" << FN * unit << " +a=" << shape.a << " +es=" << shape.e2 << " +to_meter=" << unit;
        return text.str();
    }
};

// Parameters: EPSG registry, codes in the names.
const CassiniSystem kSystems[] = {
    {"Palestine 1923 / Palestine Grid, 28191", OfAxes(6378300.789, 6356566.435), 1.0, 31.734096944444445,
     35.212080555555556, 170251.555, 126867.909, 29.2, 33.5, 34.1, 36.0},
    {"Trinidad 1903 / Trinidad Grid, 30200", OfAxes(6378293.64520876, 6356617.98767984), 0.201166195164,
     10.441666666666667, -61.333333333333333, 430000.0, 325000.0, 9.8, 11.5, -62.1, -60.0},
    {"Mount Dillon / Tobago Grid, 2066", OfAxes(6378293.64520876, 6356617.98767984), 0.201166195164, 11.252178611111111,
     -60.68600888888889, 187500.0, 180000.0, 11.0, 11.5, -61.0, -60.4},
    {"DHDN / Soldner Berlin, 3068",
     {6377397.155, 0.0066743722306140105},
     1.0,
     52.41864827777778,
     13.62720366666667,
     40000.0,
     10000.0,
     52.3,
     52.7,
     13.0,
     13.8},
    {"Kertau 1968 / Johor Grid, 4390",
     {6377304.063, 0.0066378466301996868},
     1.0,
     2.042583333333333,
     103.56275833333333,
     0.0,
     0.0,
     1.2,
     3.0,
     102.4,
     104.6},
    {"Viti Levu 1912 / Viti Levu Grid, 3140", OfAxes(6378306.3696, 6356571.996), 0.201168, -18.0, 178.0, 544000.0,
     704000.0, -18.4, -17.2, 177.1, 178.8},
    {"GDM2000 / Perak Grid, 3384", kGrs80, 1.0, 4.859063022222222, 100.81541, -1.769, 133454.779, 3.6, 6.0, 100.0,
     102.0},
    {"a grid in US survey feet", kClarke1866, 1200.0 / 3937.0, 40.0, -75.0, 2000000.0, 0.0, 38.0, 42.0, -77.0, -73.0},
};

class CassiniGrids : public testing::TestWithParam<CassiniSystem> {
protected:
    template <class Visit>
    void Area(Visit visit) const
    {
        const CassiniSystem& system = GetParam();
        constexpr int kSteps = 24;
        for (int i = 0; i <= kSteps; ++i) {
            for (int j = 0; j <= kSteps; ++j) {
                visit(system.south + (system.north - system.south) * i / kSteps,
                      system.west + (system.east - system.west) * j / kSteps);
            }
        }
    }

    /// What t in the place of its square leaves of the northing, in metres.
    static double OfTheTangent(const EllipsoidShape& shape, double latitude, double offset)
    {
        const double s = std::sin(latitude * D_TO_R);
        const double t = std::tan(latitude * D_TO_R);
        const double A = offset * D_TO_R * std::cos(latitude * D_TO_R);
        return shape.a / std::sqrt(1.0 - shape.e2 * s * s) * t * (t * t - t) * std::pow(A, 4) / 24.0;
    }

    MainDirectory m_main{MainDirectory::Delivered()};
    LinearUnit m_unit{GetParam().unit};
    std::unique_ptr<CProjection> m_projection = GetParam().Load();
};

// The easting is the same series; the northing differs by the tangent and by the shorter arc.
TEST_P(CassiniGrids, ForwardIsThatOfProjButForTheTangent)
{
    const CassiniSystem& system = GetParam();
    const ProjOracle proj(system.Proj());
    double east = 0.0;
    double north = 0.0;
    Area([&](double latitude, double longitude) {
        const auto theirs = proj.Forward(ProjOracle::Radians(longitude), ProjOracle::Radians(latitude));
        const GridPosition ours = ToGrid(*m_projection, latitude, longitude);
        const double tangent = OfTheTangent(system.shape, latitude, longitude - system.lambda0);
        east = std::max(east, std::fabs(ours.easting - theirs.x) * system.unit);
        north = std::max(north, std::fabs((ours.northing - theirs.y) * system.unit - tangent));
    });
    EXPECT_LE(east, 1e-8);
    EXPECT_LE(north, 7e-5);
}

TEST_P(CassiniGrids, InverseIsThatOfProj)
{
    const ProjOracle proj(GetParam().Proj());
    double north = 0.0;
    double east = 0.0;
    Area([&](double latitude, double longitude) {
        const auto grid = proj.Forward(ProjOracle::Radians(longitude), ProjOracle::Radians(latitude));
        const auto theirs = proj.Inverse(grid.x, grid.y);
        const GeoPosition ours = ToGeo(*m_projection, grid.x, grid.y);
        north = std::max(north, std::fabs(ours.latitude - ProjOracle::Degrees(theirs.y)));
        east = std::max(east, std::fabs(ours.longitude - ProjOracle::Degrees(theirs.x)) * std::cos(latitude * D_TO_R));
    });
    // The series ends with D^4; PROJ solves for its own forward. At 2 degrees 3.2 mm, within 1 degree
    // less than 0.4 mm.
    const double offset = std::max(GetParam().east - GetParam().lambda0, GetParam().lambda0 - GetParam().west);
    EXPECT_LE(north * kMetresPerDegree, offset > 1.5 ? 3.3e-3 : 4e-4);
    EXPECT_LE(east * kMetresPerDegree, 4e-6);
}

// A line's scale factor is its length on the grid over its length on the ellipsoid (Karney's
// geodesic).
TEST_P(CassiniGrids, LineScaleIsGridOverGeodesicDistance)
{
    const CassiniSystem& system = GetParam();
    geod_geodesic ellipsoid;
    geod_init(&ellipsoid, system.shape.a, 1.0 - std::sqrt(1.0 - system.shape.e2));
    std::mt19937_64 random(20250110);
    std::uniform_real_distribution<double> part(0.0, 1.0);
    const auto latitude = [&] { return system.south + (system.north - system.south) * part(random); };
    const auto longitude = [&] { return system.west + (system.east - system.west) * part(random); };
    for (int i = 0; i < 500; ++i) {
        const GridPosition p = ToGrid(*m_projection, latitude(), longitude());
        const GridPosition q = ToGrid(*m_projection, latitude(), longitude());
        const GeoPosition from = ToGeo(*m_projection, p.easting, p.northing);
        const GeoPosition to = ToGeo(*m_projection, q.easting, q.northing);
        double geodesic = 0.0;
        geod_inverse(&ellipsoid, from.latitude, from.longitude, to.latitude, to.longitude, &geodesic, nullptr, nullptr);
        const double ratio = std::hypot(q.easting - p.easting, q.northing - p.northing) * system.unit / geodesic;
        const double k = m_projection->LineScaleFactor(p.easting, p.northing, q.easting, q.northing);
        // g and h without sign, and the end of the series: with the cube of the length.
        const double bound = 3.5e-9 * std::max(1.0, std::pow(geodesic / 1e5, 3));
        EXPECT_NEAR(k, ratio, bound) << geodesic;
    }
}

std::string NameOf(const testing::TestParamInfo<CassiniSystem>& info)
{
    std::string name = info.param.name;
    name.erase(std::remove_if(name.begin(), name.end(), [](unsigned char c) { return !std::isalnum(c); }), name.end());
    return name;
}

INSTANTIATE_TEST_SUITE_P(Registry, CassiniGrids, testing::ValuesIn(kSystems), NameOf);

/// What the tangent and the end of the series leave, by latitude and distance from the central
/// meridian: the northing against PROJ, and what the way there and back misses by, in millimetres.
TEST(CCassini_SoldnerAgainstProj, DiffersWithTheDistanceAsTabled)
{
    struct Row {
        double latitude, offset;
        double north, missedNorth, missedEast;
    };
    const Row rows[] = {
        {10.0, 1.0, 0.594, 0.617, 0.0},  {10.0, 2.0, 9.51, 9.61, 0.06},  {10.0, 3.0, 48.1, 49.5, 0.46},
        {30.0, 1.0, 1.93, 1.89, 0.02},   {30.0, 2.0, 31.3, 29.6, 0.55},  {30.0, 3.0, 158.4, 150.1, 4.18},
        {45.0, 3.0, 0.25, 17.0, 0.12},   {60.0, 1.0, 4.15, 4.13, 0.06},  {60.0, 2.0, 55.1, 57.0, 1.67},
        {60.0, 3.0, 275.6, 287.7, 12.7}, {-10.0, 2.0, 13.6, 13.6, 0.08}, {-30.0, 2.0, 116.8, 119.0, 2.03},
        {-60.0, 2.0, 203.4, 205.1, 6.14}};
    const MainDirectory main(MainDirectory::Delivered());
    const auto projection = Loaded(8, kGrs80, ProjectionRecord({{3, 0.0}, {4, 0.0}, {5, 0.0}, {6, 0.0}, {7, 1.0}}));
    const ProjOracle proj("+proj=cass +ellps=GRS80");
    for (const Row& row : rows) {
        const auto theirs = proj.Forward(ProjOracle::Radians(row.offset), ProjOracle::Radians(row.latitude));
        const GridPosition ours = ToGrid(*projection, row.latitude, row.offset);
        const GeoPosition back = ToGeo(*projection, ours.easting, ours.northing);
        const double millimetres = kMetresPerDegree * 1000.0;
        const double parallel = millimetres * std::cos(row.latitude * D_TO_R);
        SCOPED_TRACE(testing::Message() << row.latitude << " " << row.offset);
        EXPECT_NEAR(std::fabs(ours.northing - theirs.y) * 1000.0, row.north, 0.02 + 0.01 * row.north);
        EXPECT_NEAR(std::fabs(back.latitude - row.latitude) * millimetres, row.missedNorth,
                    0.02 + 0.01 * row.missedNorth);
        EXPECT_NEAR(std::fabs(back.longitude - row.offset) * parallel, row.missedEast, 0.02 + 0.01 * row.missedEast);
    }
}

/// Random grids, positions within a degree of the central meridian and 70 degrees of the equator.
TEST(CCassini_SoldnerProperty, ThereAndBackOnRandomGrids)
{
    const MainDirectory main(MainDirectory::Delivered());
    std::mt19937_64 random(20250111);
    std::uniform_real_distribution<double> unit(0.0, 1.0);
    const auto between = [&](double low, double high) { return low + (high - low) * unit(random); };
    for (int i = 0; i < 300; ++i) {
        const double lambda0 = between(-180.0, 180.0);
        const auto projection = Loaded(8, {between(6.3e6, 6.4e6), between(0.0, 0.0069)},
                                       ProjectionRecord({{3, between(-70.0, 70.0)},
                                                         {4, lambda0},
                                                         {5, between(-1e6, 1e6)},
                                                         {6, between(-1e6, 1e6)},
                                                         {7, between(0.8, 3.0)}}));
        for (int j = 0; j < 50; ++j) {
            const double latitude = between(-70.0, 70.0);
            const double offset = between(-1.0, 1.0);
            const GridPosition grid = ToGrid(*projection, latitude, lambda0 + offset);
            const GeoPosition back = ToGeo(*projection, grid.easting, grid.northing);
            // The tangent: 13 mm at a degree and a latitude of -67, with the fourth power of the distance;
            // 0.9 mm by the arc.
            const double bound = (0.9e-3 + 14e-3 * std::pow(offset, 4)) / kMetresPerDegree;
            EXPECT_NEAR(back.latitude, latitude, bound) << latitude << " " << offset;
            EXPECT_NEAR(modgeo(back.longitude - lambda0), offset, bound / std::cos(latitude * D_TO_R));
        }
    }
}

} // namespace
