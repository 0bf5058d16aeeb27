#pragma once

#include <vector>

#include "base/Export.h"
#include "base/text/CString.h"

/// Status of a file: the framework's record, as far as it is used.
struct CFileStatus {
    static constexpr unsigned readOnly = 0x01;

    CString fullName;
    unsigned long long size = 0;
    double modified = 0.0;  ///< milliseconds since 1970
    unsigned attribute = 0; ///< bit `readOnly`; on POSIX set when the owner may not write
};

/// Raised by CFile::SetStatus.
class ZORBASE_API CFileException {
public:
    CFileException(CString file, CString reason);
    const CString& File() const noexcept;
    const CString& Reason() const noexcept;

private:
    CString m_file;
    CString m_reason;
};

/// File attributes and directories.
class ZORBASE_API CFile {
public:
    /// False, output untouched, when there is no such file.
    static bool GetStatus(const CString& file, CFileStatus& status);
    /// Sets the read-only attribute (on POSIX: takes the owner's write bit away, or gives it
    /// back; the other bits stay). Throws CFileException when that fails.
    static void SetStatus(const CString& file, const CFileStatus& status);
    /// Names of the directories, and of the files, directly in `directory`, in the order of
    /// their names. False when it cannot be listed.
    static bool ListDirectories(const CString& directory, std::vector<CString>& names);
    static bool ListFiles(const CString& directory, std::vector<CString>& names);
    static bool Exists(const CString& file);
};
