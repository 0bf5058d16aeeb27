#include <map>

#include "CommonOptions.h"
#include "base/keys/KeyTables.h"
#include "project/CarriedOver.h"
#include "project/ProjectActions.h"
#include "project/ProjectFile.h"
#include "project/ProjectReport.h"
#include "project/ProjectText.h"
#include "project/Reconciling.h"

namespace {

constexpr const char* kOpenFooter =
    "What the database lacks is added to the user database. Where it has something else under a name,\n"
    "the project's record gets another: --on-conflict ask asks for it on a terminal, fail does not,\n"
    "suffix takes the first free of NAME (2), NAME (3)... Without a name the exit status is 5 and\n"
    "nothing is changed.\n\n"
    "Example:\n"
    "  zorgeo project open survey.prj --on-conflict suffix";

constexpr const char* kRestoreFooter =
    "The project is opened as the backup has it, whatever its reference says; group and system of the\n"
    "reference become the backup's. --on-conflict as with project open.\n\n"
    "Example:\n"
    "  zorgeo project restore survey.prj --on-conflict suffix";

const std::map<std::string, OnConflict> kPolicies = {
    {"ask", OnConflict::ask}, {"fail", OnConflict::fail}, {"suffix", OnConflict::suffix}};

/// Has the reference name the system of the backup.
void ReferToBackup(FileObject& project)
{
    const CString reference = COORDSYSTEM_SECTION;
    const CString backup = COORDSYSTEM_BACKUP_SECTION;
    const auto take = [&](const CString& from, int to) {
        CString name;
        if (project.GetItem(backup, from, name)) {
            project.SetItem(reference, coordsystemKeys[static_cast<std::size_t>(to)], name, true);
        }
    };
    take(kBackupGroup, CoordsystemKey::group);
    take(kBackupSystem, CoordsystemKey::system);
}

class OpenAction : public Command {
public:
    enum class By { reference, backup };
    OpenAction(CLI::App* app, By by) : Command(app), m_by(by)
    {
        app->add_option("FILE", m_file, "The project")->required();
        app->add_option("--on-conflict", m_policy, "What to do about a name that is taken: ask, fail or suffix")
            ->type_name("RULE")
            ->capture_default_str()
            ->check(CLI::IsMember({"ask", "fail", "suffix"}));
        m_common.AddTo(*app, "Tell what was done as JSON");
        app->footer(by == By::reference ? kOpenFooter : kRestoreFooter);
    }

    ExitStatus Run() override
    {
        const Workbench bench(m_common, m_file, Workbench::Use::change);
        return bench.Run([&] {
            Session session(bench.Options());
            FileObject project = OpenProject(bench.Project());
            if (m_by == By::backup) {
                CheckBackup(session.Files(), project);
                ReferToBackup(project);
                SaveProject(project, bench.Project());
            }
            NamingDesk desk(session, kPolicies.at(m_policy), false);
            const FileObject before = session.Files().User();
            const SystemName name = Reconcile(session, project, desk);
            session.Reopen();
            CheckCarriedOver(session, OpenProject(bench.Project()));
            Tell({m_file, name, desk.Renamed(), NewRecords(before, session.Files().User()), bench.Publish()},
                 m_common.json);
            return ExitStatus::good;
        });
    }

private:
    By m_by;
    std::string m_file;
    std::string m_policy = "ask";
    CommonOptions m_common;
};

} // namespace

std::unique_ptr<Command> MakeProjectOpen(CLI::App& project)
{
    return std::make_unique<OpenAction>(
        project.add_subcommand("open", "Bring project and database together, as an application does"),
        OpenAction::By::reference);
}

std::unique_ptr<Command> MakeProjectRestore(CLI::App& project)
{
    return std::make_unique<OpenAction>(
        project.add_subcommand("restore", "Open the system of the backup, also without a reference to it"),
        OpenAction::By::backup);
}
