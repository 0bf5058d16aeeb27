// What a system leaves in a project: Save writes which system it is, SaveBackup the whole of it.
//
// Neither deletes anything, so a project keeps the keys and sections that a run does not write,
// those of the older generation among them.

#include "coordsys/BackupRows.h"
#include "datum/CDatumTransform.h"
#include "datum/Ellipsoid.h"
#include "projections/CProjection.h"

bool ZORGeoCoordSys::Save(FileObject& project)
{
    struct Row {
        int key; ///< in coordsystemKeys
        const CString& value;
    };
    // Models, files and chart datum as Init was given them, not the ones in effect.
    const Row rows[] = {{CoordsystemKey::group, m_groupName},
                        {CoordsystemKey::system, m_sysName},
                        {CoordsystemKey::geoidMethod, m_geoidModelArg},
                        {CoordsystemKey::geoidGrid, m_geoidFileArg},
                        {CoordsystemKey::postModel, m_postModelArg},
                        {CoordsystemKey::postFile, m_postFileArg},
                        {CoordsystemKey::chartDatum, m_chartDatum},
                        {CoordsystemKey::unit, m_unitName},
                        {CoordsystemKey::module, kModuleKey}};
    for (const Row& row : rows) {
        project.SetItem(COORDSYSTEM_SECTION, coordsystemKeys[static_cast<std::size_t>(row.key)], row.value, true);
    }
    project.SetItem(COORDSYSTEM_SECTION, kGeodesyVersionKey, kGeodesyVersion, true);
    return true;
}

bool ZORGeoCoordSys::SaveBackup(FileObject& project)
{
    using Rows = BackupRows;
    const auto write = [&](std::span<const Rows::Row> rows) { Rows::Write(*this, project, rows); };
    write(Rows::identity);
    write(Rows::recordNames);
    write(Rows::projectionType);
    write(Rows::partNames);
    write(Rows::geoidUse);
    if (m_hasGeoidModel) {
        SaveGeoidBackup(project);
    }
    write(Rows::postShifts);
    write(Rows::postModel);
    write(Rows::postUse);
    write(Rows::geoidUse); // as the database's answer has left it
    write(Rows::adjusts);
    project.SetItem(kUnitBackup, kUnitBackupRecord, m_unit.text, true);
    if (m_pEllipsoid) {
        m_pEllipsoid->SaveTo(project, kEllipsoidBackup);
    }
    if (m_pProjection) {
        m_pProjection->SaveParameters(project, kProjectionBackup);
    }
    if (m_pDatum) {
        project.SetItem(kDatumBackup, kDatumMethod, m_pDatum->GetMethodName(), true);
        m_pDatum->Save(project, kDatumBackup);
    }
    return true;
}

// Kept: the backup holds the database's geoid of the system, not what Init was told for this
// project, and the object goes on with the database's answer whether there is one. Whoever opens
// the project elsewhere gets the system as it was delivered and the project's choice on top of it.
void ZORGeoCoordSys::SaveGeoidBackup(FileObject& project)
{
    CString method;
    CString grid;
    m_hasGeoidModel = m_database.HasGeoidModel(m_groupName, m_sysName);
    if (m_hasGeoidModel) {
        method = m_database.GetDefaultGeoidModelMd(m_groupName, m_sysName);
        grid = m_database.GetDefaultGeoidGrid(m_groupName, m_sysName);
    }
    project.SetItem(COORDSYSTEM_BACKUP_SECTION, kGeoidMethod, method, true);
    project.SetItem(COORDSYSTEM_BACKUP_SECTION, kGeoidGrid, grid, true);
    // Kept: asked of the method in effect, which need not be the one that was written.
    if (m_geoidModelMd == GeoidmodelTypeKeys[GeoidType::manual]) {
        BackupRows::Write(*this, project, BackupRows::geoidManual);
    }
}

// Saves a file under its own name, also when it is read-only. Nothing calls it: the databases have
// the guarded save of ZorGeoUtility, which reports.
void ZORGeoCoordSys::FileObjectSave(FileObject& file)
{
    const CString name = file.GetFileName();
    CFileStatus status;
    const bool readOnly = CFile::GetStatus(name, status) && (status.attribute & CFileStatus::readOnly) != 0;
    if (readOnly) {
        status.attribute &= ~CFileStatus::readOnly;
        CFile::SetStatus(name, status);
    }
    file.FileSave(L"", FileMode::saveExclusive);
    if (readOnly) {
        status.attribute |= CFileStatus::readOnly;
        CFile::SetStatus(name, status);
    }
}
