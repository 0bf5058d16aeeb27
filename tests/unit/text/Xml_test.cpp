#include "base/text/Xml.h"

#include <gtest/gtest.h>

#include <string>

namespace {

std::string Compatible(const CString& text)
{
    CString copy = text;
    MakeXmlCompatible(copy);
    return copy.ToUtf8();
}

TEST(Xml, EscapesWhatBelongsToTheSyntax)
{
    EXPECT_EQ(Compatible(L"<a b=\"c\" d='e'>&</a>"), "&lt;a b=&quot;c&quot; d=&apos;e&apos;&gt;&amp;&lt;/a&gt;");
    EXPECT_EQ(Compatible(L"52\u00b009'22.1780000\"N"), "52\xC2\xB0"
                                                       "09&apos;22.1780000&quot;N");
}

TEST(Xml, LeavesAllOtherTextAlone)
{
    EXPECT_EQ(Compatible(L""), "");
    EXPECT_EQ(Compatible(L"plain text; 1.5"), "plain text; 1.5");
    EXPECT_EQ(Compatible(L"\t\n\r"), "\t\n\r");
    const char* const far = "\xC3\xA9 \xE2\x82\xAC \xF0\x9F\x98\x80 \xF4\x8F\xBF\xBF \xEF\xBF\xBD \x7F";
    EXPECT_EQ(Compatible(CString::FromUtf8(far)), far);
}

TEST(Xml, EscapesWhatIsEscapedOnceMore)
{
    EXPECT_EQ(Compatible(L"&amp;"), "&amp;amp;");
}

TEST(Xml, ReplacesWhatXmlCannotHold)
{
    // XML 1.0, production 2: no control but tab and the line ends, no surrogate, not U+FFFE, U+FFFF.
    for (const wchar_t unit :
         {L'\0', L'\x01', L'\x08', L'\x0B', L'\x0C', L'\x0E', L'\x1F', L'\xD800', L'\xDFFF', L'\xFFFE', L'\xFFFF'}) {
        EXPECT_EQ(Compatible(CString(L"a") + unit + L"<"), "a\xEF\xBF\xBD&lt;") << static_cast<unsigned>(unit);
    }
    EXPECT_EQ(Compatible(L"\ud7ff\ue000"), "\xED\x9F\xBF\xEE\x80\x80");
}

} // namespace
