#pragma once

#include <cstddef>

/// Room that WriteFixed may need: 309 digits, sign, point and kMostDecimals decimals, and some.
constexpr std::size_t kFixedNumberRoom = 352;
constexpr int kMostDecimals = 15;

/// Writes a finite number with `decimals` (0 to kMostDecimals) decimals at `out` and returns the
/// end. The text is that of std::to_chars in fixed form, rounded from the exact binary value, but
/// a negative number that rounds to nothing is written without its sign: 0.000, never -0.000.
char* WriteFixed(char* out, double value, int decimals) noexcept;
