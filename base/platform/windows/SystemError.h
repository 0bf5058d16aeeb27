#pragma once

#include "base/platform/Platform.h"

namespace platform {

/// Notes `code` with what the present GetLastError means, in words that do not follow the
/// locale; always false.
bool FailBySystem(FileErrorCode code, FileFailure& failure);

} // namespace platform
