#include "base/registry/ExecutablePath.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "base/files/SplitPath.h"

#if !defined(_WIN32)

TEST(ExecutablePath, IsTheFileOfTheRunningProgram)
{
    CString path;
    ASSERT_TRUE(ExecutablePath(path));
    EXPECT_EQ(path.ToUtf8(), std::filesystem::canonical("/proc/self/exe").string());
}

#endif

TEST(ExecutablePath, NamesAnExistingFile)
{
    CString path;
    ASSERT_TRUE(ExecutablePath(path));
    EXPECT_TRUE(std::filesystem::is_regular_file(path.ToUtf8())) << path.ToUtf8();
    CString directory;
    CString title;
    CString extension;
    SplitPath(path, directory, title, extension);
    EXPECT_EQ(title, L"unit_registry");
}

TEST(ExecutablePath, AsksAnInstalledSourceUntilItIsTakenOut)
{
    SetExecutablePathSource([](CString& path) {
        path = L"/opt/suite/survey.exe";
        return true;
    });
    CString path;
    EXPECT_TRUE(ExecutablePath(path));
    EXPECT_EQ(path, L"/opt/suite/survey.exe");

    SetExecutablePathSource([](CString&) { return false; });
    path = L"as it was";
    EXPECT_FALSE(ExecutablePath(path));
    EXPECT_EQ(path, L"as it was");

    SetExecutablePathSource(nullptr);
    EXPECT_TRUE(ExecutablePath(path));
    EXPECT_NE(path, L"as it was");
}
