#include "projections/PolyconicProjection.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <sstream>

#include "tests/support/ForwardDerivatives.h"
#include "tests/support/GridPositions.h"
#include "tests/support/PlainRobbins.h"
#include "tests/support/ProjectionRecord.h"

namespace {

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kInfinity = std::numeric_limits<double>::infinity();

constexpr std::uint32_t kType = 14;

// SIRGAS 2000 / Brazil Polyconic.
ProjectionRecord Brazil()
{
    return ProjectionRecord({{3, 0.0}, {4, -54.0}, {5, 5000000.0}, {6, 10000000.0}});
}

// The example of Snyder (1987), p. 303.
ProjectionRecord AtThirty()
{
    return ProjectionRecord({{3, 30.0}, {4, -96.0}, {5, 2000.0}, {6, 1000.0}});
}

class PolyconicProjectionTest : public testing::Test {
protected:
    PolyconicProjectionTest() { m_projection.SetEllipsoid(kGrs80.a, kGrs80.e2); }
    bool Load(ProjectionRecord record) { return m_projection.LoadParameters(record.file, record.section); }
    static double Arc(double latitude) { return plain::ShortArc(kGrs80.a, kGrs80.e2, latitude * D_TO_R); }

    MainDirectory m_main{MainDirectory::Delivered()};
    PolyconicProjection m_projection;
};

// Loading, saving, showing.

TEST_F(PolyconicProjectionTest, LoadsAndListsItsParameters)
{
    EXPECT_TRUE(Load(Brazil()));
    EXPECT_EQ(m_projection.GetType(), 14);
    EXPECT_EQ(m_projection.GetStatus(), 0);
    const ConstantsOf constants(m_projection);
    EXPECT_EQ(constants.values, (std::vector<double>{-54.0, 0.0, 5000000.0, 10000000.0}));
    EXPECT_EQ(constants.names, (std::vector<CString>{L"Longitude of Origin", L"Latitude of Origin", L"False Easting",
                                                     L"False Northing"}));
    EXPECT_EQ(constants.texts,
              (std::vector<CString>{L"054°00'00.0000000\"W", L"00°00'00.0000000\"N", L"5000000", L"10000000"}));
    EXPECT_EQ(constants.kinds, (std::vector<UINT>{1, 2, 3, 3}));
}

TEST_F(PolyconicProjectionTest, NeedsEachKey)
{
    for (const int index : {3, 4, 5, 6}) {
        ProjectionRecord record = Brazil();
        record.Remove(index);
        PolyconicProjection projection;
        projection.SetEllipsoid(kGrs80.a, kGrs80.e2);
        EXPECT_FALSE(projection.LoadParameters(record.file, record.section)) << index;
        EXPECT_EQ(ConstantsOf(projection).values[3], index == 6 ? 0.0 : 10000000.0) << "what stands behind is listed";
    }
}

// Kept: the status does not tell of the refusal.
TEST_F(PolyconicProjectionTest, RefusesABadEllipsoidWithStatus0)
{
    PolyconicProjection without;
    ProjectionRecord record = Brazil();
    EXPECT_FALSE(without.LoadParameters(record.file, record.section));
    EXPECT_EQ(without.InitConstants(), 1U);
    EXPECT_EQ(without.GetStatus(), 0);
    EXPECT_EQ(ConstantsOf(without).values[0], -54.0) << "the constants are complete";
}

TEST_F(PolyconicProjectionTest, RefusesAnAxisBelow6000000SystemUnits)
{
    struct Row {
        double unit;
        bool loads;
    };
    const double bound = kGrs80.a / 6000000.0;
    const Row rows[] = {
        {1.0, true}, {0.3048, true}, {bound * (1.0 - 1e-15), true}, {bound * (1.0 + 1e-12), false}, {1000.0, false}};
    for (const Row& row : rows) {
        const LinearUnit unit(row.unit);
        EXPECT_EQ(Load(Brazil()), row.loads) << row.unit;
        EXPECT_EQ(m_projection.InitConstants(), row.loads ? 0U : 1U) << row.unit;
        EXPECT_EQ(m_projection.GetStatus(), 0) << row.unit;
    }
}

TEST_F(PolyconicProjectionTest, SavesInLoadingOrderThenTheType)
{
    ASSERT_TRUE(Load(ProjectionRecord({{3, 1.0}, {4, 2.0}, {5, 3.0}, {6, 4.0}})));
    FileObject file;
    EXPECT_TRUE(m_projection.SaveParameters(file, L"S"));
    std::vector<CString> expected;
    double value = 1.0;
    for (const int index : {3, 4, 5, 6}) {
        expected.push_back(ProjectionRecord::Key(index));
        double read = 0.0;
        EXPECT_TRUE(file.GetItem(L"S", ProjectionRecord::Key(index), read));
        EXPECT_EQ(read, value++) << index;
    }
    expected.push_back(ProjectionRecord::Key(1));
    EXPECT_EQ(KeysOf(file, L"S"), expected);
    int type = 0;
    EXPECT_TRUE(file.GetItem(L"S", ProjectionRecord::Key(1), type));
    EXPECT_EQ(type, 14);
}

TEST_F(PolyconicProjectionTest, WritesXmlAndGeoKeys)
{
    ASSERT_TRUE(Load(Brazil()));
    std::wostringstream stream;
    m_projection.DumpXml(stream, L" ");
    EXPECT_EQ(stream.str(), L" <projection>\n"
                            L"   <name>Prj-Test</name>\n"
                            L"   <type>Polyconic</type>\n"
                            L"   <latitude_origin>00°00&apos;00.0000000&quot;N</latitude_origin>\n"
                            L"   <longitude_origin>054°00&apos;00.0000000&quot;W</longitude_origin>\n"
                            L"   <false_easting>5000000.000</false_easting>\n"
                            L"   <false_northing>10000000.000</false_northing>\n"
                            L" </projection>\n");
    ASSERT_TRUE(Load(ProjectionRecord({{3, 1.0}, {4, 2.0}, {5, 3.0}, {6, 4.0}})));
    std::list<std::pair<int, short>> codes;
    std::list<std::pair<int, double>> parameters;
    m_projection.GetGeoKeys(codes, parameters);
    EXPECT_EQ(codes, (std::list<std::pair<int, short>>{{3072, 32767}, {3074, 32767}, {3075, 22}}));
    EXPECT_EQ(parameters, (std::list<std::pair<int, double>>{{3082, 3.0}, {3083, 4.0}, {3088, 2.0}, {3081, 1.0}}));
}

// Positions. The expected numbers are the formulas evaluated with 40 digits on GRS 1980.

TEST_F(PolyconicProjectionTest, ForwardIsThatOf40Digits)
{
    struct Row {
        double latitude, offset, easting, northing;
    };
    ASSERT_TRUE(Load(ProjectionRecord({{3, 0.0}, {4, 0.0}, {5, 0.0}, {6, 0.0}})));
    for (const Row& row : {Row{40.0, 21.0, 1776727.8674833945, 4639795.6740449425},
                           Row{-30.0, 15.0, 1443164.5774901458, -3414703.401693261},
                           Row{5.0, -20.0, -2217631.9940817097, 586621.6658747651},
                           Row{80.0, 30.0, 556362.60868701239, 9031847.5897952866}}) {
        const GridPosition at = ToGrid(m_projection, row.latitude, row.offset);
        EXPECT_NEAR(at.easting, row.easting, 2e-9) << row.latitude;
        EXPECT_NEAR(at.northing, row.northing, 4e-9) << row.latitude;
    }
}

// Kept: C multiplies in the denominator, and the answer is the latitude before the last correction.
// The source's division comes to rest elsewhere within the same bound, as does the last correction.
TEST_F(PolyconicProjectionTest, KeepsTheMultiplicationAndTheLatitudeBeforeTheLastCorrection)
{
    struct Row {
        double easting, northing, latitude, longitude;
        double divided, corrected; // latitudes
    };
    ASSERT_TRUE(Load(ProjectionRecord({{3, 0.0}, {4, 0.0}, {5, 0.0}, {6, 0.0}})));
    for (const Row& row :
         {Row{1776728.0, 4639796.0, 40.000002477308748, 21.000002389633852, 40.000002485379821, 40.000002478322721},
          Row{556363.0, 9031848.0, 80.000001457177097, 30.000027961894653, 80.000001449417157, 80.000001462056284}}) {
        const GeoPosition at = ToGeo(m_projection, row.easting, row.northing);
        EXPECT_NEAR(at.latitude, row.latitude, 1e-12);
        EXPECT_NEAR(at.longitude, row.longitude, 1e-12);
        EXPECT_GT(std::fabs(at.latitude - row.divided), 1e-9);
        EXPECT_GT(std::fabs(at.latitude - row.corrected), 5e-10);
    }
}

TEST_F(PolyconicProjectionTest, ForwardOnTheEquatorIsLinear)
{
    ASSERT_TRUE(Load(AtThirty()));
    for (const double latitude : {0.0, -0.0, 9.9e-11, -9.9e-11}) {
        for (const double longitude : {-96.0, -80.0, 10.0, 300.0}) {
            const GridPosition at = ToGrid(m_projection, latitude, longitude);
            EXPECT_NEAR(at.easting, (longitude + 96.0) * D_TO_R * kGrs80.a + 2000.0, 1e-8);
            EXPECT_NEAR(at.northing, 1000.0 - Arc(30.0), 1e-8);
        }
    }
}

// Kept: at 1e-10 degrees the general formulas begin.
TEST_F(PolyconicProjectionTest, TheEquatorEndsAtTenToTheMinusTen)
{
    ASSERT_TRUE(Load(AtThirty()));
    EXPECT_EQ(ToGrid(m_projection, std::nextafter(1e-10, 0.0), -90.0).northing,
              ToGrid(m_projection, 0.0, -90.0).northing);
    // 0.01 mm of arc to the north.
    ProjectionRecord record = Brazil();
    record.Set(ProjectionKey::falseNorthing, 0.0);
    const auto projection = Loaded(kType, kGrs80, record);
    EXPECT_EQ(ToGrid(*projection, std::nextafter(1e-10, 0.0), -54.0).northing, 0.0);
    EXPECT_NEAR(ToGrid(*projection, 1e-10, -54.0).northing, 1.1057e-5, 1e-8);
}

// Kept: the line N = FN + M0 answers with the latitude of origin, though no such point is there.
TEST_F(PolyconicProjectionTest, TheInverseSeeksTheEquatorAtM0MinusY)
{
    ASSERT_TRUE(Load(AtThirty()));
    const double line = 1000.0 + Arc(30.0);
    const GeoPosition at = ToGeo(m_projection, 502000.0, line);
    EXPECT_EQ(at.latitude, 30.0);
    EXPECT_NEAR(at.longitude, 500000.0 / kGrs80.a / D_TO_R - 96.0, 1e-12);
    // A hundredth of a millimetre on, the general road: the latitude is nearly twice that.
    EXPECT_GT(ToGeo(m_projection, 502000.0, line + 1e-5).latitude, 58.0);
}

// Kept: the true equator takes the general road, with a latitude of 0 to start from: 0 / 0.
TEST_F(PolyconicProjectionTest, TheInverseOnTheEquatorHasNoLongitudeUnlessTheOriginIsThere)
{
    // M0 as it is formed in the grid's own arithmetic: A is 0 to the last bit.
    ProjectionRecord record = AtThirty();
    record.Set(ProjectionKey::falseNorthing, 0.0);
    const auto projection = Loaded(kType, kGrs80, record);
    const double equator = ToGrid(*projection, 0.0, -90.0).northing;
    GeoPosition at = ToGeo(*projection, 502000.0, equator);
    EXPECT_EQ(at.latitude, 0.0);
    EXPECT_TRUE(std::isnan(at.longitude));

    ASSERT_TRUE(Load(Brazil()));
    at = ToGeo(m_projection, 5500000.0, 10000000.0);
    EXPECT_EQ(at.latitude, 0.0);
    EXPECT_NEAR(at.longitude, 500000.0 / kGrs80.a / D_TO_R - 54.0, 1e-12);
}

// A shape so flat that the passes come to no rest: the last correction is 6e-4 degrees.
TEST_F(PolyconicProjectionTest, EndsAfter25Passes)
{
    const auto projection =
        Loaded(kType, {6378137.0, 0.97}, ProjectionRecord({{3, 0.0}, {4, 0.0}, {5, 0.0}, {6, 0.0}}));
    const GeoPosition at = ToGeo(*projection, -6506518.0, -10008883.0);
    EXPECT_NEAR(at.latitude, -64.244951218199195, 1e-9) << "a pass more: -64.2443139";
    EXPECT_NEAR(at.longitude, -86.021384166980295, 1e-9);
}

TEST_F(PolyconicProjectionTest, DoesNotFold)
{
    ASSERT_TRUE(Load(Brazil()));
    const GridPosition near = ToGrid(m_projection, -20.0, -50.0);
    EXPECT_GT(std::fabs(ToGrid(m_projection, -20.0, 310.0).northing - near.northing), 1e5);
    ProjectionRecord record = Brazil();
    record.Set(ProjectionKey::lonOrigin, 306.0);
    EXPECT_NEAR(ToGeo(*Loaded(kType, kGrs80, record), near.easting, near.northing).longitude, 310.0, 1e-7);
}

TEST_F(PolyconicProjectionTest, GivesNoNumberForNoNumber)
{
    ASSERT_TRUE(Load(Brazil()));
    EXPECT_TRUE(std::isnan(ToGrid(m_projection, kNaN, -50.0).northing));
    EXPECT_TRUE(std::isnan(ToGrid(m_projection, 0.0, kNaN).easting));
    EXPECT_TRUE(std::isnan(ToGrid(m_projection, kInfinity, -50.0).easting));
    EXPECT_TRUE(std::isnan(ToGrid(m_projection, -20.0, kInfinity).easting));
    EXPECT_EQ(ToGrid(m_projection, 0.0, kInfinity).easting, kInfinity) << "linear there";
    for (const double bad : {kNaN, kInfinity, -kInfinity}) {
        EXPECT_TRUE(std::isnan(ToGeo(m_projection, bad, 8e6).longitude)) << bad;
        EXPECT_TRUE(std::isnan(ToGeo(m_projection, 5e6, bad).longitude)) << bad;
        EXPECT_TRUE(std::isnan(m_projection.PointScaleFactor(5e6, bad))) << bad;
        EXPECT_TRUE(std::isnan(m_projection.LineScaleFactor(5e6, 8e6, 5e6, bad))) << bad;
        EXPECT_TRUE(std::isnan(ConvergenceAt(m_projection, 5e6, bad))) << bad;
    }
}

TEST_F(PolyconicProjectionTest, KeepsTheAxisInTheUnitOfTheLoad)
{
    ASSERT_TRUE(Load(Brazil()));
    const GridPosition before = ToGrid(m_projection, -20.0, -50.0);
    const double k = m_projection.PointScaleFactor(before.easting, before.northing);
    const LinearUnit foot(0.3048);
    EXPECT_EQ(ToGrid(m_projection, -20.0, -50.0).easting, before.easting);
    EXPECT_EQ(m_projection.PointScaleFactor(before.easting, before.northing), k);
}

// Convergence and scale.

TEST_F(PolyconicProjectionTest, ConvergenceIsTheDirectionOfTheMeridian)
{
    ASSERT_TRUE(Load(Brazil()));
    for (const double latitude : {-33.0, -15.0, -1.0, 4.0}) {
        for (const double longitude : {-74.0, -54.0, -35.0}) {
            const ForwardDerivatives map(m_projection, kGrs80.a, kGrs80.e2, latitude, longitude);
            const GridPosition at = ToGrid(m_projection, latitude, longitude);
            // The inverse is good for 7 mm, on a step of 31 m.
            EXPECT_NEAR(ConvergenceAt(m_projection, at.easting, at.northing), map.convergence, 0.013);
        }
    }
}

TEST_F(PolyconicProjectionTest, PointScaleIsThatOfALineFromWestToEast)
{
    ASSERT_TRUE(Load(Brazil()));
    const double k = m_projection.PointScaleFactor(5100000.0, 8000000.0);
    EXPECT_EQ(k, m_projection.LineScaleFactor(5099500.0, 8000000.0, 5100500.0, 8000000.0));
    double factor = 0.0;
    m_projection.PointScaleFactor(5100000.0, 8000000.0, factor);
    EXPECT_EQ(factor, k);
    // Parallels are true to scale, and run west to east at the central meridian.
    EXPECT_NEAR(m_projection.PointScaleFactor(5000000.0, 8000000.0), 1.0, 1e-7);
    EXPECT_NEAR(m_projection.PointScaleFactor(5000000.0, 10000000.0), 1.0, 1e-7) << "on the equator";
}

TEST_F(PolyconicProjectionTest, ALineOnTheCentralMeridianTakesTheArc)
{
    ASSERT_TRUE(Load(Brazil()));
    const GeoPosition p = ToGeo(m_projection, 5000000.0, 8000000.0);
    const GeoPosition q = ToGeo(m_projection, 5000000.0, 8100000.0);
    ASSERT_EQ(p.longitude, q.longitude);
    EXPECT_NEAR(m_projection.LineScaleFactor(5000000.0, 8000000.0, 5000000.0, 8100000.0),
                100000.0 / (Arc(q.latitude) - Arc(p.latitude)), 1e-13);
}

// Kept: both ends give way to the parallel of 1e-10 degrees, and their distance is taken there.
TEST_F(PolyconicProjectionTest, ALineOnTheEquatorIsMovedOffIt)
{
    ASSERT_TRUE(Load(Brazil()));
    const double lambda1 = 100000.0 / kGrs80.a;
    const double lambda2 = 300000.0 / kGrs80.a;
    // The parallel's own radius there is that of the equator: the ratio is grid over arc, with the
    // grid's distance of the moved points.
    const GridPosition p = ToGrid(m_projection, 1e-10, lambda1 / D_TO_R - 54.0);
    const GridPosition q = ToGrid(m_projection, 1e-10, lambda2 / D_TO_R - 54.0);
    const double expected = plain::RobbinsRatio(std::hypot(q.easting - p.easting, q.northing - p.northing),
                                                1e-10 * D_TO_R, lambda1, 1e-10 * D_TO_R, lambda2, kGrs80.a, kGrs80.e2);
    EXPECT_NEAR(m_projection.LineScaleFactor(5100000.0, 10000000.0, 5300000.0, 10000000.0), expected, 1e-12);
    EXPECT_NEAR(expected, 1.0, 1e-9);
    double factor = 0.0;
    m_projection.LineScaleFactor(5100000.0, 10000000.0, 5300000.0, 10000000.0, factor);
    EXPECT_NEAR(factor, expected, 1e-12);
}

TEST_F(PolyconicProjectionTest, ALineOfNoLengthHasNoScale)
{
    ASSERT_TRUE(Load(Brazil()));
    EXPECT_TRUE(std::isnan(m_projection.LineScaleFactor(5.1e6, 8e6, 5.1e6, 8e6)));
}

} // namespace
