#include <fmt/format.h>

#include "CommonOptions.h"
#include "NameFinder.h"
#include "Output.h"
#include "SystemOptions.h"
#include "base/keys/KeyTables.h"
#include "project/ProjectActions.h"
#include "project/ProjectFile.h"
#include "project/ProjectReport.h"
#include "project/ProjectText.h"

namespace {

constexpr const char* kFooter =
    "What is not given stays as the project has it; '' takes a choice back. Another system begins\n"
    "without choices and gets its backup at once: the earlier backup is of the earlier system.\n\n"
    "Example:\n"
    "  zorgeo project save survey.prj --unit 'US Survey Feet'";

class SaveAction : public Command {
public:
    explicit SaveAction(CLI::App* app) : Command(app), m_app(app)
    {
        app->add_option("FILE", m_file, "The project")->required();
        app->add_option("--system", m_system.system,
                        "Another system: its name, a part of it that no other has, or EPSG:CODE")
            ->type_name("SYSTEM");
        AddSystemSettings(*app, m_system);
        m_common.AddTo(*app, "Tell what was done as JSON");
        app->footer(kFooter);
    }

    ExitStatus Run() override
    {
        if (m_system.system.empty() && !m_system.group.empty()) {
            throw ToolError(ExitStatus::usage, "--group goes with --system");
        }
        FileObject project = OpenProject(m_file);
        Session session(m_common);
        const SystemRequest request = Completed(session, project);
        const OpenedSystem opened = OpenSystem(session, request);
        WriteReference(project, *opened.coordSys, UnitOf(session, request));
        if (!BackupIsOf(project, opened.name)) {
            WriteBackup(session, project, opened.name);
            Remark("the backup is written as well: the project had none of this system");
        }
        SaveProject(project, m_file);
        Tell({m_file, opened.name, {}, {}, {false, true}}, m_common.json);
        return ExitStatus::good;
    }

private:
    bool Given(const char* option) const { return m_app->get_option(option)->count() > 0; }

    /// The command line's request with the project's own where it does not say otherwise.
    SystemRequest Completed(Session& session, const FileObject& project) const
    {
        SystemRequest request = m_system;
        if (!m_system.system.empty()) {
            const SystemName named = FindSystem(session, m_system.group, m_system.system);
            request.group = named.group.ToUtf8();
            request.system = named.system.ToUtf8();
            const SystemName present = PeekReference(project).name;
            if (!(named.group == present.group && named.system == present.system)) {
                return request;
            }
        }
        CheckKnown(session.Files(), project, ReadReference(project).name);
        SystemRequest own;
        TakeReference(session, project, own);
        request.group = own.group;
        request.system = own.system;
        const auto keep = [this](const char* option, std::string& wanted, const std::string& present) {
            if (!Given(option)) {
                wanted = present;
            }
        };
        keep("--unit", request.unit, own.unit);
        keep("--geoid-model", request.geoidModel, own.geoidModel);
        keep("--geoid-file", request.geoidFile, own.geoidFile);
        keep("--chart-datum", request.chartDatum, own.chartDatum);
        keep("--post-model", request.postModel, own.postModel);
        keep("--post-file", request.postFile, own.postFile);
        return request;
    }

    static bool BackupIsOf(const FileObject& project, const SystemName& name)
    {
        const CString backup = COORDSYSTEM_BACKUP_SECTION;
        SystemName present;
        return project.GetItem(backup, kBackupGroup, present.group) &&
               project.GetItem(backup, kBackupSystem, present.system) && present.group == name.group &&
               present.system == name.system;
    }

    CLI::App* m_app; // owned by the program's parser
    std::string m_file;
    SystemRequest m_system;
    CommonOptions m_common;
};

constexpr const char* kBackupFooter = "The database's values take the place of the backup's.\n\n"
                                      "Example:\n"
                                      "  zorgeo project backup survey.prj";

class BackupAction : public Command {
public:
    explicit BackupAction(CLI::App* app) : Command(app)
    {
        app->add_option("FILE", m_file, "The project")->required();
        m_common.AddTo(*app, "Tell what was done as JSON");
        app->footer(kBackupFooter);
    }

    ExitStatus Run() override
    {
        FileObject project = OpenProject(m_file);
        Session session(m_common);
        const SystemName name = ReadReference(project).name;
        CheckKnown(session.Files(), project, name);
        WriteBackup(session, project, name);
        SaveProject(project, m_file);
        Tell({m_file, name, {}, {}, {false, true}}, m_common.json);
        return ExitStatus::good;
    }

private:
    std::string m_file;
    CommonOptions m_common;
};

} // namespace

std::unique_ptr<Command> MakeProjectSave(CLI::App& project)
{
    return std::make_unique<SaveAction>(
        project.add_subcommand("save", "Change the system of a project, or its choice of corrections and unit"));
}

std::unique_ptr<Command> MakeProjectBackup(CLI::App& project)
{
    return std::make_unique<BackupAction>(project.add_subcommand("backup", "Write the backup anew from the database"));
}
