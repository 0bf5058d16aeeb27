#include <sstream>
#include <stdexcept>

#include "projections/CUTMprj.h"
#include "tests/unit/coordsys/DescriptionFixture.h"

namespace {

using Codes = std::list<std::pair<int, short>>;
using Numbers = std::list<std::pair<int, double>>;

// What every system of the records has behind its projection: a = 6400000 and e2 = 0.0199, so that
// b = 0.99 a, no transformation, metres.
const CString kPlainEnd = L" +a=6400000.000000 +b=6336000.000000 +units=m +to_meter=1.000000 "
                          L"+towgs84=-0.000000,-0.000000,-0.000000,-0.000000,-0.000000,-0.000000,-0.000000 +no_defs";

struct Fau {
    CStringA zone = "unset";
    CStringA hemisphere = "unset";
    double falseNorthing = -1.0;
    bool given;

    explicit Fau(ZORGeoCoordSys& system) : given(system.GetFauParameters(zone, hemisphere, falseNorthing)) {}
};

CString Proj4Of(DescribedSystems& systems, const CString& name)
{
    ZORGeoCoordSys system;
    EXPECT_TRUE(systems.Init(system, name)) << name.ToUtf8();
    return system.GetGDALProj4CoordSysText();
}

// A system whose constants a test gives.
class GivenConstants : public ZORGeoCoordSys {
public:
    explicit GivenConstants(std::vector<double> constants) : m_constants(std::move(constants)) {}
    bool GetProjectionConstants(CArray<double, double>& values, CStringArray&, CStringArray&,
                                CArray<UINT, UINT>&) override
    {
        values.RemoveAll();
        for (const double value : m_constants) {
            values.Add(value);
        }
        return false;
    }

private:
    std::vector<double> m_constants;
};

} // namespace

// PROJ.4. Texts by hand, from the numbers of the records.

TEST(ZORGeoCoordSysDescriptions, Proj4TextOfEveryProjection)
{
    struct Row {
        CString system;
        CString projection;
    };
    const Row rows[] = {
        {L"Transverse Mercator",
         L"+proj=tmerc +lat_0=49.000000 +lon_0=-2.000000 +k_0=0.999601 +x_0=400000.123400 +y_0=-100000.000500"},
        {L"UTM South", L"+proj=utm +zone=31 +south"},
        {L"UTM North", L"+proj=utm +zone=5"},
        {L"RD", L"+proj=sterea +lat_0=52.15616055555555 +lon_0=5.38763888888889 +k=0.999908 +x_0=155000 +y_0=463000 "
                L"+ellps=bessel "},
        {L"RD Without Keys", L"+proj=sterea +lat_0=52.15616055555555 +lon_0=5.38763888888889 +k=0.999908 "
                             L"+x_0=155000 +y_0=463000 +ellps=bessel "},
        {L"Lambert 2 Parallel", L"+proj=lcc +lat_1=44.000000 +lat_2=49.000000 +lat_0=46.500000 +lon_0=3.000000 "
                                L"+x_0=700000.125000 +y_0=6600000.126000"},
        {L"Mercator", L"+proj=merc +lat_0=-5.500000 +lonc=51.000000 +k_0=1.000000 +x_0=1234567.891600 +y_0=0.000000 "
                      L"+lat_ts=42.250000"},
        {L"Stereographic",
         L"+proj=sterea +lat_0=46.000000 +lon_0=25.000000 +k_0=0.999750 +x_0=500000.000000 +y_0=500000.000000"},
        {L"Cassini",
         L"+proj=cass +lat_0=10.441667 +lon_0=-61.333333 +k_0=1.000000 +x_0=430000.000000 +y_0=325000.000000"},
        {L"Hotine A", L"+proj=omerc +lat_0=57.000000 +lonc=-133.666667 +k_0=0.999900 +x_0=5000000.000000 "
                      L"+y_0=-5000000.000000 +alpha=323.130102 +gamma=323.250000 "},
        {L"Lambert 1 Parallel",
         L"+proj=lcc +lat_1=49.500000 +lon_0=2.337229 +k_0=0.999870 +x_0=600000.000000 +y_0=200000.000000"},
        {L"Hotine B", L"+proj=omerc +lat_0=4.000000 +lonc=115.000000 +k_0=0.999840 +x_0=590476.870000 "
                      L"+y_0=442857.650000 +alpha=53.315820 +gamma=53.130102 "},
        {L"Polyconic", L"+proj=poly +lon_0=-54.000000 +x_0=5000000.000000 +y_0=10000000.000000"},
    };
    DescribedSystems systems;
    for (const Row& row : rows) {
        EXPECT_EQ(Proj4Of(systems, row.system), row.projection + kPlainEnd) << row.system.ToUtf8();
    }
}

TEST(ZORGeoCoordSysDescriptions, UniversalPolarStereographicHasNoProj4Text)
{
    DescribedSystems systems;
    EXPECT_EQ(Proj4Of(systems, L"Universal Polar Stereographic"), L"");
}

// Init refuses such a record and leaves its type number to be asked.
TEST(ZORGeoCoordSysDescriptions, TypesWithoutAClassHaveNeitherProj4TextNorGeoKeys)
{
    for (const int type : {5, 6, 10, 11, 16, 99, -1}) {
        DescribedSystems systems;
        systems.SetProjectionItem(L"Oblique", ProjectionKey::type, type);
        ZORGeoCoordSys system;
        EXPECT_FALSE(systems.Init(system, L"Stereographic"));
        int kept = 0;
        system.GetProjectionType(kept);
        EXPECT_EQ(kept, type);
        EXPECT_EQ(system.GetGDALProj4CoordSysText(), L"") << type;
        Codes codes;
        Numbers numbers;
        system.GetGeoKeys(codes, numbers);
        EXPECT_TRUE(codes.empty() && numbers.empty()) << type;
    }
}

TEST(ZORGeoCoordSysDescriptions, Proj4TextOfGivenConstants)
{
    GivenConstants system({3.0, 0.0, 500000.0, 0.0, 0.9996});
    const CString text = system.GetGDALProj4CoordSysText();
    EXPECT_EQ(text, L"+proj=tmerc +lat_0=0.000000 +lon_0=3.000000 +k_0=0.999600 +x_0=500000.000000 +y_0=0.000000 "
                    L"+a=0.000000 +b=0.000000 +units=m +to_meter=1.000000 "
                    L"+towgs84=-0.000000,-0.000000,-0.000000,-0.000000,-0.000000,-0.000000,-0.000000 +no_defs")
        << "the constants count, not the answer beside them; without ellipsoid and datum all is 0";
}

TEST(ZORGeoCoordSysDescriptions, TooFewConstantsForTheProj4TextThrow)
{
    GivenConstants four({3.0, 0.0, 500000.0, 0.0});
    EXPECT_THROW(four.GetGDALProj4CoordSysText(), std::invalid_argument);
    ZORGeoCoordSys never;
    EXPECT_THROW(never.GetGDALProj4CoordSysText(), std::invalid_argument) << "there are none at all";
}

// The catalogue says how many constants a projection has.
TEST(ZORGeoCoordSysDescriptions, ACatalogueOfFewerParametersMakesTheProj4TextThrow)
{
    DescribedSystems systems;
    FileObject catalogue;
    ASSERT_TRUE(catalogue.FileOpen(systems.database.Directory().File("main/ZorProjectionStatic.dat"),
                                   FileMode::openForReading));
    catalogue.DeleteItem(L"Stereographic", L"4", false);
    ASSERT_TRUE(catalogue.FileSave(L"", FileMode::saveExclusive));
    ZORGeoCoordSys system;
    ASSERT_TRUE(systems.Init(system, L"Stereographic"));
    EXPECT_THROW(system.GetGDALProj4CoordSysText(), std::invalid_argument);
}

TEST(ZORGeoCoordSysDescriptions, Proj4DatumHasEverySignChanged)
{
    DescribedSystems systems;
    const CString end = L" +units=m +to_meter=1.000000 "
                        L"+towgs84=565.734600,50.405800,465.289500,-0.200000,0.150000,-0.000000,4.072440 +no_defs";
    for (const CString& name : {CString(L"Datum Bursa 7"), CString(L"Datum Helmert 7"), CString(L"Datum Bursa 14"),
                                CString(L"Datum Helmert 14"), CString(L"Datum Fixed Height")}) {
        const CString text = Proj4Of(systems, name);
        EXPECT_EQ(text.Right(end.GetLength()), end) << "rates and fixed heights have no place in it";
    }
}

TEST(ZORGeoCoordSysDescriptions, Proj4TextNamesMetresBesideAnyFactor)
{
    DescribedSystems systems;
    ZORGeoCoordSys system;
    ASSERT_TRUE(systems.Init(system, L"Stereographic", L"Feet"));
    const CString text = system.GetGDALProj4CoordSysText();
    EXPECT_NE(text.Find(L" +a=6400000.000000 +b=6336000.000000 +units=m +to_meter=0.304800 +towgs84="), -1)
        << "the axes stay in metres";
    EXPECT_NE(text.Find(L"+x_0=500000.000000 "), -1) << "false origins are in the unit already";
}

// UTM.

TEST(ZORGeoCoordSysDescriptions, FauParametersOfAUtmSystem)
{
    DescribedSystems systems;
    ZORGeoCoordSys system;
    ASSERT_TRUE(systems.Init(system, L"UTM South"));
    const Fau south(system);
    EXPECT_TRUE(south.given);
    EXPECT_EQ(south.zone, "31");
    EXPECT_EQ(south.hemisphere, "s");
    EXPECT_EQ(south.falseNorthing, 10000000.0);
    ASSERT_TRUE(systems.Init(system, L"UTM North"));
    const Fau north(system);
    EXPECT_TRUE(north.given);
    EXPECT_EQ(north.zone, "5");
    EXPECT_EQ(north.hemisphere, "n");
    EXPECT_EQ(north.falseNorthing, 0.0);
}

TEST(ZORGeoCoordSysDescriptions, OtherSystemsHaveNoFauParameters)
{
    DescribedSystems systems;
    for (const CString& name : systems.Names()) {
        ZORGeoCoordSys system;
        ASSERT_TRUE(systems.Init(system, name));
        const Fau fau(system);
        const bool utm = name == L"UTM South" || name == L"UTM North";
        EXPECT_EQ(fau.given, utm) << name.ToUtf8();
        EXPECT_EQ(fau.falseNorthing == -1.0, !utm);
        EXPECT_EQ(fau.zone == "unset" && fau.hemisphere == "unset", !utm);
    }
    ZORGeoCoordSys never;
    EXPECT_FALSE(Fau(never).given);
}

TEST(ZORGeoCoordSysDescriptions, HemisphereCountsInExactCaseForProj4Alone)
{
    struct Row {
        CString hemisphere;
        bool south; ///< in the PROJ.4 text
        CStringA fau;
    };
    const Row rows[] = {{L"Southern", true, "s"},  {L"southern", false, "s"}, {L"Northern", false, "n"},
                        {L"NORTHERN", false, "n"}, {L"", false, "s"},         {L"North", false, "s"}};
    for (const Row& row : rows) {
        DescribedSystems systems;
        systems.SetProjectionItem(L"Zone 31 South", ProjectionKey::hemisphere, row.hemisphere);
        ZORGeoCoordSys system;
        ASSERT_TRUE(systems.Init(system, L"UTM South"));
        const CString begin = row.south ? L"+proj=utm +zone=31 +south +a=" : L"+proj=utm +zone=31 +a=";
        EXPECT_EQ(system.GetGDALProj4CoordSysText().Left(begin.GetLength()), begin) << row.hemisphere.ToUtf8();
        const Fau fau(system);
        EXPECT_EQ(fau.hemisphere, row.fau) << row.hemisphere.ToUtf8();
        EXPECT_EQ(fau.falseNorthing, row.fau == "n" ? 0.0 : 10000000.0);
    }
}

// As the C library's scanf reads "Zone %2d     (%3d %c)".
TEST(ZORGeoCoordSysDescriptions, ZoneTextIsScanned)
{
    struct Row {
        CString text;
        CStringA zone;
    };
    const Row rows[] = {{L"Zone 31     (  3 E)", "31"},
                        {L"Zone  5     (153 W)", "5"},
                        {L"Zone5", "5"},
                        {L"Zone   60 and more", "60"},
                        {L"Zone 131", "13"},
                        {L"Zone 7(", "7"},
                        {L"Zone -3", "-3"},
                        {L"zone 31", "0"},
                        {L"31", "0"},
                        {L" Zone 31", "0"},
                        {L"Zone", "0"},
                        {L"Zone E", "0"},
                        {L"", "0"}};
    for (const Row& row : rows) {
        DescribedSystems systems;
        systems.SetProjectionItem(L"Zone 31 South", ProjectionKey::utmZone, row.text);
        ZORGeoCoordSys system;
        ASSERT_TRUE(systems.Init(system, L"UTM South"));
        EXPECT_EQ(Fau(system).zone, row.zone) << row.text.ToUtf8();
        const CString begin = L"+proj=utm +zone=" + CString::FromUtf8(row.zone.Std()) + L" +south";
        EXPECT_EQ(system.GetGDALProj4CoordSysText().Left(begin.GetLength()), begin);
    }
}

TEST(ZORGeoCoordSysDescriptions, ZoneIsZeroWithoutTheTextThatItIsWrittenBy)
{
    SurveyDatabase database;
    AddProjection(database.main, {.name = L"UTM 31", .type = 1, .method = L"Universal Transverse Mercator"});
    database.main.SetItem(kProjectionPrefix + L"UTM 31", projectionParamKeys[ProjectionKey::utmZone],
                          L"Zone 31     (  3 E)", true);
    database.SetSystemItem(kPlainSystem, kSystemProjection, CString(L"UTM 31"));
    ZORGeoCoordSys system;
    MakeReady(system, database, kPlainSystem);
    EXPECT_EQ(Fau(system).zone, "0");
    EXPECT_EQ(system.GetGDALProj4CoordSysText().Left(19), L"+proj=utm +zone=0 +");
    const ModuleTexts texts;
    EXPECT_EQ(Fau(system).zone, "31");
}

// As the C library's scanf: a directive without a width takes all digits, text around it must match.
TEST(ZORGeoCoordSysDescriptions, ZoneIsScannedByTheTextOfAHost)
{
    struct Row {
        const wchar_t* format;
        CString text;
        CStringA zone;
    };
    const Row rows[] = {{L"Zone %d", L"Zone 31     (  3 E)", "31"},
                        {L"Zone %d", L"Zone 131", "131"},
                        {L"Zone %d", L"Zone  -7(", "-7"},
                        {L"Zone %d", L"zone 31", "0"},
                        {L"Zone %1d", L"Zone 31     (  3 E)", "3"},
                        {L"%d", L"31N", "31"},
                        {L"Zone ", L"Zone 31", "0"},
                        {L"", L"31", "0"}};
    DescribedSystems systems;
    for (const Row& row : rows) {
        systems.SetProjectionItem(L"Zone 31 South", ProjectionKey::utmZone, row.text);
        ZORGeoCoordSys system;
        ASSERT_TRUE(systems.Init(system, L"UTM South"));
        const StringTableEntry texts[] = {{15393, row.format}, {0, nullptr}};
        ASSERT_TRUE(ZORSUITE::LoadDLLResourceDLL(&texts, texts));
        EXPECT_EQ(Fau(system).zone, row.zone) << CString(row.format).ToUtf8() << ": " << row.text.ToUtf8();
        ZORSUITE::UnloadDLLResourceDLL(&texts);
    }
}

// GeoTIFF. The numbers of the records behind the class's keys, in the class's order.

TEST(ZORGeoCoordSysDescriptions, GeoKeysOfEveryProjection)
{
    struct Row {
        CString system;
        short code;
        Numbers numbers;
    };
    const Row rows[] = {
        {L"Transverse Mercator",
         1,
         {{3082, 400000.1234}, {3083, -100000.0005}, {3093, 0.9996012717}, {3088, -2.0}, {3081, 49.0}}},
        {L"UTM South", 1, {{3082, 500000.0}, {3083, 1e7}, {3093, 0.9996}, {3088, 3.0}, {3081, 0.0}}},
        {L"Lambert 2 Parallel",
         8,
         {{3082, 700000.125}, {3083, 6600000.126}, {3088, 3.0}, {3081, 46.5}, {3079, 49.00000000277778}, {3078, 44.0}}},
        {L"Mercator", 7, {{3082, 1234567.8916}, {3083, 0.0}, {3093, 1.0}, {3088, 51.0}, {3081, -5.5}, {3089, 42.25}}},
        {L"Stereographic", 14, {{3082, 5e5}, {3083, 5e5}, {3093, 0.99975}, {3088, 25.0}, {3081, 46.0}}},
        {L"Cassini",
         18,
         {{3082, 430000.0}, {3083, 325000.0}, {3093, 1.0}, {3088, -61.333333333333336}, {3081, 10.441666666666666}}},
        {L"Hotine A",
         3,
         {{3082, 5e6},
          {3083, -5e6},
          {3093, 0.9999},
          {3088, -133.66666666666666},
          {3081, 57.0},
          {3094, 323.1301023611111},
          {3094, 323.25}}},
        {L"Hotine B",
         3,
         {{3090, 590476.87},
          {3091, 442857.65},
          {3093, 0.99984},
          {3088, 115.0},
          {3081, 4.0},
          {3094, 53.31582047222222},
          {3094, 53.13010236111111}}},
        {L"Polyconic", 22, {{3082, 5e6}, {3083, 1e7}, {3088, -54.0}, {3081, 0.0}}},
        {L"Universal Polar Stereographic", 18, {{3082, 2e6}, {3083, 2e6}, {3093, 0.994}}},
    };
    DescribedSystems systems;
    for (const Row& row : rows) {
        ZORGeoCoordSys system;
        ASSERT_TRUE(systems.Init(system, row.system));
        Codes codes;
        Numbers numbers;
        system.GetGeoKeys(codes, numbers);
        EXPECT_EQ(codes, (Codes{{3072, short{32767}}, {3074, short{32767}}, {3075, row.code}})) << row.system.ToUtf8();
        EXPECT_EQ(numbers, row.numbers) << row.system.ToUtf8();
    }
}

// The scale factor is the one that the cone was formed with.
TEST(ZORGeoCoordSysDescriptions, GeoKeysOfLambertWithOneParallel)
{
    DescribedSystems systems;
    ZORGeoCoordSys system;
    ASSERT_TRUE(systems.Init(system, L"Lambert 1 Parallel"));
    Codes codes;
    Numbers numbers;
    system.GetGeoKeys(codes, numbers);
    EXPECT_EQ(codes.back(), (std::pair<int, short>{3075, short{9}}));
    ASSERT_EQ(numbers.size(), 6u);
    EXPECT_NEAR(numbers.back().second, 0.99987, 1e-15);
    numbers.back().second = 0.99987;
    EXPECT_EQ(numbers,
              (Numbers{{3082, 6e5}, {3083, 2e5}, {3088, 2.33722917}, {3081, 49.5}, {3078, 49.5}, {3093, 0.99987}}));
}

TEST(ZORGeoCoordSysDescriptions, GeoKeysAreAppendedAndNoneForRdOrBeforeInit)
{
    DescribedSystems systems;
    ZORGeoCoordSys rd;
    ASSERT_TRUE(systems.Init(rd, L"RD"));
    ZORGeoCoordSys never;
    Codes codes = {{1, short{2}}};
    Numbers numbers = {{3, 4.0}};
    rd.GetGeoKeys(codes, numbers);
    never.GetGeoKeys(codes, numbers);
    EXPECT_EQ(codes, (Codes{{1, short{2}}}));
    EXPECT_EQ(numbers, (Numbers{{3, 4.0}}));
    ZORGeoCoordSys polyconic;
    ASSERT_TRUE(systems.Init(polyconic, L"Polyconic"));
    polyconic.GetGeoKeys(codes, numbers);
    EXPECT_EQ(codes.size(), 4u);
    EXPECT_EQ(numbers.size(), 5u);
}
