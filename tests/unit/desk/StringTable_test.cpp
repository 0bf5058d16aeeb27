#include "base/desk/StringTable.h"

#include <gtest/gtest.h>

namespace {

// Numbers that no module's own table has.
constexpr unsigned kFirst = 900001;
constexpr unsigned kSecond = 900002;
constexpr unsigned kThird = 900003;

const StringTableEntry base[] = {{kFirst, L"first"}, {kSecond, L"Zone %2d     (%3d %c)"}, {0, nullptr}};
const StringTableEntry addition[] = {{kSecond, L"second, later"}, {kThird, L""}, {0, nullptr}};
const StringTableEntry nothing[] = {{0, nullptr}};

// What a module's handle would be.
const int moduleA = 0;
const int moduleB = 0;

class StringTable : public testing::Test {
protected:
    ~StringTable() override
    {
        ZORSUITE::UnloadDLLResourceDLL(&moduleA);
        ZORSUITE::UnloadDLLResourceDLL(&moduleB);
    }
};

TEST_F(StringTable, TextsAreFoundByNumber)
{
    ASSERT_TRUE(ZORSUITE::LoadDLLResourceDLL(&moduleA, base));
    CString text = L"before";
    EXPECT_TRUE(text.LoadString(kFirst));
    EXPECT_EQ(text, L"first");
    EXPECT_TRUE(text.LoadString(kSecond));
    EXPECT_EQ(text, L"Zone %2d     (%3d %c)");
}

TEST_F(StringTable, AnUnknownNumberLeavesTheStringAlone)
{
    CString text = L"before";
    EXPECT_FALSE(text.LoadString(kFirst));
    ASSERT_TRUE(ZORSUITE::LoadDLLResourceDLL(&moduleA, base));
    EXPECT_FALSE(text.LoadString(kThird));
    // The number of the entry that ends the table.
    EXPECT_FALSE(text.LoadString(0));
    EXPECT_EQ(text, L"before");
}

TEST_F(StringTable, AnEmptyTextIsFound)
{
    ASSERT_TRUE(ZORSUITE::LoadDLLResourceDLL(&moduleA, addition));
    CString text = L"before";
    EXPECT_TRUE(text.LoadString(kThird));
    EXPECT_TRUE(text.IsEmpty());
}

TEST_F(StringTable, ALaterTableAnswersFirst)
{
    ASSERT_TRUE(ZORSUITE::LoadDLLResourceDLL(&moduleA, base));
    ASSERT_TRUE(ZORSUITE::LoadDLLResourceDLL(&moduleB, addition));
    CString text;
    EXPECT_TRUE(text.LoadString(kSecond));
    EXPECT_EQ(text, L"second, later");
    EXPECT_TRUE(text.LoadString(kFirst));
    EXPECT_EQ(text, L"first");
}

TEST_F(StringTable, UnloadingTakesOutTheModulesTablesAlone)
{
    ASSERT_TRUE(ZORSUITE::LoadDLLResourceDLL(&moduleA, addition));
    ASSERT_TRUE(ZORSUITE::LoadDLLResourceDLL(&moduleB, base));
    ASSERT_TRUE(ZORSUITE::LoadDLLResourceDLL(&moduleA, addition));
    ZORSUITE::UnloadDLLResourceDLL(&moduleA);
    CString text;
    EXPECT_FALSE(text.LoadString(kThird));
    EXPECT_TRUE(text.LoadString(kSecond));
    EXPECT_EQ(text, L"Zone %2d     (%3d %c)");
    ZORSUITE::UnloadDLLResourceDLL(&moduleB);
    EXPECT_FALSE(text.LoadString(kSecond));
    ZORSUITE::UnloadDLLResourceDLL(&moduleB);
}

TEST_F(StringTable, NothingToLoadIsFalse)
{
    EXPECT_FALSE(ZORSUITE::LoadDLLResourceDLL(&moduleA, nullptr));
    EXPECT_FALSE(ZORSUITE::LoadDLLResourceDLL(&moduleA, nothing));
}

} // namespace
