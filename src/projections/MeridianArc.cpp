#include "projections/MeridianArc.h"

#include <cmath>

ShortMeridianArc::ShortMeridianArc(double e2)
{
    const double e4 = e2 * e2;
    const double e6 = e4 * e2;
    m_c0 = 1.0 - e2 / 4.0 - 3.0 * e4 / 64.0 - 5.0 * e6 / 256.0;
    m_c2 = -(3.0 * e2 / 8.0 + 3.0 * e4 / 32.0 + 45.0 * e6 / 1024.0);
    m_c4 = 15.0 * e4 / 256.0 + 45.0 * e6 / 1024.0;
    m_c6 = -35.0 * e6 / 3072.0;
    m_sines = EvenSines(m_c2, m_c4, m_c6, 0.0);
}

double ShortMeridianArc::Length(double phi) const
{
    return Length(phi, std::sin(phi), std::cos(phi));
}

double ShortMeridianArc::Slope(double phi) const
{
    return Slope(std::sin(phi), std::cos(phi));
}

// y cosine of 2phi.
double ShortMeridianArc::Slope(double s, double c) const
{
    const double y = c * c - s * s;
    const double cos4 = 2.0 * y * y - 1.0;
    const double cos6 = (2.0 * cos4 - 1.0) * y;
    return m_c0 + 2.0 * m_c2 * y + 4.0 * m_c4 * cos4 + 6.0 * m_c6 * cos6;
}
