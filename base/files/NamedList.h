#pragma once

#include <cstddef>
#include <string_view>
#include <utility>
#include <vector>

#include "base/files/NameIndex.h"

/// Items in order, each with a name of its own that is found by hash. `NameOf(item)` gives the
/// name, which must not change while the item is in the list.
template <typename Item>
class NamedList {
public:
    static constexpr std::size_t kNone = NameIndex::kNone;

    std::size_t Size() const noexcept { return m_items.size(); }
    const Item& operator[](std::size_t position) const noexcept { return m_items[position]; }
    Item& operator[](std::size_t position) noexcept { return m_items[position]; }

    auto begin() const noexcept { return m_items.begin(); }
    auto end() const noexcept { return m_items.end(); }

    /// The item's position, or kNone.
    std::size_t Find(std::string_view name) const
    {
        if (m_items.size() > kIndexed) {
            return m_index.Find(name, [this](std::size_t position) { return NameOf(m_items[position]); });
        }
        for (std::size_t position = 0; position < m_items.size(); ++position) {
            if (NameOf(m_items[position]) == name) {
                return position;
            }
        }
        return kNone;
    }

    /// Puts an item, whose name must be new, at the end.
    void Add(Item item)
    {
        m_items.push_back(std::move(item));
        IndexFrom(m_items.size() - 1 == kIndexed ? 0 : m_items.size() - 1);
    }

    void RemoveAt(std::size_t position)
    {
        m_items.erase(m_items.begin() + static_cast<std::ptrdiff_t>(position));
        m_index.Clear();
        IndexFrom(0);
    }

    void Reserve(std::size_t items) { m_items.reserve(items); }

private:
    // Up to so many names, comparing them one by one is faster than hashing.
    static constexpr std::size_t kIndexed = 12;

    void IndexFrom(std::size_t position)
    {
        for (; m_items.size() > kIndexed && position < m_items.size(); ++position) {
            m_index.Add(NameOf(m_items[position]), position);
        }
    }

    std::vector<Item> m_items;
    NameIndex m_index;
};
