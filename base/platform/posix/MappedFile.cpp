#include "base/platform/MappedFile.h"

#include <sys/mman.h>

#include <limits>

#include "base/files/FileMode.h"
#include "base/platform/posix/SystemError.h"

namespace platform {

MappedFile::~MappedFile()
{
    Unmap();
}

void MappedFile::Unmap() noexcept
{
    if (m_begin != nullptr) {
        munmap(const_cast<unsigned char*>(m_begin), m_size);
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
    const auto size = static_cast<std::size_t>(identity.size);
    void* begin = nullptr;
    if (size > 0) {
        begin = mmap(nullptr, size, PROT_READ, MAP_PRIVATE, static_cast<int>(file.m_handle), 0);
        if (begin == MAP_FAILED) {
            return FailBySystem(FileErrorCode::notReadable, failure);
        }
    }
    Unmap();
    m_begin = static_cast<const unsigned char*>(begin);
    m_size = size;
    return true;
}

} // namespace platform
