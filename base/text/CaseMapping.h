#pragma once

#include <string_view>

#include "base/Export.h"
#include "base/text/CodePoints.h"

/// Unicode's simple case mappings: one character for one, the same in every language and locale.
/// A character without a mapping maps to itself. None of this fails.
namespace unicode {

ZORBASE_API char32_t ToUpper(char32_t code) noexcept;
ZORBASE_API char32_t ToLower(char32_t code) noexcept;
/// The form in which two characters are compared without regard to case.
ZORBASE_API char32_t Fold(char32_t code) noexcept;

/// Order by folded code points: negative, 0 or positive.
template <typename Unit>
int CompareNoCase(std::basic_string_view<Unit> a, std::basic_string_view<Unit> b) noexcept
{
    std::size_t inA = 0;
    std::size_t inB = 0;
    while (inA < a.size() && inB < b.size()) {
        const char32_t codeA = Next(a, inA);
        const char32_t codeB = Next(b, inB);
        if (codeA != codeB) {
            const char32_t foldedA = Fold(codeA);
            const char32_t foldedB = Fold(codeB);
            if (foldedA != foldedB) {
                return foldedA < foldedB ? -1 : 1;
            }
        }
    }
    return static_cast<int>(inA < a.size()) - static_cast<int>(inB < b.size());
}

/// Replaces each code point of [text, text + length) by `mapping` of it. The mappings above keep
/// every code point in as many units as it had.
template <typename Unit>
void MapInPlace(Unit* text, std::size_t length, char32_t (*mapping)(char32_t) noexcept) noexcept
{
    const std::basic_string_view<Unit> view(text, length);
    for (std::size_t position = 0; position < length;) {
        Unit* const place = text + position;
        Put(place, mapping(Next(view, position)));
    }
}

} // namespace unicode
