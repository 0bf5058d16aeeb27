#include "projections/CMERprj.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <sstream>

#include "tests/support/GridPositions.h"
#include "tests/support/ProjectionRecord.h"

namespace {

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr EllipsoidShape kWgs84{6378137.0, 0.0066943799901413165};
constexpr EllipsoidShape kKrassowsky{6378245.0, 0.006693421622965943};

/// Every parameter other than its default.
ProjectionRecord Whole()
{
    return ProjectionRecord({{3, 10.0}, {4, -20.0}, {5, 500000.0}, {6, 200000.0}, {7, 0.98}, {18, 30.0}, {16, 12.5}});
}

/// EPSG 3395 without the optional keys.
ProjectionRecord World()
{
    return ProjectionRecord({{3, 0.0}, {4, 0.0}, {5, 0.0}, {6, 0.0}, {7, 1.0}});
}

class CMERprjTest : public testing::Test {
protected:
    CMERprjTest() { m_projection.SetEllipsoid(kGrs80.a, kGrs80.e2); }
    bool Load(ProjectionRecord record) { return m_projection.LoadParameters(record.file, record.section); }

    MainDirectory m_main{MainDirectory::Delivered()};
    CMERprj m_projection;
};

// Loading.

TEST_F(CMERprjTest, LoadsAndListsItsParameters)
{
    EXPECT_TRUE(Load(Whole()));
    EXPECT_EQ(m_projection.GetType(), 4);
    EXPECT_EQ(m_projection.GetStatus(), 0);
    EXPECT_EQ(m_projection.GetName(), L"Prj-Test");
    const ConstantsOf constants(m_projection);
    EXPECT_EQ(constants.values, (std::vector<double>{-20.0, 10.0, 500000.0, 200000.0, 0.98, 12.5, 30.0}));
    EXPECT_EQ(constants.names,
              (std::vector<CString>{L"Longitude of Origin", L"Latitude of Origin", L"False Easting", L"False Northing",
                                    L"Scale Factor at the Central Meridian", L"Grid Skew", L"Latitude of True Scale"}));
    EXPECT_EQ(constants.texts, (std::vector<CString>{L"020°00'00.0000000\"W", L"10°00'00.0000000\"N", L"500000",
                                                     L"200000", L"0.98000", L"12.5000", L"30°00'00.0000000\"N"}));
    EXPECT_EQ(constants.kinds, (std::vector<UINT>{1, 2, 3, 3, 4, 5, 2}));
}

TEST_F(CMERprjTest, NeedsEachKeyButTrueScaleAndSkew)
{
    for (const int index : {3, 4, 5, 6, 7}) {
        ProjectionRecord record = Whole();
        record.Remove(index);
        CMERprj projection;
        projection.SetEllipsoid(kGrs80.a, kGrs80.e2);
        EXPECT_FALSE(projection.LoadParameters(record.file, record.section)) << index;
        const ConstantsOf constants(projection);
        EXPECT_EQ(constants.values[5], 12.5) << "what stands behind the missing key is read";
        EXPECT_EQ(constants.values[6], 30.0);
    }
    ProjectionRecord record = Whole();
    EXPECT_FALSE(m_projection.LoadParameters(record.file, L"Prj-Other"));
    EXPECT_TRUE(m_projection.GetName().IsEmpty());
}

TEST_F(CMERprjTest, MissingTrueScaleAndSkewAreZero)
{
    ASSERT_TRUE(Load(Whole()));
    ProjectionRecord record = Whole();
    record.Remove(ProjectionKey::latTrueScale);
    record.Remove(ProjectionKey::gridSkew);
    EXPECT_TRUE(Load(record));
    const ConstantsOf constants(m_projection);
    EXPECT_EQ(constants.values[5], 0.0);
    EXPECT_EQ(constants.values[6], 0.0);
    EXPECT_EQ(constants.names[6], L"Latitude of True Scale");
    EXPECT_EQ(constants.texts[6], L"00°00'00.0000000\"N");
}

TEST_F(CMERprjTest, AsksForTheEllipsoidAlone)
{
    CMERprj projection;
    ProjectionRecord record = Whole();
    EXPECT_FALSE(projection.LoadParameters(record.file, record.section));
    EXPECT_EQ(projection.GetStatus(), 1);
    EXPECT_EQ(projection.InitConstants(), 1U);
    EXPECT_EQ(ConstantsOf(projection).values, (std::vector<double>{-20.0, 10.0, 5e5, 2e5, 0.98, 12.5, 30.0}));
    // No parameter is refused, however useless.
    for (const auto& [index, value] : {std::pair{7, 0.0}, {7, -1.0}, {3, -90.0}, {18, 90.0}, {4, 1e9}}) {
        ProjectionRecord odd = Whole();
        odd.Set(index, value);
        EXPECT_TRUE(Load(odd)) << index;
        EXPECT_EQ(m_projection.GetStatus(), 0) << index;
    }
}

TEST_F(CMERprjTest, FailsWhenTheCatalogueDoesNotKnowTheType)
{
    const MainDirectory nowhere(L"");
    EXPECT_FALSE(Load(Whole()));
}

// Saving and showing.

// Kept.
TEST_F(CMERprjTest, SavesSkewBeforeTrueScale)
{
    ASSERT_TRUE(Load(Whole()));
    FileObject file;
    EXPECT_TRUE(m_projection.SaveParameters(file, L"S"));
    std::vector<CString> expected;
    for (const int index : {3, 4, 5, 6, 7, 16, 18, 1}) {
        expected.push_back(ProjectionRecord::Key(index));
    }
    EXPECT_EQ(KeysOf(file, L"S"), expected);
    int type = 0;
    EXPECT_TRUE(file.GetItem(L"S", ProjectionRecord::Key(1), type));
    EXPECT_EQ(type, 4);
    for (const auto& [index, number] :
         {std::pair{3, 10.0}, {4, -20.0}, {5, 5e5}, {6, 2e5}, {7, 0.98}, {16, 12.5}, {18, 30.0}}) {
        double read = 0.0;
        EXPECT_TRUE(file.GetItem(L"S", ProjectionRecord::Key(index), read));
        EXPECT_EQ(read, number) << index;
    }
}

// Kept.
TEST_F(CMERprjTest, WritesNoElementForTheSkew)
{
    ASSERT_TRUE(Load(Whole()));
    std::wostringstream stream;
    m_projection.DumpXml(stream, L"");
    EXPECT_EQ(stream.str(), L"<projection>\n"
                            L"  <name>Prj-Test</name>\n"
                            L"  <type>Mercator</type>\n"
                            L"  <latitude_origin>10°00&apos;00.0000000&quot;N</latitude_origin>\n"
                            L"  <longitude_origin>020°00&apos;00.0000000&quot;W</longitude_origin>\n"
                            L"  <latitude_true_scale>30°00&apos;00.0000000&quot;N</latitude_true_scale>\n"
                            L"  <false_easting>500000.000</false_easting>\n"
                            L"  <false_northing>200000.000</false_northing>\n"
                            L"  <scale_factor>0.980000</scale_factor>\n"
                            L"</projection>\n");
}

// Kept.
TEST_F(CMERprjTest, GivesTrueScaleUnderTheGeoKeyOfACentre)
{
    ASSERT_TRUE(Load(Whole()));
    std::list<std::pair<int, short>> codes;
    std::list<std::pair<int, double>> parameters;
    m_projection.GetGeoKeys(codes, parameters);
    EXPECT_EQ(codes, (std::list<std::pair<int, short>>{{3072, 32767}, {3074, 32767}, {3075, 7}}));
    EXPECT_EQ(parameters,
              (std::list<std::pair<int, double>>{
                  {3082, 500000.0}, {3083, 200000.0}, {3093, 0.98}, {3088, -20.0}, {3081, 10.0}, {3089, 30.0}}));
}

// Positions. The expected numbers are the formulas, with their stop rule, evaluated with 40 digits.

TEST_F(CMERprjTest, TrueScaleDividesAndTheScaleFactorMultiplies)
{
    ASSERT_TRUE(Load(Whole()));
    const GridPosition at = ToGrid(m_projection, -35.5, -40.25);
    EXPECT_NEAR(at.easting, -1414770.2315868953, 1e-8);
    EXPECT_NEAR(at.northing, -4317788.9709603096, 1e-8);

    ProjectionRecord unit = Whole();
    unit.Set(ProjectionKey::scaleFactor, 1.0);
    const GridPosition whole = ToGrid(*Loaded(4, kGrs80, unit), -35.5, -40.25);
    EXPECT_NEAR(at.easting - 500000.0, 0.98 * (whole.easting - 500000.0), 1e-8);
    unit.Set(ProjectionKey::latTrueScale, 0.0);
    const GridPosition equator = ToGrid(*Loaded(4, kGrs80, unit), -35.5, -40.25);
    EXPECT_NEAR(equator.easting - 500000.0, 1.1537338832355145 * (whole.easting - 500000.0), 1e-8);
}

TEST_F(CMERprjTest, TrueScaleOfZeroOrMissingIsThePlainMap)
{
    ProjectionRecord zero = Whole();
    zero.Set(ProjectionKey::latTrueScale, 0.0);
    ProjectionRecord without = Whole();
    without.Remove(ProjectionKey::latTrueScale);
    const GridPosition a = ToGrid(*Loaded(4, kGrs80, zero), 40.0, -25.0);
    const GridPosition b = ToGrid(*Loaded(4, kGrs80, without), 40.0, -25.0);
    EXPECT_EQ(a.easting, b.easting);
    EXPECT_EQ(a.northing, b.northing);
    EXPECT_NEAR(a.easting, 500000.0 - 0.98 * 6378137.0 * 5.0 * D_TO_R, 1e-8);
}

TEST_F(CMERprjTest, TrueScaleAtThePoleLeavesTheFalseOrigin)
{
    ProjectionRecord record = Whole();
    record.Set(ProjectionKey::latTrueScale, 90.0);
    ASSERT_TRUE(Load(record));
    const GridPosition at = ToGrid(m_projection, 40.0, 60.0);
    EXPECT_NEAR(at.easting, 500000.0, 1e-8);
    EXPECT_NEAR(at.northing, 200000.0, 1e-8);
}

TEST_F(CMERprjTest, TheOriginIsTheFalseOrigin)
{
    for (const double latitude : {10.0, 0.0, -47.3}) {
        ProjectionRecord record = Whole();
        record.Set(ProjectionKey::latOrigin, latitude);
        const GridPosition at = ToGrid(*Loaded(4, kGrs80, record), latitude, -20.0);
        EXPECT_EQ(at.easting, 500000.0) << latitude;
        EXPECT_EQ(at.northing, 200000.0) << latitude;
    }
}

// Kept: the skew is listed and saved, no more.
TEST_F(CMERprjTest, TheSkewChangesNoResult)
{
    ProjectionRecord without = Whole();
    without.Remove(ProjectionKey::gridSkew);
    const auto straight = Loaded(4, kGrs80, without);
    const auto skewed = Loaded(4, kGrs80, Whole());
    EXPECT_EQ(ToGrid(*skewed, 40.0, -25.0).easting, ToGrid(*straight, 40.0, -25.0).easting);
    EXPECT_EQ(ToGrid(*skewed, 40.0, -25.0).northing, ToGrid(*straight, 40.0, -25.0).northing);
    EXPECT_EQ(ToGeo(*skewed, 1e6, 2e6).latitude, ToGeo(*straight, 1e6, 2e6).latitude);
    EXPECT_EQ(ConvergenceAt(*skewed, 1e6, 2e6), 0.0);
}

// Kept: a chart runs on across 180 degrees.
TEST_F(CMERprjTest, DoesNotFoldLongitudes)
{
    const auto world = Loaded(4, kWgs84, World());
    const double degree = 6378137.0 * D_TO_R;
    for (const double longitude : {-361.0, -190.0, 180.0, 190.0, 350.0, 725.0}) {
        EXPECT_NEAR(ToGrid(*world, 10.0, longitude).easting, longitude * degree, 1e-7) << longitude;
        EXPECT_NEAR(ToGeo(*world, longitude * degree, 1e6).longitude, longitude, 1e-12) << longitude;
    }
}

TEST_F(CMERprjTest, ThePoleLiesFarAndNotAtInfinity)
{
    const auto world = Loaded(4, kWgs84, World());
    // The tangent of the double nearest to 90 degrees is 1.6e16: a ln(1.6e16), less what the
    // eccentricity takes off.
    EXPECT_NEAR(ToGrid(*world, 90.0, 0.0).northing, 238064899.93, 0.01);
    EXPECT_EQ(ToGrid(*world, -90.0, 0.0).northing, -kInfinity);
    EXPECT_NEAR(ToGeo(*world, 0.0, 238064899.93).latitude, 90.0, 1e-13);
    EXPECT_EQ(ToGeo(*world, 0.0, kInfinity).latitude, 90.0);
    EXPECT_EQ(ToGeo(*world, 0.0, -kInfinity).latitude, -90.0);
    EXPECT_EQ(ToGeo(*world, 0.0, 1e300).latitude, 90.0);
    EXPECT_EQ(ToGeo(*world, 0.0, -1e300).latitude, -90.0);
}

// Kept: what is left of the latitude is up to 1e-12 degrees.
TEST_F(CMERprjTest, TheInverseStopsAtACorrectionOfAMillimetre)
{
    ASSERT_TRUE(Load(Whole()));
    struct Row {
        double easting, northing, latitude, longitude;
    };
    const Row rows[] = {
        {-1500000.0, -4000000.0, -32.704780332674031, -41.151362879939387}, // settled: ...674453
        {700000.0, 900000.0, 17.235228839423218, -17.884863712006061},      // ...424143
        {500000.0, 200000.0, 9.9999999999992423, -20.0},                    // 10
        {0.0, 9000000.0, 71.318499269294286, -25.287840719984847},          // ...294313
        {0.0, 6000000.0, 58.041214244025287, -25.287840719984847},          // ...027474
    };
    for (const Row& row : rows) {
        const GeoPosition at = ToGeo(m_projection, row.easting, row.northing);
        EXPECT_NEAR(at.latitude, row.latitude, 1e-13);
        EXPECT_NEAR(at.longitude, row.longitude, 1e-13);
    }
}

// The length is one of the system's unit: in thousands of kilometres two passes are enough.
TEST_F(CMERprjTest, TheInverseStopsByTheUnit)
{
    const LinearUnit unit(1e6);
    const auto world = Loaded(4, kWgs84, World());
    const GridPosition at = ToGrid(*world, 45.0, 10.0);
    EXPECT_NEAR(ToGeo(*world, at.easting, at.northing).latitude, 44.999997827220448, 1e-13);
}

// A unit of negative length makes every correction too large: only the guard ends the passes.
TEST_F(CMERprjTest, TheGuardEndsWhatWouldNotEnd)
{
    const LinearUnit unit(-1.0);
    const auto world = Loaded(4, kWgs84, World());
    const GridPosition at = ToGrid(*world, 45.0, 10.0);
    const GeoPosition back = ToGeo(*world, at.easting, at.northing);
    EXPECT_NEAR(back.latitude, 45.0, 1e-12);
    EXPECT_NEAR(back.longitude, 10.0, 1e-12);
}

TEST_F(CMERprjTest, GivesNoNumberForNoNumber)
{
    ASSERT_TRUE(Load(Whole()));
    EXPECT_TRUE(std::isnan(ToGrid(m_projection, kNaN, 0.0).northing));
    EXPECT_TRUE(std::isnan(ToGrid(m_projection, 0.0, kNaN).easting));
    EXPECT_TRUE(std::isnan(ToGrid(m_projection, kInfinity, 0.0).northing));
    EXPECT_TRUE(std::isnan(ToGrid(m_projection, 91.0, 0.0).northing));
    EXPECT_EQ(ToGrid(m_projection, 0.0, kInfinity).easting, kInfinity);
    EXPECT_TRUE(std::isnan(ToGeo(m_projection, kNaN, 0.0).longitude));
    EXPECT_TRUE(std::isnan(ToGeo(m_projection, 0.0, kNaN).latitude));
    EXPECT_EQ(ToGeo(m_projection, -kInfinity, 0.0).longitude, -kInfinity);
    EXPECT_TRUE(std::isnan(m_projection.PointScaleFactor(0.0, kNaN)));
    EXPECT_TRUE(std::isnan(m_projection.LineScaleFactor(0.0, 0.0, 0.0, kNaN)));

    ProjectionRecord record = Whole();
    record.Set(ProjectionKey::scaleFactor, 0.0);
    ASSERT_TRUE(Load(record));
    EXPECT_TRUE(std::isnan(ToGeo(m_projection, 5e5, 2e5).latitude));
    EXPECT_EQ(ToGeo(m_projection, 5e5, 3e5).latitude, 90.0);
}

// Convergence and scale.

TEST_F(CMERprjTest, ConvergenceIsZeroWhateverThePoint)
{
    ASSERT_TRUE(Load(Whole()));
    for (const double at : {0.0, 500000.0, -2e7, 1e300, kInfinity, kNaN}) {
        EXPECT_EQ(ConvergenceAt(m_projection, at, at), 0.0);
    }
}

TEST_F(CMERprjTest, ScaleIsTheScaleFactorOnTheParallelsOfTrueScale)
{
    ASSERT_TRUE(Load(Whole()));
    for (const double latitude : {30.0, -30.0}) {
        const GridPosition at = ToGrid(m_projection, latitude, 5.0);
        EXPECT_NEAR(m_projection.PointScaleFactor(at.easting, at.northing), 0.98, 1e-13);
    }
    EXPECT_NEAR(m_projection.PointScaleFactor(-1500000.0, -4000000.0), 1.0084612514597670, 1e-13);
    double factor = 0.0;
    m_projection.PointScaleFactor(-1500000.0, -4000000.0, factor);
    EXPECT_EQ(factor, m_projection.PointScaleFactor(-1500000.0, -4000000.0));
    // Snyder (1987), p. 266: k = 1.2194146, on Clarke 1866.
    EXPECT_NEAR(Loaded(4, {6378206.4, 0.00676866}, World())->PointScaleFactor(0.0, 4139145.6), 1.2194146, 5e-8);
}

TEST_F(CMERprjTest, TheLineScaleIsTheHarmonicRule)
{
    ASSERT_TRUE(Load(Whole()));
    const double scale = m_projection.LineScaleFactor(0.0, 6000000.0, 200000.0, 7000000.0);
    EXPECT_NEAR(scale, 1.7319704853677076, 1e-12) << "over the factors: 1.7357121825134275";
    double factor = 0.0;
    m_projection.LineScaleFactor(0.0, 6000000.0, 200000.0, 7000000.0, factor);
    EXPECT_EQ(factor, scale);
}

// There are no derived fields: ellipsoid and unit take effect without another preparation.
TEST_F(CMERprjTest, FollowsEllipsoidAndUnitOfTheMoment)
{
    ASSERT_TRUE(Load(Whole()));
    m_projection.SetEllipsoid(kKrassowsky.a, kKrassowsky.e2);
    const GridPosition fresh = ToGrid(*Loaded(4, kKrassowsky, Whole()), -35.5, -40.25);
    EXPECT_EQ(ToGrid(m_projection, -35.5, -40.25).easting, fresh.easting);
    EXPECT_EQ(ToGrid(m_projection, -35.5, -40.25).northing, fresh.northing);
    const LinearUnit foot(0.3048);
    EXPECT_NEAR(ToGrid(m_projection, -35.5, -40.25).easting - 500000.0, (fresh.easting - 500000.0) / 0.3048, 1e-7);
}

} // namespace
