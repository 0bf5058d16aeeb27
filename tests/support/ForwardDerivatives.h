#pragma once

#include <cmath>

#include "tests/support/GridPositions.h"

/// The map of a projection at a position by central differences of the forward conversion, on an
/// ellipsoid in the grid's unit. The steps are 11 m: the third derivatives leave below 1e-11, the
/// rounding of the grid 1e-9.
struct ForwardDerivatives {
    double meridianScale = 0.0; ///< grid over ground along the meridian
    double parallelScale = 0.0; ///< along the parallel
    double convergence = 0.0;   ///< degrees, of the meridian from the grid's north, clockwise

    ForwardDerivatives(const CProjection& projection, double a, double e2, double latitude, double longitude)
    {
        constexpr double kStep = 1e-4; // degrees
        const double s = std::sin(latitude * D_TO_R);
        const double w = 1.0 - e2 * s * s;
        const double rho = a * (1.0 - e2) / (w * std::sqrt(w));
        const double radius = a / std::sqrt(w) * std::cos(latitude * D_TO_R);
        const double step = 2.0 * kStep * D_TO_R;

        const GridPosition north = ToGrid(projection, latitude + kStep, longitude);
        const GridPosition south = ToGrid(projection, latitude - kStep, longitude);
        const GridPosition east = ToGrid(projection, latitude, longitude + kStep);
        const GridPosition west = ToGrid(projection, latitude, longitude - kStep);
        meridianScale = std::hypot(north.easting - south.easting, north.northing - south.northing) / (rho * step);
        parallelScale = std::hypot(east.easting - west.easting, east.northing - west.northing) / (radius * step);
        convergence = std::atan2(north.easting - south.easting, north.northing - south.northing) / D_TO_R;
    }
};
