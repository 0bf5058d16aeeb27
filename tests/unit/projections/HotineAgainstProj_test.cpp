#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <random>

#include "tests/support/ForwardDerivatives.h"
#include "tests/support/GridPositions.h"
#include "tests/support/HotineSystems.h"
#include "tests/support/ProjOracle.h"

// Both variants against PROJ over the areas of grids in use, and against the derivatives of the
// forward conversion. The bounds are those of docs/accuracy.md.

namespace {

constexpr double kMetresPerDegree = 111300.0;

class HotineGrids : public testing::TestWithParam<HotineSystem> {
protected:
    /// Calls visit(latitude, longitude) on a lattice of the area.
    template <class Visit>
    void Area(Visit visit) const
    {
        const HotineSystem& system = GetParam();
        constexpr int kSteps = 24;
        for (int i = 0; i <= kSteps; ++i) {
            for (int j = 0; j <= kSteps; ++j) {
                visit(system.south + (system.north - system.south) * i / kSteps,
                      system.west + (system.east - system.west) * j / kSteps);
            }
        }
    }

    MainDirectory m_main{MainDirectory::Delivered()};
    LinearUnit m_unit{GetParam().unit};
    std::unique_ptr<CProjection> m_projection = GetParam().Load();
};

TEST_P(HotineGrids, ForwardIsThatOfProj)
{
    const ProjOracle proj(GetParam().Proj());
    double worst = 0.0;
    Area([&](double latitude, double longitude) {
        const auto theirs = proj.Forward(ProjOracle::Radians(longitude), ProjOracle::Radians(latitude));
        const GridPosition ours = ToGrid(*m_projection, latitude, longitude);
        worst = std::max({worst, std::fabs(ours.easting - theirs.x), std::fabs(ours.northing - theirs.y)});
    });
    EXPECT_LE(worst * GetParam().unit, 1e-8);
}

// Variant A has its short value of e: 1.7e-10 of the distance from the initial line.
TEST_P(HotineGrids, InverseIsThatOfProjWithinTheSeriesAndTheBase)
{
    const ProjOracle proj(GetParam().Proj());
    double worst = 0.0;
    Area([&](double latitude, double longitude) {
        const auto grid = proj.Forward(ProjOracle::Radians(longitude), ProjOracle::Radians(latitude));
        const auto theirs = proj.Inverse(grid.x, grid.y);
        const GeoPosition ours = ToGeo(*m_projection, grid.x, grid.y);
        worst = std::max({worst, std::fabs(ours.latitude - ProjOracle::Degrees(theirs.y)),
                          std::fabs(ours.longitude - ProjOracle::Degrees(theirs.x)) * std::cos(latitude * D_TO_R)});
    });
    EXPECT_LE(worst * kMetresPerDegree, GetParam().variant == 'A' ? 1e-4 : 2e-5);
}

TEST_P(HotineGrids, PointScaleIsTheDerivativeOfTheForward)
{
    const HotineSystem& system = GetParam();
    Area([&](double latitude, double longitude) {
        // On the centre's meridian the factor of an initial line to the east is 0 / 0.
        if (system.alphac == 90.0 && std::fabs(longitude - system.lambdac) < 1e-3) {
            return;
        }
        const ForwardDerivatives map(*m_projection, system.shape.a / system.unit, system.shape.e2, latitude, longitude);
        const GridPosition at = ToGrid(*m_projection, latitude, longitude);
        const double k = m_projection->PointScaleFactor(at.easting, at.northing);
        EXPECT_NEAR(k, map.meridianScale, 3e-9) << latitude << " " << longitude;
        EXPECT_NEAR(k, map.parallelScale, 3e-9) << latitude << " " << longitude;
    });
}

std::string NameOf(const testing::TestParamInfo<HotineSystem>& info)
{
    std::string name = info.param.name;
    name.erase(std::remove_if(name.begin(), name.end(), [](unsigned char c) { return !std::isalnum(c); }), name.end());
    return name;
}

INSTANTIATE_TEST_SUITE_P(Registry, HotineGrids, testing::ValuesIn(kHotineSystems), NameOf);

/// Against the derivatives: variant B by one second to the north, variant A by its own formula,
/// which takes ln Ec with the other sign. Differences in degrees.
TEST(HotineConvergence, DiffersFromTheGridByItsRule)
{
    struct Row {
        std::size_t system;
        double least, most;
    };
    const Row rows[] = {{0, 1e-5, 2.2e-5}, {1, 1e-5, 2.6e-5},   {2, 0.02, 0.022}, {3, 0.02, 0.022},
                        {4, 0.019, 0.021}, {5, 0.0038, 0.0041}, {6, 0.0, 1e-5},   {7, 0.0, 3e-7},
                        {8, 0.0, 3e-7},    {9, 0.0, 3e-6},      {11, 0.0, 1.4e-5}};
    const MainDirectory main(MainDirectory::Delivered());
    for (const Row& row : rows) {
        const HotineSystem& system = kHotineSystems[row.system];
        const LinearUnit unit(system.unit);
        const auto projection = system.Load();
        double worst = 0.0;
        for (double f = 0.0; f <= 1.0; f += 0.05) {
            for (double g = 0.0; g <= 1.0; g += 0.05) {
                const double latitude = system.south + (system.north - system.south) * f;
                const double longitude = system.west + (system.east - system.west) * g;
                const ForwardDerivatives map(*projection, system.shape.a / system.unit, system.shape.e2, latitude,
                                             longitude);
                const GridPosition at = ToGrid(*projection, latitude, longitude);
                worst = std::max(
                    worst, std::fabs(modgeo(ConvergenceAt(*projection, at.easting, at.northing) - map.convergence)));
            }
        }
        EXPECT_LE(worst, row.most) << system.name;
        EXPECT_GE(worst, row.least) << system.name;
    }
}

// Random grids of both variants and random positions near their centres, within 75 degrees of the
// natural origin.
TEST(HotineProperty, ThereAndBackOnRandomGrids)
{
    const MainDirectory main(MainDirectory::Delivered());
    std::mt19937_64 random(20250107);
    std::uniform_real_distribution<double> unit(0.0, 1.0);
    const auto between = [&](double low, double high) { return low + (high - low) * unit(random); };
    for (int i = 0; i < 400; ++i) {
        HotineSystem system = kHotineSystems[0];
        system.variant = i % 2 == 0 ? 'A' : 'B';
        system.phic = between(2.0, 50.0) * (i % 4 < 2 ? 1.0 : -1.0);
        system.lambdac = between(-170.0, 170.0);
        system.alphac = between(20.0, 55.0);
        system.gammac = between(-180.0, 360.0);
        system.k0 = between(0.9, 1.1);
        system.FE = between(-1e7, 1e7);
        system.FN = between(-1e7, 1e7);
        system.shape = {between(6.3e6, 6.4e6), between(0.0, 0.0069)};
        const auto projection = system.Load();
        for (int j = 0; j < 50; ++j) {
            const double latitude = system.phic + between(-5.0, 5.0);
            const double longitude = system.lambdac + between(-5.0, 5.0);
            const GridPosition grid = ToGrid(*projection, latitude, longitude);
            const GeoPosition back = ToGeo(*projection, grid.easting, grid.northing);
            // The series of the latitude; variant A's base at up to 1000 km from the initial line.
            const double bound = system.variant == 'A' ? 2e-9 : 3e-10;
            EXPECT_NEAR(back.latitude, latitude, bound) << i;
            EXPECT_NEAR(back.longitude, longitude, bound / std::cos(latitude * D_TO_R)) << i;
        }
    }
}

} // namespace
