#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string>
#include <string_view>

#include "base/text/CodePoints.h"

/// UTF-8 to and from strings of 16-bit and 32-bit units (see CodePoints.h for `Unit`).
///
/// Neither direction fails: what is ill-formed becomes U+FFFD, one for each maximal subpart
/// (The Unicode Standard, section 3.9, "U+FFFD Substitution of Maximal Subparts").
namespace utf8 {

/// Length of the run of ASCII at the beginning of `text`.
inline std::size_t AsciiRun(std::string_view text) noexcept
{
    constexpr std::uint64_t highBits = 0x8080808080808080;

    std::size_t length = 0;
    for (std::uint64_t eight = 0; length + sizeof eight <= text.size(); length += sizeof eight) {
        std::memcpy(&eight, text.data() + length, sizeof eight);
        if ((eight & highBits) != 0) {
            break;
        }
    }
    while (length < text.size() && static_cast<unsigned char>(text[length]) < 0x80) {
        ++length;
    }
    return length;
}

/// Length of the run of ASCII at the beginning of `text`.
template <typename Unit>
std::size_t AsciiRun(std::basic_string_view<Unit> text) noexcept
{
    const auto end = std::find_if(text.begin(), text.end(), [](Unit unit) { return unicode::NumberOf(unit) >= 0x80; });
    return static_cast<std::size_t>(end - text.begin());
}

/// What a first byte promises: how many bytes follow, its own share of the code point, and the
/// range of the second byte (The Unicode Standard, table 3-7). No byte follows an impossible one.
struct Lead {
    int following;
    char32_t bits;
    unsigned secondFirst = 0x80;
    unsigned secondLast = 0xBF;
};

constexpr Lead LeadOf(unsigned byte) noexcept
{
    if (byte >= 0xC2 && byte <= 0xDF) {
        return {1, byte & 0x1F};
    }
    if (byte >= 0xE0 && byte <= 0xEF) {
        return {2, byte & 0x0F, byte == 0xE0 ? 0xA0U : 0x80U, byte == 0xED ? 0x9FU : 0xBFU};
    }
    if (byte >= 0xF0 && byte <= 0xF4) {
        return {3, byte & 0x07, byte == 0xF0 ? 0x90U : 0x80U, byte == 0xF4 ? 0x8FU : 0xBFU};
    }
    return {0, unicode::kReplacementCharacter};
}

/// The code point at `position`, which must lie within `text`; moves `position` behind it, or
/// behind the maximal subpart that U+FFFD is returned for.
inline char32_t Next(std::string_view text, std::size_t& position) noexcept
{
    const auto first = static_cast<unsigned char>(text[position++]);
    if (first < 0x80) {
        return first;
    }
    auto [following, code, low, high] = LeadOf(first);
    for (; following > 0; --following) {
        const unsigned byte = position < text.size() ? static_cast<unsigned char>(text[position]) : 0U;
        if (byte < low || byte > high) {
            return unicode::kReplacementCharacter;
        }
        code = (code << 6) | (byte & 0x3F);
        low = 0x80;
        high = 0xBF;
        ++position;
    }
    return code;
}

template <typename Unit>
std::basic_string<Unit> Decode(std::string_view text)
{
    // No byte makes more than one unit in either width.
    std::basic_string<Unit> result(text.size(), Unit());
    Unit* out = result.data();
    for (std::size_t position = 0; position < text.size();) {
        const std::string_view ascii = text.substr(position, AsciiRun(text.substr(position)));
        out = std::transform(ascii.begin(), ascii.end(), out, [](char byte) { return static_cast<Unit>(byte); });
        position += ascii.size();
        while (position < text.size() && static_cast<unsigned char>(text[position]) >= 0x80) {
            out = unicode::Put(out, Next(text, position));
        }
    }
    result.resize(static_cast<std::size_t>(out - result.data()));
    return result;
}

/// Puts `code` behind `out`; U+FFFD when UTF-8 has no form for it.
inline void Append(char32_t code, std::string& out)
{
    if (!unicode::IsScalarValue(code)) {
        code = unicode::kReplacementCharacter;
    }
    const auto put = [&out](char32_t byte) { out.push_back(static_cast<char>(static_cast<unsigned char>(byte))); };
    if (code < 0x80) {
        put(code);
        return;
    }
    if (code < 0x800) {
        put(0xC0 | (code >> 6));
    } else {
        if (code < 0x10000) {
            put(0xE0 | (code >> 12));
        } else {
            put(0xF0 | (code >> 18));
            put(0x80 | ((code >> 12) & 0x3F));
        }
        put(0x80 | ((code >> 6) & 0x3F));
    }
    put(0x80 | (code & 0x3F));
}

/// Puts `text` behind `out`.
template <typename Unit>
void Append(std::basic_string_view<Unit> text, std::string& out)
{
    for (std::size_t position = 0; position < text.size();) {
        const std::basic_string_view<Unit> ascii = text.substr(position, AsciiRun(text.substr(position)));
        const std::size_t before = out.size();
        out.resize(before + ascii.size());
        std::transform(ascii.begin(), ascii.end(), out.data() + before,
                       [](Unit unit) { return static_cast<char>(unit); });
        position += ascii.size();
        while (position < text.size() && unicode::NumberOf(text[position]) >= 0x80) {
            Append(unicode::Next(text, position), out);
        }
    }
}

} // namespace utf8
