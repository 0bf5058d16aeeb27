#pragma once

#include "convert/Calculation.h"
#include "convert/PositionConverter.h"

/// What is asked of `factors`.
struct FactorRequest {
    Frame from = Frame::grid; ///< no cartesian one
    bool lines = false;       ///< two positions: a line of the survey
    bool checkBack = false;   ///< convert back and compare
    int factorDecimals = 8;   ///< of the convergence, in degrees, and of scale factors
    int distanceDecimals = 3;
};

/// The calculation of `factors`: grid convergence and point scale factor of a position; of a line
/// those of its first end, its line scale factor and its length on the grid, in the system's
/// linear unit. All are the projection's at the position in the system's grid, that is, with the
/// post corrections in it.
class GridFactors : public Calculation {
public:
    /// `system` must outlive the object.
    GridFactors(const OpenedSystem& system, const FactorRequest& request);

    const ResultForm& Results() const override { return m_form; }
    bool NeedsTime() const override { return m_positions.NeedsTime(); }
    const char* Calculate(const LineValues& in, LineResults& out, std::string& detail) const override;

private:
    const char* ToGrid(const LineValues& in, std::size_t end, Position& grid, std::string& detail) const;
    const char* OfPoint(const Position& grid, LineResults& out) const;
    const char* OfLine(const Position& from, const Position& to, LineResults& out) const;

    const ZorGeoCoordSysBase& m_coordSys;
    PositionConverter m_positions;
    bool m_fromGrid;
    bool m_lines;
    ResultForm m_form;
};
