// Conversions run per position on live data: they must not touch the heap. The global operators
// of this program count.

#include <cctype>
#include <cmath>
#include <cstdlib>
#include <new>
#include <string>

#include "tests/support/AllocationCount.h"
#include "tests/support/TestGeoidModels.h"
#include "tests/unit/coordsys/CoordSysFixture.h"

namespace {

// Answers any name with one transformation of fourteen parameters.
class NamedSystem : public ZORGeoCoordSys {
public:
    CDatumTransform* CreateNewDtf(CString) override
    {
        auto& database = dynamic_cast<ZorGeoDatabase&>(GetGeoDatabase());
        auto* datum = new CDatumTransform;
        datum->Load(database, kDatumPrefix + L"Fourteen");
        return datum;
    }
};

// A grid model and a geoid in memory, post shifts and both adjusts: every step has work to do.
// Or both models refuse every place.
struct FullSystem {
    explicit FullSystem(bool modelsAnswer = true)
    {
        TestGeoidSettings post;
        TestGeoidSettings geoid;
        if (modelsAnswer) {
            post.gridShift = LinearShift(1.0, 1e-6, -1.0, 1e-6);
            post.geoShift = LinearShift(1e-5, 1e-7, -1e-5, 1e-7);
            geoid = GridGeoid({49.0, 2.0, 5.0, 2, 2, {40.0, 41.0, 42.0, 44.0}});
        }
        post.recordsCalculations = false;
        geoid.recordsCalculations = false;
        const ScopedGeoidModel<4> ostn(post);
        const ScopedGeoidModel<7> egm96(geoid);
        for (const CString& key : {kPostUse, kHorAdjustUse, kVertAdjustUse}) {
            database.SetSystemItem(kFourteenSystem, key, true);
        }
        database.SetSystemItem(kFourteenSystem, kPostX, 10.0);
        database.SetSystemItem(kFourteenSystem, kPostZ, 0.5);
        database.SetSystemItem(kFourteenSystem, kHorAdjustRotation, 2.0);
        database.SetSystemItem(kFourteenSystem, kHorAdjustScale, 1.00001);
        database.SetSystemItem(kFourteenSystem, kVertAdjustSlopeX, 0.5);
        MakeReady(system, database, kFourteenSystem, {.geoidModel = L"EGM96", .postModel = L"OSTN"});
    }

    SurveyDatabase database;
    NamedSystem system;
};

struct Position {
    double lat, lon, h, x, y, z, time;
};

using Conversion = void (*)(NamedSystem&, const Position&, double& a, double& b, double& c);

struct Row {
    const char* name;
    Conversion convert;
};

constexpr Row kConversions[] = {
    {"GeoToGrid 3D", [](NamedSystem& s, const Position& p, double& a, double& b,
                        double& c) { s.GeoToGrid(p.lat, p.lon, p.h, a, b, c, p.time); }},
    {"GeoToGrid 2D",
     [](NamedSystem& s, const Position& p, double& a, double& b, double&) { s.GeoToGrid(p.lat, p.lon, a, b, true); }},
    {"GridToGeo 3D", [](NamedSystem& s, const Position& p, double& a, double& b,
                        double& c) { s.GridToGeo(p.x, p.y, p.z, a, b, c, p.time); }},
    {"GridToGeo 2D",
     [](NamedSystem& s, const Position& p, double& a, double& b, double&) { s.GridToGeo(p.x, p.y, a, b); }},
    {"SatGeoToGrid 3D", [](NamedSystem& s, const Position& p, double& a, double& b,
                           double& c) { s.SatGeoToGrid(p.lat, p.lon, p.h, a, b, c, p.time); }},
    {"SatGeoToGrid 2D", [](NamedSystem& s, const Position& p, double& a, double& b,
                           double&) { s.SatGeoToGrid(p.lat, p.lon, a, b, p.time); }},
    {"GridToSatGeo 3D", [](NamedSystem& s, const Position& p, double& a, double& b,
                           double& c) { s.GridToSatGeo(p.x, p.y, p.z, a, b, c, p.time); }},
    {"GridToSatGeo 2D",
     [](NamedSystem& s, const Position& p, double& a, double& b, double&) { s.GridToSatGeo(p.x, p.y, a, b, p.time); }},
    {"SatGeoToGeo", [](NamedSystem& s, const Position& p, double& a, double& b,
                       double& c) { s.SatGeoToGeo(p.lat, p.lon, p.h, a, b, c, p.time); }},
    {"GeoToSatGeo", [](NamedSystem& s, const Position& p, double& a, double& b,
                       double& c) { s.GeoToSatGeo(p.lat, p.lon, p.h, a, b, c, p.time); }},
    {"UserIOGeoToGrid", [](NamedSystem& s, const Position& p, double& a, double& b,
                           double&) { s.UserIOGeoToGrid(p.lat, p.lon, a, b, p.time); }},
    {"UserIOGridToGeo", [](NamedSystem& s, const Position& p, double& a, double& b,
                           double&) { s.UserIOGridToGeo(p.x, p.y, a, b, p.time); }},
    {"GridConvergence",
     [](NamedSystem& s, const Position& p, double& a, double&, double&) { s.GridConvergence(p.x, p.y, a); }},
    {"PointScaleFactor",
     [](NamedSystem& s, const Position& p, double& a, double& b, double&) {
         a = s.PointScaleFactor(p.x, p.y);
         s.PointScaleFactor(p.x, p.y, b);
     }},
    {"LineScaleFactor",
     [](NamedSystem& s, const Position& p, double& a, double& b, double&) {
         a = s.LineScaleFactor(p.x, p.y, p.x + 100.0, p.y + 100.0);
         s.LineScaleFactor(p.x, p.y, p.x + 100.0, p.y + 100.0, b);
     }},
    {"DoDtf", [](NamedSystem& s, const Position& p, double& a, double& b,
                 double& c) { s.DoDtf(p.lat, p.lon, p.h, a, b, c, false, p.time); }},
    {"DoDtfWGS84", [](NamedSystem& s, const Position& p, double& a, double& b,
                      double& c) { s.DoDtfWGS84(p.lat, p.lon, p.h, a, b, c, true, p.time); }},
    // The caller's copy of a short name lies within the string itself.
    {"DoDtf by name", [](NamedSystem& s, const Position& p, double& a, double& b,
                         double& c) { s.DoDtf(p.lat, p.lon, p.h, a, b, c, true, L"D2", p.time); }},
    {"ProjectOffset",
     [](NamedSystem& s, const Position& p, double& a, double& b, double&) {
         a = 1.0;
         b = 2.0;
         s.ProjectOffset(a, b, p.x, p.y);
     }},
    {"GeogsToCartesian", [](NamedSystem& s, const Position& p, double& a, double& b,
                            double& c) { s.GeogsToCartesian(p.lat, p.lon, p.h, a, b, c, true); }},
    {"CartesianToGeogs", [](NamedSystem& s, const Position& p, double& a, double& b,
                            double& c) { s.CartesianToGeogs(3900000.0, 340000.0 + p.h, 5000000.0, a, b, c, false); }},
    {"CalGeoidHeight", [](NamedSystem& s, const Position& p, double& a, double&,
                          double&) { s.CalGeoidHeight(p.lat, p.lon, p.x, p.y, a); }},
    {"CalGeoidHeight with message",
     [](NamedSystem& s, const Position& p, double& a, double&, double&) {
         CString message;
         s.CalGeoidHeight(p.lat, p.lon, p.x, p.y, a, message);
     }},
    {"CalPostXY",
     [](NamedSystem& s, const Position& p, double& a, double& b, double&) { s.CalPostXY(p.x, p.y, a, b, false); }},
    {"CalPostXYZ", [](NamedSystem& s, const Position& p, double& a, double& b,
                      double& c) { s.CalPostXYZ(p.x, p.y, p.z, a, b, c, true); }},
};

#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
constexpr int kPositions = 20000; // what is counted is the same, only slower
#else
constexpr int kPositions = 1000000;
#endif

Position PositionNumber(int i)
{
    const double part = static_cast<double>(i % 1000) / 1000.0;
    return {51.0 + 2.0 * part,           4.0 + 2.0 * part, 100.0 * part,    450000.0 + 100000.0 * part,
            5700000.0 + 100000.0 * part, 50.0 * part,      1.7e12 + 1e6 * i};
}

class ZORGeoCoordSysAllocations : public testing::TestWithParam<Row> {};

} // namespace

TEST(AllocationCounter, SeesAllocationsOfThisProgramAndOfTheBaseLayer)
{
    const long before = AllocationCount();
    CString text;
    text.Format(L"%s is longer than what a string holds in itself", CString(L"this"));
    EXPECT_GT(AllocationCount(), before);
}

TEST_P(ZORGeoCoordSysAllocations, AMillionPositionsWithoutOne)
{
    const Row row = GetParam();
    FullSystem full;
    double a = 0.0, b = 0.0, c = 0.0, sum = 0.0;
    row.convert(full.system, PositionNumber(0), a, b, c); // makes the named transformation
    const long before = AllocationCount();
    for (int i = 0; i < kPositions; ++i) {
        row.convert(full.system, PositionNumber(i), a, b, c);
        sum += a + b + c;
    }
    EXPECT_EQ(AllocationCount() - before, 0);
    EXPECT_TRUE(std::isfinite(sum)) << "the positions lie where everything answers";
    EXPECT_NE(sum, 0.0);
}

TEST_P(ZORGeoCoordSysAllocations, NoneWhenTheModelsRefuse)
{
    const Row row = GetParam();
    FullSystem refusing(false);
    double geoid = -1.0;
    ASSERT_FALSE(refusing.system.CalGeoidHeight(52.0, 5.0, 0.0, 0.0, geoid));
    double a = 0.0, b = 0.0, c = 0.0;
    row.convert(refusing.system, PositionNumber(0), a, b, c); // makes the named transformation
    const long before = AllocationCount();
    for (int i = 0; i < 1000; ++i) {
        row.convert(refusing.system, PositionNumber(i), a, b, c);
    }
    EXPECT_EQ(AllocationCount() - before, 0);
}

INSTANTIATE_TEST_SUITE_P(EveryConversion, ZORGeoCoordSysAllocations, testing::ValuesIn(kConversions),
                         [](const testing::TestParamInfo<Row>& row) {
                             std::string name = row.param.name;
                             for (char& c : name) {
                                 c = std::isalnum(static_cast<unsigned char>(c)) ? c : '_';
                             }
                             return name;
                         });
