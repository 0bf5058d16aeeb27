#include "base/files/SectionContents.h"

SectionContents::SectionContents(std::shared_ptr<const std::string> text) : m_text(std::move(text)) {}

std::size_t SectionContents::SectionCount() const noexcept
{
    return m_sections.Size();
}

const Section& SectionContents::At(std::size_t section) const noexcept
{
    return *m_sections[section];
}

std::size_t SectionContents::Find(std::string_view section) const
{
    return m_sections.Find(section);
}

const StoredText* SectionContents::FindIn(std::size_t section, std::string_view key) const
{
    const NamedList<SectionEntry>& entries = At(section).entries;
    const std::size_t entry = entries.Find(key);
    return entry == kNone ? nullptr : &entries[entry].value;
}

void SectionContents::Add(Section section)
{
    m_sections.Add(CopyOnWrite<Section>::Make(std::move(section)));
}

void SectionContents::Set(std::string_view section, std::string_view key, std::string_view value)
{
    std::size_t position = Find(section);
    if (position == kNone) {
        Add({StoredText::CopyOf(section), {}});
        position = m_sections.Size() - 1;
    }
    NamedList<SectionEntry>& entries = m_sections[position].Change().entries;
    const std::size_t entry = entries.Find(key);
    if (entry == kNone) {
        entries.Add({StoredText::CopyOf(key), StoredText::CopyOf(value)});
    } else {
        entries[entry].value = StoredText::CopyOf(value);
    }
}

void SectionContents::Remove(std::size_t section)
{
    m_sections.RemoveAt(section);
}

void SectionContents::Remove(std::size_t section, std::string_view key)
{
    NamedList<SectionEntry>& entries = m_sections[section].Change().entries;
    entries.RemoveAt(entries.Find(key));
}
