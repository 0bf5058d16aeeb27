// Init: finds the system in the two files of the database and builds its parts.
//
// A system's record can stand in either file, and so can each record it names. A whole system is
// looked for in the user file first, so that one restored from a project beats a delivered one of
// the same name; a unit in the main file first.

#include <cmath>
#include <limits>

#include "coordsys/ZORGeoCoordSys.h"
#include "database/RecordReaders.h"
#include "datum/CDatumTransform.h"
#include "datum/Ellipsoid.h"
#include "frame/ReadItem.h"
#include "frame/RecordNames.h"
#include "frame/ZorGeoUtility.h"
#include "projections/CProjection.h"
#include "projections/ProjectionFactory.h"

namespace {

// Numbers of the string table.
constexpr unsigned kCannotOpenDatabase = 15396;
constexpr unsigned kCannotOpenProject = 15397;

// A host that passes a null pointer on as a reference is answered, not crashed. Compilers take a
// reference's address to be never null; one that was read from memory they have to look at.
FileObject* AddressOrNull(FileObject& file)
{
    FileObject* const volatile address = &file;
    return address;
}

// The whole part of a format number; 0 for what no format number is.
short FormatNumber(double value)
{
    const double whole = std::trunc(value);
    const bool fits = whole >= std::numeric_limits<short>::min() && whole <= std::numeric_limits<short>::max();
    return fits ? static_cast<short>(whole) : short{0};
}

} // namespace

bool ZORGeoCoordSys::IsInit()
{
    return m_isInit;
}

bool ZORGeoCoordSys::Init(CString group, CString system, CString geoidModel, CString geoidFile, CString chartDatum,
                          CString postModel, CString postFile, CString projectFile, CString unit)
{
    // Kept: a project that an earlier call was given open is not let go of here, and so stays the
    // one that is read: changing over takes a new object.
    DeleteObjects();
    m_externalProjectFile = false;
    m_projectFileName = projectFile.IsEmpty() ? ZorGeoUtility::Get().projectDir + kProjectFile : projectFile;
    if (!OpenDatabase()) {
        return false;
    }
    StoreArguments(group, system, geoidModel, geoidFile, chartDatum, postModel, postFile);
    return BuildSystem(unit) && CheckDataBaseWithProjectBackup(unit);
}

bool ZORGeoCoordSys::Init(CString group, CString system, CString geoidModel, CString geoidFile, CString chartDatum,
                          CString postModel, CString postFile, FileObject& project, CString unit, bool silent)
{
    m_silent = silent;
    DeleteObjects();
    m_externalProjectFile = true;
    // The caller's object: shared by copies of this one, freed by nobody here.
    m_pProjectFile = std::shared_ptr<FileObject>(AddressOrNull(project), [](FileObject*) {});
    if (!m_pProjectFile) {
        return false;
    }
    m_projectFileName = m_pProjectFile->GetFileName();
    if (!OpenDatabase()) {
        return false;
    }
    StoreArguments(group, system, geoidModel, geoidFile, chartDatum, postModel, postFile);
    return BuildSystem(unit) && (silent || CheckDataBaseWithProjectBackup(unit));
}

// Opens the project, unless there is one, and the database.
bool ZORGeoCoordSys::OpenDatabase()
{
    if (!m_externalProjectFile && !m_pProjectFile) {
        m_pProjectFile = std::make_shared<FileObject>();
        if (!m_pProjectFile->FileOpen(m_projectFileName, FileMode::openForReading)) {
            if (!m_silent) {
                AfxMessageBox(kCannotOpenProject);
            }
            return false;
        }
    }
    if (m_database.Init()) {
        return true;
    }
    if (!m_silent) {
        AfxMessageBox(kCannotOpenDatabase);
    }
    return false;
}

void ZORGeoCoordSys::StoreArguments(const CString& group, const CString& system, const CString& geoidModel,
                                    const CString& geoidFile, const CString& chartDatum, const CString& postModel,
                                    const CString& postFile)
{
    m_sysName = system;
    m_groupName = group;
    m_geoidModelArg = geoidModel;
    m_geoidFileArg = geoidFile;
    m_chartDatum = chartDatum;
    m_postModelArg = postModel;
    m_postFileArg = postFile;
}

bool ZORGeoCoordSys::BuildSystem(const CString& unit)
{
    return FindSystem() && BuildParts(unit);
}

bool ZORGeoCoordSys::BuildParts(const CString& unit)
{
    if (!CreateObjects()) {
        return false;
    }
    if (unit.CompareNoCase(kKeepUnit) != 0 && !SetCoordSysUnit(unit)) {
        return false;
    }
    return IniGeoCorrections();
}

// Reads the system's record; one that neither file has may come back from the project's backup.
bool ZORGeoCoordSys::FindSystem()
{
    if (IniZorCoordSys(m_database.GetUserFile(), m_groupName, m_sysName) ||
        IniZorCoordSys(m_database.GetMainFile(), m_groupName, m_sysName)) {
        return true;
    }
    return RestoreBackupCheckNameConflict() && FindRestoredSystem();
}

// Reads the record of a system that has just been written into the user file.
bool ZORGeoCoordSys::FindRestoredSystem()
{
    DeleteObjects();
    return OpenDatabase() && IniZorCoordSys(m_database.GetUserFile(), m_groupName, m_sysName);
}

bool ZORGeoCoordSys::IniZorCoordSys(const FileObject& file, const CString& group, const CString& system)
{
    const CString section = kSystemPrefix + system;
    if (!file.HasSection(kGroupPrefix + group) || !file.HasSection(section)) {
        return false;
    }
    ReadItem(file, section, kSystemDatum, m_dtfName);
    ReadItem(file, section, kSystemUnit, m_unitName);
    if (m_unitName.CompareNoCase(kMeterAlias) == 0) {
        m_unitName = kMeters;
    }
    ReadItem(file, section, kSystemEllipsoid, m_ellipsoidName);
    ReadItem(file, section, kSystemProjection, m_projectionName);
    return ReadUnit(m_unitName);
}

// Takes factor and suffix of `unit`, and the project's format number, for the unit in effect.
// Kept: it bears the name of the system's unit whichever unit is asked for, so that a project
// goes on naming the unit of the system's record.
bool ZORGeoCoordSys::ReadUnit(const CString& unit)
{
    if (!m_pProjectFile || !m_pProjectFile->HasSection(FORMATS_SECTION)) {
        return false;
    }
    CString text;
    if (!ReadItem(m_database.GetMainFile(), kUnitsSection, unit, text) &&
        !ReadItem(m_database.GetUserFile(), kUnitsSection, unit, text)) {
        return false;
    }
    m_unit.Set(m_unitName, text, UnitFormat());
    return true;
}

// The project's number for the display of lengths.
short ZORGeoCoordSys::UnitFormat() const
{
    double format = 0.0;
    ReadItem(*m_pProjectFile, FORMATS_SECTION, formatParamKeys[FormatKey::unitFormat], format);
    return FormatNumber(format);
}

bool ZORGeoCoordSys::CreateEllipsoid(const FileObject& file)
{
    const CString section = kEllipsoidPrefix + m_ellipsoidName;
    if (!file.HasSection(section)) {
        return false;
    }
    double a = 0.0;
    double e2 = 0.0;
    ReadItem(file, section, kSemiMajor, a);
    ReadItem(file, section, kEccSquared, e2);
    m_pEllipsoid = std::make_shared<Ellipsoid>();
    m_pEllipsoid->Set(a, e2);
    Ellipsoid::SetUnitFactor(m_unit.factor);
    return true;
}

bool ZORGeoCoordSys::CreateProjection(const FileObject& file)
{
    const CString section = kProjectionPrefix + m_projectionName;
    if (!file.HasSection(section)) {
        return false;
    }
    long type = m_projectionType;
    ReadItem(file, section, projectionParamKeys[ProjectionKey::type], type);
    m_projectionType = static_cast<int>(type);
    ReadItem(file, section, kProjectionMethod, m_projectionMethod);
    m_pProjection.reset();
    std::shared_ptr<CProjection> projection = NewProjection();
    if (!projection || LoadProjection(*projection, file, section) != ProjectionLoad::loaded) {
        return false;
    }
    m_pProjection = std::move(projection);
    return true;
}

// A projection of the system's type, on its ellipsoid, still to be loaded. Null without an
// ellipsoid and for a type that has no class.
std::shared_ptr<CProjection> ZORGeoCoordSys::NewProjection() const
{
    if (!m_pEllipsoid) {
        return nullptr;
    }
    std::shared_ptr<CProjection> projection(
        ProjectionFactory::CreateProjectionByType(static_cast<std::uint32_t>(m_projectionType)));
    if (projection) {
        projection->SetEllipsoid(m_pEllipsoid->semiMajor, m_pEllipsoid->eccSquared);
        projection->SetName(m_projectionMethod);
    }
    return projection;
}

bool ZORGeoCoordSys::CreateTransformation(FileObject& file)
{
    m_pDatum.reset();
    CString section = kDatumPrefix + m_dtfName;
    if (!file.HasSection(section)) {
        section = ShortenedDatumSection(section);
    }
    if (!file.HasSection(section)) {
        return false;
    }
    auto datum = std::make_shared<CDatumTransform>();
    if (!datum->Load(m_database, file, section)) {
        return false;
    }
    m_pDatum = std::move(datum);
    CDatumTransform::SetUnitCnv(m_unit.factor);
    double a = 0.0;
    double e2 = 0.0;
    m_pDatum->GetDtfSourceEllips(a, e2);
    m_pSrcEllipsoid = std::make_shared<Ellipsoid>();
    m_pSrcEllipsoid->Set(a, e2);
    return true;
}

bool ZORGeoCoordSys::CreateObjects()
{
    FileObject& user = m_database.GetUserFile();
    FileObject& main = m_database.GetMainFile();
    if (!CreateEllipsoid(user) && !CreateEllipsoid(main)) {
        return false;
    }
    if (!CreateProjection(user) && !CreateProjection(main)) {
        return false;
    }
    if (!CreateTransformation(user) && !CreateTransformation(main)) {
        return false;
    }
    m_isInit = true;
    return true;
}

// Kept: IsInit, the models and the name of the extra transformation outlive the parts, so that IsInit
// tells nothing of a later Init, and the models go with CloseCorrectionModels.
void ZORGeoCoordSys::DeleteObjects()
{
    m_pEllipsoid.reset();
    m_pProjection.reset();
    m_pDatum.reset();
    m_pSrcEllipsoid.reset();
    m_pExtraDtf.reset();
    if (!m_externalProjectFile) {
        m_pProjectFile.reset();
    }
}
