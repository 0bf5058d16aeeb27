#include <cmath>

#include <fmt/format.h>

#include "CliTest.h"
#include "tests/support/ProjOracle.h"

using namespace test_names;

namespace {

constexpr const char* kUtm = "+proj=utm +zone=31 +ellps=WGS84";
// The satellite frame to the grid of the moved datum, with the three shifts and no rotation.
constexpr const char* kMovedPipeline =
    "+proj=pipeline +step +proj=unitconvert +xy_in=deg +xy_out=rad +step +proj=cart +ellps=WGS84 "
    "+step +proj=helmert +x=87 +y=98 +z=121 +step +inv +proj=cart +ellps=intl";

constexpr double kMillimetre = 0.001;

} // namespace

class ConvertFrames : public CliTest {
protected:
    /// The numbers of the one line that comes back.
    std::vector<double> One(const std::string& system, const std::string& from, const std::string& to,
                            const std::string& line, std::vector<std::string> more = {}) const
    {
        const ToolRun run = ConvertFrom(system, from, to, line + "\n", std::move(more));
        EXPECT_EQ(run.status, 0) << run.err;
        EXPECT_EQ(run.err, "");
        return Numbers(run.out);
    }
};

TEST_F(ConvertFrames, GeographicToGridIsTheProjectionsWork)
{
    const ProjOracle utm(kUtm);
    const auto expected = utm.Forward(ProjOracle::Radians(3.7), ProjOracle::Radians(56.25));
    for (const char* from : {"sat", "geo"}) {
        const auto got = One(kPlain, from, "grid", "56.25 3.7");
        ASSERT_EQ(got.size(), 2U);
        EXPECT_NEAR(got[0], expected.x, kMillimetre);
        EXPECT_NEAR(got[1], expected.y, kMillimetre);
    }
}

TEST_F(ConvertFrames, GridToGeographicAndBack)
{
    const ProjOracle utm(kUtm);
    const auto expected = utm.Inverse(543000.125, 6234000.5);
    const auto got = One(kPlain, "grid", "sat", "543000.125 6234000.5");
    ASSERT_EQ(got.size(), 2U);
    EXPECT_NEAR(got[0], ProjOracle::Degrees(expected.y), 1e-8);
    EXPECT_NEAR(got[1], ProjOracle::Degrees(expected.x), 1e-8);
}

TEST_F(ConvertFrames, ADatumMovesPositionAndHeight)
{
    const ProjOracle pipeline(std::string(kMovedPipeline) + " +step +proj=utm +zone=31 +ellps=intl");
    const auto expected = pipeline.Forward(3.7, 56.25, 45.5);
    const auto got = One(kMoved, "sat", "grid", "56.25 3.7 45.5");
    ASSERT_EQ(got.size(), 3U);
    EXPECT_NEAR(got[0], expected.x, kMillimetre);
    EXPECT_NEAR(got[1], expected.y, kMillimetre);
    EXPECT_NEAR(got[2], expected.z, kMillimetre);
    // The same way back.
    const auto back = One(kMoved, "grid", "sat", fmt::format("{} {} {}", expected.x, expected.y, expected.z));
    ASSERT_EQ(back.size(), 3U);
    EXPECT_NEAR(back[0], 56.25, 2e-8);
    EXPECT_NEAR(back[1], 3.7, 2e-8);
    EXPECT_NEAR(back[2], 45.5, kMillimetre);
}

TEST_F(ConvertFrames, SatelliteToLocalGeographic)
{
    const ProjOracle pipeline(std::string(kMovedPipeline) + " +step +proj=unitconvert +xy_in=rad +xy_out=deg");
    const auto expected = pipeline.Forward(3.7, 56.25, 45.5);
    const auto got = One(kMoved, "sat", "geo", "56.25 3.7 45.5");
    ASSERT_EQ(got.size(), 3U);
    EXPECT_NEAR(got[0], expected.y, 1e-8);
    EXPECT_NEAR(got[1], expected.x, 1e-8);
    EXPECT_NEAR(got[2], expected.z, kMillimetre);
    const auto back = One(kMoved, "geo", "sat", fmt::format("{} {} {}", expected.y, expected.x, expected.z));
    EXPECT_NEAR(back[0], 56.25, 1e-8);
    EXPECT_NEAR(back[1], 3.7, 1e-8);
}

TEST_F(ConvertFrames, CartesianFramesStandOnTheirEllipsoids)
{
    const ProjOracle wgs("+proj=pipeline +step +proj=unitconvert +xy_in=deg +xy_out=rad +step +proj=cart +ellps=WGS84");
    const auto satellite = wgs.Forward(3.7, 56.25, 45.5);
    const auto got = One(kMoved, "sat", "sat-xyz", "56.25 3.7 45.5");
    ASSERT_EQ(got.size(), 3U);
    EXPECT_NEAR(got[0], satellite.x, kMillimetre);
    EXPECT_NEAR(got[1], satellite.y, kMillimetre);
    EXPECT_NEAR(got[2], satellite.z, kMillimetre);
    // Cartesian to cartesian across the datum is the three shifts.
    const auto local =
        One(kMoved, "sat-xyz", "geo-xyz", fmt::format("{} {} {}", satellite.x, satellite.y, satellite.z));
    ASSERT_EQ(local.size(), 3U);
    EXPECT_NEAR(local[0], satellite.x + kMovedShift[0], kMillimetre);
    EXPECT_NEAR(local[1], satellite.y + kMovedShift[1], kMillimetre);
    EXPECT_NEAR(local[2], satellite.z + kMovedShift[2], kMillimetre);
}

TEST_F(ConvertFrames, CartesianNeedsAHeight)
{
    const ToolRun run = ConvertFrom(kPlain, "sat", "sat-xyz", "56.25 3.7\n");
    EXPECT_EQ(run.status, 2);
    EXPECT_THAT(run.err, testing::HasSubstr("-: cartesian coordinates need a height"));
    EXPECT_EQ(run.out, "");
}

TEST_F(ConvertFrames, GridUnitsAreTheSystemsOrThoseAskedFor)
{
    const ProjOracle utm(kUtm);
    const auto metres = utm.Forward(ProjOracle::Radians(3.7), ProjOracle::Radians(56.25));
    const auto feet = One(kFeet, "sat", "grid", "56.25 3.7 100");
    ASSERT_EQ(feet.size(), 3U);
    EXPECT_NEAR(feet[0], metres.x / 0.3048, kMillimetre);
    EXPECT_NEAR(feet[1], metres.y / 0.3048, kMillimetre);
    EXPECT_NEAR(feet[2], 100.0, kMillimetre);
    // A false origin is kept in its own number: 500000 feet here.
    const auto asked = One(kPlain, "sat", "grid", "56.25 3.7", {"--unit", "feet"});
    EXPECT_NEAR(asked[0], (metres.x - 500000.0) / 0.3048 + 500000.0, kMillimetre);
    EXPECT_NEAR(asked[1], metres.y / 0.3048, kMillimetre);
}

TEST_F(ConvertFrames, AFixedGeoidIsTakenOffTheHeight)
{
    EXPECT_NEAR(One(kGeoid, "sat", "grid", "56.25 3.7 100")[2], 55.0, kMillimetre);
    EXPECT_NEAR(One(kGeoid, "grid", "sat", "500000 6234000 55")[2], 100.0, kMillimetre);
    EXPECT_NEAR(One(kGeoid, "sat", "grid", "56.25 3.7 100", {"--geoid-model", "--None--"})[2], 100.0, kMillimetre);
}

TEST_F(ConvertFrames, PostShiftsAreAdded)
{
    const auto plain = One(kPlain, "geo", "grid", "56.25 3.7 100");
    const auto shifted = One(kShift, "geo", "grid", "56.25 3.7 100");
    EXPECT_NEAR(shifted[0] - plain[0], 10.0, kMillimetre);
    EXPECT_NEAR(shifted[1] - plain[1], 20.0, kMillimetre);
    EXPECT_NEAR(shifted[2] - plain[2], 1.0, kMillimetre);
}

TEST_F(ConvertFrames, CheckPassesEveryPairOfFrames)
{
    for (const char* system : {kPlain, kMoved, kFeet, kGeoid, kShift}) {
        for (const char* to : {"sat", "geo", "grid"}) {
            for (const char* line : {"56.25 3.7", "56.25 3.7 45.5"}) {
                for (const char* from : {"sat", "geo"}) {
                    One(system, from, to, line, {"--check"});
                }
            }
            One(system, "grid", to, "543000.125 6234000.5", {"--check"});
            One(system, "grid", to, "543000.125 6234000.5 12.5", {"--check"});
        }
        One(system, "sat-xyz", "geo-xyz", "3545000 229000 5280000", {"--check"});
        One(system, "geo-xyz", "grid", "3545000 229000 5280000", {"--check"});
    }
}

TEST_F(ConvertFrames, CheckRefusesWhatDoesNotComeBack)
{
    // A transverse Mercator series far from its meridian: 35 degrees away the way back misses.
    const ToolRun run = Convert(kPlain, "56.25 3.7\n10 38\n", {"--check"});
    EXPECT_EQ(run.status, 1);
    EXPECT_THAT(run.err, testing::HasSubstr("-:2: the way back misses by "));
    EXPECT_THAT(run.out, testing::EndsWith("\n* *\n"));
    EXPECT_EQ(Convert(kPlain, "10 38\n").status, 0);
}

TEST_F(ConvertFrames, RatesMoveWithTheEpoch)
{
    // One metre a year in Z, from 2020 on.
    const auto at = [this](const char* epoch) {
        return One(kMoving, "sat-xyz", "geo-xyz", "3545000 229000 5280000", {"--epoch", epoch})[2];
    };
    EXPECT_NEAR(at("2020"), 5280000.0, kMillimetre);
    EXPECT_NEAR(at("2024.5"), 5280004.5, kMillimetre);
    EXPECT_NEAR(at("2010"), 5279990.0, kMillimetre);
    // 2021-01-01 is 18628 days after 1970: 51.0007 years of 365.25 days.
    EXPECT_NEAR(at("2021-01-01"), 5280000.0 + 18628.0 / 365.25 - 50.0, kMillimetre);
}

TEST_F(ConvertFrames, RatesMoveWithATimeColumn)
{
    const ToolRun run =
        ConvertFrom(kMoving, "sat-xyz", "geo-xyz", "3545000 229000 5280000 2021.0\n3545000 229000 5280000 2022.0\n",
                    {"--columns", "t=4"});
    EXPECT_EQ(run.status, 0) << run.err;
    EXPECT_EQ(run.out, "3545000.000 229000.000 5280001.000 2021.0\n3545000.000 229000.000 5280002.000 2022.0\n");
}

TEST_F(ConvertFrames, RatesWithoutATimeAreRefused)
{
    const ToolRun run = Convert(kMoving, "56.25 3.7\n");
    EXPECT_EQ(run.status, 2);
    EXPECT_EQ(run.out, "");
    EXPECT_THAT(run.err, testing::HasSubstr("give --epoch 2024.5, a date or now, or a time column"));
    // Where the datum has no part there is nothing to ask for.
    EXPECT_EQ(ConvertFrom(kMoving, "geo", "grid", "56.25 3.7\n").status, 0);
    EXPECT_EQ(ConvertFrom(kMoving, "sat", "sat-xyz", "56.25 3.7 0\n").status, 0);
}

TEST_F(ConvertFrames, NowIsEchoed)
{
    const ToolRun run = Convert(kMoving, "56.25 3.7\n", {"--epoch", "now"});
    EXPECT_EQ(run.status, 0);
    EXPECT_THAT(run.err, testing::ContainsRegex("epoch 20[0-9][0-9]\\.[0-9]+ \\(20[0-9-]+T[0-9:]+Z\\)"));
}

TEST_F(ConvertFrames, SameFrameRewritesTheNumbers)
{
    EXPECT_EQ(ConvertFrom(kPlain, "sat", "sat", "52:30:00N,3:15:00W\n").out, "52.50000000,-3.25000000\n");
}
