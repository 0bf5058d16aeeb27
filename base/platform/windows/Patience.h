#pragma once

#include "base/platform/windows/Handle.h"

namespace platform {

constexpr ULONGLONG kPatience = 250; // milliseconds
constexpr DWORD kPause = 5;          // milliseconds

inline bool IsHeldByAnother(DWORD error)
{
    return error == ERROR_SHARING_VIOLATION || error == ERROR_LOCK_VIOLATION;
}

/// Tries again for up to `patience` while somebody else holds the file, for the moments of a
/// reading or a saving. `attempt` is a call that sets GetLastError, `isPassing` tells of its
/// errors which are worth another try. False with the last error still set.
template <typename Attempt, typename Passing>
bool Patiently(const Attempt& attempt, const Passing& isPassing, ULONGLONG patience = kPatience)
{
    const ULONGLONG end = GetTickCount64() + patience;
    while (!attempt()) {
        const DWORD error = GetLastError();
        if (!isPassing(error) || GetTickCount64() >= end) {
            SetLastError(error);
            return false;
        }
        Sleep(kPause);
    }
    return true;
}

} // namespace platform
