#pragma once

#include <memory>

#include "Command.h"

// The makers of the sub-commands of `project`: each adds its own with its options.
std::unique_ptr<Command> MakeProjectNew(CLI::App& project);
std::unique_ptr<Command> MakeProjectSave(CLI::App& project);
std::unique_ptr<Command> MakeProjectStatus(CLI::App& project);
std::unique_ptr<Command> MakeProjectOpen(CLI::App& project);
std::unique_ptr<Command> MakeProjectBackup(CLI::App& project);
std::unique_ptr<Command> MakeProjectRestore(CLI::App& project);
std::unique_ptr<Command> MakeProjectConvertOld(CLI::App& project);
