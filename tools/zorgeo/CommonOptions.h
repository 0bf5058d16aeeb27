#pragma once

#include <string>

#include <CLI/CLI.hpp>

/// The options that every command has.
struct CommonOptions {
    std::string dataDirectory;
    std::string userDirectory;
    std::string module;
    bool json = false;

    /// Adds them to a sub-command; `jsonHelp` says what --json does there.
    void AddTo(CLI::App& command, const std::string& jsonHelp);
};
