#include <string>

#include <nlohmann/json.hpp>

#include "SystemLineCommand.h"
#include "convert/Conversion.h"

namespace {

constexpr const char* kFooter =
    "Lines are read from the INPUT files, or from standard input when there is none (also as -),\n"
    "and written with the coordinates converted; the rest of each line stays as it is. Lines that\n"
    "begin with # and blank lines pass through. Default columns: lat lon [h] for sat and geo,\n"
    "E N [h] for grid, X Y Z for sat-xyz and geo-xyz.\n\n"
    "Example:\n"
    "  echo '56.0 3.0 45.2' | zorgeo convert 'ED50 - UTM zone 31N' --group 'North Sea' --from sat --to grid";

class ConvertCommand : public SystemLineCommand {
public:
    explicit ConvertCommand(CLI::App* app) : SystemLineCommand(app)
    {
        AddSystemName(*app);
        AddInputs(*app);
        AddFrame(*app, "--from", m_from, "Frame of the input", true);
        AddFrame(*app, "--to", m_to, "Frame of the output", true);
        AddSystem(*app);
        AddLines(*app, "Decimals of the results; 8 for degrees and 3 for the rest otherwise");
        AddCheck(*app);
        AddCommon(*app);
        app->footer(kFooter);
    }

private:
    void Settle() override
    {
        m_conversion.from = *FrameOfName(m_from);
        m_conversion.to = *FrameOfName(m_to);
        m_conversion.checkBack = m_checkBack;
        m_columns.from = m_conversion.from;
        // Cartesian coordinates hold a height: two coordinates do not make three.
        m_columns.needsHeight =
            !TraitsOf(m_conversion.from).heightOptional || !TraitsOf(m_conversion.to).heightOptional;
    }

    /// --precision is for what the conversion is about: the degrees of a geographic result, whose
    /// height keeps its millimetres, and everything of another.
    std::unique_ptr<Calculation> MakeCalculation(const OpenedSystem& system) const override
    {
        const bool angles = TraitsOf(m_conversion.to).angles;
        return std::make_unique<Conversion>(system, m_conversion,
                                            angles ? m_precision.value_or(kAngleDecimals) : kAngleDecimals,
                                            angles ? kDistanceDecimals : m_precision.value_or(kDistanceDecimals));
    }

    void DescribeRequest(nlohmann::ordered_json& summary) const override { summary["to"] = m_to; }

    ConversionRequest m_conversion;
    std::string m_from;
    std::string m_to;
};

} // namespace

std::unique_ptr<Command> MakeConvertCommand(CLI::App& program)
{
    return std::make_unique<ConvertCommand>(
        program.add_subcommand("convert", "Convert the positions in lines of text from one frame to another"));
}
