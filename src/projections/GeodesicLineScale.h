#pragma once

#include "projections/MeridianArc.h"

class CProjection;

/// Scale factors as true ratios: the length of a line on the grid over that of the geodesic.
///
/// The geodesic is Robbins' inverse, Long lines on the spheroid, Empire Survey Review 125 (1962); a
/// line on one meridian takes the meridian distance.
/// Error: 3.5e-9 for lines of up to 100 km, growing with the cube of the length.
/// Kept: g and h are without sign, where the source has that of the sine and the cosine they come of.
namespace GeodesicLineScale {

/// An end of a line; degrees.
struct End {
    double easting = 0.0, northing = 0.0;
    double latitude = 0.0, longitude = 0.0;
};

struct Spheroid {
    double a; ///< a_u
    double e2;
    ShortMeridianArc arc;
};

/// NaN for a line of no length, and for one whose ends differ in longitude by less than 1e-13
/// radians without being equal.
double OfLine(const End& from, const End& to, const Spheroid& spheroid);

/// The line scale factor of the projection from 500 units west of the point to 500 units east.
double OfPoint(const CProjection& projection, double easting, double northing);

} // namespace GeodesicLineScale
