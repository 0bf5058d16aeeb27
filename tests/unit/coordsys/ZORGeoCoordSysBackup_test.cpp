#include <filesystem>

#include "tests/support/TestGeoidModels.h"
#include "tests/unit/coordsys/BackupFixture.h"

namespace {

const CString kBackup = COORDSYSTEM_BACKUP_SECTION;

// Keys of the backup of a system that uses no geoid.
const std::vector<std::string> kKeysWithoutGeoid = {"CoordSystem",
                                                    "CoordSystem group",
                                                    "Datumtransform name",
                                                    "Projection name",
                                                    "Projection type",
                                                    "Projection medthod",
                                                    "Unit name",
                                                    "Ellipsoid name",
                                                    "Geoid model use statu",
                                                    "Post X coorection",
                                                    "Post Y coorection",
                                                    "Post Z coorection",
                                                    "Post coorection file",
                                                    "Post coorection model",
                                                    "Post coorection statu",
                                                    "Post horizontal adjust statu",
                                                    "Post horizonal origin X",
                                                    "Post horizonal origin Y",
                                                    "Post horizonal rotation",
                                                    "Post horizonal scale",
                                                    "Post vertical adjust statu",
                                                    "Post vertical origin X",
                                                    "Post vertical origin Y",
                                                    "Post vertical slope X",
                                                    "Post vertical slope Y"};

std::vector<std::string> KeysWithGeoid(const std::vector<std::string>& geoidKeys)
{
    std::vector<std::string> keys = kKeysWithoutGeoid;
    keys.insert(keys.begin() + 9, geoidKeys.begin(), geoidKeys.end());
    return keys;
}

void SetGeoid(SurveyDatabase& database, const CString& method, const CString& grid, bool use = true)
{
    database.SetSystemItem(kSevenSystem, kGeoidUse, use);
    database.SetSystemItem(kSevenSystem, kGeoidMethod, method);
    database.SetSystemItem(kSevenSystem, kGeoidGrid, grid);
}

} // namespace

TEST(ZORGeoCoordSysBackup, SavesTheReferenceInItsOrder)
{
    BackupDatabase database;
    SetGeoid(database, L"EGM2008", L"own.gtx");
    ZORGeoCoordSys system;
    MakeReady(system, database, kSevenSystem,
              {.geoidModel = L"EGM96",
               .geoidFile = L"egm96.gtx",
               .chartDatum = L"LAT",
               .postModel = L"--None--",
               .postFile = L"post.txt",
               .unit = L"Feet"});
    FileObject project;
    EXPECT_TRUE(system.Save(project));
    // Arguments as they were given, and the unit of the system's record, not the one in effect.
    EXPECT_EQ(ItemsOf(project, COORDSYSTEM_SECTION), (Items{{"Group name", "Harbours"},
                                                            {"System name", "Harbour Grid"},
                                                            {"Geoid method", "EGM96"},
                                                            {"Geoid grid", "egm96.gtx"},
                                                            {"Post model", "--None--"},
                                                            {"Post file", "post.txt"},
                                                            {"Chart datum", "LAT"},
                                                            {"Linear unit", "Meters"},
                                                            {"Module", "ZORCoordSys"},
                                                            {"GeodesyVersion", "1.0.1"}}));
    EXPECT_FALSE(project.HasSection(kBackup));
}

TEST(ZORGeoCoordSysBackup, SavesEmptyTextsWhereNothingWasAsked)
{
    BackupDatabase database;
    ZORGeoCoordSys system;
    MakeReady(system, database, kSevenSystem);
    FileObject project;
    project.SetItem(COORDSYSTEM_SECTION, L"Geoid method", L"old", true);
    EXPECT_TRUE(system.Save(project));
    for (const wchar_t* key : {L"Geoid method", L"Geoid grid", L"Post model", L"Post file", L"Chart datum"}) {
        EXPECT_EQ(TextIn(project, COORDSYSTEM_SECTION, key), L"") << CString(key).ToUtf8();
    }
}

TEST(ZORGeoCoordSysBackup, WritesTheWholeSystemInItsOrder)
{
    BackupDatabase database;
    database.SetSystemItem(kSevenSystem, kPostUse, true);
    database.SetSystemItem(kSevenSystem, kPostX, 1.5);
    database.SetSystemItem(kSevenSystem, kPostY, -2.5);
    database.SetSystemItem(kSevenSystem, kPostZ, 0.25);
    database.SetSystemItem(kSevenSystem, kPostFile, CString(L"post.txt"));
    database.SetSystemItem(kSevenSystem, kPostModel, CString(L"Old model"));
    database.SetSystemItem(kSevenSystem, kHorAdjustUse, true);
    database.SetSystemItem(kSevenSystem, kHorAdjustOriginX, 100.0);
    database.SetSystemItem(kSevenSystem, kHorAdjustOriginY, 200.0);
    database.SetSystemItem(kSevenSystem, kHorAdjustRotation, 3.5);
    database.SetSystemItem(kSevenSystem, kHorAdjustScale, 1.0001);
    database.SetSystemItem(kSevenSystem, kVertAdjustUse, true);
    database.SetSystemItem(kSevenSystem, kVertAdjustOriginX, 10.0);
    database.SetSystemItem(kSevenSystem, kVertAdjustOriginY, 20.0);
    database.SetSystemItem(kSevenSystem, kVertAdjustSlopeX, 5.0);
    database.SetSystemItem(kSevenSystem, kVertAdjustSlopeY, -6.0);
    ZORGeoCoordSys system;
    MakeReady(system, database, kSevenSystem);
    FileObject project;
    EXPECT_TRUE(system.SaveBackup(project));
    EXPECT_EQ(ItemsOf(project, kBackup), (Items{{"CoordSystem", "Harbour Grid"},
                                                {"CoordSystem group", "Harbours"},
                                                {"Datumtransform name", "Seven"},
                                                {"Projection name", "TM 5 East"},
                                                {"Projection type", "0"},
                                                {"Projection medthod", "Transverse Mercator"},
                                                {"Unit name", "Meters"},
                                                {"Ellipsoid name", "Bessel 1841"},
                                                {"Geoid model use statu", "0"},
                                                {"Post X coorection", "1.5"},
                                                {"Post Y coorection", "-2.5"},
                                                {"Post Z coorection", "0.25"},
                                                {"Post coorection file", "post.txt"},
                                                {"Post coorection model", "Old model"},
                                                {"Post coorection statu", "1"},
                                                {"Post horizontal adjust statu", "1"},
                                                {"Post horizonal origin X", "100"},
                                                {"Post horizonal origin Y", "200"},
                                                {"Post horizonal rotation", "3.5"},
                                                {"Post horizonal scale", "1.0001"},
                                                {"Post vertical adjust statu", "1"},
                                                {"Post vertical origin X", "10"},
                                                {"Post vertical origin Y", "20"},
                                                {"Post vertical slope X", "5"},
                                                {"Post vertical slope Y", "-6"}}));
    // Not the unit's name but its record.
    EXPECT_EQ(ItemsOf(project, L"UINT_BACKUP"), (Items{{"Unit name", "1.000000,m"}}));
    EXPECT_EQ(ItemsOf(project, L"ELLIPSOID_BACKUP"),
              (Items{{"SemiMajor", "6377397.155"}, {"EccSqrd", "0.006674372231"}}));
    EXPECT_EQ(ItemsOf(project, L"GEODESY_PROJECTION_BACKUP"), (Items{{"LatOrigin", "0"},
                                                                     {"LonOrigin", "5"},
                                                                     {"FalseEasting", "5e+05"},
                                                                     {"FalseNorthing", "0"},
                                                                     {"ScaleFactor", "0.9996"},
                                                                     {"GridSkew", "0"},
                                                                     {"Projection type", "0"}}));
    std::vector<std::string> datumKeys = {"Method name"};
    for (const int key : {2, 3, 4, 5, 6, 7, 8, 9, 10, 12, 13, 14, 15, 16, 17, 18, 19}) {
        datumKeys.push_back(transParamKeys.at(static_cast<std::size_t>(key)).ToUtf8());
    }
    datumKeys.insert(datumKeys.end(), {"SrcSma", "SrcSe", "DstSma", "DstSe"});
    for (const int key : {20, 21, 22}) {
        datumKeys.push_back(transParamKeys.at(static_cast<std::size_t>(key)).ToUtf8());
    }
    EXPECT_EQ(KeysOf(project, L"GEODESY_DTF_BACKUP"), datumKeys);
    EXPECT_EQ(TextIn(project, L"GEODESY_DTF_BACKUP", L"Method name"), kMethodBursaWolfe7);
    EXPECT_EQ(TextIn(project, L"GEODESY_DTF_BACKUP", transParamKeys[TransKey::source]), L"WGS84");
    EXPECT_EQ(NumberIn(project, L"GEODESY_DTF_BACKUP", L"SrcSma"), 6378137.0);
    EXPECT_EQ(NumberIn(project, L"GEODESY_DTF_BACKUP", transParamKeys[TransKey::scale]), -4.07244);
}

TEST(ZORGeoCoordSysBackup, WritesNoPartThatTheSystemHasNot)
{
    BackupDatabase database;
    database.main.DeleteSection(kProjectionPrefix + L"TM 5 East");
    database.Save();
    ZORGeoCoordSys system;
    EXPECT_FALSE(InitOpen(system, database.project, kSevenSystem, true)); // stops at the projection
    FileObject project;
    project.SetItem(kDatumBackup, L"Method name", L"of another system", true);
    EXPECT_TRUE(system.SaveBackup(project));
    EXPECT_EQ(KeysOf(project, kBackup), kKeysWithoutGeoid);
    EXPECT_TRUE(project.HasKey(L"UINT_BACKUP", L"Unit name"));
    EXPECT_EQ(NumberIn(project, L"ELLIPSOID_BACKUP", L"SemiMajor"), 6377397.155);
    EXPECT_FALSE(project.HasSection(kProjectionBackup));
    EXPECT_EQ(ItemsOf(project, kDatumBackup), (Items{{"Method name", "of another system"}}));
}

TEST(ZORGeoCoordSysBackup, ObjectThatWasNeverInitialisedIsNoCrash)
{
    TestDatabase database;
    ZORGeoCoordSys system;
    FileObject project;
    EXPECT_TRUE(system.Save(project));
    EXPECT_TRUE(system.SaveBackup(project));
    EXPECT_EQ(KeysOf(project, kBackup), kKeysWithoutGeoid);
}

TEST(ZORGeoCoordSysBackup, HoldsTheDatabasesGeoidAndNotTheProjectsOwn)
{
    TestGeoidSettings settings = ConstantGeoid(40.0);
    const ScopedGeoidModel<7> egm96(settings);
    BackupDatabase database;
    SetGeoid(database, L"OSGM02 - GB", L"delivered.txt");
    ZORGeoCoordSys system;
    MakeReady(system, database, kSevenSystem, {.geoidModel = L"EGM96", .geoidFile = L"egm96.gtx"});
    FileObject project;
    EXPECT_TRUE(system.SaveBackup(project));
    EXPECT_EQ(KeysOf(project, kBackup), KeysWithGeoid({"Geoid model method", "Geoid model grid"}));
    EXPECT_EQ(TextIn(project, kBackup, kGeoidUse), L"1");
    EXPECT_EQ(TextIn(project, kBackup, kGeoidMethod), L"OSGM02 - GB");
    EXPECT_EQ(TextIn(project, kBackup, kGeoidGrid), L"delivered.txt");
    EXPECT_EQ(system.GetGeoidModelMd(), L"EGM96");
    EXPECT_EQ(system.GetGeoidGrid(), L"egm96.gtx");
}

TEST(ZORGeoCoordSysBackup, TakesTheDatabasesAnswerForTheUseOfAGeoidAndKeepsIt)
{
    TestGeoidSettings settings = ConstantGeoid(40.0);
    const ScopedGeoidModel<7> egm96(settings);
    BackupDatabase database;
    ZORGeoCoordSys system;
    MakeReady(system, database, kSevenSystem, {.geoidModel = L"EGM96"});
    ASSERT_TRUE(system.HasGeoidModel());
    FileObject project;
    EXPECT_TRUE(system.SaveBackup(project));
    EXPECT_EQ(KeysOf(project, kBackup), KeysWithGeoid({"Geoid model method", "Geoid model grid"}));
    EXPECT_EQ(TextIn(project, kBackup, kGeoidUse), L"0");
    EXPECT_EQ(TextIn(project, kBackup, kGeoidMethod), L"");
    EXPECT_EQ(TextIn(project, kBackup, kGeoidGrid), L"");
    EXPECT_FALSE(system.HasGeoidModel());
}

TEST(ZORGeoCoordSysBackup, LeavesGeoidKeysAloneWhenNoGeoidIsInUse)
{
    BackupDatabase database;
    SetGeoid(database, L"EGM96", L"egm96.gtx");
    ZORGeoCoordSys system;
    MakeReady(system, database, kSevenSystem, {.geoidModel = L"--None--"});
    FileObject project;
    project.SetItem(kBackup, kGeoidMethod, L"older", true);
    project.SetItem(kBackup, kGeoidGrid, L"older.gtx", true);
    EXPECT_TRUE(system.SaveBackup(project));
    EXPECT_EQ(TextIn(project, kBackup, kGeoidUse), L"0");
    EXPECT_EQ(TextIn(project, kBackup, kGeoidMethod), L"older");
    EXPECT_EQ(TextIn(project, kBackup, kGeoidGrid), L"older.gtx");
}

TEST(ZORGeoCoordSysBackup, ManualSeparationGoesByTheMethodInEffect)
{
    struct Case {
        const wchar_t* stored;
        const wchar_t* asked;
        bool use; ///< by the database
        bool written;
        const wchar_t* method;
    };
    TestGeoidSettings settings = ConstantGeoid(40.0);
    const ScopedGeoidModel<7> egm96(settings);
    for (const Case& row :
         {Case{L"Manual", L"", true, true, L"Manual"}, Case{L"EGM96", L"Manual", true, true, L"EGM96"},
          Case{L"Manual", L"EGM96", true, false, L"Manual"}, Case{L"EGM96", L"Manual", false, true, L""},
          Case{L"Manual", L"", false, false, L"(missing)"}}) {
        BackupDatabase database;
        SetGeoid(database, row.stored, L"grid.gtx", row.use);
        database.SetSystemItem(kSevenSystem, kGeoidManual, 41.25);
        ZORGeoCoordSys system;
        MakeReady(system, database, kSevenSystem, {.geoidModel = row.asked});
        FileObject project;
        EXPECT_TRUE(system.SaveBackup(project));
        EXPECT_EQ(project.HasKey(kBackup, kGeoidManual), row.written) << CString(row.asked).ToUtf8();
        EXPECT_EQ(TextIn(project, kBackup, kGeoidMethod), row.method);
        if (row.written) {
            EXPECT_EQ(NumberIn(project, kBackup, kGeoidManual), 41.25);
            EXPECT_EQ(KeysOf(project, kBackup),
                      KeysWithGeoid({"Geoid model method", "Geoid model grid", "Manual input value"}));
        }
    }
}

TEST(ZORGeoCoordSysBackup, SecondRunGivesTheSameFile)
{
    for (const CString& name : {kSevenSystem, kFourteenSystem, kPlainSystem}) {
        BackupDatabase database;
        SetGeoid(database, L"Manual", L"");
        ZORGeoCoordSys system;
        MakeReady(system, database, name);
        const CString first = database.Directory().File("first.prj");
        const CString second = database.Directory().File("second.prj");
        FileObject project;
        EXPECT_TRUE(system.SaveBackup(project));
        ASSERT_TRUE(project.FileSave(first, FileMode::saveExclusive));
        EXPECT_TRUE(system.SaveBackup(project));
        ASSERT_TRUE(project.FileSave(second, FileMode::saveExclusive));
        EXPECT_EQ(database.Directory().Read("first.prj"), database.Directory().Read("second.prj"));
    }
}

TEST(ZORGeoCoordSysBackup, NeitherWritesADiskFileNorDeletes)
{
    BackupDatabase database;
    database.project.SetItem(kLegacyDatumBackup, L"Method name", L"older", true);
    database.project.SetItem(kBackup, L"Of the host", 1, true);
    ZORGeoCoordSys system;
    MakeReady(system, database, kSevenSystem);
    const auto before = BytesOf(database);
    EXPECT_TRUE(system.Save(database.project));
    EXPECT_TRUE(system.SaveBackup(database.project));
    EXPECT_EQ(BytesOf(database), before);
    EXPECT_TRUE(database.project.HasKey(kLegacyDatumBackup, L"Method name"));
    EXPECT_TRUE(database.project.HasKey(kBackup, L"Of the host"));
    EXPECT_FALSE(database.project.HasSection(kLegacyProjectionBackup));
}

TEST(ZORGeoCoordSysBackup, FileIsSavedThroughItsReadOnlyAttribute)
{
    TestDatabase database;
    database.project.SetItem(L"Section", L"Key", 1, true);
    ZORGeoCoordSys system;
    ZORGeoCoordSysProbe::FileObjectSave(system, database.project);
    EXPECT_EQ(NumberIn(Opened(database.ProjectFile()), L"Section", L"Key"), 1.0);
    CFileStatus status;
    ASSERT_TRUE(CFile::GetStatus(database.ProjectFile(), status));
    EXPECT_EQ(status.attribute & CFileStatus::readOnly, 0u);
    status.attribute |= CFileStatus::readOnly;
    CFile::SetStatus(database.ProjectFile(), status);
    database.project.SetItem(L"Section", L"Key", 2, true);
    ZORGeoCoordSysProbe::FileObjectSave(system, database.project);
    EXPECT_EQ(NumberIn(Opened(database.ProjectFile()), L"Section", L"Key"), 2.0);
    ASSERT_TRUE(CFile::GetStatus(database.ProjectFile(), status));
    EXPECT_NE(status.attribute & CFileStatus::readOnly, 0u);
    FileObject nameless;
    ZORGeoCoordSysProbe::FileObjectSave(system, nameless); // nothing to save, nothing thrown
}
