#pragma once

#include <cmath>

/// Both variants of the oblique Mercator step by step, every power and tangent as published. What
/// the production code, which joins them, is held against. Shares no code with it. Degrees, and
/// one linear unit throughout.
namespace plain {

class Hotine {
public:
    char variant = 'A';
    double a = 0.0;  ///< semi-major axis in the grid's unit
    double e2 = 0.0; ///< squared eccentricity
    double phic = 0.0, lambdac = 0.0, FE = 0.0, FN = 0.0, k0 = 1.0, alphac = 0.0, gammac = 0.0;

    struct Grid {
        double easting = 0.0, northing = 0.0;
    };
    struct Geo {
        double latitude = 0.0, longitude = 0.0;
    };

    /// Forms the constants; call it when the fields are set.
    void Prepare()
    {
        const double e = std::sqrt(e2);
        const double p = phic * kRad;
        const double s2 = std::pow(std::sin(p), 2);
        B = std::sqrt(1 + std::pow(std::cos(p), 4) * e2 / (1 - e2));
        A = a * B * k0 * std::sqrt(1 - e2) / (1 - e2 * s2);
        const double t0 = std::tan(kPi / 4 - p / 2) / std::pow((1 - e * std::sin(p)) / (1 + e * std::sin(p)), e / 2);
        double D = std::sqrt(1 - e2) * B / (std::sqrt(1 - e2 * s2) * std::cos(p));
        sg = phic < 0 ? -1 : 1;
        double F = 0.0;
        if (variant == 'A') {
            D = D * D < 1 ? 1 : D;
            F = std::sqrt(D * D - 1) * sg + D;
        } else {
            F = D >= 1 ? std::sqrt(D * D - 1) * sg + D : D;
        }
        gamma0 = std::asin(std::sin(alphac * kRad) / D);
        Ec = std::pow(t0, B) * F;
        if (variant == 'B' && alphac == 90.0) {
            lambda0 = lambdac * kRad - std::asin(1.0) / B;
            uc = (lambdac * kRad - lambda0) * A;
        } else {
            lambda0 = lambdac * kRad - std::asin(std::tan(gamma0) * (F - 1 / F) / 2) / B;
            uc = std::atan(std::sqrt(D * D - 1) / std::cos(alphac * kRad)) * (A / B) * sg;
        }
    }

    Grid GeoToGrid(double lat, double lon) const
    {
        const double e = std::sqrt(e2);
        const double phi = lat * kRad;
        const double s = std::sin(phi);
        const double t = std::tan(kPi / 4 - phi / 2) / std::pow((1 - e * s) / (1 + e * s), e / 2);
        const double Q = Ec / std::pow(t, B);
        const double S = (Q - 1 / Q) / 2;
        const double T = (Q + 1 / Q) / 2;
        const double w = (lon * kRad - lambda0) * B;
        const double V = std::sin(w);
        const double U = (S * std::sin(gamma0) - V * std::cos(gamma0)) / T;
        const double v = std::log((1 - U) / (1 + U)) * A / (2 * B);
        double u = std::atan((S * std::cos(gamma0) + V * std::sin(gamma0)) / std::cos(w)) * A / B;
        if (variant == 'B' && alphac != 90.0) {
            u = u - std::fabs(uc) * sg;
        } else if (variant == 'B') {
            const double h = lambdac - lon < 0 ? -1 : 1;
            u = lon == lambdac ? 0.0 : u - std::fabs(uc) * sg * h;
        }
        const double g = gammac * kRad;
        return {std::sin(g) * u + std::cos(g) * v + FE, std::cos(g) * u - std::sin(g) * v + FN};
    }

    Geo GridToGeo(double E, double N) const
    {
        const Helper h = RectifiedCoordinates(E, N, variant == 'A' ? 2.718281828 : 2.718281828459);
        const double chi = kPi / 2 - 2 * std::atan(std::pow(Ec / std::sqrt((h.Up + 1) / (1 - h.Up)), 1 / B));
        const double e4 = e2 * e2;
        const double e6 = e4 * e2;
        const double e8 = e4 * e4;
        const double phi = chi + (e2 / 2 + 5 * e4 / 24 + e6 / 12 + 13 * e8 / 360) * std::sin(2 * chi) +
                           (7 * e4 / 48 + 29 * e6 / 240 + 811 * e8 / 11520) * std::sin(4 * chi) +
                           (7 * e6 / 120 + 81 * e8 / 1120) * std::sin(6 * chi) + 4279 * e8 / 161280 * std::sin(8 * chi);
        const double lam =
            lambda0 - std::atan((h.Sp * std::cos(gamma0) - h.Vp * std::sin(gamma0)) / std::cos(h.u * B / A)) / B;
        Geo geo{phi / kRad, lam / kRad};
        if (variant == 'B') {
            const double d = geo.longitude - lambdac;
            geo.longitude += d > 90.0 ? -180 / B : d < -90.0 ? 180 / B : 0.0;
        }
        return geo;
    }

    /// Variant A.
    double Convergence(double E, double N) const
    {
        const Geo geo = GridToGeo(E, N);
        const Helper h = RectifiedCoordinates(E, N, 2.718281828);
        const double w = (geo.longitude * kRad - lambda0) * B;
        const double L = std::log(Ec) + std::log(h.t) * B;
        const double g = std::atan((std::sin(gamma0) - std::sinh(L) * std::cos(gamma0) * std::sin(w)) /
                                   (std::cosh(L) * std::cos(gamma0) * std::cos(w)));
        return -((g - kRad * gammac) / kRad);
    }

    double PointScale(double E, double N) const
    {
        const Geo geo = GridToGeo(E, N);
        const double u = RectifiedCoordinates(E, N, 2.718281828).u;
        return std::sqrt(1 - e2 * std::pow(std::sin(geo.latitude * kRad), 2)) * std::cos(B * u / A) * A /
               (std::cos((geo.longitude * kRad - lambda0) * B) * std::cos(geo.latitude * kRad) * a);
    }

    double LineScale(double E1, double N1, double E2, double N2) const
    {
        return 6 / (1 / PointScale(E2, N2) + 4 / PointScale((E1 + E2) / 2, (N1 + N2) / 2) + 1 / PointScale(E1, N1));
    }

private:
    static constexpr double kPi = 3.14159265358979323846;
    static constexpr double kRad = kPi / 180.0;

    struct Helper {
        double u, v, t, Sp, Vp, Up;
    };

    Helper RectifiedCoordinates(double E, double N, double base) const
    {
        const double g = gammac * kRad;
        const double v = std::cos(g) * (E - FE) - std::sin(g) * (N - FN);
        double u = std::cos(g) * (N - FN) + std::sin(g) * (E - FE);
        if (variant == 'B') {
            u = u + std::fabs(uc) * sg;
        }
        const double Qp = std::pow(base, -(v * B / A));
        const double Sp = (Qp - 1 / Qp) / 2;
        const double Tp = (1 / Qp + Qp) / 2;
        const double Vp = std::sin(u * B / A);
        const double Up = (Vp * std::cos(gamma0) + Sp * std::sin(gamma0)) / Tp;
        return {u, v, Ec / std::pow(std::sqrt((Up + 1) / (1 - Up)), 1 / B), Sp, Vp, Up};
    }

    double A = 0.0, B = 0.0, Ec = 0.0, gamma0 = 0.0, lambda0 = 0.0, uc = 0.0, sg = 1.0;
};

} // namespace plain
