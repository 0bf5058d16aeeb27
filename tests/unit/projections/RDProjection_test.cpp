#include "projections/RDProjection.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <sstream>

#include "tests/support/GridPositions.h"
#include "tests/support/PlainRD.h"
#include "tests/support/ProjectionRecord.h"
#include "tests/support/ScriptedDesk.h"

namespace {

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kInfinity = std::numeric_limits<double>::infinity();

constexpr std::uint32_t kType = 2;
constexpr EllipsoidShape kBessel{6377397.155, 0.0066743722318021447};
constexpr EllipsoidShape kSphere{6371000.0, 0.0};

// Amersfoort / RD New as it is published.
ProjectionRecord Published()
{
    return ProjectionRecord(
        {{3, 52.15616055555556}, {4, 5.387638888888889}, {5, 155000.0}, {6, 463000.0}, {7, 0.9999079}});
}

ProjectionRecord About(double latitude, double longitude, double k0 = 1.0)
{
    return ProjectionRecord({{3, latitude}, {4, longitude}, {5, 0.0}, {6, 0.0}, {7, k0}});
}

class RDProjectionTest : public testing::Test {
protected:
    RDProjectionTest() { m_projection.SetEllipsoid(kBessel.a, kBessel.e2); }
    bool Load(ProjectionRecord record) { return m_projection.LoadParameters(record.file, record.section); }

    /// The parameters 3 to 7 as they are saved.
    std::vector<double> Saved()
    {
        FileObject file;
        m_projection.SaveParameters(file, L"S");
        std::vector<double> values;
        for (const int index : {3, 4, 5, 6, 7}) {
            double value = 0.0;
            file.GetItem(L"S", ProjectionRecord::Key(index), value);
            values.push_back(value);
        }
        return values;
    }

    MainDirectory m_main{MainDirectory::Delivered()};
    RDProjection m_projection;
};

// Loading.

TEST_F(RDProjectionTest, ASectionWithoutKeysLoadsTheDefaults)
{
    ASSERT_TRUE(Load(ProjectionRecord()));
    EXPECT_EQ(m_projection.GetType(), 2);
    EXPECT_EQ(m_projection.GetStatus(), 0);
    EXPECT_EQ(m_projection.GetName(), L"Prj-Test");
    EXPECT_EQ(Saved(), (std::vector<double>{52.156160556, 5.387638889, 155000.0, 463000.0, 0.9999079}));
}

TEST_F(RDProjectionTest, EachKeyIsOptional)
{
    const double own[] = {52.0, 5.0, 1000.0, 2000.0, 0.9};
    const double defaults[] = {52.156160556, 5.387638889, 155000.0, 463000.0, 0.9999079};
    for (int missing = 0; missing < 5; ++missing) {
        ProjectionRecord record({{3, 52.0}, {4, 5.0}, {5, 1000.0}, {6, 2000.0}, {7, 0.9}});
        record.Remove(missing + 3);
        ASSERT_TRUE(Load(record)) << missing;
        std::vector<double> expected(own, own + 5);
        expected[static_cast<std::size_t>(missing)] = defaults[missing];
        EXPECT_EQ(Saved(), expected) << missing;
    }
}

TEST_F(RDProjectionTest, AnEarlierLoadLeavesNothingBehind)
{
    ASSERT_TRUE(Load(About(10.0, 20.0, 0.5)));
    ASSERT_TRUE(Load(ProjectionRecord()));
    EXPECT_EQ(Saved()[4], 0.9999079);
    EXPECT_EQ(Saved()[0], 52.156160556);
}

TEST_F(RDProjectionTest, AKeyThatIsNoNumberLeavesItsDefault)
{
    ProjectionRecord record = Published();
    record.Set(ProjectionKey::scaleFactor, CString(L"none"));
    ASSERT_TRUE(Load(record));
    EXPECT_EQ(Saved()[4], 0.9999079);
}

TEST_F(RDProjectionTest, FailsWithoutTheSectionAndChangesNothing)
{
    ASSERT_TRUE(Load(About(10.0, 20.0)));
    ProjectionRecord record = Published();
    EXPECT_FALSE(m_projection.LoadParameters(record.file, L"Prj-Other"));
    EXPECT_EQ(Saved()[0], 10.0);
    EXPECT_EQ(m_projection.GetName(), L"Prj-Test");
}

TEST_F(RDProjectionTest, LoadsThoughTheCatalogueDoesNotKnowTheType)
{
    const MainDirectory nowhere(L"");
    EXPECT_TRUE(Load(Published()));
    EXPECT_EQ(m_projection.GetConstantsSize(), 0);
    EXPECT_NEAR(ToGrid(m_projection, 53.0, 6.0).easting, 196105.283, 1e-3);
}

TEST_F(RDProjectionTest, SizesTheConstantsWithTheCatalogue)
{
    ASSERT_TRUE(Load(Published()));
    EXPECT_EQ(m_projection.GetConstantsSize(), 5);
}

TEST_F(RDProjectionTest, RefusesNoScaleFactor)
{
    const ScriptedDesk desk;
    EXPECT_TRUE(Load(About(52.0, 5.0, 0.1)));
    EXPECT_EQ(m_projection.GetStatus(), 0);
    EXPECT_TRUE(desk.messages.empty());
}

TEST_F(RDProjectionTest, FailsOnAnUnusableEllipsoidAlone)
{
    RDProjection projection;
    ProjectionRecord record = Published();
    EXPECT_FALSE(projection.LoadParameters(record.file, record.section));
    EXPECT_EQ(projection.GetStatus(), 1);
    EXPECT_EQ(projection.InitConstants(), 1U);
    EXPECT_EQ(projection.GetConstantsSize(), 5);
}

// Saving and showing.

TEST_F(RDProjectionTest, SavesItsParametersInOrder)
{
    ASSERT_TRUE(Load(ProjectionRecord()));
    FileObject file;
    EXPECT_TRUE(m_projection.SaveParameters(file, L"S"));
    std::vector<CString> expected;
    for (const int index : {3, 4, 5, 6, 7, 1}) {
        expected.push_back(ProjectionRecord::Key(index));
    }
    EXPECT_EQ(KeysOf(file, L"S"), expected);
    int type = -1;
    EXPECT_TRUE(file.GetItem(L"S", ProjectionRecord::Key(1), type));
    EXPECT_EQ(type, 2);
}

TEST_F(RDProjectionTest, WritesItsParametersAsXml)
{
    ASSERT_TRUE(Load(Published()));
    std::wostringstream stream;
    m_projection.DumpXml(stream, L" ");
    EXPECT_EQ(stream.str(), L" <projection>\n"
                            L"   <name>Prj-Test</name>\n"
                            L"   <type>RD</type>\n"
                            L"   <latitude_origin>52°09&apos;22.1780000&quot;N</latitude_origin>\n"
                            L"   <longitude_origin>005°23&apos;15.5000000&quot;E</longitude_origin>\n"
                            L"   <false_easting>155000.000</false_easting>\n"
                            L"   <false_northing>463000.000</false_northing>\n"
                            L"   <scale_factor>0.999908</scale_factor>\n"
                            L" </projection>\n");
}

TEST_F(RDProjectionTest, HandsOutNoConstants)
{
    CArray<double, double> values;
    CStringArray names;
    CStringArray texts;
    CArray<UINT, UINT> kinds;
    values.Add(7.0);
    names.Add(L"before");
    texts.Add(L"before");
    kinds.Add(3U);
    ASSERT_TRUE(Load(Published()));
    EXPECT_TRUE(m_projection.GetProjectionConstants(values, names, texts, kinds));
    EXPECT_EQ((std::vector<double>{values.begin(), values.end()}), std::vector<double>{7.0});
    EXPECT_EQ((std::vector<CString>{names.begin(), names.end()}), std::vector<CString>{L"before"});
    EXPECT_EQ((std::vector<CString>{texts.begin(), texts.end()}), std::vector<CString>{L"before"});
    EXPECT_EQ((std::vector<UINT>{kinds.begin(), kinds.end()}), std::vector<UINT>{3U});
    m_projection.SetEllipsoid(1.0, 0.0);
    m_projection.InitConstants();
    EXPECT_FALSE(m_projection.GetProjectionConstants(values, names, texts, kinds)) << "the status is not 0";
    EXPECT_EQ(values.GetSize(), 1);
}

TEST_F(RDProjectionTest, HasNoGeoKeys)
{
    ASSERT_TRUE(Load(Published()));
    std::list<std::pair<int, short>> codes{{1, 1}};
    std::list<std::pair<int, double>> parameters{{2, 2.0}};
    m_projection.GetGeoKeys(codes, parameters);
    EXPECT_EQ(codes.size(), 1U);
    EXPECT_EQ(parameters.size(), 1U);
}

// Positions. The expected numbers are the formulas in 40 digits.

TEST_F(RDProjectionTest, ForwardAndInverseAreThoseOfTheSource)
{
    ASSERT_TRUE(Load(Published()));
    const GridPosition grid = ToGrid(m_projection, 53.0, 6.0);
    EXPECT_NEAR(grid.easting, 196105.282992458426, 1e-8);
    EXPECT_NEAR(grid.northing, 557057.739388399529, 1e-8);
    ASSERT_TRUE(Load(ProjectionRecord()));
    const GridPosition defaults = ToGrid(m_projection, 53.0, 6.0);
    EXPECT_NEAR(defaults.easting, 196105.282984997782, 1e-8);
    EXPECT_NEAR(defaults.northing, 557057.739338891291, 1e-8);
    const GeoPosition geo = ToGeo(m_projection, 100000.0, 400000.0);
    EXPECT_NEAR(geo.latitude, 51.5871380137813316, 1e-12);
    EXPECT_NEAR(geo.longitude, 4.59391846498084476, 1e-13);
}

TEST_F(RDProjectionTest, MapsTheOriginToTheFalseOriginButForTheLastBits)
{
    for (ProjectionRecord record : {Published(), ProjectionRecord(), About(-33.0, 20.0), About(0.0, 0.0)}) {
        ASSERT_TRUE(Load(record));
        const std::vector<double> p = Saved();
        const GridPosition grid = ToGrid(m_projection, p[0], p[1]);
        EXPECT_NEAR(grid.easting, p[2], 5e-9);
        EXPECT_NEAR(grid.northing, p[3], 5e-9);
    }
}

// On the sphere about (0, 0) the latitude of the sphere is found to the bit.
TEST_F(RDProjectionTest, TheExactOriginIsTheFalseOriginExactly)
{
    ProjectionRecord record({{3, 0.0}, {4, 0.0}, {5, 0.1}, {6, 0.2}, {7, 1.0}});
    const auto projection = Loaded(kType, kSphere, record);
    const GridPosition grid = ToGrid(*projection, 0.0, 0.0);
    EXPECT_EQ(grid.easting, 0.1);
    EXPECT_EQ(grid.northing, 0.2);
}

TEST_F(RDProjectionTest, LeavesTheOutputsAloneAtTheAntipode)
{
    const auto projection = Loaded(kType, kSphere, About(0.0, 0.0));
    GridPosition grid{12.0, 34.0};
    projection->GeoToGrid(0.0, 180.0, grid.easting, grid.northing);
    EXPECT_EQ(grid.easting, 12.0);
    EXPECT_EQ(grid.northing, 34.0);
    projection->GeoToGrid(0.0, 179.0, grid.easting, grid.northing);
    EXPECT_GT(grid.easting, 1e8);
}

// Kept: the meridian opposite is taken at 180 degrees less the longitude of origin, so that the point
// really opposite to an origin beside Greenwich gets coordinates.
TEST_F(RDProjectionTest, TakesTheAntipodeOnTheMeridianOf180LessTheOrigin)
{
    const auto projection = Loaded(kType, kSphere, About(0.0, 20.0));
    GridPosition grid{12.0, 34.0};
    projection->GeoToGrid(0.0, 160.0, grid.easting, grid.northing);
    EXPECT_EQ(grid.easting, 12.0);
    EXPECT_EQ(grid.northing, 34.0);
    projection->GeoToGrid(0.0, 200.0, grid.easting, grid.northing);
    EXPECT_NE(grid.easting, 12.0);
}

// b = -90 degrees at the south pole: worked out in Python from the steps.
TEST_F(RDProjectionTest, SouthPoleHasAPlace)
{
    ASSERT_TRUE(Load(ProjectionRecord()));
    const GridPosition grid = ToGrid(m_projection, -90.0, 10.0);
    EXPECT_NEAR(grid.easting, 155000.0, 1e-3);
    EXPECT_NEAR(grid.northing, -36734327.960, 1e-2);
}

// Kept: at the false origin the azimuth is 0 / 0.
TEST_F(RDProjectionTest, TheFalseOriginHasTheLongitudeOfOriginAndNoLatitude)
{
    ASSERT_TRUE(Load(ProjectionRecord()));
    const GeoPosition geo = ToGeo(m_projection, 155000.0, 463000.0);
    EXPECT_TRUE(std::isnan(geo.latitude));
    EXPECT_EQ(geo.longitude, 5.387638889);
    EXPECT_TRUE(std::isnan(ConvergenceAt(m_projection, 155000.0, 463000.0)));
    const GeoPosition near = ToGeo(m_projection, 155000.0, 463000.000001);
    EXPECT_NEAR(near.latitude, 52.156160556, 1e-10);
}

TEST_F(RDProjectionTest, OnTheMeridianOfOriginTheLongitudeIsExact)
{
    ASSERT_TRUE(Load(ProjectionRecord()));
    EXPECT_EQ(ToGeo(m_projection, 155000.0, 600000.0).longitude, 5.387638889);
}

// Kept: longitudes on the sphere are n times those on the ellipsoid, and n is not 1.
TEST_F(RDProjectionTest, DoesNotFoldTheLongitude)
{
    ASSERT_TRUE(Load(Published()));
    const GridPosition once = ToGrid(m_projection, 52.0, 6.0);
    const GridPosition around = ToGrid(m_projection, 52.0, 366.0);
    const double n =
        std::sqrt(1.0 + kBessel.e2 * std::pow(std::cos(52.15616055555556 * D_TO_R), 4) / (1.0 - kBessel.e2));
    const GridPosition shifted = ToGrid(m_projection, 52.0, 366.0 - 360.0 / n);
    EXPECT_NEAR(around.easting, shifted.easting, 1e-6);
    EXPECT_NEAR(around.northing, shifted.northing, 1e-6);
    EXPECT_GT(std::fabs(around.easting - once.easting), 10000.0);
}

// Kept: the test is on the longitude on the sphere, from Greenwich; beyond it the latitude is that longitude.
TEST_F(RDProjectionTest, FromASphericalLongitudeOf90OnTheLatitudeIsThatLongitude)
{
    const auto projection = Loaded(kType, kBessel, About(40.0, 85.0));
    const GridPosition inside = ToGrid(*projection, 42.0, 89.9);
    EXPECT_NEAR(ToGeo(*projection, inside.easting, inside.northing).latitude, 42.0, 1e-11);
    const GridPosition outside = ToGrid(*projection, 42.0, 95.0);
    const GeoPosition geo = ToGeo(*projection, outside.easting, outside.northing);
    const double n = std::sqrt(1.0 + kBessel.e2 * std::pow(std::cos(40.0 * D_TO_R), 4) / (1.0 - kBessel.e2));
    EXPECT_NEAR(geo.longitude, 95.0, 1e-11);
    EXPECT_NEAR(geo.latitude, 85.0 + n * 10.0, 1e-11);
    const auto west = Loaded(kType, kBessel, About(40.0, -85.0));
    const GridPosition beyond = ToGrid(*west, 42.0, -95.0);
    EXPECT_NEAR(ToGeo(*west, beyond.easting, beyond.northing).latitude, -85.0 - n * 10.0, 1e-11);
}

// An ellipsoid far from the earth's, where the fixed point is slow: what stands after twenty passes comes
// out.
TEST_F(RDProjectionTest, StopsAfterTwentyPasses)
{
    constexpr double kE2 = 0.95;
    const auto projection = Loaded(kType, {6378137.0, kE2}, About(40.0, 0.0));
    plain::RD plain;
    plain.a = 6378137.0;
    plain.e2 = kE2;
    plain.lat0 = 40.0;
    plain.lon0 = 0.0;
    plain.falseEasting = plain.falseNorthing = 0.0;
    plain.k0 = 1.0;
    plain.Prepare();
    const double easting = 400000.0;
    const double northing = -1500000.0;
    const double twenty = static_cast<double>(plain.GridToGeo(easting, northing).latitude);
    ASSERT_EQ(plain.Passes(), 21) << "it does not settle";
    EXPECT_NEAR(ToGeo(*projection, easting, northing).latitude, twenty, 1e-11);
    plain.maxPasses = 19;
    EXPECT_GT(std::fabs(static_cast<double>(plain.GridToGeo(easting, northing).latitude) - twenty), 1e-7);
    plain.maxPasses = 21;
    EXPECT_GT(std::fabs(static_cast<double>(plain.GridToGeo(easting, northing).latitude) - twenty), 1e-7);
}

TEST_F(RDProjectionTest, GivesNoNumberForNoNumber)
{
    ASSERT_TRUE(Load(Published()));
    for (const double bad : {kNaN, kInfinity, -kInfinity}) {
        EXPECT_TRUE(std::isnan(ToGrid(m_projection, bad, 6.0).northing)) << bad;
        EXPECT_TRUE(std::isnan(ToGrid(m_projection, 52.0, bad).easting)) << bad;
        EXPECT_TRUE(std::isnan(ToGeo(m_projection, bad, 500000.0).latitude)) << bad;
        EXPECT_TRUE(std::isnan(ToGeo(m_projection, bad, 500000.0).longitude)) << bad;
        EXPECT_TRUE(std::isnan(ToGeo(m_projection, 200000.0, bad).latitude)) << bad;
    }
    EXPECT_TRUE(std::isnan(m_projection.PointScaleFactor(kNaN, 0.0)));
    EXPECT_TRUE(std::isnan(m_projection.LineScaleFactor(0.0, 0.0, 0.0, kNaN)));
}

// Kept: without a northing the longitude on the sphere stays 0.
TEST_F(RDProjectionTest, WithoutANorthingTheSphericalLongitudeIs0)
{
    ASSERT_TRUE(Load(Published()));
    const double n =
        std::sqrt(1.0 + kBessel.e2 * std::pow(std::cos(52.15616055555556 * D_TO_R), 4) / (1.0 - kBessel.e2));
    const GeoPosition geo = ToGeo(m_projection, 200000.0, kNaN);
    EXPECT_TRUE(std::isnan(geo.latitude));
    EXPECT_NEAR(geo.longitude, 5.387638888888889 * (1.0 - 1.0 / n), 1e-13);
}

// Convergence and scale.

TEST_F(RDProjectionTest, ConvergenceIsNegativeEastOfTheOriginInTheNorth)
{
    ASSERT_TRUE(Load(About(30.0, 60.0)));
    GridPosition grid = ToGrid(m_projection, 30.0, 58.0);
    EXPECT_NEAR(ConvergenceAt(m_projection, grid.easting, grid.northing), 1.0, 1e-9);
    ASSERT_TRUE(Load(About(30.0, 0.0)));
    grid = ToGrid(m_projection, 30.0, 2.0);
    EXPECT_NEAR(ConvergenceAt(m_projection, grid.easting, grid.northing), -1.0, 1e-9);
    ASSERT_TRUE(Load(About(-30.0, 0.0)));
    grid = ToGrid(m_projection, -30.0, 2.0);
    EXPECT_NEAR(ConvergenceAt(m_projection, grid.easting, grid.northing), 1.0, 1e-9);
}

TEST_F(RDProjectionTest, PointScaleFactorHasItsFixedNumbers)
{
    ASSERT_TRUE(Load(ProjectionRecord()));
    EXPECT_EQ(m_projection.PointScaleFactor(155000.0, 463000.0), 0.9999079);
    EXPECT_DOUBLE_EQ(m_projection.PointScaleFactor(255000.0, 463000.0), 0.9999079 + 10000.0 / 1.63e8);
    EXPECT_DOUBLE_EQ(m_projection.PointScaleFactor(155000.0, 363000.0), 0.9999079 + 10000.0 / 1.63e8);
    EXPECT_DOUBLE_EQ(m_projection.PointScaleFactor(215000.0, 543000.0), 0.9999079 + 10000.0 / 1.63e8);
    double stored = 0.0;
    m_projection.PointScaleFactor(255000.0, 463000.0, stored);
    EXPECT_EQ(stored, m_projection.PointScaleFactor(255000.0, 463000.0));
}

TEST_F(RDProjectionTest, TheScaleFactorOfTheRecordAndTheUnitDoNotEnterTheScaleRules)
{
    const LinearUnit foot(0.3048);
    ASSERT_TRUE(Load(About(10.0, 10.0, 0.5)));
    EXPECT_EQ(m_projection.PointScaleFactor(0.0, 0.0), 0.9999079);
    EXPECT_DOUBLE_EQ(m_projection.PointScaleFactor(0.0, 100000.0), 0.9999079 + 10000.0 / 1.63e8);
    EXPECT_DOUBLE_EQ(m_projection.LineScaleFactor(0.0, 0.0, 0.0, 0.0), 0.9999079);
}

TEST_F(RDProjectionTest, LineScaleFactorIsSimpsonsRuleOverReciprocals)
{
    ASSERT_TRUE(Load(ProjectionRecord()));
    const double k1 = 0.9999079 + 4e6 / 1.63e8; // 2000 km, 1000 km and 0 from the origin
    const double km = 0.9999079 + 1e6 / 1.63e8;
    const double k2 = 0.9999079;
    const double line = m_projection.LineScaleFactor(2155000.0, 463000.0, 155000.0, 463000.0);
    EXPECT_NEAR(line, 6.0 / (1.0 / k1 + 4.0 / km + 1.0 / k2), 1e-15);
    EXPECT_GT(std::fabs(line - (k1 + 4.0 * km + k2) / 6.0), 1e-6);
    double stored = 0.0;
    m_projection.LineScaleFactor(2155000.0, 463000.0, 155000.0, 463000.0, stored);
    EXPECT_EQ(stored, line);
}

} // namespace
