#pragma once

#include <iosfwd>
#include <string>

#include "frame/BaseContract.h"

/// A number as `stream` would write it, with its precision and flags but never in its locale: a
/// description that is read elsewhere has a decimal point and no grouping.
CString XmlNumber(const std::wostream& stream, double value);

/// Writes lines of XML to a stream, each begun with the indent and ended by a newline that flushes.
/// Texts are written as they stand; who needs one escaped calls MakeXmlCompatible. Cannot fail.
class XmlLines {
public:
    XmlLines(std::wostream& stream, std::wstring indent);

    /// Lines on the same stream, two blanks further in.
    XmlLines Inner() const;

    /// A tag, or any other content of a line.
    void Tag(const CString& content) const;
    void Element(const CString& name, const CString& text) const;
    void Element(const CString& name, double value) const;

private:
    std::wostream& m_stream;
    std::wstring m_indent;
};
