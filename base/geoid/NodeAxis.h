#pragma once

#include <cmath>
#include <cstddef>

/// The two nodes of an axis between which a place lies, and the share of the second: 0 on the
/// first, 1 on the second.
struct NodePlace {
    std::size_t low = 0;
    std::size_t high = 0;
    double share = 0.0;
};

/// How far, in steps, a place may lie beyond the last node and still count as on it, with that
/// node's value: rounding of coordinates, a millimetre for steps of ten degrees, and for each step
/// of the axis what a header loses that gives it with nine digits; together a centimetre or two
/// for a grid of the whole Earth. Nothing is continued beyond the edge.
constexpr double kPlaceRounding = 1e-9;
constexpr double kStepRounding = 5e-9;

/// The equally spaced nodes of a grid along one of its directions.
struct NodeAxis {
    double first = 0.0;
    double step = 1.0;     ///< above 0
    std::size_t count = 1; ///< of nodes, at least 1

    double Last() const noexcept { return first + static_cast<double>(count - 1) * step; }

    /// False, `place` untouched, outside the nodes and for NaN.
    bool Locate(double value, NodePlace& place) const noexcept
    {
        const double t = (value - first) / step;
        const double end = static_cast<double>(count - 1);
        const double rounding = kPlaceRounding + end * kStepRounding;
        if (!(t >= -rounding && t <= end + rounding)) {
            return false;
        }
        if (count == 1) {
            place = {0, 0, 0.0};
            return true;
        }
        const double inside = std::fmin(std::fmax(t, 0.0), end);
        const auto low = static_cast<std::size_t>(std::fmin(std::floor(inside), end - 1.0));
        place = {low, low + 1, inside - static_cast<double>(low)};
        return true;
    }
};

/// An axis of longitudes: it comes round. Nodes all round it that do not repeat the first close the
/// circle: the last column and the first are neighbours.
struct LongitudeAxis : NodeAxis {
    double turn = 360.0; ///< a full circle in the unit of `first` and `step`

    /// A thousandth of a step: files give their steps with ten digits or so.
    double Rounding() const noexcept { return 1e-3 * step; }
    bool Closed() const noexcept { return std::fabs(static_cast<double>(count) * step - turn) <= Rounding(); }

    /// A longitude outside is tried a turn further east and west.
    bool Locate(double longitude, NodePlace& place) const noexcept
    {
        if (!Closed()) {
            return NodeAxis::Locate(longitude, place) || NodeAxis::Locate(longitude + turn, place) ||
                   NodeAxis::Locate(longitude - turn, place);
        }
        const double columns = static_cast<double>(count);
        double t = std::fmod((longitude - first) / step, columns);
        if (!std::isfinite(t)) {
            return false;
        }
        t = t < 0.0 ? t + columns : t;
        t = t < columns ? t : 0.0; // a longitude a hair west of the first column
        const auto low = static_cast<std::size_t>(t);
        place = {low, low + 1 < count ? low + 1 : 0, t - static_cast<double>(low)};
        return true;
    }
};

/// A place among the nodes of a grid.
struct CellPlace {
    NodePlace row;
    NodePlace column;

    /// Calls `take(row, column, weight)` for the corners of the cell that have a weight in
    /// bilinear interpolation.
    template <typename Take>
    void ForCorners(Take take) const
    {
        const auto weigh = [&](std::size_t r, std::size_t c, double weight) {
            if (weight != 0.0) {
                take(r, c, weight);
            }
        };
        weigh(row.low, column.low, (1.0 - column.share) * (1.0 - row.share));
        weigh(row.low, column.high, column.share * (1.0 - row.share));
        weigh(row.high, column.low, (1.0 - column.share) * row.share);
        weigh(row.high, column.high, column.share * row.share);
    }
};
