#pragma once

#include <memory>

#include "base/geoid/CorrectionGrid.h"
#include "base/geoid/GridBytes.h"

/// Reads a grid in whichever format its bytes are: NTv2 and PGM have a mark at their beginning, the
/// British grid is text, and GTX, which has no mark, is what remains. Names of files and models do
/// not count. Null with `reason` told when the bytes are no whole grid.
ZORBASE_API std::unique_ptr<const CorrectionGrid> ReadGrid(const GridBytes& contents, CString& reason);
