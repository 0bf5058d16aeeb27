#include <cmath>

#include <fmt/format.h>

#include "base/text/Numbers.h"
#include "system/KnownRecords.h"
#include "system/Reading.h"

namespace {

constexpr NumberRange kFactor = {1e-6, 1e6, "metres in one unit, above 0"};
/// A factor as text may have lost its last digits.
constexpr double kSameFactor = 1e-12;

/// The database keeps the factor of a new unit with six decimals.
bool SurvivesSixDecimals(double metres)
{
    double kept = 0.0;
    return numbers::Read(fmt::format("{:.6f}", metres), kept) && kept == metres;
}

std::optional<UnitParameters> KnownUnit(const JsonNode& node, const UnitParameters& known, const std::string& name,
                                        const std::optional<double>& metres, const std::optional<std::string>& suffix)
{
    if (known.name != name) {
        node["name"].Fault(fmt::format("the unit is spelt \"{}\" in the database; write it so", known.name));
        return std::nullopt;
    }
    std::vector<std::string> differences;
    if (metres && std::fabs(*metres - known.metres) > kSameFactor * known.metres) {
        differences.push_back(Differs("metres", known.metres));
    }
    if (suffix && *suffix != known.suffix) {
        differences.push_back(Differs("suffix", known.suffix));
    }
    if (!differences.empty()) {
        TakenFault(node, "unit", name, "the database", differences);
        return std::nullopt;
    }
    return known;
}

} // namespace

std::optional<UnitParameters> ReadUnit(const Reading& reading, const JsonNode& node)
{
    if (!node.IsObjectOf({"name", "metres", "suffix"})) {
        return std::nullopt;
    }
    const auto name = Reading::PlainName(node["name"]);
    const auto metres = node["metres"].Number(kFactor);
    const auto suffix = node["suffix"].Text();
    if (!name) {
        return std::nullopt;
    }
    if (const auto known = UnitInDatabase(reading.session, *name)) {
        return KnownUnit(node, *known, *name, metres, suffix);
    }
    const std::string unknown = fmt::format(" (the database has no unit \"{}\"; see: zorgeo list units)", *name);
    node["metres"].Complain("the metres in one unit" + unknown);
    if (node["suffix"].Complain("the unit's suffix" + unknown) || !suffix || !metres) {
        return std::nullopt;
    }
    if (suffix->empty() || suffix->find(',') != std::string::npos) {
        node["suffix"].Fault(fmt::format("\"{}\" is no suffix; right is a short text without a comma", *suffix));
        return std::nullopt;
    }
    if (!SurvivesSixDecimals(*metres)) {
        node["metres"].Fault(fmt::format(
            "a new unit is stored with six decimals, and {} would become {:.6f}, {:.2g} parts per million off; use a "
            "unit of the database (see: zorgeo list units), or a factor of six decimals",
            numbers::ToText(*metres), *metres, std::fabs(std::round(*metres * 1e6) / 1e6 - *metres) / *metres * 1e6));
        return std::nullopt;
    }
    reading.remarks.push_back(fmt::format("new unit \"{}\"", *name));
    return UnitParameters{*name, *suffix, *metres};
}
