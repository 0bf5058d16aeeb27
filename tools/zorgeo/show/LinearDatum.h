#pragma once

#include <array>

#include "show/SystemParameters.h"

/// A datum transformation in the seven parameters that published registers use, local to
/// satellite: X' = T + (1 + s) (I + [r]) X, position vector convention, small angles as they are
/// (IOGP guidance note 7-2, method 9606).
struct LinearDatum {
    std::array<double, 3> shift{};    ///< metres
    std::array<double, 3> rotation{}; ///< arc seconds
    double scale = 0.0;               ///< parts per million
    /// Metres, the most by which it leaves the stored transformation anywhere on the ellipsoid:
    /// applied as it stands, and turned round as PROJ does it, by (I - [r]) after the scale and the
    /// shift have been taken off.
    double largestMiss = 0.0;
};

/// The stored transformation turned round. (I + [r]) has the exact rotation and stretches what is
/// across its axis by r^2 / 2, which no choice of the seven takes away in both directions: half a
/// millimetre on the ground for 2.6 seconds, two for 5.2.
LinearDatum TurnedRound(const DatumParameters& datum);
