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

// Polyconic against PROJ over the areas of grids in use. The bounds are those of docs/accuracy.md.

namespace {

constexpr double kMetresPerDegree = 111300.0;

struct PolyconicSystem {
    const char* name;
    EllipsoidShape shape;
    double unit; ///< metres
    double phi0, lambda0, FE, FN;
    double south, north, west, east; ///< area of use
    double arc;                      ///< metres that the shorter arc leaves there

    friend void PrintTo(const PolyconicSystem& system, std::ostream* stream) { *stream << system.name; }

    std::unique_ptr<CProjection> Load() const
    {
        return Loaded(14, shape, ProjectionRecord({{3, phi0}, {4, lambda0}, {5, FE}, {6, FN}}));
    }
    std::string Proj() const
    {
        std::ostringstream text;
        text << std::setprecision(17) << "+proj=poly +lat_0=" << phi0 << " +lon_0=" << lambda0 << " +x_0=" << FE * unit
             << " +y_0=" << FN * unit << " +a=" << shape.a << " +es=" << shape.e2 << " +to_meter=" << unit;
        return text.str();
    }
};

// Parameters: EPSG registry, codes in the names; Snyder's sheet and one of Alaska beside them.
const PolyconicSystem kSystems[] = {
    {"SIRGAS 2000 / Brazil Polyconic, 5880", kGrs80, 1.0, 0.0, -54.0, 5000000.0, 10000000.0, -35.9, 7.0, -74.0, -26.0,
     1e-4},
    {"SAD69 / Brazil Polyconic, 29101",
     {6378160.0, 0.0066945418545876371},
     1.0,
     0.0,
     -54.0,
     5000000.0,
     10000000.0,
     -35.7,
     7.0,
     -74.0,
     -25.3,
     1e-4},
    {"Panama Colon 1911 / Panama Polyconic, 5472", kClarke1866, 1.0, 8.25, -81.0, 1000000.0, 1092972.1, 7.0, 9.7, -83.0,
     -77.2, 1e-4},
    {"Snyder's sheet of the United States",
     {6378206.4, 0.00676866},
     1.0,
     30.0,
     -96.0,
     0.0,
     0.0,
     25.0,
     49.0,
     -125.0,
     -67.0,
     4e-4},
    {"a sheet in US survey feet", kClarke1866, 1200.0 / 3937.0, 38.0, -77.0, 500000.0, 0.0, 36.0, 40.0, -79.0, -75.0,
     1e-4},
    {"a sheet in feet",
     {6378388.0, 0.0067226700223333219},
     0.3048,
     60.0,
     -150.0,
     500000.0,
     0.0,
     55.0,
     71.0,
     -165.0,
     -135.0,
     3e-4},
};

class PolyconicGrids : public testing::TestWithParam<PolyconicSystem> {
protected:
    template <class Visit>
    void Area(Visit visit) const
    {
        const PolyconicSystem& system = GetParam();
        constexpr int kSteps = 40;
        for (int i = 0; i <= kSteps; ++i) {
            for (int j = 0; j <= kSteps; ++j) {
                visit(system.south + (system.north - system.south) * i / kSteps,
                      system.west + (system.east - system.west) * j / kSteps);
            }
        }
    }

    MainDirectory m_main{MainDirectory::Delivered()};
    LinearUnit m_unit{GetParam().unit};
    std::unique_ptr<CProjection> m_projection = GetParam().Load();
};

// The same formulas over a shorter arc.
TEST_P(PolyconicGrids, ForwardIsThatOfProj)
{
    const ProjOracle proj(GetParam().Proj());
    double east = 0.0;
    double north = 0.0;
    Area([&](double latitude, double longitude) {
        const auto theirs = proj.Forward(ProjOracle::Radians(longitude), ProjOracle::Radians(latitude));
        const GridPosition ours = ToGrid(*m_projection, latitude, longitude);
        east = std::max(east, std::fabs(ours.easting - theirs.x));
        north = std::max(north, std::fabs(ours.northing - theirs.y));
    });
    EXPECT_LE(east * GetParam().unit, 1e-8);
    EXPECT_LE(north * GetParam().unit, GetParam().arc);
}

// The latitude before the last correction: 1e-9 radians.
TEST_P(PolyconicGrids, InverseIsThatOfProjWithinTheLastCorrection)
{
    const ProjOracle proj(GetParam().Proj());
    double north = 0.0;
    double east = 0.0;
    Area([&](double latitude, double longitude) {
        const auto grid = proj.Forward(ProjOracle::Radians(longitude), ProjOracle::Radians(latitude));
        const GeoPosition ours = ToGeo(*m_projection, grid.x, grid.y);
        north = std::max(north, std::fabs(ours.latitude - latitude));
        east = std::max(east, std::fabs(ours.longitude - longitude) * std::cos(latitude * D_TO_R));
    });
    EXPECT_LE(north * kMetresPerDegree, 7e-3 + GetParam().arc);
    EXPECT_LE(east * kMetresPerDegree, 7e-3 + GetParam().arc);
}

TEST_P(PolyconicGrids, LineScaleIsGridOverGeodesicDistance)
{
    const PolyconicSystem& system = GetParam();
    geod_geodesic ellipsoid;
    geod_init(&ellipsoid, system.shape.a, 1.0 - std::sqrt(1.0 - system.shape.e2));
    std::mt19937_64 random(20250114);
    std::uniform_real_distribution<double> part(0.0, 1.0);
    for (int i = 0; i < 500; ++i) {
        const double latitude = system.south + (system.north - system.south) * part(random);
        const double longitude = system.west + (system.east - system.west) * part(random);
        const GridPosition p = ToGrid(*m_projection, latitude, longitude);
        const GridPosition q = ToGrid(*m_projection, latitude + part(random) - 0.5, longitude + part(random) - 0.5);
        const GeoPosition from = ToGeo(*m_projection, p.easting, p.northing);
        const GeoPosition to = ToGeo(*m_projection, q.easting, q.northing);
        double geodesic = 0.0;
        geod_inverse(&ellipsoid, from.latitude, from.longitude, to.latitude, to.longitude, &geodesic, nullptr, nullptr);
        const double ratio = std::hypot(q.easting - p.easting, q.northing - p.northing) * system.unit / geodesic;
        EXPECT_NEAR(m_projection->LineScaleFactor(p.easting, p.northing, q.easting, q.northing), ratio, 3.5e-9)
            << geodesic;
    }
}

std::string NameOf(const testing::TestParamInfo<PolyconicSystem>& info)
{
    std::string name = info.param.name;
    name.erase(std::remove_if(name.begin(), name.end(), [](unsigned char c) { return !std::isalnum(c); }), name.end());
    return name;
}

INSTANTIATE_TEST_SUITE_P(Registry, PolyconicGrids, testing::ValuesIn(kSystems), NameOf);

/// Random sheets, positions within 25 degrees of the central meridian and 75 of the equator.
TEST(PolyconicProjectionProperty, ThereAndBackOnRandomGrids)
{
    const MainDirectory main(MainDirectory::Delivered());
    std::mt19937_64 random(20250115);
    std::uniform_real_distribution<double> unit(0.0, 1.0);
    const auto between = [&](double low, double high) { return low + (high - low) * unit(random); };
    for (int i = 0; i < 300; ++i) {
        const double lambda0 = between(-180.0, 180.0);
        const auto projection =
            Loaded(14, {between(6.3e6, 6.4e6), between(0.0, 0.0069)},
                   ProjectionRecord(
                       {{3, between(-70.0, 70.0)}, {4, lambda0}, {5, between(-1e6, 1e6)}, {6, between(-1e6, 1e6)}}));
        for (int j = 0; j < 100; ++j) {
            const double latitude = between(-75.0, 75.0);
            const double longitude = lambda0 + between(-25.0, 25.0);
            const GridPosition grid = ToGrid(*projection, latitude, longitude);
            const GeoPosition back = ToGeo(*projection, grid.easting, grid.northing);
            EXPECT_NEAR(back.latitude, latitude, 7e-3 / kMetresPerDegree) << latitude;
            EXPECT_NEAR(back.longitude, longitude, 7e-3 / kMetresPerDegree / std::cos(latitude * D_TO_R)) << latitude;
        }
    }
}

/// Near the equator the northing bears the rounding of 1 - cos, times the radius of the parallel.
TEST(PolyconicProjectionAgainstProj, LosesDigitsNearTheEquatorAsTabled)
{
    struct Row {
        double from, to;    // degrees
        double least, most; // millimetres
    };
    const Row rows[] = {{0.1, 1.0, 0.0001, 0.0003}, {1e-3, 1e-2, 0.01, 0.03}, {1e-5, 1e-4, 1.0, 2.5},
                        {1e-6, 1e-5, 10.0, 18.0},   {1e-7, 1e-6, 8.0, 18.0},  {1e-9, 1e-8, 0.05, 0.15}};
    const MainDirectory main(MainDirectory::Delivered());
    const auto projection = Loaded(14, kGrs80, ProjectionRecord({{3, 0.0}, {4, 0.0}, {5, 0.0}, {6, 0.0}}));
    std::mt19937_64 random(20250116);
    std::uniform_real_distribution<double> offset(-25.0, 25.0);
    for (const Row& row : rows) {
        std::uniform_real_distribution<double> exponent(std::log10(row.from), std::log10(row.to));
        double worst = 0.0;
        for (int i = 0; i < 50000; ++i) {
            const double latitude = std::pow(10.0, exponent(random));
            const double longitude = offset(random);
            // The same northing without the difference: 1 - cos Ea by the half angle.
            const double s = std::sin(latitude * D_TO_R);
            const double half = std::sin(longitude * D_TO_R * s / 2.0);
            const double radius = kGrs80.a / std::sqrt(1.0 - kGrs80.e2 * s * s) / std::tan(latitude * D_TO_R);
            const double northing = ToGrid(*projection, latitude, 0.0).northing + 2.0 * half * half * radius;
            worst = std::max(worst, std::fabs(ToGrid(*projection, latitude, longitude).northing - northing));
        }
        EXPECT_GE(worst * 1000.0, row.least) << row.from;
        EXPECT_LE(worst * 1000.0, row.most) << row.from;
    }
}

} // namespace
