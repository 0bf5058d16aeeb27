#include "projections/PolyconicProjection.h"

#include <cmath>

#include "projections/NumericConvergence.h"
#include "projections/ParameterForm.h"
#include "projections/ProjectionType.h"
#include "projections/ShortestAxis.h"

namespace {

// Latitudes nearer to the equator than this count as the equator.
constexpr double kEquator = 1e-10; // degrees; 0.01 mm on the ground

// A northing, counted from the line that the inverse takes for the equator, of less than this.
constexpr double kOnLine = 1e-10; // system units

constexpr int kMaxPasses = 25;
constexpr double kSettled = 1e-9; // radians; 6 mm on the ground

} // namespace

const ParameterForm<PolyconicProjection>& PolyconicProjection::Form()
{
    using M = PolyconicProjection;
    static constexpr LoadedParameter<M> load[] = {{ProjectionKey::latOrigin, &M::m_latOrigin},
                                                  {ProjectionKey::lonOrigin, &M::m_lonOrigin},
                                                  {ProjectionKey::falseEasting, &M::m_falseEasting},
                                                  {ProjectionKey::falseNorthing, &M::m_falseNorthing}};
    static constexpr SavedParameter<M> save[] = {{ProjectionKey::latOrigin, &M::m_latOrigin},
                                                 {ProjectionKey::lonOrigin, &M::m_lonOrigin},
                                                 {ProjectionKey::falseEasting, &M::m_falseEasting},
                                                 {ProjectionKey::falseNorthing, &M::m_falseNorthing}};
    static constexpr XmlElement<M> xml[] = {{L"latitude_origin", &M::m_latOrigin, Shown::latitude},
                                            {L"longitude_origin", &M::m_lonOrigin, Shown::longitude},
                                            {L"false_easting", &M::m_falseEasting, Shown::length3},
                                            {L"false_northing", &M::m_falseNorthing, Shown::length3}};
    // Kept: 3088 for the central meridian, where GeoTIFF has 3080; readers of these files know it so.
    static constexpr GeoKey<M> geoKeys[] = {
        {3082, &M::m_falseEasting}, {3083, &M::m_falseNorthing}, {3088, &M::m_lonOrigin}, {3081, &M::m_latOrigin}};
    static constexpr ParameterForm<M> form = {load, save, xml, geoKeys};
    return form;
}

PolyconicProjection::PolyconicProjection() : CProjection(ProjectionType::polyconic) {}

PolyconicProjection::~PolyconicProjection() = default;

std::uint32_t PolyconicProjection::InitConstants()
{
    SetStatus(ProjectionStatus::usable);
    // Kept: a refusal leaves the status at 0; hosts tell it by the result.
    if (m_ellipsoid.status != Ellipsoid::good || SemiMajorInUnits() < kShortestAxis) {
        return ProjectionStatus::badEllipsoid;
    }
    m_a = SemiMajorInUnits();
    m_e2 = m_ellipsoid.eccSquared;
    m_arc = ShortMeridianArc(m_e2);
    m_M0 = m_arc.Length(m_latOrigin * D_TO_R) * m_a;
    return ProjectionStatus::usable;
}

bool PolyconicProjection::LoadParameters(FileObject& file, const CString& section)
{
    return LoadByForm(*this, Form(), file, section);
}

bool PolyconicProjection::SaveParameters(FileObject& file, const CString& section)
{
    return SaveByForm(*this, Form(), file, section);
}

// s, c sine and cosine of the latitude; P radius of its parallel on the map, Ea angle there.
void PolyconicProjection::GeoToGrid(double latitude, double longitude, double& easting, double& northing) const
{
    if (std::fabs(latitude) < kEquator) {
        easting = (longitude - m_lonOrigin) * m_a * D_TO_R + m_falseEasting;
        northing = m_falseNorthing - m_M0;
        return;
    }
    const double phi = latitude * D_TO_R;
    const double s = std::sin(phi);
    const double c = std::cos(phi);
    const double Ea = (longitude - m_lonOrigin) * D_TO_R * s;
    const double P = m_a / std::sqrt(1.0 - m_e2 * s * s) * c / s;
    easting = std::sin(Ea) * P + m_falseEasting;
    northing = (m_arc.Length(phi, s, c) * m_a - m_M0) + (1.0 - std::cos(Ea)) * P + m_falseNorthing;
}

// A, B, C, J, Ma (arc of phi) and Mp (its derivative) of the source, eq. 18-18 to 18-21, on an axis
// of 1; half the sine of 2phi is s c.
void PolyconicProjection::GridToGeo(double easting, double northing, double& latitude, double& longitude) const
{
    const double x = easting - m_falseEasting;
    const double y = northing - m_falseNorthing;
    // Kept: M0 - y, where the equator has M0 + y, and the latitude of origin for an answer; both are
    // right for an origin on the equator.
    if (std::fabs(m_M0 - y) < kOnLine) {
        latitude = m_latOrigin;
        longitude = x / m_a / D_TO_R + m_lonOrigin;
        return;
    }
    const double A = (m_M0 + y) / m_a;
    const double B = x * x / (m_a * m_a) + A * A;
    double phi = A;
    double before = A;
    double s = 0.0;
    double C = 0.0;
    bool moves = true;
    // NaN does not move.
    for (int passes = 0; moves && passes < kMaxPasses; ++passes) {
        before = phi;
        s = std::sin(phi);
        const double c = std::cos(phi);
        const double sc = s * c;
        C = std::sqrt(1.0 - m_e2 * s * s) * s / c;
        const double Ma = m_arc.Length(phi, s, c);
        const double Mp = m_arc.Slope(s, c);
        const double J = Ma * Ma + B;
        const double numerator = (Ma * C + 1.0) * A - Ma - J * 0.5 * C;
        // Kept: times C, where the source divides by it. The numerator alone decides the root.
        const double denominator = (J - 2.0 * A * Ma) * m_e2 * sc * 0.5 * C + (Mp * C - 1.0 / sc) * (A - Ma) - Mp;
        phi -= numerator / denominator;
        moves = std::fabs(phi - before) > kSettled;
    }
    // Kept: the latitude from before the last correction, which belongs to C and s.
    latitude = before / D_TO_R;
    longitude = std::asin(x * C / m_a) / s / D_TO_R + m_lonOrigin;
}

void PolyconicProjection::GridConvergence(double easting, double northing, double& convergence) const
{
    convergence = NumericConvergence(*this, easting, northing);
}

double PolyconicProjection::PointScaleFactor(double easting, double northing) const
{
    return GeodesicLineScale::OfPoint(*this, easting, northing);
}

void PolyconicProjection::PointScaleFactor(double easting, double northing, double& factor) const
{
    CProjection::PointScaleFactor(easting, northing, factor);
}

GeodesicLineScale::End PolyconicProjection::EndAt(double easting, double northing) const
{
    GeodesicLineScale::End end{easting, northing};
    GridToGeo(easting, northing, end.latitude, end.longitude);
    if (std::fabs(end.latitude) < kEquator) {
        end.latitude = kEquator;
        GeoToGrid(end.latitude, end.longitude, end.easting, end.northing);
    }
    return end;
}

double PolyconicProjection::LineScaleFactor(double easting1, double northing1, double easting2, double northing2) const
{
    return GeodesicLineScale::OfLine(EndAt(easting1, northing1), EndAt(easting2, northing2), {m_a, m_e2, m_arc});
}

void PolyconicProjection::LineScaleFactor(double easting1, double northing1, double easting2, double northing2,
                                          double& factor) const
{
    CProjection::LineScaleFactor(easting1, northing1, easting2, northing2, factor);
}

bool PolyconicProjection::GetProjectionConstants(CArray<double, double>& values, CStringArray& names,
                                                 CStringArray& texts, CArray<UINT, UINT>& kinds) const
{
    return CProjection::GetProjectionConstants(values, names, texts, kinds);
}

void PolyconicProjection::GetGeoKeys(std::list<std::pair<int, short>>& codes,
                                     std::list<std::pair<int, double>>& parameters) const
{
    GeoKeysByForm(*this, Form(), codes, parameters);
}

void PolyconicProjection::DumpParametersXml(std::wostream& stream, const std::wstring& indent) const
{
    DumpXmlByForm(*this, Form(), stream, indent);
}
