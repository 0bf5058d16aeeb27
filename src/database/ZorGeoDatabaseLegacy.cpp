// Projects of the older generation.

#include "database/Zor2NewZorCoordSys.h"
#include "database/ZorGeoDatabase.h"
#include "frame/ReadItem.h"
#include "frame/RecordNames.h"

bool ZorGeoDatabase::IsOldZorProject(const CString& path)
{
    FileObject project;
    if (!project.FileOpen(path, FileMode::openForReading)) {
        return false;
    }
    CString name;
    return !project.HasSection(COORDSYSTEM_SECTION) ||
           !ReadItem(project, COORDSYSTEM_SECTION, coordsystemKeys[CoordsystemKey::group], name) ||
           !ReadItem(project, COORDSYSTEM_SECTION, coordsystemKeys[CoordsystemKey::system], name);
}

bool ZorGeoDatabase::ConvertProj2Geobase(FileObject& project, CString& group, CString& system)
{
    Zor2NewZorCoordSys converter;
    if (!converter.Convert(&project)) {
        return false;
    }
    // Kept: also when a system of that name stands in another group.
    group = kUserGroup;
    system = converter.SystemName();
    return Init();
}
