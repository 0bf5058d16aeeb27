// Time from nothing to a coordinate system that is ready to convert, beside PROJ's.
//
// Cold means first in a process: each figure comes from a fresh child process, ours and PROJ's in
// turn. Warm is the median of further ones in the same process. Printed are medians and ratios.
//
//   bench_init [RUNS]

#include <proj.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>
#include <vector>

#include "coordsys/ZORGeoCoordSys.h"
#include "frame/RecordNames.h"

namespace {

using Clock = std::chrono::steady_clock;

double Milliseconds(Clock::duration time)
{
    return std::chrono::duration<double, std::milli>(time).count();
}

double Median(std::vector<double> values)
{
    std::sort(values.begin(), values.end());
    return values.empty() ? 0.0 : values[values.size() / 2];
}

constexpr int kWarmRuns = 50;

// One Init of a system with seven parameters, from a project in memory.
double OneInit()
{
    FileObject project;
    project.SetItem(FORMATS_SECTION, formatParamKeys[FormatKey::unitFormat], 0.0, true);
    const auto start = Clock::now();
    ZORGeoCoordSys system;
    const bool ok = system.Init(L"North Sea", L"ED50 - UTM zone 31N (North Sea)", L"", L"", L"", L"", L"", project, L"none", true);
    const double time = Milliseconds(Clock::now() - start);
    if (!ok) {
        std::fprintf(stderr, "bench_init: the system cannot be initialised from %s\n", ZORGEO_DATA_DIR);
        std::exit(1);
    }
    return time;
}

// What a program does to convert to the Dutch grid with PROJ.
double OneCreate()
{
    const auto start = Clock::now();
    PJ_CONTEXT* context = proj_context_create();
    PJ* conversion = proj_create_crs_to_crs(context, "EPSG:4326", "EPSG:28992", nullptr);
    const double time = Milliseconds(Clock::now() - start);
    if (conversion == nullptr) {
        std::fprintf(stderr, "bench_init: PROJ cannot create the conversion\n");
        std::exit(1);
    }
    proj_destroy(conversion);
    proj_context_destroy(context);
    return time;
}

// Warm with a context that is kept, the better case for PROJ.
double WarmCreate()
{
    PJ_CONTEXT* context = proj_context_create();
    std::vector<double> times;
    for (int i = 0; i <= kWarmRuns; ++i) {
        const auto start = Clock::now();
        PJ* conversion = proj_create_crs_to_crs(context, "EPSG:4326", "EPSG:28992", nullptr);
        if (i > 0) {
            times.push_back(Milliseconds(Clock::now() - start));
        }
        proj_destroy(conversion);
    }
    proj_context_destroy(context);
    return Median(times);
}

double WarmInit()
{
    std::vector<double> times;
    for (int i = 0; i < kWarmRuns; ++i) {
        times.push_back(OneInit());
    }
    return Median(times);
}

struct Figures {
    double cold = 0.0;
    double warm = 0.0;
};

Figures Child(const std::string& program, const char* side)
{
    Figures figures;
    const std::string command = "\"" + program + "\" --child " + side;
    FILE* pipe                = popen(command.c_str(), "r");
    if (pipe == nullptr || std::fscanf(pipe, "%lf %lf", &figures.cold, &figures.warm) != 2) {
        std::fprintf(stderr, "bench_init: the child for %s gave no figures\n", side);
        std::exit(1);
    }
    pclose(pipe);
    return figures;
}

int RunChild(const char* side)
{
    DataSearch::GetDataSearch().SetDataPath(DataSearch::deliveredDatabase, CString::FromUtf8(ZORGEO_DATA_DIR));
    const char* scratch = std::getenv("TMPDIR");
    DataSearch::GetDataSearch().SetDataPath(DataSearch::userDatabase,
                                            CString::FromUtf8(scratch != nullptr ? scratch : "/tmp/"));
    const bool ours   = std::strcmp(side, "zorgeo") == 0;
    const double cold = ours ? OneInit() : OneCreate();
    const double warm = ours ? WarmInit() : WarmCreate();
    std::printf("%.6f %.6f\n", cold, warm);
    return 0;
}

}  // namespace

int main(int argc, char** argv)
{
    if (argc == 3 && std::strcmp(argv[1], "--child") == 0) {
        return RunChild(argv[2]);
    }
    const int runs = argc > 1 ? std::max(1, std::atoi(argv[1])) : 15;
    std::vector<double> cold, warm, projCold, projWarm, coldRatio, warmRatio;
    for (int i = 0; i < runs; ++i) {
        const Figures ours = Child(argv[0], "zorgeo");
        const Figures proj = Child(argv[0], "proj");
        cold.push_back(ours.cold);
        warm.push_back(ours.warm);
        projCold.push_back(proj.cold);
        projWarm.push_back(proj.warm);
        coldRatio.push_back(ours.cold / proj.cold);
        warmRatio.push_back(ours.warm / proj.warm);
    }
    std::printf("%-28s %12s %12s %8s\n", "ready to convert", "zorgeo ms", "PROJ ms", "ratio");
    std::printf("%-28s %12.4f %12.4f %8.4f\n", "cold, first in a process", Median(cold), Median(projCold),
                Median(coldRatio));
    std::printf("%-28s %12.4f %12.4f %8.4f\n", "warm", Median(warm), Median(projWarm), Median(warmRatio));
    return 0;
}
