#include "base/text/Numbers.h"

#include <array>
#include <charconv>
#include <cmath>
#include <limits>
#include <type_traits>

#include "base/text/Blanks.h"

namespace numbers {
namespace {

std::string_view WithoutBlanks(std::string_view text)
{
    return WithoutLeadingBlanks(WithoutTrailingBlanks(text));
}

// The text without one plus sign; empty when a second sign follows it.
std::string_view WithoutPlus(std::string_view text)
{
    if (!text.starts_with('+')) {
        return text;
    }
    text.remove_prefix(1);
    return text.starts_with('-') ? std::string_view() : text;
}

bool EqualNoCase(std::string_view text, std::string_view lowerCase)
{
    if (text.size() != lowerCase.size()) {
        return false;
    }
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char c = text[i] >= 'A' && text[i] <= 'Z' ? static_cast<char>(text[i] - 'A' + 'a') : text[i];
        if (c != lowerCase[i]) {
            return false;
        }
    }
    return true;
}

// Whether the decimal number in `text` has a digit other than 0 before its exponent.
bool HasNonzeroDigit(std::string_view text)
{
    return text.substr(0, text.find_first_of("eE")).find_first_of("123456789") != text.npos;
}

bool IsNumberWord(std::string_view text)
{
    if (text.starts_with('-')) {
        text.remove_prefix(1);
    }
    return EqualNoCase(text, "nan") || EqualNoCase(text, "inf") || EqualNoCase(text, "infinity");
}

template <typename Number>
bool ReadWhole(std::string_view text, Number& value)
{
    text = WithoutPlus(WithoutBlanks(text));
    Number result = 0;
    // from_chars knows neither locale nor plus sign nor blanks.
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), result);
    if (error != std::errc() || end != text.data() + text.size()) {
        return false;
    }
    if constexpr (std::is_floating_point_v<Number>) {
        if (!std::isfinite(result) && !IsNumberWord(text)) {
            return false;
        }
        // Libraries differ in whether a number too small for the type is an error of from_chars.
        if (result == 0 && HasNonzeroDigit(text)) {
            return false;
        }
    }
    value = result;
    return true;
}

} // namespace

std::string ToText(double value)
{
    if (std::isnan(value)) {
        return "nan";
    }
    // The longest shortest form of a double is "-2.2250738585072014e-308".
    std::array<char, 32> buffer;
    const auto result = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value);
    return {buffer.data(), result.ptr};
}

bool Read(std::string_view text, double& value)
{
    return ReadWhole(text, value);
}

bool Read(std::string_view text, float& value)
{
    return ReadWhole(text, value);
}

bool Read(std::string_view text, int& value)
{
    return ReadWhole(text, value);
}

bool Read(std::string_view text, long& value)
{
    return ReadWhole(text, value);
}

bool Read(std::string_view text, long long& value)
{
    return ReadWhole(text, value);
}

bool Read(std::string_view text, unsigned& value)
{
    return ReadWhole(text, value);
}

bool Read(std::string_view text, unsigned long& value)
{
    return ReadWhole(text, value);
}

bool Read(std::string_view text, unsigned long long& value)
{
    return ReadWhole(text, value);
}

bool Read(std::string_view text, bool& value)
{
    text = WithoutBlanks(text);
    if (text == "1" || EqualNoCase(text, "true")) {
        value = true;
        return true;
    }
    if (text == "0" || EqualNoCase(text, "false")) {
        value = false;
        return true;
    }
    return false;
}

int LeadingInteger(const CString& text)
{
    std::wstring_view rest = WithoutLeadingBlanks(text.View());
    const bool negative = rest.starts_with(L'-');
    if (negative || rest.starts_with(L'+')) {
        rest.remove_prefix(1);
    }
    constexpr int last = std::numeric_limits<int>::max();
    constexpr int first = std::numeric_limits<int>::min();
    // Counted downwards, where the range of int is longer by one.
    int result = 0;
    for (const wchar_t character : rest) {
        if (character < L'0' || character > L'9') {
            break;
        }
        const int digit = static_cast<int>(character - L'0');
        result = result < (first + digit) / 10 ? first : result * 10 - digit;
    }
    if (negative) {
        return result;
    }
    return result == first ? last : -result;
}

} // namespace numbers
