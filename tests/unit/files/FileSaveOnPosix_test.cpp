// Saving and sharing as POSIX systems do them: links, rights, locks between processes, full disks
// and processes that are killed.
#if !defined(_WIN32)

#include <fcntl.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <poll.h>
#include <sys/file.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <csignal>
#include <functional>
#include <string>
#include <vector>

#include "base/files/FileObject.h"
#include "tests/support/TempDirectory.h"

using testing::ElementsAre;
using testing::HasSubstr;

namespace fs = std::filesystem;

namespace {

constexpr int Status(FileErrorCode code)
{
    return static_cast<int>(code);
}

FileObject WithValue(const std::string& value)
{
    FileObject file;
    EXPECT_TRUE(file.SetItem(L"s", L"k", value, true));
    return file;
}

std::vector<std::string> NamesIn(const TempDirectory& directory)
{
    std::vector<std::string> names;
    for (const auto& entry : fs::directory_iterator(directory.Path())) {
        names.push_back(entry.path().filename().string());
    }
    std::sort(names.begin(), names.end());
    return names;
}

mode_t RightsOf(const fs::path& path)
{
    struct stat status = {};
    EXPECT_EQ(stat(path.c_str(), &status), 0);
    return status.st_mode & 07777;
}

std::size_t OpenDescriptors()
{
    std::size_t count = 0;
    for (int number = 0; number < 256; ++number) {
        count += fcntl(number, F_GETFD) >= 0 ? 1U : 0U;
    }
    return count;
}

/// A process that holds a lock on a file from the end of the constructor to Release.
class Holder {
public:
    /// With `milliseconds` it lets go by itself after that time, and does `last` before it does.
    Holder(
        const fs::path& path, int lock, int milliseconds = -1, const std::function<void()>& last = [] {})
    {
        EXPECT_EQ(pipe(m_ready.data()), 0);
        EXPECT_EQ(pipe(m_release.data()), 0);
        m_child = fork();
        if (m_child == 0) {
            close(m_release[1]);
            const int file = open(path.c_str(), O_RDWR);
            const char answer = flock(file, lock) == 0 ? 'y' : 'n';
            pollfd end = {m_release[0], POLLIN, 0};
            const bool waited = write(m_ready[1], &answer, 1) == 1 && poll(&end, 1, milliseconds) >= 0;
            last();
            _exit(waited ? 0 : 1);
        }
        char answer = 0;
        EXPECT_EQ(read(m_ready[0], &answer, 1), 1);
        EXPECT_EQ(answer, 'y');
    }
    ~Holder() { Release(); }
    Holder(const Holder&) = delete;
    Holder& operator=(const Holder&) = delete;

    void Release()
    {
        if (m_child > 0) {
            close(m_release[1]);
            int status = -1;
            EXPECT_EQ(waitpid(m_child, &status, 0), m_child);
            EXPECT_EQ(status, 0);
            for (const int number : {m_ready[0], m_ready[1], m_release[0]}) {
                close(number);
            }
            m_child = 0;
        }
    }

private:
    std::array<int, 2> m_ready = {};
    std::array<int, 2> m_release = {};
    pid_t m_child = 0;
};

// Whether `holds` is true in a process without the superuser's powers.
bool HoldsForOthers(const std::function<bool()>& holds)
{
    const pid_t child = fork();
    if (child == 0) {
        constexpr uid_t nobody = 65534;
        const bool plain = getuid() != 0 || (setgid(nobody) == 0 && setuid(nobody) == 0);
        _exit(plain && holds() ? 0 : 1);
    }
    int status = -1;
    return waitpid(child, &status, 0) == child && status == 0;
}

TEST(FileSave, LeavesNoTemporaryAndNoOpenFile)
{
    const TempDirectory directory;
    const std::size_t before = OpenDescriptors();
    const FileObject file = WithValue("v");
    ASSERT_TRUE(file.FileSave(directory.File("a.geo"), FileMode::saveExclusive));
    ASSERT_TRUE(file.FileSave(directory.File("a.geo"), FileMode::saveExclusive));
    FileObject reader;
    ASSERT_TRUE(reader.FileOpen(directory.File("a.geo"), FileMode::openForReading));
    EXPECT_FALSE(reader.FileOpen(directory.File("missing.geo"), FileMode::openForReading));
    EXPECT_FALSE(file.FileSave(directory.Directory(), FileMode::saveExclusive));
    EXPECT_THAT(NamesIn(directory), ElementsAre("a.geo"));
    EXPECT_EQ(OpenDescriptors(), before);
}

TEST(FileSave, PutsANewFileInThePlaceOfTheOldOne)
{
    const TempDirectory directory;
    const fs::path path = directory.Path() / "a.geo";
    directory.Write("a.geo", "[s]\nk=old\n");
    const int old = open(path.c_str(), O_RDONLY);
    ASSERT_TRUE(WithValue("new").FileSave(directory.File("a.geo"), FileMode::saveExclusive));
    std::array<char, 32> text = {};
    const ssize_t size = read(old, text.data(), text.size());
    close(old);
    EXPECT_EQ(std::string(text.data(), static_cast<std::size_t>(size)), "[s]\nk=old\n");
    EXPECT_EQ(directory.Read("a.geo"), "[s]\nk=new\n");
}

TEST(FileSave, KeepsTheRightsOfTheOldFile)
{
    const TempDirectory directory;
    for (const mode_t rights : {0600U, 0640U, 0664U, 0755U, 0200U}) {
        directory.Write("a.geo", "");
        const fs::path path = directory.Path() / "a.geo";
        ASSERT_EQ(chmod(path.c_str(), rights), 0);
        if (getuid() != 0 && (rights & 0400U) == 0) {
            continue; // opened for reading too
        }
        ASSERT_TRUE(WithValue("v").FileSave(directory.File("a.geo"), FileMode::saveExclusive));
        EXPECT_EQ(RightsOf(path), rights);
        fs::remove(path);
    }
}

TEST(FileSave, GivesANewFileTheRightsOfTheProcess)
{
    const TempDirectory directory;
    const mode_t before = umask(027);
    const bool saved = WithValue("v").FileSave(directory.File("a.geo"), FileMode::saveExclusive);
    umask(before);
    ASSERT_TRUE(saved);
    EXPECT_EQ(RightsOf(directory.Path() / "a.geo"), 0640U);
}

TEST(FileSave, KeepsTheOwnerWhenTheSuperuserSaves)
{
    if (getuid() != 0) {
        GTEST_SKIP() << "only the superuser can give a file away";
    }
    const TempDirectory directory;
    const fs::path path = directory.Path() / "a.geo";
    directory.Write("a.geo", "");
    ASSERT_EQ(chown(path.c_str(), 12345, 23456), 0);
    ASSERT_TRUE(WithValue("v").FileSave(directory.File("a.geo"), FileMode::saveExclusive));
    struct stat status = {};
    ASSERT_EQ(stat(path.c_str(), &status), 0);
    EXPECT_EQ(status.st_uid, 12345U);
    EXPECT_EQ(status.st_gid, 23456U);
}

TEST(FileSave, FollowsSymbolicLinks)
{
    const TempDirectory directory;
    directory.Write("real/a.geo", "[s]\nk=old\n");
    fs::create_symlink("real/a.geo", directory.Path() / "relative.geo");
    fs::create_symlink(directory.Path() / "relative.geo", directory.Path() / "absolute.geo");
    ASSERT_TRUE(WithValue("new").FileSave(directory.File("absolute.geo"), FileMode::saveExclusive));
    EXPECT_TRUE(fs::is_symlink(directory.Path() / "relative.geo"));
    EXPECT_TRUE(fs::is_symlink(directory.Path() / "absolute.geo"));
    EXPECT_FALSE(fs::is_symlink(directory.Path() / "real/a.geo"));
    EXPECT_EQ(directory.Read("real/a.geo"), "[s]\nk=new\n");
}

TEST(FileSave, CreatesTheTargetOfALinkThatLedNowhere)
{
    const TempDirectory directory;
    fs::create_symlink("target.geo", directory.Path() / "link.geo");
    ASSERT_TRUE(WithValue("v").FileSave(directory.File("link.geo"), FileMode::saveExclusive));
    EXPECT_TRUE(fs::is_symlink(directory.Path() / "link.geo"));
    EXPECT_EQ(directory.Read("target.geo"), "[s]\nk=v\n");
}

TEST(FileSave, RefusesACircleOfLinks)
{
    const TempDirectory directory;
    fs::create_symlink("b", directory.Path() / "a");
    fs::create_symlink("a", directory.Path() / "b");
    const FileObject file = WithValue("v");
    EXPECT_FALSE(file.FileSave(directory.File("a"), FileMode::saveExclusive));
    EXPECT_EQ(file.GetErrorStatus(), Status(FileErrorCode::notWritable));
    EXPECT_THAT(file.GetErrorText().ToUtf8(), HasSubstr("too many symbolic links"));
    EXPECT_THAT(NamesIn(directory), ElementsAre("a", "b"));
}

TEST(FileSave, RefusesWhatIsNoRegularFile)
{
    const TempDirectory directory;
    ASSERT_EQ(mkfifo((directory.Path() / "pipe").c_str(), 0600), 0);
    const FileObject file = WithValue("v");
    for (const CString& name : {directory.File("pipe"), directory.Directory(), CString(L"/dev/full")}) {
        EXPECT_FALSE(file.FileSave(name, FileMode::saveExclusive)) << name.ToUtf8();
        EXPECT_EQ(file.GetErrorStatus(), Status(FileErrorCode::notWritable));
    }
    EXPECT_THAT(NamesIn(directory), ElementsAre("pipe"));
}

TEST(FileOpen, RefusesAPipeWithoutWaitingForIt)
{
    const TempDirectory directory;
    ASSERT_EQ(mkfifo((directory.Path() / "pipe").c_str(), 0600), 0);
    FileObject file;
    EXPECT_FALSE(file.FileOpen(directory.File("pipe"), FileMode::openForReading));
    EXPECT_EQ(file.GetErrorStatus(), Status(FileErrorCode::notReadable));
    EXPECT_THAT(file.GetErrorText().ToUtf8(), HasSubstr("no regular file"));
}

TEST(FileSave, RefusesAReadOnlyFileForTheSuperuserToo)
{
    const TempDirectory directory;
    const CString name = directory.Write("a.geo", "[s]\nk=old\n");
    ASSERT_EQ(chmod((directory.Path() / "a.geo").c_str(), 0444), 0);
    const FileObject file = WithValue("new");
    EXPECT_FALSE(file.FileSave(name, FileMode::saveExclusive));
    EXPECT_EQ(file.GetErrorStatus(), Status(FileErrorCode::notWritable));
    EXPECT_EQ(directory.Read("a.geo"), "[s]\nk=old\n");
    EXPECT_EQ(RightsOf(directory.Path() / "a.geo"), 0444U);
    EXPECT_THAT(NamesIn(directory), ElementsAre("a.geo"));
}

// Replacing a file needs no right on the file itself; its owner would be surprised.
TEST(FileSave, RefusesAFileThatTheUserMayNotWrite)
{
    const TempDirectory directory;
    const CString name = directory.Write("a.geo", "[s]\nk=old\n");
    ASSERT_EQ(chmod(directory.Path().c_str(), 0777), 0);
    ASSERT_EQ(chmod((directory.Path() / "a.geo").c_str(), getuid() == 0 ? 0644 : 0444), 0);
    EXPECT_TRUE(HoldsForOthers([&] {
        const FileObject file = WithValue("new");
        return !file.FileSave(name, FileMode::saveExclusive) &&
               file.GetErrorStatus() == Status(FileErrorCode::notWritable);
    }));
    EXPECT_EQ(directory.Read("a.geo"), "[s]\nk=old\n");
    EXPECT_THAT(NamesIn(directory), ElementsAre("a.geo"));
}

TEST(FileSave, FailsInADirectoryThatTheUserMayNotWrite)
{
    const TempDirectory directory;
    const CString name = directory.Write("a.geo", "[s]\nk=old\n");
    ASSERT_EQ(chmod((directory.Path() / "a.geo").c_str(), 0666), 0);
    ASSERT_EQ(chmod(directory.Path().c_str(), 0555), 0);
    EXPECT_TRUE(HoldsForOthers([&] {
        const FileObject file = WithValue("new");
        return !file.FileSave(name, FileMode::saveExclusive) &&
               file.GetErrorStatus() == Status(FileErrorCode::notWritable);
    }));
    EXPECT_EQ(directory.Read("a.geo"), "[s]\nk=old\n");
}

TEST(FileOpen, TellsThatAFileMayNotBeRead)
{
    const TempDirectory directory;
    const CString name = directory.Write("a.geo", "[s]\nk=old\n");
    ASSERT_EQ(chmod((directory.Path() / "a.geo").c_str(), 0200), 0);
    EXPECT_TRUE(HoldsForOthers([&] {
        FileObject file;
        return !file.FileOpen(name, FileMode::openForReading) &&
               file.GetErrorStatus() == Status(FileErrorCode::notReadable) &&
               file.GetErrorText().Find(L"access is denied") >= 0;
    }));
}

// A file system that is full answers a write in the same way as a file that may not grow.
TEST(FileSave, LeavesTheOldFileWhenTheDiskIsFull)
{
    const TempDirectory directory;
    const CString name = directory.Write("a.geo", "[s]\nk=old\n");
    const FileObject file = WithValue(std::string(100'000, 'x'));

    rlimit before = {};
    ASSERT_EQ(getrlimit(RLIMIT_FSIZE, &before), 0);
    auto* const handler = std::signal(SIGXFSZ, SIG_IGN);
    const rlimit small = {4096, before.rlim_max};
    ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &small), 0);
    const bool saved = file.FileSave(name, FileMode::saveExclusive);
    const bool savedNew = file.FileSave(directory.File("new.geo"), FileMode::saveExclusive);
    ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &before), 0);
    std::signal(SIGXFSZ, handler);

    EXPECT_FALSE(saved);
    EXPECT_FALSE(savedNew);
    EXPECT_EQ(file.GetErrorStatus(), Status(FileErrorCode::notWritable));
    EXPECT_EQ(directory.Read("a.geo"), "[s]\nk=old\n");
    EXPECT_THAT(NamesIn(directory), ElementsAre("a.geo"));
    EXPECT_TRUE(file.FileSave(name, FileMode::saveExclusive));
}

TEST(FileSave, LeavesTheOldOrTheNewContentsWhenTheProcessIsKilled)
{
    const TempDirectory directory;
    const CString name = directory.File("a.geo");
    const std::string values[] = {std::string(50'000, 'a'), std::string(80'000, 'b')};
    ASSERT_TRUE(WithValue(values[0]).FileSave(name, FileMode::saveExclusive));
    for (int round = 0; round < 12; ++round) {
        std::array<int, 2> saves = {};
        ASSERT_EQ(pipe(saves.data()), 0);
        const pid_t child = fork();
        if (child == 0) {
            for (unsigned i = 0;; ++i) {
                const char result = WithValue(values[i % 2]).FileSave(name, FileMode::saveExclusive) ? 'y' : 'n';
                if (write(saves[1], &result, 1) != 1) {
                    _exit(1);
                }
            }
        }
        char result = 0;
        for (int i = 0; i <= round; ++i) {
            ASSERT_EQ(read(saves[0], &result, 1), 1);
            EXPECT_EQ(result, 'y');
        }
        kill(child, SIGKILL);
        waitpid(child, nullptr, 0);
        close(saves[0]);
        close(saves[1]);
        FileObject file;
        ASSERT_TRUE(file.FileOpen(name, FileMode::openForReading)) << file.GetErrorText().ToUtf8();
        std::string value;
        ASSERT_TRUE(file.GetItem(L"s", L"k", value));
        EXPECT_TRUE(value == values[0] || value == values[1]);
    }
}

TEST(FileOpen, Mode32FailsWhileAnotherProcessHoldsTheFileForWriting)
{
    const TempDirectory directory;
    const CString name = directory.Write("a.geo", "[s]\nk=v\n");
    FileObject file;
    ASSERT_TRUE(file.FileOpen(name, 32)); // also what was parsed before is not given out
    Holder holder(directory.Path() / "a.geo", LOCK_EX);
    EXPECT_FALSE(file.FileOpen(name, 32));
    EXPECT_EQ(file.GetErrorStatus(), Status(FileErrorCode::inUse));
    EXPECT_FALSE(file.FileInitialised());
    EXPECT_TRUE(file.FileOpen(name, FileMode::read));
    holder.Release();
    EXPECT_TRUE(file.FileOpen(name, 32));
}

TEST(FileOpen, Mode32WaitsForAWriterThatLetsGo)
{
    const TempDirectory directory;
    const CString name = directory.Write("a.geo", "[s]\nk=v\n");
    const Holder writer(directory.Path() / "a.geo", LOCK_EX, 20);
    FileObject file;
    EXPECT_TRUE(file.FileOpen(name, 32)) << file.GetErrorText().ToUtf8();
}

TEST(FileOpen, Mode32ReadsWhatTheWriterThatItWaitedForHasPutThere)
{
    const TempDirectory directory;
    const CString name = directory.Write("a.geo", "[s]\nk=old\n");
    directory.Write("new.geo", "[s]\nk=new\n");
    const Holder writer(directory.Path() / "a.geo", LOCK_EX, 20,
                        [&] { fs::rename(directory.Path() / "new.geo", directory.Path() / "a.geo"); });
    FileObject file;
    ASSERT_TRUE(file.FileOpen(name, 32)) << file.GetErrorText().ToUtf8();
    std::string value;
    EXPECT_TRUE(file.GetItem(L"s", L"k", value));
    EXPECT_EQ(value, "new");
}

// As the database opens its user file: what was held is not taken for a file that is none.
TEST(FileOpen, Mode4097LeavesAFileThatWasHeldAMomentAgo)
{
    const TempDirectory directory;
    const CString name = directory.Write("a.geo", "[s]\nk=v\n");
    FileObject file;
    {
        const Holder writer(directory.Path() / "a.geo", LOCK_EX);
        ASSERT_FALSE(file.FileOpen(name, 32));
    }
    EXPECT_FALSE(file.FileOpen(name, 4097));
    EXPECT_EQ(file.GetErrorStatus(), Status(FileErrorCode::inUse));
    EXPECT_EQ(directory.Read("a.geo"), "[s]\nk=v\n");
    EXPECT_THAT(NamesIn(directory), ElementsAre("a.geo"));
}

TEST(FileOpen, Mode4097LeavesAFileThatTooManyOpenFilesKeptFromBeingRead)
{
#if defined(__SANITIZE_ADDRESS__)
    GTEST_SKIP() << "the sanitizer needs descriptors itself to look at memory";
#endif
    const TempDirectory directory;
    const CString name = directory.Write("a.geo", "[s]\nk=v\n");
    rlimit before = {};
    ASSERT_EQ(getrlimit(RLIMIT_NOFILE, &before), 0);
    const rlimit none = {0, before.rlim_max};
    FileObject file;
    ASSERT_EQ(setrlimit(RLIMIT_NOFILE, &none), 0);
    const bool opened = file.FileOpen(name, 32);
    const CString reason = file.GetErrorText();
    ASSERT_EQ(setrlimit(RLIMIT_NOFILE, &before), 0);
    EXPECT_FALSE(opened);
    EXPECT_THAT(reason.ToUtf8(), HasSubstr("too many files are open"));
    EXPECT_FALSE(file.FileOpen(name, 4097));
    EXPECT_EQ(directory.Read("a.geo"), "[s]\nk=v\n");
    EXPECT_THAT(NamesIn(directory), ElementsAre("a.geo"));
}

TEST(FileOpen, Mode4097FollowsLinksAndKeepsRightsAndTheOldFileItself)
{
    const TempDirectory directory;
    directory.Write("real/a.geo", "no section file");
    const fs::path path = directory.Path() / "real/a.geo";
    ASSERT_EQ(chmod(path.c_str(), 0640), 0);
    fs::create_symlink("real/a.geo", directory.Path() / "link.geo");
    fs::create_hard_link(path, directory.Path() / "same.geo");
    ASSERT_TRUE(FileObject().FileOpen(directory.File("link.geo"), 4097));
    EXPECT_TRUE(fs::is_symlink(directory.Path() / "link.geo"));
    EXPECT_EQ(directory.Read("real/a.geo"), "");
    EXPECT_EQ(RightsOf(path), 0640U);
    EXPECT_TRUE(fs::equivalent(directory.Path() / "real/a.geo.old-1", directory.Path() / "same.geo"));
    EXPECT_EQ(directory.Read("real/a.geo.old-1"), "no section file");
    EXPECT_EQ(RightsOf(directory.Path() / "real/a.geo.old-1"), 0640U);
}

TEST(FileOpen, Mode4097LeavesWhatCannotBeSetAside)
{
    const TempDirectory directory;
    const std::string longest(255, 'n');
    FileObject file;
    EXPECT_FALSE(file.FileOpen(directory.Write(longest, "no section file"), 4097));
    EXPECT_EQ(file.GetErrorStatus(), Status(FileErrorCode::notWritable));
    EXPECT_EQ(directory.Read(longest), "no section file");
    EXPECT_THAT(NamesIn(directory), ElementsAre(longest));
}

// The second name of the old file goes again when the new file cannot be made.
TEST(FileOpen, Mode4097LeavesTheOldFileUnderItsNameAloneWhenItFails)
{
    const TempDirectory directory;
    const CString name = directory.Write("a.geo", "no section file");
    rlimit before = {};
    ASSERT_EQ(getrlimit(RLIMIT_NOFILE, &before), 0);
    const int next = dup(0);
    ASSERT_EQ(close(next), 0);
    FileObject file;
    // Room for the directory and the old file, none for the temporary.
    const rlimit two = {static_cast<rlim_t>(next) + 2, before.rlim_max};
    ASSERT_EQ(setrlimit(RLIMIT_NOFILE, &two), 0);
    const bool opened = file.FileOpen(name, 4097);
    ASSERT_EQ(setrlimit(RLIMIT_NOFILE, &before), 0);
    EXPECT_FALSE(opened);
    EXPECT_THAT(file.GetErrorText().ToUtf8(), HasSubstr("too many files are open"));
    EXPECT_EQ(directory.Read("a.geo"), "no section file");
    EXPECT_THAT(NamesIn(directory), ElementsAre("a.geo"));
}

// Saves and opens as the database does: 32, and 4097 and 32 again when that fails.
bool OpenOrMake(FileObject& file, const CString& name)
{
    return file.FileOpen(name, 32) || (file.FileOpen(name, 4097) && file.FileOpen(name, 32));
}

// They may lose each other's latest change, but nothing that stood there before.
TEST(FileOpen, TwoProcessesThatSaveAndOpenInTurnLoseNothing)
{
    constexpr int rounds = 150;
    const TempDirectory directory;
    const std::string value(20'000, 'v');
    const CString name = directory.Write("a.geo", "[before]\nk=" + value + "\n");
    const auto saveAndOpen = [&](const char* key) {
        FileObject file;
        for (int round = 0; round < rounds; ++round) {
            if (OpenOrMake(file, name)) {
                file.SetItem(L"s", CString::FromUtf8(key), round, true);
                file.FileSave(L"", 4113);
            }
        }
    };
    const pid_t child = fork();
    if (child == 0) {
        saveAndOpen("child");
        _exit(0);
    }
    saveAndOpen("parent");
    int status = -1;
    EXPECT_EQ(waitpid(child, &status, 0), child);
    EXPECT_EQ(status, 0);
    FileObject file;
    ASSERT_TRUE(file.FileOpen(name, 32));
    std::string found;
    EXPECT_TRUE(file.GetItem(L"before", L"k", found));
    EXPECT_EQ(found, value);
    EXPECT_TRUE(file.HasSection(L"s"));
    EXPECT_THAT(NamesIn(directory), ElementsAre("a.geo"));
}

TEST(FileSave, RefusesAFileThatOnlyOthersThanItsOwnerMayWrite)
{
    const TempDirectory directory;
    const CString name = directory.Write("a.geo", "[s]\nk=old\n");
    ASSERT_EQ(chmod((directory.Path() / "a.geo").c_str(), 0464), 0);
    const FileObject file = WithValue("new");
    EXPECT_FALSE(file.FileSave(name, FileMode::saveExclusive));
    EXPECT_EQ(file.GetErrorStatus(), Status(FileErrorCode::notWritable));
    EXPECT_EQ(directory.Read("a.geo"), "[s]\nk=old\n");
}

TEST(FileSave, Mode16FailsWhileAnotherProcessHoldsTheFile)
{
    const TempDirectory directory;
    const CString name = directory.Write("a.geo", "[s]\nk=old\n");
    for (const int lock : {LOCK_EX, LOCK_SH}) {
        Holder holder(directory.Path() / "a.geo", lock);
        FileObject file = WithValue("new");
        EXPECT_FALSE(file.FileSave(name, 4113));
        EXPECT_EQ(file.GetErrorStatus(), Status(FileErrorCode::inUse));
        EXPECT_EQ(directory.Read("a.geo"), "[s]\nk=old\n");
        EXPECT_THAT(NamesIn(directory), ElementsAre("a.geo"));
        holder.Release();
    }
    EXPECT_TRUE(WithValue("new").FileSave(name, 4113));
}

TEST(FileOpen, Mode4097FailsWhileAnotherProcessHoldsTheFile)
{
    const TempDirectory directory;
    const CString name = directory.Write("a.geo", "[s]\nk=old\n");
    const Holder holder(directory.Path() / "a.geo", LOCK_EX);
    FileObject file;
    EXPECT_FALSE(file.FileOpen(name, 4097));
    EXPECT_EQ(file.GetErrorStatus(), Status(FileErrorCode::inUse));
    EXPECT_EQ(directory.Read("a.geo"), "[s]\nk=old\n");
}

TEST(FileOpen, SharesTheFileWithOtherReaders)
{
    const TempDirectory directory;
    const CString name = directory.Write("a.geo", "[s]\nk=v\n");
    const Holder reader(directory.Path() / "a.geo", LOCK_SH);
    FileObject file;
    EXPECT_TRUE(file.FileOpen(name, 32));
}

TEST(FileOpen, GivesItsHoldBackBeforeItReturns)
{
    const TempDirectory directory;
    const CString name = directory.Write("a.geo", "[s]\nk=v\n");
    FileObject file;
    ASSERT_TRUE(file.FileOpen(name, 32));
    const Holder writer(directory.Path() / "a.geo", LOCK_EX | LOCK_NB);
    EXPECT_TRUE(file.FileInitialised());
}

TEST(FileSave, WorksWhileTheFileIsOpenInThisProcess)
{
    const TempDirectory directory;
    const CString name = directory.Write("a.geo", "[s]\nk=old\n");
    FileObject first;
    FileObject second;
    ASSERT_TRUE(first.FileOpen(name, 32));
    ASSERT_TRUE(second.FileOpen(name, 32));
    second.SetItem(L"s", L"k", L"new", true);
    EXPECT_TRUE(second.FileSave(L"", 4113));
    EXPECT_TRUE(first.FileOpen(name, 32));
    EXPECT_TRUE(first.HasKey(L"s", L"k"));
}

TEST(FileSave, SavesUnderANameAsLongAsTheSystemAllows)
{
    const TempDirectory directory;
    const std::string name(255, 'n');
    EXPECT_TRUE(WithValue("v").FileSave(directory.File(name), FileMode::saveExclusive));
    const FileObject file = WithValue("v");
    EXPECT_FALSE(file.FileSave(directory.File(name + "n"), FileMode::saveExclusive));
    EXPECT_THAT(file.GetErrorText().ToUtf8(), HasSubstr("too long"));
    EXPECT_THAT(NamesIn(directory), ElementsAre(name));
}

} // namespace

#endif
