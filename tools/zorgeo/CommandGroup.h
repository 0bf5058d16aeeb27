#pragma once

#include <initializer_list>
#include <vector>

#include "Command.h"

/// A command that is a set of sub-commands, of which one is given: `datum apply`, `db check`.
class CommandGroup : public Command {
public:
    using Maker = std::unique_ptr<Command> (*)(CLI::App&);

    /// Adds the sub-commands in the order of the help.
    CommandGroup(CLI::App* app, std::initializer_list<Maker> makers);

    ExitStatus Run() override;

private:
    std::vector<std::unique_ptr<Command>> m_actions;
};
