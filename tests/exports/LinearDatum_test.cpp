// Seven parameters turned round.

#include <gtest/gtest.h>

#include "show/LinearDatum.h"

namespace {

const EllipsoidParameters kWgs84 = {"WGS84", 6378137.0, 0.00669437999014131699};
const EllipsoidParameters kBessel = {"Bessel 1841", 6377397.155, 0.006674372230614};

DatumParameters Datum(std::array<double, 3> shift, std::array<double, 3> rotation, double scale)
{
    DatumParameters datum;
    datum.source = kWgs84;
    datum.target = kBessel;
    datum.shift = shift;
    datum.rotation = rotation;
    datum.scale = scale;
    datum.on = true;
    return datum;
}

} // namespace

TEST(LinearDatum, ShiftsChangeSign)
{
    const LinearDatum turned = TurnedRound(Datum({87.0, 98.0, 121.0}, {}, 0.0));
    EXPECT_DOUBLE_EQ(turned.shift[0], -87.0);
    EXPECT_DOUBLE_EQ(turned.shift[1], -98.0);
    EXPECT_DOUBLE_EQ(turned.shift[2], -121.0);
    EXPECT_EQ(turned.scale, 0.0);
    EXPECT_LT(turned.largestMiss, 1e-8);
}

// The stored record of Amersfoort is EPSG 4833 turned round; turned round again it is EPSG 4833:
// 565.4171, 50.3319, 465.5524 m, -1.9342, 1.6677, -9.1019 microradians, 4.0725 ppm.
TEST(LinearDatum, AmersfoortComesBackAsPublished)
{
    const DatumParameters stored =
        Datum({-565.41357, -50.33599, -465.55138}, {0.398955823, -0.343989633, 1.877401973}, -4.072513204);
    const LinearDatum turned = TurnedRound(stored);
    constexpr double kSecondsPerMicroradian = 0.20626480624709636;
    EXPECT_NEAR(turned.shift[0], 565.4171, 5e-4);
    EXPECT_NEAR(turned.shift[1], 50.3319, 5e-4);
    EXPECT_NEAR(turned.shift[2], 465.5524, 5e-4);
    EXPECT_NEAR(turned.rotation[0] / kSecondsPerMicroradian, -1.9342, 1e-4);
    EXPECT_NEAR(turned.rotation[1] / kSecondsPerMicroradian, 1.6677, 1e-4);
    EXPECT_NEAR(turned.rotation[2] / kSecondsPerMicroradian, -9.1019, 1e-4);
    EXPECT_NEAR(turned.scale, 4.0725, 4e-5); // the stretch is left in: a third of the squared rotation
    EXPECT_LT(turned.largestMiss, 5e-4);
}

// Half the square of ten seconds, 4.848e-5 radians, times the equator's radius: 7.5 mm.
TEST(LinearDatum, LargeRotationsMissByHalfTheirSquare)
{
    const double r = 10.0 / 206264.80624709636;
    EXPECT_NEAR(TurnedRound(Datum({}, {0.0, 0.0, 10.0}, 0.0)).largestMiss, r * r / 2.0 * kBessel.a, 1e-6);
}

// The turns are about Y, then X, then Z, position vector: a right angle about Z takes the X axis to
// the Y axis, and turned round the Y axis to the X axis. Angles this large have no linear form, but
// the sign and the order show in small ones: 1 second about X moves the north pole toward -Y.
TEST(LinearDatum, RotationTurnsRoundAboutItsOwnAxis)
{
    const LinearDatum turned = TurnedRound(Datum({0.0, 0.0, 100.0}, {1.0, 0.0, 0.0}, 2.0));
    EXPECT_NEAR(turned.rotation[0], -1.0, 1e-9);
    EXPECT_NEAR(turned.rotation[1], 0.0, 1e-12);
    EXPECT_NEAR(turned.shift[1], -100.0 / 206264.806247, 1e-7);
    EXPECT_NEAR(turned.shift[2], -100.0 / 1.000002, 1e-7);
    EXPECT_NEAR(turned.scale, -2.0, 1e-5);
}
