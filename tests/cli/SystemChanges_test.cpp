#include <cmath>

#include "SystemTest.h"
#include "base/keys/KeyTables.h"
#include "tests/support/GridFiles.h"

using testing::AllOf;
using testing::HasSubstr;
using testing::Not;

/// Removing systems and changing their settings.
class SystemChanges : public SystemTest {
protected:
    SystemChanges()
    {
        Json json = Example();
        json["datum"] = OwnDatum();
        EXPECT_EQ(Add(json).status, 0);
    }

    void AddSecond(const std::string& group = "Harbours") const
    {
        Json json = Example();
        json["datum"] = OwnDatum();
        json["group"] = group;
        json["system"] = "Second";
        EXPECT_EQ(Add(json).status, 0);
    }

    ToolRun Remove(std::vector<std::string> more = {}) const
    {
        std::vector<std::string> arguments = {"system", "remove", "Harbour grid", "--projects", Path("projects")};
        arguments.insert(arguments.end(), more.begin(), more.end());
        return Run(arguments);
    }

    std::vector<double> Grid() const
    {
        return Numbers(ConvertFrom("Harbour grid", "geo", "grid", "52.0 4.5 10.0\n").out);
    }

    /// The height that a satellite height of 10 becomes.
    double Height() const
    {
        const auto grid = Numbers(ConvertFrom("Harbour grid", "sat", "grid", "50.25 4.5 10.0\n").out);
        return grid.size() == 3 ? grid[2] : std::nan("");
    }

    /// GTX file of one height over the place of Height().
    std::string Heights(double height) const
    {
        Write("heights.gtx", GtxFile{}.Bytes([height](int, int) { return height; }));
        return Path("heights.gtx");
    }
};

TEST_F(SystemChanges, RemovalTakesTheProjectionAlongAndLeavesTheDatum)
{
    const ToolRun run = Remove();
    EXPECT_EQ(run.status, 0) << run.err;
    EXPECT_THAT(run.err, AllOf(HasSubstr("removed the system \"Harbour grid\" from the group \"Harbours\"\n"),
                               HasSubstr("with it went the projection \"Harbour grid\"\n"),
                               HasSubstr("the datum transformation \"Harbour shift\" stays\n")));
    const std::string left = UserDatabase();
    EXPECT_THAT(left, Not(HasSubstr("[Sys-Harbour grid]")));
    EXPECT_THAT(left, Not(HasSubstr("[Prj-Harbour grid]")));
    EXPECT_THAT(left, HasSubstr("[Dtf-Harbour shift]"));
    EXPECT_EQ(Run({"system", "remove", "Harbour grid"}).status, 2);
}

TEST_F(SystemChanges, RemovalIsRefusedWhileAnotherSystemSharesProjectionOrDatum)
{
    AddSecond("Other harbours");
    const std::string before = UserDatabase();
    const ToolRun run = Remove();
    EXPECT_EQ(run.status, 2);
    EXPECT_THAT(run.err,
                AllOf(HasSubstr("projection \"Harbour grid\" also in Second (group Other harbours)\n"),
                      HasSubstr("datum transformation \"Harbour shift\" also in Second (group Other harbours)\n"),
                      HasSubstr("nothing is removed; --force removes it all the same")));
    EXPECT_EQ(UserDatabase(), before);
    const ToolRun forced = Remove({"--force"});
    EXPECT_EQ(forced.status, 0) << forced.err;
    EXPECT_THAT(forced.err, HasSubstr("the projection \"Harbour grid\" stays, others use it\n"));
    EXPECT_EQ(ConvertFrom("Second", "geo", "grid", "52 4.5\n").status, 0);
}

TEST_F(SystemChanges, RemovalIsRefusedWhileAProjectNamesTheSystem)
{
    Write("projects/North/project.prj", "[CoordSystem]\nGroup=x\n");
    ASSERT_EQ(Remove({"--json"}).status, 0) << "another project is no use of the system";
    ASSERT_EQ(Add([] {
                  Json json = Example();
                  json["datum"] = OwnDatum();
                  return json;
              }())
                  .status,
              0);
    FileObject project;
    ASSERT_TRUE(project.FileOpen(CString::FromUtf8(Path("projects/North/project.prj")), FileMode::openForReading));
    project.SetItem(COORDSYSTEM_SECTION, coordsystemKeys[CoordsystemKey::group], L"Harbours", true);
    project.SetItem(COORDSYSTEM_SECTION, coordsystemKeys[CoordsystemKey::system], L"Harbour grid", true);
    ASSERT_TRUE(project.FileSave(CString(), FileMode::saveExclusive));
    Write("projects/Broken/project.prj", "neither section nor key\n");
    const std::string before = UserDatabase();
    const ToolRun run = Remove();
    EXPECT_EQ(run.status, 2);
    EXPECT_THAT(run.err, HasSubstr("project " + Path("projects/North")));
    EXPECT_THAT(run.err, HasSubstr("whether this project uses the system is not known"));
    EXPECT_EQ(UserDatabase(), before);
    const ToolRun forced = Remove({"--force", "--json"});
    EXPECT_EQ(forced.status, 0) << forced.err;
    const Json told = Json::parse(forced.out);
    EXPECT_EQ(told["projects"], Json::array({Path("projects/North")}));
    EXPECT_EQ(told["projection"]["removed"], true);
    EXPECT_EQ(told["datum"]["removed"], false);
}

TEST_F(SystemChanges, DeliveredSystemsStay)
{
    for (const std::vector<std::string>& arguments :
         std::vector<std::vector<std::string>>{{"system", "remove", "ED50 - UTM zone 31N", "--force"},
                                               {"system", "geoid", "ED50 - UTM zone 31N", "--off"},
                                               {"system", "corrections", "ED50 - UTM zone 31N", "--x", "1"}}) {
        const ToolRun run = Run(arguments);
        EXPECT_EQ(run.status, 2);
        EXPECT_THAT(run.err, HasSubstr("is a delivered one, which stays as it is"));
    }
}

TEST_F(SystemChanges, GeoidIsSetByValueSwitchedOffAndOn)
{
    const double plain = Height();
    const ToolRun run = Run({"system", "geoid", "Harbour grid", "--method", "manual", "--value", "45.25"});
    EXPECT_EQ(run.status, 0) << run.err;
    EXPECT_EQ(run.err, "zorgeo: geoid of \"Harbour grid\": Manual 45.25\n");
    EXPECT_DOUBLE_EQ(Height(), 10.0 - 45.25);
    EXPECT_EQ(Run({"system", "geoid", "Harbour grid", "--off"}).status, 0);
    EXPECT_EQ(Height(), plain);
    EXPECT_EQ(Run({"system", "geoid", "Harbour grid", "--method", "Manual"}).status, 0);
    EXPECT_DOUBLE_EQ(Height(), 10.0 - 45.25);
}

TEST_F(SystemChanges, GeoidIsSetByAFileThatIsOpenedFirst)
{
    const std::string before = UserDatabase();
    const ToolRun lost = Run({"system", "geoid", "Harbour grid", "--method", "EGM96", "--grid", Path("lost.gtx")});
    EXPECT_EQ(lost.status, 3);
    EXPECT_THAT(lost.err, HasSubstr("lost.gtx"));
    EXPECT_EQ(UserDatabase(), before);
    const ToolRun run = Run({"system", "geoid", "Harbour grid", "--method", "EGM96", "--grid", Heights(40.5)});
    EXPECT_EQ(run.status, 0) << run.err;
    EXPECT_DOUBLE_EQ(Height(), 10.0 - 40.5);
}

TEST_F(SystemChanges, SettingsThatDoNotGoTogetherAreUsage)
{
    const std::vector<std::vector<std::string>> rows = {
        {"geoid", "Harbour grid"},
        {"geoid", "Harbour grid", "--off", "--value", "1"},
        {"geoid", "Harbour grid", "--method", "Manual"},
        {"geoid", "Harbour grid", "--method", "Manual", "--value", "nan"},
        {"geoid", "Harbour grid", "--method", "EGM96"},
        {"geoid", "Harbour grid", "--method", "EGM96", "--value", "1"},
        {"geoid", "Harbour grid", "--method", "Lunar", "--value", "1"},
        {"corrections", "Harbour grid"},
        {"corrections", "Harbour grid", "--off", "--x", "1"},
        {"corrections", "Harbour grid", "--x", "inf"},
        {"corrections", "Harbour grid", "--file", "a.gsb"},
        {"corrections", "Harbour grid", "--model", "NTv2"},
        {"corrections", "No such", "--x", "1"},
        {}};
    const std::string before = UserDatabase();
    for (std::vector<std::string> arguments : rows) {
        arguments.insert(arguments.begin(), "system");
        const ToolRun run = Run(arguments);
        EXPECT_EQ(run.status, 2) << testing::PrintToString(arguments) << run.err;
    }
    EXPECT_EQ(UserDatabase(), before);
}

TEST_F(SystemChanges, CorrectionsAreSetOneByOneAndSwitchedOff)
{
    const auto plain = Grid();
    const ToolRun run = Run({"system", "corrections", "Harbour grid", "--x", "1.5", "--y", "-2"});
    EXPECT_EQ(run.status, 0) << run.err;
    EXPECT_EQ(run.err, "zorgeo: post corrections of \"Harbour grid\": shifts 1.5, -2, 0; no model\n");
    EXPECT_NEAR(Grid()[0], plain[0] + 1.5, 1e-9);
    EXPECT_NEAR(Grid()[1], plain[1] - 2.0, 1e-9);
    EXPECT_EQ(Run({"system", "corrections", "Harbour grid", "--z", "0.5"}).status, 0);
    EXPECT_NEAR(Grid()[0], plain[0] + 1.5, 1e-9);
    EXPECT_NEAR(Grid()[2], plain[2] + 0.5, 1e-9);
    EXPECT_EQ(Run({"system", "corrections", "Harbour grid", "--off"}).status, 0);
    EXPECT_EQ(Grid(), plain);
}

TEST_F(SystemChanges, APostModelIsOpenedFirst)
{
    const std::string before = UserDatabase();
    const ToolRun lost = Run({"system", "corrections", "Harbour grid", "--model", "NTv2", "--file", Path("lost.gsb")});
    EXPECT_EQ(lost.status, 3);
    EXPECT_THAT(lost.err, HasSubstr("lost.gsb"));
    EXPECT_EQ(UserDatabase(), before);
}
