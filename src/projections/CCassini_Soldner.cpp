#include "projections/CCassini_Soldner.h"

#include <cmath>

#include "projections/GeodesicLineScale.h"
#include "projections/NumericConvergence.h"
#include "projections/ParameterForm.h"
#include "projections/ProjectionType.h"
#include "projections/SmallScale.h"

namespace {

// The tangent of a latitude whose cosine is exactly 0.
constexpr double kTangentAtPole = 1e25;

double Tangent(double s, double c)
{
    return c == 0.0 ? kTangentAtPole : s / c;
}

} // namespace

const ParameterForm<CCassini_Soldner>& CCassini_Soldner::Form()
{
    using M = CCassini_Soldner;
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
    // Kept: 3093 for the scale factor and 3088 for the central meridian, where GeoTIFF has 3092 and
    // 3080; readers of these files know them so.
    static constexpr GeoKey<M> geoKeys[] = {{3082, &M::m_falseEasting},
                                            {3083, &M::m_falseNorthing},
                                            {3093, &M::m_scaleFactor},
                                            {3088, &M::m_lonOrigin},
                                            {3081, &M::m_latOrigin}};
    static constexpr ParameterForm<M> form = {load, save, xml, geoKeys};
    return form;
}

CCassini_Soldner::CCassini_Soldner() : CProjection(ProjectionType::cassiniSoldner) {}

CCassini_Soldner::~CCassini_Soldner() = default;

double CCassini_Soldner::Arc(double phi, double s, double c) const
{
    return m_arc.Length(phi, s, c) * SemiMajorInUnits();
}

// e1 of the source, eq. 3-24.
std::uint32_t CCassini_Soldner::InitConstants()
{
    if (m_ellipsoid.status != Ellipsoid::good) {
        return SetStatus(ProjectionStatus::badEllipsoid);
    }
    if (SmallScale::RefusedWithMessage(m_scaleFactor)) {
        return SetStatus(ProjectionStatus::refusedParameter);
    }
    const double e2 = m_ellipsoid.eccSquared;
    m_arc = ShortMeridianArc(e2);
    m_muRadius = m_arc.C0() * SemiMajorInUnits();
    const double phi0 = m_latOrigin * D_TO_R;
    m_M0 = Arc(phi0, std::sin(phi0), std::cos(phi0));
    const double e1 = (1.0 - std::sqrt(1.0 - e2)) / (1.0 + std::sqrt(1.0 - e2));
    const double e12 = e1 * e1;
    m_footpoint = EvenSines(3.0 * e1 / 2.0 - 27.0 * e12 * e1 / 32.0, 21.0 * e12 / 16.0 - 55.0 * e12 * e12 / 32.0,
                            151.0 * e12 * e1 / 96.0, 1097.0 * e12 * e12 / 512.0);
    return SetStatus(ProjectionStatus::usable);
}

bool CCassini_Soldner::LoadParameters(FileObject& file, const CString& section)
{
    return LoadByForm(*this, Form(), file, section);
}

bool CCassini_Soldner::SaveParameters(FileObject& file, const CString& section)
{
    return SaveByForm(*this, Form(), file, section);
}

// s, c, t sine, cosine, tangent of the latitude, T = t^2; M meridian distance; A difference of
// longitude (radians) times c; C = e2/(1 - e2) c^2; nu radius of curvature in the prime vertical.
void CCassini_Soldner::GeoToGrid(double latitude, double longitude, double& easting, double& northing) const
{
    const double phi = modgeo(latitude) * D_TO_R;
    const double s = std::sin(phi);
    const double c = std::cos(phi);
    const double t = Tangent(s, c);
    const double T = t * t;
    const double M = Arc(phi, s, c);
    const double A = modgeo(longitude - m_lonOrigin) * D_TO_R * c;
    const double A2 = A * A;
    const double e2 = m_ellipsoid.eccSquared;
    const double C = e2 / (1.0 - e2) * c * c;
    const double nu = SemiMajorInUnits() / std::sqrt(1.0 - e2 * s * s);

    easting = A * (1.0 - T * A2 * (1.0 / 6.0 + (8.0 - T + 8.0 * C) * A2 / 120.0)) * nu + m_falseEasting;
    // Kept: t, where the source has T, so that grids agree with those computed before.
    northing = M + m_falseNorthing - m_M0 + A2 * (0.5 + (5.0 - t + 6.0 * C) * A2 / 24.0) * nu * t;
}

// mu rectifying latitude; phi1 footpoint latitude with sine s, cosine c, tangent t; nu, rho radii of
// curvature there, w = 1 - e2 s^2; D = X / nu.
void CCassini_Soldner::GridToGeo(double easting, double northing, double& latitude, double& longitude) const
{
    const double mu = (northing + m_M0 - m_falseNorthing) / m_muRadius;
    const double phi1 = mu + m_footpoint(std::sin(mu), std::cos(mu));
    const double s = std::sin(phi1);
    const double c = std::cos(phi1);
    const double t = Tangent(s, c);
    const double T = t * t;
    const double e2 = m_ellipsoid.eccSquared;
    const double w = 1.0 - e2 * s * s;
    const double nu = SemiMajorInUnits() / std::sqrt(w);
    const double nuPerRho = w / (1.0 - e2);
    const double D = (easting - m_falseEasting) / nu;
    const double D2 = D * D;
    const double Q = 3.0 * T + 1.0;

    latitude = modgeo((phi1 - nuPerRho * t * D2 * (0.5 - Q * D2 / 24.0)) / D_TO_R);
    longitude = modgeo((D_TO_R * m_lonOrigin + D * (1.0 - T * D2 * (1.0 / 3.0 - Q * D2 / 15.0)) / c) / D_TO_R);
}

void CCassini_Soldner::GridConvergence(double easting, double northing, double& convergence) const
{
    convergence = NumericConvergence(*this, easting, northing);
}

double CCassini_Soldner::PointScaleFactor(double easting, double northing) const
{
    return GeodesicLineScale::OfPoint(*this, easting, northing);
}

void CCassini_Soldner::PointScaleFactor(double easting, double northing, double& factor) const
{
    CProjection::PointScaleFactor(easting, northing, factor);
}

double CCassini_Soldner::LineScaleFactor(double easting1, double northing1, double easting2, double northing2) const
{
    GeodesicLineScale::End from{easting1, northing1};
    GeodesicLineScale::End to{easting2, northing2};
    GridToGeo(easting1, northing1, from.latitude, from.longitude);
    GridToGeo(easting2, northing2, to.latitude, to.longitude);
    return GeodesicLineScale::OfLine(from, to, {SemiMajorInUnits(), m_ellipsoid.eccSquared, m_arc});
}

void CCassini_Soldner::LineScaleFactor(double easting1, double northing1, double easting2, double northing2,
                                       double& factor) const
{
    CProjection::LineScaleFactor(easting1, northing1, easting2, northing2, factor);
}

bool CCassini_Soldner::GetProjectionConstants(CArray<double, double>& values, CStringArray& names, CStringArray& texts,
                                              CArray<UINT, UINT>& kinds) const
{
    return CProjection::GetProjectionConstants(values, names, texts, kinds);
}

void CCassini_Soldner::GetGeoKeys(std::list<std::pair<int, short>>& codes,
                                  std::list<std::pair<int, double>>& parameters) const
{
    GeoKeysByForm(*this, Form(), codes, parameters);
}

void CCassini_Soldner::DumpParametersXml(std::wostream& stream, const std::wstring& indent) const
{
    DumpXmlByForm(*this, Form(), stream, indent);
}
