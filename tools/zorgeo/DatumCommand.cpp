#include "CommandGroup.h"
#include "datum/DatumActions.h"

namespace {

constexpr const char* kFooter =
    "A datum transformation leads from the satellite ellipsoid to a local one. It is found by its name,\n"
    "whichever system uses it; zorgeo list datums lists them.\n\n"
    "Example:\n"
    "  echo '56.0 3.0 45.2' | zorgeo datum apply 'WGS84 to ED50 (EPSG 1311)'";

} // namespace

std::unique_ptr<Command> MakeDatumCommand(CLI::App& program)
{
    CLI::App* const app = program.add_subcommand("datum", "Apply, export and import datum transformations");
    app->footer(kFooter);
    return std::make_unique<CommandGroup>(
        app, std::initializer_list<CommandGroup::Maker>{MakeDatumApply, MakeDatumExport, MakeDatumImport});
}
