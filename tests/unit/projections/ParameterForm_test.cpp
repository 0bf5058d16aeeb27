#include "projections/ParameterForm.h"

#include <gtest/gtest.h>

#include <limits>
#include <locale>
#include <sstream>
#include <vector>

#include "projections/ProjectionType.h"
#include "tests/support/ProjectionRecord.h"

namespace {

/// A projection of which every list of the form has an order of its own.
class FormProjection : public CProjection {
public:
    FormProjection() : CProjection(ProjectionType::universalPolar) {}

    std::uint32_t InitConstants() override
    {
        ++initialised;
        return SetStatus(initResult);
    }
    bool LoadParameters(FileObject& file, const CString& section) override
    {
        return LoadByForm(*this, Form(), file, section, sizing);
    }
    bool SaveParameters(FileObject& file, const CString& section) override
    {
        return SaveByForm(*this, Form(), file, section);
    }
    void GeoToGrid(double, double, double&, double&) const override {}
    void GridToGeo(double, double, double&, double&) const override {}
    void GridConvergence(double, double, double&) const override {}
    double PointScaleFactor(double, double) const override { return 1.0; }
    void PointScaleFactor(double, double, double&) const override {}
    double LineScaleFactor(double, double, double, double) const override { return 1.0; }
    void LineScaleFactor(double, double, double, double, double&) const override {}
    bool GetProjectionConstants(CArray<double, double>& values, CStringArray& names, CStringArray& texts,
                                CArray<UINT, UINT>& kinds) const override
    {
        return CProjection::GetProjectionConstants(values, names, texts, kinds);
    }
    void GetGeoKeys(std::list<std::pair<int, short>>& codes,
                    std::list<std::pair<int, double>>& parameters) const override
    {
        GeoKeysByForm(*this, Form(), codes, parameters);
    }
    void DumpParametersXml(std::wostream& stream, const std::wstring& indent) const override
    {
        DumpXmlByForm(*this, Form(), stream, indent);
    }

    double east = 0.0, north = 0.0, scale = 9.0, shape = 9.0, derived = 0.0;
    CString hemisphere;
    int initialised = 0;
    std::uint32_t initResult = ProjectionStatus::usable;
    Sizing sizing = Sizing::fromCatalogue;

private:
    void Derive() { derived = 2.0 * east; }

    static const ParameterForm<FormProjection>& Form()
    {
        using M = FormProjection;
        static constexpr LoadedParameter<M> load[] = {{ProjectionKey::falseEasting, &M::east},
                                                      {ProjectionKey::falseNorthing, &M::north},
                                                      {ProjectionKey::scaleFactor, &M::scale, Need::optional, 0.9},
                                                      {ProjectionKey::hemisphere, &M::hemisphere}};
        static constexpr SavedParameter<M> save[] = {{ProjectionKey::hemisphere, &M::hemisphere},
                                                     {ProjectionKey::scaleFactor, &M::scale},
                                                     {ProjectionKey::falseEasting, &M::east}};
        static constexpr XmlElement<M> xml[] = {
            {L"lat", &M::shape, Shown::latitude},        {L"lon", &M::shape, Shown::longitude},
            {L"two decimals", &M::east, Shown::length2}, {L"three", &M::east, Shown::length3},
            {L"ratio", &M::scale, Shown::ratio},         {L"plain", &M::east, Shown::streamed},
            {L"text", &M::hemisphere, Shown::text}};
        static constexpr GeoKey<M> geoKeys[] = {{3094, &M::scale}, {3094, &M::east}, {3082, &M::derived}};
        static constexpr ParameterForm<M> form = {load, save, xml, geoKeys, &M::Derive};
        return form;
    }
};

class ParameterFormTest : public testing::Test {
protected:
    ParameterFormTest() : m_record({{ProjectionKey::falseEasting, 10.0}, {ProjectionKey::falseNorthing, 20.0}})
    {
        m_record.Set(ProjectionKey::hemisphere, L"Southern");
    }
    bool Load() { return m_projection.LoadParameters(m_record.file, m_record.section); }
    std::vector<CString> Texts() const
    {
        CArray<double, double> values;
        CStringArray names;
        CStringArray texts;
        CArray<UINT, UINT> kinds;
        m_projection.GetProjectionConstants(values, names, texts, kinds);
        return {texts.begin(), texts.end()};
    }

    MainDirectory m_main{MainDirectory::Delivered()};
    ProjectionRecord m_record;
    FormProjection m_projection;
};

TEST_F(ParameterFormTest, LoadsAndListsTheParameters)
{
    EXPECT_TRUE(Load());
    EXPECT_EQ(m_projection.east, 10.0);
    EXPECT_EQ(m_projection.north, 20.0);
    EXPECT_EQ(m_projection.scale, 0.9) << "the default of an optional key, whatever the field held";
    EXPECT_EQ(m_projection.hemisphere, L"Southern");
    EXPECT_EQ(m_projection.derived, 20.0);
    EXPECT_EQ(m_projection.GetName(), m_record.section);
    EXPECT_EQ(m_projection.initialised, 1);
    EXPECT_EQ(Texts(), (std::vector<CString>{L"10", L"20", L"0.90000", L"Southern"}));
}

TEST_F(ParameterFormTest, ChangesNothingWithoutTheSection)
{
    m_projection.SetName(L"before");
    EXPECT_FALSE(m_projection.LoadParameters(m_record.file, L"Prj-Other"));
    EXPECT_EQ(m_projection.GetName(), L"before");
    EXPECT_EQ(m_projection.scale, 9.0);
    EXPECT_EQ(m_projection.initialised, 0);
    EXPECT_EQ(m_projection.GetConstantsSize(), 0);
}

TEST_F(ParameterFormTest, AMissingNumberStopsNothingAndFailsTheLoad)
{
    m_record.Remove(ProjectionKey::falseEasting);
    EXPECT_FALSE(Load());
    EXPECT_EQ(m_projection.north, 20.0);
    EXPECT_EQ(m_projection.hemisphere, L"Southern");
    EXPECT_EQ(m_projection.derived, 0.0) << "derived from what the field holds";
    EXPECT_EQ(m_projection.initialised, 1);
    EXPECT_EQ(Texts(), (std::vector<CString>{L"0", L"20", L"0.90000", L"Southern"}));
}

TEST_F(ParameterFormTest, AMissingRequiredTextFailsTheLoad)
{
    m_record.Remove(ProjectionKey::hemisphere);
    EXPECT_FALSE(Load());
    EXPECT_EQ(m_projection.north, 20.0);
}

TEST_F(ParameterFormTest, AValueThatIsNoNumberCountsAsMissing)
{
    m_record.Set(ProjectionKey::falseNorthing, L"twenty");
    EXPECT_FALSE(Load());
    m_record.Set(ProjectionKey::falseNorthing, L"20");
    m_record.Set(ProjectionKey::scaleFactor, L"one");
    EXPECT_TRUE(Load());
    EXPECT_EQ(m_projection.scale, 0.9);
}

TEST_F(ParameterFormTest, FailsWhenTheConstantsAreRefusedByTheClass)
{
    m_projection.initResult = ProjectionStatus::refusedParameter;
    EXPECT_FALSE(Load());
    EXPECT_EQ(Texts().size(), 4U);
}

TEST_F(ParameterFormTest, FailsWithoutCatalogueBehindTheReads)
{
    const MainDirectory nowhere(L"");
    EXPECT_FALSE(Load());
    EXPECT_EQ(m_projection.east, 10.0);
    EXPECT_EQ(m_projection.initialised, 0);
}

TEST_F(ParameterFormTest, SizesTheConstantsUnlessThatIsDone)
{
    m_projection.SetConstantsSize(2);
    m_projection.sizing = Sizing::done;
    EXPECT_THROW(Load(), std::invalid_argument) << "the third parameter comes just behind the two places";
    m_projection.SetConstantsSize(5);
    EXPECT_TRUE(Load());
    EXPECT_EQ(Texts().size(), 5U);
    m_projection.SetConstantsSize(1);
    EXPECT_FALSE(m_projection.SetConstantValue(ProjectionKey::scaleFactor, 1.0));
    m_projection.sizing = Sizing::fromCatalogue;
    EXPECT_TRUE(Load());
    EXPECT_EQ(Texts().size(), 4U);
}

TEST_F(ParameterFormTest, SavesInItsOwnOrderWithTheTypeLast)
{
    ASSERT_TRUE(Load());
    FileObject file;
    EXPECT_TRUE(m_projection.SaveParameters(file, L"New"));
    std::vector<CString> keys;
    FobjSection cursor;
    CString key;
    CString value;
    for (bool more = file.GetFirstMapEntry(cursor, L"New", key, value); more;
         more = file.GetNextMapEntry(cursor, key, value)) {
        keys.push_back(key);
    }
    EXPECT_EQ(keys, (std::vector<CString>{ProjectionRecord::Key(12), ProjectionRecord::Key(7), ProjectionRecord::Key(5),
                                          ProjectionRecord::Key(1)}));
    int type = 0;
    EXPECT_TRUE(file.GetItem(L"New", ProjectionRecord::Key(1), type));
    EXPECT_EQ(type, 15);
}

TEST_F(ParameterFormTest, WritesEachKindOfElement)
{
    m_projection.shape = -5.0 - 30.0 / 60.0;
    m_projection.east = 1234567.8916;
    m_projection.scale = 0.9996;
    m_projection.hemisphere = L"North & South";
    std::wostringstream stream;
    m_projection.DumpParametersXml(stream, L"  ");
    EXPECT_EQ(stream.str(), L"  <lat>05°30&apos;00.0000000&quot;S</lat>\n"
                            L"  <lon>005°30&apos;00.0000000&quot;W</lon>\n"
                            L"  <two decimals>1234567.89</two decimals>\n"
                            L"  <three>1234567.892</three>\n"
                            L"  <ratio>0.999600</ratio>\n"
                            L"  <plain>1.23457e+06</plain>\n"
                            L"  <text>North & South</text>\n");
}

class CommaNumbers : public std::numpunct<wchar_t> {
    wchar_t do_decimal_point() const override { return L','; }
    wchar_t do_thousands_sep() const override { return L'.'; }
    std::string do_grouping() const override { return "\3"; }
};

TEST_F(ParameterFormTest, FollowsThePrecisionOfTheStreamAndNotItsLocale)
{
    m_projection.east = 1234567.8916;
    std::wostringstream stream;
    stream.imbue(std::locale(std::locale::classic(), new CommaNumbers));
    stream.precision(10);
    m_projection.DumpParametersXml(stream, L"");
    EXPECT_NE(stream.str().find(L"<plain>1234567.892</plain>"), std::wstring::npos) << "streamed";
    EXPECT_NE(stream.str().find(L"<three>1234567.892</three>"), std::wstring::npos);
}

TEST_F(ParameterFormTest, AppendsCodesAndKeys)
{
    m_projection.east = 1.0;
    m_projection.scale = 2.0;
    m_projection.derived = 3.0;
    std::list<std::pair<int, short>> codes = {{1, 2}};
    std::list<std::pair<int, double>> parameters = {{3, 4.0}};
    m_projection.GetGeoKeys(codes, parameters);
    EXPECT_EQ(codes, (std::list<std::pair<int, short>>{{1, 2}, {3072, 32767}, {3074, 32767}, {3075, 18}}));
    EXPECT_EQ(parameters, (std::list<std::pair<int, double>>{{3, 4.0}, {3094, 2.0}, {3094, 1.0}, {3082, 3.0}}));
}

} // namespace
