#pragma once

#include <cstddef>

#include "base/Export.h"
#include "base/text/CString.h"

/// One text of a module's string table.
struct StringTableEntry {
    unsigned id;
    const wchar_t* text;
};

namespace ZORSUITE {

/// Makes the texts of a module reachable by number (CString::LoadString). On Windows `module`
/// and `resources` are module handles and the texts are its string resources; elsewhere
/// `resources` points to a table that ends with an entry of null text. False when there is
/// nothing to load. A later table answers before an earlier one.
ZORBASE_API bool LoadDLLResourceDLL(const void* module, const void* resources);
/// Takes a table out again, when its module is unloaded.
ZORBASE_API void UnloadDLLResourceDLL(const void* module);

}  // namespace ZORSUITE
