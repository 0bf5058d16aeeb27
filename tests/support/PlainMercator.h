#pragma once

#include <cmath>

/// Mercator step by step, with the power and the tangents as they are published, and without a limit
/// on the passes of the inverse. What the production code, which saves on them, is held against.
/// Shares no code with it. Degrees, and one linear unit throughout.
namespace plain {

class Mercator {
public:
    double a = 0.0;  ///< semi-major axis in the grid's unit
    double e2 = 0.0; ///< squared eccentricity
    double phi0 = 0.0, lambda0 = 0.0, FE = 0.0, FN = 0.0, k0 = 1.0, phits = 0.0;

    struct Grid {
        double easting = 0.0, northing = 0.0;
    };
    struct Geo {
        double latitude = 0.0, longitude = 0.0;
        int passes = 0;
    };

    Grid GeoToGrid(double lat, double lon) const
    {
        double X = a * (lon - lambda0) * kRad;
        double Y = a * Iso(lat * kRad) - a * Iso(phi0 * kRad);
        X = X / M();
        Y = Y / M();
        return {X * k0 + FE, Y * k0 + FN};
    }

    Geo GridToGeo(double E, double N) const
    {
        const double e = std::sqrt(e2);
        const double x = (E - FE) / k0 * M();
        const double y = (N - FN) / k0 * M();
        const double t = (Iso(phi0 * kRad) * a + y) / a;
        const double tol = 0.001 / a;
        const double u = std::atan(std::exp(t));
        double phi = (u - kQuarterPi) + (u - kQuarterPi);
        double d = 0.0;
        int passes = 0;
        do {
            const double es = e * std::sin(phi);
            d = 2 * (std::atan(std::exp(t) / std::pow((1 - es) / (1 + es), e / 2)) - kQuarterPi) - phi;
            phi += d;
            ++passes;
        } while (std::fabs(d) > tol);
        return {phi / kRad, x / a / kRad + lambda0, passes};
    }

    double PointScale(double E, double N) const
    {
        const double lat = GridToGeo(E, N).latitude * kRad;
        return std::sqrt(1 - e2 * std::pow(std::sin(lat), 2)) / std::cos(lat) * k0 / M();
    }

    double LineScale(double E1, double N1, double E2, double N2) const
    {
        return 1 /
               ((1 / PointScale(E2, N2) + 4 / PointScale((E1 + E2) / 2, (N1 + N2) / 2) + 1 / PointScale(E1, N1)) / 6);
    }

private:
    static constexpr double kRad = 3.14159265358979323846 / 180.0;
    static constexpr double kQuarterPi = 0.7853981633974483;

    double Iso(double phi) const
    {
        const double e = std::sqrt(e2);
        return std::log(std::tan(phi / 2 + kQuarterPi) *
                        std::pow((1 - e * std::sin(phi)) / (1 + e * std::sin(phi)), e / 2));
    }

    double M() const { return std::sqrt(1 - e2 * std::pow(std::sin(phits * kRad), 2)) / std::cos(phits * kRad); }
};

} // namespace plain
