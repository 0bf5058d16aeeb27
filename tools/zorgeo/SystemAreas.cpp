#include "SystemAreas.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <string_view>

#include "DatabaseFiles.h"
#include "DatabaseText.h"
#include "TabbedFile.h"
#include "base/files/CFile.h"
#include "base/text/Numbers.h"
#include "convert/NumberText.h"

namespace {

/// Fields of a line of the table of areas.
enum Field : std::size_t { kName, kGroups, kCode, kWest, kSouth, kEast, kNorth, kAccuracy, kFields };

/// Fields of a line of the list of systems left out.
enum LeftOutField : std::size_t { kLeftOutCode, kLeftOutName, kLeftOutMethod, kLeftOutReason, kLeftOutFields };

using Fields = std::vector<std::string_view>;

Fault ReadGroups(std::string_view text, std::vector<std::string>& groups)
{
    for (bool more = true; more;) {
        const std::size_t end = text.find(';');
        more = end != std::string_view::npos;
        const std::string_view group = text.substr(0, end);
        if (group.empty()) {
            return "a group without a name";
        }
        groups.emplace_back(group);
        text.remove_prefix(more ? end + 1 : text.size());
    }
    return nullptr;
}

Fault ReadCode(std::string_view text, std::optional<int>& code)
{
    if (text.empty()) {
        return nullptr;
    }
    int value = 0;
    if (!numbers::Read(text, value) || value <= 0) {
        return "the EPSG code is no whole number above 0";
    }
    code = value;
    return nullptr;
}

Fault ReadAccuracy(std::string_view text, std::optional<double>& accuracy)
{
    if (text.empty()) {
        return nullptr;
    }
    double value = 0.0;
    if (ReadNumber(text, value) != nullptr || value < 0.0) {
        return "the accuracy is no number of metres";
    }
    accuracy = value;
    return nullptr;
}

Fault ReadBox(const Fields& fields, AreaBox& box)
{
    for (const auto& [field, value] :
         {std::pair(kWest, &box.west), {kSouth, &box.south}, {kEast, &box.east}, {kNorth, &box.north}}) {
        const double most = field == kSouth || field == kNorth ? 90.0 : 180.0;
        if (ReadNumber(fields[field], *value) != nullptr || std::fabs(*value) > most) {
            return "an edge of the box is no latitude within 90 or longitude within 180 degrees";
        }
    }
    return box.south > box.north ? "the south edge of the box is north of the north edge" : nullptr;
}

Fault ReadLine(const Fields& fields, SystemArea& area)
{
    if (fields.size() != kFields) {
        return "not eight fields apart by tabs";
    }
    if (fields[kName].empty()) {
        return "a system without a name";
    }
    area.name = fields[kName];
    Fault fault = ReadGroups(fields[kGroups], area.groups);
    fault = fault != nullptr ? fault : ReadCode(fields[kCode], area.code);
    fault = fault != nullptr ? fault : ReadBox(fields, area.boxes.emplace_back());
    return fault != nullptr ? fault : ReadAccuracy(fields[kAccuracy], area.accuracy);
}

} // namespace

bool AreaBox::Holds(double latitude, double longitude) const
{
    if (!(latitude >= south && latitude <= north)) {
        return false;
    }
    if (std::fabs(latitude) == 90.0) {
        return true;
    }
    const auto between = [this](double l) { return west <= east ? l >= west && l <= east : l >= west || l <= east; };
    const double near = std::remainder(longitude, 360.0); // 180 degrees come out with either sign
    return between(near) || (std::fabs(near) == 180.0 && between(-near));
}

double AreaBox::Extent() const
{
    constexpr double kRadian = std::numbers::pi / 180.0;
    const double width = west <= east ? east - west : east - west + 360.0;
    return width / 360.0 * (std::sin(north * kRadian) - std::sin(south * kRadian)) / 2.0;
}

bool SystemArea::Holds(double latitude, double longitude) const
{
    return std::any_of(boxes.begin(), boxes.end(), [=](const AreaBox& box) { return box.Holds(latitude, longitude); });
}

double SystemArea::Extent() const
{
    double sum = 0.0;
    for (const AreaBox& box : boxes) {
        sum += box.Extent();
    }
    return sum;
}

SystemAreas::SystemAreas(const CString& dataDirectory)
{
    TabbedFile file((dataDirectory + kAreasFile).ToUtf8(), kRestoreDelivered);
    for (Fields fields; file.Next(fields);) {
        SystemArea line;
        Fault fault = ReadLine(fields, line);
        fault = fault != nullptr ? fault : Add(std::move(line));
        if (fault != nullptr) {
            m_faults.push_back(file.Place() + fault);
        }
    }
}

const char* SystemAreas::Add(SystemArea&& line)
{
    if (!m_systems.empty() && m_systems.back().name == line.name) {
        SystemArea& system = m_systems.back();
        if (system.groups != line.groups || system.code != line.code || system.accuracy != line.accuracy) {
            return "groups, code or accuracy differ from those of the same system above";
        }
        system.boxes.push_back(line.boxes.front());
        return nullptr;
    }
    if (line.code && !m_ofCode.emplace(*line.code, m_systems.size()).second) {
        return "the EPSG code is that of another system above";
    }
    m_systems.push_back(std::move(line));
    return nullptr;
}

const SystemArea* SystemAreas::OfCode(int code) const
{
    const auto found = m_ofCode.find(code);
    return found == m_ofCode.end() ? nullptr : &m_systems[found->second];
}

std::string ReasonLeftOut(const CString& dataDirectory, int code)
{
    const CString path = dataDirectory + kLeftOutFile;
    if (!CFile::Exists(path)) {
        return {};
    }
    TabbedFile file(path.ToUtf8(), kRestoreDelivered);
    for (Fields fields; file.Next(fields);) {
        int listed = 0;
        if (fields.size() == kLeftOutFields && numbers::Read(fields[kLeftOutCode], listed) && listed == code) {
            return std::string(fields[kLeftOutReason]);
        }
    }
    return {};
}
