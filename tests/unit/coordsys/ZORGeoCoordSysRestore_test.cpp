#include <functional>
#include <sstream>

#include "tests/unit/coordsys/BackupFixture.h"

namespace {

const CString kBackup = COORDSYSTEM_BACKUP_SECTION;
const CString kSystemKey = coordsystemKeys[CoordsystemKey::system];
const CString kHarbourSection = kSystemPrefix + kSevenSystem;

enum class Form { named, open, silent };
constexpr Form kForms[] = {Form::named, Form::open, Form::silent};

bool Init(ZORGeoCoordSys& system, BackupDatabase& database, Form form, const CString& name = kSevenSystem,
          const InitArguments& arguments = {})
{
    if (form == Form::named) {
        return InitNamed(system, database.ProjectFile(), name, arguments);
    }
    return InitOpen(system, database.project, name, form == Form::silent, arguments);
}

std::vector<std::string> NamesOf(const ScriptedDesk& desk)
{
    std::vector<std::string> names;
    for (const ScriptedDesk::Question& question : desk.questions) {
        names.push_back(question.presentName.ToUtf8());
    }
    return names;
}

double Easting(const ZORGeoCoordSys& system)
{
    double x = -1.0, y = -1.0;
    system.GeoToGrid(52.0, 5.0, x, y, true);
    return x;
}

void ExpectNothingShown(const ScriptedDesk& desk)
{
    EXPECT_TRUE(desk.messages.empty());
    EXPECT_TRUE(desk.questions.empty());
}

// Has the database hold other values than the backup under the same names.
void ChangeProjection(BackupDatabase& database)
{
    database.main.SetItem(kProjectionPrefix + L"TM 5 East", projectionParamKeys[ProjectionKey::falseEasting], 300000.0,
                          true);
}
void ChangeDatum(BackupDatabase& database)
{
    database.main.SetItem(kDatumPrefix + L"Seven", transParamKeys[TransKey::shiftX], -500.0, true);
}
void ChangeSystem(BackupDatabase& database)
{
    database.SetSystemItem(kSevenSystem, kHorAdjustUse, true);
}

} // namespace

TEST(ZORGeoCoordSysRestore, BackupThatAgreesShowsNothingAndWritesNothing)
{
    for (const Form form : kForms) {
        BackupDatabase database;
        database.SaveBackupOf(kSevenSystem);
        const auto before = BytesOf(database);
        ScriptedDesk desk;
        ZORGeoCoordSys system;
        EXPECT_TRUE(Init(system, database, form));
        ExpectNothingShown(desk);
        EXPECT_EQ(BytesOf(database), before);
        EXPECT_EQ(NameOf(system), kSevenSystem);
    }
}

TEST(ZORGeoCoordSysRestore, SystemThatIsAbsentIsAddedSilently)
{
    for (const Form form : kForms) {
        BackupDatabase database;
        database.SaveBackupOf(kSevenSystem);
        database.RemoveSystem(kSevenSystem);
        const auto before = BytesOf(database);
        ScriptedDesk desk;
        ZORGeoCoordSys system;
        EXPECT_TRUE(Init(system, database, form));
        ExpectNothingShown(desk);
        EXPECT_TRUE(system.IsInit());
        EXPECT_EQ(Easting(system), 500000.0);
        const auto after = BytesOf(database);
        EXPECT_EQ(after[0], before[0]);
        EXPECT_NE(after[1], before[1]);
        EXPECT_EQ(after[2], before[2]);
        const FileObject user = Opened(database.UserFile());
        EXPECT_TRUE(user.HasSection(kHarbourSection));
        EXPECT_FALSE(user.HasSection(kDatumPrefix + L"Seven")) << "the database's own equals it";
        EXPECT_FALSE(user.HasSection(kProjectionPrefix + L"TM 5 East"));
    }
}

TEST(ZORGeoCoordSysRestore, PartsThatAreAbsentComeAlong)
{
    BackupDatabase database;
    database.SaveBackupOf(kFourteenSystem);
    database.main.DeleteSection(kDatumPrefix + L"Fourteen");
    database.main.DeleteSection(kProjectionPrefix + L"TM 5 East");
    database.RemoveSystem(kFourteenSystem);
    ScriptedDesk desk;
    ZORGeoCoordSys system;
    EXPECT_TRUE(Init(system, database, Form::named, kFourteenSystem));
    ExpectNothingShown(desk);
    const FileObject user = Opened(database.UserFile());
    EXPECT_EQ(NumberIn(user, kDatumPrefix + L"Fourteen", transParamKeys[TransKey::epoch]), 2010.0);
    EXPECT_EQ(NumberIn(user, kProjectionPrefix + L"TM 5 East", projectionParamKeys[ProjectionKey::scaleFactor]),
              0.9996);
}

TEST(ZORGeoCoordSysRestore, SystemIsAddedUnderTheNamesThatInitWasGiven)
{
    BackupDatabase database;
    database.SaveBackupOf(kSevenSystem);
    ScriptedDesk desk;
    ZORGeoCoordSys system;
    EXPECT_TRUE(system.Init(L"Other group", L"Other Grid", L"", L"", L"", L"", L"", database.project, L"none", true));
    const FileObject user = Opened(database.UserFile());
    EXPECT_TRUE(user.HasSection(kSystemPrefix + L"Other Grid"));
    EXPECT_EQ(TextIn(user, kGroupPrefix + L"Other group", L"1"), L"Other Grid");
    EXPECT_FALSE(user.HasSection(kHarbourSection));
}

TEST(ZORGeoCoordSysRestore, AnotherValueOfTheSystemAsksForItsNameAlone)
{
    for (const Form form : {Form::named, Form::open}) {
        BackupDatabase database;
        database.SetSystemItem(kSevenSystem, kPostUse, true);
        database.SetSystemItem(kSevenSystem, kPostX, 10.0);
        database.SaveBackupOf(kSevenSystem);
        database.SetSystemItem(kSevenSystem, kPostX, 20.0);
        database.Save();
        const auto before = BytesOf(database);
        ScriptedDesk desk;
        desk.Answer(L"My Grid");
        ZORGeoCoordSys system;
        EXPECT_TRUE(Init(system, database, form));
        EXPECT_EQ(KindsOf(desk), (Kinds{NameKind::system}));
        EXPECT_EQ(desk.questions.at(0).presentName, kSevenSystem);
        EXPECT_EQ(desk.questions.at(0).dllType, L"ZORCoordSys");
        EXPECT_TRUE(desk.messages.empty());
        EXPECT_EQ(NameOf(system), L"My Grid");
        EXPECT_EQ(Easting(system), 500010.0) << "the project's backup wins";
        EXPECT_EQ(BytesOf(database)[0], before[0]);
        const FileObject project = Opened(database.ProjectFile());
        EXPECT_EQ(TextIn(project, kBackup, kBackupSystem), L"My Grid");
        EXPECT_EQ(TextIn(project, COORDSYSTEM_SECTION, kSystemKey), L"My Grid");
        EXPECT_EQ(TextIn(project, kBackup, kSystemProjection), L"TM 5 East");
        const FileObject user = Opened(database.UserFile());
        EXPECT_EQ(NumberIn(user, kSystemPrefix + L"My Grid", kPostX), 10.0);
        EXPECT_FALSE(user.HasSection(kHarbourSection));

        const auto settled = BytesOf(database);
        ZORGeoCoordSys again;
        EXPECT_TRUE(Init(again, database, form, L"My Grid"));
        EXPECT_EQ(desk.questions.size(), 1u);
        EXPECT_EQ(BytesOf(database), settled);
    }
}

TEST(ZORGeoCoordSysRestore, AsksForProjectionThenDatumThenSystem)
{
    BackupDatabase database;
    database.SaveBackupOf(kSevenSystem);
    ChangeProjection(database);
    ChangeDatum(database);
    ChangeSystem(database);
    database.Save();
    const std::string delivered = BytesOf(database)[0];
    ScriptedDesk desk;
    desk.Answer(L"My TM").Answer(L"My Datum").Answer(L"My Grid");
    ZORGeoCoordSys system;
    EXPECT_TRUE(Init(system, database, Form::named));
    EXPECT_EQ(KindsOf(desk), (Kinds{NameKind::projection, NameKind::datumTransformation, NameKind::system}));
    EXPECT_EQ(NamesOf(desk), (std::vector<std::string>{"TM 5 East", "Seven", "Harbour Grid"}));
    const FileObject project = Opened(database.ProjectFile());
    EXPECT_EQ(TextIn(project, kBackup, kSystemProjection), L"My TM");
    EXPECT_EQ(TextIn(project, kBackup, kSystemDatum), L"My Datum");
    EXPECT_EQ(TextIn(project, kBackup, kBackupSystem), L"My Grid");
    const FileObject user = Opened(database.UserFile());
    EXPECT_EQ(NumberIn(user, kProjectionPrefix + L"My TM", projectionParamKeys[ProjectionKey::falseEasting]), 500000.0);
    EXPECT_EQ(NumberIn(user, kProjectionPrefix + L"My TM", projectionParamKeys[ProjectionKey::type]), 0.0);
    EXPECT_EQ(NumberIn(user, kDatumPrefix + L"My Datum", transParamKeys[TransKey::shiftX]), -565.7346);
    EXPECT_EQ(TextIn(user, kSystemPrefix + L"My Grid", kSystemProjection), L"My TM");
    EXPECT_EQ(TextIn(user, kSystemPrefix + L"My Grid", kSystemDatum), L"My Datum");
    EXPECT_EQ(Easting(system), 500000.0);
    // Under the old names nothing is changed.
    EXPECT_EQ(BytesOf(database)[0], delivered);
    EXPECT_FALSE(user.HasSection(kHarbourSection));
    EXPECT_FALSE(user.HasSection(kDatumPrefix + L"Seven"));
    EXPECT_FALSE(user.HasSection(kProjectionPrefix + L"TM 5 East"));

    const auto settled = BytesOf(database);
    ZORGeoCoordSys again;
    EXPECT_TRUE(Init(again, database, Form::named, L"My Grid"));
    EXPECT_EQ(desk.questions.size(), 3u);
    EXPECT_EQ(BytesOf(database), settled);
}

TEST(ZORGeoCoordSysRestore, RenamedPartAloneMakesTheSystemDiffer)
{
    BackupDatabase database;
    database.SaveBackupOf(kSevenSystem);
    ChangeProjection(database);
    database.Save();
    ScriptedDesk desk;
    desk.Answer(L"My TM").Answer(L"My Grid");
    ZORGeoCoordSys system;
    EXPECT_TRUE(Init(system, database, Form::open));
    // The system of the database names the old projection, the backup's record the new one.
    EXPECT_EQ(KindsOf(desk), (Kinds{NameKind::projection, NameKind::system}));
    EXPECT_EQ(NameOf(system), L"My Grid");
}

// A backup holds no description, and a description is compared.
TEST(ZORGeoCoordSysRestore, DescribedTransformationDiffersOnceAndIsThenAnother)
{
    struct Row {
        CString system;
        CString datum;
    };
    const CString& key = transParamKeys[TransKey::description];
    for (const Row& row : {Row{kSevenSystem, L"Seven"}, Row{kFourteenSystem, L"Fourteen"}}) {
        BackupDatabase database;
        database.main.SetItem(kDatumPrefix + row.datum, key, L"by the port", true);
        database.SaveBackupOf(row.system);
        ScriptedDesk desk;
        desk.Answer(L"Own Datum").Answer(L"Own Grid");
        ZORGeoCoordSys system;
        EXPECT_TRUE(Init(system, database, Form::named, row.system));
        EXPECT_EQ(NamesOf(desk), (std::vector<std::string>{row.datum.ToUtf8(), row.system.ToUtf8()}));
        EXPECT_EQ(TextIn(Opened(database.UserFile()), kDatumPrefix + L"Own Datum", key), L"");
        ScriptedDesk quiet;
        ZORGeoCoordSys again;
        EXPECT_TRUE(Init(again, database, Form::named, L"Own Grid"));
        ExpectNothingShown(quiet);
    }
}

TEST(ZORGeoCoordSysRestore, AbsentSystemAsksForThePartsWhoseNamesAreTaken)
{
    for (const Form form : kForms) {
        BackupDatabase database;
        database.SaveBackupOf(kSevenSystem);
        ChangeProjection(database);
        ChangeDatum(database);
        database.RemoveSystem(kSevenSystem);
        ScriptedDesk desk;
        desk.Answer(L"My TM").Answer(L"My Datum");
        ZORGeoCoordSys system;
        EXPECT_TRUE(Init(system, database, form));
        EXPECT_EQ(KindsOf(desk), (Kinds{NameKind::projection, NameKind::datumTransformation}));
        EXPECT_EQ(NameOf(system), kSevenSystem);
        EXPECT_EQ(Easting(system), 500000.0);
        const FileObject project = Opened(database.ProjectFile());
        EXPECT_EQ(TextIn(project, kBackup, kSystemProjection), L"My TM");
        EXPECT_EQ(TextIn(project, kBackup, kSystemDatum), L"My Datum");
        EXPECT_EQ(TextIn(project, kBackup, kBackupSystem), kSevenSystem);
        const FileObject user = Opened(database.UserFile());
        EXPECT_EQ(TextIn(user, kHarbourSection, kSystemProjection), L"My TM");
        EXPECT_EQ(TextIn(user, kHarbourSection, kSystemDatum), L"My Datum");
    }
}

// The record of the system stands there, but its group does not, so that the system is not found.
TEST(ZORGeoCoordSysRestore, ProjectKeepsTheOldNameOfASystemThatWasNotFound)
{
    BackupDatabase database;
    database.SaveBackupOf(kSevenSystem);
    ChangeSystem(database);
    database.main.DeleteSection(kGroupPrefix + kGroup);
    database.Save();
    database.project.SetItem(L"Host", L"Unsaved", 1, true);
    ScriptedDesk desk;
    desk.Answer(L"My Grid");
    ZORGeoCoordSys system;
    EXPECT_TRUE(Init(system, database, Form::silent));
    EXPECT_EQ(KindsOf(desk), (Kinds{NameKind::system}));
    EXPECT_EQ(NameOf(system), L"My Grid");
    const FileObject project = Opened(database.ProjectFile());
    EXPECT_TRUE(project.HasKey(L"Host", L"Unsaved")) << "the project was saved";
    EXPECT_EQ(TextIn(project, kBackup, kBackupSystem), kSevenSystem);
    EXPECT_EQ(TextIn(project, COORDSYSTEM_SECTION, kSystemKey), kSevenSystem);
    EXPECT_TRUE(Opened(database.UserFile()).HasSection(kSystemPrefix + L"My Grid"));
}

TEST(ZORGeoCoordSysRestore, ComparisonAtTheEndThenAsksForTheNameThatTheProjectGets)
{
    BackupDatabase database;
    database.SaveBackupOf(kSevenSystem);
    ChangeSystem(database);
    database.main.DeleteSection(kGroupPrefix + kGroup);
    database.Save();
    ScriptedDesk desk;
    desk.Answer(L"My Grid").Answer(L"My other Grid");
    ZORGeoCoordSys system;
    EXPECT_TRUE(Init(system, database, Form::named));
    EXPECT_EQ(NamesOf(desk), (std::vector<std::string>{"Harbour Grid", "My Grid"}));
    EXPECT_EQ(NameOf(system), L"My other Grid");
    const FileObject project = Opened(database.ProjectFile());
    EXPECT_EQ(TextIn(project, kBackup, kBackupSystem), L"My other Grid");
    EXPECT_EQ(TextIn(project, COORDSYSTEM_SECTION, kSystemKey), L"My other Grid");
}

TEST(ZORGeoCoordSysRestore, CancelKeepsEverythingOffTheDisk)
{
    for (const bool found : {true, false}) {
        for (const int cancelled : {0, 1, 2}) {
            BackupDatabase database;
            database.SaveBackupOf(kSevenSystem);
            ChangeProjection(database);
            ChangeDatum(database);
            ChangeSystem(database);
            if (!found) {
                database.main.DeleteSection(kGroupPrefix + kGroup);
            }
            database.Save();
            const auto before = BytesOf(database);
            ScriptedDesk desk;
            const wchar_t* const names[] = {L"My TM", L"My Datum"};
            for (int i = 0; i < cancelled; ++i) {
                desk.Answer(names[i]);
            }
            desk.Cancel();
            ZORGeoCoordSys system;
            EXPECT_FALSE(Init(system, database, Form::open));
            EXPECT_EQ(desk.questions.size(), static_cast<std::size_t>(cancelled) + 1);
            EXPECT_TRUE(desk.messages.empty());
            EXPECT_EQ(BytesOf(database), before);
            EXPECT_EQ(NameOf(system), kSevenSystem);
            EXPECT_EQ(system.IsInit(), found);
            // What was renamed before the cancel stays so in the project's memory.
            EXPECT_EQ(TextIn(database.project, kBackup, kSystemProjection), cancelled > 0 ? L"My TM" : L"TM 5 East");
            EXPECT_EQ(TextIn(database.project, kBackup, kSystemDatum), cancelled > 1 ? L"My Datum" : L"Seven");
            EXPECT_EQ(TextIn(database.project, kBackup, kBackupSystem), kSevenSystem);
        }
    }
}

TEST(ZORGeoCoordSysRestore, WithoutABackupNothingIsShownOrWritten)
{
    for (const bool found : {true, false}) {
        BackupDatabase database;
        database.SaveBackupOf(kSevenSystem);
        database.project.DeleteSection(kBackup); // the other sections of the backup alone are none
        if (!found) {
            database.main.DeleteSection(kHarbourSection);
        }
        database.Save();
        const auto before = BytesOf(database);
        for (const Form form : {Form::named, Form::open}) {
            ScriptedDesk desk;
            ZORGeoCoordSys system;
            EXPECT_FALSE(Init(system, database, form));
            EXPECT_EQ(system.IsInit(), found);
            ExpectNothingShown(desk);
            EXPECT_EQ(BytesOf(database), before);
        }
    }
}

// The datum stands under the older style of its name: found by the system, not by the comparison.
TEST(ZORGeoCoordSysRestore, AbsentPartOfAnEqualSystemIsAddedSilently)
{
    BackupDatabase database;
    AddDatum(database.main, {.name = L"A -  C", .parameters = {11.0}});
    database.SetSystemItem(kSevenSystem, kSystemDatum, CString(L"A - B: C"));
    database.SaveBackupOf(kSevenSystem);
    ScriptedDesk desk;
    ZORGeoCoordSys system;
    EXPECT_TRUE(Init(system, database, Form::named));
    ExpectNothingShown(desk);
    const FileObject user = Opened(database.UserFile());
    EXPECT_EQ(NumberIn(user, kDatumPrefix + L"A - B: C", transParamKeys[TransKey::shiftX]), 11.0);
    EXPECT_EQ(TextIn(user, kHarbourSection, kSystemDatum), L"A - B: C") << "the object runs on the user file";
    const auto settled = BytesOf(database);
    ZORGeoCoordSys again;
    EXPECT_TRUE(Init(again, database, Form::named));
    ExpectNothingShown(desk);
    EXPECT_EQ(BytesOf(database), settled);
}

// A project whose backup is of another system than the one that the host names.
TEST(ZORGeoCoordSysRestore, AbsentProjectionOfAnEqualSystemIsAddedUnderTheObjectsSystem)
{
    BackupDatabase database;
    AddProjection(database.main, {.name = L"TM 7 East", .lonOrigin = 7.0});
    database.main.SetItem(kProjectionPrefix + L"TM 7 East", kProjectionUnit, L"Meters", true);
    database.SetSystemItem(kSevenSystem, kSystemProjection, CString(L"TM 7 East"));
    database.SaveBackupOf(kSevenSystem);
    database.main.DeleteSection(kProjectionPrefix + L"TM 7 East");
    database.Save();
    ScriptedDesk desk;
    ZORGeoCoordSys system;
    EXPECT_TRUE(Init(system, database, Form::open, kPlainSystem));
    ExpectNothingShown(desk);
    const FileObject user = Opened(database.UserFile());
    EXPECT_EQ(NumberIn(user, kProjectionPrefix + L"TM 7 East", projectionParamKeys[ProjectionKey::lonOrigin]), 7.0);
    EXPECT_EQ(TextIn(user, kSystemPrefix + kPlainSystem, kSystemDatum), L"Seven");
    EXPECT_FALSE(user.HasSection(kHarbourSection));
    CString projection;
    system.GetProjectionName(projection);
    EXPECT_EQ(projection, L"TM 7 East");
}

TEST(ZORGeoCoordSysRestore, SystemOfTheBackupThatIsAbsentIsAddedWithoutAQuestion)
{
    BackupDatabase database;
    database.SaveBackupOf(kSevenSystem);
    database.RemoveSystem(kSevenSystem);
    ScriptedDesk desk;
    ZORGeoCoordSys system;
    EXPECT_TRUE(Init(system, database, Form::open, kPlainSystem)); // found; the backup is of the other
    ExpectNothingShown(desk);
    EXPECT_EQ(TextIn(Opened(database.UserFile()), kSystemPrefix + kPlainSystem, kSystemDatum), L"Seven");
}

TEST(ZORGeoCoordSysRestore, OlderGenerationsSectionsServe)
{
    BackupDatabase database;
    database.SaveBackupOf(kSevenSystem);
    const auto move = [&](const CString& from, const CString& to) {
        for (const auto& [key, value] : ItemsOf(database.project, from)) {
            database.project.SetItem(to, CString::FromUtf8(key), CString::FromUtf8(value), true);
        }
        database.project.DeleteSection(from);
    };
    move(L"GEODESY_PROJECTION_BACKUP", L"PROJECTION_BACKUP");
    move(L"GEODESY_DTF_BACKUP", L"DTF_BACKUP");
    database.main.DeleteSection(kProjectionPrefix + L"TM 5 East");
    database.main.DeleteSection(kDatumPrefix + L"Seven");
    database.RemoveSystem(kSevenSystem);
    ScriptedDesk desk;
    ZORGeoCoordSys system;
    EXPECT_TRUE(Init(system, database, Form::silent));
    ExpectNothingShown(desk);
    EXPECT_EQ(Easting(system), 500000.0);
    const FileObject user = Opened(database.UserFile());
    EXPECT_EQ(NumberIn(user, kDatumPrefix + L"Seven", transParamKeys[TransKey::scale]), -4.07244);
    EXPECT_EQ(NumberIn(user, kProjectionPrefix + L"TM 5 East", projectionParamKeys[ProjectionKey::lonOrigin]), 5.0);
}

TEST(ZORGeoCoordSysRestore, OlderSectionServesWhenTodaysDoesNotLoad)
{
    BackupDatabase database;
    database.SaveBackupOf(kSevenSystem);
    for (const auto& [today, older] :
         {std::pair{kProjectionBackup, kLegacyProjectionBackup}, std::pair{kDatumBackup, kLegacyDatumBackup}}) {
        for (const auto& [key, value] : ItemsOf(database.project, today)) {
            database.project.SetItem(older, CString::FromUtf8(key), CString::FromUtf8(value), true);
        }
    }
    database.project.DeleteItem(kProjectionBackup, projectionParamKeys[ProjectionKey::lonOrigin], false);
    database.project.DeleteItem(kDatumBackup, transParamKeys[TransKey::shiftX], false);
    database.main.DeleteSection(kProjectionPrefix + L"TM 5 East");
    database.main.DeleteSection(kDatumPrefix + L"Seven");
    database.RemoveSystem(kSevenSystem);
    ScriptedDesk desk;
    ZORGeoCoordSys system;
    bool ready = false;
    EXPECT_NO_THROW(ready = Init(system, database, Form::silent));
    EXPECT_TRUE(ready);
    EXPECT_EQ(Easting(system), 500000.0);
}

TEST(ZORGeoCoordSysRestore, BackupThatCannotBeLoadedGivesFalseAndWritesNothing)
{
    struct Case {
        const char* what;
        std::function<void(FileObject&)> spoil;
    };
    const Case cases[] = {
        {"unit", [](FileObject& p) { p.DeleteSection(L"UINT_BACKUP"); }},
        {"ellipsoid", [](FileObject& p) { p.DeleteSection(L"ELLIPSOID_BACKUP"); }},
        {"small ellipsoid", [](FileObject& p) { p.SetItem(L"ELLIPSOID_BACKUP", L"SemiMajor", 5999999.0, true); }},
        {"eccentricity", [](FileObject& p) { p.SetItem(L"ELLIPSOID_BACKUP", L"EccSqrd", 1.001, true); }},
        {"type without a class", [](FileObject& p) { p.SetItem(kBackup, L"Projection type", 5, true); }},
        {"type", [](FileObject& p) { p.SetItem(kBackup, L"Projection type", 99, true); }},
        {"projection", [](FileObject& p) { p.DeleteSection(kProjectionBackup); }},
        {"parameter of the projection",
         [](FileObject& p) { p.DeleteItem(kProjectionBackup, projectionParamKeys[ProjectionKey::lonOrigin], false); }},
        {"datum", [](FileObject& p) { p.DeleteSection(kDatumBackup); }},
        {"parameter of the datum",
         [](FileObject& p) { p.DeleteItem(kDatumBackup, transParamKeys[TransKey::shiftX], false); }},
    };
    for (const Case& row : cases) {
        BackupDatabase database;
        database.SaveBackupOf(kSevenSystem);
        row.spoil(database.project);
        // Without the database's records nothing is compared, so nothing is asked.
        database.main.DeleteSection(kProjectionPrefix + L"TM 5 East");
        database.main.DeleteSection(kDatumPrefix + L"Seven");
        database.RemoveSystem(kSevenSystem);
        const auto before = BytesOf(database);
        ScriptedDesk desk;
        ZORGeoCoordSys system;
        bool answer = true;
        EXPECT_NO_THROW(answer = Init(system, database, Form::silent)) << row.what;
        EXPECT_FALSE(answer) << row.what;
        EXPECT_FALSE(system.IsInit()) << row.what;
        ExpectNothingShown(desk);
        EXPECT_EQ(BytesOf(database), before) << row.what;
    }
}

TEST(ZORGeoCoordSysRestore, EmptyGroupCannotBeWritten)
{
    BackupDatabase database;
    database.SaveBackupOf(kSevenSystem);
    const auto before = BytesOf(database);
    ScriptedDesk desk;
    ZORGeoCoordSys system;
    EXPECT_FALSE(system.Init(L"", kSevenSystem, L"", L"", L"", L"", L"", database.project, L"none", true));
    EXPECT_EQ(BytesOf(database), before);
}

// The answer of the restoring is not asked; what counts is whether the system stands in the user file.
TEST(ZORGeoCoordSysRestore, FailedRestoringShowsWhenTheSystemIsLookedFor)
{
    for (const bool inUserFile : {false, true}) {
        BackupDatabase database;
        AddDatum(database.main, {.name = L"A -  C", .parameters = {11.0}});
        if (inUserFile) {
            AddSystem(database.user,
                      {.group = kGroup, .name = kSevenSystem, .datum = L"A - B: C", .projection = L"TM 5 East"});
        }
        database.SetSystemItem(kSevenSystem, kSystemDatum, CString(L"A - B: C"));
        database.SaveBackupOf(kSevenSystem);
        database.project.DeleteSection(kUnitBackup);
        database.Save();
        const auto before = BytesOf(database);
        ScriptedDesk desk;
        ZORGeoCoordSys system;
        EXPECT_EQ(Init(system, database, Form::named), inUserFile);
        ExpectNothingShown(desk);
        EXPECT_EQ(BytesOf(database), before);
    }
}

TEST(ZORGeoCoordSysRestore, WritesTheSystemAsTheBackupHasIt)
{
    BackupDatabase database;
    for (const auto& [key, value] :
         {std::pair{kGeoidUse, 1.0}, std::pair{kGeoidManual, 41.25}, std::pair{kPostUse, 1.0}, std::pair{kPostX, 1.5},
          std::pair{kPostY, -2.5}, std::pair{kPostZ, 0.25}, std::pair{kHorAdjustUse, 1.0},
          std::pair{kHorAdjustOriginX, 100.0}, std::pair{kHorAdjustOriginY, 200.0}, std::pair{kHorAdjustRotation, 3.5},
          std::pair{kHorAdjustScale, 1.0001}, std::pair{kVertAdjustUse, 1.0}, std::pair{kVertAdjustOriginX, 10.0},
          std::pair{kVertAdjustOriginY, 20.0}, std::pair{kVertAdjustSlopeX, 5.0}, std::pair{kVertAdjustSlopeY, -6.0}}) {
        database.SetSystemItem(kSevenSystem, key, value);
    }
    for (const auto& [key, value] : {std::pair{kGeoidMethod, CString(L"Manual")}, std::pair{kGeoidGrid, CString(L"g")},
                                     std::pair{kPostFile, CString(L"f")}, std::pair{kPostModel, CString(L"m")}}) {
        database.SetSystemItem(kSevenSystem, key, value);
    }
    database.SaveBackupOf(kSevenSystem);
    const auto delivered = ItemsOf(database.main, kHarbourSection);
    database.RemoveSystem(kSevenSystem);
    ScriptedDesk desk;
    ZORGeoCoordSys system;
    EXPECT_TRUE(Init(system, database, Form::open));
    ExpectNothingShown(desk);
    const FileObject user = Opened(database.UserFile());
    for (const auto& [key, value] : delivered) {
        EXPECT_EQ(TextIn(user, kHarbourSection, CString::FromUtf8(key)).ToUtf8(), value) << key;
    }
    EXPECT_EQ(TextIn(user, kHarbourSection, coordsystemKeys[CoordsystemKey::chartDatum]), L"");
    double height = 0.0;
    EXPECT_TRUE(system.CalGeoidHeight(52.0, 5.0, 0.0, 0.0, height));
    EXPECT_EQ(height, 41.25);
}

TEST(ZORGeoCoordSysRestore, AdjustsThatTheBackupLacksAreReset)
{
    for (const CString& use : {kHorAdjustUse, kVertAdjustUse}) {
        BackupDatabase database;
        database.SaveBackupOf(kSevenSystem);
        for (const CString& key :
             {kHorAdjustUse, kHorAdjustOriginX, kHorAdjustOriginY, kHorAdjustRotation, kHorAdjustScale, kVertAdjustUse,
              kVertAdjustOriginX, kVertAdjustOriginY, kVertAdjustSlopeX, kVertAdjustSlopeY}) {
            database.project.DeleteItem(kBackup, key, false);
            database.SetSystemItem(kSevenSystem, key, 0.5);
        }
        database.SetSystemItem(kSevenSystem, kHorAdjustUse, false);
        database.SetSystemItem(kSevenSystem, use, true);
        database.Save();
        ScriptedDesk desk;
        desk.Answer(L"My Grid");
        ZORGeoCoordSys system;
        EXPECT_TRUE(Init(system, database, Form::open));
        EXPECT_TRUE(desk.ScriptUsedUp());
        const FileObject user = Opened(database.UserFile());
        const CString section = kSystemPrefix + L"My Grid";
        EXPECT_EQ(NumberIn(user, section, kHorAdjustUse), 0.0);
        EXPECT_EQ(NumberIn(user, section, kHorAdjustOriginX), 0.0);
        EXPECT_EQ(NumberIn(user, section, kHorAdjustScale), 1.0);
        EXPECT_EQ(NumberIn(user, section, kVertAdjustUse), 0.0);
        EXPECT_EQ(NumberIn(user, section, kVertAdjustSlopeY), 0.0);
        EXPECT_FALSE(ZORGeoCoordSysProbe::HasVertAdjust(system));
    }
}

TEST(ZORGeoCoordSysRestore, ValuesOfAnAdjustThatTheBackupLacksAreThoseOfNone)
{
    BackupDatabase database;
    database.SetSystemItem(kSevenSystem, kHorAdjustUse, true);
    database.SetSystemItem(kSevenSystem, kVertAdjustUse, true);
    database.SaveBackupOf(kSevenSystem);
    for (const CString& key : {kHorAdjustOriginX, kHorAdjustOriginY, kHorAdjustRotation, kHorAdjustScale,
                               kVertAdjustOriginX, kVertAdjustOriginY, kVertAdjustSlopeX, kVertAdjustSlopeY}) {
        database.project.DeleteItem(kBackup, key, false);
        database.SetSystemItem(kSevenSystem, key, 2.0);
    }
    database.Save();
    ScriptedDesk desk;
    desk.Answer(L"My Grid");
    ZORGeoCoordSys system;
    EXPECT_TRUE(Init(system, database, Form::open));
    const FileObject user = Opened(database.UserFile());
    const CString section = kSystemPrefix + L"My Grid";
    EXPECT_EQ(NumberIn(user, section, kHorAdjustUse), 1.0);
    EXPECT_EQ(NumberIn(user, section, kVertAdjustUse), 1.0);
    for (const CString& key : {kHorAdjustOriginX, kHorAdjustOriginY, kHorAdjustRotation, kVertAdjustOriginX,
                               kVertAdjustOriginY, kVertAdjustSlopeX, kVertAdjustSlopeY}) {
        EXPECT_EQ(NumberIn(user, section, key), 0.0) << key.ToUtf8();
    }
    EXPECT_EQ(NumberIn(user, section, kHorAdjustScale), 1.0);
}

TEST(ZORGeoCoordSysRestore, SatelliteEllipsoidOfAnotherNameStays)
{
    BackupDatabase database;
    AddEllipsoid(database.main, {L"PZ-90", 6378136.0, 0.0066943661});
    database.main.SetItem(kDatumPrefix + L"Seven", transParamKeys[TransKey::source], L"PZ-90", true);
    database.SaveBackupOf(kSevenSystem);
    database.main.DeleteSection(kDatumPrefix + L"Seven");
    database.RemoveSystem(kSevenSystem);
    ScriptedDesk desk;
    ZORGeoCoordSys system;
    EXPECT_TRUE(Init(system, database, Form::named));
    ExpectNothingShown(desk);
    EXPECT_EQ(system.GetSrcElpName(), L"PZ-90");
    EXPECT_EQ(TextIn(Opened(database.UserFile()), kDatumPrefix + L"Seven", transParamKeys[TransKey::source]), L"PZ-90");
}

TEST(ZORGeoCoordSysRestore, AdjustsThatAreOffAreWrittenAsNone)
{
    BackupDatabase database;
    database.SaveBackupOf(kSevenSystem);
    for (const CString& key : {kHorAdjustOriginX, kHorAdjustScale, kVertAdjustOriginX, kVertAdjustSlopeY}) {
        database.SetBackupItem(key, 7.0);
    }
    database.RemoveSystem(kSevenSystem);
    ZORGeoCoordSys system;
    EXPECT_TRUE(Init(system, database, Form::silent));
    const FileObject user = Opened(database.UserFile());
    EXPECT_EQ(NumberIn(user, kHarbourSection, kHorAdjustOriginX), 0.0);
    EXPECT_EQ(NumberIn(user, kHarbourSection, kHorAdjustScale), 1.0);
    EXPECT_EQ(NumberIn(user, kHarbourSection, kVertAdjustOriginX), 0.0);
    EXPECT_EQ(NumberIn(user, kHarbourSection, kVertAdjustSlopeY), 0.0);
}

TEST(ZORGeoCoordSysRestore, SettingsCountWhenTheyAreOn)
{
    BackupDatabase database;
    database.SaveBackupOf(kSevenSystem);
    for (const CString& key : {kGeoidMethod, kGeoidGrid}) {
        database.SetBackupItem(key, CString(L"unused"));
    }
    database.SetBackupItem(kPostX, 7.0);
    database.SetBackupItem(kPostFile, CString(L"always.txt"));
    database.RemoveSystem(kSevenSystem);
    ZORGeoCoordSys system;
    EXPECT_TRUE(Init(system, database, Form::silent));
    const FileObject user = Opened(database.UserFile());
    EXPECT_EQ(TextIn(user, kHarbourSection, kGeoidMethod), L"");
    EXPECT_EQ(NumberIn(user, kHarbourSection, kPostX), 0.0);
    EXPECT_EQ(TextIn(user, kHarbourSection, kPostFile), L"always.txt");
}

TEST(ZORGeoCoordSysRestore, EllipsoidsAndUnitThatAreAbsentComeAlong)
{
    BackupDatabase database;
    database.SaveBackupOf(kSevenSystem);
    database.main.DeleteSection(kEllipsoidPrefix + L"WGS84");
    database.main.DeleteSection(kEllipsoidPrefix + L"Bessel 1841");
    database.main.DeleteSection(kUnitsSection);
    database.RemoveSystem(kSevenSystem);
    ScriptedDesk desk;
    ZORGeoCoordSys system;
    EXPECT_TRUE(Init(system, database, Form::silent));
    const FileObject user = Opened(database.UserFile());
    EXPECT_EQ(NumberIn(user, kEllipsoidPrefix + L"WGS84", kSemiMajor), 6378137.0);
    EXPECT_NEAR(NumberIn(user, kEllipsoidPrefix + L"WGS84", kEccSquared), 0.00669437999014, 2e-18);
    EXPECT_EQ(NumberIn(user, kEllipsoidPrefix + L"Bessel 1841", kSemiMajor), 6377397.155);
    EXPECT_NEAR(NumberIn(user, kEllipsoidPrefix + L"Bessel 1841", kEccSquared), 0.006674372231, 2e-18);
    EXPECT_EQ(TextIn(user, kUnitsSection, L"Meters"), L"1.000000,m");
}

TEST(ZORGeoCoordSysRestore, ZoneAndHemisphereDoNotGoAlong)
{
    BackupDatabase database;
    const CString section = kProjectionPrefix + L"TM 5 East";
    database.main.SetItem(section, projectionParamKeys[ProjectionKey::type], 1, true);
    database.main.SetItem(section, kProjectionMethod, L"Universal Transverse Mercator", true);
    database.main.SetItem(section, projectionParamKeys[ProjectionKey::utmZone], L"Zone 31     (  3 E)", true);
    database.main.SetItem(section, projectionParamKeys[ProjectionKey::hemisphere], L"Northern", true);
    database.SaveBackupOf(kSevenSystem);
    database.main.DeleteSection(section);
    database.RemoveSystem(kSevenSystem);
    ZORGeoCoordSys system;
    EXPECT_TRUE(Init(system, database, Form::silent));
    const FileObject user = Opened(database.UserFile());
    // Numbers of the catalogue's list, which has no texts.
    EXPECT_EQ(TextIn(user, section, projectionParamKeys[ProjectionKey::utmZone]), L"0");
    EXPECT_EQ(TextIn(user, section, projectionParamKeys[ProjectionKey::hemisphere]), L"0");
}

TEST(ZORGeoCoordSysRestore, RestoredSystemTakesTheUnitThatWasAsked)
{
    for (const bool found : {false, true}) {
        BackupDatabase database;
        database.SaveBackupOf(kSevenSystem);
        if (found) {
            ChangeSystem(database);
            database.Save();
        } else {
            database.RemoveSystem(kSevenSystem);
        }
        ScriptedDesk desk;
        desk.Answer(L"My Grid");
        ZORGeoCoordSys system;
        EXPECT_TRUE(Init(system, database, Form::open, kSevenSystem, {.unit = L"Feet"}));
        double factor = 0.0;
        system.GetLinearUnitCnv(factor);
        EXPECT_EQ(factor, 0.3048);
        EXPECT_EQ(Ellipsoid::UnitFactor(), 0.3048);
        CString name;
        system.GetLinearUnitName(name);
        EXPECT_EQ(name, L"Meters");
        EXPECT_EQ(
            TextIn(Opened(database.UserFile()), found ? kSystemPrefix + L"My Grid" : kHarbourSection, kSystemUnit),
            L"Meters");
    }
}

TEST(ZORGeoCoordSysRestore, UnitOfFactorZeroActsAsMetres)
{
    BackupDatabase database;
    AddUnit(database.main, L"Nothing", L"0.000000,n");
    database.main.SetItem(kProjectionPrefix + L"TM 5 East", kProjectionUnit, L"Nothing", true);
    database.SetSystemItem(kSevenSystem, kSystemUnit, CString(L"Nothing"));
    database.SaveBackupOf(kSevenSystem);
    Ellipsoid::SetUnitFactor(2.0);
    CDatumTransform::SetUnitCnv(2.0);
    ZORGeoCoordSys system;
    ZORGeoCoordSysProbe::SetProject(system, database.project);
    ASSERT_TRUE(ZORGeoCoordSysProbe::OpenDatabase(system));
    EXPECT_TRUE(ZORGeoCoordSysProbe::RestoreBackup(system, kGroup, L"My Grid"));
    EXPECT_EQ(Ellipsoid::UnitFactor(), 1.0);
    EXPECT_EQ(CDatumTransform::m_unitCnv, 1.0);
    EXPECT_TRUE(system.GetGeoDatabase().HasSystem(L"My Grid", GeoDbUser)) << "the database was read again";
    double factor = -1.0;
    short format = 0;
    CString suffix;
    system.GetLinearUnitParameters(factor, format, suffix);
    EXPECT_EQ(factor, 0.0);
    EXPECT_EQ(format, 3) << "the project's number";
    EXPECT_EQ(suffix, L"n");
}

TEST(ZORGeoCoordSysRestore, EllipsoidIsCalledAfterItsSection)
{
    BackupDatabase database;
    database.SaveBackupOf(kSevenSystem);
    ZORGeoCoordSys system;
    ZORGeoCoordSysProbe::SetProject(system, database.project);
    ASSERT_TRUE(ZORGeoCoordSysProbe::OpenDatabase(system));
    EXPECT_TRUE(ZORGeoCoordSysProbe::RestoreBackup(system, kGroup, L"My Grid"));
    std::wostringstream xml;
    system.DumpEllipsoidXml(xml, L"");
    EXPECT_NE(xml.str().find(L"ELLIPSOID_BACKUP"), std::wstring::npos) << "the record's name";
    EXPECT_EQ(system.GetEllipsoidName(), L"Bessel 1841");
    EXPECT_EQ(TextIn(Opened(database.UserFile()), kSystemPrefix + L"My Grid", kSystemEllipsoid), L"Bessel 1841");
}

TEST(ZORGeoCoordSysRestore, ProjectWithoutAFileServesAsWell)
{
    BackupDatabase database;
    database.SaveBackupOf(kSevenSystem);
    ChangeSystem(database);
    database.Save();
    FileObject project;
    project.ApplyDifference(database.project);
    ScriptedDesk desk;
    desk.Answer(L"My Grid");
    ZORGeoCoordSys system;
    EXPECT_TRUE(InitOpen(system, project, kSevenSystem, false));
    EXPECT_TRUE(desk.messages.empty());
    EXPECT_EQ(TextIn(project, kBackup, kBackupSystem), L"My Grid");
}

TEST(ZORGeoCoordSysRestore, ReadOnlyUserFileIsWrittenThroughItsAttribute)
{
    BackupDatabase database;
    database.SaveBackupOf(kSevenSystem);
    database.RemoveSystem(kSevenSystem);
    CFileStatus status;
    ASSERT_TRUE(CFile::GetStatus(database.UserFile(), status));
    status.attribute |= CFileStatus::readOnly;
    CFile::SetStatus(database.UserFile(), status);
    ScriptedDesk desk;
    ZORGeoCoordSys system;
    EXPECT_TRUE(Init(system, database, Form::named));
    ExpectNothingShown(desk);
    ASSERT_TRUE(CFile::GetStatus(database.UserFile(), status));
    EXPECT_NE(status.attribute & CFileStatus::readOnly, 0u);
}
