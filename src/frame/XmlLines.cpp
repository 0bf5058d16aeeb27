#include "frame/XmlLines.h"

#include <locale>
#include <sstream>
#include <utility>

CString XmlNumber(const std::wostream& stream, double value)
{
    std::wostringstream text;
    text.copyfmt(stream);
    text.width(0);
    text.imbue(std::locale::classic());
    text << value;
    return text.str();
}

XmlLines::XmlLines(std::wostream& stream, std::wstring indent) : m_stream(stream), m_indent(std::move(indent)) {}

XmlLines XmlLines::Inner() const
{
    return {m_stream, m_indent + L"  "};
}

void XmlLines::Tag(const CString& content) const
{
    m_stream << m_indent << content << std::endl;
}

void XmlLines::Element(const CString& name, const CString& text) const
{
    Tag(L"<" + name + L">" + text + L"</" + name + L">");
}

void XmlLines::Element(const CString& name, double value) const
{
    Element(name, XmlNumber(m_stream, value));
}
