#include "base/text/CaseMapping.h"

#include <algorithm>
#include <iterator>
#include <span>

namespace unicode {
namespace {

// Every stride-th code point of [first, last] maps to itself plus offset.
struct CaseRange {
    char32_t first;
    char32_t last;
    unsigned stride;
    int offset;
};

#include "base/text/CaseTable.inc"

char32_t Map(char32_t code, std::span<const CaseRange> ranges) noexcept
{
    const auto behind = std::upper_bound(ranges.begin(), ranges.end(), code,
                                         [](char32_t value, const CaseRange& range) { return value < range.first; });
    if (behind == ranges.begin()) {
        return code;
    }
    const CaseRange& range = *std::prev(behind);
    if (code > range.last || (code - range.first) % range.stride != 0) {
        return code;
    }
    return static_cast<char32_t>(static_cast<int>(code) + range.offset);
}

constexpr bool IsAsciiUpper(char32_t code) noexcept
{
    return code >= U'A' && code <= U'Z';
}
constexpr bool IsAsciiLower(char32_t code) noexcept
{
    return code >= U'a' && code <= U'z';
}
constexpr char32_t kAsciiCaseBit = 0x20;

} // namespace

char32_t ToUpper(char32_t code) noexcept
{
    if (code < 0x80) {
        return IsAsciiLower(code) ? code - kAsciiCaseBit : code;
    }
    return Map(code, kUpper);
}

char32_t ToLower(char32_t code) noexcept
{
    if (code < 0x80) {
        return IsAsciiUpper(code) ? code + kAsciiCaseBit : code;
    }
    return Map(code, kLower);
}

char32_t Fold(char32_t code) noexcept
{
    if (code < 0x80) {
        return IsAsciiUpper(code) ? code + kAsciiCaseBit : code;
    }
    return Map(code, kFold);
}

} // namespace unicode
