#include <algorithm>
#include <string>
#include <utility>
#include <vector>

#include <fmt/format.h>
#include <nlohmann/json.hpp>

#include "Command.h"
#include "CommonOptions.h"
#include "NameFinder.h"
#include "Output.h"
#include "Session.h"
#include "base/geoid/GeoidModelList.h"
#include "base/keys/KeyTables.h"
#include "base/text/Numbers.h"

namespace {

using Json = nlohmann::ordered_json;

/// One line of a list: named values in the order in which they are written. The first is what
/// --match looks at.
using Row = std::vector<std::pair<const char*, Json>>;
using Rows = std::vector<Row>;

Json Text(const CString& text)
{
    return text.ToUtf8();
}

/// A number, or null where the record gives none.
Json Number(double value)
{
    return std::isfinite(value) ? Json(value) : Json(nullptr);
}

Rows Groups(Session& session, const std::string&)
{
    Rows rows;
    for (const CString& group : session.Groups()) {
        rows.push_back({{"name", Text(group)}, {"systems", session.Systems(group).size()}});
    }
    return rows;
}

Rows Systems(Session& session, const std::string& wantedGroup)
{
    std::vector<CString> groups = session.Groups();
    if (!wantedGroup.empty()) {
        groups = {FindName(groups, wantedGroup, "group")};
    }
    Rows rows;
    for (const CString& group : groups) {
        for (const CString& system : session.Systems(group)) {
            rows.push_back({{"name", Text(system)}, {"group", Text(group)}});
        }
    }
    return rows;
}

Rows Datums(Session& session, const std::string&)
{
    CStringArray names;
    session.Database().GetAllDtfNames(names);
    Rows rows;
    for (const CString& name : names) {
        CString method;
        CString source;
        CString target;
        double p[15] = {};
        bool fixed = false;
        double up = 0.0;
        double down = 0.0;
        session.Database().GetDtfParamByName(name, method, p[0], p[1], p[2], p[3], p[4], p[5], p[6], p[7], p[8], p[9],
                                             p[10], p[11], p[12], p[13], p[14], source, target, fixed, up, down);
        rows.push_back(
            {{"name", Text(name)}, {"method", Text(method)}, {"source", Text(source)}, {"target", Text(target)}});
    }
    return rows;
}

Rows Projections(Session& session, const std::string&)
{
    CStringArray names;
    session.Database().GetAllProjectionNames(names);
    Rows rows;
    for (const CString& name : names) {
        rows.push_back({{"name", Text(name)},
                        {"method", Text(session.Database().GetPrjMdNameByPrjName(name))},
                        {"unit", Text(session.Database().GetPrjUnit(name))}});
    }
    return rows;
}

Rows Ellipsoids(Session& session, const std::string&)
{
    CStringArray names;
    session.Database().GetAllEllipsoidNames(names);
    Rows rows;
    for (const CString& name : names) {
        double a = std::nan("");
        double b = std::nan("");
        double e = std::nan("");
        double spare = 0.0;
        double f = std::nan("");
        double invF = std::nan("");
        session.Database().GetElpParamByElpName(name, a, b, e, spare, f, invF);
        rows.push_back({{"name", Text(name)}, {"semiMajorAxis", Number(a)}, {"inverseFlattening", Number(invF)}});
    }
    return rows;
}

Rows Units(Session& session, const std::string&)
{
    CStringArray names;
    session.Database().GetAllUnitNames(names);
    Rows rows;
    for (const CString& name : names) {
        CString key;
        CString suffix;
        double factor = std::nan("");
        short digits = 0;
        session.Database().GetUnitParametersByName(name, key, suffix, factor, digits);
        rows.push_back({{"name", Text(name)}, {"metres", Number(factor)}, {"suffix", Text(suffix)}});
    }
    return rows;
}

Rows Methods(Session& session, const std::string&)
{
    const auto record = session.NewStaticData();
    CStringArray names;
    record->GetAllPrjMdNames(names);
    Rows rows;
    for (const CString& name : names) {
        rows.push_back({{"name", Text(name)}, {"type", record->GetPrjType(name)}});
    }
    return rows;
}

/// Every name that a record or --geoid-model may use, and whether a reader stands behind it.
Rows Geoids(Session&, const std::string&)
{
    Rows rows;
    for (std::size_t i = 0; i < GeoidmodelTypeKeys.size(); ++i) {
        const bool model = i >= std::size_t{GeoidType::firstModel};
        const bool has = !model || GeoidModelList::GetGeoidModelList().Has(static_cast<unsigned short>(i));
        if (!GeoidmodelTypeKeys[i].IsEmpty()) {
            rows.push_back({{"name", Text(GeoidmodelTypeKeys[i])}, {"type", i}, {"available", has}});
        }
    }
    return rows;
}

struct Kind {
    const char* name;
    Rows (*list)(Session&, const std::string& group);
};

constexpr Kind kKinds[] = {{"groups", Groups},           {"systems", Systems},       {"datums", Datums},
                           {"projections", Projections}, {"ellipsoids", Ellipsoids}, {"units", Units},
                           {"methods", Methods},         {"geoids", Geoids}};

std::string CellText(const Json& value)
{
    if (value.is_string()) {
        return value.get<std::string>();
    }
    if (value.is_boolean()) {
        return value.get<bool>() ? "yes" : "no";
    }
    if (value.is_number_float()) {
        return numbers::ToText(value.get<double>());
    }
    return value.is_null() ? "" : value.dump();
}

/// One row to the line, its values apart by tabs.
std::string AsText(const Rows& rows)
{
    std::string text;
    for (const Row& row : rows) {
        for (std::size_t i = 0; i < row.size(); ++i) {
            if (i > 0) {
                text += '\t';
            }
            text += CellText(row[i].second);
        }
        text += '\n';
    }
    return text;
}

std::string AsJson(const Rows& rows)
{
    Json list = Json::array();
    for (const Row& row : rows) {
        Json object = Json::object();
        for (const auto& [name, value] : row) {
            object[name] = value;
        }
        list.push_back(object);
    }
    return list.dump(2) + "\n";
}

class ListCommand : public Command {
public:
    explicit ListCommand(CLI::App* app) : Command(app)
    {
        std::vector<std::string> kinds;
        for (const Kind& kind : kKinds) {
            kinds.push_back(kind.name);
        }
        app->add_option("KIND", m_kind, "What to list")->required()->check(CLI::IsMember(kinds));
        app->add_option("--group", m_group, "Only systems of this group")->type_name("GROUP");
        app->add_option("--match", m_match, "Only names that contain this text, in any case of letters")
            ->type_name("TEXT");
        m_common.AddTo(*app, "Write a JSON array of objects");
        app->footer("One name to the line; what else is known of it follows, apart by tabs.\n\n"
                    "Example:\n  zorgeo list systems --match utm --json");
    }

    ExitStatus Run() override
    {
        if (!m_group.empty() && m_kind != "systems") {
            throw ToolError(ExitStatus::usage, "--group goes with: zorgeo list systems");
        }
        const auto kind = std::find_if(std::begin(kKinds), std::end(kKinds),
                                       [this](const Kind& known) { return m_kind == known.name; });
        Session session(m_common);
        Rows rows = kind->list(session, m_group);
        const CString part = CString::FromUtf8(m_match);
        std::erase_if(rows, [&part](const Row& row) {
            return !ContainsNoCase(CString::FromUtf8(row.front().second.get<std::string>()), part);
        });
        WriteToStdout(m_common.json ? AsJson(rows) : AsText(rows));
        return ExitStatus::good;
    }

private:
    std::string m_kind;
    std::string m_group;
    std::string m_match;
    CommonOptions m_common;
};

} // namespace

std::unique_ptr<Command> MakeListCommand(CLI::App& program)
{
    return std::make_unique<ListCommand>(program.add_subcommand("list", "List what the database holds"));
}
