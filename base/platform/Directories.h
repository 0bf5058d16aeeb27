#pragma once

#include "base/text/CString.h"

// The places that each platform must tell. Directories end in a separator and need not exist;
// an empty text means that the platform cannot tell.
namespace platform {

/// Where the package put the delivered database and the projection catalogue.
CString DeliveredDataDirectory();
/// Where the user's own data of this software lie.
CString UserDataDirectory();
/// Where the user's survey projects lie unless the host says otherwise.
CString ProjectsRootDirectory();
/// The full file name of the running program.
CString ExecutableFile();

} // namespace platform
