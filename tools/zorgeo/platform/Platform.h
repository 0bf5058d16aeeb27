#pragma once

#include <cstddef>
#include <filesystem>
#include <string>
#include <vector>

/// What the tool needs of the platform beyond the standard library. Paths come as
/// std::filesystem::path; `errno` values come back as results, 0 for success.
namespace host {

constexpr int kStdin = 0;
constexpr int kStdout = 1;
constexpr int kStderr = 2;

/// To be called first. A closed pipe becomes an error of the write instead of the end of the
/// process, and a standard stream that the caller closed is held by the null device, so that no
/// file that is opened later takes its number.
void PrepareProcess();
/// Whether standard output was open when the process began.
bool StandardOutputIsOpen();
/// The arguments behind the program's name, as UTF-8.
std::vector<std::string> Utf8Arguments(int argc, char** argv);
/// The directory of the running program, empty when it cannot be told.
std::filesystem::path ExecutableDirectory();
std::filesystem::path PathOf(const std::string& utf8);
std::string Utf8Of(const std::filesystem::path& path);

/// Loads a shared library for the rest of the process. Null with `error` set when that fails.
void* OpenLibrary(const std::filesystem::path& file, std::string& error);
void* FindSymbol(void* library, const char* name);

bool IsTerminal(int file);
bool IsRegularFile(int file);
/// Files as descriptors, in binary mode. -1 with errno set on failure.
int OpenForReading(const std::filesystem::path& file);
/// Opens an existing device or pipe for writing.
int OpenForWriting(const std::filesystem::path& file);
/// Creates a file that does not exist yet.
int CreateNewFile(const std::filesystem::path& file);
/// Opens a lock file, made when it is missing, and takes its lock, which Close and the end of the
/// process give back. -1 with errno set on failure, EWOULDBLOCK while another process holds it.
int OpenLocked(const std::filesystem::path& file);
/// Reads up to `size` bytes; 0 at the end, -1 with errno set on failure.
long long Read(int file, char* buffer, std::size_t size);
int WriteAll(int file, const char* data, std::size_t size) noexcept;
/// Flushes to the disk and closes. The result of the first step that failed.
int SyncAndClose(int file);
void Close(int file);
unsigned long ProcessId();
std::string ErrorText(int error);

/// Removes these files, and directories that are empty by then, in this order, should the process
/// be ended by the user; an empty list takes that back.
void RemoveOnInterrupt(const std::vector<std::filesystem::path>& files);

} // namespace host
