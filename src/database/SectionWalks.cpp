#include "database/SectionWalks.h"

#include "frame/RecordNames.h"

bool IsGroupSetting(const CString& key)
{
    return key.CompareNoCase(kSystemCount) == 0 || key.CompareNoCase(kSupportedGeoidMethods) == 0;
}

void GetValuesInSection(const FileObject& file, const CString& section, CStringArray& out)
{
    out.RemoveAll();
    ForEachListedName(file, section, [&](const CString& name) { out.Add(name); });
}

void GetKeysInSection(const FileObject& file, const CString& section, CStringArray& out)
{
    out.RemoveAll();
    FindEntry(file, section, [&](const CString& key, const CString&) {
        if (!IsGroupSetting(key)) {
            out.Add(key);
        }
        return false;
    });
}

bool FindKeyInSection(const FileObject& file, const CString& section, const CString& value, CString& key)
{
    return FindEntry(file, section, [&](const CString& entryKey, const CString& entryValue) {
        if (entryValue.CompareNoCase(value) != 0) {
            return false;
        }
        key = entryKey;
        return true;
    });
}
