#pragma once

#include <cstdint>

#include "convert/BlockReader.h"
#include "convert/LineConverter.h"
#include "convert/OutputFile.h"

struct PipelineCount {
    std::uint64_t good = 0;
    std::uint64_t bad = 0;
    bool stopped = false; ///< a bad line ended the run
};

/// Reads, converts and writes everything. A few like workers take turns at reading and, in the
/// same order, at writing, and convert at the same time; the bytes written do not depend on
/// their number. Memory is that of one block and its result for each worker. With `progress`, a
/// share of the bytes is shown on standard error. Rethrows what the first failing step threw.
PipelineCount RunPipeline(BlockReader& reader, const LineConverter& converter, OutputFile& output, bool progress);
