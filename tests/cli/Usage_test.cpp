#include "CliTest.h"

using namespace test_names;
using testing::HasSubstr;

class Usage : public CliTest {};

TEST_F(Usage, VersionAndHelpGoToStandardOutput)
{
    const ToolRun version = RunTool({"--version"});
    EXPECT_EQ(version.status, 0);
    EXPECT_THAT(version.out, testing::MatchesRegex("zorgeo [0-9]+\\.[0-9]+\\.[0-9]+\n"));
    for (const auto& arguments : std::vector<std::vector<std::string>>{{"--help"},
                                                                       {"list", "--help"},
                                                                       {"find", "--help"},
                                                                       {"convert", "--help"},
                                                                       {"convert", "-h"},
                                                                       {"factors", "--help"},
                                                                       {"geoid", "--help"},
                                                                       {"project", "--help"},
                                                                       {"datum", "--help"},
                                                                       {"datum", "apply", "--help"},
                                                                       {"datum", "export", "--help"},
                                                                       {"datum", "import", "--help"},
                                                                       {"db", "--help"},
                                                                       {"db", "check", "--help"}}) {
        const ToolRun help = RunTool(arguments);
        EXPECT_EQ(help.status, 0);
        EXPECT_EQ(help.err, "");
        EXPECT_THAT(help.out, HasSubstr("Usage:"));
        EXPECT_THAT(help.out, HasSubstr("Example:\n"));
    }
}

struct UsageRow {
    std::vector<std::string> arguments;
    const char* message;
};

TEST_F(Usage, MistakesTellWhatWouldBeRight)
{
    const std::vector<UsageRow> rows = {
        {{}, "Try: zorgeo --help"},
        {{"converd"}, "Try: zorgeo --help"},
        {{"list"}, "KIND is required"},
        {{"list", "planets"}, "groups"},
        {{"convert"}, "Try: zorgeo convert --help"},
        {{"convert", kPlain, "--from", "sat"}, "--to is required"},
        {{"convert", kPlain, "--from", "sat", "--to", "moon"}, "give sat, geo, grid, sat-xyz, geo-xyz"},
        {{"convert", kPlain, "--from", "sat", "--to", "grid", "--bad", "hide"}, "mark"},
        {{"convert", kPlain, "--from", "sat", "--to", "grid", "--precision", "16"}, "--precision"},
        {{"convert", kPlain, "--from", "sat", "--to", "grid", "--precision", "x"}, "--precision"},
        {{"convert", kPlain, "--from", "sat", "--to", "grid", "--delimiter", "|"},
         "give blank, comma, tab or semicolon"},
        {{"convert", kPlain, "--from", "sat", "--to", "grid", "--columns", "lat=1"},
         "--columns for --from sat reads like lat=1,lon=2,h=3,t=4"},
        {{"convert", kPlain, "--from", "grid", "--to", "sat", "--columns", "lat=1,lon=2"},
         "reads like E=1,N=2,h=3,t=4"},
        {{"convert", kPlain, "--from", "sat", "--to", "grid", "--epoch", "soon"},
         "give a decimal year or an ISO date, or now"},
        {{"convert", kPlain, "--from", "sat", "--to", "grid", "--colour"}, "--colour"},
        {{"factors"}, "Try: zorgeo factors --help"},
        {{"geoid"}, "Try: zorgeo geoid --help"},
        {{"datum"}, "Try: zorgeo datum --help"},
        {{"datum", "apply"}, "NAME is required"},
        {{"datum", "export", "None"}, "FILE is required"},
        {{"datum", "import", "None"}, "NAME is required"},
        {{"db"}, "Try: zorgeo db --help"},
        {{"factors", kPlain}, "--from is required"},
        {{"factors", kPlain, "--from", "sat-xyz"}, "\"sat-xyz\" is no frame; give sat, geo, grid\n"},
        {{"factors", kPlain, "--from", "sat", "--to", "grid"}, "--to"}};
    for (const UsageRow& row : rows) {
        const ToolRun run = RunTool(row.arguments);
        EXPECT_EQ(run.status, 2) << run.err;
        EXPECT_EQ(run.out, "");
        EXPECT_THAT(run.err, HasSubstr(row.message));
    }
}
