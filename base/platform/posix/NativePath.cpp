#include "base/platform/Platform.h"

namespace platform {

std::filesystem::path NativePath(const CString& path)
{
    // From wide text the library would convert by the locale.
    return path.ToUtf8();
}

CString TextOf(const std::filesystem::path& path)
{
    return CString::FromUtf8(path.native());
}

} // namespace platform
