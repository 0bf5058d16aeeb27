#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>

#include "base/files/FileMode.h"
#include "base/platform/Platform.h"
#include "base/platform/posix/Descriptor.h"
#include "base/platform/posix/FileLock.h"
#include "base/platform/posix/SystemError.h"

namespace platform {

namespace {

std::int64_t Nanoseconds(const timespec& time)
{
    return std::int64_t{time.tv_sec} * 1'000'000'000 + time.tv_nsec;
}

bool IsMissing(int error)
{
    return error == ENOENT || error == ENOTDIR;
}

bool RequireRegularFile(int file, FileFailure& failure)
{
    struct stat status = {};
    if (fstat(file, &status) != 0) {
        return FailBySystem(FileErrorCode::notReadable, failure);
    }
    if (S_ISDIR(status.st_mode)) {
        failure = {FileErrorCode::notReadable, L"it is a directory"};
    } else if (!S_ISREG(status.st_mode)) {
        failure = {FileErrorCode::notReadable, L"it is no regular file"};
    }
    return S_ISREG(status.st_mode);
}

bool OpenRegularFile(const std::filesystem::path& path, Descriptor& file, FileFailure& failure)
{
    // Without O_NONBLOCK a pipe would hold the caller until somebody writes into it.
    constexpr int flags = O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY;

    file = Descriptor(Restarted([&] { return open(path.c_str(), flags); }));
    if (!file.IsOpen()) {
        return FailBySystem(IsMissing(errno) ? FileErrorCode::notFound : FileErrorCode::notReadable, failure);
    }
    return RequireRegularFile(file.Get(), failure);
}

} // namespace

InputFile::~InputFile()
{
    const Descriptor closed(static_cast<int>(m_handle));
}

bool InputFile::Open(const CString& path, bool denyWrite, FileFailure& failure)
{
    const std::filesystem::path native = NativePath(path);
    const Moment end = EndOfPatience();
    Descriptor file;
    do {
        if (!OpenRegularFile(native, file, failure)) {
            return false;
        }
        if (denyWrite && !TakeLock(file.Get(), LOCK_SH, end)) {
            failure = {FileErrorCode::inUse, L"another process is writing it"};
            return false;
        }
        // When others save all the time, what stood there a moment ago is whole as well.
    } while (denyWrite && !LeadsTo(native, file.Get()) && std::chrono::steady_clock::now() < end);
    const Descriptor previous(static_cast<int>(m_handle));
    m_handle = file.Release();
    return true;
}

bool InputFile::Identify(FileIdentity& identity, FileFailure& failure) const
{
    struct stat status = {};
    if (fstat(static_cast<int>(m_handle), &status) != 0) {
        return FailBySystem(FileErrorCode::notReadable, failure);
    }
    identity.device = status.st_dev;
    identity.number = status.st_ino;
    identity.size = static_cast<std::uint64_t>(status.st_size);
    identity.written = Nanoseconds(status.st_mtim);
    identity.changed = Nanoseconds(status.st_ctim);
    return true;
}

bool InputFile::ReadAt(std::uint64_t offset, char* buffer, std::size_t capacity, std::size_t& count,
                       FileFailure& failure) const
{
    const ssize_t got =
        Restarted([&] { return pread(static_cast<int>(m_handle), buffer, capacity, static_cast<off_t>(offset)); });
    if (got < 0) {
        return FailBySystem(FileErrorCode::notReadable, failure);
    }
    count = static_cast<std::size_t>(got);
    return true;
}

} // namespace platform
