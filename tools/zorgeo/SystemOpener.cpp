#include "SystemOpener.h"

#include <fmt/format.h>

#include "DatabaseText.h"
#include "NameFinder.h"
#include "Output.h"
#include "SystemCheck.h"
#include "ToolDesk.h"
#include "ToolError.h"
#include "base/geoid/GeoidModelList.h"
#include "base/keys/KeyTables.h"

namespace {

CString Wide(const std::string& utf8)
{
    return CString::FromUtf8(utf8);
}

/// The names of geoid models in older records and what they mean today.
struct OldModelName {
    const wchar_t* old;
    int type;
};
constexpr OldModelName kOldModelNames[] = {{L"Grid Model Geoid Model", GeoidType::gridModel},
                                           {L"Sweden Swen01l", GeoidType::swen}};

/// The type number of a model, 0 for a name that stands for none, -1 for an unknown one.
int ModelType(const CString& name, bool oldNamesToo)
{
    if (name.IsEmpty() || name == GeoidmodelTypeKeys[GeoidType::none] || name == kNoModel) {
        return 0;
    }
    for (int type = GeoidType::firstModel; type <= GeoidType::lastModel; ++type) {
        if (name.CompareNoCase(GeoidmodelTypeKeys[static_cast<std::size_t>(type)]) == 0) {
            return type;
        }
    }
    for (const OldModelName& row : kOldModelNames) {
        if (oldNamesToo && name == row.old) {
            return row.type;
        }
    }
    return -1;
}

/// A model of our own with the same file as the system's, to know that it can be made and read.
/// Null with `fault` set otherwise.
std::unique_ptr<GeoidModel> TryModel(ZorGeoCoordSysBase& coordSys, const CString& name, const CString& file, int type,
                                     std::string& fault)
{
    if (type < 0) {
        fault = fmt::format("there is no model \"{}\"; see: zorgeo list geoids", name.ToUtf8());
        return nullptr;
    }
    std::unique_ptr<GeoidModel> model(GeoidModelList::GetGeoidModelList().Create(static_cast<unsigned short>(type)));
    if (!model || !model->InitModel(&coordSys)) {
        fault = fmt::format("the model \"{}\" has no reader in this program; see: zorgeo list geoids", name.ToUtf8());
        return nullptr;
    }
    if (!model->SetModelFile(file)) {
        fault = file.IsEmpty()
                    ? fmt::format("the model \"{}\" has no file", name.ToUtf8())
                    : fmt::format("the file \"{}\" of the model \"{}\" cannot be opened or is none of that model",
                                  file.ToUtf8(), name.ToUtf8());
        return nullptr;
    }
    return model;
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
    ZorGeoCoordSysBase& coordSys = *opened.coordSys;
    const CString method = coordSys.GetGeoidModelMd();
    const bool manual = method == GeoidmodelTypeKeys[GeoidType::manual];
    const int type = ModelType(method, true);
    if (!coordSys.HasGeoidModel() || (type == 0 && !manual)) {
        if (!request.geoidFile.empty() || !request.chartDatum.empty()) {
            throw ToolError(ExitStatus::usage, "--geoid-file and --chart-datum need a geoid model: the system has "
                                               "none in force, give --geoid-model");
        }
        return;
    }
    opened.hasGeoid = true;
    std::string fault;
    if (manual) {
        const CString section = kSystemPrefix + opened.name.system;
        double separation = 0.0;
        for (const FileObject* file : files.MainFirst(section)) {
            if (file->GetItem(section, kGeoidManual, separation)) {
                return;
            }
        }
        fault = fmt::format("section \"{}\" has no number under \"{}\"", section.ToUtf8(), kGeoidManual.ToUtf8());
    } else if (TryModel(coordSys, method, coordSys.GetGeoidGrid(), type, fault)) {
        return;
    }
    opened.hasGeoid = false;
    RefuseOrGoOn("geoid", fault, "--geoid-model and --geoid-file", request.allowMissing);
}

void PreparePostModel(const SystemRequest& request, OpenedSystem& opened)
{
    ZorGeoCoordSysBase& coordSys = *opened.coordSys;
    const CString name = coordSys.GetGridCorrectionModel();
    const int type = ModelType(name, false);
    if (type == 0) {
        if (!request.postFile.empty()) {
            throw ToolError(ExitStatus::usage,
                            "--post-file needs a post model: the system has none, give --post-model");
        }
        return;
    }
    std::string fault;
    opened.postModel = TryModel(coordSys, name, coordSys.GetGridCorrectionFile(), type, fault);
    if (!opened.postModel) {
        RefuseOrGoOn("post correction", fault, "--post-model and --post-file", request.allowMissing);
    }
}

/// A project in memory with the one entry that Init asks for.
std::unique_ptr<FileObject> ProjectInMemory()
{
    auto project = std::make_unique<FileObject>();
    project->SetItem(CString(FORMATS_SECTION), formatParamKeys[FormatKey::unitFormat], 0.0, true);
    return project;
}

FileObject OpenProject(const std::string& path)
{
    FileObject project;
    OpenOrExplain(project, Wide(path), "name a project with --project, or leave it out");
    if (!project.HasSection(CString(FORMATS_SECTION))) {
        throw ToolError(ExitStatus::unusable,
                        fmt::format("{}: section \"{}\" is missing; is this a project? Save it again with the program "
                                    "that made it",
                                    path, CString(FORMATS_SECTION).ToUtf8()));
    }
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

[[noreturn]] void ExplainFailure(const OpenedSystem& opened, const ToolDesk& desk)
{
    if (!desk.AskedFor().IsEmpty()) {
        throw ToolError(ExitStatus::nobodyToAsk,
                        fmt::format("the project's \"{}\" differs from the record of that name in the database, and a "
                                    "new name would have to be asked for; settle it in a program with windows, or "
                                    "leave --project out",
                                    desk.AskedFor().ToUtf8()));
    }
    throw ToolError(ExitStatus::unusable,
                    fmt::format("the system \"{}\" of the group \"{}\" cannot be initialised although all its records "
                                "are there: its projection refuses the parameters (a scale factor below 0.8, a "
                                "southern standard parallel); mend the projection's record",
                                opened.name.system.ToUtf8(), opened.name.group.ToUtf8()));
}

} // namespace

OpenedSystem OpenSystem(Session& session, const SystemRequest& request)
{
    OpenedSystem opened;
    const bool inMemory = request.project.empty();
    FileObject project;
    if (!inMemory) {
        project = OpenProject(request.project);
    }
    opened.name = NameOf(session, request, inMemory ? nullptr : &project);
    const CString unit = UnitOf(session, request);
    opened.coordSys = session.NewCoordSys();
    ToolDesk desk;
    bool good = false;
    if (inMemory) {
        opened.m_project = ProjectInMemory();
        good = opened.coordSys->Init(opened.name.group, opened.name.system, Wide(request.geoidModel),
                                     Wide(request.geoidFile), Wide(request.chartDatum), Wide(request.postModel),
                                     Wide(request.postFile), *opened.m_project, unit, true);
    } else {
        good = opened.coordSys->Init(opened.name.group, opened.name.system, Wide(request.geoidModel),
                                     Wide(request.geoidFile), Wide(request.chartDatum), Wide(request.postModel),
                                     Wide(request.postFile), Wide(request.project), unit);
        // A project that has never saved its system has nothing to compare with the database; the
        // parts are then built all the same.
        if (!good && opened.coordSys->IsInit() && !project.HasSection(CString(COORDSYSTEM_BACKUP_SECTION))) {
            Remark(fmt::format("{}: the project holds no backup of a system to compare with", request.project));
            good = true;
        }
    }
    if (!good) {
        ExplainFailure(opened, desk);
    }
    PrepareGeoid(session.Files(), request, opened);
    PreparePostModel(request, opened);
    return opened;
}
