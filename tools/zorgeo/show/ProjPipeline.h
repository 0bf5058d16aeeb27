#pragma once

#include <string>
#include <vector>

#include "show/SystemParameters.h"

/// A system for another program: the text, and what its user has to know.
struct SystemExport {
    std::string text; ///< with its line end
    std::vector<std::string> remarks;
};

/// The whole road from the satellite frame to the grid as a PROJ pipeline: latitude, longitude
/// (degrees), height and, for a datum that moves, decimal year in; easting, northing, height out;
/// heights, eastings and northings in the system's unit. It runs backwards too. Throws ToolError (3)
/// with the reason for what no pipeline does.
SystemExport MakeProjPipeline(const SystemParameters& system);
