#include "projections/ProjectionCatalogue.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <set>
#include <vector>

#include "tests/support/ProjectionRecord.h"
#include "tests/support/TempDirectory.h"

namespace {

std::vector<CString> List(const CStringArray& array)
{
    return {array.begin(), array.end()};
}

/// A catalogue of its own.
class ProjectionCatalogueFile : public testing::Test {
protected:
    void Write(const char* text) { m_directory.Write("ZorProjectionStatic.dat", text); }

    TempDirectory m_directory;
    MainDirectory m_main{m_directory.Directory()};
    ProjectionCatalogue m_catalogue;
    CStringArray m_names;
    CArray<UINT, UINT> m_numbers;
    CStringArray m_keys;
};

constexpr char kSmall[] = "[Projections-Section]\n"
                          "0=Plain\n"
                          "  7=Spaced\n"
                          "word=Wordy\n"
                          "3=Hidden one\n"
                          "4=No section\n"
                          "5=Empty\n"
                          "[NOTIMPLEMENT-SECTION]\n"
                          "any=HIDDEN ONE\n"
                          "[ParaStatic-Section]\n"
                          "LatOrigin=Latitude,2\n"
                          "LonOrigin=Longitude, 1\n"
                          "FalseEasting=Same,3\n"
                          "FalseNorthing=Same,3\n"
                          "ScaleFactor=No number\n"
                          "[Plain]\n"
                          "2=FalseEasting\n"
                          "0=LonOrigin\n"
                          "1=LatOrigin\n"
                          "Unitflag=0\n"
                          "[Hidden one]\n"
                          "0=latorigin\n"
                          "1=NoSuchKey\n"
                          "unitFLAG=0\n"
                          "[Spaced]\n"
                          "0=LatOrigin\n"
                          "1=LonOrigin\n"
                          "[Empty]\n";

TEST_F(ProjectionCatalogueFile, GivesNeutralAnswersWithoutAFile)
{
    m_names.Add(L"before");
    m_numbers.Add(7U);
    m_keys.Add(L"kept");
    EXPECT_FALSE(m_catalogue.OpenPrjStaticFile());
    m_catalogue.GetSelPrjMdResults(0, m_names, m_numbers, m_keys);
    EXPECT_EQ(m_names.GetSize(), 0);
    EXPECT_EQ(m_numbers.GetSize(), 0);
    EXPECT_EQ(List(m_keys), std::vector<CString>{L"kept"});
    m_names.Add(L"before");
    m_catalogue.GetAllPrjMdNames(m_names);
    EXPECT_EQ(m_names.GetSize(), 0);
    EXPECT_FALSE(m_catalogue.GetParaStaticData(0, m_names, m_numbers, m_keys));
    EXPECT_EQ(m_catalogue.GetPrjType(L"Plain"), -1);
    EXPECT_TRUE(m_catalogue.FindParamKey(L"Latitude").IsEmpty());
    UINT number = 9;
    EXPECT_TRUE(m_catalogue.FindStaticData(ProjectionKey::latOrigin, number).IsEmpty());
    EXPECT_EQ(number, 9U);
    EXPECT_EQ(m_catalogue.FindStaticDataSize(0), 0);
    EXPECT_FALSE(m_catalogue.CanPrjUnitChange(0));
}

TEST_F(ProjectionCatalogueFile, GivesNeutralAnswersWithoutItsSections)
{
    Write("[Plain]\n0=LonOrigin\nUnitflag=1\n");
    EXPECT_TRUE(m_catalogue.OpenPrjStaticFile());
    m_names.Add(L"before");
    m_catalogue.GetAllPrjMdNames(m_names);
    EXPECT_EQ(m_names.GetSize(), 0);
    EXPECT_FALSE(m_catalogue.GetParaStaticData(0, m_names, m_numbers, m_keys));
    EXPECT_EQ(m_catalogue.GetPrjType(L"Plain"), -1);
    EXPECT_TRUE(m_catalogue.FindParamKey(L"Latitude").IsEmpty());
    EXPECT_EQ(m_catalogue.FindStaticDataSize(0), 0);
    EXPECT_FALSE(m_catalogue.CanPrjUnitChange(0));
}

TEST_F(ProjectionCatalogueFile, ListsMethodsInFileOrderWithoutTheHiddenOnes)
{
    Write(kSmall);
    m_catalogue.GetAllPrjMdNames(m_names);
    EXPECT_EQ(List(m_names), (std::vector<CString>{L"Plain", L"Spaced", L"Wordy", L"No section", L"Empty"}));
}

TEST_F(ProjectionCatalogueFile, ListsAllMethodsWhenNoneIsHidden)
{
    Write("[Projections-Section]\n3=B\n1=A\n");
    m_catalogue.GetAllPrjMdNames(m_names);
    EXPECT_EQ(List(m_names), (std::vector<CString>{L"B", L"A"}));
}

TEST_F(ProjectionCatalogueFile, FindsAHiddenMethodByNameAndType)
{
    Write(kSmall);
    EXPECT_EQ(m_catalogue.GetPrjType(L"hidden ONE"), 3);
    EXPECT_TRUE(m_catalogue.GetParaStaticData(3, m_names, m_numbers, m_keys));
    EXPECT_EQ(List(m_names), std::vector<CString>{L"Latitude"});
}

TEST_F(ProjectionCatalogueFile, OrdersParametersByNumberAndNotByLine)
{
    Write(kSmall);
    m_catalogue.GetSelPrjMdResults(0, m_names, m_numbers, m_keys);
    EXPECT_EQ(List(m_names), (std::vector<CString>{L"Longitude", L"Latitude", L"Same"}));
    EXPECT_EQ((std::vector<UINT>{m_numbers.begin(), m_numbers.end()}), (std::vector<UINT>{1, 2, 3}));
    EXPECT_EQ(List(m_keys), (std::vector<CString>{L"LonOrigin", L"LatOrigin", L"FalseEasting"}));
}

TEST_F(ProjectionCatalogueFile, EmptiesNamesAndNumbersButNotKeys)
{
    Write(kSmall);
    m_names.Add(L"a");
    m_numbers.Add(5U);
    m_keys.Add(L"b");
    m_catalogue.GetSelPrjMdResults(7, m_names, m_numbers, m_keys);
    EXPECT_EQ(List(m_names), (std::vector<CString>{L"Latitude", L"Longitude"}));
    EXPECT_EQ(m_numbers.GetSize(), 2);
    EXPECT_EQ(List(m_keys), (std::vector<CString>{L"b", L"LatOrigin", L"LonOrigin"}));

    m_numbers.Add(5U);
    EXPECT_TRUE(m_catalogue.GetParaStaticData(7, m_names, m_numbers, m_keys));
    EXPECT_EQ(m_names.GetSize(), 2);
    EXPECT_EQ(m_numbers.GetSize(), 5);

    EXPECT_TRUE(m_catalogue.OpenPrjStaticFile());
    EXPECT_TRUE(m_catalogue.GetParaStaticData(L"Spaced", m_names, m_numbers, m_keys));
    EXPECT_EQ(m_names.GetSize(), 4) << "by section, nothing is emptied";
}

TEST_F(ProjectionCatalogueFile, KeyTextOfAnotherCaseGivesTheTablesSpelling)
{
    Write(kSmall);
    m_catalogue.GetSelPrjMdResults(3, m_names, m_numbers, m_keys);
    EXPECT_EQ(List(m_keys), std::vector<CString>{L"LatOrigin"});
}

TEST_F(ProjectionCatalogueFile, DropsAnUnknownKeyText)
{
    Write(kSmall);
    EXPECT_EQ(m_catalogue.FindStaticDataSize(3), 2);
    m_catalogue.GetSelPrjMdResults(3, m_names, m_numbers, m_keys);
    EXPECT_EQ(m_keys.GetSize(), 1);
}

TEST_F(ProjectionCatalogueFile, AGapInTheNumbersRepeatsTheLastReadAndLosesTheLastNumbers)
{
    Write("[Projections-Section]\n0=Gap\n1=Late\n"
          "[ParaStatic-Section]\nLatOrigin=Lat,2\nLonOrigin=Lon,1\nFalseEasting=East,3\n"
          "[Gap]\n0=LatOrigin\n2=LonOrigin\n3=FalseEasting\nUnitflag=1\n"
          "[Late]\n1=LatOrigin\n2=LonOrigin\nUnitflag=1\n");
    EXPECT_EQ(m_catalogue.FindStaticDataSize(0), 3);
    m_catalogue.GetSelPrjMdResults(0, m_names, m_numbers, m_keys);
    EXPECT_EQ(List(m_names), (std::vector<CString>{L"Lat", L"Lat", L"Lon"}));
    m_keys.RemoveAll();
    m_catalogue.GetSelPrjMdResults(1, m_names, m_numbers, m_keys);
    EXPECT_EQ(List(m_names), std::vector<CString>{L"Lat"}) << "nothing was read before the first gap";
}

TEST_F(ProjectionCatalogueFile, AMethodWithoutUnitflagCountsOneTooFewAndMayChangeItsUnit)
{
    Write(kSmall);
    EXPECT_EQ(m_catalogue.FindStaticDataSize(7), 1);
    EXPECT_TRUE(m_catalogue.CanPrjUnitChange(7));
    EXPECT_EQ(m_catalogue.FindStaticDataSize(0), 3);
    EXPECT_FALSE(m_catalogue.CanPrjUnitChange(0));
}

TEST_F(ProjectionCatalogueFile, CountsAMissingSectionAsNoneAndAnEmptyOneAsMinusOne)
{
    Write(kSmall);
    EXPECT_EQ(m_catalogue.FindStaticDataSize(4), 0);
    EXPECT_FALSE(m_catalogue.CanPrjUnitChange(4));
    EXPECT_EQ(m_catalogue.FindStaticDataSize(5), -1);
    EXPECT_TRUE(m_catalogue.CanPrjUnitChange(5));
    EXPECT_FALSE(m_catalogue.GetParaStaticData(4, m_names, m_numbers, m_keys));
    EXPECT_EQ(m_catalogue.FindStaticDataSize(99), 0);
    EXPECT_FALSE(m_catalogue.CanPrjUnitChange(99));
}

TEST_F(ProjectionCatalogueFile, ReadsTypeNumbersAsLeadingIntegers)
{
    // Through the writer, which keeps the leading blanks of a key.
    FileObject file;
    ASSERT_TRUE(file.FileOpen(m_directory.File("ZorProjectionStatic.dat"), FileMode::createNew));
    file.SetItem(L"Projections-Section", L"  7", L"Spaced", true);
    file.SetItem(L"Projections-Section", L"word", L"Wordy", true);
    file.SetItem(L"Projections-Section", L"0", L"Zero", true);
    file.SetItem(L"Projections-Section", L"12x", L"Twelve", true);
    file.SetItem(L"Wordy", L"0", L"LatOrigin", true);
    file.SetItem(L"Wordy", L"Unitflag", L"1", true);
    ASSERT_TRUE(file.FileSave(L"", FileMode::saveExclusive));

    EXPECT_EQ(m_catalogue.GetPrjType(L"Spaced"), 7);
    EXPECT_EQ(m_catalogue.GetPrjType(L"wordy"), 0) << "a key that is no number counts as 0";
    EXPECT_EQ(m_catalogue.GetPrjType(L"Twelve"), 12);
    EXPECT_EQ(m_catalogue.FindStaticDataSize(0), 1) << "the first key that counts as 0";
}

TEST_F(ProjectionCatalogueFile, GivesTheFirstOfTwoKeysWithOneLabel)
{
    Write(kSmall);
    EXPECT_EQ(m_catalogue.FindParamKey(L"SAME"), L"FalseEasting");
    EXPECT_EQ(m_catalogue.FindParamKey(L"longitude"), L"LonOrigin");
    EXPECT_TRUE(m_catalogue.FindParamKey(L"Unknown").IsEmpty());
}

TEST_F(ProjectionCatalogueFile, SplitsLabelAndKind)
{
    Write(kSmall);
    UINT number = 9;
    EXPECT_EQ(m_catalogue.FindStaticData(ProjectionKey::lonOrigin, number), L"Longitude");
    EXPECT_EQ(number, 1U);
    number = 9;
    EXPECT_EQ(m_catalogue.FindStaticData(ProjectionKey::scaleFactor, number), L"No number");
    EXPECT_EQ(number, 9U);
    EXPECT_TRUE(m_catalogue.FindStaticData(ProjectionKey::gridSkew, number).IsEmpty());
    EXPECT_EQ(number, 9U);
    EXPECT_TRUE(m_catalogue.FindStaticData(-1, number).IsEmpty());
    EXPECT_TRUE(m_catalogue.FindStaticData(23, number).IsEmpty());
}

TEST_F(ProjectionCatalogueFile, SeesAChangeOfTheFile)
{
    Write("[Projections-Section]\n0=Before\n");
    EXPECT_EQ(m_catalogue.GetPrjType(L"Before"), 0);
    Write("[Projections-Section]\n0=Afterwards\n");
    EXPECT_EQ(m_catalogue.GetPrjType(L"Before"), -1);
    EXPECT_EQ(m_catalogue.GetPrjType(L"Afterwards"), 0);
}

// The delivered catalogue.

class DeliveredCatalogue : public testing::Test {
protected:
    MainDirectory m_main{MainDirectory::Delivered()};
    ProjectionCatalogue m_catalogue;
};

using Keys = std::vector<int>;

/// The parameters of each method, in order, by their index in projectionParamKeys.
const std::map<int, std::pair<const wchar_t*, Keys>>& Methods()
{
    static const std::map<int, std::pair<const wchar_t*, Keys>> methods = {
        {0, {L"Transverse Mercator", {4, 3, 5, 6, 7, 16}}},
        {1, {L"Universal Transverse Mercator", {4, 3, 5, 6, 7, 16, 11, 12}}},
        {2, {L"RD", {4, 3, 5, 6, 7}}},
        {3, {L"Lambert 2 Parallel", {4, 3, 5, 6, 8, 9}}},
        {4, {L"Mercator", {4, 3, 5, 6, 7, 16, 18}}},
        {7, {L"Stereographic", {4, 3, 5, 6, 7}}},
        {8, {L"Cassini_Soldner", {4, 3, 5, 6, 7}}},
        {9, {L"Hotine Oblique Mercator(A)", {4, 3, 5, 6, 7, 17, 22}}},
        {12, {L"Lambert 1 Parallel", {4, 3, 5, 6, 7}}},
        {13, {L"Hotine Oblique Mercator(B)", {4, 3, 20, 21, 7, 17, 22}}},
        {14, {L"Polyconic", {4, 3, 5, 6}}},
        {15, {L"Universal Polar Stereographic", {5, 6, 7, 12}}},
    };
    return methods;
}

TEST_F(DeliveredCatalogue, HasTheParametersOfEveryMethodInOrder)
{
    for (const auto& [type, method] : Methods()) {
        SCOPED_TRACE(type);
        EXPECT_EQ(m_catalogue.GetPrjType(method.first), type);
        CStringArray names;
        CArray<UINT, UINT> numbers;
        CStringArray keys;
        m_catalogue.GetSelPrjMdResults(type, names, numbers, keys);
        Keys indices;
        for (const CString& key : keys) {
            const auto at = std::find(projectionParamKeys.begin(), projectionParamKeys.end(), key);
            indices.push_back(static_cast<int>(at - projectionParamKeys.begin()));
        }
        EXPECT_EQ(indices, method.second);
        EXPECT_EQ(m_catalogue.FindStaticDataSize(type), static_cast<int>(indices.size()));
    }
}

TEST_F(DeliveredCatalogue, OffersEveryMethodThatHasParametersAndNoOther)
{
    std::vector<CString> offered;
    for (const auto& [type, method] : Methods()) {
        offered.push_back(method.first);
    }
    CStringArray names;
    m_catalogue.GetAllPrjMdNames(names);
    EXPECT_EQ(List(names), offered);
}

TEST_F(DeliveredCatalogue, NamesTheMethodsThatItHides)
{
    const std::pair<const wchar_t*, int> hidden[] = {
        {L"Azimuthal", 5}, {L"Gnomonic", 6}, {L"Laborde", 10}, {L"Nzmg", 11}};
    for (const auto& [name, type] : hidden) {
        EXPECT_EQ(m_catalogue.GetPrjType(name), type);
        EXPECT_EQ(m_catalogue.FindStaticDataSize(type), 0);
    }
}

TEST_F(DeliveredCatalogue, FindsEveryParameterByItsLabel)
{
    std::set<CString> labels;
    for (const auto& [type, method] : Methods()) {
        for (const int index : method.second) {
            UINT kind = 0;
            const CString label = m_catalogue.FindStaticData(index, kind);
            EXPECT_FALSE(label.IsEmpty()) << index;
            EXPECT_EQ(m_catalogue.FindParamKey(label), ProjectionRecord::Key(index));
            labels.insert(label);
        }
    }
    EXPECT_EQ(labels.size(), 15U);
}

TEST_F(DeliveredCatalogue, LabelsTheScaleFactorAsItsTextIsRecognised)
{
    UINT kind = 0;
    EXPECT_EQ(m_catalogue.FindStaticData(ProjectionKey::scaleFactor, kind), L"Scale Factor at the Central Meridian");
}

TEST_F(DeliveredCatalogue, TellsLongitudesAndLatitudesFromPlainNumbers)
{
    const std::map<int, UINT> angles = {{ProjectionKey::lonOrigin, 1},
                                        {ProjectionKey::latOrigin, 2},
                                        {ProjectionKey::southernParallel, 2},
                                        {ProjectionKey::northernParallel, 2},
                                        {ProjectionKey::latTrueScale, 2}};
    for (int index = 3; index < 23; ++index) {
        UINT kind = 0;
        if (m_catalogue.FindStaticData(index, kind).IsEmpty()) {
            continue;
        }
        const auto angle = angles.find(index);
        EXPECT_TRUE(angle == angles.end() ? kind > 2 : kind == angle->second) << index;
    }
}

TEST_F(DeliveredCatalogue, KeepsTheUnitOfGridsThatAreDefinedInMetres)
{
    for (const auto& [type, method] : Methods()) {
        EXPECT_EQ(m_catalogue.CanPrjUnitChange(type), type != 1 && type != 2 && type != 15) << type;
    }
}

} // namespace
