#include "LineCommand.h"

#include <chrono>

#include <fmt/chrono.h>
#include <fmt/format.h>
#include <nlohmann/json.hpp>

#include "Output.h"
#include "base/geo/CExTime.h"
#include "convert/BlockReader.h"
#include "convert/FixedNumber.h"
#include "convert/NumberText.h"
#include "convert/OutputFile.h"
#include "platform/Platform.h"

namespace {

struct BadName {
    const char* name;
    BadLine bad;
};
constexpr BadName kBadNames[] = {
    {"mark", BadLine::mark}, {"keep", BadLine::keep}, {"drop", BadLine::drop}, {"stop", BadLine::stop}};

} // namespace

LineCommand::LineCommand(CLI::App* app) : Command(app) {}

ExitStatus LineCommand::Run()
{
    const auto begin = std::chrono::steady_clock::now();
    Settle();
    SettleLines();
    SettleEpoch();
    const std::unique_ptr<Calculation> calculation = PrepareCalculation();
    DemandTime(*calculation);
    const LineConverter lines(*calculation, m_columns.from, m_lines);
    BlockReader reader(m_inputs.empty() ? std::vector<std::string>{"-"} : m_inputs, m_columns);
    OutputFile output(m_output);
    const PipelineCount count = RunPipeline(reader, lines, output, host::IsTerminal(host::kStderr));
    if (!count.stopped) {
        output.Finish();
    }
    Summarise(count, std::chrono::duration<double>(std::chrono::steady_clock::now() - begin).count());
    return count.bad == 0 ? ExitStatus::good : ExitStatus::badLines;
}

void LineCommand::AddInputs(CLI::App& app)
{
    app.add_option("INPUT", m_inputs, "Files of lines to read; - is standard input");
    app.add_option("-o,--output", m_output, "File to write; it appears when it is whole")->type_name("FILE");
}

void LineCommand::AddLines(CLI::App& app, const char* precisionHelp)
{
    const auto add = [&app](const char* name, auto& value, const char* type, const char* help) {
        return app.add_option(name, value, help)->type_name(type)->group("Lines");
    };
    add("--columns", m_columnList, "LIST",
        "Where the values stand, counted from 1 or by the names of a header line: lat=2,lon=3,h=4,t=5");
    add("--delimiter", m_delimiter, "NAME", "blank, comma, tab or semicolon; found from the first line otherwise");
    add("--precision", m_precision, "N", precisionHelp)->check(CLI::Range(0, kMostDecimals));
    add("--bad", m_bad, "ACTION", "What becomes of a bad line: mark, keep, drop or stop")
        ->capture_default_str()
        ->check(CLI::IsMember({"mark", "keep", "drop", "stop"}));
    app.add_flag("--append", m_lines.append, "Put the results behind the line instead of in place")->group("Lines");
}

void LineCommand::AddEpoch(CLI::App& app, const char* group)
{
    app.add_option("--epoch", m_epoch, "Time of the positions: 2024.5, 2024-07-01, or now")
        ->type_name("TIME")
        ->group(group);
}

void LineCommand::AddCheck(CLI::App& app)
{
    app.add_flag("--check", m_checkBack, "Convert back and refuse what misses by more than 1 mm")->group("Lines");
}

/// From texts to what they mean; nothing is opened yet.
void LineCommand::SettleLines()
{
    if (!m_columnList.empty()) {
        ReadColumnList(m_columnList, m_columns);
    }
    m_columns.delimiter = m_delimiter.empty() ? '\0' : ReadDelimiter(m_delimiter);
    for (const BadName& row : kBadNames) {
        m_lines.bad = m_bad == row.name ? row.bad : m_lines.bad;
    }
}

void LineCommand::SettleEpoch()
{
    if (m_epoch.empty()) {
        return;
    }
    double time = 0.0;
    if (m_epoch == "now") {
        time = CExTime::GetCurTime();
        Remark(fmt::format("epoch {:.6f} ({:%Y-%m-%dT%H:%M:%S}Z)", DecimalYear(time),
                           fmt::gmtime(static_cast<std::time_t>(time / 1000.0))));
    } else if (const Fault fault = ReadEpoch(m_epoch, time); fault != nullptr) {
        throw ToolError(ExitStatus::usage, fmt::format("--epoch {}: {}, or now", m_epoch, fault));
    }
    m_lines.epoch = time;
}

/// Refused before the first line when no line can bring a time.
void LineCommand::DemandTime(const Calculation& calculation) const
{
    if (calculation.NeedsTime() && !m_lines.epoch && m_columns.columns[Slot::time].empty()) {
        throw ToolError(ExitStatus::usage,
                        "the datum transformation moves with time (14 parameters): give --epoch 2024.5, "
                        "a date or now, or a time column with --columns t=N");
    }
}

void LineCommand::Summarise(const PipelineCount& count, double seconds) const
{
    const std::uint64_t all = count.good + count.bad;
    if (m_common.json) {
        nlohmann::ordered_json summary = nlohmann::ordered_json::object();
        Describe(summary);
        summary["good"] = count.good;
        summary["bad"] = count.bad;
        summary["stopped"] = count.stopped;
        summary["seconds"] = seconds;
        WriteToStderr(summary.dump() + "\n");
    } else if (count.stopped) {
        Remark(fmt::format("stopped at a bad line, {} lines were good{}", count.good,
                           m_output.empty() ? "" : "; no output file was written"));
    } else if (count.bad > 0) {
        Remark(fmt::format("{} of {} lines are bad", count.bad, all));
    }
}
