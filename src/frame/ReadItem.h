#pragma once

#include "frame/BaseContract.h"

/// Reads an item of a section file. False, output untouched, when it is missing or no such value,
/// also from a file in the mode that throws: a datum record that could not be loaded leaves its
/// file so, and a host may hand over a project that is.
template <typename Value>
bool ReadItem(const FileObject& file, const CString& section, const CString& key, Value& value)
{
    try {
        return file.GetItem(section, key, value);
    } catch (const CString&) {
        return false;
    }
}

/// The item, or `missing` where ReadItem answers false.
template <typename Value>
Value ItemOr(const FileObject& file, const CString& section, const CString& key, Value missing)
{
    ReadItem(file, section, key, missing);
    return missing;
}
