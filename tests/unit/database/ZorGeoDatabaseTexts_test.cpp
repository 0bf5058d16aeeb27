#include <optional>

#include "frame/DescriptionText.h"
#include "tests/support/ModuleTexts.h"
#include "tests/unit/database/DatabaseFixture.h"

namespace {

const GeoText::Entries kBessel = {{L"SemiMajor", "6377397.155"}, {L"EccSqrd", "0.006674372231"}};
// By hand and by Python: a - b loses digits in doubles, and the last one shown is one above the exact
// 299.152812836013.
const std::string kBesselText = "Bessel\r\n"
                                "\tSemi-Major Axis:6377397.155\r\n"
                                "\tInv. Flattening:299.15281283602\r\n"
                                "\tSquared eccentricity:0.006674372231\r\n";

class ZorGeoDatabaseTexts : public DatabaseTest {
protected:
    ZorGeoDatabaseTexts()
    {
        SetRotationFactor(1.0);
        mainDirectory.Write("ZorProjectionStatic.dat", Catalogue("Unitflag=1\n"));
    }
    ~ZorGeoDatabaseTexts() override { SetRotationFactor(1.0); }

    static void SetRotationFactor(double factor)
    {
        StaticFormats::GetUnitCnv().SetUnit(CZorUnitCnv::datumRotation, factor, 0.0, L"", L"", L"");
    }
    static double ShownRotation(double stored)
    {
        return StaticFormats::GetUnitCnv().ConvertUnit(CZorUnitCnv::datumRotation, stored);
    }

    /// A catalogue of Polyconic with two of its parameters: room for both with the flag alone.
    static std::string Catalogue(const std::string& flag)
    {
        return "[Projections-Section]\n14=Polyconic\n"
               "[ParaStatic-Section]\nLonOrigin=Longitude,1\nLatOrigin=Latitude,2\n"
               "FalseEasting=Easting,3\nFalseNorthing=Northing,3\n"
               "[Polyconic]\n0=LonOrigin\n1=LatOrigin\n2=FalseEasting\n3=FalseNorthing\n" +
               flag;
    }
    static GeoText Projection(const CString& name)
    {
        return GeoText().Section(L"Prj-" + name, {{L"Projection type", "14"},
                                                  {L"Projection method", "Polyconic"},
                                                  {L"Unit name", "Meters"},
                                                  {L"LatOrigin", "10"},
                                                  {L"LonOrigin", "-54.5"},
                                                  {L"FalseEasting", "5000000"},
                                                  {L"FalseNorthing", "12.5"}});
    }

    /// Opens a user file with one system of these entries.
    void OpenSystem(ZorGeoDatabase& database, const GeoText::Entries& entries)
    {
        Open(database, GeoText(), GeoText().List(L"Gp-Ports", {"Port"}).Section(L"Sys-Port", entries));
    }
    static std::string Shown(ZorGeoDatabase& database, const CString& method = {}, const CString& grid = {},
                             const CString& model = {}, const CString& file = {})
    {
        return database.DumpSystemText(L"Ports", L"Port", method, grid, L"", model, file).ToUtf8();
    }

    std::optional<ModuleTexts> texts{std::in_place};
};

bool Has(const std::string& text, const std::string& part)
{
    return text.find(part) != std::string::npos;
}

GeoText::Entries Datum(const std::string& method, const std::string& rotation)
{
    return {{L"Method name", method},
            {L"Source", "WGS84"},
            {L"Target ellipsoid", "Bessel"},
            {L"Rotation X", rotation}};
}

} // namespace

TEST(DescriptionText, IndentsByTabs)
{
    EXPECT_EQ(BuildIndentString(3), L"\t\t\t");
    EXPECT_EQ(BuildIndentString(1), L"\t");
    EXPECT_EQ(BuildIndentString(0), L"");
    EXPECT_EQ(BuildIndentString(-1), L"");
}

TEST(DescriptionText, ANumberHasFourteenDigits)
{
    EXPECT_EQ(GeneralText(0.1), L"0.1");
    EXPECT_EQ(GeneralText(123456789012345678.0), L"1.2345678901235e+17");
    EXPECT_EQ(GeneralText(-1.0 / 3.0), L"-0.33333333333333");
}

TEST_F(ZorGeoDatabaseTexts, AUserSystemWithPartsOfTheMainFileIsDescribedWhole)
{
    ZorGeoDatabase database;
    Open(database,
         GeoText()
             .Section(L"Elp-Bessel", kBessel)
             .Section(L"Dtf-To Bessel", Datum("Bursa/Wolfe(7 Parameters)", "0.5"))
             .Section(L"Units section", {{L"Meters", "1.000000,m"}}),
         GeoText(Projection(L"Poly"))
             .List(L"Gp-Ports", {"Port"})
             .Section(L"Sys-Port", {{L"Datumtransform name", "To Bessel"},
                                    {L"Unit name", "Meters"},
                                    {L"Ellipsoid name", "Bessel"},
                                    {L"Projection name", "Poly"},
                                    {L"System description", "The port"}}));
    EXPECT_EQ(database.DumpSystemText(L"Ports", L"Port", L"", L"", L"LAT", L"", L"").ToUtf8(),
              "SYSTEM: Port\r\nDescription: The port\r\n\r\n" + kBesselText +
                  "\rDATUMTRANSFORMATION : To Bessel\r\n"
                  "\tDatum Transformation from WGS84: \r\n"
                  "\tMethod:  Bursa/Wolfe(7 Parameters)\r\n"
                  "\tShift X(m):   0\r\n\tShift Y(m):   0\r\n\tShift Z(m):   0\r\n"
                  "\tRotation X(sec):   0.5\r\n\tRotation Y(sec):   0\r\n\tRotation Z(sec):   0\r\n"
                  "\tScale factor[ppm]:   0\r\n"
                  "\tSatellite ellipsoid:   WGS84\r\n\tLocal ellipsoid:   Bessel\r\n\tDescription: \r\n"
                  "\rUNIT:  Meters\r\n\tMetric Conversion Factor:1\r\n\tSuffix: m\r\n"
                  "\rPROJECTION: Poly\r\n\tMethod:  Polyconic\r\n\tUnit: Meters\r\n"
                  "\tLongitude:054°30'00.0000000\"W\r\n\tLatitude:10°00'00.0000000\"N\r\n"
                  "\tEasting:5000000\r\n\tNorthing:12.5000\r\n\r\n"
                  "GEOID MODEL: \r\n\tGeoid Model Method: \r\n\tGeo Grid: \r\n\tChart Datum: LAT\r\n\r\n"
                  "POST CORRECTIONS: \r\n\tCorrection model: \r\n\tCorrection file: \r\n\r");
}

TEST_F(ZorGeoDatabaseTexts, VerticalAdjustIsShownByTheFlagOfTheHorizontalOne)
{
    for (const bool horizontal : {false, true}) {
        for (const bool vertical : {false, true}) {
            ZorGeoDatabase database;
            OpenSystem(database, {{L"Post horizontal adjust statu", horizontal ? "1" : "0"},
                                  {L"Post vertical adjust statu", vertical ? "1" : "0"},
                                  {L"Post vertical slope Y", "2.50"}});
            const std::string text = Shown(database);
            EXPECT_EQ(Has(text, "\tHor. adjust scale: 1\r\n\r\n"), horizontal) << vertical;
            EXPECT_EQ(Has(text, "\tVert. adjust slope northing(ppm): 2.50\r\n\r\n"), horizontal) << vertical;
            EXPECT_EQ(Has(text, "Vert."), horizontal) << vertical;
        }
    }
}

TEST_F(ZorGeoDatabaseTexts, TheGeoidMethodOfAProjectReplacesTheStoredOne)
{
    struct Case {
        const char* stored;
        const wchar_t* method;
        const wchar_t* grid;
        const char* expected;
    };
    const Case cases[] = {
        {"EGM96", L"", L"", "Method: EGM96\r\n\tGeo Grid: stored.gtx\r\n"},
        {"EGM96", L"OSGM", L"", "Method: OSGM\r\n\tGeo Grid: stored.gtx\r\n"},
        {"EGM96", L"OSGM", L"own.gtx", "Method: OSGM\r\n\tGeo Grid: own.gtx\r\n"},
        {"--None--", L"OSGM", L"", "Method: OSGM\r\n\tGeo Grid: stored.gtx\r\n"},
        {"EGM96", L"--None--", L"own.gtx", "Method: --None--\r\n\tGeo Grid: \r\n"},
        {"", L"", L"own.gtx", "Method: \r\n\tGeo Grid: \r\n"},
    };
    for (const Case& c : cases) {
        ZorGeoDatabase database;
        OpenSystem(database, {{L"Geoid model method", c.stored}, {L"Geoid model grid", "stored.gtx"}});
        EXPECT_TRUE(Has(Shown(database, c.method, c.grid), c.expected)) << c.expected << Shown(database, c.method);
    }
}

TEST_F(ZorGeoDatabaseTexts, TheCorrectionModelOfAProjectReplacesTheStoredOne)
{
    struct Case {
        const wchar_t* model;
        const wchar_t* file;
        const char* expected;
    };
    const Case cases[] = {
        {L"", L"", "model: NTv2\r\n\tCorrection file: stored.gsb\r\n\r"},
        {L"OSTN", L"own.gsb", "model: OSTN\r\n\tCorrection file: own.gsb\r\n\r"},
        {L"--None--", L"own.gsb", "model: --None--\r\n\tCorrection file: \r\n\r"},
    };
    ZorGeoDatabase database;
    OpenSystem(database, {{L"Post coorection model", "NTv2"}, {L"Post coorection file", "stored.gsb"}});
    for (const Case& c : cases) {
        EXPECT_TRUE(Has(Shown(database, L"", L"", c.model, c.file), c.expected)) << c.expected;
    }
}

TEST_F(ZorGeoDatabaseTexts, NoTransformationShowsNoNumbers)
{
    ZorGeoDatabase database;
    Open(database,
         GeoText().Section(L"Dtf-Same", {{L"Method name", "No Transformation"},
                                         {L"Source", "WGS84"},
                                         {L"Target ellipsoid", "Bessel"},
                                         {L"Shift X", "5"},
                                         {L"Epoch", "2020"},
                                         {L"Description", "unchanged"}}),
         GeoText());
    EXPECT_EQ(database.DumpDatumfText(L"Same", true).ToUtf8(), "DATUMTRANSFORMATION : Same\r\n"
                                                               "\tDatum Transformation from WGS84: \r\n"
                                                               "\tMethod:  No Transformation\r\n"
                                                               "\tSatellite ellipsoid:   WGS84\r\n"
                                                               "\tLocal ellipsoid:   Bessel\r\n"
                                                               "\tDescription: unchanged\r\n");
}

TEST_F(ZorGeoDatabaseTexts, HelmertRotationsAreShownWithTheOtherSign)
{
    struct Case {
        const char* method;
        const char* shown;
    };
    const Case cases[] = {{"Bursa/Wolfe(7 Parameters)", "1"},
                          {"Helmert(7 Parameters)", "-1"},
                          {"Bursa/Wolfe(14 Parameters)", "1"},
                          {"Helmert(14 Parameters)", "-1"}};
    for (const Case& c : cases) {
        ZorGeoDatabase database;
        Open(database, GeoText().Section(L"Dtf-D", Datum(c.method, "1")), GeoText());
        EXPECT_TRUE(
            Has(database.DumpDatumfText(L"D", true).ToUtf8(), std::string("Rotation X(sec):   ") + c.shown + "\r\n"))
            << c.method;
    }
}

TEST_F(ZorGeoDatabaseTexts, RatesOfAHelmertMethodTurnWithItsRotations)
{
    ZorGeoDatabase database;
    Open(database,
         GeoText().Section(L"Dtf-D", {{L"Method name", "Helmert(14 Parameters)"},
                                      {L"Target ellipsoid", "Bessel"},
                                      {L"Shift rate X", "2"},
                                      {L"Rotation rate Z", "0.25"},
                                      {L"Scale rate", "3"},
                                      {L"Epoch", "2010.5"}}),
         GeoText());
    const std::string text = database.DumpDatumfText(L"D", false).ToUtf8();
    EXPECT_TRUE(Has(text, "\tScale factor[ppm]:   0\r\n"
                          "\tDatum Epoch: 2010.5\r\n"
                          "\tRate of change per Year\r\n"
                          "\t\tShift X(m):   2\r\n"
                          "\t\tShift Y(m):   0\r\n"
                          "\t\tShift Z(m):   0\r\n"
                          "\t\tRotation X(sec):   0\r\n"
                          "\t\tRotation Y(sec):   0\r\n"
                          "\t\tRotation Z(sec):   -0.25\r\n"
                          "\t\tScale factor[ppm]:   3\r\n"
                          "\tSatellite ellipsoid:   \r\n"))
        << text;
}

TEST_F(ZorGeoDatabaseTexts, TheRotationUnitStaysInTheProcess)
{
    ZorGeoDatabase database;
    Open(database,
         GeoText()
             .Section(L"Dtf-Helmert", Datum("Helmert(7 Parameters)", "1"))
             .Section(L"Dtf-Other", Datum("Molodensky", "1"))
             .Section(L"Dtf-Bursa", Datum("Bursa/Wolfe(7 Parameters)", "1")),
         GeoText().Section(L"Dtf-Nowhere", {{L"Method name", "Bursa/Wolfe(7 Parameters)"}}));
    SetRotationFactor(3.0);
    EXPECT_TRUE(Has(database.DumpDatumfText(L"Other", false).ToUtf8(), "Rotation X(sec):   3\r\n"));
    database.DumpDatumfText(L"Helmert", false);
    EXPECT_EQ(ShownRotation(2.0), -2.0);
    EXPECT_TRUE(Has(database.DumpDatumfText(L"Other", false).ToUtf8(), "Rotation X(sec):   -1\r\n"));
    // Without a target nothing is done.
    EXPECT_EQ(database.DumpDatumfText(L"Nowhere", true), L"");
    EXPECT_EQ(ShownRotation(2.0), -2.0);
    database.DumpDatumfText(L"Bursa", false);
    EXPECT_EQ(ShownRotation(2.0), 2.0);
}

TEST_F(ZorGeoDatabaseTexts, AnAxisBelowSixThousandKilometresHasInverseFlatteningZero)
{
    ZorGeoDatabase database;
    Open(database, GeoText().Section(L"Elp-Small", {{L"SemiMajor", "5000000"}, {L"EccSqrd", "0.0067"}}), GeoText());
    EXPECT_EQ(database.DumpElpText(L"Small").ToUtf8(), "Small\r\n"
                                                       "\tSemi-Major Axis:5000000\r\n"
                                                       "\tInv. Flattening:0\r\n"
                                                       "\tSquared eccentricity:0.0067\r\n");
}

TEST_F(ZorGeoDatabaseTexts, AMissingRecordIsNamesAndZeros)
{
    ZorGeoDatabase database;
    Open(database, GeoText(), GeoText());
    EXPECT_EQ(database.DumpElpText(L"None").ToUtf8(),
              "None\r\n\tSemi-Major Axis:0\r\n\tInv. Flattening:0\r\n\tSquared eccentricity:0\r\n");
    EXPECT_EQ(database.DumpUnitText(L"None").ToUtf8(), "UNIT:  None\r\n\tMetric Conversion Factor:0\r\n\tSuffix: \r\n");
    EXPECT_EQ(database.DumpDatumfText(L"None", true), L"");
    EXPECT_EQ(database.DumpPrjText(L"None").ToUtf8(), "PROJECTION: None\r\n\tMethod:  \r\n\r\n");
    EXPECT_EQ(database.DumpPrjText(L"Ports", L"None", true), L"");
    EXPECT_EQ(database.DumpSystemText(L"Ports", L"None", L"", L"", L"", L"", L""), L"");
    EXPECT_EQ(database.DumpSystemIDText(L"Ports", L"None", L"", L"", L"", L"", L""), L"");
}

TEST_F(ZorGeoDatabaseTexts, WithoutNamesTheTextStartsWithALineEndAndTheDatumWithATab)
{
    ZorGeoDatabase database;
    Open(database, GeoText(),
         GeoText(Projection(L"Poly"))
             .List(L"Gp-Ports", {"Port"})
             .Section(L"Elp-Bessel", kBessel)
             .Section(L"Dtf-To Bessel", Datum("Bursa/Wolfe(7 Parameters)", "0.5"))
             .Section(L"Sys-Port", {{L"Datumtransform name", "To Bessel"},
                                    {L"Ellipsoid name", "Bessel"},
                                    {L"Projection name", "Poly"},
                                    {L"System description", "The port"}}));
    const std::string text = database.DumpSystemIDText(L"Ports", L"Port", L"", L"", L"", L"", L"").ToUtf8();
    EXPECT_TRUE(text.starts_with("\r\n" + kBesselText + "\r\tDatum Transformation from WGS84: \r\n")) << text;
    EXPECT_TRUE(Has(text, "\tSuffix: \r\n\rMethod:  Polyconic\r\n\tUnit: Meters\r\n")) << text;
    EXPECT_FALSE(Has(text, "The port"));
    EXPECT_FALSE(Has(text, "SYSTEM"));
}

TEST_F(ZorGeoDatabaseTexts, TheMethodOfAProjectionIsTheUsersAndItsParametersAreDelivered)
{
    ZorGeoDatabase database;
    Open(database, Projection(L"Poly"),
         GeoText().Section(L"Prj-Poly", {{L"Projection type", "14"},
                                         {L"Projection method", "the user's"},
                                         {L"Unit name", "Feet"},
                                         {L"LatOrigin", "99"}}));
    const std::string text = database.DumpPrjText(L"Poly").ToUtf8();
    EXPECT_TRUE(text.starts_with("PROJECTION: Poly\r\n\tMethod:  the user's\r\n\tUnit: Meters\r\n\tLongitude:054"))
        << text;
}

// Labels.

TEST_F(ZorGeoDatabaseTexts, WithoutAStringTableTheLabelsAreEmpty)
{
    ZorGeoDatabase database;
    Open(database, GeoText().Section(L"Units section", {{L"Meters", "1,m"}}),
         GeoText(Projection(L"Poly"))
             .List(L"Gp-Ports", {"Port"})
             .Section(L"Dtf-D", {{L"Method name", "Bursa/Wolfe(14 Parameters)"},
                                 {L"Source", "WGS84"},
                                 {L"Target ellipsoid", "Bessel"},
                                 {L"Epoch", "2020"}})
             .Section(L"Sys-Port", {{L"Projection name", "Poly"},
                                    {L"Post coorection statu", "1"},
                                    {L"Post horizontal adjust statu", "1"}}));
    texts.reset();
    EXPECT_EQ(database.DumpElpText(L"E").ToUtf8(), "E\r\n\t:0\r\n\t:0\r\n\t:0\r\n");
    EXPECT_EQ(database.DumpUnitText(L"Meters").ToUtf8(), "Meters\r\n\t1\r\n\tm\r\n");
    EXPECT_EQ(database.DumpDatumfText(L"D", true).ToUtf8(),
              "D\r\n\tWGS84: \r\n\tBursa/Wolfe(14 Parameters)\r\n"
              "\t0\r\n\t0\r\n\t0\r\n\t0\r\n\t0\r\n\t0\r\n\t0\r\n\t2020\r\n\t\r\n"
              "\t\t0\r\n\t\t0\r\n\t\t0\r\n\t\t0\r\n\t\t0\r\n\t\t0\r\n\t\t0\r\n\tWGS84\r\n\tBessel\r\n\t\r\n");
    // The labels of the parameters are those of the catalogue.
    const std::string parameters = "\tMeters\r\n\tLongitude:054°30'00.0000000\"W\r\n\tLatitude:10°00'00.0000000\"N\r\n"
                                   "\tEasting:5000000\r\n\tNorthing:12.5000\r\n\r\n";
    EXPECT_EQ(database.DumpPrjText(L"Poly").ToUtf8(), "Poly\r\n\tPolyconic\r\n" + parameters);
    EXPECT_EQ(database.DumpSystemText(L"Ports", L"Port", L"", L"", L"LAT", L"", L"").ToUtf8(),
              "Port\r\n\r\n\r\n\r\n\t:0\r\n\t:0\r\n\t:0\r\n\r\r\r\n\t0\r\n\t\r\n\rPoly\r\n\tPolyconic\r\n" +
                  parameters +
                  "\r\n\t\r\n\t\r\n\tLAT\r\n\r\n\r\n"
                  "\t0\r\n\t0\r\n\t0\r\n\r\n"
                  "\t0\r\n\t0\r\n\t0\r\n\t1\r\n\r\n"
                  "\t0\r\n\t0\r\n\t0\r\n\t0\r\n\r\n"
                  "\t\r\n\t\r\n\r");
}

TEST_F(ZorGeoDatabaseTexts, AHostCanGiveTheEllipsoidATitleAndOtherLabels)
{
    // Of two texts that are the same in the module's table one is used: 15380 and not 15361.
    static constexpr StringTableEntry kHost[] = {{15351, L"ELLIPSOID: "}, {15353, L"b"},      {15354, L"e"},
                                                 {15356, L"f"},           {15361, L"never "}, {15376, L"never"},
                                                 {15380, L"PROJ "},       {0, nullptr}};
    ZorGeoDatabase database;
    Open(database, Projection(L"Poly").Section(L"Elp-Bessel", kBessel), GeoText());
    ZORSUITE::LoadDLLResourceDLL(kHost, kHost);
    const std::string ellipsoid = database.DumpElpText(L"Bessel").ToUtf8();
    const std::string projection = database.DumpPrjText(L"Poly").ToUtf8();
    ZORSUITE::UnloadDLLResourceDLL(kHost);
    EXPECT_EQ(ellipsoid, "ELLIPSOID: " + kBesselText);
    EXPECT_TRUE(projection.starts_with("PROJ Poly\r\n\tMethod:  Polyconic\r\n")) << projection;
}

// The catalogue.

TEST_F(ZorGeoDatabaseTexts, WithoutACatalogueAProjectionHasItsUnitAlone)
{
    for (const bool unlistable : {false, true}) {
        // Without its flag the section counts one parameter too few, and the last has no place.
        unlistable ? mainDirectory.Write("ZorProjectionStatic.dat", Catalogue(""))
                   : mainDirectory.Write("ZorProjectionStatic.dat", "");
        ZorGeoDatabase database;
        Open(database, Projection(L"Poly"), GeoText());
        EXPECT_EQ(database.DumpPrjText(L"Poly").ToUtf8(),
                  "PROJECTION: Poly\r\n\tMethod:  Polyconic\r\n\tUnit: Meters\r\n\r\n")
            << unlistable;
    }
}

// State of the files.

TEST_F(ZorGeoDatabaseTexts, NothingThrowsOnFilesInTheModeThatDoes)
{
    ZorGeoDatabase database;
    Open(database, GeoText().Section(L"Dtf-D", {{L"Target ellipsoid", "Bessel"}}),
         GeoText(Projection(L"Poly")).List(L"Gp-Ports", {"Port"}).Section(L"Sys-Port", {}));
    const std::string before = Shown(database) + database.DumpPrjText(L"Poly").ToUtf8();
    database.GetMainFile().ThrowExceptions(true);
    database.GetUserFile().ThrowExceptions(true);
    std::string text;
    EXPECT_NO_THROW(text = Shown(database) + database.DumpPrjText(L"Poly").ToUtf8());
    EXPECT_EQ(text, before);
    EXPECT_NO_THROW(database.DumpDatumfText(L"D", true));
}

TEST_F(ZorGeoDatabaseTexts, ADatabaseThatIsNotOpenDescribesNothing)
{
    ZorGeoDatabase database;
    EXPECT_EQ(database.DumpSystemText(L"G", L"S", L"", L"", L"", L"", L""), L"");
    EXPECT_EQ(database.DumpDatumfText(L"D", true), L"");
    EXPECT_FALSE(database.IsSystemCustom(L"G", L"S"));
}

TEST_F(ZorGeoDatabaseTexts, LookUpsAreThoseOfTheFurtherClass)
{
    class Further : public ZorGeoDatabase {
    public:
        bool GetElpParamByElpName(CString, double& a, double&, double&, double&, double&, double& invF) override
        {
            a = 7.0;
            invF = 8.0;
            return false; // is not looked at
        }
        bool GetUnitParametersByName(CString, CString&, CString& suffix, double& factor, short&) override
        {
            suffix = L"x";
            factor = 9.0;
            return false;
        }
        CString GetDtfDescription(CString) override { return L"further"; }
        CString GetPrjMdNameByPrjName(CString) override { return L"further"; }
    };
    Further database;
    Open(database,
         GeoText(Projection(L"Poly"))
             .Section(L"Elp-Bessel", kBessel)
             .Section(L"Dtf-D", Datum("Helmert(7 Parameters)", "1")),
         GeoText());
    EXPECT_EQ(database.DumpElpText(L"Bessel").ToUtf8(),
              "Bessel\r\n\tSemi-Major Axis:7\r\n\tInv. Flattening:8\r\n\tSquared eccentricity:0.006674372231\r\n");
    EXPECT_EQ(database.DumpUnitText(L"U").ToUtf8(), "UNIT:  U\r\n\tMetric Conversion Factor:9\r\n\tSuffix: x\r\n");
    EXPECT_TRUE(Has(database.DumpDatumfText(L"D", true).ToUtf8(), "\tDescription: further\r\n"));
    EXPECT_TRUE(Has(database.DumpPrjText(L"Poly").ToUtf8(), "\tMethod:  further\r\n"));
}

// Custom systems.

TEST_F(ZorGeoDatabaseTexts, ASystemIsCustomWhenTheUserFileListsIt)
{
    ZorGeoDatabase database;
    Open(database, GeoText().List(L"Gp-Ports", {"Delivered", "Both"}).Section(L"Sys-User", {}),
         GeoText().List(L"Gp-Ports", {"User", "Both"}).Section(L"Sys-Delivered", {}));
    EXPECT_TRUE(database.IsSystemCustom(L"Ports", L"User"));
    EXPECT_TRUE(database.IsSystemCustom(L"Ports", L"both"));
    EXPECT_FALSE(database.IsSystemCustom(L"Ports", L"Delivered")); // its record has no part in it
    EXPECT_FALSE(database.IsSystemCustom(L"ports", L"User"));
    EXPECT_FALSE(database.IsSystemCustom(L"Elsewhere", L"User"));
}
