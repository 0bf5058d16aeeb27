#include "base/text/FormatArgument.h"

#include "base/text/CString.h"
#include "base/text/CStringA.h"

FormatArgument::FormatArgument(const wchar_t* text)
    : m_value(text == nullptr ? std::wstring_view() : std::wstring_view(text))
{
}

FormatArgument::FormatArgument(const char* text)
    : m_value(text == nullptr ? std::string_view() : std::string_view(text))
{
}

FormatArgument::FormatArgument(const std::wstring& text) : m_value(std::wstring_view(text)) {}

FormatArgument::FormatArgument(const std::string& text) : m_value(std::string_view(text)) {}

FormatArgument::FormatArgument(const CString& text) : m_value(text.View()) {}

FormatArgument::FormatArgument(const CStringA& text) : m_value(text.View()) {}
