#include "datum/CDatumTransform.h"

#include <cmath>

namespace {

constexpr double kYearsPerMillisecond = 3.168808781402895e-11; // 1 / (1000 * 86400 * 365.25)
constexpr double kYearOfTimeZero = 1970.0;
constexpr double kPartsPerMillion = 1000000.0;

// Turns (x, y) clockwise, as Rotation2D does about the origin.
void Turn(double sine, double cosine, double& x, double& y)
{
    const double turned = x * cosine + y * sine;
    y = y * cosine - x * sine;
    x = turned;
}

} // namespace

double CDatumTransform::m_unitCnv = 1.0;

CDatumTransform::CDatumTransform() = default;
CDatumTransform::CDatumTransform(const CDatumTransform&) = default;
CDatumTransform& CDatumTransform::operator=(const CDatumTransform&) = default;
CDatumTransform::~CDatumTransform() = default;

bool CDatumTransform::IsInit() const
{
    return m_init;
}

bool CDatumTransform::IsDtfOn() const
{
    return m_dtfOn;
}

const CString& CDatumTransform::GetName() const
{
    return m_name;
}

CString CDatumTransform::GetMethodName() const
{
    return m_methodName;
}

void CDatumTransform::GetDtfSourceEllips(double& a, double& e2) const
{
    m_srcEllipsoid.GetParameters(a, e2);
}

void CDatumTransform::GetDtfDestEllips(double& a, double& e2) const
{
    m_dstEllipsoid.GetParameters(a, e2);
}

CString CDatumTransform::GetDftSourceEllipsName() const
{
    return Ellipsoid::StripElpPrefix(m_srcEllipsoid.name);
}

CString CDatumTransform::GetDftDestEllipsName() const
{
    return Ellipsoid::StripElpPrefix(m_dstEllipsoid.name);
}

void CDatumTransform::GetDtfParms(double& shiftX, double& shiftY, double& shiftZ, double& rotSecX, double& rotSecY,
                                  double& rotSecZ, double& scale, double& shiftRateX, double& shiftRateY,
                                  double& shiftRateZ, double& rotRateSecX, double& rotRateSecY, double& rotRateSecZ,
                                  double& scaleRate, double& t0, bool& fixedHeight, double& fixedHeightForward,
                                  double& fixedHeightReverse, bool inSystemUnits) const
{
    const double metres = inSystemUnits ? m_unitCnv : 1.0;
    shiftX = m_shiftX / metres;
    shiftY = m_shiftY / metres;
    shiftZ = m_shiftZ / metres;
    rotSecX = m_rotSecX;
    rotSecY = m_rotSecY;
    rotSecZ = m_rotSecZ;
    scale = m_scale;
    shiftRateX = m_shiftRateX / metres;
    shiftRateY = m_shiftRateY / metres;
    shiftRateZ = m_shiftRateZ / metres;
    rotRateSecX = m_rotRateSecX;
    rotRateSecY = m_rotRateSecY;
    rotRateSecZ = m_rotRateSecZ;
    scaleRate = m_scaleRate;
    t0 = m_t0;
    fixedHeight = m_fixedHeight;
    fixedHeightForward = m_fixedHeightForward;
    fixedHeightReverse = m_fixedHeightReverse;
}

void CDatumTransform::SetUnitCnv(double factor)
{
    m_unitCnv = factor == 0.0 ? 1.0 : factor;
}

bool CDatumTransform::DoDtf(double lat, double lon, double h, double& outLat, double& outLon, double& outH,
                            bool inverse, double time) const
{
    if (!m_dtfOn || !m_init) {
        outLat = lat;
        outLon = lon;
        outH = h;
        return true;
    }
    if (m_srcEllipsoid.status != Ellipsoid::good || m_dstEllipsoid.status != Ellipsoid::good) {
        return false;
    }
    const double years = YearsSinceEpoch(time);
    Transform(lat, lon, h, inverse, years, outLat, outLon, outH);
    if (m_fixedHeight) {
        // Kept: the horizontal position is that of the fixed height, the height that of the
        // position as given. Regional sets published with a reference height are used so.
        const double fixedHeight = inverse ? m_fixedHeightReverse : m_fixedHeightForward;
        double ignoredHeight = 0.0;
        Transform(lat, lon, fixedHeight, inverse, years, outLat, outLon, ignoredHeight);
    }
    return true;
}

// Kept: an epoch of 0 means none, so that rates stored without an epoch have no effect.
double CDatumTransform::YearsSinceEpoch(double time) const
{
    if (!m_has14Parameters || m_t0 == 0.0) {
        return 0.0;
    }
    const double t = time == 0.0 ? CExTime::GetCurTime() : time;
    return t * kYearsPerMillisecond + kYearOfTimeZero - m_t0;
}

// P: the position on the ellipsoid that is left, C: on the one that is reached, Q: in between,
// all cartesian metres; S: scale.
void CDatumTransform::Transform(double lat, double lon, double h, bool inverse, double years, double& outLat,
                                double& outLon, double& outH) const
{
    const Ellipsoid& from = inverse ? m_dstEllipsoid : m_srcEllipsoid;
    const Ellipsoid& to = inverse ? m_srcEllipsoid : m_dstEllipsoid;
    const double S = 1.0 + m_scale / kPartsPerMillion + m_scaleRate / kPartsPerMillion * years;
    Point P;
    from.GeodeticToCartesian(lat, lon, h, P.x, P.y, P.z);
    Point C;
    if (inverse) {
        const double shrink = 1.0 / S;
        const Point Q((P.x - m_shiftX - years * m_shiftRateX) * shrink, (P.y - m_shiftY - years * m_shiftRateY) * shrink,
                      (P.z - m_shiftZ - years * m_shiftRateZ) * shrink);
        C = RotatedAt(years, Q, true);
    } else {
        const Point Q = RotatedAt(years, P, false);
        C = Point(S * Q.x + (m_shiftX + years * m_shiftRateX), S * Q.y + (m_shiftY + years * m_shiftRateY),
                  S * Q.z + (m_shiftZ + years * m_shiftRateZ));
    }
    // The result is of no interest: a position whose iteration used up its rounds is as good.
    to.CartesianToGeodetic(C.x, C.y, C.z, outLat, outLon, outH);
}

Point CDatumTransform::RotationAt(double years) const
{
    return {m_rotX + years * m_rotRateX, m_rotY + years * m_rotRateY, m_rotZ + years * m_rotRateZ};
}

// The rotation of the forward direction, or its reverse. Away from the epoch the sines and
// cosines are those of the call; at it, and without rates, those that Load formed.
Point CDatumTransform::RotatedAt(double years, const Point& in, bool inverse) const
{
    if (years == 0.0) {
        return inverse ? m_rotations.Reversed().Apply(in, true) : m_rotations.Apply(in, false);
    }
    const Point R = RotationAt(years);
    Point out;
    Rotation3D(in, inverse ? Point(-R.x, -R.y, -R.z) : R, out, inverse);
    return out;
}

void CDatumTransform::Rotation3D(const Point& in, const Point& rotation, Point& out, bool inverse) const
{
    out = PlaneRotations(rotation).Apply(in, inverse);
}

CDatumTransform::PlaneRotations::PlaneRotations(const Point& rotation)
    : sinX(std::sin(D_TO_R * rotation.x)), cosX(std::cos(D_TO_R * rotation.x)), sinY(std::sin(D_TO_R * -rotation.y)),
      cosY(std::cos(D_TO_R * -rotation.y)), sinZ(std::sin(D_TO_R * rotation.z)), cosZ(std::cos(D_TO_R * rotation.z))
{
}

// By the opposite angles.
CDatumTransform::PlaneRotations CDatumTransform::PlaneRotations::Reversed() const
{
    PlaneRotations reversed = *this;
    reversed.sinX = -sinX;
    reversed.sinY = -sinY;
    reversed.sinZ = -sinZ;
    return reversed;
}

// The turn about Y takes (x, z), not (z, x): its angle has the opposite sign.
Point CDatumTransform::PlaneRotations::Apply(const Point& in, bool inverse) const
{
    Point p = in;
    if (inverse) {
        Turn(sinZ, cosZ, p.x, p.y);
        Turn(sinX, cosX, p.y, p.z);
        Turn(sinY, cosY, p.x, p.z);
    } else {
        Turn(sinY, cosY, p.x, p.z);
        Turn(sinX, cosX, p.y, p.z);
        Turn(sinZ, cosZ, p.x, p.y);
    }
    return p;
}
