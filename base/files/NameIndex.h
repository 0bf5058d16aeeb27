#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <string_view>
#include <vector>

/// A hash table from names to positions in a list that holds the names. Open addressing; at most
/// half of the slots are taken.
class NameIndex {
public:
    static constexpr std::size_t kNone = static_cast<std::size_t>(-1);

    /// The position of `name`, or kNone. `nameAt(position)` is the name in the list.
    template <typename NameAt>
    std::size_t Find(std::string_view name, const NameAt& nameAt) const
    {
        if (m_slots.empty()) {
            return kNone;
        }
        const std::uint32_t hash = HashOf(name);
        for (std::size_t slot = hash;; ++slot) {
            const Slot& found = m_slots[slot & (m_slots.size() - 1)];
            if (found.count == 0) {
                return kNone;
            }
            if (found.hash == hash && nameAt(found.count - 1) == name) {
                return found.count - 1;
            }
        }
    }

    /// Notes that `name`, which is not there yet, stands at `position`.
    void Add(std::string_view name, std::size_t position)
    {
        if (2 * (m_taken + 1) > m_slots.size()) {
            Resize(m_taken + 1);
        }
        Put({HashOf(name), static_cast<std::uint32_t>(position + 1)});
        ++m_taken;
    }

    void Clear() noexcept
    {
        m_slots.clear();
        m_taken = 0;
    }

private:
    struct Slot {
        std::uint32_t hash = 0;
        std::uint32_t count = 0; // position + 1; 0 is free
    };

    static std::uint32_t HashOf(std::string_view name) noexcept
    {
        return static_cast<std::uint32_t>(std::hash<std::string_view>{}(name));
    }

    void Put(Slot entry) noexcept
    {
        std::size_t slot = entry.hash;
        while (m_slots[slot & (m_slots.size() - 1)].count != 0) {
            ++slot;
        }
        m_slots[slot & (m_slots.size() - 1)] = entry;
    }

    void Resize(std::size_t names)
    {
        std::vector<Slot> old(std::bit_ceil(4 * names));
        old.swap(m_slots);
        for (const Slot& entry : old) {
            if (entry.count != 0) {
                Put(entry);
            }
        }
    }

    std::vector<Slot> m_slots;
    std::size_t m_taken = 0;
};
