#include "projections/UniversalPolarStereographic.h"

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

constexpr std::uint32_t kType = 15;
constexpr EllipsoidShape kWgs84{6378137.0, 0.006694379990141317};

ProjectionRecord Polar(const CString& hemisphere, double k0 = 0.994, double falseOrigin = 2000000.0)
{
    ProjectionRecord record({{5, falseOrigin}, {6, falseOrigin}, {7, k0}});
    record.Set(ProjectionKey::hemisphere, hemisphere);
    return record;
}

class UniversalPolarStereographicTest : public testing::Test {
protected:
    UniversalPolarStereographicTest() { m_projection.SetEllipsoid(kWgs84.a, kWgs84.e2); }
    bool Load(ProjectionRecord record) { return m_projection.LoadParameters(record.file, record.section); }

    MainDirectory m_main{MainDirectory::Delivered()};
    ScriptedDesk m_desk;
    UniversalPolarStereographic m_projection;
    std::unique_ptr<CProjection> m_north = Loaded(kType, kWgs84, Polar(L"Northern"));
    std::unique_ptr<CProjection> m_south = Loaded(kType, kWgs84, Polar(L"Southern"));
};

// Loading.

TEST_F(UniversalPolarStereographicTest, LoadsAndListsItsParameters)
{
    EXPECT_TRUE(Load(Polar(L"Northern")));
    EXPECT_EQ(m_projection.GetType(), 15);
    EXPECT_EQ(m_projection.GetStatus(), 0);
    const ConstantsOf constants(m_projection);
    EXPECT_EQ(constants.values, (std::vector<double>{2000000.0, 2000000.0, 0.994, 0.0}));
    EXPECT_EQ(constants.names, (std::vector<CString>{L"False Easting", L"False Northing",
                                                     L"Scale Factor at the Central Meridian", L"Hemisphere"}));
    EXPECT_EQ(constants.texts, (std::vector<CString>{L"2000000", L"2000000", L"0.99400", L"Northern"}));
    EXPECT_EQ(constants.kinds, (std::vector<UINT>{3, 3, 4, 6}));
    EXPECT_TRUE(m_desk.messages.empty());
}

TEST_F(UniversalPolarStereographicTest, NeedsEachKey)
{
    for (const int index : {5, 6, 7, 12}) {
        ProjectionRecord record = Polar(L"Southern");
        record.Remove(index);
        UniversalPolarStereographic projection;
        projection.SetEllipsoid(kWgs84.a, kWgs84.e2);
        EXPECT_FALSE(projection.LoadParameters(record.file, record.section)) << index;
        const ConstantsOf constants(projection);
        EXPECT_EQ(constants.texts[3], index == 12 ? L"" : L"Southern") << "what stands behind is listed";
        EXPECT_EQ(constants.names[3], L"Hemisphere");
    }
}

TEST_F(UniversalPolarStereographicTest, NeedsNoLatitudeAndNoLongitudeOfOrigin)
{
    ProjectionRecord record = Polar(L"Northern");
    record.Set(ProjectionKey::lonOrigin, 45.0);
    record.Set(ProjectionKey::latOrigin, 10.0);
    ASSERT_TRUE(Load(record));
    EXPECT_EQ(ToGrid(m_projection, 73.0, 44.0).easting, ToGrid(*m_north, 73.0, 44.0).easting);
}

TEST_F(UniversalPolarStereographicTest, WithoutEllipsoidTheLoadFailsWithAllConstants)
{
    UniversalPolarStereographic projection;
    ProjectionRecord record = Polar(L"Northern", 0.5);
    EXPECT_FALSE(projection.LoadParameters(record.file, record.section));
    EXPECT_EQ(projection.GetStatus(), 1) << "the ellipsoid is asked for before the scale factor";
    EXPECT_EQ(ConstantsOf(projection).texts[3], L"Northern");
    EXPECT_TRUE(m_desk.messages.empty());
}

TEST_F(UniversalPolarStereographicTest, RefusesASmallScaleFactorWithTheMessageOfCassini)
{
    const ModuleTexts texts;
    for (const double k0 : {0.0, std::nextafter(0.8, 0.0)}) {
        m_desk.messages.clear();
        EXPECT_FALSE(Load(Polar(L"Northern", k0)));
        EXPECT_EQ(m_projection.GetStatus(), 2);
        ASSERT_EQ(m_desk.messages.size(), 1U);
        EXPECT_EQ(m_desk.messages[0].text, L"Cassini projection scale factor value is smaller than 0.8. The "
                                           L"coordinate system operation is failed.");
    }
    m_desk.messages.clear();
    EXPECT_TRUE(Load(Polar(L"Northern", 0.8)));
    EXPECT_TRUE(m_desk.messages.empty());
}

// Saving and showing.

TEST_F(UniversalPolarStereographicTest, SavesWhatItLoadedInOrder)
{
    ASSERT_TRUE(Load(Polar(L"Southern")));
    FileObject file;
    EXPECT_TRUE(m_projection.SaveParameters(file, L"S"));
    std::vector<CString> expected;
    for (const int index : {5, 6, 7, 12, 1}) {
        expected.push_back(ProjectionRecord::Key(index));
    }
    EXPECT_EQ(KeysOf(file, L"S"), expected);
    CString hemisphere;
    EXPECT_TRUE(file.GetItem(L"S", ProjectionRecord::Key(12), hemisphere));
    EXPECT_EQ(hemisphere, L"Southern");
    int type = -1;
    EXPECT_TRUE(file.GetItem(L"S", ProjectionRecord::Key(1), type));
    EXPECT_EQ(type, 15);
    UniversalPolarStereographic again;
    again.SetEllipsoid(kWgs84.a, kWgs84.e2);
    EXPECT_TRUE(again.LoadParameters(file, L"S"));
    EXPECT_EQ(ConstantsOf(again).texts, ConstantsOf(m_projection).texts);
}

TEST_F(UniversalPolarStereographicTest, WritesNoOriginAsXml)
{
    std::wostringstream stream;
    m_north->DumpXml(stream, L"");
    EXPECT_EQ(stream.str(), L"<projection>\n"
                            L"  <name>Prj-Test</name>\n"
                            L"  <type>Universal Polar Stereographic</type>\n"
                            L"  <false_easting>2000000.000</false_easting>\n"
                            L"  <false_northing>2000000.000</false_northing>\n"
                            L"  <scale_factor>0.994000</scale_factor>\n"
                            L"  <hemisphere>Northern</hemisphere>\n"
                            L"</projection>\n");
}

TEST_F(UniversalPolarStereographicTest, HasGeoKeysOfCode18WithoutOrigin)
{
    std::list<std::pair<int, short>> codes;
    std::list<std::pair<int, double>> parameters;
    m_north->GetGeoKeys(codes, parameters);
    EXPECT_EQ(codes, (std::list<std::pair<int, short>>{{3072, 32767}, {3074, 32767}, {3075, 18}}));
    EXPECT_EQ(parameters, (std::list<std::pair<int, double>>{{3082, 2000000.0}, {3083, 2000000.0}, {3093, 0.994}}));
}

// Positions. The expected numbers are the formulas in 40 digits.

TEST_F(UniversalPolarStereographicTest, ForwardIsThatOfTheSource)
{
    const GridPosition north = ToGrid(*m_north, 73.0, 44.0);
    EXPECT_NEAR(north.easting, 3320416.74735985275, 1e-8);
    EXPECT_NEAR(north.northing, 632668.431272128537, 1e-8);
    const GridPosition south = ToGrid(*m_south, -73.0, 44.0);
    EXPECT_NEAR(south.easting, 3320416.74735985275, 1e-8);
    EXPECT_NEAR(south.northing, 4000000.0 - 632668.431272128537, 1e-8) << "northings count the other way";
    const GridPosition axis = ToGrid(*m_north, 80.0, 0.0);
    EXPECT_EQ(axis.easting, 2000000.0);
    EXPECT_NEAR(axis.northing, 887048.863045094944, 1e-8);
}

// With Snyder's 11520 the latitudes are 1.3e-11 degrees larger.
TEST_F(UniversalPolarStereographicTest, KeepsDivisor11500OfTheSeries)
{
    struct Row {
        double easting, northing, latitude, longitude, latitudeOfSource;
    };
    const Row rows[] = {{2000000.0, -500000.0, 67.7547325091442778, 0.0, 67.7547325091583658},
                        {3320416.75, 632668.43, 72.9999999757424417, 44.00000003060901, 72.9999999757555437},
                        {4000000.0, 5000000.0, 58.3241647937350303, 146.309932474020213, 58.3241647937462236}};
    for (const Row& row : rows) {
        const GeoPosition geo = ToGeo(*m_north, row.easting, row.northing);
        EXPECT_NEAR(geo.latitude, row.latitude, 1e-13);
        EXPECT_NEAR(geo.longitude, row.longitude, 1e-13);
        EXPECT_GT(std::fabs(geo.latitude - row.latitudeOfSource), 1e-11);
        const GeoPosition south = ToGeo(*m_south, row.easting, 4000000.0 - row.northing);
        EXPECT_EQ(south.latitude, -geo.latitude);
        EXPECT_NEAR(south.longitude, geo.longitude, 1e-13);
    }
}

TEST_F(UniversalPolarStereographicTest, MapsThePoleToTheFalseOriginAndBack)
{
    for (const double falseOrigin : {0.0, 2000000.0}) {
        const auto north = Loaded(kType, kWgs84, Polar(L"Northern", 0.994, falseOrigin));
        const auto south = Loaded(kType, kWgs84, Polar(L"Southern", 0.994, falseOrigin));
        for (const double longitude : {0.0, 77.0, -180.0}) {
            EXPECT_EQ(ToGrid(*north, 90.0, longitude).easting, falseOrigin);
            EXPECT_EQ(ToGrid(*north, 90.0, longitude).northing, falseOrigin);
            EXPECT_EQ(ToGrid(*south, -90.0, longitude).easting, falseOrigin);
            EXPECT_EQ(ToGrid(*south, -90.0, longitude).northing, falseOrigin);
        }
        EXPECT_EQ(ToGeo(*north, falseOrigin, falseOrigin).latitude, 90.0);
        EXPECT_EQ(ToGeo(*north, falseOrigin, falseOrigin).longitude, 0.0);
        EXPECT_EQ(ToGeo(*south, falseOrigin, falseOrigin).latitude, -90.0);
        EXPECT_EQ(ToGeo(*south, falseOrigin, falseOrigin).longitude, 0.0);
    }
}

// Kept: the inverse takes this axis, of longitudes 90 and -90, for the far pole.
TEST_F(UniversalPolarStereographicTest, TheAxisOfTheFalseNorthingIsTheFarPole)
{
    for (const double easting : {2000001.0, 3000000.0, 0.0, kInfinity}) {
        const GeoPosition north = ToGeo(*m_north, easting, 2000000.0);
        EXPECT_EQ(north.latitude, -90.0) << easting;
        EXPECT_EQ(north.longitude, 0.0) << easting;
        const GeoPosition south = ToGeo(*m_south, easting, 2000000.0);
        EXPECT_EQ(south.latitude, 90.0) << easting;
        EXPECT_EQ(south.longitude, 0.0) << easting;
        EXPECT_EQ(m_north->PointScaleFactor(easting, 2000000.0), kInfinity) << easting;
        EXPECT_EQ(ConvergenceAt(*m_north, easting, 2000000.0), 0.0) << easting;
    }
    // A micrometre beside it everything is in order.
    EXPECT_NEAR(ToGeo(*m_north, 3000000.0, 2000000.000001).longitude, 90.0, 1e-9);
    EXPECT_NEAR(ToGeo(*m_north, 3000000.0, 2000000.000001).latitude, ToGeo(*m_north, 2000000.0, 1000000.0).latitude,
                1e-9);
}

TEST_F(UniversalPolarStereographicTest, ComparesTheHemisphereWithItsCase)
{
    const GridPosition north = ToGrid(*m_north, 80.0, 30.0);
    const GridPosition south = ToGrid(*m_south, 80.0, 30.0);
    ASSERT_NE(north.northing, south.northing);
    for (const CString& text : {CString(L"northern"), CString(L"NORTHERN"), CString(L"Northern "), CString(L"North"),
                                CString(L""), CString(L"anything")}) {
        const auto other = Loaded(kType, kWgs84, Polar(text));
        EXPECT_EQ(ToGrid(*other, 80.0, 30.0).northing, south.northing) << text.ToUtf8();
        EXPECT_EQ(ToGrid(*other, 80.0, 30.0).easting, south.easting) << text.ToUtf8();
    }
}

TEST_F(UniversalPolarStereographicTest, FoldsTheLatitudeAndNotTheLongitude)
{
    EXPECT_EQ(ToGrid(*m_north, 440.0, 30.0).easting, ToGrid(*m_north, 80.0, 30.0).easting);
    EXPECT_NEAR(ToGrid(*m_north, 80.0, 390.0).easting, ToGrid(*m_north, 80.0, 30.0).easting, 1e-8);
    EXPECT_NEAR(ToGrid(*m_south, -440.0, 30.0).northing, ToGrid(*m_south, -80.0, 30.0).northing, 1e-8);
}

// |dE / sin lam| in double arithmetic, 1100 km from the pole beside longitude 180: the sine of an angle
// near pi has few digits left.
TEST_F(UniversalPolarStereographicTest, DistanceIsTheQuotientAndLosesDigitsBesideLongitude180)
{
    const double dN = 1.1e6;
    for (const double easting : {2000001.0, 2000000.001, 2000000.000001}) {
        const double dE = easting - 2000000.0;
        const double quotient = std::fabs(dE / std::sin(std::atan2(dE, -dN)));
        const double e = std::sqrt(kWgs84.e2);
        const double tau =
            quotient / (2.0 * kWgs84.a / std::sqrt(1.0 - kWgs84.e2) * std::pow((1.0 - e) / (1.0 + e), e / 2.0) * 0.994);
        const double chi = std::acos(-1.0) / 2.0 - 2.0 * std::atan(tau);
        // The conformal latitude is 3e-3 radians from the geodetic one; its change follows the quotient's.
        const double plainRho = std::hypot(dE, dN);
        const double plainChi = std::acos(-1.0) / 2.0 - 2.0 * std::atan(tau / quotient * plainRho);
        const double reference = ToGeo(*m_north, 2000000.0, 2000000.0 + dN).latitude;
        const double latitude = ToGeo(*m_north, easting, 2000000.0 + dN).latitude;
        EXPECT_NEAR(latitude - reference, (chi - plainChi) * 180.0 / std::acos(-1.0),
                    1e-2 * std::fabs(chi - plainChi) * 60.0 + 1e-11)
            << dE;
    }
}

TEST_F(UniversalPolarStereographicTest, GivesNoNumberForNoNumber)
{
    for (const double bad : {kNaN, kInfinity, -kInfinity}) {
        EXPECT_TRUE(std::isnan(ToGrid(*m_north, bad, 25.0).northing)) << bad;
        EXPECT_TRUE(std::isnan(ToGrid(*m_north, 80.0, bad).easting)) << bad;
    }
    EXPECT_TRUE(std::isnan(ToGeo(*m_north, kNaN, 500000.0).latitude));
    EXPECT_TRUE(std::isnan(ToGeo(*m_north, kNaN, 2000000.0).latitude)) << "on the axis";
    EXPECT_TRUE(std::isnan(ToGeo(*m_north, 500000.0, kNaN).latitude));
    EXPECT_TRUE(std::isnan(ToGeo(*m_north, 2000000.0, kNaN).longitude));
    EXPECT_TRUE(std::isnan(m_north->PointScaleFactor(kNaN, 0.0)));
    EXPECT_TRUE(std::isnan(ConvergenceAt(*m_north, 0.0, kNaN)));
    // Infinitely far from the pole is the other one.
    EXPECT_EQ(ToGeo(*m_north, kInfinity, 500000.0).latitude, -90.0);
    EXPECT_EQ(ToGeo(*m_north, kInfinity, 500000.0).longitude, 90.0);
    EXPECT_EQ(ToGeo(*m_south, 2000000.0, kInfinity).latitude, 90.0);
}

TEST_F(UniversalPolarStereographicTest, TheFarPoleIsFarAndFinite)
{
    const GridPosition grid = ToGrid(*m_north, -90.0, 0.0);
    EXPECT_EQ(grid.easting, 2000000.0);
    EXPECT_LT(grid.northing, -1e22);
    EXPECT_TRUE(std::isfinite(grid.northing));
}

// Convergence and scale.

TEST_F(UniversalPolarStereographicTest, ConvergenceIsTheLongitude)
{
    for (const double longitude : {0.0, 30.0, -120.0, 179.0}) {
        const GridPosition north = ToGrid(*m_north, 80.0, longitude);
        EXPECT_NEAR(ConvergenceAt(*m_north, north.easting, north.northing), -longitude, 1e-12);
        const GridPosition south = ToGrid(*m_south, -80.0, longitude);
        EXPECT_NEAR(ConvergenceAt(*m_south, south.easting, south.northing), longitude, 1e-12);
    }
}

TEST_F(UniversalPolarStereographicTest, KeepsAScaleFactorOf0AtThePole)
{
    EXPECT_EQ(m_north->PointScaleFactor(2000000.0, 2000000.0), 0.0);
    EXPECT_NEAR(m_north->PointScaleFactor(2000000.0, 2000001.0), 0.994, 1e-8) << "a metre from it that of the grid";
    EXPECT_EQ(m_north->LineScaleFactor(2000000.0, 2000000.0, 2000000.0, 2100000.0), 0.0);
    double stored = 1.0;
    m_north->PointScaleFactor(2000000.0, 2000000.0, stored);
    EXPECT_EQ(stored, 0.0);
}

TEST_F(UniversalPolarStereographicTest, ScaleFactorsAreTheSameInBothHemispheres)
{
    EXPECT_EQ(m_north->PointScaleFactor(3000000.0, 1000000.0), m_south->PointScaleFactor(3000000.0, 3000000.0));
    const double k1 = m_north->PointScaleFactor(1000000.0, 1500000.0);
    const double km = m_north->PointScaleFactor(1200000.0, 1000000.0);
    const double k2 = m_north->PointScaleFactor(1400000.0, 500000.0);
    const double line = m_north->LineScaleFactor(1000000.0, 1500000.0, 1400000.0, 500000.0);
    EXPECT_DOUBLE_EQ(line, 6.0 / (1.0 / k1 + 4.0 / km + 1.0 / k2));
    double stored = 0.0;
    m_north->LineScaleFactor(1000000.0, 1500000.0, 1400000.0, 500000.0, stored);
    EXPECT_EQ(stored, line);
}

TEST_F(UniversalPolarStereographicTest, AUnitChangedAfterTheLoadChangesNothing)
{
    const GridPosition before = ToGrid(*m_north, 80.0, 30.0);
    const double scale = m_north->PointScaleFactor(1000000.0, 1000000.0);
    const LinearUnit foot(0.3048);
    EXPECT_EQ(ToGrid(*m_north, 80.0, 30.0).easting, before.easting);
    EXPECT_EQ(m_north->PointScaleFactor(1000000.0, 1000000.0), scale);
}

} // namespace
