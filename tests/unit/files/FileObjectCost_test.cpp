// What the operations of FileObject cost, counted in allocations of the process.
#if !defined(_WIN32)

#include <gtest/gtest.h>

#include <string>

#include "base/files/FileObject.h"
#include "tests/support/TempDirectory.h"
#include "tests/support/AllocationCount.h"

namespace {

constexpr int kSections = 2000;
constexpr int kKeys = 10;

std::string ManySections()
{
    std::string text;
    for (int section = 0; section < kSections; ++section) {
        text += "[Sys-" + std::to_string(section) + "]\n";
        for (int key = 0; key < kKeys; ++key) {
            text += "a key that fits in no small string " + std::to_string(key) + "=6378137.0\n";
        }
    }
    return text;
}

CString Key(int number)
{
    return CString::FromUtf8("a key that fits in no small string " + std::to_string(number));
}

template <typename Action>
long AllocationsOf(const Action& action)
{
    const long before = AllocationCount();
    action();
    return AllocationCount() - before;
}

class FileObjectCost : public testing::Test {
protected:
    const TempDirectory directory;
    const CString name = directory.Write("a.geo", ManySections());
    FileObject file;

    void SetUp() override { ASSERT_TRUE(file.FileOpen(name, FileMode::openForReading)); }
};

TEST_F(FileObjectCost, AnUnchangedFileIsNotParsedAgain)
{
    FileObject other;
    EXPECT_LT(AllocationsOf([&] { EXPECT_TRUE(other.FileOpen(name, FileMode::openForReading)); }), 100);
    EXPECT_TRUE(other.HasKey(L"Sys-1999", Key(9)));
    const CString copy = directory.Write("b.geo", ManySections());
    EXPECT_GT(AllocationsOf([&] { EXPECT_TRUE(other.FileOpen(copy, FileMode::openForReading)); }), kSections);
}

// A file that has not changed for long is recognised without its bytes.
TEST_F(FileObjectCost, AFileAtRestIsNotParsedAgain)
{
    const CString atRest = CString::FromUtf8(ZORGEO_SOURCE_DIR "/fuzz/corpus/section_file/database.geo");
    FileObject first;
    ASSERT_TRUE(first.FileOpen(atRest, FileMode::openForReading)) << first.GetErrorText().ToUtf8();
    FileObject second;
    EXPECT_LT(AllocationsOf([&] { EXPECT_TRUE(second.FileOpen(atRest, FileMode::openForReading)); }), 40);
    EXPECT_TRUE(second.HasSection(L"General"));
}

// The catalogue and the databases stay parsed while a host walks over many project files.
TEST_F(FileObjectCost, AFileThatIsUsedAgainAndAgainIsNotParsedAgain)
{
    const CString atRest = CString::FromUtf8(ZORGEO_SOURCE_DIR "/fuzz/corpus/section_file/database.geo");
    int others = 0;
    const auto openOthers = [&](int count) {
        for (const int last = others + count; others < last; ++others) {
            FileObject other;
            ASSERT_TRUE(other.FileOpen(directory.Write(std::to_string(others), "[s]\n"), FileMode::openForReading));
        }
    };
    const auto openAgain = [&] {
        FileObject again;
        EXPECT_TRUE(again.FileOpen(atRest, FileMode::openForReading));
    };
    openOthers(16); // what was kept before is forgotten
    EXPECT_GT(AllocationsOf(openAgain), 40);
    for (int round = 0; round < 3; ++round) {
        openOthers(15);
        EXPECT_LT(AllocationsOf(openAgain), 20);
    }
    openOthers(16);
    EXPECT_GT(AllocationsOf(openAgain), 40);
}

TEST_F(FileObjectCost, LackOfMemoryMakesAnOpeningFalse)
{
    const CString big = directory.Write("big.geo", "[s]\nk=" + std::string(4'000'000, 'x') + "\n");
    bool opened = true;
    {
        const AllocationLimit limit(1'000'000);
        opened = file.FileOpen(big, FileMode::openForReading);
    }
    EXPECT_FALSE(opened);
    EXPECT_FALSE(file.FileInitialised());
    EXPECT_EQ(file.GetErrorStatus(), static_cast<int>(FileErrorCode::notReadable));
    EXPECT_GE(file.GetErrorText().Find(L"out of memory"), 0);
    EXPECT_TRUE(file.FileOpen(big, FileMode::openForReading));
}

TEST_F(FileObjectCost, LackOfMemoryMakesASaveFalse)
{
    const CString old = directory.Write("old.geo", "[s]\nk=old\n");
    FileObject big;
    ASSERT_TRUE(big.SetItem(L"s", L"k", std::string(4'000'000, 'x'), true));
    bool saved = true;
    {
        const AllocationLimit limit(1'000'000);
        saved = big.FileSave(old, FileMode::saveExclusive);
    }
    EXPECT_FALSE(saved);
    EXPECT_EQ(big.GetErrorStatus(), static_cast<int>(FileErrorCode::notWritable));
    EXPECT_GE(big.GetErrorText().Find(L"out of memory"), 0);
    EXPECT_EQ(directory.Read("old.geo"), "[s]\nk=old\n");
    EXPECT_TRUE(big.FileSave(old, FileMode::saveExclusive));
}

TEST_F(FileObjectCost, AFileThatThisProcessSavedIsNotParsedAgain)
{
    file.SetItem(L"Sys-5", Key(5), 1.5, true);
    ASSERT_TRUE(file.FileSave(L"", FileMode::saveExclusive));
    FileObject other;
    EXPECT_LT(AllocationsOf([&] { EXPECT_TRUE(other.FileOpen(name, FileMode::openForReading)); }), 100);
    double value = 0;
    EXPECT_TRUE(other.GetItem(L"Sys-5", Key(5), value));
    EXPECT_EQ(value, 1.5);
}

TEST_F(FileObjectCost, ACopySharesTheContents)
{
    EXPECT_LT(AllocationsOf([this] { const FileObject copy(file); }), 10);
    FileObject assigned;
    EXPECT_LT(AllocationsOf([&] { assigned = file; }), 10);
}

TEST_F(FileObjectCost, TheFirstChangeCopiesNoSectionButItsOwn)
{
    EXPECT_LT(AllocationsOf([this] { file.SetItem(L"Sys-7", Key(3), L"x", true); }), 30);
}

TEST_F(FileObjectCost, ManyChangesDoNotCopyEachTime)
{
    const CString section = L"Sys-7";
    const CString key = Key(3);
    file.SetItem(section, key, -1, true);
    const long each = AllocationsOf([&] {
        for (int i = 0; i < 1000; ++i) {
            file.SetItem(section, key, i, true);
        }
    });
    EXPECT_LT(each, 5 * 1000);
}

TEST_F(FileObjectCost, ReadingANumberAllocatesNothing)
{
    const CString section = L"Sys-1234";
    const CString key = Key(8);
    double value = 0;
    file.GetItem(section, key, value); // the look-up's buffer grows once per thread
    EXPECT_EQ(AllocationsOf([&] {
                  EXPECT_TRUE(file.GetItem(section, key, value));
                  EXPECT_TRUE(file.HasKey(section, key));
                  EXPECT_FALSE(file.HasSection(key));
              }),
              0);
    EXPECT_EQ(value, 6378137.0);
}

// The end of a walk lets the contents go, so that the next change need not copy them.
TEST_F(FileObjectCost, AFinishedWalkHoldsNothing)
{
    file.SetItem(L"Sys-7", Key(3), 0, true);
    FobjSection cursor;
    CString name_;
    for (bool more = file.GetFirstSectionEntry(cursor, name_); more; more = file.GetNextSectionEntry(cursor, name_)) {
    }
    EXPECT_LT(AllocationsOf([this] { file.SetItem(L"Sys-7", Key(3), 1, true); }), 8);
}

} // namespace

#endif
