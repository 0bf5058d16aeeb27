#include <filesystem>

#include "CliTest.h"
#include "base/keys/KeyTables.h"

using namespace test_names;
using testing::AllOf;
using testing::HasSubstr;

/// What stands between the command line and a ready system: names, files, records.
class ConvertSystems : public CliTest {
protected:
    /// Converting must end with status 3 before any line, with all of `parts` in the message.
    void ExpectUnusable(const std::string& system, const std::vector<std::string>& parts,
                        std::vector<std::string> more = {}) const
    {
        const ToolRun run = Convert(system, "0 3\n", std::move(more));
        EXPECT_EQ(run.status, 3) << run.err;
        EXPECT_EQ(run.out, "");
        for (const std::string& part : parts) {
            EXPECT_THAT(run.err, HasSubstr(part));
        }
    }
    void RemoveKey(const std::string& section, const CString& key) const
    {
        EditedFile edited(MainDatabase());
        ASSERT_TRUE(edited.file.DeleteItem(CString::FromUtf8(section), key, false));
    }
    void Set(const std::string& section, const CString& key, const wchar_t* value) const
    {
        EditedFile(MainDatabase()).file.SetItem(CString::FromUtf8(section), key, value, true);
    }
};

TEST_F(ConvertSystems, NamesAreExactOrAUniquePart)
{
    const std::string expected = "500000.000 0.000\n";
    EXPECT_EQ(Convert(kPlain, "0 3\n").out, expected); // although another name contains it
    EXPECT_EQ(Convert("plain utm", "0 3\n").out, expected);
    EXPECT_EQ(Convert("TWIN", "0 3\n").out, expected);
    EXPECT_EQ(Convert("utm", "0 3\n", {"--group", "oth"}).out, expected);
}

TEST_F(ConvertSystems, AnAmbiguousNameListsTheCandidates)
{
    const ToolRun run = Convert("plain", "0 3\n");
    EXPECT_EQ(run.status, 2);
    EXPECT_EQ(run.out, "");
    EXPECT_THAT(run.err, HasSubstr("system \"plain\" may be any of:\n  Plain UTM (group North Sea)\n  Plain in feet "
                                   "(group North Sea)\n  Plain UTM - twin (group Other)\n"));
}

TEST_F(ConvertSystems, AnAmbiguousGroupListsTheCandidates)
{
    const ToolRun run = Convert(kPlain, "0 3\n", {"--group", "th"});
    EXPECT_EQ(run.status, 2);
    EXPECT_THAT(run.err, HasSubstr("group \"th\" may be any of:\n  North Sea\n  Other\n"));
}

TEST_F(ConvertSystems, UnknownNamesAreUsageErrors)
{
    EXPECT_THAT(Convert("Mars", "").err, HasSubstr("there is no system \"Mars\"; see: zorgeo list systems"));
    EXPECT_EQ(Convert("Mars", "").status, 2);
    EXPECT_EQ(Convert(kPlain, "", {"--group", "Baltic"}).status, 2);
    const ToolRun inGroup = Convert(kMoved, "", {"--group", "Other"});
    EXPECT_EQ(inGroup.status, 2);
    EXPECT_THAT(inGroup.err, HasSubstr("there is no system \"Moved datum\" in the group \"Other\""));
    const ToolRun unit = Convert(kPlain, "", {"--unit", "fathoms"});
    EXPECT_EQ(unit.status, 2);
    EXPECT_THAT(unit.err, HasSubstr("there is no unit \"fathoms\"; there are:\n  Meters\n  Feet\n"));
}

TEST_F(ConvertSystems, AMissingMainDatabaseIsNamed)
{
    const ToolRun run = RunTool({"list", "groups", "--data", Path("none"), "--user", Path("user")});
    EXPECT_EQ(run.status, 3);
    EXPECT_THAT(run.err, AllOf(HasSubstr(Path("none/zorgeodatabase.geo") + ": no such file"), HasSubstr("--data")));
}

TEST_F(ConvertSystems, AMalformedMainDatabaseIsNamedWithItsLine)
{
    Write("data/zorgeodatabase.geo", "[General]\nGroup count=1\nthis is no entry\n");
    ExpectUnusable(kPlain, {Path("data/zorgeodatabase.geo"), "3"});
}

TEST_F(ConvertSystems, ACatalogueThatIsMissingOrMalformedIsNamed)
{
    std::filesystem::remove(Catalogue());
    ExpectUnusable(kPlain, {Catalogue() + ": no such file"});
    Write("data/ZorProjectionStatic.dat", "[Projections-Section]\n0=Transverse Mercator\nnothing\n");
    ExpectUnusable(kPlain, {Catalogue(), "3"});
    Write("data/ZorProjectionStatic.dat", "[Other]\na=b\n");
    ExpectUnusable(kPlain, {Catalogue() + ": section \"Projections-Section\" is missing"});
    Write("data/ZorProjectionStatic.dat", "[Projections-Section]\n4=Mercator\n[Mercator]\n0=LatOrigin\n");
    ExpectUnusable(kPlain, {Catalogue(), "projection type 0"});
}

TEST_F(ConvertSystems, AMalformedUserDatabaseIsKept)
{
    const std::string broken = "[General]\nSystem count=1\nmy own work, and a slip of the editor\n";
    Write("user/zorusergeobase.geo", broken);
    ExpectUnusable(kPlain, {Path("user/zorusergeobase.geo"), "3", "--user"});
    EXPECT_EQ(Read("user/zorusergeobase.geo"), broken);
}

TEST_F(ConvertSystems, EveryRecordThatASystemNamesMustBeThere)
{
    const std::vector<std::pair<const char*, const char*>> rows = {{"Unit name", "the unit \"Nowhere\""},
                                                                   {"Ellipsoid name", "section \"Elp-Nowhere\""},
                                                                   {"Projection name", "section \"Prj-Nowhere\""},
                                                                   {"Datumtransform name", "section \"Dtf-Nowhere\""}};
    for (const auto& [key, message] : rows) {
        WriteTestDatabase(Path("data"));
        Set("Sys-Plain UTM", CString::FromUtf8(key), L"Nowhere");
        ExpectUnusable(kPlain, {message, "in neither database file"});
        RemoveKey("Sys-Plain UTM", CString::FromUtf8(key));
        ExpectUnusable(kPlain, {"section \"Sys-Plain UTM\"", "key \"" + std::string(key) + "\" is missing"});
    }
}

TEST_F(ConvertSystems, EveryNumberThatARecordNeedsMustBeThere)
{
    struct Row {
        const char* section;
        CString key;
        const char* system;
    };
    std::vector<Row> rows = {{"Elp-WGS84", spheroidKeys[SpheroidKey::semiMajor], kPlain},
                             {"Elp-WGS84", spheroidKeys[SpheroidKey::eccSquared], kPlain},
                             {"Prj-UTM 31", projectionParamKeys[ProjectionKey::type], kPlain},
                             {"Prj-UTM 31", projectionParamKeys[ProjectionKey::lonOrigin], kPlain},
                             {"Prj-UTM 31", projectionParamKeys[ProjectionKey::scaleFactor], kPlain},
                             {"Dtf-To International", transParamKeys[TransKey::shiftY], kMoved},
                             {"Dtf-To International", transParamKeys[TransKey::scale], kMoved},
                             {"Dtf-Moving", transParamKeys[TransKey::rotRateZ], kMoving},
                             {"Dtf-Moving", transParamKeys[TransKey::target], kMoving},
                             {"Sys-Fixed geoid", L"Manual input value", kGeoid},
                             {"Sys-Post shifts", L"Post Y coorection", kShift}};
    for (const Row& row : rows) {
        WriteTestDatabase(Path("data"));
        RemoveKey(row.section, row.key);
        const std::string place = "section \"" + std::string(row.section) + "\": key \"" + row.key.ToUtf8() + "\"";
        ExpectUnusable(row.system, {Path("data/zorgeodatabase.geo"), place, "is missing"}, {"--epoch", "2024"});
        Set(row.section, row.key, L"twelve");
        if (row.key != transParamKeys[TransKey::target].GetString()) {
            ExpectUnusable(row.system, {place, "is no number"}, {"--epoch", "2024"});
        }
    }
}

TEST_F(ConvertSystems, RecordsThatCannotBeAreRefused)
{
    Set("Elp-WGS84", spheroidKeys[SpheroidKey::semiMajor], L"5000000");
    ExpectUnusable(kPlain, {"section \"Elp-WGS84\"", "no ellipsoid of the Earth"});
    WriteTestDatabase(Path("data"));
    Set("Prj-UTM 31", projectionParamKeys[ProjectionKey::type], L"5");
    Set("Prj-UTM 31", L"Projection method", L"Azimuthal");
    ExpectUnusable(kPlain, {"the projection method \"Azimuthal\" (type 5) has no formulas"});
    WriteTestDatabase(Path("data"));
    Set("Prj-UTM 31", projectionParamKeys[ProjectionKey::scaleFactor], L"0.5");
    ExpectUnusable(kPlain, {"its projection refuses the parameters"});
    WriteTestDatabase(Path("data"));
    Set("Units section", L"Meters", L"one metre");
    ExpectUnusable(kPlain, {"unit \"Meters\": \"one metre\" is no factor and suffix"});
    WriteTestDatabase(Path("data"));
    Set("Sys-Post shifts", L"Post coorection statu", L"perhaps");
    ExpectUnusable(kShift, {"key \"Post coorection statu\": \"perhaps\" is neither 1 nor 0"});
}

TEST_F(ConvertSystems, AListedSystemWithoutARecordIsNamed)
{
    EditedFile(MainDatabase()).file.DeleteSection(L"Sys-Plain UTM");
    ExpectUnusable(kPlain, {"the group \"North Sea\" lists the system \"Plain UTM\"", "section \"Sys-Plain UTM\""});
}

TEST_F(ConvertSystems, ADatumMayKeepTheNumbersOfALostEllipsoid)
{
    {
        EditedFile edited(MainDatabase());
        const CString section = L"Dtf-To International";
        edited.file.SetItem(section, transParamKeys[TransKey::source], L"Lost", true);
    }
    ExpectUnusable(kMoved, {"its ellipsoid \"Lost\" has no record"});
    {
        EditedFile edited(MainDatabase());
        const CString section = L"Dtf-To International";
        edited.file.SetItem(section, L"SrcSma", 6378137.0, true);
        edited.file.SetItem(section, L"SrcSe", 0.00669437999014131699, true);
    }
    EXPECT_EQ(Convert(kMoved, "56 3 0\n", {"--check"}).status, 0);
}

TEST_F(ConvertSystems, AGeoidThatCannotBeUsedIsRefusedOrLeftOutAloud)
{
    ExpectUnusable(kLost, {"geoid: ", "EGM2008", "lost-geoid.gtx", "no such file", "--geoid-file", "--allow-missing"});
    const ToolRun run = Convert(kLost, "0 3 7\n", {"--allow-missing"});
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.out, "500000.000 0.000 7.000\n");
    EXPECT_THAT(run.err, AllOf(HasSubstr("geoid: "), HasSubstr("going on without it")));
    ExpectUnusable(kPlain, {"there is no model \"Moon\""}, {"--geoid-model", "Moon"});
    ExpectUnusable(kPlain, {"post correction: ", Path("none.gsb"), "no such file"},
                   {"--post-model", "NTv2", "--post-file", Path("none.gsb")});
}

TEST_F(ConvertSystems, AFileWithoutItsModelIsAUsageError)
{
    const ToolRun geoid = Convert(kPlain, "0 3\n", {"--geoid-file", "x.gtx"});
    EXPECT_EQ(geoid.status, 2);
    EXPECT_THAT(geoid.err, HasSubstr("give --geoid-model"));
    const ToolRun post = Convert(kPlain, "0 3\n", {"--post-file", "x.gsb"});
    EXPECT_EQ(post.status, 2);
    EXPECT_THAT(post.err, HasSubstr("give --post-model"));
}

TEST_F(ConvertSystems, AProjectMustBeOne)
{
    ExpectUnusable(kPlain, {Path("none.prj") + ": no such file"}, {"--project", Path("none.prj")});
    Write("broken.prj", "[Formats]\nwhat\n");
    ExpectUnusable(kPlain, {Path("broken.prj"), "2"}, {"--project", Path("broken.prj")});
    Write("other.prj", "[Something]\na=b\n");
    ExpectUnusable(kPlain, {Path("other.prj"), CString(FORMATS_SECTION).ToUtf8()}, {"--project", Path("other.prj")});
}

TEST_F(ConvertSystems, AModuleThatIsNoneIsRefused)
{
    ExpectUnusable(kPlain, {"cannot be loaded", Path("none.so") + ": no such file"}, {"--module", Path("none.so")});
    Write("text.so", "no library");
    ExpectUnusable(kPlain, {"cannot be loaded"}, {"--module", Path("text.so")});
}

TEST_F(ConvertSystems, TheUsersRecordGoesBeforeTheDelivered)
{
    {
        FileObject main;
        ASSERT_TRUE(main.FileOpen(CString::FromUtf8(MainDatabase()), FileMode::openForReading));
        FileObject user;
        ASSERT_TRUE(user.FileOpen(CString::FromUtf8(Path("user/zorusergeobase.geo")), FileMode::createNew));
        user.ApplyDifference(main);
        user.SetItem(L"Prj-UTM 31", projectionParamKeys[ProjectionKey::falseEasting], 600000.0, true);
        ASSERT_TRUE(user.FileSave(CString(), FileMode::saveExclusive));
    }
    EXPECT_EQ(Convert(kPlain, "0 3\n").out, "600000.000 0.000\n");
}
