#include "convert/GridValues.h"

#include "convert/NumberText.h"

namespace {

constexpr double kSecondsPerDegree = 3600.0;
constexpr int kMetreDecimals = 4;
constexpr int kSecondDecimals = 6; // three hundredths of a millimetre

} // namespace

GridValues::GridValues(const CorrectionGrid& grid, bool inverse, std::optional<int> decimals)
    : m_grid(grid), m_inverse(inverse)
{
    const int metres = decimals.value_or(kMetreDecimals);
    if (grid.HasGeoShifts()) {
        const int seconds = decimals.value_or(kSecondDecimals);
        m_form.columns = {{"dlat", seconds}, {"dlon", seconds}};
    } else if (grid.HasGridShifts()) {
        m_form.columns = {{"dE", metres}, {"dN", metres}, {"geoid", metres}};
    } else {
        m_form.columns = {{"geoid", metres}};
    }
}

const char* GridValues::Calculate(const LineValues& in, LineResults& out, std::string&) const
{
    const Position& position = in.positions[0];
    const bool plane = m_grid.HasGridShifts();
    if (!plane) {
        if (const Fault fault = AngleFault(position[0], position[1]); fault != nullptr) {
            return fault;
        }
    }
    return (plane ? OfPlane(position, out) : Geographic(position, out)) ? nullptr : "the grid has no value here";
}

bool GridValues::Geographic(const Position& in, LineResults& out) const
{
    if (!m_grid.HasGeoShifts()) {
        const auto height = m_grid.HeightAt({in[0], in[1], 0.0, 0.0});
        out[0] = height.value_or(0.0);
        return height.has_value();
    }
    const auto shift = m_grid.GeoShiftAt(in[0], in[1], m_inverse);
    if (shift) {
        out[0] = shift->first * kSecondsPerDegree;
        out[1] = shift->second * kSecondsPerDegree;
    }
    return shift.has_value();
}

bool GridValues::OfPlane(const Position& in, LineResults& out) const
{
    const auto shift = m_grid.GridShiftAt(in[0], in[1], m_inverse);
    if (!shift) {
        return false;
    }
    const double from = m_inverse ? 1.0 : 0.0;
    const auto height = m_grid.HeightAt({0.0, 0.0, in[0] - from * shift->first, in[1] - from * shift->second});
    out[0] = shift->first;
    out[1] = shift->second;
    out[2] = height.value_or(0.0);
    return height.has_value();
}
