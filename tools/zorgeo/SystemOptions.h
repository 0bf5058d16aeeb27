#pragma once

#include <CLI/CLI.hpp>

#include "SystemOpener.h"

/// Adds the positional SYSTEM, which only a project makes unnecessary.
void AddSystemName(CLI::App& app, SystemRequest& request);
/// Adds the options that say more about the system than its name, in the group "System": the
/// project, and the settings.
void AddSystemOptions(CLI::App& app, SystemRequest& request);
/// Group, unit, corrections.
void AddSystemSettings(CLI::App& app, SystemRequest& request);
