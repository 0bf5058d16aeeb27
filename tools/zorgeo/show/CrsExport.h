#pragma once

#include "show/ProjPipeline.h"

/// The notations of a coordinate reference system.
enum class CrsNotation { wkt2, projjson };

/// The system of CrsJson in the words of PROJ's own writers: WKT 2 as ISO 19162:2019, or PROJJSON.
/// Throws ToolError (3) for what cannot be said so, or when the program was built without PROJ.
SystemExport MakeCrs(const SystemParameters& system, CrsNotation notation);
