#pragma once

/// The geodetic latitude (radians) of isometric latitude `t` on the ellipsoid of squared
/// eccentricity `e2`, by the fixed point of Snyder, Map Projections: A Working Manual (1987), eq. 7-9.
///
/// It begins with the latitude that the sphere has and ends with the first pass that corrects it by
/// `settled` radians at most, after `maxPasses` in any case. NaN ends the passes and comes out as NaN.
double LatitudeOfIsometric(double t, double e2, double settled, int maxPasses);
