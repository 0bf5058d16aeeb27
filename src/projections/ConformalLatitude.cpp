#include "projections/ConformalLatitude.h"

#include <cmath>

ConformalLatitudeSeries::ConformalLatitudeSeries(double e2, double divisor)
{
    const double e4 = e2 * e2;
    const double e6 = e4 * e2;
    const double e8 = e4 * e4;
    const double A = e2 / 2.0 + 5.0 * e4 / 24.0 + e6 / 12.0 + 13.0 * e8 / 360.0;
    const double B = 7.0 * e4 / 48.0 + 29.0 * e6 / 240.0 + 811.0 * e8 / divisor;
    const double C = 7.0 * e6 / 120.0 + 81.0 * e8 / 1120.0;
    const double D = 4279.0 * e8 / 161280.0;
    m_sines = EvenSines(A, B, C, D);
}

double ConformalLatitudeSeries::Geodetic(double chi) const
{
    return Geodetic(chi, std::sin(chi), std::cos(chi));
}
