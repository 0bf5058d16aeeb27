#pragma once

#include <algorithm>
#include <cstddef>
#include <string_view>
#include <type_traits>

/// Code points in strings of 16-bit (UTF-16) and 32-bit (UTF-32) units. `Unit` is wchar_t in the
/// library, whatever its width; char16_t and char32_t show either width on every platform.
///
/// None of this fails: an unpaired surrogate is taken as the code point of its own number.
namespace unicode {

inline constexpr char32_t kReplacementCharacter = 0xFFFD;
inline constexpr char32_t kLastCodePoint = 0x10FFFF;
inline constexpr char32_t kFirstSupplementary = 0x10000;

constexpr bool IsSurrogate(char32_t code) noexcept
{
    return code >= 0xD800 && code <= 0xDFFF;
}
constexpr bool IsScalarValue(char32_t code) noexcept
{
    return code <= kLastCodePoint && !IsSurrogate(code);
}

template <typename Unit>
inline constexpr bool kHasSurrogates = sizeof(Unit) == 2;

/// The unit's number, free of the sign that wchar_t has on some platforms.
template <typename Unit>
constexpr char32_t NumberOf(Unit unit) noexcept
{
    return static_cast<char32_t>(static_cast<std::make_unsigned_t<Unit>>(unit));
}

/// The code point at `position`, which must lie within `text`; moves `position` behind it.
template <typename Unit>
constexpr char32_t Next(std::basic_string_view<Unit> text, std::size_t& position) noexcept
{
    const char32_t first = NumberOf(text[position++]);
    if constexpr (kHasSurrogates<Unit>) {
        if (first >= 0xD800 && first <= 0xDBFF && position < text.size()) {
            const char32_t second = NumberOf(text[position]);
            if (second >= 0xDC00 && second <= 0xDFFF) {
                ++position;
                return kFirstSupplementary + ((first - 0xD800) << 10) + (second - 0xDC00);
            }
        }
    }
    return first;
}

/// Writes `code`, at most kLastCodePoint, to `out`, which has room for two units; returns the end.
template <typename Unit>
constexpr Unit* Put(Unit* out, char32_t code) noexcept
{
    if constexpr (kHasSurrogates<Unit>) {
        if (code >= kFirstSupplementary) {
            *out++ = static_cast<Unit>(0xD800 + ((code - kFirstSupplementary) >> 10));
            *out++ = static_cast<Unit>(0xDC00 + (code & 0x3FF));
            return out;
        }
    }
    *out++ = static_cast<Unit>(code);
    return out;
}

/// Number of code points in `text`.
template <typename Unit>
constexpr std::size_t Count(std::basic_string_view<Unit> text) noexcept
{
    if constexpr (!kHasSurrogates<Unit>) {
        return text.size();
    }
    std::size_t count = 0;
    for (std::size_t position = 0; position < text.size(); ++count) {
        Next(text, position);
    }
    return count;
}

/// The first `count` code points of `text`, all of it when it has fewer.
template <typename Unit>
constexpr std::basic_string_view<Unit> Prefix(std::basic_string_view<Unit> text, std::size_t count) noexcept
{
    if constexpr (!kHasSurrogates<Unit>) {
        return text.substr(0, count);
    }
    std::size_t position = 0;
    for (; position < text.size() && count > 0; --count) {
        Next(text, position);
    }
    return text.substr(0, position);
}

/// Order by code points: negative, 0 or positive.
template <typename Unit>
int Compare(std::basic_string_view<Unit> a, std::basic_string_view<Unit> b) noexcept
{
    const auto [inA, inB] = std::mismatch(a.begin(), a.end(), b.begin(), b.end());
    if (inA == a.end() || inB == b.end()) {
        return static_cast<int>(inA != a.end()) - static_cast<int>(inB != b.end());
    }
    // Surrogates stand for code points above all other units; move them there.
    const auto rank = [](char32_t unit) { return kHasSurrogates<Unit> && IsSurrogate(unit) ? unit + 0x10000 : unit; };
    return rank(NumberOf(*inA)) < rank(NumberOf(*inB)) ? -1 : 1;
}

} // namespace unicode
