#include "ProjectTest.h"

using namespace test_names;
using testing::AllOf;
using testing::HasSubstr;

namespace {
const CString kReference = COORDSYSTEM_SECTION;
const CString kBackup = COORDSYSTEM_BACKUP_SECTION;
const CString& Key(int index)
{
    return coordsystemKeys[static_cast<std::size_t>(index)];
}
} // namespace

/// New, save, backup, and what each refuses.
class ProjectCommand : public ProjectTest {};

TEST_F(ProjectCommand, NewWritesReferenceAndBackup)
{
    const ToolRun run = New(kMoved);
    EXPECT_EQ(run.status, 0) << run.err;
    EXPECT_EQ(run.out, "file     " + Project() + "\ngroup    North Sea\nsystem   Moved datum\nchanged  project\n");
    EXPECT_EQ(InProject(kReference, Key(CoordsystemKey::group)), kGroup);
    EXPECT_EQ(InProject(kReference, Key(CoordsystemKey::system)), kMoved);
    EXPECT_EQ(InProject(kReference, Key(CoordsystemKey::unit)), "Meters");
    EXPECT_EQ(InProject(kReference, Key(CoordsystemKey::module)), "ZORCoordSys");
    EXPECT_EQ(InProject(FORMATS_SECTION, formatParamKeys[FormatKey::unitFormat]), "3");
    EXPECT_EQ(InProject(kBackup, L"CoordSystem"), kMoved);
    EXPECT_EQ(std::stod(InProject(L"GEODESY_PROJECTION_BACKUP", L"FalseEasting")), 500000.0);
    EXPECT_EQ(InProject(L"GEODESY_DTF_BACKUP", L"Shift X"), "87");
    EXPECT_EQ(InProject(L"ELLIPSOID_BACKUP", L"SemiMajor"), "6378388");
    EXPECT_EQ(InProject(L"UINT_BACKUP", L"Unit name"), "1.000000,m");
}

TEST_F(ProjectCommand, WhatIsNewAgreesAndOpens)
{
    for (const char* system : {kPlain, kMoved, kMoving, kFeet, kGeoid, kShift}) {
        ASSERT_EQ(New(system).status, 0);
        const ToolRun status = Run({"project", "status", Project()});
        EXPECT_EQ(status.status, 0) << status.out;
        EXPECT_EQ(Run({"project", "open", Project(), "--on-conflict", "fail"}).status, 0) << system;
        std::filesystem::remove(Project());
    }
}

TEST_F(ProjectCommand, NewKeepsTheChoiceOutOfTheBackup)
{
    const ToolRun run = New(kGeoid, {"--geoid-model", "--None--", "--unit", "feet"});
    ASSERT_EQ(run.status, 0) << run.err;
    EXPECT_EQ(InProject(kReference, Key(CoordsystemKey::geoidMethod)), "--None--");
    EXPECT_EQ(InProject(kReference, Key(CoordsystemKey::unit)), "Feet");
    EXPECT_EQ(InProject(kBackup, L"Geoid model use statu"), "1");
    EXPECT_EQ(InProject(kBackup, L"Geoid model method"), "Manual");
    EXPECT_EQ(InProject(kBackup, L"Unit name"), "Meters");
    EXPECT_EQ(InProject(L"UINT_BACKUP", L"Unit name"), "1.000000,m");
    EXPECT_EQ(Run({"project", "status", Project()}).status, 0);
}

TEST_F(ProjectCommand, NewRefusesAnExistingFileAndTakesAnEmptyOne)
{
    Write("survey.prj", "[Own]\nkey=1\n");
    const ToolRun refused = New(kPlain);
    EXPECT_EQ(refused.status, 4);
    EXPECT_THAT(refused.err, AllOf(HasSubstr(Project()), HasSubstr("project save")));
    EXPECT_EQ(Read("survey.prj"), "[Own]\nkey=1\n");
    Write("survey.prj", "");
    EXPECT_EQ(New(kPlain).status, 0);
}

TEST_F(ProjectCommand, NewLeavesNothingWhenItFails)
{
    EXPECT_EQ(New("Mars").status, 2);
    EXPECT_EQ(New(kLost).status, 3); // its geoid model's file is not there
    EXPECT_EQ(New(kPlain, {"--unit", "fathoms"}).status, 2);
    EXPECT_FALSE(std::filesystem::exists(Project()));
    const ToolRun nowhere = Run({"project", "new", Path("none/survey.prj"), "--system", kPlain});
    EXPECT_EQ(nowhere.status, 4);
    EXPECT_THAT(nowhere.err, HasSubstr("make it first"));
    EXPECT_EQ(Run({"project", "new", Path("data"), "--system", kPlain, "--group", kGroup}).status, 4);
}

TEST_F(ProjectCommand, SaveChangesWhatIsGivenAndKeepsTheRest)
{
    ASSERT_EQ(New(kGeoid, {"--geoid-model", "--None--"}).status, 0);
    ASSERT_EQ(
        Run({"project", "save", Project(), "--unit", "Feet", "--chart-datum", "LAT", "--geoid-model", "Manual"}).status,
        0);
    EXPECT_EQ(InProject(kReference, Key(CoordsystemKey::unit)), "Feet");
    EXPECT_EQ(InProject(kReference, Key(CoordsystemKey::chartDatum)), "LAT");
    const ToolRun back = Run({"project", "save", Project(), "--geoid-model", ""});
    ASSERT_EQ(back.status, 0) << back.err;
    EXPECT_EQ(InProject(kReference, Key(CoordsystemKey::geoidMethod)), "");
    EXPECT_EQ(InProject(kReference, Key(CoordsystemKey::unit)), "Feet");
    EXPECT_EQ(InProject(kReference, Key(CoordsystemKey::system)), kGeoid);
}

TEST_F(ProjectCommand, SaveOfAnotherSystemRenewsTheBackupAndBeginsWithoutChoices)
{
    ASSERT_EQ(New(kGeoid, {"--unit", "Feet"}).status, 0);
    EditedFile(Project()).file.SetItem(L"Lines", L"1", L"A-B", true); // what the application keeps there
    const ToolRun run = Run({"project", "save", Project(), "--system", "moved"});
    ASSERT_EQ(run.status, 0) << run.err;
    EXPECT_THAT(run.err, HasSubstr("the backup is written as well"));
    EXPECT_EQ(InProject(kReference, Key(CoordsystemKey::system)), kMoved);
    EXPECT_EQ(InProject(kReference, Key(CoordsystemKey::unit)), "Meters");
    EXPECT_EQ(InProject(kBackup, L"CoordSystem"), kMoved);
    EXPECT_EQ(InProject(kBackup, L"Manual input value"), "(missing)"); // of the earlier system
    EXPECT_EQ(InProject(L"Lines", L"1"), "A-B");
    EXPECT_EQ(Run({"project", "status", Project()}).status, 0);
}

TEST_F(ProjectCommand, BackupTakesTheDatabasesValues)
{
    ASSERT_EQ(New(kShift).status, 0);
    EditedFile(MainDatabase()).file.SetItem(L"Sys-Post shifts", L"Post X coorection", 11.5, true);
    EXPECT_EQ(Run({"project", "status", Project()}).status, 1);
    ASSERT_EQ(Run({"project", "backup", Project()}).status, 0);
    EXPECT_EQ(InProject(kBackup, L"Post X coorection"), "11.5");
    EXPECT_EQ(Run({"project", "status", Project()}).status, 0);
    const std::string once = Read("survey.prj");
    ASSERT_EQ(Run({"project", "backup", Project()}).status, 0);
    EXPECT_EQ(Read("survey.prj"), once);
}

TEST_F(ProjectCommand, BackupOfASystemThatTheDatabaseDoesNotKnowIsRefused)
{
    ASSERT_EQ(New(kMoved).status, 0);
    DeleteSystemB("Moved datum");
    const auto before = FilesB();
    const ToolRun run = RunB({"project", "backup", Project()});
    EXPECT_EQ(run.status, 3);
    EXPECT_THAT(run.err, AllOf(HasSubstr("does not know the system \"Moved datum\""), HasSubstr("project open")));
    EXPECT_EQ(Read("survey.prj"), before.at("survey.prj"));
}

TEST_F(ProjectCommand, AReadOnlyProjectStaysAsItIs)
{
    ASSERT_EQ(New(kPlain).status, 0);
    const std::string before = Read("survey.prj");
    std::filesystem::permissions(Project(), std::filesystem::perms::owner_read);
    const ToolRun run = Run({"project", "save", Project(), "--unit", "Feet"});
    EXPECT_EQ(run.status, 4);
    EXPECT_THAT(run.err, HasSubstr(Project()));
    EXPECT_EQ(Read("survey.prj"), before);
}

TEST_F(ProjectCommand, EveryActionNamesAFileThatIsNoProject)
{
    Write("text.prj", "no section\n");
    Write("other.prj", "[Own]\nkey=1\n");
    for (const char* action : {"save", "status", "open", "backup", "restore"}) {
        const ToolRun missing = Run({"project", action, Path("none.prj")});
        EXPECT_EQ(missing.status, 3) << action;
        EXPECT_THAT(missing.err, HasSubstr(Path("none.prj") + ": no such file")) << action;
        const ToolRun text = Run({"project", action, Path("text.prj")});
        EXPECT_EQ(text.status, 3) << action;
        EXPECT_THAT(text.err, AllOf(HasSubstr(Path("text.prj")), HasSubstr("1"))) << action;
        const ToolRun other = Run({"project", action, Path("other.prj")});
        EXPECT_EQ(other.status, 3) << action;
        EXPECT_THAT(other.err, AllOf(HasSubstr(Path("other.prj")), HasSubstr("section \"FORMATS\" is missing")))
            << action;
    }
    EXPECT_EQ(Read("other.prj"), "[Own]\nkey=1\n");
}

struct GapRow {
    CString section;
    CString key; ///< empty: the whole section goes
};

TEST_F(ProjectCommand, AHalfWrittenProjectNamesSectionKeyAndRemedy)
{
    const std::vector<GapRow> rows = {{kReference, Key(CoordsystemKey::group)},
                                      {kReference, Key(CoordsystemKey::system)},
                                      {kReference, L""},
                                      {kBackup, L""},
                                      {kBackup, L"CoordSystem"},
                                      {kBackup, L"Datumtransform name"},
                                      {kBackup, L"Projection medthod"},
                                      {kBackup, L"Projection type"},
                                      {L"UINT_BACKUP", L"Unit name"},
                                      {L"ELLIPSOID_BACKUP", L"EccSqrd"},
                                      {L"GEODESY_PROJECTION_BACKUP", L""},
                                      {L"GEODESY_PROJECTION_BACKUP", L"ScaleFactor"},
                                      {L"GEODESY_DTF_BACKUP", L""},
                                      {L"GEODESY_DTF_BACKUP", L"Shift Y"}};
    ASSERT_EQ(New(kMoved).status, 0);
    const std::string whole = Read("survey.prj");
    for (const GapRow& row : rows) {
        Write("survey.prj", whole);
        {
            EditedFile edited(Project());
            if (row.key.IsEmpty()) {
                edited.file.DeleteSection(row.section);
            } else {
                edited.file.DeleteItem(row.section, row.key, false);
            }
        }
        const std::string half = Read("survey.prj");
        const ToolRun run = OpenB("suffix");
        EXPECT_EQ(run.status, 3) << row.section.ToUtf8() << row.key.ToUtf8();
        EXPECT_THAT(run.err, AllOf(HasSubstr(Project()), HasSubstr("\"" + row.section.ToUtf8() + "\""),
                                   HasSubstr(row.key.ToUtf8()), HasSubstr("zorgeo project")));
        EXPECT_EQ(Read("survey.prj"), half);
        EXPECT_FALSE(std::filesystem::exists(Path("userB/zorusergeobase.geo")));
        const ToolRun status = RunB({"project", "status", Project()});
        EXPECT_EQ(status.status, 1) << row.section.ToUtf8() << row.key.ToUtf8() << status.out << status.err;
        EXPECT_THAT(status.out, HasSubstr("not possible: " + Project()));
    }
}

TEST_F(ProjectCommand, ExamplesOfTheHelpRun)
{
    const std::string user = MakeDirectory("examples");
    const std::string file = Path("examples/survey.prj");
    const auto run = [&](std::vector<std::string> arguments) {
        arguments.insert(arguments.begin(), "project");
        arguments.insert(arguments.end(), {"--user", user});
        return RunTool(arguments);
    };
    EXPECT_EQ(run({"new", file, "--system", "WGS 84 - UTM zone 31N", "--group", "North Sea"}).status, 0);
    EXPECT_EQ(run({"save", file, "--unit", "US Survey Feet"}).status, 0);
    EXPECT_EQ(run({"backup", file}).status, 0);
    EXPECT_EQ(run({"open", file, "--on-conflict", "suffix"}).status, 0);
    EXPECT_EQ(run({"restore", file, "--on-conflict", "suffix"}).status, 0);
    EXPECT_LE(run({"status", file}).status, 1);
    for (const char* action : {"new", "save", "status", "open", "backup", "restore", "convert-old"}) {
        const ToolRun help = RunTool({"project", action, "--help"});
        EXPECT_EQ(help.status, 0);
        EXPECT_THAT(help.out, HasSubstr(std::string("Example:\n  zorgeo project ") + action + " "));
    }
}

TEST_F(ProjectCommand, MistakesTellWhatWouldBeRight)
{
    const std::vector<std::pair<std::vector<std::string>, const char*>> rows = {
        {{"project"}, "Try: zorgeo project --help"},
        {{"project", "paint"}, "Try: zorgeo project --help"},
        {{"project", "new", Project()}, "--system is required"},
        {{"project", "open"}, "Try: zorgeo project open --help"},
        {{"project", "open", Project(), "--on-conflict", "guess"}, "--on-conflict"},
        {{"project", "save", Project(), "--group", kGroup}, "--group goes with --system"},
        {{"convert", "--from", "sat", "--to", "grid"}, "SYSTEM is required"},
        {{"convert", "-", "--from", "sat", "--to", "grid"}, "SYSTEM is required"}};
    for (const auto& [arguments, message] : rows) {
        const ToolRun run = RunTool(arguments);
        EXPECT_EQ(run.status, 2) << run.err;
        EXPECT_THAT(run.err, HasSubstr(message));
    }
}
