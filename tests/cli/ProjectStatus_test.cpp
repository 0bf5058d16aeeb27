#include "ProjectTest.h"

using namespace test_names;
using testing::AllOf;
using testing::HasSubstr;

/// Project and database side by side.
class ProjectStatus : public ProjectTest {
protected:
    nlohmann::json StatusB(int expected) const
    {
        const ToolRun run = RunB({"project", "status", Project(), "--json"});
        EXPECT_EQ(run.status, expected) << run.err;
        return nlohmann::json::parse(run.out);
    }
    static nlohmann::json Value(const nlohmann::json& status, const std::string& part, const std::string& item)
    {
        for (const auto& row : status.at("parts")) {
            for (const auto& value : row.at("values")) {
                if (row.at("part") == part && value.at("item") == item) {
                    return value;
                }
            }
        }
        return nullptr;
    }
};

TEST_F(ProjectStatus, AgreesWithTheDatabaseThatItWasMadeWith)
{
    ASSERT_EQ(New(kMoved).status, 0);
    const nlohmann::json status = StatusB(0);
    EXPECT_EQ(status.at("schema"), "zorgeo.project.status/1");
    EXPECT_EQ(status.at("group"), kGroup);
    EXPECT_EQ(status.at("system"), kMoved);
    EXPECT_EQ(status.at("agrees"), true);
    EXPECT_EQ(
        Value(status, "projection", "ScaleFactor"),
        (nlohmann::json{{"item", "ScaleFactor"}, {"project", 0.9996}, {"database", 0.9996}, {"verdict", "agrees"}}));
    EXPECT_EQ(Value(status, "datum transformation", "Shift Z").at("project"), 121.0);
    EXPECT_EQ(Value(status, "ellipsoid", "SemiMajor").at("database"), 6378388.0);
    EXPECT_EQ(Value(status, "unit", "Factor, suffix").at("project"), "1.000000,m");
    EXPECT_EQ(Value(status, "geoid", "Geoid model use statu").at("project"), false);
    EXPECT_EQ(status.at("opening").at("possible"), true);
    EXPECT_EQ(status.at("opening").at("asks").size(), 0U);
}

struct DifferenceRow {
    const char* system;
    const char* section;
    CString key;
    double value;
    const char* part;
    std::string item;
    double inProject;
    std::vector<std::string> asks; ///< of opening
};

TEST_F(ProjectStatus, EveryPartShowsWhatDiffers)
{
    const std::vector<DifferenceRow> rows = {
        {kPlain, "Prj-UTM 31", L"LonOrigin", 9.0, "projection", "LonOrigin", 3.0, {"projection", "system"}},
        {kMoved,
         "Dtf-To International",
         L"Rotation Z",
         0.5,
         "datum transformation",
         "Rotation Z",
         0.0,
         {"datum transformation", "system"}},
        {kMoving,
         "Dtf-Moving",
         L"Epoch",
         2010.0,
         "datum transformation",
         "Epoch",
         2020.0,
         {"datum transformation", "system"}},
        // Ellipsoids and geoid settings show, and the module does not compare them.
        {kMoved, "Elp-International 1924", L"SemiMajor", 6378389.0, "ellipsoid", "SemiMajor", 6378388.0, {}},
        {kMoved,
         "Elp-WGS84",
         L"SemiMajor",
         6378136.0,
         "datum transformation",
         transParamKeys[TransKey::source].ToUtf8() + ", SemiMajor",
         6378137.0,
         {}},
        {kGeoid, "Sys-Fixed geoid", L"Manual input value", 44.0, "geoid", "Manual input value", 45.0, {}},
        {kShift, "Sys-Post shifts", L"Post Y coorection", 21.0, "corrections", "Post Y coorection", 20.0, {"system"}}};
    for (const DifferenceRow& row : rows) {
        SCOPED_TRACE(row.section);
        std::filesystem::remove(Project());
        WriteTestDatabase(Path("dataB"));
        ASSERT_EQ(New(row.system).status, 0);
        SetB(row.section, row.key, row.value);
        const nlohmann::json status = StatusB(1);
        EXPECT_EQ(status.at("agrees"), false);
        const nlohmann::json value = Value(status, row.part, row.item);
        EXPECT_EQ(value.at("project"), row.inProject);
        EXPECT_EQ(value.at("database"), row.value);
        EXPECT_EQ(value.at("verdict"), "differs");
        std::vector<std::string> asks;
        for (const auto& ask : status.at("opening").at("asks")) {
            asks.push_back(ask.at("kind"));
        }
        EXPECT_EQ(asks, row.asks);
    }
}

TEST_F(ProjectStatus, ADescriptionMakesADatumTransformationAnother)
{
    ASSERT_EQ(New(kMoved).status, 0);
    SetB("Dtf-To International", L"Description", L"ED50, North Sea");
    const nlohmann::json status = StatusB(1);
    const nlohmann::json value = Value(status, "datum transformation", "Description");
    EXPECT_EQ(value.at("project"), nullptr);
    EXPECT_EQ(value.at("database"), "ED50, North Sea");
    EXPECT_EQ(value.at("verdict"), "missingInProject");
    EXPECT_EQ(status.at("opening").at("asks").at(0).at("suggestion"), "To International (2)");
}

TEST_F(ProjectStatus, ShowsWhatTheDatabaseLacks)
{
    ASSERT_EQ(New(kMoved).status, 0);
    DeleteSystemB("Moved datum");
    DeleteB("Dtf-To International");
    const nlohmann::json status = StatusB(1);
    EXPECT_EQ(Value(status, "system", "Projection name").at("verdict"), "missingInDatabase");
    EXPECT_EQ(Value(status, "datum transformation", "Shift X").at("verdict"), "missingInDatabase");
    EXPECT_EQ(Value(status, "projection", "LonOrigin").at("verdict"), "agrees");
    EXPECT_EQ(Value(status, "reference", "System name").at("verdict"), "missingInDatabase");
    std::vector<std::string> adds;
    for (const auto& add : status.at("opening").at("adds")) {
        adds.push_back(add.at("name"));
    }
    EXPECT_THAT(adds, testing::UnorderedElementsAre(kGroup, kMoved, "To International"));
}

TEST_F(ProjectStatus, ShowsAProjectWithoutABackup)
{
    ASSERT_EQ(New(kShift).status, 0);
    EditedFile(Project()).file.DeleteSection(CString(COORDSYSTEM_BACKUP_SECTION));
    const nlohmann::json status = StatusB(1);
    EXPECT_EQ(Value(status, "corrections", "Post X coorection").at("verdict"), "missingInProject");
    EXPECT_EQ(status.at("opening").at("possible"), false);
    EXPECT_THAT(status.at("opening").at("refusal"), HasSubstr("project backup FILE"));
}

TEST_F(ProjectStatus, TableStandsSideBySide)
{
    ASSERT_EQ(New(kShift, {"--unit", "Feet"}).status, 0);
    SetB("Sys-Post shifts", L"Post X coorection", 11.0);
    const ToolRun run = RunB({"project", "status", Project()});
    EXPECT_EQ(run.status, 1);
    EXPECT_THAT(run.out, AllOf(HasSubstr("system   Post shifts\n"), HasSubstr("unit     Feet\n"),
                               HasSubstr("projection \"UTM 31\" (main file)\n"),
                               testing::ContainsRegex("  Post X coorection  +10  +11  +differs\n"),
                               testing::ContainsRegex("  ScaleFactor  +0.9996  +0.9996  +agrees\n"),
                               testing::ContainsRegex("[0-9]+ agree, 1 differ, 0 missing in the database, 0 missing")));
    EXPECT_THAT(run.out, HasSubstr("opening  asks for a new name of the system \"Post shifts\", for example \"Post "
                                   "shifts (2)\"\n"));
}

TEST_F(ProjectStatus, ChangesNothingOnTheDisk)
{
    ASSERT_EQ(New(kMoved).status, 0);
    SetB("Dtf-To International", L"Shift X", 88.0);
    DeleteB("Prj-UTM 31");
    const std::string project = Read("survey.prj");
    EXPECT_EQ(RunB({"project", "status", Project()}).status, 1);
    EXPECT_EQ(Read("survey.prj"), project);
    EXPECT_FALSE(std::filesystem::exists(Path("userB"))); // not even made
    MakeDirectory("userB");
    Write("userB/zorusergeobase.geo", "; a comment that a save would drop\n[General]\nSystem count=3\n");
    const auto before = FilesB();
    EXPECT_EQ(RunB({"project", "status", Project()}).status, 1);
    EXPECT_EQ(FilesB(), before);
    EXPECT_THAT(FilesIn("userB"), testing::ElementsAre("zorusergeobase.geo"));
}
