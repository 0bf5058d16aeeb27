#pragma once

#include "base/Export.h"
#include "base/text/CString.h"

/// The full file name of the running program, whatever its length. False, `path` untouched, when
/// the platform cannot tell.
ZORBASE_API bool ExecutablePath(CString& path);

using ExecutablePathSource = bool (*)(CString& path);
/// Installs what ExecutablePath asks, for tests; null brings the platform back.
ZORBASE_API void SetExecutablePathSource(ExecutablePathSource source);
