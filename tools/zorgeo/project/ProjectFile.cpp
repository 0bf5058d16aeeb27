#include "project/ProjectFile.h"

#include <fmt/format.h>

#include "DatabaseText.h"
#include "SystemCheck.h"
#include "ToolError.h"
#include "base/keys/KeyTables.h"
#include "base/text/CZorString.h"
#include "project/ProjectText.h"

namespace {

constexpr double kUnitFormat = 3.0; // decimals of a length on display

const CString& ReferenceSection()
{
    static const CString section = COORDSYSTEM_SECTION;
    return section;
}

const CString& BackupSection()
{
    static const CString section = COORDSYSTEM_BACKUP_SECTION;
    return section;
}

[[noreturn]] void Refuse(const FileObject& project, const std::string& fault, const std::string& remedy)
{
    throw ToolError(ExitStatus::unusable, fmt::format("{}: {}; {}", project.GetFileName().ToUtf8(), fault, remedy));
}

const CString& ReferenceKey(int key)
{
    return coordsystemKeys[static_cast<std::size_t>(key)];
}

void DemandName(const FileObject& project, int key, const CString& name)
{
    if (!name.IsEmpty()) {
        return;
    }
    Refuse(project,
           project.HasSection(ReferenceSection())
               ? fmt::format("section \"{}\": key \"{}\" is missing or empty", ReferenceSection().ToUtf8(),
                             ReferenceKey(key).ToUtf8())
               : fmt::format("section \"{}\" is missing", ReferenceSection().ToUtf8()),
           "zorgeo project save FILE --system SYSTEM writes it, project restore FILE takes it from the backup, and "
           "project convert-old FILE converts a project of the older generation");
}

constexpr const char* kBackupRemedy =
    "zorgeo project backup FILE writes it anew where the database knows the system; else bring a copy of the file back";

void CheckBackupNames(const FileObject& project)
{
    for (const CString& key : {kBackupSystem, kBackupGroup, kSystemDatum, kSystemProjection, kBackupProjectionMethod,
                               kUnitName, kSystemEllipsoid}) {
        CString name;
        if (!project.GetItem(BackupSection(), key, name) || name.IsEmpty()) {
            Refuse(
                project,
                fmt::format("section \"{}\": key \"{}\" is missing or empty", BackupSection().ToUtf8(), key.ToUtf8()),
                kBackupRemedy);
        }
    }
    int type = 0;
    if (!project.GetItem(BackupSection(), kBackupProjectionType, type)) {
        Refuse(project,
               fmt::format("section \"{}\": key \"{}\" is missing or is no number", BackupSection().ToUtf8(),
                           kBackupProjectionType.ToUtf8()),
               kBackupRemedy);
    }
}

void CheckBackupUnit(const FileObject& project)
{
    CString record;
    project.GetItem(kUnitBackup, kUnitName, record);
    const CZorString parts(record, L',', true, false);
    double factor = 0.0;
    if (!parts.GetItem(0, factor) || !(factor > 0.0)) {
        Refuse(project,
               fmt::format("section \"{}\": key \"{}\": \"{}\" is no factor and suffix", kUnitBackup.ToUtf8(),
                           kUnitName.ToUtf8(), record.ToUtf8()),
               kBackupRemedy);
    }
}

/// The section of today, or, in its absence, the older generation's.
const CString& SectionOf(const FileObject& project, const CString& today, const CString& older)
{
    return !project.HasSection(today) && project.HasSection(older) ? older : today;
}

void CheckBackupRecord(const FileObject& project, const CString& section, const RecordFault& fault)
{
    if (!project.HasSection(section)) {
        Refuse(project, fmt::format("section \"{}\" is missing", section.ToUtf8()), kBackupRemedy);
    }
    if (fault) {
        throw ToolError(ExitStatus::unusable, fmt::format("{}; {}", *fault, kBackupRemedy));
    }
}

CString Metres(const CString& unit)
{
    return unit.CompareNoCase(L"Meter") == 0 ? CString(L"Meters") : unit; // an alias that Init mends as well
}

void FillIfEmpty(std::string& wanted, const CString& own)
{
    if (wanted.empty()) {
        wanted = own.ToUtf8();
    }
}

} // namespace

FileObject OpenProject(const std::string& path)
{
    FileObject project;
    OpenOrExplain(project, CString::FromUtf8(path), "name the file of a project");
    if (!project.HasSection(CString(FORMATS_SECTION))) {
        throw ToolError(ExitStatus::unusable,
                        fmt::format("{}: section \"{}\" is missing; is this a project? Save it again with the program "
                                    "that made it",
                                    path, CString(FORMATS_SECTION).ToUtf8()));
    }
    return project;
}

ProjectReference PeekReference(const FileObject& project)
{
    ProjectReference reference;
    const auto read = [&](int key, CString& text) { project.GetItem(ReferenceSection(), ReferenceKey(key), text); };
    read(CoordsystemKey::group, reference.name.group);
    read(CoordsystemKey::system, reference.name.system);
    read(CoordsystemKey::geoidMethod, reference.geoidModel);
    read(CoordsystemKey::geoidGrid, reference.geoidFile);
    read(CoordsystemKey::chartDatum, reference.chartDatum);
    read(CoordsystemKey::postModel, reference.postModel);
    read(CoordsystemKey::postFile, reference.postFile);
    read(CoordsystemKey::unit, reference.unit);
    return reference;
}

ProjectReference ReadReference(const FileObject& project)
{
    const ProjectReference reference = PeekReference(project);
    DemandName(project, CoordsystemKey::group, reference.name.group);
    DemandName(project, CoordsystemKey::system, reference.name.system);
    return reference;
}

bool HasBackup(const FileObject& project)
{
    return project.HasSection(BackupSection());
}

void CheckKnown(const DatabaseFiles& files, const FileObject& project, const SystemName& name)
{
    if (!HasSystemRecord(files, name)) {
        Refuse(project,
               fmt::format("the database does not know the system \"{}\" of the group \"{}\"", name.system.ToUtf8(),
                           name.group.ToUtf8()),
               "zorgeo project open FILE brings it in from the project's backup");
    }
    CheckSystemRecord(files, name);
}

void CheckBackup(const DatabaseFiles& files, const FileObject& project)
{
    if (!HasBackup(project)) {
        Refuse(project, fmt::format("section \"{}\" is missing", BackupSection().ToUtf8()), kBackupRemedy);
    }
    CheckBackupNames(project);
    CheckBackupUnit(project);
    CheckBackupRecord(project, kEllipsoidBackup, EllipsoidFault(project, kEllipsoidBackup));
    const CString& projection = SectionOf(project, kProjectionBackup, kOldProjectionBackup);
    CheckBackupRecord(project, projection, ProjectionFault(project, projection));
    const CString& datum = SectionOf(project, kDatumBackup, kOldDatumBackup);
    CheckBackupRecord(project, datum, DatumFault(files, project, datum));
}

void TakeReference(Session& session, const FileObject& project, SystemRequest& request)
{
    const ProjectReference own = ReadReference(project);
    request.group = own.name.group.ToUtf8();
    request.system = own.name.system.ToUtf8();
    FillIfEmpty(request.geoidModel, own.geoidModel);
    FillIfEmpty(request.geoidFile, own.geoidFile);
    FillIfEmpty(request.chartDatum, own.chartDatum);
    FillIfEmpty(request.postModel, own.postModel);
    FillIfEmpty(request.postFile, own.postFile);
    CString unit;
    if (HasSystemRecord(session.Files(), own.name)) {
        unit = session.Database().GetSystemUnit(own.name.group, own.name.system);
    } else {
        project.GetItem(BackupSection(), kUnitName, unit);
    }
    if (Metres(unit) != Metres(own.unit)) {
        FillIfEmpty(request.unit, own.unit);
    }
}

void AddFormats(FileObject& project)
{
    const CString formats = FORMATS_SECTION;
    if (!project.HasKey(formats, formatParamKeys[FormatKey::unitFormat])) {
        project.SetItem(formats, formatParamKeys[FormatKey::unitFormat], kUnitFormat, true);
    }
}

void WriteReference(FileObject& project, ZorGeoCoordSysBase& coordSys, const CString& unit)
{
    AddFormats(project);
    coordSys.Save(project);
    if (!(unit == kKeepUnit)) {
        project.SetItem(ReferenceSection(), ReferenceKey(CoordsystemKey::unit), unit, true);
    }
}

void WriteBackup(Session& session, FileObject& project, const SystemName& name)
{
    // Without the project's own choice of corrections and unit: those stand in the reference, and
    // whoever restores the system gets it as the database has it here.
    const std::unique_ptr<ZorGeoCoordSysBase> coordSys = session.NewCoordSys();
    if (!coordSys->Init(name.group, name.system, L"", L"", L"", L"", L"", project, kKeepUnit, true)) {
        throw ToolError(ExitStatus::unusable,
                        fmt::format("the system \"{}\" cannot be initialised; zorgeo show SYSTEM tells more",
                                    name.system.ToUtf8()));
    }
    // A key that the new backup does not write would keep what belonged to another system.
    for (const CString& section : {BackupSection(), kUnitBackup, kProjectionBackup, kDatumBackup}) {
        project.DeleteSection(section);
    }
    coordSys->SaveBackup(project);
}

void SaveProject(const FileObject& project, const std::string& path)
{
    if (!project.FileSave(CString::FromUtf8(path), FileMode::saveExclusive)) {
        throw ToolError(ExitStatus::inputOutput, fmt::format("{}: the project cannot be written; it is as it was: {}",
                                                             path, project.GetErrorText().ToUtf8()));
    }
}
