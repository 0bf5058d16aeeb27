#include "project/Workbench.h"

#include <fstream>
#include <sstream>
#include <vector>

#include <fmt/format.h>

#include "DatabaseFiles.h"
#include "DatabaseText.h"
#include "UserDirectory.h"
#include "base/files/CFile.h"
#include "base/files/FileObject.h"
#include "platform/Platform.h"

namespace {

std::string BytesOf(const std::string& file)
{
    std::ifstream stream(host::PathOf(file), std::ios::binary);
    std::ostringstream bytes;
    bytes << stream.rdbuf();
    return bytes.str();
}

[[noreturn]] void FailToWrite(const std::string& file, const std::string& reason)
{
    throw ToolError(ExitStatus::inputOutput, fmt::format("{}: {}", file, reason));
}

/// A new directory that only this user can enter.
std::filesystem::path MakeTemporaryDirectory()
{
    constexpr int kAttempts = 100;
    std::error_code error;
    const std::filesystem::path parent = std::filesystem::temp_directory_path(error);
    for (int i = 0; i < kAttempts && !error; ++i) {
        const auto directory = parent / fmt::format("zorgeo-{}-{}", host::ProcessId(), i);
        if (std::filesystem::create_directory(directory, error)) {
            std::filesystem::permissions(directory, std::filesystem::perms::owner_all, error);
            return directory;
        }
    }
    FailToWrite(host::Utf8Of(parent), "no temporary directory can be made there: " + error.message());
}

void SaveCopy(const FileObject& file, const std::string& path)
{
    if (!file.FileSave(CString::FromUtf8(path), FileMode::saveExclusive)) {
        FailToWrite(path, "no copy to work on can be made: " + file.GetErrorText().ToUtf8());
    }
}

bool IsReadOnly(const CString& file, CFileStatus& status)
{
    return CFile::GetStatus(file, status) && (status.attribute & CFileStatus::readOnly) != 0;
}

/// Puts the contents of `copy` into `original`. The user database may be read-only: like the
/// module, it is written all the same and stays read-only.
void PutInPlace(const std::string& copy, const std::string& original, bool alsoReadOnly)
{
    FileObject contents;
    OpenOrExplain(contents, CString::FromUtf8(copy), "run it again");
    const CString name = CString::FromUtf8(original);
    CFileStatus status;
    const bool guard = IsReadOnly(name, status) && alsoReadOnly;
    try {
        if (guard) {
            status.attribute &= ~CFileStatus::readOnly;
            CFile::SetStatus(name, status);
        }
        const bool saved = contents.FileSave(name, FileMode::saveExclusive);
        if (guard) {
            status.attribute |= CFileStatus::readOnly;
            CFile::SetStatus(name, status);
        }
        if (!saved) {
            FailToWrite(original, "it cannot be written and is as it was: " + contents.GetErrorText().ToUtf8());
        }
    } catch (const CFileException& refused) {
        FailToWrite(original, refused.Reason().ToUtf8());
    }
}

void Replace(std::string& text, const std::string& from, const std::string& to)
{
    for (auto at = text.find(from); at != std::string::npos; at = text.find(from, at + to.size())) {
        text.replace(at, from.size(), to);
    }
}

} // namespace

Workbench::Workbench(const CommonOptions& options, const std::string& project, Use use) : m_options(options)
{
    const CString userDirectory = UserDirectoryOf(options);
    if (use == Use::change) {
        m_lock.emplace(userDirectory);
    }
    m_directory = MakeTemporaryDirectory();
    try {
        CopyDatabase(userDirectory);
        CopyProject(project);
    } catch (...) {
        std::error_code ignored;
        std::filesystem::remove_all(m_directory, ignored);
        throw;
    }
    const auto copy = host::PathOf(m_project.copy);
    const auto user = host::PathOf(m_database.copy);
    host::RemoveOnInterrupt(
        {copy, copy.parent_path(), copy.parent_path().parent_path(), user, user.parent_path(), m_directory});
}

Workbench::~Workbench()
{
    std::error_code ignored;
    std::filesystem::remove_all(m_directory, ignored);
    host::RemoveOnInterrupt({});
}

void Workbench::CopyDatabase(const CString& directory)
{
    const auto user = m_directory / "user";
    std::filesystem::create_directory(user);
    const std::string name = kUserDatabaseFile.ToUtf8();
    m_database.original = directory.ToUtf8() + name;
    m_database.copy = host::Utf8Of(user / name);
    if (CFile::Exists(CString::FromUtf8(m_database.original))) {
        FileObject database;
        m_database.originalBytes = BytesOf(m_database.original);
        OpenOrExplain(database, CString::FromUtf8(m_database.original),
                      "mend that line, bring a copy back, or name another directory with --user");
        SaveCopy(database, m_database.copy);
        m_database.copyBytes = BytesOf(m_database.copy);
    }
    m_options.userDirectory = host::Utf8Of(user);
}

void Workbench::CopyProject(const std::string& project)
{
    FileObject file;
    m_project.original = project;
    m_project.originalBytes = BytesOf(project);
    OpenOrExplain(file, CString::FromUtf8(project), "name the file of a project");
    const auto full = host::PathOf(file.GetFileName().ToUtf8());
    const auto directory = m_directory / "project" / full.parent_path().filename();
    std::filesystem::create_directories(directory);
    m_project.copy = host::Utf8Of(directory / full.filename());
    SaveCopy(file, m_project.copy);
    m_project.copyBytes = BytesOf(m_project.copy);
}

ExitStatus Workbench::Run(const std::function<ExitStatus()>& work) const
{
    try {
        return work();
    } catch (const ToolError& error) {
        throw ToolError(error.Status(), InTermsOfOriginals(error.what()));
    }
}

std::string Workbench::InTermsOfOriginals(std::string text) const
{
    for (const Copied& file : {m_database, m_project}) {
        Replace(text, file.copy, file.original);
    }
    return text;
}

Workbench::Changes Workbench::Look() const
{
    return {BytesOf(m_database.copy) != m_database.copyBytes, BytesOf(m_project.copy) != m_project.copyBytes};
}

Workbench::Changes Workbench::Publish() const
{
    const Changes changes = Look();
    for (const auto& [file, changed] :
         {std::pair(m_database, changes.database), std::pair(m_project, changes.project)}) {
        if (changed && BytesOf(file.original) != file.originalBytes) {
            FailToWrite(file.original, "another program has changed it meanwhile; nothing was written, run it again");
        }
    }
    CFileStatus status;
    if (changes.project && IsReadOnly(CString::FromUtf8(m_project.original), status)) {
        FailToWrite(m_project.original, "the project is read-only; nothing was written");
    }
    if (changes.database) {
        PutInPlace(m_database.copy, m_database.original, true);
    }
    if (changes.project) {
        PutInPlace(m_project.copy, m_project.original, false);
    }
    return changes;
}
