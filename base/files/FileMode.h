#pragma once

/// The bits of the mode argument of FileObject::FileOpen and FileSave, those of the framework's
/// file class.
namespace FileMode {

constexpr unsigned read = 0;
constexpr unsigned write = 1;
constexpr unsigned shareExclusive = 16;
constexpr unsigned shareDenyWrite = 32;
constexpr unsigned create = 4096;

constexpr unsigned openForReading = read | shareDenyWrite;          // 32
constexpr unsigned createNew = create | write;                      // 4097
constexpr unsigned saveExclusive = create | shareExclusive | write; // 4113

} // namespace FileMode

/// What FileObject::GetErrorStatus gives.
enum class FileErrorCode : int {
    none = 0,
    notFound = 1,
    notReadable = 2,
    inUse = 3,
    malformed = 4,
    notWritable = 5,
    refused = 6, ///< AfterFileOpen refused the contents
};
