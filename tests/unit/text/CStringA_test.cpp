#include "base/text/CStringA.h"

#include <gtest/gtest.h>

#include "base/text/CString.h"

namespace {

TEST(CStringA, HoldsUtf8)
{
    const CStringA text = CString(L"n\u00e9").ToUtf8();
    EXPECT_EQ(text, "n\xC3\xA9");
    EXPECT_EQ(text.GetLength(), 3);
    EXPECT_FALSE(text.IsEmpty());
    EXPECT_EQ(text.GetString()[3], '\0');
    EXPECT_EQ(text.View(), "n\xC3\xA9");
    EXPECT_EQ(text.Std(), "n\xC3\xA9");
}

TEST(CStringA, NullIsEmpty)
{
    EXPECT_TRUE(CStringA(static_cast<const char*>(nullptr)).IsEmpty());
    EXPECT_TRUE(CStringA().IsEmpty());
    EXPECT_EQ(CStringA(), CStringA(""));
    EXPECT_TRUE(CStringA() == static_cast<const char*>(nullptr));
    EXPECT_FALSE(CStringA("a") == static_cast<const char*>(nullptr));
}

TEST(CStringA, ComparesAsBytes)
{
    EXPECT_EQ(CStringA("a"), CStringA("a"));
    EXPECT_NE(CStringA("a"), CStringA("A"));
    EXPECT_NE(CStringA("a"), "b");
}

} // namespace
