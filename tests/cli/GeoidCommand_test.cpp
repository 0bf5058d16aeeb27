#include <fmt/format.h>
#include <nlohmann/json.hpp>

#include "CliTest.h"
#include "tests/support/GridFiles.h"
#include "tests/support/ProjOracle.h"

using namespace test_names;
using testing::AllOf;
using testing::HasSubstr;

// Expected values by hand for grids made here, and by PROJ for those that it installs.

namespace {

const std::string kProjData = "/usr/share/proj/";
const std::string kEgm96 = kProjData + "egm96_15.gtx";
const std::string kBeta = kProjData + "BETA2007.gsb";
constexpr double kMillimetre = 0.001;

double GeoidHeight(double latitude, double longitude)
{
    const ProjOracle proj("+proj=vgridshift +multiplier=1 +grids=" + kEgm96);
    return proj.Forward(ProjOracle::Radians(longitude), ProjOracle::Radians(latitude)).z;
}

} // namespace

class GeoidCommand : public CliTest {
protected:
    GeoidCommand()
    {
        // 50 to 50.5 N, 4 to 5 E: 10 20 40, north of it 30 50 60.
        Write("heights.gtx", GtxFile().Bytes([](int row, int column) {
            constexpr double values[2][3] = {{10.0, 20.0, 40.0}, {30.0, 50.0, 60.0}};
            return values[row][column];
        }));
        Ntv2SubGrid grid;
        grid.south = 50.0 * 3600;
        grid.east = -6.0 * 3600;
        grid.columns = 3;
        grid.north = Constant(1.5);
        grid.west = Constant(-2.25);
        Ntv2SubGrid inner = grid;
        inner.name = "INNER";
        inner.parent = "GRID";
        inner.east = -5.0 * 3600;
        inner.columns = 2;
        inner.north = Constant(3.0);
        Ntv2File file;
        file.grids = {grid, inner};
        Write("shifts.gsb", file.Bytes());
        Write("british.txt", BritishFile().Text([](int row, int column) {
            return BritishFile::Node{90.0 + column, -70.0, 50.0 + row};
        }));
    }

    ToolRun Geoid(const std::string& grid, const std::string& input, const std::vector<std::string>& more = {}) const
    {
        std::vector<std::string> arguments = {"geoid", grid};
        arguments.insert(arguments.end(), more.begin(), more.end());
        ToolStreams streams;
        streams.input = input;
        return RunTool(arguments, streams);
    }
};

TEST_F(GeoidCommand, AHeightTakesThePlaceOfThePosition)
{
    struct Row {
        const char* input;
        std::vector<std::string> more;
        const char* output;
    };
    for (const Row& row :
         std::vector<Row>{{"50 4\n50.25 4.25\n", {}, "10.0000\n27.5000\n"},
                          {"50 4 12 buoy\n", {}, "10.0000 12 buoy\n"}, // a height stays
                          {"50, 4, buoy\n", {}, "10.0000, buoy\n"},
                          {"50\t4\tbuoy\r\n", {}, "10.0000\tbuoy\r\n"},
                          {"50   4   buoy", {}, "10.0000   buoy"},
                          {"50;4\n", {}, "10.0000\n"},
                          {"50 4 buoy\n", {"--append"}, "50 4 buoy 10.0000\n"},
                          {"50,4\n", {"--append", "--precision", "1"}, "50,4,10.0\n"},
                          {"# remark\n\n50 -356\n", {}, "# remark\n\n10.0000\n"},
                          {"50d15'N 4:15:00E\n", {}, "27.5000\n"},
                          {"a,4,b,50\n", {"--columns", "lat=4,lon=2"}, "a,10.0000,b\n"},
                          {"id,Lat,Lon\nx,50,4\n", {"--columns", "lat=Lat,lon=Lon"}, "id,geoid\nx,10.0000\n"}}) {
        const ToolRun run = Geoid(Path("heights.gtx"), row.input, row.more);
        EXPECT_EQ(run.status, 0) << run.err;
        EXPECT_EQ(run.out, row.output);
    }
}

TEST_F(GeoidCommand, ShiftsAreSecondsNorthAndEast)
{
    EXPECT_EQ(Geoid(Path("shifts.gsb"), "50.5 5.5 buoy\n").out, "1.500000 2.250000 buoy\n");
    EXPECT_EQ(Geoid(Path("shifts.gsb"), "50.5 5.5\n", {"--inverse"}).out, "1.500000 2.250000\n");
    EXPECT_EQ(Geoid(Path("shifts.gsb"), "50.5 4.5\n").out, "3.000000 2.250000\n") << "the inner sub-grid";
}

TEST_F(GeoidCommand, TheBritishGridTakesEastingsAndGivesThreeValues)
{
    EXPECT_EQ(Geoid(Path("british.txt"), "1000 500 buoy\n").out, "91.0000 -70.0000 50.5000 buoy\n");
    EXPECT_EQ(Geoid(Path("british.txt"), "1000,500\n", {"--append"}).out, "1000,500,91.0000,-70.0000,50.5000\n");
    EXPECT_EQ(Geoid(Path("british.txt"), "x,1000,500,y\n", {"--columns", "E=2,N=3"}).out,
              "x,91.0000,-70.0000,50.5000,y\n");
    // The way back from 1000 + 91, 500 - 70.
    EXPECT_EQ(Geoid(Path("british.txt"), "1091 430\n", {"--inverse"}).out, "91.0000 -70.0000 50.5000\n");
}

TEST_F(GeoidCommand, APlaceWithoutAValueIsABadLine)
{
    const ToolRun run = Geoid(Path("heights.gtx"), "50 4\n60 4\n50 4.5\n91 4\n50 361\nhere\n");
    EXPECT_EQ(run.status, 1);
    EXPECT_EQ(run.out, "10.0000\n*\n20.0000\n*\n*\n*\n");
    EXPECT_THAT(run.err, AllOf(HasSubstr("-:2: the grid has no value here: 60 4\n"),
                               HasSubstr("-:4: latitude beyond 90 degrees: 91 4\n"),
                               HasSubstr("-:5: longitude beyond 360 degrees: 50 361\n"), HasSubstr("-:6: lat is "),
                               HasSubstr("4 of 6 lines are bad")));
    EXPECT_EQ(Geoid(Path("heights.gtx"), "50 4\n60 4\n", {"--bad", "drop"}).out, "10.0000\n");
    EXPECT_EQ(Geoid(Path("shifts.gsb"), "60 4 buoy\n").out, "* * buoy\n");
    EXPECT_EQ(Geoid(Path("british.txt"), "9000 4 buoy\n").out, "* * * buoy\n");
}

TEST_F(GeoidCommand, ReadsFilesAndWritesAFile)
{
    Write("points.txt", "50 4\n50 4.5\n");
    const ToolRun run = RunTool({"geoid", Path("heights.gtx"), Path("points.txt"), "-o", Path("out.txt"), "--json"});
    EXPECT_EQ(run.status, 0) << run.err;
    EXPECT_EQ(Read("out.txt"), "10.0000\n20.0000\n");
    const auto summary = nlohmann::json::parse(run.err);
    EXPECT_EQ(summary["file"], Path("heights.gtx"));
    EXPECT_EQ(summary["format"], "GTX");
    EXPECT_EQ(summary["good"], 2);
}

TEST_F(GeoidCommand, RealGridsGiveWhatProjGives)
{
    for (const auto& [latitude, longitude] :
         std::vector<std::pair<double, double>>{{52.1, 5.2}, {-33.33, 151.2}, {89.9, -170.0}, {0.0, 180.0}}) {
        const ToolRun run = Geoid(kEgm96, fmt::format("{} {}\n", latitude, longitude), {"--precision", "7"});
        EXPECT_EQ(run.status, 0) << run.err;
        EXPECT_NEAR(Numbers(run.out).at(0), GeoidHeight(latitude, longitude), 1e-6);
    }
    const ProjOracle proj("+proj=hgridshift +grids=" + kBeta);
    for (const bool inverse : {false, true}) {
        const auto there = inverse ? proj.Inverse(ProjOracle::Radians(13.4), ProjOracle::Radians(52.5))
                                   : proj.Forward(ProjOracle::Radians(13.4), ProjOracle::Radians(52.5));
        const double sign = inverse ? -1.0 : 1.0;
        const ToolRun run =
            Geoid(kBeta, "52.5 13.4\n", inverse ? std::vector<std::string>{"--inverse"} : std::vector<std::string>{});
        // A millionth of a second, and PROJ's rounding: 0.03 mm.
        EXPECT_NEAR(Numbers(run.out).at(0), sign * (ProjOracle::Degrees(there.y) - 52.5) * 3600, 1e-6);
        EXPECT_NEAR(Numbers(run.out).at(1), sign * (ProjOracle::Degrees(there.x) - 13.4) * 3600, 1e-6);
    }
}

TEST_F(GeoidCommand, InfoSaysWhatAGridIs)
{
    const ToolRun heights = RunTool({"geoid", "--info", kEgm96});
    EXPECT_EQ(heights.status, 0);
    EXPECT_EQ(heights.err, "");
    EXPECT_THAT(heights.out, AllOf(HasSubstr("file\t" + kEgm96 + "\nformat\tGTX\n"), HasSubstr("no data\t-88.8888"),
                                   HasSubstr("all round the Earth\tyes\n"),
                                   HasSubstr("south to north\t-90 to 90 degrees, step 0.25, 721 rows\n"),
                                   HasSubstr("west to east\t-180 to 179.75 degrees, step 0.25, 1440 columns\n")));
    const ToolRun shifts = RunTool({"geoid", "--info", kBeta});
    EXPECT_THAT(shifts.out,
                AllOf(HasSubstr("format\tNTv2\n"), HasSubstr("from\tDHDN90, semi-axes 6377397.155"),
                      HasSubstr("to\tETRS89, semi-axes 6378137"), HasSubstr("byte order\tlittle-endian\n"),
                      HasSubstr("step 0.1, 84 rows\n"), HasSubstr("sub-grids\t1\n"),
                      HasSubstr("west to east\t5.5 to 15.6666666667 degrees, step 0.1666666667, 62 columns")));
    const ToolRun made = RunTool({"geoid", Path("shifts.gsb"), "--info"});
    EXPECT_THAT(made.out, AllOf(HasSubstr("sub-grids\t2\n"), HasSubstr("sub-grid\tINNER (parent GRID)\n")));
    EXPECT_THAT(RunTool({"geoid", Path("british.txt"), "--info"}).out,
                AllOf(HasSubstr("west to east\t0 to 2000 metres, step 1000, 3 columns\n"), HasSubstr("datum flag 0")));
    const auto json = nlohmann::json::parse(RunTool({"geoid", "--info", "--json", Path("shifts.gsb")}).out);
    EXPECT_EQ(json["format"], "NTv2");
    EXPECT_EQ(json["grids"].size(), 2u);
    EXPECT_EQ(json["grids"][1]["parent"], "GRID");
    EXPECT_EQ(json["grids"][0]["rows"], 2);
    EXPECT_EQ(json["grids"][0]["west"], 4.0);
}

TEST_F(GeoidCommand, AFileThatIsNoGridIsRefusedWithItsReason)
{
    Write("words.gtx", "not a grid\n");
    Write("cut.gsb", Read("shifts.gsb").substr(0, 400));
    struct Row {
        std::string file;
        const char* reason;
    };
    for (const Row& row : {Row{Path("none.gtx"), "no such file"}, Row{Path("words.gtx"), "line 1"},
                           Row{Path("cut.gsb"), "\"GRID\" is cut short"}, Row{Path("data"), "directory"}}) {
        for (const bool info : {false, true}) {
            const ToolRun run = info ? RunTool({"geoid", row.file, "--info"}) : Geoid(row.file, "50 4\n");
            EXPECT_EQ(run.status, 3);
            EXPECT_EQ(run.out, "");
            EXPECT_THAT(run.err, AllOf(HasSubstr(row.file), HasSubstr(row.reason)));
        }
    }
}

TEST_F(GeoidCommand, MistakesAreUsageErrors)
{
    const ToolRun inverse = Geoid(Path("heights.gtx"), "50 4\n", {"--inverse"});
    EXPECT_EQ(inverse.status, 2);
    EXPECT_THAT(inverse.err, HasSubstr("this grid has heights"));
    EXPECT_EQ(RunTool({"geoid", Path("shifts.gsb"), Path("heights.gtx"), "--info"}).status, 2);
    EXPECT_EQ(Geoid(Path("heights.gtx"), "50 4\n", {"--columns", "E=1,N=2"}).status, 2);
    EXPECT_EQ(RunTool({"geoid", Path("heights.gtx"), Path("none.txt")}).status, 4);
}

// The grids within a conversion.

TEST_F(GeoidCommand, ConvertTakesTheGeoidHeightOff)
{
    const std::vector<std::string> model = {"--geoid-model", "EGM96", "--geoid-file", kEgm96, "--precision", "6"};
    const double geoid = GeoidHeight(56.25, 3.7);
    const ToolRun there = Convert(kPlain, "56.25 3.7 100\n", model);
    ASSERT_EQ(there.status, 0) << there.err;
    EXPECT_NEAR(Numbers(there.out).at(2), 100.0 - geoid, 2e-6);
    std::vector<std::string> back = model;
    back.back() = "10";
    const ToolRun again = ConvertFrom(kPlain, "grid", "sat", there.out, back);
    EXPECT_NEAR(Numbers(again.out).at(2), 100.0, kMillimetre);
    EXPECT_EQ(Convert(kPlain, "56.25 3.7 100\n", {"--geoid-model", "EGM96", "--geoid-file", kEgm96, "--check"}).status,
              0);
    // In feet the geoid height is in feet too.
    const ToolRun feet = Convert(kFeet, "56.25 3.7 100\n", model);
    EXPECT_NEAR(Numbers(feet.out).at(2), 100.0 - geoid / 0.3048, 2e-5);
}

TEST_F(GeoidCommand, ConvertShiftsByAPostModel)
{
    const ProjOracle proj("+proj=pipeline +step +proj=hgridshift +grids=" + kBeta +
                          " +step +proj=utm +zone=31 +ellps=WGS84");
    const std::vector<std::string> model = {"--post-model", "NTv2", "--post-file", kBeta, "--check"};
    for (const auto& [latitude, longitude] : std::vector<std::pair<double, double>>{{51.0, 6.2}, {53.1, 5.9}}) {
        const auto grid = proj.Forward(ProjOracle::Radians(longitude), ProjOracle::Radians(latitude));
        const ToolRun there = Convert(kPlain, fmt::format("{} {}\n", latitude, longitude), model);
        ASSERT_EQ(there.status, 0) << there.err;
        EXPECT_NEAR(Numbers(there.out).at(0), grid.x, kMillimetre);
        EXPECT_NEAR(Numbers(there.out).at(1), grid.y, kMillimetre);
        const ToolRun back = ConvertFrom(kPlain, "grid", "sat", fmt::format("{:.6f} {:.6f}\n", grid.x, grid.y), model);
        ASSERT_EQ(back.status, 0) << back.err;
        EXPECT_NEAR(Numbers(back.out).at(0), latitude, 1e-8);
        EXPECT_NEAR(Numbers(back.out).at(1), longitude, 1e-8);
    }
    const ToolRun outside = Convert(kPlain, "56 3\n", model);
    EXPECT_EQ(outside.status, 1);
    EXPECT_THAT(outside.err, HasSubstr("the post correction model has no correction here"));
}

TEST_F(GeoidCommand, ConvertRefusesAGridThatIsBrokenOrOfTheWrongKind)
{
    Write("cut.gtx", Read("heights.gtx").substr(0, 50));
    struct Row {
        std::vector<std::string> options;
        std::vector<std::string> parts;
    };
    for (const Row& row :
         std::vector<Row>{{{"--geoid-model", "EGM96", "--geoid-file", Path("cut.gtx")},
                           {"geoid: ", Path("cut.gtx"), "\"EGM96\"", "shorter than its numbers of rows and columns"}},
                          {{"--geoid-model", "NTv2", "--geoid-file", Path("shifts.gsb")},
                           {"geoid: ", Path("shifts.gsb"), "it is a grid (NTv2) without geoid heights"}},
                          {{"--post-model", "OSTN", "--post-file", Path("heights.gtx")},
                           {"post correction: ", Path("heights.gtx"), "it is a grid (GTX) without shifts"}},
                          {{"--post-model", "NTv2"}, {"post correction: ", "the model \"NTv2\" has no file"}}}) {
        const ToolRun run = Convert(kPlain, "50 4\n", row.options);
        EXPECT_EQ(run.status, 3);
        EXPECT_EQ(run.out, "");
        for (const std::string& part : row.parts) {
            EXPECT_THAT(run.err, HasSubstr(part));
        }
    }
}
