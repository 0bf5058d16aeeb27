#include "projections/GeodesicLineScale.h"

#include <gtest/gtest.h>

#include <geodesic.h>

#include <algorithm>
#include <cmath>
#include <random>

#include "tests/support/PlainRobbins.h"
#include "tests/support/ProjectionRecord.h"

namespace {

using GeodesicLineScale::End;

double Length(const End& from, const End& to)
{
    geod_geodesic ellipsoid;
    geod_init(&ellipsoid, kGrs80.a, 1.0 - std::sqrt(1.0 - kGrs80.e2));
    double length = 0.0;
    geod_inverse(&ellipsoid, from.latitude, from.longitude, to.latitude, to.longitude, &length, nullptr, nullptr);
    return length;
}

const GeodesicLineScale::Spheroid kSpheroid = {kGrs80.a, kGrs80.e2, ShortMeridianArc(kGrs80.e2)};

// With a grid distance of 1 the factor is the reciprocal of the length.
End At(double latitude, double longitude, double easting)
{
    return {easting, 0.0, latitude, longitude};
}

// Karney's geodesic, all directions, both hemispheres.
TEST(GeodesicLineScale, IsGridOverGeodesicDistance)
{
    std::mt19937_64 random(20250119);
    std::uniform_real_distribution<double> latitude(-80.0, 80.0);
    std::uniform_real_distribution<double> offset(-1.0, 1.0);
    for (int i = 0; i < 20000; ++i) {
        const double phi = latitude(random);
        const End from = At(phi, 20.0, 0.0);
        const End to = At(phi + offset(random), 20.0 + offset(random) / std::cos(phi * D_TO_R), 1.0);
        const double length = Length(from, to);
        const double error = GeodesicLineScale::OfLine(from, to, kSpheroid) * length - 1.0;
        EXPECT_NEAR(error, 0.0, 3.5e-9 * std::max(1.0, std::pow(length / 1e5, 3)) + 1e-9 / length) << phi;
    }
}

// Kept: g and h have no sign; with it the term of the third power turns with hemisphere and direction.
TEST(GeodesicLineScale, TakesGAndHWithoutSign)
{
    const double toNorth = GeodesicLineScale::OfLine(At(40.0, 0.0, 0.0), At(44.0, 1.0, 1.0), kSpheroid);
    const double mirrored = GeodesicLineScale::OfLine(At(-40.0, 0.0, 0.0), At(-44.0, 1.0, 1.0), kSpheroid);
    EXPECT_NEAR(mirrored / toNorth, 1.0, 1e-14) << "mirrored, both signs turn";
    // From the south the line to the north has g and h of different signs: sigma^3 g h / 4 apart from
    // what the signs would give, 3e-7 at 450 km.
    const End from = At(-44.0, 0.0, 0.0);
    const End to = At(-40.0, 1.0, 1.0);
    const double error = GeodesicLineScale::OfLine(from, to, kSpheroid) * Length(from, to) - 1.0;
    EXPECT_GT(std::fabs(error), 1e-7);
    EXPECT_LT(std::fabs(error), 5e-7);
    const End north = At(40.0, 0.0, 0.0);
    const End farther = At(44.0, 1.0, 1.0);
    EXPECT_NEAR(GeodesicLineScale::OfLine(north, farther, kSpheroid) * Length(north, farther), 1.0, 2e-9);
}

TEST(GeodesicLineScale, TakesTheArcWhereTheLongitudesAreEqual)
{
    const double arc =
        plain::ShortArc(kGrs80.a, kGrs80.e2, 41.0 * D_TO_R) - plain::ShortArc(kGrs80.a, kGrs80.e2, 40.0 * D_TO_R);
    EXPECT_NEAR(GeodesicLineScale::OfLine(At(40.0, 7.0, 0.0), At(41.0, 7.0, 1e5), kSpheroid), 1e5 / arc, 1e-12);
    EXPECT_NEAR(GeodesicLineScale::OfLine(At(41.0, 7.0, 0.0), At(40.0, 7.0, 1e5), kSpheroid), 1e5 / arc, 1e-12);
}

// Degrees that differ in the last bit can be the same radians: on a meridian.
TEST(GeodesicLineScale, ComparesTheLongitudesInRadians)
{
    double one = 7.0;
    double other = 7.0;
    for (int i = 0; i < 100 && (one == other || one * D_TO_R != other * D_TO_R); ++i) {
        one = 7.0 + 0.01 * i;
        other = std::nextafter(one, 90.0);
    }
    ASSERT_NE(one, other);
    ASSERT_EQ(one * D_TO_R, other * D_TO_R);
    EXPECT_EQ(GeodesicLineScale::OfLine(At(40.0, one, 0.0), At(41.0, other, 1e5), kSpheroid),
              GeodesicLineScale::OfLine(At(40.0, one, 0.0), At(41.0, one, 1e5), kSpheroid));
}

TEST(GeodesicLineScale, HasNoNumberForNoLengthAndNextToAMeridian)
{
    EXPECT_TRUE(std::isnan(GeodesicLineScale::OfLine(At(40.0, 7.0, 5.0), At(40.0, 7.0, 5.0), kSpheroid)));
    EXPECT_TRUE(std::isnan(GeodesicLineScale::OfLine(At(40.0, 7.0, 0.0), At(41.0, 7.0 + 3e-12, 1e5), kSpheroid)));
    EXPECT_FALSE(std::isnan(GeodesicLineScale::OfLine(At(40.0, 7.0, 0.0), At(41.0, 7.0 + 1e-11, 1e5), kSpheroid)));
}

} // namespace
