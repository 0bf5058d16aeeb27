#pragma once

#include <memory>
#include <optional>
#include <string>

#include "LineCommand.h"
#include "Session.h"
#include "SystemOpener.h"

/// A command that works with one system on positions in lines of text.
class SystemLineCommand : public LineCommand {
protected:
    explicit SystemLineCommand(CLI::App* app);

    /// What the constructor of a command adds, with those of LineCommand in between.
    void AddSystemName(CLI::App& app);
    void AddFrame(CLI::App& app, const char* name, std::string& value, const char* help, bool cartesian);
    void AddSystem(CLI::App& app);
    void AddCommon(CLI::App& app) { m_common.AddTo(app, "Write a summary of the run to standard error as JSON"); }

    virtual std::unique_ptr<Calculation> MakeCalculation(const OpenedSystem& system) const = 0;
    /// Adds the command's own requests to the summary.
    virtual void DescribeRequest(nlohmann::ordered_json& summary) const = 0;

private:
    std::unique_ptr<Calculation> PrepareCalculation() final;
    void Describe(nlohmann::ordered_json& summary) const final;

    SystemRequest m_system;
    // In this order: the system's code lies in the module that the session loaded.
    std::optional<Session> m_session;
    std::optional<OpenedSystem> m_opened;
};
