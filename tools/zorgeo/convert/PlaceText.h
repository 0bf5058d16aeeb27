#pragma once

#include <string_view>

#include "convert/NumberText.h"

/// Reads a geographic place, "LAT,LON" in degrees: two angles, as ReadAngle reads them, with a comma
/// between them, in range. Outputs untouched when it is none.
Fault ReadPlace(std::string_view text, double& latitude, double& longitude) noexcept;
