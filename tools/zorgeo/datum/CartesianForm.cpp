#include "datum/CartesianForm.h"

#include <cmath>
#include <numbers>

namespace {

constexpr double kRadian = std::numbers::pi / 180.0; // of a degree
constexpr int kMaxRounds = 50;
constexpr double kSettled = 1e-15; // radians; 6 nanometres on the ground

} // namespace

// N: radius of curvature in the prime vertical.
Position CartesianForm::ToCartesian(const Position& geographic) const
{
    const double latitude = geographic[0] * kRadian;
    const double longitude = geographic[1] * kRadian;
    const double sine = std::sin(latitude);
    const double N = a / std::sqrt(1.0 - e2 * sine * sine);
    const double p = (N + geographic[2]) * std::cos(latitude);
    return {p * std::cos(longitude), p * std::sin(longitude), (N * (1.0 - e2) + geographic[2]) * sine};
}

// p: distance from the axis. NaN never settles.
bool CartesianForm::ToGeographic(const Position& cartesian, Position& geographic) const
{
    const auto& [X, Y, Z] = cartesian;
    const double p = std::hypot(X, Y);
    double latitude = std::atan2(Z, p * (1.0 - e2));
    for (int round = 0; round < kMaxRounds; ++round) {
        const double sine = std::sin(latitude);
        const double W = std::sqrt(1.0 - e2 * sine * sine);
        const double next = std::atan2(Z + e2 * a / W * sine, p);
        if (std::fabs(next - latitude) <= kSettled) {
            const double height = p * std::cos(latitude) + Z * sine - a * W;
            geographic = {next / kRadian, std::atan2(Y, X) / kRadian, height};
            return true;
        }
        latitude = next;
    }
    return false;
}
