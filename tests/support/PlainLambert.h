#pragma once

#include <cmath>

/// Lambert conformal conic step by step, with logarithms and Newton passes as they are published,
/// nothing joined. What the production code, which saves on them, is held against. Shares no code
/// with it. Degrees, and one linear unit throughout.
namespace plain {

class Lambert {
public:
    double a = 0.0;  ///< semi-major axis in the grid's unit
    double e2 = 0.0; ///< squared eccentricity
    double phiF = 0.0, lambda0 = 0.0, FE = 0.0, FN = 0.0;
    int passes = 2; ///< of the inverse

    struct Grid {
        double easting = 0.0, northing = 0.0;
    };
    struct Geo {
        double latitude = 0.0, longitude = 0.0;
    };

    /// Forms the constants from two standard parallels.
    void PrepareTwoParallels(double phiS, double phiN)
    {
        const double sN = std::sin(phiN * kRad);
        const double sS = std::sin(phiS * kRad);
        n = std::log((std::cos(phiS * kRad) * W(sN)) / (std::cos(phiN * kRad) * W(sS))) / (Iso(sN) - Iso(sS));
        phi0 = std::asin(n) / kRad;
        K = std::cos(phiS * kRad) * a * std::exp(Iso(sS) * n) / (W(sS) * n);
        Radii();
        k = W(std::sin(phi0 * kRad)) * std::tan(phi0 * kRad) * R0 / a;
    }

    /// Forms the constants from the latitude of origin and the scale factor on it.
    void PrepareOneParallel(double scale)
    {
        phi0 = phiF;
        const double s1 = std::sin(phi0 * kRad);
        n = s1;
        K = (std::cos(phi0 * kRad) * a * std::exp(Iso(s1) * n) / (W(s1) * n)) * scale;
        Radii();
        k = std::tan(phi0 * kRad) * W(s1) * R0 / a;
    }

    Grid GeoToGrid(double lat, double lon) const
    {
        const double L = Iso(std::sin(lat * kRad));
        const double R = K / std::exp(L * n);
        const double theta = Fold(lon - lambda0) * kRad * n;
        return {std::sin(theta) * R + FE, RF + FN - std::cos(theta) * R};
    }

    Geo GridToGeo(double E, double N) const
    {
        const double x = E - FE;
        const double y = RF - N + FN;
        const double theta = y == 0.0 ? 90 * kRad : std::atan(x / y);
        const double rho = std::sqrt(std::pow(x, 2) + std::pow(y, 2));
        const double L = std::log(K / rho) / n;
        double s = (std::exp(2 * L) - 1) / (std::exp(2 * L) + 1);
        for (int i = 0; i < passes; ++i) {
            s = s - (Iso(s) - L) / (1 / (1 - s * s) - e2 / (1 - e2 * s * s));
        }
        return {Fold(std::asin(s) / kRad), Fold(theta / n / kRad + lambda0)};
    }

    double Convergence(double E, double N) const { return std::atan((FE - E) / (RF - N + FN)) / kRad; }

    double PointScale(double E, double N) const
    {
        const double lat = GridToGeo(E, N).latitude * kRad;
        const double rho = std::sqrt(std::pow(E - FE, 2) + std::pow(RF - N + FN, 2));
        return rho * W(std::sin(lat)) * n / (std::cos(lat) * a);
    }

    double LineScaleTwoParallels(double E1, double N1, double E2, double N2) const
    {
        return (PointScale(E2, N2) + 4 * PointScale((E1 + E2) / 2, (N1 + N2) / 2) + PointScale(E1, N1)) / 6;
    }

    double LineScaleOneParallel(double E1, double N1, double E2, double N2) const
    {
        const double lat = GridToGeo((E1 + E2) / 2, (N1 + N2) / 2).latitude * kRad;
        const double w = 1 - e2 * std::pow(std::sin(lat), 2);
        const double R2 = k * k * a * a * (1 - e2) / (w * w);
        const double d1 = N1 - FN;
        const double d2 = N2 - FN;
        return ((d2 * d1 + d1 * d1 + d2 * d2) / (6 * R2) + 1) * k;
    }

    double n = 0.0, K = 0.0, phi0 = 0.0, N0 = 0.0, RF = 0.0, R0 = 0.0, k = 0.0;

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

    double W(double s) const { return std::sqrt(1 - e2 * s * s); }

    double Iso(double s) const
    {
        const double e = std::sqrt(e2);
        return (std::log((1 + s) / (1 - s)) - e * std::log((1 + e * s) / (1 - e * s))) / 2;
    }

    void Radii()
    {
        RF = K / std::exp(Iso(std::sin(phiF * kRad)) * n);
        R0 = K / std::exp(Iso(std::sin(phi0 * kRad)) * n);
        N0 = RF + FN - R0;
    }
};

} // namespace plain
