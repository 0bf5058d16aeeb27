#include "projections/HOMAProjection.h"

#include <gtest/gtest.h>

#include <geodesic.h>

#include <cmath>
#include <limits>
#include <sstream>

#include "tests/support/GridPositions.h"
#include "tests/support/ProjectionRecord.h"

namespace {

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kInfinity = std::numeric_limits<double>::infinity();

constexpr std::uint32_t kType = 9;

// NAD83 / Alaska zone 1.
ProjectionRecord Alaska()
{
    return ProjectionRecord({{3, 57.0},
                             {4, -133.66666666666667},
                             {5, 5000000.0},
                             {6, -5000000.0},
                             {7, 0.9999},
                             {22, 323.13010236111111},
                             {17, 323.13010236111111}});
}

// A line through the equator, where rounding makes D less than 1 on Clarke 1866.
ProjectionRecord OnTheEquator()
{
    return ProjectionRecord({{3, 0.0}, {4, 10.0}, {5, 500000.0}, {6, 0.0}, {7, 0.9996}, {22, 30.0}, {17, 30.0}});
}

class HOMAProjectionTest : public testing::Test {
protected:
    HOMAProjectionTest() { m_projection.SetEllipsoid(kGrs80.a, kGrs80.e2); }
    bool Load(ProjectionRecord record) { return m_projection.LoadParameters(record.file, record.section); }

    MainDirectory m_main{MainDirectory::Delivered()};
    HOMAProjection m_projection;
};

// Loading, saving, showing.

TEST_F(HOMAProjectionTest, LoadsAndListsItsParameters)
{
    EXPECT_TRUE(Load(Alaska()));
    EXPECT_EQ(m_projection.GetType(), 9);
    EXPECT_EQ(m_projection.GetStatus(), 0);
    EXPECT_EQ(m_projection.GetName(), L"Prj-Test");
    const ConstantsOf constants(m_projection);
    EXPECT_EQ(constants.values, (std::vector<double>{-133.66666666666667, 57.0, 5000000.0, -5000000.0, 0.9999,
                                                     323.13010236111111, 323.13010236111111}));
    EXPECT_EQ(constants.names,
              (std::vector<CString>{L"Longitude of Origin", L"Latitude of Origin", L"False Easting", L"False Northing",
                                    L"Scale Factor at the Central Meridian", L"Azimuth of Initial Line",
                                    L"Angle from Rectified to Skew Grid"}));
    EXPECT_EQ(constants.texts, (std::vector<CString>{L"133°40'00.0000000\"W", L"57°00'00.0000000\"N", L"5000000",
                                                     L"-5000000", L"0.99990", L"323.130102", L"323.130102"}));
    EXPECT_EQ(constants.kinds, (std::vector<UINT>{1, 2, 3, 3, 4, 5, 5}));
}

TEST_F(HOMAProjectionTest, NeedsEachKey)
{
    for (const int index : {3, 4, 5, 6, 7, 22, 17}) {
        ProjectionRecord record = Alaska();
        record.Remove(index);
        HOMAProjection projection;
        projection.SetEllipsoid(kGrs80.a, kGrs80.e2);
        EXPECT_FALSE(projection.LoadParameters(record.file, record.section)) << index;
        EXPECT_EQ(ConstantsOf(projection).values[5], index == 17 ? 0.0 : 323.13010236111111)
            << "what stands behind the missing key is read and listed";
    }
    ProjectionRecord record = Alaska();
    EXPECT_FALSE(m_projection.LoadParameters(record.file, L"Prj-Other"));
    EXPECT_TRUE(m_projection.GetName().IsEmpty());
}

// Kept: the status does not tell of the refusal.
TEST_F(HOMAProjectionTest, RefusesABadEllipsoidWithStatus0)
{
    HOMAProjection without;
    ProjectionRecord record = Alaska();
    EXPECT_FALSE(without.LoadParameters(record.file, record.section));
    EXPECT_EQ(without.InitConstants(), 1U);
    EXPECT_EQ(without.GetStatus(), 0);
    EXPECT_EQ(ConstantsOf(without).values[4], 0.9999) << "the constants are complete";
    m_projection.SetEllipsoid(1000.0, 0.0);
    EXPECT_EQ(m_projection.InitConstants(), 1U);
    EXPECT_EQ(m_projection.GetStatus(), 0);
}

TEST_F(HOMAProjectionTest, RefusesAnAxisBelow6000000SystemUnits)
{
    struct Row {
        double unit;
        bool loads;
    };
    const double bound = kGrs80.a / 6000000.0;
    const Row rows[] = {{1.0, true},
                        {0.3048, true},
                        {bound * (1.0 - 1e-15), true},
                        {bound * (1.0 + 1e-12), false},
                        {20.1167651215526, false},
                        {1000.0, false}};
    for (const Row& row : rows) {
        const LinearUnit unit(row.unit);
        EXPECT_EQ(Load(Alaska()), row.loads) << row.unit;
        EXPECT_EQ(m_projection.InitConstants(), row.loads ? 0U : 1U) << row.unit;
        EXPECT_EQ(m_projection.GetStatus(), 0) << row.unit;
    }
}

TEST_F(HOMAProjectionTest, SavesInLoadingOrderThenTheType)
{
    ProjectionRecord record({{3, 1.0}, {4, 2.0}, {5, 3.0}, {6, 4.0}, {7, 5.0}, {22, 6.0}, {17, 7.0}});
    ASSERT_TRUE(Load(record));
    FileObject file;
    EXPECT_TRUE(m_projection.SaveParameters(file, L"S"));
    std::vector<CString> expected;
    double value = 1.0;
    for (const int index : {3, 4, 5, 6, 7, 22, 17}) {
        expected.push_back(ProjectionRecord::Key(index));
        double read = 0.0;
        EXPECT_TRUE(file.GetItem(L"S", ProjectionRecord::Key(index), read));
        EXPECT_EQ(read, value++) << index;
    }
    expected.push_back(ProjectionRecord::Key(1));
    EXPECT_EQ(KeysOf(file, L"S"), expected);
    int type = 0;
    EXPECT_TRUE(file.GetItem(L"S", ProjectionRecord::Key(1), type));
    EXPECT_EQ(type, 9);
}

TEST_F(HOMAProjectionTest, WritesTheScaleFactorUnderTheNameOfTheSkew)
{
    ASSERT_TRUE(Load(Alaska()));
    std::wostringstream stream;
    m_projection.DumpXml(stream, L" ");
    EXPECT_EQ(stream.str(), L" <projection>\n"
                            L"   <name>Prj-Test</name>\n"
                            L"   <type>Hotine Oblique Mercator(A)</type>\n"
                            L"   <latitude_origin>57°00&apos;00.0000000&quot;N</latitude_origin>\n"
                            L"   <longitude_origin>133°40&apos;00.0000000&quot;W</longitude_origin>\n"
                            L"   <false_easting>5000000.000</false_easting>\n"
                            L"   <false_northing>-5000000.000</false_northing>\n"
                            L"   <scale_factor>0.999900</scale_factor>\n"
                            L"   <initial_azimuth>323.130102</initial_azimuth>\n"
                            L"   <grid_skew>0.999900</grid_skew>\n"
                            L" </projection>\n");
}

TEST_F(HOMAProjectionTest, GivesGeoKey3094Twice)
{
    ASSERT_TRUE(Load(ProjectionRecord({{3, 1.0}, {4, 2.0}, {5, 3.0}, {6, 4.0}, {7, 5.0}, {22, 6.0}, {17, 7.0}})));
    std::list<std::pair<int, short>> codes;
    std::list<std::pair<int, double>> parameters;
    m_projection.GetGeoKeys(codes, parameters);
    EXPECT_EQ(codes, (std::list<std::pair<int, short>>{{3072, 32767}, {3074, 32767}, {3075, 3}}));
    EXPECT_EQ(parameters,
              (std::list<std::pair<int, double>>{
                  {3082, 3.0}, {3083, 4.0}, {3093, 5.0}, {3088, 2.0}, {3081, 1.0}, {3094, 7.0}, {3094, 6.0}}));
}

// Positions. The expected numbers are the formulas evaluated with 40 digits.

TEST_F(HOMAProjectionTest, ForwardIsThatOf40Digits)
{
    ASSERT_TRUE(Load(Alaska()));
    const GridPosition at = ToGrid(m_projection, 60.0, -140.0);
    EXPECT_NEAR(at.easting, 465718.01075677013, 1e-8);
    EXPECT_NEAR(at.northing, 925846.59744285521, 1e-8);
}

// Kept: 2.718281828 in the inverse; 2000 km from the initial line, where it shows.
TEST_F(HOMAProjectionTest, KeepsTheShortValueOfEInTheInverse)
{
    ASSERT_TRUE(Load(Alaska()));
    GeoPosition at = ToGeo(m_projection, 10500000.0, -9000000.0);
    EXPECT_NEAR(at.latitude, -42.213614202838598, 2e-13) << "with e: ...200690596";
    EXPECT_NEAR(at.longitude, -53.734983601586525, 2e-13) << "with e: ...599004891";
    at = ToGeo(m_projection, 7240000.0, -11320000.0);
    EXPECT_NEAR(at.latitude, -59.378633330059592, 2e-13) << "with e: ...330450709";
    EXPECT_NEAR(at.longitude, -104.19940905009316, 3e-13) << "with e: ...05566011";
}

TEST_F(HOMAProjectionTest, TakesADBelow1For1)
{
    const auto projection = Loaded(kType, kClarke1866, OnTheEquator());
    const GridPosition at = ToGrid(*projection, 3.0, 12.0);
    EXPECT_NEAR(at.easting, 722336.34426861815, 1e-8);
    EXPECT_NEAR(at.northing, 331650.53300755736, 1e-8);
    // The natural origin is the centre.
    const GridPosition centre = ToGrid(*projection, 0.0, 10.0);
    EXPECT_NEAR(centre.easting, 500000.0, 1e-8);
    EXPECT_NEAR(centre.northing, 0.0, 1e-8);
}

TEST_F(HOMAProjectionTest, DoesNotFold)
{
    ASSERT_TRUE(Load(Alaska()));
    // B is not 1: a longitude a turn away is another place of the aposphere.
    const GridPosition near = ToGrid(m_projection, 60.0, -140.0);
    const GridPosition turned = ToGrid(m_projection, 60.0, 220.0);
    EXPECT_GT(std::fabs(near.easting - turned.easting), 1000.0);
    ProjectionRecord record = Alaska();
    record.Set(ProjectionKey::lonOrigin, 226.33333333333333);
    const auto projection = Loaded(kType, kGrs80, record);
    EXPECT_NEAR(ToGeo(*projection, near.easting, near.northing).longitude, 220.0, 1e-9);
    EXPECT_TRUE(std::isnan(ToGrid(m_projection, 91.0, -140.0).easting));
}

TEST_F(HOMAProjectionTest, GivesNoNumberForNoNumber)
{
    ASSERT_TRUE(Load(Alaska()));
    for (const double bad : {kNaN, kInfinity, -kInfinity}) {
        EXPECT_TRUE(std::isnan(ToGrid(m_projection, bad, -140.0).northing)) << bad;
        EXPECT_TRUE(std::isnan(ToGrid(m_projection, 60.0, bad).easting)) << bad;
        EXPECT_TRUE(std::isnan(ToGeo(m_projection, bad, 0.0).longitude)) << bad;
        EXPECT_TRUE(std::isnan(ToGeo(m_projection, 0.0, bad).latitude)) << bad;
        EXPECT_TRUE(std::isnan(m_projection.PointScaleFactor(bad, 0.0))) << bad;
        EXPECT_TRUE(std::isnan(m_projection.LineScaleFactor(0.0, 0.0, 0.0, bad))) << bad;
        EXPECT_TRUE(std::isnan(ConvergenceAt(m_projection, 0.0, bad))) << bad;
    }
    const HOMAProjection unloaded;
    EXPECT_TRUE(std::isnan(ToGrid(unloaded, 1.0, 1.0).easting));
    EXPECT_TRUE(std::isnan(ToGeo(unloaded, 1.0, 1.0).latitude));
}

TEST_F(HOMAProjectionTest, KeepsTheAxisInTheUnitOfTheLoad)
{
    ASSERT_TRUE(Load(Alaska()));
    const GridPosition before = ToGrid(m_projection, 58.0, -135.0);
    const double k = m_projection.PointScaleFactor(before.easting, before.northing);
    const LinearUnit foot(0.3048);
    const GridPosition after = ToGrid(m_projection, 58.0, -135.0);
    EXPECT_EQ(after.easting, before.easting);
    EXPECT_EQ(m_projection.PointScaleFactor(before.easting, before.northing), k);
}

// Convergence and scale.

// Kept: ln Ec with a plus; the angle of the grid is 5.428314563985930 at the first point. A minus
// alone gives 298.08, a minus and t with the power of the quotient 298.08 too.
TEST_F(HOMAProjectionTest, KeepsThePlusInTheConvergence)
{
    ASSERT_TRUE(Load(Alaska()));
    GridPosition at = ToGrid(m_projection, 60.0, -140.0);
    EXPECT_NEAR(ConvergenceAt(m_projection, at.easting, at.northing), 365.42590931439448, 1e-10);
    at = ToGrid(m_projection, 55.0, -131.0);
    EXPECT_NEAR(ConvergenceAt(m_projection, at.easting, at.northing), 357.78955636284758, 1e-10);
}

// Kept: t = Ec / r^(1/B). With (Ec / r)^(1/B) the convergence is 359.44225441044618.
TEST_F(HOMAProjectionTest, RaisesToThePowerBeforeItDivides)
{
    ASSERT_TRUE(Load(Alaska()));
    const GridPosition at = ToGrid(m_projection, 57.0, -133.0);
    EXPECT_NEAR(ConvergenceAt(m_projection, at.easting, at.northing), 359.44225448446794, 1e-10);
}

// Kept: the skew angle is taken off as it stands: 323 degrees give convergences near 360.
TEST_F(HOMAProjectionTest, DoesNotFoldTheConvergence)
{
    ASSERT_TRUE(Load(Alaska()));
    const GridPosition at = ToGrid(m_projection, 57.0, -133.66666666666667);
    EXPECT_NEAR(ConvergenceAt(m_projection, at.easting, at.northing), 360.0, 0.1);
}

TEST_F(HOMAProjectionTest, ScaleFactorsAreThoseOf40Digits)
{
    ASSERT_TRUE(Load(Alaska()));
    const GridPosition at = ToGrid(m_projection, 60.0, -140.0);
    EXPECT_NEAR(m_projection.PointScaleFactor(at.easting, at.northing), 0.99996310801486667, 1e-12);
    const GridPosition centre = ToGrid(m_projection, 57.0, -133.66666666666667);
    EXPECT_NEAR(m_projection.PointScaleFactor(centre.easting, centre.northing), 0.9999, 1e-10) << "k0 at the centre";
    double factor = 0.0;
    m_projection.PointScaleFactor(at.easting, at.northing, factor);
    EXPECT_EQ(factor, m_projection.PointScaleFactor(at.easting, at.northing));
}

TEST_F(HOMAProjectionTest, LineScaleIsGridOverGeodesicDistance)
{
    ASSERT_TRUE(Load(Alaska()));
    geod_geodesic ellipsoid;
    geod_init(&ellipsoid, 6378137.0, 1.0 / 298.257222101);
    struct Row {
        double lat1, lon1, lat2, lon2;
    };
    for (const Row& row :
         {Row{57.0, -134.0, 57.2, -133.5}, Row{59.0, -138.0, 59.4, -138.0}, Row{55.0, -131.0, 55.0, -130.2}}) {
        const GridPosition p = ToGrid(m_projection, row.lat1, row.lon1);
        const GridPosition q = ToGrid(m_projection, row.lat2, row.lon2);
        double geodesic = 0.0;
        geod_inverse(&ellipsoid, row.lat1, row.lon1, row.lat2, row.lon2, &geodesic, nullptr, nullptr);
        const double ratio = std::hypot(q.easting - p.easting, q.northing - p.northing) / geodesic;
        EXPECT_NEAR(m_projection.LineScaleFactor(p.easting, p.northing, q.easting, q.northing), ratio, 5e-9);
        double factor = 0.0;
        m_projection.LineScaleFactor(p.easting, p.northing, q.easting, q.northing, factor);
        EXPECT_EQ(factor, m_projection.LineScaleFactor(p.easting, p.northing, q.easting, q.northing));
    }
}

} // namespace
