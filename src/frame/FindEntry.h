#pragma once

#include "frame/BaseContract.h"

/// Calls `visit(key, value)` for every entry of a section, in the order of the file, until it
/// answers true. False when none did; a section that is missing has no entries. The visit may move
/// the texts away.
template <typename Visit>
bool FindEntry(const FileObject& file, const CString& section, Visit visit)
{
    FobjSection cursor;
    CString key;
    CString value;
    for (bool more = file.GetFirstMapEntry(cursor, section, key, value); more;
         more = file.GetNextMapEntry(cursor, key, value)) {
        if (visit(key, value)) {
            return true;
        }
    }
    return false;
}
