#include "projections/LatitudeOfIsometric.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace {

constexpr int kPasses = 20;

// In longer arithmetic, from the latitude.
long double Isometric(long double e2, long double phi)
{
    const long double e = std::sqrt(e2);
    return std::asinh(std::tan(phi)) - e * std::atanh(e * std::sin(phi));
}

TEST(LatitudeOfIsometric, GivesTheLatitudeBack)
{
    for (const double e2 : {0.0, 0.0066743722318021447, 0.0081, 0.1}) {
        for (const double phi : {-1.5, -0.7, 0.0, 1e-9, 0.9, 1.55}) {
            const double t = static_cast<double>(Isometric(e2, phi));
            EXPECT_NEAR(LatitudeOfIsometric(t, e2, 1e-14, kPasses), phi, 3e-15) << e2 << " " << phi;
        }
    }
}

TEST(LatitudeOfIsometric, StopsAtTheFirstPassThatIsSettled)
{
    constexpr double kE2 = 0.0066743722318021447;
    const double t = static_cast<double>(Isometric(kE2, 0.9));
    const double sphere = std::atan(std::sinh(t));
    const double once = LatitudeOfIsometric(t, kE2, 1e-14, 1);
    EXPECT_NEAR(LatitudeOfIsometric(t, kE2, 1e-14, 0), sphere, 1e-15);
    // The first pass corrects by 0.0032 radians, the second by 1e-5.
    EXPECT_NEAR(once - sphere, kE2 * std::sin(sphere) * std::cos(sphere), 2e-5);
    EXPECT_EQ(LatitudeOfIsometric(t, kE2, 1e-2, kPasses), once);
    EXPECT_EQ(LatitudeOfIsometric(t, kE2, 1e-3, kPasses), LatitudeOfIsometric(t, kE2, 1e-14, 2));
}

TEST(LatitudeOfIsometric, NoNumberEndsThePasses)
{
    EXPECT_TRUE(std::isnan(LatitudeOfIsometric(std::numeric_limits<double>::quiet_NaN(), 0.0067, 1e-14, kPasses)));
    EXPECT_TRUE(std::isnan(LatitudeOfIsometric(1.0, -0.1, 1e-14, kPasses)));
}

} // namespace
