#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "base/files/CopyOnWrite.h"
#include "base/files/NamedList.h"
#include "base/files/StoredText.h"

/// A key and its value.
struct SectionEntry {
    StoredText key;
    StoredText value;
};

inline std::string_view NameOf(const SectionEntry& entry) noexcept
{
    return entry.key.Get();
}

/// One section: its name and its entries in order.
struct Section {
    StoredText name;
    NamedList<SectionEntry> entries;
};

inline std::string_view NameOf(const CopyOnWrite<Section>& section) noexcept
{
    return section->name.Get();
}

/// What a section file holds. A copy shares the sections until one of the two changes them.
class SectionContents {
public:
    SectionContents() = default;
    /// Contents whose texts may lie in `text`.
    explicit SectionContents(std::shared_ptr<const std::string> text);

    static constexpr std::size_t kNone = NameIndex::kNone;

    std::size_t SectionCount() const noexcept;
    const Section& At(std::size_t section) const noexcept;
    /// The section's position, or kNone.
    std::size_t Find(std::string_view section) const;
    /// The value of a key of section number `section`, or null.
    const StoredText* FindIn(std::size_t section, std::string_view key) const;

    /// Puts a section at the end. Its name must be new.
    void Add(Section section);
    /// Sets a value; creates the section and the key when they are missing.
    void Set(std::string_view section, std::string_view key, std::string_view value);
    void Remove(std::size_t section);
    /// Removes a key, which must be there.
    void Remove(std::size_t section, std::string_view key);

private:
    std::shared_ptr<const std::string> m_text;
    NamedList<CopyOnWrite<Section>> m_sections;
};
