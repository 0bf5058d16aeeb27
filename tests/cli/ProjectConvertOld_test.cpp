#include "ProjectTest.h"

using namespace test_names;
using testing::AllOf;
using testing::HasSubstr;

/// A project of the older generation in a directory of its own. Its copies are all that it is made
/// from: there are no definition files beside the program.
class ProjectConvertOld : public ProjectTest {
protected:
    ProjectConvertOld()
    {
        MakeDirectory("Survey1");
        WriteOld("Survey1/project.prj");
    }
    void WriteOld(const std::string& name, const std::string& projectionType = "0") const
    {
        Write(name, "[SPHEROID]\nSpheroid=International 1924\n"
                    "[ELLIPSOID_BACKUP]\nSemiMajor=6378388\nEccSqrd=0.00672267002233332200\n"
                    "[TRANSFORMATION]\nDatum transformation=Old Shift\n"
                    "[DTF_BACKUP]\n" +
                        transParamKeys[TransKey::source].ToUtf8() +
                        "=WGS84\nTarget ellipsoid=International 1924\n"
                        "Shift X=87\nShift Y=98\nShift Z=121\nRotation X=0\nRotation Y=0\nRotation Z=0\nScale=0\n"
                        "[PROJECTION]\nProjection=Old TM\n"
                        "[PROJECTION_BACKUP]\nProjection type=" +
                        projectionType +
                        "\nLatOrigin=0\nLonOrigin=3\nFalseEasting=500000\nFalseNorthing=0\nScaleFactor=0.9996\n"
                        "[UNITS]\nSystem Units=Meter\n"
                        "[LINES]\n1=A-B\n");
    }
    std::string Old() const { return Path("Survey1/project.prj"); }
    ToolRun ConvertOld(std::vector<std::string> more = {}) const
    {
        std::vector<std::string> arguments = {"project", "convert-old", Old()};
        arguments.insert(arguments.end(), more.begin(), more.end());
        return Run(arguments);
    }
};

TEST_F(ProjectConvertOld, MakesASystemAndAProjectThatOpens)
{
    const ToolRun run = ConvertOld();
    ASSERT_EQ(run.status, 0) << run.err;
    EXPECT_THAT(run.out,
                AllOf(HasSubstr("group    User Defined Coordinate Systems\nsystem   Survey1\n"),
                      HasSubstr("added    system \"Survey1\"\n"),
                      HasSubstr("added    datum transformation \"Old Shift\"\n"),
                      HasSubstr("added    projection \"Old TM\"\n"), HasSubstr("changed  user database, project\n")));
    EXPECT_EQ(Text(Old(), "LINES", L"1"), "A-B");
    const ToolRun open = Run({"project", "open", Old(), "--on-conflict", "fail"});
    EXPECT_EQ(open.status, 0) << open.err;
    EXPECT_THAT(open.out, HasSubstr("changed  nothing\n"));
    // The same parameters as the test database's system of the moved datum.
    ToolStreams streams;
    streams.input = "56.0 3.5 45.0\n";
    const ToolRun converted = Run({"convert", "--project", Old(), "--from", "sat", "--to", "grid"}, streams);
    EXPECT_EQ(converted.out, Convert(kMoved, streams.input).out) << converted.err;
}

TEST_F(ProjectConvertOld, AProjectOfTodayIsRefused)
{
    ASSERT_EQ(ConvertOld().status, 0);
    const std::string converted = Read("Survey1/project.prj");
    const ToolRun run = ConvertOld();
    EXPECT_EQ(run.status, 3);
    EXPECT_THAT(run.err, AllOf(HasSubstr(Old()), HasSubstr("zorgeo project open FILE")));
    EXPECT_EQ(Read("Survey1/project.prj"), converted);
}

TEST_F(ProjectConvertOld, ADirectoryWhoseNameIsASystemNeedsADecision)
{
    ASSERT_EQ(ConvertOld().status, 0);
    const std::string user = Read("user/zorusergeobase.geo");
    WriteOld("Survey1/project.prj");
    const std::string old = Read("Survey1/project.prj");
    const ToolRun refused = ConvertOld();
    EXPECT_EQ(refused.status, 5);
    EXPECT_THAT(refused.err, AllOf(HasSubstr("\"Survey1\""), HasSubstr("--use-existing")));
    EXPECT_EQ(Read("Survey1/project.prj"), old);
    const ToolRun run = ConvertOld({"--use-existing"});
    EXPECT_EQ(run.status, 0) << run.err;
    EXPECT_THAT(run.out, HasSubstr("changed  project\n"));
    EXPECT_EQ(Read("user/zorusergeobase.geo"), user);
    EXPECT_EQ(Run({"project", "open", Old(), "--on-conflict", "fail"}).status, 0);
}

TEST_F(ProjectConvertOld, AMissingSectionOrKeyIsNamedAndNothingChanges)
{
    const std::vector<std::pair<CString, CString>> rows = {
        {SPHEROID_SECTION, L""},     {SPHEROID_SECTION, L"Spheroid"},       {TRANSFORMATION_SECTION, L""},
        {PROJECTION_SECTION, L""},   {PROJECTION_SECTION, L"Projection"},   {UNITS_SECTION, L"System Units"},
        {L"PROJECTION_BACKUP", L""}, {L"PROJECTION_BACKUP", L"ScaleFactor"}};
    for (const auto& [section, key] : rows) {
        WriteOld("Survey1/project.prj");
        {
            EditedFile edited(Old());
            if (key.IsEmpty()) {
                edited.file.DeleteSection(section);
            } else {
                edited.file.DeleteItem(section, key, false);
            }
        }
        const std::string half = Read("Survey1/project.prj");
        const ToolRun run = ConvertOld();
        EXPECT_EQ(run.status, 3) << section.ToUtf8() << key.ToUtf8();
        EXPECT_THAT(run.err, AllOf(HasSubstr(Old()), HasSubstr("\"" + section.ToUtf8() + "\"")));
        EXPECT_EQ(Read("Survey1/project.prj"), half);
        EXPECT_FALSE(std::filesystem::exists(Path("user/zorusergeobase.geo")));
    }
}

TEST_F(ProjectConvertOld, ATypeWithoutACounterpartChangesNothing)
{
    WriteOld("Survey1/project.prj", "5");
    const std::string old = Read("Survey1/project.prj");
    const ToolRun run = ConvertOld();
    EXPECT_EQ(run.status, 3);
    EXPECT_THAT(run.err, HasSubstr("its projection has no counterpart"));
    EXPECT_EQ(Read("Survey1/project.prj"), old);
    EXPECT_FALSE(std::filesystem::exists(Path("user/zorusergeobase.geo")));
}

TEST_F(ProjectConvertOld, AUtmZoneThatTheDatabaseLacksChangesNothing)
{
    WriteOld("Survey1/project.prj", "1\nUTMZone=Zone 31     (  3 E)\nHemisphere=Northern");
    const ToolRun run = ConvertOld();
    EXPECT_EQ(run.status, 3);
    EXPECT_THAT(run.err, HasSubstr("Prj-UTM Zone-31N"));
    EXPECT_FALSE(std::filesystem::exists(Path("user/zorusergeobase.geo")));
}

TEST_F(ProjectConvertOld, TheFilesNameGivesNoSystemItsName)
{
    WriteOld("Survey1/other.prj");
    const ToolRun run = Run({"project", "convert-old", Path("Survey1/other.prj")});
    EXPECT_EQ(run.status, 2);
    EXPECT_THAT(run.err, HasSubstr("is called project.prj"));
}
