#include "CommonOptions.h"
#include "Output.h"
#include "Session.h"
#include "system/Subcommands.h"
#include "system/SystemTemplate.h"

namespace {

constexpr const char* kFooter =
    "METHOD is the name of a projection method or a part that no other has; see zorgeo list methods.\n"
    "null stands where something is to be filled in; geoid, postCorrections, rates and\n"
    "fixedHeight may stay null.\n\n"
    "Example:\n"
    "  zorgeo system template 'Lambert 2 Parallel' --datum 'No Transformation'";

class TemplateCommand : public Command {
public:
    explicit TemplateCommand(CLI::App* app) : Command(app)
    {
        app->add_option("METHOD", m_method, "Projection method")->required();
        app->add_option("--datum", m_datum, "Method of the datum transformation, or a part of its name")
            ->type_name("METHOD")
            ->capture_default_str();
        m_common.AddTo(*app, "No effect: the template is JSON");
        app->footer(kFooter);
    }

    ExitStatus Run() override
    {
        Session session(m_common);
        WriteToStdout(SystemTemplate(session, m_method, m_datum).dump(2) + "\n");
        return ExitStatus::good;
    }

private:
    std::string m_method;
    std::string m_datum = "Bursa/Wolfe(7 Parameters)";
    CommonOptions m_common;
};

} // namespace

std::unique_ptr<Command> MakeSystemTemplate(CLI::App& system)
{
    return std::make_unique<TemplateCommand>(
        system.add_subcommand("template", "Print a new system of a projection method, to be filled in"));
}
