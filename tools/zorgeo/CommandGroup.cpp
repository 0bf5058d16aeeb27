#include "CommandGroup.h"

CommandGroup::CommandGroup(CLI::App* app, std::initializer_list<Maker> makers) : Command(app)
{
    app->require_subcommand(1);
    for (const Maker make : makers) {
        m_actions.push_back(make(*app));
    }
}

ExitStatus CommandGroup::Run()
{
    for (const auto& action : m_actions) {
        if (action->Chosen()) {
            return action->Run();
        }
    }
    return ExitStatus::usage;
}
