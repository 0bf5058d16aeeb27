#include "projections/CTMprj.h"

#include <cmath>

#include "projections/LineScale.h"
#include "projections/ParameterForm.h"
#include "projections/ProjectionType.h"

namespace {

// A grid of smaller scale is taken for a record that lacks its scale factor.
constexpr double kSmallestScale = 0.8;

constexpr double kDegreesPerRadian = 1.0 / D_TO_R;

// The tangent of a latitude whose cosine is exactly 0.
constexpr double kTangentAtPole = 1e25;

// Up to this angle (radians) the series of SineCosine::Turned leave out less than 1e-17. The
// footpoint of the earth's ellipsoids lies within 0.003 of the rectifying latitude.
constexpr double kSmallTurn = 0.01;

// A cosine below this, 6 mm on the ground, is what rounding leaves of a right angle, and the sum
// keeps other digits of it than the library's function.
constexpr double kOnPole = 1e-9;

struct SineCosine {
    double s;
    double c;

    static SineCosine Of(double angle) { return {std::sin(angle), std::cos(angle)}; }

    // Of an angle further by `turn`, at a third of the time that the library's functions take;
    // these still serve a large turn, an angle on a pole, and NaN.
    SineCosine Turned(double angle, double turn) const
    {
        if (!(std::fabs(turn) <= kSmallTurn) || std::fabs(c) < kOnPole) {
            return Of(angle);
        }
        const double q = turn * turn;
        const double ds = turn * (1.0 - q * (1.0 / 6.0 - q * (1.0 / 120.0)));
        const double dc = 1.0 - q * (0.5 - q * (1.0 / 24.0 - q * (1.0 / 720.0)));
        return {s * dc + c * ds, c * dc - s * ds};
    }
};

} // namespace

const ParameterForm<CTMprj>& CTMprj::Form()
{
    using M = CTMprj;
    static constexpr LoadedParameter<M> load[] = {
        {ProjectionKey::latOrigin, &M::m_latOrigin},       {ProjectionKey::lonOrigin, &M::m_lonOrigin},
        {ProjectionKey::falseEasting, &M::m_falseEasting}, {ProjectionKey::falseNorthing, &M::m_falseNorthing},
        {ProjectionKey::scaleFactor, &M::m_scaleFactor},   {ProjectionKey::gridSkew, &M::m_gridSkew, Need::optional}};
    static constexpr SavedParameter<M> save[] = {
        {ProjectionKey::latOrigin, &M::m_latOrigin},       {ProjectionKey::lonOrigin, &M::m_lonOrigin},
        {ProjectionKey::falseEasting, &M::m_falseEasting}, {ProjectionKey::falseNorthing, &M::m_falseNorthing},
        {ProjectionKey::scaleFactor, &M::m_scaleFactor},   {ProjectionKey::gridSkew, &M::m_gridSkew}};
    static constexpr XmlElement<M> xml[] = {{L"latitude_origin", &M::m_latOrigin, Shown::latitude},
                                            {L"longitude_origin", &M::m_lonOrigin, Shown::longitude},
                                            {L"false_easting", &M::m_falseEasting, Shown::length3},
                                            {L"false_northing", &M::m_falseNorthing, Shown::length3},
                                            {L"scale_factor", &M::m_scaleFactor, Shown::ratio},
                                            // Kept: not as text of fixed decimals like the others.
                                            {L"grid_skew", &M::m_gridSkew, Shown::streamed}};
    // Kept: 3093 for the scale factor and 3088 for the central meridian, where GeoTIFF has 3092 and
    // 3080; and no key for the grid skew. Readers of these files know them so.
    static constexpr GeoKey<M> geoKeys[] = {{3082, &M::m_falseEasting},
                                            {3083, &M::m_falseNorthing},
                                            {3093, &M::m_scaleFactor},
                                            {3088, &M::m_lonOrigin},
                                            {3081, &M::m_latOrigin}};
    static constexpr ParameterForm<M> form = {load, save, xml, geoKeys};
    return form;
}

CTMprj::CTMprj() : CTMprj(ProjectionType::transverseMercator) {}

CTMprj::CTMprj(std::int32_t type) : CProjection(type) {}

CTMprj::~CTMprj() = default;

double CTMprj::ArcPolynomial::operator()(double cosSquared) const
{
    return ((k4 * cosSquared + k3) * cosSquared + k2) * cosSquared + k1;
}

// sin2 sin 2x + sin4 sin 4x + sin6 sin 6x + sin8 sin 8x as sin x cos x times a polynomial.
CTMprj::ArcPolynomial CTMprj::PolynomialOfSines(double sin2, double sin4, double sin6, double sin8)
{
    return {2.0 * (sin2 - 2.0 * sin4 + 3.0 * sin6 - 4.0 * sin8), 8.0 * (sin4 - 4.0 * sin6 + 10.0 * sin8),
            32.0 * (sin6 - 6.0 * sin8), 128.0 * sin8};
}

// n third flattening, G rectifying radius, sigma0 rectifying latitude of the origin, M0 its distance
// from the equator on the grid.
std::uint32_t CTMprj::InitConstants()
{
    if (m_ellipsoid.status != Ellipsoid::good) {
        return SetStatus(ProjectionStatus::badEllipsoid);
    }
    if (m_scaleFactor < kSmallestScale) {
        return SetStatus(ProjectionStatus::refusedParameter);
    }
    m_sinSkew = std::sin(m_gridSkew * D_TO_R);
    m_cosSkew = std::cos(m_gridSkew * D_TO_R);

    const double a = SemiMajorInUnits();
    const double b = SemiMinorInUnits();
    const double n = (a - b) / (a + b);
    const double n2 = n * n;
    const double n3 = n2 * n;
    const double n4 = n2 * n2;

    m_secondEcc2 = m_ellipsoid.eccSquared / (1.0 - m_ellipsoid.eccSquared);
    m_G = (1.0 - n) * (1.0 - n2) * a * (1.0 + 9.0 * n2 / 4.0 + 225.0 * n4 / 64.0);
    m_arc = PolynomialOfSines(-3.0 * n / 2.0 + 9.0 * n3 / 16.0, 15.0 * n2 / 16.0 - 15.0 * n4 / 32.0, -35.0 * n3 / 48.0,
                              315.0 * n4 / 512.0);
    m_footpoint = PolynomialOfSines(3.0 * n / 2.0 - 27.0 * n3 / 32.0, 21.0 * n2 / 16.0 - 55.0 * n4 / 32.0,
                                    151.0 * n3 / 96.0, 1097.0 * n4 / 512.0);

    const double phi0 = m_latOrigin * D_TO_R;
    const double s0 = std::sin(phi0);
    const double c0 = std::cos(phi0);
    m_sigma0 = phi0 + s0 * c0 * m_arc(c0 * c0);
    m_M0 = m_sigma0 * m_scaleFactor * m_G;
    return SetStatus(ProjectionStatus::usable);
}

bool CTMprj::LoadParameters(FileObject& file, const CString& section)
{
    return LoadByForm(*this, Form(), file, section, m_sized ? Sizing::done : Sizing::fromCatalogue);
}

bool CTMprj::SaveParameters(FileObject& file, const CString& section)
{
    return SaveByForm(*this, Form(), file, section);
}

// s, c, t sine, cosine, tangent of the latitude, T = t^2; eta2 = e2/(1 - e2) c^2; nu radius of
// curvature in the prime vertical, k0 included; L difference of longitude (radians) times c; X, Y
// easting and northing before the rotation.
void CTMprj::GeoToGrid(double latitude, double longitude, double& easting, double& northing) const
{
    const double phi = modgeo(latitude) * D_TO_R;
    const double s = std::sin(phi);
    const double c = std::cos(phi);
    const double t = c == 0.0 ? kTangentAtPole : s / c;
    const double T = t * t;
    const double eta2 = m_secondEcc2 * c * c;
    const double L = modgeo(longitude - m_lonOrigin) * D_TO_R * c;
    const double L2 = L * L;
    const double W = std::sqrt(1.0 - m_ellipsoid.eccSquared * s * s);
    const double nu = m_scaleFactor * SemiMajorInUnits() / W;
    const double arc = (m_arc(c * c) * s * c + phi) * m_scaleFactor * m_G - m_M0;

    // Kept: the northing has no term in L^6 here, so that grids agree with those computed before;
    // 0.6 mm at 6 degrees.
    const double y4 = (1.0 / 360.0) * (61.0 + T * (T - 58.0) + eta2 * (270.0 - 330.0 * T));
    const double y2 = (1.0 / 12.0) * (5.0 - T + eta2 * (9.0 + 4.0 * eta2));
    const double Y = arc + 0.5 * nu * t * L2 * (1.0 + L2 * (y2 + L2 * y4));

    const double x6 = (1.0 / 5040.0) * (61.0 + T * (T * (179.0 - T) - 479.0));
    const double x4 = (1.0 / 120.0) * (5.0 + T * (T - 18.0) + eta2 * (14.0 - 58.0 * T));
    const double x2 = (1.0 / 6.0) * (1.0 - T + eta2);
    const double X = nu * L * (1.0 + L2 * (x2 + L2 * (x4 + L2 * x6)));

    easting = X * m_cosSkew - Y * m_sinSkew + m_falseEasting;
    northing = X * m_sinSkew + Y * m_cosSkew + m_falseNorthing;
}

// sigma rectifying latitude; phif footpoint latitude with sine s, cosine c, tangent t; D = -X / nu,
// S minus the difference of longitude in radians; the rest as in GeoToGrid.
void CTMprj::GridToGeo(double easting, double northing, double& latitude, double& longitude) const
{
    latitude = 0.0;
    longitude = 0.0;
    if (m_scaleFactor == 0.0 || m_G == 0.0) {
        return;
    }
    const double dE = easting - m_falseEasting;
    const double dN = northing - m_falseNorthing;
    const double X = m_sinSkew * dN + m_cosSkew * dE;
    const double sigma = (m_cosSkew * dN - m_sinSkew * dE + m_M0) / (m_G * m_scaleFactor);
    const SineCosine atSigma = SineCosine::Of(sigma);
    const double turn = atSigma.s * atSigma.c * m_footpoint(atSigma.c * atSigma.c);
    const double phif = turn + sigma;

    const auto [s, c] = atSigma.Turned(phif, turn);
    const double secant = 1.0 / c;
    const double t = s * secant;
    const double T = t * t;
    const double W = std::sqrt(1.0 - m_ellipsoid.eccSquared * s * s);
    const double D = -X * W / (m_scaleFactor * SemiMajorInUnits());
    const double D2 = D * D;
    const double eta2 = m_secondEcc2 * c * c;

    const double p4 = (1.0 / 360.0) * (61.0 + T * (90.0 + 45.0 * T) + eta2 * (46.0 - T * (252.0 + 90.0 * T)));
    const double p2 = (1.0 / 12.0) * (5.0 + 3.0 * T + eta2 * (1.0 - 9.0 * T - 4.0 * eta2));
    const double phi = phif - (1.0 + eta2) * 0.5 * t * D2 * (1.0 - D2 * (p2 - D2 * p4));

    // Kept: 721, where the published series has 720, so that positions agree with those computed
    // before; 0.05 mm at 6 degrees.
    const double l6 = (1.0 / 5040.0) * (61.0 + T * (662.0 + T * (1320.0 + 721.0 * T)));
    const double l4 = (1.0 / 120.0) * (5.0 + T * (28.0 + 24.0 * T) + (6.0 + 8.0 * T) * eta2);
    const double l2 = (1.0 / 6.0) * (1.0 + 2.0 * T + eta2);
    const double S = D * secant * (1.0 - D2 * (l2 - D2 * (l4 - D2 * l6)));

    latitude = modgeo(phi * kDegreesPerRadian);
    longitude = modgeo(m_lonOrigin - S * kDegreesPerRadian);
}

void CTMprj::GridConvergence(double easting, double northing, double& convergence) const
{
    double latitude = 0.0;
    double longitude = 0.0;
    GridToGeo(easting, northing, latitude, longitude);
    const double size = std::fabs(std::sin(latitude * D_TO_R)) * std::fabs(modgeo(longitude - m_lonOrigin));
    // Kept: first order, and negative east of the central meridian in the north; surveys are
    // logged with this sign.
    const double sign = modgeo(m_lonOrigin - longitude) < 0.0 ? -1.0 : 1.0;
    convergence = (latitude >= 0.0 ? sign : -sign) * size - m_gridSkew;
}

double CTMprj::PointScaleFactor(double easting, double northing) const
{
    double latitude = 0.0;
    double longitude = 0.0;
    GridToGeo(easting, northing, latitude, longitude);
    // Kept: the distance from the central meridian is that of an unskewed grid.
    const double dE = easting - m_falseEasting;
    const double R2 = LineScale::SquaredMeanRadius(m_scaleFactor, SemiMajorInUnits(), m_ellipsoid.eccSquared, latitude);
    return (dE * dE / (2.0 * R2) + 1.0) * m_scaleFactor;
}

void CTMprj::PointScaleFactor(double easting, double northing, double& factor) const
{
    CProjection::PointScaleFactor(easting, northing, factor);
}

double CTMprj::LineScaleFactor(double easting1, double northing1, double easting2, double northing2) const
{
    double latitude = 0.0;
    double longitude = 0.0;
    GridToGeo((easting1 + easting2) / 2.0, (northing1 + northing2) / 2.0, latitude, longitude);
    const double R2 = LineScale::SquaredMeanRadius(m_scaleFactor, SemiMajorInUnits(), m_ellipsoid.eccSquared, latitude);
    return LineScale::MeanRadius(m_scaleFactor, R2, easting1 - m_falseEasting, easting2 - m_falseEasting);
}

void CTMprj::LineScaleFactor(double easting1, double northing1, double easting2, double northing2, double& factor) const
{
    CProjection::LineScaleFactor(easting1, northing1, easting2, northing2, factor);
}

bool CTMprj::GetProjectionConstants(CArray<double, double>& values, CStringArray& names, CStringArray& texts,
                                    CArray<UINT, UINT>& kinds) const
{
    return CProjection::GetProjectionConstants(values, names, texts, kinds);
}

void CTMprj::GetGeoKeys(std::list<std::pair<int, short>>& codes, std::list<std::pair<int, double>>& parameters) const
{
    GeoKeysByForm(*this, Form(), codes, parameters);
}

void CTMprj::DumpParametersXml(std::wostream& stream, const std::wstring& indent) const
{
    DumpXmlByForm(*this, Form(), stream, indent);
}
