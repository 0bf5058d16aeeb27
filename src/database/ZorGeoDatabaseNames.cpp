// Lists of names: from the files' index sections, and from the lists that Init made.

#include "database/SectionWalks.h"
#include "database/ZorGeoDatabase.h"
#include "frame/RecordNames.h"

namespace {

void AppendSystemNames(const FileObject& file, CStringArray& out)
{
    FobjSection cursor;
    CString section;
    for (bool more = file.GetFirstSectionEntry(cursor, section); more;
         more = file.GetNextSectionEntry(cursor, section)) {
        if (section.View().starts_with(kSystemPrefix.View())) {
            out.Add(section.Mid(kSystemPrefix.GetLength()));
        }
    }
}

} // namespace

bool ZorGeoDatabase::AllValues(const CString& section, CStringArray& out) const
{
    if (!BothOpen()) {
        return false;
    }
    out.RemoveAll();
    for (const FileObject* file : {&m_mainFile, &m_userFile}) {
        ForEachListedName(*file, section, [&](const CString& name) { out.Add(name); });
    }
    return true;
}

bool ZorGeoDatabase::GetAllGroupNames(CStringArray& out, geodb_type which)
{
    if (which == GeoDbBoth) {
        return AllValues(kGroupsSection, out);
    }
    if (!BothOpen()) {
        return false;
    }
    out.RemoveAll();
    const FileObject* file = FileNamed(which);
    if (!file) {
        return false;
    }
    GetValuesInSection(*file, kGroupsSection, out);
    return true;
}

bool ZorGeoDatabase::GetAllSystemNamesByGroupName(CStringArray& out, CString group)
{
    return AllValues(kGroupPrefix + group, out);
}

bool ZorGeoDatabase::GetAllSystemNames(CStringArray& out)
{
    if (!BothOpen()) {
        return false;
    }
    out.RemoveAll();
    AppendSystemNames(m_mainFile, out);
    AppendSystemNames(m_userFile, out);
    return true;
}

bool ZorGeoDatabase::GetAllDtfNames(CStringArray& out)
{
    return AllValues(kDatumsSection, out);
}

bool ZorGeoDatabase::GetAllUnitNames(CStringArray& out)
{
    if (!BothOpen()) {
        return false;
    }
    GetKeysInSection(m_mainFile, kUnitsSection, out);
    CStringArray userUnits;
    GetKeysInSection(m_userFile, kUnitsSection, userUnits);
    out.Append(userUnits);
    return true;
}

bool ZorGeoDatabase::GetAllEllipsoidNames(CStringArray& out)
{
    return AllValues(kEllipsoidsSection, out);
}

bool ZorGeoDatabase::GetAllProjectionNames(CStringArray& out)
{
    return AllValues(kProjectionsSection, out);
}

bool ZorGeoDatabase::GetAllDatumKeys(CStringArray&)
{
    return true;
}

bool ZorGeoDatabase::GetAllPrjNamesByMdName(std::vector<CString>& out, CString method)
{
    ListProjections();
    for (std::size_t i = 0; i < m_prjMethods.size(); ++i) {
        if (m_prjMethods[i] == method) {
            out.push_back(m_prjNames[i]);
        }
    }
    return true;
}

bool ZorGeoDatabase::GetDtfNamesByElps(CStringArray& out, CString source, CString target)
{
    out.RemoveAll();
    for (std::size_t i = 0; i < m_dtfTargetElps.size(); ++i) {
        // Kept: records spell their satellite ellipsoid in several ways ("Wgs84"), the local one
        // in one.
        if (m_dtfTargetElps[i] == target && m_dtfSourceElps[i].CompareNoCase(source) == 0) {
            out.Add(m_dtfNames[i]);
        }
    }
    return true;
}

bool ZorGeoDatabase::GetAllDtfNamesByOneElp(CStringArray& out, CString ellipsoid, bool asTarget)
{
    out.RemoveAll();
    const std::vector<CString>& ellipsoids = asTarget ? m_dtfTargetElps : m_dtfSourceElps;
    for (std::size_t i = 0; i < ellipsoids.size(); ++i) {
        if (ellipsoids[i] == ellipsoid) {
            out.Add(m_dtfNames[i]);
        }
    }
    return true;
}
