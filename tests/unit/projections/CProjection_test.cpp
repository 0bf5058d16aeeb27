#include "projections/CProjection.h"

#include <gtest/gtest.h>

#include <limits>
#include <sstream>
#include <type_traits>

#include "tests/support/ProjectionRecord.h"
#include "tests/support/TempDirectory.h"

namespace {

/// A projection that counts how often its scale factor is asked for.
class CountingProjection : public CProjection {
public:
    explicit CountingProjection(std::int32_t type = 0) : CProjection(type) {}

    std::uint32_t InitConstants() override { return SetStatus(ProjectionStatus::usable); }
    bool LoadParameters(FileObject&, const CString&) override { return true; }
    bool SaveParameters(FileObject&, const CString&) override { return true; }
    void GeoToGrid(double, double, double&, double&) const override {}
    void GridToGeo(double, double, double&, double&) const override {}
    void GridConvergence(double, double, double&) const override {}
    double PointScaleFactor(double easting, double) const override
    {
        ++asked;
        return 1.0 + easting * 1e-6;
    }
    void PointScaleFactor(double easting, double northing, double& factor) const override
    {
        CProjection::PointScaleFactor(easting, northing, factor);
    }
    double LineScaleFactor(double e1, double n1, double e2, double n2) const override
    {
        return e1 + 10.0 * n1 + 100.0 * e2 + 1000.0 * n2;
    }
    void LineScaleFactor(double e1, double n1, double e2, double n2, double& factor) const override
    {
        CProjection::LineScaleFactor(e1, n1, e2, n2, factor);
    }
    bool GetProjectionConstants(CArray<double, double>& values, CStringArray& names, CStringArray& texts,
                                CArray<UINT, UINT>& kinds) const override
    {
        return CProjection::GetProjectionConstants(values, names, texts, kinds);
    }
    void GetGeoKeys(std::list<std::pair<int, short>>&, std::list<std::pair<int, double>>&) const override {}

    mutable int asked = 0;
};

struct Constants {
    CArray<double, double> values;
    CStringArray names;
    CStringArray texts;
    CArray<UINT, UINT> kinds;
};

Constants ConstantsOf(const CProjection& projection)
{
    Constants constants;
    EXPECT_TRUE(projection.GetProjectionConstants(constants.values, constants.names, constants.texts, constants.kinds));
    return constants;
}

class CProjectionWithCatalogue : public testing::Test {
protected:
    MainDirectory m_main{MainDirectory::Delivered()};
    CountingProjection m_projection;
};

/// With a catalogue of its own.
class CProjectionWithOtherCatalogue : public testing::Test {
protected:
    void Write(const char* text) { m_directory.Write("ZorProjectionStatic.dat", text); }

    TempDirectory m_directory;
    MainDirectory m_main{m_directory.Directory()};
    CountingProjection m_projection;
};

TEST(CProjection, StartsEmpty)
{
    const CountingProjection projection(-1);
    EXPECT_TRUE(projection.GetFileTitle().IsEmpty());
    EXPECT_TRUE(projection.GetName().IsEmpty());
    EXPECT_EQ(projection.GetType(), -1);
    EXPECT_EQ(projection.GetStatus(), 0);
    EXPECT_EQ(projection.GetEllipsoid().status, -1);
    double a = 1.0;
    double e2 = 1.0;
    projection.GetEllipsoid(a, e2);
    EXPECT_EQ(a, 0.0);
    EXPECT_EQ(e2, 0.0);
    EXPECT_EQ(projection.GetConstantsSize(), 0);
    EXPECT_FALSE(projection.GetScaleCache().valid);
    EXPECT_EQ(projection.GetScaleCache().factor, 0.0);
}

TEST(CProjection, IsAbstractAndNotCopied)
{
    EXPECT_TRUE(std::is_abstract_v<CProjection>);
    EXPECT_TRUE(std::has_virtual_destructor_v<CProjection>);
    EXPECT_FALSE(std::is_copy_constructible_v<CProjection>);
}

TEST(CProjection, GivesTheEllipsoidThatWasSet)
{
    CountingProjection projection;
    EXPECT_EQ(projection.SetEllipsoid(6378137.0, 0.0066), 0);
    double a = 0.0;
    double e2 = 0.0;
    projection.GetEllipsoid(a, e2);
    EXPECT_EQ(a, 6378137.0);
    EXPECT_EQ(e2, 0.0066);
    EXPECT_EQ(projection.SetEllipsoid(5000000.0, 0.0066), 1);
}

TEST(CProjection, StoresTheScaleFactorsInTheOutputs)
{
    const CountingProjection projection;
    double factor = 0.0;
    projection.PointScaleFactor(500.0, 0.0, factor);
    EXPECT_EQ(factor, 1.0005);
    projection.LineScaleFactor(1.0, 2.0, 3.0, 4.0, factor);
    EXPECT_EQ(factor, 4321.0);
}

TEST(CProjection, TakesNameAndTitleFromWhatItIsLoadedFrom)
{
    const TempDirectory directory;
    FileObject file;
    ASSERT_TRUE(
        file.FileOpen(directory.Write("harbour.geo", "[Prj-Harbour]\nLatOrigin=1\n"), FileMode::openForReading));
    CountingProjection projection;
    projection.SetName(L"Transverse Mercator");
    EXPECT_FALSE(projection.TakeSection(file, L"Prj-Other"));
    EXPECT_EQ(projection.GetName(), L"Transverse Mercator");
    EXPECT_TRUE(projection.GetFileTitle().IsEmpty());
    EXPECT_TRUE(projection.TakeSection(file, L"Prj-Harbour"));
    EXPECT_EQ(projection.GetName(), L"Prj-Harbour");
    EXPECT_EQ(projection.GetFileTitle(), L"harbour");
}

TEST_F(CProjectionWithCatalogue, PutsAParameterAtItsPlaceInTheCatalogue)
{
    m_projection.SetConstantsSize(6);
    EXPECT_TRUE(m_projection.SetConstantValue(ProjectionKey::falseEasting, 500000.0));
    const Constants constants = ConstantsOf(m_projection);
    EXPECT_EQ(constants.values[2], 500000.0);
    EXPECT_EQ(constants.names[2], L"False Easting");
    EXPECT_EQ(constants.texts[2], L"500000");
    EXPECT_EQ(constants.kinds[2], 3U);
    EXPECT_EQ(constants.values[0], 0.0);
    EXPECT_TRUE(constants.names[0].IsEmpty());
    EXPECT_EQ(constants.values.GetSize(), 6);
}

TEST_F(CProjectionWithCatalogue, ShowsNumbers)
{
    struct Row {
        int index;
        double value;
        const wchar_t* text;
    };
    constexpr int scale = ProjectionKey::scaleFactor;
    constexpr int east = ProjectionKey::falseEasting;
    const Row rows[] = {
        {east, 5.0, L"5"},
        {east, 0.0, L"0"},
        {east, -0.0, L"0"},
        {east, -100000.0, L"-100000"},
        {east, 5000000000.0, L"5000000000"},
        {east, 1e22, L"10000000000000000000000"},
        {east, 12.5, L"12.5000"},
        {east, 1234567.125, L"1234567.125"},
        {east, 0.1234567, L"0.123457"},
        {east, -0.5, L"-0.5000"},
        {east, 100000000.0000001, L"100000000."},
        {east, std::numeric_limits<double>::infinity(), L"inf"},
        {scale, 0.9996, L"0.99960"},
        {scale, 0.9996012717, L"0.99960127"},
        {scale, 1.0, L"1"},
    };
    m_projection.SetConstantsSize(6);
    for (const Row& row : rows) {
        EXPECT_TRUE(m_projection.SetConstantValue(row.index, row.value));
        EXPECT_EQ(ConstantsOf(m_projection).texts[row.index == scale ? 4 : 2], row.text) << row.value;
    }
}

TEST_F(CProjectionWithCatalogue, ShowsAngles)
{
    m_projection.SetConstantsSize(6);
    // 5 degrees 23 minutes 15.5 seconds, 52 degrees 9 minutes 22.178 seconds
    EXPECT_TRUE(m_projection.SetConstantValue(ProjectionKey::lonOrigin, 5.0 + 23.0 / 60.0 + 15.5 / 3600.0));
    EXPECT_TRUE(m_projection.SetConstantValue(ProjectionKey::latOrigin, -(52.0 + 9.0 / 60.0 + 22.178 / 3600.0)));
    const Constants constants = ConstantsOf(m_projection);
    EXPECT_EQ(constants.texts[0], L"005°23'15.5000000\"E");
    EXPECT_EQ(constants.texts[1], L"52°09'22.1780000\"S");
    EXPECT_EQ(constants.kinds[0], 1U);
    EXPECT_EQ(constants.kinds[1], 2U);
}

TEST_F(CProjectionWithCatalogue, ShowsATextAsItStands)
{
    CountingProjection utm(1);
    utm.SetConstantsSize(8);
    EXPECT_TRUE(utm.SetConstantText(ProjectionKey::utmZone, L"Zone 31     (  3 E)"));
    const Constants constants = ConstantsOf(utm);
    EXPECT_EQ(constants.texts[6], L"Zone 31     (  3 E)");
    EXPECT_EQ(constants.names[6], L"UTM Zone");
    EXPECT_EQ(constants.values[6], 0.0);
    EXPECT_EQ(constants.kinds[6], 6U);
}

TEST_F(CProjectionWithCatalogue, RefusesAPlaceFarBehindTheArraysAndThrowsJustBehindThem)
{
    m_projection.SetConstantsSize(3);
    EXPECT_FALSE(m_projection.SetConstantValue(ProjectionKey::scaleFactor, 1.0)) << "place 4 of 3";
    EXPECT_FALSE(m_projection.SetConstantText(ProjectionKey::scaleFactor, L"1"));
    EXPECT_THROW(m_projection.SetConstantValue(ProjectionKey::falseNorthing, 1.0), std::invalid_argument);
    EXPECT_TRUE(m_projection.SetConstantValue(ProjectionKey::falseEasting, 1.0)) << "place 2 of 3";
    EXPECT_THROW(m_projection.SetConstantsSize(-1), std::invalid_argument);
}

TEST_F(CProjectionWithCatalogue, GivesConstantsInPlaceOfWhatTheOutputsHeld)
{
    Constants constants;
    constants.values.Add(1.0);
    constants.names.Add(L"x");
    constants.texts.Add(L"x");
    constants.kinds.Add(1U);
    m_projection.SetConstantsSize(2);
    EXPECT_TRUE(
        m_projection.GetProjectionConstants(constants.values, constants.names, constants.texts, constants.kinds));
    EXPECT_EQ(constants.values.GetSize(), 2);
    EXPECT_EQ(constants.names.GetSize(), 2);
    EXPECT_EQ(constants.texts.GetSize(), 2);
    EXPECT_EQ(constants.kinds.GetSize(), 2);
    EXPECT_TRUE(constants.names[0].IsEmpty());
}

TEST_F(CProjectionWithOtherCatalogue, ALabelThatTheMethodLacksPutsTheValueInTheFirstPlace)
{
    Write("[Projections-Section]\n0=Only\n[ParaStatic-Section]\nLatOrigin=Lat,2\nFalseEasting=East,3\n"
          "[Only]\n0=LatOrigin\n1=LonOrigin\nUnitflag=1\n");
    m_projection.SetConstantsSize(2);
    EXPECT_TRUE(m_projection.SetConstantValue(ProjectionKey::falseEasting, 7.0));
    const Constants constants = ConstantsOf(m_projection);
    EXPECT_EQ(constants.values[0], 7.0);
    EXPECT_EQ(constants.names[0], L"East");
    EXPECT_EQ(constants.values[1], 0.0);
}

TEST_F(CProjectionWithOtherCatalogue, WithoutCatalogueTheValueGoesFirstWithoutLabel)
{
    m_projection.SetConstantsSize(2);
    EXPECT_TRUE(m_projection.SetConstantValue(ProjectionKey::falseEasting, 7.5));
    const Constants constants = ConstantsOf(m_projection);
    EXPECT_EQ(constants.values[0], 7.5);
    EXPECT_TRUE(constants.names[0].IsEmpty());
    EXPECT_EQ(constants.kinds[0], 0U);
    EXPECT_EQ(constants.texts[0], L"7.50000");
}

TEST_F(CProjectionWithOtherCatalogue, FindsThePlaceOfALabelWithoutRegardToCase)
{
    // Two keys whose labels differ in case: the second finds the place of the first.
    Write("[Projections-Section]\n0=Only\n[ParaStatic-Section]\nLatOrigin=Lat,2\nLonOrigin=name,3\n"
          "FalseEasting=NAME,3\n[Only]\n0=LatOrigin\n1=LonOrigin\nUnitflag=1\n");
    m_projection.SetConstantsSize(2);
    EXPECT_TRUE(m_projection.SetConstantValue(ProjectionKey::falseEasting, 7.0));
    EXPECT_EQ(ConstantsOf(m_projection).values[1], 7.0);
}

TEST_F(CProjectionWithOtherCatalogue, EightDecimalsBelongToTheExactLabelOfTheScaleFactor)
{
    Write("[Projections-Section]\n0=Only\n[ParaStatic-Section]\n"
          "ScaleFactor=Scale factor at the central meridian,4\n[Only]\n0=ScaleFactor\nUnitflag=1\n");
    m_projection.SetConstantsSize(1);
    EXPECT_TRUE(m_projection.SetConstantValue(ProjectionKey::scaleFactor, 0.9996012717));
    EXPECT_EQ(ConstantsOf(m_projection).texts[0], L"0.999601");
}

TEST(CProjection, WritesNameTypeAndParametersAsXml)
{
    CountingProjection projection(4);
    projection.SetName(L"Prj-Sea");
    std::wostringstream stream;
    projection.DumpXml(stream, L"\t");
    EXPECT_EQ(stream.str(), L"\t<projection>\n"
                            L"\t  <name>Prj-Sea</name>\n"
                            L"\t  <type>Mercator</type>\n"
                            L"\t</projection>\n");
}

TEST(CProjection, WritesANegativeTypeAsUnknowType)
{
    const CountingProjection projection(-1);
    std::wostringstream stream;
    projection.DumpTypeXml(stream, L"");
    EXPECT_EQ(stream.str(), L"<type>Unknow type</type>\n");
}

TEST(CProjection, ScalesOffsetsWithOneFactorWithin1000Units)
{
    CountingProjection projection;
    double x = 100.0;
    double y = 10.0;
    EXPECT_TRUE(projection.ProjectOffset(x, y, 500000.0, 0.0));
    EXPECT_EQ(projection.asked, 1);
    EXPECT_DOUBLE_EQ(x, 150.0);
    EXPECT_DOUBLE_EQ(y, 15.0);

    struct Row {
        double easting;
        double northing;
        int asked;
    };
    const Row rows[] = {{500999.0, 0.0, 1},    {499001.0, -999.0, 1}, {501000.0, 1000.0, 1}, {501001.0, 0.0, 2},
                        {501001.0, 1001.0, 3}, {500001.0, 1001.0, 3}, {501001.0, 2.0, 3},    {501001.0, 0.0, 4}};
    for (const Row& row : rows) {
        x = 1.0;
        EXPECT_TRUE(projection.ProjectOffset(x, y, row.easting, row.northing));
        EXPECT_EQ(projection.asked, row.asked) << row.easting << " " << row.northing;
    }
    EXPECT_EQ(projection.GetScaleCache().easting, 501001.0);
    EXPECT_EQ(projection.GetScaleCache().northing, 0.0);
}

TEST(CProjection, KeepsTheFactorOfThePointWhereItWasComputed)
{
    CountingProjection projection;
    double x = 1.0;
    double y = 1.0;
    projection.ProjectOffset(x, y, 0.0, 0.0);
    projection.ProjectOffset(x, y, 999.0, 0.0);
    projection.ProjectOffset(x, y, 1998.0, 0.0);
    EXPECT_EQ(projection.asked, 2) << "the reach is counted from where the factor was computed";
}

} // namespace
