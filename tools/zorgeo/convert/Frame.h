#pragma once

#include <array>
#include <optional>
#include <string_view>

/// Where a position is told: on the satellite ellipsoid, on the system's own ellipsoid, in the
/// grid, or as cartesian metres of one of the two ellipsoids.
enum class Frame { sat, geo, grid, satXyz, geoXyz };

/// How the coordinates of a frame are called and written.
struct FrameTraits {
    Frame frame;
    const char* name;                       ///< on the command line
    std::array<const char*, 3> coordinates; ///< names of the columns, in their default order
    /// The same for the two ends of a line.
    std::array<std::array<const char*, 3>, 2> ends;
    bool angles;         ///< the first two are degrees
    bool heightOptional; ///< the third may be left out
};

const FrameTraits& TraitsOf(Frame frame);
/// No frame of that name gives none.
std::optional<Frame> FrameOfName(std::string_view name);
/// "sat, geo, grid", and with the cartesian ones ", sat-xyz, geo-xyz".
const char* FrameNames(bool cartesian);
