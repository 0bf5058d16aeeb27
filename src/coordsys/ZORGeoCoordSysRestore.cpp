// What Init does about a project whose backup and the database disagree.
//
// The project's backup wins. A record of the database is never changed under its old name: where a
// name is taken by other content the user gives a new one, and the backup goes into the user file
// under it.

#include <array>
#include <cmath>

#include "authoring/RecordEquality.h"
#include "authoring/ZorGeoStaticData.h"
#include "coordsys/BackupRows.h"
#include "database/RecordReaders.h"
#include "datum/CDatumTransform.h"
#include "datum/Ellipsoid.h"
#include "projections/CProjection.h"

namespace {

/// Lets the user name a record whose name is taken. False, `name` untouched, when he cancels.
bool AskNewName(void (NewSysNameDlg::*present)(const CString&), CString& name)
{
    NewSysNameDlg dialog;
    (dialog.*present)(name);
    dialog.SetDllType(kModuleKey);
    if (dialog.DoModal() != NewSysNameDlg::ok) {
        return false;
    }
    name = dialog.GetName();
    return true;
}

void RenameProjection(ZorGeoStaticDataBase& record, const CString& name)
{
    record.SetPrjNameAndType(name, record.GetPrjType());
}

void RenameDatum(ZorGeoStaticDataBase& record, const CString& name)
{
    record.SetDttransNameAndKey(name, L"");
}

/// A part of a system that has a record and a name of its own.
struct Part {
    int (ZorGeoStaticDataBase::*compare)(ZorGeoDatabaseBase*);
    CString (ZorGeoStaticDataBase::*name)();
    void (NewSysNameDlg::*present)(const CString&);
    void (*rename)(ZorGeoStaticDataBase&, const CString&);
    const CString& key; ///< in COORDSYSTEM_BACKUP_SECTION
};
constexpr Part kParts[] = {{&ZorGeoStaticDataBase::CheckProjectionIsEqual, &ZorGeoStaticDataBase::GetPrjName,
                            &NewSysNameDlg::SetPrjName, &RenameProjection, kSystemProjection},
                           {&ZorGeoStaticDataBase::CheckDtfIsEqual, &ZorGeoStaticDataBase::GetDttransName,
                            &NewSysNameDlg::SetDtfName, &RenameDatum, kSystemDatum}};

struct PartsSettled {
    bool cancelled = false;
    bool renamed = false; ///< in the record and in the project's memory
    bool absent = false;  ///< the database has no record of one of the names
};

/// Compares projection and datum transformation with the database, in this order, and lets the
/// user rename what differs. Nothing is asked any more after a cancel; what was renamed before it
/// stays renamed.
PartsSettled SettleParts(ZorGeoStaticDataBase& record, ZorGeoDatabaseBase& database, FileObject& project)
{
    PartsSettled settled;
    for (const Part& part : kParts) {
        const int result = (record.*part.compare)(&database);
        settled.absent = settled.absent || result == RecordEquality::noRecord;
        if (result != RecordEquality::differs) {
            continue;
        }
        CString name = (record.*part.name)();
        if (!AskNewName(part.present, name)) {
            settled.cancelled = true;
            break;
        }
        part.rename(record, name);
        project.SetItem(COORDSYSTEM_BACKUP_SECTION, part.key, name, true);
        settled.renamed = true;
    }
    return settled;
}

} // namespace

// Brings a system that neither file has back from the project's backup. False when there is no
// backup, when the user cancels, or when it cannot be written.
bool ZORGeoCoordSys::RestoreBackupCheckNameConflict()
{
    ZorGeoStaticData backup;
    if (!CreateGeoStaticDataFromBackup(backup)) {
        return false;
    }
    const PartsSettled parts = SettleParts(backup, m_database, *m_pProjectFile);
    if (parts.cancelled) {
        return false;
    }
    const bool taken = backup.CheckSystemIsEqual(&m_database) == RecordEquality::differs;
    // Kept: the project goes on naming the system as it did; only the object has the new name. The
    // comparison at the end of Init then asks for the name that the project gets; a silent Init
    // leaves it out, and the project keeps the old one.
    if (taken && !AskNewName(&NewSysNameDlg::SetSystemName, m_sysName)) {
        return false;
    }
    if (taken || parts.renamed) {
        m_pProjectFile->FileSave(L"", FileMode::saveExclusive);
    }
    return RestoreBackup(m_groupName, m_sysName);
}

// Compares the system that was found with the project's backup, and has the object run on the
// backup where they differ. False without a backup, when the user cancels, or when the system
// cannot be built again.
bool ZORGeoCoordSys::CheckDataBaseWithProjectBackup(const CString& unit)
{
    ZorGeoStaticData backup;
    if (!CreateGeoStaticDataFromBackup(backup)) {
        return false;
    }
    const PartsSettled parts = SettleParts(backup, m_database, *m_pProjectFile);
    if (parts.cancelled) {
        return false;
    }
    const int system = backup.CheckSystemIsEqual(&m_database);
    if (system == RecordEquality::equal && !parts.renamed && !parts.absent) {
        return true;
    }
    if (system == RecordEquality::differs) {
        if (!AskNewName(&NewSysNameDlg::SetSystemName, m_sysName)) {
            return false;
        }
        m_pProjectFile->SetItem(COORDSYSTEM_BACKUP_SECTION, kBackupSystem, m_sysName, true);
        m_pProjectFile->SetItem(COORDSYSTEM_SECTION, coordsystemKeys[CoordsystemKey::system], m_sysName, true);
    }
    m_pProjectFile->FileSave(L"", FileMode::saveExclusive);
    // Kept: its result is not asked. A system that could not be written is not found below, or is
    // the one that the user file already holds under that name.
    RestoreBackup(m_groupName, m_sysName);
    return FindRestoredSystem() && BuildParts(unit);
}

// Takes the project's backup for the parts of this object and writes them into the user file as
// system `system` of `group`. False, with the object as far as it got, when a part does not load
// or the file cannot be written.
bool ZORGeoCoordSys::RestoreBackup(const CString& group, const CString& system)
{
    if (!m_pProjectFile->HasSection(COORDSYSTEM_BACKUP_SECTION)) {
        return false;
    }
    ReadBackupSettings();
    if (!RestoreUnit() || !RestoreEllipsoid() || !RestoreProjection() || !RestoreTransformation() ||
        !SaveBackupToDB(group, system)) {
        return false;
    }
    m_database.Init();
    return true;
}

void ZORGeoCoordSys::ReadBackupSettings()
{
    using Rows = BackupRows;
    const auto read = [this](std::span<const Rows::Row> rows) { Rows::Read(*this, *m_pProjectFile, rows); };
    read(Rows::recordNames);
    read(Rows::partNames);
    read(Rows::postUse);
    read(Rows::geoidUse);
    if (m_hasGeoidModel) {
        read(Rows::geoid);
        if (m_geoidModelMd == GeoidmodelTypeKeys[GeoidType::manual]) {
            read(Rows::geoidManual);
        }
    }
    if (m_hasPostCorrection) {
        read(Rows::postShifts);
    }
    read(Rows::postModel);
    m_hasPostHorAdjust = false;
    m_horAdjustOriginX = 0.0;
    m_horAdjustOriginY = 0.0;
    m_horAdjustRotation = 0.0;
    m_horAdjustScale = 1.0;
    m_hasPostVertAdjust = false;
    m_vertAdjustOriginX = 0.0;
    m_vertAdjustOriginY = 0.0;
    m_vertAdjustSlopeX = 0.0;
    m_vertAdjustSlopeY = 0.0;
    read(Rows::adjusts);
}

bool ZORGeoCoordSys::RestoreUnit()
{
    CString text;
    if (!ReadItem(*m_pProjectFile, kUnitBackup, kUnitBackupRecord, text)) {
        return false;
    }
    m_unit.Set(m_unitName, text, UnitFormat());
    return true;
}

bool ZORGeoCoordSys::RestoreEllipsoid()
{
    // Kept: it is called after the section, not after the ellipsoid; its name stands in the system.
    m_pEllipsoid = std::make_shared<Ellipsoid>();
    if (!m_pEllipsoid->LoadFrom(*m_pProjectFile, kEllipsoidBackup)) {
        return false;
    }
    Ellipsoid::SetUnitFactor(m_unit.factor);
    return true;
}

// From the section of today, or from that of the older generation.
bool ZORGeoCoordSys::RestoreProjection()
{
    m_pProjection.reset();
    BackupRows::Read(*this, *m_pProjectFile, BackupRows::projectionType);
    std::shared_ptr<CProjection> projection = NewProjection();
    if (!projection) {
        return false;
    }
    for (const CString& section : {kProjectionBackup, kLegacyProjectionBackup}) {
        if (LoadProjection(*projection, *m_pProjectFile, section) == ProjectionLoad::loaded) {
            m_pProjection = std::move(projection);
            return true;
        }
    }
    return false;
}

// From the section of today, or from that of the older generation.
bool ZORGeoCoordSys::RestoreTransformation()
{
    m_pDatum.reset();
    auto datum = std::make_shared<CDatumTransform>();
    if (!datum->Load(m_database, *m_pProjectFile, kDatumBackup) &&
        !datum->Load(m_database, *m_pProjectFile, kLegacyDatumBackup)) {
        return false;
    }
    m_pDatum = std::move(datum);
    CDatumTransform::SetUnitCnv(m_unit.factor);
    return true;
}

// Kept: zone and hemisphere do not go along; as constants they are the number 0. Those of Universal
// Transverse Mercator enter no formula. A polar grid restored so is the southern one.
bool ZORGeoCoordSys::SaveBackupToDB(const CString& group, const CString& system)
{
    ZorGeoStaticData record;
    record.SetGroupNameAndKey(group, L"");
    record.SetSysNameAndKey(system, L"");
    DescribeEllipsoids(record);
    DescribeTransformation(record);
    DescribeProjectionAndUnit(record);
    DescribeCorrections(record);
    return record.SaveDataToDB();
}

void ZORGeoCoordSys::DescribeEllipsoids(ZorGeoStaticData& record)
{
    // The database's values of that name come first, then the backup's take their place.
    record.SetElpNameAndKey(m_ellipsoidName, L"");
    double a = 0.0, b = 0.0, eccentricity = 0.0, reserved = 0.0, flattening = 0.0, inverseFlattening = 0.0;
    GetEllipsoidAllParameters(a, b, eccentricity, reserved, flattening, inverseFlattening);
    record.SetElpsoidParams(a, b, eccentricity, reserved, flattening, inverseFlattening);
    double sourceAxis = 0.0, sourceEcc2 = 0.0;
    m_pDatum->GetDtfSourceEllips(sourceAxis, sourceEcc2);
    record.SetSrcElpsoidParams(sourceAxis, std::sqrt(sourceEcc2));
    record.SetSrcElpName(GetSrcElpName());
}

void ZORGeoCoordSys::DescribeTransformation(ZorGeoStaticData& record)
{
    std::array<double, 15> p{};
    bool fixedHeight = false;
    double forward = 0.0, reverse = 0.0;
    GetDatumParameters(p[0], p[1], p[2], p[3], p[4], p[5], p[6], p[7], p[8], p[9], p[10], p[11], p[12], p[13], p[14],
                       fixedHeight, forward, reverse);
    record.SetDtTransferParams(p[0], p[1], p[2], p[3], p[4], p[5], p[6], p[7], p[8], p[9], p[10], p[11], p[12], p[13],
                               p[14], fixedHeight, forward, reverse);
    record.SetDttransNameAndKey(m_dtfName, L"");
    const CString method = GetDtfMethodName();
    record.SetDtTransferMdName(method, record.GetDtTransMethodByName(method));
}

void ZORGeoCoordSys::DescribeProjectionAndUnit(ZorGeoStaticData& record)
{
    record.SetPrjMdName(GetPrjMdName());
    record.SetPrjNameAndType(m_projectionName, static_cast<short>(m_projectionType));
    CArray<double, double> values;
    CStringArray names;
    CStringArray texts;
    CArray<UINT, UINT> kinds;
    GetProjectionConstants(values, names, texts, kinds);
    record.SetPrjParams(values, names, texts, kinds);
    double factor = 1.0;
    short format = 0;
    CString suffix;
    GetLinearUnitParameters(factor, format, suffix);
    record.SetUnitParams(factor, format, suffix);
    record.SetUnitNameAndKey(m_unitName, L"");
}

void ZORGeoCoordSys::DescribeCorrections(ZorGeoStaticData& record)
{
    record.SetUseGeoidModelStatu(m_hasGeoidModel);
    record.SetUsePostCorrctStatu(m_hasPostCorrection);
    record.SetGeoidMethod(m_geoidModelMd);
    record.SetGeoidGrid(m_geoidGrid);
    if (m_geoidModelMd == GeoidmodelTypeKeys[GeoidType::manual]) {
        record.SetGeoidManualInput(m_manualSeparation);
    }
    record.SetPostCorrection(m_postShiftX, m_postShiftY, m_postShiftZ);
    record.SetUsePostHorAdjustStatu(m_hasPostHorAdjust);
    if (m_hasPostHorAdjust) {
        record.SetPostHorAdjust(m_horAdjustOriginX, m_horAdjustOriginY, m_horAdjustRotation, m_horAdjustScale);
    }
    record.SetUsePostVertAdjustStatu(m_hasPostVertAdjust);
    if (m_hasPostVertAdjust) {
        record.SetPostVertAdjust(m_vertAdjustOriginX, m_vertAdjustOriginY, m_vertAdjustSlopeX, m_vertAdjustSlopeY);
    }
    record.SetPostCorrtFile(m_gridCorrectionFile);
    record.SetPostCorrtModel(m_gridCorrectionModel);
}
