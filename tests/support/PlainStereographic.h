#pragma once

#include <cmath>
#include <numbers>

/// The oblique stereographic of guidance note 7-2 step by step: the published order of steps, nothing
/// joined, nothing rearranged, library functions everywhere, in extended precision so that its own
/// rounding does not count. Shares no code with the production classes. Degrees, and one linear unit
/// throughout.
namespace plain {

class Stereographic {
public:
    using Real = long double;

    Real a = 0, e2 = 0, lat0 = 0, lon0 = 0, falseEasting = 0, falseNorthing = 0, k0 = 1;
    /// Whether the inverse has tan(j) / 2, as the production code, or tan(j / 2), as the note.
    bool halfTangent = true;
    int maxPasses = 10;

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
        const Real phi0 = lat0 * kRad;
        const Real s0 = std::sin(phi0);
        rho0 = (1 - e2) * a / std::pow(1 - e2 * s0 * s0, Real(1.5));
        nu0 = a / std::sqrt(1 - e2 * s0 * s0);
        R = std::sqrt(rho0 * nu0);
        n = std::sqrt(1 + e2 * std::pow(std::cos(phi0), Real(4)) / (1 - e2));
        const Real w1 = W(s0);
        const Real sinChi00 = (w1 - 1) / (w1 + 1);
        c = (n + s0) * (1 - sinChi00) / ((n - s0) * (1 + sinChi00));
        chi0 = std::asin((c * w1 - 1) / (c * w1 + 1));
        Lambda0 = lon0 * kRad;
        g = 2 * R * k0 * std::tan(kPi / 4 - chi0 / 2);
        h = 4 * R * k0 * std::tan(chi0) + g;
    }

    Grid GeoToGrid(double lat, double lon) const
    {
        const Real phi = Fold(lat) * kRad;
        const Real lam = Fold(lon) * kRad;
        const Real Lambda = (lam - Lambda0) * n + Lambda0;
        const Real dL = Lambda - Lambda0;
        const Real w = c * W(std::sin(phi));
        const Real sinChi = (w - 1) / (w + 1);
        const Real cosChi = std::cos(std::asin(sinChi));
        const Real B = std::cos(dL) * (std::cos(chi0) * cosChi) + (std::sin(chi0) * sinChi + 1);
        return {std::sin(dL) * 2 * R * k0 * cosChi / B + falseEasting,
                (std::cos(chi0) * sinChi - std::cos(dL) * std::sin(chi0) * cosChi) * 2 * R * k0 / B + falseNorthing};
    }

    Geo GridToGeo(double E, double N) const
    {
        const Real x = E - falseEasting;
        const Real y = N - falseNorthing;
        const Real i = std::atan(x / (y + h));
        const Real j = std::atan(x / (g - y)) - i;
        const Real shift = halfTangent ? std::tan(j) * x / 2 : x * std::tan(j / 2);
        const Real chi = 2 * std::atan((y - shift) / (2 * R * k0)) + chi0;
        const Real lam = (2 * i + j + Lambda0 - Lambda0) / n + Lambda0;
        const Real psi = (std::log((1 + std::sin(chi)) / ((1 - std::sin(chi)) * c)) / 2) / n;
        Real phi = 2 * std::atan(std::exp(psi)) - kPi / 2;
        passes = 0;
        Real d = 0;
        do {
            const Real s = std::sin(phi);
            const Real psiI = std::log(std::tan(phi / 2 + kPi / 4) * std::pow((1 - e * s) / (1 + e * s), e / 2));
            d = (psiI - psi) * std::cos(phi) * (1 - e2 * s * s) / (1 - e2);
            phi = phi - d;
            ++passes;
        } while (std::fabs(d) > Real(1e-11) && passes < maxPasses);
        return {Fold(static_cast<double>(phi / kRad)), Fold(static_cast<double>(lam / kRad))};
    }

    Real Radius() const { return R; }
    Real OriginOnSphere() const { return chi0; }
    /// Of the last inverse.
    int Passes() const { return passes; }

private:
    static constexpr Real kPi = std::numbers::pi_v<Real>;
    static constexpr Real kRad = static_cast<Real>(std::numbers::pi / 180.0); // as the production code has it

    /// Into (-180, 180], what lies in [-180, 180] unchanged.
    static Real Fold(double degrees)
    {
        if (degrees >= -180.0 && degrees <= 180.0) {
            return degrees;
        }
        const double folded = std::remainder(degrees, 360.0);
        return folded == -180.0 ? 180.0 : folded;
    }

    Real W(Real s) const { return std::pow(std::pow((1 - e * s) / (1 + e * s), e) * ((1 + s) / (1 - s)), n); }

    Real e = 0, rho0 = 0, nu0 = 0, R = 0, n = 0, c = 0, chi0 = 0, Lambda0 = 0, g = 0, h = 0;
    mutable int passes = 0;
};

} // namespace plain
