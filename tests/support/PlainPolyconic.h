#pragma once

#include <cmath>

#include "tests/support/PlainRobbins.h"

/// Polyconic step by step: nothing joined, library sines and tangents everywhere. What the
/// production code, which saves on them, is held against. Shares no code with it. Degrees, and one
/// linear unit throughout.
namespace plain {

class Polyconic {
public:
    double a = 0.0;  ///< semi-major axis in the grid's unit
    double e2 = 0.0; ///< squared eccentricity
    double phi0 = 0.0, lambda0 = 0.0, FE = 0.0, FN = 0.0;

    struct Grid {
        double easting = 0.0, northing = 0.0;
    };
    struct Geo {
        double latitude = 0.0, longitude = 0.0;
        int passes = 0;
        double last = 0.0; ///< the last correction, radians
    };

    Grid GeoToGrid(double lat, double lon) const
    {
        const double M0 = ShortArc(a, e2, phi0 * kRad);
        if (std::fabs(lat) < 1e-10) {
            return {(lon - lambda0) * a * kRad + FE, FN - M0};
        }
        const double phi = lat * kRad;
        const double Ea = (lon - lambda0) * kRad * std::sin(phi);
        const double P = (a / std::sqrt(1 - e2 * std::pow(std::sin(phi), 2))) / std::tan(phi);
        return {std::sin(Ea) * P + FE, (ShortArc(a, e2, phi) - M0) + (1 - std::cos(Ea)) * P + FN};
    }

    Geo GridToGeo(double E, double N) const
    {
        const double M0 = ShortArc(a, e2, phi0 * kRad);
        const double x = E - FE;
        const double y = N - FN;
        if (std::fabs(M0 - y) < 1e-10) {
            return {phi0, x / a / kRad + lambda0};
        }
        const double A = (M0 + y) / a;
        const double B = x * x / (a * a) + A * A;
        double phi = A;
        double phip = 0.0;
        double C = 0.0;
        int passes = 0;
        do {
            phip = phi;
            C = std::sqrt(1 - e2 * std::pow(std::sin(phi), 2)) * std::tan(phi);
            const double Mp = ShortArcSlope(e2, phi);
            const double Ma = ShortArc(a, e2, phi) / a;
            const double J = Ma * Ma + B;
            const double num = (Ma * C + 1) * A - Ma - (J / 2) * C;
            const double den = (J - 2 * A * Ma) * (e2 * std::sin(2 * phi)) * 0.25 * C +
                               (Mp * C - 2 / std::sin(2 * phi)) * (A - Ma) - Mp;
            phi = phi - num / den;
            ++passes;
        } while (passes < 25 && std::fabs(phi - phip) > 1e-9);
        return {phip / kRad, std::asin(x * C / a) / std::sin(phip) / kRad + lambda0, passes, phi - phip};
    }

    double LineScale(double E1, double N1, double E2, double N2) const
    {
        Geo from = GridToGeo(E1, N1);
        Geo to = GridToGeo(E2, N2);
        Grid first{E1, N1};
        Grid second{E2, N2};
        if (std::fabs(from.latitude) < 1e-10) {
            from.latitude = 1e-10;
            first = GeoToGrid(1e-10, from.longitude);
        }
        if (std::fabs(to.latitude) < 1e-10) {
            to.latitude = 1e-10;
            second = GeoToGrid(1e-10, to.longitude);
        }
        return RobbinsRatio(std::hypot(second.easting - first.easting, second.northing - first.northing),
                            from.latitude * kRad, from.longitude * kRad, to.latitude * kRad, to.longitude * kRad, a,
                            e2);
    }

    double PointScale(double E, double N) const { return LineScale(E - 500.0, N, E + 500.0, N); }

private:
    static constexpr double kRad = 3.14159265358979323846 / 180.0;
};

} // namespace plain
