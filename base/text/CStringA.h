#pragma once

#include <string>
#include <string_view>

#include "base/Export.h"

/// The framework's narrow string: UTF-8 text handed to hosts that have no wide interface.
class ZORBASE_API CStringA {
public:
    CStringA() noexcept = default;
    CStringA(const char* text); ///< a null pointer gives the empty string
    CStringA(std::string text) noexcept;

    int GetLength() const noexcept;
    bool IsEmpty() const noexcept;
    const char* GetString() const noexcept;
    std::string_view View() const noexcept;
    const std::string& Std() const noexcept;

    friend bool operator==(const CStringA& a, const CStringA& b) noexcept { return a.m_text == b.m_text; }
    friend bool operator==(const CStringA& a, const char* b) noexcept
    {
        return a.View() == (b == nullptr ? std::string_view() : std::string_view(b));
    }

private:
    std::string m_text;
};
