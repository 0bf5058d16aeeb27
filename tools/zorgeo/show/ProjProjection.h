#pragma once

#include <string>
#include <vector>

#include "show/ProjStep.h"
#include "show/SystemParameters.h"

/// A projection as PROJ computes it: radians in, metres out.
struct ProjProjection {
    ProjStep step;
    /// Degrees by which the grid is still to be turned, counterclockwise, about the false origin;
    /// the false origin is then not in the step.
    double skew = 0.0;
};

/// The projection with the parameters that the module uses, false origins taken to metres. Throws
/// ToolError (3) for what PROJ has no operation.
ProjProjection InProj(const SystemParameters& system);

/// Where and by how much PROJ's results differ from the module's for this projection by more than
/// rounding, one sentence each.
std::vector<std::string> DifferencesFromProj(const ProjectionParameters& projection);

/// Mercator's parameters in one form: the scale factor on the equator, and the northing of the
/// equator in system units.
struct EquatorialMercator {
    double scale = 1.0;
    double falseNorthing = 0.0;
};
EquatorialMercator OnEquator(const SystemParameters& system);
