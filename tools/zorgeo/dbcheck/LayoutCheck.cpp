#include "dbcheck/LayoutCheck.h"

#include <algorithm>
#include <array>

#include <fmt/format.h>

#include "DatabaseText.h"
#include "dbcheck/RecordKinds.h"
#include "dbcheck/Walk.h"

namespace {

const std::array kCounts = {&kGroupCount, &kSystemCount, &kEllipsoidCount,
                            &kDatumCount, &kUnitCount,   &kProjectionCount};

/// How a name that differs in the case of letters alone is spelt; empty when it is another name.
std::string SpellingOf(const CString& section)
{
    for (const CString* known : {&kGeneralSection, &kUnitsSection}) {
        if (section.CompareNoCase(*known) == 0) {
            return known->ToUtf8();
        }
    }
    for (const RecordKind& kind : RecordKinds()) {
        if (!kind.index.IsEmpty() && section.CompareNoCase(kind.index) == 0) {
            return kind.index.ToUtf8();
        }
        const int length = kind.prefix.GetLength();
        if (section.Left(length).CompareNoCase(kind.prefix) == 0) {
            return (kind.prefix + section.Mid(length)).ToUtf8();
        }
    }
    return {};
}

RecordFlaw UnknownSection(const CString& section)
{
    const std::string spelling = SpellingOf(section);
    return {{},
            "no reader knows such a section",
            spelling.empty() ? "take it out" : fmt::format("right is \"{}\"", spelling)};
}

RecordFlaw UnknownKey(const CString& key, const std::string& remedy)
{
    return {key, fmt::format("key \"{}\" is unknown", key.ToUtf8()), remedy};
}

void CheckGeneral(const FileObject& file, Findings& findings)
{
    ForEachEntry(file, kGeneralSection, [&](const CString& key, const CString& value) {
        int count = 0;
        if (std::none_of(kCounts.begin(), kCounts.end(), [&key](const CString* known) { return key == *known; })) {
            findings.Fault(file, kGeneralSection, UnknownKey(key, "take it out"));
        } else if (!file.GetItem(kGeneralSection, key, count) || count < 0) {
            findings.Fault(file, kGeneralSection,
                           {key, fmt::format("key \"{}\": \"{}\" is no count", key.ToUtf8(), value.ToUtf8()),
                            "right is a whole number, 0 or more"});
        }
    });
}

void CheckSerialKeys(const FileObject& file, const CString& section, bool group, Findings& findings)
{
    ForEachEntry(file, section, [&](const CString& key, const CString&) {
        if (!SerialOf(key) && !(group && IsGroupSetting(key))) {
            findings.Fault(file, section,
                           UnknownKey(key, "right is a serial number, 1 or more, without a sign or zeros before it"));
        }
    });
}

void CheckRecordKeys(const FileObject& file, const CString& section, const RecordKind& kind, Findings& findings)
{
    ForEachEntry(file, section, [&](const CString& key, const CString&) {
        const auto known =
            std::find_if(kind.keys.begin(), kind.keys.end(), [&key](const KnownKey& row) { return row.key == key; });
        if (known != kind.keys.end()) {
            findings.Faults(file, section,
                            known->kind == KeyHolds::number    ? NumberFlaws(file, section, {key})
                            : known->kind == KeyHolds::boolean ? BooleanFlaws(file, section, key)
                                                               : RecordFlaws());
            return;
        }
        const auto meant = std::find_if(kind.keys.begin(), kind.keys.end(),
                                        [&key](const KnownKey& row) { return row.key.CompareNoCase(key) == 0; });
        findings.Fault(file, section,
                       UnknownKey(key, meant == kind.keys.end() ? "take it out"
                                                                : fmt::format("right is \"{}\"", meant->key.ToUtf8())));
    });
}

} // namespace

void CheckLayout(const FileObject& file, Findings& findings)
{
    ForEachSection(file, [&](const CString& section) {
        const RecordKind* const kind = KindOf(section);
        if (section == kGeneralSection) {
            CheckGeneral(file, findings);
        } else if (KindListedIn(section) != nullptr) {
            CheckSerialKeys(file, section, false, findings);
        } else if (kind != nullptr && kind->prefix == kGroupPrefix) {
            CheckSerialKeys(file, section, true, findings);
        } else if (kind != nullptr) {
            CheckRecordKeys(file, section, *kind, findings);
        } else if (section != kUnitsSection) {
            findings.Fault(file, section, UnknownSection(section));
        }
    });
}
