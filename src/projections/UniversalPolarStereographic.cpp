#include "projections/UniversalPolarStereographic.h"

#include <cmath>
#include <limits>

#include "projections/IsometricLatitude.h"
#include "projections/LineScale.h"
#include "projections/ParameterForm.h"
#include "projections/ProjectionType.h"
#include "projections/SmallScale.h"

namespace {

constexpr double kQuarterPi = 0.7853981633974483;
constexpr double kHalfPi = 1.5707963267948966;

// Kept: compared as it stands. "northern" is the south here, whatever other programs read in it.
constexpr wchar_t kNorthern[] = L"Northern";

} // namespace

const ParameterForm<UniversalPolarStereographic>& UniversalPolarStereographic::Form()
{
    using M = UniversalPolarStereographic;
    static constexpr LoadedParameter<M> load[] = {{ProjectionKey::falseEasting, &M::m_falseEasting},
                                                  {ProjectionKey::falseNorthing, &M::m_falseNorthing},
                                                  {ProjectionKey::scaleFactor, &M::m_scaleFactor},
                                                  {ProjectionKey::hemisphere, &M::m_hemisphere}};
    static constexpr SavedParameter<M> save[] = {{ProjectionKey::falseEasting, &M::m_falseEasting},
                                                 {ProjectionKey::falseNorthing, &M::m_falseNorthing},
                                                 {ProjectionKey::scaleFactor, &M::m_scaleFactor},
                                                 {ProjectionKey::hemisphere, &M::m_hemisphere}};
    static constexpr XmlElement<M> xml[] = {{L"false_easting", &M::m_falseEasting, Shown::length3},
                                            {L"false_northing", &M::m_falseNorthing, Shown::length3},
                                            {L"scale_factor", &M::m_scaleFactor, Shown::ratio},
                                            {L"hemisphere", &M::m_hemisphere, Shown::text}};
    // Kept: 3093 for the scale factor, where GeoTIFF has 3092. Readers of these files know it so.
    static constexpr GeoKey<M> geoKeys[] = {
        {3082, &M::m_falseEasting}, {3083, &M::m_falseNorthing}, {3093, &M::m_scaleFactor}};
    static constexpr ParameterForm<M> form = {load, save, xml, geoKeys};
    return form;
}

UniversalPolarStereographic::UniversalPolarStereographic() : CProjection(ProjectionType::universalPolar) {}

UniversalPolarStereographic::~UniversalPolarStereographic() = default;

std::uint32_t UniversalPolarStereographic::InitConstants()
{
    m_north = m_hemisphere == kNorthern;
    if (m_ellipsoid.status != Ellipsoid::good) {
        return SetStatus(ProjectionStatus::badEllipsoid);
    }
    if (SmallScale::RefusedWithMessage(m_scaleFactor)) {
        return SetStatus(ProjectionStatus::refusedParameter);
    }
    m_a = SemiMajorInUnits();
    m_e2 = m_ellipsoid.eccSquared;
    const double e = std::sqrt(m_e2);
    m_C = std::pow((1.0 - e) / (1.0 + e), e / 2.0) * (2.0 * m_a / std::sqrt(1.0 - m_e2));
    // Kept: the divisor of the polar grids, 11500, so that positions agree with those computed before.
    m_series = ConformalLatitudeSeries(m_e2, ConformalLatitudeSeries::kPolarDivisor);
    return SetStatus(ProjectionStatus::usable);
}

bool UniversalPolarStereographic::LoadParameters(FileObject& file, const CString& section)
{
    return LoadByForm(*this, Form(), file, section);
}

bool UniversalPolarStereographic::SaveParameters(FileObject& file, const CString& section)
{
    return SaveByForm(*this, Form(), file, section);
}

// phi latitude, positive on the side of the hemisphere; t tangent of half its distance from the pole,
// s its sine; lam longitude; rho distance from the pole on the grid.
void UniversalPolarStereographic::GeoToGrid(double latitude, double longitude, double& easting, double& northing) const
{
    const double phi = (m_north ? modgeo(latitude) : -modgeo(latitude)) * D_TO_R;
    const double lam = longitude * D_TO_R;
    const double t = std::tan(kQuarterPi - phi / 2.0);
    const double s = 2.0 / (1.0 + t * t) - 1.0;
    const double rho = m_C * m_scaleFactor * std::exp(IsometricLatitude::EllipsoidPart(m_e2, s)) * t;
    const double toward = rho * std::cos(lam);
    easting = rho * std::sin(lam) + m_falseEasting;
    northing = m_north ? m_falseNorthing - toward : m_falseNorthing + toward;
}

UniversalPolarStereographic::Polar UniversalPolarStereographic::AboutPole(double easting, double northing) const
{
    const double dN = northing - m_falseNorthing;
    const double dE = easting - m_falseEasting;
    // Kept: level with the pole the longitude is 0, which makes the distance infinite; and the quotient
    // loses its digits beside longitude 180. Positions agree so with those computed before.
    const double lam = dN != 0.0 ? std::atan2(dE, m_north ? -dN : dN) : 0.0;
    if (dE != 0.0) {
        return {lam, std::fabs(dE / std::sin(lam))};
    }
    return {lam, std::fabs(dN)};
}

// chi conformal latitude, tau tangent of half its distance from the pole.
double UniversalPolarStereographic::LatitudeAt(double rho) const
{
    const double tau = rho / (m_C * m_scaleFactor);
    const double chi = kHalfPi - 2.0 * std::atan(tau);
    const double sinChi = 2.0 / (1.0 + tau * tau) - 1.0;
    const double cosChi = 2.0 / (tau + 1.0 / tau);
    return m_series.Geodetic(chi, sinChi, cosChi);
}

void UniversalPolarStereographic::GridToGeo(double easting, double northing, double& latitude, double& longitude) const
{
    const Polar at = AboutPole(easting, northing);
    const double phi = LatitudeAt(at.rho);
    latitude = modgeo((m_north ? phi : -phi) / D_TO_R);
    longitude = modgeo(at.lam / D_TO_R);
}

void UniversalPolarStereographic::GridConvergence(double easting, double northing, double& convergence) const
{
    const double longitude = modgeo(AboutPole(easting, northing).lam / D_TO_R);
    convergence = m_north ? -longitude : longitude;
}

double UniversalPolarStereographic::PointScaleFactor(double easting, double northing) const
{
    const Polar at = AboutPole(easting, northing);
    const double phi = LatitudeAt(at.rho);
    const double s = std::sin(phi);
    // Kept: the quotient as it stands, 0 at the pole, where the scale factor of the grid is k0.
    return at.rho / (m_a / std::sqrt(1.0 - m_e2 * s * s) * std::cos(phi));
}

void UniversalPolarStereographic::PointScaleFactor(double easting, double northing, double& factor) const
{
    CProjection::PointScaleFactor(easting, northing, factor);
}

double UniversalPolarStereographic::LineScaleFactor(double easting1, double northing1, double easting2,
                                                    double northing2) const
{
    return LineScale::HarmonicSimpson(*this, easting1, northing1, easting2, northing2);
}

void UniversalPolarStereographic::LineScaleFactor(double easting1, double northing1, double easting2, double northing2,
                                                  double& factor) const
{
    CProjection::LineScaleFactor(easting1, northing1, easting2, northing2, factor);
}

bool UniversalPolarStereographic::GetProjectionConstants(CArray<double, double>& values, CStringArray& names,
                                                         CStringArray& texts, CArray<UINT, UINT>& kinds) const
{
    return CProjection::GetProjectionConstants(values, names, texts, kinds);
}

void UniversalPolarStereographic::GetGeoKeys(std::list<std::pair<int, short>>& codes,
                                             std::list<std::pair<int, double>>& parameters) const
{
    GeoKeysByForm(*this, Form(), codes, parameters);
}

void UniversalPolarStereographic::DumpParametersXml(std::wostream& stream, const std::wstring& indent) const
{
    DumpXmlByForm(*this, Form(), stream, indent);
}
