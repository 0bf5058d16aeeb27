#include "projections/CLambert1Pprj.h"

#include "projections/LineScale.h"
#include "projections/ParameterForm.h"
#include "projections/ProjectionType.h"

const ParameterForm<CLambert1Pprj>& CLambert1Pprj::Form()
{
    using M = CLambert1Pprj;
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
    // Kept: the scale factor with the three decimals of a length, where every other projection has
    // six: 0.99987 reads 1.000. Readers compare these texts.
    static constexpr XmlElement<M> xml[] = {{L"latitude_origin", &M::m_latOrigin, Shown::latitude},
                                            {L"longitude_origin", &M::m_lonOrigin, Shown::longitude},
                                            {L"false_easting", &M::m_falseEasting, Shown::length3},
                                            {L"false_northing", &M::m_falseNorthing, Shown::length3},
                                            {L"central_parallel", &M::m_parallel, Shown::latitude},
                                            {L"scale_factor", &M::m_scaleFactor, Shown::length3}};
    // Kept: 3093 for the scale factor and 3088 for the central meridian, where GeoTIFF has 3092 and
    // 3080. Readers of these files know them so.
    static constexpr GeoKey<M> geoKeys[] = {{3082, &M::m_falseEasting}, {3083, &M::m_falseNorthing},
                                            {3088, &M::m_lonOrigin},    {3081, &M::m_latOrigin},
                                            {3078, &M::m_parallel},     {3093, &M::m_scaleFactor}};
    static constexpr ParameterForm<M> form = {load, save, xml, geoKeys, &M::TakeOriginForParallel};
    return form;
}

CLambert1Pprj::CLambert1Pprj() : CProjection(ProjectionType::lambert1Parallel) {}

CLambert1Pprj::~CLambert1Pprj() = default;

std::uint32_t CLambert1Pprj::InitConstants()
{
    if (m_ellipsoid.status != Ellipsoid::good) {
        return SetStatus(ProjectionStatus::badEllipsoid);
    }
    // Kept: southern cones are refused, in silence; see CLambert2Pprj.
    if (m_latOrigin < 0.0) {
        return SetStatus(ProjectionStatus::refusedParameter);
    }
    const double a = SemiMajorInUnits();
    const double e2 = m_ellipsoid.eccSquared;
    const Parallel standard(m_parallel, e2);
    m_n = standard.sine;
    SetRadii(TrueRadius(standard, a) * m_scaleFactor, standard, e2);
    // Kept: saved, shown and used is the scale factor of the cone as it was formed, not the loaded
    // digits.
    m_scaleFactor = CentralScale(standard, a);
    return SetStatus(ProjectionStatus::usable);
}

bool CLambert1Pprj::LoadParameters(FileObject& file, const CString& section)
{
    return LoadByForm(*this, Form(), file, section);
}

bool CLambert1Pprj::SaveParameters(FileObject& file, const CString& section)
{
    return SaveByForm(*this, Form(), file, section);
}

void CLambert1Pprj::GeoToGrid(double latitude, double longitude, double& easting, double& northing) const
{
    Forward(m_ellipsoid.eccSquared, latitude, longitude, easting, northing);
}

void CLambert1Pprj::GridToGeo(double easting, double northing, double& latitude, double& longitude) const
{
    Inverse(m_ellipsoid.eccSquared, easting, northing, latitude, longitude);
}

void CLambert1Pprj::GridConvergence(double easting, double northing, double& convergence) const
{
    convergence = Convergence(easting, northing);
}

double CLambert1Pprj::PointScaleFactor(double easting, double northing) const
{
    return PointScale(m_ellipsoid.eccSquared, SemiMajorInUnits(), easting, northing);
}

void CLambert1Pprj::PointScaleFactor(double easting, double northing, double& factor) const
{
    CProjection::PointScaleFactor(easting, northing, factor);
}

double CLambert1Pprj::LineScaleFactor(double easting1, double northing1, double easting2, double northing2) const
{
    double latitude = 0.0;
    double longitude = 0.0;
    GridToGeo((easting1 + easting2) / 2.0, (northing1 + northing2) / 2.0, latitude, longitude);
    const double R2 = LineScale::SquaredMeanRadius(m_scaleFactor, SemiMajorInUnits(), m_ellipsoid.eccSquared, latitude);
    // Kept: the distance from the standard parallel is the northing, also away from the central
    // meridian, where the parallel curves northward.
    return LineScale::MeanRadius(m_scaleFactor, R2, northing1 - m_falseNorthing, northing2 - m_falseNorthing);
}

void CLambert1Pprj::LineScaleFactor(double easting1, double northing1, double easting2, double northing2,
                                    double& factor) const
{
    CProjection::LineScaleFactor(easting1, northing1, easting2, northing2, factor);
}

bool CLambert1Pprj::GetProjectionConstants(CArray<double, double>& values, CStringArray& names, CStringArray& texts,
                                           CArray<UINT, UINT>& kinds) const
{
    return CProjection::GetProjectionConstants(values, names, texts, kinds);
}

void CLambert1Pprj::GetGeoKeys(std::list<std::pair<int, short>>& codes,
                               std::list<std::pair<int, double>>& parameters) const
{
    GeoKeysByForm(*this, Form(), codes, parameters);
}

void CLambert1Pprj::DumpParametersXml(std::wostream& stream, const std::wstring& indent) const
{
    DumpXmlByForm(*this, Form(), stream, indent);
}
