#pragma once

#include <cmath>
#include <numbers>

/// The polar stereographic of Snyder's chapter 21 step by step, nothing joined, nothing rearranged, in
/// extended precision so that its own rounding does not count. Shares no code with the production
/// class. Degrees, and one linear unit throughout.
namespace plain {

class PolarStereographic {
public:
    using Real = long double;

    Real a = 0, e2 = 0, falseEasting = 0, falseNorthing = 0, k0 = 1;
    bool north = true;
    /// Of the coefficient of sin 4 chi; Snyder has 11520.
    Real divisor = 11500;

    struct Grid {
        Real easting = 0, northing = 0;
    };
    struct Geo {
        Real latitude = 0, longitude = 0;
    };

    /// Forms the constants; call it when the fields are set.
    void Prepare()
    {
        e = std::sqrt(e2);
        C = std::pow((1 - e) / (1 + e), e / 2) * (2 * a / std::sqrt(1 - e2));
        const Real e4 = e2 * e2;
        const Real e6 = e4 * e2;
        const Real e8 = e6 * e2;
        A2 = e2 / 2 + 5 * e4 / 24 + e6 / 12 + 13 * e8 / 360;
        A4 = 7 * e4 / 48 + 29 * e6 / 240 + 811 * e8 / divisor;
        A6 = 7 * e6 / 120 + 81 * e8 / 1120;
        A8 = 4279 * e8 / 161280;
    }

    Grid GeoToGrid(double lat, double lon) const
    {
        Real phi = lat * kRad;
        if (!north) {
            phi = -phi;
        }
        const Real lam = lon * kRad;
        const Real s = std::sin(phi);
        const Real rho = C * k0 * std::pow((1 + e * s) / (1 - e * s), e / 2) * std::tan(kPi / 4 - phi / 2);
        return {rho * std::sin(lam) + falseEasting,
                north ? falseNorthing - rho * std::cos(lam) : falseNorthing + rho * std::cos(lam)};
    }

    Geo GridToGeo(double E, double N) const
    {
        const Polar at = AboutPole(E, N);
        const Real phi = Latitude(at.rho);
        return {(north ? phi : -phi) / kRad, at.lam / kRad};
    }

    Real PointScale(double E, double N) const
    {
        const Polar at = AboutPole(E, N);
        const Real phi = Latitude(at.rho);
        return at.rho / ((a / std::sqrt(1 - e2 * std::sin(phi) * std::sin(phi))) * std::cos(phi));
    }

private:
    static constexpr Real kPi = std::numbers::pi_v<Real>;
    static constexpr Real kRad = static_cast<Real>(std::numbers::pi / 180.0); // as the production code has it

    struct Polar {
        Real lam = 0, rho = 0;
    };

    Polar AboutPole(double E, double N) const
    {
        const Real dN = N - falseNorthing;
        const Real dE = E - falseEasting;
        Polar at;
        if (dN != 0) {
            at.lam = north ? std::atan2(dE, -dN) : std::atan2(dE, dN);
        }
        if (dE != 0) {
            at.rho = std::fabs(dE / std::sin(at.lam));
        } else if (dN != 0) {
            at.rho = std::fabs(dN);
        }
        return at;
    }

    Real Latitude(Real rho) const
    {
        const Real chi = kPi / 2 - 2 * std::atan(rho / (C * k0));
        return chi + A2 * std::sin(2 * chi) + A4 * std::sin(4 * chi) + A6 * std::sin(6 * chi) + A8 * std::sin(8 * chi);
    }

    Real e = 0, C = 0, A2 = 0, A4 = 0, A6 = 0, A8 = 0;
};

} // namespace plain
