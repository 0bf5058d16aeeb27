#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <random>

#include "tests/support/GridPositions.h"
#include "tests/support/PlainCassini.h"
#include "tests/support/ProjectionRecord.h"

// The production code saves sines; here it is held against the steps as they are written.

namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

constexpr double kGridTolerance = 1e-8; // metres
constexpr double kGeoTolerance = 1e-13; // degrees of arc on the ground

struct Setting {
    EllipsoidShape shape;
    double unit;
    double phi0, lambda0, FE, FN;
};

const Setting kSettings[] = {
    {kGrs80, 1.0, 0.0, 9.0, 500000.0, 0.0},
    {{6378293.64520876, 0.0067852240}, 0.201166195164, 10.441666666666667, -61.333333333333333, 430000.0, 325000.0},
    {kClarke1866, 1200.0 / 3937.0, -40.0, 179.0, 0.0, 1e6},
    {{6371000.0, 0.0}, 1.0, 10.0, 0.0, 0.0, 0.0},
};

bool Same(double a, double b, double tolerance)
{
    return std::isnan(b) ? std::isnan(a) : a == b || std::fabs(a - b) <= tolerance;
}

class Pair {
public:
    explicit Pair(const Setting& setting)
        : m_unit(setting.unit),
          m_fast(Loaded(
              8, setting.shape,
              ProjectionRecord({{3, setting.phi0}, {4, setting.lambda0}, {5, setting.FE}, {6, setting.FN}, {7, 1.0}})))
    {
        m_plain.a = setting.shape.a / setting.unit;
        m_plain.e2 = setting.shape.e2;
        m_plain.phi0 = setting.phi0;
        m_plain.lambda0 = setting.lambda0;
        m_plain.FE = setting.FE;
        m_plain.FN = setting.FN;
    }

    const CProjection& Fast() const { return *m_fast; }
    const plain::Cassini& Plain() const { return m_plain; }

private:
    MainDirectory m_main{MainDirectory::Delivered()};
    LinearUnit m_unit;
    std::unique_ptr<CProjection> m_fast;
    plain::Cassini m_plain;
};

TEST(CCassini_SoldnerAgainstPlain, ForwardAndInverse)
{
    std::mt19937_64 random(20250112);
    std::uniform_real_distribution<double> latitude(-80.0, 80.0);
    std::uniform_real_distribution<double> offset(-5.0, 5.0);
    for (const Setting& setting : kSettings) {
        const Pair pair(setting);
        for (int i = 0; i < 50000; ++i) {
            const double phi = latitude(random);
            const double lambda = setting.lambda0 + offset(random);
            const GridPosition fast = ToGrid(pair.Fast(), phi, lambda);
            const auto grid = pair.Plain().GeoToGrid(phi, lambda);
            ASSERT_TRUE(Same(fast.easting * setting.unit, grid.easting * setting.unit, kGridTolerance)) << phi;
            ASSERT_TRUE(Same(fast.northing * setting.unit, grid.northing * setting.unit, kGridTolerance)) << phi;
            const GeoPosition back = ToGeo(pair.Fast(), grid.easting, grid.northing);
            const auto geo = pair.Plain().GridToGeo(grid.easting, grid.northing);
            ASSERT_TRUE(Same(back.latitude, geo.latitude, kGeoTolerance)) << back.latitude - geo.latitude;
            ASSERT_TRUE(Same(back.longitude, geo.longitude, kGeoTolerance / std::cos(phi * D_TO_R)))
                << back.longitude - geo.longitude;
        }
    }
}

TEST(CCassini_SoldnerAgainstPlain, SingularPoints)
{
    for (const Setting& setting : kSettings) {
        const Pair pair(setting);
        for (const double phi : {-450.0, -90.0, -89.9999999, 0.0, 5e-324, 90.0, 135.0, 180.0, 1e300, kInfinity, kNaN}) {
            for (const double offset : {-kInfinity, -1e9, -180.0, 0.0, 1e-12, 90.0, 180.0, 359.0, kNaN}) {
                const GridPosition fast = ToGrid(pair.Fast(), phi, setting.lambda0 + offset);
                const auto grid = pair.Plain().GeoToGrid(phi, setting.lambda0 + offset);
                const double tolerance = 1e-6 + 1e-13 * std::fabs(grid.northing);
                EXPECT_TRUE(Same(fast.easting, grid.easting, tolerance)) << phi << " " << offset;
                EXPECT_TRUE(Same(fast.northing, grid.northing, tolerance)) << phi << " " << offset;
            }
        }
        for (const double far : {1e8, -1e9, 1e12, -1e300, kInfinity, -kInfinity, kNaN}) {
            for (const double other : {setting.FN, far, -far}) {
                const GeoPosition fast = ToGeo(pair.Fast(), far, other);
                const auto geo = pair.Plain().GridToGeo(far, other);
                EXPECT_EQ(std::isnan(fast.latitude), std::isnan(geo.latitude)) << far << " " << other;
                EXPECT_EQ(std::isnan(fast.longitude), std::isnan(geo.longitude)) << far << " " << other;
            }
        }
    }
}

TEST(CCassini_SoldnerAgainstPlain, ScaleFactors)
{
    std::mt19937_64 random(20250113);
    std::uniform_real_distribution<double> latitude(-75.0, 75.0);
    std::uniform_real_distribution<double> offset(-2.0, 2.0);
    for (const Setting& setting : kSettings) {
        const Pair pair(setting);
        for (int i = 0; i < 2000; ++i) {
            const double phi = latitude(random);
            const auto p = pair.Plain().GeoToGrid(phi, setting.lambda0 + offset(random));
            const auto q = pair.Plain().GeoToGrid(phi + 0.5, setting.lambda0 + offset(random));
            // A line of 1000 units between positions of 15 digits; the long one shares no such loss.
            EXPECT_NEAR(pair.Fast().PointScaleFactor(p.easting, p.northing),
                        pair.Plain().PointScale(p.easting, p.northing), 5e-11 / setting.unit);
            EXPECT_NEAR(pair.Fast().LineScaleFactor(p.easting, p.northing, q.easting, q.northing),
                        pair.Plain().LineScale(p.easting, p.northing, q.easting, q.northing), 1e-12);
        }
    }
}

} // namespace
