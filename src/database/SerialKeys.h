#pragma once

#include "frame/ReadItem.h"

// Serial keys of a section: decimal numbers from a counter that is only ever raised.

/// The counter under `key`; 0 when the section lacks it.
inline int ReadCount(const FileObject& file, const CString& section, const CString& key)
{
    return ItemOr(file, section, key, 0);
}

/// The number behind `count`; behind the greatest int comes the least.
inline int CountBehind(int count)
{
    return static_cast<int>(static_cast<unsigned>(count) + 1U);
}

/// The key of the entry behind the first `count`.
inline CString SerialBehind(int count)
{
    CString serial;
    serial.Format(L"%d", CountBehind(count));
    return serial;
}
