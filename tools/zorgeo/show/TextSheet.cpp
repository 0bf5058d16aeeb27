#include "show/TextSheet.h"

#include <algorithm>
#include <cmath>
#include <sstream>

#include <fmt/format.h>

#include "base/keys/KeyTables.h"
#include "show/ModuleText.h"

namespace {

using namespace ProjectionKey;

constexpr std::size_t kWidth = 78;
constexpr std::size_t kValueColumn = 36;
constexpr double kHalfDegree = 0.5;
constexpr double kLargestLatitude = 89.0;
constexpr double kPolarLatitude = 85.0;
constexpr int kRD = 2;
constexpr int kLambertTwoParallels = 3;
constexpr int kPolar = 15;
constexpr double kYearOfTimeZero = 1970.0;
constexpr double kMillisecondsPerYear = 1000.0 * 86400.0 * 365.25; // the datum's reckoning

std::string Trimmed(const std::string& text)
{
    const auto begin = text.find_first_not_of(" \t");
    return begin == std::string::npos ? "" : text.substr(begin, text.find_last_not_of(" \t") - begin + 1);
}

/// Characters as a reader counts them: the bytes that begin one in UTF-8.
std::size_t Length(const std::string& text)
{
    return static_cast<std::size_t>(
        std::count_if(text.begin(), text.end(), [](char c) { return (static_cast<unsigned char>(c) & 0xC0) != 0x80; }));
}

/// "  label:      value", folded at blanks where it is longer than the sheet is wide.
std::string Row(const std::string& indent, const std::string& label, const std::string& value)
{
    std::string line = indent + label + ":";
    line += std::string(std::max<std::size_t>(kValueColumn > Length(line) ? kValueColumn - Length(line) : 0, 1), ' ');
    std::string out;
    std::istringstream words(value);
    bool first = true;
    for (std::string word; words >> word; first = false) {
        if (!first && Length(line) + 1 + Length(word) > kWidth) {
            out += line + "\n";
            line = std::string(kValueColumn, ' ');
        } else if (!first) {
            line += ' ';
        }
        line += word;
    }
    out += line;
    out.erase(out.find_last_not_of(' ') + 1);
    return out + "\n";
}

std::string Rule(char of)
{
    return std::string(kWidth, of) + "\n";
}

std::string Heading(const std::string& text)
{
    return text + "\n" + Rule('-');
}

std::string Angle(double degrees)
{
    return fmt::format("{:.8f}", degrees);
}

/// What is in force and the module's description does not say: constants of RD, fixed heights, a
/// fixed geoid separation, a vertical adjust beside no horizontal one.
std::string Unsaid(const SystemParameters& system)
{
    std::string rows;
    const auto add = [&rows](const std::string& label, double value, const std::string& unit) {
        rows += Row("  ", label, fmt::to_string(value) + (unit.empty() ? "" : " " + unit));
    };
    if (system.projection.type == kRD) {
        for (const ProjectionParameter& parameter : system.projection.all) {
            add(parameter.label, parameter.value, "");
        }
    }
    if (system.datum.fixedHeight) {
        add("Fixed height, satellite to local", system.datum.fixedHeightForward, system.unitSuffix);
        add("Fixed height, local to satellite", system.datum.fixedHeightReverse, system.unitSuffix);
    }
    if (system.geoid.separation) {
        add("Fixed geoid separation", *system.geoid.separation, system.unitSuffix);
    }
    if (const auto& adjust = system.post.vertical; adjust && !system.post.horizontal) {
        add("Vert. adjust origin easting", adjust->originX, "");
        add("Vert. adjust origin northing", adjust->originY, "");
        add("Vert. adjust slope easting(ppm)", adjust->slopeX, "");
        add("Vert. adjust slope northing(ppm)", adjust->slopeY, "");
    }
    return rows.empty() ? "" : Heading("ALSO IN FORCE") + rows + "\n";
}

/// The moment of the reference epoch, so that the sheet does not depend on the day.
double TimeOfExamples(const DatumParameters& datum)
{
    // Time 0 would be the present moment.
    const double time = (datum.epoch - kYearOfTimeZero) * kMillisecondsPerYear;
    return !datum.moves || time == 0.0 ? 1.0 : time;
}

std::string Example(const SystemParameters& system, const ZorGeoCoordSysBase& coordSys, const Place& place)
{
    double east = std::nan("");
    double north = std::nan("");
    double height = std::nan("");
    coordSys.SatGeoToGrid(place.latitude, place.longitude, 0.0, east, north, height, TimeOfExamples(system.datum));
    double projectedEast = east;
    double projectedNorth = north;
    coordSys.CalPostXY(east, north, projectedEast, projectedNorth, true);
    double convergence = std::nan("");
    coordSys.GridConvergence(projectedEast, projectedNorth, convergence);
    const double scale = coordSys.PointScaleFactor(projectedEast, projectedNorth);
    const std::string unit = " " + system.unitSuffix;
    return Row("  ", "Satellite latitude", Angle(place.latitude)) +
           Row("  ", "Satellite longitude", Angle(place.longitude)) + Row("  ", "Satellite height", "0.000" + unit) +
           Row("  ", "Easting", fmt::format("{:.3f}", east) + unit) +
           Row("  ", "Northing", fmt::format("{:.3f}", north) + unit) +
           Row("  ", "Height", fmt::format("{:.3f}", height) + unit) +
           Row("  ", "Grid convergence (degrees)", Angle(convergence)) +
           Row("  ", "Point scale factor", fmt::format("{:.8f}", scale));
}

std::string Examples(const SystemParameters& system, const ZorGeoCoordSysBase& coordSys,
                     const std::vector<Place>& places)
{
    std::string text = Heading("WORKED EXAMPLES (satellite frame to grid)");
    if (system.datum.moves) {
        text += Row("  ", "Epoch of the positions", fmt::to_string(system.datum.epoch));
    }
    for (const Place& place : places) {
        text += Example(system, coordSys, place) + "\n";
    }
    return text;
}

std::string Signature()
{
    const std::string line = "______________________________";
    return Heading("CHECKED AND APPROVED") + "\n  Name: " + line + "   Date: " + line.substr(0, 18) +
           "\n\n  Signature: " + line.substr(5) + "\n";
}

} // namespace

std::string InColumns(const std::string& description)
{
    std::string out;
    std::istringstream lines(ForTerminal(description));
    bool blank = true;
    for (std::string line; std::getline(lines, line);) {
        const std::string text = Trimmed(line);
        if (text.empty()) {
            // One blank line between blocks, however many line ends the module has there.
            out += blank ? "" : "\n";
            blank = true;
            continue;
        }
        blank = false;
        const auto tabs = static_cast<std::size_t>(std::count(line.begin(), line.end(), '\t'));
        const std::string indent(2 * tabs, ' ');
        const auto colon = text.find(':');
        out += colon == std::string::npos
                   ? indent + text + "\n"
                   : Row(indent, Trimmed(text.substr(0, colon)), Trimmed(text.substr(colon + 1)));
    }
    return out;
}

std::vector<Place> ExamplePlaces(const SystemParameters& system)
{
    const ProjectionParameters& p = system.projection;
    if (p.type == kPolar) {
        const double sign = p.Text(hemisphere) == "Northern" ? 1.0 : -1.0;
        return {{sign * kPolarLatitude, kHalfDegree}, {sign * kPolarLatitude, -kHalfDegree}};
    }
    double latitude = p[latOrigin];
    if (p.type == kLambertTwoParallels) {
        latitude = (p[southernParallel] + p[northernParallel]) / 2.0;
    }
    latitude = std::clamp(latitude, -kLargestLatitude, kLargestLatitude);
    return {{latitude + kHalfDegree, p[lonOrigin] + kHalfDegree}, {latitude - kHalfDegree, p[lonOrigin] - kHalfDegree}};
}

std::string MakeSheet(const SystemParameters& system, const OpenedSystem& opened, const std::string& description,
                      const std::optional<Place>& about)
{
    std::string text = Rule('=') + "COORDINATE SYSTEM\n" + Rule('=');
    text +=
        Row("", "Group", system.group) + Row("", "System", system.system) +
        Row("", "Database", system.custom ? "user's own" : "delivered") +
        Row("", "Linear unit",
            fmt::format("{} ({}), {} m", system.unitName, system.unitSuffix, fmt::to_string(system.metresPerUnit))) +
        "\n" + Heading("PARAMETERS") + InColumns(description);
    if (text.back() != '\n' || text.compare(text.size() - 2, 2, "\n\n") != 0) {
        text += "\n";
    }
    const std::vector<Place> places = about ? std::vector<Place>{*about} : ExamplePlaces(system);
    return text + Unsaid(system) + Examples(system, *opened.coordSys, places) + Signature();
}
