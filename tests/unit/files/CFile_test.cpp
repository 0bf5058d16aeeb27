#include "base/files/CFile.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>

#include "base/files/FileObject.h"
#include "tests/support/TempDirectory.h"

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

double NowInMilliseconds()
{
    using namespace std::chrono;
    return duration<double, std::milli>(system_clock::now().time_since_epoch()).count();
}

TEST(CFile, GetStatusTellsNameSizeTimeAndAttribute)
{
    const TempDirectory directory;
    const double before = NowInMilliseconds();
    const CString name = directory.Write("a.geo", "12345");
    CFileStatus status;
    ASSERT_TRUE(CFile::GetStatus(name, status));
    EXPECT_EQ(status.fullName, name);
    EXPECT_EQ(status.size, 5U);
    EXPECT_NEAR(status.modified, before, 10000.0);
    EXPECT_EQ(status.attribute & CFileStatus::readOnly, 0U);
}

TEST(CFile, GetStatusOfAKnownMoment)
{
    const TempDirectory directory;
    const CString name = directory.Write("a.geo", "");
    // 2000 January 1, 12 h UTC, by hand: 10957.5 days.
    const auto moment = std::chrono::file_clock::from_sys(std::chrono::sys_seconds(std::chrono::seconds(946728000)));
    std::filesystem::last_write_time(directory.Path() / "a.geo", moment);
    CFileStatus status;
    ASSERT_TRUE(CFile::GetStatus(name, status));
    EXPECT_EQ(status.modified, 946728000000.0);
}

TEST(CFile, GetStatusOfNothingLeavesTheOutput)
{
    const TempDirectory directory;
    CFileStatus status;
    status.fullName = L"before";
    status.size = 7;
    for (const CString& name :
         {CString(), directory.File("missing"), directory.File("missing/a"), directory.File("a") + L'\0'}) {
        EXPECT_FALSE(CFile::GetStatus(name, status));
    }
    EXPECT_EQ(status.fullName, L"before");
    EXPECT_EQ(status.size, 7U);
}

TEST(CFile, SetStatusSetsAndClearsTheReadOnlyAttribute)
{
    const TempDirectory directory;
    const CString name = directory.Write("a.geo", "x");
    CFileStatus status;
    ASSERT_TRUE(CFile::GetStatus(name, status));
    status.attribute |= CFileStatus::readOnly;
    CFile::SetStatus(name, status);
    CFile::SetStatus(name, status);
    CFileStatus after;
    ASSERT_TRUE(CFile::GetStatus(name, after));
    EXPECT_EQ(after.attribute & CFileStatus::readOnly, CFileStatus::readOnly);
    status.attribute = 0;
    CFile::SetStatus(name, status);
    ASSERT_TRUE(CFile::GetStatus(name, after));
    EXPECT_EQ(after.attribute & CFileStatus::readOnly, 0U);
    EXPECT_EQ(directory.Read("a.geo"), "x");
}

TEST(CFile, SetStatusThrowsWhenItCannot)
{
    const TempDirectory directory;
    try {
        CFile::SetStatus(directory.File("missing"), CFileStatus());
        FAIL() << "nothing was thrown";
    } catch (const CFileException& thrown) {
        EXPECT_EQ(thrown.File(), directory.File("missing"));
        EXPECT_FALSE(thrown.Reason().IsEmpty());
    }
}

#if !defined(_WIN32)
// Who took the right to write from himself may have left it to his group.
TEST(CFile, ReadOnlyIsWhatItsOwnerMayNotWriteAndTheOtherBitsStay)
{
    using std::filesystem::perms;
    struct Row {
        unsigned writable;
        unsigned readOnly;
    };
    const TempDirectory directory;
    const CString name = directory.Write("a.geo", "x");
    const auto path = directory.Path() / "a.geo";
    for (const Row& row : {Row{0644, 0444}, Row{0664, 0464}, Row{0600, 0400}, Row{0666, 0466}}) {
        SCOPED_TRACE(row.writable);
        std::filesystem::permissions(path, perms{row.readOnly});
        CFileStatus status;
        ASSERT_TRUE(CFile::GetStatus(name, status));
        EXPECT_EQ(status.attribute, CFileStatus::readOnly);
        status.attribute = 0;
        CFile::SetStatus(name, status);
        EXPECT_EQ(std::filesystem::status(path).permissions(), perms{row.writable});
        ASSERT_TRUE(CFile::GetStatus(name, status));
        EXPECT_EQ(status.attribute, 0U);
        status.attribute = CFileStatus::readOnly;
        CFile::SetStatus(name, status);
        EXPECT_EQ(std::filesystem::status(path).permissions(), perms{row.readOnly});
    }
}
#endif

// What the guarded save of the database does.
TEST(CFile, AReadOnlyFileIsSavedOnlyAfterItsAttributeWasCleared)
{
    const TempDirectory directory;
    const CString name = directory.Write("a.geo", "[s]\nk=v\n");
    CFileStatus status;
    ASSERT_TRUE(CFile::GetStatus(name, status));
    status.attribute |= CFileStatus::readOnly;
    CFile::SetStatus(name, status);

    FileObject file;
    ASSERT_TRUE(file.FileOpen(name, FileMode::openForReading));
    file.SetItem(L"s", L"k", L"w", true);
    EXPECT_FALSE(file.FileSave(L"", FileMode::saveExclusive));
    EXPECT_EQ(file.GetErrorStatus(), static_cast<int>(FileErrorCode::notWritable));
    EXPECT_FALSE(FileObject().FileOpen(name, FileMode::createNew));
    EXPECT_EQ(directory.Read("a.geo"), "[s]\nk=v\n");

    status.attribute = 0;
    CFile::SetStatus(name, status);
    EXPECT_TRUE(file.FileSave(L"", FileMode::saveExclusive));
    status.attribute = CFileStatus::readOnly;
    CFile::SetStatus(name, status);
    EXPECT_EQ(directory.Read("a.geo"), "[s]\nk=w\n");
    CFileStatus after;
    ASSERT_TRUE(CFile::GetStatus(name, after));
    EXPECT_EQ(after.attribute & CFileStatus::readOnly, CFileStatus::readOnly);
    FileObject reader;
    EXPECT_TRUE(reader.FileOpen(name, FileMode::openForReading));
}

TEST(CFile, ListsDirectoriesAndFilesInTheOrderOfTheirNames)
{
    const TempDirectory directory;
    for (const char* name : {"b", "C", "a b", "\xC3\xA9"}) {
        std::filesystem::create_directory(directory.Path() / name);
    }
    directory.Write("z.geo", "");
    directory.Write("Y.geo", "");
    directory.Write("b/below.geo", "");
    std::vector<CString> names = {L"before"};
    EXPECT_TRUE(CFile::ListDirectories(directory.Directory(), names));
    EXPECT_THAT(names, ElementsAre(L"C", L"a b", L"b", L"\x00E9"));
    EXPECT_TRUE(CFile::ListFiles(directory.Directory(), names));
    EXPECT_THAT(names, ElementsAre(L"Y.geo", L"z.geo"));
    EXPECT_TRUE(CFile::ListDirectories(directory.File("b"), names));
    EXPECT_THAT(names, IsEmpty());
}

TEST(CFile, ListsNothingOfWhatIsNoDirectory)
{
    const TempDirectory directory;
    directory.Write("a", "");
    std::vector<CString> names = {L"before"};
    for (const CString& name : {CString(), directory.File("missing"), directory.File("a")}) {
        EXPECT_FALSE(CFile::ListDirectories(name, names));
        EXPECT_FALSE(CFile::ListFiles(name, names));
    }
    EXPECT_THAT(names, ElementsAre(L"before"));
}

TEST(CFile, ExistsForFilesAndDirectories)
{
    const TempDirectory directory;
    EXPECT_TRUE(CFile::Exists(directory.Write("a", "")));
    EXPECT_TRUE(CFile::Exists(directory.Directory()));
    EXPECT_FALSE(CFile::Exists(directory.File("missing")));
    EXPECT_FALSE(CFile::Exists(L""));
    EXPECT_FALSE(CFile::Exists(directory.File("a") + L'\0'));
}

} // namespace
