#include <chrono>
#include <optional>
#include <string>
#include <vector>

#include <fmt/chrono.h>
#include <fmt/format.h>
#include <nlohmann/json.hpp>

#include "Command.h"
#include "CommonOptions.h"
#include "Output.h"
#include "SystemOpener.h"
#include "base/geo/CExTime.h"
#include "convert/BlockReader.h"
#include "convert/FixedNumber.h"
#include "convert/LineConverter.h"
#include "convert/NumberText.h"
#include "convert/OutputFile.h"
#include "convert/Pipeline.h"
#include "convert/PositionConverter.h"
#include "platform/Platform.h"

namespace {

constexpr int kAngleDecimals = 8;
constexpr int kDistanceDecimals = 3;

constexpr const char* kFooter =
    "Lines are read from the INPUT files, or from standard input when there is none (also as -),\n"
    "and written with the coordinates converted; the rest of each line stays as it is. Lines that\n"
    "begin with # and blank lines pass through. Default columns: lat lon [h] for sat and geo,\n"
    "E N [h] for grid, X Y Z for sat-xyz and geo-xyz.\n\n"
    "Example:\n"
    "  echo '56.0 3.0 45.2' | zorgeo convert 'ED50 - UTM zone 31N' --group 'North Sea' --from sat --to grid";

struct BadName {
    const char* name;
    BadLine bad;
};
constexpr BadName kBadNames[] = {
    {"mark", BadLine::mark}, {"keep", BadLine::keep}, {"drop", BadLine::drop}, {"stop", BadLine::stop}};

class ConvertCommand : public Command {
public:
    explicit ConvertCommand(CLI::App* app) : Command(app)
    {
        app->add_option("SYSTEM", m_system.system, "Name of the system, or a part of it that no other has")->required();
        app->add_option("INPUT", m_inputs, "Files of lines to convert; - is standard input");
        app->add_option("-o,--output", m_output, "File to write; it appears when it is whole")->type_name("FILE");
        AddFrames(*app);
        AddSystem(*app);
        AddLines(*app);
        m_common.AddTo(*app, "Write a summary of the run to standard error as JSON");
        app->footer(kFooter);
    }

    ExitStatus Run() override
    {
        const auto begin = std::chrono::steady_clock::now();
        SettleRequests();
        Session session(m_common);
        const OpenedSystem system = OpenSystem(session, m_system);
        const PositionConverter positions(system, m_conversion);
        DemandTime(positions);
        const LineConverter lines(positions, m_conversion, m_lines);
        BlockReader reader(m_inputs.empty() ? std::vector<std::string>{"-"} : m_inputs, m_columns);
        OutputFile output(m_output);
        const PipelineCount count = RunPipeline(reader, lines, output, host::IsTerminal(host::kStderr));
        if (!count.stopped) {
            output.Finish();
        }
        Summarise(system, count, std::chrono::duration<double>(std::chrono::steady_clock::now() - begin).count());
        return count.bad == 0 ? ExitStatus::good : ExitStatus::badLines;
    }

private:
    void AddFrames(CLI::App& app)
    {
        const auto frame = [](const std::string& name) {
            return FrameOfName(name) ? std::string() : fmt::format("\"{}\" is no frame; give {}", name, FrameNames());
        };
        app.add_option("--from", m_from, fmt::format("Frame of the input: {}", FrameNames()))
            ->required()
            ->type_name("FRAME")
            ->check(frame);
        app.add_option("--to", m_to, "Frame of the output, one of the same")
            ->required()
            ->type_name("FRAME")
            ->check(frame);
    }

    void AddSystem(CLI::App& app)
    {
        const auto add = [&app](const char* name, std::string& value, const char* type, const char* help) {
            app.add_option(name, value, help)->type_name(type)->group("System");
        };
        add("--group", m_system.group, "GROUP", "Group of the system, or a part of its name");
        add("--project", m_system.project, "FILE", "Project whose backup of the system is compared and restored");
        add("--unit", m_system.unit, "UNIT", "Linear unit in place of the system's own");
        add("--geoid-model", m_system.geoidModel, "MODEL",
            "Geoid model in place of the system's own; --None-- for none");
        add("--geoid-file", m_system.geoidFile, "FILE", "File of the geoid model");
        add("--chart-datum", m_system.chartDatum, "TEXT", "Chart datum, given to the geoid model");
        add("--post-model", m_system.postModel, "MODEL",
            "Post correction model in place of the system's own; --None--");
        add("--post-file", m_system.postFile, "FILE", "File of the post correction model");
        add("--epoch", m_epoch, "TIME", "Time of the positions: 2024.5, 2024-07-01, or now");
        app.add_flag("--allow-missing", m_system.allowMissing, "Go on without a model that cannot be used, and say so")
            ->group("System");
    }

    void AddLines(CLI::App& app)
    {
        const auto add = [&app](const char* name, auto& value, const char* type, const char* help) {
            return app.add_option(name, value, help)->type_name(type)->group("Lines");
        };
        add("--columns", m_columnList, "LIST",
            "Where the values stand, counted from 1 or by the names of a header line: lat=2,lon=3,h=4,t=5");
        add("--delimiter", m_delimiter, "NAME", "blank, comma, tab or semicolon; found from the first line otherwise");
        add("--precision", m_precision, "N", "Decimals of the results; 8 for degrees and 3 for the rest otherwise")
            ->check(CLI::Range(0, kMostDecimals));
        add("--bad", m_bad, "ACTION", "What becomes of a bad line: mark, keep, drop or stop")
            ->capture_default_str()
            ->check(CLI::IsMember({"mark", "keep", "drop", "stop"}));
        app.add_flag("--append", m_lines.append, "Put the results behind the line instead of in place")->group("Lines");
        app.add_flag("--check", m_conversion.checkBack, "Convert back and refuse what misses by more than 1 mm")
            ->group("Lines");
    }

    /// From texts to what they mean; nothing is opened yet.
    void SettleRequests()
    {
        m_conversion.from = *FrameOfName(m_from);
        m_conversion.to = *FrameOfName(m_to);
        m_columns.from = m_conversion.from;
        // Cartesian coordinates hold a height: two coordinates do not make three.
        m_columns.needsHeight =
            !TraitsOf(m_conversion.from).heightOptional || !TraitsOf(m_conversion.to).heightOptional;
        if (!m_columnList.empty()) {
            ReadColumnList(m_columnList, m_columns);
        }
        m_columns.delimiter = m_delimiter.empty() ? '\0' : ReadDelimiter(m_delimiter);
        for (const BadName& row : kBadNames) {
            m_lines.bad = m_bad == row.name ? row.bad : m_lines.bad;
        }
        SettlePrecision();
        SettleEpoch();
    }

    /// --precision is for what the conversion is about: the degrees of a geographic result, whose
    /// height keeps its millimetres, and everything of another.
    void SettlePrecision()
    {
        const bool angles = TraitsOf(m_conversion.to).angles;
        m_lines.angleDecimals = angles ? m_precision.value_or(kAngleDecimals) : kAngleDecimals;
        m_lines.distanceDecimals = angles ? kDistanceDecimals : m_precision.value_or(kDistanceDecimals);
    }

    void SettleEpoch()
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
    void DemandTime(const PositionConverter& positions) const
    {
        if (positions.NeedsTime() && !m_lines.epoch && m_columns.columns[Slot::time].empty()) {
            throw ToolError(ExitStatus::usage,
                            "the system's datum transformation moves with time (14 parameters): give --epoch 2024.5, "
                            "a date or now, or a time column with --columns t=N");
        }
    }

    void Summarise(const OpenedSystem& system, const PipelineCount& count, double seconds) const
    {
        const std::uint64_t all = count.good + count.bad;
        if (m_common.json) {
            nlohmann::ordered_json summary = {{"group", system.name.group.ToUtf8()},
                                              {"system", system.name.system.ToUtf8()},
                                              {"from", m_from},
                                              {"to", m_to},
                                              {"good", count.good},
                                              {"bad", count.bad},
                                              {"stopped", count.stopped},
                                              {"seconds", seconds}};
            WriteToStderr(summary.dump() + "\n");
        } else if (count.stopped) {
            Remark(fmt::format("stopped at a bad line, {} lines were good{}", count.good,
                               m_output.empty() ? "" : "; no output file was written"));
        } else if (count.bad > 0) {
            Remark(fmt::format("{} of {} lines are bad", count.bad, all));
        }
    }

    SystemRequest m_system;
    ConversionRequest m_conversion;
    ColumnRequest m_columns;
    LineRequest m_lines;
    CommonOptions m_common;
    std::vector<std::string> m_inputs;
    std::string m_output;
    std::string m_from;
    std::string m_to;
    std::string m_columnList;
    std::string m_delimiter;
    std::string m_epoch;
    std::string m_bad = "mark";
    std::optional<int> m_precision;
};

} // namespace

std::unique_ptr<Command> MakeConvertCommand(CLI::App& program)
{
    return std::make_unique<ConvertCommand>(
        program.add_subcommand("convert", "Convert the positions in lines of text from one frame to another"));
}
