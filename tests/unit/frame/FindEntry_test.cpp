#include "frame/FindEntry.h"

#include <gtest/gtest.h>

#include <string>

TEST(FindEntry, VisitsInTheOrderOfTheFileUntilTheFirstTrue)
{
    FileObject file;
    file.SetItem(L"Section", L"b", L"1", true);
    file.SetItem(L"Section", L"a", L"2", true);
    file.SetItem(L"Section", L"c", L"3", true);
    std::string visited;
    const auto until = [&](const CString& last) {
        visited.clear();
        return FindEntry(file, L"Section", [&](const CString& key, const CString& value) {
            visited += key.ToUtf8() + value.ToUtf8();
            return key == last;
        });
    };
    EXPECT_TRUE(until(L"a"));
    EXPECT_EQ(visited, "b1a2");
    EXPECT_FALSE(until(L"d"));
    EXPECT_EQ(visited, "b1a2c3");
}

TEST(FindEntry, MissingSectionHasNoEntries)
{
    const auto always = [](const CString&, const CString&) { return true; };
    EXPECT_FALSE(FindEntry(FileObject(), L"Section", always));
    FileObject file;
    file.CreateSection(L"Empty", true);
    EXPECT_FALSE(FindEntry(file, L"Empty", always));
}
