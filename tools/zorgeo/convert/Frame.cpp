#include "convert/Frame.h"

namespace {

using Names = std::array<const char*, 3>;
using EndNames = std::array<Names, 2>;

constexpr Names kGeographic = {"lat", "lon", "h"};
constexpr Names kGrid = {"E", "N", "h"};
constexpr Names kCartesian = {"X", "Y", "Z"};
constexpr EndNames kGeographicEnds = {{{"lat1", "lon1", "h1"}, {"lat2", "lon2", "h2"}}};
constexpr EndNames kGridEnds = {{{"E1", "N1", "h1"}, {"E2", "N2", "h2"}}};
constexpr EndNames kCartesianEnds = {{{"X1", "Y1", "Z1"}, {"X2", "Y2", "Z2"}}};

constexpr FrameTraits kFrames[] = {{Frame::sat, "sat", kGeographic, kGeographicEnds, true, true},
                                   {Frame::geo, "geo", kGeographic, kGeographicEnds, true, true},
                                   {Frame::grid, "grid", kGrid, kGridEnds, false, true},
                                   {Frame::satXyz, "sat-xyz", kCartesian, kCartesianEnds, false, false},
                                   {Frame::geoXyz, "geo-xyz", kCartesian, kCartesianEnds, false, false}};

} // namespace

const FrameTraits& TraitsOf(Frame frame)
{
    return kFrames[static_cast<std::size_t>(frame)];
}

std::optional<Frame> FrameOfName(std::string_view name)
{
    for (const FrameTraits& traits : kFrames) {
        if (name == traits.name) {
            return traits.frame;
        }
    }
    return {};
}

const char* FrameNames(bool cartesian)
{
    return cartesian ? "sat, geo, grid, sat-xyz, geo-xyz" : "sat, geo, grid";
}
