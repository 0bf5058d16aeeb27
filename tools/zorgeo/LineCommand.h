#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include <nlohmann/json_fwd.hpp>

#include "Command.h"
#include "CommonOptions.h"
#include "SystemOpener.h"
#include "convert/Calculation.h"
#include "convert/Columns.h"
#include "convert/LineConverter.h"
#include "convert/Pipeline.h"

/// A command that works with one system on positions in lines of text: the options of the system,
/// of the lines and of input and output, and the run from the first line to the last.
class LineCommand : public Command {
public:
    ExitStatus Run() final;

protected:
    explicit LineCommand(CLI::App* app);

    /// What the constructor of a command adds in this order, its own options in between.
    void AddInputs(CLI::App& app);
    void AddFrame(CLI::App& app, const char* name, std::string& value, const char* help, bool cartesian);
    void AddSystem(CLI::App& app);
    void AddLines(CLI::App& app, const char* precisionHelp);
    void AddCommon(CLI::App& app) { m_common.AddTo(app, "Write a summary of the run to standard error as JSON"); }

    /// From the command's own texts to what they mean, at least `m_columns.from`; nothing is opened yet.
    virtual void Settle() = 0;
    virtual std::unique_ptr<Calculation> MakeCalculation(const OpenedSystem& system) const = 0;
    /// Adds the command's own requests to the summary.
    virtual void Describe(nlohmann::ordered_json& summary) const = 0;

    ColumnRequest m_columns;
    std::optional<int> m_precision;
    bool m_checkBack = false;

private:
    void SettleLines();
    void SettleEpoch();
    void DemandTime(const Calculation& calculation) const;
    void Summarise(const OpenedSystem& system, const PipelineCount& count, double seconds) const;

    SystemRequest m_system;
    LineRequest m_lines;
    CommonOptions m_common;
    std::vector<std::string> m_inputs;
    std::string m_output;
    std::string m_columnList;
    std::string m_delimiter;
    std::string m_epoch;
    std::string m_bad = "mark";
};

constexpr int kAngleDecimals = 8;
constexpr int kDistanceDecimals = 3;
