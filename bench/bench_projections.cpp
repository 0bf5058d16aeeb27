// Each projection beside PROJ's of the same definition, one position at a time, on the same points
// of its area in the same run.

#include <benchmark/benchmark.h>
#include <proj.h>

#include <cstdlib>
#include <memory>
#include <random>
#include <string>
#include <utility>
#include <vector>

#include "PairedRatios.h"
#include "frame/RecordNames.h"
#include "frame/ZorGeoUtility.h"
#include "projections/CRDprj.h"
#include "projections/ProjectionFactory.h"

namespace {

constexpr std::size_t kPoints = 4096;

struct Area {
    double south, north, west, east;
};

/// A projection, what PROJ calls it, and where it is used. Metres.
struct Road {
    const char* name;
    std::uint32_t type;
    double semiMajor, eccSquared;
    std::vector<std::pair<int, double>> parameters; // by index in projectionParamKeys
    const char* proj;
    Area area;
    const wchar_t* hemisphere = nullptr;
    /// For a class that the factory does not make.
    CProjection* (*make)() = nullptr;
};

const Road kRoads[] = {
    {"Lambert, two parallels",
     3,
     6378137.0,
     0.0066943800229007876,
     {{3, 46.5}, {4, 3.0}, {5, 700000.0}, {6, 6600000.0}, {8, 44.0}, {9, 49.0}},
     "+proj=lcc +lat_0=46.5 +lon_0=3 +lat_1=44 +lat_2=49 +x_0=700000 +y_0=6600000 +ellps=GRS80",
     {41.0, 52.0, -10.0, 11.0}},
    {"Lambert, one parallel",
     12,
     6378249.2,
     0.006803487646299926,
     {{3, 33.3}, {4, -5.4}, {5, 500000.0}, {6, 300000.0}, {7, 0.999625769}},
     "+proj=lcc +lat_1=33.3 +lat_0=33.3 +lon_0=-5.4 +k_0=0.999625769 +x_0=500000 +y_0=300000 +a=6378249.2 "
     "+b=6356515",
     {31.0, 36.0, -10.0, -1.0}},
    {"Mercator",
     4,
     6378137.0,
     0.0066943799901413165,
     {{3, 0.0}, {4, 0.0}, {5, 0.0}, {6, 0.0}, {7, 1.0}},
     "+proj=merc +ellps=WGS84",
     {-80.0, 84.0, -180.0, 180.0}},
    {"Mercator, true scale at 42",
     4,
     6378245.0,
     0.006693421622965943,
     {{3, 0.0}, {4, 51.0}, {5, 0.0}, {6, 0.0}, {7, 1.0}, {18, 42.0}},
     "+proj=merc +lat_ts=42 +lon_0=51 +ellps=krass",
     {36.0, 48.0, 46.0, 56.0}},
    {"RD",
     2,
     6377397.155,
     0.0066743722318021447,
     {{7, 0.9999079}}, // the rest are the defaults
     "+proj=sterea +lat_0=52.156160556 +lon_0=5.387638889 +k=0.9999079 +x_0=155000 +y_0=463000 +ellps=bessel",
     {50.75, 53.7, 3.2, 7.22}},
    {"RD by polynomials",
     2,
     6377397.155,
     0.0066743722318021447,
     {{7, 0.9999079}},
     "+proj=sterea +lat_0=52.156160556 +lon_0=5.387638889 +k=0.9999079 +x_0=155000 +y_0=463000 +ellps=bessel",
     {50.75, 53.7, 3.2, 7.22},
     nullptr,
     []() -> CProjection* { return new CRDprj; }},
    {"Stereographic",
     7,
     6378245.0,
     0.0066934216229659432,
     {{3, 46.0}, {4, 25.0}, {5, 500000.0}, {6, 500000.0}, {7, 0.99975}},
     "+proj=sterea +lat_0=46 +lon_0=25 +k=0.99975 +x_0=500000 +y_0=500000 +ellps=krass",
     {43.44, 48.27, 20.26, 31.41}},
    {"Universal Polar Stereographic",
     15,
     6378137.0,
     0.006694379990141317,
     {{5, 2000000.0}, {6, 2000000.0}, {7, 0.994}},
     "+proj=stere +lat_0=90 +k=0.994 +x_0=2000000 +y_0=2000000 +ellps=WGS84",
     {60.0, 90.0, -180.0, 180.0},
     L"Northern"},
    {"Hotine A",
     9,
     6378137.0,
     0.0066943800229007876,
     {{3, 4.0}, {4, 102.25}, {5, 804671.0}, {6, 0.0}, {7, 0.99984}, {22, 323.13010236111114}, {17, 323.0257964666666}},
     "+proj=omerc +no_uoff +lat_0=4 +lonc=102.25 +alpha=323.0257964666666 +gamma=323.13010236111114 +k=0.99984 "
     "+x_0=804671 +ellps=GRS80",
     {1.0, 7.0, 98.0, 106.0}},
    {"Hotine B",
     13,
     6377298.556,
     0.0066378466301996868,
     {{3, 4.0},
      {4, 115.0},
      {20, 590476.87},
      {21, 442857.65},
      {7, 0.99984},
      {22, 53.13010236111111},
      {17, 53.31582047222222}},
     "+proj=omerc +lat_0=4 +lonc=115 +alpha=53.31582047222222 +gamma=53.13010236111111 +k=0.99984 +x_0=590476.87 "
     "+y_0=442857.65 +a=6377298.556 +rf=300.8017",
     {0.0, 8.0, 109.0, 120.0}},
    {"Cassini-Soldner",
     8,
     6378300.789,
     0.0068034760484099,
     {{3, 31.734096944444445}, {4, 35.212080555555556}, {5, 170251.555}, {6, 126867.909}, {7, 1.0}},
     "+proj=cass +lat_0=31.734096944444445 +lon_0=35.212080555555556 +x_0=170251.555 +y_0=126867.909 +a=6378300.789 "
     "+b=6356566.435",
     {29.2, 33.5, 34.1, 36.0}},
    {"Polyconic",
     14,
     6378137.0,
     0.0066943800229007876,
     {{3, 0.0}, {4, -54.0}, {5, 5000000.0}, {6, 10000000.0}},
     "+proj=poly +lon_0=-54 +x_0=5000000 +y_0=10000000 +ellps=GRS80",
     {-35.9, 7.0, -74.0, -26.0}},
};

struct Position {
    double latitude = 0.0, longitude = 0.0, easting = 0.0, northing = 0.0;
};

class Pair {
public:
    explicit Pair(const Road& road) : m_theirs(proj_create(PJ_DEFAULT_CTX, road.proj), proj_destroy)
    {
        m_ours.reset(road.make != nullptr ? road.make() : ProjectionFactory::CreateProjectionByType(road.type));
        FileObject file;
        for (const auto& [index, value] : road.parameters) {
            file.SetItem(L"Prj", projectionParamKeys[static_cast<std::size_t>(index)], value, true);
        }
        if (road.hemisphere) {
            file.SetItem(L"Prj", projectionParamKeys[ProjectionKey::hemisphere], CString(road.hemisphere), true);
        }
        if (!m_theirs || !m_ours || m_ours->SetEllipsoid(road.semiMajor, road.eccSquared) != 0 ||
            !m_ours->LoadParameters(file, L"Prj")) {
            std::abort();
        }
        std::mt19937_64 random(20251121);
        std::uniform_real_distribution<double> latitude(road.area.south, road.area.north);
        std::uniform_real_distribution<double> longitude(road.area.west, road.area.east);
        for (std::size_t i = 0; i < kPoints; ++i) {
            Position p{latitude(random), longitude(random)};
            m_ours->GeoToGrid(p.latitude, p.longitude, p.easting, p.northing);
            m_points.push_back(p);
        }
    }

    const CProjection& Ours() const { return *m_ours; }
    PJ* Theirs() const { return m_theirs.get(); }
    const Position& Next() { return m_points[m_next++ % kPoints]; }

private:
    std::unique_ptr<CProjection> m_ours;
    std::unique_ptr<PJ, PJ* (*)(PJ*)> m_theirs;
    std::vector<Position> m_points;
    std::size_t m_next = 0;
};

void ForwardOurs(benchmark::State& state, const Road& road)
{
    Pair pair(road);
    for (auto _ : state) {
        const Position& p = pair.Next();
        double easting = 0.0;
        double northing = 0.0;
        pair.Ours().GeoToGrid(p.latitude, p.longitude, easting, northing);
        benchmark::DoNotOptimize(easting);
        benchmark::DoNotOptimize(northing);
    }
}

void ForwardProj(benchmark::State& state, const Road& road)
{
    Pair pair(road);
    for (auto _ : state) {
        const Position& p = pair.Next();
        PJ_COORD grid =
            proj_trans(pair.Theirs(), PJ_FWD, proj_coord(proj_torad(p.longitude), proj_torad(p.latitude), 0.0, 0.0));
        benchmark::DoNotOptimize(grid);
    }
}

void InverseOurs(benchmark::State& state, const Road& road)
{
    Pair pair(road);
    for (auto _ : state) {
        const Position& p = pair.Next();
        double latitude = 0.0;
        double longitude = 0.0;
        pair.Ours().GridToGeo(p.easting, p.northing, latitude, longitude);
        benchmark::DoNotOptimize(latitude);
        benchmark::DoNotOptimize(longitude);
    }
}

void InverseProj(benchmark::State& state, const Road& road)
{
    Pair pair(road);
    for (auto _ : state) {
        const Position& p = pair.Next();
        PJ_COORD geo = proj_trans(pair.Theirs(), PJ_INV, proj_coord(p.easting, p.northing, 0.0, 0.0));
        benchmark::DoNotOptimize(geo);
    }
}

void RegisterAll()
{
    for (const Road& road : kRoads) {
        const std::string name = road.name;
        benchmark::RegisterBenchmark((name + ", forward/zorgeo").c_str(), ForwardOurs, road);
        benchmark::RegisterBenchmark((name + ", forward/proj").c_str(), ForwardProj, road);
        benchmark::RegisterBenchmark((name + ", inverse/zorgeo").c_str(), InverseOurs, road);
        benchmark::RegisterBenchmark((name + ", inverse/proj").c_str(), InverseProj, road);
    }
}

} // namespace

int main(int argc, char** argv)
{
    ZorGeoUtility::Get().mainDatabaseDir = CString::FromUtf8(ZORGEO_DATA_DIR);
    ZorGeoUtility::Get().initialised = true;
    RegisterAll();
    return RunPaired(argc, argv);
}
