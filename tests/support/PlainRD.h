#pragma once

#include <cmath>
#include <numbers>

/// The Dutch double projection by distance and azimuth, step by step: nothing joined, nothing
/// rearranged, in extended precision so that its own rounding does not count. Shares no code with the
/// production class. Degrees, and one linear unit throughout.
namespace plain {

class RD {
public:
    using Real = long double;

    Real a = 0, e2 = 0, lat0 = 52.156160556, lon0 = 5.387638889, falseEasting = 155000, falseNorthing = 463000,
         k0 = 0.9999079;

    int maxPasses = 20;

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
        const Real w = 1 - e2 * s0 * s0;
        const Real nu = a / std::sqrt(w);
        const Real rho = (1 - e2) * nu / w;
        b0 = std::atan(std::tan(phi0) * std::sqrt(rho) / std::sqrt(nu));
        Lambda0 = lon0 * kRad;
        n = std::sqrt(1 + e2 * std::pow(std::cos(phi0), Real(4)) / (1 - e2));
        m = std::log(std::tan((90 * kRad + b0) / 2)) -
            (std::log(std::tan((lat0 + 90) * kRad / 2)) - std::log((1 + e * s0) / (1 - e * s0)) * e / 2) * n;
        R = std::sqrt(rho * nu);
    }

    Grid GeoToGrid(double lat, double lon) const
    {
        const Real s = std::sin(lat * kRad);
        const Real q = std::log(std::tan((lat + 90) * kRad / 2)) - std::log((1 + e * s) / (1 - e * s)) * e / 2;
        const Real b = 2 * std::atan(std::exp(q * n + m)) - 90 * kRad;
        const Real Lam = (lon - lon0) * n * kRad + Lambda0;
        const Real dL = Lam - Lambda0;
        const Real sh2 = std::pow(std::sin(dL / 2), Real(2)) * std::cos(b) * std::cos(b0) +
                         std::pow(std::sin((b - b0) / 2), Real(2));
        const Real sh = std::sqrt(sh2);
        const Real ch = std::sqrt(1 - sh * sh);
        const Real sa = std::sin(dL) * std::cos(b) / (2 * sh * ch);
        const Real ca = (2 * std::sin(b0) * sh * sh + std::sin(b) - std::sin(b0)) / (2 * std::cos(b0) * sh * ch);
        const Real r = 2 * k0 * R * sh / ch;
        return {r * sa + falseEasting, r * ca + falseNorthing};
    }

    Geo GridToGeo(double E, double N) const
    {
        const Real dE = E - falseEasting;
        const Real dN = N - falseNorthing;
        const Real r = std::sqrt(dE * dE + dN * dN);
        const Real sa = dE / r;
        const Real ca = dN / r;
        const Real psi = 2 * std::atan(r / (2 * k0 * R));
        const Real b = std::asin(std::cos(b0) * ca * std::sin(psi) + std::sin(b0) * std::cos(psi));
        const Real Lam = E == falseEasting ? Lambda0 : std::asin(std::sin(psi) * sa / std::cos(b)) + Lambda0;
        const Real v = (std::log(std::tan((90 * kRad + b) / 2)) - m) / n;
        Real phi = 0;
        Real next = 0;
        for (passes = 1; passes <= maxPasses; ++passes) {
            const Real s = std::sin(phi);
            next = Lam > -90 * kRad && Lam < 90 * kRad
                       ? 2 * std::atan(std::exp(std::log((1 + e * s) / (1 - e * s)) * e / 2 + v)) - 90 * kRad
                       : Lam;
            if (std::fabs(next - phi) < Real(2e-12)) {
                break;
            }
            phi = next;
        }
        return {next / kRad, (Lam - Lambda0) / n / kRad + lon0};
    }

    /// Of the last inverse; one more than the most when it did not settle.
    int Passes() const { return passes; }

private:
    static constexpr Real kRad = static_cast<Real>(std::numbers::pi / 180.0); // as the production code has it

    Real e = 0, b0 = 0, Lambda0 = 0, n = 0, m = 0, R = 0;
    mutable int passes = 0;
};

} // namespace plain
