#include <gtest/gtest.h>

#include <geodesic.h>

#include <algorithm>
#include <cmath>
#include <sstream>
#include <string>

#include "tests/support/ProjOracle.h"
#include "tests/support/ProjectionRecord.h"

// The series against PROJ's "tmerc": the approximate one, which is the same series with other ends,
// and the exact one, which is the projection. The bounds are those of docs/accuracy.md.

namespace {

struct Shape {
    const char* name;
    EllipsoidShape shape;
};

const Shape kShapes[] = {
    {"GRS 1980", kGrs80},
    {"Airy 1830", kAiry},
    {"Bessel 1841", {6377397.155, 0.0066743722306140105}},
    {"Clarke 1866", kClarke1866},
    {"International 1924", {6378388.0, 0.0067226700223333219}},
};

constexpr double kUnits[] = {1.0, 0.3048, 1200.0 / 3937.0};

constexpr double kK0 = 0.9996;
constexpr double kLon0 = 9.0;
constexpr double kFalseEasting = 500000.0; // metres
constexpr double kLatitudeEnd = 84.0;

/// One system here and in PROJ.
class Judged {
public:
    Judged(const Shape& shape, double unit, const char* algorithm)
        : m_unit(unit),
          m_projection(Loaded(0, shape.shape,
                              ProjectionRecord({{3, 0.0}, {4, kLon0}, {5, kFalseEasting / unit}, {6, 0.0}, {7, kK0}}))),
          m_proj(Definition(shape, unit) + algorithm), m_metres(unit)
    {
    }

    struct Difference {
        double east = 0.0, north = 0.0, latitude = 0.0, longitude = 0.0; // millimetres on the ground

        void Widen(const Difference& other)
        {
            east = std::max(east, other.east);
            north = std::max(north, other.north);
            latitude = std::max(latitude, other.latitude);
            longitude = std::max(longitude, other.longitude);
        }
    };

    Difference At(double latitude, double longitude) const
    {
        const auto grid = m_proj.Forward(ProjOracle::Radians(longitude), ProjOracle::Radians(latitude));
        const auto geo = m_proj.Inverse(grid.x, grid.y);
        double easting = 0.0;
        double northing = 0.0;
        double phi = 0.0;
        double lambda = 0.0;
        m_projection->GeoToGrid(latitude, longitude, easting, northing);
        m_projection->GridToGeo(grid.x, grid.y, phi, lambda);
        constexpr double kMillimetres = 1000.0;
        constexpr double kArc = 111.2e3 * kMillimetres; // of a degree
        return {std::fabs(easting - grid.x) * m_metres * kMillimetres,
                std::fabs(northing - grid.y) * m_metres * kMillimetres,
                std::fabs(phi - ProjOracle::Degrees(geo.y)) * kArc,
                std::fabs(lambda - ProjOracle::Degrees(geo.x)) * kArc * std::cos(latitude * D_TO_R)};
    }

    /// The largest difference `offset` degrees east and west of the central meridian.
    Difference AtDistance(double offset) const
    {
        Difference worst;
        for (double latitude = -kLatitudeEnd; latitude <= kLatitudeEnd; latitude += 0.5) {
            worst.Widen(At(latitude, kLon0 + offset));
            worst.Widen(At(latitude, kLon0 - offset));
        }
        return worst;
    }

private:
    static std::string Definition(const Shape& shape, double unit)
    {
        std::ostringstream text;
        text.precision(17);
        text << "+proj=tmerc +lon_0=" << kLon0 << " +k=" << kK0 << " +x_0=" << kFalseEasting << " +a=" << shape.shape.a
             << " +es=" << shape.shape.e2 << " +to_meter=" << unit;
        return text.str();
    }

    MainDirectory m_main{MainDirectory::Delivered()};
    LinearUnit m_unit;
    std::unique_ptr<CProjection> m_projection;
    ProjOracle m_proj;
    double m_metres;
};

/// Bounds in millimetres at a distance in degrees from the central meridian.
struct Bound {
    double offset, east, north, latitude, longitude;
};

void ExpectWithin(const char* algorithm, const Bound* first, const Bound* last)
{
    for (const Shape& shape : kShapes) {
        for (const double unit : kUnits) {
            const Judged judged(shape, unit, algorithm);
            for (const Bound* bound = first; bound != last; ++bound) {
                SCOPED_TRACE(testing::Message() << shape.name << ", unit " << unit << ", " << bound->offset << " deg");
                const Judged::Difference found = judged.AtDistance(bound->offset);
                EXPECT_LE(found.east, bound->east);
                EXPECT_LE(found.north, bound->north);
                EXPECT_LE(found.latitude, bound->latitude);
                EXPECT_LE(found.longitude, bound->longitude);
            }
        }
    }
}

TEST(CTMprjAgainstProj, DiffersFromTheApproximateSeriesByItsEndsAlone)
{
    const Bound bounds[] = {
        {0.0, 2e-6, 0.0055, 0.006, 1e-6},   {1.0, 2e-6, 0.0055, 0.006, 0.0002}, {2.0, 2e-6, 0.0055, 0.006, 0.0002},
        {3.0, 2e-6, 0.0055, 0.006, 0.0002}, {4.0, 2e-6, 0.023, 0.041, 0.0025},  {5.0, 2e-6, 0.13, 0.27, 0.012},
        {6.0, 2e-6, 0.56, 1.25, 0.045},
    };
    ExpectWithin(" +approx", std::begin(bounds), std::end(bounds));
}

TEST(CTMprjAgainstProj, IsCloseToTheExactProjection)
{
    const Bound bounds[] = {
        {0.0, 2e-6, 0.0002, 0.001, 1e-6},   {1.0, 0.0001, 0.0002, 0.001, 0.0001}, {2.0, 0.002, 0.0003, 0.001, 0.0005},
        {3.0, 0.017, 0.003, 0.007, 0.0042}, {4.0, 0.08, 0.027, 0.064, 0.02},      {5.0, 0.29, 0.15, 0.38, 0.082},
        {6.0, 0.86, 0.63, 1.6, 0.41},
    };
    ExpectWithin("", std::begin(bounds), std::end(bounds));
}

/// South-orientated grids (IOGP method 9808) count southings and westings: a grid skew of 180.
TEST(CTMprjAgainstProj, AGridSkewOf180IsASouthOrientatedGrid)
{
    const MainDirectory main(MainDirectory::Delivered());
    const auto projection =
        Loaded(0, kGrs80, ProjectionRecord({{3, 0.0}, {4, 29.0}, {5, 0.0}, {6, 0.0}, {7, 1.0}, {16, 180.0}}));
    const ProjOracle proj("+proj=tmerc +lon_0=29 +ellps=GRS80 +axis=wsu");
    for (const double latitude : {-35.0, -25.73, -22.0}) {
        for (const double longitude : {28.0, 28.28, 29.0, 30.0}) {
            const auto expected = proj.Forward(ProjOracle::Radians(longitude), ProjOracle::Radians(latitude));
            double westing = 0.0;
            double southing = 0.0;
            projection->GeoToGrid(latitude, longitude, westing, southing);
            EXPECT_NEAR(westing, expected.x, 1e-6);
            EXPECT_NEAR(southing, expected.y, 1e-6);
        }
    }
}

// The first-order rules against the derivatives of the exact projection.
class FirstOrder : public testing::Test {
protected:
    ~FirstOrder() override
    {
        proj_destroy(m_operation);
        proj_context_destroy(m_context);
    }

    PJ_FACTORS Factors(double latitude, double longitude) const
    {
        return proj_factors(m_operation,
                            proj_coord(ProjOracle::Radians(longitude), ProjOracle::Radians(latitude), 0.0, 0.0));
    }

    MainDirectory m_main{MainDirectory::Delivered()};
    std::unique_ptr<CProjection> m_projection =
        Loaded(0, kGrs80, ProjectionRecord({{3, 0.0}, {4, kLon0}, {5, kFalseEasting}, {6, 0.0}, {7, kK0}}));
    PJ_CONTEXT* m_context = proj_context_create();
    PJ* m_operation = proj_create(m_context, "+proj=tmerc +lon_0=9 +k=0.9996 +x_0=500000 +ellps=GRS80");
};

// The next term of the convergence: L^3 sin(lat) cos^2(lat) (1 + 3 eta^2) / 3.
TEST_F(FirstOrder, ConvergenceLacksTheCubeOfTheDifferenceOfLongitude)
{
    for (const double latitude : {-70.0, -30.0, 0.0, 20.0, 45.0, 80.0}) {
        for (const double offset : {-6.0, -3.0, -1.0, 0.0, 0.5, 2.0, 6.0}) {
            double easting = 0.0;
            double northing = 0.0;
            double convergence = 0.0;
            m_projection->GeoToGrid(latitude, kLon0 + offset, easting, northing);
            m_projection->GridConvergence(easting, northing, convergence);
            const double s = std::sin(latitude * D_TO_R);
            const double c = std::cos(latitude * D_TO_R);
            const double next = std::pow(offset * D_TO_R, 3) / 3.0 * s * c * c * (1.0 + 0.0202 * c * c) / D_TO_R;
            const double exact = -ProjOracle::Degrees(Factors(latitude, kLon0 + offset).meridian_convergence);
            EXPECT_NEAR(convergence - next, exact, 1e-7 + std::fabs(next) * 0.02) << latitude << " " << offset;
        }
    }
}

// The next term of the scale factor: (d / R)^4 / 24, and R varies by e2 along the distance.
TEST_F(FirstOrder, PointScaleLacksTheFourthPowerOfTheDistance)
{
    for (const double latitude : {-70.0, -30.0, 0.0, 20.0, 45.0, 80.0}) {
        for (const double offset : {-6.0, -3.0, -1.0, 0.0, 0.5, 2.0, 6.0}) {
            double easting = 0.0;
            double northing = 0.0;
            m_projection->GeoToGrid(latitude, kLon0 + offset, easting, northing);
            const double distance = (easting - kFalseEasting) / (kK0 * 6.378e6);
            const double exact = Factors(latitude, kLon0 + offset).meridional_scale;
            const double next = std::pow(distance, 4) / 24.0;
            EXPECT_NEAR(m_projection->PointScaleFactor(easting, northing), exact, 1e-10 + 1.6 * next)
                << latitude << " " << offset;
        }
    }
}

// A line's scale factor is its length on the grid over its length on the ellipsoid (Karney's geodesic).
TEST_F(FirstOrder, LineScaleIsGridOverGeodesicDistance)
{
    geod_geodesic ellipsoid;
    geod_init(&ellipsoid, 6378137.0, 1.0 / 298.257222101);
    struct Row {
        double lat1, lon1, lat2, lon2;
    };
    const Row rows[] = {{52.0, 9.5, 52.1, 9.6},   {52.0, 10.0, 52.0, 10.3},  {-20.0, 8.0, -20.3, 7.9},
                        {0.0, 8.9, 0.0, 9.1},     {65.0, 11.0, 65.2, 11.0},  {40.0, 7.0, 40.2, 7.2},
                        {52.0, 11.9, 52.0, 12.0}, {-10.0, 10.5, -9.9, 10.49}};
    for (const Row& row : rows) {
        double e1 = 0.0;
        double n1 = 0.0;
        double e2 = 0.0;
        double n2 = 0.0;
        m_projection->GeoToGrid(row.lat1, row.lon1, e1, n1);
        m_projection->GeoToGrid(row.lat2, row.lon2, e2, n2);
        double geodesic = 0.0;
        geod_inverse(&ellipsoid, row.lat1, row.lon1, row.lat2, row.lon2, &geodesic, nullptr, nullptr);
        const double distance = std::max(std::fabs(e1 - kFalseEasting), std::fabs(e2 - kFalseEasting)) / 6.37e6;
        const double next = std::pow(distance, 4) / 24.0;
        EXPECT_NEAR(m_projection->LineScaleFactor(e1, n1, e2, n2), std::hypot(e2 - e1, n2 - n1) / geodesic, 3e-9 + next)
            << row.lat1 << " " << row.lon1;
    }
}

} // namespace
