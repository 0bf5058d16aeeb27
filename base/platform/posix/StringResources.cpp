#include "base/platform/StringResources.h"

namespace platform {

bool IsResourceModule(const void* /*handle*/) noexcept
{
    return false;
}

bool ReadStringResource(const void* /*module*/, unsigned /*id*/, std::wstring& /*text*/)
{
    return false;
}

} // namespace platform
