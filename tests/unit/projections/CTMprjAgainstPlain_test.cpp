#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <random>

#include "tests/support/PlainTransverseMercator.h"
#include "tests/support/ProjectionRecord.h"

// The production code saves sines and divisions; here it is held against the steps as they are
// written, at two million points and at every singular one.

namespace {

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kInfinity = std::numeric_limits<double>::infinity();

// What two orders of the same arithmetic may differ by: a few last bits of ten million metres, and
// of a radian.
constexpr double kGridTolerance = 1e-8; // metres
constexpr double kGeoTolerance = 1e-13; // degrees of arc on the ground

// Beyond 10 degrees from the central meridian the terms of the series reach a thousand times their
// sum.
constexpr double kFarTolerance = 1e-6; // metres

struct Setting {
    EllipsoidShape shape;
    double unit;
    double lat0, lon0, falseEasting, falseNorthing, k0, skew;
};

const Setting kSettings[] = {
    {kGrs80, 1.0, 0.0, 9.0, 500000.0, 0.0, 0.9996, 0.0},
    {kAiry, 1.0, 49.0, -2.0, 400000.0, -100000.0, 0.9996012717, 0.0},
    {kClarke1866, 0.30480060960121924, 30.0, -90.0, 500000.0, 0.0, 0.9999375, 0.0},
    {kGrs80, 0.3048, -40.0, 179.0, 0.0, 0.0, 1.0, 12.5},
    {{6378137.0, 0.0}, 1.0, 10.0, 0.0, 0.0, 0.0, 1.0, -120.0},
    {{6378137.0, 0.3}, 1.0, 10.0, 0.0, 0.0, 0.0, 1.0, 0.0},
};

class Pair {
public:
    explicit Pair(const Setting& setting)
        : m_setting(setting), m_unit(setting.unit), m_fast(Loaded(0, setting.shape,
                                                                  ProjectionRecord({{3, setting.lat0},
                                                                                    {4, setting.lon0},
                                                                                    {5, setting.falseEasting},
                                                                                    {6, setting.falseNorthing},
                                                                                    {7, setting.k0},
                                                                                    {16, setting.skew}})))
    {
        m_plain.a = setting.shape.a / setting.unit;
        m_plain.e2 = setting.shape.e2;
        m_plain.lat0 = setting.lat0;
        m_plain.lon0 = setting.lon0;
        m_plain.falseEasting = setting.falseEasting;
        m_plain.falseNorthing = setting.falseNorthing;
        m_plain.k0 = setting.k0;
        m_plain.skew = setting.skew;
        m_plain.Prepare();
    }

    const CProjection& Fast() const { return *m_fast; }
    const plain::TransverseMercator& Plain() const { return m_plain; }

    /// Difference of the forward results in metres.
    double Forward(double latitude, double longitude) const
    {
        double easting = 0.0;
        double northing = 0.0;
        m_fast->GeoToGrid(latitude, longitude, easting, northing);
        const auto grid = m_plain.GeoToGrid(latitude, longitude);
        return m_setting.unit * std::max(Difference(easting, grid.easting), Difference(northing, grid.northing));
    }

    /// Difference of the inverse results in degrees of arc on the ground.
    double Inverse(double easting, double northing) const
    {
        double latitude = 0.0;
        double longitude = 0.0;
        m_fast->GridToGeo(easting, northing, latitude, longitude);
        const auto geo = m_plain.GridToGeo(easting, northing);
        const double parallel = std::isnan(geo.latitude) ? 1.0 : std::fabs(std::cos(geo.latitude * D_TO_R));
        return std::max(Difference(latitude, geo.latitude), Difference(longitude, geo.longitude) * parallel);
    }

    /// Both give a number or both none.
    bool SameKind(double easting, double northing) const
    {
        double latitude = 0.0;
        double longitude = 0.0;
        m_fast->GridToGeo(easting, northing, latitude, longitude);
        const auto geo = m_plain.GridToGeo(easting, northing);
        return std::isnan(latitude) == std::isnan(geo.latitude) && std::isnan(longitude) == std::isnan(geo.longitude);
    }

    const Setting& Set() const { return m_setting; }

private:
    static double Difference(double a, double b)
    {
        if (std::isnan(a) || std::isnan(b)) {
            return std::isnan(a) && std::isnan(b) ? 0.0 : kInfinity;
        }
        return a == b ? 0.0 : std::fabs(a - b);
    }

    Setting m_setting;
    MainDirectory m_main{MainDirectory::Delivered()};
    LinearUnit m_unit;
    std::unique_ptr<CProjection> m_fast;
    plain::TransverseMercator m_plain;
};

struct Worst {
    double difference = 0.0;
    double latitude = 0.0;
    double longitude = 0.0;

    void Take(double found, double at, double and_)
    {
        if (!(found <= difference)) {
            *this = {found, at, and_};
        }
    }
};

TEST(CTMprjAgainstPlain, ForwardAtAMillionPoints)
{
    std::mt19937_64 random(20240501);
    for (const Setting& setting : kSettings) {
        const Pair pair(setting);
        Worst worst;
        std::uniform_real_distribution<double> latitude(-90.0, 90.0);
        std::uniform_real_distribution<double> longitude(setting.lon0 - 10.0, setting.lon0 + 10.0);
        for (int i = 0; i < 170000; ++i) {
            const double phi = latitude(random);
            const double lambda = longitude(random);
            worst.Take(pair.Forward(phi, lambda), phi, lambda);
        }
        EXPECT_LE(worst.difference, kGridTolerance) << worst.latitude << " " << worst.longitude;
    }
}

TEST(CTMprjAgainstPlain, ForwardAllRoundTheEarth)
{
    std::mt19937_64 random(20240503);
    std::uniform_real_distribution<double> latitude(-400.0, 400.0);
    std::uniform_real_distribution<double> longitude(-720.0, 720.0);
    for (const Setting& setting : kSettings) {
        const Pair pair(setting);
        Worst worst;
        for (int i = 0; i < 20000; ++i) {
            const double phi = latitude(random);
            const double lambda = longitude(random);
            worst.Take(pair.Forward(phi, lambda), phi, lambda);
        }
        EXPECT_LE(worst.difference, kFarTolerance) << worst.latitude << " " << worst.longitude;
    }
}

TEST(CTMprjAgainstPlain, InverseAtAMillionPoints)
{
    std::mt19937_64 random(20240502);
    for (const Setting& setting : kSettings) {
        const Pair pair(setting);
        Worst worst;
        std::uniform_real_distribution<double> latitude(-89.0, 89.0);
        std::uniform_real_distribution<double> longitude(setting.lon0 - 10.0, setting.lon0 + 10.0);
        for (int i = 0; i < 170000; ++i) {
            const auto grid = pair.Plain().GeoToGrid(latitude(random), longitude(random));
            worst.Take(pair.Inverse(grid.easting, grid.northing), grid.easting, grid.northing);
        }
        EXPECT_LE(worst.difference, kGeoTolerance) << worst.latitude << " " << worst.longitude;
    }
}

TEST(CTMprjAgainstPlain, ForwardAtSingularPoints)
{
    const double latitudes[] = {-kInfinity, -270.0, -180.0, -90.0, std::nextafter(-90.0, 0.0),
                                -0.0,       0.0,    5e-324, 1e-12, 89.9999999999,
                                90.0,       90.5,   180.0,  450.0, 1e300,
                                kInfinity,  kNaN};
    const double offsets[] = {-kInfinity, -1e300, -540.0, -360.0, -180.0, -90.0, -0.0,      0.0, 5e-324,
                              1e-12,      3.0,    90.0,   179.0,  180.0,  360.0, kInfinity, kNaN};
    for (const Setting& setting : kSettings) {
        const Pair pair(setting);
        for (const double latitude : latitudes) {
            for (const double offset : offsets) {
                EXPECT_LE(pair.Forward(latitude, setting.lon0 + offset), kFarTolerance) << latitude << " " << offset;
            }
        }
    }
}

TEST(CTMprjAgainstPlain, InverseAtSingularPoints)
{
    for (const Setting& setting : kSettings) {
        const Pair pair(setting);
        // On the central meridian, to the pole and beyond it.
        for (const double latitude : {-90.0, -45.0, -0.0, 0.0, 1e-12, 60.0, 89.9999999999, 90.0}) {
            const auto grid = pair.Plain().GeoToGrid(latitude, setting.lon0);
            EXPECT_LE(pair.Inverse(grid.easting, grid.northing), kGeoTolerance) << latitude;
        }
        EXPECT_LE(pair.Inverse(setting.falseEasting, setting.falseNorthing), kGeoTolerance);
        // Where the series has lost all meaning: a number from both or from neither.
        const auto pole = pair.Plain().GeoToGrid(90.0, setting.lon0);
        for (const double east : {1e-3, 1e6, -1e9, 1e150, 1e300, kInfinity, kNaN}) {
            EXPECT_TRUE(pair.SameKind(pole.easting + east, pole.northing)) << east;
            EXPECT_TRUE(pair.SameKind(setting.falseEasting, east)) << east;
            EXPECT_TRUE(pair.SameKind(east, setting.falseNorthing)) << east;
            EXPECT_TRUE(pair.SameKind(east, -east)) << east;
        }
    }
}

TEST(CTMprjAgainstPlain, ConvergenceAndScaleFactors)
{
    constexpr double kSame = 1e-13; // of numbers near 1; degrees of arc for the convergence
    std::mt19937_64 random(20240504);
    std::uniform_real_distribution<double> latitude(-89.0, 89.0);
    std::uniform_real_distribution<double> offset(-6.0, 6.0);
    for (const Setting& setting : kSettings) {
        const Pair pair(setting);
        for (int i = 0; i < 10000; ++i) {
            const double phi = latitude(random);
            const auto from = pair.Plain().GeoToGrid(phi, setting.lon0 + offset(random));
            const auto to = pair.Plain().GeoToGrid(phi + 0.5, setting.lon0 + offset(random));
            double convergence = kNaN;
            pair.Fast().GridConvergence(from.easting, from.northing, convergence);
            EXPECT_NEAR(convergence, pair.Plain().Convergence(from.easting, from.northing), 1e-11);
            const double point = pair.Plain().PointScale(from.easting, from.northing);
            EXPECT_NEAR(pair.Fast().PointScaleFactor(from.easting, from.northing), point, kSame * point);
            const double line = pair.Plain().LineScale(from.easting, from.northing, to.easting, to.northing);
            EXPECT_NEAR(pair.Fast().LineScaleFactor(from.easting, from.northing, to.easting, to.northing), line,
                        kSame * line);
        }
    }
}

} // namespace
