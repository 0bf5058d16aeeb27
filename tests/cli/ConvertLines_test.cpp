#include "CliTest.h"

using namespace test_names;
using testing::HasSubstr;

// On the central meridian of the grid the easting is the false easting exactly, and on the
// equator the northing is nought: expected texts by hand.

class ConvertLines : public CliTest {};

TEST_F(ConvertLines, TheRestOfALineIsKeptByteForByte)
{
    EXPECT_EQ(Convert(kPlain, "  0.0   3.0\t P-7 \"caf\xC3\xA9\" \xFF  \n", {"--delimiter", "blank"}).out,
              "  500000.000   0.000\t P-7 \"caf\xC3\xA9\" \xFF  \n");
    EXPECT_EQ(Convert(kPlain, "a, 0 ,b;b,3 ,,\n", {"--columns", "lat=2,lon=4"}).out, "a, 500000.000 ,b;b,0.000 ,,\n");
    EXPECT_EQ(Convert(kPlain, "0\t3\trest of it\n").out, "500000.000\t0.000\trest of it\n");
    EXPECT_EQ(Convert(kPlain, "0;3;7,5\n").out, "500000.000;0.000;7,5\n");
}

TEST_F(ConvertLines, CommentsAndBlankLinesPassThrough)
{
    const std::string text = "# 0 3\n\n   \t\n0 3\n#\n";
    EXPECT_EQ(Convert(kPlain, text).out, "# 0 3\n\n   \t\n500000.000 0.000\n#\n");
    EXPECT_EQ(Convert(kPlain, "# only\n\n").out, "# only\n\n");
}

TEST_F(ConvertLines, LineEndsStayAsTheyAre)
{
    EXPECT_EQ(Convert(kPlain, "0 3\r\n\r\n0 3\n0 3").out, "500000.000 0.000\r\n\r\n500000.000 0.000\n500000.000 0.000");
    EXPECT_EQ(Convert(kPlain, "0 3 7\r\n").out, "500000.000 0.000 7.000\r\n");
    EXPECT_EQ(Convert(kPlain, "0 3\r", {"--append"}).out, "0 3 500000.000 0.000\r");
}

TEST_F(ConvertLines, EmptyInputGivesEmptyOutput)
{
    const ToolRun run = Convert(kPlain, "");
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.out, "");
    EXPECT_EQ(run.err, "");
}

TEST_F(ConvertLines, AByteOrderMarkIsNoPartOfTheFirstNumber)
{
    EXPECT_EQ(Convert(kPlain, "\xEF\xBB\xBF"
                              "0 3\n")
                  .out,
              "\xEF\xBB\xBF"
              "500000.000 0.000\n");
}

TEST_F(ConvertLines, ResultsStandInTheOrderOfTheirFrame)
{
    // Easting in the left place, also where the longitude stood there; the height in its own.
    EXPECT_EQ(Convert(kPlain, "7.5,3,0\n", {"--columns", "h=1,lon=2,lat=3"}).out, "7.500,500000.000,0.000\n");
}

TEST_F(ConvertLines, AppendedResultsFollowTheLine)
{
    EXPECT_EQ(Convert(kPlain, "0 3 \n", {"--append"}).out, "0 3  500000.000 0.000\n");
    EXPECT_EQ(Convert(kPlain, "x,0,3,7\n", {"--append", "--columns", "lat=2,lon=3,h=4"}).out,
              "x,0,3,7,500000.000,0.000,7.000\n");
}

TEST_F(ConvertLines, AHeaderNamesTheColumnsAndTakesTheNewNames)
{
    const std::string text = "Id,Longitude,Latitude\r\nA,3,0\r\n";
    EXPECT_EQ(Convert(kPlain, text, {"--columns", "lat=latitude,lon=longitude"}).out,
              "Id,E,N\r\nA,500000.000,0.000\r\n");
    EXPECT_EQ(Convert(kPlain, text, {"--columns", "lat=latitude,lon=longitude", "--append"}).out,
              "Id,Longitude,Latitude,E,N\r\nA,3,0,500000.000,0.000\r\n");
}

TEST_F(ConvertLines, AHeaderWithoutAColumnIsRefused)
{
    const ToolRun run = Convert(kPlain, "Id,Lon,Lat\nA,3,0\n", {"--columns", "lat=latitude,lon=Lon"});
    EXPECT_EQ(run.status, 2);
    EXPECT_THAT(run.err, HasSubstr("the header line has no column \"latitude\"; it reads: Id,Lon,Lat"));
}

TEST_F(ConvertLines, DegreesMinutesSeconds)
{
    EXPECT_EQ(Convert(kPlain, "0\xC2\xB0"
                              "00'00.000\"N,003\xC2\xB0"
                              "00'00\"E\n")
                  .out,
              "500000.000,0.000\n");
    EXPECT_EQ(Convert(kPlain, "00:00:00S 3d0'0\"E\n").out, "500000.000 0.000\n");
    EXPECT_EQ(Convert(kPlain, "0 00 00N;3 00 00E;5\n").out, "500000.000;0.000;5.000\n");
}

TEST_F(ConvertLines, PrecisionIsTheResults)
{
    EXPECT_EQ(Convert(kPlain, "0 3 7\n", {"--precision", "0"}).out, "500000 0 7\n");
    EXPECT_EQ(Convert(kPlain, "0 3 7\n", {"--precision", "6"}).out, "500000.000000 0.000000 7.000000\n");
    // Of a geographic result the degrees; the height keeps its millimetres.
    EXPECT_EQ(ConvertFrom(kPlain, "grid", "sat", "500000 0 7\n", {"--precision", "3"}).out, "0.000 3.000 7.000\n");
    EXPECT_EQ(ConvertFrom(kPlain, "grid", "sat", "500000 0 7\n").out, "0.00000000 3.00000000 7.000\n");
}

TEST_F(ConvertLines, NothingHasNoSign)
{
    EXPECT_EQ(Convert(kPlain, "-0.0 3 -0.0001\n").out, "500000.000 0.000 0.000\n");
}

struct BadRow {
    const char* line;
    const char* message;
};

TEST_F(ConvertLines, BadLinesAreToldWithFileLineReasonAndText)
{
    const BadRow rows[] = {{"abc 3", "lat is no angle"},
                           {"0", "lon is missing"},
                           {"0 5N", "lon is a longitude with a letter of latitude"},
                           {"90.01 3", "latitude beyond 90 degrees"},
                           {"-91 3", "latitude beyond 90 degrees"},
                           {"0 360.5", "longitude beyond 360 degrees"},
                           {"0 -361", "longitude beyond 360 degrees"},
                           {"nan 3", "lat is a number that is not finite"},
                           {"0 1e999", "lon is a number beyond all range"},
                           {"0x10 3", "lat is no angle"},
                           {"0,5 3", "lat is no angle"}};
    for (const BadRow& row : rows) {
        const std::string line = row.line;
        const ToolRun run = Convert(kPlain, "0 3\n" + line + "\n0 3\n");
        EXPECT_EQ(run.status, 1) << row.line;
        EXPECT_EQ(run.err, "-:2: " + std::string(row.message) + ": " + line + "\nzorgeo: 1 of 3 lines are bad\n");
    }
}

TEST_F(ConvertLines, AHeightThatTheFirstLineHasMustStandInEvery)
{
    const ToolRun run = Convert(kPlain, "0 3 7\n0 3\n0 3 deep\n");
    EXPECT_EQ(run.status, 1);
    EXPECT_EQ(run.out, "500000.000 0.000 7.000\n* * *\n* * *\n");
    EXPECT_THAT(run.err, HasSubstr("-:2: h is missing: 0 3\n-:3: h is no number: 0 3 deep\n"));
}

TEST_F(ConvertLines, BadLinesAreMarkedKeptOrDropped)
{
    const std::string text = "0,3,a\r\nx,3,b\r\n0\r\n0,3,c\r\n";
    EXPECT_EQ(Convert(kPlain, text).out, "500000.000,0.000,a\r\n*,*,b\r\n*,*\r\n500000.000,0.000,c\r\n");
    EXPECT_EQ(Convert(kPlain, text, {"--bad", "keep"}).out,
              "500000.000,0.000,a\r\nx,3,b\r\n0\r\n500000.000,0.000,c\r\n");
    EXPECT_EQ(Convert(kPlain, text, {"--bad", "drop"}).out, "500000.000,0.000,a\r\n500000.000,0.000,c\r\n");
    EXPECT_EQ(Convert(kPlain, text, {"--append"}).out,
              "0,3,a,500000.000,0.000\r\nx,3,b,*,*\r\n0,*,*\r\n0,3,c,500000.000,0.000\r\n");
}

TEST_F(ConvertLines, StopEndsBeforeTheFirstBadLine)
{
    const ToolRun run = Convert(kPlain, "0 3\nx 3\n0 3\ny 3\n", {"--bad", "stop"});
    EXPECT_EQ(run.status, 1);
    EXPECT_EQ(run.out, "500000.000 0.000\n");
    EXPECT_THAT(run.err, HasSubstr("-:2: "));
    EXPECT_THAT(run.err, testing::Not(HasSubstr("-:4: ")));
}

TEST_F(ConvertLines, AResultThatIsNotFiniteIsABadLine)
{
    // The middle of the Earth has neither latitude nor longitude.
    const ToolRun run = ConvertFrom(kPlain, "sat-xyz", "sat", "0 0 5000000\n6378137 0 0\n");
    EXPECT_EQ(run.status, 1);
    EXPECT_THAT(run.err, HasSubstr("-:1: the result is not finite: 0 0 5000000\n"));
    EXPECT_EQ(run.out, "* * *\n0.00000000 0.00000000 0.000\n");
}

TEST_F(ConvertLines, ABadTimeIsABadLine)
{
    const ToolRun run = ConvertFrom(kMoving, "sat", "geo", "0 3 0 2024.5\n0 3 0 soon\n", {"--columns", "t=4"});
    EXPECT_EQ(run.status, 1);
    EXPECT_THAT(run.err, HasSubstr("-:2: t is no time: give a decimal year or an ISO date: 0 3 0 soon\n"));
}

TEST_F(ConvertLines, AVeryLongLineIsABadLine)
{
    const std::string longLine = "0 3 " + std::string(3 << 20, 'x');
    const std::string text = "0 3\n" + longLine + "\r\n0 3\n";
    const ToolRun marked = Convert(kPlain, text);
    EXPECT_EQ(marked.status, 1);
    EXPECT_EQ(marked.out, "500000.000 0.000\n* *\r\n500000.000 0.000\n");
    EXPECT_THAT(marked.err, HasSubstr("-:2: a line longer than 1 MiB: 0 3 xxx"));
    EXPECT_LT(marked.err.size(), 1000U);
    EXPECT_EQ(Convert(kPlain, text, {"--bad", "keep"}).out, "500000.000 0.000\n" + longLine + "\r\n500000.000 0.000\n");
    EXPECT_EQ(Convert(kPlain, text, {"--bad", "drop"}).out, "500000.000 0.000\n500000.000 0.000\n");
    // The first line of all, without an end.
    EXPECT_EQ(Convert(kPlain, longLine).out, "* *");
}

TEST_F(ConvertLines, ALineJustShortEnoughIsConverted)
{
    const std::string rest((1 << 20) - 5, 'x');
    EXPECT_EQ(Convert(kPlain, "0 3 " + rest + "\n").out, "500000.000 0.000 " + rest + "\n");
    EXPECT_EQ(Convert(kPlain, "0 3 x" + rest + "\n").status, 1);
}

TEST_F(ConvertLines, LinesOnEveryBlockBoundaryComeOutInOrder)
{
    // Some blocks' worth of lines of changing length, each told by its number.
    std::string text;
    std::string expected;
    for (int i = 0; i < 60000; ++i) {
        const std::string rest = " " + std::to_string(i) + std::string(static_cast<std::size_t>(i % 17), '.');
        text += "0 3" + rest + "\n";
        expected += "500000.000 0.000" + rest + "\n";
    }
    const ToolRun run = Convert(kPlain, text, {"--columns", "lat=1,lon=2"});
    EXPECT_EQ(run.status, 0);
    EXPECT_TRUE(run.out == expected); // too long to print
}

TEST_F(ConvertLines, LineNumbersGoOnAcrossBlocks)
{
    std::string text;
    for (int i = 1; i <= 60000; ++i) {
        text += i % 20000 == 0 ? "bad line\n" : "0.000000000000 3.000000000000\n";
    }
    const ToolRun run = Convert(kPlain, text);
    EXPECT_EQ(run.status, 1);
    EXPECT_THAT(run.err, testing::MatchesRegex("-:20000: .*\n-:40000: .*\n-:60000: .*\nzorgeo: 3 of 60000 lines are "
                                               "bad\n"));
}

TEST_F(ConvertLines, ASummaryInJsonGoesToStandardError)
{
    const ToolRun run = Convert(kPlain, "0 3\nx 3\n", {"--json"});
    EXPECT_EQ(run.status, 1);
    EXPECT_THAT(run.err, HasSubstr("\"system\":\"Plain UTM\""));
    EXPECT_THAT(run.err, HasSubstr("\"good\":1,\"bad\":1,\"stopped\":false"));
    EXPECT_EQ(run.out, "500000.000 0.000\n* *\n");
}
