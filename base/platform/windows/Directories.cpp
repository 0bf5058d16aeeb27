#include "base/platform/Directories.h"

#include "base/files/SplitPath.h"

// Behind the headers of the base layer, whose names its macros would change.
#ifndef WIN32_LEAN_AND_MEAN
#define WIN32_LEAN_AND_MEAN
#endif
#ifndef NOMINMAX
#define NOMINMAX
#endif
#include <windows.h>

#include <string>

namespace {

/// The value of an environment variable, empty when it is not set.
std::wstring Variable(const wchar_t* name)
{
    const DWORD size = GetEnvironmentVariableW(name, nullptr, 0);
    if (size == 0) {
        return {};
    }
    std::wstring value(size, L'\0');
    value.resize(GetEnvironmentVariableW(name, value.data(), size));
    return value;
}

CString Below(const std::wstring& base, const wchar_t* relative)
{
    return base.empty() ? CString() : WithSeparator(CString(base)) + relative;
}

} // namespace

namespace platform {

CString DeliveredDataDirectory()
{
    CString directory;
    CString title;
    CString extension;
    SplitPath(ExecutableFile(), directory, title, extension);
    return directory;
}

CString UserDataDirectory()
{
    return Below(Variable(L"APPDATA"), L"zorgeo\\");
}

CString ProjectsRootDirectory()
{
    return Below(Variable(L"USERPROFILE"), L"zorgeo-projects\\");
}

CString ExecutableFile()
{
    // The longest path that Windows knows; a name that does not fit comes back cut off.
    constexpr DWORD kLongestPath = 32768;
    std::wstring file(kLongestPath, L'\0');
    const DWORD length = GetModuleFileNameW(nullptr, file.data(), kLongestPath);
    file.resize(length < kLongestPath ? length : 0);
    return CString(file);
}

} // namespace platform
