#pragma once

#include <array>
#include <memory>
#include <string>
#include <vector>

#include "base/geoid/CorrectionGrid.h"
#include "base/geoid/GridBytes.h"
#include "base/geoid/NodeAxis.h"

/// Shifts of latitude and longitude in the NTv2 format (National Transformation version 2, Geodetic
/// Survey of Canada), in either byte order, with sub-grids. Bilinear, in arc seconds.
///
/// A position belongs to the deepest sub-grid that contains it, and of several top grids to the first.
/// Forward leads from the file's first system to its second. Inverse: by fixed point, each round in the
/// sub-grid of the estimate, so that forward leads back; where sub-grids do not meet, and the estimate
/// swings from one to the other, in the one that contains the given position.
class ZORBASE_API Ntv2Grid final : public CorrectionGrid {
public:
    /// Null with `reason` told when the bytes are no whole NTv2 file.
    static std::unique_ptr<Ntv2Grid> Load(const GridBytes& contents, CString& reason);

    bool HasGeoShifts() const noexcept override { return true; }
    std::optional<PlaneShift> GeoShiftAt(double latitude, double longitude, bool inverse) const override;
    GridDescription Describe() const override;

private:
    static constexpr std::size_t kNone = static_cast<std::size_t>(-1);

    /// Seconds, longitudes positive west as the file has them.
    struct SubGrid {
        std::string name;
        std::string parent;
        NodeAxis latitudes;
        LongitudeAxis longitudes;
        std::size_t nodes = 0; // place of the first in the file
        // Its neighbours in the tree, by place; the first top grid stands at place 0.
        std::size_t above = kNone;
        std::size_t firstChild = kNone;
        std::size_t next = kNone; // with the same parent
        std::size_t depth = 0;

        /// False, `cell` untouched, outside.
        bool Locate(double latitude, double west, CellPlace& cell) const;
    };
    class Loader;

    Ntv2Grid() = default;
    const SubGrid* Find(double latitude, double west, CellPlace& cell) const;
    std::size_t Behind(std::size_t at) const;
    std::optional<PlaneShift> ShiftAt(double latitude, double longitude, const SubGrid* only) const;
    std::optional<PlaneShift> Interpolate(const SubGrid& grid, const CellPlace& cell) const;

    GridBytes m_contents;
    ByteOrder m_order = ByteOrder::little;
    std::string m_version;
    std::array<std::string, 2> m_systems; // from, to
    std::array<double, 4> m_axes{};       // major and minor of either, metres
    std::vector<SubGrid> m_grids;         // at least one
};
