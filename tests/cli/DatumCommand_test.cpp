// `zorgeo datum`: positions through transformations by name, and transformations from one machine
// to another. Expected positions are PROJ's.

#include <cmath>
#include <filesystem>

#include <fmt/format.h>
#include <nlohmann/json.hpp>

#include "CliTest.h"
#include "base/keys/KeyTables.h"
#include "tests/support/ProjOracle.h"

using namespace test_names;
using testing::AllOf;
using testing::HasSubstr;

namespace {

constexpr double kDegreeTolerance = 1e-9; // a tenth of a millimetre
constexpr double kMetreTolerance = 1e-4;
constexpr const char* kTo = "To International";
constexpr const char* kTurned = "Turned";
constexpr const char* kHelmert = "+proj=helmert +x=87 +y=98 +z=121 +rx=0.12 +ry=-0.2 +rz=0.3 +s=1.5 "
                                 "+convention=position_vector";

std::string KeyOf(int key)
{
    return transParamKeys[static_cast<std::size_t>(key)].ToUtf8();
}

double Radians(double degrees)
{
    return ProjOracle::Radians(degrees);
}

} // namespace

class DatumCommand : public CliTest {
protected:
    DatumCommand()
    {
        EditedFile main(MainDatabase());
        for (int key = TransKey::datumKey; key <= TransKey::epoch; ++key) {
            const CString& name = transParamKeys[static_cast<std::size_t>(key)];
            CString value;
            if (main.file.GetItem(L"Dtf-To International", name, value)) {
                main.file.SetItem(L"Dtf-Turned", name, value, true);
            }
        }
        main.file.SetItem(L"DatumTransform Section", L"4", L"Turned", true);
        main.file.SetItem(L"Dtf-Turned", L"Method name", L"Helmert(7 Parameters)", true);
        main.file.SetItem(L"Dtf-Turned", transParamKeys[TransKey::rotX], 0.12, true);
        main.file.SetItem(L"Dtf-Turned", transParamKeys[TransKey::rotY], -0.2, true);
        main.file.SetItem(L"Dtf-Turned", transParamKeys[TransKey::rotZ], 0.3, true);
        main.file.SetItem(L"Dtf-Turned", transParamKeys[TransKey::scale], 1.5, true);
    }

    ToolRun Apply(const std::string& name, const std::string& input, std::vector<std::string> more = {}) const
    {
        std::vector<std::string> arguments = {"datum", "apply", name};
        arguments.insert(arguments.end(), more.begin(), more.end());
        ToolStreams streams;
        streams.input = input;
        return Run(arguments, streams);
    }

    std::string UserFile() const { return Path("user/zorusergeobase.geo"); }

    /// A second machine: a copy of the main database in data2, a user directory of its own.
    ToolRun RunElsewhere(std::vector<std::string> arguments, const std::string& input = {}) const
    {
        for (const std::string& argument :
             {std::string("--data"), Path("data2"), std::string("--user"), Path("user2")}) {
            arguments.push_back(argument);
        }
        ToolStreams streams;
        streams.input = input;
        return RunTool(arguments, streams);
    }

    void ExpectRefused(const ToolRun& run, int status, const std::vector<std::string>& texts) const
    {
        EXPECT_EQ(run.status, status) << run.out << run.err;
        EXPECT_EQ(run.out, "");
        for (const std::string& text : texts) {
            EXPECT_THAT(run.err, HasSubstr(text));
        }
    }
};

TEST_F(DatumCommand, AppliesAsProjDoesBothWays)
{
    const ProjOracle proj(std::string("+proj=pipeline +step +proj=cart +ellps=WGS84 +step ") + kHelmert +
                          " +step +inv +proj=cart +ellps=intl");
    constexpr double kPlaces[][3] = {
        {56.0, 3.0, 45.2}, {-33.5, 151.2, 0.0}, {0.5, -179.9, -30.0}, {89.5, 10.0, 2000.0}};
    for (const auto& [latitude, longitude, height] : kPlaces) {
        const auto expected = proj.Forward(Radians(longitude), Radians(latitude), height);
        const std::string input = fmt::format("{} {} {} buoy\n", latitude, longitude, height);
        const ToolRun run = Apply(kTurned, input, {"--precision", "13", "--check"});
        ASSERT_EQ(run.status, 0) << run.err;
        const auto numbers = Numbers(run.out);
        ASSERT_EQ(numbers.size(), 3U) << run.out;
        EXPECT_NEAR(numbers[0], ProjOracle::Degrees(expected.y), kDegreeTolerance);
        EXPECT_NEAR(numbers[1], ProjOracle::Degrees(expected.x), kDegreeTolerance / std::cos(Radians(latitude)));
        EXPECT_NEAR(numbers[2], expected.z, 0.0006); // three decimals
        EXPECT_THAT(run.out, testing::EndsWith(" buoy\n"));
        const ToolRun back = Apply(kTurned, run.out, {"--precision", "13", "--inverse"});
        const auto returned = Numbers(back.out);
        ASSERT_EQ(returned.size(), 3U) << back.out << back.err;
        EXPECT_NEAR(returned[0], latitude, 1e-11);
        EXPECT_NEAR(returned[1], longitude, 1e-9);
        EXPECT_NEAR(returned[2], height, 0.0011);
    }
}

TEST_F(DatumCommand, WithoutHeightsTakesHeightNought)
{
    const ProjOracle proj(std::string("+proj=pipeline +step +proj=cart +ellps=WGS84 +step ") + kHelmert +
                          " +step +inv +proj=cart +ellps=intl");
    const auto expected = proj.Forward(Radians(3.0), Radians(56.0), 0.0);
    const ToolRun run = Apply(kTurned, "56 3\n", {"--precision", "12", "--check"});
    const auto numbers = Numbers(run.out);
    ASSERT_EQ(numbers.size(), 2U) << run.out << run.err;
    EXPECT_NEAR(numbers[0], ProjOracle::Degrees(expected.y), kDegreeTolerance);
    EXPECT_NEAR(numbers[1], ProjOracle::Degrees(expected.x), kDegreeTolerance);
}

TEST_F(DatumCommand, AppliesToCartesianPositions)
{
    const ProjOracle proj(kHelmert);
    constexpr double kPlaces[][3] = {
        {3568000.0, 187000.0, 5264500.0}, {0.0, 0.0, 6356000.0}, {-6377900.0, 1000.0, -55000.0}};
    for (const auto& [x, y, z] : kPlaces) {
        const auto expected = proj.Forward(x, y, z);
        const std::string input = fmt::format("{} {} {}\n", x, y, z);
        const ToolRun run = Apply(kTurned, input, {"--xyz", "--precision", "6", "--check"});
        const auto numbers = Numbers(run.out);
        ASSERT_EQ(numbers.size(), 3U) << run.out << run.err;
        EXPECT_NEAR(numbers[0], expected.x, kMetreTolerance);
        EXPECT_NEAR(numbers[1], expected.y, kMetreTolerance);
        EXPECT_NEAR(numbers[2], expected.z, kMetreTolerance);
        const auto back = Numbers(Apply(kTurned, run.out, {"--xyz", "--precision", "6", "--inverse"}).out);
        ASSERT_EQ(back.size(), 3U);
        EXPECT_NEAR(back[0], x, 2e-6);
        EXPECT_NEAR(back[1], y, 2e-6);
        EXPECT_NEAR(back[2], z, 2e-6);
    }
    const ToolRun two = Apply(kTurned, "3568000 187000\n", {"--xyz"});
    EXPECT_EQ(two.status, 1) << two.out; // two coordinates do not make three
}

TEST_F(DatumCommand, FourteenParametersNeedATime)
{
    ExpectRefused(Apply("Moving", "0 0 0\n"), 2, {"moves with time (14 parameters)", "--epoch 2024.5"});
    // A metre a year along the polar axis since 2020.
    const ProjOracle proj("+proj=helmert +dz=1 +t_epoch=2020 +convention=position_vector");
    const double expected = proj.Forward(6378137.0, 0.0, 0.0, 2024.5).z;
    const ToolRun run = Apply("Moving", "6378137 0 0\n", {"--xyz", "--epoch", "2024.5", "--precision", "6"});
    ASSERT_EQ(run.status, 0) << run.err;
    EXPECT_NEAR(Numbers(run.out)[2], expected, kMetreTolerance);
    const ToolRun byColumn = Apply("Moving", "6378137 0 0 2024.5\n", {"--xyz", "--columns", "t=4", "--precision", "6"});
    ASSERT_EQ(byColumn.status, 0) << byColumn.err;
    EXPECT_NEAR(Numbers(byColumn.out)[2], expected, kMetreTolerance);
}

TEST_F(DatumCommand, NoTransformationGivesPositionsBack)
{
    EXPECT_EQ(Apply("None", "56 3 45.2\n").out, "56.00000000 3.00000000 45.200\n");
    EXPECT_EQ(Apply("None", "100 3 45.2\n").status, 1);
}

TEST_F(DatumCommand, BadLinesAreToldAndMarked)
{
    const ToolRun run = Apply(kTo, "56 3\n91 3\nnorth 3\n");
    EXPECT_EQ(run.status, 1);
    EXPECT_THAT(run.out, HasSubstr("\n* *\n* *\n"));
    EXPECT_THAT(run.err, AllOf(HasSubstr("-:2: "), HasSubstr("-:3: "), HasSubstr("2 of 3 lines are bad")));
}

TEST_F(DatumCommand, SummaryNamesTheTransformation)
{
    const ToolRun run = Apply("to int", "56 3\n", {"--json", "--inverse"});
    ASSERT_EQ(run.status, 0) << run.err;
    const auto summary = nlohmann::json::parse(run.err);
    EXPECT_EQ(summary["datum"], kTo);
    EXPECT_EQ(summary["inverse"], true);
    EXPECT_EQ(summary["good"], 1);
}

TEST_F(DatumCommand, UnusableNamesAreRefused)
{
    ExpectRefused(Apply("Nowhere", "56 3\n"), 2, {"Nowhere"});
    ExpectRefused(Apply("o", "56 3\n"), 2, {kTo, "Moving"});
    {
        EditedFile main(MainDatabase());
        main.file.SetItem(L"DatumTransform Section", L"5", L"Listed", true);
        main.file.DeleteItem(L"Dtf-To International", L"Shift Y", false);
    }
    ExpectRefused(Apply("Listed", "56 3\n"), 3, {"\"Dtf-Listed\" is in neither"});
    ExpectRefused(Apply(kTo, "56 3\n"), 3, {"section \"Dtf-To International\"", "key \"Shift Y\" is missing"});
}

TEST_F(DatumCommand, TheDeliveredRecordGoesBeforeTheUsers)
{
    const std::string before = Apply(kTo, "56 3 0\n").out;
    Write("user/zorusergeobase.geo", "[Dtf-To International]\nMethod name=No Transformation\n");
    EXPECT_EQ(Apply(kTo, "56 3 0\n").out, before);
}

TEST_F(DatumCommand, CarriesATransformationToAMachineWithoutItsEllipsoid)
{
    const std::string before = Apply(kTurned, "56 3 45.2\n", {"--precision", "12"}).out;
    ASSERT_EQ(Run({"datum", "export", kTurned, Path("turned.geo")}).status, 0);
    std::filesystem::create_directories(Path("data2"));
    WriteTestDatabase(Path("data2"));
    {
        EditedFile main(Path("data2/zorgeodatabase.geo"));
        main.file.DeleteSection(L"Elp-International 1924");
    }
    ASSERT_EQ(RunElsewhere({"datum", "apply", kTurned}, "56 3\n").status, 2);
    const ToolRun run = RunElsewhere({"datum", "import", Path("turned.geo"), kTurned, "--json"});
    ASSERT_EQ(run.status, 0) << run.err;
    EXPECT_EQ(run.err, "");
    const auto told = nlohmann::json::parse(run.out);
    EXPECT_EQ(told["datum"], kTurned);
    EXPECT_EQ(told["added"], true);
    const ToolRun there = RunElsewhere({"datum", "apply", kTurned, "--precision", "12"}, "56 3 45.2\n");
    EXPECT_EQ(there.status, 0) << there.err;
    EXPECT_EQ(there.out, before);
    EXPECT_THAT(RunElsewhere({"list", "datums"}).out, HasSubstr(kTurned));
    const std::string stored = Read("user2/zorusergeobase.geo");
    const ToolRun again = RunElsewhere({"datum", "import", Path("turned.geo"), kTurned});
    EXPECT_EQ(again.status, 0) << again.err;
    EXPECT_THAT(again.out, HasSubstr("known already"));
    EXPECT_EQ(Read("user2/zorusergeobase.geo"), stored);
}

TEST_F(DatumCommand, ExportReplacesNothingUnasked)
{
    Write("mine.geo", "; mine\n");
    ExpectRefused(Run({"datum", "export", kTo, Path("mine.geo")}), 4, {"--force"});
    EXPECT_EQ(Read("mine.geo"), "; mine\n");
    const ToolRun run = Run({"datum", "export", kTo, Path("mine.geo"), "--force"});
    EXPECT_EQ(run.status, 0) << run.err;
    EXPECT_EQ(run.out, fmt::format("datum\t{}\nfile\t{}\n", kTo, Path("mine.geo")));
    EXPECT_THAT(Read("mine.geo"), AllOf(HasSubstr("[Dtf-To International]"), HasSubstr("SrcSma=6378137\n"),
                                        HasSubstr("DstSma=6378388\n")));
    ExpectRefused(Run({"datum", "export", kTo, Path("none/mine.geo")}), 4, {"its directory does not exist"});
    ExpectRefused(Run({"datum", "export", kTo, Path("user")}), 4, {"directory"});
    ExpectRefused(Run({"datum", "export", "Nowhere", Path("new.geo")}), 2, {"Nowhere"});
    EXPECT_FALSE(std::filesystem::exists(Path("new.geo")));
}

TEST_F(DatumCommand, AKnownNameWithOtherContentIsAConflict)
{
    ASSERT_EQ(Run({"datum", "export", kTo, Path("to.geo")}).status, 0);
    {
        EditedFile file(Path("to.geo"));
        file.file.SetItem(L"Dtf-To International", L"Shift X", 88.0, true);
    }
    const std::string before = Read("user/zorusergeobase.geo");
    ExpectRefused(Run({"datum", "import", Path("to.geo"), kTo}), 5,
                  {"other content: Shift X is 87 in the database and 88 in", "--as NAME"});
    EXPECT_EQ(Read("user/zorusergeobase.geo"), before);
    ExpectRefused(Run({"datum", "import", Path("to.geo"), kTo, "--as", "to international"}), 5, {"case of letters"});
    const ToolRun run = Run({"datum", "import", Path("to.geo"), kTo, "--as", "To another"});
    EXPECT_EQ(run.status, 0) << run.err;
    EXPECT_NEAR(Numbers(Apply("To another", "6378137 0 0\n", {"--xyz"}).out)[0], 6378137.0 + 88.0, 0.001);
    EXPECT_NEAR(Numbers(Apply(kTo, "6378137 0 0\n", {"--xyz"}).out)[0], 6378137.0 + 87.0, 0.001);
}

TEST_F(DatumCommand, ImportsARecordOfAnOlderFileUnderItsBareName)
{
    Write("old.geo", "[Bare]\n" + KeyOf(TransKey::source) + "=WGS84\n" + KeyOf(TransKey::target) +
                         "=WGS84\nShift X=1\nShift Y=2\nShift Z=3\n"
                         "Rotation X=0\nRotation Y=0\nRotation Z=0\nScale=0\n");
    ASSERT_EQ(Run({"datum", "import", Path("old.geo"), "Bare"}).status, 0);
    EXPECT_THAT(Read("user/zorusergeobase.geo"), HasSubstr("[Dtf-Bare]"));
    EXPECT_NEAR(Numbers(Apply("Bare", "6378137 0 0\n", {"--xyz"}).out)[0], 6378138.0, 0.001);
}

TEST_F(DatumCommand, UnusableFilesAreNotImported)
{
    ASSERT_EQ(Run({"datum", "export", kTo, Path("to.geo")}).status, 0);
    const std::string before = Read("user/zorusergeobase.geo");
    ExpectRefused(Run({"datum", "import", Path("lost.geo"), kTo}), 4, {"no such file"});
    ExpectRefused(Run({"datum", "import", Path("to.geo"), "Else"}), 2,
                  {"no section \"Dtf-Else\"", "it has \"Dtf-To International\""});
    Write("broken.geo", "no section file");
    ExpectRefused(Run({"datum", "import", Path("broken.geo"), kTo}), 3, {"broken.geo", "line 1"});
    {
        EditedFile file(Path("to.geo"));
        file.file.SetItem(L"Dtf-To International", L"DstSma", 6378300.0, true);
    }
    ExpectRefused(Run({"datum", "import", Path("to.geo"), kTo, "--as", "New"}), 5,
                  {"its ellipsoid \"International 1924\" has a semi-major axis of 6378300", "6378388"});
    {
        EditedFile file(Path("to.geo"));
        file.file.SetItem(L"Dtf-To International", L"Scale", L"big", true);
    }
    ExpectRefused(Run({"datum", "import", Path("to.geo"), kTo, "--as", "New"}), 3,
                  {"key \"Scale\": \"big\" is no number"});
    EXPECT_EQ(Read("user/zorusergeobase.geo"), before);
}
