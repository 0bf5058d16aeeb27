#include "convert/FixedNumber.h"

#include <charconv>
#include <cmath>
#include <cstdint>
#include <cstring>

namespace {

constexpr double kPowers[kMostDecimals + 1] = {1e0, 1e1, 1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                               1e8, 1e9, 1e10, 1e11, 1e12, 1e13, 1e14, 1e15};
// Below this the scaled number and its fraction are doubles with room for the test on rounding.
constexpr double kLargestScaled = 4e15;

/// The digits of `number`, at least `least` of them.
char* WriteDigits(char* out, std::uint64_t number, int least) noexcept
{
    char digits[20];
    int count = 0;
    while (number != 0 || count < least) {
        digits[count++] = static_cast<char>('0' + number % 10);
        number /= 10;
    }
    while (count > 0) {
        *out++ = digits[--count];
    }
    return out;
}

/// The long way, for what the short one cannot decide.
char* WriteExactly(char* out, double value, int decimals) noexcept
{
    char* const end = std::to_chars(out, out + kFixedNumberRoom, value, std::chars_format::fixed, decimals).ptr;
    const bool onlyNoughts = *out == '-' && std::strspn(out + 1, "0.") >= static_cast<std::size_t>(end - out - 1);
    if (!onlyNoughts) {
        return end;
    }
    std::memmove(out, out + 1, static_cast<std::size_t>(end - out - 1));
    return end - 1;
}

} // namespace

char* WriteFixed(char* out, double value, int decimals) noexcept
{
    const double scaled = std::fabs(value) * kPowers[decimals];
    if (!(scaled < kLargestScaled)) {
        return WriteExactly(out, value, decimals);
    }
    // The product is off by half a unit in its last place at most. Unless its fraction is that
    // near to one half, it rounds to the same integer as the exact value does.
    auto whole = static_cast<std::uint64_t>(scaled);
    const double fraction = scaled - static_cast<double>(whole);
    if (std::fabs(fraction - 0.5) <= scaled * 0x1p-52) {
        return WriteExactly(out, value, decimals);
    }
    whole += fraction > 0.5 ? 1 : 0;
    if (std::signbit(value) && whole != 0) {
        *out++ = '-';
    }
    const auto power = static_cast<std::uint64_t>(kPowers[decimals]);
    out = WriteDigits(out, whole / power, 1);
    if (decimals > 0) {
        *out++ = '.';
        out = WriteDigits(out, whole % power, decimals);
    }
    return out;
}
