#include "base/files/CFile.h"

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <utility>

#include "base/platform/Platform.h"

namespace fs = std::filesystem;

namespace {

// The read-only attribute is the lack of this one bit: the owner is who cannot write then, and the
// bits of the others are as they were when the attribute has come and gone.
constexpr fs::perms kWriteBit = fs::perms::owner_write;

bool HasZero(const CString& path)
{
    return path.Find(L'\0') >= 0;
}

double MillisecondsSince1970(fs::file_time_type time)
{
    const auto sinceEpoch = fs::file_time_type::clock::to_sys(time).time_since_epoch();
    return std::chrono::duration<double, std::milli>(sinceEpoch).count();
}

// The names of the entries of `directory` for which `wanted` holds, links followed, in order.
template <typename Wanted>
bool List(const CString& directory, std::vector<CString>& names, const Wanted& wanted)
{
    std::error_code error;
    if (HasZero(directory)) {
        return false;
    }
    fs::directory_iterator entry(platform::NativePath(directory), error);
    std::vector<CString> found;
    while (!error && entry != fs::directory_iterator()) {
        std::error_code unreadable; // of this entry alone, such as a link that leads nowhere
        if (wanted(entry->status(unreadable))) {
            found.push_back(platform::TextOf(entry->path().filename()));
        }
        entry.increment(error);
    }
    if (error) {
        return false;
    }
    std::sort(found.begin(), found.end());
    names = std::move(found);
    return true;
}

} // namespace

CFileException::CFileException(CString file, CString reason) : m_file(std::move(file)), m_reason(std::move(reason)) {}

const CString& CFileException::File() const noexcept
{
    return m_file;
}

const CString& CFileException::Reason() const noexcept
{
    return m_reason;
}

bool CFile::GetStatus(const CString& file, CFileStatus& status)
{
    if (file.IsEmpty() || HasZero(file)) {
        return false;
    }
    std::error_code error;
    const fs::path path = platform::NativePath(file);
    const fs::file_status found = fs::status(path, error);
    const auto time = fs::last_write_time(path, error);
    if (error || !fs::exists(found)) {
        return false;
    }
    const fs::path full = fs::absolute(path, error);
    const auto size = fs::is_regular_file(found) ? fs::file_size(path, error) : 0;
    if (error) {
        return false;
    }
    status.fullName = platform::TextOf(full);
    status.size = size;
    status.modified = MillisecondsSince1970(time);
    status.attribute = (found.permissions() & kWriteBit) == fs::perms::none ? CFileStatus::readOnly : 0;
    return true;
}

void CFile::SetStatus(const CString& file, const CFileStatus& status)
{
    CFileStatus present;
    if (!GetStatus(file, present)) {
        throw CFileException(file, L"there is no such file");
    }
    const bool readOnly = (status.attribute & CFileStatus::readOnly) != 0;
    if (readOnly == ((present.attribute & CFileStatus::readOnly) != 0)) {
        return;
    }
    std::error_code error;
    fs::permissions(platform::NativePath(file), kWriteBit, readOnly ? fs::perm_options::remove : fs::perm_options::add,
                    error);
    if (error) {
        throw CFileException(file, readOnly ? L"the read-only attribute cannot be set"
                                            : L"the read-only attribute cannot be cleared");
    }
}

bool CFile::ListDirectories(const CString& directory, std::vector<CString>& names)
{
    return List(directory, names, [](const fs::file_status& status) { return fs::is_directory(status); });
}

bool CFile::ListFiles(const CString& directory, std::vector<CString>& names)
{
    return List(directory, names, [](const fs::file_status& status) { return fs::is_regular_file(status); });
}

bool CFile::Exists(const CString& file)
{
    std::error_code error;
    return !HasZero(file) && fs::exists(platform::NativePath(file), error);
}
