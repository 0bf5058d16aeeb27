#pragma once

#include "CommonOptions.h"
#include "base/text/CString.h"

/// The directory of the user database, with its trailing separator: that of --user, else the
/// platform's. Becomes the suite's directory of that number; nothing is made on the disk. Throws
/// ToolError (3) when there is none.
CString UserDirectoryOf(const CommonOptions& options);

/// Makes it when it is missing. Throws ToolError (3) when that fails.
void MakeUserDirectory(const CString& directory);
