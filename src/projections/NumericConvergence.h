#pragma once

class CProjection;

/// The grid convergence, in degrees, as the direction on the grid of the point one arc second to
/// the north. Folded into the range of a longitude.
double NumericConvergence(const CProjection& projection, double easting, double northing);
