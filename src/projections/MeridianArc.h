#pragma once

#include "projections/EvenSines.h"

/// The meridian distance in the short form of Snyder, Map Projections: A Working Manual (1987),
/// eq. 3-21: the series in the squared eccentricity, cut after its cube.
///
/// On an ellipsoid of semi-major axis 1; multiply by a_u. Latitudes are radians.
/// Error: below 0.8 mm on the ellipsoids of the earth.
class ShortMeridianArc {
public:
    ShortMeridianArc() = default;
    explicit ShortMeridianArc(double e2);

    /// c0 phi + c2 sin 2phi + c4 sin 4phi + c6 sin 6phi
    double Length(double phi) const;
    /// The same for a caller who has sine and cosine of phi.
    double Length(double phi, double s, double c) const { return m_c0 * phi + m_sines(s, c); }
    /// The derivative of the length.
    double Slope(double phi) const;
    /// The same from sine and cosine of phi.
    double Slope(double s, double c) const;
    double C0() const { return m_c0; }

private:
    double m_c0 = 0.0, m_c2 = 0.0, m_c4 = 0.0, m_c6 = 0.0;
    EvenSines m_sines;
};
