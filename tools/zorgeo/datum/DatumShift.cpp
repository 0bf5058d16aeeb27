#include "datum/DatumShift.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

#include <fmt/format.h>

#include "convert/NumberText.h"

namespace {

constexpr double kLargestMiss = 0.001; // metres; what --check lets pass
constexpr double kNone = std::numeric_limits<double>::quiet_NaN();

bool IsFinite(const Position& position)
{
    return std::all_of(position.begin(), position.end(), [](double value) { return std::isfinite(value); });
}

} // namespace

DatumShift::DatumShift(const DatabaseFiles& files, const DatumDesk& desk, const NamedDatum& datum,
                       const ShiftRequest& request, ResultForm form)
    : m_desk(desk), m_name(datum.name), m_record(*datum.file, datum.section),
      m_from(EllipsoidOf(files, datum, request.inverse)), m_to(EllipsoidOf(files, datum, !request.inverse)),
      m_request(request), m_form(std::move(form))
{
}

const char* DatumShift::Calculate(const LineValues& in, LineResults& out, std::string& detail) const
{
    const Position& told = in.positions[0];
    if (!m_request.cartesian) {
        if (const Fault fault = AngleFault(told[0], told[1]); fault != nullptr) {
            return fault;
        }
    }
    std::copy(told.begin(), told.end(), out.begin());
    if (!m_record.on) {
        return nullptr;
    }
    Position start = {told[0], told[1], in.hasHeight ? told[2] : 0.0};
    if (m_request.cartesian && !m_from.ToGeographic(told, start)) {
        return "the position has no latitude on the ellipsoid";
    }
    Position end{kNone, kNone, kNone};
    if (!Transform(start, m_request.inverse, in.time, end) || AngleFault(end[0], end[1]) != nullptr) {
        return "the datum transformation gives no position here";
    }
    if (m_request.checkBack) {
        const double miss = MissOfReturn(start, end, in.time);
        if (!(miss <= kLargestMiss)) {
            detail = fmt::format("misses by {:.4f} m", miss);
            return "the way back";
        }
    }
    const Position shown = m_request.cartesian ? m_to.ToCartesian(end) : end;
    std::copy(shown.begin(), shown.end(), out.begin());
    return nullptr;
}

bool DatumShift::Transform(const Position& in, bool inverse, double time, Position& out) const
{
    // The module keeps the transformation that was asked for last, so one thread asks at a time.
    const std::lock_guard lock(m_guard);
    return m_desk.CoordSys().DoDtf(in[0], in[1], in[2], out[0], out[1], out[2], inverse, m_name, time) && IsFinite(out);
}

double DatumShift::MissOfReturn(const Position& start, const Position& end, double time) const
{
    Position back{kNone, kNone, kNone};
    if (!Transform(end, !m_request.inverse, time, back)) {
        return kNone;
    }
    const Position one = m_from.ToCartesian(start);
    const Position other = m_from.ToCartesian(back);
    return std::hypot(one[0] - other[0], one[1] - other[1], one[2] - other[2]);
}
