#include "projections/ConformalLatitude.h"

#include <gtest/gtest.h>

#include "frame/BaseContract.h"

namespace {

constexpr double kGrs80E2 = 0.0066943800229007876;

struct Row {
    double latitude;  // degrees
    double conformal; // radians, computed with 30 digits from the definition
    double series;    // radians, the series in 30 digits with Snyder's divisor
    double polar;     // with the divisor of the polar grids
};

constexpr Row kRows[] = {
    {10.0, 0.173387926433729673, 0.174532925197621506, 0.174532925197778698},
    {30.0, 0.520695979620175097, 0.523598775598303434, 0.523598775598517795},
    {45.0, 0.78204161695564599, 0.785398163397788762, 0.785398163397792063},
    {80.0, 1.39511236757226523, 1.39626340159544223, 1.39626340159528331},
    {-60.0, -1.04428662400637657, -1.0471975511964407, -1.0471975511962292},
    {90.0, 1.57079632679489662, 1.57079632679489662, 1.57079632679489662},
};

TEST(ConformalLatitudeSeries, GivesTheGeodeticLatitude)
{
    const ConformalLatitudeSeries series(kGrs80E2, ConformalLatitudeSeries::kDivisor);
    for (const Row& row : kRows) {
        EXPECT_NEAR(series.Geodetic(row.conformal) / D_TO_R, row.latitude, 2e-10) << row.latitude;
    }
}

TEST(ConformalLatitudeSeries, HasTheTwoDivisors)
{
    const ConformalLatitudeSeries series(kGrs80E2, ConformalLatitudeSeries::kDivisor);
    const ConformalLatitudeSeries polar(kGrs80E2, ConformalLatitudeSeries::kPolarDivisor);
    for (const Row& row : kRows) {
        EXPECT_NEAR(series.Geodetic(row.conformal), row.series, 5e-16) << row.latitude;
        EXPECT_NEAR(polar.Geodetic(row.conformal), row.polar, 5e-16) << row.latitude;
    }
}

TEST(ConformalLatitudeSeries, ChangesNothingOnASphere)
{
    const ConformalLatitudeSeries series(0.0, ConformalLatitudeSeries::kDivisor);
    EXPECT_EQ(series.Geodetic(0.7), 0.7);
}

} // namespace
