#include "convert/GridFactors.h"

#include <cmath>
#include <limits>

#include <fmt/format.h>

namespace {

constexpr double kNone = std::numeric_limits<double>::quiet_NaN();

/// A position in the grid is converted as well, to know that the projection has it.
ConversionRequest Conversions(const FactorRequest& request)
{
    ConversionRequest conversions;
    conversions.from = request.from;
    conversions.to = request.from == Frame::grid ? Frame::geo : Frame::grid;
    conversions.checkBack = request.checkBack;
    conversions.heightIsResult = false;
    return conversions;
}

/// Written so that NaN is none.
bool IsFactor(double value)
{
    return value > 0.0 && std::isfinite(value);
}

} // namespace

GridFactors::GridFactors(const OpenedSystem& system, const FactorRequest& request)
    : m_coordSys(*system.coordSys), m_positions(system, Conversions(request)), m_fromGrid(request.from == Frame::grid),
      m_lines(request.lines)
{
    m_form.columns = {{"convergence", request.factorDecimals}, {"scale", request.factorDecimals}};
    if (m_lines) {
        m_form.columns.push_back({"line-scale", request.factorDecimals});
        m_form.columns.push_back({"grid-distance", request.distanceDecimals});
    }
}

const char* GridFactors::Calculate(const LineValues& in, LineResults& out, std::string& detail) const
{
    std::array<Position, 2> grid{};
    for (std::size_t end = 0; end < (m_lines ? 2U : 1U); ++end) {
        if (const char* const fault = ToGrid(in, end, grid[end], detail); fault != nullptr) {
            return fault;
        }
    }
    if (const char* const fault = OfPoint(grid[0], out); fault != nullptr) {
        return fault;
    }
    return m_lines ? OfLine(grid[0], grid[1], out) : nullptr;
}

const char* GridFactors::ToGrid(const LineValues& in, std::size_t end, Position& grid, std::string& detail) const
{
    const Position& given = in.positions[end];
    Position converted{};
    const char* const fault = m_positions.Convert(given, in.hasHeight, in.time, converted, detail);
    if (fault != nullptr && m_lines) {
        detail += fmt::format("{}at the {} end", detail.empty() ? "" : " ", end == 0 ? "first" : "second");
    }
    grid = m_fromGrid ? given : converted;
    return fault;
}

const char* GridFactors::OfPoint(const Position& grid, LineResults& out) const
{
    double convergence = kNone;
    m_coordSys.GridConvergence(grid[0], grid[1], convergence);
    const double scale = m_coordSys.PointScaleFactor(grid[0], grid[1]);
    if (!std::isfinite(convergence) || !IsFactor(scale)) {
        return "the projection has no convergence or scale factor here";
    }
    out[0] = std::remainder(convergence, 360.0); // a grid turned by 323 degrees is one turned by -37
    out[1] = scale;
    return nullptr;
}

const char* GridFactors::OfLine(const Position& from, const Position& to, LineResults& out) const
{
    const double scale = m_coordSys.LineScaleFactor(from[0], from[1], to[0], to[1]);
    const double distance = std::hypot(to[0] - from[0], to[1] - from[1]);
    if (!IsFactor(scale) || !std::isfinite(distance)) {
        return "the projection has no scale factor for this line";
    }
    out[2] = scale;
    out[3] = distance;
    return nullptr;
}
