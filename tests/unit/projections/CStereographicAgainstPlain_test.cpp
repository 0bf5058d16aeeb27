#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <numbers>
#include <random>

#include "tests/support/GridPositions.h"
#include "tests/support/PlainStereographic.h"
#include "tests/support/ProjectionRecord.h"

// The production code saves library functions; here it is held against the steps as they are written.

namespace {

constexpr double kGridTolerance = 1e-8; // metres
constexpr double kGeoTolerance = 1e-13; // degrees of arc on the ground

struct Setting {
    EllipsoidShape shape;
    double unit, lat0, lon0, falseEasting, falseNorthing, k0;
};

const Setting kSettings[] = {
    {{6377397.155, 0.0066743722318021447}, 1.0, 52.156160555555556, 5.3876388888888889, 155000.0, 463000.0, 0.9999079},
    {{6378245.0, 0.0066934216229659432}, 1.0, 46.0, 25.0, 500000.0, 500000.0, 0.99975},
    {kGrs80, 0.3048, 46.5, -66.5, 300000.0, 800000.0, 0.999912},
    {kGrs80, 1200.0 / 3937.0, -35.0, -100.0, 0.0, 0.0, 1.0},
    {kGrs80, 1.0, 0.0, 0.0, 0.0, 0.0, 0.9996},
    {{6371000.0, 0.0}, 1.0, 40.0, 10.0, 0.0, 0.0, 1.0},
    {{6378137.0, 0.1}, 1.0, -60.0, 120.0, 0.0, 0.0, 0.8},
};

plain::Stereographic PlainOf(const Setting& setting)
{
    plain::Stereographic plain;
    plain.a = static_cast<long double>(setting.shape.a) / setting.unit;
    plain.e2 = setting.shape.e2;
    plain.lat0 = setting.lat0;
    plain.lon0 = setting.lon0;
    plain.falseEasting = setting.falseEasting;
    plain.falseNorthing = setting.falseNorthing;
    plain.k0 = setting.k0;
    plain.Prepare();
    return plain;
}

std::unique_ptr<CProjection> FastOf(const Setting& s)
{
    return Loaded(7, s.shape,
                  ProjectionRecord({{3, s.lat0}, {4, s.lon0}, {5, s.falseEasting}, {6, s.falseNorthing}, {7, s.k0}}));
}

TEST(CStereographicAgainstPlain, ForwardAndInverse)
{
    const MainDirectory main(MainDirectory::Delivered());
    std::mt19937_64 random(20251122);
    std::uniform_real_distribution<double> offset(-8.0, 8.0);
    for (const Setting& setting : kSettings) {
        const LinearUnit unit(setting.unit);
        const auto fast = FastOf(setting);
        const plain::Stereographic plain = PlainOf(setting);
        double worstGrid = 0.0;
        double worstGeo = 0.0;
        for (int i = 0; i < 20000; ++i) {
            const double latitude = setting.lat0 + offset(random);
            const double longitude = setting.lon0 + offset(random);
            const GridPosition grid = ToGrid(*fast, latitude, longitude);
            const auto expected = plain.GeoToGrid(latitude, longitude);
            worstGrid =
                std::max({worstGrid, std::fabs(grid.easting - static_cast<double>(expected.easting)) * setting.unit,
                          std::fabs(grid.northing - static_cast<double>(expected.northing)) * setting.unit});
            const GeoPosition geo = ToGeo(*fast, grid.easting, grid.northing);
            const auto back = plain.GridToGeo(grid.easting, grid.northing);
            worstGeo = std::max(
                {worstGeo, std::fabs(geo.latitude - static_cast<double>(back.latitude)),
                 std::fabs(geo.longitude - static_cast<double>(back.longitude)) * std::cos(geo.latitude * D_TO_R)});
        }
        EXPECT_LE(worstGrid, kGridTolerance) << setting.lat0;
        EXPECT_LE(worstGeo, kGeoTolerance) << setting.lat0;
    }
}

// Random systems, random points within 300 km: longitudes close, and latitudes miss by what tan(j) / 2
// exceeds tan(j / 2) by: x (t/2 - t / (1 + sqrt(1 + t^2))), t = tan(j).
TEST(CStereographicAgainstPlain, ARoundTripClosesWithinTheErrorOfTheInverse)
{
    const MainDirectory main(MainDirectory::Delivered());
    std::mt19937_64 random(7);
    const auto between = [&random](double low, double high) {
        return std::uniform_real_distribution<double>(low, high)(random);
    };
    for (int system = 0; system < 200; ++system) {
        const Setting setting{{between(6.35e6, 6.4e6), between(0.0, 0.01)},
                              1.0,
                              between(-75.0, 75.0),
                              between(-175.0, 175.0),
                              between(-1e6, 1e6),
                              between(-1e6, 1e6),
                              between(0.9, 1.1)};
        const auto fast = FastOf(setting);
        const plain::Stereographic plain = PlainOf(setting);
        const double Rk0 = static_cast<double>(plain.Radius()) * setting.k0;
        const double chi0 = static_cast<double>(plain.OriginOnSphere());
        const double g = 2.0 * Rk0 * std::tan(0.25 * std::numbers::pi - chi0 / 2.0);
        const double h = 4.0 * Rk0 * std::tan(chi0) + g;
        for (int i = 0; i < 50; ++i) {
            const double x = between(-2e5, 2e5);
            const double y = between(-2e5, 2e5);
            const auto from = ToGeo(*fast, setting.falseEasting + x, setting.falseNorthing + y);
            const GridPosition grid = ToGrid(*fast, from.latitude, from.longitude);
            const double P = y + h;
            const double Q = g - y;
            const double t = x * (P - Q) / (P * Q + x * x);
            const double missing = x * (t / 2.0 - t / (1.0 + std::sqrt(1.0 + t * t)));
            // The forward of a latitude that is off lies as far off along the meridian.
            const double found =
                std::hypot(grid.easting - setting.falseEasting - x, grid.northing - setting.falseNorthing - y);
            EXPECT_NEAR(found, std::fabs(missing), 0.03 * std::fabs(missing) + 2e-7)
                << setting.lat0 << " " << x << " " << y;
        }
    }
}

} // namespace
