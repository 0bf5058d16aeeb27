#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <random>

#include "tests/support/GridPositions.h"
#include "tests/support/PlainMercator.h"
#include "tests/support/ProjectionRecord.h"

// The production code against the steps as they are written, the passes without a limit.

namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();

// What two orders of the same arithmetic may differ by. Toward the poles the tangent of the steps
// runs out of digits: the northing bears what that costs.
constexpr double kGridTolerance = 1e-8; // units of the grid
constexpr double kGeoTolerance = 1e-13; // degrees

// The steps stop a pass earlier or later where a correction equals the bound in the last digits; the
// latitude then differs by the next correction.
constexpr double kNearTie = 1e-5; // of the bound

struct Setting {
    EllipsoidShape shape;
    double unit;
    double phi0, lambda0, FE, FN, k0, phits;
};

const Setting kSettings[] = {
    {{6378137.0, 0.0066943799901413165}, 1.0, 0.0, 0.0, 0.0, 0.0, 1.0, 0.0},
    {{6378245.0, 0.006693421622965943}, 1.0, 0.0, 51.0, 0.0, 0.0, 1.0, 42.0},
    {{6377397.155, 0.0066743722306140105}, 1.0, 0.0, 110.0, 3900000.0, 900000.0, 0.997, 0.0},
    {kClarke1866, 1200.0 / 3937.0, 27.5, -90.0, 2000000.0, 0.0, 0.9, -35.0},
    {kGrs80, 0.3048, -40.0, 179.0, 0.0, 0.0, 1.0, 60.0},
    {{6371000.0, 0.0}, 1.0, 10.0, 0.0, 0.0, 0.0, 1.0, 0.0},
    {{6378137.0, 0.3}, 1.0, 10.0, 0.0, 0.0, 0.0, 1.0, 20.0},
    {{6378137.0, 0.7}, 1.0, 0.0, 0.0, 0.0, 0.0, 1.0, 0.0},
};

class Pair {
public:
    explicit Pair(const Setting& setting)
        : m_unit(setting.unit), m_fast(Loaded(4, setting.shape,
                                              ProjectionRecord({{3, setting.phi0},
                                                                {4, setting.lambda0},
                                                                {5, setting.FE},
                                                                {6, setting.FN},
                                                                {7, setting.k0},
                                                                {18, setting.phits}})))
    {
        m_plain.a = setting.shape.a / setting.unit;
        m_plain.e2 = setting.shape.e2;
        m_plain.phi0 = setting.phi0;
        m_plain.lambda0 = setting.lambda0;
        m_plain.FE = setting.FE;
        m_plain.FN = setting.FN;
        m_plain.k0 = setting.k0;
        m_plain.phits = setting.phits;
    }

    const CProjection& Fast() const { return *m_fast; }
    const plain::Mercator& Plain() const { return m_plain; }

private:
    MainDirectory m_main{MainDirectory::Delivered()};
    LinearUnit m_unit;
    std::unique_ptr<CProjection> m_fast;
    plain::Mercator m_plain;
};

bool Same(double a, double b, double tolerance)
{
    return std::isnan(b) ? std::isnan(a) : a == b || std::fabs(a - b) <= tolerance;
}

TEST(CMERprjAgainstPlain, Forward)
{
    std::mt19937_64 random(20240505);
    std::uniform_real_distribution<double> latitude(-89.9, 89.9);
    std::uniform_real_distribution<double> longitude(-400.0, 400.0);
    for (const Setting& setting : kSettings) {
        const Pair pair(setting);
        for (int i = 0; i < 20000; ++i) {
            const double phi = latitude(random);
            const double lambda = longitude(random);
            const GridPosition fast = ToGrid(pair.Fast(), phi, lambda);
            const auto steps = pair.Plain().GeoToGrid(phi, lambda);
            const double colatitude = (90.0 - std::fabs(phi)) * D_TO_R;
            const double digits = 2.3e-16 * pair.Plain().a / colatitude;
            ASSERT_TRUE(Same(fast.northing, steps.northing, kGridTolerance / std::min(1.0, setting.unit) + digits))
                << phi << " " << fast.northing - steps.northing;
            ASSERT_TRUE(Same(fast.easting, steps.easting, 2.0 * kGridTolerance / std::min(1.0, setting.unit)))
                << lambda << " " << fast.easting - steps.easting;
        }
    }
}

TEST(CMERprjAgainstPlain, InverseWithTheSamePasses)
{
    std::mt19937_64 random(20240506);
    std::uniform_real_distribution<double> latitude(-89.9, 89.9);
    std::uniform_real_distribution<double> longitude(-180.0, 180.0);
    for (const Setting& setting : kSettings) {
        const Pair pair(setting);
        int most = 0;
        int ties = 0;
        for (int i = 0; i < 20000; ++i) {
            const auto grid = pair.Plain().GeoToGrid(latitude(random), longitude(random));
            const auto steps = pair.Plain().GridToGeo(grid.easting, grid.northing);
            const GeoPosition fast = ToGeo(pair.Fast(), grid.easting, grid.northing);
            most = std::max(most, steps.passes);
            ASSERT_TRUE(Same(fast.longitude, steps.longitude, kGeoTolerance)) << fast.longitude - steps.longitude;
            ties += Same(fast.latitude, steps.latitude, kGeoTolerance) ? 0 : 1;
            ASSERT_TRUE(Same(fast.latitude, steps.latitude, 1e-8 * setting.shape.e2)) << steps.latitude;
        }
        EXPECT_LE(ties, static_cast<int>(20000 * kNearTie) + 1);
        EXPECT_LE(most, setting.shape.e2 < 0.01 ? 5 : 63) << "the guard must not end what would settle";
    }
}

TEST(CMERprjAgainstPlain, SingularPoints)
{
    for (const Setting& setting : kSettings) {
        const Pair pair(setting);
        for (const double phi : {-91.0, -90.0, 0.0, 90.0, 91.0, 1e9, kInfinity, -kInfinity, std::nan("")}) {
            const GridPosition fast = ToGrid(pair.Fast(), phi, 5.0);
            EXPECT_TRUE(Same(fast.northing, pair.Plain().GeoToGrid(phi, 5.0).northing, 1e-6)) << phi;
        }
        for (const double northing : {1e7, 1e8, 3e8, 1e9, 1e10, -1e10, 1e300, kInfinity, -kInfinity, std::nan("")}) {
            const GeoPosition fast = ToGeo(pair.Fast(), 0.0, northing);
            EXPECT_TRUE(Same(fast.latitude, pair.Plain().GridToGeo(0.0, northing).latitude, kGeoTolerance)) << northing;
        }
    }
}

TEST(CMERprjAgainstPlain, Scale)
{
    std::mt19937_64 random(20240507);
    std::uniform_real_distribution<double> latitude(-75.0, 75.0);
    for (const Setting& setting : kSettings) {
        const Pair pair(setting);
        for (int i = 0; i < 500; ++i) {
            const auto p = pair.Plain().GeoToGrid(latitude(random), 10.0);
            const auto q = pair.Plain().GeoToGrid(latitude(random), 20.0);
            const double k = pair.Plain().PointScale(p.easting, p.northing);
            EXPECT_NEAR(pair.Fast().PointScaleFactor(p.easting, p.northing), k, 2e-14 * k);
            const double line = pair.Plain().LineScale(p.easting, p.northing, q.easting, q.northing);
            EXPECT_NEAR(pair.Fast().LineScaleFactor(p.easting, p.northing, q.easting, q.northing), line, 2e-14 * line);
        }
    }
}

} // namespace
