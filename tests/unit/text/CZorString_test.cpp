#include "base/text/CZorString.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

std::vector<std::string> Items(const CZorString& text)
{
    std::vector<std::string> items;
    CString item;
    for (int i = 0; text.GetItem(i, item); ++i) {
        items.push_back(item.ToUtf8());
    }
    return items;
}

struct Split {
    const wchar_t* text;
    bool trim;
    bool skipEmpty;
    std::vector<std::string> items;
};

const Split splits[] = {
    {L"0.3048,ft", true, false, {"0.3048", "ft"}},
    {L"1.000000,m", true, false, {"1.000000", "m"}},
    {L"", true, false, {}},
    {L"", false, true, {}},
    {L"Longitude of Origin", true, false, {"Longitude of Origin"}},
    {L" 1 , a b ,\tc\r\n", true, false, {"1", "a b", "c"}},
    {L" 1 , a b ", false, false, {" 1 ", " a b "}},
    {L",", true, false, {"", ""}},
    {L"1,", true, false, {"1", ""}},
    {L",ft", true, false, {"", "ft"}},
    {L"a,,b", true, false, {"a", "", "b"}},
    {L"a, ,b,", true, true, {"a", "b"}},
    {L"a, ,b,", false, true, {"a", " ", "b"}},
    {L",,", true, true, {}},
    {L"  ", true, false, {""}},
    {L"  ", true, true, {}},
    {L"a;b", true, false, {"a;b"}},
};

TEST(CZorString, SplitsAtTheSeparator)
{
    for (const Split& row : splits) {
        const CZorString text(row.text, L',', row.trim, row.skipEmpty);
        EXPECT_EQ(Items(text), row.items) << CString(row.text).ToUtf8();
        EXPECT_EQ(text.GetCount(), static_cast<int>(row.items.size())) << CString(row.text).ToUtf8();
    }
}

TEST(CZorString, BeginsEmptyAndLoadsInPlaceOfWhatItHeld)
{
    CZorString text(L',');
    EXPECT_EQ(text.GetCount(), 0);
    text.LoadString(L"a,b,c", true, false);
    EXPECT_EQ(text.GetCount(), 3);
    text.LoadString(L"d", true, false);
    EXPECT_EQ(Items(text), (std::vector<std::string>{"d"}));
    text.LoadString(L"", true, false);
    EXPECT_EQ(text.GetCount(), 0);
}

TEST(CZorString, KeepsItsSeparator)
{
    CZorString text(L';');
    text.LoadString(L"a,b; c", true, false);
    EXPECT_EQ(Items(text), (std::vector<std::string>{"a,b", "c"}));
    EXPECT_EQ(Items(CZorString(L"a\tb", L'\t', true, false)), (std::vector<std::string>{"a", "b"}));
}

TEST(CZorString, ReadsNumbers)
{
    const CZorString text(L" 0.304800609601219 ,-1e-3,7,4294967295", L',', true, false);
    double real = 0;
    EXPECT_TRUE(text.GetItem(0, real));
    EXPECT_EQ(real, 0.304800609601219);
    EXPECT_TRUE(text.GetItem(1, real));
    EXPECT_EQ(real, -0.001);
    EXPECT_TRUE(text.GetItem(2, real));
    EXPECT_EQ(real, 7);
    unsigned whole = 0;
    EXPECT_TRUE(text.GetItem(2, whole));
    EXPECT_EQ(whole, 7U);
    EXPECT_TRUE(text.GetItem(3, whole));
    EXPECT_EQ(whole, 4294967295U);
}

TEST(CZorString, ReadsNumbersBetweenBlanksThatWereKept)
{
    const CZorString text(L" 7 ,\t8 ", L',', false, false);
    unsigned whole = 0;
    EXPECT_TRUE(text.GetItem(1, whole));
    EXPECT_EQ(whole, 8U);
}

TEST(CZorString, WhatIsNoNumberOrNotThereLeavesTheOutputAlone)
{
    const CZorString text(L"ft,,1.5x,1 2,-1,4294967296,1.5", L',', true, false);
    double real = 9.5;
    unsigned whole = 9;
    for (const int index : {0, 1, 2, 3, 7, -1, 1000}) {
        EXPECT_FALSE(text.GetItem(index, real)) << index;
        EXPECT_FALSE(text.GetItem(index, whole)) << index;
    }
    for (const int index : {4, 5, 6}) {
        EXPECT_FALSE(text.GetItem(index, whole)) << index;
    }
    EXPECT_EQ(real, 9.5);
    EXPECT_EQ(whole, 9U);
    CString item = L"before";
    EXPECT_FALSE(text.GetItem(7, item));
    EXPECT_FALSE(text.GetItem(-1, item));
    EXPECT_EQ(item, L"before");
}

} // namespace
