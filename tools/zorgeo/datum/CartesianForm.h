#pragma once

#include "convert/Calculation.h"

/// Cartesian and geographic positions on an ellipsoid of revolution.
///
/// Heiskanen and Moritz, Physical Geodesy (1967), section 5-3; the latitude by their fixed point.
/// Units: degrees and metres. Error: the rounding of the arithmetic, some nanometres, from 1000 km
/// below the surface outwards; at the poles and on the axis too.
struct CartesianForm {
    double a = 0.0;  ///< semi-major axis
    double e2 = 0.0; ///< squared eccentricity

    Position ToCartesian(const Position& geographic) const;
    /// False, `geographic` untouched, when the latitude does not settle: near the Earth's centre,
    /// and for what is not finite.
    bool ToGeographic(const Position& cartesian, Position& geographic) const;
};
