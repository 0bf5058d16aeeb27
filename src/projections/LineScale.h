#pragma once

class CProjection;

/// The rules by which projections give the scale factor of a line from that of its points.
namespace LineScale {

/// Simpson's rule over the reciprocals of the point scale factors at the ends and the midpoint.
double HarmonicSimpson(double k1, double km, double k2);
/// Simpson's rule over the point scale factors.
double ArithmeticSimpson(double k1, double km, double k2);

/// The same two over the point scale factors of `projection`, the midpoint taken on the grid.
double HarmonicSimpson(const CProjection& projection, double easting1, double northing1, double easting2,
                       double northing2);
double ArithmeticSimpson(const CProjection& projection, double easting1, double northing1, double easting2,
                         double northing2);

/// The square of the mean radius of curvature at `latitude` (degrees) on the ellipsoid of
/// semi-major axis `a` and squared eccentricity `e2`, on a grid of scale factor `k0`.
double SquaredMeanRadius(double k0, double a, double e2, double latitude);

/// Second order in the distances of the ends, `d1` and `d2`, from the line of scale `k0`;
/// `squaredRadius` at the midpoint. With d1 = d2 it is the scale factor of a point.
double MeanRadius(double k0, double squaredRadius, double d1, double d2);

} // namespace LineScale
