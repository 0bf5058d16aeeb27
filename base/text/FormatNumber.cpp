#include "base/text/FormatNumber.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <limits>

namespace {

constexpr int kDefaultPrecision = 6;
// Behind the smallest subnormal's 1074th decimal every double has zeros only.
constexpr int kExactDecimals = std::numeric_limits<double>::digits - std::numeric_limits<double>::min_exponent;
// Those decimals, the digits before the point, the point and an exponent.
constexpr std::size_t kLongestExact = kExactDecimals + std::numeric_limits<double>::max_exponent10 + 10;

std::string SignOf(const FormatDirective& directive, bool negative)
{
    return negative ? "-" : directive.plus ? "+" : directive.blank ? " " : "";
}

void MakeUpper(std::string& text)
{
    std::transform(text.begin(), text.end(), text.begin(),
                   [](char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c; });
}

int BaseOf(wchar_t conversion)
{
    switch (conversion) {
    case L'o':
        return 8;
    case L'x':
    case L'X':
        return 16;
    default:
        return 10;
    }
}

std::size_t EndOfMantissa(const std::string& text)
{
    return std::min(text.find('e'), text.size());
}

std::string ToChars(double magnitude, std::chars_format style, int precision)
{
    std::array<char, kLongestExact> buffer;
    const int exact = std::min(precision, kExactDecimals);
    const auto result = std::to_chars(buffer.data(), buffer.data() + buffer.size(), magnitude, style, exact);
    std::string text(buffer.data(), result.ptr);
    // The general style drops zeros at the end instead.
    if (style != std::chars_format::general) {
        text.insert(EndOfMantissa(text), static_cast<std::size_t>(precision - exact), '0');
    }
    return text;
}

// The general style with the zeros at its end: fixed when the decimal exponent lies in
// [-4, precision), scientific otherwise.
std::string GeneralWithZeros(double magnitude, int precision)
{
    const int significant = std::max(precision, 1);
    std::string scientific = ToChars(magnitude, std::chars_format::scientific, significant - 1);

    const char* const exponentText = scientific.data() + EndOfMantissa(scientific) + 1;
    int exponent = 0;
    std::from_chars(exponentText + 1, scientific.data() + scientific.size(), exponent);
    if (*exponentText == '-') {
        exponent = -exponent;
    }
    if (exponent < -4 || exponent >= significant) {
        return scientific;
    }
    return ToChars(magnitude, std::chars_format::fixed, significant - 1 - exponent);
}

std::string FiniteDigits(const FormatDirective& directive, double magnitude)
{
    const int precision = directive.HasPrecision() ? directive.precision : kDefaultPrecision;
    std::string text;
    switch (directive.conversion) {
    case L'f':
    case L'F':
        text = ToChars(magnitude, std::chars_format::fixed, precision);
        break;
    case L'e':
    case L'E':
        text = ToChars(magnitude, std::chars_format::scientific, precision);
        break;
    default:
        text = directive.alternate ? GeneralWithZeros(magnitude, precision)
                                   : ToChars(magnitude, std::chars_format::general, precision);
    }
    if (directive.alternate && text.find('.') == text.npos) {
        text.insert(EndOfMantissa(text), 1, '.');
    }
    return text;
}

} // namespace

FormattedNumber FormatInteger(const FormatDirective& directive, unsigned long long magnitude, bool negative)
{
    std::array<char, std::numeric_limits<unsigned long long>::digits> buffer;
    const int base = BaseOf(directive.conversion);
    const auto end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), magnitude, base).ptr;

    FormattedNumber number{"", {buffer.data(), end}, directive.zero && !directive.HasPrecision()};
    if (directive.HasPrecision()) {
        const auto least = static_cast<std::size_t>(directive.precision);
        if (magnitude == 0) {
            number.digits.clear();
        }
        number.digits.insert(0, least - std::min(least, number.digits.size()), '0');
    }
    if (directive.conversion == L'd' || directive.conversion == L'i') {
        number.prefix = SignOf(directive, negative);
    }
    if (directive.alternate && base == 16 && magnitude != 0) {
        number.prefix = "0x";
    }
    if (directive.alternate && base == 8 && !number.digits.starts_with('0')) {
        number.digits.insert(0, 1, '0');
    }
    if (directive.conversion == L'X') {
        MakeUpper(number.prefix);
        MakeUpper(number.digits);
    }
    return number;
}

FormattedNumber FormatFloating(const FormatDirective& directive, double value)
{
    const double magnitude = std::fabs(value);
    FormattedNumber number{SignOf(directive, std::signbit(value)), "", directive.zero && std::isfinite(value)};
    if (std::isfinite(value)) {
        number.digits = FiniteDigits(directive, magnitude);
    } else {
        number.digits = std::isnan(value) ? "nan" : "inf";
    }
    if (directive.conversion == L'F' || directive.conversion == L'E' || directive.conversion == L'G') {
        MakeUpper(number.digits);
    }
    return number;
}
