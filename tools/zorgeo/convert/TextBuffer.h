#pragma once

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <memory>
#include <string_view>

/// Bytes that are put one behind the other and kept from block to block: grows when it must,
/// fills nothing in advance.
class TextBuffer {
public:
    const char* Data() const { return m_bytes.get(); }
    std::size_t Size() const { return m_size; }
    std::string_view View() const { return {m_bytes.get(), m_size}; }
    void Clear() { m_size = 0; }
    void Truncate(std::size_t size) { m_size = std::min(size, m_size); }

    /// Room for `size` more bytes; Advance tells how many of them were written.
    char* Room(std::size_t size)
    {
        if (m_size + size > m_capacity) {
            Grow(m_size + size);
        }
        return m_bytes.get() + m_size;
    }
    void Advance(std::size_t size) { m_size += size; }
    void AdvanceTo(const char* end) { m_size = static_cast<std::size_t>(end - m_bytes.get()); }

    void Append(const char* begin, const char* end)
    {
        const auto size = static_cast<std::size_t>(end - begin);
        if (size > 0) {
            std::memcpy(Room(size), begin, size);
            Advance(size);
        }
    }
    void Append(std::string_view text) { Append(text.data(), text.data() + text.size()); }
    void Append(char c)
    {
        *Room(1) = c;
        Advance(1);
    }

private:
    void Grow(std::size_t least)
    {
        const std::size_t capacity = std::max(least, m_capacity + m_capacity / 2);
        auto bytes = std::make_unique_for_overwrite<char[]>(capacity);
        if (m_size > 0) {
            std::memcpy(bytes.get(), m_bytes.get(), m_size);
        }
        m_bytes = std::move(bytes);
        m_capacity = capacity;
    }

    std::unique_ptr<char[]> m_bytes;
    std::size_t m_size = 0;
    std::size_t m_capacity = 0;
};
