#include "base/text/CStringArray.h"

#include <gtest/gtest.h>

#include <stdexcept>

namespace {

TEST(CStringArray, HoldsStringsInTheirOrder)
{
    CStringArray names;
    EXPECT_EQ(names.Add(L"b"), 0);
    EXPECT_EQ(names.Add(L"a"), 1);
    EXPECT_EQ(names.Add(L"b"), 2);
    EXPECT_EQ(names.GetSize(), 3);
    EXPECT_EQ(names[0], L"b");
    EXPECT_EQ(names.GetAt(1), L"a");
    CString joined;
    for (const CString& name : names) {
        joined += name;
    }
    EXPECT_EQ(joined, L"bab");
}

TEST(CStringArray, AnElementOfItsOwnMayBeAdded)
{
    CStringArray names;
    names.Add(L"a name that is longer than a string keeps in itself");
    for (int i = 0; i < 100; ++i) {
        names.Add(names[0]);
        names.InsertAt(0, names[names.GetUpperBound()]);
    }
    EXPECT_EQ(names[0], names[200]);
    names.SetAtGrow(1000, names[0]);
    EXPECT_EQ(names[1000], names[0]);
    EXPECT_EQ(names[999], L"");
}

TEST(CStringArray, IsCopiedByValueAndRefusesABadIndex)
{
    CStringArray names;
    names.Add(L"a");
    CStringArray copy = names;
    copy.SetAt(0, L"z");
    EXPECT_EQ(names[0], L"a");
    EXPECT_THROW(names[1], std::invalid_argument);
}

} // namespace
