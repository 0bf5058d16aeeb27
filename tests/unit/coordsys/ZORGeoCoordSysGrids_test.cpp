// Systems with real grid files, from Init through every conversion, with PROJ as the judge.

#include "CoordSysFixture.h"

#include <filesystem>
#include <sstream>

#include "tests/support/GridFiles.h"
#include "tests/support/ProjOracle.h"

namespace {

constexpr double kGridTolerance = 2e-4;   // metres: the projection's series against PROJ's
constexpr double kHeightTolerance = 1e-4; // metres: the datum's rotations against PROJ's order
constexpr double kAngleTolerance = 2e-9;

#if defined(_WIN32)
const std::string kProjData = "Z:/usr/share/proj/";
#else
const std::string kProjData = "/usr/share/proj/";
#endif
const std::string kEgm96File = kProjData + "egm96_15.gtx";
const std::string kBetaFile = kProjData + "BETA2007.gsb";
const CString kGermanSystem = L"German Grid";

CString Wide(const std::string& text)
{
    return CString::FromUtf8(text);
}

double GeoidHeight(double latitude, double longitude)
{
    const ProjOracle proj("+proj=vgridshift +multiplier=1 +grids=" + kEgm96File);
    return proj.Forward(ProjOracle::Radians(longitude), ProjOracle::Radians(latitude)).z;
}

// Old German positions, shifted to ETRS89 and projected there.
class GermanDatabase : public SurveyDatabase {
public:
    GermanDatabase()
    {
        AddEllipsoid(main, {L"GRS80", 6378137.0, 0.006694380022903416});
        AddProjection(main, {.name = L"UTM 32", .lonOrigin = 9.0});
        AddSystem(main, {.group = kGroup,
                         .name = kGermanSystem,
                         .datum = L"No datum",
                         .projection = L"UTM 32",
                         .ellipsoid = L"GRS80"});
    }
};

} // namespace

TEST(ZORGeoCoordSysGrids, Egm96HeightsComeThroughEveryConversion)
{
    SurveyDatabase database;
    ZORGeoCoordSys system;
    MakeReady(system, database, kSevenSystem, {.geoidModel = L"EGM96", .geoidFile = Wide(kEgm96File)});
    EXPECT_TRUE(system.HasGeoidModel());
    const ProjOracle toLocal(kProjSeven);
    const ProjOracle toGrid(kProjSeven + kProjGrid);
    for (const auto& [latitude, longitude] :
         std::vector<std::pair<double, double>>{{52.0, 5.0}, {53.3333, 4.21}, {50.25, 6.25}, {51.0, 4.5}}) {
        constexpr double height = 61.5;
        const double geoid = GeoidHeight(latitude, longitude);
        const auto grid = toGrid.Forward(ProjOracle::Radians(longitude), ProjOracle::Radians(latitude), height);
        double x = 0.0;
        double y = 0.0;
        double z = 0.0;
        system.SatGeoToGrid(latitude, longitude, height, x, y, z, 0.0);
        EXPECT_NEAR(x, grid.x, kGridTolerance);
        EXPECT_NEAR(y, grid.y, kGridTolerance);
        EXPECT_NEAR(z, height - geoid, 1e-6);
        double satLatitude = 0.0;
        double satLongitude = 0.0;
        double satHeight = 0.0;
        system.GridToSatGeo(x, y, z, satLatitude, satLongitude, satHeight, 0.0);
        EXPECT_NEAR(satLatitude, latitude, 1e-7); // z is no ellipsoidal height: the datum sees 40 m less
        EXPECT_NEAR(satLongitude, longitude, 1e-7);
        EXPECT_NEAR(satHeight, z + geoid, 1e-4);

        const auto local = toLocal.Forward(ProjOracle::Radians(longitude), ProjOracle::Radians(latitude), height);
        const double localLatitude = ProjOracle::Degrees(local.y);
        const double localLongitude = ProjOracle::Degrees(local.x);
        system.GeoToGrid(localLatitude, localLongitude, local.z, x, y, z, 0.0);
        EXPECT_NEAR(x, grid.x, kGridTolerance);
        EXPECT_NEAR(z, height - geoid, kHeightTolerance);
        double latitudeBack = 0.0;
        double longitudeBack = 0.0;
        double heightBack = 0.0;
        system.GridToGeo(x, y, z, latitudeBack, longitudeBack, heightBack, 0.0);
        EXPECT_NEAR(latitudeBack, localLatitude, kAngleTolerance);
        EXPECT_NEAR(longitudeBack, localLongitude, kAngleTolerance);
        const auto satellite =
            toLocal.Inverse(ProjOracle::Radians(localLongitude), ProjOracle::Radians(localLatitude), z);
        EXPECT_NEAR(heightBack, z + geoid - (satellite.z - z), 2e-4);
        double asked = 0.0;
        EXPECT_TRUE(system.CalGeoidHeight(latitude, longitude, 0.0, 0.0, asked));
        EXPECT_NEAR(asked, geoid, 1e-6);
    }
}

TEST(ZORGeoCoordSysGrids, HeightsFollowTheUnitOfTheSystem)
{
    constexpr double foot = 0.3048;
    const double geoid = GeoidHeight(52.0, 5.0);
    SurveyDatabase database;
    ZORGeoCoordSys system;
    MakeReady(system, database, kPlainSystem, {.geoidModel = L"EGM96", .geoidFile = Wide(kEgm96File), .unit = L"Feet"});
    double x = 0.0;
    double y = 0.0;
    double z = 0.0;
    system.SatGeoToGrid(52.0, 5.0, 100.0 / foot, x, y, z, 0.0);
    EXPECT_NEAR(z, (100.0 - geoid) / foot, 1e-5);
    // A change of unit afterwards reaches the model as well.
    ASSERT_TRUE(system.SetCoordSysUnit(L"Meters"));
    system.SatGeoToGrid(52.0, 5.0, 100.0, x, y, z, 0.0);
    EXPECT_NEAR(z, 100.0 - geoid, 1e-5);
    ASSERT_TRUE(system.SetCoordSysUnit(L"Feet"));
    system.SatGeoToGrid(52.0, 5.0, 100.0 / foot, x, y, z, 0.0);
    EXPECT_NEAR(z, (100.0 - geoid) / foot, 1e-5);
}

TEST(ZORGeoCoordSysGrids, CopyInAnotherUnitLeavesTheHeightsOfItsSource)
{
    constexpr double foot = 0.3048;
    const double geoid = GeoidHeight(52.0, 5.0);
    SurveyDatabase database;
    ZORGeoCoordSys source;
    MakeReady(source, database, kPlainSystem, {.geoidModel = L"EGM96", .geoidFile = Wide(kEgm96File)});
    ZORGeoCoordSys copy(source);
    ASSERT_TRUE(copy.SetCoordSysUnit(L"Feet"));
    double height = 0.0;
    ASSERT_TRUE(copy.CalGeoidHeight(52.0, 5.0, 0.0, 0.0, height));
    EXPECT_NEAR(height, geoid / foot, 1e-5);
    ASSERT_TRUE(source.CalGeoidHeight(52.0, 5.0, 0.0, 0.0, height));
    EXPECT_NEAR(height, geoid, 1e-6);
}

TEST(ZORGeoCoordSysGrids, ModelOfAnEarlierInitTakesTheNewUnit)
{
    constexpr double foot = 0.3048;
    const double geoid = GeoidHeight(52.0, 5.0);
    SurveyDatabase database;
    ZORGeoCoordSys system;
    MakeReady(system, database, kPlainSystem, {.geoidModel = L"EGM96", .geoidFile = Wide(kEgm96File)});
    // The second system has no geoid of its own, so the earlier model stays in force.
    MakeReady(system, database, kPlainSystem, {.unit = L"Feet"});
    double height = 0.0;
    ASSERT_TRUE(system.CalGeoidHeight(52.0, 5.0, 0.0, 0.0, height));
    EXPECT_NEAR(height, geoid / foot, 1e-5);
}

TEST(ZORGeoCoordSysGrids, Beta2007ShiftsComeThroughEveryConversion)
{
    GermanDatabase database;
    ZORGeoCoordSys system;
    MakeReady(system, database, kGermanSystem, {.postModel = L"NTv2", .postFile = Wide(kBetaFile)});
    const ProjOracle proj("+proj=pipeline +step +proj=hgridshift +grids=" + kBetaFile +
                          " +step +proj=utm +zone=32 +ellps=GRS80");
    int compared = 0;
    for (double latitude = 47.6; latitude < 54.8; latitude += 0.71) {
        for (double longitude = 7.1; longitude < 11.0; longitude += 0.83) {
            const auto grid = proj.Forward(ProjOracle::Radians(longitude), ProjOracle::Radians(latitude));
            double x = 0.0;
            double y = 0.0;
            double z = 0.0;
            const auto expectGrid = [&](const char* operation) {
                EXPECT_NEAR(x, grid.x, kGridTolerance) << operation << " " << latitude << " " << longitude;
                EXPECT_NEAR(y, grid.y, kGridTolerance) << operation << " " << latitude << " " << longitude;
            };
            system.SatGeoToGrid(latitude, longitude, x, y, 0.0);
            expectGrid("SatGeoToGrid");
            system.SatGeoToGrid(latitude, longitude, 12.0, x, y, z, 0.0);
            expectGrid("SatGeoToGrid with height");
            EXPECT_EQ(z, 12.0);
            system.GeoToGrid(latitude, longitude, x, y, true);
            expectGrid("GeoToGrid");
            system.GeoToGrid(latitude, longitude, 12.0, x, y, z, 0.0);
            expectGrid("GeoToGrid with height");

            double latitudeBack = 0.0;
            double longitudeBack = 0.0;
            double heightBack = 0.0;
            const auto expectBack = [&](const char* operation) {
                EXPECT_NEAR(latitudeBack, latitude, kAngleTolerance) << operation;
                EXPECT_NEAR(longitudeBack, longitude, kAngleTolerance) << operation;
            };
            system.GridToSatGeo(grid.x, grid.y, latitudeBack, longitudeBack, 0.0);
            expectBack("GridToSatGeo");
            system.GridToSatGeo(grid.x, grid.y, 12.0, latitudeBack, longitudeBack, heightBack, 0.0);
            expectBack("GridToSatGeo with height");
            system.GridToGeo(grid.x, grid.y, latitudeBack, longitudeBack);
            expectBack("GridToGeo");
            system.GridToGeo(grid.x, grid.y, 12.0, latitudeBack, longitudeBack, heightBack, 0.0);
            expectBack("GridToGeo with height");
            EXPECT_EQ(heightBack, 12.0);
            ++compared;
        }
    }
    EXPECT_GT(compared, 40);
}

TEST(ZORGeoCoordSysGrids, OutsideItsGridAModelChangesNothing)
{
    GermanDatabase database;
    ZORGeoCoordSys with;
    MakeReady(with, database, kGermanSystem, {.postModel = L"NTv2", .postFile = Wide(kBetaFile)});
    ZORGeoCoordSys without;
    MakeReady(without, database, kGermanSystem);
    double a[2] = {};
    double b[2] = {};
    with.SatGeoToGrid(60.0, 9.5, a[0], a[1], 0.0);
    without.SatGeoToGrid(60.0, 9.5, b[0], b[1], 0.0);
    EXPECT_EQ(a[0], b[0]);
    EXPECT_EQ(a[1], b[1]);
}

TEST(ZORGeoCoordSysGrids, TheBritishTextGridShiftsTheGridAndGivesTheHeight)
{
    // A plane of shifts about the origin of the test's grid: worked by hand below.
    BritishFile file;
    file.west = 498;
    file.south = 5760;
    file.columns = 5;
    file.rows = 5;
    SurveyDatabase database;
    const CString grid = database.Directory().Write("british.txt", file.Text([](int row, int column) {
        return BritishFile::Node{90.0 + 0.01 * column, -70.0 + 0.02 * row, 48.0 + 0.1 * row};
    }));
    ZORGeoCoordSys plain;
    MakeReady(plain, database, kPlainSystem);
    ZORGeoCoordSys system;
    MakeReady(system, database, kPlainSystem,
              {.geoidModel = L"OSGM", .geoidFile = grid, .postModel = L"OSTN", .postFile = grid});
    double x = 0.0;
    double y = 0.0;
    double z = 0.0;
    double unshifted[2] = {};
    plain.SatGeoToGrid(52.005, 5.003, unshifted[0], unshifted[1], 0.0);
    ASSERT_GT(unshifted[0], 498000.0);
    ASSERT_LT(unshifted[0], 502000.0);
    ASSERT_GT(unshifted[1], 5760000.0);
    ASSERT_LT(unshifted[1], 5763900.0);
    system.SatGeoToGrid(52.005, 5.003, 100.0, x, y, z, 0.0);
    EXPECT_NEAR(x, unshifted[0] + 90.0 + 0.01 * (unshifted[0] - 498000.0) / 1000.0, 1e-6);
    EXPECT_NEAR(y, unshifted[1] - 70.0 + 0.02 * (unshifted[1] - 5760000.0) / 1000.0, 1e-6);
    // The height is asked for at the grid position that comes out.
    EXPECT_NEAR(z, 100.0 - (48.0 + 0.1 * (y - 5760000.0) / 1000.0), 1e-6);
    double latitude = 0.0;
    double longitude = 0.0;
    system.GridToSatGeo(x, y, latitude, longitude, 0.0);
    EXPECT_NEAR(latitude, 52.005, kAngleTolerance);
    EXPECT_NEAR(longitude, 5.003, kAngleTolerance);
}

TEST(ZORGeoCoordSysGrids, ABareNameOfTheDatabaseIsFoundInTheDataDirectory)
{
    SurveyDatabase database;
    std::filesystem::copy_file(kEgm96File, database.Directory().Path() / "main" / "egm96_15.gtx");
    database.SetSystemItem(kPlainSystem, L"Geoid model use statu", true);
    database.SetSystemItem(kPlainSystem, L"Geoid model method", CString(L"EGM96"));
    database.SetSystemItem(kPlainSystem, L"Geoid model grid", CString(L"egm96_15.gtx"));
    ZORGeoCoordSys system;
    MakeReady(system, database, kPlainSystem);
    double geoid = 0.0;
    ASSERT_TRUE(system.CalGeoidHeight(52.0, 5.0, 0.0, 0.0, geoid));
    EXPECT_NEAR(geoid, GeoidHeight(52.0, 5.0), 1e-6);
    std::wostringstream xml;
    system.DumpGeoidXml(xml, L"");
    EXPECT_GE(CString(xml.str()).Find(L"<format>GTX</format>"), 0);
}

TEST(ZORGeoCoordSysGrids, AFileThatIsBrokenIsToldAndGivesNoHeight)
{
    const ModuleTexts texts;
    ScriptedDesk desk;
    SurveyDatabase database;
    const CString file = database.Directory().Write("broken.gtx", "no grid");
    database.Save();
    ZORGeoCoordSys system;
    InitOpen(system, database.project, kPlainSystem, false, {.geoidModel = L"EGM96", .geoidFile = file});
    EXPECT_TRUE(system.IsInit());
    ASSERT_EQ(desk.messages.size(), 1u);
    EXPECT_EQ(desk.messages[0].text, L"Could not open geoid model file:\n\n" + file +
                                         L"\n\nCheck the coordinate system in the project configuration.");
    double geoid = -1.0;
    EXPECT_FALSE(system.CalGeoidHeight(52.0, 5.0, 0.0, 0.0, geoid));
    EXPECT_EQ(geoid, -1.0);
}
