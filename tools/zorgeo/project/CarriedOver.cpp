#include "project/CarriedOver.h"

#include <algorithm>
#include <cmath>
#include <string>

#include <fmt/format.h>

#include "ToolError.h"
#include "base/keys/KeyTables.h"
#include "base/text/Numbers.h"
#include "project/ProjectComparison.h"
#include "project/ProjectFile.h"

namespace {

// Relative: 6 micrometres on the Earth. The last digit of a squared eccentricity may go.
constexpr double kSameNumber = 1e-12;

/// The number that a text begins with: of a unit's record, factor and suffix, the factor.
double LeadingNumber(const std::string& text)
{
    double number = std::nan("");
    numbers::Read(std::string_view(text).substr(0, text.find(',')), number);
    return number;
}

bool IsPolarGrid(const ComparedPart& projection)
{
    const std::string polar = "15"; // Universal Polar Stereographic
    return std::any_of(projection.values.begin(), projection.values.end(), [&](const ComparedValue& value) {
        return value.label == projectionParamKeys[ProjectionKey::type].ToUtf8() && value.project == polar;
    });
}

/// Whether positions differ between the two sides of a value.
bool MovesPositions(const ComparedPart& part, const ComparedValue& value)
{
    if (value.verdict != Verdict::differs) {
        return false;
    }
    if (part.part == "projection" && value.kind == ValueKind::text) {
        return value.label == projectionParamKeys[ProjectionKey::hemisphere].ToUtf8() && IsPolarGrid(part);
    }
    if (value.kind != ValueKind::number && part.part != "unit") {
        return false;
    }
    const double ours = LeadingNumber(value.project);
    const double theirs = LeadingNumber(value.database);
    return !(std::abs(ours - theirs) <= kSameNumber * std::abs(ours));
}

} // namespace

void CheckCarriedOver(Session& session, const FileObject& project)
{
    if (!HasBackup(project)) {
        return;
    }
    std::string faults;
    const ProjectComparison comparison(session, project);
    for (const ComparedPart& part : comparison.Parts()) {
        if (part.part != "projection" && part.part != "ellipsoid" && part.part != "unit" &&
            part.part != "datum transformation") {
            continue;
        }
        for (const ComparedValue& value : part.values) {
            if (MovesPositions(part, value)) {
                faults += fmt::format("\n  {} \"{}\", {}: {} in the project, {} in the {} database", part.part,
                                      part.name, value.label, value.project, value.database, part.database);
            }
        }
    }
    if (!faults.empty()) {
        throw ToolError(ExitStatus::unusable,
                        "the database's records would give other positions than the project's:" + faults +
                            "\nmend the database's record, or add the project's under a name of its own (zorgeo system "
                            "add) and save the project with that system");
    }
}
