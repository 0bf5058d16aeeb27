#include "SystemOpener.h"

#include <fmt/format.h>

#include "DatabaseText.h"
#include "ModelCheck.h"
#include "NameFinder.h"
#include "Output.h"
#include "SystemCheck.h"
#include "ToolDesk.h"
#include "ToolError.h"
#include "UserDatabaseLock.h"
#include "base/keys/KeyTables.h"
#include "project/CarriedOver.h"
#include "project/ProjectFile.h"

namespace {

CString Wide(const std::string& utf8)
{
    return CString::FromUtf8(utf8);
}

void RefuseOrGoOn(const std::string& what, const std::string& fault, const std::string& options, bool allowMissing)
{
    if (!allowMissing) {
        throw ToolError(
            ExitStatus::unusable,
            fmt::format("{}: {}; name it with {}, or go on without it with --allow-missing", what, fault, options));
    }
    Remark(fmt::format("{}: {}; going on without it", what, fault));
}

void PrepareGeoid(const DatabaseFiles& files, const SystemRequest& request, OpenedSystem& opened)
{
    const ModelState geoid = TryGeoid(files, opened.name, *opened.coordSys);
    if (!geoid.inForce) {
        if (!request.geoidFile.empty() || !request.chartDatum.empty()) {
            throw ToolError(ExitStatus::usage, "--geoid-file and --chart-datum need a geoid model: the system has "
                                               "none in force, give --geoid-model");
        }
        return;
    }
    opened.hasGeoid = geoid.fault.empty();
    if (!opened.hasGeoid) {
        RefuseOrGoOn("geoid", geoid.fault, "--geoid-model and --geoid-file", request.allowMissing);
    }
}

void PreparePostModel(const SystemRequest& request, OpenedSystem& opened)
{
    ModelState post = TryPostModel(*opened.coordSys);
    if (!post.inForce) {
        if (!request.postFile.empty()) {
            throw ToolError(ExitStatus::usage,
                            "--post-file needs a post model: the system has none, give --post-model");
        }
        return;
    }
    opened.postModel = std::move(post.model);
    if (!opened.postModel) {
        RefuseOrGoOn("post correction", post.fault, "--post-model and --post-file", request.allowMissing);
    }
}

/// A project in memory with the one entry that Init asks for.
std::unique_ptr<FileObject> ProjectInMemory()
{
    auto project = std::make_unique<FileObject>();
    project->SetItem(CString(FORMATS_SECTION), formatParamKeys[FormatKey::unitFormat], 0.0, true);
    return project;
}

/// The names, from the database or, when it does not know them, from the project's backup: Init
/// then restores the system.
SystemName NameOf(Session& session, const SystemRequest& request, const FileObject* project)
{
    try {
        const SystemName name = FindSystem(session, request.group, request.system);
        CheckSystemRecord(session.Files(), name);
        return name;
    } catch (const ToolError& error) {
        if (error.Status() != ExitStatus::usage || project == nullptr || request.group.empty() ||
            !project->HasSection(CString(COORDSYSTEM_BACKUP_SECTION))) {
            throw;
        }
        Remark(fmt::format("the database does not know the system \"{}\"; it is restored from the project",
                           request.system));
        return {Wide(request.group), Wide(request.system)};
    }
}

/// The project's own names, exactly; a system that the database does not know is restored by Init.
SystemName OwnNameOf(Session& session, const SystemRequest& request, const FileObject& project)
{
    const SystemName name{Wide(request.group), Wide(request.system)};
    if (HasBackup(project)) {
        CheckBackup(session.Files(), project);
    }
    if (!HasBackup(project) || HasSystemRecord(session.Files(), name)) {
        CheckKnown(session.Files(), project, name);
    } else {
        Remark(fmt::format("the database does not know the system \"{}\"; it is restored from the project",
                           request.system));
    }
    return name;
}

[[noreturn]] void ExplainFailure(const OpenedSystem& opened, const ToolDesk& desk)
{
    if (!desk.AskedFor().IsEmpty()) {
        throw ToolError(ExitStatus::nobodyToAsk,
                        fmt::format("the project's \"{}\" differs from the record of that name in the database, and a "
                                    "new name would have to be asked for; settle it with zorgeo project open {}, or "
                                    "leave --project out",
                                    desk.AskedFor().ToUtf8(), opened.request.project));
    }
    throw ToolError(ExitStatus::unusable,
                    fmt::format("the system \"{}\" of the group \"{}\" cannot be initialised although all its records "
                                "are there: its projection refuses the parameters (a scale factor below 0.8, a "
                                "southern standard parallel); mend the projection's record",
                                opened.name.system.ToUtf8(), opened.name.group.ToUtf8()));
}

bool Initialise(OpenedSystem& opened, FileObject& project, const CString& unit, bool silent)
{
    const SystemRequest& request = opened.request;
    return opened.coordSys->Init(opened.name.group, opened.name.system, Wide(request.geoidModel),
                                 Wide(request.geoidFile), Wide(request.chartDatum), Wide(request.postModel),
                                 Wide(request.postFile), project, unit, silent);
}

/// Also compares the system with the project's backup, and restores from it what the database lacks.
bool InitialiseByProject(Session& session, OpenedSystem& opened, FileObject& project, const CString& unit)
{
    bool good = Initialise(opened, project, unit, false);
    session.Reopen(); // a restored system has its records since
    // A project that has never saved its system has nothing to compare with the database; the parts
    // are then built all the same.
    if (!good && opened.coordSys->IsInit() && !HasBackup(project)) {
        Remark(fmt::format("{}: the project holds no backup of a system to compare with", opened.request.project));
        good = true;
    }
    if (good) {
        CheckCarriedOver(session, project);
    }
    return good;
}

/// Opens by a project. The user database is this process's to change meanwhile.
bool OpenByProject(Session& session, OpenedSystem& opened, FileObject& project)
{
    const UserDatabaseLock lock(session.UserDirectory());
    session.Reopen();
    SystemRequest& request = opened.request;
    const bool own = request.system.empty();
    project = OpenProject(request.project);
    if (own) {
        TakeReference(session, project, request);
    }
    opened.name = own ? OwnNameOf(session, request, project) : NameOf(session, request, &project);
    return InitialiseByProject(session, opened, project, UnitOf(session, request));
}

} // namespace

CString UnitOf(Session& session, const SystemRequest& request)
{
    if (request.unit.empty() || Wide(request.unit).CompareNoCase(kKeepUnit) == 0) {
        return kKeepUnit;
    }
    CStringArray all;
    session.Database().GetAllUnitNames(all);
    const CString unit = FindName(std::vector<CString>(all.begin(), all.end()), request.unit, "unit");
    CheckUnit(session.Files(), unit, "--unit");
    return unit;
}

OpenedSystem OpenSystem(Session& session, const SystemRequest& request)
{
    OpenedSystem opened;
    opened.request = request;
    opened.coordSys = session.NewCoordSys();
    ToolDesk desk;
    bool good = false;
    if (request.project.empty()) {
        opened.m_project = ProjectInMemory();
        opened.name = NameOf(session, request, nullptr);
        good = Initialise(opened, *opened.m_project, UnitOf(session, request), true);
    } else {
        opened.m_project = std::make_unique<FileObject>();
        good = OpenByProject(session, opened, *opened.m_project);
    }
    if (!good) {
        ExplainFailure(opened, desk);
    }
    PrepareGeoid(session.Files(), opened.request, opened);
    PreparePostModel(opened.request, opened);
    return opened;
}
