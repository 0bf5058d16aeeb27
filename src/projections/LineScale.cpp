#include "projections/LineScale.h"

#include <cmath>

#include "projections/CProjection.h"

namespace {

/// A rule over the point scale factors of a line.
template <class Rule>
double OverLine(Rule rule, const CProjection& projection, double easting1, double northing1, double easting2,
                double northing2)
{
    const double k1 = projection.PointScaleFactor(easting1, northing1);
    const double km = projection.PointScaleFactor((easting1 + easting2) / 2.0, (northing1 + northing2) / 2.0);
    const double k2 = projection.PointScaleFactor(easting2, northing2);
    return rule(k1, km, k2);
}

} // namespace

namespace LineScale {

double HarmonicSimpson(double k1, double km, double k2)
{
    return 1.0 / ((1.0 / k2 + 4.0 / km + 1.0 / k1) / 6.0);
}

double ArithmeticSimpson(double k1, double km, double k2)
{
    return (k2 + 4.0 * km + k1) / 6.0;
}

double HarmonicSimpson(const CProjection& projection, double easting1, double northing1, double easting2,
                       double northing2)
{
    return OverLine([](double k1, double km, double k2) { return HarmonicSimpson(k1, km, k2); }, projection, easting1,
                    northing1, easting2, northing2);
}

double ArithmeticSimpson(const CProjection& projection, double easting1, double northing1, double easting2,
                         double northing2)
{
    return OverLine([](double k1, double km, double k2) { return ArithmeticSimpson(k1, km, k2); }, projection, easting1,
                    northing1, easting2, northing2);
}

double SquaredMeanRadius(double k0, double a, double e2, double latitude)
{
    const double s = std::sin(latitude * D_TO_R);
    const double w = 1.0 - e2 * s * s;
    return k0 * k0 * a * a * (1.0 - e2) / (w * w);
}

double MeanRadius(double k0, double squaredRadius, double d1, double d2)
{
    return ((d2 * d1 + d1 * d1 + d2 * d2) / (6.0 * squaredRadius) + 1.0) * k0;
}

} // namespace LineScale
