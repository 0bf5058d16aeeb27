#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <random>

#include "tests/support/GridPositions.h"
#include "tests/support/PlainPolyconic.h"
#include "tests/support/ProjectionRecord.h"

// The production code saves sines; here it is held against the steps as they are written.

namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

constexpr double kGridTolerance = 1e-8; // metres

// Degrees of arc on the ground. The steps themselves bear this: the numerator is a difference of
// terms that grow with the tangent of the latitude.
constexpr double kGeoTolerance = 5e-13;

// A correction within this of the bound ends the one and not the other.
constexpr double kTie = 1e-14; // radians

struct Setting {
    EllipsoidShape shape;
    double unit;
    double phi0, lambda0, FE, FN;
};

const Setting kSettings[] = {
    {kGrs80, 1.0, 0.0, -54.0, 5000000.0, 10000000.0},
    {{6378206.4, 0.00676866}, 1.0, 30.0, -96.0, 0.0, 0.0},
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
          m_fast(Loaded(14, setting.shape,
                        ProjectionRecord({{3, setting.phi0}, {4, setting.lambda0}, {5, setting.FE}, {6, setting.FN}})))
    {
        m_plain.a = setting.shape.a / setting.unit;
        m_plain.e2 = setting.shape.e2;
        m_plain.phi0 = setting.phi0;
        m_plain.lambda0 = setting.lambda0;
        m_plain.FE = setting.FE;
        m_plain.FN = setting.FN;
    }

    const CProjection& Fast() const { return *m_fast; }
    const plain::Polyconic& Plain() const { return m_plain; }

private:
    MainDirectory m_main{MainDirectory::Delivered()};
    LinearUnit m_unit;
    std::unique_ptr<CProjection> m_fast;
    plain::Polyconic m_plain;
};

TEST(PolyconicProjectionAgainstPlain, ForwardAndInverse)
{
    std::mt19937_64 random(20250117);
    std::uniform_real_distribution<double> latitude(-80.0, 80.0);
    std::uniform_real_distribution<double> offset(-30.0, 30.0);
    for (const Setting& setting : kSettings) {
        const Pair pair(setting);
        int most = 0;
        for (int i = 0; i < 50000; ++i) {
            const double phi = latitude(random);
            const double lambda = setting.lambda0 + offset(random);
            const GridPosition fast = ToGrid(pair.Fast(), phi, lambda);
            const auto grid = pair.Plain().GeoToGrid(phi, lambda);
            // Near the equator the difference 1 - cos is the last bit's.
            const double last = 2.3e-16 * setting.shape.a / std::fabs(phi * D_TO_R);
            ASSERT_TRUE(Same(fast.easting * setting.unit, grid.easting * setting.unit, 1.5 * kGridTolerance)) << phi;
            ASSERT_TRUE(Same(fast.northing * setting.unit, grid.northing * setting.unit, kGridTolerance + last)) << phi;
            const auto geo = pair.Plain().GridToGeo(grid.easting, grid.northing);
            most = std::max(most, geo.passes);
            if (std::fabs(std::fabs(geo.last) - 1e-9) < kTie) {
                continue;
            }
            const GeoPosition back = ToGeo(pair.Fast(), grid.easting, grid.northing);
            ASSERT_TRUE(Same(back.latitude, geo.latitude, kGeoTolerance)) << phi << " " << back.latitude - geo.latitude;
            ASSERT_TRUE(Same(back.longitude, geo.longitude, kGeoTolerance / std::cos(phi * D_TO_R)))
                << phi << " " << back.longitude - geo.longitude;
        }
        EXPECT_LE(most, 6) << "far below the limit of 25";
    }
}

TEST(PolyconicProjectionAgainstPlain, SingularPoints)
{
    for (const Setting& setting : kSettings) {
        const Pair pair(setting);
        for (const double phi : {-450.0, -90.0, -1e-10, -0.0, 0.0, 5e-324, 1e-10, 90.0, 135.0, kInfinity, kNaN}) {
            for (const double offset : {-kInfinity, -1e6, -180.0, 0.0, 1e-12, 90.0, 359.0, kNaN}) {
                const GridPosition fast = ToGrid(pair.Fast(), phi, setting.lambda0 + offset);
                const auto grid = pair.Plain().GeoToGrid(phi, setting.lambda0 + offset);
                EXPECT_TRUE(Same(fast.easting, grid.easting, 1e-6 + 1e-15 * std::fabs(grid.easting)))
                    << phi << " " << offset;
                EXPECT_TRUE(Same(fast.northing, grid.northing, 1e-5)) << phi << " " << offset;
            }
        }
        const double M0 = plain::ShortArc(setting.shape.a / setting.unit, setting.shape.e2, setting.phi0 * D_TO_R);
        for (const double x : {0.0, 1e5, -1e6, kInfinity, kNaN}) {
            for (const double y : {0.0, M0, -M0, kInfinity, kNaN}) {
                const GeoPosition fast = ToGeo(pair.Fast(), setting.FE + x, setting.FN + y);
                const auto geo = pair.Plain().GridToGeo(setting.FE + x, setting.FN + y);
                EXPECT_TRUE(Same(fast.latitude, geo.latitude, 1e-8)) << x << " " << y;
                EXPECT_TRUE(Same(fast.longitude, geo.longitude, 1e-8)) << x << " " << y;
            }
        }
    }
}

TEST(PolyconicProjectionAgainstPlain, ScaleFactors)
{
    std::mt19937_64 random(20250118);
    std::uniform_real_distribution<double> latitude(-70.0, 70.0);
    std::uniform_real_distribution<double> offset(-10.0, 10.0);
    for (const Setting& setting : kSettings) {
        const Pair pair(setting);
        for (int i = 0; i < 2000; ++i) {
            const double phi = latitude(random);
            const auto p = pair.Plain().GeoToGrid(phi, setting.lambda0 + offset(random));
            const auto q = pair.Plain().GeoToGrid(phi + 0.5, setting.lambda0 + offset(random));
            // A line of 1000 units between positions of 15 digits.
            EXPECT_NEAR(pair.Fast().PointScaleFactor(p.easting, p.northing),
                        pair.Plain().PointScale(p.easting, p.northing), 5e-10 / setting.unit);
            EXPECT_NEAR(pair.Fast().LineScaleFactor(p.easting, p.northing, q.easting, q.northing),
                        pair.Plain().LineScale(p.easting, p.northing, q.easting, q.northing), 1e-11);
        }
    }
}

} // namespace
