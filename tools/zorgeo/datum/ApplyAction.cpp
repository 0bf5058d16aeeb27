#include <optional>
#include <string>

#include <nlohmann/json.hpp>

#include "LineCommand.h"
#include "convert/Conversion.h"
#include "datum/DatumActions.h"
#include "datum/DatumShift.h"

namespace {

constexpr const char* kFooter =
    "NAME is a datum transformation, or a part of its name that no other has. Lines are read from the\n"
    "INPUT files, or from standard input when there is none (also as -), and written with the positions\n"
    "transformed; the rest of each line stays as it is. Positions are lat lon [h] in degrees and metres,\n"
    "with --xyz X Y Z; from the satellite ellipsoid to the local one, with --inverse back.\n\n"
    "Example:\n"
    "  echo '56.0 3.0 45.2' | zorgeo datum apply 'WGS84 to ED50 (EPSG 1311)'";

class ApplyAction : public LineCommand {
public:
    explicit ApplyAction(CLI::App* app) : LineCommand(app)
    {
        app->add_option("NAME", m_name, "The datum transformation")->required();
        AddInputs(*app);
        app->add_flag("--inverse", m_request.inverse, "From the local ellipsoid to the satellite one");
        app->add_flag("--xyz", m_request.cartesian, "Cartesian positions X Y Z, metres");
        AddLines(*app, "Decimals of the results; 8 for degrees and 3 for the rest otherwise");
        AddEpoch(*app, "Lines");
        AddCheck(*app);
        m_common.AddTo(*app, "Write a summary of the run to standard error as JSON");
        app->footer(kFooter);
    }

private:
    void Settle() override
    {
        m_frame = m_request.cartesian ? Frame::satXyz : Frame::sat;
        m_request.checkBack = m_checkBack;
        m_columns.from = m_frame;
        m_columns.needsHeight = m_request.cartesian;
    }

    std::unique_ptr<Calculation> PrepareCalculation() override
    {
        m_session.emplace(m_common);
        m_datum = FindDatum(*m_session, m_name);
        m_desk.emplace(*m_session);
        const bool angles = TraitsOf(m_frame).angles;
        return std::make_unique<DatumShift>(
            m_session->Files(), *m_desk, *m_datum, m_request,
            PositionForm(m_frame, angles ? m_precision.value_or(kAngleDecimals) : kAngleDecimals,
                         angles ? kDistanceDecimals : m_precision.value_or(kDistanceDecimals)));
    }

    void Describe(nlohmann::ordered_json& summary) const override
    {
        summary["datum"] = m_datum->name.ToUtf8();
        summary["inverse"] = m_request.inverse;
        summary["xyz"] = m_request.cartesian;
    }

    std::string m_name;
    ShiftRequest m_request;
    Frame m_frame = Frame::sat;
    // In this order: the transformation's code lies in the module that the session loaded.
    std::optional<Session> m_session;
    std::optional<NamedDatum> m_datum;
    std::optional<DatumDesk> m_desk;
};

} // namespace

std::unique_ptr<Command> MakeDatumApply(CLI::App& datum)
{
    return std::make_unique<ApplyAction>(
        datum.add_subcommand("apply", "Transform the positions in lines of text to the other ellipsoid"));
}
