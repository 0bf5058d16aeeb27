#include <gmock/gmock.h>

#include "tests/support/ScriptedDesk.h"
#include "tests/unit/database/DatabaseFixture.h"

#if !defined(_WIN32)
#include <unistd.h>
#endif

namespace {

/// A main file with the system "Dock" and a user file with "Mine", both of group "Ports".
class ZorGeoDatabaseCorrections : public DatabaseTest {
protected:
    void OpenWith(ZorGeoDatabase& database, const GeoText::Entries& mainRecord, const GeoText::Entries& userRecord)
    {
        Open(database, GeoText().List(L"Gp-Ports", {"Dock"}).Section(L"Sys-Dock", mainRecord),
             GeoText().List(L"Gp-Ports", {"Mine"}).Section(L"Sys-Mine", userRecord));
    }
    bool UserFileIsReadOnly() const
    {
        CFileStatus status;
        return CFile::GetStatus(userDirectory.File("zorusergeobase.geo"), status) &&
               (status.attribute & CFileStatus::readOnly) != 0;
    }
    void MakeUserFileReadOnly() const
    {
        std::filesystem::permissions(userDirectory.Path() / "zorusergeobase.geo",
                                     std::filesystem::perms::owner_read | std::filesystem::perms::group_read |
                                         std::filesystem::perms::others_read);
    }
};

/// Text under a key of system "Mine" on the disk; "<none>" when there is no such key.
CString OnDisk(const TempDirectory& directory, const wchar_t* key)
{
    FileObject file;
    CString text = L"<none>";
    EXPECT_TRUE(file.FileOpen(directory.File("zorusergeobase.geo"), FileMode::openForReading));
    file.GetItem(L"Sys-Mine", key, text);
    return text;
}

/// Counts calls of Init.
class CountingDatabase : public ZorGeoDatabase {
public:
    bool Init() override
    {
        ++inits;
        return answer && ZorGeoDatabase::Init();
    }
    int inits = 0;
    bool answer = true;
};

} // namespace

TEST_F(ZorGeoDatabaseCorrections, TextsComeFromTheirKeys)
{
    struct Case {
        const wchar_t* key;
        CString (ZorGeoDatabase::*get)(CString, CString);
    };
    const Case cases[] = {
        {L"Geoid model method", &ZorGeoDatabase::GetDefaultGeoidModelMd},
        {L"Geoid model grid", &ZorGeoDatabase::GetDefaultGeoidGrid},
        {L"Post coorection file", &ZorGeoDatabase::GetDefaultGridCorrectionFile},
        {L"Post coorection model", &ZorGeoDatabase::GetDefaultGridCorrectionModel},
    };
    for (const Case& c : cases) {
        ZorGeoDatabase database;
        OpenWith(database, {{c.key, "of the main file"}}, {{c.key, "of the user file"}});
        EXPECT_EQ((database.*c.get)(L"Ports", L"Dock"), L"of the main file");
        EXPECT_EQ((database.*c.get)(L"Ports", L"Mine"), L"of the user file");
        EXPECT_EQ((database.*c.get)(L"Ports", L"None"), L"");
        EXPECT_EQ((database.*c.get)(L"None", L"Dock"), L"");
        OpenWith(database, {{L"Other", "x"}}, {{L"Other", "x"}});
        EXPECT_EQ((database.*c.get)(L"Ports", L"Dock"), L"");
    }
}

TEST_F(ZorGeoDatabaseCorrections, SystemInBothFilesIsReadFromTheMainFile)
{
    ZorGeoDatabase database;
    Open(database, GeoText().List(L"Gp-Ports", {"Dock"}).Section(L"Sys-Dock", {{L"Geoid model method", "main"}}),
         GeoText().List(L"Gp-Ports", {"Dock"}).Section(L"Sys-Dock", {{L"Geoid model method", "user"}}));
    EXPECT_EQ(database.GetDefaultGeoidModelMd(L"Ports", L"Dock"), L"main");
}

TEST_F(ZorGeoDatabaseCorrections, FlagsComeFromTheirKeysAndAreFalseForAMiss)
{
    struct Case {
        const wchar_t* key;
        bool (ZorGeoDatabase::*has)(CString, CString);
    };
    const Case cases[] = {
        {L"Geoid model use statu", &ZorGeoDatabase::HasGeoidModel},
        {L"Post coorection statu", &ZorGeoDatabase::HasPostCorrection},
        {L"Post horizontal adjust statu", &ZorGeoDatabase::HasPostHorAdjust},
        {L"Post vertical adjust statu", &ZorGeoDatabase::HasPostVertAdjust},
    };
    for (const Case& c : cases) {
        ZorGeoDatabase database;
        OpenWith(database, {{c.key, "1"}}, {{c.key, "0"}});
        EXPECT_TRUE((database.*c.has)(L"Ports", L"Dock"));
        EXPECT_FALSE((database.*c.has)(L"Ports", L"Mine"));
        EXPECT_FALSE((database.*c.has)(L"Ports", L"None"));
        EXPECT_FALSE((database.*c.has)(L"None", L"Dock"));
    }
}

TEST_F(ZorGeoDatabaseCorrections, GeoidModelWithoutItsSwitchIsOff)
{
    ZorGeoDatabase database;
    OpenWith(database, {}, {{L"Geoid model method", "OSGM"}, {L"Geoid model grid", "osgm15.gtx"}});
    EXPECT_FALSE(database.HasGeoidModel(L"Ports", L"Mine"));
}

TEST_F(ZorGeoDatabaseCorrections, CorrectionsComeFromTheirKeys)
{
    ZorGeoDatabase database;
    OpenWith(database,
             {{L"Post X coorection", "1.5"},
              {L"Post Y coorection", "2.5"},
              {L"Post Z coorection", "3.5"},
              {L"Post horizonal origin X", "11"},
              {L"Post horizonal origin Y", "12"},
              {L"Post horizonal rotation", "13"},
              {L"Post horizonal scale", "14"},
              {L"Post vertical origin X", "21"},
              {L"Post vertical origin Y", "22"},
              {L"Post vertical slope X", "23"},
              {L"Post vertical slope Y", "24"}},
             {});
    double x = 0, y = 0, z = 0;
    database.GetGridCorrection(L"Ports", L"Dock", x, y, z);
    EXPECT_EQ(x, 1.5);
    EXPECT_EQ(y, 2.5);
    EXPECT_EQ(z, 3.5);
    double originX = 0, originY = 0, third = 0, fourth = 0;
    database.GetPostHorAdjust(L"Ports", L"Dock", originX, originY, third, fourth);
    EXPECT_EQ(originX, 11);
    EXPECT_EQ(originY, 12);
    EXPECT_EQ(third, 13);
    EXPECT_EQ(fourth, 14);
    database.GetPostVertAdjust(L"Ports", L"Dock", originX, originY, third, fourth);
    EXPECT_EQ(originX, 21);
    EXPECT_EQ(originY, 22);
    EXPECT_EQ(third, 23);
    EXPECT_EQ(fourth, 24);
}

TEST_F(ZorGeoDatabaseCorrections, MissingCorrectionsLeaveTheOutputs)
{
    ZorGeoDatabase database;
    OpenWith(database, {{L"Post Y coorection", "2.5"}}, {});
    double x = 7, y = 8, z = 9, w = 10;
    database.GetGridCorrection(L"Ports", L"None", x, y, z);
    EXPECT_EQ(y, 8);
    database.GetGridCorrection(L"Ports", L"Dock", x, y, z);
    EXPECT_EQ(x, 7);
    EXPECT_EQ(y, 2.5);
    EXPECT_EQ(z, 9);
    database.GetPostHorAdjust(L"Ports", L"Dock", x, y, z, w);
    database.GetPostVertAdjust(L"Ports", L"Dock", x, y, z, w);
    EXPECT_EQ(x, 7);
    EXPECT_EQ(y, 2.5);
    EXPECT_EQ(z, 9);
    EXPECT_EQ(w, 10);
}

TEST_F(ZorGeoDatabaseCorrections, GroupInBothFilesGivesTwoAnswersOnGeoidMethods)
{
    ZorGeoDatabase database;
    Open(database,
         GeoText()
             .Section(L"Gp-Ports", {{L"Supported geoid model methods", "OSGM,Manual"}})
             .Section(L"Gp-Main", {{L"Supported geoid model methods", "EGM96"}}),
         GeoText().Section(L"Gp-Ports", {{L"Supported geoid model methods", "EGM2008"}}));
    EXPECT_EQ(database.GetSupportedGeoidModels(L"Ports", L"any"), L"OSGM,Manual");
    EXPECT_EQ(database.GetCustomSupportedGeoidModels(L"Ports", L"any"), L"EGM2008");
    EXPECT_EQ(database.GetSupportedGeoidModels(L"Main", L""), L"EGM96");
    EXPECT_EQ(database.GetCustomSupportedGeoidModels(L"Main", L""), L"");
    EXPECT_EQ(database.GetSupportedGeoidModels(L"None", L""), L"");
}

TEST_F(ZorGeoDatabaseCorrections, SeparationOfAnotherMethodIsZero)
{
    ZorGeoDatabase database;
    OpenWith(database, {{L"Geoid model method", "Manual"}, {L"Manual input value", "43.25"}},
             {{L"Geoid model method", "OSGM"}});
    EXPECT_EQ(database.GetGeoidManualSeparation(L"Ports", L"Dock"), 43.25);
    EXPECT_EQ(database.GetGeoidManualSeparation(L"Ports", L"Mine"), 0.0);
    EXPECT_EQ(database.GetGeoidManualSeparation(L"Ports", L"None"), 0.0);
}

TEST_F(ZorGeoDatabaseCorrections, SystemsOutsideTheUserFileCannotBeChanged)
{
    CountingDatabase database;
    OpenWith(database, {{L"Geoid model method", "OSGM"}}, {{L"Unit name", "Meters"}});
    const std::string mainBefore = mainDirectory.Read("zorgeodatabase.geo");
    const std::string userBefore = userDirectory.Read("zorusergeobase.geo");
    // In the main file; nowhere; in the user file under another group.
    const std::pair<const wchar_t*, const wchar_t*> systems[] = {
        {L"Ports", L"Dock"}, {L"Ports", L"None"}, {L"Other", L"Mine"}};
    for (const auto& [group, system] : systems) {
        EXPECT_FALSE(database.SetGeoidModel(group, system, L"EGM96", L"a.gtx", true));
        EXPECT_FALSE(database.SetManualGeoidModel(group, system, L"Manual", 1.0, true));
        EXPECT_FALSE(database.SetpostCorrections(group, system, 1, 2, 3, L"m", L"f", true));
    }
    EXPECT_EQ(database.inits, 1);
    EXPECT_EQ(mainDirectory.Read("zorgeodatabase.geo"), mainBefore);
    EXPECT_EQ(userDirectory.Read("zorusergeobase.geo"), userBefore);
    EXPECT_EQ(database.GetDefaultGeoidModelMd(L"Ports", L"Dock"), L"OSGM");
}

TEST_F(ZorGeoDatabaseCorrections, ListedSystemWithoutARecordCannotBeChanged)
{
    ZorGeoDatabase database;
    Open(database, {}, GeoText().List(L"Gp-Ports", {"Ghost"}));
    EXPECT_FALSE(database.SetGeoidModel(L"Ports", L"Ghost", L"EGM96", L"", true));
    EXPECT_FALSE(database.HasSystem(L"Ghost", GeoDbUser));
}

TEST_F(ZorGeoDatabaseCorrections, GeoidModelIsWrittenToTheUserFile)
{
    CountingDatabase database;
    OpenWith(database, {}, {{L"Unit name", "Meters"}});
    EXPECT_TRUE(database.SetGeoidModel(L"Ports", L"Mine", L"EGM96", L"egm96.gtx", true));
    EXPECT_EQ(database.inits, 2);
    EXPECT_TRUE(database.HasGeoidModel(L"Ports", L"Mine"));
    EXPECT_EQ(OnDisk(userDirectory, L"Geoid model method"), L"EGM96");
    EXPECT_EQ(OnDisk(userDirectory, L"Geoid model grid"), L"egm96.gtx");
    EXPECT_EQ(OnDisk(userDirectory, L"Unit name"), L"Meters");
    EXPECT_EQ(OnDisk(userDirectory, L"Manual input value"), L"<none>");
    EXPECT_TRUE(database.SetGeoidModel(L"Ports", L"Mine", L"None", L"", false));
    EXPECT_FALSE(database.HasGeoidModel(L"Ports", L"Mine"));
    EXPECT_EQ(database.GetDefaultGeoidModelMd(L"Ports", L"Mine"), L"None");
}

TEST_F(ZorGeoDatabaseCorrections, ManualSeparationKeepsTheGridOfAnEarlierSetting)
{
    CountingDatabase database;
    OpenWith(database, {}, {{L"Geoid model grid", "egm96.gtx"}});
    EXPECT_TRUE(database.SetManualGeoidModel(L"Ports", L"Mine", L"Manual", 43.25, true));
    EXPECT_EQ(database.inits, 2);
    EXPECT_EQ(database.GetDefaultGeoidModelMd(L"Ports", L"Mine"), L"Manual");
    EXPECT_EQ(database.GetGeoidManualSeparation(L"Ports", L"Mine"), 43.25);
    EXPECT_TRUE(database.HasGeoidModel(L"Ports", L"Mine"));
    EXPECT_EQ(database.GetDefaultGeoidGrid(L"Ports", L"Mine"), L"egm96.gtx");
    EXPECT_EQ(OnDisk(userDirectory, L"Geoid model grid"), L"egm96.gtx");
}

TEST_F(ZorGeoDatabaseCorrections, PostCorrectionsAreWrittenToTheUserFile)
{
    CountingDatabase database;
    OpenWith(database, {}, {{L"Unit name", "Meters"}});
    EXPECT_TRUE(database.SetpostCorrections(L"Ports", L"Mine", 0.1, -2.5, 3.0, L"NTv2", L"shift.gsb", true));
    EXPECT_EQ(database.inits, 2);
    double x = 0, y = 0, z = 0;
    database.GetGridCorrection(L"Ports", L"Mine", x, y, z);
    EXPECT_EQ(x, 0.1);
    EXPECT_EQ(y, -2.5);
    EXPECT_EQ(z, 3.0);
    EXPECT_TRUE(database.HasPostCorrection(L"Ports", L"Mine"));
    EXPECT_EQ(OnDisk(userDirectory, L"Post coorection file"), L"shift.gsb");
    EXPECT_EQ(OnDisk(userDirectory, L"Post coorection model"), L"NTv2");
}

TEST_F(ZorGeoDatabaseCorrections, SettersWriteTheirKeysInOrderBehindTheOthers)
{
    struct Case {
        const char* name;
        bool (*set)(ZorGeoDatabase&);
        GeoText::Entries written;
    };
    const Case cases[] = {
        {"geoid model",
         [](ZorGeoDatabase& d) { return d.SetGeoidModel(L"Ports", L"Mine", L"EGM96", L"e.gtx", true); },
         {{L"Geoid model use statu", "1"}, {L"Geoid model method", "EGM96"}, {L"Geoid model grid", "e.gtx"}}},
        {"separation",
         [](ZorGeoDatabase& d) { return d.SetManualGeoidModel(L"Ports", L"Mine", L"Manual", 43.25, false); },
         {{L"Geoid model use statu", "0"}, {L"Geoid model method", "Manual"}, {L"Manual input value", "43.25"}}},
        {"post corrections",
         [](ZorGeoDatabase& d) {
             return d.SetpostCorrections(L"Ports", L"Mine", 0.5, -2.5, 3.25, L"NTv2", L"s.gsb", true);
         },
         {{L"Post coorection file", "s.gsb"},
          {L"Post coorection model", "NTv2"},
          {L"Post X coorection", "0.5"},
          {L"Post Y coorection", "-2.5"},
          {L"Post Z coorection", "3.25"},
          {L"Post coorection statu", "1"}}},
    };
    for (const Case& c : cases) {
        ZorGeoDatabase database;
        OpenWith(database, {}, {{L"Unit name", "Meters"}});
        ASSERT_TRUE(c.set(database)) << c.name;
        GeoText::Entries record = {{L"Unit name", "Meters"}};
        record.insert(record.end(), c.written.begin(), c.written.end());
        EXPECT_THAT(userDirectory.Read("zorusergeobase.geo"),
                    testing::EndsWith(GeoText().Section(L"Sys-Mine", record).Text()))
            << c.name;
    }
}

TEST_F(ZorGeoDatabaseCorrections, SetterGivesTheResultOfInit)
{
    CountingDatabase database;
    OpenWith(database, {}, {{L"Unit name", "Meters"}});
    database.answer = false;
    EXPECT_FALSE(database.SetGeoidModel(L"Ports", L"Mine", L"EGM96", L"", true));
    EXPECT_EQ(OnDisk(userDirectory, L"Geoid model method"), L"EGM96");
}

TEST_F(ZorGeoDatabaseCorrections, ReadOnlyUserFileIsWrittenAndStaysReadOnly)
{
    ScriptedDesk desk;
    ZorGeoDatabase database;
    OpenWith(database, {}, {{L"Unit name", "Meters"}});
    MakeUserFileReadOnly();
    ASSERT_TRUE(UserFileIsReadOnly());
    EXPECT_TRUE(database.SetGeoidModel(L"Ports", L"Mine", L"EGM96", L"egm96.gtx", true));
    EXPECT_TRUE(UserFileIsReadOnly());
    EXPECT_EQ(OnDisk(userDirectory, L"Geoid model method"), L"EGM96");
    EXPECT_EQ(database.GetDefaultGeoidModelMd(L"Ports", L"Mine"), L"EGM96");
    EXPECT_TRUE(desk.messages.empty());
}

#if !defined(_WIN32)
TEST_F(ZorGeoDatabaseCorrections, ChangeThatCannotBeSavedIsLostAndTheSetterSaysTrue)
{
    if (geteuid() != 0) {
        GTEST_SKIP() << "needs a file of another owner";
    }
    ScriptedDesk desk;
    CountingDatabase database;
    OpenWith(database, {}, {{L"Geoid model method", "OSGM"}});
    MakeUserFileReadOnly();
    const std::string before = userDirectory.Read("zorusergeobase.geo");
    // As nobody, who may read the file and not change its attribute.
    ASSERT_EQ(seteuid(65534), 0);
    const bool result = database.SetGeoidModel(L"Ports", L"Mine", L"EGM96", L"egm96.gtx", true);
    ASSERT_EQ(seteuid(0), 0);
    EXPECT_TRUE(result);
    EXPECT_EQ(database.inits, 2);
    ASSERT_EQ(desk.messages.size(), 1u);
    EXPECT_EQ(desk.messages[0].text, L"Database file open for writing failed");
    EXPECT_EQ(userDirectory.Read("zorusergeobase.geo"), before);
    EXPECT_EQ(database.GetDefaultGeoidModelMd(L"Ports", L"Mine"), L"OSGM");
    EXPECT_FALSE(database.HasGeoidModel(L"Ports", L"Mine"));
}
#endif
