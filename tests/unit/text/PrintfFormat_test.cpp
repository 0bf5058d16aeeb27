#include "base/text/PrintfFormat.h"

#include <gtest/gtest.h>

#include <climits>
#include <cstdio>
#include <functional>
#include <random>
#include <stdexcept>
#include <string>

#include "base/text/CString.h"
#include "base/text/CStringA.h"

namespace {

template <typename... Arguments>
std::string Formatted(const CString& format, const Arguments&... arguments)
{
    CString text;
    text.Format(format, arguments...);
    return text.ToUtf8();
}

// What the C library's printf writes.
template <typename... Arguments>
std::string Expected(const char* format, const Arguments&... arguments)
{
    char text[500];
    const int length = std::snprintf(text, sizeof text, format, arguments...);
    return {text, static_cast<std::size_t>(length)};
}

TEST(PrintfFormat, FillsDirectivesInTheirOrder)
{
    EXPECT_EQ(Formatted(L"%f%s%s", 0.3048, L",", CString(L"ft")), "0.304800,ft");
    EXPECT_EQ(Formatted(L"+proj=utm +zone=%d", 31), "+proj=utm +zone=31");
    EXPECT_EQ(Formatted(L"Zone %2d     (%3d %c)", 5, 3, L'E'), "Zone  5     (  3 E)");
    EXPECT_EQ(Formatted(L"%.14g", 6378137.0), "6378137");
}

TEST(PrintfFormat, AFormatCanBeMadeByAFormat)
{
    CString format;
    format.Format(L"%%.%df", 3);
    EXPECT_EQ(format, L"%.3f");
    EXPECT_EQ(Formatted(format, 500000), "500000.000");
}

TEST(PrintfFormat, TextWithoutDirectivesStays)
{
    EXPECT_EQ(Formatted(L""), "");
    EXPECT_EQ(Formatted(L"plain"), "plain");
    EXPECT_EQ(Formatted(L"100%% %%d", 1), "100% %d");
    EXPECT_EQ(Formatted(CString(std::wstring(L"a\0%d", 4)), 7), std::string("a\0007", 3));
    EXPECT_EQ(Formatted(CString::FromUtf8("\xC2\xB0%d\xE2\x82\xAC"), 7), "\xC2\xB0"
                                                                         "7\xE2\x82\xAC");
}

TEST(PrintfFormat, TextsAreTheLibrarys)
{
    const char* const formats[] = {"%s|",  "%5s|",   "%-5s|",   "%.2s|",   "%.0s|",
                                   "%.s|", "%8.3s|", "%-8.3s|", "%1.99s|", "%ls|"};
    for (const char* format : formats) {
        const CString wide = CString::FromUtf8(format);
        for (const char* text : {"", "a", "Meters", "WGS84"}) {
            const std::string plain = format == std::string("%ls|") ? "%s|" : format;
            EXPECT_EQ(Formatted(wide, text), Expected(plain.c_str(), text)) << format << ' ' << text;
            EXPECT_EQ(Formatted(wide, CString::FromUtf8(text)), Expected(plain.c_str(), text)) << format << ' ' << text;
        }
    }
}

TEST(PrintfFormat, EveryKindOfTextSuitsS)
{
    const char* const narrow = "n\xC3\xA9";
    const std::wstring wide = CString::FromUtf8(narrow).Std();
    EXPECT_EQ(Formatted(L"%s", narrow), narrow);
    EXPECT_EQ(Formatted(L"%s", std::string(narrow)), narrow);
    EXPECT_EQ(Formatted(L"%s", CStringA(narrow)), narrow);
    EXPECT_EQ(Formatted(L"%s", wide.c_str()), narrow);
    EXPECT_EQ(Formatted(L"%s", wide), narrow);
    EXPECT_EQ(Formatted(L"%s", CString(wide)), narrow);
    wchar_t buffer[] = L"array";
    EXPECT_EQ(Formatted(L"%s", buffer), "array");
    EXPECT_EQ(Formatted(L"[%s]", static_cast<const wchar_t*>(nullptr)), "[]");
    EXPECT_EQ(Formatted(L"[%s]", static_cast<const char*>(nullptr)), "[]");
}

TEST(PrintfFormat, WidthAndPrecisionOfTextCountCharacters)
{
    // Two characters; four units in UTF-16.
    const char* const faces = "\xF0\x9F\x98\x80\xF0\x9F\x98\x81";
    EXPECT_EQ(Formatted(L"%3s", faces), std::string(" ") + faces);
    EXPECT_EQ(Formatted(L"%-3s|", CString::FromUtf8(faces)), std::string(faces) + " |");
    EXPECT_EQ(Formatted(L"%.1s", faces), "\xF0\x9F\x98\x80");
    EXPECT_EQ(Formatted(L"%3.1s", faces), "  \xF0\x9F\x98\x80");
    EXPECT_EQ(Formatted(L"%2c", 0x1F600), " \xF0\x9F\x98\x80");
}

TEST(PrintfFormat, CharactersAreTheLibrarys)
{
    for (const char* format : {"%c|", "%3c|", "%-3c|", "%lc|"}) {
        const std::string plain = format == std::string("%lc|") ? "%c|" : format;
        EXPECT_EQ(Formatted(CString::FromUtf8(format), L'E'), Expected(plain.c_str(), 'E')) << format;
        EXPECT_EQ(Formatted(CString::FromUtf8(format), 'E'), Expected(plain.c_str(), 'E')) << format;
        EXPECT_EQ(Formatted(CString::FromUtf8(format), 69), Expected(plain.c_str(), 69)) << format;
    }
    EXPECT_EQ(Formatted(L"%c", L'\0'), std::string(1, '\0'));
    EXPECT_EQ(Formatted(L"%c", 0xE9U), "\xC3\xA9");
    EXPECT_EQ(Formatted(L"%d", L'A'), "65");
}

TEST(PrintfFormat, AsterisksTakeArguments)
{
    EXPECT_EQ(Formatted(L"%*d|", 5, 42), Expected("%*d|", 5, 42));
    EXPECT_EQ(Formatted(L"%*d|", -5, 42), Expected("%*d|", -5, 42));
    EXPECT_EQ(Formatted(L"%0*d|", 5, 42), Expected("%0*d|", 5, 42));
    EXPECT_EQ(Formatted(L"%.*f|", 2, 1.005), Expected("%.*f|", 2, 1.005));
    EXPECT_EQ(Formatted(L"%.*f|", -2, 1.005), Expected("%.*f|", -2, 1.005));
    EXPECT_EQ(Formatted(L"%.*s|", -2, "Meters"), Expected("%.*s|", -2, "Meters"));
    EXPECT_EQ(Formatted(L"%05.*d|", -2, 42), Expected("%05.*d|", -2, 42));
    EXPECT_EQ(Formatted(L"%-*.*s|", 6, 3, "Meters"), Expected("%-*.*s|", 6, 3, "Meters"));
    EXPECT_EQ(Formatted(L"%*s|", 4U, "m"), "   m|");
}

TEST(PrintfFormat, LengthModifiersHaveNoEffect)
{
    for (const wchar_t* modifier : {L"h", L"hh", L"l", L"ll", L"j", L"z", L"t", L"I32", L"I64"}) {
        const CString format = CString(L"%") + modifier + L"d";
        EXPECT_EQ(Formatted(format, 1234567890123LL), "1234567890123") << format.ToUtf8();
        EXPECT_EQ(Formatted(format, -5), "-5") << format.ToUtf8();
    }
    EXPECT_EQ(Formatted(L"%lf %Lg", 0.5, 0.25), "0.500000 0.25");
    EXPECT_EQ(Formatted(L"%hs %ls", L"wide", "narrow"), "wide narrow");
}

TEST(PrintfFormat, ArgumentsBeyondTheDirectivesAreIgnored)
{
    EXPECT_EQ(Formatted(L"%d", 1, 2.5, L"more"), "1");
    EXPECT_EQ(Formatted(L"none", 1), "none");
}

TEST(PrintfFormat, TheStringItselfMayBeAnArgumentOrTheFormat)
{
    CString text = L"%s-%s";
    text.Format(text, text, text);
    EXPECT_EQ(text, L"%s-%s-%s-%s");
    text = L"ab";
    text.AppendFormat(L"<%s>", text);
    EXPECT_EQ(text, L"ab<ab>");
}

struct Refusal {
    const char* what;
    std::function<void(CString&)> call;
};

const Refusal refusals[] = {
    {"no argument", [](CString& t) { t.Format(L"%d"); }},
    {"one argument too few", [](CString& t) { t.Format(L"%d %d", 1); }},
    {"no argument for the width", [](CString& t) { t.Format(L"%*d", 1); }},
    {"no argument for the precision", [](CString& t) { t.Format(L"%.*f", 1); }},
    {"floating for d", [](CString& t) { t.Format(L"%d", 1.0); }},
    {"floating for x", [](CString& t) { t.Format(L"%x", 1.0); }},
    {"text for d", [](CString& t) { t.Format(L"%d", L"1"); }},
    {"text for u", [](CString& t) { t.Format(L"%u", "1"); }},
    {"text for f", [](CString& t) { t.Format(L"%f", L"1"); }},
    {"character for f", [](CString& t) { t.Format(L"%f", L'1'); }},
    {"number for s", [](CString& t) { t.Format(L"%s", 1); }},
    {"floating for s", [](CString& t) { t.Format(L"%s", 1.0); }},
    {"character for s", [](CString& t) { t.Format(L"%s", L'1'); }},
    {"text for c", [](CString& t) { t.Format(L"%c", L"1"); }},
    {"floating for c", [](CString& t) { t.Format(L"%c", 1.0); }},
    {"no such character", [](CString& t) { t.Format(L"%c", 0x110000); }},
    {"negative character", [](CString& t) { t.Format(L"%c", -1); }},
    {"floating for the width", [](CString& t) { t.Format(L"%*d", 1.0, 1); }},
    {"text for the precision", [](CString& t) { t.Format(L"%.*f", L"1", 1.0); }},
    {"width too large", [](CString& t) { t.Format(L"%1000001d", 1); }},
    {"width beyond int", [](CString& t) { t.Format(L"%99999999999999999999d", 1); }},
    {"precision too large", [](CString& t) { t.Format(L"%.1000001f", 1.0); }},
    {"width argument too large", [](CString& t) { t.Format(L"%*d", 1000001, 1); }},
    {"width argument too small", [](CString& t) { t.Format(L"%*d", INT_MIN, 1); }},
    {"precision argument too large", [](CString& t) { t.Format(L"%.*f", ULLONG_MAX, 1.0); }},
    {"unknown conversion", [](CString& t) { t.Format(L"%y", 1); }},
    {"writing conversion", [](CString& t) { t.Format(L"%n", 1); }},
    {"hexadecimal floating", [](CString& t) { t.Format(L"%a", 1.0); }},
    {"pointer", [](CString& t) { t.Format(L"%p", L"1"); }},
    {"flags before a percent sign", [](CString& t) { t.Format(L"%5%", 1); }},
    {"end behind the percent sign", [](CString& t) { t.Format(L"abc%", 1); }},
    {"end behind a flag", [](CString& t) { t.Format(L"%-", 1); }},
    {"end behind a precision", [](CString& t) { t.Format(L"%.3", 1.0); }},
    {"end behind a modifier", [](CString& t) { t.Format(L"%ll", 1); }},
    {"negative precision", [](CString& t) { t.Format(L"%.-3f", 1.0); }},
    {"behind good ones", [](CString& t) { t.Format(L"%d %s %d", 1, L"x", L"y"); }},
    {"while appending", [](CString& t) { t.AppendFormat(L"%d", L"y"); }},
};

TEST(PrintfFormat, RefusesWhatDoesNotFitAndLeavesTheStringAlone)
{
    for (const Refusal& row : refusals) {
        CString text = L"before";
        EXPECT_THROW(row.call(text), std::invalid_argument) << row.what;
        EXPECT_EQ(text, L"before") << row.what;
    }
}

TEST(PrintfFormat, TakesTheLargestField)
{
    CString text;
    text.Format(L"%1000000d", 1);
    EXPECT_EQ(text.GetLength(), 1000000);
    text.Format(L"%.1000000f", 0.5);
    EXPECT_EQ(text.GetLength(), 1000002);
    EXPECT_EQ(text.Left(4), L"0.50");
    EXPECT_EQ(text.Right(2), L"00");
}

// Formats of telling pieces, most of them wrong: the answer is a text or a refusal that changes
// nothing, never anything else.
TEST(PrintfFormat, AnyFormatIsFilledOrRefused)
{
    static const std::wstring pieces = L"%%%%%%%-+ #0123.*hlLjztI64diuxXocsfFeEgGanp\u00e9\ud7ff";

    std::mt19937 random(99);
    int filled = 0;
    for (int i = 0; i < 60000; ++i) {
        std::wstring format(random() % 10, L'\0');
        for (wchar_t& unit : format) {
            unit = random() % 64 == 0 ? static_cast<wchar_t>(random()) : pieces[random() % pieces.size()];
        }
        CString text = L"before";
        try {
            switch (random() % 3) {
            case 0:
                text.Format(CString(format), static_cast<int>(random()) >> (random() % 32), -2.5e300, "\xC3");
                break;
            case 1:
                text.Format(CString(format), CString(format), L'\xD800', static_cast<short>(random()));
                break;
            default:
                text.Format(CString(format), -0.0, 7U, L"text", 'c');
            }
            ++filled;
        } catch (const std::invalid_argument&) {
            ASSERT_EQ(text, L"before");
        }
    }
    EXPECT_GT(filled, 10000);
    EXPECT_LT(filled, 50000);
}

} // namespace
