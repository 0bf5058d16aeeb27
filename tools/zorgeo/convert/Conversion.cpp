#include "convert/Conversion.h"

#include <algorithm>

ResultForm PositionForm(Frame frame, int angleDecimals, int distanceDecimals)
{
    ResultForm form;
    const FrameTraits& traits = TraitsOf(frame);
    for (std::size_t place = 0; place < traits.coordinates.size(); ++place) {
        const bool angle = traits.angles && place < 2;
        form.columns.push_back({traits.coordinates[place], angle ? angleDecimals : distanceDecimals});
    }
    form.lastIsHeight = true;
    return form;
}

Conversion::Conversion(const OpenedSystem& system, const ConversionRequest& request, int angleDecimals,
                       int distanceDecimals)
    : m_positions(system, request), m_form(PositionForm(request.to, angleDecimals, distanceDecimals))
{
}

const char* Conversion::Calculate(const LineValues& in, LineResults& out, std::string& detail) const
{
    Position position{};
    const char* const fault = m_positions.Convert(in.positions[0], in.hasHeight, in.time, position, detail);
    std::copy(position.begin(), position.end(), out.begin());
    return fault;
}
