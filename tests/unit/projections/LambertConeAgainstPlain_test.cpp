#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <random>

#include "tests/support/GridPositions.h"
#include "tests/support/PlainLambert.h"
#include "tests/support/ProjectionRecord.h"

// Both Lambert classes against the steps as they are written.

namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();

// What two orders of the same arithmetic may differ by up to 80 degrees of latitude; farther on the
// sine of the latitude runs out of digits, for both.
constexpr double kGridTolerance = 1e-8; // units of the grid
constexpr double kGeoTolerance = 1e-13; // degrees
constexpr double kLatitudeEnd = 80.0;

// Parallels two degrees apart give the cone constant with 14 digits, in any order of the steps; far
// from them that shows.
constexpr double kFarGrid = 1e-7; // units of the grid
constexpr double kFarGeo = 2e-12; // degrees

struct Setting {
    std::uint32_t type;
    EllipsoidShape shape;
    double unit;
    double phiF, lambda0, FE, FN, k, phiS, phiN;
};

const Setting kSettings[] = {
    {3, kGrs80, 1.0, 46.5, 3.0, 700000.0, 6600000.0, 0.0, 44.0, 49.0},
    {3,
     {6378388.0, 0.0067226700223333219},
     1.0,
     90.0,
     4.367486666666666,
     150000.013,
     5400088.438,
     0.0,
     49.8333339,
     51.16666723333333},
    {3, kClarke1866, 1200.0 / 3937.0, 27.0 + 5.0 / 6.0, -99.0, 2000000.0, 0.0, 0.0, 28.383333333333333,
     30.283333333333335},
    {3, kGrs80, 0.3048, 31.0 + 5.0 / 6.0, -81.0, 2000000.0, 0.0, 0.0, 32.5, 34.833333333333336},
    {3, {6371000.0, 0.0}, 1.0, 30.0, 0.0, 0.0, 0.0, 0.0, 20.0, 60.0},
    {12, {6378249.2, 0.006803487646299926}, 1.0, 33.3, -5.4, 500000.0, 300000.0, 0.999625769, 0.0, 0.0},
    {12, {6378249.145, 0.0068035112828490643}, 0.3047972654, 18.0, -77.0, 550000.0, 400000.0, 1.0, 0.0, 0.0},
    {12, {6378137.0, 0.2}, 1.0, 40.0, 179.0, 0.0, 0.0, 0.9, 0.0, 0.0},
};

class Pair {
public:
    explicit Pair(const Setting& setting) : m_unit(setting.unit), m_type(setting.type)
    {
        ProjectionRecord record({{3, setting.phiF}, {4, setting.lambda0}, {5, setting.FE}, {6, setting.FN}});
        m_plain.a = setting.shape.a / setting.unit;
        m_plain.e2 = setting.shape.e2;
        m_plain.phiF = setting.phiF;
        m_plain.lambda0 = setting.lambda0;
        m_plain.FE = setting.FE;
        m_plain.FN = setting.FN;
        if (m_type == 3) {
            record.Set(8, setting.phiS);
            record.Set(9, setting.phiN);
            m_plain.PrepareTwoParallels(setting.phiS, setting.phiN);
        } else {
            record.Set(7, setting.k);
            m_plain.PrepareOneParallel(setting.k);
        }
        m_fast = Loaded(m_type, setting.shape, record);
    }

    const CProjection& Fast() const { return *m_fast; }
    const plain::Lambert& Plain() const { return m_plain; }

    double Forward(double latitude, double longitude) const
    {
        const GridPosition fast = ToGrid(*m_fast, latitude, longitude);
        const auto steps = m_plain.GeoToGrid(latitude, longitude);
        // Beyond 40 000 km from the apex the doubles themselves are coarser.
        return std::max(Difference(fast.easting, steps.easting, 4e7), Difference(fast.northing, steps.northing, 4e7));
    }
    double Inverse(double easting, double northing) const
    {
        const GeoPosition fast = ToGeo(*m_fast, easting, northing);
        const auto steps = m_plain.GridToGeo(easting, northing);
        return std::max(Difference(fast.latitude, steps.latitude, 360.0),
                        Difference(fast.longitude, steps.longitude, 360.0));
    }
    double LineScale(double e1, double n1, double e2, double n2) const
    {
        return m_type == 3 ? m_plain.LineScaleTwoParallels(e1, n1, e2, n2)
                           : m_plain.LineScaleOneParallel(e1, n1, e2, n2);
    }

private:
    static double Difference(double a, double b, double size)
    {
        if (std::isnan(a) || std::isnan(b)) {
            return std::isnan(a) && std::isnan(b) ? 0.0 : kInfinity;
        }
        return a == b ? 0.0 : std::fabs(a - b) / std::max(1.0, std::fabs(b) / size);
    }

    MainDirectory m_main{MainDirectory::Delivered()};
    LinearUnit m_unit;
    std::uint32_t m_type;
    std::unique_ptr<CProjection> m_fast;
    plain::Lambert m_plain;
};

struct Range {
    double southOfOrigin, northOfOrigin, besideOrigin; // degrees
    double gridTolerance, geoTolerance;
};

void ExpectAgreement(const Range& range, std::uint64_t seed)
{
    std::mt19937_64 random(seed);
    for (const Setting& setting : kSettings) {
        const Pair pair(setting);
        const double centre = setting.phiF == 90.0 ? 50.5 : setting.phiF;
        std::uniform_real_distribution<double> latitude(centre - range.southOfOrigin,
                                                        std::min(centre + range.northOfOrigin, kLatitudeEnd));
        std::uniform_real_distribution<double> offset(-range.besideOrigin, range.besideOrigin);
        double forward = 0.0;
        double inverse = 0.0;
        for (int i = 0; i < 20000; ++i) {
            const double phi = latitude(random);
            const double lambda = setting.lambda0 + offset(random);
            forward = std::max(forward, pair.Forward(phi, lambda) * setting.unit);
            const auto grid = pair.Plain().GeoToGrid(phi, lambda);
            inverse = std::max(inverse, pair.Inverse(grid.easting, grid.northing));
        }
        EXPECT_LE(forward, range.gridTolerance) << setting.phiF;
        EXPECT_LE(inverse, range.geoTolerance) << setting.phiF;
    }
}

TEST(LambertConeAgainstPlain, WhereTheSystemsAreUsed)
{
    ExpectAgreement({10.0, 10.0, 12.0, kGridTolerance, kGeoTolerance}, 20240503);
}

TEST(LambertConeAgainstPlain, OnTheWholeMap)
{
    ExpectAgreement({90.0, 90.0, 180.0, kFarGrid, kFarGeo}, 20240508);
}

TEST(LambertConeAgainstPlain, WithoutNumbers)
{
    for (const Setting& setting : kSettings) {
        const Pair pair(setting);
        for (const double bad : {kInfinity, -kInfinity, std::nan("")}) {
            for (const double good : {0.0, -5e6, 1e9}) {
                EXPECT_LE(pair.Inverse(bad, good), kFarGeo) << bad << " " << good;
                EXPECT_LE(pair.Inverse(good, bad), kFarGeo) << bad << " " << good;
            }
            EXPECT_LE(pair.Forward(bad, setting.lambda0), kGridTolerance) << bad;
            EXPECT_LE(pair.Forward(40.0, bad), kGridTolerance) << bad;
        }
    }
}

// The pole of a map whose radius of origin is 0, so that the apex is hit exactly; and both poles
// forward.
TEST(LambertConeAgainstPlain, AtTheApex)
{
    const Pair belgium(kSettings[1]);
    for (const double x : {0.0, 1e-30, -1e5, 1e7}) {
        EXPECT_LE(belgium.Inverse(kSettings[1].FE + x, kSettings[1].FN), kFarGeo) << x;
    }
    for (const Setting& setting : kSettings) {
        const Pair pair(setting);
        for (const double pole : {-90.0, 90.0}) {
            for (const double lambda : {setting.lambda0, setting.lambda0 + 50.0}) {
                EXPECT_LE(pair.Forward(pole, lambda), kFarGrid) << pole;
            }
        }
    }
}

TEST(LambertConeAgainstPlain, ConvergenceAndScale)
{
    std::mt19937_64 random(20240504);
    std::uniform_real_distribution<double> latitude(-20.0, 75.0);
    std::uniform_real_distribution<double> offset(-30.0, 30.0);
    for (const Setting& setting : kSettings) {
        const Pair pair(setting);
        for (int i = 0; i < 500; ++i) {
            const auto p = pair.Plain().GeoToGrid(latitude(random), setting.lambda0 + offset(random));
            const auto q = pair.Plain().GeoToGrid(latitude(random), setting.lambda0 + offset(random));
            EXPECT_NEAR(ConvergenceAt(pair.Fast(), p.easting, p.northing),
                        pair.Plain().Convergence(p.easting, p.northing), 1e-13);
            EXPECT_NEAR(pair.Fast().PointScaleFactor(p.easting, p.northing),
                        pair.Plain().PointScale(p.easting, p.northing), 2e-14);
            const double line = pair.LineScale(p.easting, p.northing, q.easting, q.northing);
            EXPECT_NEAR(pair.Fast().LineScaleFactor(p.easting, p.northing, q.easting, q.northing), line, 5e-14 * line);
        }
    }
}

} // namespace
