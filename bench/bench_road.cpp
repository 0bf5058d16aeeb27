// The whole road of a position, satellite to grid and back with height, seven parameters, UTM,
// beside PROJ's pipeline of the same steps on the same points in the same run.

#include <benchmark/benchmark.h>
#include <proj.h>

#include <cstdlib>
#include <memory>
#include <random>
#include <string>
#include <vector>

#include "PairedRatios.h"
#include "base/text/Numbers.h"
#include "coordsys/ZORGeoCoordSys.h"
#include "frame/RecordNames.h"

namespace {

struct Position {
    double latitude;
    double longitude;
    double height;
};

// The North Sea part of zone 31N, with heights of ships and seabed.
const std::vector<Position>& Points()
{
    static const std::vector<Position> points = [] {
        std::mt19937_64 random(20251121);
        std::uniform_real_distribution<double> latitude(51.0, 62.0);
        std::uniform_real_distribution<double> longitude(0.0, 6.0);
        std::uniform_real_distribution<double> height(-150.0, 80.0);
        std::vector<Position> made;
        for (int i = 0; i < 4096; ++i) {
            made.push_back({latitude(random), longitude(random), height(random)});
        }
        return made;
    }();
    return points;
}

const ZORGeoCoordSys& System()
{
    static const std::unique_ptr<ZORGeoCoordSys> system = [] {
        DataSearch::GetDataSearch().SetDataPath(DataSearch::deliveredDatabase, CString::FromUtf8(ZORGEO_DATA_DIR));
        const char* scratch = std::getenv("TMPDIR");
        DataSearch::GetDataSearch().SetDataPath(DataSearch::userDatabase,
                                                CString::FromUtf8(scratch != nullptr ? scratch : "/tmp/"));
        FileObject project;
        project.SetItem(FORMATS_SECTION, formatParamKeys[FormatKey::unitFormat], 0.0, true);
        auto made = std::make_unique<ZORGeoCoordSys>();
        if (!made->Init(L"North Sea", L"ED50 - UTM zone 31N (North Sea)", L"", L"", L"", L"", L"", project, L"none", true)) {
            std::abort();
        }
        return made;
    }();
    return *system;
}

// The same steps with the same parameters, taken from the ready system.
PJ* Pipeline()
{
    static PJ* const pipeline = [] {
        double p[15];
        bool fixed     = false;
        double forward = 0.0;
        double reverse = 0.0;
        auto& system   = const_cast<ZORGeoCoordSys&>(System());
        system.GetDatumParameters(p[0], p[1], p[2], p[3], p[4], p[5], p[6], p[7], p[8], p[9], p[10], p[11], p[12],
                                  p[13], p[14], fixed, forward, reverse);
        const auto number = [](double value) { return numbers::ToText(value); };
        const std::string text =
            "+proj=pipeline +step +proj=cart +ellps=WGS84 +step +proj=helmert +x=" + number(p[0]) + " +y=" +
            number(p[1]) + " +z=" + number(p[2]) + " +rx=" + number(p[3]) + " +ry=" + number(p[4]) + " +rz=" +
            number(p[5]) + " +s=" + number(p[6]) +
            " +exact +convention=position_vector +step +inv +proj=cart +ellps=intl +step +proj=utm +zone=31 +ellps=intl";
        PJ* made = proj_create(PJ_DEFAULT_CTX, text.c_str());
        if (made == nullptr) {
            std::abort();
        }
        return made;
    }();
    return pipeline;
}

void RoadThereAndBackOurs(benchmark::State& state)
{
    const ZorGeoCoordSysBase& system = System();
    std::size_t next                 = 0;
    for (auto _ : state) {
        const Position& p = Points()[next++ & 4095U];
        double x = 0.0, y = 0.0, z = 0.0, latitude = 0.0, longitude = 0.0, height = 0.0;
        system.SatGeoToGrid(p.latitude, p.longitude, p.height, x, y, z, 0.0);
        system.GridToSatGeo(x, y, z, latitude, longitude, height, 0.0);
        benchmark::DoNotOptimize(latitude);
        benchmark::DoNotOptimize(longitude);
        benchmark::DoNotOptimize(height);
    }
}

void RoadThereAndBackProj(benchmark::State& state)
{
    PJ* const pipeline = Pipeline();
    std::size_t next   = 0;
    for (auto _ : state) {
        const Position& p   = Points()[next++ & 4095U];
        const PJ_COORD grid = proj_trans(
            pipeline, PJ_FWD, proj_coord(proj_torad(p.longitude), proj_torad(p.latitude), p.height, HUGE_VAL));
        PJ_COORD back = proj_trans(pipeline, PJ_INV, grid);
        benchmark::DoNotOptimize(back);
    }
}

void ForwardOurs(benchmark::State& state)
{
    const ZorGeoCoordSysBase& system = System();
    std::size_t next                 = 0;
    for (auto _ : state) {
        const Position& p = Points()[next++ & 4095U];
        double x = 0.0, y = 0.0, z = 0.0;
        system.SatGeoToGrid(p.latitude, p.longitude, p.height, x, y, z, 0.0);
        benchmark::DoNotOptimize(x);
        benchmark::DoNotOptimize(y);
        benchmark::DoNotOptimize(z);
    }
}

void ForwardProj(benchmark::State& state)
{
    PJ* const pipeline = Pipeline();
    std::size_t next   = 0;
    for (auto _ : state) {
        const Position& p = Points()[next++ & 4095U];
        PJ_COORD grid     = proj_trans(
            pipeline, PJ_FWD, proj_coord(proj_torad(p.longitude), proj_torad(p.latitude), p.height, HUGE_VAL));
        benchmark::DoNotOptimize(grid);
    }
}

BENCHMARK(RoadThereAndBackOurs)->Name("satellite to grid and back/zorgeo");
BENCHMARK(RoadThereAndBackProj)->Name("satellite to grid and back/proj");
BENCHMARK(ForwardOurs)->Name("satellite to grid/zorgeo");
BENCHMARK(ForwardProj)->Name("satellite to grid/proj");

}  // namespace

int main(int argc, char** argv) { return RunPaired(argc, argv); }
