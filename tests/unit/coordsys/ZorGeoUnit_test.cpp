#include "coordsys/ZorGeoUnit.h"

#include <gtest/gtest.h>

TEST(ZorGeoUnit, StartsAsOneMetreWithoutNames)
{
    const ZorGeoUnit unit;
    EXPECT_EQ(unit.factor, 1.0);
    EXPECT_EQ(unit.format, 0);
    EXPECT_TRUE(unit.name.IsEmpty() && unit.mnemonic.IsEmpty() && unit.text.IsEmpty());
}

TEST(ZorGeoUnit, TakesFactorAndSuffixFromTheRecord)
{
    ZorGeoUnit unit;
    unit.Set(L"US survey feet", L"0.304801,usft", 5);
    EXPECT_EQ(unit.factor, 0.304801);
    EXPECT_EQ(unit.mnemonic, L"usft");
    EXPECT_EQ(unit.name, L"US survey feet");
    EXPECT_EQ(unit.text, L"0.304801,usft");
    EXPECT_EQ(unit.format, 5);
}

TEST(ZorGeoUnit, MalformedRecordKeepsEarlierFactorAndSuffix)
{
    struct Case {
        const wchar_t* text;
        double factor;
        const wchar_t* mnemonic;
    };
    for (const Case& row : {Case{L"", 0.3048, L"ft"}, Case{L"no number,m", 0.3048, L"m"}, Case{L"2.5", 2.5, L"ft"}}) {
        ZorGeoUnit unit;
        unit.Set(L"Feet", L"0.3048,ft", 1);
        unit.Set(L"Other", row.text, 2);
        EXPECT_EQ(unit.factor, row.factor) << CString(row.text).ToUtf8();
        EXPECT_EQ(unit.mnemonic, row.mnemonic) << CString(row.text).ToUtf8();
        EXPECT_EQ(unit.text, row.text);
        EXPECT_EQ(unit.name, L"Other");
    }
}
