#pragma once

#include <memory>

#include "Command.h"

// The makers of what stands behind `zorgeo system`: each adds its sub-command to `system`.
std::unique_ptr<Command> MakeSystemTemplate(CLI::App& system);
std::unique_ptr<Command> MakeSystemShowNew(CLI::App& system);
std::unique_ptr<Command> MakeSystemAdd(CLI::App& system);
std::unique_ptr<Command> MakeSystemRemove(CLI::App& system);
std::unique_ptr<Command> MakeSystemGeoid(CLI::App& system);
std::unique_ptr<Command> MakeSystemCorrections(CLI::App& system);
