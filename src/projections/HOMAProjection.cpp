#include "projections/HOMAProjection.h"

#include <cmath>

#include "projections/HotineForm.h"
#include "projections/LineScale.h"
#include "projections/ProjectionType.h"
#include "projections/ShortestAxis.h"

constexpr HotineOrigin HOMAProjection::kOrigin = {
    ProjectionKey::falseEasting, ProjectionKey::falseNorthing, L"false_easting", L"false_northing", 3082, 3083};

HOMAProjection::HOMAProjection() : CProjection(ProjectionType::hotineA) {}

HOMAProjection::~HOMAProjection() = default;

// D, F, gamma0 of the centre, the letters of the source.
std::uint32_t HOMAProjection::InitConstants()
{
    SetStatus(ProjectionStatus::usable);
    // Kept: a refusal leaves the status at 0; hosts tell it by the result.
    if (m_ellipsoid.status != Ellipsoid::good || SemiMajorInUnits() < kShortestAxis) {
        return ProjectionStatus::badEllipsoid;
    }
    const HotineCentre centre(SemiMajorInUnits(), m_ellipsoid.eccSquared, m_scaleFactor, m_latCentre);
    const double D = centre.D * centre.D < 1.0 ? 1.0 : centre.D;
    const double F = centre.F(D);
    const double gamma0 = std::asin(std::sin(m_azimuth * D_TO_R) / D);
    const double arc = std::asin(std::tan(gamma0) * (F - 1.0 / F) / 2.0);
    m_aposphere = HotineAposphere(centre, F, gamma0, m_lonCentre * D_TO_R - arc / centre.B);
    m_skew = HotineSkew(m_gridSkew);
    return ProjectionStatus::usable;
}

bool HOMAProjection::LoadParameters(FileObject& file, const CString& section)
{
    return LoadByForm(*this, HotineForm<HOMAProjection>::Get(), file, section);
}

bool HOMAProjection::SaveParameters(FileObject& file, const CString& section)
{
    return SaveByForm(*this, HotineForm<HOMAProjection>::Get(), file, section);
}

void HOMAProjection::GeoToGrid(double latitude, double longitude, double& easting, double& northing) const
{
    const HotineAposphere::Rectified at = m_aposphere.FromGeographic(latitude, longitude);
    easting = m_skew.East(at) + m_falseEasting;
    northing = m_skew.North(at) + m_falseNorthing;
}

void HOMAProjection::GridToGeo(double easting, double northing, double& latitude, double& longitude) const
{
    const HotineAposphere::Rectified at = m_skew.Rectified(easting - m_falseEasting, northing - m_falseNorthing);
    const HotineAposphere::Geographic geo =
        m_aposphere.ToGeographic(m_aposphere.ToDirection(at, HotineAposphere::kShortBase));
    latitude = geo.latitude;
    longitude = geo.longitude;
}

void HOMAProjection::GridConvergence(double easting, double northing, double& convergence) const
{
    double latitude = 0.0;
    double longitude = 0.0;
    GridToGeo(easting, northing, latitude, longitude);
    const HotineAposphere::Rectified at = m_skew.Rectified(easting - m_falseEasting, northing - m_falseNorthing);
    convergence = -((m_aposphere.Convergence(at, longitude) - m_gridSkew * D_TO_R) / D_TO_R);
}

double HOMAProjection::PointScaleFactor(double easting, double northing) const
{
    HotineAposphere::Geographic geo;
    GridToGeo(easting, northing, geo.latitude, geo.longitude);
    return m_aposphere.PointScale(m_skew.Rectified(easting - m_falseEasting, northing - m_falseNorthing), geo);
}

void HOMAProjection::PointScaleFactor(double easting, double northing, double& factor) const
{
    CProjection::PointScaleFactor(easting, northing, factor);
}

double HOMAProjection::LineScaleFactor(double easting1, double northing1, double easting2, double northing2) const
{
    return LineScale::HarmonicSimpson(*this, easting1, northing1, easting2, northing2);
}

void HOMAProjection::LineScaleFactor(double easting1, double northing1, double easting2, double northing2,
                                     double& factor) const
{
    CProjection::LineScaleFactor(easting1, northing1, easting2, northing2, factor);
}

bool HOMAProjection::GetProjectionConstants(CArray<double, double>& values, CStringArray& names, CStringArray& texts,
                                            CArray<UINT, UINT>& kinds) const
{
    return CProjection::GetProjectionConstants(values, names, texts, kinds);
}

void HOMAProjection::GetGeoKeys(std::list<std::pair<int, short>>& codes,
                                std::list<std::pair<int, double>>& parameters) const
{
    GeoKeysByForm(*this, HotineForm<HOMAProjection>::Get(), codes, parameters);
}

void HOMAProjection::DumpParametersXml(std::wostream& stream, const std::wstring& indent) const
{
    DumpXmlByForm(*this, HotineForm<HOMAProjection>::Get(), stream, indent);
}
