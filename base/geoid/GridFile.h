#pragma once

#include <memory>

#include "base/geoid/CorrectionGrid.h"

/// Reads a grid file, of whichever format its contents are (base/geoid/GridReader.h). A file of at
/// most kReadWhole bytes is read once, so that nothing that happens to it later can reach the grid; a
/// larger one is mapped. Null with `reason` told, which does not name the file, when it cannot be read or
/// is no whole grid.
ZORBASE_API std::unique_ptr<const CorrectionGrid> OpenGrid(const CString& file, CString& reason);

/// Every national grid is smaller. The world at a minute of arc (467 MB) is larger: it is not worth
/// its time and memory when positions lie in one sea.
constexpr std::size_t kReadWhole = std::size_t{64} << 20;
