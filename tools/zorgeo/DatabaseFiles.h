#pragma once

#include <vector>

#include "base/files/FileObject.h"
#include "base/text/CString.h"

/// What helps when a delivered file is missing.
inline constexpr const char* kRestoreDelivered =
    "name the directory of the delivered files with --data, or install them again";

/// The database's files as text, read apart from the module, to say what is wrong with them.
/// Only looks: nothing here writes.
class DatabaseFiles {
public:
    /// Opens the main database and the catalogue of `dataDirectory` and, when there is one, the
    /// user database of `userDirectory` (both with their trailing separator). Throws ToolError (3)
    /// naming the file, and the line that is at fault, when one is missing or is no section file.
    DatabaseFiles(const CString& dataDirectory, const CString& userDirectory);

    const FileObject& Main() const { return m_main; }
    const FileObject& User() const { return m_user; }
    const FileObject& Catalogue() const { return m_catalogue; }
    /// The files that have the section: user file first, or main file first.
    std::vector<const FileObject*> UserFirst(const CString& section) const;
    std::vector<const FileObject*> MainFirst(const CString& section) const;

private:
    FileObject m_main;
    FileObject m_user;
    FileObject m_catalogue;
};

/// Opens a section file for reading. Throws ToolError (3) with `remedy` when that fails.
void OpenOrExplain(FileObject& file, const CString& path, const std::string& remedy);
