#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <memory>
#include <random>

#include "tests/support/ProjectionRecord.h"

namespace {

constexpr double kMetresPerDegree = 111319.5;

} // namespace

// What the ends of the series leave between forward and back, within 3 degrees of the central
// meridian, on any grid: docs/accuracy.md has 0.016 mm in the easting and 0.007 mm in the latitude.
TEST(CTMprjProperty, TheRoundTripClosesWithinTheEndsOfTheSeries)
{
    const MainDirectory directory(MainDirectory::Delivered());
    std::mt19937_64 random(1948);
    std::uniform_real_distribution<double> unit(-1.0, 1.0);
    for (int grid = 0; grid < 200; ++grid) {
        const LinearUnit metres(grid % 3 == 0 ? 1.0 : grid % 3 == 1 ? 0.3048 : 0.30480060960121924);
        const std::uint32_t type = grid % 2 == 0 ? 0U : 1U;
        const EllipsoidShape shape{6377000.0 + 1500.0 * unit(random), 0.0067 + 0.0002 * unit(random)};
        const double lon0 = 180.0 * unit(random);
        const auto projection = Loaded(type, shape,
                                       ProjectionRecord({{3, 60.0 * unit(random)},
                                                         {4, lon0},
                                                         {5, 1e6 * unit(random)},
                                                         {6, 1e7 * unit(random)},
                                                         {7, 1.0 + 0.15 * unit(random)},
                                                         {16, 180.0 * unit(random)}}));
        double worst = 0.0;
        for (int i = 0; i < 100; ++i) {
            const double latitude = 84.0 * unit(random);
            const double longitude = modgeo(lon0 + 3.0 * unit(random));
            double easting = 0.0;
            double northing = 0.0;
            double backLatitude = 0.0;
            double backLongitude = 0.0;
            projection->GeoToGrid(latitude, longitude, easting, northing);
            projection->GridToGeo(easting, northing, backLatitude, backLongitude);
            const double east = modgeo(backLongitude - longitude) * std::cos(latitude * D_TO_R);
            worst = std::max({worst, std::fabs(backLatitude - latitude), std::fabs(east)});
        }
        EXPECT_LT(worst * kMetresPerDegree, 3e-5) << "grid " << grid;
    }
}
