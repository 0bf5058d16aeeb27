#pragma once

#include <geodesic.h>

#include <cmath>

#include "tests/support/ForwardDerivatives.h"
#include "tests/support/GridPositions.h"

/// Convergence and scale of a conformal projection by differences of its forward conversion. `a` is
/// the semi-major axis in metres, `unit` the metres of the grid's unit.
struct NumericFactors {
    double convergence = 0.0; ///< degrees, of the meridian from the grid's north, clockwise
    double scale = 0.0;       ///< grid over ground

    NumericFactors(const CProjection& projection, double a, double e2, double unit, double latitude, double longitude)
    {
        const ForwardDerivatives at(projection, a / unit, e2, latitude, longitude);
        convergence = at.convergence;
        scale = at.meridianScale;
    }
};

/// The length of a line on the grid over that of its geodesic on the ellipsoid (Karney's geodesic).
inline double NumericLineScale(const CProjection& projection, double a, double e2, double unit, double lat1,
                               double lon1, double lat2, double lon2)
{
    const GridPosition from = ToGrid(projection, lat1, lon1);
    const GridPosition to = ToGrid(projection, lat2, lon2);
    geod_geodesic ellipsoid;
    geod_init(&ellipsoid, a, 1.0 - std::sqrt(1.0 - e2));
    double geodesic = 0.0;
    geod_inverse(&ellipsoid, lat1, lon1, lat2, lon2, &geodesic, nullptr, nullptr);
    return std::hypot(to.easting - from.easting, to.northing - from.northing) * unit / geodesic;
}
