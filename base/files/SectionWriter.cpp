#include "base/files/SectionWriter.h"

#include <algorithm>
#include <charconv>

#include "base/text/Utf8.h"

namespace {

// What would be taken for something else at the beginning of a key or within it.
constexpr std::string_view kAtKeyStart = "[;";
constexpr std::string_view kInKey = "=";

// Line ends and what editors take for one, and characters that cannot be seen.
constexpr bool IsInvisible(char32_t code) noexcept
{
    return code < 0x20 || (code >= 0x7F && code < 0xA0) || code == 0x2028 || code == 0x2029 || code == 0xFEFF;
}

// Whether the whole text can stand as it is, judged by its bytes.
bool IsPlain(std::string_view text, std::string_view special) noexcept
{
    return std::all_of(text.begin(), text.end(),
                       [special](char character) {
                           return character >= 0x20 && character < 0x7F && character != '\\' &&
                                  special.find(character) == special.npos;
                       }) &&
           !text.starts_with(' ') && !text.ends_with(' ');
}

void AppendEscape(char32_t code, std::string& out)
{
    char digits[8] = {};
    const auto end = std::to_chars(std::begin(digits), std::end(digits), static_cast<unsigned>(code), 16);
    out.append("\\{").append(digits, end.ptr).append("}");
}

// `special` are further characters that are escaped anywhere, `atStart` those at the beginning.
void AppendText(std::string_view text, std::string_view special, std::string_view atStart, std::string& out)
{
    if (IsPlain(text, special) && (text.empty() || atStart.find(text.front()) == atStart.npos)) {
        out += text;
        return;
    }
    for (std::size_t position = 0; position < text.size();) {
        const std::size_t begin = position;
        const char32_t code = utf8::Next(text, position);
        const char first = text[begin];
        const bool outermost = begin == 0 || position == text.size();
        if (code == U'\\') {
            out += "\\\\";
        } else if (IsInvisible(code) || special.find(first) != special.npos || (code == U' ' && outermost) ||
                   (begin == 0 && atStart.find(first) != atStart.npos)) {
            AppendEscape(code, out);
        } else {
            out.append(text, begin, position - begin);
        }
    }
}

} // namespace

std::string WriteSections(const SectionContents& contents)
{
    std::string out;
    for (std::size_t i = 0; i < contents.SectionCount(); ++i) {
        const Section& section = contents.At(i);
        out += out.empty() ? "[" : "\n[";
        AppendText(section.name.Get(), {}, {}, out);
        out += "]\n";
        for (const SectionEntry& entry : section.entries) {
            AppendText(entry.key.Get(), kInKey, kAtKeyStart, out);
            out += '=';
            AppendText(entry.value.Get(), {}, {}, out);
            out += '\n';
        }
    }
    return out;
}
