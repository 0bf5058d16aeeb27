#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <ostream>
#include <random>
#include <string>

#include "tests/support/GridPositions.h"
#include "tests/support/NumericFactors.h"
#include "tests/support/ProjOracle.h"
#include "tests/support/ProjectionRecord.h"

// Mercator in national and marine systems, against PROJ with EPSG's figures as PROJ writes them. The
// bounds are those of docs/accuracy.md.

namespace {

constexpr EllipsoidShape kWgs84{6378137.0, 0.0066943799901413165};
constexpr EllipsoidShape kKrassowsky{6378245.0, 0.006693421622965943};
constexpr EllipsoidShape kBessel{6377397.155, 0.0066743722318021447};
constexpr double kUsFoot = 1200.0 / 3937.0;

struct Area {
    double south, north, west, east;
};

struct System {
    const char* name;
    EllipsoidShape shape;
    double unit;
    std::initializer_list<std::pair<int, double>> parameters;
    const char* proj;
    Area area;
};

void PrintTo(const System& system, std::ostream* stream)
{
    *stream << system.name;
}

const System kSystems[] = {
    {"WGS 84 / World Mercator, EPSG 3395",
     kWgs84,
     1.0,
     {{3, 0.0}, {4, 0.0}, {5, 0.0}, {6, 0.0}, {7, 1.0}},
     "+proj=merc +lon_0=0 +k=1 +ellps=WGS84",
     {-80.0, 84.0, -180.0, 180.0}},
    {"Makassar / NEIEZ, EPSG 3002",
     kBessel,
     1.0,
     {{3, 0.0}, {4, 110.0}, {5, 3900000.0}, {6, 900000.0}, {7, 0.997}},
     "+proj=merc +lon_0=110 +k=0.997 +x_0=3900000 +y_0=900000 +ellps=bessel",
     {-8.9, 5.0, 114.0, 125.0}},
    {"Batavia / NEIEZ, EPSG 3001",
     kBessel,
     1.0,
     {{3, 0.0}, {4, 110.0}, {5, 3900000.0}, {6, 900000.0}, {7, 0.997}},
     "+proj=merc +lon_0=110 +k=0.997 +x_0=3900000 +y_0=900000 +ellps=bessel",
     {-8.91, 6.0, 95.16, 115.77}},
    {"Pulkovo 1942 / Caspian Sea Mercator, EPSG 3388",
     kKrassowsky,
     1.0,
     {{3, 0.0}, {4, 51.0}, {5, 0.0}, {6, 0.0}, {7, 1.0}, {18, 42.0}},
     "+proj=merc +lat_ts=42 +lon_0=51 +ellps=krass",
     {36.5, 47.1, 46.5, 54.0}},
    {"WGS 84 / Mercator 41, EPSG 3994",
     kWgs84,
     1.0,
     {{3, 0.0}, {4, 100.0}, {5, 0.0}, {6, 0.0}, {7, 1.0}, {18, -41.0}},
     "+proj=merc +lat_ts=-41 +lon_0=100 +ellps=WGS84",
     {-60.0, -25.0, 155.0, 190.0}},
    {"a chart of the Gulf in US survey feet on Clarke 1866",
     kClarke1866,
     kUsFoot,
     {{3, 0.0}, {4, -90.0}, {5, 2000000.0}, {6, 0.0}, {7, 1.0}, {18, 27.0}},
     "+proj=merc +lat_ts=27 +lon_0=-90 +x_0=609601.2192024384 +ellps=clrk66 +units=us-ft",
     {18.0, 31.0, -98.0, -80.0}},
    {"a chart of the Irish Sea in feet on Airy",
     {6377563.396, 0.0066705400003289},
     0.3048,
     {{3, 0.0}, {4, -5.0}, {5, 500000.0}, {6, -20000000.0}, {7, 0.6}},
     "+proj=merc +k=0.6 +lon_0=-5 +x_0=152400 +y_0=-6096000 +a=6377563.396 +es=0.0066705400003289 +units=ft",
     {50.0, 56.0, -11.0, -2.0}},
};

class Judged {
public:
    explicit Judged(const System& system)
        : m_unit(system.unit), m_projection(Loaded(4, system.shape, ProjectionRecord(system.parameters))),
          m_proj(system.proj), m_latitude(system.area.south, system.area.north),
          m_longitude(system.area.west, system.area.east)
    {
    }

    const CProjection& Ours() const { return *m_projection; }
    GridPosition ProjGrid(const GeoPosition& at) const
    {
        const auto grid = m_proj.Forward(ProjOracle::Radians(at.longitude), ProjOracle::Radians(at.latitude));
        return {grid.x, grid.y};
    }
    GeoPosition ProjGeo(const GridPosition& at) const
    {
        const auto geo = m_proj.Inverse(at.easting, at.northing);
        return {ProjOracle::Degrees(geo.y), ProjOracle::Degrees(geo.x)};
    }
    GeoPosition Somewhere() { return {m_latitude(m_random), m_longitude(m_random)}; }

private:
    MainDirectory m_main{MainDirectory::Delivered()};
    LinearUnit m_unit;
    std::unique_ptr<CProjection> m_projection;
    ProjOracle m_proj;
    std::mt19937_64 m_random{20240512};
    std::uniform_real_distribution<double> m_latitude, m_longitude;
};

class CMERprjAgainstProj : public testing::TestWithParam<System> {};

TEST_P(CMERprjAgainstProj, ForwardAgrees)
{
    Judged judged(GetParam());
    for (int i = 0; i < 2000; ++i) {
        const GeoPosition at = judged.Somewhere();
        const GridPosition expected = judged.ProjGrid(at);
        const GridPosition found = ToGrid(judged.Ours(), at.latitude, at.longitude);
        constexpr double kMetres = 2e-7;
        ASSERT_NEAR(found.easting, expected.easting, kMetres / GetParam().unit);
        ASSERT_NEAR(found.northing, expected.northing, kMetres / GetParam().unit);
    }
}

// The pass that corrects by less than a millimetre leaves e2 of that.
TEST_P(CMERprjAgainstProj, InverseAgreesWithinWhatTheStopLeaves)
{
    Judged judged(GetParam());
    const double left = GetParam().shape.e2 * 0.001 * GetParam().unit / GetParam().shape.a / D_TO_R;
    double worst = 0.0;
    for (int i = 0; i < 2000; ++i) {
        const GeoPosition at = judged.Somewhere();
        const GridPosition grid = judged.ProjGrid(at);
        const GeoPosition settled = judged.ProjGeo(grid);
        const GeoPosition found = ToGeo(judged.Ours(), grid.easting, grid.northing);
        worst = std::max(worst, std::fabs(found.latitude - settled.latitude));
        ASSERT_NEAR(modgeo(found.longitude - settled.longitude), 0.0, 1e-12);
    }
    EXPECT_LE(worst, left + 1e-12);
}

TEST_P(CMERprjAgainstProj, ScaleIsTheSlopeOfTheForwardConversion)
{
    Judged judged(GetParam());
    for (int i = 0; i < 200; ++i) {
        const GeoPosition at = judged.Somewhere();
        const GridPosition grid = ToGrid(judged.Ours(), at.latitude, at.longitude);
        const NumericFactors slopes(judged.Ours(), GetParam().shape.a, GetParam().shape.e2, GetParam().unit,
                                    at.latitude, at.longitude);
        const double scale = judged.Ours().PointScaleFactor(grid.easting, grid.northing);
        ASSERT_NEAR(ConvergenceAt(judged.Ours(), grid.easting, grid.northing), slopes.convergence, 1e-7);
        ASSERT_NEAR(scale, slopes.scale, 5e-9 * scale);
    }
}

// Lines of 0.1 degrees in all directions, within 60 degrees of the equator. A straight line of the map
// keeps its azimuth and is longer than the geodesic by (dlon sin(lat))^2 / 24 of its length, which no
// rule over points of the map knows of.
TEST_P(CMERprjAgainstProj, LineScaleIsGridOverTheLengthOfTheLineOfConstantAzimuth)
{
    Judged judged(GetParam());
    for (int i = 0; i < 500; ++i) {
        const GeoPosition from = judged.Somewhere();
        if (std::fabs(from.latitude) > 60.0) {
            continue;
        }
        const GeoPosition to{from.latitude + 0.1 * std::sin(i * 0.7), from.longitude + 0.1 * std::cos(i * 0.7)};
        const GridPosition p = ToGrid(judged.Ours(), from.latitude, from.longitude);
        const GridPosition q = ToGrid(judged.Ours(), to.latitude, to.longitude);
        const double given = judged.Ours().LineScaleFactor(p.easting, p.northing, q.easting, q.northing);
        const double measured =
            NumericLineScale(judged.Ours(), GetParam().shape.a, GetParam().shape.e2, GetParam().unit, from.latitude,
                             from.longitude, to.latitude, to.longitude);
        const double turn = (to.longitude - from.longitude) * D_TO_R * std::sin(from.latitude * D_TO_R);
        ASSERT_NEAR(measured / given - 1.0, turn * turn / 24.0, 1e-9 + 0.02 * turn * turn / 24.0)
            << from.latitude << " " << i;
    }
}

std::string NameOf(const testing::TestParamInfo<System>& row)
{
    return "Row" + std::to_string(row.index);
}

INSTANTIATE_TEST_SUITE_P(Systems, CMERprjAgainstProj, testing::ValuesIn(kSystems), NameOf);

// PROJ takes one of latitude of true scale and scale factor; here both count, and a latitude of origin.
TEST(CMERprjAgainstProj, BothScalesAndALatitudeOfOriginAreAScaleAndAShift)
{
    const MainDirectory main(MainDirectory::Delivered());
    const auto ours =
        Loaded(4, kGrs80, ProjectionRecord({{3, 55.0}, {4, 10.0}, {5, 1e6}, {6, 2e6}, {7, 0.95}, {18, 30.0}}));
    const ProjOracle proj("+proj=merc +lat_ts=30 +lon_0=10 +ellps=GRS80");
    const double north0 = proj.Forward(ProjOracle::Radians(10.0), ProjOracle::Radians(55.0)).y;
    for (const double latitude : {-70.0, -10.0, 0.0, 54.0, 80.0}) {
        const auto plain = proj.Forward(ProjOracle::Radians(3.0), ProjOracle::Radians(latitude));
        const GridPosition at = ToGrid(*ours, latitude, 3.0);
        EXPECT_NEAR(at.easting, 0.95 * plain.x + 1e6, 1e-7);
        EXPECT_NEAR(at.northing, 0.95 * (plain.y - north0) + 2e6, 1e-7);
    }
}

// Any chart of the earth: parameters in range, places up to 85 degrees.
TEST(CMERprjProperty, TheRoundTripClosesWithinWhatTheStopLeaves)
{
    std::mt19937_64 random(20240513);
    const MainDirectory main(MainDirectory::Delivered());
    const auto between = [&random](double low, double high) {
        return std::uniform_real_distribution<double>(low, high)(random);
    };
    for (int system = 0; system < 60; ++system) {
        const double f = 1.0 / between(293.0, 301.0);
        const LinearUnit unit(system % 3 == 0 ? 1.0 : (system % 3 == 1 ? 0.3048 : kUsFoot));
        const auto chart = Loaded(4, {between(6377000.0, 6379000.0), f * (2.0 - f)},
                                  ProjectionRecord({{3, between(-85.0, 85.0)},
                                                    {4, between(-180.0, 180.0)},
                                                    {5, between(-5e6, 5e6)},
                                                    {6, between(-5e6, 5e6)},
                                                    {7, between(0.3, 2.0)},
                                                    {18, between(-80.0, 80.0)}}));
        for (int i = 0; i < 200; ++i) {
            const GeoPosition at{between(-85.0, 85.0), between(-360.0, 360.0)};
            const GridPosition grid = ToGrid(*chart, at.latitude, at.longitude);
            const GeoPosition back = ToGeo(*chart, grid.easting, grid.northing);
            ASSERT_NEAR(back.latitude, at.latitude, 6.2e-11);
            ASSERT_NEAR(back.longitude, at.longitude, 1e-12);
        }
    }
}

} // namespace
