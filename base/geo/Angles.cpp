#include "base/geo/Angles.h"

#include <array>
#include <charconv>
#include <string>
#include <string_view>

double FoldDegrees(double degrees)
{
    // The remainder of IEEE 754 is exact, whatever the size of the angle, and lies in
    // [-180, 180]; half turns come out with either sign.
    const double folded = std::remainder(degrees, 360.0);
    return folded == -180.0 ? 180.0 : folded;
}

namespace {

/// A text of decimal digits, the most significant first.
using Digits = std::string;

/// Degrees, minutes and seconds without a sign, every part in decimal digits, so that no step
/// rounds but the one that is asked for.
struct Sexagesimal {
    Digits degrees;
    int minutes = 0;
    int seconds = 0;
    Digits decimals; ///< of the seconds
};

/// Takes 60 times a decimal fraction apart: gives the whole part, 0 to 59, and leaves the fraction.
int TakeSixtieths(Digits& fraction)
{
    int carry = 0;
    for (auto digit = fraction.rbegin(); digit != fraction.rend(); ++digit) {
        const int product = (*digit - '0') * 60 + carry;
        *digit = static_cast<char>('0' + product % 10);
        carry = product / 10;
    }
    return carry;
}

/// Adds one in the last place. True when the carry leaves the first place; all digits are 0 then.
bool Increment(Digits& digits)
{
    for (auto digit = digits.rbegin(); digit != digits.rend(); ++digit) {
        if (*digit != '9') {
            ++*digit;
            return false;
        }
        *digit = '0';
    }
    return true;
}

/// Adds one unit of the last decimal of the seconds.
void CarryUp(Sexagesimal& angle)
{
    if (!Increment(angle.decimals) || ++angle.seconds < 60) {
        return;
    }
    angle.seconds = 0;
    if (++angle.minutes < 60) {
        return;
    }
    angle.minutes = 0;
    if (Increment(angle.degrees)) {
        angle.degrees.insert(0, 1, '1');
    }
}

/// The finite `magnitude`, not negative, with its seconds rounded half up to `decimals` places.
Sexagesimal Split(double magnitude, unsigned decimals)
{
    // The longest is the smallest normal number: 307 zeros behind the point, then 17 digits.
    std::array<char, 400> text{};
    const auto end = std::to_chars(text.data(), text.data() + text.size(), magnitude, std::chars_format::fixed).ptr;
    const std::string_view number(text.data(), static_cast<std::size_t>(end - text.data()));
    const std::size_t point = number.find('.');

    Sexagesimal angle;
    angle.degrees = Digits(number.substr(0, point));
    Digits fraction = point == std::string_view::npos ? Digits() : Digits(number.substr(point + 1));
    angle.minutes = TakeSixtieths(fraction);
    angle.seconds = TakeSixtieths(fraction);
    fraction.resize(std::max(fraction.size(), std::size_t{decimals} + 1), '0');
    angle.decimals = fraction.substr(0, decimals);
    if (fraction[decimals] >= '5') {
        CarryUp(angle);
    }
    return angle;
}

bool IsZero(const Sexagesimal& angle)
{
    return angle.degrees == "0" && angle.minutes == 0 && angle.seconds == 0 &&
           angle.decimals.find_first_not_of('0') == Digits::npos;
}

Digits Padded(Digits digits, std::size_t width)
{
    return digits.size() < width ? digits.insert(0, width - digits.size(), '0') : digits;
}

void Append(CString& text, const Digits& digits)
{
    text += CString(std::wstring(digits.begin(), digits.end()));
}

} // namespace

bool FormatGeogs(double value, unsigned decimals, int /*width*/, int kind, CString& out, bool hemisphere, bool symbols)
{
    const bool latitude = kind == GeogsKind::latitude;
    if (!std::isfinite(value) || (!latitude && kind != GeogsKind::longitude) || decimals > kMaxGeogsDecimals) {
        return false;
    }
    const Sexagesimal angle = Split(std::abs(value), decimals);
    const bool negative = value < 0.0 && !IsZero(angle);

    CString text;
    if (negative && !hemisphere) {
        text += L'-';
    }
    Append(text, Padded(angle.degrees, latitude ? 2 : 3));
    text += symbols ? L'\u00B0' : L' ';
    Append(text, Padded(std::to_string(angle.minutes), 2));
    text += symbols ? L'\'' : L' ';
    Append(text, Padded(std::to_string(angle.seconds), 2));
    if (decimals > 0) {
        text += L'.';
        Append(text, angle.decimals);
    }
    if (symbols) {
        text += L'"';
    } else if (hemisphere) {
        text += L' ';
    }
    if (hemisphere) {
        text += latitude ? (negative ? L'S' : L'N') : (negative ? L'W' : L'E');
    }
    out = text;
    return true;
}
