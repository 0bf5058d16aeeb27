#pragma once

#include <string>
#include <vector>

#include "show/SystemParameters.h"

/// Each way in which PROJ reads the module's fixed PROJ.4 text otherwise than the module computes,
/// one sentence each, for this system alone; empty when it reads it as it is meant, to a millimetre.
std::vector<std::string> ReadOtherwiseByProj(const SystemParameters& system);
