#pragma once

/// One directive of a printf format, "%-08.3f", with the values of its asterisks filled in.
struct FormatDirective {
    static constexpr int kNoPrecision = -1;

    bool left = false;      ///< '-'
    bool plus = false;      ///< '+'
    bool blank = false;     ///< ' '
    bool alternate = false; ///< '#'
    bool zero = false;      ///< '0'
    int width = 0;
    int precision = kNoPrecision;
    wchar_t conversion = 0;

    bool HasPrecision() const noexcept { return precision != kNoPrecision; }
};
