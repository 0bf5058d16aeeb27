#include <algorithm>
#include <filesystem>
#include <sstream>

#include <nlohmann/json.hpp>

#include "CliTest.h"

using namespace test_names;
using testing::AllOf;
using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;

namespace {

std::vector<std::string> Lines(const std::string& text)
{
    std::istringstream stream(text);
    std::vector<std::string> lines;
    for (std::string line; std::getline(stream, line);) {
        lines.push_back(line);
    }
    return lines;
}

} // namespace

/// The small database with a table of areas around 52 north, 4 east.
class FindCommand : public CliTest {
protected:
    FindCommand() { WriteAreas(""); }
    void WriteAreas(const std::string& more) const
    {
        Write("data/zorgeosystems.tsv", "# name\n"
                                        "Plain UTM\tNorth Sea\t101\t0\t0\t6\t84\t\n"
                                        "Moved datum\tNorth Sea\t102\t0\t50\t6\t60\t2\n"
                                        "Plain in feet\tNorth Sea\t\t3\t51\t5\t53\t2\n"
                                        "Plain UTM - twin\tOther\t104\t-180\t-80\t180\t84\t0.5\n"
                                        "Fixed geoid\tNorth Sea\t105\t100\t50\t110\t60\t1\n" +
                                            more);
    }
};

// 0.5 m before 2 m before none; of those with 2 m the box of 2 by 2 degrees before that of 6 by 10.
TEST_F(FindCommand, BestAccuracyFirstThenTheSmallerArea)
{
    const ToolRun run = Run({"find", "--at", "52,4"});
    EXPECT_EQ(run.status, 0) << run.err;
    EXPECT_EQ(run.out, "Plain UTM - twin\tOther\tEPSG:104\t0.5\tMeters\n"
                       "Plain in feet\tNorth Sea\t\t2\tFeet\n"
                       "Moved datum\tNorth Sea\tEPSG:102\t2\tMeters\n"
                       "Plain UTM\tNorth Sea\tEPSG:101\t\tMeters\n");
    EXPECT_EQ(run.err, "");
}

TEST_F(FindCommand, AnglesMayHavePartsAndLetters)
{
    const std::string wanted = Run({"find", "--at", "52.5,4.25"}).out;
    EXPECT_EQ(Lines(wanted).size(), 4U);
    for (const char* at : {"52d30'N,4d15'E", "N52:30,E4:15", "52 30 00 N, 4 15 00 E", "52.5,-355.75"}) {
        EXPECT_EQ(Run({"find", "--at", at}).out, wanted) << at;
    }
    EXPECT_EQ(Lines(Run({"find", "--at", "-33.9,18.4"}).out).size(), 1U); // a sign begins no option
}

TEST_F(FindCommand, DatumAndNameKeepWhatContainsThem)
{
    EXPECT_EQ(Run({"find", "--at", "52,4", "--datum", "INTERNATIONAL"}).out,
              "Moved datum\tNorth Sea\tEPSG:102\t2\tMeters\n");
    EXPECT_EQ(Run({"find", "--at", "52,4", "--match", "feet"}).out, "Plain in feet\tNorth Sea\t\t2\tFeet\n");
    const ToolRun none = Run({"find", "--at", "52,4", "--datum", "international", "--match", "feet"});
    EXPECT_EQ(none.status, 0);
    EXPECT_EQ(none.out, "");
    EXPECT_EQ(none.err, "zorgeo: none of the 4 systems whose area of use holds 52,4 is such a one\n");
}

TEST_F(FindCommand, NothingFoundIsSaidAndNoFailure)
{
    const ToolRun run = Run({"find", "--at", "88,10"});
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.out, "");
    EXPECT_EQ(run.err, "zorgeo: no system's area of use holds 88,10\n");
    const auto json = nlohmann::json::parse(Run({"find", "--at", "88,10", "--json"}).out);
    EXPECT_EQ(json["systems"].size(), 0U);
}

TEST_F(FindCommand, WritesJson)
{
    WriteAreas("Fixed geoid\tNorth Sea\t105\t3.5\t51.5\t4.5\t52.5\t1\n");
    const auto json = nlohmann::json::parse(Run({"find", "--at", "52N,4E", "--json"}).out);
    EXPECT_EQ(json["schema"], "zorgeo.find/1");
    EXPECT_EQ(json["at"]["latitude"], 52.0);
    EXPECT_EQ(json["at"]["longitude"], 4.0);
    ASSERT_EQ(json["systems"].size(), 5U);
    const auto& geoid = json["systems"][1];
    EXPECT_EQ(geoid["name"], kGeoid);
    EXPECT_EQ(geoid["group"], kGroup);
    EXPECT_EQ(geoid["groups"], nlohmann::json({kGroup}));
    EXPECT_EQ(geoid["code"], 105);
    EXPECT_EQ(geoid["accuracy"], 1.0);
    EXPECT_EQ(geoid["unit"], "Meters");
    EXPECT_EQ(geoid["datum"], "None");
    ASSERT_EQ(geoid["area"].size(), 2U);
    EXPECT_EQ(geoid["area"][1], nlohmann::json({{"west", 3.5}, {"south", 51.5}, {"east", 4.5}, {"north", 52.5}}));
    EXPECT_TRUE(json["systems"][2]["code"].is_null());
    EXPECT_TRUE(json["systems"][4]["accuracy"].is_null());
}

TEST_F(FindCommand, ABadPlaceTellsWhatWouldBeRight)
{
    for (const auto& [at, fault] : {std::pair("52.37", "not two angles with a comma between them"),
                                    {"4E,52N", "a latitude with a letter of longitude"},
                                    {"95,4", "latitude beyond 90 degrees"},
                                    {"52,x", "no angle"}}) {
        const ToolRun run = Run({"find", "--at", at});
        EXPECT_EQ(run.status, 2);
        EXPECT_EQ(run.out, "");
        EXPECT_EQ(run.err, std::string("zorgeo: --at ") + at + ": " + fault +
                               "; give latitude and longitude like 52.37,4.90 or 52d22'N,4d54'E\n");
    }
    const ToolRun none = Run({"find"});
    EXPECT_EQ(none.status, 2);
    EXPECT_THAT(none.err, HasSubstr("--at is required"));
}

TEST_F(FindCommand, BadLinesOfTheTableAreToldAndTheOthersListed)
{
    WriteAreas("Post shifts\tNorth Sea\t106\t0\t50\t6\tsixty\t\n");
    const ToolRun run = Run({"find", "--at", "52,4"});
    EXPECT_EQ(run.status, 1);
    EXPECT_EQ(Lines(run.out).size(), 4U);
    EXPECT_EQ(run.err, "zorgeo: " + Path("data/zorgeosystems.tsv") +
                           ":7: an edge of the box is no latitude within 90 or longitude within 180 degrees\n");
}

TEST_F(FindCommand, ASystemThatTheDatabaseLacksIsLeftOutAndTold)
{
    WriteAreas("Atlantis grid\tNorth Sea\t107\t0\t50\t6\t60\t1\n");
    const ToolRun run = Run({"find", "--at", "52,4"});
    EXPECT_EQ(run.status, 0);
    EXPECT_THAT(run.out, Not(HasSubstr("Atlantis")));
    EXPECT_EQ(run.err, "zorgeo: the database has no system \"Atlantis grid\", which zorgeosystems.tsv lists\n");
}

TEST_F(FindCommand, AMissingTableIsNamed)
{
    std::filesystem::remove(Path("data/zorgeosystems.tsv"));
    const ToolRun run = Run({"find", "--at", "52,4"});
    EXPECT_EQ(run.status, 3);
    EXPECT_THAT(run.err, HasSubstr(Path("data/zorgeosystems.tsv") + ": no such file"));
}

/// The delivered files. What is expected are facts of the EPSG Dataset: codes, names, areas of use.
class FindDelivered : public CliTest {
protected:
    std::vector<int> CodesAt(const std::string& place, std::vector<std::string> more = {}) const
    {
        std::vector<std::string> arguments = {"find",   "--at",          place,    "--json",
                                              "--data", ZORGEO_DATA_DIR, "--user", Path("user")};
        arguments.insert(arguments.end(), more.begin(), more.end());
        const ToolRun run = RunTool(arguments);
        EXPECT_EQ(run.status, 0) << run.err;
        EXPECT_EQ(run.err, "");
        std::vector<int> codes;
        const auto json = nlohmann::json::parse(run.out);
        for (const auto& system : json["systems"]) {
            if (!system["code"].is_null()) {
                codes.push_back(system["code"]);
            }
        }
        return codes;
    }
};

// Amsterdam. RD New and its forerunner, both from Amersfoort within 1 m, have the smaller area and
// stand before ETRS89 / UTM 31N with 1 m; ED50 / UTM 31N follows, WGS 84 / UTM 31N transforms nothing.
TEST_F(FindDelivered, Amsterdam)
{
    const std::vector<int> codes = CodesAt("52.37,4.90");
    const auto place = [&codes](int code) { return std::find(codes.begin(), codes.end(), code) - codes.begin(); };
    EXPECT_THAT(codes, AllOf(Contains(28992), Contains(28991), Contains(25831), Contains(23031), Contains(32631),
                             Contains(3395), Contains(3857)));
    EXPECT_THAT(codes, Not(Contains(25832))); // from 6 east
    EXPECT_THAT(codes, Not(Contains(31370))); // Belgium
    EXPECT_THAT(codes, Not(Contains(27700))); // Great Britain
    EXPECT_LT(place(28992), place(25831));
    EXPECT_LT(place(25831), place(23031));
    EXPECT_LT(place(23031), place(32631));
    EXPECT_LT(place(32631), place(3395)); // a zone before the world
    EXPECT_THAT(CodesAt("52d22'12\"N,4d54'E", {"--datum", "amersfoort"}), ElementsAre(28991, 28992));
}

TEST_F(FindDelivered, TheExampleOfTheHelpRuns)
{
    EXPECT_THAT(RunTool({"find", "--help"}).out,
                HasSubstr("Example:\n  zorgeo find --at 52.37,4.90 --datum amersfoort\n"));
    EXPECT_THAT(CodesAt("52.37,4.90", {"--datum", "amersfoort"}), ElementsAre(28991, 28992));
}

// Where four zones meet: 30 and 31, north and south.
TEST_F(FindDelivered, NullIsland)
{
    const std::vector<int> codes = CodesAt("0,0");
    EXPECT_THAT(codes, AllOf(Contains(32630), Contains(32631), Contains(32730), Contains(32731), Contains(3395)));
    EXPECT_THAT(codes, Not(Contains(32629)));
    EXPECT_THAT(codes, Not(Contains(32601)));
}

// Zones 60 and 1 meet at 180 degrees, by whichever name; the box of 3-degree zone CM 180E reaches across.
TEST_F(FindDelivered, DateLine)
{
    const std::vector<int> codes = CodesAt("65,180");
    EXPECT_THAT(codes, AllOf(Contains(32660), Contains(32601), Contains(2636), Contains(3389), Contains(3832)));
    EXPECT_EQ(CodesAt("65,-180"), codes);
    EXPECT_THAT(CodesAt("65,-179"), AllOf(Contains(32601), Contains(2636), Not(Contains(32660))));
    EXPECT_THAT(CodesAt("65,179"), AllOf(Contains(32660), Contains(2636), Not(Contains(32601))));
    // Fiji 1986 / Fiji Map Grid, both sides of the line; not in Samoa.
    EXPECT_THAT(CodesAt("-17.8,178.0"), Contains(3460));
    EXPECT_THAT(CodesAt("-17.8,-179.0"), Contains(3460));
    EXPECT_THAT(CodesAt("-13.8,-172.0"), Not(Contains(3460)));
}

// UPS and the polar stereographic systems, no zone; the longitude has no meaning there.
TEST_F(FindDelivered, Poles)
{
    const std::vector<int> north = CodesAt("90,0");
    EXPECT_THAT(north, AllOf(Contains(32661), Contains(5041), Contains(3413), Contains(3995)));
    EXPECT_THAT(north, AllOf(Not(Contains(32631)), Not(Contains(32761)), Not(Contains(3857))));
    EXPECT_EQ(CodesAt("90,123"), north);
    const std::vector<int> south = CodesAt("90S,0");
    // 3032 is used from 45 to 160 east, 5482 across 180: both reach the pole.
    EXPECT_THAT(south, AllOf(Contains(32761), Contains(5042), Contains(3031), Contains(3032), Contains(5482)));
    EXPECT_THAT(south, AllOf(Not(Contains(32661)), Not(Contains(32731))));
    EXPECT_EQ(south.front(), 5482); // the only one there with a transformation
}
