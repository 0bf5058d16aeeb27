#pragma once

#include <optional>
#include <string>

#include <proj.h>

#include "WorldSystems.h"
#include "base/files/FileObject.h"

/// The largest differences of a delivered system from PROJ's reading of it, in metres but for one.
struct SystemDifferences {
    double forward = 0.0;     ///< the grid
    double inverse = 0.0;     ///< latitude and longitude from the grid, on the ground
    double road = 0.0;        ///< the grid, from satellite positions by the published transformation
    double convergence = 0.0; ///< degrees, from the direction in which latitudes grow
    std::string where;        ///< of the largest, for a report
};

/// How many places: a few random ones, or these and a net over the whole area of use with its edges.
enum class Places { random, everywhere };

/// Empty when the system does not initialise. `project` is an empty project in memory. Throws when
/// PROJ does not know the published code.
std::optional<SystemDifferences> Measure(const WorldSystem& system, Places places, PJ_CONTEXT* context,
                                         FileObject& project);
