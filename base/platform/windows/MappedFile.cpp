#include "base/platform/MappedFile.h"

#include <limits>

#include "base/files/FileMode.h"
#include "base/platform/windows/SystemError.h"

#include "base/platform/windows/Handle.h"

namespace platform {

MappedFile::~MappedFile()
{
    Unmap();
}

void MappedFile::Unmap() noexcept
{
    if (m_begin != nullptr) {
        UnmapViewOfFile(m_begin);
    }
    m_begin = nullptr;
    m_size = 0;
}

bool MappedFile::Map(const InputFile& file, FileFailure& failure)
{
    FileIdentity identity;
    if (!file.Identify(identity, failure)) {
        return false;
    }
    if (identity.size > std::numeric_limits<std::size_t>::max()) {
        failure = {FileErrorCode::notReadable, L"it is too large for this process"};
        return false;
    }
    const void* begin = nullptr;
    if (identity.size > 0) {
        const HANDLE mapped = reinterpret_cast<HANDLE>(file.m_handle);
        const HANDLE made = CreateFileMappingW(mapped, nullptr, PAGE_READONLY, 0, 0, nullptr);
        if (made == nullptr) {
            return FailBySystem(FileErrorCode::notReadable, failure);
        }
        const Handle mapping(made); // the view keeps the mapping alive
        begin = MapViewOfFile(made, FILE_MAP_READ, 0, 0, 0);
        if (begin == nullptr) {
            return FailBySystem(FileErrorCode::notReadable, failure);
        }
    }
    Unmap();
    m_begin = static_cast<const unsigned char*>(begin);
    m_size = static_cast<std::size_t>(identity.size);
    return true;
}

} // namespace platform
