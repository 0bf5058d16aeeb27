#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <thread>

#include "base/files/FileMode.h"
#include "base/files/TemporaryName.h"
#include "base/platform/Platform.h"
#include "base/platform/posix/Descriptor.h"
#include "base/platform/posix/SystemError.h"

namespace platform {

namespace {

namespace fs = std::filesystem;

constexpr int kMaxLinks = 40; // as the kernel follows
constexpr int kNameAttempts = 8;
// A reader holds the file for the moment of its reading; a writer waits that long for it.
constexpr std::chrono::milliseconds kPatience{250};
constexpr std::chrono::milliseconds kPause{2};

constexpr mode_t kRights = 07777;
constexpr mode_t kWriteBits = 0222;

bool Refuse(const wchar_t* reason, FileFailure& failure)
{
    failure = {FileErrorCode::notWritable, reason};
    return false;
}

bool RefuseBySystem(FileFailure& failure)
{
    return FailBySystem(FileErrorCode::notWritable, failure);
}

/// One replacement of a file's contents. Each step is false, with the reason told, when it
/// fails; what was begun is then cleaned up with the object.
class Replacement {
public:
    Replacement(const CString& path, FileFailure& failure) : m_target(NativePath(path)), m_failure(failure) {}
    ~Replacement()
    {
        if (!m_temporary.empty()) {
            unlink(m_temporary.c_str());
        }
    }
    Replacement(const Replacement&) = delete;
    Replacement& operator=(const Replacement&) = delete;

    bool FollowLinks();
    bool TakeOldFile(bool exclusive);
    bool OpenDirectory();
    bool CreateTemporary();
    bool KeepOwnerAndRights();
    bool Write(std::string_view contents);
    bool Rename();
    bool FlushDirectory();

private:
    bool CheckOldFile();
    bool Lock();
    bool IsStillInPlace() const;

    fs::path m_target;
    FileFailure& m_failure;
    Descriptor m_old; // closed when the file is new
    struct stat m_oldStatus = {};
    Descriptor m_directory;
    fs::path m_temporary; // empty when there is none
    Descriptor m_file;
};

// The last part of the path alone: links before it lead to the same directory anyway.
bool Replacement::FollowLinks()
{
    for (int i = 0; i < kMaxLinks; ++i) {
        std::error_code error;
        if (!fs::is_symlink(fs::symlink_status(m_target, error))) {
            return true;
        }
        const fs::path link = fs::read_symlink(m_target, error);
        if (error) {
            errno = error.value();
            return RefuseBySystem(m_failure);
        }
        m_target = m_target.parent_path() / link;
    }
    errno = ELOOP;
    return RefuseBySystem(m_failure);
}

bool Replacement::TakeOldFile(bool exclusive)
{
    do {
        m_old = Descriptor(
            Restarted([this] { return open(m_target.c_str(), O_RDWR | O_CLOEXEC | O_NONBLOCK | O_NOCTTY); }));
        if (!m_old.IsOpen()) {
            return errno == ENOENT || RefuseBySystem(m_failure);
        }
        if (!CheckOldFile() || (exclusive && !Lock())) {
            return false;
        }
        // The holder that was waited for has put another file in the place of this one.
    } while (exclusive && !IsStillInPlace());
    return true;
}

bool Replacement::CheckOldFile()
{
    if (fstat(m_old.Get(), &m_oldStatus) != 0) {
        return RefuseBySystem(m_failure);
    }
    if (!S_ISREG(m_oldStatus.st_mode)) {
        return Refuse(L"it is no regular file", m_failure);
    }
    // The superuser could write it nevertheless, but the attribute has been set on purpose.
    if ((m_oldStatus.st_mode & kWriteBits) == 0) {
        return Refuse(L"the file is read-only", m_failure);
    }
    return true;
}

// A file system without locks has nobody who could hold one.
bool Replacement::Lock()
{
    const auto end = std::chrono::steady_clock::now() + kPatience;
    while (Restarted([this] { return flock(m_old.Get(), LOCK_EX | LOCK_NB); }) != 0 && errno == EWOULDBLOCK) {
        if (std::chrono::steady_clock::now() >= end) {
            m_failure = {FileErrorCode::inUse, L"another process is using it"};
            return false;
        }
        std::this_thread::sleep_for(kPause);
    }
    return true;
}

bool Replacement::IsStillInPlace() const
{
    struct stat present = {};
    return stat(m_target.c_str(), &present) == 0 && present.st_dev == m_oldStatus.st_dev &&
           present.st_ino == m_oldStatus.st_ino;
}

bool Replacement::OpenDirectory()
{
    const fs::path directory = m_target.has_parent_path() ? m_target.parent_path() : fs::path(".");
    m_directory = Descriptor(Restarted([&] { return open(directory.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC); }));
    return m_directory.IsOpen() || RefuseBySystem(m_failure);
}

bool Replacement::CreateTemporary()
{
    // A new file gets what the process gives new files; one that replaces another is private
    // until it has the other's rights.
    const mode_t rights = m_old.IsOpen() ? 0600 : 0666;
    for (int i = 0; i < kNameAttempts; ++i) {
        const fs::path name = TemporaryName(m_target.parent_path());
        m_file = Descriptor(Restarted(
            [&] { return open(name.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, rights); }));
        if (m_file.IsOpen()) {
            m_temporary = name;
            return true;
        }
        if (errno != EEXIST) {
            break;
        }
    }
    return RefuseBySystem(m_failure);
}

bool Replacement::KeepOwnerAndRights()
{
    if (!m_old.IsOpen()) {
        return true;
    }
    struct stat status = {};
    if (fstat(m_file.Get(), &status) != 0) {
        return RefuseBySystem(m_failure);
    }
    if (status.st_uid != m_oldStatus.st_uid || status.st_gid != m_oldStatus.st_gid) {
        // Only the superuser may give a file away; for others the file becomes the writer's.
        [[maybe_unused]] const int ignored = fchown(m_file.Get(), m_oldStatus.st_uid, m_oldStatus.st_gid);
    }
    return fchmod(m_file.Get(), m_oldStatus.st_mode & kRights) == 0 || RefuseBySystem(m_failure);
}

bool Replacement::Write(std::string_view contents)
{
    while (!contents.empty()) {
        const ssize_t written = Restarted([&] { return write(m_file.Get(), contents.data(), contents.size()); });
        if (written <= 0) {
            return RefuseBySystem(m_failure);
        }
        contents.remove_prefix(static_cast<std::size_t>(written));
    }
    return Restarted([this] { return fsync(m_file.Get()); }) == 0 || RefuseBySystem(m_failure);
}

bool Replacement::Rename()
{
    if (rename(m_temporary.c_str(), m_target.c_str()) != 0) {
        return RefuseBySystem(m_failure);
    }
    m_temporary.clear();
    return true;
}

bool Replacement::FlushDirectory()
{
    // EINVAL: a file system that keeps no directories on a disk.
    return Restarted([this] { return fsync(m_directory.Get()); }) == 0 || errno == EINVAL || RefuseBySystem(m_failure);
}

} // namespace

bool ReplaceContents(const CString& path, std::string_view contents, bool exclusive, FileFailure& failure)
{
    Replacement replacement(path, failure);
    return replacement.FollowLinks() && replacement.TakeOldFile(exclusive) && replacement.OpenDirectory() &&
           replacement.CreateTemporary() && replacement.KeepOwnerAndRights() && replacement.Write(contents) &&
           replacement.Rename() && replacement.FlushDirectory();
}

} // namespace platform
