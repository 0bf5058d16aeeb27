#pragma once

#include <memory>

#include "Command.h"

// The makers of the sub-commands of `datum`: each adds its own with its options.
std::unique_ptr<Command> MakeDatumApply(CLI::App& datum);
std::unique_ptr<Command> MakeDatumExport(CLI::App& datum);
std::unique_ptr<Command> MakeDatumImport(CLI::App& datum);
