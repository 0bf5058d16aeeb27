#include "projections/LambertCone.h"

#include <cmath>

#include "frame/BaseContract.h"
#include "projections/IsometricLatitude.h"
#include "projections/SmallArgument.h"

LambertCone::Parallel::Parallel(double latitude, double e2)
    : sine(std::sin(latitude * D_TO_R)), cosine(std::cos(latitude * D_TO_R)), W(std::sqrt(1.0 - e2 * sine * sine)),
      L(IsometricLatitude::OfSine(e2, sine))
{
}

double LambertCone::TrueRadius(const Parallel& parallel, double a) const
{
    return parallel.cosine * a * std::exp(parallel.L * m_n) / (parallel.W * m_n);
}

void LambertCone::SetRadii(double K, const Parallel& central, double e2)
{
    m_K = K;
    m_RF = m_K / std::exp(Parallel(m_latOrigin, e2).L * m_n);
    m_R0 = m_K / std::exp(central.L * m_n);
    m_N0 = m_RF + m_falseNorthing - m_R0;
}

double LambertCone::CentralScale(const Parallel& central, double a) const
{
    return central.W * (central.sine / central.cosine) * m_R0 / a;
}

// L isometric latitude; R radius of the parallel on the grid; theta angle at the apex, radians.
void LambertCone::Forward(double e2, double latitude, double longitude, double& easting, double& northing) const
{
    const double L = IsometricLatitude::OfSine(e2, std::sin(latitude * D_TO_R));
    const double R = m_K / std::exp(L * m_n);
    const double theta = modgeo(longitude - m_lonOrigin) * D_TO_R * m_n;
    northing = m_RF + m_falseNorthing - std::cos(theta) * R;
    easting = std::sin(theta) * R + m_falseEasting;
}

// x, y place from the apex, y southward; rho its distance; theta and L as in Forward; s0 sine of the
// latitude on the sphere, s1 and s2 what the two passes make of it. The slope of the isometric
// latitude in the sine, 1/(1 - s^2) - e2/(1 - e2 s^2), is (1 - e2) / ((1 - s^2) (1 - e2 s^2)).
// The error of a pass is formed from the hyperbolic tangents, whose difference is known, in place
// of the logarithms: s0 is tanh L, so that atanh s1 - L is atanh((s1 - s0) / (1 - s0 s1)).
void LambertCone::Inverse(double e2, double easting, double northing, double& latitude, double& longitude) const
{
    const double x = easting - m_falseEasting;
    const double y = SouthOfApex(northing);
    // Kept: the angle lies within 90 degrees of the central meridian, and is 90 on either side of
    // the apex; positions beyond were never charted in these systems.
    const double theta = y == 0.0 ? 90.0 * D_TO_R : std::atan(x / y);
    const double rho = std::sqrt(x * x + y * y);
    const double L = std::log(m_K / rho) / m_n;

    // Kept: two passes, whatever is left; positions agree with those computed before.
    const double s0 = 1.0 - 2.0 / (std::exp(2.0 * L) + 1.0);
    const double error0 = -IsometricLatitude::EllipsoidPart(e2, s0);
    const double s1 = s0 - error0 * (1.0 - s0 * s0) * (1.0 - e2 * s0 * s0) / (1.0 - e2);
    const double error1 = SmallArgument::Atanh((s1 - s0) / (1.0 - s0 * s1)) - IsometricLatitude::EllipsoidPart(e2, s1);
    const double s2 = s1 - error1 * (1.0 - s1 * s1) * (1.0 - e2 * s1 * s1) / (1.0 - e2);

    latitude = modgeo(std::asin(s2) / D_TO_R);
    longitude = modgeo(theta / (m_n * D_TO_R) + m_lonOrigin);
}

double LambertCone::Convergence(double easting, double northing) const
{
    // Kept: 90 degrees level with the apex, by the infinite quotient, and NaN at it.
    return std::atan((m_falseEasting - easting) / SouthOfApex(northing)) / D_TO_R;
}

double LambertCone::PointScale(double e2, double a, double easting, double northing) const
{
    double latitude = 0.0;
    double longitude = 0.0;
    Inverse(e2, easting, northing, latitude, longitude);
    const double x = easting - m_falseEasting;
    const double y = SouthOfApex(northing);
    const double s = std::sin(latitude * D_TO_R);
    return std::sqrt(x * x + y * y) * std::sqrt(1.0 - e2 * s * s) * m_n / (std::cos(latitude * D_TO_R) * a);
}
