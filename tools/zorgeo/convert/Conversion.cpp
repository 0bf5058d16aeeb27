#include "convert/Conversion.h"

#include <algorithm>

Conversion::Conversion(const OpenedSystem& system, const ConversionRequest& request, int angleDecimals,
                       int distanceDecimals)
    : m_positions(system, request)
{
    const FrameTraits& to = TraitsOf(request.to);
    for (std::size_t place = 0; place < to.coordinates.size(); ++place) {
        const bool angle = to.angles && place < 2;
        m_form.columns.push_back({to.coordinates[place], angle ? angleDecimals : distanceDecimals});
    }
    m_form.lastIsHeight = true;
}

const char* Conversion::Calculate(const LineValues& in, LineResults& out, std::string& detail) const
{
    Position position{};
    const char* const fault = m_positions.Convert(in.positions[0], in.hasHeight, in.time, position, detail);
    std::copy(position.begin(), position.end(), out.begin());
    return fault;
}
