#include <gtest/gtest.h>

#include <functional>
#include <map>
#include <memory>
#include <stdexcept>

#if !defined(_WIN32)
#include <unistd.h>
#endif

#include "authoring/ZorGeoStaticData.h"
#include "database/ZorGeoDatabase.h"
#include "tests/support/CommaLocale.h"
#include "tests/support/ScriptedDesk.h"
#include "tests/unit/authoring/HarbourRecord.h"

namespace {

namespace fs = std::filesystem;

/// The user file after a HarbourRecord was saved into an empty one: the order of sections and keys
/// is that of the writer, and part of what other programs see.
constexpr const char* kHarbourFile = R"([Groups Section]
1=Harbours

[Gp-Harbours]
1=Harbour Grid
System count=1

[Sys-Harbour Grid]
Datumtransform name=Harbour Shift
Unit name=Meters
Ellipsoid name=Bessel 1841
Projection name=Harbour TM
Geoid model use statu=1
Geoid model grid=egm96.gtx
Geoid model method=EGM96
Chart datum=LAT
Post coorection statu=1
Post X coorection=1.5
Post Y coorection=2.5
Post Z coorection=3.5
Post coorection file=post.gsb
Post coorection model=Grid Model
Post horizontal adjust statu=1
Post horizonal origin X=100.5
Post horizonal origin Y=200.5
Post horizonal rotation=0.75
Post horizonal scale=1.0001
Post vertical adjust statu=1
Post vertical origin X=300.5
Post vertical origin Y=400.5
Post vertical slope X=5.5
Post vertical slope Y=6.5

[DatumTransform Section]
1=Harbour Shift

[Dtf-Harbour Shift]
Method name=Bursa/Wolfe(7 Parameters)
Source=WGS84
Target ellipsoid=Bessel 1841
Shift X=-565.7346
Shift Y=-50.4058
Shift Z=-465.2895
Rotation X=0.2
Rotation Y=-0.15
Rotation Z=0.3
Scale=-4.07244
Description=by the port
Shift rate X=0
Shift rate Y=0
Shift rate Z=0
Rotation rate X=0
Rotation rate Y=0
Rotation rate Z=0
Scale rate=0
Epoch=0
Fixed height=1
Fixed height forward=44.25
Fixed height reverse=-43.5

[Projections section]
1=Harbour TM

[Prj-Harbour TM]
Projection type=0
Projection method=Transverse Mercator
Unit name=Meters
LonOrigin=5.25
LatOrigin=52.5
FalseEasting=500000.5
FalseNorthing=-1000.5
ScaleFactor=0.9996
GridSkew=0.125

[General]
Group count=1
System count=1
Ellipsoid count=0
Datumtransf count=1
Unit count=0
Projection count=1
)";

/// `text` with the one occurrence of `from` replaced.
std::string Replaced(std::string text, const std::string& from, const std::string& to)
{
    const std::size_t at = text.find(from);
    if (at == std::string::npos || text.find(from, at + 1) != std::string::npos) {
        throw std::invalid_argument("not once in the text: " + from);
    }
    return text.replace(at, from.size(), to);
}

/// A section as it stands in a section file, without its header; empty when there is none.
std::string SectionOf(const std::string& file, const std::string& name)
{
    const std::string header = "[" + name + "]\n";
    const std::size_t at = file.find(header);
    if (at == std::string::npos) {
        return "";
    }
    const std::size_t from = at + header.size();
    const std::size_t to = file.find("\n\n", from);
    return to == std::string::npos ? file.substr(from) : file.substr(from, to + 1 - from);
}

bool HasSection(const std::string& file, const std::string& name)
{
    return file.find("[" + name + "]\n") != std::string::npos;
}

class SaveDataToDB : public testing::Test {
protected:
    std::string Saved(ZorGeoStaticDataBase& record)
    {
        EXPECT_TRUE(record.SaveDataToDB());
        return database.UserText();
    }
    /// Adds to the delivered file.
    void Deliver(const std::function<void(FileObject&)>& change)
    {
        change(database.main);
        ASSERT_TRUE(database.main.FileSave(L"", FileMode::saveExclusive));
    }
    /// Path below the database's directory, and bytes, of each file.
    std::map<std::string, std::string> Files() const
    {
        std::map<std::string, std::string> files;
        for (const auto& entry : fs::recursive_directory_iterator(database.Directory().Path())) {
            if (entry.is_regular_file()) {
                const std::string name = fs::relative(entry.path(), database.Directory().Path()).generic_string();
                files[name] = database.Directory().Read(name);
            }
        }
        return files;
    }

    HarbourDatabase database;
};

TEST_F(SaveDataToDB, NewSystemIsWrittenWhole)
{
    HarbourRecord record;
    EXPECT_EQ(Saved(record), kHarbourFile);
}

TEST_F(SaveDataToDB, NothingButTheUserFileChanges)
{
    std::map<std::string, std::string> expected = Files();
    HarbourRecord record;
    ASSERT_TRUE(record.SaveDataToDB());
    expected["user/zorusergeobase.geo"] = kHarbourFile;
    EXPECT_EQ(Files(), expected);
}

TEST_F(SaveDataToDB, NumbersDoNotDependOnTheLocale)
{
    const CommaLocale commas;
    HarbourRecord record;
    record.SetUnitNameAndKey(L"Rods", L"");
    record.SetUnitParams(1234.5, 3, L"rd");
    const std::string file = Saved(record);
    EXPECT_EQ(SectionOf(file, "Units section"), "Rods=1234.500000,rd\n");
    EXPECT_EQ(SectionOf(file, "Dtf-Harbour Shift"), SectionOf(kHarbourFile, "Dtf-Harbour Shift"));
    EXPECT_EQ(SectionOf(file, "Prj-Harbour TM"),
              Replaced(SectionOf(kHarbourFile, "Prj-Harbour TM"), "Unit name=Meters", "Unit name=Rods"));
}

// Every record is known then: it is not listed again, and the group's count still grows.
TEST_F(SaveDataToDB, SecondSaveListsNothingAgainAndRaisesTheCountOfTheGroup)
{
    HarbourRecord record;
    ASSERT_TRUE(record.SaveDataToDB());
    EXPECT_EQ(Saved(record),
              Replaced(kHarbourFile, "1=Harbour Grid\nSystem count=1", "1=Harbour Grid\nSystem count=2"));
    EXPECT_EQ(SectionOf(Saved(record), "Gp-Harbours"), "1=Harbour Grid\nSystem count=3\n");
}

TEST_F(SaveDataToDB, SecondSaveRewritesDatumProjectionAndSystem)
{
    HarbourRecord record;
    ASSERT_TRUE(record.SaveDataToDB());
    HarbourDatum datum;
    datum.parameters[0] = 7.5;
    datum.Set(record);
    TestParameters({{L"Latitude of Origin", 53.5}}).Set(record);
    record.SetPostCorrection(9.5, 2.5, 3.5);
    std::string expected = Replaced(kHarbourFile, "Grid\nSystem count=1", "Grid\nSystem count=2");
    expected = Replaced(expected, "Shift X=-565.7346", "Shift X=7.5");
    expected = Replaced(expected, "LatOrigin=52.5", "LatOrigin=53.5");
    expected = Replaced(expected, "Post X coorection=1.5", "Post X coorection=9.5");
    EXPECT_EQ(Saved(record), expected);
}

TEST_F(SaveDataToDB, RecordStaysUsable)
{
    HarbourRecord record;
    ASSERT_TRUE(record.SaveDataToDB());
    record.SetSysNameAndKey(L"Second Grid", L"");
    record.SetGroupNameAndKey(L"Ports", L"");
    const std::string file = Saved(record);
    EXPECT_EQ(SectionOf(file, "Groups Section"), "1=Harbours\n2=Ports\n");
    EXPECT_EQ(SectionOf(file, "Sys-Second Grid"), SectionOf(kHarbourFile, "Sys-Harbour Grid"));
}

TEST_F(SaveDataToDB, SomeFieldsReachNoFile)
{
    HarbourRecord record;
    record.SetDtFilePath(L"unwritten");
    record.SetSystemDescp(L"unwritten");
    record.SetGeoidDescp(L"unwritten");
    record.SetDefaultPostModel(L"unwritten");
    record.SetDefaultPostModelFile(L"unwritten");
    record.SetPostCorrtType(987);
    // Keys of the names, texts and kinds of the parameters are part of a HarbourRecord.
    EXPECT_EQ(Saved(record), kHarbourFile);
}

TEST_F(SaveDataToDB, TextThatNoFileCanHoldIsLeftOut)
{
    const CString unpaired(wchar_t(0xD800), 1);
    HarbourRecord record;
    record.SetGeoidChartDatum(unpaired);
    record.SetSrcElpName(unpaired);
    EXPECT_EQ(Saved(record), Replaced(Replaced(kHarbourFile, "Chart datum=LAT\n", ""), "Source=WGS84\n", ""));
}

// Groups.

TEST_F(SaveDataToDB, GroupOfTheUserFileListsTheSystemBehindItsCount)
{
    database.SetUserText(
        "[Groups Section]\n1=Harbours\n\n[Gp-Harbours]\n1=A\nSystem count=4\n\n[General]\nGroup count=1\n");
    HarbourRecord record;
    const std::string file = Saved(record);
    EXPECT_EQ(SectionOf(file, "Gp-Harbours"), "1=A\nSystem count=5\n5=Harbour Grid\n");
    EXPECT_EQ(SectionOf(file, "Groups Section"), "1=Harbours\n");
    EXPECT_TRUE(SectionOf(file, "General").starts_with("Group count=1\nSystem count=1\n"));
}

TEST_F(SaveDataToDB, GroupWithoutACountBeginsAtOne)
{
    for (const char* count : {"", "System count=many\n"}) {
        database.SetUserText(std::string("[Gp-Harbours]\n") + count);
        HarbourRecord record;
        const std::string file = Saved(record);
        EXPECT_NE(SectionOf(file, "Gp-Harbours").find("1=Harbour Grid\n"), std::string::npos) << count;
        EXPECT_NE(SectionOf(file, "Gp-Harbours").find("System count=1\n"), std::string::npos) << count;
    }
}

// The serial key of the line is free for the next new group, whose line then takes its place.
TEST_F(SaveDataToDB, DeliveredGroupIsListedInTheUserFileButNotCounted)
{
    Deliver([](FileObject& main) {
        AddSystem(main, {.group = L"Harbours", .name = L"Old Grid", .datum = L"-", .projection = L"-"});
        main.SetItem(L"Gp-Harbours", kSystemCount, L"1", true);
    });
    database.SetUserText("[General]\nGroup count=3\n");
    HarbourRecord record;
    std::string file = Saved(record);
    EXPECT_EQ(SectionOf(file, "Groups Section"), "4=Harbours\n");
    EXPECT_EQ(SectionOf(file, "Gp-Harbours"), "1=Harbour Grid\nSystem count=1\n");
    EXPECT_TRUE(SectionOf(file, "General").starts_with("Group count=3\nSystem count=1\n"));

    record.SetGroupNameAndKey(L"Ports", L"");
    file = Saved(record);
    EXPECT_EQ(SectionOf(file, "Groups Section"), "4=Ports\n");
    EXPECT_TRUE(SectionOf(file, "General").starts_with("Group count=4\n"));
}

TEST_F(SaveDataToDB, NewGroupListsAKnownSystemUnderOne)
{
    HarbourRecord record;
    ASSERT_TRUE(record.SaveDataToDB());
    record.SetGroupNameAndKey(L"Ports", L"");
    const std::string file = Saved(record);
    EXPECT_EQ(SectionOf(file, "Groups Section"), "1=Harbours\n2=Ports\n");
    EXPECT_EQ(SectionOf(file, "Gp-Ports"), "1=Harbour Grid\nSystem count=1\n");
    EXPECT_EQ(SectionOf(file, "Gp-Harbours"), "1=Harbour Grid\nSystem count=1\n");
    EXPECT_TRUE(SectionOf(file, "General").starts_with("Group count=2\nSystem count=1\n"));
}

// Systems.

TEST_F(SaveDataToDB, SystemKnownFromTheMainFileIsWrittenButNotListed)
{
    Deliver([](FileObject& main) {
        AddSystem(main, {.group = L"Harbours", .name = L"Harbour Grid", .datum = L"-", .projection = L"-"});
    });
    HarbourRecord record;
    const std::string file = Saved(record);
    EXPECT_EQ(SectionOf(file, "Gp-Harbours"), "System count=1\n");
    EXPECT_EQ(SectionOf(file, "Sys-Harbour Grid"), SectionOf(kHarbourFile, "Sys-Harbour Grid"));
    EXPECT_TRUE(SectionOf(file, "General").starts_with("Group count=0\nSystem count=0\n"));
    EXPECT_EQ(SectionOf(Saved(record), "Gp-Harbours"), "System count=2\n");
}

TEST_F(SaveDataToDB, NewSystemTakesTheGeoidInUseAndMakesItTheDefault)
{
    HarbourRecord record;
    record.SetDefaultGeoidMethod(L"OSGM");
    record.SetDefaultGeoidGrid(L"osgm.gtx");
    EXPECT_EQ(Saved(record), kHarbourFile);
    EXPECT_EQ(record.GetDefaultGeoidMethod(), L"EGM96");
    EXPECT_EQ(record.GetDefaultGeoidGrid(), L"egm96.gtx");
}

TEST_F(SaveDataToDB, KnownSystemGetsTheDefaultGeoid)
{
    HarbourRecord record;
    ASSERT_TRUE(record.SaveDataToDB());
    record.SetGeoidMethod(L"OSGM");
    record.SetGeoidGrid(L"osgm.gtx");
    EXPECT_EQ(SectionOf(Saved(record), "Sys-Harbour Grid"), SectionOf(kHarbourFile, "Sys-Harbour Grid"));
    record.SetDefaultGeoidMethod(L"EGM2008");
    record.SetDefaultGeoidGrid(L"egm08.gtx");
    const std::string system = SectionOf(Saved(record), "Sys-Harbour Grid");
    EXPECT_NE(system.find("Geoid model grid=egm08.gtx\nGeoid model method=EGM2008\n"), std::string::npos);
    EXPECT_EQ(record.GetGeoidMethod(), L"OSGM");
    EXPECT_EQ(record.GetDefaultGeoidMethod(), L"EGM2008");
}

TEST_F(SaveDataToDB, ManualSeparationIsWrittenForTheMethodManualAlone)
{
    for (const auto& [method, written] : {std::pair(L"Manual", true), std::pair(L"manual", false),
                                          std::pair(L"", false), std::pair(L"Manual ", false)}) {
        database.SetUserText("");
        HarbourRecord record;
        record.SetGeoidMethod(method);
        const std::string system = SectionOf(Saved(record), "Sys-Harbour Grid");
        EXPECT_EQ(system.find("Geoid model use statu=1\nManual input value=41.5\nGeoid model grid=") !=
                      std::string::npos,
                  written);
        EXPECT_EQ(system.find("Manual input value") != std::string::npos, written);
    }
}

TEST_F(SaveDataToDB, CorrectionsAreWrittenWhateverTheirFlagsSay)
{
    HarbourRecord record;
    record.SetUsePostCorrctStatu(false);
    record.SetUsePostHorAdjustStatu(false);
    record.SetUsePostVertAdjustStatu(false);
    record.SetUseGeoidModelStatu(false);
    std::string expected = kHarbourFile;
    for (const char* flag : {"Post coorection statu", "Post horizontal adjust statu", "Post vertical adjust statu",
                             "Geoid model use statu"}) {
        expected = Replaced(expected, std::string(flag) + "=1", std::string(flag) + "=0");
    }
    EXPECT_EQ(Saved(record), expected);
}

// Datum transformations.

struct DatumCase {
    int type;
    const char* method; ///< null: no key of parameters at all
    bool parameters;
    bool rates;
};

TEST_F(SaveDataToDB, DatumIsWrittenByItsMethodNumber)
{
    const std::string parameters = "Source=WGS84\nTarget ellipsoid=Bessel 1841\n"
                                   "Shift X=-565.7346\nShift Y=-50.4058\nShift Z=-465.2895\n"
                                   "Rotation X=0.2\nRotation Y=-0.15\nRotation Z=0.3\nScale=-4.07244\n"
                                   "Description=by the port\n";
    const std::string zeros = "Shift rate X=0\nShift rate Y=0\nShift rate Z=0\n"
                              "Rotation rate X=0\nRotation rate Y=0\nRotation rate Z=0\nScale rate=0\nEpoch=0\n";
    const std::string rates = "Shift rate X=0.011\nShift rate Y=-0.022\nShift rate Z=0.015\n"
                              "Rotation rate X=0.0011\nRotation rate Y=-0.0022\nRotation rate Z=0.0015\n"
                              "Scale rate=0.003\nEpoch=2010.5\n";
    const std::string heights = "Fixed height=1\nFixed height forward=44.25\nFixed height reverse=-43.5\n";
    for (const DatumCase& c :
         {DatumCase{0, "as chosen", false, false}, DatumCase{1, "Bursa/Wolfe(7 Parameters)", true, false},
          DatumCase{2, "Helmert(7 Parameters)", true, false}, DatumCase{3, "Bursa/Wolfe(14 Parameters)", true, true},
          DatumCase{4, "Helmert(14 Parameters)", true, true}, DatumCase{5, nullptr, false, false},
          DatumCase{-1, nullptr, false, false}}) {
        database.SetUserText("");
        HarbourRecord record;
        record.SetDtTransferMdName(L"as chosen", c.type);
        const std::string expected = (c.method ? std::string("Method name=") + c.method + "\n" : "") +
                                     (c.parameters ? parameters + (c.rates ? rates : zeros) : "") + heights;
        EXPECT_EQ(SectionOf(Saved(record), "Dtf-Harbour Shift"), expected) << c.type;
    }
}

TEST_F(SaveDataToDB, DeliveredDatumIsLeftAlone)
{
    Deliver([](FileObject& main) { AddDatum(main, {.name = L"Harbour Shift"}); });
    HarbourRecord record;
    const std::string file = Saved(record);
    EXPECT_FALSE(HasSection(file, "Dtf-Harbour Shift"));
    EXPECT_FALSE(HasSection(file, "DatumTransform Section"));
    EXPECT_NE(SectionOf(file, "General").find("Datumtransf count=0\n"), std::string::npos);
}

TEST_F(SaveDataToDB, DatumOfBothFilesIsOverwrittenInTheUserFile)
{
    Deliver([](FileObject& main) { AddDatum(main, {.name = L"Harbour Shift"}); });
    database.SetUserText("[DatumTransform Section]\n7=Harbour Shift\n\n[Dtf-Harbour Shift]\nShift X=1\nOther=kept\n");
    HarbourRecord record;
    const std::string file = Saved(record);
    EXPECT_EQ(SectionOf(file, "DatumTransform Section"), "7=Harbour Shift\n");
    EXPECT_NE(SectionOf(file, "Dtf-Harbour Shift").find("Shift X=-565.7346\nOther=kept\n"), std::string::npos);
    EXPECT_NE(SectionOf(file, "General").find("Datumtransf count=0\n"), std::string::npos);
}

// Projections.

TEST_F(SaveDataToDB, DeliveredProjectionIsLeftAlone)
{
    Deliver([](FileObject& main) { AddProjection(main, {.name = L"Harbour TM"}); });
    HarbourRecord record;
    const std::string file = Saved(record);
    EXPECT_FALSE(HasSection(file, "Prj-Harbour TM"));
    EXPECT_FALSE(HasSection(file, "Projections section"));
    EXPECT_NE(SectionOf(file, "General").find("Projection count=0\n"), std::string::npos);
}

TEST_F(SaveDataToDB, ProjectionOfBothFilesIsOverwrittenInTheUserFile)
{
    Deliver([](FileObject& main) { AddProjection(main, {.name = L"Harbour TM"}); });
    database.SetUserText("[Projections section]\n7=Harbour TM\n\n[Prj-Harbour TM]\nLonOrigin=1\nOther=kept\n");
    HarbourRecord record;
    const std::string file = Saved(record);
    EXPECT_EQ(SectionOf(file, "Projections section"), "7=Harbour TM\n");
    EXPECT_TRUE(SectionOf(file, "Prj-Harbour TM").starts_with("LonOrigin=5.25\nOther=kept\n"));
    EXPECT_NE(SectionOf(file, "General").find("Projection count=0\n"), std::string::npos);
}

TEST_F(SaveDataToDB, LatitudesOfNinetyMoveOffThePole)
{
    struct Case {
        const wchar_t* label;
        const char* key;
        double value;
        const char* written;
    };
    const Case cases[] = {
        {L"Latitude of Origin", "LatOrigin", 90.0, "89.9999999999"},
        {L"Latitude of Origin", "LatOrigin", -90.0, "-89.9999999999"},
        {L"Latitude of Southern Parallel", "1stParallel", 90.0, "89.9999999999"},
        {L"Latitude of Southern Parallel", "1stParallel", -90.0, "-89.9999999999"},
        {L"Latitude of Northern Parallel", "2ndParallel", 90.0, "89.9999999999"},
        {L"Latitude of Northern Parallel", "2ndParallel", -90.0, "-89.9999999999"},
        {L"Latitude of Origin", "LatOrigin", 90.5, "90.5"},
        {L"Latitude of Origin", "LatOrigin", 89.5, "89.5"},
        {L"Longitude of Origin", "LonOrigin", 90.0, "90"},
        {L"Latitude of True Scale", "LatTrueScale", -90.0, "-90"},
        {L"False Easting", "FalseEasting", 90.0, "90"},
    };
    for (const Case& c : cases) {
        database.SetUserText("");
        HarbourRecord record;
        TestParameters({{c.label, c.value}}).Set(record);
        const std::string file = Saved(record);
        EXPECT_TRUE(SectionOf(file, "Prj-Harbour TM").ends_with(std::string(c.key) + "=" + c.written + "\n")) << c.key;
        TestParameters out;
        ASSERT_TRUE(record.GetPrjParams(out.values, out.names, out.kinds));
        EXPECT_EQ(out.values[0], std::stod(c.written)) << "in the record too";
    }
}

TEST_F(SaveDataToDB, LatitudeOfNinetyEqualsItsRecordAfterwards)
{
    HarbourRecord record;
    TestParameters({{L"Latitude of Origin", 90.0}}).Set(record);
    ASSERT_TRUE(record.SaveDataToDB());
    TestParameters({{L"Latitude of Origin", 90.0}}).Set(record);
    ZorGeoDatabase read;
    ASSERT_TRUE(read.Init());
    EXPECT_EQ(record.CheckProjectionIsEqual(&read), 1);
}

TEST_F(SaveDataToDB, ParameterWithoutAKeyIsWrittenUnderAnEmptyOne)
{
    HarbourRecord record;
    TestParameters({{L"No such label", 12.5}, {L"LATITUDE OF ORIGIN", 3.5}}).Set(record);
    EXPECT_TRUE(SectionOf(Saved(record), "Prj-Harbour TM").ends_with("Unit name=Meters\n=12.5\nLatOrigin=3.5\n"));
}

TEST_F(SaveDataToDB, ZoneAndHemisphereAreWrittenForUtmAlone)
{
    HarbourRecord record;
    record.SetPrjNameAndType(L"Harbour TM", 1);
    record.SetUTMZone(L"Zone 31     (  3 E)");
    record.SetUTMHemiSphere(L"N");
    EXPECT_EQ(Saved(record), Replaced(kHarbourFile, "Projection type=0", "Projection type=1"));
    record.SetUTMStatu(true);
    EXPECT_TRUE(SectionOf(Saved(record), "Prj-Harbour TM")
                    .ends_with("GridSkew=0.125\nUTMZone=Zone 31     (  3 E)\nHemisphere=N\n"));
}

// Ellipsoids.

TEST_F(SaveDataToDB, NewEllipsoidsAreWrittenButNeitherListedNorCounted)
{
    database.SetUserText("[General]\nEllipsoid count=6\n");
    HarbourRecord record;
    record.SetElpNameAndKey(L"Local", L"");
    record.SetElpsoidParams(6377000.5, 6356000.5, 0.5, 99.0, 98.0, 97.0);
    record.SetSrcElpName(L"Satellite");
    const std::string file = Saved(record);
    EXPECT_EQ(SectionOf(file, "Elp-Local"), "SemiMajor=6377000.5\nEccSqrd=0.25\n") << "the eccentricity squared";
    EXPECT_EQ(SectionOf(file, "Elp-Satellite"), "SemiMajor=6378137\nEccSqrd=0.0625\n");
    EXPECT_LT(file.find("[Elp-Local]"), file.find("[Elp-Satellite]"));
    EXPECT_FALSE(HasSection(file, "Ellipsoids section"));
    EXPECT_NE(SectionOf(file, "General").find("Ellipsoid count=6\n"), std::string::npos);

    ZorGeoDatabase read;
    ASSERT_TRUE(read.Init());
    EXPECT_TRUE(read.HasEllpsoid(L"Local", GeoDbUser));
    CStringArray names;
    ASSERT_TRUE(read.GetAllEllipsoidNames(names));
    ASSERT_EQ(names.GetSize(), 2);
    EXPECT_EQ(names[0], L"WGS84");
    EXPECT_EQ(names[1], L"Bessel 1841");
}

// What is known is asked of the state before the run, so the source, written last, stays.
TEST_F(SaveDataToDB, NewEllipsoidThatIsLocalAndSourceHoldsTheSource)
{
    HarbourRecord record;
    record.SetElpNameAndKey(L"Both", L"");
    record.SetElpsoidParams(6377000.5, 6356000.5, 0.5, 99.0, 98.0, 97.0);
    record.SetSrcElpName(L"Both");
    EXPECT_EQ(SectionOf(Saved(record), "Elp-Both"), "SemiMajor=6378137\nEccSqrd=0.0625\n");
}

TEST_F(SaveDataToDB, EllipsoidOfTheUserFileStays)
{
    database.SetUserText("[Elp-Local]\nSemiMajor=6400000\nEccSqrd=0.01\n");
    HarbourRecord record;
    record.SetElpNameAndKey(L"Local", L"");
    record.SetElpsoidParams(6377000.5, 6356000.5, 0.5, 99.0, 98.0, 97.0);
    EXPECT_EQ(SectionOf(Saved(record), "Elp-Local"), "SemiMajor=6400000\nEccSqrd=0.01\n");
}

// Units.

TEST_F(SaveDataToDB, NewUnitIsFactorWithSixDecimalsAndSuffix)
{
    database.SetUserText("[General]\nUnit count=2\n");
    HarbourRecord record;
    record.SetUnitNameAndKey(L"Feet", L"");
    record.SetUnitParams(0.30480060960121922, 3, L"ft, US");
    const std::string file = Saved(record);
    EXPECT_EQ(SectionOf(file, "Units section"), "Feet=0.304801,ft, US\n");
    EXPECT_NE(SectionOf(file, "General").find("Unit count=3\n"), std::string::npos);
    const std::string again = Saved(record);
    EXPECT_NE(SectionOf(again, "General").find("Unit count=3\n"), std::string::npos);
}

TEST_F(SaveDataToDB, UnitOfOtherCapitalsIsKnown)
{
    HarbourRecord record;
    record.SetUnitNameAndKey(L"METERS", L"");
    const std::string file = Saved(record);
    EXPECT_FALSE(HasSection(file, "Units section"));
    EXPECT_NE(SectionOf(file, "General").find("Unit count=0\n"), std::string::npos);
}

// Counters.

TEST_F(SaveDataToDB, CountersGiveTheSerialKeysAndGrowByWhatWasAdded)
{
    database.SetUserText("[General]\nProjection count=40\nUnit count=30\nDatumtransf count=20\nEllipsoid count=15\n"
                         "System count=10\nGroup count=5\nOther=kept\n");
    HarbourRecord record;
    record.SetUnitNameAndKey(L"Feet", L"");
    record.SetElpNameAndKey(L"Local", L"");
    const std::string file = Saved(record);
    EXPECT_EQ(SectionOf(file, "General"), "Projection count=41\nUnit count=31\nDatumtransf count=21\n"
                                          "Ellipsoid count=15\nSystem count=11\nGroup count=6\nOther=kept\n");
    EXPECT_EQ(SectionOf(file, "Groups Section"), "6=Harbours\n");
    EXPECT_EQ(SectionOf(file, "Gp-Harbours"), "1=Harbour Grid\nSystem count=1\n");
    EXPECT_EQ(SectionOf(file, "DatumTransform Section"), "21=Harbour Shift\n");
    EXPECT_EQ(SectionOf(file, "Projections section"), "41=Harbour TM\n");
}

TEST_F(SaveDataToDB, CounterThatIsNoNumberCountsAsZero)
{
    database.SetUserText("[General]\nGroup count=several\n");
    HarbourRecord record;
    EXPECT_TRUE(SectionOf(Saved(record), "General").starts_with("Group count=1\n"));
}

// Nobody has so many records; a damaged file must not end the program.
TEST_F(SaveDataToDB, LargestCounterBeginsAnew)
{
    database.SetUserText("[General]\nDatumtransf count=2147483647\n");
    HarbourRecord record;
    const std::string file = Saved(record);
    EXPECT_EQ(SectionOf(file, "DatumTransform Section"), "-2147483648=Harbour Shift\n");
    EXPECT_TRUE(SectionOf(file, "General").starts_with("Datumtransf count=-2147483648\n"));
}

// Readers of what was saved.

TEST_F(SaveDataToDB, DatabaseReadsTheSystem)
{
    HarbourRecord record;
    ASSERT_TRUE(record.SaveDataToDB());
    ZorGeoDatabase read;
    ASSERT_TRUE(read.Init());
    const CString group = L"Harbours";
    const CString system = L"Harbour Grid";
    EXPECT_EQ(read.GetDtfNameByGroupAndSysNames(group, system), L"Harbour Shift");
    EXPECT_EQ(read.GetUnitNameByGroupAndSysNames(group, system), L"Meters");
    EXPECT_EQ(read.GetPrjNameByGroupAndSysNames(group, system), L"Harbour TM");
    EXPECT_EQ(read.GetPrjMdNameByPrjName(L"Harbour TM"), L"Transverse Mercator");
    EXPECT_EQ(read.GetDtfDescription(L"Harbour Shift"), L"by the port");
    EXPECT_EQ(read.GetDefaultGeoidModelMd(group, system), L"EGM96");
    EXPECT_EQ(read.GetDefaultGridCorrectionFile(group, system), L"post.gsb");
    double x = 0.0;
    double y = 0.0;
    double rotation = 0.0;
    double scale = 0.0;
    read.GetPostHorAdjust(group, system, x, y, rotation, scale);
    EXPECT_EQ(rotation, 0.75);
    EXPECT_EQ(scale, 1.0001);
    CArray<double, double> values;
    CStringArray names;
    CStringArray texts;
    CArray<UINT, UINT> kinds;
    ASSERT_TRUE(read.GetPrjConstantsByName(L"Harbour TM", values, names, texts, kinds));
    ASSERT_GE(values.GetSize(), 2);
    EXPECT_EQ(values[0], 5.25);
    EXPECT_EQ(values[1], 52.5);
    EXPECT_EQ(record.CheckSystemIsEqual(&read), 1);
    EXPECT_EQ(record.CheckProjectionIsEqual(&read), 1);
}

TEST_F(SaveDataToDB, OpenDatabaseSeesTheSystemAfterItsNextInit)
{
    ZorGeoDatabase open;
    ASSERT_TRUE(open.Init());
    HarbourRecord record;
    ASSERT_TRUE(record.SaveDataToDB());
    EXPECT_FALSE(open.HasSystem(L"Harbour Grid", GeoDbBoth));
    ASSERT_TRUE(open.Init());
    EXPECT_TRUE(open.HasSystem(L"Harbour Grid", GeoDbUser));
    EXPECT_FALSE(open.HasSystem(L"Harbour Grid", GeoDbMain));
}

// Failures: the file on disk stays byte for byte as it was.

constexpr const char* kKeptFile = "; a comment, which a save would drop\n[General]\nGroup count=1\n";

class FailingSave : public SaveDataToDB {
protected:
    FailingSave() { database.SetUserText(kKeptFile); }
    void ExpectFailure(ZorGeoStaticDataBase& record, const std::string& what)
    {
        const ScriptedDesk desk;
        const auto before = Files();
        EXPECT_FALSE(record.SaveDataToDB()) << what;
        EXPECT_EQ(Files(), before) << what;
        EXPECT_TRUE(desk.messages.empty()) << what;
    }
};

TEST_F(FailingSave, MissingUserFileIsNotMade)
{
    fs::remove(database.UserFile().ToUtf8());
    HarbourRecord record;
    // Naming the ellipsoid opened the database, which made the file.
    fs::remove(database.UserFile().ToUtf8());
    ExpectFailure(record, "no user file");
    EXPECT_FALSE(fs::exists(database.UserFile().ToUtf8()));
}

TEST_F(FailingSave, UserFileThatCannotBeReadStays)
{
    HarbourRecord record;
    for (const char* text : {"[General\n", "no section file", "[A]\nk=1\nk=2\n", "\xff\n"}) {
        database.SetUserText(text);
        ExpectFailure(record, text);
    }
}

TEST_F(FailingSave, MissingMainFile)
{
    HarbourRecord record;
    fs::remove(database.MainFile().ToUtf8());
    ExpectFailure(record, "no main file");
}

TEST_F(FailingSave, EmptyGroupName)
{
    HarbourRecord record;
    record.SetGroupNameAndKey(L"", L"group key");
    ExpectFailure(record, "no group");
}

TEST_F(FailingSave, NameOfWhichNoSectionCanBeMade)
{
    const CString unpaired(wchar_t(0xD800), 1);
    using Name = void (*)(ZorGeoStaticData&, const CString&);
    const std::pair<const char*, Name> names[] = {
        {"group", [](ZorGeoStaticData& r, const CString& name) { r.SetGroupNameAndKey(name, L""); }},
        {"system", [](ZorGeoStaticData& r, const CString& name) { r.SetSysNameAndKey(name, L""); }},
        {"datum", [](ZorGeoStaticData& r, const CString& name) { r.SetDttransNameAndKey(name, L""); }},
        {"projection", [](ZorGeoStaticData& r, const CString& name) { r.SetPrjNameAndType(name, 0); }},
    };
    for (const auto& [what, set] : names) {
        HarbourRecord record;
        set(record, unpaired);
        ExpectFailure(record, what);
    }
}

TEST_F(FailingSave, MoreParametersThanNames)
{
    HarbourRecord record;
    TestParameters parameters({{L"Latitude of Origin", 52.0}});
    parameters.values.Add(5.0);
    parameters.Set(record);
    const auto before = Files();
    EXPECT_THROW(record.SaveDataToDB(), std::invalid_argument);
    EXPECT_EQ(Files(), before);
}

TEST_F(SaveDataToDB, ReadOnlyFileIsSavedAndStaysReadOnly)
{
    const ScriptedDesk desk;
    HarbourRecord record;
    CFileStatus status;
    ASSERT_TRUE(CFile::GetStatus(database.UserFile(), status));
    status.attribute = CFileStatus::readOnly;
    CFile::SetStatus(database.UserFile(), status);
    EXPECT_EQ(Saved(record), kHarbourFile);
    ASSERT_TRUE(CFile::GetStatus(database.UserFile(), status));
    EXPECT_EQ(status.attribute & CFileStatus::readOnly, CFileStatus::readOnly);
    EXPECT_TRUE(desk.messages.empty());
    status.attribute = 0;
    CFile::SetStatus(database.UserFile(), status);
}

#if !defined(_WIN32)
/// Acts as a user who owns nothing, for its lifetime; without effect for a plain user.
class AsNobody {
public:
    AsNobody() : m_switched(geteuid() == 0 && seteuid(65534) == 0) {}
    ~AsNobody()
    {
        if (m_switched && seteuid(0) != 0) {
            std::abort();
        }
    }
    AsNobody(const AsNobody&) = delete;
    AsNobody& operator=(const AsNobody&) = delete;

private:
    bool m_switched;
};

TEST_F(FailingSave, UserFileThatMayNotBeReadStays)
{
    const ScriptedDesk desk;
    HarbourRecord record;
    const fs::path file = database.UserFile().ToUtf8();
    const auto before = Files();
    fs::permissions(file, fs::perms::none);
    {
        const AsNobody nobody;
        EXPECT_FALSE(record.SaveDataToDB());
    }
    fs::permissions(file, fs::perms(0644));
    EXPECT_EQ(Files(), before);
    EXPECT_TRUE(desk.messages.empty());
}

// Kept by the guarded save: that the disk refused shows when the database is read again.
TEST_F(FailingSave, DirectoryThatCannotBeWrittenLeavesTheFile)
{
    const ScriptedDesk desk;
    HarbourRecord record;
    const fs::path directory = database.Directory().Path() / "user";
    const auto before = Files();
    fs::permissions(directory, fs::perms(0555));
    {
        const AsNobody nobody;
        EXPECT_TRUE(record.SaveDataToDB());
    }
    fs::permissions(directory, fs::perms::owner_all);
    EXPECT_EQ(Files(), before);
    EXPECT_TRUE(desk.messages.empty());
}

TEST_F(FailingSave, ReadOnlyFileOfAnotherOwnerStaysAndTheUserIsTold)
{
    if (geteuid() != 0) {
        GTEST_SKIP() << "needs a file of another owner";
    }
    const ScriptedDesk desk;
    HarbourRecord record;
    const fs::path file = database.UserFile().ToUtf8();
    fs::permissions(file, fs::perms(0444));
    const auto before = Files();
    {
        const AsNobody nobody;
        EXPECT_FALSE(record.SaveDataToDB());
    }
    EXPECT_EQ(Files(), before);
    ASSERT_EQ(desk.messages.size(), 1u);
    EXPECT_EQ(desk.messages[0].text, L"Database file open for writing failed");
}
#endif

} // namespace
