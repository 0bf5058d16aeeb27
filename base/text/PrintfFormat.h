#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <string_view>

#include "base/text/FormatArgument.h"
#include "base/text/FormatDirective.h"
#include "base/text/FormatNumber.h"

/// The body of CString::Format, whose header tells what is accepted: one pass over a format and
/// its arguments. Every failure is a std::invalid_argument that says what is wrong.
class PrintfFormat {
public:
    /// Widest field and highest precision.
    static constexpr int kLargestField = 1'000'000;

    /// Both must outlive the object.
    PrintfFormat(std::wstring_view format, std::span<const FormatArgument> arguments) noexcept;

    /// The format with its directives filled in. To be called once.
    std::wstring Text();

private:
    FormatDirective ReadDirective();
    void ReadFlags(FormatDirective& directive);
    void ReadWidth(FormatDirective& directive);
    void ReadPrecision(FormatDirective& directive);
    void SkipLengthModifier();
    int ReadNumber();
    int NextFieldSize();
    const FormatArgument& NextArgument();
    bool Accept(wchar_t character);

    void AppendConverted(const FormatDirective& directive);
    void AppendNumber(const FormatDirective& directive, const FormattedNumber& number);
    void AppendText(const FormatDirective& directive, std::wstring_view text);

    std::wstring_view m_format;
    std::span<const FormatArgument> m_arguments;
    std::size_t m_position = 0;
    std::size_t m_nextArgument = 0;
    std::wstring m_text;
};
