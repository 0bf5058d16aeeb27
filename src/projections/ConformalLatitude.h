#pragma once

#include "projections/EvenSines.h"

/// The geodetic latitude of a conformal latitude by the closed series of Snyder, Map Projections:
/// A Working Manual (1987), eq. 3-5, in the squared eccentricity up to its fourth power.
///
/// Radians. Error: below 2e-10 degrees (0.02 mm) on the ellipsoids of the earth.
class ConformalLatitudeSeries {
public:
    /// Divisors of the last term of the coefficient of sin 4chi.
    static constexpr double kDivisor = 11520.0;      ///< Snyder's
    static constexpr double kPolarDivisor = 11500.0; ///< that of the polar grids

    ConformalLatitudeSeries() = default;
    ConformalLatitudeSeries(double e2, double divisor);

    /// chi + A sin 2chi + B sin 4chi + C sin 6chi + D sin 8chi
    double Geodetic(double chi) const;
    /// The same for a caller who has sine and cosine of chi.
    double Geodetic(double chi, double s, double c) const { return chi + m_sines(s, c); }

private:
    EvenSines m_sines;
};
