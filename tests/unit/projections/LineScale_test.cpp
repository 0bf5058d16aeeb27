#include "projections/LineScale.h"

#include <gtest/gtest.h>

#include <cmath>

#include "tests/support/ProjectionRecord.h"

namespace {

TEST(LineScale, SimpsonOverReciprocals)
{
    // 6 / (1/2 + 4/1 + 1/0.5) = 6 / 6.5
    EXPECT_DOUBLE_EQ(LineScale::HarmonicSimpson(0.5, 1.0, 2.0), 6.0 / 6.5);
    EXPECT_DOUBLE_EQ(LineScale::HarmonicSimpson(2.0, 1.0, 0.5), 6.0 / 6.5);
}

TEST(LineScale, SimpsonOverFactors)
{
    // (2 + 4 * 1 + 0.5) / 6
    EXPECT_DOUBLE_EQ(LineScale::ArithmeticSimpson(0.5, 1.0, 2.0), 6.5 / 6.0);
}

TEST(LineScale, MeanRadiusIsExactForAQuadraticScale)
{
    // The mean of k0 (1 + x^2 / 2R^2) from x = 1 to x = 4 with R^2 = 50: 1 + (64 - 1) / (3 * 3) / 100.
    EXPECT_DOUBLE_EQ(LineScale::MeanRadius(1.0, 50.0, 1.0, 4.0), 1.07);
    EXPECT_DOUBLE_EQ(LineScale::MeanRadius(2.0, 50.0, 4.0, 1.0), 2.14);
    EXPECT_DOUBLE_EQ(LineScale::MeanRadius(0.9996, 50.0, 0.0, 0.0), 0.9996);
}

TEST(LineScale, SquaredMeanRadiusIsTheProductOfBothRadii)
{
    constexpr double a = 6378137.0;
    constexpr double e2 = 0.0066943800229007876;
    for (const double latitude : {-90.0, -30.0, 0.0, 45.0, 52.0}) {
        const double s = std::sin(latitude * D_TO_R);
        const double rho = a * (1.0 - e2) / std::pow(1.0 - e2 * s * s, 1.5);
        const double nu = a / std::sqrt(1.0 - e2 * s * s);
        EXPECT_NEAR(LineScale::SquaredMeanRadius(1.0, a, e2, latitude) / (rho * nu), 1.0, 1e-14) << latitude;
    }
    EXPECT_DOUBLE_EQ(LineScale::SquaredMeanRadius(0.5, 2.0, 0.0, 30.0), 1.0);
}

TEST(LineScale, AsksTheProjectionAtEndsAndMidpoint)
{
    const MainDirectory main(MainDirectory::Delivered());
    const auto projection = Loaded(0, kGrs80, ProjectionRecord({{3, 0.0}, {4, 9.0}, {5, 5e5}, {6, 0.0}, {7, 0.9996}}));
    const double k1 = projection->PointScaleFactor(6e5, 5e6);
    const double km = projection->PointScaleFactor(7e5, 5.1e6);
    const double k2 = projection->PointScaleFactor(8e5, 5.2e6);
    EXPECT_DOUBLE_EQ(LineScale::HarmonicSimpson(*projection, 6e5, 5e6, 8e5, 5.2e6),
                     6.0 / (1.0 / k1 + 4.0 / km + 1.0 / k2));
    EXPECT_DOUBLE_EQ(LineScale::ArithmeticSimpson(*projection, 6e5, 5e6, 8e5, 5.2e6), (k1 + 4.0 * km + k2) / 6.0);
}

} // namespace
