#include "base/text/Xml.h"

#include <string>
#include <string_view>
#include <utility>

#include "base/text/CodePoints.h"

namespace {

// What stands for a character of XML's own syntax; empty for all others.
std::wstring_view EntityOf(char32_t code)
{
    switch (code) {
    case U'&':
        return L"&amp;";
    case U'<':
        return L"&lt;";
    case U'>':
        return L"&gt;";
    case U'"':
        return L"&quot;";
    case U'\'':
        return L"&apos;";
    default:
        return {};
    }
}

// XML 1.0, production 2 (Char).
bool IsXmlCharacter(char32_t code)
{
    if (code < 0x20) {
        return code == U'\t' || code == U'\n' || code == U'\r';
    }
    return unicode::IsScalarValue(code) && code != 0xFFFE && code != 0xFFFF;
}

} // namespace

void MakeXmlCompatible(CString& text)
{
    const std::wstring_view source = text.View();
    std::wstring result;
    result.reserve(source.size());
    for (std::size_t position = 0; position < source.size();) {
        const std::size_t start = position;
        const char32_t code = unicode::Next(source, position);
        if (!IsXmlCharacter(code)) {
            result += static_cast<wchar_t>(unicode::kReplacementCharacter);
        } else if (const std::wstring_view entity = EntityOf(code); !entity.empty()) {
            result += entity;
        } else {
            result += source.substr(start, position - start);
        }
    }
    text = CString(std::move(result));
}
