#include "project/Reconciling.h"

#include <fmt/format.h>

#include "DatabaseText.h"
#include "SystemCheck.h"
#include "ToolError.h"
#include "base/keys/KeyTables.h"
#include "project/ProjectFile.h"
#include "project/ProjectText.h"

namespace {

/// The module does not tell the project when it finds another name for a system that it did not
/// find in its group.
void TellProject(FileObject& project, const CString& system)
{
    CString named;
    const CString reference = COORDSYSTEM_SECTION;
    const CString& key = coordsystemKeys[CoordsystemKey::system];
    if (project.GetItem(reference, key, named) && named == system) {
        return;
    }
    project.SetItem(reference, key, system, true);
    project.SetItem(CString(COORDSYSTEM_BACKUP_SECTION), kBackupSystem, system, true);
    SaveProject(project, project.GetFileName().ToUtf8());
}

} // namespace

SystemName Reconcile(Session& session, FileObject& project, NamingDesk& desk)
{
    SystemName name = ReadReference(project).name;
    CheckBackup(session.Files(), project);
    if (HasSystemRecord(session.Files(), name)) {
        CheckSystemRecord(session.Files(), name);
    }
    const std::unique_ptr<ZorGeoCoordSysBase> coordSys = session.NewCoordSys();
    // Corrections and unit of the project's own choice settle nothing; who converts looks at them.
    if (!coordSys->Init(name.group, name.system, L"", L"", L"", L"", L"", project, kKeepUnit, false)) {
        if (!desk.Refusal().empty()) {
            throw ToolError(ExitStatus::nobodyToAsk,
                            fmt::format("{}: {}", project.GetFileName().ToUtf8(), desk.Refusal()));
        }
        throw ToolError(ExitStatus::unusable,
                        fmt::format("{}: the backup of the system \"{}\" cannot be restored: its projection refuses "
                                    "the parameters, or its method is not in the catalogue; bring another copy of the "
                                    "project",
                                    project.GetFileName().ToUtf8(), name.system.ToUtf8()));
    }
    coordSys->GetSysName(name.system);
    TellProject(project, name.system);
    return name;
}
