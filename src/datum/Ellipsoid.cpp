#include "datum/Ellipsoid.h"

#include <cmath>
#include <ostream>

#include "frame/RecordNames.h"
#include "frame/XmlLines.h"

namespace {

constexpr double kSmallestAxis = 6000000.0; // metres; every ellipsoid of the earth is larger
constexpr double kDegreesPerRadian = 1.0 / D_TO_R;
constexpr int kMaxRounds = 20;
// Up to this squared eccentricity, and no deeper than half the semi-major axis from the centre, a
// round brings T fifty times closer. The ellipsoids of the earth stay below 0.007.
constexpr double kSmallEccentricity = 0.01;
constexpr int kRoundsOfNearFixedPoint = 2;
// Metres. Nearer to the equator than this the stop rule, not the arithmetic, limits the height,
// and only the plain rounds stop where they do.
constexpr double kClearOfEquator = 1e-3;
constexpr double kSettled = 1e-20; // metres: met when T has stopped changing, as a rule altogether

// Whether the square of a length in metres neither overflows nor loses digits. NaN cannot.
bool CanBeSquared(double length)
{
    return length > 1e-100 && length < 1e100;
}

} // namespace

double Ellipsoid::s_unitFactor = 1.0;

int Ellipsoid::Set(double a, double e2)
{
    status = good;
    semiMajor = a;
    eccSquared = e2;
    if (a < kSmallestAxis) {
        status = axisTooSmall;
    }
    if (e2 > 1.0) {
        status = eccentricityTooLarge;
    }
    if (status != good) {
        return status;
    }
    valid = 1;
    semiMinor = a * std::sqrt(1.0 - e2);
    return status;
}

bool Ellipsoid::SaveTo(FileObject& file, const CString& section) const
{
    file.SetItem(section, spheroidKeys[SpheroidKey::semiMajor], semiMajor, true);
    file.SetItem(section, spheroidKeys[SpheroidKey::eccSquared], eccSquared, true);
    return true;
}

void Ellipsoid::DumpXml(std::wostream& stream, const std::wstring& indent) const
{
    double inverseFlattening = 0.0;
    GetInverseFlattening(inverseFlattening);
    // Kept: the name is not escaped, and the axis has 3 significant digits unless the caller has
    // set the fixed notation; readers of these fragments know both.
    const std::streamsize precision = stream.precision();
    const XmlLines outer(stream, indent);
    const XmlLines xml = outer.Inner();
    outer.Tag(L"<ellipsoid>");
    xml.Element(L"name", name);
    stream.precision(3);
    xml.Element(L"semi_major_axis", semiMajor);
    stream.precision(9);
    xml.Element(L"squared_eccentricity", eccSquared);
    stream.precision(4);
    xml.Element(L"inverse_flattening", inverseFlattening);
    outer.Tag(L"</ellipsoid>");
    stream.precision(precision);
}

bool Ellipsoid::GeodeticToCartesian(double lat, double lon, double h, double& X, double& Y, double& Z) const
{
    // phi, lambda: latitude and longitude in radians; N: radius of curvature in the prime
    // vertical; H: height; N and H in metres.
    if (status != good) {
        return false;
    }
    const double H = h * s_unitFactor;
    const double phi = D_TO_R * lat;
    const double lambda = D_TO_R * lon;
    const double sinPhi = std::sin(phi);
    const double cosPhi = std::cos(phi);
    const double N = semiMajor / std::sqrt(1.0 - eccSquared * sinPhi * sinPhi);
    X = (N + H) * cosPhi * std::cos(lambda);
    Y = (N + H) * cosPhi * std::sin(lambda);
    Z = ((1.0 - eccSquared) * N + H) * sinPhi;
    return true;
}

bool Ellipsoid::CartesianToGeodetic(double X, double Y, double Z, double& lat, double& lon, double& h) const
{
    if (status != good) {
        return false;
    }
    double ignoredLength = 0.0;
    XYToPolar(Y, X, lon, ignoredLength);
    lon = modgeo(lon);
    const double p = std::sqrt(X * X + Y * Y);
    if (Z == 0.0) {
        lat = 0.0;
        h = (p - semiMajor) / s_unitFactor;
        return true;
    }
    if (CanBeSquared((1.0 - eccSquared) * p) && std::abs(Z) > kClearOfEquator && CanBeSquared(std::abs(Z)) &&
        CanBeSquared(semiMajor)) {
        return LatitudeAndHeight(p, Z, lat, h);
    }
    return PlainLatitudeAndHeight(p, Z, lat, h);
}

// The iteration of PlainLatitudeAndHeight without its sine and arctangent in each round.
// q: Z - e2 T, so that tan(phi) = q / k; beta: reduced latitude, tan(beta) = q / K with
// K = sqrt(1 - e2) p; then w = b sin(beta). Where the rounds contract fast they start from
// NearFixedPoint, which lies within their last few digits. The fixed point is the same but for
// the last bit; where T goes to and fro between two neighbours, one position in 1300, the plain
// rounds say whether they settle. The results differ by less than 1e-13 degrees and 1e-8 m up to
// a height of 2000 km; at 40000 km, by four units of the last place.
bool Ellipsoid::LatitudeAndHeight(double p, double Z, double& lat, double& h) const
{
    const double root = std::sqrt(1.0 - eccSquared);
    const double b = semiMajor * root;
    const double K2 = (root * p) * (root * p);
    double T = 0.0;
    int n = 0;
    if (eccSquared <= kSmallEccentricity && p * p + Z * Z > 0.25 * semiMajor * semiMajor) {
        T = NearFixedPoint(b, K2, Z);
        n = kRoundsOfNearFixedPoint;
    }
    double q = Z;
    double previous = 0.0;
    do {
        previous = T;
        ++n;
        q = Z - eccSquared * previous;
        T = Z - b * q / std::sqrt(K2 + q * q);
    } while (std::abs(T - previous) > kSettled && n < kMaxRounds);
    if (n == kMaxRounds) {
        return PlainLatitudeAndHeight(p, Z, lat, h);
    }
    const double k = (1.0 - eccSquared) * p;
    lat = modgeo(std::atan(q / k) * kDegreesPerRadian);
    h = T * std::sqrt(k * k + q * q) / (q * s_unitFactor);
    return true;
}

// Newton's first step from T = 0, and a second one with the same slope. g(T) = Z - b q / D with
// D = sqrt(K2 + q^2) is what a round makes of T, g' = e2 b K2 / D^3 its slope, below 0.02 here.
double Ellipsoid::NearFixedPoint(double b, double K2, double Z) const
{
    const double D = std::sqrt(K2 + Z * Z);
    const double slope = eccSquared * b * K2 / (D * D * D);
    const double step = 1.0 + slope * (1.0 + slope); // 1 / (1 - slope) to a millionth
    const double T = step * (Z - b * Z / D);
    const double q = Z - eccSquared * T;
    return T + step * (Z - b * q / std::sqrt(K2 + q * q) - T);
}

// T: the height's component along the axis of rotation, h sin(phi), metres; w: what the
// ellipsoid's normal contributes to Z; k, c, d: the constants of Z = (N (1 - e2) + h) sin(phi)
// solved for tan(phi) = c - T d; s: sine of the latitude.
//
// Kept: a position exactly on the axis of rotation has k = 0, so that the first round multiplies
// zero by infinity. It comes out as NaN with the result true, and what reads such a position
// knows it by that; NaN ends the loop.
bool Ellipsoid::PlainLatitudeAndHeight(double p, double Z, double& lat, double& h) const
{
    const double k = (1.0 - eccSquared) * p;
    const double c = Z / k;
    const double d = eccSquared / k;
    double T = 0.0;
    double previous = 0.0;
    double s = 0.0;
    int n = 0;
    do {
        previous = T;
        ++n;
        lat = modgeo(std::atan(c - previous * d) / D_TO_R);
        s = std::sin(D_TO_R * lat);
        T = Z - semiMajor / std::sqrt(1.0 - eccSquared * s * s) * (1.0 - eccSquared) * s;
    } while (std::abs(T - previous) > kSettled && n < kMaxRounds);
    h = T / s / s_unitFactor;
    return n != kMaxRounds;
}

bool Ellipsoid::GetInverseFlattening(double& value) const
{
    if (valid == 0) {
        return false;
    }
    value = semiMajor / (semiMajor - semiMinor);
    return true;
}

void Ellipsoid::GetParameters(double& a, double& e2) const
{
    a = semiMajor;
    e2 = eccSquared;
}

double Ellipsoid::GetSemiMajor(bool inSystemUnits) const
{
    return inSystemUnits ? semiMajor / s_unitFactor : semiMajor;
}

double Ellipsoid::GetSemiMinor(bool inSystemUnits) const
{
    return inSystemUnits ? semiMinor / s_unitFactor : semiMinor;
}

void Ellipsoid::SetUnitFactor(double factor)
{
    s_unitFactor = factor == 0.0 ? 1.0 : factor;
}

CString Ellipsoid::StripElpPrefix(CString text)
{
    const int length = kEllipsoidPrefix.GetLength();
    return text.Left(length).CompareNoCase(kEllipsoidPrefix) == 0 ? text.Mid(length) : text;
}

double Ellipsoid::Sign(double v)
{
    return v < 0.0 ? -1.0 : 1.0;
}

double Ellipsoid::CopySign(double magnitude, double sign)
{
    return std::abs(magnitude) * Sign(sign);
}
