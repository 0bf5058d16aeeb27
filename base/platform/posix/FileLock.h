#pragma once

#include <chrono>
#include <filesystem>

namespace platform {

using Moment = std::chrono::steady_clock::time_point;

/// Until when who needs a file waits for another process: the moments of a reading or a saving,
/// with reserve for a busy disk.
Moment EndOfPatience();

/// Takes a lock (LOCK_SH, LOCK_EX) on an open file, tried at least once and until `end`. False
/// when another process still holds the file then.
bool TakeLock(int file, int kind, Moment end);

/// Whether `path` leads to the open file. Who was waited for may have put another one there.
bool LeadsTo(const std::filesystem::path& path, int file);

} // namespace platform
