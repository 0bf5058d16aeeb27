#include "base/platform/windows/SystemError.h"

// Behind the headers of the base layer, whose names its macros would change.
#ifndef WIN32_LEAN_AND_MEAN
#define WIN32_LEAN_AND_MEAN
#endif
#ifndef NOMINMAX
#define NOMINMAX
#endif
#include <windows.h>

namespace platform {

namespace {

struct ErrorText {
    DWORD error;
    const wchar_t* text;
};

constexpr ErrorText kErrorTexts[] = {
    {ERROR_FILE_NOT_FOUND, L"there is no such file or directory"},
    {ERROR_PATH_NOT_FOUND, L"there is no such file or directory"},
    {ERROR_INVALID_NAME, L"it is no name of a file"},
    {ERROR_ACCESS_DENIED, L"access is denied"},
    {ERROR_SHARING_VIOLATION, L"another process is using it"},
    {ERROR_LOCK_VIOLATION, L"another process is using it"},
    {ERROR_WRITE_PROTECT, L"the disk is read-only"},
    {ERROR_DISK_FULL, L"the disk is full"},
    {ERROR_HANDLE_DISK_FULL, L"the disk is full"},
    {ERROR_FILENAME_EXCED_RANGE, L"the name is too long"},
    {ERROR_TOO_MANY_OPEN_FILES, L"too many files are open"},
    {ERROR_NOT_ENOUGH_MEMORY, L"out of memory"},
};

CString ReasonOf(DWORD error)
{
    for (const ErrorText& row : kErrorTexts) {
        if (row.error == error) {
            return row.text;
        }
    }
    CString text;
    text.Format(L"system error %u", error);
    return text;
}

} // namespace

bool FailBySystem(FileErrorCode code, FileFailure& failure)
{
    failure = {code, ReasonOf(GetLastError())};
    return false;
}

} // namespace platform
