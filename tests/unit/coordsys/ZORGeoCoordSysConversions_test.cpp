#include <cmath>
#include <memory>

#include "tests/support/ProjOracle.h"
#include "tests/support/TestGeoidModels.h"
#include "tests/unit/coordsys/CoordSysFixture.h"

namespace {

constexpr double kTenthMillimetre = 1e-4; // metres
constexpr double kTenthMillimetreDegrees = 9e-10;
constexpr double kMillisecondsPerYear = 1000.0 * 86400.0 * 365.25;

double MillisecondsOf(double decimalYear)
{
    return (decimalYear - 1970.0) * kMillisecondsPerYear;
}

struct Place {
    double latitude;
    double longitude;
    double height;
};
constexpr Place kPlaces[] = {{52.0, 5.0, 43.0}, {51.3, 3.2, 0.0}, {53.9, 7.4, -30.0}, {49.5, 6.1, 1250.0}};

// A datum of the oracle at one place: degrees, metres.
Place Transformed(const ProjOracle& oracle, const Place& place, bool inverse, double year = HUGE_VAL)
{
    const double lon = ProjOracle::Radians(place.longitude);
    const double lat = ProjOracle::Radians(place.latitude);
    const auto out =
        inverse ? oracle.Inverse(lon, lat, place.height, year) : oracle.Forward(lon, lat, place.height, year);
    return {ProjOracle::Degrees(out.y), ProjOracle::Degrees(out.x), out.z};
}

ProjOracle::Position Projected(const Place& place)
{
    static const ProjOracle grid(kProjGrid.substr(6));
    return grid.Forward(ProjOracle::Radians(place.longitude), ProjOracle::Radians(place.latitude), place.height);
}

void ExpectGrid(double x, double y, double z, const ProjOracle::Position& expected)
{
    EXPECT_NEAR(x, expected.x, kTenthMillimetre);
    EXPECT_NEAR(y, expected.y, kTenthMillimetre);
    EXPECT_NEAR(z, expected.z, kTenthMillimetre);
}

void ExpectPlace(double latitude, double longitude, double height, const Place& expected)
{
    EXPECT_NEAR(latitude, expected.latitude, kTenthMillimetreDegrees);
    EXPECT_NEAR(longitude, expected.longitude, kTenthMillimetreDegrees);
    EXPECT_NEAR(height, expected.height, kTenthMillimetre);
}

// A ready system over a database of its own.
struct Ready {
    explicit Ready(const CString& name, const InitArguments& arguments = {})
    {
        MakeReady(system, database, name, arguments);
    }
    SurveyDatabase database;
    ZORGeoCoordSys system;
};

// A system whose post step can be seen and refused.
class PostSystem : public ZORGeoCoordSys {
public:
    bool CalPostXYZ(double x, double y, double z, double& outX, double& outY, double& outZ, bool inverse) const override
    {
        ++calls;
        outX = x + (inverse ? -7.0 : 7.0);
        outY = y + (inverse ? -8.0 : 8.0);
        outZ = z + (inverse ? -9.0 : 9.0);
        return accepts;
    }
    mutable int calls = 0;
    bool accepts = true;
};

// A system without a projection: its unit was changed after the records were taken away, in the
// way a host does it.
void LoseProjection(ZORGeoCoordSys& system)
{
    auto& database = dynamic_cast<ZorGeoDatabase&>(system.GetGeoDatabase());
    for (FileObject* file : {&database.GetMainFile(), &database.GetUserFile()}) {
        file->SetItem(kProjectionPrefix + L"TM 5 East", projectionParamKeys[ProjectionKey::type], 5, true);
    }
    EXPECT_FALSE(system.SetCoordSysUnit(L"Meters"));
}

// A system whose parts are gone: a later Init did not find its system.
void LoseParts(ZORGeoCoordSys& system, SurveyDatabase& database)
{
    EXPECT_FALSE(InitOpen(system, database.project, L"No such system", true));
}

} // namespace

// The whole road against PROJ: datum, projection, heights.

TEST(ZORGeoCoordSysConversions, SatelliteToGridAndBackAgreesWithProj)
{
    const Ready ready(kSevenSystem);
    const ProjOracle road(kProjSeven + kProjGrid);
    for (const Place& place : kPlaces) {
        const auto expected =
            road.Forward(ProjOracle::Radians(place.longitude), ProjOracle::Radians(place.latitude), place.height);
        double x = 0.0, y = 0.0, z = 0.0;
        ready.system.SatGeoToGrid(place.latitude, place.longitude, place.height, x, y, z, 0.0);
        ExpectGrid(x, y, z, expected);
        double lat = 0.0, lon = 0.0, h = 0.0;
        ready.system.GridToSatGeo(expected.x, expected.y, expected.z, lat, lon, h, 0.0);
        ExpectPlace(lat, lon, h, place);
    }
}

TEST(ZORGeoCoordSysConversions, FourteenParametersFollowTheTimeOfThePosition)
{
    const Ready ready(kFourteenSystem);
    const ProjOracle road(kProjFourteen + kProjGrid);
    for (const double year : {1998.5, 2010.0, 2024.5}) {
        for (const Place& place : kPlaces) {
            const auto expected = road.Forward(ProjOracle::Radians(place.longitude),
                                               ProjOracle::Radians(place.latitude), place.height, year);
            double x = 0.0, y = 0.0, z = 0.0;
            ready.system.SatGeoToGrid(place.latitude, place.longitude, place.height, x, y, z, MillisecondsOf(year));
            ExpectGrid(x, y, z, expected);
            double lat = 0.0, lon = 0.0, h = 0.0;
            ready.system.GridToSatGeo(expected.x, expected.y, expected.z, lat, lon, h, MillisecondsOf(year));
            ExpectPlace(lat, lon, h, place);
        }
    }
}

TEST(ZORGeoCoordSysConversions, TimeReachesEveryOperationThatHasIt)
{
    Ready ready(kFourteenSystem);
    ZORGeoCoordSys& s = ready.system;
    const double early = MillisecondsOf(2000.0);
    const double late = MillisecondsOf(2030.0);
    const auto differs = [&](auto&& convert) { return convert(early) != convert(late); };
    double a = 0.0, b = 0.0, c = 0.0;
    EXPECT_TRUE(differs([&](double t) { return s.SatGeoToGrid(52.0, 5.0, 10.0, a, b, c, t), a; }));
    EXPECT_TRUE(differs([&](double t) { return s.SatGeoToGrid(52.0, 5.0, a, b, t), a; }));
    EXPECT_TRUE(differs([&](double t) { return s.GridToSatGeo(5e5, 5.76e6, 10.0, a, b, c, t), a; }));
    EXPECT_TRUE(differs([&](double t) { return s.GridToSatGeo(5e5, 5.76e6, a, b, t), a; }));
    EXPECT_TRUE(differs([&](double t) { return s.SatGeoToGeo(52.0, 5.0, 10.0, a, b, c, t), a; }));
    EXPECT_TRUE(differs([&](double t) { return s.GeoToSatGeo(52.0, 5.0, 10.0, a, b, c, t), a; }));
    EXPECT_TRUE(differs([&](double t) { return s.DoDtf(52.0, 5.0, 10.0, a, b, c, false, t), a; }));
    EXPECT_TRUE(differs([&](double t) { return s.DoDtf(52.0, 5.0, 10.0, a, b, c, false, CString(), t), a; }));
    EXPECT_TRUE(differs([&](double t) { return s.DoDtfWGS84(52.0, 5.0, 10.0, a, b, c, false, t), a; }));
    s.SetUserIOLatLonOnSAT(1);
    EXPECT_TRUE(differs([&](double t) { return s.UserIOGeoToGrid(52.0, 5.0, a, b, t), a; }));
    EXPECT_TRUE(differs([&](double t) { return s.UserIOGridToGeo(5e5, 5.76e6, a, b, t), a; }));
}

// Of the 3D operations between local frame and grid only the height of the geoid step meets time.
TEST(ZORGeoCoordSysConversions, TimeReachesTheGeoidStepOfTheLocalFrame)
{
    const ScopedGeoidModel<7> egm96(ConstantGeoid(40.0));
    const Ready ready(kFourteenSystem, {.geoidModel = L"EGM96"});
    double a = 0.0, b = 0.0, z1 = 0.0, z2 = 0.0;
    ready.system.GeoToGrid(52.0, 5.0, 10.0, a, b, z1, MillisecondsOf(2000.0));
    ready.system.GeoToGrid(52.0, 5.0, 10.0, a, b, z2, MillisecondsOf(2030.0));
    EXPECT_NE(z1, z2);
    ready.system.GridToGeo(5e5, 5.76e6, 10.0, a, b, z1, MillisecondsOf(2000.0));
    ready.system.GridToGeo(5e5, 5.76e6, 10.0, a, b, z2, MillisecondsOf(2030.0));
    EXPECT_NE(z1, z2);
}

TEST(ZORGeoCoordSysConversions, GridComesOutInTheSystemsUnit)
{
    const Ready ready(kSevenSystem, {.unit = L"Feet"});
    const ProjOracle datum(kProjSeven);
    for (const Place& place : kPlaces) {
        const Place local = Transformed(datum, place, false);
        // The false easting of the record is in the unit of the system as it stands.
        const auto metres = Projected(local);
        double x = 0.0, y = 0.0, z = 0.0;
        ready.system.SatGeoToGrid(place.latitude, place.longitude, place.height / 0.3048, x, y, z, 0.0);
        EXPECT_NEAR((x - 500000.0) * 0.3048, metres.x - 500000.0, kTenthMillimetre);
        EXPECT_NEAR(y * 0.3048, metres.y, kTenthMillimetre);
        EXPECT_NEAR(z * 0.3048, local.height, kTenthMillimetre);
    }
}

TEST(ZORGeoCoordSysConversions, FlatFormsTakeHeightZeroThroughTheDatum)
{
    const Ready ready(kSevenSystem);
    const ProjOracle road(kProjSeven + kProjGrid);
    for (const Place& place : kPlaces) {
        const auto expected =
            road.Forward(ProjOracle::Radians(place.longitude), ProjOracle::Radians(place.latitude), 0.0);
        double x = 0.0, y = 0.0;
        ready.system.SatGeoToGrid(place.latitude, place.longitude, x, y, 0.0);
        EXPECT_NEAR(x, expected.x, kTenthMillimetre);
        EXPECT_NEAR(y, expected.y, kTenthMillimetre);
        const auto back = road.Inverse(expected.x, expected.y, 0.0);
        double lat = 0.0, lon = 0.0;
        ready.system.GridToSatGeo(expected.x, expected.y, lat, lon, 0.0);
        EXPECT_NEAR(lat, ProjOracle::Degrees(back.y), kTenthMillimetreDegrees);
        EXPECT_NEAR(lon, ProjOracle::Degrees(back.x), kTenthMillimetreDegrees);
    }
}

TEST(ZORGeoCoordSysConversions, SatelliteToLocalAndBackIsTheDatumAlone)
{
    TestGeoidSettings settings = ConstantGeoid(40.0);
    settings.gridShift = ConstantShift(100.0, 200.0);
    settings.geoShift = ConstantShift(0.1, 0.2);
    const ScopedGeoidModel<7> egm96(settings);
    const ScopedGeoidModel<4> ostn(settings);
    Ready ready(kSevenSystem, {.geoidModel = L"EGM96", .postModel = L"OSTN"});
    const ProjOracle datum(kProjSeven);
    for (const Place& place : kPlaces) {
        double lat = 0.0, lon = 0.0, h = 0.0;
        ready.system.SatGeoToGeo(place.latitude, place.longitude, place.height, lat, lon, h, 0.0);
        ExpectPlace(lat, lon, h, Transformed(datum, place, false));
        ready.system.GeoToSatGeo(place.latitude, place.longitude, place.height, lat, lon, h, 0.0);
        ExpectPlace(lat, lon, h, Transformed(datum, place, true));
        EXPECT_TRUE(ready.system.DoDtf(place.latitude, place.longitude, place.height, lat, lon, h, true, 0.0));
        ExpectPlace(lat, lon, h, Transformed(datum, place, true));
        EXPECT_TRUE(ready.system.DoDtfWGS84(place.latitude, place.longitude, place.height, lat, lon, h, false, 0.0));
        ExpectPlace(lat, lon, h, Transformed(datum, place, false));
        EXPECT_TRUE(
            ready.system.DoDtf(place.latitude, place.longitude, place.height, lat, lon, h, true, CString(), 0.0));
        ExpectPlace(lat, lon, h, Transformed(datum, place, true));
    }
}

// Heights.

TEST(ZORGeoCoordSysConversions, HeightPassesWithoutGeoidAndPostCorrection)
{
    const Ready ready(kSevenSystem);
    const Place place = kPlaces[0];
    double x = 0.0, y = 0.0, z = 0.0, lat = 0.0, lon = 0.0, h = 0.0;
    ready.system.GeoToGrid(place.latitude, place.longitude, place.height, x, y, z, 0.0);
    EXPECT_EQ(z, place.height);
    ready.system.GridToGeo(x, y, z, lat, lon, h, 0.0);
    EXPECT_EQ(h, z);
}

TEST(ZORGeoCoordSysConversions, GridHeightWithoutGeoidIsTheLocalEllipsoidal)
{
    const Ready ready(kSevenSystem);
    const Place place = kPlaces[0];
    double x = 0.0, y = 0.0, z = 0.0;
    ready.system.SatGeoToGrid(place.latitude, place.longitude, place.height, x, y, z, 0.0);
    EXPECT_NEAR(z, Transformed(ProjOracle(kProjSeven), place, false).height, kTenthMillimetre);
    EXPECT_GT(std::abs(z - place.height), 1.0) << "the datum of this test moves heights";
}

TEST(ZORGeoCoordSysConversions, FixedSeparationWithoutDatum)
{
    SurveyDatabase database;
    database.SetSystemItem(kPlainSystem, kGeoidUse, true);
    database.SetSystemItem(kPlainSystem, kGeoidMethod, CString(L"Manual"));
    database.SetSystemItem(kPlainSystem, kGeoidManual, 40.0);
    ZORGeoCoordSys system;
    MakeReady(system, database, kPlainSystem);
    double x = 0.0, y = 0.0, z = 0.0, lat = 0.0, lon = 0.0, h = 0.0;
    system.GeoToGrid(52.0, 5.0, 100.0, x, y, z, 0.0);
    EXPECT_EQ(z, 60.0);
    system.SatGeoToGrid(52.0, 5.0, 100.0, x, y, z, 0.0);
    EXPECT_EQ(z, 60.0);
    system.GridToSatGeo(x, y, 60.0, lat, lon, h, 0.0);
    EXPECT_EQ(h, 100.0);
    system.GridToGeo(x, y, 60.0, lat, lon, h, 0.0);
    EXPECT_EQ(h, 100.0);
    // Without any datum object the same holds: the next Init loses the parts, not the separation.
    LoseParts(system, database);
    system.GeoToGrid(52.0, 5.0, 100.0, x, y, z, 0.0);
    EXPECT_EQ(z, 60.0);
    system.GridToGeo(x, y, 60.0, lat, lon, h, 0.0);
    EXPECT_EQ(h, 100.0);
    system.GridToSatGeo(x, y, 60.0, lat, lon, h, 0.0);
    EXPECT_EQ(h, 100.0);
}

// With a geoid: grid heights are satellite ellipsoidal less geoid, whatever the local ellipsoid
// says; post shifts of the height stay on top.
TEST(ZORGeoCoordSysConversions, GeoidHeightIsTakenInTheSatelliteFrame)
{
    const ScopedGeoidModel<7> egm96(ConstantGeoid(45.25));
    SurveyDatabase database;
    database.SetSystemItem(kSevenSystem, kPostUse, true);
    database.SetSystemItem(kSevenSystem, kPostX, 10.0);
    database.SetSystemItem(kSevenSystem, kPostY, 20.0);
    database.SetSystemItem(kSevenSystem, kPostZ, 1.5);
    ZORGeoCoordSys system;
    MakeReady(system, database, kSevenSystem, {.geoidModel = L"EGM96"});
    const ProjOracle datum(kProjSeven);
    for (const Place& place : kPlaces) {
        double x = 0.0, y = 0.0, z = 0.0, lat = 0.0, lon = 0.0, h = 0.0;

        const Place satellite = Transformed(datum, place, true);
        system.GeoToGrid(place.latitude, place.longitude, place.height, x, y, z, 0.0);
        EXPECT_NEAR(z, satellite.height - 45.25 + 1.5, kTenthMillimetre);

        system.SatGeoToGrid(place.latitude, place.longitude, place.height, x, y, z, 0.0);
        EXPECT_NEAR(z, place.height - 45.25 + 1.5, kTenthMillimetre);

        system.GridToSatGeo(x, y, z, lat, lon, h, 0.0);
        EXPECT_NEAR(h, place.height, kTenthMillimetre);
        EXPECT_NEAR(h, 45.25 + (z - 1.5), kTenthMillimetre);

        // Back in the local frame: the geoid height, less the difference of the two ellipsoids at
        // the grid's height.
        const double z1 = z - 1.5;
        system.GridToGeo(x, y, z, lat, lon, h, 0.0);
        const Place there = Transformed(datum, {lat, lon, z1}, true);
        EXPECT_NEAR(h, 45.25 + z1 - (there.height - z1), kTenthMillimetre);
    }
}

TEST(ZORGeoCoordSysConversions, GeoidIsAskedAtTheSatellitePositionAndTheProjectedPoint)
{
    TestGeoidSettings settings = ConstantGeoid(45.0);
    const ScopedGeoidModel<7> egm96(settings);
    SurveyDatabase database;
    database.SetSystemItem(kSevenSystem, kPostUse, true);
    database.SetSystemItem(kSevenSystem, kPostX, 1000.0);
    database.SetSystemItem(kSevenSystem, kPostY, 2000.0);
    database.SetSystemItem(kSevenSystem, kPostZ, 0.0);
    ZORGeoCoordSys system;
    MakeReady(system, database, kSevenSystem, {.geoidModel = L"EGM96"});
    const ProjOracle datum(kProjSeven);
    const Place place = kPlaces[1];
    const auto& calls = settings.calls->heights;
    const auto lastIsNear = [&](const Place& p, double x, double y) {
        EXPECT_NEAR(calls.back().latitude, p.latitude, kTenthMillimetreDegrees);
        EXPECT_NEAR(calls.back().longitude, p.longitude, kTenthMillimetreDegrees);
        EXPECT_NEAR(calls.back().easting, x, kTenthMillimetre);
        EXPECT_NEAR(calls.back().northing, y, kTenthMillimetre);
    };
    double x = 0.0, y = 0.0, z = 0.0, lat = 0.0, lon = 0.0, h = 0.0;

    // Toward the grid: the point after the post step.
    system.GeoToGrid(place.latitude, place.longitude, place.height, x, y, z, 0.0);
    lastIsNear(Transformed(datum, place, true), Projected(place).x + 1000.0, Projected(place).y + 2000.0);
    system.SatGeoToGrid(place.latitude, place.longitude, place.height, x, y, z, 0.0);
    const auto grid = Projected(Transformed(datum, place, false));
    lastIsNear(place, grid.x + 1000.0, grid.y + 2000.0);
    EXPECT_EQ(calls.back().latitude, place.latitude) << "the position that came in, bit for bit";
    EXPECT_EQ(calls.back().longitude, place.longitude);

    // Away from it: the point before the post step was added.
    system.GridToSatGeo(x, y, z, lat, lon, h, 0.0);
    lastIsNear({lat, lon, 0.0}, x - 1000.0, y - 2000.0);
    system.GridToGeo(x, y, z, lat, lon, h, 0.0);
    lastIsNear(Transformed(datum, {lat, lon, z}, true), x - 1000.0, y - 2000.0);
    EXPECT_EQ(calls.size(), 4u);
}

TEST(ZORGeoCoordSysConversions, RefusingGeoidLeavesHeights)
{
    const ScopedGeoidModel<7> egm96(TestGeoidSettings{});
    const Ready ready(kSevenSystem, {.geoidModel = L"EGM96"});
    double x = 0.0, y = 0.0, z = 0.0, lat = 0.0, lon = 0.0, h = 0.0;
    ready.system.GeoToGrid(52.0, 5.0, 43.0, x, y, z, 0.0);
    EXPECT_EQ(z, 43.0);
    ready.system.GridToGeo(x, y, 43.0, lat, lon, h, 0.0);
    EXPECT_EQ(h, 43.0);
}

// The post step.

TEST(ZORGeoCoordSysConversions, PostStepIsAVirtualCall)
{
    SurveyDatabase database;
    PostSystem system;
    MakeReady(system, database, kPlainSystem);
    const ZORGeoCoordSys& s = system;
    const auto grid = Projected({52.0, 5.0, 10.0});
    double x = 0.0, y = 0.0, z = 0.0, lat = 0.0, lon = 0.0, h = 0.0;

    s.GeoToGrid(52.0, 5.0, 10.0, x, y, z, 0.0);
    ExpectGrid(x, y, z, {grid.x + 7.0, grid.y + 8.0, 19.0});
    s.GridToGeo(grid.x + 7.0, grid.y + 8.0, 19.0, lat, lon, h, 0.0);
    ExpectPlace(lat, lon, h, {52.0, 5.0, 10.0});
    s.SatGeoToGrid(52.0, 5.0, 10.0, x, y, z, 0.0);
    ExpectGrid(x, y, z, {grid.x + 7.0, grid.y + 8.0, 19.0});
    s.GridToSatGeo(grid.x + 7.0, grid.y + 8.0, 19.0, lat, lon, h, 0.0);
    ExpectPlace(lat, lon, h, {52.0, 5.0, 10.0});
    s.GeoToGrid(52.0, 5.0, x, y, true);
    ExpectGrid(x, y, 0.0, {grid.x + 7.0, grid.y + 8.0, 0.0});
    s.GridToGeo(grid.x + 7.0, grid.y + 8.0, lat, lon);
    ExpectPlace(lat, lon, 0.0, {52.0, 5.0, 0.0});
    s.SatGeoToGrid(52.0, 5.0, x, y, 0.0);
    ExpectGrid(x, y, 0.0, {grid.x + 7.0, grid.y + 8.0, 0.0});
    s.GridToSatGeo(grid.x + 7.0, grid.y + 8.0, lat, lon, 0.0);
    ExpectPlace(lat, lon, 0.0, {52.0, 5.0, 0.0});
    EXPECT_TRUE(s.CalPostXY(1.0, 2.0, x, y, false));
    ExpectGrid(x, y, 0.0, {8.0, 10.0, 0.0});
    EXPECT_EQ(system.calls, 9);

    system.accepts = false;
    s.GeoToGrid(52.0, 5.0, 10.0, x, y, z, 0.0);
    ExpectGrid(x, y, z, grid);
    EXPECT_EQ(system.calls, 10);
}

TEST(ZORGeoCoordSysConversions, FlatGridIsPostCorrectedOnRequestAndTheWayBackAlways)
{
    SurveyDatabase database;
    database.SetSystemItem(kPlainSystem, kPostUse, true);
    database.SetSystemItem(kPlainSystem, kPostX, 1000.0);
    database.SetSystemItem(kPlainSystem, kPostY, 0.0);
    ZORGeoCoordSys system;
    MakeReady(system, database, kPlainSystem);
    double plain = 0.0, corrected = 0.0, y = 0.0, lat = 0.0, lon = 0.0;
    system.GeoToGrid(52.0, 5.0, plain, y, false);
    EXPECT_EQ(plain, 500000.0);
    system.GeoToGrid(52.0, 5.0, corrected, y, true);
    EXPECT_EQ(corrected, 501000.0);
    system.GridToGeo(corrected, y, lat, lon);
    EXPECT_NEAR(lon, 5.0, kTenthMillimetreDegrees);
    system.GridToGeo(plain, y, lat, lon);
    EXPECT_LT(lon, 4.99) << "no round trip without the corrections";
}

TEST(ZORGeoCoordSysConversions, FlatSatelliteGridIsAlwaysPostCorrected)
{
    SurveyDatabase database;
    database.SetSystemItem(kPlainSystem, kPostUse, true);
    database.SetSystemItem(kPlainSystem, kPostX, 1000.0);
    ZORGeoCoordSys system;
    MakeReady(system, database, kPlainSystem);
    double x = 0.0, y = 0.0;
    system.SatGeoToGrid(52.0, 5.0, x, y, 0.0);
    EXPECT_EQ(x, 501000.0);
}

// The geographic shift of the post model.

TEST(ZORGeoCoordSysConversions, PostModelShiftsGeographicPositionsBothWays)
{
    TestGeoidSettings settings;
    settings.geoShift = LinearShift(0.01, 0.001, -0.02, 0.002);
    const ScopedGeoidModel<4> ostn(settings);
    const Ready ready(kPlainSystem, {.postModel = L"OSTN"});
    const ZORGeoCoordSys& s = ready.system;
    const Place shifted{52.0 + 0.01 + 0.052, 5.0 - 0.02 + 0.01, 10.0};
    const auto grid = Projected(shifted);
    double x = 0.0, y = 0.0, z = 0.0, lat = 0.0, lon = 0.0, h = 0.0;
    s.GeoToGrid(52.0, 5.0, 10.0, x, y, z, 0.0);
    ExpectGrid(x, y, z, grid);
    s.SatGeoToGrid(52.0, 5.0, 10.0, x, y, z, 0.0);
    ExpectGrid(x, y, z, grid);
    s.GeoToGrid(52.0, 5.0, x, y, false);
    ExpectGrid(x, y, 10.0, grid);
    s.SatGeoToGrid(52.0, 5.0, x, y, 0.0);
    ExpectGrid(x, y, 10.0, grid);

    // Back: once, at the position that it corrects.
    const Place back{shifted.latitude - (0.01 + 0.001 * shifted.latitude),
                     shifted.longitude - (-0.02 + 0.002 * shifted.longitude), 10.0};
    s.GridToGeo(grid.x, grid.y, 10.0, lat, lon, h, 0.0);
    ExpectPlace(lat, lon, h, back);
    s.GridToSatGeo(grid.x, grid.y, 10.0, lat, lon, h, 0.0);
    ExpectPlace(lat, lon, h, back);
    s.GridToGeo(grid.x, grid.y, lat, lon);
    ExpectPlace(lat, lon, 10.0, back);
    s.GridToSatGeo(grid.x, grid.y, lat, lon, 0.0);
    ExpectPlace(lat, lon, 10.0, back);

    ASSERT_EQ(settings.calls->geoShifts.size(), 8u);
    for (std::size_t i = 0; i < 8; ++i) {
        EXPECT_EQ(settings.calls->geoShifts[i].inverse, i >= 4);
    }
}

// The shift goes between datum and projection; the geoid of the 3D local operations is asked at
// the shifted position.
TEST(ZORGeoCoordSysConversions, ShiftStandsBetweenDatumAndProjection)
{
    TestGeoidSettings shift;
    shift.geoShift = ConstantShift(0.5, 0.0);
    TestGeoidSettings geoid = ConstantGeoid(45.0);
    const ScopedGeoidModel<4> ostn(shift);
    const ScopedGeoidModel<7> egm96(geoid);
    const Ready ready(kSevenSystem, {.geoidModel = L"EGM96", .postModel = L"OSTN"});
    const ProjOracle datum(kProjSeven);
    const Place place = kPlaces[0];
    double x = 0.0, y = 0.0, z = 0.0;
    ready.system.SatGeoToGrid(place.latitude, place.longitude, place.height, x, y, z, 0.0);
    Place local = Transformed(datum, place, false);
    EXPECT_NEAR(shift.calls->geoShifts.back().first, local.latitude, kTenthMillimetreDegrees);
    local.latitude += 0.5;
    EXPECT_NEAR(y, Projected(local).y, kTenthMillimetre);
    ready.system.GeoToGrid(place.latitude, place.longitude, place.height, x, y, z, 0.0);
    const Place satellite = Transformed(datum, {place.latitude + 0.5, place.longitude, place.height}, true);
    EXPECT_NEAR(geoid.calls->heights.back().latitude, satellite.latitude, kTenthMillimetreDegrees);
    EXPECT_NEAR(z, satellite.height - 45.0, kTenthMillimetre);
}

// Missing parts.

TEST(ZORGeoCoordSysConversions, WithoutProjectionTheCallersPointGoesOn)
{
    SurveyDatabase database;
    database.SetSystemItem(kPlainSystem, kPostUse, true);
    database.SetSystemItem(kPlainSystem, kPostX, 10.0);
    database.SetSystemItem(kPlainSystem, kPostY, 20.0);
    database.SetSystemItem(kPlainSystem, kPostZ, 1.0);
    ZORGeoCoordSys system;
    MakeReady(system, database, kPlainSystem);
    LoseProjection(system);
    double x = 1.0, y = 2.0, z = 3.0;
    system.GeoToGrid(52.0, 5.0, 100.0, x, y, z, 0.0);
    EXPECT_EQ(x, 11.0);
    EXPECT_EQ(y, 22.0);
    EXPECT_EQ(z, 101.0);
    system.GeoToGrid(52.0, 5.0, x, y, false);
    EXPECT_EQ(x, 11.0);
    system.SatGeoToGrid(52.0, 5.0, x, y, 0.0);
    EXPECT_EQ(x, 21.0);
    double lat = 50.0, lon = 4.0, h = 0.0;
    system.GridToGeo(0.0, 0.0, 100.0, lat, lon, h, 0.0);
    EXPECT_EQ(lat, 50.0);
    EXPECT_EQ(lon, 4.0);
    EXPECT_EQ(h, 99.0);
    system.GridToSatGeo(0.0, 0.0, lat, lon, 0.0);
    EXPECT_EQ(lat, 50.0);
}

TEST(ZORGeoCoordSysConversions, WithoutPartsNothingFails)
{
    ZORGeoCoordSys system;
    double a = 1.0, b = 2.0, c = 3.0;
    system.SatGeoToGeo(52.0, 5.0, 10.0, a, b, c, 0.0);
    EXPECT_EQ(a, 52.0);
    EXPECT_EQ(b, 5.0);
    EXPECT_EQ(c, 10.0);
    system.GeoToSatGeo(53.0, 6.0, 11.0, a, b, c, 0.0);
    EXPECT_EQ(a, 53.0);
    EXPECT_FALSE(system.DoDtf(52.0, 5.0, 10.0, a, b, c, false, 0.0));
    EXPECT_FALSE(system.DoDtfWGS84(52.0, 5.0, 10.0, a, b, c, false, 0.0));
    EXPECT_FALSE(system.DoDtf(52.0, 5.0, 10.0, a, b, c, false, CString(), 0.0));
    EXPECT_EQ(a, 53.0);
    EXPECT_FALSE(system.GeogsToCartesian(52.0, 5.0, 0.0, a, b, c, true));
    EXPECT_FALSE(system.GeogsToCartesian(52.0, 5.0, 0.0, a, b, c, false));
    EXPECT_FALSE(system.CartesianToGeogs(1.0, 2.0, 3.0, a, b, c, true));
    EXPECT_FALSE(system.CartesianToGeogs(1.0, 2.0, 3.0, a, b, c, false));
    EXPECT_EQ(a, 53.0);
    EXPECT_EQ(system.PointScaleFactor(0.0, 0.0), 0.0);
    EXPECT_EQ(system.LineScaleFactor(0.0, 0.0, 1.0, 1.0), 0.0);
    double untouched = 7.0;
    system.PointScaleFactor(0.0, 0.0, untouched);
    system.LineScaleFactor(0.0, 0.0, 1.0, 1.0, untouched);
    system.GridConvergence(0.0, 0.0, untouched);
    EXPECT_EQ(untouched, 7.0);
    double dx = 1.0, dy = 2.0;
    EXPECT_FALSE(system.ProjectOffset(dx, dy, 0.0, 0.0));
    EXPECT_EQ(dx, 1.0);
    EXPECT_EQ(dy, 2.0);
}

TEST(ZORGeoCoordSysConversions, RefusingDatumIsSkipped)
{
    SurveyDatabase database;
    AddEllipsoid(database.main, {L"Too small", 5000000.0, 0.0067});
    AddDatum(database.main, {.name = L"Unusable", .target = L"Too small", .parameters = {1.0}});
    // The numbers in the record let it load without a usable ellipsoid.
    database.main.SetItem(kDatumPrefix + L"Unusable", kDatumTargetAxis, 5000000.0, true);
    database.main.SetItem(kDatumPrefix + L"Unusable", kDatumTargetEcc, 0.0067, true);
    database.SetSystemItem(kSevenSystem, kSystemDatum, CString(L"Unusable"));
    ZORGeoCoordSys system;
    MakeReady(system, database, kSevenSystem);
    double a = 0.0, b = 0.0, c = 0.0;
    EXPECT_FALSE(system.DoDtf(52.0, 5.0, 10.0, a, b, c, false, 0.0));
    system.SatGeoToGeo(52.0, 5.0, 10.0, a, b, c, 0.0);
    EXPECT_EQ(a, 52.0);
    EXPECT_EQ(c, 10.0);
    system.SatGeoToGrid(52.0, 5.0, 10.0, a, b, c, 0.0);
    EXPECT_EQ(a, 500000.0);
}

// User input and output.

TEST(ZORGeoCoordSysConversions, UserIOWorksInTheChosenFrame)
{
    SurveyDatabase database;
    database.SetSystemItem(kSevenSystem, kPostUse, true);
    database.SetSystemItem(kSevenSystem, kPostX, 10.0);
    ZORGeoCoordSys system;
    MakeReady(system, database, kSevenSystem);
    EXPECT_FALSE(system.GetUserIOLatLonOnSAT());
    struct Case {
        int value;
        bool satellite;
        bool answer;
    };
    for (const Case& row : {Case{1, true, true}, Case{0, false, false}, Case{2, true, false}, Case{-1, true, false}}) {
        system.SetUserIOLatLonOnSAT(row.value);
        EXPECT_EQ(system.GetUserIOLatLonOnSAT(), row.answer) << row.value;
        double x = 0.0, y = 0.0, wantedX = 0.0, wantedY = 0.0;
        system.UserIOGeoToGrid(52.0, 5.5, x, y, 0.0);
        row.satellite ? system.SatGeoToGrid(52.0, 5.5, wantedX, wantedY, 0.0)
                      : system.GeoToGrid(52.0, 5.5, wantedX, wantedY, true);
        EXPECT_EQ(x, wantedX) << row.value;
        EXPECT_EQ(y, wantedY) << row.value;
        double lat = 0.0, lon = 0.0, wantedLat = 0.0, wantedLon = 0.0;
        system.UserIOGridToGeo(x, y, lat, lon, 0.0);
        row.satellite ? system.GridToSatGeo(x, y, wantedLat, wantedLon, 0.0)
                      : system.GridToGeo(x, y, wantedLat, wantedLon);
        EXPECT_EQ(lat, wantedLat) << row.value;
        EXPECT_EQ(lon, wantedLon) << row.value;
        // Flat forms take height 0 through the datum both ways: no closer than a centimetre.
        EXPECT_NEAR(lat, 52.0, 1e-7);
    }
}

// Datum by name.

namespace {

class NamedDatums : public ZORGeoCoordSys {
public:
    CDatumTransform* CreateNewDtf(CString name) override
    {
        asked.push_back(name);
        return name == L"unknown" ? nullptr : new CDatumTransform;
    }
    std::vector<CString> asked;
};

} // namespace

TEST(ZORGeoCoordSysConversions, NamedDatumIsMadeOnceForANameInAnyCase)
{
    NamedDatums system;
    double a = 0.0, b = 0.0, c = 0.0;
    const auto run = [&](const wchar_t* name) { return system.DoDtf(52.0, 5.0, 1.0, a, b, c, false, name, 0.0); };
    EXPECT_TRUE(run(L"Tool"));
    EXPECT_EQ(a, 52.0) << "a transformation that was never loaded gives the position back";
    EXPECT_TRUE(run(L"Tool"));
    EXPECT_TRUE(run(L"TOOL"));
    EXPECT_EQ(system.asked.size(), 1u);
    EXPECT_TRUE(run(L"Other"));
    EXPECT_TRUE(run(L"Tool"));
    EXPECT_EQ(system.asked.size(), 3u);
}

TEST(ZORGeoCoordSysConversions, FailedNameIsNotTriedAgainUntilAnotherCameBetween)
{
    NamedDatums system;
    double a = -1.0, b = 0.0, c = 0.0;
    const auto run = [&](const wchar_t* name) { return system.DoDtf(52.0, 5.0, 1.0, a, b, c, false, name, 0.0); };
    EXPECT_FALSE(run(L"unknown"));
    EXPECT_FALSE(run(L"Unknown"));
    EXPECT_EQ(system.asked.size(), 1u);
    EXPECT_EQ(a, -1.0);
    EXPECT_FALSE(run(L"")) << "the system's own, of which it has none";
    EXPECT_FALSE(run(L"unknown"));
    EXPECT_EQ(system.asked.size(), 1u) << "an empty name is no name between";
    EXPECT_TRUE(run(L"Tool"));
    EXPECT_FALSE(run(L"unknown"));
    EXPECT_EQ(system.asked.size(), 3u);
}

TEST(ZORGeoCoordSysConversions, NamedDatumIsNotMadeAgainAfterANewInit)
{
    SurveyDatabase database;
    NamedDatums system;
    MakeReady(system, database, kSevenSystem);
    double a = 0.0, b = 0.0, c = 0.0;
    EXPECT_TRUE(system.DoDtf(52.0, 5.0, 1.0, a, b, c, false, L"Tool", 0.0));
    MakeReady(system, database, kSevenSystem);
    EXPECT_FALSE(system.DoDtf(52.0, 5.0, 1.0, a, b, c, false, L"Tool", 0.0));
    EXPECT_EQ(system.asked.size(), 1u);
}

// Projection and ellipsoid alone.

TEST(ZORGeoCoordSysConversions, ScaleAndConvergenceAgreeWithProj)
{
    const Ready ready(kPlainSystem);
    const ZORGeoCoordSys& s = ready.system;
    // On the central meridian the scale is that of the record and the grid points north.
    EXPECT_NEAR(s.PointScaleFactor(500000.0, 5760000.0), 0.9996, 1e-12);
    double factor = 0.0, convergence = 1.0;
    s.PointScaleFactor(500000.0, 5760000.0, factor);
    EXPECT_NEAR(factor, 0.9996, 1e-12);
    s.GridConvergence(500000.0, 5760000.0, convergence);
    EXPECT_NEAR(convergence, 0.0, 1e-9);
    // At 100 km the scale has grown by E^2 / 2R^2.
    const double grown = 0.9996 * (1.0 + 1e10 / (2.0 * 0.9996 * 0.9996 * 6.38e6 * 6.38e6));
    EXPECT_NEAR(s.PointScaleFactor(600000.0, 5760000.0), grown, 1e-6);
    EXPECT_NEAR(s.LineScaleFactor(500000.0, 5760000.0, 500000.0, 5761000.0), 0.9996, 1e-12);
    s.LineScaleFactor(500000.0, 5760000.0, 500000.0, 5761000.0, factor);
    EXPECT_NEAR(factor, 0.9996, 1e-12);
    // East of the meridian in the north: negative, difference of longitude times sine of latitude.
    const auto grid = Projected({52.0, 6.0, 0.0});
    s.GridConvergence(grid.x, grid.y, convergence);
    EXPECT_NEAR(convergence, -std::sin(52.0 * D_TO_R), 1e-6);
}

TEST(ZORGeoCoordSysConversions, OffsetFactorServesWithinAThousandUnits)
{
    Ready ready(kPlainSystem);
    ZORGeoCoordSys& s = ready.system;
    const auto scaleAt = [&](double x, double y) {
        double dx = 1.0, dy = 10.0;
        EXPECT_TRUE(s.ProjectOffset(dx, dy, x, y));
        EXPECT_EQ(dy, dx * 10.0);
        return dx;
    };
    const double first = scaleAt(600000.0, 5760000.0);
    EXPECT_EQ(first, s.PointScaleFactor(600000.0, 5760000.0));
    EXPECT_EQ(scaleAt(600999.0, 5760999.0), first);
    EXPECT_EQ(scaleAt(599000.0, 5759000.0), first) << "a thousand units are within";
    const double next = scaleAt(601001.0, 5760000.0);
    EXPECT_EQ(next, s.PointScaleFactor(601001.0, 5760000.0));
    EXPECT_NE(next, first);
    EXPECT_EQ(scaleAt(600002.0, 5760000.0), next);
    EXPECT_EQ(scaleAt(601001.0, 5761001.0), s.PointScaleFactor(601001.0, 5761001.0));
}

TEST(ZORGeoCoordSysConversions, CartesianOnBothEllipsoidsAgreesWithProj)
{
    struct Case {
        bool satellite;
        const char* oracle;
    };
    const Ready ready(kSevenSystem);
    for (const Case& row : {Case{true, "+proj=cart +a=6378137 +es=0.00669437999014"},
                            Case{false, "+proj=cart +a=6377397.155 +es=0.006674372231"}}) {
        const ProjOracle oracle(row.oracle);
        for (const Place& place : kPlaces) {
            const auto expected =
                oracle.Forward(ProjOracle::Radians(place.longitude), ProjOracle::Radians(place.latitude), place.height);
            double x = 0.0, y = 0.0, z = 0.0, lat = 0.0, lon = 0.0, h = 0.0;
            EXPECT_TRUE(
                ready.system.GeogsToCartesian(place.latitude, place.longitude, place.height, x, y, z, row.satellite));
            ExpectGrid(x, y, z, expected);
            ready.system.CartesianToGeogs(expected.x, expected.y, expected.z, lat, lon, h, row.satellite);
            ExpectPlace(lat, lon, h, place);
        }
    }
}
