#pragma once

#include <limits>

#include "projections/ConformalLatitude.h"

/// The constants of a projection centre that both oblique Mercator classes begin with.
struct HotineCentre {
    /// `a` a_u, `latitude` in degrees.
    HotineCentre(double a, double e2, double k0, double latitude);

    double a, e2;
    double A, B;       ///< scale and ratio of the aposphere
    double D;          ///< as the arithmetic has it: below 1 by rounding near the equator
    double t0;         ///< t of the centre
    double hemisphere; ///< -1 in the south, else 1

    /// sqrt(D^2 - 1), with the sign of the hemisphere, plus D
    double F(double d) const;
};

/// The aposphere that touches the ellipsoid at a projection centre, and the rectified coordinates
/// u, v on its Mercator map, counted from the natural origin: u along the initial line, v across.
/// What the two oblique Mercator classes share.
///
/// Hotine, The orthomorphic projection of the spheroid, Empire Survey Review 62-66 (1946-47), with
/// the letters of Snyder, Map Projections: A Working Manual (1987), pp. 66-75; the latitude is
/// the closed series of the conformal latitude, his eq. 3-5.
///
/// Units: u, v in the system's linear unit; latitudes and longitudes in degrees, unfolded.
/// Error: forward that of the arithmetic; inverse 0.02 mm by the series, and what the base leaves.
/// Until it is given a centre every result is NaN.
class HotineAposphere {
public:
    struct Rectified {
        double u = 0.0, v = 0.0;
    };
    struct Geographic {
        double latitude = 0.0, longitude = 0.0;
    };
    /// A position by the primed quantities of the source.
    struct Direction {
        double S, V, U; ///< S', V', U'
        double cosU;    ///< the cosine of B u / A
    };

    /// The base of the power in the inverse.
    // Kept: e in short values; grids have been computed with them. The first shortens v by 1.7e-10
    // of itself: 0.1 mm at 600 km from the initial line.
    static constexpr double kShortBase = 2.718281828;
    static constexpr double kLongBase = 2.718281828459;

    HotineAposphere() = default;
    /// `gamma0` azimuth of the initial line at the natural origin, `lambda0` its longitude: radians.
    HotineAposphere(const HotineCentre& centre, double F, double gamma0, double lambda0);

    /// Latitudes beyond 90 degrees, and the north pole, give NaN.
    Rectified FromGeographic(double latitude, double longitude) const;
    Direction ToDirection(const Rectified& at, double base) const;
    Geographic ToGeographic(const Direction& at) const;

    /// The angle, in radians, from the meridian to the v axis at a position given in both forms.
    double Convergence(const Rectified& at, double longitude) const;
    /// The scale factor at a position given in both forms. On the meridian of a centre whose
    /// azimuth is 90 it is 0 / 0, and what the last bits make of it.
    double PointScale(const Rectified& at, const Geographic& geo) const;

private:
    double QOf(double phi) const;
    double Arc(double longitude) const;

    static constexpr double kUnset = std::numeric_limits<double>::quiet_NaN();

    double m_a = kUnset, m_e2 = kUnset, m_A = kUnset, m_B = kUnset, m_Ec = kUnset, m_lambda0 = kUnset;
    double m_sinGamma0 = kUnset, m_cosGamma0 = kUnset;
    // Formed once for the speed of a position.
    double m_lnEc = kUnset, m_AperB = kUnset, m_BperA = kUnset, m_inverseB = kUnset;
    ConformalLatitudeSeries m_latitude;
};
