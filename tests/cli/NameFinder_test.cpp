#include <nlohmann/json.hpp>

#include "CliTest.h"
#include "base/files/FileObject.h"

using namespace test_names;
using testing::AllOf;
using testing::HasSubstr;

/// SYSTEM on the command line, as every command reads it.
class NameFinder : public CliTest {
protected:
    NameFinder()
    {
        Write("data/zorgeosystems.tsv", "Plain UTM\tNorth Sea;Other\t101\t0\t0\t6\t84\t\n"
                                        "Moved datum\tNorth Sea\t102\t0\t50\t6\t60\t2\n"
                                        "Atlantis grid\tNorth Sea\t103\t0\t50\t6\t60\t2\n"
                                        "Plain UTM - tw\tOther\t104\t0\t50\t6\t60\t2\n");
        Write("data/left-out.tsv", "# EPSG code\tname\tmethod\treason\n"
                                   "2065\tS-JTSK\tKrovak\tKrovak: no class for the method\n");
        EditedFile(MainDatabase()).file.SetItem(L"Gp-Other", L"2", CString::FromUtf8(kPlain), true);
        EditedFile(MainDatabase()).file.SetItem(L"Gp-Other", L"3", CString::FromUtf8(kMoved), true);
    }

    /// A record of the user's with the name of a delivered one, in a group of his own.
    void AddNamesake() const
    {
        FileObject user;
        ASSERT_TRUE(user.FileOpen(CString::FromUtf8(Path("user/zorusergeobase.geo")), FileMode::createNew));
        user.SetItem(L"Groups Section", L"1", L"Harbours", true);
        user.SetItem(L"Gp-Harbours", L"1", CString::FromUtf8(kMoved), true);
        const CString section = L"Sys-" + CString::FromUtf8(kMoved);
        user.SetItem(section, L"Datumtransform name", L"None", true);
        user.SetItem(section, L"Unit name", L"Meters", true);
        user.SetItem(section, L"Ellipsoid name", L"WGS84", true);
        user.SetItem(section, L"Projection name", L"UTM 31", true);
        ASSERT_TRUE(user.FileSave(CString(), FileMode::saveExclusive));
    }

    nlohmann::json Shown(std::vector<std::string> arguments) const
    {
        arguments.insert(arguments.begin(), "show");
        arguments.push_back("--json");
        const ToolRun run = Run(arguments);
        EXPECT_EQ(run.status, 0) << run.err;
        return run.status == 0 ? nlohmann::json::parse(run.out) : nlohmann::json::object();
    }
};

TEST_F(NameFinder, ACodeStandsForTheSystemInEveryCommand)
{
    for (const char* code : {"EPSG:102", "epsg:102", "EPSG:0102"}) {
        const auto shown = Shown({code});
        EXPECT_EQ(shown["system"], kMoved) << code;
        EXPECT_EQ(shown["group"], kGroup) << code;
    }
    const ToolRun byName = Convert(kMoved, "52 4\n");
    const ToolRun byCode = Convert("EPSG:102", "52 4\n");
    EXPECT_EQ(byCode.status, 0) << byCode.err;
    EXPECT_EQ(byCode.out, byName.out);
    ToolStreams streams;
    streams.input = "52 4\n";
    const ToolRun factors = Run({"factors", "EPSG:102", "--from", "sat"}, streams);
    EXPECT_EQ(factors.status, 0) << factors.err;
    EXPECT_EQ(factors.out, Run({"factors", kMoved, "--from", "sat"}, streams).out);
    const ToolRun project = Run({"project", "new", Path("survey.prj"), "--system", "EPSG:102"});
    EXPECT_EQ(project.status, 0) << project.err;
    EXPECT_THAT(Read("survey.prj"), HasSubstr("Moved datum"));
}

TEST_F(NameFinder, ACodeTakesTheForemostGroupOrTheWantedOne)
{
    EXPECT_EQ(Shown({"EPSG:101"})["group"], kGroup);
    EXPECT_EQ(Shown({"EPSG:101", "--group", "other"})["group"], "Other");
    const ToolRun run = Run({"show", "EPSG:101", "--group", "Baltic"});
    EXPECT_EQ(run.status, 2);
    EXPECT_THAT(run.err, HasSubstr("there is no group \"Baltic\""));
}

TEST_F(NameFinder, ACodeOutsideTheWantedGroupNamesItsGroups)
{
    Write("data/zorgeosystems.tsv", "Fixed geoid\tNorth Sea\t105\t0\t0\t6\t84\t\n");
    const ToolRun run = Run({"show", "EPSG:105", "--group", "Other"});
    EXPECT_EQ(run.status, 2);
    EXPECT_EQ(run.err, "zorgeo: EPSG:105 is the system \"Fixed geoid\", which the group \"Other\" does not list; its "
                       "groups are:\n  North Sea\n");
}

TEST_F(NameFinder, AnUnknownCodeNamesTheReasonWhereItIsListed)
{
    const ToolRun listed = Convert("EPSG:2065", "52 4\n");
    EXPECT_EQ(listed.status, 2);
    EXPECT_EQ(listed.out, "");
    EXPECT_EQ(listed.err, "zorgeo: EPSG 2065: Krovak: no class for the method\n");
    const ToolRun unlisted = Run({"show", "EPSG:4326"});
    EXPECT_EQ(unlisted.status, 2);
    EXPECT_EQ(unlisted.err, "zorgeo: there is no system of EPSG code 4326; see: zorgeo find --at LAT,LON\n");
    EXPECT_THAT(Run({"show", "EPSG:"}).err, HasSubstr("there is no system \"EPSG:\""));
    EXPECT_THAT(Run({"show", "EPSG:1e2"}).err, HasSubstr("there is no system \"EPSG:1e2\""));
}

// A part of a name is not enough here: "Plain UTM - tw" would otherwise be "Plain UTM - twin".
TEST_F(NameFinder, ACodeWhoseSystemTheDatabaseLacksIsAFaultOfTheFiles)
{
    for (const auto& [code, name] : {std::pair("EPSG:103", "Atlantis grid"), {"EPSG:104", "Plain UTM - tw"}}) {
        const ToolRun run = Run({"show", code});
        EXPECT_EQ(run.status, 3);
        EXPECT_THAT(run.err,
                    AllOf(HasSubstr(Path("data/zorgeosystems.tsv")), HasSubstr(std::string("\"") + name + "\""),
                          HasSubstr("the database has no such system")));
    }
}

TEST_F(NameFinder, BadLinesOfTheTableAreToldWithACode)
{
    Write("data/zorgeosystems.tsv", "half a line\nMoved datum\tNorth Sea\t102\t0\t50\t6\t60\t2\n");
    const ToolRun run = Run({"show", "EPSG:102", "--as", "id"});
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.err, "zorgeo: " + Path("data/zorgeosystems.tsv") + ":1: not eight fields apart by tabs\n");
}

TEST_F(NameFinder, ARecordInSeveralGroupsIsOneSystemUnderTheFirst)
{
    EXPECT_EQ(Shown({kMoved})["group"], kGroup);
    EXPECT_EQ(Shown({"moved DAT"})["group"], kGroup);
    EXPECT_EQ(Shown({kMoved, "--group", "Other"})["group"], "Other");
    EXPECT_EQ(Convert("moved dat", "52 4\n").status, 0);
    const ToolRun parts = Run({"show", "plain ut"}); // two names, one of them in two groups
    EXPECT_EQ(parts.status, 2);
    EXPECT_EQ(parts.err, "zorgeo: system \"plain ut\" may be any of:\n  Plain UTM (group North Sea)\n"
                         "  Plain UTM - twin (group Other)\n");
}

TEST_F(NameFinder, RecordsOfOneNameInBothDatabasesAreTwo)
{
    AddNamesake();
    const ToolRun run = Convert(kMoved, "52 4\n");
    EXPECT_EQ(run.status, 2);
    EXPECT_EQ(run.err, "zorgeo: system \"Moved datum\" may be any of:\n  Moved datum (group North Sea)\n"
                       "  Moved datum (group Harbours)\n");
    const std::string delivered = Convert(kMoved, "52 4\n", {"--group", kGroup}).out;
    const std::string users = Convert(kMoved, "52 4\n", {"--group", "Harbours"}).out;
    EXPECT_EQ(users, Convert(kPlain, "52 4\n").out);
    EXPECT_NE(users, delivered);
    EXPECT_EQ(Convert("EPSG:102", "52 4\n").out, delivered);
}

TEST_F(NameFinder, AChangeMeansTheUsersRecordOfTheName)
{
    AddNamesake();
    const ToolRun run = Run({"system", "geoid", kMoved, "--method", "Manual", "--value", "12"});
    EXPECT_EQ(run.status, 0) << run.err;
    EXPECT_THAT(Read("user/zorusergeobase.geo"), HasSubstr("Manual"));
}

class NameFinderDelivered : public CliTest {};

TEST_F(NameFinderDelivered, CodesOfTheWorldDatabase)
{
    const auto show = [this](const char* system) {
        return RunTool({"show", system, "--json", "--data", ZORGEO_DATA_DIR, "--user", Path("user")});
    };
    const ToolRun rd = show("EPSG:28992");
    ASSERT_EQ(rd.status, 0) << rd.err;
    EXPECT_EQ(nlohmann::json::parse(rd.out)["system"], "Amersfoort - RD New");
    const ToolRun krovak = show("EPSG:2065"); // S-JTSK (Ferro) / Krovak
    EXPECT_EQ(krovak.status, 2);
    EXPECT_EQ(krovak.err, "zorgeo: EPSG 2065: Krovak: no class for the method\n");
}
