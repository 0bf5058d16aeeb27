#pragma once

#include <cmath>

/// The conversion between geodetic and geocentric positions, step by step and with nothing
/// rearranged: what the production code, which saves sines and arctangents, is held against.
/// Shares no code with it. Degrees and metres; `unit` is the length of the unit of heights.
namespace plain {

constexpr double kDegree = 3.14159265358979323846 / 180.0;

struct Cartesian {
    double x = 0.0;
    double y = 0.0;
    double z = 0.0;
};

struct Geodetic {
    double lat = 0.0;
    double lon = 0.0;
    double h = 0.0;
    bool settled = true; ///< false when the rounds were used up
    int rounds = 0;
};

inline Cartesian GeodeticToCartesian(double a, double e2, double unit, double lat, double lon, double h)
{
    const double height = h * unit;
    const double phi = kDegree * lat;
    const double lambda = kDegree * lon;
    const double sine = std::sin(phi);
    const double N = a / std::sqrt(1.0 - e2 * std::pow(sine, 2));
    return {(N + height) * std::cos(phi) * std::cos(lambda), (N + height) * std::cos(phi) * std::sin(lambda),
            ((1.0 - e2) * N + height) * sine};
}

inline Geodetic CartesianToGeodetic(double a, double e2, double unit, double X, double Y, double Z)
{
    Geodetic out;
    out.lon = std::atan2(Y, X) / kDegree;
    const double p = std::sqrt(X * X + Y * Y);
    if (Z == 0.0) {
        out.lat = 0.0;
        out.h = (p - a) / unit;
        return out;
    }
    double T = 0.0;
    out.h = 0.0;
    const double k = (1.0 - e2) * p;
    const double c = Z / k;
    const double d = e2 / k;
    double s = 0.0;
    for (;;) {
        const double before = T;
        ++out.rounds;
        out.lat = std::atan(c - before * d) / kDegree;
        s = std::sin(kDegree * out.lat);
        const double w = a / std::sqrt(1.0 - e2 * s * s) * (1.0 - e2) * s;
        T = Z - w;
        if (!(std::fabs(T - before) > 1e-20) || out.rounds == 20) {
            break;
        }
    }
    out.h = T / s / unit;
    out.settled = out.rounds != 20;
    return out;
}

} // namespace plain
