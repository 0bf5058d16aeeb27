#include "base/files/ParseCache.h"

#include <algorithm>
#include <exception>
#include <utility>

ParseCache& ParseCache::Get()
{
    // Never destroyed: a FileObject may outlive the statics of this library.
    static ParseCache& cache = *new ParseCache;
    return cache;
}

std::optional<ParsedFile> ParseCache::Find(const CString& name)
{
    const std::lock_guard lock(m_mutex);
    const auto entry = std::find_if(m_entries.begin(), m_entries.end(), [&](const Entry& e) { return e.name == name; });
    if (entry == m_entries.end()) {
        return std::nullopt;
    }
    std::rotate(entry, entry + 1, m_entries.end());
    return m_entries.back().file;
}

void ParseCache::Keep(const CString& name, ParsedFile file) noexcept
{
    std::vector<Entry> dropped; // destroyed without the lock
    try {
        const std::lock_guard lock(m_mutex);
        Drop(name, dropped);
        m_entries.push_back({name, std::move(file)});
        while (m_entries.size() > kFiles || (m_entries.size() > 1 && Bytes() > kBytes)) {
            Drop(CString(m_entries.front().name), dropped);
        }
    } catch (const std::exception&) {
        // Without memory to keep it in, the file is parsed again; the reading or the saving that
        // it comes from has succeeded.
    }
}

void ParseCache::Drop(const CString& name, std::vector<Entry>& dropped)
{
    const auto entry = std::find_if(m_entries.begin(), m_entries.end(), [&](const Entry& e) { return e.name == name; });
    if (entry != m_entries.end()) {
        dropped.push_back(std::move(*entry));
        m_entries.erase(entry);
    }
}

std::size_t ParseCache::Bytes() const
{
    std::size_t bytes = 0;
    for (const Entry& entry : m_entries) {
        bytes += entry.file.text->size();
    }
    return bytes;
}
