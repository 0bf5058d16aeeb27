#include <thread>

#include "ProjectTest.h"

using namespace test_names;
using testing::AllOf;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;

namespace {

const CString kReference = COORDSYSTEM_SECTION;
const CString kBackup = COORDSYSTEM_BACKUP_SECTION;

/// "kind: from -> to" of a report.
std::vector<std::string> RenamedIn(const ToolRun& run)
{
    const nlohmann::json report = nlohmann::json::parse(run.out);
    std::vector<std::string> rows;
    for (const auto& row : report.at("renamed")) {
        rows.push_back(row.at("kind").get<std::string>() + ": " + row.at("from").get<std::string>() + " -> " +
                       row.at("to").get<std::string>());
    }
    return rows;
}

std::vector<std::string> AddedIn(const ToolRun& run)
{
    const nlohmann::json report = nlohmann::json::parse(run.out);
    std::vector<std::string> rows;
    for (const auto& row : report.at("added")) {
        rows.push_back(row.at("kind").get<std::string>() + ": " + row.at("name").get<std::string>());
    }
    return rows;
}

} // namespace

/// A project of the first machine, opened on the second.
class ProjectOpen : public ProjectTest {
protected:
    /// Another system's values under the name of the project's.
    void TakeTheNameOfTheSystem() const { SetB("Sys-Post shifts", L"Post X coorection", 11.0); }
    static ToolStreams Typed(const std::string& text)
    {
        ToolStreams streams;
        streams.input = text;
        streams.terminal = true;
        return streams;
    }
};

TEST_F(ProjectOpen, ChangesNothingWhereTheDatabaseAgrees)
{
    ASSERT_EQ(New(kMoved).status, 0);
    const auto before = FilesB();
    const ToolRun run = RunB({"project", "open", Project()});
    EXPECT_EQ(run.status, 0) << run.err;
    EXPECT_THAT(run.out, AllOf(HasSubstr("system   Moved datum\n"), HasSubstr("changed  nothing\n")));
    EXPECT_EQ(FilesB(), before);
}

// Both machines against the definition: the shifts of the datum lie far above a millimetre.
TEST_F(ProjectOpen, ASystemTravelsToAMachineThatLacksIt)
{
    const std::string line = "56.0 3.5 45.0\n";
    ASSERT_EQ(New(kMoved).status, 0);
    DeleteSystemB(kMoved);
    for (const char* section : {"Dtf-To International", "Elp-International 1924", "Prj-UTM 31"}) {
        DeleteB(section);
    }
    const ToolRun home = Convert(kMoved, line);
    ASSERT_EQ(home.status, 0) << home.err;
    const ToolRun run = OpenB("fail");
    ASSERT_EQ(run.status, 0) << run.err;
    EXPECT_THAT(AddedIn(run), testing::UnorderedElementsAre("group: North Sea", "system: Moved datum",
                                                            "datum transformation: To International",
                                                            "projection: UTM 31", "ellipsoid: International 1924"));
    EXPECT_THAT(RenamedIn(run), ElementsAre());
    const ToolRun away = ConvertBy(true, line);
    EXPECT_EQ(away.status, 0) << away.err;
    EXPECT_EQ(away.out, home.out);
    const auto opened = FilesB();
    EXPECT_EQ(OpenB("fail").status, 0);
    EXPECT_EQ(FilesB(), opened);
}

// Opening compares an ellipsoid by its name alone: the other machine's numbers would count in silence.
TEST_F(ProjectOpen, RecordsThatWouldMovePositionsAreRefused)
{
    ASSERT_EQ(New(kMoved).status, 0);
    SetB("Elp-International 1924", L"SemiMajor", 6378389.0);
    const auto before = FilesB();
    const std::string fault =
        "ellipsoid \"International 1924\", SemiMajor: 6378388 in the project, 6378389 in the main "
        "database";
    const ToolRun run = OpenB("fail");
    EXPECT_EQ(run.status, 3);
    EXPECT_THAT(run.err, HasSubstr(fault));
    EXPECT_EQ(FilesB(), before);
    const ToolRun convert = ConvertBy(true, "56.0 3.5 45.0\n");
    EXPECT_EQ(convert.status, 3);
    EXPECT_EQ(convert.out, "");
    EXPECT_THAT(convert.err, HasSubstr(fault));
}

// A restored polar grid has the number 0 for its hemisphere and would lie in the south.
TEST_F(ProjectOpen, APolarGridThatLosesItsHemisphereIsRefused)
{
    for (const char* data : {"data/", "dataB/"}) {
        std::filesystem::copy_file(ZORGEO_DATA_DIR "ZorProjectionStatic.dat", Path(data) + "ZorProjectionStatic.dat",
                                   std::filesystem::copy_options::overwrite_existing);
    }
    {
        EditedFile edited(MainDatabase());
        const CString section = L"Prj-UTM 31";
        edited.file.SetItem(section, projectionParamKeys[ProjectionKey::type], 15, true);
        edited.file.SetItem(section, L"Projection method", L"Universal Polar Stereographic", true);
        edited.file.SetItem(section, projectionParamKeys[ProjectionKey::falseNorthing], 2000000.0, true);
        edited.file.SetItem(section, projectionParamKeys[ProjectionKey::hemisphere], L"Northern", true);
    }
    ASSERT_EQ(New(kMoved).status, 0);
    DeleteSystemB(kMoved);
    DeleteB("Prj-UTM 31");
    const auto before = FilesB();
    const ToolRun run = OpenB("fail");
    EXPECT_EQ(run.status, 3);
    EXPECT_THAT(run.err, HasSubstr("Hemisphere: Northern in the project, 0 in the user database"));
    EXPECT_EQ(FilesB(), before);
}

struct ConflictRow {
    const char* system;
    const char* section; ///< the second machine's record that is another
    CString key;
    double value;
    std::vector<std::string> renamed;
    const char* line; ///< converts to `result` on the first machine
    const char* result;
};

TEST_F(ProjectOpen, SuffixGivesEveryKindOfRecordTheFirstFreeName)
{
    const std::vector<ConflictRow> rows = {
        {kPlain,
         "Prj-UTM 31",
         L"FalseEasting",
         600000.0,
         {"projection: UTM 31 -> UTM 31 (2)", "system: Plain UTM -> Plain UTM (2)"},
         "0 3\n",
         "500000.000 0.000\n"},
        {kMoving,
         "Dtf-Moving",
         L"Shift rate Z",
         2.0,
         {"datum transformation: Moving -> Moving (2)", "system: Moving datum -> Moving datum (2)"},
         "0 3\n",
         "500000.000 0.000\n"},
        {kShift,
         "Sys-Post shifts",
         L"Post X coorection",
         11.0,
         {"system: Post shifts -> Post shifts (2)"},
         "0 3\n",
         "500010.000 20.000\n"}};
    for (const ConflictRow& row : rows) {
        SCOPED_TRACE(row.system);
        std::filesystem::remove_all(Path("userB"));
        std::filesystem::remove(Project());
        WriteTestDatabase(Path("dataB"));
        ASSERT_EQ(New(row.system).status, 0);
        SetB(row.section, row.key, row.value);
        const std::string main = Read("dataB/zorgeodatabase.geo");

        const ToolRun run = OpenB("suffix");
        ASSERT_EQ(run.status, 0) << run.err;
        EXPECT_EQ(RenamedIn(run), row.renamed);
        for (const std::string& renamed : row.renamed) {
            EXPECT_THAT(run.err, HasSubstr("\"" + renamed.substr(renamed.find("-> ") + 3) + "\""));
        }
        EXPECT_EQ(InProject(kReference, coordsystemKeys[CoordsystemKey::system]), row.system + std::string(" (2)"));
        EXPECT_EQ(InProject(kBackup, L"CoordSystem"), row.system + std::string(" (2)"));
        EXPECT_EQ(Read("dataB/zorgeodatabase.geo"), main);
        const ToolRun away = ConvertBy(true, row.line, {"--epoch", "2020.0"});
        EXPECT_EQ(away.out, row.result) << away.err;
        const auto opened = FilesB();
        EXPECT_EQ(OpenB("fail").status, 0);
        EXPECT_EQ(RunB({"project", "status", Project()}).status, 0);
        EXPECT_EQ(FilesB(), opened);
    }
}

TEST_F(ProjectOpen, SuffixPassesNamesThatAreTaken)
{
    ASSERT_EQ(New(kShift).status, 0);
    TakeTheNameOfTheSystem();
    SetB("Sys-Post shifts (2)", L"Unit name", L"Meters");
    SetB("Sys-Post shifts (3)", L"Unit name", L"Meters");
    const ToolRun run = OpenB("suffix");
    EXPECT_EQ(run.status, 0) << run.err;
    EXPECT_THAT(RenamedIn(run), ElementsAre("system: Post shifts -> Post shifts (4)"));
}

TEST_F(ProjectOpen, FailNamesConflictAndRemedyAndChangesNothing)
{
    ASSERT_EQ(New(kShift).status, 0);
    TakeTheNameOfTheSystem();
    const auto before = FilesB();
    for (const char* policy : {"fail", "ask"}) { // there is no terminal to ask on
        const ToolRun run = OpenB(policy);
        EXPECT_EQ(run.status, 5) << policy;
        EXPECT_EQ(run.out, "");
        EXPECT_THAT(run.err, AllOf(HasSubstr(Project() + ": the project's system \"Post shifts\" differs"),
                                   HasSubstr("--on-conflict suffix"), HasSubstr("\"Post shifts (2)\"")));
        EXPECT_EQ(FilesB(), before);
    }
}

TEST_F(ProjectOpen, ASecondConflictThatIsRefusedTakesTheFirstNameBack)
{
    ASSERT_EQ(New(kPlain).status, 0);
    SetB("Prj-UTM 31", L"FalseEasting", 600000.0);
    const auto before = FilesB();
    const ToolRun run = RunB({"project", "open", Project()}, Typed("Own projection\n\x04"));
    EXPECT_EQ(run.status, 5) << run.out;
    EXPECT_THAT(run.out, HasSubstr("the project's system \"Plain UTM\" differs"));
    EXPECT_EQ(FilesB(), before);
}

TEST_F(ProjectOpen, AskShowsKindNameAndSuggestionAndRefusesEmptyAndTakenNames)
{
    ASSERT_EQ(New(kShift).status, 0);
    TakeTheNameOfTheSystem();
    const ToolRun run = RunB({"project", "open", Project()}, Typed("\n  \nPlain UTM\nHarbour grid\n"));
    EXPECT_EQ(run.status, 0) << run.out;
    EXPECT_THAT(run.out, AllOf(HasSubstr("the project's system \"Post shifts\" differs"),
                               HasSubstr("New name for the project's system \"Post shifts\", for example \"Post shifts "
                                         "(2)\": "),
                               HasSubstr("a name is needed"), HasSubstr("\"Plain UTM\" is taken as well")));
    EXPECT_EQ(InProject(kReference, coordsystemKeys[CoordsystemKey::system]), "Harbour grid");
    EXPECT_EQ(ConvertBy(true, "0 3\n").out, "500010.000 20.000\n");
}

TEST_F(ProjectOpen, TheEndOfTheInputCancels)
{
    ASSERT_EQ(New(kShift).status, 0);
    TakeTheNameOfTheSystem();
    const auto before = FilesB();
    const ToolRun run = RunB({"project", "open", Project()}, Typed("\x04"));
    EXPECT_EQ(run.status, 5);
    EXPECT_THAT(run.out, HasSubstr("no other name was given; nothing was changed"));
    EXPECT_EQ(FilesB(), before);
}

// The module asks twice for a system that the database has in another group alone; the project ends
// with the second name.
TEST_F(ProjectOpen, ASystemThatIsAnotherInAnotherGroupEndsUnderOneName)
{
    ASSERT_EQ(New(kShift).status, 0);
    TakeTheNameOfTheSystem();
    DeleteB(std::string("Gp-") + kGroup);
    const ToolRun run = OpenB("suffix");
    ASSERT_EQ(run.status, 0) << run.err;
    const std::string named = InProject(kReference, coordsystemKeys[CoordsystemKey::system]);
    EXPECT_EQ(named, InProject(kBackup, L"CoordSystem"));
    EXPECT_EQ(ConvertBy(true, "0 3\n").out, "500010.000 20.000\n");
    EXPECT_EQ(OpenB("fail").status, 0);
}

TEST_F(ProjectOpen, AReadOnlyProjectIsRefusedBeforeTheDatabaseChanges)
{
    ASSERT_EQ(New(kShift).status, 0);
    TakeTheNameOfTheSystem();
    std::filesystem::permissions(Project(), std::filesystem::perms::owner_read);
    const auto before = FilesB();
    const ToolRun run = OpenB("suffix");
    EXPECT_EQ(run.status, 4);
    EXPECT_THAT(run.err, AllOf(HasSubstr(Project()), HasSubstr("read-only")));
    EXPECT_EQ(FilesB(), before);
}

TEST_F(ProjectOpen, AReadOnlyUserDatabaseIsWrittenAndStaysReadOnly)
{
    ASSERT_EQ(New(kShift).status, 0);
    DeleteSystemB("Post shifts");
    MakeDirectory("userB");
    Write("userB/zorusergeobase.geo", "[General]\nSystem count=7\n");
    std::filesystem::permissions(Path("userB/zorusergeobase.geo"), std::filesystem::perms::owner_read);
    EXPECT_EQ(OpenB("fail").status, 0);
    EXPECT_EQ(Text(Path("userB/zorusergeobase.geo"), "Sys-Post shifts", L"Post X coorection"), "10");
    EXPECT_EQ(std::filesystem::status(Path("userB/zorusergeobase.geo")).permissions() &
                  std::filesystem::perms::owner_write,
              std::filesystem::perms::none);
}

TEST_F(ProjectOpen, AMalformedUserDatabaseIsNamedAndKept)
{
    ASSERT_EQ(New(kShift).status, 0);
    MakeDirectory("userB");
    Write("userB/zorusergeobase.geo", "[General]\nhalf a li");
    const auto before = FilesB();
    const ToolRun run = OpenB("suffix");
    EXPECT_EQ(run.status, 3);
    EXPECT_THAT(run.err, AllOf(HasSubstr(Path("userB/zorusergeobase.geo")), HasSubstr("2")));
    EXPECT_EQ(FilesB(), before);
}

TEST_F(ProjectOpen, SeveralAtOnceLoseNothing)
{
    const std::vector<std::string> systems = {kPlain, kMoved, kGeoid, kShift, kFeet};
    std::vector<std::string> projects;
    for (const std::string& system : systems) {
        projects.push_back(Path(system + ".prj"));
        ASSERT_EQ(Run({"project", "new", projects.back(), "--system", system, "--group", kGroup}).status, 0);
        DeleteSystemB(system);
    }
    std::vector<ToolRun> runs(projects.size());
    {
        std::vector<std::jthread> threads;
        for (std::size_t i = 0; i < projects.size(); ++i) {
            threads.emplace_back([&, i] { runs[i] = RunB({"project", "open", projects[i], "--on-conflict", "fail"}); });
        }
    }
    for (std::size_t i = 0; i < projects.size(); ++i) {
        EXPECT_EQ(runs[i].status, 0) << runs[i].err;
        EXPECT_NE(Text(Path("userB/zorusergeobase.geo"), "Sys-" + systems[i], L"Unit name"), "(missing)") << systems[i];
    }
}

TEST_F(ProjectOpen, LeavesNoTemporaryFiles)
{
    ASSERT_EQ(New(kShift).status, 0);
    TakeTheNameOfTheSystem();
    ::setenv("TMPDIR", MakeDirectory("temporary").c_str(), 1);
    EXPECT_EQ(OpenB("fail").status, 5);
    EXPECT_EQ(RunB({"project", "status", Project()}).status, 1);
    EXPECT_EQ(OpenB("suffix").status, 0);
    // An interrupt at the prompt: Ctrl-C, as a terminal passes it on.
    SetB("Sys-Post shifts (2)", L"Unit name", L"Feet");
    RunB({"project", "open", Project()}, Typed("\x03"));
    ::unsetenv("TMPDIR");
    EXPECT_THAT(FilesIn("temporary"), ElementsAre());
}

TEST_F(ProjectOpen, RestoreTakesTheSystemOfTheBackup)
{
    ASSERT_EQ(New(kShift).status, 0);
    EditedFile(Project()).file.DeleteSection(kReference);
    EXPECT_EQ(OpenB("fail").status, 3);
    const ToolRun run = RunB({"project", "restore", Project(), "--on-conflict", "fail"});
    EXPECT_EQ(run.status, 0) << run.err;
    EXPECT_EQ(InProject(kReference, coordsystemKeys[CoordsystemKey::group]), kGroup);
    EXPECT_EQ(InProject(kReference, coordsystemKeys[CoordsystemKey::system]), kShift);
    EXPECT_EQ(ConvertBy(true, "0 3\n").out, "500010.000 20.000\n");
}

TEST_F(ProjectOpen, RestoreWithAConflictThatIsRefusedChangesNothing)
{
    ASSERT_EQ(New(kShift).status, 0);
    EditedFile(Project()).file.DeleteSection(kReference);
    TakeTheNameOfTheSystem();
    const auto before = FilesB();
    EXPECT_EQ(RunB({"project", "restore", Project(), "--on-conflict", "fail"}).status, 5);
    EXPECT_EQ(FilesB(), before);
}

/// convert --project without SYSTEM.
class ConvertByProject : public ProjectOpen {};

TEST_F(ConvertByProject, UsesTheProjectsSystemChoiceAndUnit)
{
    ASSERT_EQ(New(kGeoid).status, 0);
    EXPECT_EQ(ConvertBy(false, "0 3 50\n").out, "500000.000 0.000 5.000\n"); // 45 m above the ellipsoid
    ASSERT_EQ(Run({"project", "save", Project(), "--geoid-model", "--None--", "--unit", "Feet"}).status, 0);
    // The false easting is in the unit of the grid, the way from the meridian is the same.
    const std::vector<double> feet = Numbers(ConvertBy(false, "0 3.5 50\n").out);
    const std::vector<double> metres =
        Numbers(ConvertBy(false, "0 3.5 50\n", {"--unit", "Meters", "--geoid-model", "Manual"}).out);
    ASSERT_EQ(feet.size(), 3U);
    ASSERT_EQ(metres.size(), 3U);
    EXPECT_GT(metres[0], 555000.0);
    EXPECT_NEAR((feet[0] - 500000.0) * 0.3048, metres[0] - 500000.0, 0.001);
    EXPECT_EQ(feet[2], 50.0);
    EXPECT_EQ(metres[2], 5.0);
}

TEST_F(ConvertByProject, SystemOfTheCommandLineLeavesTheReferenceOut)
{
    ASSERT_EQ(New(kShift, {"--post-model", "--None--"}).status, 0);
    ToolStreams streams;
    streams.input = "0 3\n";
    const ToolRun run =
        Run({"convert", kMoving, "--project", Project(), "--from", "sat", "--to", "grid", "--epoch", "2020"}, streams);
    EXPECT_EQ(run.out, "500000.000 0.000\n") << run.err;
}

TEST_F(ConvertByProject, ADashStandsForTheSystemBeforeInputs)
{
    ASSERT_EQ(New(kShift).status, 0);
    Write("lines.txt", "0 3\n");
    const ToolRun run =
        Run({"convert", "-", Path("lines.txt"), "--project", Project(), "--from", "sat", "--to", "grid"});
    EXPECT_EQ(run.out, "500010.000 20.000\n") << run.err;
}

TEST_F(ConvertByProject, BringsTheSystemInWhereItIsMissing)
{
    ASSERT_EQ(New(kGeoid).status, 0);
    DeleteSystemB("Fixed geoid");
    const ToolRun run = ConvertBy(true, "0 3 50\n");
    EXPECT_EQ(run.out, "500000.000 0.000 5.000\n") << run.err;
    EXPECT_THAT(run.err, HasSubstr("it is restored from the project"));
}

TEST_F(ConvertByProject, AConflictIsSettledByProjectOpen)
{
    ASSERT_EQ(New(kShift).status, 0);
    TakeTheNameOfTheSystem();
    const ToolRun run = ConvertBy(true, "0 3\n");
    EXPECT_EQ(run.status, 5);
    EXPECT_EQ(run.out, "");
    EXPECT_THAT(run.err, HasSubstr("zorgeo project open " + Project()));
}

TEST_F(ConvertByProject, ABrokenReferenceIsNamed)
{
    ASSERT_EQ(New(kShift).status, 0);
    EditedFile(Project()).file.DeleteSection(kReference);
    const ToolRun run = ConvertBy(false, "0 3\n");
    EXPECT_EQ(run.status, 3);
    EXPECT_THAT(run.err, AllOf(HasSubstr(Project()), HasSubstr("section \"COORDINATE SYSTEM\" is missing")));
}
