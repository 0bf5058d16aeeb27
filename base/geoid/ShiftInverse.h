#pragma once

#include <cmath>
#include <optional>

/// What is added to the two coordinates of a position.
struct PlaneShift {
    double first = 0.0;
    double second = 0.0;
};

/// The shift s(p) of the position p that a shift brought to q: p + s(p) = q. By fixed point,
/// p := q - s(p) from p = q, until both corrections are below `settled`, in at most `rounds` rounds.
/// `shiftAt(first, second)` gives the shift at a position, or nothing. Nothing, too, when p leaves the
/// grid, does not settle, or is NaN.
template <typename ShiftAt>
std::optional<PlaneShift> ShiftBefore(double first, double second, double settled, int rounds, ShiftAt shiftAt)
{
    double p1 = first;
    double p2 = second;
    for (int round = 0; round < rounds; ++round) {
        const std::optional<PlaneShift> shift = shiftAt(p1, p2);
        if (!shift) {
            return {};
        }
        const double change1 = first - shift->first - p1;
        const double change2 = second - shift->second - p2;
        p1 = first - shift->first;
        p2 = second - shift->second;
        if (std::fabs(change1) < settled && std::fabs(change2) < settled) {
            return shift;
        }
    }
    return {};
}
