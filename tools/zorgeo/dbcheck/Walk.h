#pragma once

#include "base/files/FileObject.h"

/// Calls `visit(section)` for every section, in file order.
template <typename Visit>
void ForEachSection(const FileObject& file, Visit visit)
{
    FobjSection walk;
    CString section;
    for (bool more = file.GetFirstSectionEntry(walk, section); more; more = file.GetNextSectionEntry(walk, section)) {
        visit(section);
    }
}

/// Calls `visit(key, value)` for every entry of a section, in file order.
template <typename Visit>
void ForEachEntry(const FileObject& file, const CString& section, Visit visit)
{
    FobjSection walk;
    CString key;
    CString value;
    for (bool more = file.GetFirstMapEntry(walk, section, key, value); more;
         more = file.GetNextMapEntry(walk, key, value)) {
        visit(key, value);
    }
}
