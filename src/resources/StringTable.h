#pragma once

#include "frame/BaseContract.h"

/// The texts of the module by number, in rising order, ended by an entry of null text.
/// (Numbers and texts, trailing blanks included, are part of the interface.)
const StringTableEntry* ModuleStringTable();
