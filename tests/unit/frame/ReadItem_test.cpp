#include "frame/ReadItem.h"

#include <gtest/gtest.h>

TEST(ReadItem, ItemThatCannotBeReadIsTheMissingOneAlsoInAFileThatThrows)
{
    FileObject file;
    file.SetItem(L"Section", L"Number", 2.5, true);
    file.SetItem(L"Section", L"Text", L"words", true);
    for (const bool throws : {false, true}) {
        file.ThrowExceptions(throws);
        EXPECT_EQ(ItemOr(file, L"Section", L"Number", 7.0), 2.5);
        EXPECT_EQ(ItemOr(file, L"Section", L"Text", CString()), L"words");
        EXPECT_EQ(ItemOr(file, L"Section", L"Text", 7.0), 7.0) << "no number";
        EXPECT_EQ(ItemOr(file, L"Section", L"Gone", 7.0), 7.0);
        EXPECT_EQ(ItemOr(file, L"Gone", L"Number", CString(L"none")), L"none");
        double value = 9.0;
        EXPECT_FALSE(ReadItem(file, L"Section", L"Gone", value));
        EXPECT_EQ(value, 9.0);
        EXPECT_TRUE(ReadItem(file, L"Section", L"Number", value));
        EXPECT_EQ(value, 2.5);
    }
}
