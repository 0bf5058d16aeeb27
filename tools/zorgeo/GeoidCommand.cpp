#include <algorithm>
#include <string>
#include <utility>

#include <fmt/format.h>
#include <nlohmann/json.hpp>

#include "LineCommand.h"
#include "Output.h"
#include "base/geoid/GridFile.h"
#include "base/text/Numbers.h"
#include "convert/GridValues.h"

namespace {

using Json = nlohmann::ordered_json;

constexpr const char* kFooter =
    "FILE is a grid of geoid heights (GTX, PGM), of shifts of latitude and longitude (NTv2), or the\n"
    "British text grid of both; its contents tell which. Lines are read from the INPUT files, or from\n"
    "standard input when there is none (also as -), and written with the coordinates replaced by what\n"
    "the grid holds there; the rest of each line stays as it is. Default columns: lat lon, for the\n"
    "British grid E N. Heights and shifts of E and N are metres; shifts of lat and lon are arc\n"
    "seconds, north and east positive.\n\n"
    "Example:\n"
    "  echo '56.0 3.0' | zorgeo geoid /usr/share/proj/egm96_15.gtx --append\n"
    "  zorgeo geoid --info /usr/share/proj/BETA2007.gsb";

/// A number as a user would write it: without the last digits, which are rounding.
std::string Shown(double value)
{
    const std::string text = fmt::format("{:.10f}", value);
    const auto end = text.find_last_not_of('0');
    return text.substr(0, text[end] == '.' ? end : end + 1);
}

std::string AsText(const GridDescription& grid, const std::string& file)
{
    std::string text = fmt::format("file\t{}\nformat\t{}\n", file, grid.format.ToUtf8());
    for (const auto& [name, remark] : grid.remarks) {
        text += fmt::format("{}\t{}\n", name.ToUtf8(), remark.ToUtf8());
    }
    const char* const unit = grid.geographic ? "degrees" : "metres";
    const std::size_t subGrids = grid.parts.front().name.IsEmpty() ? 0 : grid.parts.size();
    text += subGrids > 0 ? fmt::format("sub-grids\t{}\n", subGrids) : "";
    for (const GridDescription::Part& part : grid.parts) {
        if (subGrids > 0) {
            text += fmt::format("sub-grid\t{} (parent {})\n", part.name.ToUtf8(), part.parent.ToUtf8());
        }
        text += fmt::format("south to north\t{} to {} {}, step {}, {} rows\n", Shown(part.south), Shown(part.north),
                            unit, Shown(part.stepNorth), part.rows);
        text += fmt::format("west to east\t{} to {} {}, step {}, {} columns\n", Shown(part.west), Shown(part.east),
                            unit, Shown(part.stepEast), part.columns);
    }
    return text;
}

std::string AsJson(const GridDescription& grid, const std::string& file)
{
    Json object = {{"file", file}, {"format", grid.format.ToUtf8()}};
    for (const auto& [name, remark] : grid.remarks) {
        object[name.ToUtf8()] = remark.ToUtf8();
    }
    object["unit"] = grid.geographic ? "degrees" : "metres";
    Json parts = Json::array();
    for (const GridDescription::Part& part : grid.parts) {
        Json one = Json::object();
        if (!part.name.IsEmpty()) {
            one = {{"name", part.name.ToUtf8()}, {"parent", part.parent.ToUtf8()}};
        }
        const std::pair<const char*, double> numbers[] = {{"south", part.south},         {"north", part.north},
                                                          {"west", part.west},           {"east", part.east},
                                                          {"stepNorth", part.stepNorth}, {"stepEast", part.stepEast}};
        for (const auto& [name, value] : numbers) {
            one[name] = value;
        }
        one["rows"] = part.rows;
        one["columns"] = part.columns;
        parts.push_back(one);
    }
    object["grids"] = parts;
    return object.dump(2) + "\n";
}

class GeoidCommand : public LineCommand {
public:
    explicit GeoidCommand(CLI::App* app) : LineCommand(app)
    {
        app->add_option("FILE", m_file, "The grid")->required();
        AddInputs(*app);
        app->add_flag("--info", m_info, "Say what the grid is, and read no lines");
        app->add_flag("--inverse", m_inverse, "The shift that brought each position to where it is");
        AddLines(*app, "Decimals of the values; 4 for metres and 6 for seconds otherwise");
        app->add_flag("--json", m_common.json,
                      "With --info a JSON object; else a summary of the run on standard error as JSON");
        app->footer(kFooter);
    }

    ExitStatus Run() override
    {
        Open();
        if (!m_info) {
            return LineCommand::Run();
        }
        if (!m_inputs.empty() || m_inverse) {
            throw ToolError(ExitStatus::usage, "--info reads no lines: it goes with neither INPUT nor --inverse");
        }
        WriteToStdout(m_common.json ? AsJson(m_grid->Describe(), m_file) : AsText(m_grid->Describe(), m_file));
        return ExitStatus::good;
    }

private:
    void Open()
    {
        CString reason;
        m_grid = OpenGrid(CString::FromUtf8(m_file), reason);
        if (!m_grid) {
            throw ToolError(ExitStatus::unusable,
                            fmt::format("the grid \"{}\" cannot be used: {}", m_file, reason.ToUtf8()));
        }
        if (m_inverse && !m_grid->HasGeoShifts() && !m_grid->HasGridShifts()) {
            throw ToolError(ExitStatus::usage, "--inverse is for shifts: this grid has heights");
        }
    }

    void Settle() override { m_columns.from = m_grid->HasGridShifts() ? Frame::grid : Frame::sat; }

    std::unique_ptr<Calculation> PrepareCalculation() override
    {
        return std::make_unique<GridValues>(*m_grid, m_inverse, m_precision);
    }

    void Describe(Json& summary) const override
    {
        summary["file"] = m_file;
        summary["format"] = m_grid->Describe().format.ToUtf8();
        summary["inverse"] = m_inverse;
    }

    std::string m_file;
    bool m_info = false;
    bool m_inverse = false;
    std::unique_ptr<const CorrectionGrid> m_grid;
};

} // namespace

std::unique_ptr<Command> MakeGeoidCommand(CLI::App& program)
{
    return std::make_unique<GeoidCommand>(
        program.add_subcommand("geoid", "What a grid file holds at the positions in lines of text, or what it is"));
}
