// Datum transformations beside the system's own: made by name, and carried from one machine to
// another in a file.

#include <memory>

#include "coordsys/ZORGeoCoordSys.h"
#include "database/SerialKeys.h"
#include "database/Zor2NewZorCoordSys.h"
#include "datum/CDatumTransform.h"
#include "frame/RecordNames.h"
#include "frame/ZorGeoUtility.h"

CDatumTransform* ZORGeoCoordSys::CreateNewDtf(CString name)
{
    const CString section = kDatumPrefix + name;
    if (!m_database.HasDtf(name, GeoDbBoth)) {
        Zor2NewZorCoordSys converter(m_pProjectFile.get());
        if (!converter.CreateNewDtf(name)) {
            return nullptr;
        }
        // What it gave shows below.
        OpenDatabase();
    }
    // Kept: the delivered record goes before the user's, unlike where a whole system is built. A
    // name that a tool asks for means the same on every machine.
    for (FileObject* file : {&m_database.GetMainFile(), &m_database.GetUserFile()}) {
        if (!file->HasSection(section)) {
            continue;
        }
        auto datum = std::make_unique<CDatumTransform>();
        if (!datum->Load(m_database, *file, section)) {
            return nullptr;
        }
        CDatumTransform::SetUnitCnv(m_unit.factor);
        return datum.release();
    }
    return nullptr;
}

bool ZORGeoCoordSys::CreateDtfFileObj(CString name, FileObject& file)
{
    CDatumTransform datum;
    const CString section = kDatumPrefix + name;
    // Records of old files have no prefix.
    return (datum.Load(m_database, section) || datum.Load(m_database, name)) && datum.Save(file, section);
}

bool ZORGeoCoordSys::SaveDtfFileObjToDB(FileObject* file, CString name)
{
    CDatumTransform datum;
    if (file == nullptr ||
        (!datum.Load(m_database, *file, kDatumPrefix + name) && !datum.Load(m_database, *file, name))) {
        return false;
    }
    return SaveDtfToDB(&datum);
}

// Adds a transformation to the user file unless the database knows its name. True, always.
bool ZORGeoCoordSys::SaveDtfToDB(const CDatumTransform* datum)
{
    CString name = datum->GetName();
    if (name.Find(kDatumPrefix) == 0) {
        name.Delete(0, kDatumPrefix.GetLength());
    }
    // Kept: without a comparison. What stands under a name is in use by systems and is not replaced.
    if (m_database.HasDtf(name, GeoDbBoth)) {
        return true;
    }
    FileObject& user = m_database.GetUserFile();
    const int count = ReadCount(user, kGeneralSection, kDatumCount);
    user.SetItem(kDatumsSection, SerialBehind(count), name, true);
    if (datum->Save(user, kDatumPrefix + name)) {
        user.SetItem(kGeneralSection, kDatumCount, CountBehind(count), true);
        ZorGeoUtility::Get().GuardedSave(user);
    }
    return true;
}
