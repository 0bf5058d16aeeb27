#include "tests/unit/database/DatabaseFixture.h"

namespace {

using ZorGeoDatabaseNames = DatabaseTest;

GeoText::Entries Ellipsoids(const char* source, const char* target)
{
    return {{transParamKeys[2], source}, {transParamKeys[3], target}};
}

} // namespace

TEST_F(ZorGeoDatabaseNames, GroupsOfEachFileAndOfBothMainFileFirst)
{
    ZorGeoDatabase database;
    Open(database, GeoText().List(L"Groups Section", {"Ports", "Shared"}),
         GeoText().List(L"Groups Section", {"Mine", "Shared"}));
    struct Case {
        geodb_type which;
        NameList expected;
    };
    const Case cases[] = {{GeoDbUser, {"Mine", "Shared"}},
                          {GeoDbMain, {"Ports", "Shared"}},
                          {GeoDbBoth, {"Ports", "Shared", "Mine", "Shared"}}};
    for (const Case& c : cases) {
        CStringArray out;
        out.Add(L"before");
        EXPECT_TRUE(database.GetAllGroupNames(out, c.which));
        EXPECT_EQ(Names(out), c.expected);
    }
}

TEST_F(ZorGeoDatabaseNames, GroupsOfAnUnknownFileAreRefusedWithAnEmptyList)
{
    ZorGeoDatabase database;
    Open(database, GeoText().List(L"Groups Section", {"Ports"}), {});
    CStringArray out;
    out.Add(L"before");
    EXPECT_FALSE(database.GetAllGroupNames(out, geodb_type{}));
    EXPECT_TRUE(out.IsEmpty());
}

TEST_F(ZorGeoDatabaseNames, SystemsOfAGroupFromBothFilesWithoutItsSettings)
{
    ZorGeoDatabase database;
    Open(database,
         GeoText().Section(
             L"Gp-Ports",
             {{L"1", "Dock"}, {L"System count", "2"}, {L"2", "Pier"}, {L"Supported geoid model methods", "OSGM"}}),
         GeoText().Section(L"Gp-Ports", {{L"7", "Mine"}, {L"8", "Dock"}, {L"9", ""}}));
    CStringArray out;
    out.Add(L"before");
    EXPECT_TRUE(database.GetAllSystemNamesByGroupName(out, L"Ports"));
    EXPECT_EQ(Names(out), (NameList{"Dock", "Pier", "Mine", "Dock"}));
    EXPECT_TRUE(database.GetAllSystemNamesByGroupName(out, L"None"));
    EXPECT_TRUE(out.IsEmpty());
}

TEST_F(ZorGeoDatabaseNames, AllSystemsIncludeThoseOfNoGroup)
{
    ZorGeoDatabase database;
    Open(database,
         GeoText()
             .List(L"Gp-Ports", {"Listed without a record"})
             .Section(L"Sys-Dock", {{L"Unit name", "Meters"}})
             .Section(L"sys-Small", {{L"Unit name", "Meters"}}),
         GeoText().Section(L"Sys-Loose", {{L"Unit name", "Meters"}}));
    CStringArray out;
    out.Add(L"before");
    EXPECT_TRUE(database.GetAllSystemNames(out));
    EXPECT_EQ(Names(out), (NameList{"Dock", "Loose"}));
}

TEST_F(ZorGeoDatabaseNames, IndexListsHoldTheIndexAlone)
{
    struct Case {
        const wchar_t* index;
        const wchar_t* unlisted;
        bool (ZorGeoDatabase::*list)(CStringArray&);
    };
    const Case cases[] = {
        {L"DatumTransform Section", L"Dtf-Unlisted", &ZorGeoDatabase::GetAllDtfNames},
        {L"Projections section", L"Prj-Unlisted", &ZorGeoDatabase::GetAllProjectionNames},
        {L"Ellipsoids section", L"Elp-Unlisted", &ZorGeoDatabase::GetAllEllipsoidNames},
    };
    for (const Case& c : cases) {
        ZorGeoDatabase database;
        Open(database, GeoText().List(c.index, {"B", "A"}).Section(c.unlisted, {{L"SemiMajor", "6378137"}}),
             GeoText().List(c.index, {"U", "A"}));
        CStringArray out;
        out.Add(L"before");
        EXPECT_TRUE((database.*c.list)(out));
        EXPECT_EQ(Names(out), (NameList{"B", "A", "U", "A"}));
    }
}

TEST_F(ZorGeoDatabaseNames, UnitsAreTheKeysOfTheirSection)
{
    ZorGeoDatabase database;
    Open(database, GeoText().Section(L"Units section", {{L"Meters", "1.000000,m"}, {L"Feet", ""}}),
         GeoText().Section(L"Units section", {{L"Cubits", "0.457200,cb"}}));
    CStringArray out;
    out.Add(L"before");
    EXPECT_TRUE(database.GetAllUnitNames(out));
    EXPECT_EQ(Names(out), (NameList{"Meters", "Feet", "Cubits"}));
}

TEST_F(ZorGeoDatabaseNames, DatumKeysAreNotListed)
{
    ZorGeoDatabase database;
    CStringArray out;
    out.Add(L"before");
    EXPECT_TRUE(database.GetAllDatumKeys(out));
    EXPECT_EQ(Names(out), NameList{"before"});
}

TEST_F(ZorGeoDatabaseNames, ProjectionsOfAMethodAreAppended)
{
    ZorGeoDatabase database;
    Open(database,
         GeoText()
             .List(L"Projections section", {"P1", "P2", "P3"})
             .Section(L"Prj-P1", {{L"Projection method", "Mercator"}})
             .Section(L"Prj-P2", {{L"Projection method", "mercator"}})
             .Section(L"Prj-P3", {{L"Projection method", "Mercator"}}),
         GeoText().List(L"Projections section", {"U1"}).Section(L"Prj-U1", {{L"Projection method", "Mercator"}}));
    std::vector<CString> out;
    EXPECT_TRUE(database.GetAllPrjNamesByMdName(out, L"Mercator"));
    EXPECT_EQ(out, (std::vector<CString>{L"P1", L"P3", L"U1"}));
    EXPECT_TRUE(database.GetAllPrjNamesByMdName(out, L"Mercator"));
    EXPECT_EQ(out, (std::vector<CString>{L"P1", L"P3", L"U1", L"P1", L"P3", L"U1"}));
    EXPECT_TRUE(database.GetAllPrjNamesByMdName(out, L"Polyconic"));
    EXPECT_EQ(out.size(), 6u);
}

TEST_F(ZorGeoDatabaseNames, DatumsByEllipsoidsMatchTheSourceInAnyCaseAndTheTargetExactly)
{
    ZorGeoDatabase database;
    Open(database,
         GeoText()
             .List(L"DatumTransform Section", {"D1", "D2", "D3"})
             .Section(L"Dtf-D1", Ellipsoids("Wgs84", "Bessel"))
             .Section(L"Dtf-D2", Ellipsoids("WGS84", "BESSEL"))
             .Section(L"Dtf-D3", Ellipsoids("GRS80", "Bessel")),
         GeoText().List(L"DatumTransform Section", {"U1"}).Section(L"Dtf-U1", Ellipsoids("WGS84", "Bessel")));
    CStringArray out;
    out.Add(L"before");
    EXPECT_TRUE(database.GetDtfNamesByElps(out, L"WGS84", L"Bessel"));
    EXPECT_EQ(Names(out), (NameList{"D1", "U1"}));
    EXPECT_TRUE(database.GetDtfNamesByElps(out, L"wgs84", L"bessel"));
    EXPECT_TRUE(out.IsEmpty());
}

TEST_F(ZorGeoDatabaseNames, DatumsByOneEllipsoidMatchExactly)
{
    ZorGeoDatabase database;
    Open(database,
         GeoText()
             .List(L"DatumTransform Section", {"D1", "D2"})
             .Section(L"Dtf-D1", Ellipsoids("WGS84", "Bessel"))
             .Section(L"Dtf-D2", Ellipsoids("Wgs84", "WGS84")),
         {});
    CStringArray out;
    out.Add(L"before");
    EXPECT_TRUE(database.GetAllDtfNamesByOneElp(out, L"WGS84", false));
    EXPECT_EQ(Names(out), NameList{"D1"});
    EXPECT_TRUE(database.GetAllDtfNamesByOneElp(out, L"WGS84", true));
    EXPECT_EQ(Names(out), NameList{"D2"});
    EXPECT_TRUE(database.GetAllDtfNamesByOneElp(out, L"bessel", true));
    EXPECT_TRUE(out.IsEmpty());
}
