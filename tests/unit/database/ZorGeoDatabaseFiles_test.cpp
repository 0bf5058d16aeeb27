#include <filesystem>

#include "tests/unit/database/DatabaseFixture.h"

namespace {

class ZorGeoDatabaseFiles : public DatabaseTest {
protected:
    bool UserFileExists() const { return std::filesystem::exists(userDirectory.Path() / "zorusergeobase.geo"); }
};

GeoText::Entries Ellipsoids(const char* source, const char* target)
{
    return {{transParamKeys[2], source}, {transParamKeys[3], target}};
}

NameList DatumsOf(ZorGeoDatabase& database, const wchar_t* ellipsoid, bool asTarget)
{
    CStringArray out;
    EXPECT_TRUE(database.GetAllDtfNamesByOneElp(out, ellipsoid, asTarget));
    return Names(out);
}

NameList ProjectionsOf(ZorGeoDatabase& database, const wchar_t* method)
{
    std::vector<CString> out;
    EXPECT_TRUE(database.GetAllPrjNamesByMdName(out, method));
    NameList names;
    for (const CString& name : out) {
        names.push_back(name.ToUtf8());
    }
    return names;
}

} // namespace

TEST_F(ZorGeoDatabaseFiles, ConstructorFillsTheDirectoriesAndOpensNothing)
{
    ASSERT_FALSE(ZorGeoUtility::Get().initialised);
    ZorGeoDatabase database;
    EXPECT_TRUE(ZorGeoUtility::Get().initialised);
    EXPECT_FALSE(database.GetMainFile().FileInitialised());
    EXPECT_FALSE(database.GetUserFile().FileInitialised());
    EXPECT_FALSE(UserFileExists());
}

TEST_F(ZorGeoDatabaseFiles, ConstructorTriesAgainAfterAFillThatFailed)
{
    WriteMain({});
    DataSearch::GetDataSearch().SetUnavailable(DataSearch::projectsRoot);
    ZorGeoDatabase early;
    EXPECT_FALSE(ZorGeoUtility::Get().initialised);
    EXPECT_TRUE(ZorGeoUtility::Get().mainDatabaseDir.IsEmpty());
    EXPECT_FALSE(early.Init());

    DataSearch::GetDataSearch().SetDataPath(DataSearch::projectsRoot, userDirectory.Directory());
    ZorGeoDatabase late;
    EXPECT_TRUE(ZorGeoUtility::Get().initialised);
    EXPECT_TRUE(late.Init());
}

TEST_F(ZorGeoDatabaseFiles, EmptyDirectoriesMeanTheCurrentOne)
{
    WriteMain(GeoText().List(L"Groups Section", {"Here"}));
    DataSearch::GetDataSearch().SetDataPath(DataSearch::deliveredDatabase, L"");
    const std::filesystem::path before = std::filesystem::current_path();
    std::filesystem::current_path(mainDirectory.Path());
    ZorGeoDatabase database;
    const bool opened = database.Init();
    std::filesystem::current_path(before);
    EXPECT_TRUE(opened);
    EXPECT_TRUE(database.GetMainFile().HasSection(L"Groups Section"));
}

TEST_F(ZorGeoDatabaseFiles, InitFailsWithoutTheMainFileAndMakesNoUserFile)
{
    ZorGeoDatabase database;
    EXPECT_FALSE(database.Init());
    EXPECT_FALSE(UserFileExists());
}

TEST_F(ZorGeoDatabaseFiles, InitFailsOnAMainFileThatIsNoSectionFile)
{
    mainDirectory.Write("zorgeodatabase.geo", "a key before any section\n");
    ZorGeoDatabase database;
    EXPECT_FALSE(database.Init());
}

TEST_F(ZorGeoDatabaseFiles, MissingUserFileIsMadeAndTheMainFileAnswersAlone)
{
    WriteMain(GeoText()
                  .List(L"Groups Section", {"Ports"})
                  .List(L"Gp-Ports", {"Dock"})
                  .Section(L"Sys-Dock", {{L"Unit name", "Meters"}})
                  .Section(L"Units section", {{L"Meters", "1.000000,m"}}));
    ZorGeoDatabase database;
    ASSERT_TRUE(database.Init());
    EXPECT_TRUE(UserFileExists());
    EXPECT_TRUE(database.GetUserFile().FileInitialised());
    CString section;
    FobjSection cursor;
    EXPECT_FALSE(database.GetUserFile().GetFirstSectionEntry(cursor, section));

    CStringArray groups;
    EXPECT_TRUE(database.GetAllGroupNames(groups, GeoDbBoth));
    EXPECT_EQ(Names(groups), NameList{"Ports"});
    EXPECT_EQ(database.GetSystemUnit(L"Ports", L"Dock"), L"Meters");
    EXPECT_TRUE(database.HasUint(L"Meters", GeoDbBoth));
    EXPECT_FALSE(database.HasUint(L"Meters", GeoDbUser));
}

TEST_F(ZorGeoDatabaseFiles, InitFailsWhenTheUserFileCannotBeMade)
{
    WriteMain({});
    DataSearch::GetDataSearch().SetDataPath(DataSearch::userDatabase, userDirectory.File("no/such/directory"));
    ZorGeoDatabase database;
    EXPECT_FALSE(database.Init());
    EXPECT_FALSE(database.InternalInit());
}

TEST_F(ZorGeoDatabaseFiles, UserFileThatCannotBeReadIsMadeAnew)
{
    WriteMain({});
    for (const char* number : {"1", "2"}) {
        const std::string text = "a key before any section " + std::string(number) + "\n";
        userDirectory.Write("zorusergeobase.geo", text);
        ZorGeoDatabase database;
        EXPECT_TRUE(database.Init());
        EXPECT_TRUE(database.GetUserFile().FileInitialised());
        EXPECT_EQ(userDirectory.Read("zorusergeobase.geo"), "");
        EXPECT_EQ(userDirectory.Read("zorusergeobase.geo.old-" + std::string(number)), text);
    }
    EXPECT_EQ(userDirectory.Read("zorusergeobase.geo.old-1"), "a key before any section 1\n");
}

TEST_F(ZorGeoDatabaseFiles, ListsAnswerOnlyWhileBothFilesAreOpen)
{
    WriteMain({});
    ZorGeoDatabase database;
    using List = bool (ZorGeoDatabase::*)(CStringArray&);
    for (const List list :
         {&ZorGeoDatabase::GetAllSystemNames, &ZorGeoDatabase::GetAllDtfNames, &ZorGeoDatabase::GetAllUnitNames,
          &ZorGeoDatabase::GetAllEllipsoidNames, &ZorGeoDatabase::GetAllProjectionNames}) {
        CStringArray out;
        out.Add(L"before");
        EXPECT_FALSE((database.*list)(out));
        EXPECT_EQ(Names(out), NameList{"before"});
    }
    CStringArray out;
    out.Add(L"before");
    for (const geodb_type which : {GeoDbUser, GeoDbMain, GeoDbBoth}) {
        EXPECT_FALSE(database.GetAllGroupNames(out, which));
    }
    EXPECT_FALSE(database.GetAllSystemNamesByGroupName(out, L"Ports"));
    EXPECT_EQ(Names(out), NameList{"before"});

    ASSERT_TRUE(database.Init());
    EXPECT_TRUE(database.GetAllSystemNames(out));
    EXPECT_TRUE(out.IsEmpty());
    database.GetUserFile().FileClose();
    EXPECT_FALSE(database.GetAllSystemNames(out));
}

TEST_F(ZorGeoDatabaseFiles, InternalInitOpensAndListsNothing)
{
    WriteMain(
        GeoText().List(L"Projections section", {"Zone 3"}).Section(L"Prj-Zone 3", {{L"Projection method", "TM"}}));
    ZorGeoDatabase database;
    EXPECT_TRUE(database.InternalInit());
    EXPECT_TRUE(database.GetMainFile().FileInitialised());
    EXPECT_TRUE(database.GetUserFile().FileInitialised());
    EXPECT_TRUE(UserFileExists());
    EXPECT_EQ(ProjectionsOf(database, L"TM"), NameList{});
    EXPECT_EQ(database.GetPrjMdNameByPrjName(L"Zone 3"), L"TM");
}

TEST_F(ZorGeoDatabaseFiles, DatumWithoutARecordIsInTheIndexAlone)
{
    ZorGeoDatabase database;
    Open(database,
         GeoText()
             .List(L"DatumTransform Section", {"Ghost", "Real"})
             .Section(L"Dtf-Real", Ellipsoids("WGS84", "Bessel")),
         {});
    EXPECT_EQ(DatumsOf(database, L"Bessel", true), NameList{"Real"});
    EXPECT_EQ(DatumsOf(database, L"", true), NameList{});
    CStringArray all;
    EXPECT_TRUE(database.GetAllDtfNames(all));
    EXPECT_EQ(Names(all), (NameList{"Ghost", "Real"}));
}

TEST_F(ZorGeoDatabaseFiles, DatumWithoutEllipsoidsHasThoseOfTheOneBefore)
{
    ZorGeoDatabase database;
    Open(database,
         GeoText()
             .List(L"DatumTransform Section", {"First", "Bare"})
             .Section(L"Dtf-First", Ellipsoids("WGS84", "Bessel"))
             .Section(L"Dtf-Bare", {{L"Method name", "No Transformation"}}),
         GeoText().List(L"DatumTransform Section", {"UserBare"}).Section(L"Dtf-UserBare", {{L"Method name", "x"}}));
    EXPECT_EQ(DatumsOf(database, L"Bessel", true), (NameList{"First", "Bare"}));
    EXPECT_EQ(DatumsOf(database, L"WGS84", false), (NameList{"First", "Bare"}));
    EXPECT_EQ(DatumsOf(database, L"", true), NameList{"UserBare"});
}

TEST_F(ZorGeoDatabaseFiles, ProjectionWithoutAMethodHasThatOfTheOneBefore)
{
    ZorGeoDatabase database;
    Open(database,
         GeoText()
             .List(L"Projections section", {"Ghost", "First", "Bare"})
             .Section(L"Prj-First", {{L"Projection method", "TM"}})
             .Section(L"Prj-Bare", {{L"Unit name", "Meters"}}),
         GeoText().List(L"Projections section", {"Mine"}).Section(L"Prj-Mine", {{L"Projection method", "TM"}}));
    EXPECT_EQ(ProjectionsOf(database, L"TM"), (NameList{"First", "Bare", "Mine"}));
}

TEST_F(ZorGeoDatabaseFiles, SecondInitAppendsDatumNamesBehindTheFirstOnes)
{
    ZorGeoDatabase database;
    Open(database,
         GeoText()
             .List(L"DatumTransform Section", {"B", "H"})
             .Section(L"Dtf-B", Ellipsoids("WGS84", "Bessel"))
             .Section(L"Dtf-H", Ellipsoids("WGS84", "Hayford")),
         {});
    // The same file again: the ellipsoids start afresh, so each name still comes once.
    ASSERT_TRUE(database.Init());
    EXPECT_EQ(DatumsOf(database, L"WGS84", false), (NameList{"B", "H"}));
    // Another order of the file: names of the first Init answer for the ellipsoids of the last.
    WriteMain(GeoText()
                  .List(L"DatumTransform Section", {"New", "H", "B"})
                  .Section(L"Dtf-New", Ellipsoids("WGS84", "Airy"))
                  .Section(L"Dtf-H", Ellipsoids("WGS84", "Hayford"))
                  .Section(L"Dtf-B", Ellipsoids("WGS84", "Bessel")));
    ASSERT_TRUE(database.Init());
    EXPECT_EQ(DatumsOf(database, L"Airy", true), NameList{"B"});
    EXPECT_EQ(DatumsOf(database, L"Hayford", true), NameList{"H"});
    EXPECT_EQ(DatumsOf(database, L"Bessel", true), NameList{"B"});
    EXPECT_EQ(DatumsOf(database, L"WGS84", false), (NameList{"B", "H", "B"}));
}

TEST_F(ZorGeoDatabaseFiles, SecondInitListsProjectionsOnce)
{
    ZorGeoDatabase database;
    Open(database,
         GeoText().List(L"Projections section", {"Zone 3"}).Section(L"Prj-Zone 3", {{L"Projection method", "TM"}}), {});
    ASSERT_TRUE(database.Init());
    EXPECT_EQ(ProjectionsOf(database, L"TM"), NameList{"Zone 3"});
}

TEST_F(ZorGeoDatabaseFiles, InitReadsTheFilesAnewAndForgetsWhatWasNotSaved)
{
    ZorGeoDatabase database;
    Open(database, {}, GeoText().List(L"Groups Section", {"Mine"}));
    database.GetUserFile().SetItem(L"Groups Section", L"2", L"Unsaved", true);
    ASSERT_TRUE(database.Init());
    EXPECT_FALSE(database.GetUserFile().HasKey(L"Groups Section", L"2"));
}

TEST_F(ZorGeoDatabaseFiles, InitEndsTheModeThatThrows)
{
    ZorGeoDatabase database;
    Open(database, GeoText().List(L"DatumTransform Section", {"Bare"}).Section(L"Dtf-Bare", {{L"Method name", "x"}}),
         GeoText().List(L"Projections section", {"Bare"}).Section(L"Prj-Bare", {{L"Unit name", "Meters"}}));
    database.GetMainFile().ThrowExceptions(true);
    database.GetUserFile().ThrowExceptions(true);
    EXPECT_TRUE(database.Init());
    EXPECT_EQ(database.GetPrjMdNameByPrjName(L"Bare"), L"");
    EXPECT_EQ(database.GetDtfDescription(L"Bare"), L"");
}

TEST_F(ZorGeoDatabaseFiles, InitThatFailsLeavesTheDatabaseClosed)
{
    ZorGeoDatabase database;
    Open(database, {}, {});
    std::filesystem::remove(mainDirectory.Path() / "zorgeodatabase.geo");
    EXPECT_FALSE(database.Init());
    EXPECT_FALSE(database.GetMainFile().FileInitialised());
    EXPECT_FALSE(database.GetUserFile().FileInitialised());
}

TEST_F(ZorGeoDatabaseFiles, CopyHoldsFilesAndListsOfItsOwn)
{
    ZorGeoDatabase database;
    Open(database,
         GeoText()
             .List(L"DatumTransform Section", {"B"})
             .Section(L"Dtf-B", Ellipsoids("WGS84", "Bessel"))
             .List(L"Projections section", {"Zone 3"})
             .Section(L"Prj-Zone 3", {{L"Projection method", "TM"}}),
         {});
    ZorGeoDatabase copy(database);
    ZorGeoDatabase assigned;
    assigned = database;
    database.GetUserFile().SetItem(L"Elp-Later", L"SemiMajor", 6378137.0, true);
    for (ZorGeoDatabase* other : {&copy, &assigned}) {
        EXPECT_EQ(DatumsOf(*other, L"Bessel", true), NameList{"B"});
        EXPECT_EQ(ProjectionsOf(*other, L"TM"), NameList{"Zone 3"});
        EXPECT_FALSE(other->HasEllpsoid(L"Later", GeoDbUser));
        EXPECT_TRUE(other->Init());
    }
}

TEST_F(ZorGeoDatabaseFiles, WhatWasNotSavedIsGoneWithTheObject)
{
    const GeoText mainContent = GeoText().List(L"Groups Section", {"Ports"});
    const GeoText userContent = GeoText().List(L"Groups Section", {"Mine"});
    {
        ZorGeoDatabase database;
        Open(database, mainContent, userContent);
        database.GetMainFile().SetItem(L"Groups Section", L"2", L"Unsaved", true);
        database.GetUserFile().SetItem(L"Groups Section", L"2", L"Unsaved", true);
    }
    {
        ZorGeoDatabase onlyUserOpen;
        ASSERT_TRUE(onlyUserOpen.Init());
        onlyUserOpen.GetMainFile().FileClose();
    }
    EXPECT_EQ(mainDirectory.Read("zorgeodatabase.geo"), mainContent.Text());
    EXPECT_EQ(userDirectory.Read("zorusergeobase.geo"), userContent.Text());
}
