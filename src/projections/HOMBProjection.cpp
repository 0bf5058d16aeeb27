#include "projections/HOMBProjection.h"

#include <cmath>

#include "projections/HotineForm.h"
#include "projections/LineScale.h"
#include "projections/NumericConvergence.h"
#include "projections/ProjectionType.h"
#include "projections/ShortestAxis.h"

// Kept: element names with blanks; readers of these descriptions compare them as text.
constexpr HotineOrigin HOMBProjection::kOrigin = {ProjectionKey::eastingAtCentre,
                                                  ProjectionKey::northingAtCentre,
                                                  L"east at project centre",
                                                  L"north at project centre",
                                                  3090,
                                                  3091};

HOMBProjection::HOMBProjection() : CProjection(ProjectionType::hotineB) {}

HOMBProjection::~HOMBProjection() = default;

// An initial line that runs east at the centre has rules of its own.
bool HOMBProjection::IsAcross() const
{
    return m_azimuth == 90.0;
}

// D, F, gamma0, uc of the centre, the letters of the source.
std::uint32_t HOMBProjection::InitConstants()
{
    SetStatus(ProjectionStatus::usable);
    // Kept: a refusal leaves the status at 0; hosts tell it by the result.
    if (m_ellipsoid.status != Ellipsoid::good || SemiMajorInUnits() < kShortestAxis) {
        return ProjectionStatus::badEllipsoid;
    }
    const HotineCentre centre(SemiMajorInUnits(), m_ellipsoid.eccSquared, m_scaleFactor, m_latCentre);
    const double D = centre.D;
    // Kept: no clamp of D, other than in variant A; records of both are told apart by it.
    const double F = D >= 1.0 ? centre.F(D) : D;
    const double azimuth = m_azimuth * D_TO_R;
    const double gamma0 = std::asin(std::sin(azimuth) / D);
    const double lambdac = m_lonCentre * D_TO_R;
    // Kept: asin(1) in the south too, where the source has asin(-1).
    const double arc = std::asin(IsAcross() ? 1.0 : std::tan(gamma0) * (F - 1.0 / F) / 2.0);
    const double lambda0 = lambdac - arc / centre.B;
    const double uc = IsAcross() ? (lambdac - lambda0) * centre.A
                                 : std::atan(std::sqrt(D * D - 1.0) / std::cos(azimuth)) * (centre.A / centre.B);
    m_originU = std::fabs(uc) * centre.hemisphere;
    m_halfTurn = 180.0 / centre.B;
    m_aposphere = HotineAposphere(centre, F, gamma0, lambda0);
    m_skew = HotineSkew(m_gridSkew);
    return ProjectionStatus::usable;
}

bool HOMBProjection::LoadParameters(FileObject& file, const CString& section)
{
    return LoadByForm(*this, HotineForm<HOMBProjection>::Get(), file, section);
}

bool HOMBProjection::SaveParameters(FileObject& file, const CString& section)
{
    return SaveByForm(*this, HotineForm<HOMBProjection>::Get(), file, section);
}

void HOMBProjection::GeoToGrid(double latitude, double longitude, double& easting, double& northing) const
{
    HotineAposphere::Rectified at = m_aposphere.FromGeographic(latitude, longitude);
    if (!IsAcross()) {
        at.u -= m_originU;
    } else if (longitude == m_lonCentre) {
        at.u = 0.0;
    } else {
        at.u -= m_lonCentre - longitude < 0.0 ? -m_originU : m_originU;
    }
    easting = m_skew.East(at) + m_falseEasting;
    northing = m_skew.North(at) + m_falseNorthing;
}

HotineAposphere::Rectified HOMBProjection::ToRectified(double easting, double northing) const
{
    HotineAposphere::Rectified at = m_skew.Rectified(easting - m_falseEasting, northing - m_falseNorthing);
    at.u += m_originU;
    return at;
}

void HOMBProjection::GridToGeo(double easting, double northing, double& latitude, double& longitude) const
{
    const HotineAposphere::Geographic geo =
        m_aposphere.ToGeographic(m_aposphere.ToDirection(ToRectified(easting, northing), HotineAposphere::kLongBase));
    latitude = geo.latitude;
    longitude = geo.longitude;
    // The arctangent has given the other half of the aposphere.
    const double d = longitude - m_lonCentre;
    if (d > 90.0) {
        longitude -= m_halfTurn;
    } else if (d < -90.0) {
        longitude += m_halfTurn;
    }
}

void HOMBProjection::GridConvergence(double easting, double northing, double& convergence) const
{
    convergence = NumericConvergence(*this, easting, northing);
}

double HOMBProjection::PointScaleFactor(double easting, double northing) const
{
    HotineAposphere::Geographic geo;
    GridToGeo(easting, northing, geo.latitude, geo.longitude);
    return m_aposphere.PointScale(ToRectified(easting, northing), geo);
}

void HOMBProjection::PointScaleFactor(double easting, double northing, double& factor) const
{
    CProjection::PointScaleFactor(easting, northing, factor);
}

double HOMBProjection::LineScaleFactor(double easting1, double northing1, double easting2, double northing2) const
{
    return LineScale::HarmonicSimpson(*this, easting1, northing1, easting2, northing2);
}

void HOMBProjection::LineScaleFactor(double easting1, double northing1, double easting2, double northing2,
                                     double& factor) const
{
    CProjection::LineScaleFactor(easting1, northing1, easting2, northing2, factor);
}

bool HOMBProjection::GetProjectionConstants(CArray<double, double>& values, CStringArray& names, CStringArray& texts,
                                            CArray<UINT, UINT>& kinds) const
{
    return CProjection::GetProjectionConstants(values, names, texts, kinds);
}

void HOMBProjection::GetGeoKeys(std::list<std::pair<int, short>>& codes,
                                std::list<std::pair<int, double>>& parameters) const
{
    GeoKeysByForm(*this, HotineForm<HOMBProjection>::Get(), codes, parameters);
}

void HOMBProjection::DumpParametersXml(std::wostream& stream, const std::wstring& indent) const
{
    DumpXmlByForm(*this, HotineForm<HOMBProjection>::Get(), stream, indent);
}
