#pragma once

#include <cmath>

/// Functions of which the projections ask small arguments alone: those that come of the
/// ellipsoid's eccentricity. The power series (Abramowitz and Stegun, Handbook of Mathematical
/// Functions (1964), 4.6.33, 4.4.42, 4.5.64, 4.3.67) take a third of the time of the library's functions;
/// these answer beyond the bounds, and for NaN.
///
/// Error: below 4.5e-16 of the result.
namespace SmallArgument {

/// Above e, of the earth's ellipsoids 0.083 at most.
constexpr double kBoundOfAtanh = 0.09;
/// Above half of e atanh(e), of the earth's ellipsoids 0.0034 at most.
constexpr double kBound = 0.005;

/// atanh(x) / x for x^2 = `q` up to the square of kBoundOfAtanh. Summed in pairs, so that the
/// products need not wait for one another.
inline double AtanhSeries(double q)
{
    const double q2 = q * q;
    const double low = (1.0 + q * (1.0 / 3.0)) + q2 * (1.0 / 5.0 + q * (1.0 / 7.0));
    const double high = (1.0 / 9.0 + q * (1.0 / 11.0)) + q2 * (1.0 / 13.0 + q * (1.0 / 15.0));
    return low + q2 * q2 * high;
}

inline double Atanh(double x)
{
    return std::fabs(x) <= kBoundOfAtanh ? x * AtanhSeries(x * x) : std::atanh(x);
}

inline double Atan(double x)
{
    const double q = x * x;
    return std::fabs(x) <= kBound ? x - x * q * (1.0 / 3.0 - q * (1.0 / 5.0 - q * (1.0 / 7.0))) : std::atan(x);
}

inline double Tanh(double x)
{
    const double q = x * x;
    return std::fabs(x) <= kBound ? x - x * q * (1.0 / 3.0 - q * (2.0 / 15.0 - q * (17.0 / 315.0))) : std::tanh(x);
}

inline double Tan(double x)
{
    const double q = x * x;
    return std::fabs(x) <= kBound ? x + x * q * (1.0 / 3.0 + q * (2.0 / 15.0 + q * (17.0 / 315.0))) : std::tan(x);
}

} // namespace SmallArgument
