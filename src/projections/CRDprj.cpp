#include "projections/CRDprj.h"

#include <cmath>
#include <iterator>
#include <span>

#include "projections/LineScale.h"
#include "projections/ParameterForm.h"
#include "projections/ProjectionType.h"
#include "projections/RDScale.h"

namespace {

// The centre of the grid, the church of Amersfoort.
constexpr double kFalseEasting = 155000.0;  // metres
constexpr double kFalseNorthing = 463000.0; // metres
constexpr double kLatOrigin = 187762.178;   // arc seconds
constexpr double kLonOrigin = 19395.5;      // arc seconds
constexpr double kLonOriginDegrees = 5.387638889;
constexpr double kArcSeconds = 3600.0; // of a degree

// What makes the arguments of the series numbers of the size of 1.
constexpr double kSecondsPerArgument = 10000.0;
constexpr double kMetresPerArgument = 100000.0;

// coefficient * first^i * second^j
struct Term {
    int i, j;
    double coefficient;
};

// Metres, by differences of latitude and of longitude.
constexpr Term kEasting[] = {{0, 1, 190066.98903}, {1, 1, -11830.85831}, {2, 1, -114.19754},
                             {0, 3, -32.3836},     {3, 1, -2.34078},     {1, 3, -0.60639},
                             {2, 3, 0.15774},      {4, 1, -0.04158},     {0, 5, -0.00661}};
constexpr Term kNorthing[] = {{1, 0, 309020.3181}, {2, 0, 72.97141}, {0, 2, 3638.36193}, {1, 2, -157.95222},
                              {3, 0, 59.79734},    {2, 2, -6.43481}, {4, 0, -0.03444},   {0, 4, 0.09351},
                              {3, 2, -0.07379},    {1, 4, -0.05419}};

// Arc seconds, by eastings and northings from the origin.
constexpr Term kLatitude[] = {{0, 1, 3236.0331637}, {2, 0, -32.5915821}, {0, 2, -0.2472814}, {2, 1, -0.8501341},
                              {0, 3, -0.0655238},   {2, 2, -0.0171137},  {4, 0, 0.0052771},  {2, 3, -0.0003859},
                              {4, 1, 0.0003314},    {0, 4, 0.0000371},   {4, 2, 0.0000143},  {2, 4, -0.000009}};
constexpr Term kLongitude[] = {{1, 0, 5261.3028966}, {1, 1, 105.9780241}, {1, 2, 2.4576469},  {3, 0, -0.8192156},
                               {3, 1, -0.0560092},   {1, 3, 0.0560089},   {3, 2, -0.0025614}, {1, 4, 0.001277},
                               {5, 0, 0.0002574},    {3, 3, -0.0000973},  {5, 1, 0.0000293},  {1, 5, 0.0000291}};

// The powers of a number up to the highest that the tables hold.
class Powers {
public:
    explicit Powers(double x)
    {
        for (std::size_t i = 1; i < std::size(m_values); ++i) {
            m_values[i] = m_values[i - 1] * x;
        }
    }
    double operator[](int i) const { return m_values[static_cast<std::size_t>(i)]; }

private:
    double m_values[6] = {1.0};
};

double Sum(std::span<const Term> terms, const Powers& first, const Powers& second)
{
    double sum = 0.0;
    for (const Term& term : terms) {
        sum += term.coefficient * first[term.i] * second[term.j];
    }
    return sum;
}

} // namespace

CRDprj::CRDprj() : CProjection(ProjectionType::rd) {}

CRDprj::~CRDprj() = default;

std::uint32_t CRDprj::InitConstants()
{
    return SetStatus(m_ellipsoid.status == Ellipsoid::good ? ProjectionStatus::usable : ProjectionStatus::badEllipsoid);
}

bool CRDprj::LoadParameters(FileObject& file, const CString& section)
{
    return TakeSection(file, section) && InitConstants() == ProjectionStatus::usable;
}

bool CRDprj::SaveParameters(FileObject& file, const CString& section)
{
    return WriteType(*this, file, section);
}

// p, u differences of latitude and longitude from the origin.
void CRDprj::GeoToGrid(double latitude, double longitude, double& easting, double& northing) const
{
    const Powers p((latitude * kArcSeconds - kLatOrigin) / kSecondsPerArgument);
    const Powers u((longitude * kArcSeconds - kLonOrigin) / kSecondsPerArgument);
    easting = kFalseEasting + Sum(kEasting, p, u);
    northing = kFalseNorthing + Sum(kNorthing, p, u);
}

void CRDprj::GridToGeo(double easting, double northing, double& latitude, double& longitude) const
{
    const Powers x((easting - kFalseEasting) / kMetresPerArgument);
    const Powers y((northing - kFalseNorthing) / kMetresPerArgument);
    latitude = (kLatOrigin + Sum(kLatitude, x, y)) / kArcSeconds;
    longitude = (kLonOrigin + Sum(kLongitude, x, y)) / kArcSeconds;
}

void CRDprj::GridConvergence(double easting, double northing, double& convergence) const
{
    double latitude = 0.0;
    double longitude = 0.0;
    GridToGeo(easting, northing, latitude, longitude);
    convergence = std::sin(latitude * D_TO_R) * -(longitude - kLonOriginDegrees);
}

double CRDprj::PointScaleFactor(double easting, double northing) const
{
    return RDScale::Point(easting - kFalseEasting, northing - kFalseNorthing);
}

void CRDprj::PointScaleFactor(double easting, double northing, double& factor) const
{
    CProjection::PointScaleFactor(easting, northing, factor);
}

double CRDprj::LineScaleFactor(double easting1, double northing1, double easting2, double northing2) const
{
    return LineScale::HarmonicSimpson(*this, easting1, northing1, easting2, northing2);
}

void CRDprj::LineScaleFactor(double easting1, double northing1, double easting2, double northing2, double& factor) const
{
    CProjection::LineScaleFactor(easting1, northing1, easting2, northing2, factor);
}

// Kept: as for RDProjection, nothing is handed out.
bool CRDprj::GetProjectionConstants(CArray<double, double>&, CStringArray&, CStringArray&, CArray<UINT, UINT>&) const
{
    return GetStatus() == static_cast<std::int32_t>(ProjectionStatus::usable);
}

void CRDprj::GetGeoKeys(std::list<std::pair<int, short>>&, std::list<std::pair<int, double>>&) const {}
