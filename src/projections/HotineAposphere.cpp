#include "projections/HotineAposphere.h"

#include <cmath>

#include "frame/BaseContract.h"
#include "projections/IsometricLatitude.h"

namespace {

constexpr double kQuarterPi = 0.25 * std::numbers::pi;
constexpr double kHalfPi = 0.5 * std::numbers::pi;

const double kLnShortBase = std::log(HotineAposphere::kShortBase);
const double kLnLongBase = std::log(HotineAposphere::kLongBase);

// t of the source, eq. 9-13: the tangent of half the conformal colatitude.
double T(double phi, double e2)
{
    const double e = std::sqrt(e2);
    const double s = std::sin(phi);
    return std::tan(kQuarterPi - phi / 2.0) / std::pow((1.0 - e * s) / (1.0 + e * s), e / 2.0);
}

} // namespace

HotineCentre::HotineCentre(double axis, double eccSquared, double k0, double latitude) : a(axis), e2(eccSquared)
{
    const double phi = latitude * D_TO_R;
    const double s = std::sin(phi);
    const double c = std::cos(phi);
    const double w = 1.0 - e2 * s * s;
    B = std::sqrt(1.0 + c * c * c * c * e2 / (1.0 - e2));
    A = a * B * k0 * std::sqrt(1.0 - e2) / w;
    t0 = T(phi, e2);
    D = std::sqrt(1.0 - e2) * B / (std::sqrt(w) * c);
    hemisphere = latitude < 0.0 ? -1.0 : 1.0;
}

double HotineCentre::F(double d) const
{
    return std::sqrt(d * d - 1.0) * hemisphere + d;
}

HotineAposphere::HotineAposphere(const HotineCentre& centre, double F, double gamma0, double lambda0)
    : m_a(centre.a), m_e2(centre.e2), m_A(centre.A), m_B(centre.B), m_Ec(std::pow(centre.t0, centre.B) * F),
      m_lambda0(lambda0), m_sinGamma0(std::sin(gamma0)), m_cosGamma0(std::cos(gamma0)), m_lnEc(std::log(m_Ec)),
      m_AperB(m_A / m_B), m_BperA(m_B / m_A), m_inverseB(1.0 / m_B), m_latitude(m_e2, ConformalLatitudeSeries::kDivisor)
{
}

// Ec / t^B. With r = tan(pi/4 - phi/2) the sine of the latitude is (1 - r^2) / (1 + r^2), and the
// two powers join in one exponential; a pole, and what lies beyond, takes the road as written.
double HotineAposphere::QOf(double phi) const
{
    const double r = std::tan(kQuarterPi - phi / 2.0);
    if (!(r > 0.0)) {
        return m_Ec / std::pow(T(phi, m_e2), m_B);
    }
    const double s = (1.0 - r * r) / (1.0 + r * r);
    return std::exp(m_lnEc - m_B * (std::log(r) + IsometricLatitude::EllipsoidPart(m_e2, s)));
}

// The longitude on the aposphere, in radians from the natural origin.
double HotineAposphere::Arc(double longitude) const
{
    return (longitude * D_TO_R - m_lambda0) * m_B;
}

HotineAposphere::Rectified HotineAposphere::FromGeographic(double latitude, double longitude) const
{
    const double Q = QOf(latitude * D_TO_R);
    const double inverse = 1.0 / Q;
    const double S = (Q - inverse) / 2.0;
    const double T = (Q + inverse) / 2.0;
    const double w = Arc(longitude);
    const double V = std::sin(w);
    const double U = (S * m_sinGamma0 - V * m_cosGamma0) / T;
    return {std::atan((S * m_cosGamma0 + V * m_sinGamma0) / std::cos(w)) * m_AperB,
            std::log((1.0 - U) / (1.0 + U)) * m_AperB / 2.0};
}

HotineAposphere::Direction HotineAposphere::ToDirection(const Rectified& at, double base) const
{
    const double lnBase = base == kShortBase ? kLnShortBase : kLnLongBase;
    const double Q = std::exp(-(at.v * m_BperA) * lnBase);
    const double inverse = 1.0 / Q;
    const double S = (Q - inverse) / 2.0;
    const double T = (inverse + Q) / 2.0;
    const double x = at.u * m_BperA;
    const double V = std::sin(x);
    return {S, V, (V * m_cosGamma0 + S * m_sinGamma0) / T, std::cos(x)};
}

// p the reciprocal of the tangent of half the conformal colatitude.
HotineAposphere::Geographic HotineAposphere::ToGeographic(const Direction& at) const
{
    const double p = std::exp((std::log((at.U + 1.0) / (1.0 - at.U)) / 2.0 - m_lnEc) * m_inverseB);
    const double inverse = 1.0 / p;
    const double chi = kHalfPi - 2.0 * std::atan(inverse);
    const double phi = m_latitude.Geodetic(chi, 1.0 - 2.0 / (p * p + 1.0), 2.0 / (p + inverse));
    const double lambda = m_lambda0 - std::atan((at.S * m_cosGamma0 - at.V * m_sinGamma0) / at.cosU) * m_inverseB;
    return {phi / D_TO_R, lambda / D_TO_R};
}

double HotineAposphere::Convergence(const Rectified& at, double longitude) const
{
    const double U = ToDirection(at, kShortBase).U;
    // Kept: the power binds before the division, where the source has the power of the quotient.
    const double t = m_Ec / std::pow(std::sqrt((U + 1.0) / (1.0 - U)), m_inverseB);
    const double w = Arc(longitude);
    // Kept: ln Ec with a plus, where the logarithm of t^B / Ec has a minus; survey logs hold these
    // angles.
    const double L = m_lnEc + std::log(t) * m_B;
    return std::atan((m_sinGamma0 - std::sinh(L) * m_cosGamma0 * std::sin(w)) /
                     (std::cosh(L) * m_cosGamma0 * std::cos(w)));
}

double HotineAposphere::PointScale(const Rectified& at, const Geographic& geo) const
{
    const double phi = geo.latitude * D_TO_R;
    const double s = std::sin(phi);
    return std::sqrt(1.0 - m_e2 * s * s) * std::cos(at.u * m_BperA) * m_A /
           (std::cos(Arc(geo.longitude)) * std::cos(phi) * m_a);
}
