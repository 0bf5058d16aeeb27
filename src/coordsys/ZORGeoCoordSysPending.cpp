// Operations whose slots stand before their bodies: descriptions, project save and backup,
// restore from a backup, new datum transformations.

#include "authoring/ZorGeoStaticData.h"
#include "coordsys/ZORGeoCoordSys.h"
#include "frame/NotBuilt.h"

bool ZORGeoCoordSys::Save(FileObject&)
{
    NotBuilt("ZORGeoCoordSys::Save");
}

bool ZORGeoCoordSys::SaveBackup(FileObject&)
{
    NotBuilt("ZORGeoCoordSys::SaveBackup");
}

void ZORGeoCoordSys::DumpGeoidXml(std::wostream&, const std::wstring)
{
    NotBuilt("ZORGeoCoordSys::DumpGeoidXml");
}

void ZORGeoCoordSys::DumpPostCorrectionXml(std::wostream&, const std::wstring)
{
    NotBuilt("ZORGeoCoordSys::DumpPostCorrectionXml");
}

CString ZORGeoCoordSys::GetGDALProj4CoordSysText()
{
    NotBuilt("ZORGeoCoordSys::GetGDALProj4CoordSysText");
}

bool ZORGeoCoordSys::GetFauParameters(CStringA&, CStringA&, double&)
{
    NotBuilt("ZORGeoCoordSys::GetFauParameters");
}

bool ZORGeoCoordSys::SaveDtfFileObjToDB(FileObject*, CString)
{
    NotBuilt("ZORGeoCoordSys::SaveDtfFileObjToDB");
}

bool ZORGeoCoordSys::CreateDtfFileObj(CString, FileObject&)
{
    NotBuilt("ZORGeoCoordSys::CreateDtfFileObj");
}

CDatumTransform* ZORGeoCoordSys::CreateNewDtf(CString)
{
    NotBuilt("ZORGeoCoordSys::CreateNewDtf");
}

// The system that the database lacks, from the project's backup. False when there is none.
bool ZORGeoCoordSys::RestoreBackupCheckNameConflict()
{
    ZorGeoStaticData backup;
    if (!CreateGeoStaticDataFromBackup(backup)) {
        return false;
    }
    NotBuilt("ZORGeoCoordSys::RestoreBackupCheckNameConflict");
}

// Whether the system that was found agrees with the project's backup. A project without a backup
// answers false.
bool ZORGeoCoordSys::CheckDataBaseWithProjectBackup(const CString&)
{
    ZorGeoStaticData backup;
    if (!CreateGeoStaticDataFromBackup(backup)) {
        return false;
    }
    NotBuilt("ZORGeoCoordSys::CheckDataBaseWithProjectBackup");
}

bool ZORGeoCoordSys::CreateGeoStaticDataFromBackup(ZorGeoStaticDataBase&)
{
    if (!m_pProjectFile || !m_pProjectFile->HasSection(COORDSYSTEM_BACKUP_SECTION)) {
        return false;
    }
    NotBuilt("ZORGeoCoordSys::CreateGeoStaticDataFromBackup");
}
