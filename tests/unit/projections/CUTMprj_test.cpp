#include "projections/CUTMprj.h"

#include <gtest/gtest.h>

#include <sstream>
#include <vector>

#include "tests/support/ProjOracle.h"
#include "tests/support/ProjectionRecord.h"
#include "tests/support/TempDirectory.h"

namespace {

ProjectionRecord Zone31()
{
    ProjectionRecord record({{3, 0.0}, {4, 3.0}, {5, 500000.0}, {6, 0.0}, {7, 0.9996}, {16, 0.0}});
    record.Set(ProjectionKey::utmZone, L"Zone 31     (  3 E)");
    record.Set(ProjectionKey::hemisphere, L"Northern");
    return record;
}

class CUTMprjTest : public testing::Test {
protected:
    CUTMprjTest() { m_projection.SetEllipsoid(kGrs80.a, kGrs80.e2); }
    bool Load(ProjectionRecord record) { return m_projection.LoadParameters(record.file, record.section); }
    std::vector<CString> Texts() const
    {
        CArray<double, double> values;
        CStringArray names;
        CStringArray texts;
        CArray<UINT, UINT> kinds;
        EXPECT_TRUE(m_projection.GetProjectionConstants(values, names, texts, kinds));
        return {texts.begin(), texts.end()};
    }

    MainDirectory m_main{MainDirectory::Delivered()};
    CUTMprj m_projection;
};

TEST_F(CUTMprjTest, LoadsZoneAndHemisphere)
{
    EXPECT_EQ(m_projection.GetType(), 1);
    EXPECT_TRUE(m_projection.GetZone().IsEmpty());
    EXPECT_TRUE(Load(Zone31()));
    EXPECT_EQ(m_projection.GetZone(), L"Zone 31     (  3 E)");
    EXPECT_EQ(m_projection.GetHemisphere(), L"Northern");
    EXPECT_EQ(m_projection.GetName(), L"Prj-Test");
}

TEST_F(CUTMprjTest, ListsNumbersAndTexts)
{
    EXPECT_TRUE(Load(Zone31()));
    EXPECT_EQ(Texts(), (std::vector<CString>{L"003°00'00.0000000\"E", L"00°00'00.0000000\"N", L"500000", L"0",
                                             L"0.99960", L"0", L"Zone 31     (  3 E)", L"Northern"}));
}

TEST_F(CUTMprjTest, LoadsWithoutItsTexts)
{
    ProjectionRecord record = Zone31();
    record.Remove(ProjectionKey::utmZone);
    record.Remove(ProjectionKey::hemisphere);
    EXPECT_TRUE(Load(record));
    EXPECT_TRUE(m_projection.GetZone().IsEmpty());
    EXPECT_EQ(Texts()[6], L"");
}

TEST_F(CUTMprjTest, ComputesNoZone)
{
    ProjectionRecord record = Zone31();
    record.Set(ProjectionKey::utmZone, L"any words");
    record.Set(ProjectionKey::hemisphere, L"northern");
    EXPECT_TRUE(Load(record));
    EXPECT_EQ(m_projection.GetZone(), L"any words");
    double easting = 0.0;
    double northing = 0.0;
    m_projection.GeoToGrid(0.0, 3.0, easting, northing);
    EXPECT_EQ(easting, 500000.0);
    EXPECT_EQ(northing, 0.0);
}

TEST_F(CUTMprjTest, FailsAsTransverseMercatorDoes)
{
    ProjectionRecord record = Zone31();
    record.Remove(ProjectionKey::scaleFactor);
    EXPECT_FALSE(Load(record));
    EXPECT_EQ(Texts()[7], L"Northern");

    CUTMprj bare;
    ProjectionRecord whole = Zone31();
    EXPECT_FALSE(bare.LoadParameters(whole.file, whole.section)) << "no ellipsoid";
    EXPECT_EQ(bare.GetZone(), L"Zone 31     (  3 E)");
    EXPECT_FALSE(m_projection.LoadParameters(whole.file, L"Prj-Other"));
}

TEST_F(CUTMprjTest, FailsWithoutCatalogueBeforeAnyRead)
{
    const MainDirectory nowhere(L"");
    EXPECT_FALSE(Load(Zone31()));
    EXPECT_TRUE(m_projection.GetZone().IsEmpty());
    EXPECT_TRUE(m_projection.GetName().IsEmpty());
}

// Once this class has sized the arrays, the load of Transverse Mercator leaves their size alone.
TEST_F(CUTMprjTest, SizesTheConstantsOnce)
{
    EXPECT_TRUE(Load(Zone31()));
    EXPECT_EQ(m_projection.GetConstantsSize(), 8);
    m_projection.SetConstantsSize(9);
    ProjectionRecord record = Zone31();
    EXPECT_TRUE(m_projection.CTMprj::LoadParameters(record.file, record.section));
    EXPECT_EQ(m_projection.GetConstantsSize(), 9);
    EXPECT_TRUE(Load(Zone31()));
    EXPECT_EQ(m_projection.GetConstantsSize(), 8);
}

TEST_F(CUTMprjTest, SavesTheTextsBehindTheType)
{
    ASSERT_TRUE(Load(Zone31()));
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
    for (const int index : {3, 4, 5, 6, 7, 16, 1, 12, 11}) {
        expected.push_back(ProjectionRecord::Key(index));
    }
    EXPECT_EQ(keys, expected);
    EXPECT_EQ(value, L"Zone 31     (  3 E)");

    CUTMprj again;
    again.SetEllipsoid(kGrs80.a, kGrs80.e2);
    EXPECT_TRUE(again.LoadParameters(file, L"S"));
    EXPECT_EQ(again.GetZone(), m_projection.GetZone());
    EXPECT_EQ(again.GetHemisphere(), m_projection.GetHemisphere());
}

TEST_F(CUTMprjTest, WritesZoneAndHemisphereBehindTheParameters)
{
    ASSERT_TRUE(Load(Zone31()));
    std::wostringstream stream;
    m_projection.DumpXml(stream, L"");
    EXPECT_EQ(stream.str(), L"<projection>\n"
                            L"  <name>Prj-Test</name>\n"
                            L"  <type>Universal Transfer Mercator</type>\n"
                            L"  <latitude_origin>00°00&apos;00.0000000&quot;N</latitude_origin>\n"
                            L"  <longitude_origin>003°00&apos;00.0000000&quot;E</longitude_origin>\n"
                            L"  <false_easting>500000.000</false_easting>\n"
                            L"  <false_northing>0.000</false_northing>\n"
                            L"  <scale_factor>0.999600</scale_factor>\n"
                            L"  <grid_skew>0</grid_skew>\n"
                            L"  <zone>Zone 31     (  3 E)</zone>\n"
                            L"  <hemisphere>Northern</hemisphere>\n"
                            L"</projection>\n");
}

TEST_F(CUTMprjTest, HasTheGeoKeysOfTransverseMercator)
{
    ASSERT_TRUE(Load(Zone31()));
    std::list<std::pair<int, short>> codes;
    std::list<std::pair<int, double>> parameters;
    m_projection.GetGeoKeys(codes, parameters);
    EXPECT_EQ(codes, (std::list<std::pair<int, short>>{{3072, 32767}, {3074, 32767}, {3075, 1}}));
    EXPECT_EQ(parameters, (std::list<std::pair<int, double>>{
                              {3082, 500000.0}, {3083, 0.0}, {3093, 0.9996}, {3088, 3.0}, {3081, 0.0}}));
}

// The series has 0.02 mm within the 3 degrees of a zone.
TEST_F(CUTMprjTest, AgreesWithProjInEveryZone)
{
    for (int zone = 1; zone <= 60; ++zone) {
        for (const bool south : {false, true}) {
            ProjectionRecord record = Zone31();
            record.Set(ProjectionKey::lonOrigin, zone * 6.0 - 183.0);
            record.Set(ProjectionKey::falseNorthing, south ? 1e7 : 0.0);
            const auto utm = Loaded(1, kGrs80, record);
            const ProjOracle proj("+proj=utm +ellps=GRS80 +zone=" + std::to_string(zone) + (south ? " +south" : ""));
            for (const double latitude : {0.0, 10.0, 45.0, 84.0}) {
                const double phi = south ? -latitude : latitude;
                const double lambda = zone * 6.0 - 180.0 - 1e-9;
                double easting = 0.0;
                double northing = 0.0;
                utm->GeoToGrid(phi, lambda, easting, northing);
                const auto expected = proj.Forward(ProjOracle::Radians(lambda), ProjOracle::Radians(phi));
                EXPECT_NEAR(easting, expected.x, 2e-5) << zone;
                EXPECT_NEAR(northing, expected.y, 2e-5) << zone;
            }
        }
    }
}

} // namespace
