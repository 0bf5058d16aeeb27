#pragma once

#include <cmath>

/// The sphere of a double projection: the ellipsoid is mapped on it conformally (Gauss 1843), true
/// to scale along the parallel of the origin and to the second order beside it; the sphere is then
/// mapped on the plane.
struct ConformalSphere {
    double rho; ///< radius of curvature in the meridian of the origin, in the unit of a
    double nu;  ///< radius of curvature in the prime vertical there
    double R;   ///< radius of the sphere
    double n;   ///< longitude on the sphere over longitude on the ellipsoid, from the origin's meridian

    /// For an origin at latitude `phi0` (radians) on the ellipsoid of semi-major axis `a` and squared
    /// eccentricity `e2`.
    ConformalSphere(double a, double e2, double phi0)
    {
        const double s = std::sin(phi0);
        const double c = std::cos(phi0);
        const double w = 1.0 - e2 * s * s;
        nu = a / std::sqrt(w);
        rho = (1.0 - e2) * nu / w;
        R = std::sqrt(rho * nu);
        n = std::sqrt(1.0 + e2 * c * c * c * c / (1.0 - e2));
    }
};
