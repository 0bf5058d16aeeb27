#include "projections/GeodesicLineScale.h"

#include <cmath>

#include "projections/CProjection.h"

namespace {

constexpr double kPi = D_TO_R * 180.0;

// Half the length of the line that measures the scale of a point, in system units.
constexpr double kHalfLine = 500.0;

// The polynomial in the arc sigma that turns it into a length, nu1 aside; g2, h2 squares of Robbins'
// g and h.
double LengthOfArc(double sigma, double g2, double h2)
{
    // Kept: roots, so positive, on both hemispheres and in all directions; 3e-9 at 100 km.
    const double gh = std::sqrt(g2) * std::sqrt(h2);
    const double p2 = -h2 * (1.0 - h2) / 6.0;
    const double p3 = gh * (1.0 - 2.0 * h2) / 8.0;
    const double p4 = (h2 * (4.0 - 7.0 * h2) - 3.0 * g2 * (1.0 - 7.0 * h2)) / 120.0;
    const double p5 = -gh / 48.0;
    return sigma * (1.0 + sigma * sigma * (p2 + sigma * (p3 + sigma * (p4 + sigma * p5))));
}

// Length of the geodesic, latitudes and the difference of longitude `dl` in radians. ep2 second
// eccentricity squared; nu1, nu2 radii of curvature in the prime vertical; psi2 latitude of the second
// point as seen on the normal of the first; alpha azimuth of the normal section; sigma its arc.
double RobbinsLength(double phi1, double phi2, double dl, double a, double e2)
{
    const double ep2 = 1.0 / (1.0 - e2) - 1.0;
    const double s1 = std::sin(phi1);
    const double c1 = std::cos(phi1);
    const double s2 = std::sin(phi2);
    const double nu1 = a / std::sqrt(1.0 - e2 * s1 * s1);
    const double nu2 = a / std::sqrt(1.0 - e2 * s2 * s2);
    const double tanPsi2 = e2 * nu1 * s1 / (nu2 * std::cos(phi2)) + (1.0 - e2) * std::tan(phi2);
    const double psi2 = std::atan(tanPsi2);

    const double sinDl = std::sin(dl);
    double alpha = 0.0;
    if (!(std::fabs(sinDl) < Epsilon(1.0))) {
        alpha = std::atan(1.0 / ((c1 * tanPsi2 - s1 * std::cos(dl)) / sinDl));
    }
    if (alpha < 0.0) {
        alpha += kPi;
    }
    if (dl < 0.0) {
        alpha += kPi;
    }
    const double cosAlpha = std::cos(alpha);
    const double sigma = std::asin(std::cos(psi2) * sinDl / std::sin(alpha));
    return nu1 * LengthOfArc(sigma, ep2 * s1 * s1, ep2 * c1 * c1 * cosAlpha * cosAlpha);
}

} // namespace

namespace GeodesicLineScale {

double OfLine(const End& from, const End& to, const Spheroid& spheroid)
{
    const double phi1 = from.latitude * D_TO_R;
    const double phi2 = to.latitude * D_TO_R;
    const double lambda1 = from.longitude * D_TO_R;
    const double lambda2 = to.longitude * D_TO_R;
    double azimuth = 0.0;
    double distance = 0.0;
    XYToPolar(to.easting - from.easting, to.northing - from.northing, azimuth, distance);
    const double length = lambda1 == lambda2 ? (spheroid.arc.Length(phi2) - spheroid.arc.Length(phi1)) * spheroid.a
                                             : RobbinsLength(phi1, phi2, lambda2 - lambda1, spheroid.a, spheroid.e2);
    return distance / std::fabs(length);
}

double OfPoint(const CProjection& projection, double easting, double northing)
{
    return projection.LineScaleFactor(easting - kHalfLine, northing, easting + kHalfLine, northing);
}

} // namespace GeodesicLineScale
