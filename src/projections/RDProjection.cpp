#include "projections/RDProjection.h"

#include <cmath>

#include "projections/ConformalSphere.h"
#include "projections/IsometricLatitude.h"
#include "projections/LatitudeOfIsometric.h"
#include "projections/LineScale.h"
#include "projections/ParameterForm.h"
#include "projections/ProjectionType.h"
#include "projections/RDScale.h"

namespace {

constexpr double kRightAngle = 90.0 * D_TO_R;

// The first of the passes takes latitude 0 and gives the latitude of the sphere, where the others
// begin. Of these twenty the last value stands if they do not settle.
constexpr int kMaxPasses = 20;
constexpr double kSettled = 2e-12; // radians; 13 micrometres on the ground

// The isometric latitude on the sphere of a latitude counted from the south pole, in radians.
double IsometricOnSphere(double fromSouthPole)
{
    return std::log(std::tan(fromSouthPole / 2.0));
}

} // namespace

const ParameterForm<RDProjection>& RDProjection::Form()
{
    using M = RDProjection;
    // Kept: the Dutch grid's own parameters for those that a record lacks; its older records have none.
    static constexpr LoadedParameter<M> load[] = {
        {ProjectionKey::latOrigin, &M::m_latOrigin, Need::optional, 52.156160556},
        {ProjectionKey::lonOrigin, &M::m_lonOrigin, Need::optional, 5.387638889},
        {ProjectionKey::falseEasting, &M::m_falseEasting, Need::optional, 155000.0},
        {ProjectionKey::falseNorthing, &M::m_falseNorthing, Need::optional, 463000.0},
        {ProjectionKey::scaleFactor, &M::m_scaleFactor, Need::optional, 0.9999079}};
    static constexpr SavedParameter<M> save[] = {{ProjectionKey::latOrigin, &M::m_latOrigin},
                                                 {ProjectionKey::lonOrigin, &M::m_lonOrigin},
                                                 {ProjectionKey::falseEasting, &M::m_falseEasting},
                                                 {ProjectionKey::falseNorthing, &M::m_falseNorthing},
                                                 {ProjectionKey::scaleFactor, &M::m_scaleFactor}};
    static constexpr XmlElement<M> xml[] = {{L"latitude_origin", &M::m_latOrigin, Shown::latitude},
                                            {L"longitude_origin", &M::m_lonOrigin, Shown::longitude},
                                            {L"false_easting", &M::m_falseEasting, Shown::length3},
                                            {L"false_northing", &M::m_falseNorthing, Shown::length3},
                                            {L"scale_factor", &M::m_scaleFactor, Shown::ratio}};
    static constexpr ParameterForm<M> form = {load, save, xml, {}};
    return form;
}

RDProjection::RDProjection() : CProjection(ProjectionType::rd) {}

RDProjection::~RDProjection() = default;

// e eccentricity, s0 sine of the latitude of origin; the rest as in ConformalSphere and the header.
std::uint32_t RDProjection::InitConstants()
{
    if (m_ellipsoid.status != Ellipsoid::good) {
        return SetStatus(ProjectionStatus::badEllipsoid);
    }
    m_e2 = m_ellipsoid.eccSquared;
    const double e = std::sqrt(m_e2);
    const double phi0 = m_latOrigin * D_TO_R;
    const double s0 = std::sin(phi0);
    const ConformalSphere sphere(SemiMajorInUnits(), m_e2, phi0);
    m_R = sphere.R;
    m_n = sphere.n;
    m_b0 = std::atan(std::tan(phi0) * std::sqrt(sphere.rho) / std::sqrt(sphere.nu));
    m_sinB0 = std::sin(m_b0);
    m_cosB0 = std::cos(m_b0);
    m_Lambda0 = m_lonOrigin * D_TO_R;
    const double q0 =
        IsometricOnSphere((m_latOrigin + 90.0) * D_TO_R) - std::log((1.0 + e * s0) / (1.0 - e * s0)) * e / 2.0;
    m_m = IsometricOnSphere(kRightAngle + m_b0) - q0 * m_n;
    return SetStatus(ProjectionStatus::usable);
}

bool RDProjection::LoadParameters(FileObject& file, const CString& section)
{
    if (!TakeSection(file, section)) {
        return false;
    }
    ReadByForm(*this, Form(), file, section);
    // Kept: a catalogue without the method costs the list of constants and not the system.
    bool listed = true;
    if (const int count = ProjectionCatalogue().FindStaticDataSize(GetType()); count != 0) {
        SetConstantsSize(count);
        listed = StoreConstantsByForm(*this, Form());
    }
    return InitConstants() == ProjectionStatus::usable && listed;
}

bool RDProjection::SaveParameters(FileObject& file, const CString& section)
{
    return SaveByForm(*this, Form(), file, section);
}

// q isometric latitude; b, Lam latitude and longitude on the sphere, dL the latter from the origin;
// u = tan(b/2 + pi/4); sh, ch sine and cosine of half the spherical distance psi from the origin;
// sa, ca of its azimuth; r the distance on the grid.
void RDProjection::GeoToGrid(double latitude, double longitude, double& easting, double& northing) const
{
    // Kept: neither latitude nor longitude is folded.
    const double q = IsometricOnSphere((latitude + 90.0) * D_TO_R) -
                     IsometricLatitude::EllipsoidPart(m_e2, std::sin(latitude * D_TO_R));
    const double u = std::exp(q * m_n + m_m);
    const double b = 2.0 * std::atan(u) - kRightAngle;
    const double Lam = (longitude - m_lonOrigin) * m_n * D_TO_R + m_Lambda0;
    if (b == m_b0 && Lam == m_Lambda0) {
        easting = m_falseEasting;
        northing = m_falseNorthing;
        return;
    }
    // Kept: the point opposite to the origin has no place on the plane and leaves the outputs alone.
    if (b == -m_b0 && Lam == 180.0 * D_TO_R - m_Lambda0) {
        return;
    }
    const double sinB = 1.0 - 2.0 / (u * u + 1.0);
    const double cosB = 2.0 / (u + 1.0 / u);
    const double halfL = (Lam - m_Lambda0) / 2.0;
    const double sinHalfL = std::sin(halfL);
    const double sinHalfB = std::sin((b - m_b0) / 2.0);
    const double sh2 = sinHalfL * sinHalfL * cosB * m_cosB0 + sinHalfB * sinHalfB;
    const double sh = std::sqrt(sh2);
    const double ch = std::sqrt(1.0 - sh2);
    const double sa = sinHalfL * std::cos(halfL) * cosB / (sh * ch);
    const double ca = (2.0 * m_sinB0 * sh2 + sinB - m_sinB0) / (2.0 * m_cosB0 * sh * ch);
    const double r = 2.0 * m_scaleFactor * m_R * sh / ch;
    easting = r * sa + m_falseEasting;
    northing = r * ca + m_falseNorthing;
}

// dE, dN grid coordinates from the origin; tau = tan(psi/2); v isometric latitude; the rest as in
// GeoToGrid. At the origin itself the azimuth, and with it the latitude, is NaN.
void RDProjection::GridToGeo(double easting, double northing, double& latitude, double& longitude) const
{
    const double dE = easting - m_falseEasting;
    const double dN = northing - m_falseNorthing;
    const double r = std::sqrt(dE * dE + dN * dN);
    const double sa = dE / r;
    const double ca = dN / r;
    const double tau = r / (2.0 * m_scaleFactor * m_R);
    const double sinPsi = 2.0 * tau / (1.0 + tau * tau);
    const double cosPsi = 2.0 / (1.0 + tau * tau) - 1.0;
    const double sinB = m_cosB0 * ca * sinPsi + m_sinB0 * cosPsi;
    double Lam = 0.0;
    if (easting == m_falseEasting) {
        Lam = m_Lambda0;
    } else if (!std::isnan(dN)) {
        Lam = std::asin(sinPsi * sa / std::sqrt((1.0 - sinB) * (1.0 + sinB))) + m_Lambda0;
    }
    double phi = Lam;
    // Kept: a point farther from Greenwich than this gets its spherical longitude for a latitude; the
    // grid is that of one country.
    if (Lam > -kRightAngle && Lam < kRightAngle) {
        const double v = (std::log((1.0 + sinB) / (1.0 - sinB)) / 2.0 - m_m) / m_n;
        phi = LatitudeOfIsometric(v, m_e2, kSettled, kMaxPasses - 1);
    }
    latitude = phi / D_TO_R;
    longitude = (Lam - m_Lambda0) / m_n / D_TO_R + m_lonOrigin;
}

void RDProjection::GridConvergence(double easting, double northing, double& convergence) const
{
    double latitude = 0.0;
    double longitude = 0.0;
    GridToGeo(easting, northing, latitude, longitude);
    convergence = std::sin(latitude * D_TO_R) * -(longitude - m_lonOrigin);
}

double RDProjection::PointScaleFactor(double easting, double northing) const
{
    return RDScale::Point(easting - m_falseEasting, northing - m_falseNorthing);
}

void RDProjection::PointScaleFactor(double easting, double northing, double& factor) const
{
    CProjection::PointScaleFactor(easting, northing, factor);
}

double RDProjection::LineScaleFactor(double easting1, double northing1, double easting2, double northing2) const
{
    return LineScale::HarmonicSimpson(*this, easting1, northing1, easting2, northing2);
}

void RDProjection::LineScaleFactor(double easting1, double northing1, double easting2, double northing2,
                                   double& factor) const
{
    CProjection::LineScaleFactor(easting1, northing1, easting2, northing2, factor);
}

// Kept: nothing is handed out, though the constants are listed; editors show RD without parameters.
bool RDProjection::GetProjectionConstants(CArray<double, double>&, CStringArray&, CStringArray&,
                                          CArray<UINT, UINT>&) const
{
    return GetStatus() == static_cast<std::int32_t>(ProjectionStatus::usable);
}

// Kept: GeoTIFF has no code for RD, and its files are written without keys.
void RDProjection::GetGeoKeys(std::list<std::pair<int, short>>&, std::list<std::pair<int, double>>&) const {}

void RDProjection::DumpParametersXml(std::wostream& stream, const std::wstring& indent) const
{
    DumpXmlByForm(*this, Form(), stream, indent);
}
