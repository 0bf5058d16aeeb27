#pragma once

#include <cmath>
#include <cstdlib>

/// Transverse Mercator step by step: the published order of steps, nothing joined, nothing
/// rearranged, library sines and tangents everywhere. What the production code, which saves on
/// them, is held against. Shares no code with it. Degrees, and one linear unit throughout.
namespace plain {

class TransverseMercator {
public:
    double a = 0.0;  ///< semi-major axis in the grid's unit
    double e2 = 0.0; ///< squared eccentricity
    double lat0 = 0.0, lon0 = 0.0, falseEasting = 0.0, falseNorthing = 0.0, k0 = 1.0, skew = 0.0;

    struct Grid {
        double easting = 0.0, northing = 0.0;
    };
    struct Geo {
        double latitude = 0.0, longitude = 0.0;
    };

    /// Forms the constants; call it when the fields are set.
    void Prepare()
    {
        const double b = a * std::sqrt(1.0 - e2);
        const double n = (a - b) / (a + b);
        G = (1 - n) * (1 - std::pow(n, 2)) * a * (1 + 9 * std::pow(n, 2) / 4 + 225 * std::pow(n, 4) / 64);
        const double p1 = -3 * n / 2 + 9 * std::pow(n, 3) / 16;
        const double p2 = 15 * std::pow(n, 2) / 16 - 15 * std::pow(n, 4) / 32;
        const double p3 = -35 * std::pow(n, 3) / 48;
        const double p4 = 315 * std::pow(n, 4) / 512;
        a1 = 2 * (p1 - 2 * p2 + 3 * p3 - 4 * p4);
        a2 = 8 * (p2 - 4 * p3 + 10 * p4);
        a3 = 32 * (p3 - 6 * p4);
        a4 = 128 * p4;
        const double q1 = 3 * n / 2 - 27 * std::pow(n, 3) / 32;
        const double q2 = 21 * std::pow(n, 2) / 16 - 55 * std::pow(n, 4) / 32;
        const double q3 = 151 * std::pow(n, 3) / 96;
        const double q4 = 1097 * std::pow(n, 4) / 512;
        b1 = 2 * (q1 - 2 * q2 + 3 * q3 - 4 * q4);
        b2 = 8 * (q2 - 4 * q3 + 10 * q4);
        b3 = 32 * (q3 - 6 * q4);
        b4 = 128 * q4;
        const double phi0 = lat0 * kRad;
        const double c = std::cos(phi0);
        const double sigma0 =
            phi0 + std::sin(phi0) * c * (a1 + a2 * std::pow(c, 2) + a3 * std::pow(c, 4) + a4 * std::pow(c, 6));
        M0 = sigma0 * k0 * G;
    }

    Grid GeoToGrid(double lat, double lon) const
    {
        const double phi = Fold(lat) * kRad;
        const double s = std::sin(phi);
        const double c = std::cos(phi);
        const double t = c == 0.0 ? 1e25 : s / c;
        const double T = t * t;
        const double eta2 = e2 / (1 - e2) * c * c;
        const double dlon = Fold(lon - lon0);
        const double L = dlon * kRad * c;
        const double W = std::sqrt(1 - e2 * s * s);
        const double nu = k0 * a / W;
        const double Mk = ((((a4 * c * c + a3) * c * c + a2) * c * c + a1) * s * c + phi) * k0 * G - M0;
        const double L2 = L * L;
        const double L4 = L2 * L2;
        const double L6 = L4 * L2;
        const double Y = Mk + (nu * t * L2 / 2) * (1 + (L2 / 12) * (5 - T + 9 * eta2 + 4 * eta2 * eta2) +
                                                   (L4 / 360) * (61 - 58 * T + T * T + 270 * eta2 - 330 * T * eta2));
        const double X =
            nu * L *
            (1 + (L2 / 6) * (1 - T + eta2) + (L4 / 120) * (5 - 18 * T + T * T + 14 * eta2 - 58 * T * eta2) +
             (L6 / 5040) * (61 - 479 * T + 179 * T * T - T * T * T));
        return {X * std::cos(skew * kRad) - Y * std::sin(skew * kRad) + falseEasting,
                X * std::sin(skew * kRad) + Y * std::cos(skew * kRad) + falseNorthing};
    }

    Geo GridToGeo(double E, double N) const
    {
        if (k0 == 0.0 || G == 0.0) {
            return {};
        }
        const double dE = E - falseEasting;
        const double dN = N - falseNorthing;
        const double X = std::sin(skew * kRad) * dN + std::cos(skew * kRad) * dE;
        const double sigma = (std::cos(skew * kRad) * dN - std::sin(skew * kRad) * dE + M0) / (G * k0);
        const double cs = std::cos(sigma);
        const double phif = std::sin(sigma) * cs * (((b4 * cs * cs + b3) * cs * cs + b2) * cs * cs + b1) + sigma;
        const double t = std::tan(phif);
        const double T = std::pow(std::tan(phif), 2);
        const double W = std::sqrt(1 - e2 * std::pow(std::sin(phif), 2));
        const double D = -X / (k0 * a / W);
        const double eta2 = e2 / (1 - e2) * std::pow(std::cos(phif), 2);
        const double D2 = D * D;
        const double D4 = D2 * D2;
        const double D6 = D4 * D2;
        const double phi = phif + (1 + eta2) * (-t / 2) * D2 *
                                      (1 - (D2 / 12) * (5 + 3 * T + eta2 * (1 - 9 * T) - 4 * eta2 * eta2) +
                                       (D4 / 360) * (61 + 90 * T + 45 * T * T + eta2 * (46 - 252 * T - 90 * T * T)));
        const double S = (D / std::cos(phif)) * (1 - (D2 / 6) * (1 + 2 * T + eta2) +
                                                 (D4 / 120) * (5 + 28 * T + 24 * T * T + (6 + 8 * T) * eta2) -
                                                 (D6 / 5040) * (61 + 662 * T + 1320 * T * T + 721 * T * T * T));
        return {Fold(phi / kRad), Fold((kRad * lon0 - S) / kRad)};
    }

    double Convergence(double E, double N) const
    {
        const Geo at = GridToGeo(E, N);
        const double m = std::fabs(std::sin(at.latitude * kRad)) * std::fabs(Fold(at.longitude - lon0));
        const double g = Fold(lon0 - at.longitude) < 0 ? -1 : 1;
        return (at.latitude >= 0 ? g * m : -g * m) - skew;
    }

    double PointScale(double E, double N) const
    {
        const double R2 = SquaredRadius(GridToGeo(E, N).latitude);
        const double dE = E - falseEasting;
        return (dE * dE / (2 * R2) + 1) * k0;
    }

    double LineScale(double E1, double N1, double E2, double N2) const
    {
        const double R2 = SquaredRadius(GridToGeo((E1 + E2) / 2, (N1 + N2) / 2).latitude);
        const double d1 = E1 - falseEasting;
        const double d2 = E2 - falseEasting;
        return ((d2 * d1 + d1 * d1 + d2 * d2) / (6 * R2) + 1) * k0;
    }

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

    double SquaredRadius(double latitude) const
    {
        const double w = 1 - e2 * std::pow(std::sin(latitude * kRad), 2);
        return k0 * k0 * a * a * (1 - e2) / (w * w);
    }

    double G = 0.0, M0 = 0.0;
    double a1 = 0.0, a2 = 0.0, a3 = 0.0, a4 = 0.0;
    double b1 = 0.0, b2 = 0.0, b3 = 0.0, b4 = 0.0;
};

} // namespace plain
