// The forms of `zorgeo show`: what stands on stdout, what on stderr, and what is refused.

#include <algorithm>
#include <sstream>

#include <nlohmann/json.hpp>

#include "CliTest.h"
#include "base/files/FileObject.h"
#include "base/keys/KeyTables.h"
#include "tests/support/ProjOracle.h"

using testing::AllOf;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

namespace {

using namespace test_names;
using nlohmann::json;

/// The delivered database, with systems of every type.
class ShowDelivered : public CliTest {
protected:
    ToolRun Show(const std::string& system, const std::string& form, std::vector<std::string> more = {}) const
    {
        std::vector<std::string> arguments = {"show",   system,          "--as",   form,
                                              "--data", ZORGEO_DATA_DIR, "--user", Path("user")};
        arguments.insert(arguments.end(), more.begin(), more.end());
        return RunTool(arguments);
    }
};

class ShowCommand : public CliTest {
protected:
    ToolRun Show(const std::string& system, const std::string& form, std::vector<std::string> more = {}) const
    {
        std::vector<std::string> arguments = {"show", system, "--group", kGroup, "--as", form};
        arguments.insert(arguments.end(), more.begin(), more.end());
        return Run(arguments);
    }
};

std::size_t Lines(const std::string& text)
{
    return static_cast<std::size_t>(std::count(text.begin(), text.end(), '\n'));
}

} // namespace

TEST_F(ShowCommand, JsonHasSchemaAndEveryNumberOfTheRecord)
{
    const ToolRun run = Show(kMoved, "json");
    ASSERT_EQ(run.status, 0) << run.err;
    const json shown = json::parse(run.out);
    EXPECT_EQ(shown["schema"], "zorgeo.show/1");
    EXPECT_EQ(shown["system"], kMoved);
    EXPECT_EQ(shown["group"], kGroup);
    EXPECT_EQ(shown["database"], "main");
    EXPECT_EQ(shown["unit"]["metres"], 1.0);
    EXPECT_EQ(shown["ellipsoid"]["semiMajorAxis"], 6378388.0);
    EXPECT_EQ(shown["ellipsoid"]["squaredEccentricity"], 0.00672267002233332200);
    EXPECT_NEAR(shown["ellipsoid"]["inverseFlattening"].get<double>(), 297.0, 1e-9);
    EXPECT_EQ(shown["datum"]["method"], "Bursa/Wolfe(7 Parameters)");
    EXPECT_EQ(shown["datum"]["shift"]["z"], kMovedShift[2]);
    EXPECT_EQ(shown["datum"]["source"]["name"], "WGS84");
    EXPECT_TRUE(shown["datum"]["rates"].is_null());
    EXPECT_EQ(shown["projection"]["type"], 0);
    EXPECT_EQ(shown["projection"]["parameters"].size(), 6U);
    EXPECT_TRUE(shown["geoid"].is_null());
}

TEST_F(ShowCommand, JsonOptionIsTheJsonForm)
{
    const ToolRun option = Run({"show", kFeet, "--json"});
    ASSERT_EQ(option.status, 0) << option.err;
    EXPECT_EQ(option.out, Show(kFeet, "json").out);
    EXPECT_EQ(Show(kFeet, "utm", {"--json"}).status, 2);
}

TEST_F(ShowCommand, JsonTellsCorrectionsAndGeoid)
{
    const json shifted = json::parse(Show(kShift, "json").out);
    EXPECT_EQ(shifted["postCorrections"]["shift"], json::parse(R"({"x":10.0,"y":20.0,"z":1.0})"));
    EXPECT_TRUE(shifted["postCorrections"]["horizontalAdjust"].is_null());
    const json geoid = json::parse(Show(kGeoid, "json").out);
    EXPECT_EQ(geoid["geoid"]["method"], "Manual");
    EXPECT_EQ(geoid["geoid"]["separation"], 45.0);
}

TEST_F(ShowCommand, JsonTellsRatesAndEpoch)
{
    const json moving = json::parse(Show(kMoving, "json").out);
    EXPECT_EQ(moving["datum"]["rates"]["shift"]["z"], 1.0);
    EXPECT_EQ(moving["datum"]["rates"]["epoch"], 2020.0);
}

TEST_F(ShowCommand, SameBytesEveryTime)
{
    for (const char* form : {"text", "id", "xml", "proj4", "geokeys", "json", "proj"}) {
        EXPECT_EQ(Show(kMoving, form).out, Show(kMoving, form).out) << form;
    }
}

TEST_F(ShowCommand, TextIsTheDefaultWithoutCarriageReturns)
{
    const ToolRun run = Run({"show", kMoved});
    ASSERT_EQ(run.status, 0) << run.err;
    EXPECT_EQ(run.out, Show(kMoved, "text").out);
    EXPECT_THAT(run.out, AllOf(Not(HasSubstr("\r")), Not(HasSubstr("\t")), HasSubstr("COORDINATE SYSTEM"),
                               HasSubstr(kMoved), HasSubstr("WORKED EXAMPLES"), HasSubstr("Signature:")));
}

TEST_F(ShowCommand, RawTextIsTheModulesOwn)
{
    const ToolRun run = Show(kMoved, "text", {"--raw"});
    EXPECT_THAT(run.out, StartsWith("SYSTEM: " + std::string(kMoved) + "\r\nDescription: "));
    EXPECT_THAT(Show(kMoved, "id", {"--raw"}).out, StartsWith("\r\n"));
    EXPECT_EQ(Show(kMoved, "json", {"--raw"}).status, 2);
}

// Without a datum the example is what convert gives for the same place.
TEST_F(ShowCommand, ExampleIsWhatConvertGives)
{
    const ToolRun sheet = Show(kPlain, "text", {"--at", "52.5,4.25"});
    ASSERT_EQ(sheet.status, 0) << sheet.err;
    const auto grid = Convert(kPlain, "52.5 4.25 0\n").out;
    std::istringstream words(grid);
    std::string easting;
    std::string northing;
    words >> easting >> northing;
    EXPECT_THAT(sheet.out, AllOf(HasSubstr(easting + " m\n"), HasSubstr(northing + " m\n")));
}

TEST_F(ShowCommand, PlaceOutOfRangeIsUsage)
{
    for (const char* place : {"91,4", "52", "52,", "nan,4", "52,361", "a,b"}) {
        EXPECT_EQ(Show(kPlain, "text", {"--at", place}).status, 2) << place;
    }
    EXPECT_EQ(Show(kPlain, "json", {"--at", "52,4"}).status, 2);
}

// What the module's description leaves out stands on the sheet all the same.
TEST_F(ShowCommand, SheetTellsTheFixedSeparation)
{
    EXPECT_THAT(Show(kGeoid, "text").out, AllOf(HasSubstr("ALSO IN FORCE"), HasSubstr("Fixed geoid separation")));
    EXPECT_THAT(Show(kPlain, "text").out, Not(HasSubstr("ALSO IN FORCE")));
}

TEST_F(ShowDelivered, SheetTellsFixedHeightsAndConstantsOfRD)
{
    const ToolRun run = Show("ETRS 89 - RD (2008)", "text");
    EXPECT_THAT(run.out,
                AllOf(HasSubstr("Fixed height, satellite to local"), HasSubstr("43 m"), HasSubstr("0.9999079")));
}

TEST_F(ShowCommand, XmlIsOneDocument)
{
    const ToolRun run = Show(kMoved, "xml");
    ASSERT_EQ(run.status, 0) << run.err;
    EXPECT_THAT(run.out, StartsWith("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<coordinatesystem>\n"));
    EXPECT_THAT(run.out, AllOf(HasSubstr("<projection>"), HasSubstr("<datumtransform>"), HasSubstr("<ellipsoid>")));
    EXPECT_EQ(run.out.substr(run.out.size() - 20), "</coordinatesystem>\n");
    EXPECT_EQ(run.err, "");
}

TEST_F(ShowDelivered, XmlSaysWhichElementNamesBreakIt)
{
    const ToolRun run = Show("Timbalai 1948 - RSO Borneo (m)", "xml");
    EXPECT_EQ(run.status, 0);
    EXPECT_THAT(run.err, HasSubstr("is no XML name"));
}

TEST_F(ShowDelivered, GeoKeysHaveNumberNameAndValue)
{
    const ToolRun run = Show("ED50 - UTM zone 31N", "geokeys");
    EXPECT_THAT(run.out, AllOf(HasSubstr("3075\tProjCoordTransGeoKey\t1\n"),
                               HasSubstr("3082\tProjFalseEastingGeoKey\t500000\n")));
    EXPECT_EQ(Show("ETRS 89 - RD (2008)", "geokeys").status, 3);
}

TEST_F(ShowDelivered, UtmIsZoneHemisphereAndFalseNorthing)
{
    EXPECT_EQ(Show("ED50 - UTM zone 31N", "utm").out, "zone\t31\nhemisphere\tn\nfalse northing\t0\n");
    EXPECT_EQ(Show("Example - GDA2020 MGA zone 50 with plate motion", "utm").out,
              "zone\t50\nhemisphere\ts\nfalse northing\t10000000\n");
    EXPECT_EQ(Show("ETRS 89 - RD (2008)", "utm").status, 3);
}

namespace {

/// Of the fixed PROJ.4 text: a system, and a part of the line for each way in which PROJ misreads it.
struct Reading {
    const char* system;
    std::vector<const char*> lines;
};
const Reading kReadings[] = {
    {"WGS 84 - UTM zone 31N", {}},
    {"NAD83 - Arizona East (ft)", {"\"+units=m\" goes before \"+to_meter\""}},
    {"Pulkovo 1942 - Caspian Sea Mercator", {"+lonc"}},
    {"Makassar - NEIEZ", {"+lonc", "\"+k_0\""}},
    {"SIRGAS 2000 - Brazil Polyconic", {}}, // its latitude of origin is 0
    {"ETRS 89 - RD (2008)", {"0.999908", "negated", "fixed heights"}},
    {"NAD83 - Alaska zone 1", {"no_uoff"}},
    {"Example - GDA2020 MGA zone 50 with plate motion", {"rates"}},
    {"Palestine 1923 - Palestine Grid", {"northings otherwise", "six decimals", "negated"}},
    {"Trinidad 1903 - Trinidad Grid", {"+units=m"}},
    {"Example - harbour grid with post corrections", {"post corrections"}},
    {"Example - UTM zone 31N with a fixed geoid separation", {"geoid"}},
};

} // namespace

TEST_F(ShowDelivered, Proj4SaysEachWayInWhichProjReadsItOtherwise)
{
    for (const Reading& reading : kReadings) {
        const ToolRun run = Show(reading.system, "proj4");
        EXPECT_EQ(run.status, 0) << reading.system;
        EXPECT_EQ(Lines(run.out), 1U);
        EXPECT_THAT(run.out, StartsWith("+proj="));
        for (const char* line : reading.lines) {
            EXPECT_THAT(run.err, HasSubstr(line)) << reading.system;
        }
        EXPECT_EQ(run.err.empty(), reading.lines.empty()) << reading.system << "\n" << run.err;
    }
    EXPECT_EQ(Show("WGS 84 - UPS North (E,N)", "proj4").status, 3);
}

// One line through `convert` and through PROJ with the text of `show --as proj`.
TEST_F(ShowDelivered, PipelineTakesTheLinesOfConvert)
{
    const ToolRun shown = Show("NAD83 - Arizona East (ft)", "proj");
    ASSERT_EQ(shown.status, 0);
    const auto grid = ProjOracle(shown.out).Forward(34.5, -110.25, 1000.0);
    ToolStreams streams;
    streams.input = "34.5 -110.25 1000\n";
    const ToolRun run = RunTool({"convert", "NAD83 - Arizona East (ft)", "--from", "sat", "--to", "grid", "--data",
                                 ZORGEO_DATA_DIR, "--user", Path("user")},
                                streams);
    const auto numbers = Numbers(run.out);
    ASSERT_EQ(numbers.size(), 3U) << run.err;
    EXPECT_NEAR(numbers[0], grid.x, 0.003);
    EXPECT_NEAR(numbers[1], grid.y, 0.003);
    EXPECT_NEAR(numbers[2], grid.z, 0.003);
}

TEST_F(ShowDelivered, WhatAReferenceSystemCannotSayIsRefusedWithTheReason)
{
    const std::pair<const char*, const char*> kRefused[] = {
        {"ETRS 89 - RD (2008)", "fixed heights"},
        {"Example - GDA2020 MGA zone 50 with plate motion", "moves"},
        {"Palestine 1923 - Palestine Grid", "rotations"},
        {"Example - harbour grid with post corrections", "post corrections"},
        {"Example - UTM zone 31N with a fixed geoid separation", "geoid"}};
    for (const auto& [system, reason] : kRefused) {
        for (const char* form : {"wkt2", "projjson"}) {
            const ToolRun run = Show(system, form);
            EXPECT_EQ(run.status, 3) << system;
            EXPECT_EQ(run.out, "");
            EXPECT_THAT(run.err, HasSubstr(reason)) << system;
        }
    }
}

TEST_F(ShowDelivered, ReferenceSystemsAreWktAndProjjson)
{
    EXPECT_THAT(Show("RGF93 v1 - Lambert-93", "wkt2").out, StartsWith("BOUNDCRS["));
    EXPECT_THAT(Show("WGS 84 - UTM zone 31N", "wkt2").out, StartsWith("PROJCRS["));
    EXPECT_EQ(json::parse(Show("RGF93 v1 - Lambert-93", "projjson").out)["type"], "BoundCRS");
}

TEST_F(ShowCommand, GridSkewIsRefusedByWktAndTurnsThePipeline)
{
    {
        EditedFile edited(MainDatabase());
        edited.file.SetItem(CString(L"Prj-UTM 31"), projectionParamKeys[ProjectionKey::gridSkew], 12.5, true);
    }
    EXPECT_EQ(Show(kPlain, "wkt2").status, 3);
    EXPECT_THAT(Show(kPlain, "proj4").err, HasSubstr("grid skew of 12.5 degrees"));
    const auto grid = ProjOracle(Show(kPlain, "proj").out).Forward(52.5, 4.25);
    const auto numbers = Numbers(Convert(kPlain, "52.5 4.25 0\n").out);
    ASSERT_EQ(numbers.size(), 3U);
    EXPECT_NEAR(numbers[0], grid.x, 0.001);
    EXPECT_NEAR(numbers[1], grid.y, 0.001);
}

// Half a turn is the south orientated projection: axes to the west and the south.
TEST_F(ShowCommand, HalfATurnIsSouthOrientated)
{
    {
        EditedFile edited(MainDatabase());
        edited.file.SetItem(CString(L"Prj-UTM 31"), projectionParamKeys[ProjectionKey::gridSkew], 180.0, true);
    }
    const ToolRun wkt = Show(kPlain, "wkt2");
    EXPECT_THAT(wkt.out, AllOf(HasSubstr("South Orientated"), HasSubstr("south"), HasSubstr("west")));
    const auto numbers = Numbers(Convert(kPlain, "52.5 4.25 0\n").out);
    const auto grid = ProjOracle(Show(kPlain, "proj").out).Forward(52.5, 4.25);
    EXPECT_NEAR(numbers[0], grid.x, 0.001);
    EXPECT_NEAR(numbers[1], grid.y, 0.001);
}

TEST_F(ShowCommand, LostGeoidModelIsRefused)
{
    EXPECT_EQ(Show(kLost, "proj").status, 3);
    EXPECT_EQ(Show(kLost, "proj", {"--geoid-model=--None--"}).status, 0);
}

TEST_F(ShowCommand, UnknownSystemAndFormAreUsage)
{
    EXPECT_EQ(Show("no such system", "json").status, 2);
    EXPECT_EQ(Show(kPlain, "pdf").status, 2);
    EXPECT_EQ(Run({"show"}).status, 2);
}
