#pragma once

#include "base/platform/Platform.h"

#include <utility>

// Behind the headers of the base layer, whose names its macros would change.
#ifndef WIN32_LEAN_AND_MEAN
#define WIN32_LEAN_AND_MEAN
#endif
#ifndef NOMINMAX
#define NOMINMAX
#endif
#include <windows.h>

namespace platform {

/// An open file handle, closed at the end.
class Handle {
public:
    explicit Handle(HANDLE handle = INVALID_HANDLE_VALUE) noexcept : m_handle(handle) {}
    Handle(Handle&& other) noexcept : m_handle(other.Release()) {}
    Handle& operator=(Handle&& other) noexcept
    {
        std::swap(m_handle, other.m_handle);
        return *this;
    }
    ~Handle() { Close(); }

    bool IsOpen() const noexcept { return m_handle != INVALID_HANDLE_VALUE; }
    HANDLE Get() const noexcept { return m_handle; }
    HANDLE Release() noexcept { return std::exchange(m_handle, INVALID_HANDLE_VALUE); }
    void Close() noexcept
    {
        if (IsOpen()) {
            CloseHandle(Release());
        }
    }

private:
    HANDLE m_handle;
};

} // namespace platform
