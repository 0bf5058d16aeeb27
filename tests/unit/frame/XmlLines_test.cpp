#include "frame/XmlLines.h"

#include <gtest/gtest.h>

#include <limits>
#include <locale>
#include <sstream>

namespace {

class CommaNumbers : public std::numpunct<wchar_t> {
    wchar_t do_decimal_point() const override { return L','; }
    wchar_t do_thousands_sep() const override { return L'.'; }
    std::string do_grouping() const override { return "\3"; }
};

} // namespace

TEST(XmlLines, WritesTagsAndElementsBehindTheIndent)
{
    std::wostringstream stream;
    const XmlLines lines(stream, L"\t");
    lines.Tag(L"<outer>");
    lines.Inner().Element(L"name", L"a & b");
    lines.Inner().Element(L"number", -0.0);
    lines.Tag(L"</outer>");
    EXPECT_EQ(stream.str(), L"\t<outer>\n"
                            L"\t  <name>a & b</name>\n"
                            L"\t  <number>-0</number>\n"
                            L"\t</outer>\n");
}

TEST(XmlLines, NumbersFollowTheStreamButForItsLocale)
{
    std::wostringstream stream;
    stream.imbue(std::locale(std::locale::classic(), new CommaNumbers));
    EXPECT_EQ(XmlNumber(stream, 1234567.25), L"1.23457e+06");
    stream.precision(9);
    EXPECT_EQ(XmlNumber(stream, 1234567.25), L"1234567.25");
    stream << std::fixed << std::showpos;
    stream.precision(1);
    EXPECT_EQ(XmlNumber(stream, 1234567.25), L"+1234567.2");
    stream << std::scientific << std::uppercase << std::noshowpos;
    EXPECT_EQ(XmlNumber(stream, 1234567.25), L"1.2E+06");
    EXPECT_EQ(XmlNumber(stream, std::numeric_limits<double>::infinity()), L"INF");
    EXPECT_EQ(stream.str(), L"") << "nothing is written";
}

// A field width is for the host's next output, which the first line's indent takes up.
TEST(XmlLines, AFieldWidthDoesNotPadNumbers)
{
    std::wostringstream stream;
    stream.width(20);
    EXPECT_EQ(XmlNumber(stream, 2.5), L"2.5");
}
