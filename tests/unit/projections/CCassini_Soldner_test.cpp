#include "projections/CCassini_Soldner.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <sstream>

#include "tests/support/ForwardDerivatives.h"
#include "tests/support/GridPositions.h"
#include "tests/support/ModuleTexts.h"
#include "tests/support/PlainRobbins.h"
#include "tests/support/ProjectionRecord.h"
#include "tests/support/ScriptedDesk.h"

namespace {

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kInfinity = std::numeric_limits<double>::infinity();

constexpr std::uint32_t kType = 8;

ProjectionRecord Plain(double k0 = 1.0)
{
    return ProjectionRecord({{3, 0.0}, {4, 0.0}, {5, 0.0}, {6, 0.0}, {7, k0}});
}

// Palestine 1923 / Palestine Grid.
ProjectionRecord Palestine(double k0 = 1.0)
{
    return ProjectionRecord(
        {{3, 31.734096944444445}, {4, 35.212080555555556}, {5, 170251.555}, {6, 126867.909}, {7, k0}});
}
constexpr EllipsoidShape kClarke1880Benoit{6378300.789,
                                           1.0 - (6356566.435 / 6378300.789) * (6356566.435 / 6378300.789)};

class CCassini_SoldnerTest : public testing::Test {
protected:
    CCassini_SoldnerTest() { m_projection.SetEllipsoid(kGrs80.a, kGrs80.e2); }
    bool Load(ProjectionRecord record) { return m_projection.LoadParameters(record.file, record.section); }

    MainDirectory m_main{MainDirectory::Delivered()};
    ModuleTexts m_texts;
    ScriptedDesk m_desk;
    CCassini_Soldner m_projection;
};

// Loading, saving, showing.

TEST_F(CCassini_SoldnerTest, LoadsAndListsItsParameters)
{
    EXPECT_TRUE(Load(Palestine()));
    EXPECT_EQ(m_projection.GetType(), 8);
    EXPECT_EQ(m_projection.GetStatus(), 0);
    EXPECT_EQ(m_projection.GetName(), L"Prj-Test");
    const ConstantsOf constants(m_projection);
    EXPECT_EQ(constants.values,
              (std::vector<double>{35.212080555555556, 31.734096944444445, 170251.555, 126867.909, 1.0}));
    EXPECT_EQ(constants.names, (std::vector<CString>{L"Longitude of Origin", L"Latitude of Origin", L"False Easting",
                                                     L"False Northing", L"Scale Factor at the Central Meridian"}));
    EXPECT_EQ(constants.texts, (std::vector<CString>{L"035°12'43.4900000\"E", L"31°44'02.7490000\"N", L"170251.555",
                                                     L"126867.909", L"1"}));
    EXPECT_EQ(constants.kinds, (std::vector<UINT>{1, 2, 3, 3, 4}));
    EXPECT_TRUE(m_desk.messages.empty());
}

TEST_F(CCassini_SoldnerTest, NeedsEachKey)
{
    for (const int index : {3, 4, 5, 6, 7}) {
        ProjectionRecord record = Palestine();
        record.Remove(index);
        CCassini_Soldner projection;
        projection.SetEllipsoid(kGrs80.a, kGrs80.e2);
        EXPECT_FALSE(projection.LoadParameters(record.file, record.section)) << index;
        EXPECT_EQ(ConstantsOf(projection).values[4], index == 7 ? 0.0 : 1.0) << "what stands behind is listed";
    }
}

TEST_F(CCassini_SoldnerTest, RefusesABadEllipsoidWithStatus1)
{
    CCassini_Soldner without;
    ProjectionRecord record = Palestine(0.5);
    EXPECT_FALSE(without.LoadParameters(record.file, record.section));
    EXPECT_EQ(without.GetStatus(), 1);
    EXPECT_EQ(without.InitConstants(), 1U);
    EXPECT_EQ(ConstantsOf(without).values[4], 0.5) << "the constants are complete";
    EXPECT_TRUE(m_desk.messages.empty()) << "the ellipsoid is asked for before the scale factor";
}

TEST_F(CCassini_SoldnerTest, RefusesASmallScaleFactorWithAMessage)
{
    struct Row {
        double k0;
        bool loads;
    };
    for (const Row& row :
         {Row{0.79, false}, Row{std::nextafter(0.8, 0.0), false}, Row{0.0, false}, Row{0.8, true}, Row{2.0, true}}) {
        m_desk.messages.clear();
        EXPECT_EQ(Load(Palestine(row.k0)), row.loads) << row.k0;
        EXPECT_EQ(m_projection.GetStatus(), row.loads ? 0 : 2) << row.k0;
        ASSERT_EQ(m_desk.messages.size(), row.loads ? 0U : 1U) << row.k0;
        if (!row.loads) {
            EXPECT_EQ(m_desk.messages[0].text, L"Cassini projection scale factor value is smaller than 0.8. The "
                                               L"coordinate system operation is failed.");
        }
    }
    EXPECT_TRUE(Load(Palestine()));
    EXPECT_EQ(m_projection.InitConstants(), 0U);
}

TEST_F(CCassini_SoldnerTest, SavesInLoadingOrderThenTheType)
{
    ASSERT_TRUE(Load(ProjectionRecord({{3, 1.0}, {4, 2.0}, {5, 3.0}, {6, 4.0}, {7, 5.0}})));
    FileObject file;
    EXPECT_TRUE(m_projection.SaveParameters(file, L"S"));
    std::vector<CString> expected;
    double value = 1.0;
    for (const int index : {3, 4, 5, 6, 7}) {
        expected.push_back(ProjectionRecord::Key(index));
        double read = 0.0;
        EXPECT_TRUE(file.GetItem(L"S", ProjectionRecord::Key(index), read));
        EXPECT_EQ(read, value++) << index;
    }
    expected.push_back(ProjectionRecord::Key(1));
    EXPECT_EQ(KeysOf(file, L"S"), expected);
    int type = 0;
    EXPECT_TRUE(file.GetItem(L"S", ProjectionRecord::Key(1), type));
    EXPECT_EQ(type, 8);
}

TEST_F(CCassini_SoldnerTest, WritesXmlAndGeoKeys)
{
    ASSERT_TRUE(Load(Palestine()));
    std::wostringstream stream;
    m_projection.DumpXml(stream, L" ");
    EXPECT_EQ(stream.str(), L" <projection>\n"
                            L"   <name>Prj-Test</name>\n"
                            L"   <type>Cassini</type>\n"
                            L"   <latitude_origin>31°44&apos;02.7490000&quot;N</latitude_origin>\n"
                            L"   <longitude_origin>035°12&apos;43.4900000&quot;E</longitude_origin>\n"
                            L"   <false_easting>170251.555</false_easting>\n"
                            L"   <false_northing>126867.909</false_northing>\n"
                            L"   <scale_factor>1.000000</scale_factor>\n"
                            L" </projection>\n");
    ASSERT_TRUE(Load(ProjectionRecord({{3, 1.0}, {4, 2.0}, {5, 3.0}, {6, 4.0}, {7, 5.0}})));
    std::list<std::pair<int, short>> codes;
    std::list<std::pair<int, double>> parameters;
    m_projection.GetGeoKeys(codes, parameters);
    EXPECT_EQ(codes, (std::list<std::pair<int, short>>{{3072, 32767}, {3074, 32767}, {3075, 18}}));
    EXPECT_EQ(parameters,
              (std::list<std::pair<int, double>>{{3082, 3.0}, {3083, 4.0}, {3093, 5.0}, {3088, 2.0}, {3081, 1.0}}));
}

// Positions. The expected numbers are the series evaluated with 40 digits on GRS 1980.

// Kept: t, where the published series has T. In the south t is negative, and the map is no mirror.
TEST_F(CCassini_SoldnerTest, KeepsTheTangentInTheNorthing)
{
    struct Row {
        double latitude, offset, easting, northing, published;
    };
    const Row rows[] = {{10.0, 2.0, 219277.3847336978, 1106519.7266081472, 1106519.7361131908},
                        {10.0, 3.0, 328913.55553565804, 1107351.7384619601, 1107351.786581243},
                        {45.0, 2.0, 157677.65468216901, 4986890.9267663061, 4986890.9267663061},
                        {60.0, 2.0, 111583.00419581203, 6655759.7939496568, 6655759.7396561933},
                        {-10.0, 2.0, 219277.3847336978, -1106519.7496877998, -1106519.7361131908}};
    ASSERT_TRUE(Load(Plain()));
    for (const Row& row : rows) {
        const GridPosition at = ToGrid(m_projection, row.latitude, row.offset);
        EXPECT_NEAR(at.easting, row.easting, 1e-8) << row.latitude;
        EXPECT_NEAR(at.northing, row.northing, 1e-8) << row.latitude;
        if (row.latitude != 45.0) {
            EXPECT_GT(std::fabs(at.northing - row.published), 0.009) << row.latitude;
        }
    }
}

TEST_F(CCassini_SoldnerTest, InverseIsThatOf40Digits)
{
    ASSERT_TRUE(Load(Plain()));
    GeoPosition at = ToGeo(m_projection, 200000.0, 1100000.0);
    EXPECT_NEAR(at.latitude, 9.9420957094403123, 1e-13);
    EXPECT_NEAR(at.longitude, 1.8238495638546333, 1e-13);
    at = ToGeo(m_projection, -220000.0, 6600000.0);
    EXPECT_NEAR(at.latitude, 59.456988089510757, 1e-13);
    EXPECT_NEAR(at.longitude, -3.8814606695107048, 1e-13);
}

// Kept: the scale factor enters no formula.
TEST_F(CCassini_SoldnerTest, TheScaleFactorChangesNothing)
{
    const auto one = Loaded(kType, kClarke1880Benoit, Palestine(1.0));
    const auto two = Loaded(kType, kClarke1880Benoit, Palestine(2.0));
    const GridPosition a = ToGrid(*one, 32.0, 34.8);
    const GridPosition b = ToGrid(*two, 32.0, 34.8);
    EXPECT_EQ(a.easting, b.easting);
    EXPECT_EQ(a.northing, b.northing);
    EXPECT_EQ(ToGeo(*one, 1e5, 1e5).longitude, ToGeo(*two, 1e5, 1e5).longitude);
    EXPECT_EQ(one->PointScaleFactor(1e5, 1e5), two->PointScaleFactor(1e5, 1e5));
}

TEST_F(CCassini_SoldnerTest, FoldsItsAngles)
{
    ASSERT_TRUE(Load(Palestine()));
    const GridPosition near = ToGrid(m_projection, 32.0, 34.8);
    EXPECT_NEAR(ToGrid(m_projection, 32.0, 394.8).easting, near.easting, 1e-6);
    EXPECT_NEAR(ToGrid(m_projection, 392.0, 34.8).northing, near.northing, 1e-6);
    ProjectionRecord record = Plain();
    record.Set(ProjectionKey::lonOrigin, 179.5);
    const auto projection = Loaded(kType, kGrs80, record);
    const GridPosition east = ToGrid(*projection, -18.0, -179.5);
    EXPECT_NEAR(east.easting, 105905.0, 50.0) << "one degree";
    EXPECT_NEAR(ToGeo(*projection, east.easting, east.northing).longitude, -179.5, 1e-8);
}

// The cosine of the double nearest to 90 degrees is not 0: the tangent there is 1.6e16, not the
// guard's 1e25, and the terms that hold its square stay finite.
TEST_F(CCassini_SoldnerTest, GivesThePoleAtALatitudeOf90)
{
    ASSERT_TRUE(Load(Plain()));
    for (const double longitude : {0.0, 3.0, -90.0}) {
        const GridPosition north = ToGrid(m_projection, 90.0, longitude);
        EXPECT_NEAR(north.easting, 0.0, 1e-8) << longitude;
        EXPECT_NEAR(north.northing, 10001965.7293, 1e-3) << "a quarter of the meridian";
        EXPECT_NEAR(ToGrid(m_projection, -90.0, longitude).northing, -10001965.7293, 1e-3);
    }
}

TEST_F(CCassini_SoldnerTest, GivesNoNumberForNoNumber)
{
    ASSERT_TRUE(Load(Palestine()));
    for (const double bad : {kNaN, kInfinity, -kInfinity}) {
        EXPECT_TRUE(std::isnan(ToGrid(m_projection, bad, 35.0).northing)) << bad;
        EXPECT_TRUE(std::isnan(ToGrid(m_projection, 32.0, bad).easting)) << bad;
        EXPECT_TRUE(std::isnan(ToGeo(m_projection, bad, 0.0).longitude)) << bad;
        EXPECT_TRUE(std::isnan(ToGeo(m_projection, 0.0, bad).latitude)) << bad;
        EXPECT_TRUE(std::isnan(m_projection.PointScaleFactor(bad, 0.0))) << bad;
        EXPECT_TRUE(std::isnan(m_projection.LineScaleFactor(0.0, 0.0, 0.0, bad))) << bad;
        EXPECT_TRUE(std::isnan(ConvergenceAt(m_projection, 0.0, bad))) << bad;
    }
}

TEST_F(CCassini_SoldnerTest, AUnitChangedAfterTheLoadChangesAAndNotTheArcOfTheOrigin)
{
    ASSERT_TRUE(Load(Palestine()));
    const LinearUnit foot(0.3048);
    const double phi0 = 31.734096944444445 * D_TO_R;
    const double arc = plain::ShortArc(kGrs80.a, kGrs80.e2, phi0);
    const GridPosition origin = ToGrid(m_projection, 31.734096944444445, 35.212080555555556);
    EXPECT_NEAR(origin.northing, 126867.909 + arc / 0.3048 - arc, 1e-6) << "the arc of the origin is that of the load";
    EXPECT_NEAR(ToGeo(m_projection, 170251.555, 126867.909).latitude, 31.734096944444445, 1e-8)
        << "the radius of the footpoint too";
}

// Convergence and scale.

TEST_F(CCassini_SoldnerTest, ConvergenceIsTheDirectionOfTheMeridian)
{
    ASSERT_TRUE(Load(Palestine()));
    for (const double latitude : {29.5, 31.734, 33.5}) {
        for (const double longitude : {34.2, 35.212, 36.0}) {
            const ForwardDerivatives map(m_projection, kGrs80.a, kGrs80.e2, latitude, longitude);
            const GridPosition at = ToGrid(m_projection, latitude, longitude);
            // The way there and back misses by 0.03 mm here, on a step of 31 m.
            EXPECT_NEAR(ConvergenceAt(m_projection, at.easting, at.northing), map.convergence, 5e-5);
        }
    }
}

TEST_F(CCassini_SoldnerTest, PointScaleIsThatOfALineFromWestToEast)
{
    ASSERT_TRUE(Load(Palestine()));
    EXPECT_EQ(m_projection.PointScaleFactor(250000.0, 130000.0),
              m_projection.LineScaleFactor(249500.0, 130000.0, 250500.0, 130000.0));
    for (const double easting : {100000.0, 170251.555, 250000.0, 400000.0}) {
        const double k = m_projection.PointScaleFactor(easting, 130000.0);
        EXPECT_NEAR(k, 1.0, 3e-8) << "as the projection has it to the east";
        double factor = 0.0;
        m_projection.PointScaleFactor(easting, 130000.0, factor);
        EXPECT_EQ(factor, k);
    }
    // Along the meridian it grows with the square of the distance: 230 km give 6.5e-4.
    const GeoPosition at = ToGeo(m_projection, 400000.0, 130000.0);
    const ForwardDerivatives map(m_projection, kGrs80.a, kGrs80.e2, at.latitude, at.longitude);
    EXPECT_GT(map.meridianScale, 1.0006);
}

TEST_F(CCassini_SoldnerTest, ALineOnAMeridianTakesTheArc)
{
    ASSERT_TRUE(Load(Palestine()));
    // The central meridian, where both longitudes are the same number.
    const GeoPosition p = ToGeo(m_projection, 170251.555, 100000.0);
    const GeoPosition q = ToGeo(m_projection, 170251.555, 150000.0);
    ASSERT_EQ(p.longitude, q.longitude);
    const double arc = std::fabs(plain::ShortArc(kGrs80.a, kGrs80.e2, q.latitude * D_TO_R) -
                                 plain::ShortArc(kGrs80.a, kGrs80.e2, p.latitude * D_TO_R));
    EXPECT_NEAR(m_projection.LineScaleFactor(170251.555, 100000.0, 170251.555, 150000.0), 50000.0 / arc, 1e-13);
    EXPECT_NEAR(m_projection.LineScaleFactor(170251.555, 150000.0, 170251.555, 100000.0), 50000.0 / arc, 1e-13);
    EXPECT_NEAR(50000.0 / arc, 1.0, 1e-8);
}

TEST_F(CCassini_SoldnerTest, ALineOfNoLengthHasNoScale)
{
    ASSERT_TRUE(Load(Palestine()));
    EXPECT_TRUE(std::isnan(m_projection.LineScaleFactor(2e5, 1e5, 2e5, 1e5)));
    double factor = 0.0;
    m_projection.LineScaleFactor(2e5, 1e5, 2e5, 1e5, factor);
    EXPECT_TRUE(std::isnan(factor));
}

// 0.1 micrometres in 50 km: the sine of the difference of longitude is below 1e-13, and alpha 0.
TEST_F(CCassini_SoldnerTest, ALineAlmostOnAMeridianHasNoScale)
{
    ASSERT_TRUE(Load(Palestine()));
    const double east = 170251.555 + 1e-7;
    ASSERT_NE(ToGeo(m_projection, east, 150000.0).longitude, ToGeo(m_projection, 170251.555, 100000.0).longitude);
    EXPECT_TRUE(std::isnan(m_projection.LineScaleFactor(170251.555, 100000.0, east, 150000.0)));
    EXPECT_NEAR(m_projection.LineScaleFactor(170251.555, 100000.0, 170251.555 + 1e-4, 150000.0), 1.0, 1e-8);
}

} // namespace
