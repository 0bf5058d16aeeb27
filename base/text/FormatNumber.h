#pragma once

#include <string>

#include "base/text/FormatDirective.h"

/// A number written by a directive, all but its field width. ASCII; the locale has no part in it.
struct FormattedNumber {
    std::string prefix; ///< sign or base, "-" or "0x": zeros that fill the field stand behind it
    std::string digits;
    bool zeroFilled; ///< whether zeros, not blanks, fill the field
};

/// For the conversions d i u x X o. The number is `magnitude`, negated when `negative`.
FormattedNumber FormatInteger(const FormatDirective& directive, unsigned long long magnitude, bool negative);

/// For the conversions f F e E g G.
FormattedNumber FormatFloating(const FormatDirective& directive, double value);
