#pragma once

#include <optional>
#include <utility>
#include <vector>

#include "base/Export.h"
#include "base/geoid/ShiftInverse.h"
#include "base/text/CString.h"

/// What a grid file says of itself, for a user to read.
struct GridDescription {
    struct Part {
        CString name; ///< of a sub-grid; empty where the format has none
        CString parent;
        double south = 0.0; ///< the outermost nodes; degrees, east positive, or metres
        double north = 0.0;
        double west = 0.0;
        double east = 0.0;
        double stepNorth = 0.0;
        double stepEast = 0.0;
        std::size_t rows = 0;
        std::size_t columns = 0;
    };
    CString format;
    bool geographic = true; ///< positions are degrees, else metres of easting and northing
    std::vector<std::pair<CString, CString>> remarks;
    std::vector<Part> parts;
};

/// The contents of one grid file: heights, or shifts, at nodes, and a rule between them. Metres and
/// degrees.
///
/// Nothing is given outside the grid, beside nodes without data as each format tells, and for NaN;
/// nothing is ever continued beyond the outermost nodes. Immutable: any number of threads may ask at
/// once. To ask allocates nothing, opens nothing, locks nothing.
class ZORBASE_API CorrectionGrid {
public:
    CorrectionGrid() = default;
    virtual ~CorrectionGrid();
    CorrectionGrid(const CorrectionGrid&) = delete;
    CorrectionGrid& operator=(const CorrectionGrid&) = delete;

    /// A position twice: degrees, and metres of the grid. A file uses the pair that it is made for.
    struct Place {
        double latitude;
        double longitude;
        double easting;
        double northing;
    };

    virtual bool HasHeights() const noexcept { return false; }
    virtual bool HasGeoShifts() const noexcept { return false; }
    virtual bool HasGridShifts() const noexcept { return false; }

    /// Geoid height above the ellipsoid, metres.
    virtual std::optional<double> HeightAt(const Place& place) const;
    /// Shift of latitude and longitude in degrees, east positive. `inverse`: the shift that brought
    /// a position here, to be taken off.
    virtual std::optional<PlaneShift> GeoShiftAt(double latitude, double longitude, bool inverse) const;
    /// The same for easting and northing, metres.
    virtual std::optional<PlaneShift> GridShiftAt(double easting, double northing, bool inverse) const;

    virtual GridDescription Describe() const = 0;
};
