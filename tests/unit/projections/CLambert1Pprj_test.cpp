#include "projections/CLambert1Pprj.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <sstream>

#include "tests/support/GridPositions.h"
#include "tests/support/ModuleTexts.h"
#include "tests/support/ProjectionRecord.h"
#include "tests/support/ScriptedDesk.h"

namespace {

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr EllipsoidShape kClarke1880Ign{6378249.2, 0.006803487646299926};
constexpr double kScale = 0.999625769;

/// EPSG 26191, Merchich / Nord Maroc.
ProjectionRecord Morocco()
{
    return ProjectionRecord({{3, 33.3}, {4, -5.4}, {5, 500000.0}, {6, 300000.0}, {7, kScale}});
}

class CLambert1PprjTest : public testing::Test {
protected:
    CLambert1PprjTest() { m_projection.SetEllipsoid(kClarke1880Ign.a, kClarke1880Ign.e2); }
    bool Load(ProjectionRecord record) { return m_projection.LoadParameters(record.file, record.section); }
    double SavedScale()
    {
        FileObject file;
        EXPECT_TRUE(m_projection.SaveParameters(file, L"S"));
        double scale = 0.0;
        EXPECT_TRUE(file.GetItem(L"S", ProjectionRecord::Key(7), scale));
        return scale;
    }

    MainDirectory m_main{MainDirectory::Delivered()};
    CLambert1Pprj m_projection;
};

// Loading.

TEST_F(CLambert1PprjTest, LoadsAndListsItsParameters)
{
    EXPECT_TRUE(Load(Morocco()));
    EXPECT_EQ(m_projection.GetType(), 12);
    EXPECT_EQ(m_projection.GetStatus(), 0);
    EXPECT_EQ(m_projection.GetName(), L"Prj-Test");
    const ConstantsOf constants(m_projection);
    EXPECT_EQ(constants.values, (std::vector<double>{-5.4, 33.3, 500000.0, 300000.0, kScale})) << "as it was read";
    EXPECT_EQ(constants.names, (std::vector<CString>{L"Longitude of Origin", L"Latitude of Origin", L"False Easting",
                                                     L"False Northing", L"Scale Factor at the Central Meridian"}));
    EXPECT_EQ(constants.texts, (std::vector<CString>{L"005°24'00.0000000\"W", L"33°18'00.0000000\"N", L"500000",
                                                     L"300000", L"0.99962577"}));
    EXPECT_EQ(constants.kinds, (std::vector<UINT>{1, 2, 3, 3, 4}));
}

TEST_F(CLambert1PprjTest, NeedsEachKey)
{
    for (const int index : {3, 4, 5, 6, 7}) {
        ProjectionRecord record = Morocco();
        record.Remove(index);
        CLambert1Pprj projection;
        projection.SetEllipsoid(kClarke1880Ign.a, kClarke1880Ign.e2);
        EXPECT_FALSE(projection.LoadParameters(record.file, record.section)) << index;
        const ConstantsOf constants(projection);
        EXPECT_EQ(constants.values[4], index == 7 ? 0.0 : kScale) << "what stands behind the missing key is read";
        EXPECT_FALSE(constants.names[0].IsEmpty());
        EXPECT_FALSE(constants.names[4].IsEmpty());
    }
    ProjectionRecord record = Morocco();
    EXPECT_FALSE(m_projection.LoadParameters(record.file, L"Prj-Other"));
    EXPECT_TRUE(m_projection.GetName().IsEmpty());
}

// The parallel is the latitude of origin also when a key behind it is missing.
TEST_F(CLambert1PprjTest, TakesTheOriginForTheParallelWhetherOrNotTheReadsSucceeded)
{
    ProjectionRecord record = Morocco();
    record.Remove(ProjectionKey::scaleFactor);
    EXPECT_FALSE(Load(record));
    std::wostringstream stream;
    m_projection.DumpParametersXml(stream, L"");
    EXPECT_NE(stream.str().find(L"<central_parallel>33°18&apos;00.0000000&quot;N</central_parallel>"),
              std::wstring::npos);
}

TEST_F(CLambert1PprjTest, WithoutEllipsoidTheLoadFailsWithAllConstants)
{
    CLambert1Pprj projection;
    ProjectionRecord record = Morocco();
    EXPECT_FALSE(projection.LoadParameters(record.file, record.section));
    EXPECT_EQ(projection.GetStatus(), 1);
    EXPECT_EQ(ConstantsOf(projection).values, (std::vector<double>{-5.4, 33.3, 500000.0, 300000.0, kScale}));
}

TEST_F(CLambert1PprjTest, FailsWhenTheCatalogueDoesNotKnowTheType)
{
    const MainDirectory nowhere(L"");
    EXPECT_FALSE(Load(Morocco()));
}

// Kept.
TEST_F(CLambert1PprjTest, RefusesASouthernOriginInSilence)
{
    const ModuleTexts texts;
    const ScriptedDesk desk;
    for (const double latitude : {-30.0, -1e-9, 0.0, 33.3}) {
        ProjectionRecord record = Morocco();
        record.Set(ProjectionKey::latOrigin, latitude);
        EXPECT_EQ(Load(record), latitude >= 0.0) << latitude;
        EXPECT_EQ(m_projection.GetStatus(), latitude < 0.0 ? 2 : 0) << latitude;
        EXPECT_EQ(m_projection.InitConstants(), latitude < 0.0 ? 2U : 0U) << latitude;
    }
    // Any scale factor passes, other than with the projections that ask for 0.8 at least.
    ProjectionRecord record = Morocco();
    record.Set(ProjectionKey::scaleFactor, 0.5);
    EXPECT_TRUE(Load(record));
    EXPECT_TRUE(desk.messages.empty());
    m_projection.SetEllipsoid(1000.0, 0.0);
    EXPECT_EQ(m_projection.InitConstants(), 1U);
    EXPECT_EQ(m_projection.GetStatus(), 1);
}

// Saving and showing.

TEST_F(CLambert1PprjTest, SavesWhatItLoaded)
{
    ASSERT_TRUE(Load(Morocco()));
    FileObject file;
    EXPECT_TRUE(m_projection.SaveParameters(file, L"S"));
    std::vector<CString> expected;
    for (const int index : {3, 4, 5, 6, 7, 1}) {
        expected.push_back(ProjectionRecord::Key(index));
    }
    EXPECT_EQ(KeysOf(file, L"S"), expected);
    int type = 0;
    EXPECT_TRUE(file.GetItem(L"S", ProjectionRecord::Key(1), type));
    EXPECT_EQ(type, 12);
    for (const auto& [index, number] : {std::pair{3, 33.3}, {4, -5.4}, {5, 5e5}, {6, 3e5}}) {
        double read = 0.0;
        EXPECT_TRUE(file.GetItem(L"S", ProjectionRecord::Key(index), read));
        EXPECT_EQ(read, number) << index;
    }
}

// Kept. Seen from outside where the cone does not have the loaded scale: InitConstants once more
// with another unit gives a cone of the same scale; with a scale that the cone cannot have, NaN.
TEST_F(CLambert1PprjTest, SavesTheScaleFactorOfTheConeThatWasFormed)
{
    ASSERT_TRUE(Load(Morocco()));
    EXPECT_NEAR(SavedScale(), kScale, 5e-16);

    // On the equator there is no cone, and so no scale factor: the loaded one is gone.
    ProjectionRecord record = Morocco();
    record.Set(ProjectionKey::latOrigin, 0.0);
    ASSERT_TRUE(Load(record));
    EXPECT_TRUE(std::isnan(SavedScale()));
    EXPECT_EQ(ConstantsOf(m_projection).values[4], kScale) << "listed before it was formed anew";
}

// Kept.
TEST_F(CLambert1PprjTest, WritesTheScaleFactorWithThreeDecimals)
{
    ProjectionRecord record = Morocco();
    record.Set(ProjectionKey::scaleFactor, 0.99987);
    record.Set(ProjectionKey::falseEasting, 500000.1256);
    ASSERT_TRUE(Load(record));
    std::wostringstream stream;
    m_projection.DumpXml(stream, L"");
    EXPECT_EQ(stream.str(), L"<projection>\n"
                            L"  <name>Prj-Test</name>\n"
                            L"  <type>Lambert1P</type>\n"
                            L"  <latitude_origin>33°18&apos;00.0000000&quot;N</latitude_origin>\n"
                            L"  <longitude_origin>005°24&apos;00.0000000&quot;W</longitude_origin>\n"
                            L"  <false_easting>500000.126</false_easting>\n"
                            L"  <false_northing>300000.000</false_northing>\n"
                            L"  <central_parallel>33°18&apos;00.0000000&quot;N</central_parallel>\n"
                            L"  <scale_factor>1.000</scale_factor>\n"
                            L"</projection>\n");
}

// Kept.
TEST_F(CLambert1PprjTest, GivesTheParallelAndTheScaleFactorAsGeoKeys)
{
    ASSERT_TRUE(Load(Morocco()));
    std::list<std::pair<int, short>> codes;
    std::list<std::pair<int, double>> parameters;
    m_projection.GetGeoKeys(codes, parameters);
    EXPECT_EQ(codes, (std::list<std::pair<int, short>>{{3072, 32767}, {3074, 32767}, {3075, 9}}));
    ASSERT_EQ(parameters.size(), 6U);
    EXPECT_NEAR(parameters.back().second, kScale, 5e-16);
    parameters.back().second = kScale;
    EXPECT_EQ(parameters,
              (std::list<std::pair<int, double>>{
                  {3082, 500000.0}, {3083, 300000.0}, {3088, -5.4}, {3081, 33.3}, {3078, 33.3}, {3093, kScale}}));
}

// Positions. The expected numbers are the formulas evaluated with 40 digits on Clarke 1880 IGN.

TEST_F(CLambert1PprjTest, TheOriginIsTheFalseOrigin)
{
    ASSERT_TRUE(Load(Morocco()));
    const GridPosition at = ToGrid(m_projection, 33.3, -5.4);
    EXPECT_EQ(at.easting, 500000.0);
    EXPECT_EQ(at.northing, 300000.0);
}

TEST_F(CLambert1PprjTest, ConvertsForward)
{
    ASSERT_TRUE(Load(Morocco()));
    const GridPosition at = ToGrid(m_projection, 34.5, -7.25);
    EXPECT_NEAR(at.easting, 330125.29260450534, 1e-8);
    EXPECT_NEAR(at.northing, 434564.87264869432, 1e-8);
}

// Kept. What two passes leave is 0.2 mm here.
TEST_F(CLambert1PprjTest, TheInverseStopsAfterTwoPasses)
{
    ASSERT_TRUE(Load(Morocco()));
    const GeoPosition at = ToGeo(m_projection, 330000.0, 432000.0);
    EXPECT_NEAR(at.latitude, 34.476857725372916, 1e-13) << "settled: 34.476857723456833";
    EXPECT_NEAR(at.longitude, -7.2508688541702984, 1e-13);
    EXPECT_EQ(ToGeo(m_projection, 500000.0, 700000.0).longitude, -5.4);
}

TEST_F(CLambert1PprjTest, AnOriginOnTheEquatorGivesNoNumber)
{
    ProjectionRecord record = Morocco();
    record.Set(ProjectionKey::latOrigin, 0.0);
    EXPECT_TRUE(Load(record));
    EXPECT_TRUE(std::isnan(ToGrid(m_projection, 10.0, -5.0).northing));
    EXPECT_TRUE(std::isnan(ToGeo(m_projection, 500000.0, 300000.0).latitude));
}

TEST_F(CLambert1PprjTest, GivesNoNumberForNoNumber)
{
    ASSERT_TRUE(Load(Morocco()));
    for (const double bad : {kNaN, kInfinity, -kInfinity}) {
        EXPECT_TRUE(std::isnan(ToGrid(m_projection, bad, -5.0).northing)) << bad;
        EXPECT_TRUE(std::isnan(ToGrid(m_projection, 34.0, bad).easting)) << bad;
        EXPECT_TRUE(std::isnan(ToGeo(m_projection, bad, 3e5).latitude)) << bad;
        EXPECT_TRUE(std::isnan(ToGeo(m_projection, 5e5, bad).latitude)) << bad;
        EXPECT_TRUE(std::isnan(m_projection.PointScaleFactor(bad, 3e5))) << bad;
        EXPECT_TRUE(std::isnan(m_projection.LineScaleFactor(5e5, 3e5, bad, 3e5))) << bad;
    }
    EXPECT_TRUE(std::isnan(ConvergenceAt(m_projection, kNaN, 3e5)));
}

// Convergence and scale.

TEST_F(CLambert1PprjTest, ConvergenceIsTheAngleAtTheApex)
{
    ASSERT_TRUE(Load(Morocco()));
    const GridPosition at = ToGrid(m_projection, 34.5, -7.25);
    // 1.85 degrees west, times sin 33.3.
    EXPECT_NEAR(ConvergenceAt(m_projection, at.easting, at.northing), 1.85 * 0.54902281799813174, 1e-11);
}

TEST_F(CLambert1PprjTest, ScaleIsLeastOnTheParallel)
{
    ASSERT_TRUE(Load(Morocco()));
    const GridPosition at = ToGrid(m_projection, 33.3, -9.0);
    EXPECT_NEAR(m_projection.PointScaleFactor(at.easting, at.northing), kScale, 3e-11) << "0.1 mm of latitude";
    EXPECT_NEAR(m_projection.PointScaleFactor(330000.0, 432000.0), 0.99983664139985112, 1e-14);
    double factor = 0.0;
    m_projection.PointScaleFactor(330000.0, 432000.0, factor);
    EXPECT_EQ(factor, m_projection.PointScaleFactor(330000.0, 432000.0));
}

// Kept: northings for the distance from the parallel. 170 km west of the meridian the parallel lies
// 1.3 km higher on the grid, and Simpson's rule gives 0.99985870 there.
TEST_F(CLambert1PprjTest, TheLineScaleTakesNorthingsForDistances)
{
    ASSERT_TRUE(Load(Morocco()));
    const double scale = m_projection.LineScaleFactor(330000.0, 432000.0, 340000.0, 445000.0);
    EXPECT_NEAR(scale, 0.99986236711486672, 1e-14);
    double factor = 0.0;
    m_projection.LineScaleFactor(330000.0, 432000.0, 340000.0, 445000.0, factor);
    EXPECT_EQ(factor, scale);
    const double simpson =
        (m_projection.PointScaleFactor(330000.0, 432000.0) + 4.0 * m_projection.PointScaleFactor(335000.0, 438500.0) +
         m_projection.PointScaleFactor(340000.0, 445000.0)) /
        6.0;
    EXPECT_GT(std::fabs(scale - simpson), 1e-6);
    // With the false origin alone it is the recomputed scale factor itself.
    EXPECT_NEAR(m_projection.LineScaleFactor(400000.0, 300000.0, 600000.0, 300000.0), kScale, 5e-16);
}

} // namespace
