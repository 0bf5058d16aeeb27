#pragma once

#include <memory>
#include <vector>

#include "base/geoid/CorrectionGrid.h"
#include "base/geoid/GridBytes.h"
#include "base/geoid/NodeAxis.h"

/// The text grid of Great Britain's national transformation (Ordnance Survey: A Guide to Coordinate
/// Systems in Great Britain): at each kilometre of the grid the shift from ETRS89 coordinates in the
/// national projection to National Grid coordinates, and the geoid height above the ETRS89 ellipsoid.
/// Bilinear; metres throughout.
///
/// A line a node, `record,easting,northing,east shift,north shift,geoid height,datum flag`, rows from
/// the south, in a row from the west; any rectangle of whole kilometres. A header line may stand first.
/// A node with flag 0, or with shifts and height 0, is outside the model, and where such a node has
/// weight nothing is given.
class ZORBASE_API BritishTextGrid final : public CorrectionGrid {
public:
    /// Null with `reason` told when the text is no whole grid of this kind.
    static std::unique_ptr<BritishTextGrid> Load(const GridBytes& contents, CString& reason);

    bool HasHeights() const noexcept override { return true; }
    bool HasGridShifts() const noexcept override { return true; }
    std::optional<double> HeightAt(const Place& place) const override;
    std::optional<PlaneShift> GridShiftAt(double easting, double northing, bool inverse) const override;
    GridDescription Describe() const override;

private:
    struct Node {
        double east;
        double north;
        double height;
        bool inside;
    };
    class Loader;

    BritishTextGrid() = default;
    bool Interpolate(double easting, double northing, Node& values) const;

    NodeAxis m_eastings;
    NodeAxis m_northings;
    std::vector<Node> m_nodes;
    bool m_hasHeader = false;
};
