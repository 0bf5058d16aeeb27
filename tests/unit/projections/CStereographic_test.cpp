#include "projections/CStereographic.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <sstream>

#include "tests/support/GridPositions.h"
#include "tests/support/ModuleTexts.h"
#include "tests/support/PlainStereographic.h"
#include "tests/support/ProjectionRecord.h"
#include "tests/support/ScriptedDesk.h"

namespace {

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kInfinity = std::numeric_limits<double>::infinity();

constexpr std::uint32_t kType = 7;
constexpr EllipsoidShape kKrassowsky{6378245.0, 0.0066934216229659432};
constexpr EllipsoidShape kBessel{6377397.155, 0.0066743722318021447};

// Stereo 70 of Romania.
ProjectionRecord Stereo70(double k0 = 0.99975)
{
    return ProjectionRecord({{3, 46.0}, {4, 25.0}, {5, 500000.0}, {6, 500000.0}, {7, k0}});
}

// Amersfoort / RD New.
ProjectionRecord Dutch(double k0 = 0.9999079)
{
    return ProjectionRecord({{3, 52.156160555555556}, {4, 5.3876388888888889}, {5, 155000.0}, {6, 463000.0}, {7, k0}});
}

ProjectionRecord About(double latitude, double longitude)
{
    return ProjectionRecord({{3, latitude}, {4, longitude}, {5, 0.0}, {6, 0.0}, {7, 1.0}});
}

class CStereographicTest : public testing::Test {
protected:
    CStereographicTest() { m_projection.SetEllipsoid(kKrassowsky.a, kKrassowsky.e2); }
    bool Load(ProjectionRecord record) { return m_projection.LoadParameters(record.file, record.section); }

    MainDirectory m_main{MainDirectory::Delivered()};
    ScriptedDesk m_desk;
    CStereographic m_projection;
};

// Loading.

TEST_F(CStereographicTest, LoadsAndListsItsParameters)
{
    EXPECT_TRUE(Load(Stereo70()));
    EXPECT_EQ(m_projection.GetType(), 7);
    EXPECT_EQ(m_projection.GetStatus(), 0);
    EXPECT_EQ(m_projection.GetName(), L"Prj-Test");
    const ConstantsOf constants(m_projection);
    EXPECT_EQ(constants.values, (std::vector<double>{25.0, 46.0, 500000.0, 500000.0, 0.99975}));
    EXPECT_EQ(constants.names, (std::vector<CString>{L"Longitude of Origin", L"Latitude of Origin", L"False Easting",
                                                     L"False Northing", L"Scale Factor at the Central Meridian"}));
    EXPECT_EQ(constants.texts, (std::vector<CString>{L"025°00'00.0000000\"E", L"46°00'00.0000000\"N", L"500000",
                                                     L"500000", L"0.99975"}));
    EXPECT_EQ(constants.kinds, (std::vector<UINT>{1, 2, 3, 3, 4}));
    EXPECT_TRUE(m_desk.messages.empty());
}

TEST_F(CStereographicTest, NeedsEachKey)
{
    for (const int index : {3, 4, 5, 6, 7}) {
        ProjectionRecord record = Stereo70();
        record.Remove(index);
        CStereographic projection;
        projection.SetEllipsoid(kKrassowsky.a, kKrassowsky.e2);
        EXPECT_FALSE(projection.LoadParameters(record.file, record.section)) << index;
        EXPECT_EQ(ConstantsOf(projection).values[4], index == 7 ? 0.0 : 0.99975) << "what stands behind is listed";
    }
    ProjectionRecord record = Stereo70();
    EXPECT_FALSE(m_projection.LoadParameters(record.file, L"Prj-Other"));
    EXPECT_TRUE(m_projection.GetName().IsEmpty());
}

TEST_F(CStereographicTest, WithoutEllipsoidTheLoadFailsWithAllConstants)
{
    CStereographic projection;
    ProjectionRecord record = Stereo70(0.5);
    EXPECT_FALSE(projection.LoadParameters(record.file, record.section));
    EXPECT_EQ(projection.GetStatus(), 1) << "the ellipsoid is asked for before the scale factor";
    EXPECT_EQ(ConstantsOf(projection).values[4], 0.5);
    EXPECT_TRUE(m_desk.messages.empty());
}

TEST_F(CStereographicTest, FailsWhenTheCatalogueDoesNotKnowTheType)
{
    const MainDirectory nowhere(L"");
    EXPECT_FALSE(Load(Stereo70()));
}

TEST_F(CStereographicTest, RefusesASmallScaleFactorWithTheMessageOfCassini)
{
    const ModuleTexts texts;
    for (const double k0 : {0.0, -1.0, std::nextafter(0.8, 0.0)}) {
        m_desk.messages.clear();
        EXPECT_FALSE(Load(Stereo70(k0))) << k0;
        EXPECT_EQ(m_projection.GetStatus(), 2) << k0;
        ASSERT_EQ(m_desk.messages.size(), 1U) << k0;
        EXPECT_EQ(m_desk.messages[0].text, L"Cassini projection scale factor value is smaller than 0.8. The "
                                           L"coordinate system operation is failed.");
        EXPECT_EQ(m_projection.InitConstants(), 2U);
    }
    m_desk.messages.clear();
    for (const double k0 : {0.8, 2.0}) {
        EXPECT_TRUE(Load(Stereo70(k0))) << k0;
        EXPECT_EQ(m_projection.GetStatus(), 0) << k0;
    }
    EXPECT_TRUE(m_desk.messages.empty());
}

TEST_F(CStereographicTest, ShowsAnEmptyMessageWithoutTexts)
{
    EXPECT_FALSE(Load(Stereo70(0.5)));
    ASSERT_EQ(m_desk.messages.size(), 1U);
    EXPECT_TRUE(m_desk.messages[0].text.IsEmpty());
}

// Saving and showing.

TEST_F(CStereographicTest, SavesWhatItLoadedInOrder)
{
    ASSERT_TRUE(Load(Stereo70()));
    FileObject file;
    EXPECT_TRUE(m_projection.SaveParameters(file, L"S"));
    std::vector<CString> expected;
    for (const int index : {3, 4, 5, 6, 7, 1}) {
        expected.push_back(ProjectionRecord::Key(index));
    }
    EXPECT_EQ(KeysOf(file, L"S"), expected);
    double number = 0.0;
    EXPECT_TRUE(file.GetItem(L"S", ProjectionRecord::Key(7), number));
    EXPECT_EQ(number, 0.99975);
    int type = -1;
    EXPECT_TRUE(file.GetItem(L"S", ProjectionRecord::Key(1), type));
    EXPECT_EQ(type, 7);
    CStereographic again;
    again.SetEllipsoid(kKrassowsky.a, kKrassowsky.e2);
    EXPECT_TRUE(again.LoadParameters(file, L"S"));
    EXPECT_EQ(ConstantsOf(again).values, ConstantsOf(m_projection).values);
}

TEST_F(CStereographicTest, WritesItsParametersAsXml)
{
    ASSERT_TRUE(Load(Stereo70()));
    std::wostringstream stream;
    m_projection.DumpXml(stream, L" ");
    EXPECT_EQ(stream.str(), L" <projection>\n"
                            L"   <name>Prj-Test</name>\n"
                            L"   <type>Stereographic</type>\n"
                            L"   <latitude_origin>46°00&apos;00.0000000&quot;N</latitude_origin>\n"
                            L"   <longitude_origin>025°00&apos;00.0000000&quot;E</longitude_origin>\n"
                            L"   <false_easting>500000.000</false_easting>\n"
                            L"   <false_northing>500000.000</false_northing>\n"
                            L"   <scale_factor>0.999750</scale_factor>\n"
                            L" </projection>\n");
}

TEST_F(CStereographicTest, HasGeoKeysOfCode14)
{
    ASSERT_TRUE(Load(Dutch()));
    std::list<std::pair<int, short>> codes{{1, 1}};
    std::list<std::pair<int, double>> parameters;
    m_projection.GetGeoKeys(codes, parameters);
    EXPECT_EQ(codes, (std::list<std::pair<int, short>>{{1, 1}, {3072, 32767}, {3074, 32767}, {3075, 14}}));
    EXPECT_EQ(parameters, (std::list<std::pair<int, double>>{{3082, 155000.0},
                                                             {3083, 463000.0},
                                                             {3093, 0.9999079},
                                                             {3088, 5.3876388888888889},
                                                             {3081, 52.156160555555556}}));
}

// Positions. The expected numbers are the formulas of the guidance note in 40 digits.

TEST_F(CStereographicTest, MapsItsOriginToTheFalseOrigin)
{
    for (ProjectionRecord record : {Stereo70(), Dutch(), About(-30.0, 179.0), About(0.0, 0.0)}) {
        const auto projection = Loaded(kType, kGrs80, record);
        const ConstantsOf constants(*projection);
        const GridPosition grid = ToGrid(*projection, constants.values[1], constants.values[0]);
        EXPECT_EQ(grid.easting, constants.values[2]);
        EXPECT_NEAR(grid.northing, constants.values[3], 5e-9);
        const GeoPosition geo = ToGeo(*projection, constants.values[2], constants.values[3]);
        EXPECT_NEAR(geo.latitude, constants.values[1], 1e-13);
        EXPECT_NEAR(geo.longitude, constants.values[0], 1e-13);
    }
}

TEST_F(CStereographicTest, ForwardIsThatOfTheSource)
{
    const GridPosition romania = ToGrid(*Loaded(kType, kKrassowsky, Stereo70()), 44.5, 28.5);
    EXPECT_NEAR(romania.easting, 778291.733382059007, 1e-8);
    EXPECT_NEAR(romania.northing, 339363.271336265413, 1e-8);
    const GridPosition dutch = ToGrid(*Loaded(kType, kBessel, Dutch()), 53.0, 6.0);
    EXPECT_NEAR(dutch.easting, 196105.282992458433, 1e-8);
    EXPECT_NEAR(dutch.northing, 557057.739388399974, 1e-8);
}

// The source has x tan(j / 2); both numbers differ by far more than the tolerance.
TEST_F(CStereographicTest, KeepsHalfTheTangentOfJInTheInverse)
{
    struct Row {
        EllipsoidShape shape;
        ProjectionRecord record;
        double easting, northing, latitude, longitude, latitudeOfSource;
    };
    const Row rows[] = {
        {kBessel, Dutch(), 255000.0, 463000.0, 52.1471078862237016, 6.84888442770418716, 52.1471088041770904},
        {kKrassowsky, Stereo70(), 800000.0, 350000.0, 44.5867358785079761, 28.7788029827775464, 44.5867707010217833}};
    for (const Row& row : rows) {
        const GeoPosition geo = ToGeo(*Loaded(kType, row.shape, row.record), row.easting, row.northing);
        EXPECT_NEAR(geo.latitude, row.latitude, 1e-13);
        EXPECT_NEAR(geo.longitude, row.longitude, 1e-13);
        EXPECT_GT(std::fabs(geo.latitude - row.latitudeOfSource), 9e-7) << "0.1 m";
    }
}

TEST_F(CStereographicTest, GivesNoNumberAtTheNorthPole)
{
    ASSERT_TRUE(Load(Stereo70()));
    for (const double longitude : {25.0, -40.0}) {
        const GridPosition grid = ToGrid(m_projection, 90.0, longitude);
        EXPECT_TRUE(std::isnan(grid.northing));
        EXPECT_TRUE(std::isnan(grid.easting));
    }
}

// The distance of the far pole on the plane: 2 R k0 tan(pi/4 + chi0/2), with R and chi0 in 40 digits.
TEST_F(CStereographicTest, GivesTheSouthPoleItsPlace)
{
    ASSERT_TRUE(Load(Stereo70()));
    plain::Stereographic plain;
    plain.a = kKrassowsky.a;
    plain.e2 = kKrassowsky.e2;
    plain.lat0 = 46.0;
    plain.Prepare();
    const double chi0 = static_cast<double>(plain.OriginOnSphere());
    const double distance = 2.0 * 6378956.59448184761 * 0.99975 * std::tan(std::acos(-1.0) / 4.0 + chi0 / 2.0);
    const GridPosition grid = ToGrid(m_projection, -90.0, 80.0);
    EXPECT_NEAR(grid.easting, 500000.0, 1e-8);
    EXPECT_NEAR(grid.northing, 500000.0 - distance, 1e-7);
}

TEST_F(CStereographicTest, AnOriginAtAPoleGivesNoNumber)
{
    const auto projection = Loaded(kType, kGrs80, About(90.0, 0.0));
    EXPECT_TRUE(std::isnan(ToGrid(*projection, 80.0, 10.0).northing));
    EXPECT_TRUE(std::isnan(ToGeo(*projection, 1000.0, 1000.0).latitude));
}

TEST_F(CStereographicTest, FoldsLatitudeAndLongitude)
{
    ASSERT_TRUE(Load(Stereo70()));
    const GridPosition at = ToGrid(m_projection, 45.0, 27.0);
    for (const GridPosition& folded : {ToGrid(m_projection, 45.0, 387.0), ToGrid(m_projection, 405.0, 27.0)}) {
        EXPECT_EQ(folded.easting, at.easting);
        EXPECT_EQ(folded.northing, at.northing);
    }
    const GeoPosition east = ToGeo(*Loaded(kType, kGrs80, About(10.0, 179.5)), 200000.0, 0.0);
    EXPECT_LT(east.longitude, -178.0);
    EXPECT_GT(east.longitude, -180.0);
}

// Longitudes on the sphere are n times those on the ellipsoid, and n is not 1: a whole turn shows.
TEST_F(CStereographicTest, KeepsTheDifferenceOfLongitudeUnfolded)
{
    const auto projection = Loaded(kType, kGrs80, About(-17.0, 179.0));
    const double n = std::sqrt(1.0 + kGrs80.e2 * std::pow(std::cos(17.0 * D_TO_R), 4) / (1.0 - kGrs80.e2));
    const GridPosition across = ToGrid(*projection, -17.0, -179.0);
    const GridPosition near = ToGrid(*projection, -17.0, 179.0 + (360.0 - 358.0 * n) / n);
    EXPECT_NEAR(across.easting, near.easting, 1e-7);
    EXPECT_NEAR(across.northing, near.northing, 1e-7);
    const double folded = -ToGrid(*projection, -17.0, 177.0).easting; // two degrees, mirrored
    EXPECT_GT(folded - across.easting, 100000.0);
}

TEST_F(CStereographicTest, GivesNoNumberForNoNumber)
{
    ASSERT_TRUE(Load(Stereo70()));
    for (const double bad : {kNaN, kInfinity, -kInfinity}) {
        EXPECT_TRUE(std::isnan(ToGrid(m_projection, bad, 25.0).northing)) << bad;
        EXPECT_TRUE(std::isnan(ToGrid(m_projection, 45.0, bad).easting)) << bad;
        EXPECT_TRUE(std::isnan(ToGeo(m_projection, bad, 500000.0).latitude)) << bad;
    }
    EXPECT_TRUE(std::isnan(ToGeo(m_projection, kNaN, 500000.0).longitude));
    EXPECT_TRUE(std::isnan(ToGeo(m_projection, 500000.0, kNaN).longitude));
    EXPECT_TRUE(std::isnan(ToGeo(m_projection, 500000.0, kNaN).latitude));
    EXPECT_TRUE(std::isnan(m_projection.PointScaleFactor(kNaN, 0.0)));
    EXPECT_EQ(m_projection.PointScaleFactor(kInfinity, 0.0), kInfinity);
    EXPECT_TRUE(std::isnan(m_projection.LineScaleFactor(0.0, 0.0, 0.0, kNaN)));
    EXPECT_TRUE(std::isnan(ConvergenceAt(m_projection, 0.0, kNaN)));
}

// An infinite northing is the antipode, on the meridian of origin.
TEST_F(CStereographicTest, AnInfiniteNorthingIsTheAntipode)
{
    ASSERT_TRUE(Load(Stereo70()));
    for (const double northing : {kInfinity, -kInfinity}) {
        const GeoPosition geo = ToGeo(m_projection, 600000.0, northing);
        EXPECT_NEAR(geo.latitude, -46.0, 0.5);
        EXPECT_NEAR(geo.longitude, 25.0, 1e-13);
    }
}

// On an ellipsoid far from the earth's Newton's method does not settle everywhere: what stands after
// ten passes comes out, and it is not what nine or eleven give.
TEST_F(CStereographicTest, StopsAfterTenPasses)
{
    const auto projection = Loaded(kType, {6378137.0, 0.7}, About(40.0, 0.0));
    plain::Stereographic plain;
    plain.a = 6378137.0;
    plain.e2 = 0.7;
    plain.lat0 = 40.0;
    const auto latitude = [&plain](int passes) {
        plain.maxPasses = passes;
        plain.Prepare();
        return static_cast<double>(plain.GridToGeo(400000.0, 2200000.0).latitude);
    };
    const double ten = latitude(10);
    ASSERT_EQ(plain.Passes(), 10);
    EXPECT_NEAR(ToGeo(*projection, 400000.0, 2200000.0).latitude, ten, 2e-10);
    EXPECT_GT(std::fabs(latitude(11) - ten), 1e-9);
    EXPECT_GT(std::fabs(latitude(9) - ten), 1e-5);
}

// Convergence and scale.

TEST_F(CStereographicTest, ConvergenceIsNegativeEastOfTheOriginInTheNorth)
{
    struct Row {
        double lat0, latitude, longitude, convergence; // the sine of the latitude is 0.5
    };
    const Row rows[] = {
        {30.0, 30.0, 2.0, -1.0}, {30.0, 30.0, -2.0, 1.0}, {-30.0, -30.0, 2.0, 1.0}, {-30.0, -30.0, -2.0, -1.0}};
    for (const Row& row : rows) {
        const auto projection = Loaded(kType, kGrs80, About(row.lat0, 0.0));
        const GridPosition at = ToGrid(*projection, row.latitude, row.longitude);
        EXPECT_NEAR(ConvergenceAt(*projection, at.easting, at.northing), row.convergence, 1e-4);
    }
}

TEST_F(CStereographicTest, KeepsTheConvergenceUnfolded)
{
    const auto projection = Loaded(kType, kGrs80, About(30.0, 179.0));
    const GeoPosition geo = ToGeo(*projection, 200000.0, 0.0);
    ASSERT_LT(geo.longitude, 0.0);
    EXPECT_NEAR(ConvergenceAt(*projection, 200000.0, 0.0), std::sin(geo.latitude * D_TO_R) * (179.0 - geo.longitude),
                1e-12);
    EXPECT_GT(ConvergenceAt(*projection, 200000.0, 0.0), 170.0);
}

// R = 6382644.571 m is printed in guidance note 7-2. With k0 in R the last term would be 1.2345679 times
// as large.
TEST_F(CStereographicTest, KeepsTheRadiusOfThePointScaleFactorWithoutK0)
{
    const auto projection = Loaded(kType, kBessel, Dutch(0.9));
    const double term = (80000.0 * 80000.0 + 60000.0 * 60000.0) / (4.0 * 6382644.571 * 6382644.571);
    const double factor = projection->PointScaleFactor(155000.0 + 80000.0, 463000.0 - 60000.0);
    EXPECT_NEAR(factor, (term + 1.0) * 0.9, 1e-13);
    EXPECT_GT(std::fabs(factor - (term / 0.81 + 1.0) * 0.9), 1e-5);
    EXPECT_EQ(projection->PointScaleFactor(155000.0, 463000.0), 0.9);
    double stored = 0.0;
    projection->PointScaleFactor(235000.0, 403000.0, stored);
    EXPECT_EQ(stored, factor);
}

TEST_F(CStereographicTest, LineScaleFactorIsSimpsonsRuleOverReciprocals)
{
    const auto projection = Loaded(kType, kBessel, Dutch(0.9));
    const double k1 = projection->PointScaleFactor(0.0, 300000.0);
    const double km = projection->PointScaleFactor(500000.0, 350000.0);
    const double k2 = projection->PointScaleFactor(1000000.0, 400000.0);
    const double factor = projection->LineScaleFactor(0.0, 300000.0, 1000000.0, 400000.0);
    EXPECT_DOUBLE_EQ(factor, 6.0 / (1.0 / k1 + 4.0 / km + 1.0 / k2));
    EXPECT_GT(std::fabs(factor - (k1 + 4.0 * km + k2) / 6.0), 1e-7) << "not the mean of the factors";
    double stored = 0.0;
    projection->LineScaleFactor(0.0, 300000.0, 1000000.0, 400000.0, stored);
    EXPECT_EQ(stored, factor);
}

TEST_F(CStereographicTest, AUnitChangedAfterTheLoadChangesNothing)
{
    ASSERT_TRUE(Load(Stereo70()));
    const GridPosition before = ToGrid(m_projection, 45.0, 27.0);
    const LinearUnit foot(0.3048);
    EXPECT_EQ(ToGrid(m_projection, 45.0, 27.0).easting, before.easting);
    EXPECT_EQ(m_projection.InitConstants(), 0U);
    EXPECT_NEAR(ToGrid(m_projection, 45.0, 27.0).easting - 500000.0, (before.easting - 500000.0) / 0.3048, 1e-6);
}

} // namespace
