#include <cstdlib>
#include <fstream>
#include <functional>
#include <locale>
#include <memory>
#include <sstream>

#include "database/RecordReaders.h"
#include "projections/CProjection.h"
#include "projections/ProjectionFactory.h"
#include "tests/support/CommaLocale.h"
#include "tests/unit/coordsys/DescriptionFixture.h"

namespace {

using Dump = std::function<void(ZORGeoCoordSys&, std::wostream&, const std::wstring&)>;

struct Fragment {
    const char* name;
    Dump dump;
};
const Fragment kFragments[] = {
    {"projection", [](auto& system, auto& stream, auto& indent) { system.DumpProjectionXml(stream, indent, 0); }},
    {"datum", [](auto& system, auto& stream, auto& indent) { system.DumpDatumXml(stream, indent); }},
    {"ellipsoid", [](auto& system, auto& stream, auto& indent) { system.DumpEllipsoidXml(stream, indent); }},
    {"geoid", [](auto& system, auto& stream, auto& indent) { system.DumpGeoidXml(stream, indent); }},
    {"post correction",
     [](auto& system, auto& stream, auto& indent) { system.DumpPostCorrectionXml(stream, indent); }}};

// All fragments under a root, as a host would write them.
void WriteDocument(ZORGeoCoordSys& system, std::wostream& stream)
{
    stream << L"<coordinatesystem>\n";
    for (const Fragment& fragment : kFragments) {
        fragment.dump(system, stream, L"  ");
    }
    stream << L"</coordinatesystem>\n";
}

std::string Utf8(const std::wostringstream& stream)
{
    return CString(stream.str()).ToUtf8();
}

std::string Golden(const char* folder, const CString& system)
{
    const auto path = DescribedSystems::Folder() / folder / (system.ToUtf8() + ".xml");
    std::ifstream file(path, std::ios::binary);
    EXPECT_TRUE(file.is_open()) << path;
    std::ostringstream content;
    content << file.rdbuf();
    return content.str();
}

std::wstring PostXml(const GeoCorrections& corrections)
{
    std::wostringstream stream;
    corrections.DumpPostXml(stream, L" ");
    return stream.str();
}

// XML of a projection that was made from its record, without a coordinate system.
std::wstring ProjectionXml(DescribedSystems& systems, ZORGeoCoordSys& system)
{
    FileObject& file = systems.database.main;
    CString name;
    system.GetProjectionName(name);
    int type = 0;
    file.GetItem(kProjectionPrefix + name, projectionParamKeys[ProjectionKey::type], type);
    const std::unique_ptr<CProjection> projection(
        ProjectionFactory::CreateProjectionByType(static_cast<std::uint32_t>(type)));
    double a = 0.0, e2 = 0.0;
    EXPECT_TRUE(FindElpsoid(file, system.GetEllipsoidName(), a, e2));
    projection->SetEllipsoid(a, e2);
    projection->SetName(system.GetPrjMdName());
    EXPECT_TRUE(projection->LoadParameters(file, kProjectionPrefix + name));
    std::wostringstream stream;
    projection->DumpXml(stream, L" ");
    return stream.str();
}

} // namespace

TEST(ZORGeoCoordSysXml, EverySystemIsWrittenAsTheIndependentRendererWritesIt)
{
    DescribedSystems systems;
    ASSERT_EQ(systems.Names().size(), 27u);
    for (const CString& name : systems.Names()) {
        ZORGeoCoordSys system;
        ASSERT_TRUE(systems.Init(system, name)) << name.ToUtf8();
        std::wostringstream general;
        WriteDocument(system, general);
        EXPECT_EQ(Utf8(general), Golden("general", name));
        std::wostringstream fixed;
        fixed << std::fixed;
        fixed.precision(5);
        WriteDocument(system, fixed);
        EXPECT_EQ(Utf8(fixed), Golden("fixed", name));
        EXPECT_EQ(fixed.precision(), 5) << "the stream is the host's";
    }
}

TEST(ZORGeoCoordSysXml, NumbersOfAllDescriptionsKeepThePointInAnyLocale)
{
    DescribedSystems systems;
    for (const CString& name : {CString(L"Transverse Mercator"), CString(L"Datum Helmert 14"), CString(L"Post All")}) {
        ZORGeoCoordSys system;
        ASSERT_TRUE(systems.Init(system, name));
        const CString proj4 = system.GetGDALProj4CoordSysText();
        const CommaLocale commas;
        std::wostringstream stream;
        ASSERT_EQ(std::use_facet<std::numpunct<wchar_t>>(stream.getloc()).decimal_point(), L',');
        WriteDocument(system, stream);
        EXPECT_EQ(Utf8(stream), Golden("general", name));
        EXPECT_EQ(system.GetGDALProj4CoordSysText(), proj4);
    }
}

TEST(ZORGeoCoordSysXml, EveryLineFlushesAndBeginsWithTheIndent)
{
    class Counting : public std::wstringbuf {
    public:
        int flushes = 0;

    private:
        int sync() override
        {
            ++flushes;
            return std::wstringbuf::sync();
        }
    };
    DescribedSystems systems;
    ZORGeoCoordSys system;
    ASSERT_TRUE(systems.Init(system, L"Post All"));
    for (const Fragment& fragment : kFragments) {
        Counting buffer;
        std::wostream stream(&buffer);
        fragment.dump(system, stream, L"\t-");
        const std::wstring text = buffer.str();
        EXPECT_GT(text.size(), 0u);
        EXPECT_EQ(buffer.flushes, std::count(text.begin(), text.end(), L'\n')) << fragment.name;
        std::wistringstream lines(text);
        for (std::wstring line; std::getline(lines, line);) {
            EXPECT_EQ(line.substr(0, 2), L"\t-") << fragment.name;
        }
    }
}

TEST(ZORGeoCoordSysXml, AMissingPartWritesNothing)
{
    ZORGeoCoordSys never;
    for (const Fragment& fragment : kFragments) {
        std::wostringstream stream;
        fragment.dump(never, stream, L"  ");
        EXPECT_EQ(stream.str(), L"") << fragment.name;
    }
}

TEST(ZORGeoCoordSysXml, NoCorrectionsWriteNothing)
{
    DescribedSystems systems;
    ZORGeoCoordSys system;
    ASSERT_TRUE(systems.Init(system, L"Stereographic"));
    std::wostringstream stream;
    system.DumpPostCorrectionXml(stream, L"");
    system.DumpGeoidXml(stream, L"");
    EXPECT_EQ(stream.str(), L"");
}

TEST(ZORGeoCoordSysXml, RotationAloneWritesAllThreeShifts)
{
    DescribedSystems systems;
    ZORGeoCoordSys system;
    ASSERT_TRUE(systems.Init(system, L"Post Rotation Alone"));
    std::wostringstream stream;
    system.DumpPostCorrectionXml(stream, L"");
    EXPECT_EQ(stream.str(), L"<postcorrection>\n"
                            L"  <shiftx>0</shiftx>\n"
                            L"  <shifty>0</shifty>\n"
                            L"  <shiftz>0</shiftz>\n"
                            L"  <hororgx>0</hororgx>\n"
                            L"  <hororgy>0</hororgy>\n"
                            L"  <horrotate>3600</horrotate>\n"
                            L"  <horscale>1</horscale>\n"
                            L"</postcorrection>\n");
}

TEST(ZORGeoCoordSysXml, AShiftInOneAxisIsEnough)
{
    for (double GeoCorrections::*shift : {&GeoCorrections::shiftX, &GeoCorrections::shiftY, &GeoCorrections::shiftZ}) {
        GeoCorrections corrections;
        EXPECT_EQ(PostXml(corrections), L"");
        corrections.*shift = 2.5;
        const std::wstring text = PostXml(corrections);
        EXPECT_NE(text.find(L">2.5</shift"), std::wstring::npos);
        EXPECT_EQ(text.find(L"hor"), std::wstring::npos);
        EXPECT_EQ(text.find(L"vert"), std::wstring::npos);
    }
}

TEST(ZORGeoCoordSysXml, PostModelShowsItsFileWhenThereIsOne)
{
    GeoCorrections corrections;
    corrections.postType = 5;
    EXPECT_EQ(PostXml(corrections), L" <postcorrectionmodel>\n"
                                    L"   <name>NTv2</name>\n"
                                    L" </postcorrectionmodel>\n");
    corrections.postFileName = L"shifts.gsb";
    EXPECT_EQ(PostXml(corrections), L" <postcorrectionmodel>\n"
                                    L"   <name>NTv2</name>\n"
                                    L"   <filename>shifts.gsb</filename>\n"
                                    L" </postcorrectionmodel>\n");
    corrections.postType = 0;
    EXPECT_NE(PostXml(corrections).find(L"<name>None</name>"), std::wstring::npos) << "0 counts as a model";
}

TEST(ZORGeoCoordSysXml, FixedSeparationOfASystemIsNotWritten)
{
    DescribedSystems systems;
    ZORGeoCoordSys system;
    ASSERT_TRUE(systems.Init(system, L"Geoid Manual"));
    double height = 0.0;
    ASSERT_TRUE(system.CalGeoidHeight(46.0, 25.0, 500000.0, 500000.0, height));
    EXPECT_EQ(height, 43.25);
    std::wostringstream stream;
    system.DumpGeoidXml(stream, L"");
    EXPECT_EQ(stream.str(), L"");
}

TEST(ZORGeoCoordSysXml, ElementOfAFixedSeparationKeepsItsSpellingAndBlanks)
{
    GeoCorrections corrections;
    corrections.geoidType = 1;
    corrections.manualSeparation = 43.25;
    std::wostringstream stream;
    corrections.DumpGeoidXml(stream, L" ");
    EXPECT_EQ(stream.str(), L" <geoidmodel>\n"
                            L"   <name>Manual</name>\n"
                            L"   <seperation>43.25  </seperation>\n"
                            L" </geoidmodel>\n");
}

TEST(ZORGeoCoordSysXml, DumpXmlOfTheProjectionIsTheSame)
{
    // Which of the two a host calls makes no difference, nor does the number.
    DescribedSystems systems;
    for (const CString& name : systems.Names()) {
        ZORGeoCoordSys system;
        ASSERT_TRUE(systems.Init(system, name));
        const std::wstring expected = ProjectionXml(systems, system);
        EXPECT_FALSE(expected.empty());
        for (const int number : {0, -7}) {
            std::wostringstream stream;
            system.DumpProjectionXml(stream, L" ", number);
            EXPECT_EQ(stream.str(), expected) << name.ToUtf8();
        }
    }
}

#ifdef ZORGEO_XMLLINT

namespace {

// Whether the reader of XML takes a document. Fails when the reader cannot be run.
bool IsWellFormed(const TempDirectory& directory, const std::string& document)
{
    const std::string path = (directory.Path() / "document.xml").string();
    std::ofstream(path, std::ios::binary) << document;
    const int answer = std::system(("'" ZORGEO_XMLLINT "' --noout '" + path + "' 2>/dev/null").c_str());
    EXPECT_TRUE(answer == 0 || answer == 256) << "1 is a document with an error: " << answer;
    return answer == 0;
}

} // namespace

// The fragments that no reader of XML takes:
//  - Hotine B's projection, whose elements "east at project centre" and "north at project centre"
//    have names with blanks, which XML does not allow; readers of these descriptions look for them;
//  - whatever shows a name of the database that holds & or <, since names are not escaped: the
//    readers compare them with the names of the database.
TEST(ZORGeoCoordSysXml, FragmentsAreWellFormedButForNamesThatCannotBe)
{
    const std::vector<std::string> expected = {"Hotine B: projection", "Names: projection", "Names: datum"};
    const TempDirectory directory;
    EXPECT_TRUE(IsWellFormed(directory, "<root/>"));
    EXPECT_FALSE(IsWellFormed(directory, "<root>"));
    DescribedSystems systems;
    std::vector<std::string> broken;
    for (const CString& name : systems.Names()) {
        ZORGeoCoordSys system;
        ASSERT_TRUE(systems.Init(system, name));
        for (const Fragment& fragment : kFragments) {
            std::wostringstream stream;
            stream << L"<root>\n";
            fragment.dump(system, stream, L"  ");
            stream << L"</root>\n";
            if (!IsWellFormed(directory, Utf8(stream))) {
                broken.push_back(name.ToUtf8() + ": " + fragment.name);
            }
        }
    }
    EXPECT_EQ(broken, expected);
}

// The odd tags of the fixed separation match; the blanks are content.
TEST(ZORGeoCoordSysXml, ElementOfAFixedSeparationIsWellFormed)
{
    GeoCorrections corrections;
    corrections.geoidType = 1;
    std::wostringstream stream;
    corrections.DumpGeoidXml(stream, L"");
    const TempDirectory directory;
    EXPECT_TRUE(IsWellFormed(directory, Utf8(stream)));
}

#endif
