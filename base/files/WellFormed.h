#pragma once

#include <cstddef>
#include <string_view>

#include "base/text/CodePoints.h"
#include "base/text/Utf8.h"

// Whether a text can be stored and come back as it was. The conversions of base/text never fail:
// they put U+FFFD for what is ill-formed, so that two names could become one.

/// Reads the code point at `position` and moves on, as utf8::Next. False when it is ill-formed;
/// a U+FFFD that stands in the text itself is not.
inline bool NextWellFormed(std::string_view utf8, std::size_t& position, char32_t& code) noexcept
{
    const std::size_t begin = position;
    code = utf8::Next(utf8, position);
    return code != unicode::kReplacementCharacter || utf8.substr(begin, position - begin) == "\xEF\xBF\xBD";
}

inline bool IsWellFormed(std::string_view utf8) noexcept
{
    char32_t code = 0;
    for (std::size_t position = utf8::AsciiRun(utf8); position < utf8.size();) {
        if (!NextWellFormed(utf8, position, code)) {
            return false;
        }
    }
    return true;
}

/// False for an unpaired surrogate, which file names of Windows can hold, and for a unit that is
/// no code point.
template <typename Unit>
bool IsWellFormed(std::basic_string_view<Unit> text) noexcept
{
    for (std::size_t position = utf8::AsciiRun(text); position < text.size();) {
        if (!unicode::IsScalarValue(unicode::Next(text, position))) {
            return false;
        }
    }
    return true;
}
