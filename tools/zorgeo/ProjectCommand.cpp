#include "CommandGroup.h"
#include "project/ProjectActions.h"

namespace {

constexpr const char* kFooter =
    "A project is a section file with a reference, group and name of its system and its own choice of\n"
    "corrections and unit, and a backup, the whole system. With the backup it can be opened where the\n"
    "database does not have the system, or has something else under its names.\n\n"
    "Example:\n"
    "  zorgeo project new survey.prj --system 'WGS 84 - UTM zone 31N' --group 'North Sea'";

class ProjectCommand : public CommandGroup {
public:
    explicit ProjectCommand(CLI::App* app)
        : CommandGroup(app, {MakeProjectNew, MakeProjectSave, MakeProjectStatus, MakeProjectOpen, MakeProjectBackup,
                             MakeProjectRestore, MakeProjectConvertOld})
    {
        app->footer(kFooter);
    }
};

} // namespace

std::unique_ptr<Command> MakeProjectCommand(CLI::App& program)
{
    return std::make_unique<ProjectCommand>(
        program.add_subcommand("project", "Make, save, look at, open and convert project files"));
}
