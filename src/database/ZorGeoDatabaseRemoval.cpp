// Removing systems and groups of the user file, and who else uses a record: other systems of the
// database and other projects on the disk.

#include "database/RecordReaders.h"
#include "database/SectionWalks.h"
#include "database/ZorGeoDatabase.h"
#include "frame/RecordNames.h"
#include "frame/ZorGeoUtility.h"

namespace {

/// Takes the first line of an index section that lists `name`, in any case of letters; the section
/// stays, empty if need be. False when none does.
bool RemoveLine(FileObject& file, const CString& section, const CString& name)
{
    CString key;
    return FindKeyInSection(file, section, name, key) && file.DeleteItem(section, key, false);
}

bool SystemNames(const FileObject& file, const CString& system, CString SystemInfo::*kind, const CString& name)
{
    SystemInfo info;
    LoadSystemInfo(file, system, info);
    return file.HasSection(kSystemPrefix + system) && (info.*kind).CompareNoCase(name) == 0;
}

/// Number of lines in the user file's groups whose system passes the test.
template <typename Test>
int CountSystems(ZorGeoDatabase& database, Test test)
{
    int count = 0;
    CStringArray groups;
    database.GetAllGroupNames(groups, GeoDbUser);
    for (const CString& group : groups) {
        CStringArray systems;
        database.GetAllSystemNamesByGroupName(systems, group);
        for (const CString& system : systems) {
            count += test(system) ? 1 : 0;
        }
    }
    return count;
}

/// Group and system that a project names. False when it cannot be opened or does not name both.
bool ReadSystemOfProject(const CString& path, CString& group, CString& system)
{
    FileObject project;
    return project.FileOpen(path, FileMode::openForReading) && project.HasSection(COORDSYSTEM_SECTION) &&
           ReadItem(project, COORDSYSTEM_SECTION, coordsystemKeys[CoordsystemKey::group], group) &&
           ReadItem(project, COORDSYSTEM_SECTION, coordsystemKeys[CoordsystemKey::system], system);
}

/// What a system uses, by group and system.
using NameOfSystem = CString (ZorGeoDatabase::*)(CString group, CString system);

/// Number of projects on the disk whose system uses `name`.
int CountProjects(ZorGeoDatabase& database, NameOfSystem nameOfSystem, const CString& name)
{
    ZorGeoUtility& utility = ZorGeoUtility::Get();
    utility.Fill();
    int count = 0;
    for (const CString& directory : utility.ProjectDirectories()) {
        // Kept: the project that is open counts as a user without a look into it, since what it
        // holds in memory need not stand in its file yet.
        if (directory == utility.currentProjectName) {
            ++count;
            continue;
        }
        CString group;
        CString system;
        // Kept: resolved in this database, not in that project's backup. A project that brought
        // its own system along holds its record itself and loses nothing.
        if (ReadSystemOfProject(WithSeparator(utility.projectsRootDir + directory) + kProjectFile, group, system) &&
            (database.*nameOfSystem)(group, system) == name) {
            ++count;
        }
    }
    return count;
}

} // namespace

bool ZorGeoDatabase::RemoveSystem(CString group, CString system)
{
    const CString groupSection = kGroupPrefix + group;
    const CString systemSection = kSystemPrefix + system;
    if (!m_userFile.HasSection(groupSection)) {
        return false;
    }
    if (system.IsEmpty()) {
        // Kept: the records of its systems stay, without a group, for projects that name them.
        if (RemoveLine(m_userFile, kGroupsSection, group)) {
            m_userFile.DeleteSection(groupSection);
        }
        return SaveAndInit();
    }
    if (!m_userFile.HasSection(systemSection)) {
        return false;
    }
    SystemInfo info;
    LoadSystemInfo(m_userFile, system, info);
    // Kept: datum transformation, ellipsoid and unit stay, other projects may be converted with
    // them; and no count is lowered, so that a serial key is never given out twice.
    if (!IsPrjUsedInMoreSystems(m_userFile, info.projection)) {
        RemoveLine(m_userFile, kProjectionsSection, info.projection);
        m_userFile.DeleteSection(kProjectionPrefix + info.projection);
    }
    // Kept: the record goes also when another group lists the system; that group's line stays.
    if (RemoveLine(m_userFile, groupSection, system)) {
        m_userFile.DeleteSection(systemSection);
    }
    return SaveAndInit();
}

bool ZorGeoDatabase::HasDtfInSystem(const FileObject& file, const CString& system, const CString& name)
{
    return SystemNames(file, system, &SystemInfo::datum, name);
}

bool ZorGeoDatabase::HasPrjInSystem(const FileObject& file, const CString& system, const CString& name)
{
    return SystemNames(file, system, &SystemInfo::projection, name);
}

bool ZorGeoDatabase::IsDtfUsedInMoreSystems(const FileObject& file, const CString& name)
{
    return CountSystems(*this, [&](const CString& system) { return HasDtfInSystem(file, system, name); }) >= 2;
}

bool ZorGeoDatabase::IsPrjUsedInMoreSystems(const FileObject& file, const CString& name)
{
    return CountSystems(*this, [&](const CString& system) { return HasPrjInSystem(file, system, name); }) >= 2;
}

bool ZorGeoDatabase::HasOneMoreZorProjectUseTheDtf(const CString& name)
{
    return CountProjects(*this, &ZorGeoDatabase::GetDtfNameByGroupAndSysNames, name) > 1;
}

bool ZorGeoDatabase::HasOneMoreZorProjectUseThePrj(const CString& name)
{
    return CountProjects(*this, &ZorGeoDatabase::GetPrjNameByGroupAndSysNames, name) > 1;
}

bool ZorGeoDatabase::HasDtfUsedInMoreSystem(CString name, unsigned which)
{
    return HasOneMoreZorProjectUseTheDtf(name) ||
           Ask(which, [&](const FileObject& file) { return IsDtfUsedInMoreSystems(file, name); });
}

bool ZorGeoDatabase::HasProjectionUsedInMoreSystem(CString name, unsigned which)
{
    return HasOneMoreZorProjectUseThePrj(name) ||
           Ask(which, [&](const FileObject& file) { return IsPrjUsedInMoreSystems(file, name); });
}
