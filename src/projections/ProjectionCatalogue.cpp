#include "projections/ProjectionCatalogue.h"

#include <algorithm>
#include <vector>

#include "frame/FindEntry.h"
#include "frame/RecordNames.h"
#include "frame/ZorGeoUtility.h"

namespace {

/// Calls `visit(key, value)` for every entry of a section, in the file's order.
template <typename Visit>
void ForEachEntry(const FileObject& file, const CString& section, Visit visit)
{
    FindEntry(file, section, [&](const CString& key, const CString& value) {
        visit(key, value);
        return false;
    });
}

int CountEntries(const FileObject& file, const CString& section)
{
    int count = 0;
    ForEachEntry(file, section, [&](const CString&, const CString&) { ++count; });
    return count;
}

/// The label and the kind of a parameter, as they stand in one value: "False Easting,3".
CZorString SplitLabel(const CString& value)
{
    return CZorString(value, L',', true, false);
}

/// The parameter keys that a method's section lists, by their numbering and not by their lines.
std::vector<CString> ListedKeys(const FileObject& file, const CString& method)
{
    int count = 0;
    ForEachEntry(file, method,
                 [&](const CString& key, const CString&) { count += key.CompareNoCase(kCatalogueUnitFlag) != 0; });
    std::vector<CString> listed;
    CString read; // outside the loop: a number that is missing repeats the one before it
    for (int i = 0; i < count; ++i) {
        CString number;
        number.Format(L"%d", i);
        file.GetItem(method, number, read);
        listed.push_back(read);
    }
    return listed;
}

} // namespace

ProjectionCatalogue::ProjectionCatalogue()
{
    ZorGeoUtility::Filled();
}

bool ProjectionCatalogue::OpenPrjStaticFile()
{
    if (m_prjStaticOpen) {
        return true;
    }
    return m_prjStaticFile.FileOpen(ZorGeoUtility::Get().mainDatabaseDir + kCatalogueFile, FileMode::openForReading);
}

bool ProjectionCatalogue::FindMethod(int type, CString& method)
{
    return OpenPrjStaticFile() &&
           FindEntry(m_prjStaticFile, kCatalogueMethods, [&](const CString& key, const CString& value) {
               if (numbers::LeadingInteger(key) != type) {
                   return false;
               }
               method = value;
               return true;
           });
}

void ProjectionCatalogue::GetAllPrjMdNames(CStringArray& out)
{
    out.RemoveAll();
    if (!OpenPrjStaticFile()) {
        return;
    }
    std::vector<CString> hidden;
    ForEachEntry(m_prjStaticFile, kCatalogueHidden,
                 [&](const CString&, const CString& value) { hidden.push_back(value); });
    ForEachEntry(m_prjStaticFile, kCatalogueMethods, [&](const CString&, const CString& value) {
        if (std::none_of(hidden.begin(), hidden.end(),
                         [&](const CString& name) { return name.CompareNoCase(value) == 0; })) {
            out.Add(value);
        }
    });
}

void ProjectionCatalogue::GetSelPrjMdResults(int type, CStringArray& names, CArray<UINT, UINT>& numbers,
                                             CStringArray& keys)
{
    names.RemoveAll();
    numbers.RemoveAll();
    GetParaStaticData(type, names, numbers, keys);
}

bool ProjectionCatalogue::GetParaStaticData(int type, CStringArray& names, CArray<UINT, UINT>& numbers,
                                            CStringArray& keys)
{
    names.RemoveAll();
    CString method;
    return FindMethod(type, method) && GetParaStaticData(method, names, numbers, keys);
}

bool ProjectionCatalogue::GetParaStaticData(const CString& method, CStringArray& names, CArray<UINT, UINT>& numbers,
                                            CStringArray& keys)
{
    if (!m_prjStaticFile.HasSection(method)) {
        return false;
    }
    for (const CString& listed : ListedKeys(m_prjStaticFile, method)) {
        for (int index = 0; index < static_cast<int>(projectionParamKeys.size()); ++index) {
            const CString& key = projectionParamKeys[static_cast<std::size_t>(index)];
            if (listed.CompareNoCase(key) == 0) {
                UINT number = 0;
                names.Add(FindStaticData(index, number));
                numbers.Add(number);
                keys.Add(key);
            }
        }
    }
    return true;
}

int ProjectionCatalogue::GetPrjType(const CString& method)
{
    int type = kUnknownMethod;
    if (!OpenPrjStaticFile()) {
        return type;
    }
    FindEntry(m_prjStaticFile, kCatalogueMethods, [&](const CString& key, const CString& value) {
        if (value.CompareNoCase(method) != 0) {
            return false;
        }
        type = numbers::LeadingInteger(key);
        return true;
    });
    return type;
}

CString ProjectionCatalogue::FindParamKey(const CString& name)
{
    CString found;
    if (!OpenPrjStaticFile()) {
        return found;
    }
    FindEntry(m_prjStaticFile, kCatalogueParameters, [&](const CString& key, const CString& value) {
        CString label;
        SplitLabel(value).GetItem(0, label);
        if (label.CompareNoCase(name) != 0) {
            return false;
        }
        found = key;
        return true;
    });
    return found;
}

CString ProjectionCatalogue::FindStaticData(int index, UINT& number)
{
    CString label;
    CString value;
    if (index < 0 || static_cast<std::size_t>(index) >= projectionParamKeys.size() || !OpenPrjStaticFile() ||
        !m_prjStaticFile.GetItem(kCatalogueParameters, projectionParamKeys[static_cast<std::size_t>(index)], value)) {
        return label;
    }
    const CZorString items = SplitLabel(value);
    items.GetItem(1, number);
    items.GetItem(0, label);
    return label;
}

int ProjectionCatalogue::FindStaticDataSize(int type)
{
    CString method;
    return FindMethod(type, method) ? FindStaticDataSize(method) : 0;
}

int ProjectionCatalogue::FindStaticDataSize(const CString& method)
{
    // Kept: one entry is taken for "Unitflag" unseen, so a section without it counts one parameter
    // too few and an empty one counts -1; the catalogue is delivered with the key everywhere.
    return m_prjStaticFile.HasSection(method) ? CountEntries(m_prjStaticFile, method) - 1 : 0;
}

bool ProjectionCatalogue::CanPrjUnitChange(int type)
{
    CString method;
    return FindMethod(type, method) && GetPrjUnitChangeStatu(method);
}

bool ProjectionCatalogue::GetPrjUnitChangeStatu(const CString& method)
{
    if (!m_prjStaticFile.HasSection(method)) {
        return false;
    }
    bool mayChange = true;
    m_prjStaticFile.GetItem(method, kCatalogueUnitFlag, mayChange);
    return mayChange;
}
