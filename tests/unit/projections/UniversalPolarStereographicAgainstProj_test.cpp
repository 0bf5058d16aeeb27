#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <random>
#include <sstream>

#include "tests/support/GridPositions.h"
#include "tests/support/NumericFactors.h"
#include "tests/support/PlainPolarStereographic.h"
#include "tests/support/ProjOracle.h"
#include "tests/support/ProjectionRecord.h"

// The polar stereographic against PROJ's "stere", which has an inverse without end, and against the
// steps as they are written.

namespace {

struct System {
    const char* name;
    EllipsoidShape shape;
    double unit, falseOrigin, k0; // metres
    bool north;
};

const System kSystems[] = {
    {"WGS 84 / UPS North (EPSG 5041)", {6378137.0, 0.006694379990141317}, 1.0, 2e6, 0.994, true},
    {"WGS 84 / UPS South (EPSG 5042)", {6378137.0, 0.006694379990141317}, 1.0, 2e6, 0.994, false},
    {"UPS North on International 1924", {6378388.0, 0.006722670022333322}, 1.0, 2e6, 0.994, true},
    {"UPS South on Clarke 1866, feet", kClarke1866, 0.3048, 2e6, 0.994, false},
    {"a northern map on GRS 1980, US survey feet", kGrs80, 1200.0 / 3937.0, 0.0, 1.0, true},
    {"a southern map on Bessel 1841", {6377397.155, 0.0066743722318021447}, 1.0, 1e6, 0.97276901289, false},
};

class Judged {
public:
    explicit Judged(const System& s) : m_unit(s.unit), m_ours(Ours(s)), m_proj(Definition(s))
    {
        m_plain.a = static_cast<long double>(s.shape.a) / s.unit;
        m_plain.e2 = s.shape.e2;
        m_plain.falseEasting = s.falseOrigin / s.unit;
        m_plain.falseNorthing = s.falseOrigin / s.unit;
        m_plain.k0 = s.k0;
        m_plain.north = s.north;
        m_plain.Prepare();
    }
    const CProjection& Ours() const { return *m_ours; }
    const ProjOracle& Proj() const { return m_proj; }
    const plain::PolarStereographic& Plain() const { return m_plain; }

private:
    static std::unique_ptr<CProjection> Ours(const System& s)
    {
        ProjectionRecord record({{5, s.falseOrigin / s.unit}, {6, s.falseOrigin / s.unit}, {7, s.k0}});
        record.Set(ProjectionKey::hemisphere, CString(s.north ? L"Northern" : L"Southern"));
        return Loaded(15, s.shape, record);
    }
    static std::string Definition(const System& s)
    {
        std::ostringstream text;
        text.precision(17);
        text << "+proj=stere +lat_0=" << (s.north ? 90 : -90) << " +k=" << s.k0 << " +x_0=" << s.falseOrigin
             << " +y_0=" << s.falseOrigin << " +a=" << s.shape.a << " +es=" << s.shape.e2 << " +to_meter=" << s.unit;
        return text.str();
    }

    MainDirectory m_main{MainDirectory::Delivered()};
    LinearUnit m_unit;
    std::unique_ptr<CProjection> m_ours;
    ProjOracle m_proj;
    plain::PolarStereographic m_plain;
};

/// Points of the hemisphere down to 60 degrees, off the axis that has no inverse.
template <class Check>
void OverCap(const System& s, Check check)
{
    for (double colatitude = 0.001; colatitude <= 30.0; colatitude += 0.37) {
        for (double longitude = -179.5; longitude < 180.0; longitude += 7.0) {
            check(s.north ? 90.0 - colatitude : colatitude - 90.0, longitude);
        }
    }
}

TEST(UniversalPolarStereographicAgainstProj, ForwardIsTheSame)
{
    for (const System& system : kSystems) {
        const Judged judged(system);
        OverCap(system, [&](double latitude, double longitude) {
            const GridPosition ours = ToGrid(judged.Ours(), latitude, longitude);
            const auto proj = judged.Proj().Forward(ProjOracle::Radians(longitude), ProjOracle::Radians(latitude));
            EXPECT_NEAR(ours.easting, proj.x, 5e-8) << system.name;
            EXPECT_NEAR(ours.northing, proj.y, 5e-8) << system.name;
        });
    }
}

// The series and its divisor 11500 leave 0.002 mm.
TEST(UniversalPolarStereographicAgainstProj, InverseIsWithinTheErrorOfTheSeries)
{
    for (const System& system : kSystems) {
        const Judged judged(system);
        double worst = 0.0;
        OverCap(system, [&](double latitude, double longitude) {
            const auto grid = judged.Proj().Forward(ProjOracle::Radians(longitude), ProjOracle::Radians(latitude));
            const GeoPosition ours = ToGeo(judged.Ours(), grid.x, grid.y);
            worst = std::max(worst, std::fabs(ours.latitude - latitude));
            EXPECT_NEAR((ours.longitude - longitude) * std::cos(latitude * D_TO_R), 0.0, 1e-12) << system.name;
        });
        EXPECT_LT(worst, 3e-11) << system.name;
        EXPECT_GT(worst, 1.5e-11) << system.name;
    }
}

TEST(UniversalPolarStereographicAgainstProj, ScaleAndConvergenceAreThoseOfTheMap)
{
    for (const System& system : kSystems) {
        const Judged judged(system);
        OverCap(system, [&](double latitude, double longitude) {
            if (std::fabs(latitude) > 89.9) {
                return; // the differences reach across the pole
            }
            const GridPosition grid = ToGrid(judged.Ours(), latitude, longitude);
            const NumericFactors exact(judged.Ours(), system.shape.a, system.shape.e2, system.unit, latitude,
                                       longitude);
            EXPECT_NEAR(judged.Ours().PointScaleFactor(grid.easting, grid.northing), exact.scale, 3e-9) << system.name;
            EXPECT_NEAR(ConvergenceAt(judged.Ours(), grid.easting, grid.northing), exact.convergence, 1e-7)
                << system.name;
        });
    }
}

TEST(UniversalPolarStereographicAgainstProj, LineScaleIsGridOverGeodesicDistance)
{
    struct Row {
        std::size_t system;
        double lat1, lon1, lat2, lon2;
    };
    const Row rows[] = {{0, 84.5, 10.0, 84.9, 12.0},
                        {0, 88.0, 100.0, 88.5, 140.0},
                        {1, -81.0, -60.0, -81.3, -61.0},
                        {3, -70.0, 20.0, -70.2, 20.5},
                        {4, 65.0, -150.0, 65.1, -149.8}};
    for (const Row& row : rows) {
        const System& system = kSystems[row.system];
        const Judged judged(system);
        const GridPosition from = ToGrid(judged.Ours(), row.lat1, row.lon1);
        const GridPosition to = ToGrid(judged.Ours(), row.lat2, row.lon2);
        EXPECT_NEAR(judged.Ours().LineScaleFactor(from.easting, from.northing, to.easting, to.northing),
                    NumericLineScale(judged.Ours(), system.shape.a, system.shape.e2, system.unit, row.lat1, row.lon1,
                                     row.lat2, row.lon2),
                    1e-7)
            << row.lat1;
    }
}

// Beside the meridian of 180 degrees the quotient for the distance has few digits left, in double as
// in the extended precision of the steps.
TEST(UniversalPolarStereographicAgainstPlain, ForwardInverseAndScale)
{
    std::mt19937_64 random(15);
    std::uniform_real_distribution<double> colatitude(0.01, 60.0);
    std::uniform_real_distribution<double> offset(-178.0, 178.0);
    for (const System& system : kSystems) {
        const Judged judged(system);
        double worstGrid = 0.0, worstGeo = 0.0, worstScale = 0.0;
        for (int i = 0; i < 10000; ++i) {
            const double c = colatitude(random);
            const double latitude = system.north ? 90.0 - c : c - 90.0;
            const double longitude = offset(random);
            const GridPosition grid = ToGrid(judged.Ours(), latitude, longitude);
            const auto expected = judged.Plain().GeoToGrid(latitude, longitude);
            worstGrid =
                std::max({worstGrid, std::fabs(grid.easting - static_cast<double>(expected.easting)) * system.unit,
                          std::fabs(grid.northing - static_cast<double>(expected.northing)) * system.unit});
            const GeoPosition geo = ToGeo(judged.Ours(), grid.easting, grid.northing);
            const auto back = judged.Plain().GridToGeo(grid.easting, grid.northing);
            worstGeo = std::max(
                {worstGeo, std::fabs(geo.latitude - static_cast<double>(back.latitude)),
                 std::fabs(geo.longitude - static_cast<double>(back.longitude)) * std::cos(latitude * D_TO_R)});
            worstScale = std::max(
                worstScale, std::fabs(judged.Ours().PointScaleFactor(grid.easting, grid.northing) -
                                      static_cast<double>(judged.Plain().PointScale(grid.easting, grid.northing))));
        }
        EXPECT_LE(worstGrid, 1e-8) << system.name;
        EXPECT_LE(worstGeo, 1e-13) << system.name;
        EXPECT_LE(worstScale, 1e-12) << system.name;
    }
}

TEST(UniversalPolarStereographicAgainstPlain, ARoundTripCloses)
{
    const MainDirectory main(MainDirectory::Delivered());
    std::mt19937_64 random(16);
    const auto between = [&random](double low, double high) {
        return std::uniform_real_distribution<double>(low, high)(random);
    };
    for (int i = 0; i < 300; ++i) {
        ProjectionRecord record({{5, between(-3e6, 3e6)}, {6, between(-3e6, 3e6)}, {7, between(0.8, 1.2)}});
        const bool north = i % 2 == 0;
        record.Set(ProjectionKey::hemisphere, CString(north ? L"Northern" : L"Southern"));
        const auto projection = Loaded(15, {between(6.35e6, 6.4e6), between(0.0, 0.0069)}, record);
        for (int k = 0; k < 50; ++k) {
            const double latitude = (north ? 1.0 : -1.0) * between(30.0, 89.999);
            const double longitude = between(-180.0, 180.0);
            const GridPosition grid = ToGrid(*projection, latitude, longitude);
            const GeoPosition geo = ToGeo(*projection, grid.easting, grid.northing);
            EXPECT_NEAR(geo.latitude, latitude, 2e-10);
            EXPECT_NEAR(std::remainder(geo.longitude - longitude, 360.0) * std::cos(latitude * D_TO_R), 0.0, 1e-12);
        }
    }
}

} // namespace
