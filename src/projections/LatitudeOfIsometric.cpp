#include "projections/LatitudeOfIsometric.h"

#include <cmath>

#include "projections/IsometricLatitude.h"
#include "projections/SmallArgument.h"

// The fixed point of
//   phi = 2 (atan(exp(t + e atanh(e sin phi))) - pi/4)
// from the sphere's latitude chi. A pass costs no library function. With s0 = sin chi = tanh t,
// c0 = cos chi = 1 / cosh t and h = tanh(e atanh(e sin phi) / 2), the addition theorems give for
// T = tan((phi - chi) / 2)
//   T = c0 h / (1 + s0 h),  sin phi = (s0 (1 + h^2) + 2 h) / (1 + h^2 + 2 s0 h),
// and the correction of the pass from T to U is 2 atan((U - T) / (1 + T U)).
double LatitudeOfIsometric(double t, double e2, double settled, int maxPasses)
{
    constexpr double kQuarterPi = 0.7853981633974483;
    const double p = std::exp(t);
    const double s0 = 1.0 - 2.0 / (p * p + 1.0);
    const double c0 = 2.0 / (p + 1.0 / p);
    const double settledTangent = settled / 2.0; // an angle so small is its tangent
    double s = s0;
    double T = 0.0;
    bool moves = true;
    for (int passes = 0; moves && passes < maxPasses; ++passes) {
        const double h = SmallArgument::Tanh(IsometricLatitude::EllipsoidPart(e2, s) / 2.0);
        const double U = c0 * h / (1.0 + s0 * h);
        s = (s0 * (1.0 + h * h) + 2.0 * h) / (1.0 + h * h + 2.0 * s0 * h);
        moves = std::fabs(U - T) > settledTangent * (1.0 + T * U);
        T = U;
    }
    const double u = std::atan(p);
    return (u - kQuarterPi) + (u - kQuarterPi) + 2.0 * SmallArgument::Atan(T);
}
