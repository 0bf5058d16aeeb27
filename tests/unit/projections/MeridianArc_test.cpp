#include "projections/MeridianArc.h"

#include <gtest/gtest.h>

#include "frame/BaseContract.h"

namespace {

constexpr double kGrs80E2 = 0.0066943800229007876;

struct Row {
    double latitude; // degrees
    double length;   // the integral of the meridian radius, computed with 30 digits
    double slope;    // the meridian radius itself
};

constexpr Row kRows[] = {
    {10.0, 0.173382107220094108, 0.993606459277267525}, {30.0, 0.520545952187138869, 0.995804433737343747},
    {45.0, 0.781567466778778289, 0.998313742016911914}, {52.0, 0.90360924355913509, 0.999531640863292928},
    {80.0, 1.39306193514450358, 1.0030583109947533},    {90.0, 1.56816414091300699, 1.00336408983752202},
    {-60.0, -1.04326276142507513, 1.00083360662447283},
};

TEST(ShortMeridianArc, IsWithinAMillimetreOfTheIntegral)
{
    const ShortMeridianArc arc(kGrs80E2);
    for (const Row& row : kRows) {
        EXPECT_NEAR(arc.Length(row.latitude * D_TO_R) * 6378137.0, row.length * 6378137.0, 0.0008) << row.latitude;
    }
}

TEST(ShortMeridianArc, HasTheSlopeOfTheArc)
{
    const ShortMeridianArc arc(kGrs80E2);
    for (const Row& row : kRows) {
        EXPECT_NEAR(arc.Slope(row.latitude * D_TO_R), row.slope, 1e-9) << row.latitude;
    }
}

// The cut after the cube of e2 is part of the projections that use the series: at 80 degrees it
// leaves 0.7596 mm (30 digits), and a longer series would not.
TEST(ShortMeridianArc, IsCutAfterTheCubeOfTheSquaredEccentricity)
{
    const ShortMeridianArc arc(kGrs80E2);
    EXPECT_NEAR((arc.Length(80.0 * D_TO_R) - 1.39306193514450358) * 6378137.0, 0.000759581, 1e-8);
}

TEST(ShortMeridianArc, IsTheLatitudeOnASphere)
{
    const ShortMeridianArc arc(0.0);
    EXPECT_EQ(arc.C0(), 1.0);
    EXPECT_EQ(arc.Length(0.7), 0.7);
    EXPECT_EQ(arc.Slope(0.7), 1.0);
}

} // namespace
