#include "CommandGroup.h"
#include "system/Subcommands.h"

std::unique_ptr<Command> MakeSystemCommand(CLI::App& program)
{
    CLI::App* const app = program.add_subcommand("system", "Add systems to the user database, change and remove them");
    app->footer("A new system is a JSON file: `template` prints one to fill in, `zorgeo show --as json` one\n"
                "of a system that is there, `show-new` looks at it, `add` stores it.\n\n"
                "Example:\n"
                "  zorgeo system template 'Transverse Mercator'");
    return std::make_unique<CommandGroup>(
        app, std::initializer_list<CommandGroup::Maker>{MakeSystemTemplate, MakeSystemShowNew, MakeSystemAdd,
                                                        MakeSystemRemove, MakeSystemGeoid, MakeSystemCorrections});
}
