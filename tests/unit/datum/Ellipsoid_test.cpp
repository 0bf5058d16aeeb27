#include "datum/Ellipsoid.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstring>
#include <limits>
#include <random>
#include <sstream>
#include <string>
#include <vector>

#include "tests/support/DatumRecords.h"
#include "tests/support/PlainGeocentric.h"
#include "tests/support/ProjOracle.h"

namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

Ellipsoid Made(double a, double e2)
{
    Ellipsoid ellipsoid;
    ellipsoid.Set(a, e2);
    return ellipsoid;
}

Ellipsoid Wgs84()
{
    return Made(6378137.0, 0.00669437999014);
}

struct NamedEllipsoid {
    const char* name;
    double a;
    double e2;
};

constexpr NamedEllipsoid kEllipsoids[] = {
    {"WGS84", 6378137.0, 0.00669437999014132},
    {"Bessel 1841", 6377397.155, 0.006674372230614},
    {"Clarke 1880 (RGS)", 6378249.145, 0.006803511282849},
    {"Airy 1830", 6377563.396, 0.006670539999985},
    {"Australian National", 6378160.0, 0.006694541854588},
    {"sphere", 6371000.0, 0.0},
};

} // namespace

TEST(Ellipsoid, StartsUnset)
{
    const Ellipsoid ellipsoid;
    EXPECT_TRUE(ellipsoid.name.IsEmpty());
    EXPECT_EQ(ellipsoid.semiMajor, 0.0);
    EXPECT_EQ(ellipsoid.eccSquared, 0.0);
    EXPECT_EQ(ellipsoid.semiMinor, 0.0);
    EXPECT_EQ(ellipsoid.status, -1);
    EXPECT_EQ(ellipsoid.valid, 0);
}

TEST(Ellipsoid, SetJudgesAxisAndEccentricity)
{
    struct Case {
        double a, e2;
        int status;
    };
    const Case cases[] = {
        {6378137.0, 0.00669438, 0}, {6000000.0, 0.0066, 0}, {5999999.0, 0.0066, 1}, {6378137.0, 1.5, 2},
        {5000000.0, 1.5, 2},        {6378137.0, 1.0, 0},    {6378137.0, -0.01, 0},  {-6378137.0, 0.0066, 1},
        {kNaN, 0.0066, 0},          {6378137.0, kNaN, 0},
    };
    for (const Case& c : cases) {
        Ellipsoid ellipsoid;
        EXPECT_EQ(ellipsoid.Set(c.a, c.e2), c.status) << c.a << " " << c.e2;
        EXPECT_EQ(ellipsoid.status, c.status);
        EXPECT_EQ(ellipsoid.valid, c.status == 0 ? 1 : 0);
        EXPECT_TRUE(ellipsoid.semiMajor == c.a || std::isnan(c.a));
        EXPECT_TRUE(ellipsoid.eccSquared == c.e2 || std::isnan(c.e2));
    }
}

TEST(Ellipsoid, SetComputesTheSemiMinorAxis)
{
    // WGS84: b = 6356752.3142 m (NIMA TR8350.2).
    EXPECT_NEAR(Wgs84().semiMinor, 6356752.3142, 5e-5);
}

TEST(Ellipsoid, RefusedSetLeavesSemiMinorAndValid)
{
    Ellipsoid ellipsoid = Wgs84();
    const double b = ellipsoid.semiMinor;
    EXPECT_EQ(ellipsoid.Set(5999999.0, 0.0066), 1);
    EXPECT_EQ(ellipsoid.semiMajor, 5999999.0);
    EXPECT_EQ(ellipsoid.semiMinor, b);
    EXPECT_EQ(ellipsoid.valid, 1);
    EXPECT_EQ(ellipsoid.Set(6378137.0, 1.5), 2);
    EXPECT_EQ(ellipsoid.semiMinor, b);
    EXPECT_EQ(ellipsoid.valid, 1);
}

TEST(Ellipsoid, UnusableConvertsNothing)
{
    for (const Ellipsoid& ellipsoid : {Ellipsoid(), Made(5999999.0, 0.0066), Made(6378137.0, 1.5)}) {
        double x = 1.0, y = 2.0, z = 3.0;
        EXPECT_FALSE(ellipsoid.GeodeticToCartesian(52.0, 5.0, 0.0, x, y, z));
        EXPECT_FALSE(ellipsoid.CartesianToGeodetic(4e6, 1e6, 5e6, x, y, z));
        EXPECT_EQ(x, 1.0);
        EXPECT_EQ(y, 2.0);
        EXPECT_EQ(z, 3.0);
    }
}

TEST(Ellipsoid, InverseFlatteningNeedsAValidRecord)
{
    double value = 7.0;
    EXPECT_FALSE(Ellipsoid().GetInverseFlattening(value));
    EXPECT_EQ(value, 7.0);
    EXPECT_TRUE(Wgs84().GetInverseFlattening(value));
    EXPECT_NEAR(value, 298.257223563, 1e-7);
    EXPECT_TRUE(Made(6371000.0, 0.0).GetInverseFlattening(value));
    EXPECT_EQ(value, kInfinity);
}

TEST(Ellipsoid, AxesComeInMetresOrSystemUnits)
{
    const MetresAgain restore;
    const Ellipsoid ellipsoid = Wgs84();
    Ellipsoid::SetUnitFactor(0.5);
    EXPECT_EQ(ellipsoid.GetSemiMajor(false), 6378137.0);
    EXPECT_EQ(ellipsoid.GetSemiMajor(true), 12756274.0);
    EXPECT_EQ(ellipsoid.GetSemiMinor(false), ellipsoid.semiMinor);
    EXPECT_EQ(ellipsoid.GetSemiMinor(true), 2.0 * ellipsoid.semiMinor);
    double a = 0.0, e2 = 0.0;
    ellipsoid.GetParameters(a, e2);
    EXPECT_EQ(a, 6378137.0);
    EXPECT_EQ(e2, 0.00669437999014);
}

TEST(Ellipsoid, UnitFactorZeroIsOne)
{
    const MetresAgain restore;
    EXPECT_EQ(Ellipsoid::UnitFactor(), 1.0);
    Ellipsoid::SetUnitFactor(0.3048);
    EXPECT_EQ(Ellipsoid::UnitFactor(), 0.3048);
    Ellipsoid::SetUnitFactor(0.0);
    EXPECT_EQ(Ellipsoid::UnitFactor(), 1.0);
}

TEST(Ellipsoid, StripsThePrefixInAnyCase)
{
    const std::pair<const wchar_t*, const wchar_t*> cases[] = {
        {L"Elp-WGS84", L"WGS84"}, {L"ELP-WGS84", L"WGS84"}, {L"elp-", L""},
        {L"WGS84", L"WGS84"},     {L"Elp", L"Elp"},         {L"", L""},
        {L"xElp-A", L"xElp-A"},   {L"Elp-Elp-A", L"Elp-A"},
    };
    for (const auto& [text, stripped] : cases) {
        EXPECT_EQ(Ellipsoid::StripElpPrefix(text), stripped);
    }
}

TEST(Ellipsoid, SignsByTheRuleOfSign)
{
    EXPECT_EQ(Ellipsoid::Sign(-0.1), -1.0);
    EXPECT_EQ(Ellipsoid::Sign(0.0), 1.0);
    EXPECT_EQ(Ellipsoid::Sign(-0.0), 1.0);
    EXPECT_EQ(Ellipsoid::Sign(3.0), 1.0);
    EXPECT_EQ(Ellipsoid::Sign(kNaN), 1.0);
    EXPECT_EQ(Ellipsoid::CopySign(-2.0, 1.0), 2.0);
    EXPECT_EQ(Ellipsoid::CopySign(2.0, -1.0), -2.0);
    EXPECT_EQ(Ellipsoid::CopySign(-2.0, -0.0), 2.0);
}

TEST(Ellipsoid, WritesXmlWithItsOwnPrecisions)
{
    Ellipsoid ellipsoid = Wgs84();
    ellipsoid.name = L"Elp-A & B";
    std::wostringstream stream;
    stream.precision(11);
    ellipsoid.DumpXml(stream, L"  ");
    EXPECT_EQ(stream.str(), L"  <ellipsoid>\n"
                            L"    <name>Elp-A & B</name>\n"
                            L"    <semi_major_axis>6.38e+06</semi_major_axis>\n"
                            L"    <squared_eccentricity>0.00669437999</squared_eccentricity>\n"
                            L"    <inverse_flattening>298.3</inverse_flattening>\n"
                            L"  </ellipsoid>\n");
    EXPECT_EQ(stream.precision(), 11);

    std::wostringstream fixedStream;
    fixedStream << std::fixed;
    ellipsoid.DumpXml(fixedStream, L"");
    EXPECT_EQ(fixedStream.str(), L"<ellipsoid>\n"
                                 L"  <name>Elp-A & B</name>\n"
                                 L"  <semi_major_axis>6378137.000</semi_major_axis>\n"
                                 L"  <squared_eccentricity>0.006694380</squared_eccentricity>\n"
                                 L"  <inverse_flattening>298.2572</inverse_flattening>\n"
                                 L"</ellipsoid>\n");
}

TEST(Ellipsoid, WritesXmlOfAnUnsetRecordWhole)
{
    std::wostringstream stream;
    Ellipsoid().DumpXml(stream, L"");
    EXPECT_NE(stream.str().find(L"  <inverse_flattening>"), std::wstring::npos);
    EXPECT_NE(stream.str().find(L"</ellipsoid>\n"), std::wstring::npos);
}

// IOGP Guidance Note 7-2, geographic/geocentric conversions: WGS84, 53°48'33.820"N 2°07'46.380"E.
TEST(Ellipsoid, GivesThePublishedGeocentricExample)
{
    const Ellipsoid wgs84 = Wgs84();
    const double lat = 53.0 + 48.0 / 60.0 + 33.820 / 3600.0;
    const double lon = 2.0 + 7.0 / 60.0 + 46.380 / 3600.0;
    double x = 0.0, y = 0.0, z = 0.0;
    ASSERT_TRUE(wgs84.GeodeticToCartesian(lat, lon, 73.0, x, y, z));
    EXPECT_NEAR(x, 3771793.968, 0.02);
    EXPECT_NEAR(y, 140253.342, 0.02);
    EXPECT_NEAR(z, 5124304.349, 0.02);
    double outLat = 0.0, outLon = 0.0, h = 0.0;
    wgs84.CartesianToGeodetic(3771793.968, 140253.342, 5124304.349, outLat, outLon, h);
    EXPECT_NEAR(outLat, lat, 2e-7);
    EXPECT_NEAR(outLon, lon, 2e-7);
    EXPECT_NEAR(h, 73.0, 0.02);
}

TEST(Ellipsoid, ReturnsThePositionOfARoundTrip)
{
    const Ellipsoid ellipsoid = Made(6378137.0, 0.00669438);
    double x = 0.0, y = 0.0, z = 0.0, lat = 0.0, lon = 0.0, h = 0.0;
    ASSERT_TRUE(ellipsoid.GeodeticToCartesian(52.0, 5.0, 100.0, x, y, z));
    ellipsoid.CartesianToGeodetic(x, y, z, lat, lon, h);
    EXPECT_NEAR(lat, 52.0, 1e-13);
    EXPECT_NEAR(lon, 5.0, 1e-13);
    EXPECT_NEAR(h, 100.0, 1e-8);
}

TEST(Ellipsoid, HeightsAreInSystemUnits)
{
    const MetresAgain restore;
    const Ellipsoid ellipsoid = Wgs84();
    double x0 = 0.0, y0 = 0.0, z0 = 0.0, x = 0.0, y = 0.0, z = 0.0;
    Ellipsoid::SetUnitFactor(0.3048);
    ellipsoid.GeodeticToCartesian(0.0, 0.0, 0.0, x0, y0, z0);
    ellipsoid.GeodeticToCartesian(0.0, 0.0, 100.0, x, y, z);
    EXPECT_NEAR(std::hypot(x, y, z) - std::hypot(x0, y0, z0), 30.48, 1e-8);
    double lat = 0.0, lon = 0.0, h = 0.0;
    ellipsoid.CartesianToGeodetic(x, y, z, lat, lon, h);
    EXPECT_NEAR(h, 100.0, 1e-8);
    ellipsoid.GeodeticToCartesian(52.0, 5.0, 100.0, x, y, z);
    ellipsoid.CartesianToGeodetic(x, y, z, lat, lon, h);
    EXPECT_NEAR(h, 100.0, 3e-8);
}

TEST(Ellipsoid, EquatorIsExact)
{
    const MetresAgain restore;
    Ellipsoid::SetUnitFactor(0.5);
    const Ellipsoid wgs84 = Wgs84();
    double lat = 1.0, lon = 1.0, h = 1.0;
    EXPECT_TRUE(wgs84.CartesianToGeodetic(3e6, 4e6, 0.0, lat, lon, h));
    EXPECT_EQ(lat, 0.0);
    EXPECT_NEAR(lon, 53.13010235415598, 1e-13); // the 3-4-5 triangle
    EXPECT_EQ(h, (5e6 - 6378137.0) / 0.5);
    // The centre is on the equator too.
    EXPECT_TRUE(wgs84.CartesianToGeodetic(0.0, 0.0, 0.0, lat, lon, h));
    EXPECT_EQ(lat, 0.0);
    EXPECT_EQ(h, -6378137.0 / 0.5);
}

TEST(Ellipsoid, AxisOfRotationIsNotANumberAndTrue)
{
    const Ellipsoid wgs84 = Wgs84();
    for (const double z : {6356752.3, -6356752.3, 1.0, 5e7}) {
        double lat = 0.0, lon = 1.0, h = 0.0;
        EXPECT_TRUE(wgs84.CartesianToGeodetic(0.0, 0.0, z, lat, lon, h)) << z;
        EXPECT_TRUE(std::isnan(lat)) << z;
        EXPECT_EQ(lon, 0.0) << z;
        EXPECT_TRUE(std::isnan(h)) << z;
    }
}

TEST(Ellipsoid, GeodeticPoleComesBack)
{
    // cos(90 degrees) is not zero in binary: the pole as a latitude is not on the axis.
    const Ellipsoid wgs84 = Wgs84();
    for (const double pole : {90.0, -90.0}) {
        double x = 0.0, y = 0.0, z = 0.0, lat = 0.0, lon = 0.0, h = 0.0;
        wgs84.GeodeticToCartesian(pole, 25.0, 1234.0, x, y, z);
        wgs84.CartesianToGeodetic(x, y, z, lat, lon, h);
        EXPECT_EQ(lat, pole);
        EXPECT_NEAR(lon, 25.0, 1e-13);
        EXPECT_NEAR(h, 1234.0, 1e-8);
    }
}

namespace {

// The same double, the sign of zero included; any NaN is as good as another.
bool SameValue(double a, double b)
{
    return (std::isnan(a) && std::isnan(b)) || (a == b && std::signbit(a) == std::signbit(b));
}

std::vector<double> SingularCoordinates()
{
    constexpr double tiny = std::numeric_limits<double>::denorm_min();
    constexpr double smallest = std::numeric_limits<double>::min();
    constexpr double largest = std::numeric_limits<double>::max();
    std::vector<double> values;
    for (const double v : {0.0, tiny, smallest, 1e-305, 1e-200, 1e160, 1e200, largest, kInfinity}) {
        values.push_back(v);
        values.push_back(-v);
    }
    values.push_back(kNaN);
    return values;
}

// Coordinates as they come, beside the singular ones.
std::vector<double> AllCoordinates()
{
    std::vector<double> values = SingularCoordinates();
    for (const double v : {1e-150, 1e-99, 1e-50, 1e-18, 1e-12, 1e-6, 1.0, 1000.0, 6356752.3, 6378137.0, 4e7, 1e99, 1e101, 1e150}) {
        values.push_back(v);
        values.push_back(-v);
    }
    return values;
}

} // namespace

TEST(Ellipsoid, SingularPositionsGiveWhatThePlainStepsGive)
{
    struct Shape {
        double a, e2;
    };
    const Shape shapes[] = {{6378137.0, 0.00669438}, {6371000.0, 0.0},  {6378137.0, 1.0},        {6378137.0, -0.01},
                            {6378137.0, 0.999999},   {6378137.0, kNaN}, {kInfinity, 0.00669438}, {kNaN, 0.0}};
    const std::vector<double> singular = SingularCoordinates();
    const auto isSingular = [&](double v) { return std::count(singular.begin(), singular.end(), v) > 0; };
    const std::vector<double> all = AllCoordinates();
    for (const Shape& shape : shapes) {
        const Ellipsoid ellipsoid = Made(shape.a, shape.e2);
        for (const double x : all) {
            for (const double z : all) {
                const plain::Geodetic expected = plain::CartesianToGeodetic(shape.a, shape.e2, 1.0, x, 0.0, z);
                double lat = 1.0, lon = 1.0, h = 1.0;
                const bool settled = ellipsoid.CartesianToGeodetic(x, 0.0, z, lat, lon, h);
                const auto where = [&] {
                    return ::testing::Message() << "a " << shape.a << " e2 " << shape.e2 << " x " << x << " z " << z;
                };
                EXPECT_TRUE(SameValue(lon, expected.lon)) << where();
                EXPECT_EQ(settled, expected.settled) << where();
                if (isSingular(x) || isSingular(z) || std::isnan(expected.lat) || std::isnan(expected.h)) {
                    EXPECT_TRUE(SameValue(lat, expected.lat)) << where() << ": " << lat << " " << expected.lat;
                    EXPECT_TRUE(SameValue(h, expected.h)) << where() << ": " << h << " " << expected.h;
                } else if (!std::isinf(expected.h)) {
                    // An extreme shape or distance multiplies the last bit, here and in the steps.
                    const bool earthly = shape.e2 < 0.1 && std::abs(x) < 1e8 && std::abs(z) < 1e8;
                    EXPECT_NEAR(lat, expected.lat, earthly ? 1e-13 : 1e-7) << where();
                    EXPECT_LE(std::abs(h - expected.h), earthly ? 1e-8 : 1e-6 + 1e-9 * std::abs(h)) << where();
                }
            }
        }
    }
}

TEST(Ellipsoid, AxisIsJudgedInBothEquatorialCoordinates)
{
    const Ellipsoid wgs84 = Wgs84();
    for (const double x : SingularCoordinates()) {
        for (const double y : SingularCoordinates()) {
            const plain::Geodetic expected = plain::CartesianToGeodetic(6378137.0, 0.00669437999014, 1.0, x, y, 6e6);
            double lat = 1.0, lon = 1.0, h = 1.0;
            EXPECT_EQ(wgs84.CartesianToGeodetic(x, y, 6e6, lat, lon, h), expected.settled) << x << " " << y;
            EXPECT_TRUE(SameValue(lat, expected.lat)) << x << " " << y;
            EXPECT_TRUE(SameValue(lon, expected.lon)) << x << " " << y;
            EXPECT_TRUE(SameValue(h, expected.h)) << x << " " << y;
        }
    }
}

namespace {

// Positions for the comparison with the plain steps and with PROJ: half of them anywhere, half
// crowded toward the poles and the equator, down to 1e-9 degrees.
class RandomPositions {
public:
    RandomPositions(double lowest, double highest) : m_height(lowest, highest) {}

    plain::Geodetic Next()
    {
        plain::Geodetic position;
        const double sign = m_unit(m_engine) < 0.5 ? -1.0 : 1.0;
        switch (m_count++ % 4) {
        case 0:
        case 1:
            position.lat = sign * 90.0 * m_unit(m_engine);
            break;
        case 2:
            position.lat = sign * (90.0 - std::pow(10.0, -9.0 * m_unit(m_engine)));
            break;
        default:
            position.lat = sign * std::pow(10.0, -9.0 * m_unit(m_engine));
            break;
        }
        position.lon = 360.0 * m_unit(m_engine) - 180.0;
        position.h = m_height(m_engine);
        return position;
    }

private:
    std::mt19937_64 m_engine{20240611};
    std::uniform_real_distribution<double> m_unit{0.0, 1.0};
    std::uniform_real_distribution<double> m_height;
    unsigned m_count = 0;
};

struct HeightRange {
    double lowest, highest;
    double tolerance; // metres
};

// The last bit of 40000 km is 7.5e-9 m; four of them.
constexpr HeightRange kRanges[] = {{-11000.0, 20000.0, 1e-8}, {-11000.0, 2e6, 1e-8}, {2e6, 4e7, 3e-8}};

} // namespace

TEST(Ellipsoid, IterationGivesWhatThePlainStepsGive)
{
    constexpr int kPoints = 20000;
    for (const NamedEllipsoid& e : kEllipsoids) {
        const Ellipsoid ellipsoid = Made(e.a, e.e2);
        for (const HeightRange& range : kRanges) {
            RandomPositions positions(range.lowest, range.highest);
            double worstLat = 0.0, worstH = 0.0;
            int otherResults = 0;
            for (int i = 0; i < kPoints; ++i) {
                const plain::Geodetic position = positions.Next();
                const plain::Cartesian c =
                    plain::GeodeticToCartesian(e.a, e.e2, 1.0, position.lat, position.lon, position.h);
                const plain::Geodetic expected = plain::CartesianToGeodetic(e.a, e.e2, 1.0, c.x, c.y, c.z);
                double lat = 0.0, lon = 0.0, h = 0.0;
                const bool settled = ellipsoid.CartesianToGeodetic(c.x, c.y, c.z, lat, lon, h);
                ASSERT_EQ(lon, expected.lon);
                worstLat = std::max(worstLat, std::abs(lat - expected.lat));
                worstH = std::max(worstH, std::abs(h - expected.h));
                otherResults += settled != expected.settled ? 1 : 0;
            }
            EXPECT_LT(worstLat, 1e-13) << e.name << " up to " << range.highest;
            EXPECT_LT(worstH, range.tolerance) << e.name << " up to " << range.highest;
            EXPECT_EQ(otherResults, 0) << e.name << " up to " << range.highest;
        }
    }
}

TEST(Ellipsoid, CartesianIsWhatThePlainStepsGive)
{
    for (const NamedEllipsoid& e : kEllipsoids) {
        const Ellipsoid ellipsoid = Made(e.a, e.e2);
        RandomPositions positions(-11000.0, 4e7);
        double worst = 0.0;
        for (int i = 0; i < 5000; ++i) {
            const plain::Geodetic p = positions.Next();
            const plain::Cartesian expected = plain::GeodeticToCartesian(e.a, e.e2, 1.0, p.lat, p.lon, p.h);
            double x = 0.0, y = 0.0, z = 0.0;
            ASSERT_TRUE(ellipsoid.GeodeticToCartesian(p.lat, p.lon, p.h, x, y, z));
            worst = std::max({worst, std::abs(x - expected.x), std::abs(y - expected.y), std::abs(z - expected.z)});
        }
        EXPECT_LE(worst, 1e-8) << e.name;
    }
}

TEST(Ellipsoid, AgreesWithProj)
{
    // PROJ's inverse is one step of Bowring's closed form: 4 micrometres at 20 km, growing with
    // the height. The round trips below show that the difference is its own.
    for (const NamedEllipsoid& e : kEllipsoids) {
        std::ostringstream definition;
        definition.imbue(std::locale::classic());
        definition.precision(17);
        definition << "+proj=cart +a=" << e.a << " +es=" << e.e2;
        const ProjOracle proj(definition.str());
        const Ellipsoid ellipsoid = Made(e.a, e.e2);
        RandomPositions positions(-11000.0, 20000.0);
        double worstCartesian = 0.0, worstLat = 0.0, worstLon = 0.0, worstH = 0.0;
        for (int i = 0; i < 5000; ++i) {
            const plain::Geodetic p = positions.Next();
            const auto expected = proj.Forward(ProjOracle::Radians(p.lon), ProjOracle::Radians(p.lat), p.h);
            double x = 0.0, y = 0.0, z = 0.0;
            ASSERT_TRUE(ellipsoid.GeodeticToCartesian(p.lat, p.lon, p.h, x, y, z));
            worstCartesian = std::max(
                {worstCartesian, std::abs(x - expected.x), std::abs(y - expected.y), std::abs(z - expected.z)});
            const auto geodetic = proj.Inverse(x, y, z);
            double lat = 0.0, lon = 0.0, h = 0.0;
            ellipsoid.CartesianToGeodetic(x, y, z, lat, lon, h);
            worstLon = std::max(worstLon, std::abs(lon - ProjOracle::Degrees(geodetic.x)));
            worstLat = std::max(worstLat, std::abs(lat - ProjOracle::Degrees(geodetic.y)));
            worstH = std::max(worstH, std::abs(h - geodetic.z));
        }
        EXPECT_LT(worstCartesian, 1e-8) << e.name;
        EXPECT_LT(worstLat, 1e-10) << e.name;
        EXPECT_LT(worstLon, 1e-12) << e.name;
        EXPECT_LT(worstH, 1e-5) << e.name;
    }
}

TEST(Ellipsoid, RoundTripHoldsFromTheTrenchesToTheSatellites)
{
    for (const NamedEllipsoid& e : kEllipsoids) {
        const Ellipsoid ellipsoid = Made(e.a, e.e2);
        RandomPositions positions(-11000.0, 4e7);
        for (int i = 0; i < 5000; ++i) {
            const plain::Geodetic p = positions.Next();
            double x = 0.0, y = 0.0, z = 0.0, lat = 0.0, lon = 0.0, h = 0.0;
            ellipsoid.GeodeticToCartesian(p.lat, p.lon, p.h, x, y, z);
            ellipsoid.CartesianToGeodetic(x, y, z, lat, lon, h);
            ASSERT_NEAR(lat, p.lat, 1e-13);
            ASSERT_NEAR(h, p.h, 3e-8);
            // Near a pole a longitude is short on the ground.
            ASSERT_NEAR(lon, p.lon, 1e-13 + 1e-15 / std::cos(plain::kDegree * p.lat));
        }
    }
}
