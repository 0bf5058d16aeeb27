#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <string_view>

#include "base/text/CString.h"

// What each platform must give the base layer about files: one implementation in posix/, one in
// windows/, and no system header anywhere else. The places of a platform are in Directories.h,
// its message box in MessageBox.h, files as memory in MappedFile.h.

enum class FileErrorCode : int;

namespace platform {

/// What separates the parts of a path where the layer writes one.
#if defined(_WIN32)
constexpr wchar_t kSeparator = L'\\';
#else
constexpr wchar_t kSeparator = L'/';
#endif

/// A path in the form in which the system takes it, and back. Neither reads the locale.
std::filesystem::path NativePath(const CString& path);
CString TextOf(const std::filesystem::path& path);

/// Why an operation on a file failed.
struct FileFailure {
    FileErrorCode code{};
    CString reason;
};

/// What changes when a file is replaced or written. Times are nanoseconds since 1970 (UTC).
struct FileIdentity {
    std::uint64_t device = 0;
    std::uint64_t number = 0; ///< the inode
    std::uint64_t size = 0;
    std::int64_t written = 0; ///< last change of the contents
    std::int64_t changed = 0; ///< last change of contents or attributes

    friend bool operator==(const FileIdentity&, const FileIdentity&) = default;
};

/// A regular file open for reading. Every operation is false, with the reason told and nothing
/// else touched, when the system refuses it.
class InputFile {
public:
    InputFile() = default;
    ~InputFile();
    InputFile(const InputFile&) = delete;
    InputFile& operator=(const InputFile&) = delete;

    /// With `denyWrite` a process that holds the file for exclusive writing is waited for, for a
    /// quarter of a second, and refused (inUse) when it stays; then no process can take the file
    /// for that until this object is destroyed.
    bool Open(const CString& path, bool denyWrite, FileFailure& failure);
    bool Identify(FileIdentity& identity, FileFailure& failure) const;
    /// Reads up to `capacity` bytes that begin at `offset`; `count` is 0 at the file's end.
    bool ReadAt(std::uint64_t offset, char* buffer, std::size_t capacity, std::size_t& count,
                FileFailure& failure) const;

private:
    friend class MappedFile;
    std::intptr_t m_handle = -1;
};

/// Gives file `path` these contents, and creates it when it is missing: written to a temporary
/// file in the same directory, flushed to the disk and renamed over the old one. After a crash at
/// any moment the old or the new contents stand whole. The old file's permissions stay, and so
/// does a symbolic link, whose target gets the contents.
/// With `exclusive` the old file is held for exclusive writing meanwhile.
/// False, with the old file untouched and no temporary left, when the file is read-only, is held
/// by another process, or cannot be written for any other reason. One exception: when only the
/// flush of the directory fails, which comes last, the new contents stand and may be lost with
/// the power.
bool ReplaceContents(const CString& path, std::string_view contents, bool exclusive, FileFailure& failure);

/// Makes an empty file `path`, or the target of a symbolic link there. A missing file is made so
/// that only one process can be the one that makes it, and an empty one stays. Contents are never
/// given up: with `setAside` they get the first free name of base/files/OldName.h in the same
/// directory; without it the result is false (inUse).
/// False, with the old file untouched under its name alone, as ReplaceContents, and inUse without
/// waiting while another process holds the file.
bool CreateEmpty(const CString& path, bool setAside, FileFailure& failure);

} // namespace platform
