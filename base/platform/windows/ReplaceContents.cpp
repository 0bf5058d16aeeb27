#include <algorithm>

#include "base/files/FileMode.h"
#include "base/files/TemporaryName.h"
#include "base/platform/Platform.h"
#include "base/platform/windows/SystemError.h"

#include "base/platform/windows/Handle.h"

namespace platform {

namespace {

namespace fs = std::filesystem;

constexpr int kMaxLinks = 40;
constexpr int kNameAttempts = 8;
// A reader holds the file for the moment of its reading; a writer waits that long for it.
constexpr ULONGLONG kPatience = 250; // milliseconds
constexpr DWORD kPause = 5;          // milliseconds

bool Refuse(const wchar_t* reason, FileFailure& failure)
{
    failure = {FileErrorCode::notWritable, reason};
    return false;
}

bool IsHeldByAnother(DWORD error)
{
    return error == ERROR_SHARING_VIOLATION || error == ERROR_LOCK_VIOLATION;
}

bool RefuseBySystem(FileFailure& failure)
{
    return FailBySystem(IsHeldByAnother(GetLastError()) ? FileErrorCode::inUse : FileErrorCode::notWritable, failure);
}

// Tries again while somebody else holds the file; `attempt` is a call that sets GetLastError.
template <typename Attempt, typename Passing>
bool Patiently(const Attempt& attempt, const Passing& isPassing)
{
    const ULONGLONG end = GetTickCount64() + kPatience;
    while (!attempt()) {
        const DWORD error = GetLastError();
        if (!isPassing(error) || GetTickCount64() >= end) {
            SetLastError(error);
            return false;
        }
        Sleep(kPause);
    }
    return true;
}

/// One replacement of a file's contents. Each step is false, with the reason told, when it
/// fails; what was begun is then cleaned up with the object.
class Replacement {
public:
    Replacement(const CString& path, FileFailure& failure) : m_target(NativePath(path)), m_failure(failure) {}
    ~Replacement()
    {
        m_file.Close();
        if (!m_temporary.empty()) {
            DeleteFileW(m_temporary.c_str());
        }
    }
    Replacement(const Replacement&) = delete;
    Replacement& operator=(const Replacement&) = delete;

    bool FollowLinks();
    bool TakeOldFile(bool exclusive);
    bool CreateTemporary();
    bool Write(std::string_view contents);
    bool Rename();

private:
    fs::path m_target;
    FileFailure& m_failure;
    DWORD m_attributes = FILE_ATTRIBUTE_NORMAL;
    bool m_isNew = true;
    Handle m_old;
    fs::path m_temporary; // empty when there is none
    Handle m_file;
};

// The last part of the path alone: links before it lead to the same directory anyway.
bool Replacement::FollowLinks()
{
    for (int i = 0; i < kMaxLinks; ++i) {
        std::error_code error;
        if (!fs::is_symlink(fs::symlink_status(m_target, error))) {
            return true;
        }
        const fs::path link = fs::read_symlink(m_target, error);
        if (error) {
            return Refuse(L"the symbolic link cannot be followed", m_failure);
        }
        m_target = m_target.parent_path() / link;
    }
    return Refuse(L"too many symbolic links", m_failure);
}

bool Replacement::TakeOldFile(bool exclusive)
{
    const DWORD attributes = GetFileAttributesW(m_target.c_str());
    if (attributes == INVALID_FILE_ATTRIBUTES) {
        return GetLastError() == ERROR_FILE_NOT_FOUND || RefuseBySystem(m_failure);
    }
    if ((attributes & FILE_ATTRIBUTE_DIRECTORY) != 0) {
        return Refuse(L"it is a directory", m_failure);
    }
    if ((attributes & FILE_ATTRIBUTE_READONLY) != 0) {
        return Refuse(L"the file is read-only", m_failure);
    }
    m_attributes = attributes;
    m_isNew = false;
    const DWORD share = exclusive ? 0U : FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
    const auto take = [&] {
        m_old = Handle(CreateFileW(m_target.c_str(), GENERIC_READ | GENERIC_WRITE, share, nullptr, OPEN_EXISTING,
                                   FILE_ATTRIBUTE_NORMAL, nullptr));
        return m_old.IsOpen();
    };
    return Patiently(take, IsHeldByAnother) || RefuseBySystem(m_failure);
}

bool Replacement::CreateTemporary()
{
    for (int i = 0; i < kNameAttempts; ++i) {
        const fs::path name = TemporaryName(m_target.parent_path());
        m_file = Handle(CreateFileW(name.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_NEW, m_attributes, nullptr));
        if (m_file.IsOpen()) {
            m_temporary = name;
            return true;
        }
        if (GetLastError() != ERROR_FILE_EXISTS) {
            break;
        }
    }
    return RefuseBySystem(m_failure);
}

bool Replacement::Write(std::string_view contents)
{
    constexpr std::size_t most = std::size_t{1} << 20;

    while (!contents.empty()) {
        const auto size = static_cast<DWORD>(std::min(contents.size(), most));
        DWORD written = 0;
        if (!WriteFile(m_file.Get(), contents.data(), size, &written, nullptr) || written == 0) {
            return RefuseBySystem(m_failure);
        }
        contents.remove_prefix(written);
    }
    return FlushFileBuffers(m_file.Get()) != 0 || RefuseBySystem(m_failure);
}

// The rename is written through to the disk; directories are not flushed on this platform.
bool Replacement::Rename()
{
    m_file.Close();
    m_old.Close(); // a file that is open cannot be replaced
    const auto rename = [this] {
        return MoveFileExW(m_temporary.c_str(), m_target.c_str(), MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH) !=
               0;
    };
    // A target that is open for reading is told as a denied access.
    const auto isPassing = [this](DWORD error) {
        return IsHeldByAnother(error) || (!m_isNew && error == ERROR_ACCESS_DENIED);
    };
    if (!Patiently(rename, isPassing)) {
        return RefuseBySystem(m_failure);
    }
    m_temporary.clear();
    return true;
}

} // namespace

bool ReplaceContents(const CString& path, std::string_view contents, bool exclusive, FileFailure& failure)
{
    Replacement replacement(path, failure);
    return replacement.FollowLinks() && replacement.TakeOldFile(exclusive) && replacement.CreateTemporary() &&
           replacement.Write(contents) && replacement.Rename();
}

} // namespace platform
