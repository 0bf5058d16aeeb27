#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "base/registry/CreatorLists.h"
#include "base/registry/DataSearch.h"
#include "base/registry/ZorGeoCoordSysBase.h"
#include "base/registry/ZorGeoDatabaseBase.h"
#include "base/registry/ZorGeoStaticDataBase.h"
#include "tests/host/LoadedModule.h"
#include "tests/support/TempDirectory.h"

// Each test runs in a process of its own: the module registers once in a process.

namespace {

const CString kKey = L"ZORCoordSys";

struct Counts {
    int coordSys;
    int database;
    int staticData;
    bool operator==(const Counts&) const = default;
};

std::ostream& operator<<(std::ostream& out, const Counts& counts)
{
    return out << counts.coordSys << ' ' << counts.database << ' ' << counts.staticData;
}

Counts Registered()
{
    return {ZorGeoCoordSysList::GetCoordSysList().GetCount(), ZorGeoDatabaseBaseList::GetGeoDatabaseList().GetCount(),
            ZorGeoStaticDatabaseList::GetGeoStaticDataList().GetCount()};
}

ZorCoordSysICreator* CoordSysCreator()
{
    return ZorGeoCoordSysList::GetCoordSysList().Find(kKey);
}
GeoDatabaseICreator* DatabaseCreator()
{
    return ZorGeoDatabaseBaseList::GetGeoDatabaseList().Find(kKey);
}
GeoStaticICreator* StaticDataCreator()
{
    return ZorGeoStaticDatabaseList::GetGeoStaticDataList().Find(kKey);
}

/// Creators of a host's own, which tell when they are destroyed.
class OwnCoordSys : public ZorCoordSysICreator {
public:
    explicit OwnCoordSys(std::vector<std::string>& gone) : m_gone(gone) {}
    ~OwnCoordSys() override { m_gone.emplace_back("coordinate system"); }
    ZorGeoCoordSysBase* Create() override { return nullptr; }

private:
    std::vector<std::string>& m_gone;
};
class OwnDatabase : public GeoDatabaseICreator {
public:
    explicit OwnDatabase(std::vector<std::string>& gone) : m_gone(gone) {}
    ~OwnDatabase() override { m_gone.emplace_back("database"); }
    ZorGeoDatabaseBase* Create() override { return nullptr; }

private:
    std::vector<std::string>& m_gone;
};
class OwnStaticData : public GeoStaticICreator {
public:
    explicit OwnStaticData(std::vector<std::string>& gone) : m_gone(gone) {}
    ~OwnStaticData() override { m_gone.emplace_back("static data"); }
    ZorGeoStaticDataBase* Create() override { return nullptr; }

private:
    std::vector<std::string>& m_gone;
};

} // namespace

TEST(Registration, LoadingAloneRegistersNothing)
{
    const LoadedModule module;
    EXPECT_EQ(Registered(), (Counts{0, 0, 0}));
}

TEST(Registration, PutsOneCreatorIntoEachList)
{
    const LoadedModule module;
    module.RegisterCoordSys();
    EXPECT_EQ(Registered(), (Counts{1, 1, 1}));
    EXPECT_NE(CoordSysCreator(), nullptr);
    EXPECT_NE(DatabaseCreator(), nullptr);
    EXPECT_NE(StaticDataCreator(), nullptr);
    module.UnRegisterCoordSys();
}

TEST(Registration, SecondCallLeavesTheCreatorsOfTheFirst)
{
    const LoadedModule module;
    module.RegisterCoordSys();
    const void* const coordSys = CoordSysCreator();
    const void* const database = DatabaseCreator();
    const void* const staticData = StaticDataCreator();
    module.RegisterCoordSys();
    EXPECT_EQ(Registered(), (Counts{1, 1, 1}));
    EXPECT_EQ(CoordSysCreator(), coordSys);
    EXPECT_EQ(DatabaseCreator(), database);
    EXPECT_EQ(StaticDataCreator(), staticData);
    module.UnRegisterCoordSys();
}

TEST(Registration, ProcessThatHasUnregisteredDoesNotRegisterAgain)
{
    const LoadedModule module;
    module.RegisterCoordSys();
    module.UnRegisterCoordSys();
    EXPECT_EQ(Registered(), (Counts{0, 0, 0}));
    module.RegisterCoordSys();
    EXPECT_EQ(Registered(), (Counts{0, 0, 0}));
}

TEST(Registration, UnregisteringFirstStillEmptiesAllThreeListsInItsOwnOrder)
{
    const LoadedModule module;
    std::vector<std::string> gone;
    ZorGeoCoordSysList::GetCoordSysList().RegisterGeoCoordSys(kKey, new OwnCoordSys(gone));
    ZorGeoStaticDatabaseList::GetGeoStaticDataList().RegisterGeoStaicDatabase(kKey, new OwnStaticData(gone));
    ZorGeoDatabaseBaseList::GetGeoDatabaseList().RegisterGeoDatabase(kKey, new OwnDatabase(gone));
    module.UnRegisterCoordSys();
    EXPECT_EQ(gone, (std::vector<std::string>{"coordinate system", "database", "static data"}));
    EXPECT_EQ(Registered(), (Counts{0, 0, 0}));
    // The guard is still up: this process has not registered yet.
    module.RegisterCoordSys();
    EXPECT_EQ(Registered(), (Counts{1, 1, 1}));
    module.UnRegisterCoordSys();
}

TEST(Registration, OtherModulesKeepTheirCreators)
{
    const LoadedModule module;
    std::vector<std::string> gone;
    ZorGeoDatabaseBaseList::GetGeoDatabaseList().RegisterGeoDatabase(L"other", new OwnDatabase(gone));
    module.RegisterCoordSys();
    module.UnRegisterCoordSys();
    EXPECT_TRUE(gone.empty());
    EXPECT_TRUE(ZorGeoDatabaseBaseList::GetGeoDatabaseList().UnRegisterGeoDatabase(L"other"));
}

TEST(Registration, CreatorsMakeObjectsOfTheCaller)
{
    const LoadedModule module;
    module.RegisterCoordSys();
    {
        const std::unique_ptr<ZorGeoCoordSysBase> coordSys(CoordSysCreator()->Create());
        const std::unique_ptr<ZorGeoDatabaseBase> database(DatabaseCreator()->Create());
        const std::unique_ptr<ZorGeoStaticDataBase> staticData(StaticDataCreator()->Create());
        EXPECT_NE(coordSys, nullptr);
        EXPECT_NE(staticData, nullptr);
        ASSERT_NE(database, nullptr);
        EXPECT_EQ(database->GetDefaultSrcElpName(), L"WGS84");
        // Objects outlive their creators.
        module.UnRegisterCoordSys();
        EXPECT_EQ(database->GetElpKeyByName(L"any"), L"default");
    }
}

TEST(Registration, DatabaseFromTheListReadsTheFilesOfTheSuite)
{
    const TempDirectory directory;
    directory.Write("zorgeodatabase.geo", "[Groups Section]\n1=Ports\n");
    DataSearch& search = DataSearch::GetDataSearch();
    for (const unsigned number : {1u, 2u, 4u, 10u, 26u}) {
        search.SetDataPath(number, directory.Directory());
    }
    const LoadedModule module;
    module.RegisterCoordSys();
    {
        const std::unique_ptr<ZorGeoDatabaseBase> database(DatabaseCreator()->Create());
        ASSERT_TRUE(database->Init());
        CStringArray groups;
        EXPECT_TRUE(database->GetAllGroupNames(groups, GeoDbBoth));
        ASSERT_EQ(groups.GetSize(), 1);
        EXPECT_EQ(groups[0], L"Ports");
    }
    module.UnRegisterCoordSys();
}

TEST(Registration, TextsAreReachableOnceTheModuleIsLoaded)
{
    CString text;
    EXPECT_FALSE(text.LoadString(15396));
    const LoadedModule module;
    EXPECT_TRUE(text.LoadString(15396));
    EXPECT_EQ(text, L"Cannot open coordinate system database!");
}

TEST(Registration, TextsAreGoneOnceTheModuleIsUnloaded)
{
    {
        const LoadedModule module;
    }
    ASSERT_FALSE(LoadedModule::IsMapped()) << "a symbol of the module keeps it mapped";
    CString text;
    EXPECT_FALSE(text.LoadString(15396));
}
