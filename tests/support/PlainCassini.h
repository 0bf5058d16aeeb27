#pragma once

#include <cmath>

#include "tests/support/PlainRobbins.h"

/// Cassini-Soldner step by step: nothing joined, library sines and tangents everywhere. What the
/// production code, which saves on them, is held against. Shares no code with it. Degrees, and one
/// linear unit throughout.
namespace plain {

class Cassini {
public:
    double a = 0.0;  ///< semi-major axis in the grid's unit
    double e2 = 0.0; ///< squared eccentricity
    double phi0 = 0.0, lambda0 = 0.0, FE = 0.0, FN = 0.0;

    struct Grid {
        double easting = 0.0, northing = 0.0;
    };
    struct Geo {
        double latitude = 0.0, longitude = 0.0;
    };

    Grid GeoToGrid(double lat, double lon) const
    {
        const double phi = Fold(lat) * kRad;
        const double c = std::cos(phi);
        const double t = c == 0.0 ? 1e25 : std::sin(phi) / c;
        const double T = t * t;
        const double A = Fold(lon - lambda0) * kRad * c;
        const double C = e2 / (1 - e2) * c * c;
        const double nu = a / std::sqrt(1 - e2 * std::pow(std::sin(phi), 2));
        return {(A - T * std::pow(A, 3) / 6 - (8 - T + 8 * C) * T * std::pow(A, 5) / 120) * nu + FE,
                ShortArc(a, e2, phi) + FN - ShortArc(a, e2, phi0 * kRad) +
                    (A * A / 2 + (5 - t + 6 * C) * std::pow(A, 4) / 24) * nu * t};
    }

    Geo GridToGeo(double E, double N) const
    {
        const double c0 = 1 - e2 / 4 - 3 * e2 * e2 / 64 - 5 * e2 * e2 * e2 / 256;
        const double e1 = (1 - std::sqrt(1 - e2)) / (1 + std::sqrt(1 - e2));
        const double mu = (N + ShortArc(a, e2, phi0 * kRad) - FN) / (a * c0);
        const double phi1 = mu + (3 * e1 / 2 - 27 * std::pow(e1, 3) / 32) * std::sin(2 * mu) +
                            (21 * e1 * e1 / 16 - 55 * std::pow(e1, 4) / 32) * std::sin(4 * mu) +
                            151 * std::pow(e1, 3) / 96 * std::sin(6 * mu) +
                            1097 * std::pow(e1, 4) / 512 * std::sin(8 * mu);
        const double c = std::cos(phi1);
        const double t = c == 0.0 ? 1e25 : std::sin(phi1) / c;
        const double T = t * t;
        const double w = 1 - e2 * std::pow(std::sin(phi1), 2);
        const double nu = a / std::sqrt(w);
        const double rho = (1 - e2) * a / std::pow(w, 1.5);
        const double D = (E - FE) / nu;
        const double Q = 3 * T + 1;
        return {Fold((phi1 - (nu * t / rho) * (D * D / 2 - Q * std::pow(D, 4) / 24)) / kRad),
                Fold((kRad * lambda0 + (D - T * std::pow(D, 3) / 3 + Q * T * std::pow(D, 5) / 15) / c) / kRad)};
    }

    double LineScale(double E1, double N1, double E2, double N2) const
    {
        const Geo from = GridToGeo(E1, N1);
        const Geo to = GridToGeo(E2, N2);
        return RobbinsRatio(std::hypot(E2 - E1, N2 - N1), from.latitude * kRad, from.longitude * kRad,
                            to.latitude * kRad, to.longitude * kRad, a, e2);
    }

    double PointScale(double E, double N) const { return LineScale(E - 500.0, N, E + 500.0, N); }

private:
    static constexpr double kRad = 3.14159265358979323846 / 180.0;

    /// Into (-180, 180], what lies in [-180, 180] unchanged.
    static double Fold(double degrees)
    {
        if (degrees >= -180.0 && degrees <= 180.0) {
            return degrees;
        }
        const double folded = std::remainder(degrees, 360.0);
        return folded == -180.0 ? 180.0 : folded;
    }
};

} // namespace plain
