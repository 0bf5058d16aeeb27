#include "convert/Frame.h"

namespace {

constexpr FrameTraits kFrames[] = {{Frame::sat, "sat", {"lat", "lon", "h"}, true, true},
                                   {Frame::geo, "geo", {"lat", "lon", "h"}, true, true},
                                   {Frame::grid, "grid", {"E", "N", "h"}, false, true},
                                   {Frame::satXyz, "sat-xyz", {"X", "Y", "Z"}, false, false},
                                   {Frame::geoXyz, "geo-xyz", {"X", "Y", "Z"}, false, false}};

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

const char* FrameNames()
{
    return "sat, geo, grid, sat-xyz, geo-xyz";
}
