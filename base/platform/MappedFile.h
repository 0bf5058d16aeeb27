#pragma once

#include <cstddef>
#include <span>

#include "base/platform/Platform.h"

namespace platform {

/// The bytes of a file as memory, for reading alone. They stay readable when the InputFile is
/// closed and when the file is renamed, replaced or removed. POSIX lets others cut a mapped file
/// short, and to read behind its new end is then fatal; Windows refuses the cut.
class MappedFile {
public:
    MappedFile() = default;
    ~MappedFile();
    MappedFile(const MappedFile&) = delete;
    MappedFile& operator=(const MappedFile&) = delete;

    /// Maps an open file whole, in place of what was mapped before; an empty file gives no bytes.
    /// False, the object as it was, when the system refuses it.
    bool Map(const InputFile& file, FileFailure& failure);
    std::span<const unsigned char> Bytes() const { return {m_begin, m_size}; }

private:
    void Unmap() noexcept;

    const unsigned char* m_begin = nullptr;
    std::size_t m_size = 0;
};

} // namespace platform
