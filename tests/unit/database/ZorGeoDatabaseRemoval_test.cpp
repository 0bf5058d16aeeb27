#include <gmock/gmock.h>

#include "tests/support/ScriptedDesk.h"
#include "tests/unit/database/DatabaseFixture.h"

#if !defined(_WIN32)
#include <unistd.h>
#endif

namespace {

using testing::ElementsAre;

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

/// The system "Dock" is the main file's; "Quay" and "Pier", of group "Mine", are the user's and
/// share a projection; "Wreck" has one of its own.
class ZorGeoDatabaseRemoval : public DatabaseTest {
protected:
    static GeoText MainText()
    {
        return GeoText()
            .List(L"Groups Section", {"Ports"})
            .List(L"Gp-Ports", {"Dock"})
            .Section(L"Sys-Dock", {{L"Datumtransform name", "Shift"}, {L"Projection name", "Main TM"}})
            .Section(L"Prj-Main TM", {{L"Projection method", "Transverse Mercator"}});
    }
    static GeoText UserText()
    {
        return GeoText()
            .Section(L"General", {{L"Group count", "1"},
                                  {L"System count", "3"},
                                  {L"Datumtransf count", "1"},
                                  {L"Ellipsoid count", "1"},
                                  {L"Projection count", "2"}})
            .List(L"Groups Section", {"Mine"})
            .Section(L"Gp-Mine", {{L"System count", "3"}, {L"1", "Quay"}, {L"2", "Pier"}, {L"3", "Wreck"}})
            .Section(L"Sys-Quay", System("User TM"))
            .Section(L"Sys-Pier", System("User TM"))
            .Section(L"Sys-Wreck", System("Wreck TM"))
            .List(L"DatumTransform Section", {"Shift"})
            .Section(L"Dtf-Shift", {{L"Scale", "1"}})
            .List(L"Projections section", {"User TM", "WRECK TM"})
            .Section(L"Prj-User TM", {{L"LonOrigin", "5"}})
            .Section(L"Prj-Wreck TM", {{L"LonOrigin", "9"}})
            .List(L"Ellipsoids section", {"Local"})
            .Section(L"Elp-Local", {{L"SemiMajor", "6378000"}})
            .Section(L"Units section", {{L"Links", "0.201168,lk"}});
    }
    static GeoText::Entries System(const std::string& projection)
    {
        return {{L"Datumtransform name", "Shift"},
                {L"Unit name", "Links"},
                {L"Ellipsoid name", "Local"},
                {L"Projection name", projection}};
    }
    std::string OnDisk() const { return userDirectory.Read("zorusergeobase.geo"); }
    FileObject UserFile() const
    {
        FileObject file;
        EXPECT_TRUE(file.FileOpen(userDirectory.File("zorusergeobase.geo"), FileMode::openForReading));
        return file;
    }
};

} // namespace

// RemoveSystem.

TEST_F(ZorGeoDatabaseRemoval, WhatIsNotInTheUserFileIsNotRemoved)
{
    struct Case {
        const wchar_t* group;
        const wchar_t* system;
    };
    const Case cases[] = {{L"Ports", L"Dock"},                      // of the main file
                          {L"Ports", L""},     {L"Ports", L"Quay"}, // not in a group of the main file
                          {L"Mine", L"Dock"},  {L"Mine", L"Nothing"}, {L"mine", L"Quay"}, // names of records are exact
                          {L"Mine", L"quay"},  {L"Nothing", L""}};
    for (const Case& c : cases) {
        CountingDatabase database;
        Open(database, MainText(), UserText());
        const std::string before = OnDisk();
        const std::string mainBefore = mainDirectory.Read("zorgeodatabase.geo");
        EXPECT_FALSE(database.RemoveSystem(c.group, c.system));
        EXPECT_EQ(OnDisk(), before);
        EXPECT_EQ(mainDirectory.Read("zorgeodatabase.geo"), mainBefore);
        EXPECT_EQ(database.inits, 1);
    }
}

TEST_F(ZorGeoDatabaseRemoval, SystemGoesWithItsLineAndItsProjectionAlone)
{
    ZorGeoDatabase database;
    Open(database, MainText(), UserText());
    EXPECT_TRUE(database.RemoveSystem(L"Mine", L"Wreck"));
    // What is expected is the file as it was without four things.
    FileObject expected;
    ASSERT_TRUE(expected.FileOpen(userDirectory.Write("expected.geo", UserText().Text()), FileMode::openForReading));
    EXPECT_TRUE(expected.DeleteSection(L"Sys-Wreck"));
    EXPECT_TRUE(expected.DeleteItem(L"Gp-Mine", L"3", false));
    EXPECT_TRUE(expected.DeleteSection(L"Prj-Wreck TM"));
    EXPECT_TRUE(expected.DeleteItem(L"Projections section", L"2", false)) << "in any case of letters";
    ASSERT_TRUE(expected.FileSave(L"", FileMode::saveExclusive));
    EXPECT_EQ(OnDisk(), userDirectory.Read("expected.geo"));
}

TEST_F(ZorGeoDatabaseRemoval, DatumEllipsoidAndUnitStayAndNoCountIsLowered)
{
    ZorGeoDatabase database;
    Open(database, MainText(), UserText());
    for (const wchar_t* system : {L"Quay", L"Pier", L"Wreck"}) {
        EXPECT_TRUE(database.RemoveSystem(L"Mine", system));
    }
    const FileObject file = UserFile();
    EXPECT_TRUE(file.HasKey(L"DatumTransform Section", L"1"));
    EXPECT_TRUE(file.HasSection(L"Dtf-Shift"));
    EXPECT_TRUE(file.HasKey(L"Ellipsoids section", L"1"));
    EXPECT_TRUE(file.HasSection(L"Elp-Local"));
    EXPECT_TRUE(file.HasKey(L"Units section", L"Links"));
    const std::pair<const wchar_t*, int> counts[] = {{L"Group count", 1},
                                                     {L"System count", 3},
                                                     {L"Datumtransf count", 1},
                                                     {L"Ellipsoid count", 1},
                                                     {L"Projection count", 2}};
    for (const auto& [key, expected] : counts) {
        int count = -1;
        EXPECT_TRUE(file.GetItem(L"General", key, count));
        EXPECT_EQ(count, expected);
    }
}

TEST_F(ZorGeoDatabaseRemoval, LastSystemLeavesTheGroup)
{
    ZorGeoDatabase database;
    Open(database, MainText(), UserText());
    for (const wchar_t* system : {L"Quay", L"Pier", L"Wreck"}) {
        EXPECT_TRUE(database.RemoveSystem(L"Mine", system));
    }
    int count = 0;
    EXPECT_TRUE(UserFile().GetItem(L"Gp-Mine", L"System count", count));
    EXPECT_EQ(count, 3);
    CStringArray names;
    EXPECT_TRUE(database.GetAllGroupNames(names, GeoDbUser));
    EXPECT_THAT(Names(names), ElementsAre("Mine"));
    EXPECT_TRUE(database.GetAllSystemNamesByGroupName(names, L"Mine"));
    EXPECT_EQ(names.GetSize(), 0);
}

TEST_F(ZorGeoDatabaseRemoval, SharedProjectionGoesWithTheLastSystem)
{
    ZorGeoDatabase database;
    Open(database, MainText(), UserText());
    EXPECT_TRUE(database.RemoveSystem(L"Mine", L"Quay"));
    EXPECT_TRUE(database.HasProjection(L"User TM", GeoDbUser));
    EXPECT_TRUE(UserFile().HasKey(L"Projections section", L"1"));
    EXPECT_TRUE(database.RemoveSystem(L"Mine", L"Pier"));
    EXPECT_FALSE(UserFile().HasKey(L"Projections section", L"1"));
    EXPECT_FALSE(database.HasProjection(L"User TM", GeoDbUser));
}

TEST_F(ZorGeoDatabaseRemoval, ProjectionIsSharedInAnyCaseOfLetters)
{
    ZorGeoDatabase database;
    Open(database, MainText(),
         GeoText()
             .List(L"Groups Section", {"Mine"})
             .List(L"Gp-Mine", {"Quay", "Pier"})
             .Section(L"Sys-Quay", System("USER TM"))
             .Section(L"Sys-Pier", System("User TM"))
             .List(L"Projections section", {"user tm"})
             .Section(L"Prj-User TM", {{L"LonOrigin", "5"}}));
    EXPECT_TRUE(database.RemoveSystem(L"Mine", L"Pier"));
    EXPECT_TRUE(database.HasProjection(L"User TM", GeoDbUser));
    EXPECT_TRUE(database.RemoveSystem(L"Mine", L"Quay"));
    EXPECT_FALSE(UserFile().HasKey(L"Projections section", L"1"));
    EXPECT_TRUE(database.HasProjection(L"User TM", GeoDbUser)) << "the section that goes is spelt as the system does";
}

TEST_F(ZorGeoDatabaseRemoval, ProjectionThatIsNotListedGoesToo)
{
    ZorGeoDatabase database;
    Open(database, MainText(),
         GeoText()
             .List(L"Groups Section", {"Mine"})
             .List(L"Gp-Mine", {"Quay"})
             .Section(L"Sys-Quay", System("User TM"))
             .Section(L"Prj-User TM", {{L"LonOrigin", "5"}}));
    EXPECT_TRUE(database.RemoveSystem(L"Mine", L"Quay"));
    EXPECT_FALSE(UserFile().HasSection(L"Prj-User TM"));
}

TEST_F(ZorGeoDatabaseRemoval, SystemOfTwoGroupsKeepsItsProjectionAndTheOtherGroupItsLine)
{
    ZorGeoDatabase database;
    Open(database, MainText(),
         GeoText()
             .List(L"Groups Section", {"Mine", "Yours"})
             .List(L"Gp-Mine", {"Quay"})
             .List(L"Gp-Yours", {"Quay"})
             .Section(L"Sys-Quay", System("User TM"))
             .Section(L"Prj-User TM", {{L"LonOrigin", "5"}}));
    EXPECT_TRUE(database.HasProjectionUsedInMoreSystem(L"User TM", GeoDbUser));
    EXPECT_TRUE(database.RemoveSystem(L"Mine", L"Quay"));
    EXPECT_TRUE(database.HasProjection(L"User TM", GeoDbUser));
    EXPECT_FALSE(database.HasSystem(L"Quay", GeoDbUser));
    CStringArray names;
    database.GetAllSystemNamesByGroupName(names, L"Yours");
    EXPECT_THAT(Names(names), ElementsAre("Quay"));
    EXPECT_FALSE(database.RemoveSystem(L"Yours", L"Quay")) << "there is no record any more";
}

TEST_F(ZorGeoDatabaseRemoval, SystemThatTheGroupDoesNotListStaysWithoutItsProjection)
{
    ZorGeoDatabase database;
    Open(database, MainText(),
         GeoText()
             .List(L"Groups Section", {"Mine"})
             .List(L"Gp-Mine", {"Pier"})
             .Section(L"Sys-Quay", System("User TM"))
             .List(L"Projections section", {"User TM"})
             .Section(L"Prj-User TM", {{L"LonOrigin", "5"}}));
    EXPECT_TRUE(database.RemoveSystem(L"Mine", L"Quay"));
    const FileObject file = UserFile();
    EXPECT_TRUE(file.HasSection(L"Sys-Quay"));
    EXPECT_TRUE(file.HasKey(L"Gp-Mine", L"1"));
    EXPECT_FALSE(file.HasSection(L"Prj-User TM"));
    EXPECT_FALSE(file.HasKey(L"Projections section", L"1"));
}

TEST_F(ZorGeoDatabaseRemoval, ProjectionOfTheMainFileStays)
{
    ZorGeoDatabase database;
    Open(
        database, MainText(),
        GeoText().List(L"Groups Section", {"Mine"}).List(L"Gp-Mine", {"Quay"}).Section(L"Sys-Quay", System("Main TM")));
    EXPECT_TRUE(database.RemoveSystem(L"Mine", L"Quay"));
    EXPECT_TRUE(database.HasProjection(L"Main TM", GeoDbMain));
    EXPECT_FALSE(database.HasSystem(L"Quay", GeoDbUser));
}

TEST_F(ZorGeoDatabaseRemoval, GroupGoesAndItsSystemsStay)
{
    ZorGeoDatabase database;
    Open(database, MainText(), UserText());
    EXPECT_TRUE(database.RemoveSystem(L"Mine", L""));
    const FileObject file = UserFile();
    EXPECT_FALSE(file.HasSection(L"Gp-Mine"));
    EXPECT_FALSE(file.HasKey(L"Groups Section", L"1"));
    for (const wchar_t* section : {L"Sys-Quay", L"Sys-Pier", L"Sys-Wreck", L"Prj-Wreck TM", L"Groups Section"}) {
        EXPECT_TRUE(file.HasSection(section));
    }
    int count = 0;
    EXPECT_TRUE(file.GetItem(L"General", L"Group count", count));
    EXPECT_EQ(count, 1);
    CStringArray names;
    EXPECT_TRUE(database.GetAllGroupNames(names, GeoDbBoth));
    EXPECT_THAT(Names(names), ElementsAre("Ports"));
}

TEST_F(ZorGeoDatabaseRemoval, GroupThatIsNotListedStays)
{
    CountingDatabase database;
    Open(database, MainText(),
         GeoText()
             .List(L"Groups Section", {"Other"})
             .List(L"Gp-Mine", {"Quay"})
             .Section(L"Sys-Quay", System("User TM")));
    EXPECT_TRUE(database.RemoveSystem(L"Mine", L""));
    EXPECT_TRUE(UserFile().HasSection(L"Gp-Mine"));
    EXPECT_TRUE(UserFile().HasKey(L"Groups Section", L"1"));
    EXPECT_EQ(database.inits, 2) << "and the database starts anew all the same";
}

TEST_F(ZorGeoDatabaseRemoval, RemovalGivesTheResultOfInit)
{
    CountingDatabase database;
    Open(database, MainText(), UserText());
    database.answer = false;
    EXPECT_FALSE(database.RemoveSystem(L"Mine", L"Wreck"));
    EXPECT_EQ(database.inits, 2);
    EXPECT_FALSE(UserFile().HasSection(L"Sys-Wreck"));
}

TEST_F(ZorGeoDatabaseRemoval, ReadOnlyUserFileIsWrittenAndLeftReadOnly)
{
    ScriptedDesk desk;
    ZorGeoDatabase database;
    Open(database, MainText(), UserText());
    CFileStatus status;
    const CString file = userDirectory.File("zorusergeobase.geo");
    ASSERT_TRUE(CFile::GetStatus(file, status));
    status.attribute |= CFileStatus::readOnly;
    CFile::SetStatus(file, status);
    EXPECT_TRUE(database.RemoveSystem(L"Mine", L"Wreck"));
    EXPECT_FALSE(UserFile().HasSection(L"Sys-Wreck"));
    ASSERT_TRUE(CFile::GetStatus(file, status));
    EXPECT_NE(status.attribute & CFileStatus::readOnly, 0u);
    EXPECT_TRUE(desk.messages.empty());
}

#if !defined(_WIN32)
TEST_F(ZorGeoDatabaseRemoval, RemovalThatCannotBeSavedIsLost)
{
    if (geteuid() != 0) {
        GTEST_SKIP() << "needs a file of another owner";
    }
    ScriptedDesk desk;
    ZorGeoDatabase database;
    Open(database, MainText(), UserText());
    const std::filesystem::path file = userDirectory.Path() / "zorusergeobase.geo";
    std::filesystem::permissions(file, std::filesystem::perms::owner_read | std::filesystem::perms::group_read |
                                           std::filesystem::perms::others_read);
    const std::string before = OnDisk();
    // As nobody, who may read the file and not change its attribute.
    ASSERT_EQ(seteuid(65534), 0);
    const bool result = database.RemoveSystem(L"Mine", L"Wreck");
    ASSERT_EQ(seteuid(0), 0);
    EXPECT_TRUE(result);
    ASSERT_EQ(desk.messages.size(), 1u);
    EXPECT_EQ(desk.messages[0].text, L"Database file open for writing failed");
    EXPECT_EQ(OnDisk(), before);
    EXPECT_TRUE(database.HasSystem(L"Wreck", GeoDbUser));
}
#endif

// Use by other systems.

namespace {

struct Kind {
    const char* what;
    bool (ZorGeoDatabase::*isUsed)(CString name, unsigned which);
    const wchar_t* key;
};
const Kind kKinds[] = {
    {"datum", &ZorGeoDatabase::HasDtfUsedInMoreSystem, L"Datumtransform name"},
    {"projection", &ZorGeoDatabase::HasProjectionUsedInMoreSystem, L"Projection name"},
};

} // namespace

TEST_F(ZorGeoDatabaseRemoval, RecordIsUsedWhenTwoSystemsOfUserGroupsNameIt)
{
    struct Case {
        const char* why;
        NameList mine;        ///< systems of the user file's group "Mine"
        NameList mainMine;    ///< and of the main file's
        NameList userSystems; ///< with a record that names it
        NameList mainSystems;
        bool inUser;
        bool inMain;
    };
    const Case cases[] = {
        {"nobody", {"A", "B"}, {}, {}, {}, false, false},
        {"one system", {"A", "B"}, {}, {"A"}, {}, false, false},
        {"two systems", {"A", "B"}, {}, {"A", "B"}, {}, true, false},
        {"a system twice in a group", {"A", "A"}, {}, {"A"}, {}, true, false},
        {"one in either file", {"A", "B"}, {}, {"A"}, {"B"}, false, false},
        {"two of the main file in a user group", {"A", "B"}, {}, {}, {"A", "B"}, false, true},
        {"systems that the main file lists in a group of both", {"A"}, {"B"}, {"A", "B"}, {}, true, false},
        {"systems that no group lists", {}, {}, {"A", "B"}, {}, false, false},
    };
    for (const Kind& kind : kKinds) {
        for (const Case& c : cases) {
            const GeoText::Entries record = {{kind.key, "RECORD"}};
            GeoText user = GeoText().List(L"Groups Section", {"Mine"}).List(L"Gp-Mine", c.mine);
            GeoText main = GeoText().List(L"Groups Section", {"Main"}).List(L"Gp-Mine", c.mainMine);
            for (const std::string& name : c.userSystems) {
                user.Section(CString::FromUtf8("Sys-" + name), record);
            }
            for (const std::string& name : c.mainSystems) {
                main.Section(CString::FromUtf8("Sys-" + name), record);
            }
            ZorGeoDatabase database;
            Open(database, main, user);
            // In any case of letters.
            EXPECT_EQ((database.*kind.isUsed)(L"Record", GeoDbUser), c.inUser) << kind.what << ": " << c.why;
            EXPECT_EQ((database.*kind.isUsed)(L"Record", GeoDbMain), c.inMain) << kind.what << ": " << c.why;
            EXPECT_EQ((database.*kind.isUsed)(L"Record", GeoDbBoth), c.inUser || c.inMain)
                << kind.what << ": " << c.why;
        }
    }
}

TEST_F(ZorGeoDatabaseRemoval, GroupsOfTheMainFileAreNotWalked)
{
    for (const Kind& kind : kKinds) {
        const GeoText::Entries record = {{kind.key, "Record"}};
        ZorGeoDatabase database;
        Open(database,
             GeoText()
                 .List(L"Groups Section", {"Ports"})
                 .List(L"Gp-Ports", {"A", "B"})
                 .Section(L"Sys-A", record)
                 .Section(L"Sys-B", record),
             GeoText());
        EXPECT_FALSE((database.*kind.isUsed)(L"Record", GeoDbMain));
        EXPECT_FALSE((database.*kind.isUsed)(L"Record", GeoDbBoth));
    }
}

TEST_F(ZorGeoDatabaseRemoval, GroupsAndSystemsAreListedByTheVirtualOperations)
{
    class Listing : public ZorGeoDatabase {
    public:
        bool GetAllGroupNames(CStringArray& out, geodb_type which) override
        {
            asked.push_back(which);
            out.RemoveAll();
            out.Add(L"Anything");
            return true;
        }
        bool GetAllSystemNamesByGroupName(CStringArray& out, CString) override
        {
            out.RemoveAll();
            out.Add(L"Quay");
            out.Add(L"Pier");
            return true;
        }
        std::vector<geodb_type> asked;
    } database;
    Open(database, MainText(), UserText().List(L"Gp-Lone", {"Wreck"}));
    EXPECT_TRUE(database.HasDtfUsedInMoreSystem(L"Shift", GeoDbUser));
    EXPECT_TRUE(database.HasProjectionUsedInMoreSystem(L"User TM", GeoDbUser));
    EXPECT_FALSE(database.HasProjectionUsedInMoreSystem(L"Wreck TM", GeoDbMain));
    EXPECT_THAT(database.asked, ElementsAre(GeoDbUser, GeoDbUser, GeoDbUser)) << "whichever file is asked";
}

TEST_F(ZorGeoDatabaseRemoval, WhichThatNamesNoFileCountsAsUsed)
{
    ZorGeoDatabase database;
    Open(database, MainText(), UserText());
    for (const unsigned which : {0u, 4u, 7u}) {
        EXPECT_TRUE(database.HasDtfUsedInMoreSystem(L"Nothing", which));
        EXPECT_TRUE(database.HasProjectionUsedInMoreSystem(L"Nothing", which));
    }
    EXPECT_FALSE(database.HasDtfUsedInMoreSystem(L"Nothing", GeoDbBoth));
    EXPECT_FALSE(database.HasProjectionUsedInMoreSystem(L"Nothing", GeoDbBoth));
}

// Use by other projects.

namespace {

/// The database of above without systems that share anything, and a directory of projects.
class ProjectScan : public ZorGeoDatabaseRemoval {
protected:
    ProjectScan()
    {
        DataSearch::GetDataSearch().SetDataPath(DataSearch::projectsRoot, projects.Directory());
        SetCurrent(L"Current");
        projects.Write("Current/project.prj", "");
    }
    static void SetCurrent(const wchar_t* name) { DataSearch::GetDataSearch().SetCurrentProjectName(name); }
    void OpenDatabase(ZorGeoDatabase& database)
    {
        Open(database, MainText(),
             GeoText()
                 .List(L"Groups Section", {"Mine"})
                 .List(L"Gp-Mine", {"Quay"})
                 .Section(L"Sys-Quay", {{L"Datumtransform name", "Quay shift"}, {L"Projection name", "Quay TM"}}));
    }
    void WriteProject(const std::string& directory, const std::string& group, const std::string& system) const
    {
        projects.Write(directory + "/project.prj",
                       "[COORDINATE SYSTEM]\nGroup name=" + group + "\nSystem name=" + system + "\n");
    }
    static bool Used(ZorGeoDatabase& database, const wchar_t* datum)
    {
        return database.HasDtfUsedInMoreSystem(datum, GeoDbUser);
    }

    TempDirectory projects;
};

} // namespace

TEST_F(ProjectScan, CurrentProjectAloneUsesNothing)
{
    ZorGeoDatabase database;
    OpenDatabase(database);
    WriteProject("Current", "Mine", "Quay");
    for (const wchar_t* name : {L"Quay shift", L"Shift", L"Nothing"}) {
        EXPECT_FALSE(database.HasDtfUsedInMoreSystem(name, GeoDbUser));
        EXPECT_FALSE(database.HasProjectionUsedInMoreSystem(name, GeoDbUser));
    }
}

TEST_F(ProjectScan, OneOtherProjectIsEnoughBesideTheCurrentOne)
{
    ZorGeoDatabase database;
    OpenDatabase(database);
    WriteProject("Other", "Mine", "Quay");
    EXPECT_TRUE(database.HasDtfUsedInMoreSystem(L"Quay shift", GeoDbUser));
    EXPECT_TRUE(database.HasProjectionUsedInMoreSystem(L"Quay TM", GeoDbUser));
    EXPECT_TRUE(database.HasDtfUsedInMoreSystem(L"Quay shift", GeoDbMain)) << "whichever file is asked";
    EXPECT_FALSE(Used(database, L"QUAY SHIFT")) << "exact";
    EXPECT_FALSE(Used(database, L"Quay TM")) << "a projection is no datum";
    WriteProject("Other", "Ports", "Dock");
    EXPECT_TRUE(Used(database, L"Shift")) << "a system of the main file";
}

TEST_F(ProjectScan, WithoutTheCurrentOneTwoProjectsAreNeeded)
{
    ZorGeoDatabase database;
    OpenDatabase(database);
    for (const wchar_t* current : {L"", L"current", L"Elsewhere"}) {
        SetCurrent(current);
        std::filesystem::remove_all(projects.Path() / "Third");
        WriteProject("Other", "Mine", "Quay");
        EXPECT_FALSE(Used(database, L"Quay shift"));
        WriteProject("Third", "Mine", "Quay");
        EXPECT_TRUE(Used(database, L"Quay shift"));
    }
}

TEST_F(ProjectScan, ChangeOfTheCurrentProjectIsSeen)
{
    ZorGeoDatabase database;
    OpenDatabase(database);
    SetCurrent(L"");
    WriteProject("Other", "Mine", "Quay");
    EXPECT_FALSE(Used(database, L"Quay shift"));
    SetCurrent(L"Current");
    EXPECT_TRUE(Used(database, L"Quay shift"));
}

TEST_F(ProjectScan, ProjectThatDoesNotTellItsSystemIsNotCounted)
{
    ZorGeoDatabase database;
    OpenDatabase(database);
    const char* const texts[] = {"no section file",
                                 "",
                                 "[COORDINATE SYSTEM]\n",
                                 "[COORDINATE SYSTEM]\nGroup name=Mine\n",
                                 "[COORDINATE SYSTEM]\nSystem name=Quay\n",
                                 "[COORDINATE SYSTEM BACKUP]\nGroup name=Mine\nSystem name=Quay\n",
                                 "[COORDINATE SYSTEM]\nGroup name=Ports\nSystem name=Quay\n",
                                 "[COORDINATE SYSTEM]\nGroup name=Mine\nSystem name=Elsewhere\n"};
    for (const char* text : texts) {
        projects.Write("Other/project.prj", text);
        EXPECT_FALSE(Used(database, L"Quay shift")) << text;
    }
    std::filesystem::remove(projects.Path() / "Other/project.prj");
    EXPECT_FALSE(Used(database, L"Quay shift")) << "a directory without a project";
    projects.Write("project.prj", "[COORDINATE SYSTEM]\nGroup name=Mine\nSystem name=Quay\n");
    EXPECT_FALSE(Used(database, L"Quay shift")) << "a file among the directories";
    WriteProject("Other/Deeper", "Mine", "Quay");
    EXPECT_FALSE(Used(database, L"Quay shift")) << "directories of directories";
}

TEST_F(ProjectScan, NamesAreResolvedByTheVirtualOperations)
{
    class Resolving : public ZorGeoDatabase {
    public:
        CString GetDtfNameByGroupAndSysNames(CString group, CString system) override { return group + system; }
        CString GetPrjNameByGroupAndSysNames(CString group, CString system) override { return system + group; }
    } database;
    OpenDatabase(database);
    WriteProject("Other", "G", "S");
    EXPECT_TRUE(database.HasDtfUsedInMoreSystem(L"GS", GeoDbUser));
    EXPECT_TRUE(database.HasProjectionUsedInMoreSystem(L"SG", GeoDbUser));
    EXPECT_FALSE(database.HasDtfUsedInMoreSystem(L"SG", GeoDbUser));
}

TEST_F(ProjectScan, WithoutADirectoryOfProjectsNobodyUsesAnything)
{
    ZorGeoDatabase database;
    OpenDatabase(database);
    WriteProject("Other", "Mine", "Quay");
    DataSearch::GetDataSearch().SetUnavailable(DataSearch::projectsRoot);
    EXPECT_FALSE(Used(database, L"Quay shift"));
    DataSearch::GetDataSearch().SetDataPath(DataSearch::projectsRoot, projects.File("missing"));
    EXPECT_FALSE(Used(database, L"Quay shift"));
}

TEST_F(ProjectScan, RemovalDoesNotAskTheProjects)
{
    ZorGeoDatabase database;
    OpenDatabase(database);
    WriteProject("Other", "Mine", "Quay");
    ASSERT_TRUE(database.HasProjectionUsedInMoreSystem(L"Quay TM", GeoDbUser));
    database.GetUserFile().SetItem(L"Prj-Quay TM", L"LonOrigin", 5.0, true);
    EXPECT_TRUE(database.RemoveSystem(L"Mine", L"Quay"));
    EXPECT_FALSE(UserFile().HasSection(L"Prj-Quay TM"));
}
