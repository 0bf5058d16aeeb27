#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include <nlohmann/json_fwd.hpp>

#include "Command.h"
#include "CommonOptions.h"
#include "convert/Calculation.h"
#include "convert/Columns.h"
#include "convert/LineConverter.h"
#include "convert/Pipeline.h"

/// A command that works on positions in lines of text: the options of the lines and of input and
/// output, and the run from the first line to the last.
class LineCommand : public Command {
public:
    ExitStatus Run() override;

protected:
    explicit LineCommand(CLI::App* app);

    /// What the constructor of a command adds, its own options in between.
    void AddInputs(CLI::App& app);
    void AddLines(CLI::App& app, const char* precisionHelp);
    /// --epoch, in this group of options.
    void AddEpoch(CLI::App& app, const char* group);
    void AddCheck(CLI::App& app);

    /// From the command's own texts to what they mean, at least `m_columns.from`.
    virtual void Settle() = 0;
    /// Opens what the calculation needs; called once, before the first line is read.
    virtual std::unique_ptr<Calculation> PrepareCalculation() = 0;
    /// Adds what was worked with, and the command's requests, to the summary.
    virtual void Describe(nlohmann::ordered_json& summary) const = 0;

    ColumnRequest m_columns;
    LineRequest m_lines;
    CommonOptions m_common;
    std::vector<std::string> m_inputs;
    std::optional<int> m_precision;
    bool m_checkBack = false;

private:
    void SettleLines();
    void SettleEpoch();
    void DemandTime(const Calculation& calculation) const;
    void Summarise(const PipelineCount& count, double seconds) const;

    std::string m_output;
    std::string m_columnList;
    std::string m_delimiter;
    std::string m_bad = "mark";
    std::string m_epoch;
};

constexpr int kAngleDecimals = 8;
constexpr int kDistanceDecimals = 3;
