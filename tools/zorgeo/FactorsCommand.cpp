#include <string>

#include <nlohmann/json.hpp>

#include "SystemLineCommand.h"
#include "convert/GridFactors.h"

namespace {

constexpr const char* kFooter =
    "Lines are read from the INPUT files, or from standard input when there is none (also as -),\n"
    "and written with the coordinates replaced by grid convergence (degrees) and point scale factor;\n"
    "the rest of each line, a height included, stays as it is. With --line a line of text has two\n"
    "positions, and the four coordinates are replaced by convergence and point scale factor of the\n"
    "first end, line scale factor and grid distance. Convergence is the direction of true north,\n"
    "clockwise from grid north. Default columns and their names: lat lon [h] for sat and geo, E N [h]\n"
    "for grid; with --line lat1 lon1 lat2 lon2 and E1 N1 E2 N2, heights h1 h2 by --columns alone.\n\n"
    "Example:\n"
    "  echo '56.0 3.5 56.1 3.7' | zorgeo factors 'ED50 - UTM zone 31N' --group 'North Sea' --from sat --line";

class FactorsCommand : public SystemLineCommand {
public:
    explicit FactorsCommand(CLI::App* app) : SystemLineCommand(app)
    {
        AddSystemName(*app);
        AddInputs(*app);
        AddFrame(*app, "--from", m_from, "Frame of the input", false);
        app->add_flag("--line", m_request.lines, "Two positions a line: line scale factor and grid distance too");
        AddSystem(*app);
        AddLines(*app, "Decimals of convergence and scale factors, otherwise 8; a grid distance has 3");
        AddCheck(*app);
        AddCommon(*app);
        app->footer(kFooter);
    }

private:
    void Settle() override
    {
        m_request.from = *FrameOfName(m_from);
        m_request.checkBack = m_checkBack;
        m_request.factorDecimals = m_precision.value_or(kAngleDecimals);
        m_request.distanceDecimals = kDistanceDecimals;
        m_columns.from = m_request.from;
        m_columns.positions = m_request.lines ? 2 : 1;
    }

    std::unique_ptr<Calculation> MakeCalculation(const OpenedSystem& system) const override
    {
        return std::make_unique<GridFactors>(system, m_request);
    }

    void DescribeRequest(nlohmann::ordered_json& summary) const override { summary["line"] = m_request.lines; }

    FactorRequest m_request;
    std::string m_from;
};

} // namespace

std::unique_ptr<Command> MakeFactorsCommand(CLI::App& program)
{
    return std::make_unique<FactorsCommand>(
        program.add_subcommand("factors", "Grid convergence and scale factors at the positions in lines of text"));
}
