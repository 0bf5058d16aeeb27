// Different objects in different threads, run under the thread sanitizer in CI.

#include <gtest/gtest.h>

#include <atomic>
#include <string>
#include <thread>
#include <vector>

#include "base/files/FileObject.h"
#include "tests/support/TempDirectory.h"

namespace {

constexpr int kThreads = 4;
constexpr int kRounds = 40;

std::string Sections(int count, const std::string& value)
{
    std::string text;
    for (int i = 0; i < count; ++i) {
        text += "[s" + std::to_string(i) + "]\nk=" + value + "\n";
    }
    return text;
}

template <typename Work>
void InThreads(const Work& work)
{
    std::vector<std::thread> threads;
    for (int i = 0; i < kThreads; ++i) {
        threads.emplace_back([&work, i] { work(i); });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
}

TEST(FileObjectThreads, OpenTheSameFile)
{
    const TempDirectory directory;
    const CString name = directory.Write("a.geo", Sections(50, "v"));
    std::atomic<int> failures{0};
    InThreads([&](int number) {
        for (int round = 0; round < kRounds; ++round) {
            FileObject file;
            CString value;
            failures += file.FileOpen(name, FileMode::openForReading) ? 0 : 1;
            failures += file.GetItem(L"s7", L"k", value) && value == L"v" ? 0 : 1;
            file.SetItem(L"s7", L"k", number, true);
            int changed = -1;
            failures += file.GetItem(L"s7", L"k", changed) && changed == number ? 0 : 1;
        }
    });
    EXPECT_EQ(failures, 0);
}

TEST(FileObjectThreads, ChangeCopiesOfOneObject)
{
    FileObject original;
    for (int i = 0; i < 30; ++i) {
        original.SetItem(L"s", CString(L'a', i), i, true);
    }
    for (int round = 0; round < kRounds; ++round) {
        std::vector<FileObject> copies(kThreads, original);
        std::atomic<int> failures{0};
        InThreads([&](int number) {
            // The last one to change finds that it alone holds the contents.
            FileObject& mine = copies[static_cast<std::size_t>(number)];
            mine.SetItem(L"s", L"a", number, true);
            mine.SetItem(L"t", L"a", number, true);
            int value = -1;
            failures += mine.GetItem(L"s", L"a", value) && value == number ? 0 : 1;
            failures += mine.GetItem(L"s", L"aaa", value) && value == 3 ? 0 : 1;
            mine.FileClose();
        });
        EXPECT_EQ(failures, 0);
    }
}

TEST(FileObjectThreads, ReadWhileAnotherSaves)
{
    const TempDirectory directory;
    const CString name = directory.Write("a.geo", Sections(20, "0"));
    std::atomic<int> failures{0};
    InThreads([&](int number) {
        for (int round = 0; round < kRounds; ++round) {
            FileObject file;
            failures += file.FileOpen(name, FileMode::openForReading) ? 0 : 1;
            CString first = L"a";
            CString last = L"b";
            file.GetItem(L"s0", L"k", first);
            file.GetItem(L"s19", L"k", last);
            failures += first == last ? 0 : 1;
            if (number == 0 && round % 4 == 0) {
                for (int i = 0; i < 20; ++i) {
                    CString section;
                    section.Format(L"s%d", i);
                    file.SetItem(section, L"k", round, true);
                }
                failures += file.FileSave(L"", FileMode::saveExclusive) ? 0 : 1;
            }
        }
    });
    EXPECT_EQ(failures, 0);
}

} // namespace
