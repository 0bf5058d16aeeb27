#include <algorithm>

#include "base/files/FileMode.h"
#include "base/platform/Platform.h"
#include "base/platform/windows/SystemError.h"

#include "base/platform/windows/Patience.h"

namespace platform {

namespace {

// The system counts in 100 nanoseconds since 1601.
constexpr std::int64_t kTicksUntil1970 = 116444736000000000;
constexpr std::int64_t kNanosecondsInTick = 100;

std::int64_t Nanoseconds(std::int64_t ticks)
{
    return (ticks - kTicksUntil1970) * kNanosecondsInTick;
}

std::uint64_t Joined(DWORD high, DWORD low)
{
    return (std::uint64_t{high} << 32) | low;
}

HANDLE AsHandle(std::intptr_t number)
{
    return reinterpret_cast<HANDLE>(number);
}

FileErrorCode CodeOf(DWORD error)
{
    switch (error) {
    case ERROR_FILE_NOT_FOUND:
    case ERROR_PATH_NOT_FOUND:
    case ERROR_INVALID_NAME:
        return FileErrorCode::notFound;
    case ERROR_SHARING_VIOLATION:
    case ERROR_LOCK_VIOLATION:
        return FileErrorCode::inUse;
    default:
        return FileErrorCode::notReadable;
    }
}

} // namespace

InputFile::~InputFile()
{
    const Handle closed(AsHandle(m_handle));
}

bool InputFile::Open(const CString& path, bool denyWrite, FileFailure& failure)
{
    // Deletion is shared so that another process can put a new file in the place of this one.
    const DWORD share = FILE_SHARE_READ | FILE_SHARE_DELETE | (denyWrite ? 0U : FILE_SHARE_WRITE);

    const std::filesystem::path native = NativePath(path);
    const DWORD attributes = GetFileAttributesW(native.c_str());
    if (attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0) {
        failure = {FileErrorCode::notReadable, L"it is a directory"};
        return false;
    }
    Handle file;
    const auto open = [&] {
        file = Handle(
            CreateFileW(native.c_str(), GENERIC_READ, share, nullptr, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr));
        return file.IsOpen();
    };
    if (!Patiently(open, IsHeldByAnother)) {
        return FailBySystem(CodeOf(GetLastError()), failure);
    }
    if (GetFileType(file.Get()) != FILE_TYPE_DISK) {
        failure = {FileErrorCode::notReadable, L"it is no regular file"};
        return false;
    }
    const Handle previous(AsHandle(m_handle));
    m_handle = reinterpret_cast<std::intptr_t>(file.Release());
    return true;
}

bool InputFile::Identify(FileIdentity& identity, FileFailure& failure) const
{
    BY_HANDLE_FILE_INFORMATION file = {};
    FILE_BASIC_INFO times = {};
    if (!GetFileInformationByHandle(AsHandle(m_handle), &file) ||
        !GetFileInformationByHandleEx(AsHandle(m_handle), FileBasicInfo, &times, sizeof times)) {
        return FailBySystem(FileErrorCode::notReadable, failure);
    }
    identity.device = file.dwVolumeSerialNumber;
    identity.number = Joined(file.nFileIndexHigh, file.nFileIndexLow);
    identity.size = Joined(file.nFileSizeHigh, file.nFileSizeLow);
    identity.written = Nanoseconds(times.LastWriteTime.QuadPart);
    identity.changed = Nanoseconds(times.ChangeTime.QuadPart);
    return true;
}

bool InputFile::ReadAt(std::uint64_t offset, char* buffer, std::size_t capacity, std::size_t& count,
                       FileFailure& failure) const
{
    constexpr std::size_t most = std::size_t{1} << 30;

    OVERLAPPED place = {};
    place.Offset = static_cast<DWORD>(offset);
    place.OffsetHigh = static_cast<DWORD>(offset >> 32);
    DWORD got = 0;
    if (!ReadFile(AsHandle(m_handle), buffer, static_cast<DWORD>(std::min(capacity, most)), &got, &place) &&
        GetLastError() != ERROR_HANDLE_EOF) {
        return FailBySystem(FileErrorCode::notReadable, failure);
    }
    count = got;
    return true;
}

} // namespace platform
