#include <algorithm>
#include <thread>

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include "SystemTest.h"
#include "tests/support/ProjOracle.h"

using testing::AllOf;
using testing::HasSubstr;
using testing::Not;

class SystemCommand : public SystemTest {};

// Template, filled with published values, added, converted.

namespace {

using Json = nlohmann::ordered_json;

struct MethodRow {
    const char* method;
    const char* ellipsoid;
    std::vector<std::pair<const char*, Json>> values;
    const char* proj; ///< the same in PROJ's words; axes as published
    double latitude;
    double longitude;
};

// Parameters of the EPSG Geodetic Parameter Dataset; codes of the projected systems in the rows.
const std::vector<MethodRow>& Methods()
{
    static const std::vector<MethodRow> rows = {
        {"Transverse Mercator", // 27700
         "Airy 1830",
         {{"LonOrigin", -2.0},
          {"LatOrigin", 49.0},
          {"FalseEasting", 400000.0},
          {"FalseNorthing", -100000.0},
          {"ScaleFactor", 0.9996012717},
          {"GridSkew", 0.0}},
         "+proj=tmerc +lon_0=-2 +lat_0=49 +x_0=400000 +y_0=-100000 +k=0.9996012717 +a=6377563.396 +rf=299.3249646",
         52.5,
         -1.0},
        {"Universal Transverse Mercator", // 32755
         "WGS84",
         {{"LonOrigin", 147.0},
          {"LatOrigin", 0.0},
          {"FalseEasting", 500000.0},
          {"FalseNorthing", 10000000.0},
          {"ScaleFactor", 0.9996},
          {"GridSkew", 0.0},
          {"UTMZone", "Zone 55     (147 E)"},
          {"Hemisphere", "Southern"}},
         "+proj=utm +zone=55 +south +ellps=WGS84",
         -37.8,
         145.0},
        {"RD", // 28992
         "Bessel 1841",
         {{"LonOrigin", 5.387638888888889},
          {"LatOrigin", 52.15616055555555},
          {"FalseEasting", 155000.0},
          {"FalseNorthing", 463000.0},
          {"ScaleFactor", 0.9999079}},
         "+proj=sterea +lon_0=5.387638888888889 +lat_0=52.15616055555555 +x_0=155000 +y_0=463000 +k=0.9999079 "
         "+a=6377397.155 +rf=299.1528128",
         53.0,
         6.0},
        {"Lambert 2 Parallel", // 2154
         "GRS 1980",
         {{"LonOrigin", 3.0},
          {"LatOrigin", 46.5},
          {"FalseEasting", 700000.0},
          {"FalseNorthing", 6600000.0},
          {"1stParallel", 44.0},
          {"2ndParallel", 49.0}},
         "+proj=lcc +lon_0=3 +lat_0=46.5 +x_0=700000 +y_0=6600000 +lat_1=44 +lat_2=49 +ellps=GRS80",
         48.0,
         1.0},
        {"Mercator", // 3388
         "Krassowsky 1940",
         {{"LonOrigin", 51.0},
          {"LatOrigin", 0.0},
          {"FalseEasting", 0.0},
          {"FalseNorthing", 0.0},
          {"ScaleFactor", 1.0},
          {"GridSkew", 0.0},
          {"LatTrueScale", 42.0}},
         "+proj=merc +lon_0=51 +lat_ts=42 +a=6378245 +rf=298.3",
         40.0,
         50.0},
        {"Stereographic", // 3844
         "Krassowsky 1940",
         {{"LonOrigin", 25.0},
          {"LatOrigin", 46.0},
          {"FalseEasting", 500000.0},
          {"FalseNorthing", 500000.0},
          {"ScaleFactor", 0.99975}},
         "+proj=sterea +lon_0=25 +lat_0=46 +x_0=500000 +y_0=500000 +k=0.99975 +a=6378245 +rf=298.3",
         44.5,
         26.0},
        {"Cassini_Soldner", // 28191
         "Clarke 1880 (Benoit)",
         {{"LonOrigin", 35.21208055555556},
          {"LatOrigin", 31.73409694444445},
          {"FalseEasting", 170251.555},
          {"FalseNorthing", 126867.909},
          {"ScaleFactor", 1.0}},
         "+proj=cass +lon_0=35.21208055555556 +lat_0=31.73409694444445 +x_0=170251.555 +y_0=126867.909 "
         "+a=6378300.789 +b=6356566.435",
         32.0,
         35.0},
        {"Hotine Oblique Mercator(A)", // 26931
         "GRS 1980",
         {{"LonOrigin", -133.66666666666666},
          {"LatOrigin", 57.0},
          {"FalseEasting", 5000000.0},
          {"FalseNorthing", -5000000.0},
          {"ScaleFactor", 0.9999},
          {"InitialAzimuth", 323.1301023611111},
          {"HotineGridSkew", 323.1301023611111}},
         "+proj=omerc +no_uoff +lonc=-133.6666666666667 +lat_0=57 +x_0=5000000 +y_0=-5000000 +k=0.9999 "
         "+alpha=323.1301023611111 +gamma=323.1301023611111 +ellps=GRS80",
         58.0,
         -134.0},
        {"Lambert 1 Parallel", // 27561
         "Clarke 1880 (IGN)",
         {{"LonOrigin", 2.33722917},
          {"LatOrigin", 49.5},
          {"FalseEasting", 600000.0},
          {"FalseNorthing", 200000.0},
          {"ScaleFactor", 0.999877341}},
         "+proj=lcc +lon_0=2.33722917 +lat_0=49.5 +lat_1=49.5 +x_0=600000 +y_0=200000 +k_0=0.999877341 "
         "+a=6378249.2 +b=6356515",
         49.0,
         3.0},
        {"Hotine Oblique Mercator(B)", // 29873
         "Everest 1830 (1967 Definition)",
         {{"LonOrigin", 115.0},
          {"LatOrigin", 4.0},
          {"EastingAtCentre", 590476.87},
          {"NorthingAtCentre", 442857.65},
          {"ScaleFactor", 0.99984},
          {"InitialAzimuth", 53.31582047222222},
          {"HotineGridSkew", 53.13010236111111}},
         "+proj=omerc +lonc=115 +lat_0=4 +x_0=590476.87 +y_0=442857.65 +k=0.99984 +alpha=53.31582047222222 "
         "+gamma=53.13010236111111 +a=6377298.556 +rf=300.8017",
         5.0,
         114.5},
        {"Polyconic", // 5880
         "GRS 1980",
         {{"LonOrigin", -54.0}, {"LatOrigin", 0.0}, {"FalseEasting", 5000000.0}, {"FalseNorthing", 10000000.0}},
         "+proj=poly +lon_0=-54 +lat_0=0 +x_0=5000000 +y_0=10000000 +ellps=GRS80",
         -10.0,
         -50.0},
        {"Universal Polar Stereographic", // 5041
         "WGS84",
         {{"FalseEasting", 2000000.0},
          {"FalseNorthing", 2000000.0},
          {"ScaleFactor", 0.994},
          {"Hemisphere", "Northern"}},
         "+proj=stere +lat_0=90 +lon_0=0 +k=0.994 +x_0=2000000 +y_0=2000000 +ellps=WGS84",
         85.0,
         30.0}};
    return rows;
}

Json Filled(Json json, const MethodRow& row)
{
    json["group"] = "Tried";
    json["system"] = std::string("My ") + row.method;
    json["ellipsoid"] = {{"name", row.ellipsoid}};
    json["datum"]["name"] = "No Transformation";
    json["projection"]["name"] = std::string("My ") + row.method;
    for (Json& parameter : json["projection"]["parameters"]) {
        for (const auto& [key, value] : row.values) {
            if (parameter["key"] == key) {
                parameter["value"] = value;
            }
        }
    }
    return json;
}

} // namespace

TEST_F(SystemCommand, TemplateOfEachMethodFilledAndAddedConvertsAsProjDoes)
{
    for (const MethodRow& row : Methods()) {
        SCOPED_TRACE(row.method);
        const ToolRun made = Run({"system", "template", row.method, "--datum", "No Transformation"});
        ASSERT_EQ(made.status, 0) << made.err;
        const ToolRun added = Add(Filled(Json::parse(made.out), row));
        ASSERT_EQ(added.status, 0) << added.err;
        const std::string position = std::to_string(row.latitude) + " " + std::to_string(row.longitude) + "\n";
        const ToolRun run = ConvertFrom(std::string("My ") + row.method, "geo", "grid", position, {"--precision", "6"});
        ASSERT_EQ(run.status, 0) << run.err;
        const auto grid = Numbers(run.out);
        const auto right =
            ProjOracle(row.proj).Forward(ProjOracle::Radians(row.longitude), ProjOracle::Radians(row.latitude));
        ASSERT_EQ(grid.size(), 2U);
        EXPECT_NEAR(grid[0], right.x, 0.001);
        EXPECT_NEAR(grid[1], right.y, 0.001);
    }
}

TEST_F(SystemCommand, EveryMethodOfTheCatalogueHasARowAbove)
{
    const ToolRun run = Run({"list", "methods"});
    for (const MethodRow& row : Methods()) {
        EXPECT_THAT(run.out, HasSubstr(std::string(row.method) + "\t"));
    }
    EXPECT_EQ(std::count(run.out.begin(), run.out.end(), '\n'), static_cast<long>(Methods().size()));
}

TEST_F(SystemCommand, ATemplateAsItIsLacksEverythingAndTellsWhere)
{
    const ToolRun made = Run({"system", "template", "lambert 1"});
    ASSERT_EQ(made.status, 0) << made.err;
    const ToolRun run = RunOn("add", made.out);
    EXPECT_EQ(run.status, 3);
    for (const char* place : {"/group: missing", "/system: missing", "/ellipsoid/name: missing", "/datum/name: missing",
                              "/datum/shift/x: missing", "/projection/name: missing",
                              "/projection/parameters/0/value: missing or null; give a longitude in degrees"}) {
        EXPECT_THAT(run.err, HasSubstr(place));
    }
    EXPECT_EQ(Run({"system", "template", "sinusoidal"}).status, 2);
}

// Adding.

TEST_F(SystemCommand, TheExampleIsAddedAndSaysWhatIsNewAndWhatIsThere)
{
    const ToolRun run = Add(Example());
    EXPECT_EQ(run.status, 0) << run.err;
    EXPECT_EQ(run.out, "");
    EXPECT_THAT(run.err, AllOf(HasSubstr("new group \"Harbours\"\n"), HasSubstr("new projection \"Harbour grid\"\n"),
                               HasSubstr("the datum transformation \"WGS84 to ED50 (EPSG 1311)\" is that of the main "
                                         "database\n"),
                               HasSubstr("added the system \"Harbour grid\" to the group \"Harbours\"\n")));
    EXPECT_EQ(Run({"list", "systems", "--group", "Harbours"}).out, "Harbour grid\tHarbours\n");
    EXPECT_THAT(UserDatabase(), Not(HasSubstr("[Dtf-")));
}

TEST_F(SystemCommand, WhatShowGivesCanBeAddedUnderOtherNames)
{
    for (const char* system :
         {"ED50 - UTM zone 31N", "ETRS89 - Belgian Lambert 2008", "SIRGAS 2000 - Brazil Polyconic",
          "GDA2020 - MGA zone 50", "NAD27 - BLM 15N (ftUS)", "WGS 84 - UPS North (E,N)",
          "Example - harbour grid with post corrections", "Example - UTM zone 31N with a fixed geoid separation"}) {
        SCOPED_TRACE(system);
        const ToolRun shown = Run({"show", system, "--json"});
        ASSERT_EQ(shown.status, 0) << shown.err;
        Json json = Json::parse(shown.out);
        const std::string name = "Copy of " + std::string(system);
        json["group"] = "Copies";
        json["system"] = name;
        const ToolRun added = Add(json);
        ASSERT_EQ(added.status, 0) << added.err;
        Json copy = Json::parse(Run({"show", name, "--json"}).out);
        json["database"] = "user";
        json["description"] = "";
        EXPECT_EQ(copy, json);
    }
}

TEST_F(SystemCommand, ADescriptionOfATransformationDoesNotHinderTheLookAfterSaving)
{
    Json json = Example();
    json["datum"] = OwnDatum();
    json["datum"]["description"] = "from a survey of 1998";
    EXPECT_EQ(Add(json).status, 0);
    json["system"] = "Second";
    const ToolRun again = Add(json);
    EXPECT_EQ(again.status, 0) << again.err;
    EXPECT_THAT(again.err, HasSubstr("the projection \"Harbour grid\" is that of the user database\n"));
    EXPECT_THAT(again.err, HasSubstr("the datum transformation \"Harbour shift\" is that of the user database\n"));
}

TEST_F(SystemCommand, LatitudesOfAPoleAreStoredBesideItAndCountAsEqual)
{
    Json json = Example();
    json["projection"] = {{"name", "Polar cone"},
                          {"method", "Lambert 2 Parallel"},
                          {"parameters", Json::array({{{"key", "LonOrigin"}, {"value", 4.0}},
                                                      {{"key", "LatOrigin"}, {"value", 90.0}},
                                                      {{"key", "FalseEasting"}, {"value", 0.0}},
                                                      {{"key", "FalseNorthing"}, {"value", 0.0}},
                                                      {{"key", "1stParallel"}, {"value", 70.0}},
                                                      {{"key", "2ndParallel"}, {"value", 80.0}}})}};
    const ToolRun run = Add(json);
    EXPECT_EQ(run.status, 0) << run.err;
    EXPECT_THAT(UserDatabase(), HasSubstr("LatOrigin=89.9999999999\n"));
    json["system"] = "Second";
    EXPECT_EQ(Add(json).status, 0);
}

TEST_F(SystemCommand, NewUnitAndEllipsoidAreStored)
{
    Json json = Example();
    json["unit"] = {{"name", "Chains"}, {"metres", 20.1168}, {"suffix", "ch"}};
    json["ellipsoid"] = {{"name", "Plessis 1817"}, {"semiMajorAxis", 6376523.0}, {"inverseFlattening", 308.64}};
    json["datum"] = {{"name", "No Transformation"}};
    json["projection"]["parameters"][2]["value"] = 0.0;
    json["projection"]["parameters"][3]["value"] = 0.0;
    const ToolRun run = Add(json);
    ASSERT_EQ(run.status, 0) << run.err;
    EXPECT_THAT(UserDatabase(), HasSubstr("Chains=20.116800,ch\n"));
    const auto grid = Numbers(ConvertFrom("Harbour grid", "geo", "grid", "52.0 4.5\n", {"--precision", "6"}).out);
    const auto right = ProjOracle("+proj=tmerc +lon_0=4.1 +lat_0=51.9 +a=6376523 +rf=308.64")
                           .Forward(ProjOracle::Radians(4.5), ProjOracle::Radians(52.0));
    ASSERT_EQ(grid.size(), 2U);
    EXPECT_NEAR(grid[0] * 20.1168, right.x, 0.001);
    EXPECT_NEAR(grid[1] * 20.1168, right.y, 0.001);
}

TEST_F(SystemCommand, ASaveThatDidNotReachTheDiskIsToldWithStatus4)
{
    ASSERT_EQ(Add(Example()).status, 0);
    const std::string before = UserDatabase();
    // Who reads the file keeps the save, which needs it alone, from it.
    const int reader = ::open(Path("user/zorusergeobase.geo").c_str(), O_RDONLY | O_CLOEXEC);
    ASSERT_GE(reader, 0);
    ASSERT_EQ(::flock(reader, LOCK_SH), 0);
    Json json = Example();
    json["system"] = "Second";
    const ToolRun run = Add(json);
    ::close(reader);
    EXPECT_EQ(run.status, 4);
    EXPECT_THAT(run.err, HasSubstr("the system was not saved"));
    EXPECT_THAT(run.err, Not(HasSubstr("put back"))) << "nothing had changed";
    EXPECT_EQ(UserDatabase(), before);
}

TEST_F(SystemCommand, TwentyAtOnceLoseNothing)
{
    constexpr int kProcesses = 20;
    std::vector<ToolRun> runs(kProcesses);
    {
        std::vector<std::jthread> threads;
        for (int i = 0; i < kProcesses; ++i) {
            threads.emplace_back([this, i, &runs] {
                Json json = Example();
                json["group"] = i % 2 == 0 ? "Even" : "Odd";
                json["system"] = "System " + std::to_string(i);
                json["projection"]["name"] = "Projection " + std::to_string(i);
                Write("new" + std::to_string(i) + ".json", json.dump());
                runs[static_cast<std::size_t>(i)] = Run({"system", "add", Path("new" + std::to_string(i) + ".json")});
            });
        }
    }
    const std::string listed = Run({"list", "systems"}).out;
    for (int i = 0; i < kProcesses; ++i) {
        EXPECT_EQ(runs[static_cast<std::size_t>(i)].status, 0) << runs[static_cast<std::size_t>(i)].err;
        EXPECT_THAT(listed, HasSubstr("System " + std::to_string(i) + (i % 2 == 0 ? "\tEven\n" : "\tOdd\n")));
    }
}

// The report before.

TEST_F(SystemCommand, ShowNewPrintsTheReportAndWritesNothing)
{
    Json json = Example();
    json["datum"] = OwnDatum();
    json["postCorrections"] = {{"shift", {{"x", 1.5}, {"y", -2.0}, {"z", 0.0}}}};
    const ToolRun run = RunOn("show-new", json.dump());
    EXPECT_EQ(run.status, 0) << run.err;
    EXPECT_EQ(run.out, "SYSTEM: Harbour grid\r\n\r\n"
                       "International 1924\r\n"
                       "\tSemi-Major Axis6378388\r\n"
                       "\tInv. Flattening297\r\n"
                       "\tSquared eccentricity0.0067226700223333\r\n\r\n"
                       "DATUMTRANSFORMATION : Harbour shift\r\n"
                       "\tDatum Transformation from WGS84: \r\n"
                       "\tMethod:  Bursa/Wolfe(7 Parameters)\r\n"
                       "\tShift X(m):   87\r\n"
                       "\tShift Y(m):   98\r\n"
                       "\tShift Z(m):   121\r\n"
                       "\tRotation X(sec):   0\r\n"
                       "\tRotation Y(sec):   0\r\n"
                       "\tRotation Z(sec):   0\r\n"
                       "\tScale factor[ppm]:   0\r\n"
                       "\tSatellite ellipsoid:   WGS84\r\n"
                       "\tLocal ellipsoid:   International 1924\r\n"
                       "\tDescription: \r\n\r\n"
                       "GEOID MODEL: \r\n"
                       "\tGeoid Model Method: \r\n"
                       "\tGeo Grid: \r\n"
                       "\tChart Datum: \r\n\r\n"
                       "UNIT:  Meters\r\n"
                       "\tMetric Conversion Factor:1.000000\r\n"
                       "\tDescription: m\r\n\r\n"
                       "PROJECTION: Harbour grid\r\n"
                       "\tMethod:  Transverse Mercator\r\n"
                       "\tLongitude of Origin:004°06'00.0000000\"E\r\n"
                       "\tLatitude of Origin:51°54'00.0000000\"N\r\n"
                       "\tFalse Easting:10000\r\n"
                       "\tFalse Northing:20000\r\n"
                       "\tScale Factor at the Central Meridian:1\r\n"
                       "\tGrid Skew:0\r\n"
                       "\r\n"
                       "POST CORRECTIONS: \r\n"
                       "\tX Correction: 1.500000\r\n"
                       "\tY Correction: -2.000000\r\n"
                       "\tZ Correction: 0.000000\r\n\r\n"
                       "\tCorrection model: \r\n"
                       "\tCorrection file: \r\n");
    EXPECT_EQ(UserDatabase(), "");
}

TEST_F(SystemCommand, HelpOfEachPartEndsWithAnExample)
{
    for (const char* part : {"template", "show-new", "add", "remove", "geoid", "corrections"}) {
        const ToolRun help = RunTool({"system", part, "--help"});
        EXPECT_EQ(help.status, 0);
        EXPECT_THAT(help.out, HasSubstr(std::string("Example:\n  zorgeo system ") + part + " "));
    }
    EXPECT_EQ(RunTool({"system"}).status, 2);
}
