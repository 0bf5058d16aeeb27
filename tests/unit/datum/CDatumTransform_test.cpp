#include "datum/CDatumTransform.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <cmath>
#include <cstdlib>
#include <limits>
#include <new>
#include <random>
#include <sstream>
#include <string>
#include <thread>
#include <vector>

#include "tests/support/AllocationCount.h"
#include "tests/support/DatumRecords.h"
#include "tests/support/PlainDatum.h"
#include "tests/support/ProjOracle.h"

namespace {

constexpr double kMetresPerDegree = 111320.0;

struct Shape {
    double a, e2;
};
constexpr Shape kWgs84{6378137.0, 0.00669437999014132};
constexpr Shape kGrs80{6378137.0, 0.00669438002290079};
constexpr Shape kAiry{6377563.396, 0.00667054000012346};
constexpr Shape kBessel{6377397.155, 0.00667437223180214};
constexpr Shape kInternational{6378388.0, 0.00672267002233347};

// A published transformation, in the direction in which a record stores it, with the corners of
// the area where it is used.
struct PublishedSet {
    const char* name;
    const char* source;
    plain::Datum datum;
    double south, north, west, east;
    double tolerance; // metres against PROJ, which composes exact rotations in another order
};

// Rotations are stored as position vector rotations; those that a source gives as coordinate
// frame rotations stand here with the opposite sign.
const std::vector<PublishedSet>& PublishedSets()
{
    constexpr double mas = 1e-3;
    static const std::vector<PublishedSet> sets = {
        {"WGS84 to ED50 (offshore)",
         "EPSG 1311, reversed",
         {.srcAxis = kWgs84.a,
          .srcEcc = kWgs84.e2,
          .dstAxis = kInternational.a,
          .dstEcc = kInternational.e2,
          .shift = {89.5, 93.8, 123.1},
          .rotation = {0.0, 0.0, 0.156},
          .scale = -1.2},
         49.0,
         63.0,
         -16.0,
         11.0,
         1e-4},
        {"WGS84 to OSGB36",
         "Ordnance Survey, A guide to coordinate systems in Great Britain, 6.6",
         {.srcAxis = kWgs84.a,
          .srcEcc = kWgs84.e2,
          .dstAxis = kAiry.a,
          .dstEcc = kAiry.e2,
          .shift = {-446.448, 125.157, -542.060},
          .rotation = {-0.1502, -0.2470, -0.8421},
          .scale = 20.4894},
         49.0,
         61.0,
         -9.0,
         2.0,
         1e-4},
        {"ETRS89 to Amersfoort",
         "RDNAPTRANS 2018, coordinate frame rotation",
         {.srcAxis = kGrs80.a,
          .srcEcc = kGrs80.e2,
          .dstAxis = kBessel.a,
          .dstEcc = kBessel.e2,
          .shift = {-565.7346, -50.4058, -465.2895},
          .rotation = {0.395026, -0.330772, 1.876073},
          .scale = -4.07242},
         50.0,
         56.0,
         2.0,
         8.0,
         2e-4},
        {"ITRF2014 to GDA2020",
         "EPSG 8049, coordinate frame rotation",
         {.srcAxis = kGrs80.a,
          .srcEcc = kGrs80.e2,
          .dstAxis = kGrs80.a,
          .dstEcc = kGrs80.e2,
          .rotationRate = {-1.50379 * mas, -1.18346 * mas, -1.20716 * mas},
          .epoch = 2020.0,
          .has14 = true},
         -45.0,
         -9.0,
         110.0,
         156.0,
         1e-4},
        {"ITRF2008 to NAD83(2011)",
         "Pearson and Snay 2013, coordinate frame rotation",
         {.srcAxis = kGrs80.a,
          .srcEcc = kGrs80.e2,
          .dstAxis = kGrs80.a,
          .dstEcc = kGrs80.e2,
          .shift = {0.99343, -1.90331, -0.52655},
          .rotation = {-25.91467 * mas, -9.42645 * mas, -11.59935 * mas},
          .scale = 0.00171504,
          .shiftRate = {0.00079, -0.00060, -0.00134},
          .rotationRate = {-0.06667 * mas, 0.75744 * mas, 0.05133 * mas},
          .scaleRate = -0.00010201,
          .epoch = 1997.0,
          .has14 = true},
         18.0,
         72.0,
         -170.0,
         -60.0,
         1e-4},
    };
    return sets;
}

std::string ProjDefinition(const plain::Datum& d)
{
    std::ostringstream out;
    out.imbue(std::locale::classic());
    out.precision(17);
    out << "+proj=pipeline +step +proj=cart +a=" << d.srcAxis << " +es=" << d.srcEcc;
    out << " +step +proj=helmert +exact +convention=position_vector +x=" << d.shift.x << " +y=" << d.shift.y
        << " +z=" << d.shift.z << " +rx=" << d.rotation.x << " +ry=" << d.rotation.y << " +rz=" << d.rotation.z
        << " +s=" << d.scale;
    if (d.has14) {
        out << " +dx=" << d.shiftRate.x << " +dy=" << d.shiftRate.y << " +dz=" << d.shiftRate.z
            << " +drx=" << d.rotationRate.x << " +dry=" << d.rotationRate.y << " +drz=" << d.rotationRate.z
            << " +ds=" << d.scaleRate << " +t_epoch=" << d.epoch;
    }
    out << " +step +inv +proj=cart +a=" << d.dstAxis << " +es=" << d.dstEcc;
    return out.str();
}

// Milliseconds since 1970 of a decimal year, years being of 365.25 days.
double TimeOfYear(double year)
{
    return (year - 1970.0) * 365.25 * 86400.0 * 1000.0;
}

plain::Datum SameEllipsoids()
{
    return {.srcAxis = kWgs84.a, .srcEcc = kWgs84.e2, .dstAxis = kWgs84.a, .dstEcc = kWgs84.e2};
}

struct Result {
    double lat = -1.0, lon = -2.0, h = -3.0;
    bool done = false;
};

Result Forward(const CDatumTransform& datum, double lat, double lon, double h, double time = 0.0)
{
    Result r;
    r.done = datum.DoDtf(lat, lon, h, r.lat, r.lon, r.h, false, time);
    return r;
}

Result Inverse(const CDatumTransform& datum, double lat, double lon, double h, double time = 0.0)
{
    Result r;
    r.done = datum.DoDtf(lat, lon, h, r.lat, r.lon, r.h, true, time);
    return r;
}

double MetresApart(double latA, double lonA, double latB, double lonB)
{
    return kMetresPerDegree * std::hypot(latA - latB, (lonA - lonB) * std::cos(plain::kDegree * latA));
}

struct Site {
    double lat, lon, h, year;
};

// Sites in the area of a set, spread evenly by a fixed sequence of random numbers.
std::vector<Site> SitesIn(const PublishedSet& set, int count)
{
    std::mt19937_64 engine(1841);
    std::uniform_real_distribution<double> unit(0.0, 1.0);
    std::vector<Site> sites;
    for (int i = 0; i < count; ++i) {
        sites.push_back({set.south + (set.north - set.south) * unit(engine),
                         set.west + (set.east - set.west) * unit(engine), -11000.0 + 20000.0 * unit(engine),
                         1990.0 + 40.0 * unit(engine)});
    }
    return sites;
}

int clockReadings = 0;
double FixedClock()
{
    ++clockReadings;
    return TimeOfYear(2010.0);
}

struct WithFixedClock {
    WithFixedClock()
    {
        clockReadings = 0;
        CExTime::SetSource(FixedClock);
    }
    ~WithFixedClock() { CExTime::SetSource(nullptr); }
    WithFixedClock(const WithFixedClock&) = delete;
    WithFixedClock& operator=(const WithFixedClock&) = delete;
};

const plain::Datum& Gda2020()
{
    return PublishedSets()[3].datum;
}

} // namespace

TEST(CDatumTransform, NeverLoadedGivesTheInputsBack)
{
    const CDatumTransform datum;
    EXPECT_FALSE(datum.IsInit());
    EXPECT_FALSE(datum.IsDtfOn());
    EXPECT_TRUE(datum.GetName().IsEmpty());
    EXPECT_TRUE(datum.GetMethodName().IsEmpty());
    const Result r = Forward(datum, 52.0, 5.0, 43.5);
    EXPECT_TRUE(r.done);
    EXPECT_EQ(r.lat, 52.0);
    EXPECT_EQ(r.lon, 5.0);
    EXPECT_EQ(r.h, 43.5);
}

TEST(CDatumTransform, StartsWithTheForwardHeightOf43)
{
    double v[18];
    std::fill(std::begin(v), std::end(v), -1.0);
    bool fixedHeight = true;
    CDatumTransform().GetDtfParms(v[0], v[1], v[2], v[3], v[4], v[5], v[6], v[7], v[8], v[9], v[10], v[11], v[12],
                                  v[13], v[14], fixedHeight, v[15], v[16], false);
    for (int i = 0; i < 15; ++i) {
        EXPECT_EQ(v[i], 0.0) << i;
    }
    EXPECT_FALSE(fixedHeight);
    EXPECT_EQ(v[15], 43.0);
    EXPECT_EQ(v[16], 0.0);
}

TEST(CDatumTransform, NoTransformationGivesTheInputsBack)
{
    FileObject file;
    file.SetItem(L"Dtf-None", L"Method name", L"No Transformation", true);
    ZorGeoDatabase database;
    CDatumTransform datum;
    ASSERT_TRUE(datum.Load(database, file, L"Dtf-None"));
    EXPECT_TRUE(datum.IsInit());
    EXPECT_FALSE(datum.IsDtfOn());
    const Result r = Inverse(datum, -91.0, 500.0, 1e9);
    EXPECT_TRUE(r.done);
    EXPECT_EQ(r.lat, -91.0);
    EXPECT_EQ(r.lon, 500.0);
    EXPECT_EQ(r.h, 1e9);
}

TEST(CDatumTransform, ZeroParametersAndEqualEllipsoidsChangeNothing)
{
    const CDatumTransform datum = LoadedDatum(SameEllipsoids());
    for (const Result& r : {Forward(datum, 52.0, 5.0, 100.0), Inverse(datum, 52.0, 5.0, 100.0)}) {
        EXPECT_TRUE(r.done);
        EXPECT_NEAR(r.lat, 52.0, 1e-13);
        EXPECT_NEAR(r.lon, 5.0, 1e-13);
        EXPECT_NEAR(r.h, 100.0, 1e-8);
    }
}

TEST(CDatumTransform, UnusableEllipsoidIsRefusedAndLeavesTheOutputs)
{
    plain::Datum source = SameEllipsoids();
    source.srcAxis = 5000000.0;
    plain::Datum target = SameEllipsoids();
    target.dstAxis = 5000000.0;
    plain::Datum eccentric = SameEllipsoids();
    eccentric.dstEcc = 1.5;
    for (const plain::Datum& broken : {source, target, eccentric}) {
        const CDatumTransform datum = LoadedDatum(broken);
        for (const Result& r : {Forward(datum, 52.0, 5.0, 100.0), Inverse(datum, 52.0, 5.0, 100.0)}) {
            EXPECT_FALSE(r.done);
            EXPECT_EQ(r.lat, -1.0);
            EXPECT_EQ(r.lon, -2.0);
            EXPECT_EQ(r.h, -3.0);
        }
    }
}

// IOGP Guidance Note 7-2, position vector transformation, example: WGS 72 to WGS 84.
TEST(CDatumTransform, GivesThePublishedPositionVectorExample)
{
    const double flattening = 1.0 / 298.26;
    const CDatumTransform datum = LoadedDatum({.srcAxis = 6378135.0,
                                               .srcEcc = flattening * (2.0 - flattening),
                                               .dstAxis = kWgs84.a,
                                               .dstEcc = kWgs84.e2,
                                               .shift = {0.0, 0.0, 4.5},
                                               .rotation = {0.0, 0.0, 0.554},
                                               .scale = 0.219});
    const Result r = Forward(datum, 55.0, 4.0, 0.0);
    EXPECT_NEAR(r.lat, 55.0 + 0.090 / 3600.0, 0.0005 / 3600.0);
    EXPECT_NEAR(r.lon, 4.0 + 0.554 / 3600.0, 0.0005 / 3600.0);
    EXPECT_NEAR(r.h, 3.22, 0.005);
}

// The small-angle matrix of the position vector rotation, written out: an independent truth for
// every sign. Its error is the square of the angles.
TEST(CDatumTransform, EveryRotationHasTheSignOfThePositionVector)
{
    const double seconds = plain::kDegree / 3600.0;
    for (const plain::Cartesian& rotation :
         {plain::Cartesian{2.0, 0.0, 0.0}, {0.0, 2.0, 0.0}, {0.0, 0.0, 2.0}, {1.5, -0.7, 2.0}}) {
        plain::Datum d = SameEllipsoids();
        d.rotation = rotation;
        d.shift = {100.0, -200.0, 300.0};
        d.scale = 15.0;
        const CDatumTransform datum = LoadedDatum(d);
        for (const Site& site : {Site{52.0, 5.0, 100.0, 0.0}, {-33.0, 151.0, 0.0, 0.0}, {10.0, -75.0, 2000.0, 0.0}}) {
            const plain::Cartesian p = plain::GeodeticToCartesian(d.srcAxis, d.srcEcc, 1.0, site.lat, site.lon, site.h);
            const double rx = rotation.x * seconds, ry = rotation.y * seconds, rz = rotation.z * seconds;
            const double S = 1.0 + 15e-6;
            const plain::Geodetic expected = plain::CartesianToGeodetic(
                d.dstAxis, d.dstEcc, 1.0, d.shift.x + S * (p.x - rz * p.y + ry * p.z),
                d.shift.y + S * (rz * p.x + p.y - rx * p.z), d.shift.z + S * (-ry * p.x + rx * p.y + p.z));
            const Result r = Forward(datum, site.lat, site.lon, site.h);
            EXPECT_LT(MetresApart(r.lat, r.lon, expected.lat, expected.lon), 2e-3);
            EXPECT_NEAR(r.h, expected.h, 2e-3);
        }
    }
}

TEST(CDatumTransform, AgreesWithProjForward)
{
    for (const PublishedSet& set : PublishedSets()) {
        const CDatumTransform datum = LoadedDatum(set.datum);
        const ProjOracle proj(ProjDefinition(set.datum));
        double worst = 0.0, worstH = 0.0;
        for (const Site& site : SitesIn(set, 2000)) {
            const Result r = Forward(datum, site.lat, site.lon, site.h, TimeOfYear(site.year));
            ASSERT_TRUE(r.done);
            const auto expected =
                proj.Forward(ProjOracle::Radians(site.lon), ProjOracle::Radians(site.lat), site.h, site.year);
            worst = std::max(
                worst, MetresApart(r.lat, r.lon, ProjOracle::Degrees(expected.y), ProjOracle::Degrees(expected.x)));
            worstH = std::max(worstH, std::abs(r.h - expected.z));
        }
        EXPECT_LT(worst, set.tolerance) << set.name;
        EXPECT_LT(worstH, set.tolerance) << set.name;
    }
}

TEST(CDatumTransform, AgreesWithProjInverse)
{
    for (const PublishedSet& set : PublishedSets()) {
        const CDatumTransform datum = LoadedDatum(set.datum);
        const ProjOracle proj(ProjDefinition(set.datum));
        double worst = 0.0, worstH = 0.0;
        for (const Site& site : SitesIn(set, 2000)) {
            const Result r = Inverse(datum, site.lat, site.lon, site.h, TimeOfYear(site.year));
            ASSERT_TRUE(r.done);
            const auto expected =
                proj.Inverse(ProjOracle::Radians(site.lon), ProjOracle::Radians(site.lat), site.h, site.year);
            worst = std::max(
                worst, MetresApart(r.lat, r.lon, ProjOracle::Degrees(expected.y), ProjOracle::Degrees(expected.x)));
            worstH = std::max(worstH, std::abs(r.h - expected.z));
        }
        EXPECT_LT(worst, set.tolerance) << set.name;
        EXPECT_LT(worstH, set.tolerance) << set.name;
    }
}

TEST(CDatumTransform, GivesWhatThePlainStepsGive)
{
    for (const PublishedSet& set : PublishedSets()) {
        const CDatumTransform datum = LoadedDatum(set.datum);
        for (const Site& site : SitesIn(set, 2000)) {
            for (const bool inverse : {false, true}) {
                const double time = TimeOfYear(site.year);
                const plain::Geodetic expected =
                    plain::Transform(set.datum, 1.0, site.lat, site.lon, site.h, inverse, time);
                Result r;
                ASSERT_TRUE(datum.DoDtf(site.lat, site.lon, site.h, r.lat, r.lon, r.h, inverse, time));
                ASSERT_NEAR(r.lat, expected.lat, 1e-13) << set.name;
                ASSERT_NEAR(r.lon, expected.lon, 1e-13) << set.name;
                ASSERT_NEAR(r.h, expected.h, 1e-8) << set.name;
            }
        }
    }
}

TEST(CDatumTransform, InverseMirrorsTheForwardDirection)
{
    std::vector<plain::Datum> data;
    for (const PublishedSet& set : PublishedSets()) {
        data.push_back(set.datum);
    }
    // Rotations of degrees: only mirrored orders come back.
    plain::Datum turned = SameEllipsoids();
    turned.rotation = {7200.0, -10800.0, 18000.0};
    turned.scale = 50.0;
    data.push_back(turned);
    for (const plain::Datum& d : data) {
        const CDatumTransform datum = LoadedDatum(d);
        for (const Site& site : SitesIn(PublishedSets()[0], 500)) {
            const double time = TimeOfYear(site.year);
            const Result there = Forward(datum, site.lat, site.lon, site.h, time);
            const Result back = Inverse(datum, there.lat, there.lon, there.h, time);
            ASSERT_NEAR(back.lat, site.lat, 1e-12);
            ASSERT_NEAR(back.lon, site.lon, 1e-12);
            ASSERT_NEAR(back.h, site.h, 2e-8);
        }
    }
}

TEST(CDatumTransform, RotatesAboutYThenXThenZ)
{
    // Right angles: each order of the three gives another place. On a sphere, the point (1, 0, 0)
    // goes with +90 degrees about Y to (0, 0, -1), about X from there to (0, 1, 0), about Z to
    // (-1, 0, 0): latitude 0, longitude 180.
    constexpr double quarter = 90.0 * 3600.0;
    plain::Datum d{.srcAxis = 6371000.0, .srcEcc = 0.0, .dstAxis = 6371000.0, .dstEcc = 0.0};
    d.rotation = {quarter, quarter, quarter};
    const CDatumTransform datum = LoadedDatum(d);
    const Result r = Forward(datum, 0.0, 0.0, 0.0);
    EXPECT_NEAR(r.lat, 0.0, 1e-12);
    EXPECT_NEAR(std::abs(r.lon), 180.0, 1e-12);
    const Result back = Inverse(datum, 0.0, 180.0, 0.0);
    EXPECT_NEAR(back.lat, 0.0, 1e-12);
    EXPECT_NEAR(back.lon, 0.0, 1e-12);
}

TEST(CDatumTransform, RatesWithoutAnEpochHaveNoEffect)
{
    const WithFixedClock clock;
    plain::Datum without = Gda2020();
    without.shift = {1.0, 2.0, 3.0};
    without.epoch = 0.0;
    plain::Datum constant = without;
    constant.has14 = false;
    const Result rates = Forward(LoadedDatum(without), -30.0, 140.0, 10.0, TimeOfYear(1990.0));
    const Result none = Forward(LoadedDatum(constant), -30.0, 140.0, 10.0, TimeOfYear(1990.0));
    EXPECT_EQ(rates.lat, none.lat);
    EXPECT_EQ(rates.lon, none.lon);
    EXPECT_EQ(rates.h, none.h);
    Forward(LoadedDatum(without), -30.0, 140.0, 10.0);
    EXPECT_EQ(clockReadings, 0);
}

TEST(CDatumTransform, TimeZeroReadsTheClock)
{
    const WithFixedClock clock;
    const CDatumTransform datum = LoadedDatum(Gda2020());
    const Result given = Forward(datum, -30.0, 140.0, 10.0, TimeOfYear(2010.0));
    EXPECT_EQ(clockReadings, 0);
    const Result present = Forward(datum, -30.0, 140.0, 10.0);
    EXPECT_EQ(clockReadings, 1);
    EXPECT_EQ(present.lat, given.lat);
    EXPECT_EQ(present.lon, given.lon);
    EXPECT_EQ(present.h, given.h);
}

TEST(CDatumTransform, SevenParametersNeverReadTheClock)
{
    const WithFixedClock clock;
    Forward(LoadedDatum(PublishedSets()[0].datum), 52.0, 5.0, 0.0);
    EXPECT_EQ(clockReadings, 0);
}

// Australia moves about 7 cm a year to the north-north-east: at the epoch nothing, ten years
// before it 0.7 m.
TEST(CDatumTransform, RatesCountTheYearsFromTheEpoch)
{
    const CDatumTransform datum = LoadedDatum(Gda2020());
    const Result atEpoch = Forward(datum, -25.0, 135.0, 0.0, TimeOfYear(2020.0));
    EXPECT_LT(MetresApart(atEpoch.lat, atEpoch.lon, -25.0, 135.0), 1e-6);
    const Result before = Forward(datum, -25.0, 135.0, 0.0, TimeOfYear(2010.0));
    const double moved = MetresApart(before.lat, before.lon, -25.0, 135.0);
    EXPECT_GT(moved, 0.55);
    EXPECT_LT(moved, 0.75);
    EXPECT_GT(before.lat, -25.0);
    EXPECT_GT(before.lon, 135.0);
}

TEST(CDatumTransform, FixedHeightMovesTheHorizontalPositionAlone)
{
    const plain::Datum& d = PublishedSets()[2].datum;
    const CDatumTransform plainDatum = LoadedDatum(d);
    const FixedHeights heights{43.0, -20.0};
    const CDatumTransform fixedDatum = LoadedDatum(d, &heights);
    for (const bool inverse : {false, true}) {
        const auto run = [inverse](const CDatumTransform& datum, double h) {
            return inverse ? Inverse(datum, 52.0, 5.0, h) : Forward(datum, 52.0, 5.0, h);
        };
        const Result fixedResult = run(fixedDatum, 1000.0);
        const Result atFixed = run(plainDatum, inverse ? -20.0 : 43.0);
        const Result asGiven = run(plainDatum, 1000.0);
        EXPECT_TRUE(fixedResult.done);
        EXPECT_EQ(fixedResult.lat, atFixed.lat);
        EXPECT_EQ(fixedResult.lon, atFixed.lon);
        EXPECT_EQ(fixedResult.h, asGiven.h);
        EXPECT_NE(fixedResult.lat, asGiven.lat);
    }
}

TEST(CDatumTransform, FixedHeightHoldsWithRates)
{
    plain::Datum d = PublishedSets()[4].datum;
    d.shift = {100.0, 200.0, 300.0};
    const FixedHeights heights{43.0, 0.0};
    const CDatumTransform plainDatum = LoadedDatum(d);
    const CDatumTransform fixedDatum = LoadedDatum(d, &heights);
    const double time = TimeOfYear(2015.5);
    const Result fixedResult = Forward(fixedDatum, 40.0, -100.0, 3000.0, time);
    const Result atFixed = Forward(plainDatum, 40.0, -100.0, 43.0, time);
    EXPECT_EQ(fixedResult.lat, atFixed.lat);
    EXPECT_EQ(fixedResult.lon, atFixed.lon);
    EXPECT_EQ(fixedResult.h, Forward(plainDatum, 40.0, -100.0, 3000.0, time).h);
}

TEST(CDatumTransform, HeightsAreInSystemUnitsAndTheFactorIsReadAtEachCall)
{
    const MetresAgain restore;
    const CDatumTransform datum = LoadedDatum(PublishedSets()[1].datum);
    const Result metres = Forward(datum, 52.0, -1.0, 304.8);
    Ellipsoid::SetUnitFactor(0.3048);
    const Result feet = Forward(datum, 52.0, -1.0, 1000.0);
    EXPECT_NEAR(feet.lat, metres.lat, 1e-13);
    EXPECT_NEAR(feet.lon, metres.lon, 1e-13);
    EXPECT_NEAR(feet.h * 0.3048, metres.h, 1e-8);
}

TEST(CDatumTransform, NotANumberComesOutAsNotANumber)
{
    const double nan = std::numeric_limits<double>::quiet_NaN();
    const CDatumTransform datum = LoadedDatum(PublishedSets()[1].datum);
    const Result r = Forward(datum, nan, 5.0, 0.0);
    EXPECT_TRUE(r.done);
    EXPECT_TRUE(std::isnan(r.lat));
    EXPECT_TRUE(std::isnan(r.lon));
    EXPECT_TRUE(std::isnan(r.h));
}

TEST(CDatumTransform, OutputsMayBeTheInputs)
{
    const CDatumTransform datum = LoadedDatum(PublishedSets()[1].datum);
    const Result r = Forward(datum, 52.0, -1.0, 50.0);
    double lat = 52.0, lon = -1.0, h = 50.0;
    EXPECT_TRUE(datum.DoDtf(lat, lon, h, lat, lon, h, false, 0.0));
    EXPECT_EQ(lat, r.lat);
    EXPECT_EQ(lon, r.lon);
    EXPECT_EQ(h, r.h);
}

TEST(CDatumTransform, ParametersComeAsStored)
{
    const plain::Datum& d = PublishedSets()[4].datum;
    const FixedHeights heights{12.0, 34.0};
    const CDatumTransform datum = LoadedDatum(d, &heights);
    double v[17];
    bool fixedHeight = false;
    datum.GetDtfParms(v[0], v[1], v[2], v[3], v[4], v[5], v[6], v[7], v[8], v[9], v[10], v[11], v[12], v[13], v[14],
                      fixedHeight, v[15], v[16], false);
    const double expected[] = {
        d.shift.x,     d.shift.y,     d.shift.z,     d.rotation.x,     d.rotation.y,     d.rotation.z,     d.scale,
        d.shiftRate.x, d.shiftRate.y, d.shiftRate.z, d.rotationRate.x, d.rotationRate.y, d.rotationRate.z, d.scaleRate,
        d.epoch,       12.0,          34.0};
    for (int i = 0; i < 17; ++i) {
        EXPECT_EQ(v[i], expected[i]) << i;
    }
    EXPECT_TRUE(fixedHeight);
}

TEST(CDatumTransform, SystemUnitsDivideTheShiftsAndTheirRatesAlone)
{
    const MetresAgain restore;
    const plain::Datum& d = PublishedSets()[4].datum;
    const FixedHeights heights{12.0, 34.0};
    const CDatumTransform datum = LoadedDatum(d, &heights);
    CDatumTransform::SetUnitCnv(0.3048);
    EXPECT_EQ(CDatumTransform::m_unitCnv, 0.3048);
    double m[17], u[17];
    bool fixedHeight = false;
    datum.GetDtfParms(m[0], m[1], m[2], m[3], m[4], m[5], m[6], m[7], m[8], m[9], m[10], m[11], m[12], m[13], m[14],
                      fixedHeight, m[15], m[16], false);
    datum.GetDtfParms(u[0], u[1], u[2], u[3], u[4], u[5], u[6], u[7], u[8], u[9], u[10], u[11], u[12], u[13], u[14],
                      fixedHeight, u[15], u[16], true);
    EXPECT_EQ(m[0], d.shift.x);
    for (int i = 0; i < 17; ++i) {
        const bool length = i < 3 || (i >= 7 && i < 10);
        EXPECT_DOUBLE_EQ(u[i], length ? m[i] / 0.3048 : m[i]) << i;
    }
}

TEST(CDatumTransform, UnitZeroIsOne)
{
    const MetresAgain restore;
    EXPECT_EQ(CDatumTransform::m_unitCnv, 1.0);
    CDatumTransform::SetUnitCnv(0.0);
    EXPECT_EQ(CDatumTransform::m_unitCnv, 1.0);
}

TEST(CDatumTransform, NamesItsEllipsoidsWithoutThePrefix)
{
    const CDatumTransform datum = LoadedDatum(PublishedSets()[1].datum);
    EXPECT_EQ(datum.GetDftSourceEllipsName(), L"Source");
    EXPECT_EQ(datum.GetDftDestEllipsName(), L"Target");
    EXPECT_EQ(datum.SourceEllipsoid().name, L"Elp-Source");
    EXPECT_EQ(datum.DestEllipsoid().name, L"Elp-Target");
    double a = 0.0, e2 = 0.0;
    datum.GetDtfSourceEllips(a, e2);
    EXPECT_EQ(a, kWgs84.a);
    EXPECT_EQ(e2, kWgs84.e2);
    datum.GetDtfDestEllips(a, e2);
    EXPECT_EQ(a, kAiry.a);
    EXPECT_EQ(e2, kAiry.e2);
    EXPECT_EQ(datum.GetName(), L"Dtf-Test");
    EXPECT_EQ(datum.GetMethodName(), L"Bursa/Wolfe(7 Parameters)");
}

TEST(CDatumTransform, CopiesAreWholeAndIndependent)
{
    CDatumTransform original = LoadedDatum(PublishedSets()[2].datum);
    const CDatumTransform copy(original);
    CDatumTransform assigned;
    assigned = original;
    const Result before = Forward(original, 52.0, 5.0, 0.0);
    original = CDatumTransform();
    EXPECT_FALSE(original.IsInit());
    for (const CDatumTransform* datum : {&copy, static_cast<const CDatumTransform*>(&assigned)}) {
        const Result r = Forward(*datum, 52.0, 5.0, 0.0);
        EXPECT_EQ(r.lat, before.lat);
        EXPECT_EQ(r.lon, before.lon);
        EXPECT_EQ(r.h, before.h);
        EXPECT_EQ(datum->GetName(), L"Dtf-Test");
    }
}

TEST(CDatumTransform, ConversionAllocatesNothing)
{
    const FixedHeights heights{43.0, 0.0};
    const CDatumTransform constant = LoadedDatum(PublishedSets()[2].datum, &heights);
    const CDatumTransform moving = LoadedDatum(PublishedSets()[4].datum, &heights);
    Result r;
    const long before = AllocationCount();
    for (const CDatumTransform* datum : {&constant, &moving}) {
        for (const bool inverse : {false, true}) {
            datum->DoDtf(52.0, 5.0, 100.0, r.lat, r.lon, r.h, inverse, 1e12);
            datum->DoDtf(52.0, 5.0, 100.0, r.lat, r.lon, r.h, inverse, 0.0);
        }
    }
    EXPECT_EQ(AllocationCount(), before);
    EXPECT_GT(before, 0);
}

TEST(CDatumTransform, ServesSeveralThreads)
{
    const CDatumTransform datum = LoadedDatum(PublishedSets()[4].datum);
    const Result expected = Forward(datum, 40.0, -100.0, 10.0, TimeOfYear(2015.0));
    std::atomic<int> different{0};
    std::vector<std::thread> threads;
    for (int i = 0; i < 4; ++i) {
        threads.emplace_back([&] {
            for (int n = 0; n < 1000; ++n) {
                const Result r = Forward(datum, 40.0, -100.0, 10.0, TimeOfYear(2015.0));
                different += r.lat == expected.lat && r.lon == expected.lon && r.h == expected.h ? 0 : 1;
            }
        });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
    EXPECT_EQ(different, 0);
}
