#include <cmath>
#include <filesystem>
#include <limits>

#include "datum/CDatumTransform.h"
#include "tests/unit/database/DatabaseFixture.h"

namespace {

using ZorGeoDatabaseLookups = DatabaseTest;

/// Six outputs of an ellipsoid question, each with a value of its own.
struct EllipsoidOutputs {
    double a = 1, b = 2, e = 3, spare = 4, f = 5, invF = 8;
};

/// A system record with a different text under each key.
GeoText::Entries SystemRecord(const std::string& mark)
{
    return {{L"Datumtransform name", "datum " + mark},  {L"Unit name", "unit " + mark},
            {L"Ellipsoid name", "ellipsoid " + mark},   {L"Geoid model method", "method " + mark},
            {L"Projection name", "projection " + mark}, {L"System description", "text " + mark}};
}

} // namespace

// Systems.

TEST_F(ZorGeoDatabaseLookups, SystemAttributesComeFromTheMainFileFirst)
{
    ZorGeoDatabase database;
    Open(database, GeoText().List(L"Gp-Ports", {"Both", "Main"}).Section(L"Sys-Both", SystemRecord("main")),
         GeoText()
             .List(L"Gp-Ports", {"Both", "User"})
             .Section(L"Sys-Both", SystemRecord("user"))
             .Section(L"Sys-User", SystemRecord("user"))
             .Section(L"Sys-Main", SystemRecord("user")));
    struct Case {
        const wchar_t* group;
        const wchar_t* system;
        const char* mark; // null: empty answers
    };
    const Case cases[] = {
        {L"Ports", L"Both", "main"},  {L"Ports", L"User", "user"},
        {L"Ports", L"Main", nullptr}, // listed in the main file, which has no record of it
        {L"Ports", L"None", nullptr}, {L"None", L"Both", nullptr},
    };
    for (const Case& c : cases) {
        const auto expected = [&](const char* what) {
            return c.mark ? CString::FromUtf8(std::string(what) + " " + c.mark) : CString();
        };
        EXPECT_EQ(database.GetPrjNameByGroupAndSysNames(c.group, c.system), expected("projection"));
        EXPECT_EQ(database.GetDtfNameByGroupAndSysNames(c.group, c.system), expected("datum"));
        EXPECT_EQ(database.GetUnitNameByGroupAndSysNames(c.group, c.system), expected("unit"));
        EXPECT_EQ(database.GetSystemUnit(c.group, c.system), expected("unit"));
    }
}

TEST_F(ZorGeoDatabaseLookups, MethodOfASystemsProjection)
{
    ZorGeoDatabase database;
    Open(database,
         GeoText()
             .List(L"Gp-Ports", {"Dock"})
             .Section(L"Sys-Dock", {{L"Projection name", "Zone 3"}})
             .Section(L"Prj-Zone 3", {{L"Projection method", "main method"}}),
         GeoText().Section(L"Prj-Zone 3", {{L"Projection method", "user method"}}));
    EXPECT_EQ(database.GetPrjMdNameByGroupAndSysNames(L"Ports", L"Dock"), L"user method");
    EXPECT_EQ(database.GetPrjMdNameByGroupAndSysNames(L"Ports", L"None"), L"");
}

TEST_F(ZorGeoDatabaseLookups, MethodOfASystemsProjectionIsAskedVirtually)
{
    class Further : public ZorGeoDatabase {
    public:
        CString GetPrjMdNameByPrjName(CString projection) override { return L"<" + projection + L">"; }
    };
    Further database;
    Open(database, GeoText().List(L"Gp-Ports", {"Dock"}).Section(L"Sys-Dock", {{L"Projection name", "Zone 3"}}), {});
    EXPECT_EQ(database.GetPrjMdNameByGroupAndSysNames(L"Ports", L"Dock"), L"<Zone 3>");
    EXPECT_EQ(database.GetPrjMdNameByGroupAndSysNames(L"Ports", L"None"), L"<>");
}

TEST_F(ZorGeoDatabaseLookups, SystemOfAProjectionIsTheFirstInTheProjectionsFile)
{
    ZorGeoDatabase database;
    Open(database,
         GeoText()
             .List(L"Groups Section", {"Empty", "Ports", "Yards"})
             .List(L"Gp-Ports", {"Other", "Dock"})
             .List(L"Gp-Yards", {"Dock"})
             .Section(L"Sys-Other", {{L"Projection name", "Zone 4"}})
             .Section(L"Sys-Dock", {{L"Projection name", "ZONE 3"}})
             .Section(L"Prj-Zone 3", {{L"Unit name", "Meters"}})
             .Section(L"Prj-Both", {{L"Unit name", "Meters"}})
             .Section(L"Sys-MainBoth", {{L"Projection name", "Both"}})
             .List(L"Gp-Mine", {"MainBoth"}),
         GeoText()
             .List(L"Groups Section", {"Mine"})
             .List(L"Gp-Mine", {"UserBoth"})
             .Section(L"Prj-Both", {{L"Unit name", "Meters"}})
             .Section(L"Sys-UserBoth", {{L"Projection name", "Both"}})
             .Section(L"Prj-Unused", {{L"Unit name", "Meters"}}));
    CString group = L"g";
    CString system = L"s";
    EXPECT_FALSE(database.FindGroupAndSysByPrjName(L"None", group, system));
    EXPECT_FALSE(database.FindGroupAndSysByPrjName(L"Unused", group, system));
    // A system of the main file that uses a projection of the user file is not looked at.
    EXPECT_FALSE(database.FindGroupAndSysByPrjName(L"zone 3", group, system));
    EXPECT_EQ(group, L"g");
    EXPECT_EQ(system, L"s");
    EXPECT_TRUE(database.FindGroupAndSysByPrjName(L"Zone 3", group, system));
    EXPECT_EQ(group, L"Ports");
    EXPECT_EQ(system, L"Dock");
    EXPECT_TRUE(database.FindGroupAndSysByPrjName(L"Both", group, system));
    EXPECT_EQ(group, L"Mine");
    EXPECT_EQ(system, L"UserBoth");
}

TEST_F(ZorGeoDatabaseLookups, SystemOfAProjectionUsesTheVirtualLists)
{
    class Further : public ZorGeoDatabase {
    public:
        bool HasProjection(CString, unsigned which) override { return which == GeoDbMain; }
        bool GetAllGroupNames(CStringArray& out, geodb_type which) override
        {
            EXPECT_EQ(which, GeoDbBoth);
            out.Add(L"made up");
            return true;
        }
        bool GetAllSystemNamesByGroupName(CStringArray& out, CString group) override
        {
            EXPECT_EQ(group, L"made up");
            out.Add(L"Dock");
            return true;
        }
    };
    Further database;
    Open(database, GeoText().Section(L"Sys-Dock", {{L"Projection name", "Zone 3"}}), {});
    CString group;
    CString system;
    EXPECT_TRUE(database.FindGroupAndSysByPrjName(L"Zone 3", group, system));
    EXPECT_EQ(group, L"made up");
    EXPECT_EQ(system, L"Dock");
}

// Projections.

TEST_F(ZorGeoDatabaseLookups, ProjectionAttributesComeFromTheUserFileFirst)
{
    const auto record = [](const char* mark, const char* type) {
        return GeoText::Entries{{L"Projection method", std::string("method ") + mark},
                                {L"Unit name", std::string("unit ") + mark},
                                {projectionParamKeys[1], type},
                                {projectionParamKeys[11], std::string("zone ") + mark},
                                {projectionParamKeys[12], std::string("half ") + mark}};
    };
    ZorGeoDatabase database;
    Open(database, GeoText().Section(L"Prj-Both", record("main", "4")).Section(L"Prj-Main", record("main", "7")),
         GeoText().Section(L"Prj-Both", record("user", "1")).Section(L"Prj-Bare", {{L"Other", "x"}}));
    struct Case {
        const wchar_t* name;
        const char* mark;
        int type;
    };
    for (const Case& c : {Case{L"Both", "user", 1}, Case{L"Main", "main", 7}}) {
        const auto expected = [&](const char* what) { return CString::FromUtf8(std::string(what) + " " + c.mark); };
        EXPECT_EQ(database.GetPrjMdNameByPrjName(c.name), expected("method"));
        EXPECT_EQ(database.GetPrjUnit(c.name), expected("unit"));
        EXPECT_EQ(database.GetPrjTypeByPrjName(c.name), c.type);
        CString zone;
        CString hemisphere;
        EXPECT_TRUE(database.GetPrjUTMInfo(c.name, zone, hemisphere));
        EXPECT_EQ(zone, expected("zone"));
        EXPECT_EQ(hemisphere, expected("half"));
    }
    EXPECT_EQ(database.GetPrjMdNameByPrjName(L"None"), L"");
    EXPECT_EQ(database.GetPrjUnit(L"None"), L"");
    EXPECT_EQ(database.GetPrjTypeByPrjName(L"None"), 0);
    EXPECT_EQ(database.GetPrjMdNameByPrjName(L"Bare"), L"");
    EXPECT_EQ(database.GetPrjTypeByPrjName(L"Bare"), 0);
}

TEST_F(ZorGeoDatabaseLookups, UtmTextsOfARecordWithoutThemStay)
{
    ZorGeoDatabase database;
    Open(database, GeoText().Section(L"Prj-Bare", {{L"Unit name", "Meters"}}), {});
    CString zone = L"z";
    CString hemisphere = L"h";
    EXPECT_FALSE(database.GetPrjUTMInfo(L"None", zone, hemisphere));
    EXPECT_TRUE(database.GetPrjUTMInfo(L"Bare", zone, hemisphere));
    EXPECT_EQ(zone, L"z");
    EXPECT_EQ(hemisphere, L"h");
}

TEST_F(ZorGeoDatabaseLookups, ConstantsOfAProjectionAreThoseOfItsClass)
{
    const auto record = [](const char* easting) {
        return GeoText::Entries{{projectionParamKeys[1], "0"}, {L"LatOrigin", "49"},
                                {L"LonOrigin", "-2"},          {L"FalseEasting", easting},
                                {L"FalseNorthing", "-100000"}, {L"ScaleFactor", "0.9996012717"}};
    };
    ZorGeoDatabase database;
    Open(database, GeoText().Section(L"Prj-National", record("1")).Section(L"Prj-Main", record("400000")),
         GeoText().Section(L"Prj-National", record("400000")));
    // A catalogue that lists the parameters of a Transverse Mercator in an order of its own.
    mainDirectory.Write("ZorProjectionStatic.dat", GeoText()
                                                       .Section(L"Projections-Section", {{L"0", "TM"}})
                                                       .Section(L"ParaStatic-Section", {{L"LonOrigin", "Meridian,1"},
                                                                                        {L"LatOrigin", "Parallel,2"},
                                                                                        {L"FalseEasting", "E,3"},
                                                                                        {L"FalseNorthing", "N,3"},
                                                                                        {L"ScaleFactor", "k,3"},
                                                                                        {L"GridSkew", "Skew,3"}})
                                                       .Section(L"TM", {{L"0", "ScaleFactor"},
                                                                        {L"1", "LonOrigin"},
                                                                        {L"2", "LatOrigin"},
                                                                        {L"3", "FalseEasting"},
                                                                        {L"4", "FalseNorthing"},
                                                                        {L"5", "GridSkew"},
                                                                        {L"Unitflag", "1"}})
                                                       .Text());
    for (const wchar_t* name : {L"National", L"Main"}) {
        CArray<double, double> values;
        CStringArray names;
        CStringArray texts;
        CArray<UINT, UINT> kinds;
        names.Add(L"before");
        EXPECT_TRUE(database.GetPrjConstantsByName(name, values, names, texts, kinds));
        EXPECT_EQ(std::vector<double>(values.begin(), values.end()),
                  (std::vector<double>{0.9996012717, -2, 49, 400000, -100000, 0}));
        EXPECT_EQ(Names(names), (NameList{"k", "Meridian", "Parallel", "E", "N", "Skew"}));
        EXPECT_EQ(texts.GetSize(), 6);
        EXPECT_EQ(std::vector<UINT>(kinds.begin(), kinds.end()), (std::vector<UINT>{3, 1, 2, 3, 3, 3}));
    }
}

TEST_F(ZorGeoDatabaseLookups, ConstantsAreRefusedWithoutARecordOrAClass)
{
    ZorGeoDatabase database;
    Open(database, GeoText().Section(L"Prj-Odd", {{projectionParamKeys[1], "5"}}), {});
    CArray<double, double> values;
    values.Add(7.0);
    CStringArray names;
    CStringArray texts;
    CArray<UINT, UINT> kinds;
    EXPECT_FALSE(database.GetPrjConstantsByName(L"None", values, names, texts, kinds));
    EXPECT_FALSE(database.GetPrjConstantsByName(L"Odd", values, names, texts, kinds));
    EXPECT_EQ(values.GetSize(), 1);
}

TEST_F(ZorGeoDatabaseLookups, ConstantsAreRefusedWithoutTheirPlacesInTheCatalogue)
{
    ZorGeoDatabase database;
    Open(database,
         GeoText().Section(L"Prj-Zone", {{projectionParamKeys[1], "0"},
                                         {L"LatOrigin", "49"},
                                         {L"LonOrigin", "-2"},
                                         {L"FalseEasting", "400000"},
                                         {L"FalseNorthing", "-100000"},
                                         {L"ScaleFactor", "0.9996012717"}}),
         {});
    const GeoText methods = GeoText().Section(L"Projections-Section", {{L"0", "TM"}});
    const std::string catalogues[] = {
        GeoText(methods).Section(L"TM", {}).Text(), // taken for -1 parameters
        // Without "Unitflag" one place too few, and the last parameter in the place behind.
        GeoText(methods)
            .Section(L"ParaStatic-Section",
                     {{L"LonOrigin", "Meridian,1"}, {L"LatOrigin", "Parallel,2"}, {L"ScaleFactor", "k,4"}})
            .Section(L"TM", {{L"0", "LonOrigin"}, {L"1", "LatOrigin"}, {L"2", "ScaleFactor"}})
            .Text(),
    };
    for (const std::string& catalogue : catalogues) {
        mainDirectory.Write("ZorProjectionStatic.dat", catalogue);
        CArray<double, double> values;
        values.Add(7.0);
        CStringArray names;
        CStringArray texts;
        CArray<UINT, UINT> kinds;
        bool answer = true;
        EXPECT_NO_THROW(answer = database.GetPrjConstantsByName(L"Zone", values, names, texts, kinds)) << catalogue;
        EXPECT_FALSE(answer) << catalogue;
        EXPECT_EQ(values.GetSize(), 1);
        EXPECT_TRUE(names.IsEmpty());
    }
    // A method that the catalogue does not have at all has no constants.
    for (const std::string& catalogue : {std::string(), methods.Text()}) {
        mainDirectory.Write("ZorProjectionStatic.dat", catalogue);
        CArray<double, double> values;
        values.Add(7.0);
        CStringArray names;
        CStringArray texts;
        CArray<UINT, UINT> kinds;
        EXPECT_TRUE(database.GetPrjConstantsByName(L"Zone", values, names, texts, kinds)) << catalogue;
        EXPECT_TRUE(values.IsEmpty()) << catalogue;
    }
}

// Datum transformations.

TEST_F(ZorGeoDatabaseLookups, DatumInBothFilesIsToldFromBoth)
{
    const auto record = [](const char* mark, const char* shift) {
        return GeoText::Entries{{L"Method name", std::string("method ") + mark},
                                {transParamKeys[2], std::string("source ") + mark},
                                {transParamKeys[3], std::string("target ") + mark},
                                {transParamKeys[4], shift},
                                {transParamKeys[19], "2010.5"},
                                {transParamKeys[1], std::string("text ") + mark}};
    };
    ZorGeoDatabase database;
    Open(database, GeoText().Section(L"Dtf-Both", record("main", "1.5")).Section(L"Dtf-Main", record("main", "1.5")),
         GeoText().Section(L"Dtf-Both", record("user", "2.5")).Section(L"Dtf-User", record("user", "2.5")));
    struct Case {
        const wchar_t* name;
        const char* numbers; // file that answers for the numbers
        double shiftX;
        const char* names; // file that answers for description and ellipsoids
    };
    const Case cases[] = {
        {L"Both", "main", 1.5, "user"}, {L"Main", "main", 1.5, "main"}, {L"User", "user", 2.5, "user"}};
    for (const Case& c : cases) {
        CString method, source, target;
        double d[15];
        std::fill(std::begin(d), std::end(d), 9.0);
        bool fixedHeight = true;
        double forward = 9.0, reverse = 9.0;
        ASSERT_TRUE(database.GetDtfParamByName(c.name, method, d[0], d[1], d[2], d[3], d[4], d[5], d[6], d[7], d[8],
                                               d[9], d[10], d[11], d[12], d[13], d[14], source, target, fixedHeight,
                                               forward, reverse));
        EXPECT_EQ(method, CString::FromUtf8(std::string("method ") + c.numbers));
        EXPECT_EQ(source, CString::FromUtf8(std::string("source ") + c.numbers));
        EXPECT_EQ(target, CString::FromUtf8(std::string("target ") + c.numbers));
        const double expected[15] = {c.shiftX, 9, 9, 9, 9, 9, 9, 0, 0, 0, 0, 0, 0, 0, 2010.5};
        for (int i = 0; i < 15; ++i) {
            EXPECT_EQ(d[i], expected[i]) << i;
        }
        EXPECT_FALSE(fixedHeight);
        EXPECT_EQ(forward, 0.0);
        EXPECT_EQ(reverse, 0.0);

        EXPECT_TRUE(database.GetElpNamesByDtfName(c.name, source, target));
        EXPECT_EQ(source, CString::FromUtf8(std::string("source ") + c.names));
        EXPECT_EQ(target, CString::FromUtf8(std::string("target ") + c.names));
        EXPECT_EQ(database.GetDtfDescription(c.name), CString::FromUtf8(std::string("text ") + c.names));
    }
}

TEST_F(ZorGeoDatabaseLookups, ShortenedNameInTheMainFileHidesTheExactOneOfTheUserFile)
{
    ZorGeoDatabase database;
    Open(database, GeoText().Section(L"Dtf-A -  C", {{L"Method name", "main"}, {transParamKeys[4], "1.5"}}),
         GeoText().Section(L"Dtf-A - B: C", {{L"Method name", "user"}, {transParamKeys[4], "2.5"}}));
    CString method = L"m", source = L"s", target = L"t";
    double d[15];
    std::fill(std::begin(d), std::end(d), 9.0);
    bool fixedHeight = true;
    double forward = 9.0, reverse = 9.0;
    EXPECT_TRUE(database.GetDtfParamByName(L"A - B: C", method, d[0], d[1], d[2], d[3], d[4], d[5], d[6], d[7], d[8],
                                           d[9], d[10], d[11], d[12], d[13], d[14], source, target, fixedHeight,
                                           forward, reverse));
    EXPECT_EQ(method, L"m");
    EXPECT_EQ(source, L"s");
    EXPECT_EQ(target, L"t");
    for (int i = 0; i < 15; ++i) {
        EXPECT_EQ(d[i], i < 7 ? 9.0 : 0.0) << i;
    }
    EXPECT_FALSE(fixedHeight);
}

TEST_F(ZorGeoDatabaseLookups, UnknownDatumLeavesEveryOutput)
{
    ZorGeoDatabase database;
    Open(database, {}, {});
    CString method = L"m", source = L"s", target = L"t";
    double d[15];
    std::fill(std::begin(d), std::end(d), 9.0);
    bool fixedHeight = true;
    double forward = 9.0, reverse = 9.0;
    EXPECT_FALSE(database.GetDtfParamByName(L"None", method, d[0], d[1], d[2], d[3], d[4], d[5], d[6], d[7], d[8], d[9],
                                            d[10], d[11], d[12], d[13], d[14], source, target, fixedHeight, forward,
                                            reverse));
    EXPECT_FALSE(database.GetElpNamesByDtfName(L"None", source, target));
    EXPECT_EQ(method, L"m");
    EXPECT_EQ(source, L"s");
    EXPECT_EQ(target, L"t");
    for (const double value : d) {
        EXPECT_EQ(value, 9.0);
    }
    EXPECT_TRUE(fixedHeight);
    EXPECT_EQ(forward, 9.0);
    EXPECT_EQ(reverse, 9.0);
    EXPECT_EQ(database.GetDtfDescription(L"None"), L"");
}

TEST_F(ZorGeoDatabaseLookups, FixedAnswers)
{
    ZorGeoDatabase database;
    EXPECT_EQ(database.GetDtfFilePathByDtfName(L"any"), L"");
    EXPECT_EQ(database.GetDatumKeyByName(L"any"), L" ");
    EXPECT_EQ(database.GetElpKeyByName(L"any"), L"default");
    EXPECT_EQ(database.GetDefaultSrcElpName(), L"WGS84");
    CString group;
    CString system;
    database.GetDefaultGroupAndSystem(group, system);
    EXPECT_EQ(group, L"Netherlands");
    EXPECT_EQ(system, L"ETRS 89 - RD (2008)");
}

// Ellipsoids.

TEST_F(ZorGeoDatabaseLookups, EllipsoidParametersAreDerived)
{
    // GRS 1980 (Moritz, Geodetic Reference System 1980, 2000): a, e squared; b, e, 1/f derived there.
    ZorGeoDatabase database;
    Open(database, GeoText().Section(L"Elp-GRS80", {{L"SemiMajor", "6378137"}, {L"EccSqrd", "0.00669438002290"}}),
         GeoText()
             .Section(L"Elp-GRS80", {{L"SemiMajor", "7000000"}, {L"EccSqrd", "0.01"}})
             .Section(L"Elp-Mine", {{L"SemiMajor", "7000000"}, {L"EccSqrd", "0.36"}}));
    EllipsoidOutputs o;
    ASSERT_TRUE(database.GetElpParamByElpName(L"GRS80", o.a, o.b, o.e, o.spare, o.f, o.invF));
    EXPECT_EQ(o.a, 6378137.0);
    EXPECT_NEAR(o.b, 6356752.3141, 1e-4);
    EXPECT_NEAR(o.e, 0.081819191042816, 1e-12);
    EXPECT_EQ(o.spare, 4.0);
    EXPECT_NEAR(o.f, 0.00335281068118, 1e-13);
    EXPECT_NEAR(o.invF, 298.257222101, 1e-7);

    // e squared 0.36: b = 0.8 a, 1/f = 5.
    ASSERT_TRUE(database.GetElpParamByElpName(L"Mine", o.a, o.b, o.e, o.spare, o.f, o.invF));
    EXPECT_DOUBLE_EQ(o.b, 5600000.0);
    EXPECT_DOUBLE_EQ(o.e, 0.6);
    EXPECT_NEAR(o.invF, 5.0, 1e-14);
    EXPECT_NEAR(o.f, 0.2, 1e-15);
}

TEST_F(ZorGeoDatabaseLookups, UnknownEllipsoidLeavesEveryOutput)
{
    ZorGeoDatabase database;
    Open(database, GeoText().Section(L"Elp-Half", {{L"SemiMajor", "6378137"}}), {});
    for (const wchar_t* name : {L"None", L"Half"}) {
        EllipsoidOutputs o;
        EXPECT_FALSE(database.GetElpParamByElpName(name, o.a, o.b, o.e, o.spare, o.f, o.invF));
        EXPECT_EQ(o.a, 1.0);
        EXPECT_EQ(o.b, 2.0);
        EXPECT_EQ(o.e, 3.0);
        EXPECT_EQ(o.f, 5.0);
        EXPECT_EQ(o.invF, 8.0);
    }
}

TEST_F(ZorGeoDatabaseLookups, SphereHasAnInfiniteInverseFlattening)
{
    ZorGeoDatabase database;
    Open(database, GeoText().Section(L"Elp-Sphere", {{L"SemiMajor", "6371000"}, {L"EccSqrd", "0"}}), {});
    EllipsoidOutputs o;
    ASSERT_TRUE(database.GetElpParamByElpName(L"Sphere", o.a, o.b, o.e, o.spare, o.f, o.invF));
    EXPECT_EQ(o.b, 6371000.0);
    EXPECT_EQ(o.e, 0.0);
    EXPECT_EQ(o.invF, std::numeric_limits<double>::infinity());
    EXPECT_EQ(o.f, 0.0);
}

TEST_F(ZorGeoDatabaseLookups, RefusedEllipsoidTakesTheFlatteningOfTheCaller)
{
    ZorGeoDatabase database;
    Open(database,
         GeoText()
             .Section(L"Elp-Small", {{L"SemiMajor", "5000000"}, {L"EccSqrd", "0.0064"}})
             .Section(L"Elp-Limit", {{L"SemiMajor", "6000000"}, {L"EccSqrd", "0.36"}})
             .Section(L"Elp-Open", {{L"SemiMajor", "6378137"}, {L"EccSqrd", "1.44"}}),
         {});
    EllipsoidOutputs o;
    ASSERT_TRUE(database.GetElpParamByElpName(L"Small", o.a, o.b, o.e, o.spare, o.f, o.invF));
    EXPECT_EQ(o.a, 5000000.0);
    EXPECT_EQ(o.b, 0.0);
    EXPECT_DOUBLE_EQ(o.e, 0.08);
    EXPECT_EQ(o.invF, 8.0);
    EXPECT_EQ(o.f, 0.125);

    o.invF = 4.0;
    ASSERT_TRUE(database.GetElpParamByElpName(L"Open", o.a, o.b, o.e, o.spare, o.f, o.invF));
    EXPECT_EQ(o.b, 0.0);
    EXPECT_DOUBLE_EQ(o.e, 1.2);
    EXPECT_EQ(o.f, 0.25);

    ASSERT_TRUE(database.GetElpParamByElpName(L"Limit", o.a, o.b, o.e, o.spare, o.f, o.invF));
    EXPECT_DOUBLE_EQ(o.b, 4800000.0);
}

TEST_F(ZorGeoDatabaseLookups, EllipsoidOfADatumIsItsTarget)
{
    ZorGeoDatabase database;
    Open(database,
         GeoText()
             .Section(L"Dtf-Both", {{transParamKeys[3], "Wide"}})
             .Section(L"Dtf-Lost", {{transParamKeys[3], "Nowhere"}})
             .Section(L"Elp-Wide", {{L"SemiMajor", "7000000"}, {L"EccSqrd", "0.36"}}),
         GeoText()
             .Section(L"Dtf-Both", {{transParamKeys[3], "Nowhere"}})
             .Section(L"Dtf-User", {{transParamKeys[3], "Wide"}}));
    for (const wchar_t* name : {L"Both", L"User"}) {
        EllipsoidOutputs o;
        CString target;
        EXPECT_TRUE(database.GetElpsoidParametersByDtName(name, target, o.a, o.b, o.e, o.spare, o.f, o.invF));
        EXPECT_EQ(target, L"Wide");
        EXPECT_EQ(o.a, 7000000.0);
        EXPECT_DOUBLE_EQ(o.e, 0.6);
    }
    EllipsoidOutputs o;
    CString target = L"t";
    EXPECT_FALSE(database.GetElpsoidParametersByDtName(L"None", target, o.a, o.b, o.e, o.spare, o.f, o.invF));
    EXPECT_EQ(target, L"t");
    EXPECT_FALSE(database.GetElpsoidParametersByDtName(L"Lost", target, o.a, o.b, o.e, o.spare, o.f, o.invF));
    EXPECT_EQ(target, L"Nowhere");
    EXPECT_EQ(o.a, 1.0);
}

TEST_F(ZorGeoDatabaseLookups, EllipsoidOfADatumIsAskedVirtually)
{
    class Further : public ZorGeoDatabase {
    public:
        bool GetElpParamByElpName(CString name, double& a, double&, double&, double&, double&, double&) override
        {
            a = name == L"Wide" ? 42.0 : 0.0;
            return true;
        }
    };
    Further database;
    Open(database, GeoText().Section(L"Dtf-D", {{transParamKeys[3], "Wide"}}), {});
    EllipsoidOutputs o;
    CString target;
    EXPECT_TRUE(database.GetElpsoidParametersByDtName(L"D", target, o.a, o.b, o.e, o.spare, o.f, o.invF));
    EXPECT_EQ(o.a, 42.0);
}

// Units.

TEST_F(ZorGeoDatabaseLookups, UnitParametersComeFromTheMainFileFirst)
{
    ZorGeoDatabase database;
    Open(database, GeoText().Section(L"Units section", {{L"Feet", "0.304800,ft"}, {L"Bare", "x"}}),
         GeoText().Section(L"Units section", {{L"FEET", "0.5,wrong"}, {L"Cubits", "0.457200,cb"}}));
    CString key = L"k", suffix = L"s";
    double factor = 9.0;
    short digits = 3;
    EXPECT_FALSE(database.GetUnitParametersByName(L"None", key, suffix, factor, digits));
    EXPECT_EQ(key, L"k");
    EXPECT_EQ(suffix, L"s");
    EXPECT_EQ(factor, 9.0);
    EXPECT_EQ(digits, 3);

    EXPECT_TRUE(database.GetUnitParametersByName(L"feet", key, suffix, factor, digits));
    EXPECT_EQ(key, L"Feet");
    EXPECT_EQ(suffix, L"ft");
    EXPECT_EQ(factor, 0.3048);
    EXPECT_EQ(digits, 7);

    EXPECT_TRUE(database.GetUnitParametersByName(L"cubits", key, suffix, factor, digits));
    EXPECT_EQ(key, L"Cubits");
    EXPECT_EQ(factor, 0.4572);

    // A text without factor and suffix leaves both.
    EXPECT_TRUE(database.GetUnitParametersByName(L"Bare", key, suffix, factor, digits));
    EXPECT_EQ(factor, 0.4572);
    EXPECT_EQ(suffix, L"cb");
}

TEST_F(ZorGeoDatabaseLookups, NewUnitIsFoundUntilTheNextInit)
{
    ZorGeoDatabase database;
    Open(database, {}, {});
    EXPECT_TRUE(database.CreateNewUnit(L"Chains", 20.1168, L"ch", 3));
    CString key, suffix;
    double factor = 0.0;
    short digits = 0;
    EXPECT_TRUE(database.GetUnitParametersByName(L"Chains", key, suffix, factor, digits));
    EXPECT_EQ(suffix, L"ch");
    EXPECT_EQ(factor, 20.1168);
    EXPECT_EQ(digits, 7);
    CString text;
    EXPECT_TRUE(database.GetUserFile().GetItem(L"Units section", L"Chains", text));
    EXPECT_EQ(text, L"20.116800,ch");
    EXPECT_FALSE(database.GetUserFile().HasSection(L"General"));

    ASSERT_TRUE(database.Init());
    EXPECT_FALSE(database.HasUint(L"Chains", GeoDbBoth));
}

// Existence.

TEST_F(ZorGeoDatabaseLookups, RecordsExistByFile)
{
    struct Case {
        const wchar_t* prefix;
        bool (ZorGeoDatabase::*has)(CString, unsigned);
    };
    const Case cases[] = {
        {L"Gp-", &ZorGeoDatabase::HasGroup},       {L"Sys-", &ZorGeoDatabase::HasSystem},
        {L"Dtf-", &ZorGeoDatabase::HasDtf},        {L"Elp-", &ZorGeoDatabase::HasEllpsoid},
        {L"Prj-", &ZorGeoDatabase::HasProjection},
    };
    for (const Case& c : cases) {
        const CString prefix = c.prefix;
        ZorGeoDatabase database;
        Open(database, GeoText().Section(prefix + L"Main", {{L"1", "x"}}),
             GeoText().Section(prefix + L"User", {{L"1", "x"}}));
        EXPECT_TRUE((database.*c.has)(L"User", 1));
        EXPECT_FALSE((database.*c.has)(L"User", 2));
        EXPECT_TRUE((database.*c.has)(L"User", 3));
        EXPECT_FALSE((database.*c.has)(L"Main", 1));
        EXPECT_TRUE((database.*c.has)(L"Main", 2));
        EXPECT_TRUE((database.*c.has)(L"Main", 3));
        for (const unsigned which : {1u, 2u, 3u}) {
            EXPECT_FALSE((database.*c.has)(L"main", which));
        }
    }
}

TEST_F(ZorGeoDatabaseLookups, UnitsExistByFileInAnyCaseOfLetters)
{
    ZorGeoDatabase database;
    Open(database, GeoText().Section(L"Units section", {{L"Feet", "0.304800,ft"}}),
         GeoText().Section(L"Units section", {{L"Cubits", "0.457200,cb"}}));
    EXPECT_TRUE(database.HasUint(L"CUBITS", 1));
    EXPECT_FALSE(database.HasUint(L"Cubits", 2));
    EXPECT_TRUE(database.HasUint(L"feet", 2));
    EXPECT_FALSE(database.HasUint(L"feet", 1));
    EXPECT_TRUE(database.HasUint(L"feet", 3));
    EXPECT_FALSE(database.HasUint(L"yards", 3));
}

TEST_F(ZorGeoDatabaseLookups, EverythingExistsInAFileThatIsNone)
{
    ZorGeoDatabase database;
    Open(database, {}, {});
    for (const unsigned which : {0u, 4u, 99u}) {
        EXPECT_TRUE(database.HasGroup(L"any", which));
        EXPECT_TRUE(database.HasSystem(L"any", which));
        EXPECT_TRUE(database.HasDtf(L"any", which));
        EXPECT_TRUE(database.HasEllpsoid(L"any", which));
        EXPECT_TRUE(database.HasUint(L"any", which));
        EXPECT_TRUE(database.HasProjection(L"any", which));
    }
}

// The mode that throws.

TEST_F(ZorGeoDatabaseLookups, NoReaderThrowsAfterABrokenDatumHasLeftItsFileThrowing)
{
    // Every record is there, and has none of the keys that are asked for.
    GeoText bare;
    bare.List(L"Groups Section", {"Ports"}).List(L"Gp-Ports", {"Bare"}).List(L"Gp-Gone", {"None"});
    bare.List(L"DatumTransform Section", {"Bare"}).List(L"Projections section", {"Bare"});
    bare.Section(L"Units section", {{L"Meters", "one,m"}});
    for (const wchar_t* section : {L"Sys-Bare", L"Dtf-Bare", L"Prj-Bare", L"Elp-Bare"}) {
        bare.Section(section, {{L"Other", "x"}});
    }
    // A projection whose record lacks a key that it may lack.
    bare.Section(L"Prj-Zone", {{projectionParamKeys[1], "0"},
                               {L"LatOrigin", "49"},
                               {L"LonOrigin", "-2"},
                               {L"FalseEasting", "400000"},
                               {L"FalseNorthing", "-100000"},
                               {L"ScaleFactor", "0.9996"}});
    ZorGeoDatabase database;
    Open(database, bare, bare);
    std::filesystem::copy(std::filesystem::path(ZORGEO_DATA_DIR) / "ZorProjectionStatic.dat", mainDirectory.Path());
    CDatumTransform broken;
    ASSERT_FALSE(broken.Load(database, L"Dtf-Bare"));
    CString text;
    ASSERT_THROW(database.GetMainFile().GetItem(L"Dtf-Bare", L"None", text), CString);
    ASSERT_THROW(database.GetUserFile().GetItem(L"Dtf-Bare", L"None", text), CString);

    using Text = CString (ZorGeoDatabase::*)(CString, CString);
    for (const Text get : {&ZorGeoDatabase::GetPrjNameByGroupAndSysNames, &ZorGeoDatabase::GetDtfNameByGroupAndSysNames,
                           &ZorGeoDatabase::GetUnitNameByGroupAndSysNames, &ZorGeoDatabase::GetSystemUnit,
                           &ZorGeoDatabase::GetPrjMdNameByGroupAndSysNames, &ZorGeoDatabase::GetDefaultGeoidModelMd,
                           &ZorGeoDatabase::GetDefaultGeoidGrid, &ZorGeoDatabase::GetDefaultGridCorrectionFile,
                           &ZorGeoDatabase::GetDefaultGridCorrectionModel, &ZorGeoDatabase::GetSupportedGeoidModels,
                           &ZorGeoDatabase::GetCustomSupportedGeoidModels}) {
        EXPECT_NO_THROW(EXPECT_EQ((database.*get)(L"Ports", L"Bare"), L""));
    }
    using Flag = bool (ZorGeoDatabase::*)(CString, CString);
    for (const Flag has : {&ZorGeoDatabase::HasGeoidModel, &ZorGeoDatabase::HasPostCorrection,
                           &ZorGeoDatabase::HasPostHorAdjust, &ZorGeoDatabase::HasPostVertAdjust}) {
        EXPECT_NO_THROW(EXPECT_FALSE((database.*has)(L"Ports", L"Bare")));
    }
    using Name = CString (ZorGeoDatabase::*)(CString);
    for (const Name get :
         {&ZorGeoDatabase::GetPrjMdNameByPrjName, &ZorGeoDatabase::GetPrjUnit, &ZorGeoDatabase::GetDtfDescription}) {
        EXPECT_NO_THROW(EXPECT_EQ((database.*get)(L"Bare"), L""));
    }
    using List = bool (ZorGeoDatabase::*)(CStringArray&);
    CStringArray list;
    for (const List get :
         {&ZorGeoDatabase::GetAllSystemNames, &ZorGeoDatabase::GetAllDtfNames, &ZorGeoDatabase::GetAllUnitNames,
          &ZorGeoDatabase::GetAllEllipsoidNames, &ZorGeoDatabase::GetAllProjectionNames}) {
        EXPECT_NO_THROW(EXPECT_TRUE((database.*get)(list)));
    }
    EXPECT_NO_THROW(EXPECT_TRUE(database.GetAllGroupNames(list, GeoDbBoth)));
    EXPECT_NO_THROW(EXPECT_TRUE(database.GetAllSystemNamesByGroupName(list, L"Ports")));
    EXPECT_NO_THROW(EXPECT_EQ(database.GetGeoidManualSeparation(L"Ports", L"Bare"), 0.0));
    EXPECT_NO_THROW(EXPECT_EQ(database.GetPrjTypeByPrjName(L"Bare"), 0));
    double x = 7, y = 8, z = 9, w = 10, e = 11, f = 12;
    EXPECT_NO_THROW(database.GetGridCorrection(L"Ports", L"Bare", x, y, z));
    EXPECT_NO_THROW(database.GetPostHorAdjust(L"Ports", L"Bare", x, y, z, w));
    EXPECT_NO_THROW(database.GetPostVertAdjust(L"Ports", L"Bare", x, y, z, w));
    EXPECT_NO_THROW(EXPECT_FALSE(database.GetElpParamByElpName(L"Bare", x, y, z, w, e, f)));
    CString source = L"s", target = L"t", method = L"m";
    EXPECT_NO_THROW(EXPECT_FALSE(database.GetElpsoidParametersByDtName(L"Bare", target, x, y, z, w, e, f)));
    EXPECT_EQ(x, 7);
    EXPECT_EQ(w, 10);
    EXPECT_EQ(f, 12);
    EXPECT_NO_THROW(EXPECT_TRUE(database.GetElpNamesByDtfName(L"Bare", source, target)));
    EXPECT_NO_THROW(EXPECT_TRUE(database.GetPrjUTMInfo(L"Bare", source, target)));
    EXPECT_NO_THROW(EXPECT_FALSE(database.FindGroupAndSysByPrjName(L"Bare", source, target)));
    double d[15] = {};
    bool fixedHeight = true;
    EXPECT_NO_THROW(EXPECT_TRUE(database.GetDtfParamByName(L"Bare", method, d[0], d[1], d[2], d[3], d[4], d[5], d[6],
                                                           d[7], d[8], d[9], d[10], d[11], d[12], d[13], d[14], source,
                                                           target, fixedHeight, x, y)));
    EXPECT_EQ(method, L"m");
    EXPECT_EQ(source, L"s");
    EXPECT_EQ(target, L"t");
    EXPECT_FALSE(fixedHeight);
    double factor = 5.0;
    short digits = 0;
    EXPECT_NO_THROW(EXPECT_TRUE(database.GetUnitParametersByName(L"Meters", method, source, factor, digits)));
    EXPECT_EQ(factor, 5.0);
    CArray<double, double> values;
    CStringArray names;
    CStringArray texts;
    CArray<UINT, UINT> kinds;
    EXPECT_NO_THROW(EXPECT_TRUE(database.GetPrjConstantsByName(L"Zone", values, names, texts, kinds)));
    EXPECT_EQ(values.GetSize(), 6);
    EXPECT_NO_THROW(EXPECT_TRUE(database.SetGeoidModel(L"Ports", L"Bare", L"EGM96", L"", true)));
}
