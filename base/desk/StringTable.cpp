#include "base/desk/StringTable.h"

#include <algorithm>
#include <mutex>
#include <string>
#include <vector>

#include "base/platform/StringResources.h"

namespace {

struct LoadedTable {
    const void* module;
    const void* resources;
};

struct LoadedTables {
    std::mutex mutex;
    std::vector<LoadedTable> tables;
};

// Never destroyed: a module may be unloaded after the process's static objects are.
LoadedTables& Loaded()
{
    static auto& loaded = *new LoadedTables;
    return loaded;
}

bool Read(const void* resources, unsigned id, std::wstring& text)
{
    if (platform::IsResourceModule(resources)) {
        return platform::ReadStringResource(resources, id, text);
    }
    for (const auto* entry = static_cast<const StringTableEntry*>(resources); entry->text != nullptr; ++entry) {
        if (entry->id == id) {
            text = entry->text;
            return true;
        }
    }
    return false;
}

bool HasTexts(const void* resources)
{
    return resources != nullptr &&
           (platform::IsResourceModule(resources) || static_cast<const StringTableEntry*>(resources)->text != nullptr);
}

} // namespace

bool ZORSUITE::LoadDLLResourceDLL(const void* module, const void* resources)
{
    if (!HasTexts(resources)) {
        return false;
    }
    LoadedTables& loaded = Loaded();
    const std::lock_guard lock(loaded.mutex);
    loaded.tables.push_back({module, resources});
    return true;
}

void ZORSUITE::UnloadDLLResourceDLL(const void* module)
{
    LoadedTables& loaded = Loaded();
    const std::lock_guard lock(loaded.mutex);
    std::erase_if(loaded.tables, [module](const LoadedTable& table) { return table.module == module; });
}

// Stands here rather than beside the rest of CString, so that base/text needs nothing above it.
bool CString::LoadString(unsigned id)
{
    LoadedTables& loaded = Loaded();
    const std::lock_guard lock(loaded.mutex);
    return std::any_of(loaded.tables.rbegin(), loaded.tables.rend(),
                       [&](const LoadedTable& table) { return Read(table.resources, id, m_text); });
}
