#pragma once

#include "frame/FindEntry.h"

// Walks over one section of a database file, in the order of the file. A section that is missing
// has no entries.

/// Whether a key of a group is no serial number: "System count" and "Supported geoid model
/// methods", in any case of letters.
bool IsGroupSetting(const CString& key);

/// Calls `visit(value)` for every name that a section lists: not for the settings of a group and
/// not for empty values. The visit may move the name away.
template <typename Visit>
void ForEachListedName(const FileObject& file, const CString& section, Visit visit)
{
    FindEntry(file, section, [&](const CString& key, CString& value) {
        if (!value.IsEmpty() && !IsGroupSetting(key)) {
            visit(value);
        }
        return false;
    });
}

/// Empties `out` and fills it with the names that a section lists.
void GetValuesInSection(const FileObject& file, const CString& section, CStringArray& out);
/// Empties `out` and fills it with the keys of a section, the settings of a group left out. The
/// key of an empty value counts.
void GetKeysInSection(const FileObject& file, const CString& section, CStringArray& out);
/// Key of the first entry whose value is `value` in any case of letters. False, `key` untouched,
/// when there is none.
bool FindKeyInSection(const FileObject& file, const CString& section, const CString& value, CString& key);
