#include "base/geo/Angles.h"

#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <cstdint>
#include <limits>
#include <string>

namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

std::uint64_t Bits(double value)
{
    return std::bit_cast<std::uint64_t>(value);
}

} // namespace

TEST(Angles, DegreeInRadiansIsTheDoubleNearestToPiOver180)
{
    // pi / 180 = 0.0174532925199432957692...
    static_assert(D_TO_R == 0.0174532925199432957692);
    EXPECT_EQ(Bits(D_TO_R), 0x3F91DF46A2529D39u);
}

TEST(modgeo, LeavesAnAngleInRangeAsItIsBitForBit)
{
    const double angles[] = {
        -180.0, 180.0, 0.0, -0.0, 5e-324, -5e-324, 179.99999999999997, -179.99999999999997, 52.15616055555556, -0.1};
    for (const double angle : angles) {
        EXPECT_EQ(Bits(modgeo(angle)), Bits(angle)) << angle;
    }
}

TEST(modgeo, FoldsByAnExactRemainder)
{
    // Remainders by rational arithmetic; every one of them is a double.
    struct Row {
        double angle;
        double folded;
    };
    const Row rows[] = {
        {180.00000000000003, -179.99999999999997},
        {-180.00000000000003, 179.99999999999997},
        {181.5, -178.5},
        {-181.5, 178.5},
        {359.0, -1.0},
        {-359.0, 1.0},
        {360.0, 0.0},
        {-360.0, 0.0},
        {539.75, 179.75},
        {720.0, 0.0},
        {725.25, 5.25},
        {12345.678, 105.67799999999988},
        {123456789.125, -170.875},
        {1e17, -80.0},
        {-1e17, 80.0},
        {1e300, 0.0},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(modgeo(row.angle), row.folded) << row.angle;
    }
}

TEST(modgeo, HalfTurnsBeyondTheRangeComeToPlus180)
{
    for (const double angle : {540.0, -540.0, 900.0, -900.0, 1260.0, -1260.0}) {
        EXPECT_EQ(modgeo(angle), 180.0) << angle;
    }
}

TEST(modgeo, WhatIsNotFiniteGivesNaN)
{
    for (const double angle : {kNaN, kInfinity, -kInfinity}) {
        EXPECT_TRUE(std::isnan(modgeo(angle))) << angle;
    }
}

TEST(XYToPolar, MeasuresTheAzimuthFromTheSecondAxisTowardTheFirst)
{
    struct Row {
        double x;
        double y;
        double azimuth;
        double distance;
    };
    const Row rows[] = {
        {0, 1, 0, 1},
        {1, 1, 45, std::sqrt(2.0)},
        {1, 0, 90, 1},
        {1, -1, 135, std::sqrt(2.0)},
        {0, -1, 180, 1},
        {-1, -1, -135, std::sqrt(2.0)},
        {-1, 0, -90, 1},
        {-1, 1, -45, std::sqrt(2.0)},
        {3, 4, 36.869897645844021, 5},
        {0, 0, 0, 0},
    };
    for (const Row& row : rows) {
        double azimuth = kNaN;
        double distance = kNaN;
        XYToPolar(row.x, row.y, azimuth, distance);
        EXPECT_DOUBLE_EQ(azimuth, row.azimuth) << row.x << ' ' << row.y;
        EXPECT_DOUBLE_EQ(distance, row.distance) << row.x << ' ' << row.y;
    }
}

TEST(XYToPolar, LengthNeitherOverflowsNorVanishes)
{
    double azimuth = 0.0;
    double distance = 0.0;
    XYToPolar(3e200, 4e200, azimuth, distance);
    EXPECT_DOUBLE_EQ(distance, 5e200);
    XYToPolar(3e-200, 4e-200, azimuth, distance);
    EXPECT_DOUBLE_EQ(distance, 5e-200);
}

TEST(XYToPolar, OutputsMayBeTheInputs)
{
    double x = 3.0;
    double y = -4.0;
    XYToPolar(x, y, x, y);
    EXPECT_DOUBLE_EQ(x, 180.0 - 36.869897645844021);
    EXPECT_DOUBLE_EQ(y, 5.0);
}

TEST(Rotation2D, TurnsClockwiseForAPositiveAngle)
{
    // The point on the second axis (north) comes to the first (east) by a quarter turn.
    double x = kNaN;
    double y = kNaN;
    Rotation2D(0.0, 0.0, 0.0, 2.0, 90.0, x, y);
    EXPECT_NEAR(x, 2.0, 1e-15);
    EXPECT_NEAR(y, 0.0, 1e-15);
}

TEST(Rotation2D, TurnsAboutTheCentre)
{
    // (100, 50) about (20, -30); values by 30-digit arithmetic.
    struct Row {
        double angle;
        double x;
        double y;
    };
    const Row rows[] = {
        {30.0, 129.282032302755092, -0.717967697244908259},   {90.0, 100.0, -110.0}, {-45.0, 20.0, 83.1370849898476039},
        {123.456, 42.6410391223379324, -140.848470208031122}, {360.0, 100.0, 50.0},
    };
    for (const Row& row : rows) {
        double x = kNaN;
        double y = kNaN;
        Rotation2D(20.0, -30.0, 100.0, 50.0, row.angle, x, y);
        EXPECT_NEAR(x, row.x, 5e-14) << row.angle;
        EXPECT_NEAR(y, row.y, 5e-14) << row.angle;
    }
}

TEST(Rotation2D, AngleZeroAboutTheOriginChangesNothing)
{
    double x = kNaN;
    double y = kNaN;
    Rotation2D(0.0, 0.0, 3924687.708, 301132.772, 0.0, x, y);
    EXPECT_EQ(x, 3924687.708);
    EXPECT_EQ(y, 301132.772);
}

TEST(Rotation2D, OutputsMayBeTheInputs)
{
    double x = 100.0;
    double y = 50.0;
    Rotation2D(20.0, -30.0, x, y, 90.0, x, y);
    EXPECT_NEAR(x, 100.0, 5e-14);
    EXPECT_NEAR(y, -110.0, 5e-14);
    double a = 100.0;
    double b = 50.0;
    Rotation2D(20.0, -30.0, a, b, 90.0, b, a);
    EXPECT_NEAR(b, 100.0, 5e-14);
    EXPECT_NEAR(a, -110.0, 5e-14);
}

TEST(Epsilon, GrowsWithTheNumberFromOneOn)
{
    EXPECT_DOUBLE_EQ(Epsilon(0.0), 1e-13);
    EXPECT_DOUBLE_EQ(Epsilon(1.0), 1e-13);
    EXPECT_DOUBLE_EQ(Epsilon(-0.5), 1e-13);
    EXPECT_DOUBLE_EQ(Epsilon(9000.0), 9e-10);
    EXPECT_DOUBLE_EQ(Epsilon(-6378137.0), 6.378137e-7);
    EXPECT_DOUBLE_EQ(Epsilon(kNaN), 1e-13);
    EXPECT_EQ(Epsilon(-kInfinity), kInfinity);
}

TEST(Epsilon, AbsorbsTheStoredPoleAndTellsWgs84FromGrs80)
{
    // As its callers scale it.
    EXPECT_LT(std::abs(90.0 - 89.9999999999), Epsilon(90.0 * 100.0));
    EXPECT_GT(std::abs(0.00669437999014 - 0.00669438002290), 10.0 * Epsilon(0.00669437999014));
}

namespace {

struct GeogsRow {
    double value;
    unsigned decimals;
    int kind;
    const wchar_t* text;
};

constexpr int latitude = GeogsKind::latitude;
constexpr int longitude = GeogsKind::longitude;

void ExpectTexts(const std::initializer_list<GeogsRow>& rows)
{
    for (const GeogsRow& row : rows) {
        CString text;
        EXPECT_TRUE(FormatGeogs(row.value, row.decimals, 7, row.kind, text, true, true)) << row.value;
        EXPECT_EQ(text.ToUtf8(), CString(row.text).ToUtf8()) << row.value;
    }
}

} // namespace

// The expected texts of these tests are made with decimal arithmetic of 800 digits.

TEST(FormatGeogs, WritesDegreesMinutesSecondsAndHemisphere)
{
    ExpectTexts({
        {52.15616055555556, 7, latitude, L"52\u00B009'22.1780000\"N"},
        {5.387638888888889, 7, longitude, L"005\u00B023'15.5000000\"E"},
        {161.2315298192628, 7, longitude, L"161\u00B013'53.5073493\"E"},
        {-76.9614683998423, 7, latitude, L"76\u00B057'41.2862394\"S"},
        {-24.17599495573461, 0, latitude, L"24\u00B010'34\"S"},
        {-83.25078148044273, 7, latitude, L"83\u00B015'02.8133296\"S"},
        {-154.8520475131372, 0, longitude, L"154\u00B051'07\"W"},
        {-158.7202178115639, 7, longitude, L"158\u00B043'12.7841216\"W"},
        {80.54094612734775, 7, latitude, L"80\u00B032'27.4060585\"N"},
        {13.878530751149754, 7, latitude, L"13\u00B052'42.7107041\"N"},
        {-37.870328460298275, 1, latitude, L"37\u00B052'13.2\"S"},
        {-71.44997176015356, 7, latitude, L"71\u00B026'59.8983366\"S"},
        {52.1, 20, latitude, L"52\u00B006'00.00000000000000000000\"N"},
    });
}

TEST(FormatGeogs, CarriesThroughSecondsMinutesAndDegrees)
{
    ExpectTexts({
        {0.016666666665, 7, latitude, L"00\u00B001'00.0000000\"N"},
        {0.0166666666, 7, latitude, L"00\u00B000'59.9999998\"N"},
        {0.99999999999, 7, latitude, L"01\u00B000'00.0000000\"N"},
        {9.99999999999, 7, latitude, L"10\u00B000'00.0000000\"N"},
        {99.99999999999, 7, longitude, L"100\u00B000'00.0000000\"E"},
        {999.99999999999, 7, longitude, L"1000\u00B000'00.0000000\"E"},
        {89.99999999999999, 7, latitude, L"90\u00B000'00.0000000\"N"},
        {179.99999999999997, 7, longitude, L"180\u00B000'00.0000000\"E"},
        {-179.99999999999997, 7, longitude, L"180\u00B000'00.0000000\"W"},
    });
}

TEST(FormatGeogs, RoundsTheDecimalNumberHalfAwayFromZero)
{
    ExpectTexts({
        // Half a second as typed: 0.000125 degrees are 0.45 seconds, and so on.
        {0.000125, 1, latitude, L"00\u00B000'00.5\"N"},
        {-0.000125, 1, latitude, L"00\u00B000'00.5\"S"},
        {1.25e-10, 7, latitude, L"00\u00B000'00.0000005\"N"},
        {0.0001388888888888889, 0, latitude, L"00\u00B000'01\"N"},
        {0.000138888888, 0, latitude, L"00\u00B000'00\"N"},
        {1.3888888888889e-11, 7, latitude, L"00\u00B000'00.0000001\"N"},
        {1.38888888888e-11, 7, latitude, L"00\u00B000'00.0000000\"N"},
    });
}

TEST(FormatGeogs, WhatRoundsToZeroIsNorthAndEast)
{
    ExpectTexts({
        {0.0, 7, latitude, L"00\u00B000'00.0000000\"N"},
        {-0.0, 7, longitude, L"000\u00B000'00.0000000\"E"},
        {-1e-12, 7, latitude, L"00\u00B000'00.0000000\"N"},
        {-1.5e-11, 7, longitude, L"000\u00B000'00.0000001\"W"},
        {5e-324, 7, latitude, L"00\u00B000'00.0000000\"N"},
        {2.2250738585072014e-308, 20, latitude, L"00\u00B000'00.00000000000000000000\"N"},
    });
}

TEST(FormatGeogs, WritesAnglesBeyondTheRangeAsTheyAre)
{
    ExpectTexts({
        {90.5, 7, latitude, L"90\u00B030'00.0000000\"N"},
        {100.25, 7, latitude, L"100\u00B015'00.0000000\"N"},
        {270.0, 7, longitude, L"270\u00B000'00.0000000\"E"},
        {-725.5, 7, longitude, L"725\u00B030'00.0000000\"W"},
        {1e22, 1, longitude, L"10000000000000000000000\u00B000'00.0\"E"},
    });
}

TEST(FormatGeogs, WritesASignOrALetterAndSymbolsOrBlanks)
{
    struct Row {
        double value;
        bool hemisphere;
        bool symbols;
        const wchar_t* text;
    };
    const Row rows[] = {
        {-5.25, true, true, L"05\u00B015'00.0000000\"S"},  {-5.25, true, false, L"05 15 00.0000000 S"},
        {-5.25, false, true, L"-05\u00B015'00.0000000\""}, {-5.25, false, false, L"-05 15 00.0000000"},
        {5.25, false, true, L"05\u00B015'00.0000000\""},   {-1e-12, false, false, L"00 00 00.0000000"},
    };
    for (const Row& row : rows) {
        CString text;
        EXPECT_TRUE(FormatGeogs(row.value, 7, 7, latitude, text, row.hemisphere, row.symbols));
        EXPECT_EQ(text.ToUtf8(), CString(row.text).ToUtf8());
    }
}

TEST(FormatGeogs, WidthHasNoEffect)
{
    for (const int width : {-1, 0, 7, 40}) {
        CString text;
        EXPECT_TRUE(FormatGeogs(5.25, 0, width, latitude, text, true, true));
        EXPECT_EQ(text.ToUtf8(), CString(L"05\u00B015'00\"N").ToUtf8());
    }
}

TEST(FormatGeogs, RefusesAndLeavesTheTextAlone)
{
    struct Row {
        double value;
        unsigned decimals;
        int kind;
    };
    const Row rows[] = {{kNaN, 7, latitude},
                        {kInfinity, 7, longitude},
                        {-kInfinity, 7, latitude},
                        {5.25, 7, 9},
                        {5.25, 7, 12},
                        {5.25, 7, 0},
                        {5.25, kMaxGeogsDecimals + 1, latitude}};
    for (const Row& row : rows) {
        CString text = L"as it was";
        EXPECT_FALSE(FormatGeogs(row.value, row.decimals, 7, row.kind, text, true, true));
        EXPECT_EQ(text, L"as it was");
    }
}
