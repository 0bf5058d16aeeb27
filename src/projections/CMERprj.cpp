#include "projections/CMERprj.h"

#include <cmath>

#include "projections/IsometricLatitude.h"
#include "projections/LatitudeOfIsometric.h"
#include "projections/LineScale.h"
#include "projections/ParameterForm.h"
#include "projections/ProjectionType.h"

namespace {

constexpr double kQuarterPi = 0.7853981633974483;

// The inverse is done when a pass corrects the latitude by no more than this length.
constexpr double kSettled = 0.001; // system units; a millimetre when the unit is the metre

// The passes of the inverse. The ellipsoids of the earth take 5 at most, any of a squared
// eccentricity below 0.7 takes fewer than these: the guard ends only what would not end by itself.
constexpr int kMaxPasses = 64;

} // namespace

const ParameterForm<CMERprj>& CMERprj::Form()
{
    using M = CMERprj;
    static constexpr LoadedParameter<M> load[] = {{ProjectionKey::latOrigin, &M::m_latOrigin},
                                                  {ProjectionKey::lonOrigin, &M::m_lonOrigin},
                                                  {ProjectionKey::falseEasting, &M::m_falseEasting},
                                                  {ProjectionKey::falseNorthing, &M::m_falseNorthing},
                                                  {ProjectionKey::scaleFactor, &M::m_scaleFactor},
                                                  {ProjectionKey::latTrueScale, &M::m_latTrueScale, Need::optional},
                                                  {ProjectionKey::gridSkew, &M::m_gridSkew, Need::optional}};
    // Kept: the grid skew before the latitude of true scale, other than they are read; files are
    // compared line by line.
    static constexpr SavedParameter<M> save[] = {
        {ProjectionKey::latOrigin, &M::m_latOrigin},       {ProjectionKey::lonOrigin, &M::m_lonOrigin},
        {ProjectionKey::falseEasting, &M::m_falseEasting}, {ProjectionKey::falseNorthing, &M::m_falseNorthing},
        {ProjectionKey::scaleFactor, &M::m_scaleFactor},   {ProjectionKey::gridSkew, &M::m_gridSkew},
        {ProjectionKey::latTrueScale, &M::m_latTrueScale}};
    // Kept: no element for the grid skew.
    static constexpr XmlElement<M> xml[] = {{L"latitude_origin", &M::m_latOrigin, Shown::latitude},
                                            {L"longitude_origin", &M::m_lonOrigin, Shown::longitude},
                                            {L"latitude_true_scale", &M::m_latTrueScale, Shown::latitude},
                                            {L"false_easting", &M::m_falseEasting, Shown::length3},
                                            {L"false_northing", &M::m_falseNorthing, Shown::length3},
                                            {L"scale_factor", &M::m_scaleFactor, Shown::ratio}};
    // Kept: 3093 for the scale factor and 3088 for the central meridian, where GeoTIFF has 3092 and
    // 3080, and 3089, a centre's latitude, for that of true scale. Readers of these files know them
    // so.
    static constexpr GeoKey<M> geoKeys[] = {{3082, &M::m_falseEasting}, {3083, &M::m_falseNorthing},
                                            {3093, &M::m_scaleFactor},  {3088, &M::m_lonOrigin},
                                            {3081, &M::m_latOrigin},    {3089, &M::m_latTrueScale}};
    static constexpr ParameterForm<M> form = {load, save, xml, geoKeys};
    return form;
}

CMERprj::CMERprj() : CProjection(ProjectionType::mercator) {}

CMERprj::~CMERprj() = default;

std::uint32_t CMERprj::InitConstants()
{
    return SetStatus(m_ellipsoid.status == Ellipsoid::good ? ProjectionStatus::usable : ProjectionStatus::badEllipsoid);
}

bool CMERprj::LoadParameters(FileObject& file, const CString& section)
{
    return LoadByForm(*this, Form(), file, section);
}

bool CMERprj::SaveParameters(FileObject& file, const CString& section)
{
    return SaveByForm(*this, Form(), file, section);
}

double CMERprj::Isometric(double latitude) const
{
    // Where the northings of most charts are counted from.
    if (latitude == 0.0 && m_ellipsoid.eccSquared >= 0.0) {
        return 0.0;
    }
    const double phi = latitude * D_TO_R;
    return std::log(std::tan(phi / 2.0 + kQuarterPi)) -
           IsometricLatitude::EllipsoidPart(m_ellipsoid.eccSquared, std::sin(phi));
}

double CMERprj::Widening(double latitude) const
{
    const double phi = latitude * D_TO_R;
    const double s = std::sin(phi);
    return std::sqrt(1.0 - m_ellipsoid.eccSquared * s * s) / std::cos(phi);
}

// X, Y easting and northing on the map of true scale on the equator, m its widening on the parallel
// of true scale.
void CMERprj::GeoToGrid(double latitude, double longitude, double& easting, double& northing) const
{
    const double a = SemiMajorInUnits();
    const double m = Widening(m_latTrueScale);
    const double X = a * (longitude - m_lonOrigin) * D_TO_R / m;
    const double Y = (a * Isometric(latitude) - a * Isometric(m_latOrigin)) / m;
    easting = X * m_scaleFactor + m_falseEasting;
    northing = Y * m_scaleFactor + m_falseNorthing;
}

// t isometric latitude; the rest as in GeoToGrid.
void CMERprj::GridToGeo(double easting, double northing, double& latitude, double& longitude) const
{
    const double a = SemiMajorInUnits();
    const double m = Widening(m_latTrueScale);
    const double X = (easting - m_falseEasting) / m_scaleFactor * m;
    const double Y = (northing - m_falseNorthing) / m_scaleFactor * m;
    const double t = (Isometric(m_latOrigin) * a + Y) / a;
    latitude = LatitudeOfIsometric(t, m_ellipsoid.eccSquared, kSettled / a, kMaxPasses) / D_TO_R;
    longitude = X / a / D_TO_R + m_lonOrigin;
}

void CMERprj::GridConvergence(double, double, double& convergence) const
{
    convergence = 0.0;
}

double CMERprj::PointScaleFactor(double easting, double northing) const
{
    double latitude = 0.0;
    double longitude = 0.0;
    GridToGeo(easting, northing, latitude, longitude);
    return Widening(latitude) * m_scaleFactor / Widening(m_latTrueScale);
}

void CMERprj::PointScaleFactor(double easting, double northing, double& factor) const
{
    CProjection::PointScaleFactor(easting, northing, factor);
}

double CMERprj::LineScaleFactor(double easting1, double northing1, double easting2, double northing2) const
{
    return LineScale::HarmonicSimpson(*this, easting1, northing1, easting2, northing2);
}

void CMERprj::LineScaleFactor(double easting1, double northing1, double easting2, double northing2,
                              double& factor) const
{
    CProjection::LineScaleFactor(easting1, northing1, easting2, northing2, factor);
}

bool CMERprj::GetProjectionConstants(CArray<double, double>& values, CStringArray& names, CStringArray& texts,
                                     CArray<UINT, UINT>& kinds) const
{
    return CProjection::GetProjectionConstants(values, names, texts, kinds);
}

void CMERprj::GetGeoKeys(std::list<std::pair<int, short>>& codes, std::list<std::pair<int, double>>& parameters) const
{
    GeoKeysByForm(*this, Form(), codes, parameters);
}

void CMERprj::DumpParametersXml(std::wostream& stream, const std::wstring& indent) const
{
    DumpXmlByForm(*this, Form(), stream, indent);
}
