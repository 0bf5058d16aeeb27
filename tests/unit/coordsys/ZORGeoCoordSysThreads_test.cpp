// One ready object serves its const conversions to several threads; each gets the same bits.

#include <array>
#include <cstring>
#include <thread>
#include <vector>

#include "tests/support/TestGeoidModels.h"
#include "tests/unit/coordsys/CoordSysFixture.h"

namespace {

constexpr int kThreads = 4;
constexpr int kPositions = 500;
constexpr double kTime = 1.7e12;

using Results = std::vector<double>;

// Every const conversion on a run of positions.
Results Convert(const ZORGeoCoordSys& s)
{
    Results out;
    double a = 0.0, b = 0.0, c = 0.0;
    const auto keep = [&] { out.insert(out.end(), {a, b, c}); };
    for (int i = 0; i < kPositions; ++i) {
        const double lat = 51.0 + 0.004 * i;
        const double lon = 4.0 + 0.004 * i;
        const double x = 450000.0 + 200.0 * i;
        const double y = 5700000.0 + 200.0 * i;
        s.GeoToGrid(lat, lon, 10.0, a, b, c, kTime), keep();
        s.GeoToGrid(lat, lon, a, b, true), keep();
        s.GridToGeo(x, y, 10.0, a, b, c, kTime), keep();
        s.GridToGeo(x, y, a, b), keep();
        s.SatGeoToGrid(lat, lon, 10.0, a, b, c, kTime), keep();
        s.SatGeoToGrid(lat, lon, a, b, kTime), keep();
        s.GridToSatGeo(x, y, 10.0, a, b, c, kTime), keep();
        s.GridToSatGeo(x, y, a, b, kTime), keep();
        s.SatGeoToGeo(lat, lon, 10.0, a, b, c, kTime), keep();
        s.GeoToSatGeo(lat, lon, 10.0, a, b, c, kTime), keep();
        s.UserIOGeoToGrid(lat, lon, a, b, kTime), keep();
        s.UserIOGridToGeo(x, y, a, b, kTime), keep();
        s.GridConvergence(x, y, a), keep();
        a = s.PointScaleFactor(x, y), keep();
        a = s.LineScaleFactor(x, y, x + 1e3, y + 1e3), keep();
        s.DoDtf(lat, lon, 10.0, a, b, c, false, kTime), keep();
        s.DoDtfWGS84(lat, lon, 10.0, a, b, c, true, kTime), keep();
        s.GeogsToCartesian(lat, lon, 10.0, a, b, c, true), keep();
        s.CartesianToGeogs(3900000.0 + x, 340000.0, 5000000.0, a, b, c, false), keep();
        s.CalGeoidHeight(lat, lon, x, y, a), keep();
        s.CalPostXY(x, y, a, b, false), keep();
        s.CalPostXYZ(x, y, 10.0, a, b, c, true), keep();
    }
    return out;
}

} // namespace

TEST(ZORGeoCoordSysThreads, ConversionsOfOneObjectGiveTheSameBits)
{
    TestGeoidSettings post;
    post.gridShift = LinearShift(1.0, 1e-6, -1.0, 1e-6);
    post.geoShift = LinearShift(1e-5, 1e-7, -1e-5, 1e-7);
    TestGeoidSettings geoid = GridGeoid({49.0, 2.0, 5.0, 2, 2, {40.0, 41.0, 42.0, 44.0}});
    post.recordsCalculations = geoid.recordsCalculations = false;
    const ScopedGeoidModel<4> ostn(post);
    const ScopedGeoidModel<7> egm96(geoid);
    SurveyDatabase database;
    database.SetSystemItem(kFourteenSystem, kPostUse, true);
    database.SetSystemItem(kFourteenSystem, kPostX, 10.0);
    ZORGeoCoordSys system;
    MakeReady(system, database, kFourteenSystem, {.geoidModel = L"EGM96", .postModel = L"OSTN"});
    system.SetUserIOLatLonOnSAT(1);

    const Results alone = Convert(system);
    std::array<Results, kThreads> together;
    std::vector<std::thread> threads;
    for (Results& results : together) {
        threads.emplace_back([&results, &system] { results = Convert(system); });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
    for (const Results& results : together) {
        ASSERT_EQ(results.size(), alone.size());
        EXPECT_EQ(std::memcmp(results.data(), alone.data(), alone.size() * sizeof(double)), 0);
    }
}
