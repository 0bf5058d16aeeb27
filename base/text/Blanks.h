#pragma once

/// What counts as blank at the ends of a text: the white space of the "C" locale. A no-break
/// space is part of a name and stays.
template <typename Unit>
constexpr bool IsBlank(Unit unit) noexcept
{
    return unit == Unit(' ') || (unit >= Unit('\t') && unit <= Unit('\r'));
}

/// `text`, a string view, without the blanks at its beginning or its end.
template <typename View>
constexpr View WithoutLeadingBlanks(View text) noexcept
{
    while (!text.empty() && IsBlank(text.front())) {
        text.remove_prefix(1);
    }
    return text;
}

template <typename View>
constexpr View WithoutTrailingBlanks(View text) noexcept
{
    while (!text.empty() && IsBlank(text.back())) {
        text.remove_suffix(1);
    }
    return text;
}
