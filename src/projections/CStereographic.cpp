#include "projections/CStereographic.h"

#include <cmath>

#include "projections/ConformalSphere.h"
#include "projections/IsometricLatitude.h"
#include "projections/LineScale.h"
#include "projections/ParameterForm.h"
#include "projections/ProjectionType.h"
#include "projections/SmallArgument.h"
#include "projections/SmallScale.h"

namespace {

// A sine above this belongs to a place within 9 m of a pole.
constexpr double kBesidePole = 1.0 - 1e-12;

constexpr double kQuarterPi = 0.7853981633974483;

constexpr int kMaxPasses = 10;
constexpr double kSettled = 1e-11; // radians; 0.06 mm on the ground, of which the last pass leaves nothing

// The geodetic latitude (radians) of isometric latitude `psi` by Newton's method, from the latitude
// chi that the sphere has. Ten passes that do not settle give the last value; NaN ends the passes
// and comes out as NaN.
//
// delta = phi - chi, T = tan(delta / 2), s0, c0 sine and cosine of chi, s, c of phi. Since chi has the
// isometric latitude psi on the sphere, that of phi exceeds it by 2 atanh(T / (c0 - s0 T)).
double LatitudeByNewton(double psi, double e2)
{
    const double u = std::exp(psi);
    const double s0 = 1.0 - 2.0 / (u * u + 1.0);
    const double c0 = 2.0 / (u + 1.0 / u);
    double s = s0;
    double c = c0;
    double T = 0.0;
    double delta = 0.0;
    double correction = 0.0;
    int passes = 0;
    do {
        const double excess = 2.0 * SmallArgument::Atanh(T / (c0 - s0 * T)) - IsometricLatitude::EllipsoidPart(e2, s);
        correction = excess * c * (1.0 - e2 * s * s) / (1.0 - e2);
        delta -= correction;
        T = SmallArgument::Tan(delta / 2.0);
        const double cosDelta = 2.0 / (1.0 + T * T) - 1.0;
        const double sinDelta = 2.0 * T / (1.0 + T * T);
        s = s0 * cosDelta + c0 * sinDelta;
        c = c0 * cosDelta - s0 * sinDelta;
    } while (std::fabs(correction) > kSettled && ++passes < kMaxPasses);
    const double chi = std::atan(u);
    return (chi - kQuarterPi) + (chi - kQuarterPi) + delta;
}

} // namespace

const ParameterForm<CStereographic>& CStereographic::Form()
{
    using M = CStereographic;
    static constexpr LoadedParameter<M> load[] = {{ProjectionKey::latOrigin, &M::m_latOrigin},
                                                  {ProjectionKey::lonOrigin, &M::m_lonOrigin},
                                                  {ProjectionKey::falseEasting, &M::m_falseEasting},
                                                  {ProjectionKey::falseNorthing, &M::m_falseNorthing},
                                                  {ProjectionKey::scaleFactor, &M::m_scaleFactor}};
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
    // Kept: 3093 for the scale factor, where GeoTIFF has 3092. Readers of these files know it so.
    static constexpr GeoKey<M> geoKeys[] = {{3082, &M::m_falseEasting},
                                            {3083, &M::m_falseNorthing},
                                            {3093, &M::m_scaleFactor},
                                            {3088, &M::m_lonOrigin},
                                            {3081, &M::m_latOrigin}};
    static constexpr ParameterForm<M> form = {load, save, xml, geoKeys};
    return form;
}

CStereographic::CStereographic() : CProjection(ProjectionType::stereographic) {}

CStereographic::~CStereographic() = default;

// e eccentricity, s0 sine of the latitude of origin, w1 as in the source, chi00 the origin's latitude
// on the sphere before c shifts it, chi0 behind.
std::uint32_t CStereographic::InitConstants()
{
    if (m_ellipsoid.status != Ellipsoid::good) {
        return SetStatus(ProjectionStatus::badEllipsoid);
    }
    if (SmallScale::RefusedWithMessage(m_scaleFactor)) {
        return SetStatus(ProjectionStatus::refusedParameter);
    }
    m_e2 = m_ellipsoid.eccSquared;
    const double e = std::sqrt(m_e2);
    const double phi0 = m_latOrigin * D_TO_R;
    const double s0 = std::sin(phi0);
    const ConformalSphere sphere(SemiMajorInUnits(), m_e2, phi0);
    m_R = sphere.R;
    m_twoRk0 = 2.0 * m_R * m_scaleFactor;
    m_n = sphere.n;

    const double w1 = std::pow(std::pow((1.0 - e * s0) / (1.0 + e * s0), e) * ((1.0 + s0) / (1.0 - s0)), m_n);
    const double sinChi00 = (w1 - 1.0) / (w1 + 1.0);
    const double c = (m_n + s0) * (1.0 - sinChi00) / ((m_n - s0) * (1.0 + sinChi00));
    m_halfLogC = std::log(c) / 2.0;
    m_chi0 = std::asin((c * w1 - 1.0) / (c * w1 + 1.0));
    m_sinChi0 = std::sin(m_chi0);
    m_cosChi0 = std::cos(m_chi0);
    m_Lambda0 = m_lonOrigin * D_TO_R;
    m_g = m_twoRk0 * std::tan(kQuarterPi - m_chi0 / 2.0);
    m_h = 2.0 * m_twoRk0 * std::tan(m_chi0) + m_g;
    return SetStatus(ProjectionStatus::usable);
}

bool CStereographic::LoadParameters(FileObject& file, const CString& section)
{
    return LoadByForm(*this, Form(), file, section);
}

bool CStereographic::SaveParameters(FileObject& file, const CString& section)
{
    return SaveByForm(*this, Form(), file, section);
}

// s sine of the latitude; dL difference of longitude and chi latitude on the sphere; u^2 = w of the
// source, the square of exp(isometric latitude on the sphere); B as in the source.
void CStereographic::GeoToGrid(double latitude, double longitude, double& easting, double& northing) const
{
    const double s = std::sin(modgeo(latitude) * D_TO_R);
    // Kept: the difference of longitude is not folded, only the longitude is.
    const double dL = (modgeo(longitude) * D_TO_R - m_Lambda0) * m_n;
    const double u = std::exp(m_n * IsometricLatitude::OfSine(m_e2, s) + m_halfLogC);
    const double sinChi = (u * u - 1.0) / (u * u + 1.0);
    const double cosChi = 2.0 * u / (u * u + 1.0);
    const double cosL = std::cos(dL);
    const double B = cosL * (m_cosChi0 * cosChi) + (m_sinChi0 * sinChi + 1.0);
    northing = (m_cosChi0 * sinChi - cosL * m_sinChi0 * cosChi) * m_twoRk0 / B + m_falseNorthing;
    easting = std::sin(dL) * m_twoRk0 * cosChi / B + m_falseEasting;
}

// x, y grid coordinates from the origin; i and i + j the angles of the source, P and Q the sides
// opposite to x; T = tan((chi - chi0) / 2), chi latitude on the sphere; psi isometric latitude.
void CStereographic::GridToGeo(double easting, double northing, double& latitude, double& longitude) const
{
    const double x = easting - m_falseEasting;
    const double y = northing - m_falseNorthing;
    const double P = y + m_h;
    const double Q = m_g - y;
    const double i = std::atan(x / P);
    const double iPlusJ = std::atan(x / Q);

    // tan(j) by the addition theorem; the library's tangent where that has no value.
    const double quotient = x * (P - Q) / (P * Q + x * x);
    const double tanJ = std::isfinite(quotient) ? quotient : std::tan(iPlusJ - i);
    // Kept: tan(j) / 2, where the source has tan(j / 2), so that positions agree with those computed
    // before; 0.1 m at 100 km east of the Dutch origin.
    const double T = (y - tanJ * x / 2.0) / m_twoRk0;
    const double sinTurn = 2.0 / (T + 1.0 / T);
    const double cosTurn = 2.0 / (1.0 + T * T) - 1.0;
    double sinChi = sinTurn * m_cosChi0 + cosTurn * m_sinChi0;
    if (std::fabs(sinChi) > kBesidePole) {
        // The sum can round to 1 and more, the sine of the angle cannot.
        sinChi = std::sin(2.0 * std::atan(T) + m_chi0);
    }
    const double psi = (std::log((1.0 + sinChi) / (1.0 - sinChi)) / 2.0 - m_halfLogC) / m_n;

    latitude = modgeo(LatitudeByNewton(psi, m_e2) / D_TO_R);
    longitude = modgeo(((i + iPlusJ) / m_n + m_Lambda0) / D_TO_R);
}

void CStereographic::GridConvergence(double easting, double northing, double& convergence) const
{
    double latitude = 0.0;
    double longitude = 0.0;
    GridToGeo(easting, northing, latitude, longitude);
    convergence = std::sin(latitude * D_TO_R) * -(longitude - m_lonOrigin);
}

double CStereographic::PointScaleFactor(double easting, double northing) const
{
    const double dE = easting - m_falseEasting;
    const double dN = northing - m_falseNorthing;
    // Kept: R without k0, though the distances are those of the grid; 1e-4 of what the distance adds.
    return ((dN * dN + dE * dE) / (4.0 * m_R * m_R) + 1.0) * m_scaleFactor;
}

void CStereographic::PointScaleFactor(double easting, double northing, double& factor) const
{
    CProjection::PointScaleFactor(easting, northing, factor);
}

double CStereographic::LineScaleFactor(double easting1, double northing1, double easting2, double northing2) const
{
    return LineScale::HarmonicSimpson(*this, easting1, northing1, easting2, northing2);
}

void CStereographic::LineScaleFactor(double easting1, double northing1, double easting2, double northing2,
                                     double& factor) const
{
    CProjection::LineScaleFactor(easting1, northing1, easting2, northing2, factor);
}

bool CStereographic::GetProjectionConstants(CArray<double, double>& values, CStringArray& names, CStringArray& texts,
                                            CArray<UINT, UINT>& kinds) const
{
    return CProjection::GetProjectionConstants(values, names, texts, kinds);
}

void CStereographic::GetGeoKeys(std::list<std::pair<int, short>>& codes,
                                std::list<std::pair<int, double>>& parameters) const
{
    GeoKeysByForm(*this, Form(), codes, parameters);
}

void CStereographic::DumpParametersXml(std::wostream& stream, const std::wstring& indent) const
{
    DumpXmlByForm(*this, Form(), stream, indent);
}
