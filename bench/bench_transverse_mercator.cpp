// Transverse Mercator beside PROJ's tmerc (its default algorithm) through proj_trans, on the same points
// in the same run.

#include <benchmark/benchmark.h>
#include <proj.h>

#include <cstdlib>
#include <memory>
#include <random>
#include <vector>

#include "PairedRatios.h"
#include "frame/ZorGeoUtility.h"
#include "projections/ProjectionFactory.h"

namespace {

constexpr std::size_t kMask = 4095;
constexpr double kMeridian = 3.0;

struct Geo {
    double latitude, longitude;
};
struct Grid {
    double easting, northing;
};

// All over a zone of six degrees.
const std::vector<Geo>& GeoPoints()
{
    static const std::vector<Geo> points = [] {
        std::mt19937_64 random(1);
        std::uniform_real_distribution<double> latitude(-80.0, 84.0);
        std::uniform_real_distribution<double> longitude(kMeridian - 3.0, kMeridian + 3.0);
        std::vector<Geo> made(kMask + 1);
        for (Geo& point : made) {
            point = {latitude(random), longitude(random)};
        }
        return made;
    }();
    return points;
}

const CProjection& Projection()
{
    static const std::unique_ptr<CProjection> projection = [] {
        ZorGeoUtility::Get().mainDatabaseDir = CString::FromUtf8(ZORGEO_DATA_DIR);
        ZorGeoUtility::Get().initialised = true;
        const std::pair<int, double> parameters[] = {{ProjectionKey::latOrigin, 0.0},
                                                     {ProjectionKey::lonOrigin, kMeridian},
                                                     {ProjectionKey::falseEasting, 500000.0},
                                                     {ProjectionKey::falseNorthing, 0.0},
                                                     {ProjectionKey::scaleFactor, 0.9996}};
        FileObject file;
        for (const auto& [index, value] : parameters) {
            file.SetItem(L"Prj", projectionParamKeys[static_cast<std::size_t>(index)], value, true);
        }
        std::unique_ptr<CProjection> made(ProjectionFactory::CreateProjectionByType(0));
        made->SetEllipsoid(6378137.0, 0.0066943800229007876);
        if (!made->LoadParameters(file, L"Prj")) {
            std::abort();
        }
        return made;
    }();
    return *projection;
}

PJ* Proj()
{
    static PJ* const operation = [] {
        PJ* made = proj_create(PJ_DEFAULT_CTX, "+proj=tmerc +lon_0=3 +k=0.9996 +x_0=500000 +ellps=GRS80");
        if (made == nullptr) {
            std::abort();
        }
        return made;
    }();
    return operation;
}

const std::vector<Grid>& GridPoints()
{
    static const std::vector<Grid> points = [] {
        std::vector<Grid> made;
        for (const Geo& point : GeoPoints()) {
            Grid grid{};
            Projection().GeoToGrid(point.latitude, point.longitude, grid.easting, grid.northing);
            made.push_back(grid);
        }
        return made;
    }();
    return points;
}

void ForwardOurs(benchmark::State& state)
{
    const CProjection& projection = Projection();
    const std::vector<Geo>& points = GeoPoints();
    std::size_t next = 0;
    for (auto _ : state) {
        const Geo& point = points[next++ & kMask];
        double easting = 0.0, northing = 0.0;
        projection.GeoToGrid(point.latitude, point.longitude, easting, northing);
        benchmark::DoNotOptimize(easting);
        benchmark::DoNotOptimize(northing);
    }
}

void ForwardProj(benchmark::State& state)
{
    PJ* const operation = Proj();
    std::vector<PJ_COORD> points;
    for (const Geo& point : GeoPoints()) {
        points.push_back(proj_coord(proj_torad(point.longitude), proj_torad(point.latitude), 0.0, 0.0));
    }
    std::size_t next = 0;
    for (auto _ : state) {
        PJ_COORD grid = proj_trans(operation, PJ_FWD, points[next++ & kMask]);
        benchmark::DoNotOptimize(grid);
    }
}

void InverseOurs(benchmark::State& state)
{
    const CProjection& projection = Projection();
    const std::vector<Grid>& points = GridPoints();
    std::size_t next = 0;
    for (auto _ : state) {
        const Grid& point = points[next++ & kMask];
        double latitude = 0.0, longitude = 0.0;
        projection.GridToGeo(point.easting, point.northing, latitude, longitude);
        benchmark::DoNotOptimize(latitude);
        benchmark::DoNotOptimize(longitude);
    }
}

void InverseProj(benchmark::State& state)
{
    PJ* const operation = Proj();
    std::vector<PJ_COORD> points;
    for (const Grid& point : GridPoints()) {
        points.push_back(proj_coord(point.easting, point.northing, 0.0, 0.0));
    }
    std::size_t next = 0;
    for (auto _ : state) {
        PJ_COORD geo = proj_trans(operation, PJ_INV, points[next++ & kMask]);
        benchmark::DoNotOptimize(geo);
    }
}

BENCHMARK(ForwardOurs)->Name("transverse mercator forward/zorgeo");
BENCHMARK(ForwardProj)->Name("transverse mercator forward/proj");
BENCHMARK(InverseOurs)->Name("transverse mercator inverse/zorgeo");
BENCHMARK(InverseProj)->Name("transverse mercator inverse/proj");

} // namespace

int main(int argc, char** argv)
{
    return RunPaired(argc, argv);
}
