#pragma once

#include <optional>
#include <vector>

#include "base/text/CString.h"

// What a database file may hold: its kinds of sections and the keys of each.

enum class KeyHolds { text, number, boolean };

struct KnownKey {
    CString key;
    KeyHolds kind;
};

/// A kind of record: the sections with one prefix.
struct RecordKind {
    const char* noun;
    CString prefix;
    CString index; ///< the section that lists the records; empty: groups do
    CString count; ///< the key of "General" with the highest serial key of the index
    std::vector<KnownKey> keys;
};

/// Groups, systems, datum transformations, projections, ellipsoids.
const std::vector<RecordKind>& RecordKinds();
/// The kind of a section, null when it is no record's.
const RecordKind* KindOf(const CString& section);
/// The kind that a section lists; null when it is no list.
const RecordKind* KindListedIn(const CString& section);

/// A key under which a list has a line: the decimal digits of 1 or more, as the writer makes them.
std::optional<long long> SerialOf(const CString& key);
/// "System count" and "Supported geoid model methods" in a group, in any case of letters.
bool IsGroupSetting(const CString& key);
