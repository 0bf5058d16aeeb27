#pragma once

#include <cmath>

#include "projections/SmallArgument.h"

/// The isometric latitude, the northing of a Mercator map of the ellipsoid of semi-major axis 1
/// (Snyder, Map Projections: A Working Manual (1987), eq. 15-1), in parts that need few library
/// functions.
///
/// `s` is the sine of the geodetic latitude, `e2` the squared eccentricity. A pole gives infinity;
/// a negative e2, which has no eccentricity, gives NaN.
namespace IsometricLatitude {

/// e atanh(e s): what the sphere's isometric latitude exceeds the ellipsoid's by.
inline double EllipsoidPart(double e2, double s)
{
    const double x2 = e2 * s * s;
    if (e2 >= 0.0 && x2 <= SmallArgument::kBoundOfAtanh * SmallArgument::kBoundOfAtanh) {
        return e2 * s * SmallArgument::AtanhSeries(x2);
    }
    const double e = std::sqrt(e2);
    return e * std::log((1.0 + e * s) / (1.0 - e * s)) / 2.0;
}

/// The isometric latitude of the latitude whose sine is `s`.
inline double OfSine(double e2, double s)
{
    return std::log((1.0 + s) / (1.0 - s)) / 2.0 - EllipsoidPart(e2, s);
}

} // namespace IsometricLatitude
