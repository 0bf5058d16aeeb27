#pragma once

#include "base/Export.h"
#include "base/text/CString.h"

/// Splits a file name into directory with its trailing separator, title, and extension with its
/// dot. Both '/' and '\' separate. A missing piece is empty: "a.b/c" has no extension, ".rc" is
/// all title. Cannot fail.
ZORBASE_API void SplitPath(const CString& full, CString& directory, CString& title, CString& extension);

/// `path` with a trailing separator of this platform, unless it is empty or has one.
ZORBASE_API CString WithSeparator(const CString& path);
