#include "base/files/SplitPath.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>

namespace {

struct Row {
    const wchar_t* full;
    const wchar_t* directory;
    const wchar_t* title;
    const wchar_t* extension;
};

const Row kRows[] = {
    {L"", L"", L"", L""},
    {L"name", L"", L"name", L""},
    {L"name.geo", L"", L"name", L".geo"},
    {L"/a/b/name.geo", L"/a/b/", L"name", L".geo"},
    {L"C:\\Suite\\Data\\name.geo", L"C:\\Suite\\Data\\", L"name", L".geo"},
    {L"C:\\Suite/Data\\name", L"C:\\Suite/Data\\", L"name", L""},
    {L"C:/Suite\\name.geo", L"C:/Suite\\", L"name", L".geo"},
    {L"a.b/c", L"a.b/", L"c", L""},
    {L"a.b\\c", L"a.b\\", L"c", L""},
    {L".rc", L"", L".rc", L""},
    {L"/home/.rc", L"/home/", L".rc", L""},
    {L".rc.old", L"", L".rc", L".old"},
    {L"archive.tar.gz", L"", L"archive.tar", L".gz"},
    {L"name.", L"", L"name", L"."},
    {L".", L"", L".", L""},
    {L"..", L"", L"..", L""},
    {L"../..", L"../", L"..", L""},
    {L"/", L"/", L"", L""},
    {L"a/", L"a/", L"", L""},
    {L"a.b/", L"a.b/", L"", L""},
    {L"\\\\server\\share\\x.prj", L"\\\\server\\share\\", L"x", L".prj"},
};

TEST(SplitPath, GivesDirectoryTitleAndExtension)
{
    for (const Row& row : kRows) {
        SCOPED_TRACE(CString(row.full).ToUtf8());
        CString directory = L"d";
        CString title = L"t";
        CString extension = L"e";
        SplitPath(row.full, directory, title, extension);
        EXPECT_EQ(directory, row.directory);
        EXPECT_EQ(title, row.title);
        EXPECT_EQ(extension, row.extension);
        EXPECT_EQ(directory + title + extension, row.full);
    }
}

TEST(SplitPath, TakesItsInputAsAnOutput)
{
    CString full = L"/a/b.c";
    CString title;
    CString extension;
    SplitPath(full, full, title, extension);
    EXPECT_EQ(full, L"/a/");
    EXPECT_EQ(title, L"b");
    EXPECT_EQ(extension, L".c");
}

TEST(WithSeparator, AddsThePlatformsOwnWhenThereIsNone)
{
    const wchar_t own = static_cast<wchar_t>(std::filesystem::path::preferred_separator);
    EXPECT_EQ(WithSeparator(L""), L"");
    EXPECT_EQ(WithSeparator(L"a"), CString(L"a") + own);
    EXPECT_EQ(WithSeparator(L"a/"), L"a/");
    EXPECT_EQ(WithSeparator(L"a\\"), L"a\\");
    EXPECT_EQ(WithSeparator(L"/"), L"/");
}

} // namespace
