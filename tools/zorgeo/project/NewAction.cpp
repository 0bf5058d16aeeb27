#include <filesystem>

#include <fmt/format.h>

#include "CommonOptions.h"
#include "Output.h"
#include "SystemOptions.h"
#include "platform/Platform.h"
#include "project/ProjectActions.h"
#include "project/ProjectFile.h"
#include "project/ProjectReport.h"

namespace {

constexpr const char* kFooter = "An existing file is never replaced: project save changes the system of a project.\n\n"
                                "Example:\n"
                                "  zorgeo project new survey.prj --system 'WGS 84 - UTM zone 31N' --group 'North Sea'";

void DemandNewFile(const std::string& file)
{
    const auto fail = [&file](const char* reason) {
        throw ToolError(ExitStatus::inputOutput, fmt::format("{}: {}", file, reason));
    };
    std::error_code error;
    const std::filesystem::path path = host::PathOf(file);
    const auto status = std::filesystem::status(path, error);
    if (std::filesystem::is_directory(status)) {
        fail("this is a directory; name a file in it");
    }
    if (std::filesystem::exists(status) && std::filesystem::file_size(path, error) != 0) {
        fail("there is a file of that name already; project save changes the system of a project");
    }
    const auto parent = path.parent_path();
    if (!parent.empty() && !std::filesystem::is_directory(parent, error)) {
        fail("its directory does not exist; make it first");
    }
}

class NewAction : public Command {
public:
    explicit NewAction(CLI::App* app) : Command(app)
    {
        app->add_option("FILE", m_file, "The project file to make")->required();
        app->add_option("--system", m_system.system, "Name of the system, a part of it that no other has, or EPSG:CODE")
            ->required()
            ->type_name("SYSTEM");
        AddSystemSettings(*app, m_system);
        m_common.AddTo(*app, "Tell what was done as JSON");
        app->footer(kFooter);
    }

    ExitStatus Run() override
    {
        DemandNewFile(m_file);
        Session session(m_common);
        const OpenedSystem opened = OpenSystem(session, m_system);
        FileObject project;
        WriteReference(project, *opened.coordSys, UnitOf(session, m_system));
        WriteBackup(session, project, opened.name);
        SaveProject(project, m_file);
        Tell({m_file, opened.name, {}, {}, {false, true}}, m_common.json);
        return ExitStatus::good;
    }

private:
    std::string m_file;
    SystemRequest m_system;
    CommonOptions m_common;
};

} // namespace

std::unique_ptr<Command> MakeProjectNew(CLI::App& project)
{
    return std::make_unique<NewAction>(
        project.add_subcommand("new", "Make a project with reference and backup of a system"));
}
