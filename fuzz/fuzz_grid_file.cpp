// Property: bytes are a grid, which then answers at any place with a finite value or nothing and takes
// off what it put on, or they are refused with a reason.

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <limits>
#include <optional>

#include "base/geoid/GridReader.h"

namespace {

void Require(bool holds, const char* what)
{
    if (!holds) {
        std::fprintf(stderr, "fuzz_grid_file: %s\n", what);
        std::abort();
    }
}

void RequireFinite(const std::optional<PlaneShift>& shift)
{
    Require(!shift || (std::isfinite(shift->first) && std::isfinite(shift->second)), "a shift is not finite");
}

void AskAt(const CorrectionGrid& grid, double first, double second)
{
    const auto height = grid.HeightAt({first, second, second, first});
    Require(!height || std::isfinite(*height), "a height is not finite");
    for (const bool inverse : {false, true}) {
        RequireFinite(grid.GeoShiftAt(first, second, inverse));
        RequireFinite(grid.GridShiftAt(second, first, inverse));
    }
}

// Nodes, edges, places between and beyond of every part.
void AskAll(const CorrectionGrid& grid)
{
    for (const GridDescription::Part& part : grid.Describe().parts) {
        Require(part.rows > 0 && part.columns > 0, "a part without nodes");
        for (const double north : {-0.5, 0.0, 0.25, 0.5, 1.0, 1.5}) {
            for (const double east : {-0.5, 0.0, 0.25, 0.5, 1.0, 1.5}) {
                AskAt(grid, part.south + north * (part.north - part.south), part.west + east * (part.east - part.west));
            }
        }
    }
    constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
    constexpr double kInfinity = std::numeric_limits<double>::infinity();
    for (const double any : {0.0, 90.0, -90.0, 180.0, -180.0, 1e300, kInfinity, kNaN}) {
        AskAt(grid, any, 1.0);
        AskAt(grid, 1.0, any);
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    CString reason;
    const auto grid = ReadGrid(GridBytes::Of({data, data + size}), reason);
    Require(grid != nullptr || !reason.IsEmpty(), "a refusal without a reason");
    if (grid) {
        AskAll(*grid);
    }
    return 0;
}
