#pragma once

#include <cmath>

/// The ratio of a line's length on the grid to that of the geodesic by Robbins' inverse, and the
/// meridian distance, step by step. What the production code is held against. Shares no code with
/// it. Radians, and one linear unit throughout.
namespace plain {

/// The meridian distance from the equator, cut after the cube of e2.
inline double ShortArc(double a, double e2, double phi)
{
    const double c0 = 1 - e2 / 4 - 3 * e2 * e2 / 64 - 5 * e2 * e2 * e2 / 256;
    const double c2 = -(3 * e2 / 8 + 3 * e2 * e2 / 32 + 45 * e2 * e2 * e2 / 1024);
    const double c4 = 15 * e2 * e2 / 256 + 45 * e2 * e2 * e2 / 1024;
    const double c6 = -35 * e2 * e2 * e2 / 3072;
    return a * (c0 * phi + c2 * std::sin(2 * phi) + c4 * std::sin(4 * phi) + c6 * std::sin(6 * phi));
}

/// The derivative of ShortArc for an axis of 1.
inline double ShortArcSlope(double e2, double phi)
{
    const double c0 = 1 - e2 / 4 - 3 * e2 * e2 / 64 - 5 * e2 * e2 * e2 / 256;
    const double c2 = -(3 * e2 / 8 + 3 * e2 * e2 / 32 + 45 * e2 * e2 * e2 / 1024);
    const double c4 = 15 * e2 * e2 / 256 + 45 * e2 * e2 * e2 / 1024;
    const double c6 = -35 * e2 * e2 * e2 / 3072;
    return c0 + 2 * c2 * std::cos(2 * phi) + 4 * c4 * std::cos(4 * phi) + 6 * c6 * std::cos(6 * phi);
}

inline double RobbinsRatio(double gridDistance, double phi1, double lam1, double phi2, double lam2, double a, double e2)
{
    const double pi = 3.14159265358979323846 / 180.0 * 180.0;
    if (lam1 == lam2) {
        return gridDistance / std::fabs(ShortArc(a, e2, phi2) - ShortArc(a, e2, phi1));
    }
    const double ep2 = std::pow(a, 2) / std::pow(std::sqrt(1 - e2) * a, 2) - 1;
    const double nu1 = a / std::sqrt(1 - e2 * std::pow(std::sin(phi1), 2));
    const double nu2 = a / std::sqrt(1 - e2 * std::pow(std::sin(phi2), 2));
    const double tanPsi2 = e2 * nu1 * std::sin(phi1) / (nu2 * std::cos(phi2)) + (1 - e2) * std::tan(phi2);
    const double psi2 = std::atan(tanPsi2);
    const double dl = lam2 - lam1;
    double alpha = 0.0;
    if (std::fabs(std::sin(dl)) >= 1e-13) {
        alpha = std::atan(1 / ((std::cos(phi1) * tanPsi2 - std::sin(phi1) * std::cos(dl)) / std::sin(dl)));
    }
    alpha += alpha < 0 ? pi : 0.0;
    alpha += dl < 0 ? pi : 0.0;
    const double sigma = std::asin(std::cos(psi2) * std::sin(dl) / std::sin(alpha));
    const double g2 = ep2 * std::pow(std::sin(phi1), 2);
    const double g = std::sqrt(g2);
    const double h2 = ep2 * std::pow(std::cos(phi1), 2) * std::pow(std::cos(alpha), 2);
    const double h = std::sqrt(h2);
    const double s =
        nu1 * sigma *
        (1 - (std::pow(sigma, 2) / 6) * h2 * (1 - h2) + (std::pow(sigma, 3) / 8) * g * h * (1 - 2 * h2) +
         (std::pow(sigma, 4) / 120) * (h2 * (4 - 7 * h2) - 3 * g2 * (1 - 7 * h2)) - (std::pow(sigma, 5) / 48) * g * h);
    return gridDistance / std::fabs(s);
}

} // namespace plain
