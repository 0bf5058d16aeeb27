#pragma once

#include <memory>

#include <CLI/CLI.hpp>

#include "ToolError.h"

/// One command of the program: a source file of its own, and a row in main.cpp.
class Command {
public:
    virtual ~Command();
    Command(const Command&) = delete;
    Command& operator=(const Command&) = delete;

    /// Whether the command line named this command.
    bool Chosen() const { return m_app->parsed(); }
    /// Does the work. Throws ToolError for everything that ends it early.
    virtual ExitStatus Run() = 0;

protected:
    explicit Command(CLI::App* app) : m_app(app) {}

private:
    CLI::App* m_app; // owned by the program's parser
};

// The makers: each adds its sub-command with its options to `program`.
std::unique_ptr<Command> MakeListCommand(CLI::App& program);
std::unique_ptr<Command> MakeFindCommand(CLI::App& program);
std::unique_ptr<Command> MakeShowCommand(CLI::App& program);
std::unique_ptr<Command> MakeConvertCommand(CLI::App& program);
std::unique_ptr<Command> MakeFactorsCommand(CLI::App& program);
std::unique_ptr<Command> MakeGeoidCommand(CLI::App& program);
std::unique_ptr<Command> MakeProjectCommand(CLI::App& program);
std::unique_ptr<Command> MakeDatumCommand(CLI::App& program);
std::unique_ptr<Command> MakeDbCommand(CLI::App& program);
std::unique_ptr<Command> MakeSystemCommand(CLI::App& program);
