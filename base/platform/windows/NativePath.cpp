#include "base/platform/Platform.h"

namespace platform {

std::filesystem::path NativePath(const CString& path)
{
    return path.Std();
}

CString TextOf(const std::filesystem::path& path)
{
    return CString(path.native());
}

} // namespace platform
