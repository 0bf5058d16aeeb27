#include "projections/CTMprj.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <sstream>
#include <stdexcept>
#include <vector>

#include "tests/support/ProjectionRecord.h"
#include "tests/support/TempDirectory.h"

namespace {

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kInfinity = std::numeric_limits<double>::infinity();

ProjectionRecord BritishGrid()
{
    return ProjectionRecord({{3, 49.0}, {4, -2.0}, {5, 400000.0}, {6, -100000.0}, {7, 0.9996012717}, {16, 0.25}});
}

ProjectionRecord Plain(double k0 = 1.0, double skew = 0.0)
{
    return ProjectionRecord({{3, 0.0}, {4, 0.0}, {5, 0.0}, {6, 0.0}, {7, k0}, {16, skew}});
}

struct Grid {
    double easting = 0.0;
    double northing = 0.0;
};
struct Geo {
    double latitude = 0.0;
    double longitude = 0.0;
};

Grid ToGrid(const CProjection& projection, double latitude, double longitude)
{
    Grid grid;
    projection.GeoToGrid(latitude, longitude, grid.easting, grid.northing);
    return grid;
}

Geo ToGeo(const CProjection& projection, double easting, double northing)
{
    Geo geo;
    projection.GridToGeo(easting, northing, geo.latitude, geo.longitude);
    return geo;
}

class CTMprjTest : public testing::Test {
protected:
    CTMprjTest() { m_projection.SetEllipsoid(kAiry.a, kAiry.e2); }
    bool Load(ProjectionRecord record) { return m_projection.LoadParameters(record.file, record.section); }

    CArray<double, double> m_values;
    CStringArray m_names;
    CStringArray m_texts;
    CArray<UINT, UINT> m_kinds;
    void TakeConstants(const CProjection& projection)
    {
        EXPECT_TRUE(projection.GetProjectionConstants(m_values, m_names, m_texts, m_kinds));
    }

    MainDirectory m_main{MainDirectory::Delivered()};
    CTMprj m_projection;
};

// Loading.

TEST_F(CTMprjTest, LoadsAndListsItsParameters)
{
    EXPECT_TRUE(Load(BritishGrid()));
    EXPECT_EQ(m_projection.GetType(), 0);
    EXPECT_EQ(m_projection.GetStatus(), 0);
    TakeConstants(m_projection);
    EXPECT_EQ((std::vector<double>{m_values.begin(), m_values.end()}),
              (std::vector<double>{-2.0, 49.0, 400000.0, -100000.0, 0.9996012717, 0.25}));
    EXPECT_EQ((std::vector<CString>{m_names.begin(), m_names.end()}),
              (std::vector<CString>{L"Longitude of Origin", L"Latitude of Origin", L"False Easting", L"False Northing",
                                    L"Scale Factor at the Central Meridian", L"Grid Skew"}));
    EXPECT_EQ((std::vector<CString>{m_texts.begin(), m_texts.end()}),
              (std::vector<CString>{L"002°00'00.0000000\"W", L"49°00'00.0000000\"N", L"400000", L"-100000",
                                    L"0.99960127", L"0.25000"}));
    EXPECT_EQ((std::vector<UINT>{m_kinds.begin(), m_kinds.end()}), (std::vector<UINT>{1, 2, 3, 3, 4, 5}));
}

TEST_F(CTMprjTest, TakesNameAndTitleOfItsRecord)
{
    const TempDirectory directory;
    ProjectionRecord record = BritishGrid();
    ASSERT_TRUE(record.file.FileSave(directory.File("grids.geo"), FileMode::saveExclusive));
    FileObject file;
    ASSERT_TRUE(file.FileOpen(directory.File("grids.geo"), FileMode::openForReading));
    m_projection.SetName(L"Transverse Mercator");
    EXPECT_FALSE(m_projection.LoadParameters(file, L"Prj-Other"));
    EXPECT_EQ(m_projection.GetName(), L"Transverse Mercator");
    EXPECT_TRUE(m_projection.LoadParameters(file, record.section));
    EXPECT_EQ(m_projection.GetName(), L"Prj-Test");
    EXPECT_EQ(m_projection.GetFileTitle(), L"grids");
}

TEST_F(CTMprjTest, NeedsEachKeyButTheGridSkew)
{
    for (const int index : {3, 4, 5, 6, 7}) {
        ProjectionRecord record = BritishGrid();
        record.Remove(index);
        CTMprj projection;
        projection.SetEllipsoid(kAiry.a, kAiry.e2);
        EXPECT_FALSE(projection.LoadParameters(record.file, record.section)) << index;
        TakeConstants(projection);
        EXPECT_EQ(m_values[5], 0.25) << "what stands behind the missing key is read and listed";
        EXPECT_FALSE(m_names[0].IsEmpty());
        EXPECT_FALSE(m_names[4].IsEmpty());
    }
}

TEST_F(CTMprjTest, AMissingGridSkewIsZeroWithLabelAndText)
{
    ASSERT_TRUE(Load(BritishGrid()));
    ProjectionRecord record = BritishGrid();
    record.Remove(ProjectionKey::gridSkew);
    EXPECT_TRUE(Load(record));
    TakeConstants(m_projection);
    EXPECT_EQ(m_values[5], 0.0);
    EXPECT_EQ(m_names[5], L"Grid Skew");
    EXPECT_EQ(m_texts[5], L"0");
}

TEST_F(CTMprjTest, WithoutEllipsoidTheLoadFailsWithAllConstants)
{
    CTMprj projection;
    ProjectionRecord record = BritishGrid();
    EXPECT_FALSE(projection.LoadParameters(record.file, record.section));
    EXPECT_EQ(projection.GetStatus(), 1);
    TakeConstants(projection);
    EXPECT_EQ(m_values[4], 0.9996012717);
    EXPECT_EQ(m_texts[5], L"0.25000");
}

TEST_F(CTMprjTest, FailsWhenTheCatalogueDoesNotKnowTheType)
{
    const MainDirectory nowhere(L"");
    EXPECT_FALSE(Load(BritishGrid()));
}

TEST_F(CTMprjTest, ThrowsWhenTheCatalogueCountsOnePlaceTooFew)
{
    const TempDirectory directory;
    directory.Write("ZorProjectionStatic.dat",
                    "[Projections-Section]\n0=TM\n[ParaStatic-Section]\nLatOrigin=Lat,2\nLonOrigin=Lon,1\n"
                    "[TM]\n0=LonOrigin\n1=LatOrigin\n");
    const MainDirectory main(directory.Directory());
    EXPECT_THROW(Load(BritishGrid()), std::invalid_argument) << "no Unitflag: one place for two parameters";
}

TEST_F(CTMprjTest, RefusesASmallScaleFactorInSilence)
{
    struct Row {
        double k0;
        std::int32_t status;
    };
    const Row rows[] = {{0.0, 2}, {-1.0, 2}, {std::nextafter(0.8, 0.0), 2}, {0.8, 0}, {2.0, 0}};
    for (const Row& row : rows) {
        ProjectionRecord record = BritishGrid();
        record.Set(ProjectionKey::scaleFactor, row.k0);
        EXPECT_EQ(Load(record), row.status == 0) << row.k0;
        EXPECT_EQ(m_projection.GetStatus(), row.status) << row.k0;
        EXPECT_EQ(m_projection.InitConstants(), static_cast<std::uint32_t>(row.status)) << row.k0;
    }
}

TEST_F(CTMprjTest, AsksForTheEllipsoidBeforeTheScaleFactor)
{
    m_projection.SetEllipsoid(1000.0, 0.0);
    EXPECT_EQ(m_projection.InitConstants(), 1U);
    EXPECT_EQ(m_projection.GetStatus(), 1);
}

class SizedProjection : public CTMprj {
public:
    bool IsSized() const { return m_sized; }
    void SetSized() { m_sized = true; }
};

TEST_F(CTMprjTest, SizesTheConstantsUnlessADerivedClassHas)
{
    SizedProjection projection;
    EXPECT_FALSE(projection.IsSized());
    projection.SetEllipsoid(kAiry.a, kAiry.e2);
    projection.SetConstantsSize(9);
    ProjectionRecord record = BritishGrid();
    EXPECT_TRUE(projection.LoadParameters(record.file, record.section));
    EXPECT_EQ(projection.GetConstantsSize(), 6);
    projection.SetConstantsSize(9);
    projection.SetSized();
    EXPECT_TRUE(projection.LoadParameters(record.file, record.section));
    EXPECT_EQ(projection.GetConstantsSize(), 9);
}

// Saving and showing.

TEST_F(CTMprjTest, SavesWhatItLoaded)
{
    ASSERT_TRUE(Load(BritishGrid()));
    FileObject file;
    EXPECT_TRUE(m_projection.SaveParameters(file, L"S"));
    std::vector<CString> keys;
    FobjSection cursor;
    CString key;
    CString value;
    for (bool more = file.GetFirstMapEntry(cursor, L"S", key, value); more;
         more = file.GetNextMapEntry(cursor, key, value)) {
        keys.push_back(key);
    }
    std::vector<CString> expected;
    for (const int index : {3, 4, 5, 6, 7, 16, 1}) {
        expected.push_back(ProjectionRecord::Key(index));
    }
    EXPECT_EQ(keys, expected);
    EXPECT_EQ(value, L"0");
    for (const auto& [index, number] :
         {std::pair{3, 49.0}, {4, -2.0}, {5, 4e5}, {6, -1e5}, {7, 0.9996012717}, {16, 0.25}}) {
        double read = 0.0;
        EXPECT_TRUE(file.GetItem(L"S", ProjectionRecord::Key(index), read));
        EXPECT_EQ(read, number);
    }
}

TEST_F(CTMprjTest, WritesItsParametersAsXml)
{
    ProjectionRecord record = BritishGrid();
    record.Set(ProjectionKey::gridSkew, 1.23456789);
    ASSERT_TRUE(Load(record));
    std::wostringstream stream;
    m_projection.DumpXml(stream, L" ");
    EXPECT_EQ(stream.str(), L" <projection>\n"
                            L"   <name>Prj-Test</name>\n"
                            L"   <type>Transfer Mercator</type>\n"
                            L"   <latitude_origin>49°00&apos;00.0000000&quot;N</latitude_origin>\n"
                            L"   <longitude_origin>002°00&apos;00.0000000&quot;W</longitude_origin>\n"
                            L"   <false_easting>400000.000</false_easting>\n"
                            L"   <false_northing>-100000.000</false_northing>\n"
                            L"   <scale_factor>0.999601</scale_factor>\n"
                            L"   <grid_skew>1.23457</grid_skew>\n"
                            L" </projection>\n");
}

TEST_F(CTMprjTest, HasNoGeoKeyForTheGridSkew)
{
    ASSERT_TRUE(Load(BritishGrid()));
    std::list<std::pair<int, short>> codes;
    std::list<std::pair<int, double>> parameters;
    m_projection.GetGeoKeys(codes, parameters);
    EXPECT_EQ(codes, (std::list<std::pair<int, short>>{{3072, 32767}, {3074, 32767}, {3075, 1}}));
    EXPECT_EQ(parameters, (std::list<std::pair<int, double>>{
                              {3082, 400000.0}, {3083, -100000.0}, {3093, 0.9996012717}, {3088, -2.0}, {3081, 49.0}}));
}

// Positions. The expected numbers are the series evaluated with 40 digits on GRS80.

TEST_F(CTMprjTest, KeepsTheNorthingWithoutATermInL6)
{
    const auto projection = Loaded(0, kGrs80, Plain());
    Grid at = ToGrid(*projection, 45.0, 6.0);
    EXPECT_NEAR(at.easting, 473081.02381492904, 1e-8);
    EXPECT_NEAR(at.northing, 5002492.0023230544, 1e-8) << "with the term: ...0021534793";
    at = ToGrid(*projection, 20.0, 6.0);
    EXPECT_NEAR(at.easting, 628768.95887024621, 1e-8);
    EXPECT_NEAR(at.northing, 2223655.2706887711, 1e-8) << "with the term: ...2711862937";
}

TEST_F(CTMprjTest, KeepsCoefficient721OfTheInverseLongitude)
{
    const auto projection = Loaded(0, kGrs80, Plain());
    Geo at = ToGeo(*projection, 240000.0, 7600000.0);
    EXPECT_NEAR(at.latitude, 68.383084486769101, 1e-13);
    EXPECT_NEAR(at.longitude, 5.8426604260430679, 1e-13) << "with 720: ...4269075594";
    at = ToGeo(*projection, 500000.0, 8000000.0);
    EXPECT_NEAR(at.latitude, 71.538344632537975, 1e-13);
    EXPECT_NEAR(at.longitude, 14.258985490851239, 1e-13) << "with 720: ...6064082270";
}

TEST_F(CTMprjTest, FoldsALongitude359DegreesAway)
{
    ASSERT_TRUE(Load(BritishGrid()));
    const Grid folded = ToGrid(m_projection, 52.0, 357.0);
    const Grid near = ToGrid(m_projection, 52.0, -3.0);
    EXPECT_EQ(folded.easting, near.easting);
    EXPECT_EQ(folded.northing, near.northing);
}

TEST_F(CTMprjTest, FoldsTheLongitudeThatItGives)
{
    ProjectionRecord record = Plain();
    record.Set(ProjectionKey::lonOrigin, 179.0);
    const auto projection = Loaded(0, kGrs80, record);
    EXPECT_NEAR(ToGeo(*projection, 200000.0, 0.0).longitude, -180.0 + 0.796, 0.01);
}

// The tangent of the double nearest to 90 degrees is 1.6e16, its square 2.7e32: the terms that hold
// them are multiplied by powers of a difference of longitude times 6e-17, and stay finite.
TEST_F(CTMprjTest, GivesThePoleAtALatitudeOf90)
{
    const auto projection = Loaded(0, kGrs80, Plain());
    for (const double longitude : {0.0, 3.0, -90.0, 180.0}) {
        const Grid north = ToGrid(*projection, 90.0, longitude);
        EXPECT_NEAR(north.easting, 0.0, 1e-8) << longitude;
        // A quarter of the meridian of GRS80 (Moritz, Geodetic Reference System 1980).
        EXPECT_NEAR(north.northing, 10001965.7293, 1e-4) << longitude;
        EXPECT_NEAR(ToGrid(*projection, -90.0, longitude).northing, -10001965.7293, 1e-4) << longitude;
    }
}

TEST_F(CTMprjTest, GivesNoNumberForNoNumber)
{
    ASSERT_TRUE(Load(BritishGrid()));
    for (const double bad : {kNaN, kInfinity, -kInfinity}) {
        EXPECT_TRUE(std::isnan(ToGrid(m_projection, bad, 0.0).northing)) << bad;
        EXPECT_TRUE(std::isnan(ToGrid(m_projection, 50.0, bad).easting)) << bad;
        EXPECT_TRUE(std::isnan(ToGeo(m_projection, bad, 0.0).longitude)) << bad;
        EXPECT_TRUE(std::isnan(ToGeo(m_projection, 0.0, bad).latitude)) << bad;
    }
    EXPECT_TRUE(std::isnan(m_projection.PointScaleFactor(kNaN, 0.0)));
    double convergence = 0.0;
    m_projection.GridConvergence(0.0, kNaN, convergence);
    EXPECT_TRUE(std::isnan(convergence));
}

TEST_F(CTMprjTest, GivesZerosWithoutScaleFactorOrRadius)
{
    Geo at{1.0, 1.0};
    m_projection.GridToGeo(1000.0, 1000.0, at.latitude, at.longitude);
    EXPECT_EQ(at.latitude, 0.0);
    EXPECT_EQ(at.longitude, 0.0);

    // Loaded once, then refused with a scale factor of 0: the radius of the first load still stands.
    ASSERT_TRUE(Load(BritishGrid()));
    ProjectionRecord record = BritishGrid();
    record.Set(ProjectionKey::scaleFactor, 0.0);
    EXPECT_FALSE(Load(record));
    at = ToGeo(m_projection, 1000.0, 1000.0);
    EXPECT_EQ(at.latitude, 0.0);
    EXPECT_EQ(at.longitude, 0.0);
}

TEST_F(CTMprjTest, AGridSkewOfZeroChangesNothing)
{
    ProjectionRecord without = BritishGrid();
    without.Remove(ProjectionKey::gridSkew);
    ProjectionRecord zero = BritishGrid();
    zero.Set(ProjectionKey::gridSkew, 0.0);
    const Grid a = ToGrid(*Loaded(0, kAiry, without), 50.5, 0.5);
    const Grid b = ToGrid(*Loaded(0, kAiry, zero), 50.5, 0.5);
    EXPECT_EQ(a.easting, b.easting);
    EXPECT_EQ(a.northing, b.northing);
}

TEST_F(CTMprjTest, AGridSkewTurnsTheGridAboutTheFalseOrigin)
{
    const Grid straight = ToGrid(*Loaded(0, kGrs80, Plain(0.9996)), 48.0, 2.0);
    struct Row {
        double skew;
        double sine;
        double cosine;
    };
    const Row rows[] = {
        {90.0, 1.0, 0.0}, {180.0, 0.0, -1.0}, {30.0, 0.5, std::sqrt(0.75)}, {-30.0, -0.5, std::sqrt(0.75)}};
    for (const Row& row : rows) {
        ProjectionRecord record = Plain(0.9996, row.skew);
        record.Set(ProjectionKey::falseEasting, 1000.0);
        record.Set(ProjectionKey::falseNorthing, 2000.0);
        const auto projection = Loaded(0, kGrs80, record);
        const Grid turned = ToGrid(*projection, 48.0, 2.0);
        EXPECT_NEAR(turned.easting, straight.easting * row.cosine - straight.northing * row.sine + 1000.0, 1e-8);
        EXPECT_NEAR(turned.northing, straight.easting * row.sine + straight.northing * row.cosine + 2000.0, 1e-8);
        const Geo back = ToGeo(*projection, turned.easting, turned.northing);
        EXPECT_NEAR(back.latitude, 48.0, 1e-10);
        EXPECT_NEAR(back.longitude, 2.0, 1e-10);
    }
}

// Convergence and scale.

TEST_F(CTMprjTest, ConvergenceIsNegativeEastOfTheMeridianInTheNorth)
{
    struct Row {
        double latitude;
        double longitude;
        double convergence; // degrees: the sine of the latitude is 0.5
    };
    const Row rows[] = {{30.0, 2.0, -1.0}, {30.0, -2.0, 1.0}, {-30.0, 2.0, 1.0}, {-30.0, -2.0, -1.0}};
    for (const double skew : {0.0, 0.75}) {
        const auto projection = Loaded(0, kGrs80, Plain(1.0, skew));
        for (const Row& row : rows) {
            const Grid at = ToGrid(*projection, row.latitude, row.longitude);
            double convergence = kNaN;
            projection->GridConvergence(at.easting, at.northing, convergence);
            EXPECT_NEAR(convergence, row.convergence - skew, 1e-9) << row.latitude << " " << row.longitude;
        }
        double convergence = kNaN;
        projection->GridConvergence(0.0, 0.0, convergence);
        EXPECT_EQ(convergence, -skew);
    }
}

TEST_F(CTMprjTest, ConvergenceFoldsTheDifferenceOfLongitude)
{
    ProjectionRecord record = Plain();
    record.Set(ProjectionKey::lonOrigin, 179.0);
    const auto projection = Loaded(0, kGrs80, record);
    const Grid at = ToGrid(*projection, 30.0, -179.0);
    double convergence = kNaN;
    projection->GridConvergence(at.easting, at.northing, convergence);
    EXPECT_NEAR(convergence, -1.0, 1e-9);
}

TEST_F(CTMprjTest, ScaleFactorIsK0OnTheMeridianAndGrowsWithTheSquareOfTheDistance)
{
    const auto projection = Loaded(0, kGrs80, Plain(0.9996));
    EXPECT_EQ(projection->PointScaleFactor(0.0, 5e6), 0.9996);
    const double near = projection->PointScaleFactor(1e5, 5e6) - 0.9996;
    const double far = projection->PointScaleFactor(-2e5, 5e6) - 0.9996;
    EXPECT_NEAR(far / near, 4.0, 1e-4);
    // Snyder (1987), p. 270: k = 0.9997989 at 127106.5 m from the meridian, on Clarke 1866.
    const auto snyder = Loaded(0, {6378206.4, 0.00676866}, Plain(0.9996));
    EXPECT_NEAR(snyder->PointScaleFactor(127106.5, 4484124.4), 0.9997989, 5e-8);
    double factor = 0.0;
    snyder->PointScaleFactor(127106.5, 4484124.4, factor);
    EXPECT_EQ(factor, snyder->PointScaleFactor(127106.5, 4484124.4));
}

TEST_F(CTMprjTest, ScaleFactorsOfPointAndLineAgreeOnALineOfNoLength)
{
    const auto projection = Loaded(0, kGrs80, Plain(0.9996));
    EXPECT_NEAR(projection->LineScaleFactor(2e5, 5e6, 2e5, 5e6), projection->PointScaleFactor(2e5, 5e6), 1e-15);
    double factor = 0.0;
    projection->LineScaleFactor(1e5, 5e6, 3e5, 5.2e6, factor);
    EXPECT_EQ(factor, projection->LineScaleFactor(1e5, 5e6, 3e5, 5.2e6));
}

// Kept: the distances of the scale rules are the eastings as they stand.
TEST_F(CTMprjTest, GridSkewDoesNotEnterTheScaleRules)
{
    const auto skewed = Loaded(0, kGrs80, Plain(0.9996, 90.0));
    // With the grid turned by 90 degrees the easting is a distance along the meridian.
    EXPECT_GT(skewed->PointScaleFactor(-5e6, 0.0), 1.2);
    EXPECT_EQ(skewed->PointScaleFactor(0.0, 2e5), 0.9996);
}

TEST_F(CTMprjTest, AUnitChangedAfterTheLoadChangesAAndNotG)
{
    const auto metres = Loaded(0, kGrs80, Plain());
    const Grid before = ToGrid(*metres, 45.0, 1.0);
    const LinearUnit foot(0.3048);
    const Grid after = ToGrid(*metres, 45.0, 1.0);
    EXPECT_NEAR(after.easting, before.easting / 0.3048, 1e-7) << "the radius of curvature follows the unit";
    const Grid meridian = ToGrid(*metres, 45.0, 0.0);
    EXPECT_NEAR(meridian.northing, 4984944.377, 1e-2) << "the arc is that of the load";
}

} // namespace
