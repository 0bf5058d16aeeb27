#include "NameFinder.h"

#include <algorithm>

#include <fmt/format.h>

#include "ToolError.h"

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
        places = Where(names, [&](const CString& name) { return ContainsNoCase(name, wanted); });
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

SystemName FindSystem(Session& session, const std::string& group, const std::string& system)
{
    std::vector<CString> groups = session.Groups();
    if (!group.empty()) {
        groups = {FindName(groups, group, "group")};
    }
    std::vector<SystemName> all;
    std::vector<CString> names;
    for (const CString& in : groups) {
        for (const CString& name : session.Systems(in)) {
            if (std::find(names.begin(), names.end(), name) == names.end()) {
                all.push_back({in, name});
                names.push_back(name);
            }
        }
    }
    const auto places = MatchName(names, CString::FromUtf8(system));
    if (places.size() == 1) {
        return all[places.front()];
    }
    if (places.empty()) {
        throw ToolError(ExitStatus::usage,
                        fmt::format("there is no system \"{}\"{}; see: zorgeo list systems", system,
                                    group.empty() ? "" : " in the group \"" + groups.front().ToUtf8() + "\""));
    }
    std::vector<std::string> shown;
    for (const std::size_t place : places) {
        shown.push_back(fmt::format("{} (group {})", all[place].system.ToUtf8(), all[place].group.ToUtf8()));
    }
    throw ToolError(ExitStatus::usage, fmt::format("system \"{}\" may be any of:{}", system, Shown(shown)));
}
