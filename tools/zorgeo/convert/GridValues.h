#pragma once

#include <optional>

#include "base/geoid/CorrectionGrid.h"
#include "convert/Calculation.h"

/// The calculation of `geoid`: what a grid file holds at a position. Heights and shifts of easting
/// and northing are metres, shifts of latitude and longitude arc seconds, north and east positive.
class GridValues : public Calculation {
public:
    /// `grid` must outlive the object. With `inverse` the shifts that brought a position to where it
    /// is, and the height where it came from.
    GridValues(const CorrectionGrid& grid, bool inverse, std::optional<int> decimals);

    const ResultForm& Results() const override { return m_form; }
    bool NeedsTime() const override { return false; }
    const char* Calculate(const LineValues& in, LineResults& out, std::string& detail) const override;

private:
    bool Geographic(const Position& in, LineResults& out) const;
    bool OfPlane(const Position& in, LineResults& out) const;

    const CorrectionGrid& m_grid;
    bool m_inverse;
    ResultForm m_form;
};
