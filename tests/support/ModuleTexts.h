#pragma once

#include "base/desk/StringTable.h"
#include "resources/StringTable.h"

/// Makes the module's texts reachable by number for its lifetime, as the loaded module does.
class ModuleTexts {
public:
    ModuleTexts() { ZORSUITE::LoadDLLResourceDLL(this, ModuleStringTable()); }
    ~ModuleTexts() { ZORSUITE::UnloadDLLResourceDLL(this); }
    ModuleTexts(const ModuleTexts&) = delete;
    ModuleTexts& operator=(const ModuleTexts&) = delete;
};
