#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <random>
#include <vector>

#include "tests/support/GridPositions.h"
#include "tests/support/HotineSystems.h"

// The production code joins powers and takes sines from tangents; here it is held against the
// steps as they are written.

namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

constexpr double kGridTolerance = 1e-8; // metres; a few last bits of 5000 km
constexpr double kGeoTolerance = 1e-13; // degrees of arc on the ground

bool Same(double a, double b, double tolerance)
{
    return std::isnan(b) ? std::isnan(a) : a == b || std::fabs(a - b) <= tolerance;
}

std::vector<HotineSystem> Systems()
{
    std::vector<HotineSystem> systems(std::begin(kHotineSystems), std::end(kHotineSystems));
    HotineSystem sphere = kHotineSystems[0];
    sphere.shape = {6371000.0, 0.0};
    sphere.phic = -35.0;
    systems.push_back(sphere);
    sphere.variant = 'B';
    systems.push_back(sphere);
    return systems;
}

TEST(HotineAgainstPlain, ForwardAndInverseAroundTheCentre)
{
    const MainDirectory main(MainDirectory::Delivered());
    std::mt19937_64 random(20250108);
    std::uniform_real_distribution<double> offset(-12.0, 12.0);
    for (const HotineSystem& system : Systems()) {
        const LinearUnit unit(system.unit);
        const auto fast = system.Load();
        const plain::Hotine steps = system.Plain();
        for (int i = 0; i < 20000; ++i) {
            const double phi = system.phic + offset(random);
            const double lambda = system.lambdac + offset(random);
            const auto grid = steps.GeoToGrid(phi, lambda);
            const GridPosition ours = ToGrid(*fast, phi, lambda);
            const double metres = system.unit;
            const double tolerance = kGridTolerance * std::max(1.0, std::fabs(grid.northing) * metres / 5e6);
            ASSERT_TRUE(Same(ours.easting * metres, grid.easting * metres, tolerance))
                << system.name << " " << phi << " " << lambda << " " << ours.easting - grid.easting;
            ASSERT_TRUE(Same(ours.northing * metres, grid.northing * metres, tolerance))
                << system.name << " " << phi << " " << lambda << " " << ours.northing - grid.northing;
            const auto geo = steps.GridToGeo(grid.easting, grid.northing);
            const GeoPosition back = ToGeo(*fast, grid.easting, grid.northing);
            ASSERT_TRUE(Same(back.latitude, geo.latitude, kGeoTolerance))
                << system.name << " " << back.latitude - geo.latitude;
            ASSERT_TRUE(Same(back.longitude, geo.longitude, kGeoTolerance / std::cos(phi * D_TO_R)))
                << system.name << " " << back.longitude - geo.longitude;
        }
    }
}

TEST(HotineAgainstPlain, SingularPoints)
{
    const MainDirectory main(MainDirectory::Delivered());
    std::vector<HotineSystem> systems = Systems();
    systems.push_back(kHotineSystems[7]);
    systems.back().name = "azimuth 90 in the south";
    systems.back().phic = -systems.back().phic;
    for (const HotineSystem& system : systems) {
        const LinearUnit unit(system.unit);
        const auto fast = system.Load();
        const plain::Hotine steps = system.Plain();
        for (const double phi : {-450.0, -91.0, -90.0, -89.999999, 0.0, 89.999999, 90.0, 90.5, kInfinity, kNaN}) {
            for (const double lambda :
                 {system.lambdac, system.lambdac + 170.0, system.lambdac - 1e6, kInfinity, kNaN}) {
                const auto grid = steps.GeoToGrid(phi, lambda);
                const GridPosition ours = ToGrid(*fast, phi, lambda);
                EXPECT_TRUE(Same(ours.easting, grid.easting, 1e-4)) << system.name << " " << phi << " " << lambda;
                EXPECT_TRUE(Same(ours.northing, grid.northing, 1e-4)) << system.name << " " << phi << " " << lambda;
            }
        }
        for (const double far : {1e8, -1e8, 1e12, -1e12, 1e300, -1e300, kInfinity, -kInfinity, kNaN}) {
            for (const double other : {system.FN, far, -far}) {
                const auto geo = steps.GridToGeo(far, other);
                const GeoPosition ours = ToGeo(*fast, far, other);
                EXPECT_EQ(std::isnan(ours.latitude), std::isnan(geo.latitude)) << system.name << " " << far;
                EXPECT_EQ(std::isnan(ours.longitude), std::isnan(geo.longitude)) << system.name << " " << far;
            }
        }
    }
}

TEST(HotineAgainstPlain, ConvergenceAndScaleFactors)
{
    constexpr double kSame = 1e-13;
    const MainDirectory main(MainDirectory::Delivered());
    std::mt19937_64 random(20250109);
    std::uniform_real_distribution<double> part(0.0, 1.0);
    for (const HotineSystem& system : kHotineSystems) {
        const LinearUnit unit(system.unit);
        const auto fast = system.Load();
        const plain::Hotine steps = system.Plain();
        const double tolerance = system.alphac == 90.0 ? 1e-9 : kSame; // 0 / 0 is near
        for (int i = 0; i < 2000; ++i) {
            const auto p = steps.GeoToGrid(system.south + (system.north - system.south) * part(random),
                                           system.west + (system.east - system.west) * part(random));
            const auto q = steps.GeoToGrid(system.south + (system.north - system.south) * part(random),
                                           system.west + (system.east - system.west) * part(random));
            EXPECT_NEAR(fast->PointScaleFactor(p.easting, p.northing), steps.PointScale(p.easting, p.northing),
                        tolerance)
                << system.name;
            EXPECT_NEAR(fast->LineScaleFactor(p.easting, p.northing, q.easting, q.northing),
                        steps.LineScale(p.easting, p.northing, q.easting, q.northing), tolerance)
                << system.name;
            if (system.variant == 'A') {
                EXPECT_NEAR(ConvergenceAt(*fast, p.easting, p.northing), steps.Convergence(p.easting, p.northing),
                            1e-11)
                    << system.name;
            }
        }
    }
}

} // namespace
