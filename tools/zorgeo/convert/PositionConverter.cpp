#include "convert/PositionConverter.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>

#include <fmt/format.h>

#include "DatabaseText.h"
#include "convert/NumberText.h"

namespace {

constexpr double kLargestMiss = 0.001;        // metres; what --check lets pass
constexpr double kMetresPerDegree = 111319.5; // of a meridian's circle with the Earth's equatorial radius
constexpr double kNone = std::numeric_limits<double>::quiet_NaN();

/// The geographic frame on whose ellipsoid a cartesian frame stands; others are their own.
Frame WithoutCartesian(Frame frame)
{
    return frame == Frame::satXyz ? Frame::sat : frame == Frame::geoXyz ? Frame::geo : frame;
}

bool IsCartesian(Frame frame)
{
    return WithoutCartesian(frame) != frame;
}

double CosineOfDegrees(double angle)
{
    return std::cos(angle * 0.017453292519943295);
}

} // namespace

bool DatumMoves(ZorGeoCoordSysBase& coordSys)
{
    std::array<double, 15> p{};
    bool fixed = false;
    double up = 0.0;
    double down = 0.0;
    if (coordSys.GetDtfMethodName().Find(kFourteen) < 0 ||
        !coordSys.GetDatumParameters(p[0], p[1], p[2], p[3], p[4], p[5], p[6], p[7], p[8], p[9], p[10], p[11], p[12],
                                     p[13], p[14], fixed, up, down)) {
        return false;
    }
    const double epoch = p[14];
    return epoch != 0.0 && std::any_of(p.begin() + 7, p.begin() + 14, [](double rate) { return rate != 0.0; });
}

PositionConverter::PositionConverter(const OpenedSystem& system, const ConversionRequest& request)
    : m_coordSys(*system.coordSys), m_postModel(system.postModel.get()), m_request(request),
      m_from(WithoutCartesian(request.from)), m_to(WithoutCartesian(request.to))
{
    const bool throughGrid = (m_from == Frame::grid) != (m_to == Frame::grid);
    const bool crossesSat = (m_from == Frame::sat) != (m_to == Frame::sat);
    m_hasGeoid = system.hasGeoid && throughGrid && request.heightIsResult;
    m_postModel = throughGrid ? m_postModel : nullptr;
    // Between local frame and grid the datum serves the height above the geoid alone.
    m_needsTime = (crossesSat || m_hasGeoid) && DatumMoves(*system.coordSys);
    // Without a transformation its record names no ellipsoids, and the two frames are one.
    m_oneEllipsoid = system.coordSys->GetDtfMethodName() == kNoTransformation;
    system.coordSys->GetLinearUnitCnv(m_metresPerUnit);
}

bool PositionConverter::Core(const Position& in, Frame from, Frame to, bool hasHeight, double time, Position& out) const
{
    const auto& [a, b, c] = in;
    out = {kNone, kNone, hasHeight ? kNone : 0.0};
    auto& [x, y, z] = out;
    double ignored = 0.0;
    if (from == to) {
        out = in;
    } else if (from == Frame::sat && to == Frame::geo) {
        m_coordSys.SatGeoToGeo(a, b, hasHeight ? c : 0.0, x, y, hasHeight ? z : ignored, time);
    } else if (from == Frame::geo && to == Frame::sat) {
        m_coordSys.GeoToSatGeo(a, b, hasHeight ? c : 0.0, x, y, hasHeight ? z : ignored, time);
    } else if (from == Frame::sat) {
        hasHeight ? m_coordSys.SatGeoToGrid(a, b, c, x, y, z, time) : m_coordSys.SatGeoToGrid(a, b, x, y, time);
    } else if (from == Frame::geo) {
        hasHeight ? m_coordSys.GeoToGrid(a, b, c, x, y, z, time) : m_coordSys.GeoToGrid(a, b, x, y, true);
    } else if (to == Frame::sat) {
        hasHeight ? m_coordSys.GridToSatGeo(a, b, c, x, y, z, time) : m_coordSys.GridToSatGeo(a, b, x, y, time);
    } else {
        hasHeight ? m_coordSys.GridToGeo(a, b, c, x, y, z, time) : m_coordSys.GridToGeo(a, b, x, y);
    }
    return std::isfinite(x) && std::isfinite(y) && std::isfinite(z);
}

bool PositionConverter::ToCartesian(const Position& in, Frame frame, Position& out) const
{
    return m_coordSys.GeogsToCartesian(in[0], in[1], in[2], out[0], out[1], out[2],
                                       frame == Frame::satXyz && !m_oneEllipsoid) &&
           std::isfinite(out[0]) && std::isfinite(out[1]) && std::isfinite(out[2]);
}

bool PositionConverter::FromCartesian(const Position& in, Frame frame, Position& out) const
{
    out = {kNone, kNone, kNone};
    const bool settled = m_coordSys.CartesianToGeogs(in[0], in[1], in[2], out[0], out[1], out[2],
                                                     frame == Frame::satXyz && !m_oneEllipsoid);
    if (AngleFault(out[0], out[1]) != nullptr || !std::isfinite(out[2])) {
        return false;
    }
    // The iteration may go on in its last digit until its rounds are used up, and then says false
    // with a good position. Whether it is one, the way back tells.
    Position back{};
    return settled || (ToCartesian(out, frame, back) && std::fabs(back[0] - in[0]) <= kLargestMiss &&
                       std::fabs(back[1] - in[1]) <= kLargestMiss && std::fabs(back[2] - in[2]) <= kLargestMiss);
}

bool PositionConverter::Run(const Position& in, Frame from, Frame to, bool hasHeight, double time, Position& out) const
{
    if (!IsCartesian(from) && !IsCartesian(to)) {
        return Core(in, from, to, hasHeight, time, out);
    }
    if (from == to) {
        out = in;
        return true;
    }
    Position start = in;
    if (IsCartesian(from) && !FromCartesian(in, from, start)) {
        return false;
    }
    if (!Core(start, WithoutCartesian(from), WithoutCartesian(to), true, time, out)) {
        return false;
    }
    return !IsCartesian(to) || ToCartesian(Position(out), to, out);
}

const char* PositionConverter::Convert(const Position& in, bool hasHeight, double time, Position& out,
                                       std::string& detail) const
{
    if (TraitsOf(m_request.from).angles) {
        if (const char* const fault = AngleFault(in[0], in[1]); fault != nullptr) {
            return fault;
        }
    }
    if (!Run(in, m_request.from, m_request.to, hasHeight, time, out)) {
        return "the result is not finite";
    }
    if (TraitsOf(m_request.to).angles && AngleFault(out[0], out[1]) != nullptr) {
        return "the result is no position on the ellipsoid";
    }
    if (m_hasGeoid && hasHeight && !GeoidAnswers(in, out, time, detail)) {
        return "the geoid model has no height here";
    }
    if (m_postModel != nullptr && !PostModelAnswers(in, out, time)) {
        return "the post correction model has no correction here";
    }
    if (m_request.checkBack) {
        const double miss = MissOfReturn(in, out, hasHeight, time);
        if (!(miss <= kLargestMiss)) {
            detail = fmt::format("misses by {:.4f} m", miss);
            return "the way back";
        }
    }
    return nullptr;
}

bool PositionConverter::GeoidAnswers(const Position& in, const Position& out, double time, std::string& message) const
{
    // The place at which the conversion itself asks: latitude and longitude in the satellite
    // frame; the grid position before the post corrections on the way from the grid.
    const bool fromGrid = m_from == Frame::grid;
    Position geographic = fromGrid ? out : in;
    const Position& xy = fromGrid ? in : out;
    const Frame end = fromGrid ? m_request.to : m_request.from;
    const Position told = geographic;
    if (IsCartesian(end)) {
        FromCartesian(told, end, geographic);
    }
    if (WithoutCartesian(end) == Frame::geo) {
        const Position local = geographic;
        m_coordSys.GeoToSatGeo(local[0], local[1], local[2], geographic[0], geographic[1], geographic[2], time);
    }
    double x = xy[0];
    double y = xy[1];
    if (fromGrid) {
        m_coordSys.CalPostXY(xy[0], xy[1], x, y, true);
    }
    double height = kNone;
    CString remark;
    if (m_coordSys.CalGeoidHeight(geographic[0], geographic[1], x, y, height, remark) && std::isfinite(height)) {
        return true;
    }
    message = remark.ToUtf8();
    return false;
}

bool PositionConverter::PostModelAnswers(const Position& in, const Position& out, double time) const
{
    const bool fromGrid = m_from == Frame::grid;
    const Position& xy = fromGrid ? in : out;
    double dx = 0.0;
    double dy = 0.0;
    // A model has one of the two corrections and refuses the other everywhere.
    if (m_postModel->CalGridShift(xy[0], xy[1], dx, dy, true)) {
        return true;
    }
    Position local;
    return Run(fromGrid ? out : in, fromGrid ? m_request.to : m_request.from, Frame::geo, true, time, local) &&
           m_postModel->CalGeoShift(local[0], local[1], dx, dy, fromGrid);
}

Position PositionConverter::WayBackFlat(const Position& in, const Position& out, double time) const
{
    // Without heights each operation takes height 0 on the ellipsoid that it starts from. The way
    // back starts from the height that the way there ended at, else an honest pair would seem to
    // miss by the tilt between the two ellipsoids times that height.
    Position local;
    Position other;
    Position back{kNone, kNone, 0.0};
    if (m_from == Frame::sat) {
        Core({in[0], in[1], 0.0}, Frame::sat, Frame::geo, true, time, other);
        Core(out, m_to, Frame::geo, false, time, local);
        Core({local[0], local[1], other[2]}, Frame::geo, Frame::sat, true, time, back);
        return back;
    }
    Core(in, m_from, Frame::geo, false, time, local);
    Core({local[0], local[1], 0.0}, Frame::geo, Frame::sat, true, time, other);
    Core({out[0], out[1], other[2]}, Frame::sat, Frame::geo, true, time, local);
    Core(local, Frame::geo, m_from, false, time, back);
    return back;
}

double PositionConverter::MissOfReturn(const Position& in, const Position& out, bool hasHeight, double time) const
{
    Position back{kNone, kNone, kNone};
    if (!hasHeight && (m_from == Frame::sat) != (m_to == Frame::sat)) {
        back = WayBackFlat(in, out, time);
    } else if (!Run(out, m_request.to, m_request.from, hasHeight, time, back)) {
        return kNone;
    }
    const FrameTraits& traits = TraitsOf(m_request.from);
    const bool metres = IsCartesian(m_request.from);
    double first = back[0] - in[0];
    double second = back[1] - in[1];
    const double third = hasHeight ? (back[2] - in[2]) * (metres ? 1.0 : m_metresPerUnit) : 0.0;
    if (traits.angles) {
        first *= kMetresPerDegree;
        second = std::remainder(second, 360.0) * kMetresPerDegree * CosineOfDegrees(in[0]);
    } else if (!metres) {
        first *= m_metresPerUnit;
        second *= m_metresPerUnit;
    }
    return std::sqrt(first * first + second * second + third * third);
}
