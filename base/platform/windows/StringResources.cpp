#include "base/platform/StringResources.h"

#ifndef NOMINMAX
#define NOMINMAX
#endif
#include <windows.h>

namespace platform {

bool IsResourceModule(const void* handle) noexcept
{
    // A module's handle is its first address; a table lies further inside the module that holds it.
    HMODULE module = nullptr;
    constexpr DWORD flag = GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT;
    return GetModuleHandleExW(flag, static_cast<LPCWSTR>(handle), &module) != 0 && module == handle;
}

bool ReadStringResource(const void* module, unsigned id, std::wstring& text)
{
    // With no room given, LoadStringW answers with the address and length of the resource itself.
    const wchar_t* resource = nullptr;
    const auto instance = static_cast<HINSTANCE>(const_cast<void*>(module));
    const int length = LoadStringW(instance, id, reinterpret_cast<LPWSTR>(&resource), 0);
    if (length <= 0) {
        return false;
    }
    text.assign(resource, static_cast<std::size_t>(length));
    return true;
}

} // namespace platform
