#include "DatabaseFiles.h"

#include <fmt/format.h>

#include "DatabaseText.h"
#include "ToolError.h"
#include "base/files/CFile.h"

void OpenOrExplain(FileObject& file, const CString& path, const std::string& remedy)
{
    if (file.FileOpen(path, FileMode::openForReading)) {
        return;
    }
    const std::string name = path.ToUtf8();
    std::string reason = file.GetErrorText().ToUtf8();
    if (!CFile::Exists(path)) {
        reason = "no such file";
    } else if (reason.empty()) {
        reason = "it cannot be read";
    }
    // The file's own text names file and line as a rule; both are said in any case.
    std::string place = reason.find(name) == std::string::npos ? name + ": " : std::string();
    if (const int line = file.GetErrorLine(); line > 0 && reason.find(std::to_string(line)) == std::string::npos) {
        place += fmt::format("line {}: ", line);
    }
    throw ToolError(ExitStatus::unusable, fmt::format("{}{}; {}", place, reason, remedy));
}

DatabaseFiles::DatabaseFiles(const CString& dataDirectory, const CString& userDirectory)
{
    const std::string restore = kRestoreDelivered;
    OpenOrExplain(m_main, dataDirectory + kMainDatabaseFile, restore);
    OpenOrExplain(m_catalogue, dataDirectory + kCatalogueFile, restore);
    if (!m_catalogue.HasSection(kCatalogueMethods)) {
        throw ToolError(ExitStatus::unusable,
                        fmt::format("{}: section \"{}\" is missing; {}", m_catalogue.GetFileName().ToUtf8(),
                                    kCatalogueMethods.ToUtf8(), restore));
    }
    // The database object takes an unreadable user file for a missing one and puts an empty file
    // in its place: what the user made would be lost. So it is looked at first.
    const CString user = userDirectory + kUserDatabaseFile;
    if (CFile::Exists(user)) {
        OpenOrExplain(m_user, user, "mend that line, bring a copy back, or name another directory with --user");
    }
}

namespace {

std::vector<const FileObject*> WithSection(const FileObject& first, const FileObject& second, const CString& section)
{
    std::vector<const FileObject*> files;
    for (const FileObject* file : {&first, &second}) {
        if (file->HasSection(section)) {
            files.push_back(file);
        }
    }
    return files;
}

} // namespace

std::vector<const FileObject*> DatabaseFiles::UserFirst(const CString& section) const
{
    return WithSection(m_user, m_main, section);
}

std::vector<const FileObject*> DatabaseFiles::MainFirst(const CString& section) const
{
    return WithSection(m_main, m_user, section);
}
