#include "resources/StringTable.h"

#include <gtest/gtest.h>

namespace {

/// The module's texts, reachable for one test.
class StringTable : public testing::Test {
protected:
    StringTable() { ZORSUITE::LoadDLLResourceDLL(this, ModuleStringTable()); }
    ~StringTable() override { ZORSUITE::UnloadDLLResourceDLL(this); }
};

} // namespace

TEST_F(StringTable, TextsAreReachableByNumber)
{
    struct Case {
        unsigned id;
        const wchar_t* text;
    };
    const Case cases[] = {
        {15352, L"Semi-Major Axis"},
        {15358, L"UNIT:  "},
        {15359, L"Metric Conversion Factor:"},
        {15361, L"PROJECTION: "},
        {15364, L"Cassini projection scale factor value is smaller than 0.8. The coordinate system operation is "
                L"failed."},
        {15365, L"Could not open geoid model file:\n\n%s\n\nCheck the coordinate system in the project configuration."},
        {15367, L"DATUMTRANSFORMATION : "},
        {15375, L"Scale factor[ppm]:   "},
        {15380, L"PROJECTION: "},
        {15392, L"Bursa/Wolfe(7 Parameters) - Position vector rotation"},
        {15393, L"Zone %2d     (%3d %c)"},
        {15396, L"Cannot open coordinate system database!"},
        {15397, L"Cannot open the project!"},
        {15398, L"Error in geoid model settings - check coordinate system geoid model setting and select proper geoid "
                L"model"},
        {15411, L"No Transformation"},
        {15413, L"Helmert(14 Parameters) - Coordinate frame rotation"},
    };
    for (const Case& c : cases) {
        CString text;
        EXPECT_TRUE(text.LoadString(c.id)) << c.id;
        EXPECT_EQ(text, c.text) << c.id;
    }
}

TEST_F(StringTable, TitleOfAnEllipsoidHasNoText)
{
    for (const unsigned id : {15351u, 15414u}) {
        CString text = L"before";
        EXPECT_FALSE(text.LoadString(id)) << id;
        EXPECT_EQ(text, L"before");
    }
}

TEST_F(StringTable, EveryNumberOfItsRangeHasAText)
{
    for (unsigned id = 15352; id <= 15413; ++id) {
        CString text;
        EXPECT_TRUE(text.LoadString(id)) << id;
        EXPECT_FALSE(text.IsEmpty()) << id;
    }
}

TEST_F(StringTable, NumbersRise)
{
    unsigned last = 0;
    for (const StringTableEntry* entry = ModuleStringTable(); entry->text; ++entry) {
        EXPECT_GT(entry->id, last);
        last = entry->id;
    }
}
