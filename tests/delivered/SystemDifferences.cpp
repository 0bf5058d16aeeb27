#include "SystemDifferences.h"

#include <algorithm>
#include <cmath>
#include <random>
#include <sstream>
#include <vector>

#include "PublishedSystem.h"
#include "coordsys/ZORGeoCoordSys.h"

namespace {

constexpr double kMetresPerDegree = 111319.5;
constexpr double kDegrees = 57.29577951308232;
constexpr int kRandomPlaces = 5;
constexpr int kNet = 9;          // places along each side of the box
constexpr double kInset = 0.001; // of the side: poles and the edges of the world stay out

struct Place {
    double latitude = 0.0;
    double longitude = 0.0;
};

double Folded(double longitude)
{
    return std::remainder(longitude, 360.0);
}

Place At(const AreaBox& box, double across, double up)
{
    const double width = box.east > box.west ? box.east - box.west : box.east - box.west + 360.0;
    return {box.south + up * (box.north - box.south), Folded(box.west + across * width)};
}

std::vector<Place> PlacesIn(const WorldSystem& system, Places places)
{
    std::vector<Place> made;
    for (const AreaBox& box : system.boxes) {
        std::mt19937 random(static_cast<unsigned>(system.published));
        std::uniform_real_distribution<double> share(0.0, 1.0);
        for (int i = 0; i < kRandomPlaces; ++i) {
            const double across = share(random);
            made.push_back(At(box, across, share(random)));
        }
        for (int i = 0; places == Places::everywhere && i < kNet * kNet; ++i) {
            const auto step = [](int n) { return kInset + (1.0 - 2.0 * kInset) * n / (kNet - 1); };
            made.push_back(At(box, step(i % kNet), step(i / kNet)));
        }
    }
    return made;
}

// Not a number, and what PROJ refuses, count as infinitely far.
double OrInfinite(double distance)
{
    return std::isfinite(distance) ? distance : HUGE_VAL;
}

double OnGround(const PublishedSystem::Pair& a, double latitude, double longitude)
{
    return OrInfinite(std::hypot(a.first - latitude, Folded(a.second - longitude) * std::cos(a.first / kDegrees)) *
                      kMetresPerDegree);
}

class Comparison {
public:
    Comparison(const ZORGeoCoordSys& system, const PublishedSystem& published, double metresPerUnit)
        : m_system(system), m_published(published), m_metresPerUnit(metresPerUnit)
    {
    }

    void Add(const Place& place)
    {
        const PublishedSystem::Pair grid = m_published.ToGrid(place.latitude, place.longitude);
        Keep(m_result.forward, Forward(place, grid), place, "forward");
        Keep(m_result.inverse, Inverse(grid), place, "inverse");
        Keep(m_result.road, Road(place, grid), place, "road");
        m_result.convergence = std::max(m_result.convergence, Convergence(place, grid));
    }

    SystemDifferences Result() const { return m_result; }

private:
    double OfGrid(double x, double y, const PublishedSystem::Pair& grid) const
    {
        return OrInfinite(std::hypot(x - grid.first, y - grid.second) * m_metresPerUnit);
    }

    double Forward(const Place& place, const PublishedSystem::Pair& grid) const
    {
        double x = 0.0;
        double y = 0.0;
        m_system.GeoToGrid(place.latitude, place.longitude, x, y, true);
        return OfGrid(x, y, grid);
    }

    double Inverse(const PublishedSystem::Pair& grid) const
    {
        const PublishedSystem::Pair expected = m_published.FromGrid(grid.first, grid.second);
        double latitude = 0.0;
        double longitude = 0.0;
        m_system.GridToGeo(grid.first, grid.second, latitude, longitude);
        return OnGround(expected, latitude, longitude);
    }

    double Road(const Place& place, const PublishedSystem::Pair& grid) const
    {
        const PublishedSystem::Pair satellite = m_published.ToSatellite(place.latitude, place.longitude);
        double x = 0.0;
        double y = 0.0;
        double z = 0.0;
        m_system.SatGeoToGrid(satellite.first, satellite.second, satellite.height / m_metresPerUnit, x, y, z, 0.0);
        return OfGrid(x, y, grid);
    }

    double Convergence(const Place& place, const PublishedSystem::Pair& grid) const
    {
        constexpr double kStep = 1e-5; // degrees; a metre, whose curvature is below a microdegree
        const PublishedSystem::Pair north = m_published.ToGrid(place.latitude + kStep, place.longitude);
        const PublishedSystem::Pair south = m_published.ToGrid(place.latitude - kStep, place.longitude);
        double ours = 0.0;
        m_system.GridConvergence(grid.first, grid.second, ours);
        const double expected = std::atan2(north.first - south.first, north.second - south.second) * kDegrees;
        return OrInfinite(std::abs(Folded(ours - expected)));
    }

    void Keep(double& largest, double value, const Place& place, const char* way)
    {
        if (value > largest) {
            largest = value;
        }
        if (value > m_largest) {
            m_largest = value;
            std::ostringstream text;
            text << way << " at " << place.latitude << " " << place.longitude;
            m_result.where = text.str();
        }
    }

    const ZORGeoCoordSys& m_system;
    const PublishedSystem& m_published;
    double m_metresPerUnit;
    double m_largest = 0.0;
    SystemDifferences m_result;
};

} // namespace

std::optional<SystemDifferences> Measure(const WorldSystem& system, Places places, PJ_CONTEXT* context,
                                         FileObject& project)
{
    ZORGeoCoordSys ours;
    if (!ours.Init(system.group, system.name, L"", L"", L"", L"", L"", project, L"none", true)) {
        return std::nullopt;
    }
    double metresPerUnit = 1.0;
    ours.GetLinearUnitCnv(metresPerUnit);
    const PublishedSystem published(context, system.published, system.transformation);
    Comparison comparison(ours, published, metresPerUnit);
    for (const Place& place : PlacesIn(system, places)) {
        comparison.Add(place);
    }
    return comparison.Result();
}
