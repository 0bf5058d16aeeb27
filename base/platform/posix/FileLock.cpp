#include "base/platform/posix/FileLock.h"

#include <sys/file.h>
#include <sys/stat.h>

#include <thread>

#include "base/platform/posix/Descriptor.h"

namespace platform {

namespace {

constexpr std::chrono::milliseconds kPatience{250};
constexpr std::chrono::milliseconds kPause{2};

} // namespace

Moment EndOfPatience()
{
    return std::chrono::steady_clock::now() + kPatience;
}

bool TakeLock(int file, int kind, Moment end)
{
    // A file system without locks, which answers with another error, has nobody who could hold one.
    while (Restarted([=] { return flock(file, kind | LOCK_NB); }) != 0 && errno == EWOULDBLOCK) {
        if (std::chrono::steady_clock::now() >= end) {
            return false;
        }
        std::this_thread::sleep_for(kPause);
    }
    return true;
}

bool LeadsTo(const std::filesystem::path& path, int file)
{
    struct stat present = {};
    struct stat opened = {};
    return stat(path.c_str(), &present) == 0 && fstat(file, &opened) == 0 && present.st_dev == opened.st_dev &&
           present.st_ino == opened.st_ino;
}

} // namespace platform
