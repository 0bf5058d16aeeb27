#pragma once

#include <algorithm>
#include <string>
#include <string_view>
#include <type_traits>
#include <variant>

#include "base/Export.h"

class CString;
class CStringA;

/// One argument of CString::Format, kept with its type so that a directive can be checked
/// against it. Text is held as a view: it must outlive the call.
class ZORBASE_API FormatArgument {
public:
    using Value = std::variant<long long, unsigned long long, double, wchar_t, std::wstring_view, std::string_view>;

    template <typename Number>
    requires std::is_arithmetic_v<Number>
    explicit FormatArgument(Number number)
        : m_value(FromNumber(number)), m_bits(8 * static_cast<int>(std::max(sizeof(Number), sizeof(int))))
    {
    }
    explicit FormatArgument(const wchar_t* text);
    explicit FormatArgument(const char* text);
    explicit FormatArgument(const std::wstring& text);
    explicit FormatArgument(const std::string& text);
    explicit FormatArgument(const CString& text);
    explicit FormatArgument(const CStringA& text);

    const Value& Get() const noexcept { return m_value; }
    /// Width of a number's own type after promotion to int: how many bits a negative integer
    /// shows as when it is written unsigned. 0 for text.
    int Bits() const noexcept { return m_bits; }

private:
    template <typename Number>
    static Value FromNumber(Number number)
    {
        if constexpr (std::is_floating_point_v<Number>) {
            return static_cast<double>(number);
        } else if constexpr (std::is_same_v<Number, wchar_t>) {
            return number;
        } else if constexpr (std::is_same_v<Number, char>) {
            return static_cast<wchar_t>(static_cast<unsigned char>(number));
        } else if constexpr (std::is_signed_v<Number>) {
            return static_cast<long long>(number);
        } else {
            return static_cast<unsigned long long>(number);
        }
    }

    Value m_value;
    int m_bits = 0;
};
