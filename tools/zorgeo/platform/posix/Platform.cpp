#include "platform/Platform.h"

#include <array>
#include <cerrno>
#include <csignal>
#include <cstring>
#include <system_error>

#include <dlfcn.h>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace host {

namespace {

bool stdoutWasOpen = true;
// Read by the signal handler: fixed storage, complete before the handler can see it.
// The names behind each other, each with its zero; an empty one ends them.
std::array<char, 16384> filesToRemove{};

void RemoveAndDie(int signal)
{
    for (const char* name = filesToRemove.data(); *name != '\0'; name += std::strlen(name) + 1) {
        if (::unlink(name) != 0) {
            ::rmdir(name);
        }
    }
    std::signal(signal, SIG_DFL);
    ::raise(signal);
}

} // namespace

void PrepareProcess()
{
    std::signal(SIGPIPE, SIG_IGN);
    for (const int file : {kStdin, kStdout, kStderr}) {
        if (::fcntl(file, F_GETFD) == -1) {
            stdoutWasOpen = stdoutWasOpen && file != kStdout;
            // The lowest free number is taken, which is `file`.
            [[maybe_unused]] const int held = ::open("/dev/null", file == kStdin ? O_RDONLY : O_WRONLY);
        }
    }
}

bool StandardOutputIsOpen()
{
    return stdoutWasOpen;
}

std::vector<std::string> Utf8Arguments(int argc, char** argv)
{
    return argc > 1 ? std::vector<std::string>(argv + 1, argv + argc) : std::vector<std::string>();
}

std::filesystem::path ExecutableDirectory()
{
    std::error_code error;
    const auto program = std::filesystem::read_symlink("/proc/self/exe", error);
    return error ? std::filesystem::path() : program.parent_path();
}

std::filesystem::path PathOf(const std::string& utf8)
{
    return utf8;
}
std::string Utf8Of(const std::filesystem::path& path)
{
    return path.string();
}

void* OpenLibrary(const std::filesystem::path& file, std::string& error)
{
    void* const library = ::dlopen(file.c_str(), RTLD_NOW | RTLD_LOCAL);
    if (library == nullptr) {
        error = ::dlerror();
    }
    return library;
}

void* FindSymbol(void* library, const char* name)
{
    return ::dlsym(library, name);
}

bool IsTerminal(int file)
{
    return ::isatty(file) == 1;
}

bool IsRegularFile(int file)
{
    struct stat status = {};
    return ::fstat(file, &status) == 0 && S_ISREG(status.st_mode);
}

int OpenForReading(const std::filesystem::path& file)
{
    return ::open(file.c_str(), O_RDONLY | O_CLOEXEC);
}
int OpenForWriting(const std::filesystem::path& file)
{
    return ::open(file.c_str(), O_WRONLY | O_CLOEXEC);
}

int CreateNewFile(const std::filesystem::path& file)
{
    return ::open(file.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
}

int OpenLocked(const std::filesystem::path& file)
{
    const int lock = ::open(file.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0666);
    // A file system without locks answers with another error, and has nobody who could hold one.
    if (lock >= 0 && ::flock(lock, LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK) {
        ::close(lock);
        errno = EWOULDBLOCK;
        return -1;
    }
    return lock;
}

long long Read(int file, char* buffer, std::size_t size)
{
    ssize_t count = -1;
    do {
        count = ::read(file, buffer, size);
    } while (count == -1 && errno == EINTR);
    return count;
}

int WriteAll(int file, const char* data, std::size_t size) noexcept
{
    while (size > 0) {
        const ssize_t count = ::write(file, data, size);
        if (count == -1) {
            if (errno == EINTR) {
                continue;
            }
            return errno;
        }
        data += count;
        size -= static_cast<std::size_t>(count);
    }
    return 0;
}

int SyncAndClose(int file)
{
    const int error = ::fsync(file) == 0 ? 0 : errno;
    if (::close(file) != 0 && error == 0) {
        return errno;
    }
    return error;
}

void Close(int file)
{
    ::close(file);
}
unsigned long ProcessId()
{
    return static_cast<unsigned long>(::getpid());
}
std::string ErrorText(int error)
{
    return std::generic_category().message(error);
}

void RemoveOnInterrupt(const std::vector<std::filesystem::path>& files)
{
    for (const int signal : {SIGINT, SIGTERM, SIGHUP}) {
        std::signal(signal, SIG_DFL);
    }
    filesToRemove.fill('\0');
    std::size_t end = 0;
    for (const std::filesystem::path& file : files) {
        const std::string& name = file.native();
        if (end + name.size() + 2 > filesToRemove.size()) {
            break;
        }
        std::memcpy(filesToRemove.data() + end, name.c_str(), name.size() + 1);
        end += name.size() + 1;
    }
    if (end > 0) {
        for (const int signal : {SIGINT, SIGTERM, SIGHUP}) {
            std::signal(signal, RemoveAndDie);
        }
    }
}

} // namespace host
