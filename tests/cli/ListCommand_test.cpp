#include <nlohmann/json.hpp>

#include "CliTest.h"

using testing::HasSubstr;

class ListCommand : public CliTest {};

TEST_F(ListCommand, ListsGroupsWithTheirNumberOfSystems)
{
    const ToolRun run = Run({"list", "groups"});
    EXPECT_EQ(run.status, 0) << run.err;
    EXPECT_EQ(run.out, "North Sea\t7\nOther\t1\n");
    EXPECT_EQ(run.err, "");
}

TEST_F(ListCommand, ListsSystemsOfAllGroupsOrOfOne)
{
    EXPECT_THAT(Run({"list", "systems"}).out, HasSubstr("Plain UTM\tNorth Sea\nMoved datum\tNorth Sea\n"));
    EXPECT_EQ(Run({"list", "systems", "--group", "Other"}).out, "Plain UTM - twin\tOther\n");
    EXPECT_EQ(Run({"list", "systems", "--group", "oth"}).out, "Plain UTM - twin\tOther\n");
}

TEST_F(ListCommand, MatchesNamesInAnyCaseOfLetters)
{
    EXPECT_EQ(Run({"list", "systems", "--match", "PLAIN utm"}).out, "Plain UTM\tNorth Sea\nPlain UTM - twin\tOther\n");
    const ToolRun none = Run({"list", "systems", "--match", "mars"});
    EXPECT_EQ(none.status, 0);
    EXPECT_EQ(none.out, "");
}

TEST_F(ListCommand, TellsWhatElseARecordHolds)
{
    EXPECT_THAT(Run({"list", "datums"}).out,
                HasSubstr("To International\tBursa/Wolfe(7 Parameters)\tWGS84\tInternational 1924\n"));
    EXPECT_EQ(Run({"list", "projections"}).out,
              "UTM 31\tTransverse Mercator\tMeters\nUTM 31 feet\tTransverse Mercator\tFeet\n");
    EXPECT_EQ(Run({"list", "units"}).out, "Meters\t1\tm\nFeet\t0.3048\tft\n");
    EXPECT_EQ(Run({"list", "methods"}).out, "Transverse Mercator\t0\n");
    EXPECT_THAT(Run({"list", "geoids"}).out, HasSubstr("Manual\t1\tyes\n"));
}

TEST_F(ListCommand, WritesJson)
{
    const auto list = nlohmann::json::parse(Run({"list", "ellipsoids", "--json"}).out);
    ASSERT_EQ(list.size(), 2U);
    EXPECT_EQ(list[0]["name"], "WGS84");
    EXPECT_EQ(list[0]["semiMajorAxis"], 6378137.0);
    EXPECT_NEAR(list[0]["inverseFlattening"].get<double>(), 298.257223563, 1e-6); // WGS 84, NIMA TR8350.2
    EXPECT_EQ(nlohmann::json::parse(Run({"list", "groups", "--match", "none of them", "--json"}).out).size(), 0U);
}

TEST_F(ListCommand, UnknownGroupNamesTheGroups)
{
    const ToolRun run = Run({"list", "systems", "--group", "Baltic"});
    EXPECT_EQ(run.status, 2);
    EXPECT_EQ(run.out, "");
    EXPECT_THAT(run.err, HasSubstr("there is no group \"Baltic\"; there are:\n  North Sea\n  Other\n"));
}

TEST_F(ListCommand, GroupGoesWithSystemsOnly)
{
    const ToolRun run = Run({"list", "units", "--group", "Other"});
    EXPECT_EQ(run.status, 2);
    EXPECT_THAT(run.err, HasSubstr("zorgeo list systems"));
}

TEST_F(ListCommand, AClosedOutputIsAnError)
{
    ToolStreams streams;
    streams.out = ToolStreams::Out::closed;
    const ToolRun run = Run({"list", "groups"}, streams);
    EXPECT_EQ(run.status, 4);
    EXPECT_THAT(run.err, HasSubstr("standard output is closed"));
}

TEST_F(ListCommand, MakesTheUserDirectoryWhenItIsMissing)
{
    const ToolRun run = RunTool({"list", "groups", "--data", Path("data"), "--user", Path("new/deeper")});
    EXPECT_EQ(run.status, 0) << run.err;
    EXPECT_THAT(FilesIn("new/deeper"), testing::ElementsAre("zorusergeobase.geo"));
}

TEST_F(ListCommand, ListsTheUsersSystemsBehindTheDelivered)
{
    {
        FileObject user;
        ASSERT_TRUE(user.FileOpen(CString::FromUtf8(Path("user/zorusergeobase.geo")), FileMode::createNew));
        user.SetItem(L"Groups Section", L"1", L"Harbours", true);
        user.SetItem(L"Gp-Harbours", L"1", L"K\u00f6ln Grid", true);
        ASSERT_TRUE(user.FileSave(CString(), FileMode::saveExclusive));
    }
    EXPECT_EQ(Run({"list", "groups"}).out, "North Sea\t7\nOther\t1\nHarbours\t1\n");
    EXPECT_EQ(Run({"list", "systems", "--match", "K\xC3\x96LN"}).out, "K\xC3\xB6ln Grid\tHarbours\n");
}
