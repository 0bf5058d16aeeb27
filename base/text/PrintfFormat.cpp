#include "base/text/PrintfFormat.h"

#include <algorithm>
#include <stdexcept>
#include <string>
#include <utility>

#include "base/text/CodePoints.h"
#include "base/text/Utf8.h"

namespace {

[[noreturn]] void Refuse(const char* what)
{
    throw std::invalid_argument(std::string("CString::Format: ") + what);
}

bool IsDigit(wchar_t character)
{
    return character >= L'0' && character <= L'9';
}

constexpr std::wstring_view kLengthModifiers[] = {L"I64", L"I32", L"hh", L"h", L"ll", L"l", L"j", L"z", L"t", L"L"};

FormattedNumber Signed(const FormatDirective& directive, const FormatArgument& argument)
{
    if (const auto* number = std::get_if<long long>(&argument.Get())) {
        const auto bits = static_cast<unsigned long long>(*number);
        return FormatInteger(directive, *number < 0 ? 0 - bits : bits, *number < 0);
    }
    if (const auto* number = std::get_if<unsigned long long>(&argument.Get())) {
        return FormatInteger(directive, *number, false);
    }
    if (const auto* character = std::get_if<wchar_t>(&argument.Get())) {
        return FormatInteger(directive, unicode::NumberOf(*character), false);
    }
    Refuse("an integer conversion needs an integer");
}

// As Signed, with a negative number as the bits of its own type.
FormattedNumber Unsigned(const FormatDirective& directive, const FormatArgument& argument)
{
    const auto* number = std::get_if<long long>(&argument.Get());
    if (number == nullptr || *number >= 0) {
        return Signed(directive, argument);
    }
    const auto bits = static_cast<unsigned long long>(*number);
    const auto mask = ~0ULL >> (64 - argument.Bits());
    return FormatInteger(directive, bits & mask, false);
}

double FloatingOf(const FormatArgument& argument)
{
    if (const auto* number = std::get_if<double>(&argument.Get())) {
        return *number;
    }
    if (const auto* number = std::get_if<long long>(&argument.Get())) {
        return static_cast<double>(*number);
    }
    if (const auto* number = std::get_if<unsigned long long>(&argument.Get())) {
        return static_cast<double>(*number);
    }
    Refuse("a floating conversion needs a number");
}

std::wstring CharacterOf(const FormatArgument& argument)
{
    if (const auto* character = std::get_if<wchar_t>(&argument.Get())) {
        return {*character};
    }
    unsigned long long code = 0;
    if (const auto* number = std::get_if<long long>(&argument.Get())) {
        code = static_cast<unsigned long long>(*number);
    } else if (const auto* positive = std::get_if<unsigned long long>(&argument.Get())) {
        code = *positive;
    } else {
        Refuse("%c needs a character");
    }
    if (code > unicode::kLastCodePoint) {
        Refuse("%c needs the number of a character");
    }
    wchar_t units[2];
    return {units, unicode::Put(units, static_cast<char32_t>(code))};
}

std::wstring StringOf(const FormatArgument& argument)
{
    if (const auto* wide = std::get_if<std::wstring_view>(&argument.Get())) {
        return std::wstring(*wide);
    }
    if (const auto* narrow = std::get_if<std::string_view>(&argument.Get())) {
        return utf8::Decode<wchar_t>(*narrow);
    }
    Refuse("%s needs a text");
}

} // namespace

PrintfFormat::PrintfFormat(std::wstring_view format, std::span<const FormatArgument> arguments) noexcept
    : m_format(format), m_arguments(arguments)
{
}

std::wstring PrintfFormat::Text()
{
    while (m_position < m_format.size()) {
        const std::wstring_view literal = m_format.substr(m_position, m_format.find(L'%', m_position) - m_position);
        m_text += literal;
        m_position += literal.size();
        if (Accept(L'%')) {
            if (Accept(L'%')) {
                m_text += L'%';
            } else {
                AppendConverted(ReadDirective());
            }
        }
    }
    return std::move(m_text);
}

bool PrintfFormat::Accept(wchar_t character)
{
    const bool accepted = m_position < m_format.size() && m_format[m_position] == character;
    m_position += accepted ? 1 : 0;
    return accepted;
}

FormatDirective PrintfFormat::ReadDirective()
{
    FormatDirective directive;
    ReadFlags(directive);
    ReadWidth(directive);
    ReadPrecision(directive);
    SkipLengthModifier();
    if (m_position == m_format.size()) {
        Refuse("the format ends within a directive");
    }
    directive.conversion = m_format[m_position++];
    return directive;
}

void PrintfFormat::ReadFlags(FormatDirective& directive)
{
    for (bool more = true; more;) {
        if (Accept(L'-')) {
            directive.left = true;
        } else if (Accept(L'+')) {
            directive.plus = true;
        } else if (Accept(L' ')) {
            directive.blank = true;
        } else if (Accept(L'#')) {
            directive.alternate = true;
        } else if (Accept(L'0')) {
            directive.zero = true;
        } else {
            more = false;
        }
    }
}

void PrintfFormat::ReadWidth(FormatDirective& directive)
{
    if (!Accept(L'*')) {
        directive.width = ReadNumber();
        return;
    }
    directive.width = NextFieldSize();
    if (directive.width < 0) {
        directive.left = true;
        directive.width = -directive.width;
    }
}

void PrintfFormat::ReadPrecision(FormatDirective& directive)
{
    if (!Accept(L'.')) {
        return;
    }
    directive.precision = Accept(L'*') ? NextFieldSize() : ReadNumber();
    if (directive.precision < 0) {
        directive.precision = FormatDirective::kNoPrecision;
    }
}

void PrintfFormat::SkipLengthModifier()
{
    for (const std::wstring_view modifier : kLengthModifiers) {
        if (m_format.substr(m_position).starts_with(modifier)) {
            m_position += modifier.size();
            return;
        }
    }
}

int PrintfFormat::ReadNumber()
{
    int number = 0;
    for (; m_position < m_format.size() && IsDigit(m_format[m_position]); ++m_position) {
        number = number * 10 + static_cast<int>(m_format[m_position] - L'0');
        if (number > kLargestField) {
            Refuse("a width or precision is too large");
        }
    }
    return number;
}

int PrintfFormat::NextFieldSize()
{
    const FormatArgument::Value& value = NextArgument().Get();
    if (const auto* number = std::get_if<long long>(&value)) {
        if (*number >= -kLargestField && *number <= kLargestField) {
            return static_cast<int>(*number);
        }
    } else if (const auto* positive = std::get_if<unsigned long long>(&value)) {
        if (*positive <= kLargestField) {
            return static_cast<int>(*positive);
        }
    } else {
        Refuse("* needs an integer");
    }
    Refuse("a width or precision is too large");
}

const FormatArgument& PrintfFormat::NextArgument()
{
    if (m_nextArgument == m_arguments.size()) {
        Refuse("an argument is missing");
    }
    return m_arguments[m_nextArgument++];
}

void PrintfFormat::AppendConverted(const FormatDirective& directive)
{
    switch (directive.conversion) {
    case L'd':
    case L'i':
        return AppendNumber(directive, Signed(directive, NextArgument()));
    case L'u':
    case L'x':
    case L'X':
    case L'o':
        return AppendNumber(directive, Unsigned(directive, NextArgument()));
    case L'f':
    case L'F':
    case L'e':
    case L'E':
    case L'g':
    case L'G':
        return AppendNumber(directive, FormatFloating(directive, FloatingOf(NextArgument())));
    case L'c':
        return AppendText(directive, CharacterOf(NextArgument()));
    case L's': {
        const std::wstring text = StringOf(NextArgument());
        const auto characters = static_cast<std::size_t>(directive.precision);
        return AppendText(directive, directive.HasPrecision() ? unicode::Prefix<wchar_t>(text, characters) : text);
    }
    default:
        Refuse("unknown conversion");
    }
}

void PrintfFormat::AppendNumber(const FormatDirective& directive, const FormattedNumber& number)
{
    const std::size_t length = number.prefix.size() + number.digits.size();
    const std::size_t width = static_cast<std::size_t>(directive.width);
    const std::size_t fill = width - std::min(width, length);
    const bool zeros = number.zeroFilled && !directive.left;

    m_text.append(directive.left || zeros ? 0 : fill, L' ');
    m_text.append(number.prefix.begin(), number.prefix.end());
    m_text.append(zeros ? fill : 0, L'0');
    m_text.append(number.digits.begin(), number.digits.end());
    m_text.append(directive.left ? fill : 0, L' ');
}

void PrintfFormat::AppendText(const FormatDirective& directive, std::wstring_view text)
{
    const std::size_t width = static_cast<std::size_t>(directive.width);
    const std::size_t fill = width - std::min(width, unicode::Count(text));

    m_text.append(directive.left ? 0 : fill, L' ');
    m_text.append(text);
    m_text.append(directive.left ? fill : 0, L' ');
}
