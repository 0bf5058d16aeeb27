#include "SystemTest.h"

using testing::AllOf;
using testing::HasSubstr;

class SystemFaults : public SystemTest {
protected:
    /// What `add` says to a text that it must refuse, writing nothing.
    std::string Refused(const std::string& text) const
    {
        const ToolRun run = RunOn("add", text);
        EXPECT_EQ(run.status, 3) << run.err;
        EXPECT_EQ(run.out, "");
        EXPECT_EQ(UserDatabase(), "");
        EXPECT_THAT(run.err, HasSubstr("nothing is written"));
        return run.err;
    }
};

namespace {

using Json = nlohmann::ordered_json;

/// One change of the example, and what is said to it.
struct FaultRow {
    const char* pointer;
    Json value;
    const char* message;
};

Json Parameter(const char* key, const Json& value)
{
    return {{"key", key}, {"value", value}};
}

Json Projection(const char* method, std::initializer_list<Json> parameters)
{
    return {{"name", "Tried"}, {"method", method}, {"parameters", Json(Json::array_t(parameters))}};
}

Json Lambert2(double origin, double south, double north)
{
    return Projection("Lambert 2 Parallel", {Parameter("LonOrigin", 3.0), Parameter("LatOrigin", origin),
                                             Parameter("FalseEasting", 0.0), Parameter("FalseNorthing", 0.0),
                                             Parameter("1stParallel", south), Parameter("2ndParallel", north)});
}

Json Hotine(const char* method, bool fromCentre, double latitude, double azimuth)
{
    return Projection(method,
                      {Parameter("LonOrigin", 115.0), Parameter("LatOrigin", latitude),
                       Parameter(fromCentre ? "EastingAtCentre" : "FalseEasting", 0.0),
                       Parameter(fromCentre ? "NorthingAtCentre" : "FalseNorthing", 0.0), Parameter("ScaleFactor", 1.0),
                       Parameter("InitialAzimuth", azimuth), Parameter("HotineGridSkew", 53.0)});
}

Json Utm(double meridian, double northing, const char* zone, const char* hemisphere)
{
    return Projection("Universal Transverse Mercator",
                      {Parameter("LonOrigin", meridian), Parameter("LatOrigin", 0.0),
                       Parameter("FalseEasting", 500000.0), Parameter("FalseNorthing", northing),
                       Parameter("ScaleFactor", 0.9996), Parameter("GridSkew", 0.0), Parameter("UTMZone", zone),
                       Parameter("Hemisphere", hemisphere)});
}

Json Scaled(const char* method, double latitude, double scale)
{
    return Projection(method,
                      {Parameter("LonOrigin", 4.0), Parameter("LatOrigin", latitude), Parameter("FalseEasting", 0.0),
                       Parameter("FalseNorthing", 0.0), Parameter("ScaleFactor", scale)});
}

Json Polar(double scale, const char* hemisphere)
{
    return Projection("Universal Polar Stereographic",
                      {Parameter("FalseEasting", 0.0), Parameter("FalseNorthing", 0.0), Parameter("ScaleFactor", scale),
                       Parameter("Hemisphere", hemisphere)});
}

const Json kKilometres = {{"name", "Kilometres"}, {"metres", 1000.0}, {"suffix", "km"}};

const std::vector<FaultRow>& Rows()
{
    static const std::vector<FaultRow> rows = {
        // The head and names.
        {"/schema", "zorgeo.show/2", "/schema: \"zorgeo.show/2\" cannot stand here; right is \"zorgeo.show/1\""},
        {"/colour", "red", "/colour: unknown key; the keys here are schema, group, system"},
        {"/group", nullptr, "/group: missing or null; give a name"},
        {"/group", "", "/group: the name is empty"},
        {"/group", "two\nlines", "/group: the name holds a line end"},
        {"/group", "north sea", "/group: \"north sea\" differs from the known \"North Sea\" in capitals alone"},
        {"/system", " Harbour", "/system: the name \" Harbour\" has blanks at an end"},
        {"/system", "12", "/system: the name \"12\" is a number, which the counter of a group could be taken for"},
        {"/system", 12, "/system: a text in quotes should stand here"},
        {"/system", "SIRGAS 2000 - Brazil Polyconic",
         "/system: the name \"SIRGAS 2000 - Brazil Polyconic\" is taken by a system with other parts (the group "
         "\"Brazil\" of the main database)"},
        {"/system", "ed50 - utm zone 31n", "differs from the known \"ED50 - UTM zone 31N\" in capitals alone"},
        {"/database", "ours", "/database: right is \"user\" or \"main\""},
        // The unit.
        {"/unit", nullptr, "/unit: an object {...} should stand here, with the keys name, metres, suffix"},
        {"/unit/name", "Fathoms",
         "/unit/metres: missing or null; give the metres in one unit (the database has no unit"},
        {"/unit/name", "meters", "/unit/name: the unit is spelt \"Meters\" in the database"},
        {"/unit/metres", 0.3048, "the name \"Meters\" is taken by another unit of the database: metres is 1 there"},
        {"/unit/suffix", "mm", "suffix is \"m\" there"},
        {"/unit",
         {{"name", "Old feet"}, {"metres", 1200.0 / 3937.0}, {"suffix", "ft"}},
         "/unit/metres: a new unit is stored with six decimals, and 0.3048006096012192 would become 0.304801, 1.3 "
         "parts per million off"},
        {"/unit",
         {{"name", "Nothing"}, {"metres", 0.0}, {"suffix", "n"}},
         "/unit/metres: 0 is out of range; right is metres in one unit, above 0"},
        {"/unit", {{"name", "Comma"}, {"metres", 2.0}, {"suffix", "a,b"}}, "/unit/suffix: \"a,b\" is no suffix"},
        // Ellipsoids.
        {"/ellipsoid",
         {{"name", "Moon"}, {"semiMajorAxis", 1737400.0}, {"squaredEccentricity", 0.0}},
         "/ellipsoid/semiMajorAxis: 1737400 is out of range; right is a semi-major axis in metres, 6000000 to 7000000"},
        {"/ellipsoid",
         {{"name", "Mine"}, {"semiMajorAxis", 6378137.0}},
         "/ellipsoid/inverseFlattening: missing or null; give the inverse flattening, 298 or near it, or "
         "semiMinorAxis"},
        {"/ellipsoid",
         {{"name", "Mine"}, {"semiMajorAxis", 6378137.0}, {"inverseFlattening", 0.00335}},
         "/ellipsoid/inverseFlattening: 0.00335 is out of range"},
        {"/ellipsoid",
         {{"name", "Mine"}, {"semiMajorAxis", 6378137.0}, {"inverseFlattening", 298.257}, {"semiMinorAxis", 6356000.0}},
         "/ellipsoid/semiMinorAxis: disagrees with inverseFlattening"},
        {"/ellipsoid/semiMajorAxis", 6378137.0,
         "the name \"International 1924\" is taken by another ellipsoid of the main database: semiMajorAxis is 6378388 "
         "there"},
        {"/ellipsoid/inverseFlattening", 298.0, "inverseFlattening is 29"},
        // The datum transformation.
        {"/datum", {{"name", "Mine"}}, "/datum/method: missing or null; give one of No Transformation, Bursa/Wolfe"},
        {"/datum", {{"name", "Mine"}, {"method", "Molodensky"}}, "/datum/method: there is no method \"Molodensky\""},
        {"/datum/name", "WGS84 to OSGB36 (EPSG 1314)",
         "leads to the ellipsoid \"Airy 1830\" and the system's is \"International 1924\""},
        {"/datum",
         {{"name", "Mine"}, {"method", "No Transformation"}, {"scale", {{"value", 1.0}}}},
         "/datum/scale: \"No Transformation\" has no parameters"},
        // The projection.
        {"/projection/method", "Gnomonic", "/projection/method: there is no projection method \"Gnomonic\""},
        {"/projection/type", 7, "/projection/type: 7 is not the number of \"Transverse Mercator\"; right is 0"},
        {"/projection/parameters/0",
         {{"key", "LonOrigin"}, {"value", 190.0}},
         "/projection/parameters/0/value: 190 is out of range; right is a longitude in degrees, -180 to 180"},
        {"/projection/parameters/1/value", 90.5,
         "/projection/parameters/1/value: 90.5 is out of range; right is a latitude in degrees, -90 to 90"},
        {"/projection/parameters/1/unit", "radian",
         "/projection/parameters/1/unit: \"radian\" cannot stand here; right "
         "is \"degree\""},
        {"/projection/parameters/1/value", "51.9", "/projection/parameters/1/value: a number without quotes"},
        {"/projection/parameters/2/key", "FalseOrigin", "the method has no parameter \"FalseOrigin\""},
        {"/projection/parameters/2/key", "LatOrigin", "/projection/parameters/2: \"LatOrigin\" stands twice"},
        {"/projection/parameters/2/key", "LatOrigin",
         "/projection/parameters: the parameter \"FalseEasting\" (False Easting) is missing"},
        {"/projection/parameters/2/name", "Easting", "\"FalseEasting\" is called \"False Easting\""},
        {"/projection/parameters/4/value", 0.79,
         "/projection/parameters/4/value: 0.79 is below 0.8, which Transverse Mercator refuses; right is a factor near "
         "1"},
        {"/projection/parameters/4/value", 9996, "9996 is out of range; right is a scale factor near 1"},
        {"/projection/name", "UTM Zone-31N",
         "the name \"UTM Zone-31N\" is taken by another projection of the main database: method is \"Universal "
         "Transverse Mercator\" there"},
        {"/projection", Scaled("Stereographic", 46.0, 0.79), "0.79 is below 0.8, which Stereographic refuses"},
        {"/projection", Scaled("Cassini_Soldner", 46.0, 0.79), "0.79 is below 0.8, which Cassini_Soldner refuses"},
        {"/projection", Polar(0.79, "Northern"), "0.79 is below 0.8, which Universal Polar Stereographic refuses"},
        {"/projection", Polar(0.994, "northern"), "\"northern\" is no hemisphere; right is \"Northern\""},
        {"/projection", Scaled("Stereographic", 90.0, 1.0), "no formulas at a pole; take \"Universal Polar"},
        {"/projection", Scaled("Lambert 1 Parallel", -30.0, 1.0), "-30 is south of the equator"},
        {"/projection", Scaled("Lambert 1 Parallel", 0.0, 1.0), "take the method \"Mercator\""},
        {"/projection", Lambert2(46.0, 45.0, 45.0),
         "/projection/parameters/5/value: both parallels are 45, and the cone's constant would be 0/0"},
        {"/projection", Lambert2(46.0, -45.0, 45.0), "/projection/parameters/4/value: -45 is south of the equator"},
        {"/projection", Lambert2(-1.0, 44.0, 45.0), "/projection/parameters/1/value: -1 is south of the equator"},
        {"/projection", Hotine("Hotine Oblique Mercator(B)", true, 57.0, -90.0),
         "/projection/parameters/5/value: with -90 the projection's constants are no numbers (an arc sine beyond 1); "
         "right is an azimuth off the east-west line, -89.9999"},
        {"/projection", Hotine("Hotine Oblique Mercator(A)", false, -90.0, 30.0), "no azimuth at a pole"},
        {"/projection", Utm(3.0, 0.0, "Zone 61     (183 E)", "Northern"), "is no zone; right is 1 to 60"},
        {"/projection", Utm(3.0, 0.0, "31", "Northern"), "right is \"Zone 31     (  3 E)\""},
        {"/projection", Utm(9.0, 0.0, "Zone 31     (  3 E)", "Northern"),
         "9 is not the central meridian of zone 31; right is 3"},
        {"/projection", Utm(3.0, 0.0, "Zone 31     (  3 E)", "Southern"),
         "0 is not the false northing of the southern hemisphere; right is 10000000"},
        {"/projection", Utm(3.0, 0.0, "Zone 31     (  3 E)", "North"), "\"North\" is no hemisphere"},
        // Geoid and post corrections.
        {"/geoid", {{"method", "Manual"}}, "/geoid/separation: missing or null; give the separation"},
        {"/geoid", {{"method", "EGM96"}}, "/geoid/grid: missing or empty; give the file of the model"},
        {"/geoid", {{"method", "EGM1066"}}, "/geoid/method: there is no model \"EGM1066\" here"},
        {"/geoid",
         {{"method", "EGM96"}, {"grid", "a.gtx"}, {"separation", 1.0}},
         "/geoid/separation: the separation goes with the method \"Manual\""},
        {"/postCorrections", {{"shift", {{"x", 1.0}, {"y", 2.0}}}}, "/postCorrections/shift/z: missing or null"},
        {"/postCorrections",
         {{"horizontalAdjust",
           {{"originX", 0.0}, {"originY", 0.0}, {"rotation", {{"value", 1.0}, {"unit", "degree"}}}, {"scale", 1.0}}}},
         "/postCorrections/horizontalAdjust/rotation/unit: \"degree\" cannot stand here; right is \"arcsec\""}};
    return rows;
}

} // namespace

TEST_F(SystemFaults, EachIsToldWithItsPlaceAndWhatWouldBeRight)
{
    for (const FaultRow& row : Rows()) {
        SCOPED_TRACE(std::string(row.pointer) + " " + row.value.dump());
        Json json = Example();
        json[Json::json_pointer(row.pointer)] = row.value;
        EXPECT_THAT(Refused(json.dump()), HasSubstr(row.message));
    }
}

TEST_F(SystemFaults, ALargeUnitLeavesTheHotineAndThePolyconicWithoutAnEllipsoid)
{
    Json json = Example();
    json["unit"] = kKilometres;
    json["projection"] = Hotine("Hotine Oblique Mercator(A)", false, 57.0, 30.0);
    const char* const message = "the semi-major axis is 6378.388 units of the system";
    EXPECT_THAT(Refused(json.dump()), HasSubstr(message));
    json["projection"] = Projection("Polyconic", {Parameter("LonOrigin", 4.0), Parameter("LatOrigin", 0.0),
                                                  Parameter("FalseEasting", 0.0), Parameter("FalseNorthing", 0.0)});
    EXPECT_THAT(Refused(json.dump()), HasSubstr(message));
}

TEST_F(SystemFaults, OfATransformation)
{
    const std::vector<FaultRow> rows = {
        {"/datum/source", nullptr, "/datum/source: missing or null; give the satellite ellipsoid"},
        {"/datum/source/name", "WGS72", "/datum/source/semiMajorAxis: missing or null"},
        {"/datum/target/name", "Airy 1830",
         "/datum/target/name: the target of the transformation is \"Airy 1830\" and the system's ellipsoid "
         "\"International 1924\""},
        {"/datum/shift/unit", "ft", "/datum/shift/unit: \"ft\" cannot stand here; right is \"m\""},
        {"/datum/shift/w", 1.0, "/datum/shift/w: unknown key; the keys here are x, y, z, unit"},
        {"/datum/rotation", nullptr,
         "/datum/rotation: missing or null; give {\"x\": ..., \"y\": ..., \"z\": ..., "
         "\"unit\": \"arcsec\"}"},
        {"/datum/rates", {{"epoch", 2000.0}}, "/datum/rates: \"Bursa/Wolfe(7 Parameters)\" has no rates"},
        {"/datum/method", "Helmert(14 Parameters)",
         "/datum/rates: missing or null; give shift, rotation, scale and epoch"},
        {"/datum/fixedHeight", {{"forward", 1.0}}, "/datum/fixedHeight/reverse: missing or null"},
        {"/datum/name", "WGS84 to ED50 (EPSG 1311)",
         "is taken by another datum transformation of the main database: "}};
    for (const FaultRow& row : rows) {
        SCOPED_TRACE(std::string(row.pointer) + " " + row.value.dump());
        Json json = Example();
        json["datum"] = OwnDatum();
        json[Json::json_pointer(row.pointer)] = row.value;
        EXPECT_THAT(Refused(json.dump()), HasSubstr(row.message));
    }
}

TEST_F(SystemFaults, AllAreToldInOneRun)
{
    Json json = Example();
    json["colour"] = "red";
    json["unit"]["name"] = "Fathoms";
    json["projection"]["parameters"][0]["value"] = 190.0;
    json["projection"]["parameters"][4]["value"] = 0.79;
    json["geoid"] = {{"method", "Manual"}};
    EXPECT_THAT(Refused(json.dump()),
                AllOf(HasSubstr("new.json: 6 faults"), HasSubstr("/projection/parameters/4/value"),
                      HasSubstr("/colour"), HasSubstr("/unit/metres"), HasSubstr("/unit/suffix"),
                      HasSubstr("/projection/parameters/0/value"), HasSubstr("/geoid/separation")));
}

TEST_F(SystemFaults, OfTheText)
{
    EXPECT_THAT(Refused("{\n  \"group\": \"A\",\n  system: 1\n}"),
                HasSubstr("new.json: line 3, column 3: this is no JSON"));
    EXPECT_THAT(Refused(""), HasSubstr("line 1, column 1: this is no JSON"));
    EXPECT_THAT(Refused(Example().dump() + "\n{}"), HasSubstr("new.json: line 2, column 1: this is no JSON"));
    EXPECT_THAT(Refused("{\"unit\": {\"metres\": NaN}}"), HasSubstr("line 1, column 21: this is no JSON"));
    EXPECT_THAT(Refused("{\"unit\": {\"metres\": 1e999}}"), HasSubstr("line 1"));
    EXPECT_THAT(Refused("{\"group\": \"\xFF\"}"), HasSubstr("line 1, column 12: this is no JSON"));
    EXPECT_THAT(Refused("[]"), HasSubstr("the whole file: an object {...} should stand here"));
    EXPECT_THAT(Refused("null"), HasSubstr("the whole file: an object {...} should stand here"));
}

TEST_F(SystemFaults, AKeyThatStandsTwiceIsOne)
{
    std::string text = Example().dump();
    text.insert(text.find("\"name\":\"Harbour grid\""), "\"name\":\"Harbour\",");
    EXPECT_THAT(Refused(text), HasSubstr("/projection/name: the key stands twice; leave one"));
    text = Example().dump();
    text.insert(text.find("\"value\":51.9"), "\"value\":52,");
    EXPECT_THAT(Refused(text), HasSubstr("/projection/parameters/1/value: the key stands twice"));
}

TEST_F(SystemFaults, AFileThatIsNotThereIsNoFaultOfItsContent)
{
    const ToolRun run = Run({"system", "add", Path("lost.json")});
    EXPECT_EQ(run.status, 4);
    EXPECT_THAT(run.err, HasSubstr("lost.json: No such file"));
}

TEST_F(SystemFaults, NamesThatAreTakenTellWhatIsThere)
{
    Json json = Example();
    json["datum"] = OwnDatum();
    ASSERT_EQ(Add(json).status, 0);
    const std::string before = UserDatabase();
    EXPECT_THAT(Add(json).err, HasSubstr("is taken by a system with the same parts (the group \"Harbours\" of the user "
                                         "database); there is nothing to add"));
    json["system"] = "Second";
    json["datum"]["shift"]["x"] = 87.5;
    json["projection"]["parameters"][2]["value"] = 11000;
    const ToolRun run = Add(json);
    EXPECT_EQ(run.status, 3);
    EXPECT_THAT(run.err, HasSubstr("the name \"Harbour shift\" is taken by another datum transformation of the user "
                                   "database: shift x is 87 there; give the new one another name, or that content"));
    EXPECT_THAT(run.err, HasSubstr("the name \"Harbour grid\" is taken by another projection of the user database: "
                                   "FalseEasting is 10000 there"));
    EXPECT_EQ(UserDatabase(), before);
}
