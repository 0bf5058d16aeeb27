#pragma once

#include <cstddef>
#include <cstdint>
#include <limits>
#include <string_view>
#include <utility>

/// Longest text that a section file may hold, and largest size of one, in bytes.
constexpr std::size_t kMaxSectionFile = std::size_t{1} << 30;
static_assert(kMaxSectionFile <= std::numeric_limits<std::uint32_t>::max());

/// A UTF-8 text of a section file: a view into the file's bytes, or a text of its own that came
/// later. Not longer than kMaxSectionFile.
class StoredText {
public:
    StoredText() noexcept = default;
    /// Text that lies in memory which outlives this object.
    static StoredText In(std::string_view text) noexcept
    {
        return {text.data(), static_cast<std::uint32_t>(text.size()), false};
    }
    static StoredText CopyOf(std::string_view text)
    {
        char* own = new char[text.size() + 1];
        text.copy(own, text.size());
        return {own, static_cast<std::uint32_t>(text.size()), true};
    }

    StoredText(const StoredText& other) : StoredText(other.m_owned ? CopyOf(other.Get()) : In(other.Get())) {}
    StoredText(StoredText&& other) noexcept { Swap(other); }
    StoredText& operator=(StoredText other) noexcept
    {
        Swap(other);
        return *this;
    }
    ~StoredText()
    {
        if (m_owned) {
            delete[] m_data;
        }
    }

    std::string_view Get() const noexcept { return {m_data, m_size}; }

private:
    StoredText(const char* data, std::uint32_t size, bool owned) noexcept : m_data(data), m_size(size), m_owned(owned)
    {
    }
    void Swap(StoredText& other) noexcept
    {
        std::swap(m_data, other.m_data);
        std::swap(m_size, other.m_size);
        std::swap(m_owned, other.m_owned);
    }

    const char* m_data = nullptr;
    std::uint32_t m_size = 0;
    bool m_owned = false;
};
