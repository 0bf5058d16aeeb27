#pragma once

#include <cstddef>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <vector>

#include "base/files/CopyOnWrite.h"
#include "base/files/SectionContents.h"
#include "base/platform/Platform.h"

/// A file as it was read or written last: its text and what it holds.
struct ParsedFile {
    platform::FileIdentity identity;
    /// Whether the file had been at rest for so long, when its text was read, that any later
    /// change shows in the identity.
    bool settled = false;
    std::shared_ptr<const std::string> text;
    CopyOnWrite<SectionContents> contents;
};

/// The section files that this process read or wrote last, by full name. Serves several threads.
class ParseCache {
public:
    static ParseCache& Get();

    std::optional<ParsedFile> Find(const CString& name);
    /// Keeps `file` under `name` in place of what stood there. The files that were kept or
    /// found longest ago go when there are more than kFiles or more than kBytes of text.
    void Keep(const CString& name, ParsedFile file) noexcept;

private:
    static constexpr std::size_t kFiles = 16;
    static constexpr std::size_t kBytes = std::size_t{256} << 20;

    struct Entry {
        CString name;
        ParsedFile file;
    };
    void Drop(const CString& name, std::vector<Entry>& dropped);
    std::size_t Bytes() const;

    std::mutex m_mutex;
    std::vector<Entry> m_entries; // the one used last at the end
};
