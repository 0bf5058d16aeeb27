#pragma once

#include "base/platform/Platform.h"

namespace platform {

/// What an errno value means, in words. (The C library's own texts follow the locale.)
CString ReasonOf(int error);

/// Notes `code` with the reason of the present errno; always false.
bool FailBySystem(FileErrorCode code, FileFailure& failure);

} // namespace platform
