#include "convert/PlaceText.h"

Fault ReadPlace(std::string_view text, double& latitude, double& longitude) noexcept
{
    const auto comma = text.find(',');
    if (comma == std::string_view::npos || text.find(',', comma + 1) != std::string_view::npos) {
        return "not two angles with a comma between them";
    }
    double values[2] = {};
    Fault fault = ReadAngle(Trimmed(text.substr(0, comma)), AngleKind::latitude, values[0]);
    fault = fault != nullptr ? fault : ReadAngle(Trimmed(text.substr(comma + 1)), AngleKind::longitude, values[1]);
    fault = fault != nullptr ? fault : AngleFault(values[0], values[1]);
    if (fault == nullptr) {
        latitude = values[0];
        longitude = values[1];
    }
    return fault;
}
