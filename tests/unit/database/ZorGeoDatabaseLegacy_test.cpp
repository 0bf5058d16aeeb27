#include <gtest/gtest.h>

#include "database/ZorGeoDatabase.h"
#include "tests/support/OldMachine.h"

namespace {

/// Counts calls of Init, and answers them.
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

TEST(ZorGeoDatabaseLegacy, ProjectIsOldUntilItNamesGroupAndSystem)
{
    struct Case {
        const char* text;
        bool old;
    };
    const Case cases[] = {
        {"[SPHEROID]\nSpheroid=Bessel 1841\n", true},
        {"", true},
        {"[COORDINATE SYSTEM]\n", true},
        {"[COORDINATE SYSTEM]\nGroup name=Harbours\n", true},
        {"[COORDINATE SYSTEM]\nSystem name=Harbour Grid\n", true},
        {"[COORDINATE SYSTEM]\nGroup name=Harbours\nSystem name=Harbour Grid\n", false},
        {"[COORDINATE SYSTEM]\nGroup name=\nSystem name=\n", false},
        {"no section file", false},
    };
    const TempDirectory directory;
    ZorGeoDatabase database;
    for (const Case& c : cases) {
        EXPECT_EQ(database.IsOldZorProject(directory.Write("project.prj", c.text)), c.old) << c.text;
    }
    EXPECT_FALSE(database.IsOldZorProject(directory.File("missing.prj")));
}

TEST(ZorGeoDatabaseLegacy, ConversionStartsAnewAndSeesTheNewRecords)
{
    OldMachine machine;
    machine.SaveAll();
    CountingDatabase database;
    ASSERT_TRUE(database.Init());
    CString group, system;
    ASSERT_TRUE(database.ConvertProj2Geobase(machine.survey, group, system));
    EXPECT_EQ(database.inits, 2);
    EXPECT_TRUE(database.HasSystem(L"Survey1", GeoDbUser));
    EXPECT_EQ(database.GetDtfNameByGroupAndSysNames(group, system), L"Old Shift");
    CStringArray names;
    database.GetDtfNamesByElps(names, L"WGS84", L"Bessel 1841");
    ASSERT_EQ(names.GetSize(), 1);
    EXPECT_EQ(names[0], L"Old Shift");
}

TEST(ZorGeoDatabaseLegacy, ConversionGivesTheResultOfInit)
{
    OldMachine machine;
    machine.SaveAll();
    CountingDatabase database;
    database.answer = false;
    CString group, system;
    EXPECT_FALSE(database.ConvertProj2Geobase(machine.survey, group, system));
    EXPECT_EQ(system, L"Survey1") << "which is converted all the same";
    EXPECT_TRUE(machine.HasOnDisk(L"Sys-Survey1"));
}

TEST(ZorGeoDatabaseLegacy, ConversionThatFailsDoesNotStartAnew)
{
    OldMachine machine;
    machine.survey.DeleteSection(L"PROJECTION");
    machine.SaveAll();
    CountingDatabase database;
    ASSERT_TRUE(database.Init());
    CString group = L"group", system = L"system";
    EXPECT_FALSE(database.ConvertProj2Geobase(machine.survey, group, system));
    EXPECT_EQ(database.inits, 1);
    EXPECT_EQ(group, L"group");
    EXPECT_EQ(system, L"system");
}
