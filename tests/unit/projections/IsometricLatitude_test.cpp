#include "projections/IsometricLatitude.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();

TEST(IsometricLatitude, HasThePublishedValueOfSnyder)
{
    // Snyder (1987), p. 266: x / (a y) of Mercator on Clarke 1866 at 35 N is 4139145.6 / 6378206.4.
    const double s = std::sin(35.0 * 3.14159265358979323846 / 180.0);
    EXPECT_NEAR(IsometricLatitude::OfSine(0.00676866, s) * 6378206.4, 4139145.6, 0.06) << "his e has six digits";
}

TEST(IsometricLatitude, AgreesWithLongerArithmetic)
{
    // From no eccentricity over those of the earth, where a series answers, to an egg.
    for (const double e2 : {0.0, 0.0066943800229007876, 0.0068034876463, 0.0081, 0.3, 0.99}) {
        for (const double s : {-0.99, -0.5, -1e-9, 0.0, 0.1, 0.7071, 0.95}) {
            const long double e = std::sqrt(static_cast<long double>(e2));
            const long double part = e * std::atanh(e * static_cast<long double>(s));
            EXPECT_NEAR(IsometricLatitude::EllipsoidPart(e2, s), static_cast<double>(part), 5e-16) << e2 << " " << s;
            EXPECT_NEAR(IsometricLatitude::OfSine(e2, s),
                        static_cast<double>(std::atanh(static_cast<long double>(s)) - part), 7e-16)
                << e2 << " " << s;
        }
    }
}

TEST(IsometricLatitude, IsInfiniteAtThePoles)
{
    EXPECT_EQ(IsometricLatitude::OfSine(0.0066943800229007876, 1.0), kInfinity);
    EXPECT_EQ(IsometricLatitude::OfSine(0.0066943800229007876, -1.0), -kInfinity);
}

TEST(IsometricLatitude, HasNoValueWithoutEccentricity)
{
    for (const double s : {0.0, 0.5}) {
        EXPECT_TRUE(std::isnan(IsometricLatitude::OfSine(-0.001, s))) << s;
    }
    EXPECT_TRUE(std::isnan(IsometricLatitude::OfSine(0.0067, std::numeric_limits<double>::quiet_NaN())));
}

} // namespace
