#include "CommonOptions.h"
#include "Output.h"
#include "project/ProjectActions.h"
#include "project/ProjectStatus.h"
#include "project/Reconciling.h"

namespace {

constexpr const char* kFooter =
    "Every value of the project's backup beside the database's, and what project open would do.\n"
    "Changes nothing. Exit status: 0 all agrees, 1 something differs or is missing.\n\n"
    "Example:\n"
    "  zorgeo project status survey.prj";

/// Opens the copy, with the first free name for every one that is asked for.
Opening Rehearse(const Workbench& bench, Session& session, FileObject& project)
{
    Opening opening;
    NamingDesk desk(session, OnConflict::suffix, true);
    try {
        const FileObject before = session.Files().User();
        Reconcile(session, project, desk);
        session.Reopen();
        opening.adds = NewRecords(before, session.Files().User());
    } catch (const ToolError& error) {
        opening.refusal = bench.InTermsOfOriginals(error.what());
    }
    opening.asks = desk.Renamed();
    return opening;
}

class StatusAction : public Command {
public:
    explicit StatusAction(CLI::App* app) : Command(app)
    {
        app->add_option("FILE", m_file, "The project")->required();
        m_common.AddTo(*app, "Write it as JSON");
        app->footer(kFooter);
    }

    ExitStatus Run() override
    {
        const Workbench bench(m_common, m_file, Workbench::Use::look);
        return bench.Run([&] {
            Session session(bench.Options());
            FileObject project = OpenProject(bench.Project());
            const ProjectComparison comparison(session, project);
            ProjectStatus status{m_file, PeekReference(project), comparison, {}};
            FileObject rehearsed = project;
            status.opening = Rehearse(bench, session, rehearsed);
            WriteToStdout(m_common.json ? status.AsJson().dump(2) + "\n" : status.AsText());
            return status.Agrees() ? ExitStatus::good : ExitStatus::badLines;
        });
    }

private:
    std::string m_file;
    CommonOptions m_common;
};

} // namespace

std::unique_ptr<Command> MakeProjectStatus(CLI::App& project)
{
    return std::make_unique<StatusAction>(
        project.add_subcommand("status", "Compare a project with the database, changing nothing"));
}
