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

/// Makes the texts of a module reachable by number (CString::LoadString). `resources` is either
/// a table that ends with an entry of null text, or, on Windows, the handle of the module whose
/// string resources the texts are; `module` names the owner for UnloadDLLResourceDLL. What
/// `resources` points to is not copied: it must stay until then. A later table answers before an
/// earlier one. False, with nothing changed, when there is nothing to load.
ZORBASE_API bool LoadDLLResourceDLL(const void* module, const void* resources);
/// Takes the tables of `module` out again, when it is unloaded. Without any it does nothing.
ZORBASE_API void UnloadDLLResourceDLL(const void* module);

} // namespace ZORSUITE
