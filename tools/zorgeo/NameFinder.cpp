#include "NameFinder.h"

#include <algorithm>
#include <iterator>
#include <optional>
#include <set>
#include <unordered_map>

#include <fmt/format.h>

#include "DatabaseText.h"
#include "Output.h"
#include "SystemAreas.h"
#include "SystemCheck.h"
#include "ToolError.h"
#include "base/text/Numbers.h"

namespace {

constexpr std::size_t kMostShown = 20;

CString Lower(CString text)
{
    text.MakeLower();
    return text;
}

template <typename Test>
std::vector<std::size_t> Where(const std::vector<CString>& names, Test test)
{
    std::vector<std::size_t> places;
    for (std::size_t i = 0; i < names.size(); ++i) {
        if (test(names[i])) {
            places.push_back(i);
        }
    }
    return places;
}

std::string Shown(const std::vector<std::string>& lines)
{
    std::string text;
    for (std::size_t i = 0; i < std::min(lines.size(), kMostShown); ++i) {
        text += "\n  " + lines[i];
    }
    if (lines.size() > kMostShown) {
        text += fmt::format("\n  and {} more", lines.size() - kMostShown);
    }
    return text;
}

/// The number of "EPSG:28992", in any case of letters; none for another text.
std::optional<int> CodeOf(const std::string& system)
{
    const CString prefix = L"EPSG:";
    const CString text = CString::FromUtf8(system);
    const std::string digits = text.Mid(prefix.GetLength()).ToUtf8();
    int code = 0;
    const bool isCode = text.Left(prefix.GetLength()).CompareNoCase(prefix) == 0 && !digits.empty() &&
                        digits.find_first_not_of("0123456789") == std::string::npos && numbers::Read(digits, code);
    return isCode ? std::optional(code) : std::nullopt;
}

[[noreturn]] void RefuseCode(const CString& dataDirectory, int code)
{
    const std::string reason = ReasonLeftOut(dataDirectory, code);
    throw ToolError(ExitStatus::usage,
                    reason.empty()
                        ? fmt::format("there is no system of EPSG code {}; see: zorgeo find --at LAT,LON", code)
                        : fmt::format("EPSG {}: {}", code, reason));
}

/// By the delivered table; in the wanted group or, without one, in the first that lists the system.
SystemName SystemOfCode(Session& session, const std::string& group, int code)
{
    const SystemAreas areas(session.DataDirectory());
    for (const std::string& fault : areas.Faults()) {
        Remark(fault);
    }
    const SystemArea* const area = areas.OfCode(code);
    if (area == nullptr) {
        RefuseCode(session.DataDirectory(), code);
    }
    const CString system = CString::FromUtf8(area->name);
    std::vector<CString> groups;
    if (group.empty()) {
        std::transform(area->groups.begin(), area->groups.end(), std::back_inserter(groups), CString::FromUtf8);
    } else {
        groups = {FindName(session.Groups(), group, "group")};
    }
    for (const CString& in : groups) {
        const std::vector<CString> systems = session.Systems(in);
        if (std::find(systems.begin(), systems.end(), system) != systems.end()) {
            return {in, system};
        }
    }
    if (!group.empty()) {
        throw ToolError(
            ExitStatus::usage,
            fmt::format("EPSG:{} is the system \"{}\", which the group \"{}\" does not list; its groups are:{}", code,
                        area->name, groups.front().ToUtf8(), Shown(area->groups)));
    }
    throw ToolError(ExitStatus::unusable,
                    fmt::format("{}{} has \"{}\" for EPSG:{}, and the database has no such system; {}",
                                session.DataDirectory().ToUtf8(), kAreasFile.ToUtf8(), area->name, code,
                                kRestoreDelivered));
}

/// The systems of the groups that are looked through: each name once, with the groups that list it.
struct Listed {
    std::vector<CString> names;
    std::vector<std::vector<CString>> groups;
};

Listed ListedSystems(Session& session, const std::string& group)
{
    std::vector<CString> groups = session.Groups();
    if (!group.empty()) {
        groups = {FindName(groups, group, "group")};
    }
    Listed listed;
    std::unordered_map<CString, std::size_t> places;
    for (const CString& in : groups) {
        for (const CString& name : session.Systems(in)) {
            const auto [place, isNew] = places.emplace(name, listed.names.size());
            if (isNew) {
                listed.names.push_back(name);
                listed.groups.emplace_back();
            }
            listed.groups[place->second].push_back(in);
        }
    }
    return listed;
}

/// Adds the records of a name: one of each file, under the first group that leads to it.
void AddRecords(const DatabaseFiles& files, const CString& system, const std::vector<CString>& groups,
                std::vector<SystemName>& systems)
{
    std::set<const FileObject*> seen;
    for (const CString& group : groups) {
        if (seen.insert(FileOfSystem(files, {group, system})).second) {
            systems.push_back({group, system});
        }
    }
}

/// " in the group G", where one is asked for.
std::string InGroup(Session& session, const std::string& group)
{
    return group.empty() ? std::string()
                         : fmt::format(" in the group \"{}\"", FindName(session.Groups(), group, "group").ToUtf8());
}

} // namespace

bool ContainsNoCase(const CString& name, const CString& part)
{
    return Lower(name).Find(Lower(part)) >= 0;
}

std::vector<std::size_t> MatchName(const std::vector<CString>& names, const CString& wanted)
{
    auto places = Where(names, [&](const CString& name) { return name == wanted; });
    if (places.empty()) {
        places = Where(names, [&](const CString& name) { return name.CompareNoCase(wanted) == 0; });
    }
    if (places.empty() && !wanted.IsEmpty()) {
        const CString part = Lower(wanted);
        places = Where(names, [&](const CString& name) { return Lower(name).Find(part) >= 0; });
    }
    return places;
}

CString FindName(const std::vector<CString>& names, const std::string& wanted, const std::string& kind)
{
    const auto places = MatchName(names, CString::FromUtf8(wanted));
    if (places.size() == 1) {
        return names[places.front()];
    }
    std::vector<std::string> shown;
    for (std::size_t i = 0; i < (places.empty() ? names.size() : places.size()); ++i) {
        shown.push_back(names[places.empty() ? i : places[i]].ToUtf8());
    }
    throw ToolError(ExitStatus::usage,
                    places.empty() ? fmt::format("there is no {} \"{}\"; there are:{}", kind, wanted, Shown(shown))
                                   : fmt::format("{} \"{}\" may be any of:{}", kind, wanted, Shown(shown)));
}

std::vector<SystemName> SystemsMeant(Session& session, const std::string& group, const std::string& system)
{
    if (const std::optional<int> code = CodeOf(system)) {
        return {SystemOfCode(session, group, *code)};
    }
    const Listed listed = ListedSystems(session, group);
    std::vector<SystemName> meant;
    for (const std::size_t place : MatchName(listed.names, CString::FromUtf8(system))) {
        AddRecords(session.Files(), listed.names[place], listed.groups[place], meant);
    }
    return meant;
}

SystemName FindSystem(Session& session, const std::string& group, const std::string& system)
{
    const std::vector<SystemName> meant = SystemsMeant(session, group, system);
    if (meant.size() == 1) {
        return meant.front();
    }
    if (meant.empty()) {
        throw ToolError(ExitStatus::usage, fmt::format("there is no system \"{}\"{}; see: zorgeo list systems", system,
                                                       InGroup(session, group)));
    }
    std::vector<std::string> shown;
    for (const SystemName& name : meant) {
        shown.push_back(fmt::format("{} (group {})", name.system.ToUtf8(), name.group.ToUtf8()));
    }
    throw ToolError(ExitStatus::usage, fmt::format("system \"{}\" may be any of:{}", system, Shown(shown)));
}
