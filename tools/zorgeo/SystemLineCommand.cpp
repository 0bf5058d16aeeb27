#include "SystemLineCommand.h"

#include <fmt/format.h>
#include <nlohmann/json.hpp>

#include "SystemOptions.h"

SystemLineCommand::SystemLineCommand(CLI::App* app) : LineCommand(app) {}

void SystemLineCommand::AddSystemName(CLI::App& app)
{
    ::AddSystemName(app, m_system);
}

void SystemLineCommand::AddFrame(CLI::App& app, const char* name, std::string& value, const char* help, bool cartesian)
{
    const char* const names = FrameNames(cartesian);
    app.add_option(name, value, fmt::format("{}: {}", help, names))
        ->required()
        ->type_name("FRAME")
        ->check([names, cartesian](const std::string& text) {
            const auto frame = FrameOfName(text);
            const bool good = frame && (cartesian || TraitsOf(*frame).heightOptional);
            return good ? std::string() : fmt::format("\"{}\" is no frame; give {}", text, names);
        });
}

void SystemLineCommand::AddSystem(CLI::App& app)
{
    AddSystemOptions(app, m_system);
    AddEpoch(app, "System");
}

std::unique_ptr<Calculation> SystemLineCommand::PrepareCalculation()
{
    m_session.emplace(m_common);
    m_opened.emplace(OpenSystem(*m_session, m_system));
    return MakeCalculation(*m_opened);
}

void SystemLineCommand::Describe(nlohmann::ordered_json& summary) const
{
    summary["group"] = m_opened->name.group.ToUtf8();
    summary["system"] = m_opened->name.system.ToUtf8();
    summary["from"] = TraitsOf(m_columns.from).name;
    DescribeRequest(summary);
}
