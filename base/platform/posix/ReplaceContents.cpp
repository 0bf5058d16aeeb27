#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>

#include <cstdio>

#include "base/files/FileMode.h"
#include "base/files/FollowLinks.h"
#include "base/files/OldName.h"
#include "base/files/TemporaryName.h"
#include "base/platform/Platform.h"
#include "base/platform/posix/Descriptor.h"
#include "base/platform/posix/FileLock.h"
#include "base/platform/posix/SystemError.h"

namespace platform {

namespace {

namespace fs = std::filesystem;

constexpr int kNameAttempts = 8;
constexpr mode_t kRights = 07777;

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
        for (const fs::path* added : {&m_temporary, &m_aside}) {
            if (!added->empty()) {
                unlink(added->c_str());
            }
        }
    }
    Replacement(const Replacement&) = delete;
    Replacement& operator=(const Replacement&) = delete;

    bool FollowLinks() { return ::FollowLinks(m_target, m_failure); }
    bool TakeOldFile(bool exclusive, Moment end);
    bool OpenDirectory();
    bool MakeEmpty(bool setAside);
    bool CreateTemporary();
    bool KeepOwnerAndRights();
    bool Write(std::string_view contents);
    bool Rename();
    bool FlushDirectory();

private:
    bool CheckOldFile();
    bool CreateTarget();
    bool ReplaceOldFile(bool setAside);
    bool SetAside();

    fs::path m_target;
    FileFailure& m_failure;
    Descriptor m_old; // closed when the file is new
    struct stat m_oldStatus = {};
    Descriptor m_directory;
    // Names to take away again, empty when there is none.
    fs::path m_temporary;
    fs::path m_aside; // the second one of the old file
    Descriptor m_file;
};

bool Replacement::TakeOldFile(bool exclusive, Moment end)
{
    do {
        m_old = Descriptor(
            Restarted([this] { return open(m_target.c_str(), O_RDWR | O_CLOEXEC | O_NONBLOCK | O_NOCTTY); }));
        if (!m_old.IsOpen()) {
            return errno == ENOENT || RefuseBySystem(m_failure);
        }
        if (!CheckOldFile()) {
            return false;
        }
        if (exclusive && !TakeLock(m_old.Get(), LOCK_EX, end)) {
            m_failure = {FileErrorCode::inUse, L"another process is using it"};
            return false;
        }
    } while (exclusive && !LeadsTo(m_target, m_old.Get()));
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
    if ((m_oldStatus.st_mode & S_IWUSR) == 0) {
        return Refuse(L"the file is read-only", m_failure);
    }
    return true;
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
    m_aside.clear();
    return true;
}

bool Replacement::FlushDirectory()
{
    // EINVAL: a file system that keeps no directories on a disk.
    return Restarted([this] { return fsync(m_directory.Get()); }) == 0 || errno == EINVAL || RefuseBySystem(m_failure);
}

bool Replacement::MakeEmpty(bool setAside)
{
    for (int i = 0; i < kNameAttempts; ++i) {
        if (CreateTarget()) {
            return Write({}) && FlushDirectory();
        }
        if (errno != EEXIST) {
            break;
        }
        if (!TakeOldFile(true, Moment())) {
            return false;
        }
        if (m_old.IsOpen()) { // else it has gone between the two looks
            return ReplaceOldFile(setAside);
        }
    }
    return RefuseBySystem(m_failure);
}

bool Replacement::CreateTarget()
{
    constexpr int flags = O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC;

    m_file = Descriptor(Restarted([this] { return open(m_target.c_str(), flags, 0666); }));
    return m_file.IsOpen();
}

bool Replacement::ReplaceOldFile(bool setAside)
{
    struct stat status = {}; // now that nobody else writes it
    if (fstat(m_old.Get(), &status) != 0) {
        return RefuseBySystem(m_failure);
    }
    if (status.st_size == 0) {
        return true;
    }
    if (!setAside) {
        m_failure = {FileErrorCode::inUse, L"it has contents that could not be read just now"};
        return false;
    }
    return SetAside() && CreateTemporary() && KeepOwnerAndRights() && Write({}) && Rename() && FlushDirectory();
}

bool Replacement::SetAside()
{
    for (int number = 1; number <= kOldNames; ++number) {
        const fs::path name = OldName(m_target, number);
        if (link(m_target.c_str(), name.c_str()) == 0) {
            m_aside = name;
            return true;
        }
        if (errno != EEXIST) {
            return RefuseBySystem(m_failure);
        }
    }
    return Refuse(L"too many older files stand beside it", m_failure);
}

} // namespace

bool ReplaceContents(const CString& path, std::string_view contents, bool exclusive, FileFailure& failure)
{
    Replacement replacement(path, failure);
    return replacement.FollowLinks() && replacement.TakeOldFile(exclusive, EndOfPatience()) &&
           replacement.OpenDirectory() && replacement.CreateTemporary() && replacement.KeepOwnerAndRights() &&
           replacement.Write(contents) && replacement.Rename() && replacement.FlushDirectory();
}

bool CreateEmpty(const CString& path, bool setAside, FileFailure& failure)
{
    Replacement creation(path, failure);
    return creation.FollowLinks() && creation.OpenDirectory() && creation.MakeEmpty(setAside);
}

} // namespace platform
