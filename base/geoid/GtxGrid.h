#pragma once

#include <memory>

#include "base/geoid/CorrectionGrid.h"
#include "base/geoid/GridBytes.h"
#include "base/geoid/NodeAxis.h"

/// Geoid heights in the GTX format: a header of 40 bytes, then one 32-bit float in metres a node,
/// everything big-endian, rows from south to north and in a row from west to east. Bilinear.
///
/// A node without data holds -88.8888 (nearest 32-bit float), a value beyond 1000 m, or NaN. In a
/// cell with such nodes the mean of the others by their weights serves; where they have no weight
/// nothing is given. Columns all round the Earth close the circle.
class ZORBASE_API GtxGrid final : public CorrectionGrid {
public:
    /// Null with `reason` told when the bytes are no whole GTX file.
    static std::unique_ptr<GtxGrid> Load(const GridBytes& contents, CString& reason);

    bool HasHeights() const noexcept override { return true; }
    std::optional<double> HeightAt(const Place& place) const override;
    GridDescription Describe() const override;

private:
    GtxGrid(const GridBytes& contents, const NodeAxis& latitudes, const LongitudeAxis& longitudes);

    GridBytes m_contents;
    NodeAxis m_latitudes;
    LongitudeAxis m_longitudes;
};
