#include <algorithm>

#include "base/files/FileMode.h"
#include "base/files/FollowLinks.h"
#include "base/files/OldName.h"
#include "base/files/TemporaryName.h"
#include "base/platform/Platform.h"
#include "base/platform/windows/SystemError.h"

#include "base/platform/windows/Patience.h"

namespace platform {

namespace {

namespace fs = std::filesystem;

constexpr int kNameAttempts = 8;

bool Refuse(const wchar_t* reason, FileFailure& failure)
{
    failure = {FileErrorCode::notWritable, reason};
    return false;
}

bool IsTaken(DWORD error)
{
    return error == ERROR_FILE_EXISTS || error == ERROR_ALREADY_EXISTS;
}

bool RefuseBySystem(FileFailure& failure)
{
    return FailBySystem(IsHeldByAnother(GetLastError()) ? FileErrorCode::inUse : FileErrorCode::notWritable, failure);
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
        if (!m_aside.empty()) {
            MoveFileExW(m_aside.c_str(), m_target.c_str(), MOVEFILE_WRITE_THROUGH);
        }
    }
    Replacement(const Replacement&) = delete;
    Replacement& operator=(const Replacement&) = delete;

    bool FollowLinks() { return ::FollowLinks(m_target, m_failure); }
    bool TakeOldFile(bool exclusive, ULONGLONG patience);
    bool CreateTemporary();
    bool Write(std::string_view contents);
    bool Rename();
    bool MakeEmpty(bool setAside);

private:
    bool CreateTarget();
    bool ReplaceOldFile(bool setAside);
    bool SetAside();

    fs::path m_target;
    FileFailure& m_failure;
    DWORD m_attributes = FILE_ATTRIBUTE_NORMAL;
    bool m_isNew = true;
    Handle m_old;
    fs::path m_temporary; // empty when there is none
    fs::path m_aside;     // where the old file stands until the new one is there
    Handle m_file;
};

bool Replacement::TakeOldFile(bool exclusive, ULONGLONG patience)
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
    return Patiently(take, IsHeldByAnother, patience) || RefuseBySystem(m_failure);
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

bool Replacement::MakeEmpty(bool setAside)
{
    for (int i = 0; i < kNameAttempts; ++i) {
        if (CreateTarget()) {
            return Write({});
        }
        if (!IsTaken(GetLastError())) {
            break;
        }
        if (!TakeOldFile(true, 0)) {
            return false;
        }
        if (!m_isNew) { // else it has gone between the two looks
            return ReplaceOldFile(setAside);
        }
    }
    return RefuseBySystem(m_failure);
}

bool Replacement::CreateTarget()
{
    m_file = Handle(CreateFileW(m_target.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_NEW, m_attributes, nullptr));
    return m_file.IsOpen();
}

bool Replacement::ReplaceOldFile(bool setAside)
{
    LARGE_INTEGER size = {};
    if (!GetFileSizeEx(m_old.Get(), &size)) {
        return RefuseBySystem(m_failure);
    }
    if (size.QuadPart == 0) {
        return true;
    }
    if (!setAside) {
        m_failure = {FileErrorCode::inUse, L"it has contents that could not be read just now"};
        return false;
    }
    m_old.Close(); // a file that is held cannot be renamed
    if (!SetAside()) {
        return false;
    }
    if (!CreateTarget()) {
        return RefuseBySystem(m_failure);
    }
    m_aside.clear();
    return Write({});
}

bool Replacement::SetAside()
{
    for (int number = 1; number <= kOldNames; ++number) {
        const fs::path name = OldName(m_target, number);
        if (MoveFileExW(m_target.c_str(), name.c_str(), MOVEFILE_WRITE_THROUGH)) {
            m_aside = name;
            return true;
        }
        if (!IsTaken(GetLastError())) {
            return RefuseBySystem(m_failure);
        }
    }
    return Refuse(L"too many older files stand beside it", m_failure);
}

} // namespace

bool ReplaceContents(const CString& path, std::string_view contents, bool exclusive, FileFailure& failure)
{
    Replacement replacement(path, failure);
    return replacement.FollowLinks() && replacement.TakeOldFile(exclusive, kPatience) &&
           replacement.CreateTemporary() && replacement.Write(contents) && replacement.Rename();
}

bool CreateEmpty(const CString& path, bool setAside, FileFailure& failure)
{
    Replacement creation(path, failure);
    return creation.FollowLinks() && creation.MakeEmpty(setAside);
}

} // namespace platform
