#include <cmath>

#include <fmt/format.h>

#include "CliTest.h"
#include "tests/support/ProjOracle.h"

using namespace test_names;
using testing::HasSubstr;

// On the central meridian the convergence is 0 and the scale factor that of the projection:
// expected texts by hand. The module's convergence and point scale factor are series of low order;
// within a degree of the meridian they are that near to PROJ's.

namespace {

constexpr double kConvergenceOrder = 2e-5; // degrees
constexpr double kScaleOrder = 2e-9;
constexpr double kMillimetre = 0.001;

constexpr const char* kUtm = "+proj=utm +zone=31 +ellps=WGS84";

struct Factors {
    double convergence; ///< degrees, positive where true north lies east of grid north
    double scale;
};

/// PROJ's factors of a projection; its meridian convergence has the opposite sign.
Factors ProjFactors(const char* definition, double latitude, double longitude)
{
    PJ* const projection = proj_create(PJ_DEFAULT_CTX, definition);
    const PJ_FACTORS factors =
        proj_factors(projection, proj_coord(proj_torad(longitude), proj_torad(latitude), 0.0, 0.0));
    proj_destroy(projection);
    return {-proj_todeg(factors.meridian_convergence), factors.meridional_scale};
}

double Geodesic(const char* definition, double latitude1, double longitude1, double latitude2, double longitude2)
{
    PJ* const projection = proj_create(PJ_DEFAULT_CTX, definition);
    const double distance =
        proj_lp_dist(projection, proj_coord(proj_torad(longitude1), proj_torad(latitude1), 0.0, 0.0),
                     proj_coord(proj_torad(longitude2), proj_torad(latitude2), 0.0, 0.0));
    proj_destroy(projection);
    return distance;
}

} // namespace

class FactorsCommand : public CliTest {
protected:
    ToolRun Factors(const std::string& system, const std::string& from, const std::string& input,
                    const std::vector<std::string>& more = {}) const
    {
        std::vector<std::string> arguments = {"factors", system, "--from", from};
        arguments.insert(arguments.end(), more.begin(), more.end());
        ToolStreams streams;
        streams.input = input;
        return Run(arguments, streams);
    }
    /// Local positions in a system of the delivered database.
    ToolRun Delivered(const std::string& system, const std::string& input, const std::vector<std::string>& more) const
    {
        std::vector<std::string> arguments = {"factors", system,          "--from", "geo",
                                              "--data",  ZORGEO_DATA_DIR, "--user", Path("user")};
        arguments.insert(arguments.end(), more.begin(), more.end());
        ToolStreams streams;
        streams.input = input;
        return RunTool(arguments, streams);
    }
    /// The numbers of the one line that comes back.
    std::vector<double> One(const std::string& system, const std::string& from, const std::string& line,
                            const std::vector<std::string>& more = {}) const
    {
        const ToolRun run = Factors(system, from, line + "\n", more);
        EXPECT_EQ(run.status, 0) << run.err;
        EXPECT_EQ(run.err, "");
        return Numbers(run.out);
    }
};

TEST_F(FactorsCommand, TheCentralMeridianHasNoConvergenceAndTheProjectionsScale)
{
    EXPECT_EQ(Factors(kPlain, "sat", "56 3\n").out, "0.00000000 0.99960000\n");
    EXPECT_EQ(Factors(kPlain, "geo", "-56 3\n").out, "0.00000000 0.99960000\n");
    EXPECT_EQ(Factors(kPlain, "grid", "500000 6000000\n").out, "0.00000000 0.99960000\n");
    EXPECT_EQ(Factors(kPlain, "grid", "500000 0 500000 10000\n", {"--line"}).out,
              "0.00000000 0.99960000 0.99960000 10000.000\n");
}

TEST_F(FactorsCommand, FactorsAreTheProjectionsInEveryFrame)
{
    const ProjOracle utm(kUtm);
    for (const double latitude : {56.25, -33.0}) {
        for (const double longitude : {2.25, 3.7}) {
            const auto expected = ProjFactors(kUtm, latitude, longitude);
            const auto grid = utm.Forward(ProjOracle::Radians(longitude), ProjOracle::Radians(latitude));
            const std::string geographic = fmt::format("{} {}", latitude, longitude);
            for (const auto& [from, line] : std::vector<std::pair<const char*, std::string>>{
                     {"sat", geographic}, {"geo", geographic}, {"grid", fmt::format("{} {}", grid.x, grid.y)}}) {
                const auto got = One(kPlain, from, line, {"--precision", "12"});
                ASSERT_EQ(got.size(), 2U);
                EXPECT_NEAR(got[0], expected.convergence, kConvergenceOrder) << from << ' ' << line;
                EXPECT_NEAR(got[1], expected.scale, kScaleOrder) << from << ' ' << line;
            }
        }
    }
}

TEST_F(FactorsCommand, ConvergenceIsNegativeEastOfTheMeridianInTheNorth)
{
    EXPECT_LT(One(kPlain, "sat", "56.25 3.7")[0], -0.5);
    EXPECT_GT(One(kPlain, "sat", "56.25 2.3")[0], 0.5);
    EXPECT_GT(One(kPlain, "sat", "-33 3.7")[0], 0.3);
}

TEST_F(FactorsCommand, SatellitePositionsPassTheDatum)
{
    const ProjOracle local("+proj=pipeline +step +proj=unitconvert +xy_in=deg +xy_out=rad +step +proj=cart "
                           "+ellps=WGS84 +step +proj=helmert +x=87 +y=98 +z=121 +step +inv +proj=cart +ellps=intl "
                           "+step +proj=unitconvert +xy_in=rad +xy_out=deg");
    const auto moved = local.Forward(3.7, 56.25, 0.0);
    const auto satellite = One(kMoved, "sat", "56.25 3.7", {"--precision", "12"});
    const auto same = One(kMoved, "geo", fmt::format("{:.12f} {:.12f}", moved.y, moved.x), {"--precision", "12"});
    EXPECT_NEAR(satellite[0], same[0], 1e-9);
    EXPECT_NEAR(satellite[1], same[1], 1e-11);
    // The datum moves a position by some 120 m here: without it the convergence would be another.
    EXPECT_GT(std::fabs(satellite[0] - One(kMoved, "geo", "56.25 3.7", {"--precision", "12"})[0]), 1e-3);
    EXPECT_NEAR(satellite[1], ProjFactors("+proj=utm +zone=31 +ellps=intl", moved.y, moved.x).scale, kScaleOrder);
}

TEST_F(FactorsCommand, ALineHasTheRatioOfGridDistanceToGeodesic)
{
    const ProjOracle utm(kUtm);
    const auto first = utm.Forward(ProjOracle::Radians(3.5), ProjOracle::Radians(56.0));
    const auto second = utm.Forward(ProjOracle::Radians(3.7), ProjOracle::Radians(56.1));
    const double distance = std::hypot(second.x - first.x, second.y - first.y);
    const auto end = ProjFactors(kUtm, 56.0, 3.5);
    const std::string grid = fmt::format("{} {} {} {}", first.x, first.y, second.x, second.y);
    for (const auto& got : {One(kPlain, "sat", "56.0 3.5 56.1 3.7", {"--line", "--precision", "12"}),
                            One(kPlain, "grid", grid, {"--line", "--precision", "12"})}) {
        ASSERT_EQ(got.size(), 4U);
        EXPECT_NEAR(got[0], end.convergence, kConvergenceOrder);
        EXPECT_NEAR(got[1], end.scale, kScaleOrder);
        EXPECT_NEAR(got[2], distance / Geodesic(kUtm, 56.0, 3.5, 56.1, 3.7), kScaleOrder);
        EXPECT_NEAR(got[3], distance, kMillimetre);
    }
}

TEST_F(FactorsCommand, ALineOfNoLengthHasTheScaleOfItsPoint)
{
    EXPECT_EQ(Factors(kPlain, "grid", "500000 0 500000 0\n", {"--line"}).out,
              "0.00000000 0.99960000 0.99960000 0.000\n");
}

TEST_F(FactorsCommand, GridDistancesAreInTheSystemsUnitOrThatAskedFor)
{
    // A thousand feet are a thousand feet; the false easting is kept in its own number.
    EXPECT_EQ(Factors(kPlain, "grid", "500000 0 500300 400\n", {"--line", "--unit", "Feet", "--append"}).out,
              "500000 0 500300 400 0.00000000 0.99960000 0.99960000 500.000\n");
    const double metres = One(kPlain, "sat", "56.0 3.5 56.1 3.7", {"--line"})[3];
    EXPECT_NEAR(One(kFeet, "sat", "56.0 3.5 56.1 3.7", {"--line"})[3], metres / 0.3048, 0.002);
}

TEST_F(FactorsCommand, FactorsAreThoseOfTheGridPositionWithItsPostCorrections)
{
    // On the equator and the central meridian the shift of 10 m is the distance from the meridian:
    // k0 (1 + 10^2 / (2 k0^2 a^2 (1 - e2))).
    const double a = 6378137.0;
    const double e2 = 0.00669437999014131699;
    const double shifted = 0.9996 + 100.0 / (2.0 * 0.9996 * a * a * (1.0 - e2));
    EXPECT_NEAR(One(kShift, "sat", "0 3", {"--precision", "15"})[1], shifted, 2e-15);
    EXPECT_NEAR(One(kShift, "grid", "500010 20", {"--precision", "15"})[1], shifted, 2e-15);
    EXPECT_EQ(Factors(kShift, "grid", "500000 0\n", {"--precision", "15"}).out,
              "0.000000000000000 0.999600000000000\n");
}

TEST_F(FactorsCommand, AHeightStaysAsItIs)
{
    EXPECT_EQ(Factors(kPlain, "sat", "56 3 45.20\n").out, "0.00000000 0.99960000 45.20\n");
    EXPECT_EQ(Factors(kPlain, "sat", "45.20,3,56\n", {"--columns", "h=1,lon=2,lat=3"}).out,
              "45.20,0.00000000,0.99960000\n");
    EXPECT_EQ(Factors(kPlain, "sat", "56 3 45.20\n", {"--append"}).out, "56 3 45.20 0.00000000 0.99960000\n");
    const ToolRun bad = Factors(kPlain, "sat", "56 3 45.20\n56 3 deep\n56 3\n");
    EXPECT_EQ(bad.out, "0.00000000 0.99960000 45.20\n* * deep\n* *\n");
    EXPECT_THAT(bad.err, HasSubstr("-:2: h is no number: 56 3 deep\n-:3: h is missing: 56 3\n"));
}

TEST_F(FactorsCommand, NoGeoidHeightIsAskedFor)
{
    EditedFile(MainDatabase()).file.SetItem(L"Sys-Fixed geoid", L"Datumtransform name", CString(L"Moving"), true);
    // The height above the geoid would need the satellite position, and that a time.
    EXPECT_EQ(ConvertFrom(kGeoid, "geo", "grid", "56 3 7\n").status, 2);
    EXPECT_EQ(Factors(kGeoid, "geo", "56 3 7\n").out, "0.00000000 0.99960000 7\n");
    EXPECT_EQ(Factors(kGeoid, "grid", "500000 0 7\n").out, "0.00000000 0.99960000 7\n");
}

TEST_F(FactorsCommand, ColumnsOfALineAreNamedByTheirEnds)
{
    EXPECT_EQ(Factors(kPlain, "grid", "P1;500000;0;P2;500300;400;x\n",
                      {"--line", "--columns", "E1=2,N1=3,E2=5,N2=6", "--precision", "4"})
                  .out,
              "P1;0.0000;0.9996;P2;0.9996;500.000;x\n");
    const std::string text = "id,lonA,latA,lonB,latB\r\nL1,3,0,3,0\r\n";
    const std::string list = "lat1=latA,lon1=lonA,lat2=latB,lon2=lonB";
    EXPECT_EQ(Factors(kPlain, "sat", text, {"--line", "--columns", list}).out,
              "id,convergence,scale,line-scale,grid-distance\r\nL1,0.00000000,0.99960000,0.99960000,0.000\r\n");
    EXPECT_EQ(Factors(kPlain, "sat", text, {"--line", "--append", "--columns", list}).out,
              "id,lonA,latA,lonB,latB,convergence,scale,line-scale,grid-distance\r\n"
              "L1,3,0,3,0,0.00000000,0.99960000,0.99960000,0.000\r\n");
    EXPECT_EQ(Factors(kPlain, "sat", "0 3 7 0 3 8\n",
                      {"--line", "--columns", "lat1=1,lon1=2,h1=3,lat2=4,lon2=5,h2=6", "--precision", "4"})
                  .out,
              "0.0000 0.9996 7 0.9996 0.000 8\n");
}

TEST_F(FactorsCommand, ListsThatSayTooLittleOrTooMuchAreRefused)
{
    for (const char* list : {"lat=1,lon=2", "lat1=1,lon1=2", "lat1=1,lon1=2,lat2=3", "lat1=1,lon1=2,lat2=3,lon2=3",
                             "lat1=1,lon1=2,lat2=3,lon2=4,h1=5", "E1=1,N1=2,E2=3,N2=4"}) {
        const ToolRun run = Factors(kPlain, "sat", "0 3 0 3\n", {"--line", "--columns", list});
        EXPECT_EQ(run.status, 2) << list;
        EXPECT_THAT(run.err, HasSubstr("--columns for --from sat reads like lat1=1,lon1=2,lat2=3,lon2=4,t=5"));
    }
    EXPECT_EQ(Factors(kPlain, "sat", "0 3\n", {"--columns", "lat1=1,lon1=2"}).status, 2);
}

TEST_F(FactorsCommand, DelimitersAndAnglesAreThoseOfConvert)
{
    EXPECT_EQ(Factors(kPlain, "sat", "00:00:00S,003d00'00\"E\n").out, "0.00000000,0.99960000\n");
    EXPECT_EQ(Factors(kPlain, "sat", "0 0 0N;3 0 0E;0 0 0N;3 0 0E;end\n", {"--line"}).out,
              "0.00000000;0.99960000;0.99960000;0.000;end\n");
    EXPECT_EQ(Factors(kPlain, "sat", "# lat lon\n\n0\t3\tP1").out, "# lat lon\n\n0.00000000\t0.99960000\tP1");
}

TEST_F(FactorsCommand, BadLinesAreToldAndMarkedKeptOrDropped)
{
    const std::string text = "0 3 0 3 a\nx 3 0 3 b\n0 3\n0 3 95 3 c\n0 400 0 3 d\n";
    const std::string good = "0.00000000 0.99960000 0.99960000 0.000 a\n";
    const ToolRun marked = Factors(kPlain, "sat", text, {"--line"});
    EXPECT_EQ(marked.status, 1);
    EXPECT_EQ(marked.out, good + "* * * * b\n* * * *\n* * * * c\n* * * * d\n");
    EXPECT_EQ(marked.err, "-:2: lat1 is no angle: x 3 0 3 b\n"
                          "-:3: lat2 is missing: 0 3\n"
                          "-:4: latitude beyond 90 degrees at the second end: 0 3 95 3 c\n"
                          "-:5: longitude beyond 360 degrees at the first end: 0 400 0 3 d\n"
                          "zorgeo: 4 of 5 lines are bad\n");
    EXPECT_EQ(Factors(kPlain, "sat", text, {"--line", "--bad", "drop"}).out, good);
    EXPECT_EQ(Factors(kPlain, "sat", text, {"--line", "--bad", "stop"}).out, good);
    EXPECT_EQ(Factors(kPlain, "sat", text, {"--line", "--bad", "keep"}).out, good + text.substr(10));
    const std::string longLine = "0 3 0 3 " + std::string(2 << 20, 'x');
    EXPECT_EQ(Factors(kPlain, "sat", longLine + "\n", {"--line"}).out, "* * * *\n");
}

TEST_F(FactorsCommand, AGridPositionThatTheProjectionDoesNotHaveIsABadLine)
{
    const ToolRun run = Factors(kPlain, "grid", "500000 0\n1e300 0\n");
    EXPECT_EQ(run.status, 1);
    EXPECT_EQ(run.out, "0.00000000 0.99960000\n* *\n");
    EXPECT_THAT(run.err, HasSubstr("-:2: the result is not finite: 1e300 0\n"));
}

TEST_F(FactorsCommand, CheckRefusesWhatDoesNotComeBack)
{
    const ToolRun run = Factors(kPlain, "sat", "0 3 0 3\n0 3 10 38\n", {"--line", "--check"});
    EXPECT_EQ(run.status, 1);
    EXPECT_THAT(run.out, testing::EndsWith("\n* * * *\n"));
    EXPECT_THAT(run.err, testing::ContainsRegex("-:2: the way back misses by [0-9.]+ m at the second end: "));
    const ToolRun grid = Factors(kPlain, "grid", "500000 0\n5000000 1000000\n", {"--check"});
    EXPECT_EQ(grid.status, 1);
    EXPECT_THAT(grid.err, HasSubstr("-:2: the way back misses by "));
}

TEST_F(FactorsCommand, ATimeIsNeededOnlyAcrossTheDatum)
{
    const ToolRun run = Factors(kMoving, "sat", "56 3\n");
    EXPECT_EQ(run.status, 2);
    EXPECT_THAT(run.err, HasSubstr("give --epoch 2024.5, a date or now, or a time column"));
    EXPECT_EQ(Factors(kMoving, "geo", "56 3\n").out, "0.00000000 0.99960000\n");
    EXPECT_EQ(Factors(kMoving, "grid", "500000 0\n").out, "0.00000000 0.99960000\n");
    EXPECT_EQ(Factors(kMoving, "sat", "56 3\n", {"--epoch", "2024.5"}).out, "0.00000000 0.99960000\n");
    EXPECT_EQ(Factors(kMoving, "sat", "56 3 56 3 2024.5\n", {"--line", "--columns", "t=5"}).out,
              "0.00000000 0.99960000 0.99960000 0.000 2024.5\n");
}

TEST_F(FactorsCommand, AnUnusableSystemIsRefusedBeforeTheFirstLine)
{
    const ToolRun run = Factors(kLost, "grid", "500000 0\n");
    EXPECT_EQ(run.status, 3);
    EXPECT_EQ(run.out, "");
    EXPECT_THAT(run.err, HasSubstr("go on without it with --allow-missing"));
    EXPECT_EQ(Factors(kLost, "grid", "500000 0\n", {"--allow-missing"}).out, "0.00000000 0.99960000\n");
    EXPECT_EQ(Factors("Moon base", "grid", "500000 0\n").status, 2);
    EXPECT_EQ(Run({"factors", kPlain, "--from", "grid", Path("none.txt")}).status, 4);
}

TEST_F(FactorsCommand, AnOutputFileIsWritten)
{
    Write("in.txt", "0 3\n");
    EXPECT_EQ(Run({"factors", kPlain, "--from", "sat", Path("in.txt"), "-o", Path("out.txt")}).status, 0);
    EXPECT_EQ(Read("out.txt"), "0.00000000 0.99960000\n");
}

TEST_F(FactorsCommand, ASummaryInJsonGoesToStandardError)
{
    const ToolRun run = Factors(kPlain, "sat", "0 3 0 3\nx 3\n", {"--json", "--line"});
    EXPECT_EQ(run.status, 1);
    EXPECT_THAT(run.err, HasSubstr("\"from\":\"sat\",\"line\":true,\"good\":1,\"bad\":1,\"stopped\":false"));
}

TEST_F(FactorsCommand, ConvergenceOfASkewedGridIsBetweenMinusAndPlus180)
{
    // A skew of 323 degrees, which the projection takes off as it stands: its own numbers are near 360.
    constexpr const char* kAlaska = "+proj=omerc +lat_0=57 +lonc=-133.66666666666667 +alpha=323.13010236111114 "
                                    "+gamma=323.13010236111114 +k=0.9999 +x_0=5000000 +y_0=-5000000 +no_uoff "
                                    "+ellps=GRS80";
    const ToolRun run = Delivered("NAD83 - Alaska zone 1", "57.5 -134.5\n55 -131\n", {});
    ASSERT_EQ(run.status, 0) << run.err;
    const auto got = Numbers(run.out);
    ASSERT_EQ(got.size(), 4U);
    const struct {
        double latitude, longitude;
    } positions[] = {{57.5, -134.5}, {55.0, -131.0}};
    for (std::size_t i = 0; i < 2; ++i) {
        const auto expected = ProjFactors(kAlaska, positions[i].latitude, positions[i].longitude);
        EXPECT_NEAR(got[2 * i], expected.convergence, 1e-3); // the projection has a rule of its own
        EXPECT_NEAR(got[2 * i + 1], expected.scale, 1e-7);
    }
}

TEST_F(FactorsCommand, ALineOfNoLengthIsABadLineWhereScaleIsARatioOfLengths)
{
    const ToolRun run = Delivered("Palestine 1923 - Palestine Grid", "31.7 35.2 31.7 35.2\n", {"--line"});
    EXPECT_EQ(run.status, 1);
    EXPECT_EQ(run.out, "* * * *\n");
    EXPECT_THAT(run.err, HasSubstr("-:1: the projection has no scale factor for this line: 31.7 "));
}

TEST_F(FactorsCommand, TheExampleOfTheHelpRuns)
{
    EXPECT_THAT(RunTool({"factors", "--help"}).out,
                HasSubstr("echo '56.0 3.5 56.1 3.7' | zorgeo factors 'ED50 - UTM zone 31N' --group 'North Sea' "
                          "--from sat --line"));
    ToolStreams streams;
    streams.input = "56.0 3.5 56.1 3.7\n";
    const ToolRun run = RunTool({"factors", "ED50 - UTM zone 31N", "--group", "North Sea", "--from", "sat", "--line",
                                 "--data", ZORGEO_DATA_DIR, "--user", Path("user")},
                                streams);
    EXPECT_EQ(run.status, 0) << run.err;
    EXPECT_EQ(Numbers(run.out).size(), 4U);
}
