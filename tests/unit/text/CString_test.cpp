#include "base/text/CString.h"

#include <gtest/gtest.h>

#include <clocale>
#include <initializer_list>
#include <locale>
#include <map>
#include <sstream>
#include <stdexcept>
#include <string>
#include <unordered_set>
#include <utility>

namespace {

CString U(const char* utf8)
{
    return CString::FromUtf8(utf8);
}

const wchar_t* const null = nullptr;

TEST(CString, IsMadeOfEveryKindOfText)
{
    EXPECT_TRUE(CString().IsEmpty());
    EXPECT_TRUE(CString(null).IsEmpty());
    EXPECT_EQ(CString(L"Datum"), L"Datum");
    EXPECT_EQ(CString(L"Datum", 3), L"Dat");
    EXPECT_EQ(CString(L"Datum", 0), L"");
    EXPECT_EQ(CString(L"Datum", -1), L"");
    EXPECT_EQ(CString(null, 3), L"");
    EXPECT_EQ(CString(std::wstring(L"Datum")), L"Datum");
    EXPECT_EQ(CString(std::wstring_view(L"Datum").substr(1)), L"atum");
    EXPECT_EQ(CString(L'0', 3), L"000");
    EXPECT_EQ(CString(L'0', -3), L"");
    EXPECT_EQ(CString(L"a\0b", 3).GetLength(), 3);
}

TEST(CString, HasValueSemantics)
{
    CString a = L"one";
    CString b = a;
    b += L"!";
    EXPECT_EQ(a, L"one");
    EXPECT_EQ(b, L"one!");
    a = std::move(b);
    EXPECT_EQ(a, L"one!");
    a = L"two";
    EXPECT_EQ(a, L"two");
    a = a.GetString() + 1;
    EXPECT_EQ(a, L"wo");
    a = null;
    EXPECT_TRUE(a.IsEmpty());
}

TEST(CString, ShowsItsUnits)
{
    CString text = L"abc";
    EXPECT_EQ(text.GetLength(), 3);
    EXPECT_EQ(text.GetAt(0), L'a');
    EXPECT_EQ(text[2], L'c');
    EXPECT_EQ(text.View(), L"abc");
    EXPECT_EQ(text.Std(), L"abc");
    EXPECT_EQ(text.GetString()[3], L'\0');
    text.SetAt(1, L'X');
    EXPECT_EQ(text, L"aXc");
    text.Empty();
    EXPECT_TRUE(text.IsEmpty());
    EXPECT_EQ(text.GetLength(), 0);
}

TEST(CString, RefusesAnIndexOutside)
{
    CString text = L"abc";
    for (const int index : {-1, 3, 1000, -1000}) {
        EXPECT_THROW(text.GetAt(index), std::out_of_range) << index;
        EXPECT_THROW(text[index], std::out_of_range) << index;
        EXPECT_THROW(text.SetAt(index, L'x'), std::out_of_range) << index;
    }
    EXPECT_THROW(CString().GetAt(0), std::out_of_range);
    EXPECT_EQ(text, L"abc");
}

TEST(CString, GoesThroughUtf8)
{
    const std::string bytes = "52\xC2\xB0 \xE2\x82\xAC \xF0\x9F\x98\x80 end";
    EXPECT_EQ(CString::FromUtf8(bytes).ToUtf8(), bytes);
    EXPECT_EQ(CString::FromUtf8("\xC3\xA9"), L"\u00e9");
    EXPECT_EQ(CString::FromUtf8("\xF0\x9F\x98\x80").GetLength(), sizeof(wchar_t) == 2 ? 2 : 1);
    EXPECT_EQ(CString::FromUtf8("a\xFFz"), L"a\uFFFDz");
    EXPECT_EQ(CString(L'\xDC00', 1).ToUtf8(), "\xEF\xBF\xBD");
    EXPECT_EQ(CString().ToUtf8(), "");

    std::string buffer = "key=";
    CString::FromUtf8("\xC3\xA9").AppendUtf8To(buffer);
    EXPECT_EQ(buffer, "key=\xC3\xA9");
}

TEST(CString, IsAppendedTo)
{
    CString text = L"a";
    text += CString(L"b");
    text += L"c";
    text += L'd';
    text += null;
    text.Append(L"e");
    EXPECT_EQ(text, L"abcde");
    text += text;
    EXPECT_EQ(text, L"abcdeabcde");
    text << CString(L"-") << L"f" << null;
    EXPECT_EQ(text, L"abcdeabcde-f");
}

TEST(CString, IsAdded)
{
    const CString a = L"a";
    EXPECT_EQ(a + a, L"aa");
    EXPECT_EQ(a + L"b", L"ab");
    EXPECT_EQ(L"b" + a, L"ba");
    EXPECT_EQ(a + L'c', L"ac");
    EXPECT_EQ(a + null + L"b" + a + L'c' + null, L"abac");
    EXPECT_EQ(null + a, L"a");
    EXPECT_EQ(a, L"a");
}

TEST(CString, AChainOfAdditionsKeepsOneBuffer)
{
    // Longer than a string keeps in itself, with room for what comes.
    CString text = CString(L'x', 100) + CString(L'y', 100);
    text = std::move(text) + L"z";
    const auto before = text.GetString();
    text = std::move(text) + L"z" + CString(L"z") + L'z';
    EXPECT_EQ(text.GetString(), before);
    EXPECT_EQ(text.GetLength(), 204);
}

struct Search {
    const wchar_t* text;
    const wchar_t* wanted;
    int start;
    int found;
};

const Search searches[] = {
    {L"Dtf-Dtf-1", L"Dtf-", 0, 0},
    {L"Dtf-Dtf-1", L"Dtf-", 1, 4},
    {L"Dtf-Dtf-1", L"Dtf-", 5, -1},
    {L"abc", L"c", 2, 2},
    {L"abc", L"c", 3, -1},
    {L"abc", L"c", 4, -1},
    {L"abc", L"c", -1, -1},
    {L"abc", L"abcd", 0, -1},
    {L"abc", L"", 0, 0},
    {L"abc", L"", 3, 3},
    {L"abc", L"", 4, -1},
    {L"", L"", 0, 0},
    {L"", L"a", 0, -1},
    {L"aab", L"ab", 0, 1},
    {L"abc", L"B", 0, -1},
};

TEST(CString, FindsTheFirst)
{
    for (const Search& row : searches) {
        const CString text = row.text;
        EXPECT_EQ(text.Find(row.wanted, row.start), row.found) << CString(row.text).ToUtf8() << ' ' << row.start;
        EXPECT_EQ(text.Find(CString(row.wanted), row.start), row.found) << text.ToUtf8() << ' ' << row.start;
        if (CString(row.wanted).GetLength() == 1) {
            EXPECT_EQ(text.Find(row.wanted[0], row.start), row.found) << text.ToUtf8() << ' ' << row.start;
        }
    }
    EXPECT_EQ(CString(L"abc").Find(null), 0);
}

TEST(CString, FindsTheLast)
{
    EXPECT_EQ(CString(L"Zone 31 (3 E) (x").ReverseFind(L'('), 14);
    EXPECT_EQ(CString(L"(").ReverseFind(L'('), 0);
    EXPECT_EQ(CString(L"none").ReverseFind(L'('), -1);
    EXPECT_EQ(CString().ReverseFind(L'('), -1);
}

TEST(CString, GivesItsParts)
{
    const CString text = L"abcde";
    EXPECT_EQ(text.Left(2), L"ab");
    EXPECT_EQ(text.Left(0), L"");
    EXPECT_EQ(text.Left(-1), L"");
    EXPECT_EQ(text.Left(9), L"abcde");
    EXPECT_EQ(text.Right(2), L"de");
    EXPECT_EQ(text.Right(0), L"");
    EXPECT_EQ(text.Right(-1), L"");
    EXPECT_EQ(text.Right(9), L"abcde");
    EXPECT_EQ(text.Mid(2), L"cde");
    EXPECT_EQ(text.Mid(5), L"");
    EXPECT_EQ(text.Mid(9), L"");
    EXPECT_EQ(text.Mid(-2), L"abcde");
    EXPECT_EQ(text.Mid(1, 2), L"bc");
    EXPECT_EQ(text.Mid(3, 9), L"de");
    EXPECT_EQ(text.Mid(3, -1), L"");
    EXPECT_EQ(text.Mid(9, 1), L"");
}

TEST(CString, Deletes)
{
    CString text = L"Elp-Bessel";
    EXPECT_EQ(text.Delete(0, 4), 6);
    EXPECT_EQ(text, L"Bessel");
    EXPECT_EQ(text.Delete(5), 5);
    EXPECT_EQ(text, L"Besse");
    EXPECT_EQ(text.Delete(3, 99), 3);
    EXPECT_EQ(text, L"Bes");
    EXPECT_EQ(text.Delete(3, 1), 3);
    EXPECT_EQ(text.Delete(99, 1), 3);
    EXPECT_EQ(text.Delete(1, -1), 3);
    EXPECT_EQ(text.Delete(-1, 1), 2);
    EXPECT_EQ(text, L"es");
}

TEST(CString, Inserts)
{
    CString text = L"ad";
    EXPECT_EQ(text.Insert(1, L"bc"), 4);
    EXPECT_EQ(text, L"abcd");
    EXPECT_EQ(text.Insert(-1, L"<"), 5);
    EXPECT_EQ(text.Insert(99, L">"), 6);
    EXPECT_EQ(text, L"<abcd>");
    EXPECT_EQ(text.Insert(3, text), 12);
    EXPECT_EQ(text, L"<ab<abcd>cd>");
}

struct Replacement {
    const wchar_t* text;
    const wchar_t* from;
    const wchar_t* to;
    int count;
    const wchar_t* result;
};

const Replacement replacements[] = {
    {L"a,b,c", L",", L"; ", 2, L"a; b; c"},
    {L"aaa", L"aa", L"b", 1, L"ba"},
    {L"aaa", L"a", L"aa", 3, L"aaaaaa"},
    {L"abab", L"ab", L"", 2, L""},
    {L"abc", L"x", L"y", 0, L"abc"},
    {L"abc", L"", L"y", 0, L"abc"},
    {L"", L"a", L"b", 0, L""},
};

TEST(CString, Replaces)
{
    for (const Replacement& row : replacements) {
        CString text = row.text;
        EXPECT_EQ(text.Replace(row.from, row.to), row.count) << CString(row.text).ToUtf8();
        EXPECT_EQ(text, row.result) << CString(row.text).ToUtf8();
    }
    CString self = L"ab";
    EXPECT_EQ(self.Replace(self, self + self), 1);
    EXPECT_EQ(self, L"abab");
    EXPECT_EQ(self.Replace(L"b", self), 2);
    EXPECT_EQ(self, L"aababaabab");
}

TEST(CString, TrimsTheBlanksOfTheCLocale)
{
    const CString text = L" \t\n\v\f\r x y \r\f\v\n\t ";
    EXPECT_EQ(CString(text).Trim(), L"x y");
    EXPECT_EQ(CString(text).TrimLeft(), L"x y \r\f\v\n\t ");
    EXPECT_EQ(CString(text).TrimRight(), L" \t\n\v\f\r x y");
    EXPECT_EQ(CString(L"  ").Trim(), L"");
    EXPECT_EQ(CString().Trim(), L"");
    EXPECT_EQ(CString(L"\u00a0x\u00a0").Trim(), L"\u00a0x\u00a0");
    EXPECT_EQ(CString(L"12.5000").TrimRight(L'0'), L"12.5");
    EXPECT_EQ(CString(L"000").TrimRight(L'0'), L"");
    EXPECT_EQ(CString(L"1").TrimRight(L'0'), L"1");
}

TEST(CString, ChangesCaseInEveryScript)
{
    EXPECT_EQ(CString(L"Zone 31n").MakeUpper(), L"ZONE 31N");
    EXPECT_EQ(CString(L"ZORCoordSys").MakeLower(), L"zorcoordsys");
    EXPECT_EQ(U("Stra\xC3\x9F"
                "e \xC3\xA9\xCF\x83\xD1\x8F")
                  .MakeUpper(),
              U("STRA\xC3\x9F"
                "E \xC3\x89\xCE\xA3\xD0\xAF"));
    EXPECT_EQ(U("\xF0\x90\x90\x80").MakeLower(), U("\xF0\x90\x90\xA8"));
    EXPECT_EQ(CString().MakeUpper(), L"");
}

TEST(CString, NoLocaleChangesCase)
{
    // Turkish has another pair for i.
    const std::string before = std::setlocale(LC_ALL, nullptr);
    for (const char* name : {"tr_TR.UTF-8", "tr_TR.utf8", "tr_TR", "Turkish", "C.UTF-8"}) {
        if (std::setlocale(LC_ALL, name) != nullptr) {
            break;
        }
    }
    const CString upper = CString(L"i\u00e9").MakeUpper();
    const CString lower = CString(L"I\u00c9").MakeLower();
    const int compared = CString(L"UINT").CompareNoCase(L"uint");
    std::setlocale(LC_ALL, before.c_str());

    EXPECT_EQ(upper, L"I\u00c9");
    EXPECT_EQ(lower, L"i\u00e9");
    EXPECT_EQ(compared, 0);
}

TEST(CString, OrdersByCodePoints)
{
    const std::initializer_list<const char*> rising = {
        "", "A", "AB", "Z", "a", "\xC3\xA9", "\xEF\xBF\xBD", "\xF0\x90\x80\x80", "\xF4\x8F\xBF\xBF"};
    for (auto i = rising.begin(); i != rising.end(); ++i) {
        for (auto j = rising.begin(); j != rising.end(); ++j) {
            const CString a = U(*i);
            const CString b = U(*j);
            EXPECT_EQ(a.Compare(b) < 0, i < j) << *i << ' ' << *j;
            EXPECT_EQ(a.Compare(b) > 0, i > j) << *i << ' ' << *j;
            EXPECT_EQ(a.Compare(b.GetString()) == 0, i == j) << *i << ' ' << *j;
            EXPECT_EQ(a < b, i < j) << *i << ' ' << *j;
            EXPECT_EQ(a == b, i == j) << *i << ' ' << *j;
            EXPECT_EQ(a == b.GetString(), i == j) << *i << ' ' << *j;
        }
    }
    EXPECT_EQ(CString().Compare(null), 0);
    EXPECT_GT(CString(L"a").Compare(null), 0);
    EXPECT_TRUE(CString() == null);
    EXPECT_TRUE(CString(L"a") != null);
    EXPECT_TRUE(L"a" == CString(L"a"));
}

TEST(CString, ComparesWithoutRegardToCase)
{
    EXPECT_EQ(CString(L"Meter").CompareNoCase(L"METER"), 0);
    EXPECT_EQ(CString(L"Meter").CompareNoCase(CString(L"meter")), 0);
    EXPECT_LT(CString(L"Meter").CompareNoCase(L"meters"), 0);
    EXPECT_GT(CString(L"Meters").CompareNoCase(L"METER"), 0);
    // The signs between Z and a stand before the letters.
    EXPECT_LT(CString(L"_").CompareNoCase(L"A"), 0);
    EXPECT_EQ(U("\xC3\x89tat \xCE\xA3").CompareNoCase(U("\xC3\xA9TAT \xCF\x82")), 0);
    EXPECT_NE(U("Stra\xC3\x9F"
                "e")
                  .CompareNoCase(L"STRASSE"),
              0);
    EXPECT_EQ(CString().CompareNoCase(null), 0);
    EXPECT_LT(CString().CompareNoCase(L"a"), 0);
}

TEST(CString, IsWrittenToAWideStream)
{
    std::wostringstream stream;
    stream.width(10);
    stream.fill(L'*');
    stream << CString(L"<a>") << CString(L"x\0y", 3) << CString();
    EXPECT_EQ(stream.str(), std::wstring(L"<a>x\0y", 6));
}

TEST(CString, IsAKeyOfOrderedAndHashedContainers)
{
    const std::map<CString, int> ordered{{L"b", 2}, {L"a", 1}};
    EXPECT_EQ(ordered.begin()->first, L"a");
    const std::unordered_set<CString> hashed{L"a", L"b", L"a"};
    EXPECT_EQ(hashed.size(), 2U);
    EXPECT_TRUE(hashed.contains(L"b"));
}

} // namespace
