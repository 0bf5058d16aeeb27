#include "platform/Platform.h"

#include <cerrno>
#include <system_error>

#define WIN32_LEAN_AND_MEAN
#include <windows.h>

#include <fcntl.h>
#include <io.h>
#include <process.h>
#include <shellapi.h>
#include <sys/stat.h>

namespace host {

namespace {
bool stdoutWasOpen = true;
}

void PrepareProcess()
{
    SetConsoleOutputCP(CP_UTF8);
    for (const int file : {kStdin, kStdout, kStderr}) {
        if (_get_osfhandle(file) < 0) {
            stdoutWasOpen = stdoutWasOpen && file != kStdout;
        } else {
            _setmode(file, _O_BINARY);
        }
    }
}

bool StandardOutputIsOpen()
{
    return stdoutWasOpen;
}

std::vector<std::string> Utf8Arguments(int, char**)
{
    std::vector<std::string> arguments;
    int count = 0;
    wchar_t** const wide = CommandLineToArgvW(GetCommandLineW(), &count);
    for (int i = 1; wide != nullptr && i < count; ++i) {
        arguments.push_back(Utf8Of(wide[i]));
    }
    LocalFree(wide);
    return arguments;
}

std::filesystem::path ExecutableDirectory()
{
    std::wstring name(32768, L'\0');
    name.resize(GetModuleFileNameW(nullptr, name.data(), static_cast<DWORD>(name.size())));
    return std::filesystem::path(name).parent_path();
}

std::filesystem::path PathOf(const std::string& utf8)
{
    return std::filesystem::path(std::u8string(utf8.begin(), utf8.end()));
}

std::string Utf8Of(const std::filesystem::path& path)
{
    const std::u8string text = path.u8string();
    return std::string(text.begin(), text.end());
}

void* OpenLibrary(const std::filesystem::path& file, std::string& error)
{
    const HMODULE library = LoadLibraryExW(file.c_str(), nullptr, LOAD_WITH_ALTERED_SEARCH_PATH);
    if (library == nullptr) {
        error = std::system_category().message(static_cast<int>(GetLastError()));
    }
    return library;
}

void* FindSymbol(void* library, const char* name)
{
    return reinterpret_cast<void*>(GetProcAddress(static_cast<HMODULE>(library), name));
}

bool IsTerminal(int file)
{
    return _isatty(file) != 0;
}

bool IsRegularFile(int file)
{
    struct _stat64 status = {};
    return _fstat64(file, &status) == 0 && (status.st_mode & _S_IFMT) == _S_IFREG;
}

int OpenForReading(const std::filesystem::path& file)
{
    return _wopen(file.c_str(), _O_RDONLY | _O_BINARY);
}
int OpenForWriting(const std::filesystem::path& file)
{
    return _wopen(file.c_str(), _O_WRONLY | _O_BINARY);
}

int CreateNewFile(const std::filesystem::path& file)
{
    return _wopen(file.c_str(), _O_WRONLY | _O_CREAT | _O_EXCL | _O_BINARY, _S_IREAD | _S_IWRITE);
}

int OpenLocked(const std::filesystem::path& file)
{
    const int lock = _wopen(file.c_str(), _O_RDWR | _O_CREAT | _O_BINARY | _O_NOINHERIT, _S_IREAD | _S_IWRITE);
    if (lock < 0) {
        return -1;
    }
    OVERLAPPED start{};
    const auto handle = reinterpret_cast<HANDLE>(_get_osfhandle(lock));
    if (LockFileEx(handle, LOCKFILE_EXCLUSIVE_LOCK | LOCKFILE_FAIL_IMMEDIATELY, 0, 1, 0, &start) == 0 &&
        GetLastError() == ERROR_LOCK_VIOLATION) {
        _close(lock);
        errno = EWOULDBLOCK;
        return -1;
    }
    return lock;
}

long long Read(int file, char* buffer, std::size_t size)
{
    return _read(file, buffer, static_cast<unsigned>(size));
}

int WriteAll(int file, const char* data, std::size_t size) noexcept
{
    constexpr std::size_t kLargest = 1U << 20; // a console refuses larger writes
    while (size > 0) {
        const int count = _write(file, data, static_cast<unsigned>(size < kLargest ? size : kLargest));
        if (count < 0) {
            return errno;
        }
        data += count;
        size -= static_cast<std::size_t>(count);
    }
    return 0;
}

int SyncAndClose(int file)
{
    const int error = _commit(file) == 0 ? 0 : errno;
    if (_close(file) != 0 && error == 0) {
        return errno;
    }
    return error;
}

void Close(int file)
{
    _close(file);
}
unsigned long ProcessId()
{
    return static_cast<unsigned long>(_getpid());
}
std::string ErrorText(int error)
{
    return std::generic_category().message(error);
}

// An interrupt ends the process at once here; the temporary file is named so that it is known for
// what it is.
void RemoveOnInterrupt(const std::vector<std::filesystem::path>&) {}

} // namespace host
