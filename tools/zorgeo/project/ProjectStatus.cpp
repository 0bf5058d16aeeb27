#include "project/ProjectStatus.h"

#include <algorithm>
#include <cmath>

#include <fmt/format.h>

#include "base/text/Numbers.h"

namespace {

using Json = nlohmann::ordered_json;

constexpr const char* kNothing = "-";

/// Code points, which are columns but for wide and combining characters.
std::size_t WidthOf(const std::string& text)
{
    return static_cast<std::size_t>(
        std::count_if(text.begin(), text.end(), [](char byte) { return (byte & 0xC0) != 0x80; }));
}

std::string Padded(const std::string& text, std::size_t width)
{
    return text + std::string(width - std::min(width, WidthOf(text)), ' ');
}

/// Numbers alike on both sides, whichever way a file writes them.
std::string Shown(ValueKind kind, bool present, const std::string& text)
{
    double number = 0.0;
    if (!present || text.empty()) {
        return present ? "\"\"" : kNothing;
    }
    return kind == ValueKind::number && numbers::Read(text, number) ? fmt::format("{}", number) : text;
}

/// The widths of the three columns.
struct Widths {
    std::size_t label = 0;
    std::size_t project = 0;
    std::size_t database = 0;

    explicit Widths(const ProjectComparison& comparison)
        : label(4), project(WidthOf("project")), database(WidthOf("database"))
    {
        for (const ComparedPart& part : comparison.Parts()) {
            for (const ComparedValue& value : part.values) {
                label = std::max(label, WidthOf(value.label));
                project = std::max(project, WidthOf(Shown(value.kind, value.inProject, value.project)));
                database = std::max(database, WidthOf(Shown(value.kind, value.inDatabase, value.database)));
            }
        }
    }
    std::string Line(const std::string& left, const std::string& middle, const std::string& right,
                     const std::string& verdict) const
    {
        return fmt::format("  {}  {}  {}  {}\n", Padded(left, label), Padded(middle, project), Padded(right, database),
                           verdict);
    }
};

std::string TextOfParts(const ProjectComparison& comparison)
{
    const Widths widths(comparison);
    std::string text = widths.Line("", "project", "database", "verdict");
    for (const ComparedPart& part : comparison.Parts()) {
        if (part.values.empty()) {
            continue;
        }
        text += part.part;
        text += part.name.empty() ? "" : " \"" + part.name + "\"";
        text += part.database.empty() ? "\n" : " (" + part.database + " file)\n";
        for (const ComparedValue& value : part.values) {
            text += widths.Line(value.label, Shown(value.kind, value.inProject, value.project),
                                Shown(value.kind, value.inDatabase, value.database), TextOf(value.verdict));
        }
    }
    return text;
}

std::string TextOfOpening(const Opening& opening)
{
    if (!opening.refusal.empty()) {
        return "opening  not possible: " + opening.refusal + "\n";
    }
    std::string text;
    for (const Renaming& row : opening.asks) {
        text += fmt::format("opening  asks for a new name of the {} \"{}\", for example \"{}\"\n", TextOf(row.kind),
                            row.from.ToUtf8(), row.to.ToUtf8());
    }
    for (const NewRecord& row : opening.adds) {
        text += fmt::format("opening  adds the {} \"{}\" to the user database\n", row.kind, row.name);
    }
    return text.empty() ? "opening  changes nothing\n" : text;
}

/// The project's own choice in place of the system's settings.
struct Choice {
    const char* name;
    CString ProjectReference::*value;
};
constexpr Choice kChoices[] = {
    {"geoidModel", &ProjectReference::geoidModel}, {"geoidFile", &ProjectReference::geoidFile},
    {"chartDatum", &ProjectReference::chartDatum}, {"postModel", &ProjectReference::postModel},
    {"postFile", &ProjectReference::postFile},     {"unit", &ProjectReference::unit}};

Json JsonOf(ValueKind kind, bool present, const std::string& text)
{
    double number = 0.0;
    bool flag = false;
    if (!present) {
        return nullptr;
    }
    if (kind == ValueKind::number && numbers::Read(text, number) && std::isfinite(number)) {
        return number;
    }
    if (kind == ValueKind::flag && numbers::Read(text, flag)) {
        return flag;
    }
    return text;
}

/// The verdicts as a program reads them.
const char* WordOf(Verdict verdict)
{
    switch (verdict) {
    case Verdict::agrees:
        return "agrees";
    case Verdict::differs:
        return "differs";
    case Verdict::missingInDatabase:
        return "missingInDatabase";
    case Verdict::missingInProject:
        break;
    }
    return "missingInProject";
}

Json JsonOf(const ComparedPart& part)
{
    Json json = {{"part", part.part}, {"name", part.name}, {"databaseFile", nullptr}};
    if (!part.database.empty()) {
        json["databaseFile"] = part.database;
    }
    json["values"] = Json::array();
    for (const ComparedValue& value : part.values) {
        json["values"].push_back({{"item", value.label},
                                  {"project", JsonOf(value.kind, value.inProject, value.project)},
                                  {"database", JsonOf(value.kind, value.inDatabase, value.database)},
                                  {"verdict", WordOf(value.verdict)}});
    }
    return json;
}

Json JsonOf(const Opening& opening)
{
    Json json = {{"possible", opening.refusal.empty()}, {"refusal", nullptr}};
    if (!opening.refusal.empty()) {
        json["refusal"] = opening.refusal;
    }
    json["asks"] = Json::array();
    for (const Renaming& row : opening.asks) {
        json["asks"].push_back(
            {{"kind", TextOf(row.kind)}, {"name", row.from.ToUtf8()}, {"suggestion", row.to.ToUtf8()}});
    }
    json["adds"] = Json::array();
    for (const NewRecord& row : opening.adds) {
        json["adds"].push_back({{"kind", row.kind}, {"name", row.name}});
    }
    return json;
}

} // namespace

bool ProjectStatus::Agrees() const
{
    return comparison.Count(Verdict::differs) == 0 && comparison.Count(Verdict::missingInDatabase) == 0 &&
           comparison.Count(Verdict::missingInProject) == 0 && opening.refusal.empty() && opening.asks.empty() &&
           opening.adds.empty();
}

std::string ProjectStatus::AsText() const
{
    std::string text = fmt::format("file     {}\ngroup    {}\nsystem   {}\n", file, reference.name.group.ToUtf8(),
                                   reference.name.system.ToUtf8());
    for (const Choice& choice : kChoices) {
        if (!(reference.*choice.value).IsEmpty()) {
            text += fmt::format("{:<9}{}\n", choice.name, (reference.*choice.value).ToUtf8());
        }
    }
    text += "\n" + TextOfParts(comparison) + "\n";
    text += fmt::format("{} agree, {} differ, {} missing in the database, {} missing in the project\n",
                        comparison.Count(Verdict::agrees), comparison.Count(Verdict::differs),
                        comparison.Count(Verdict::missingInDatabase), comparison.Count(Verdict::missingInProject));
    return text + TextOfOpening(opening);
}

Json ProjectStatus::AsJson() const
{
    Json json = {{"schema", kStatusSchema},
                 {"file", file},
                 {"group", reference.name.group.ToUtf8()},
                 {"system", reference.name.system.ToUtf8()},
                 {"agrees", Agrees()}};
    for (const Choice& choice : kChoices) {
        json["choice"][choice.name] = (reference.*choice.value).ToUtf8();
    }
    json["parts"] = Json::array();
    for (const ComparedPart& part : comparison.Parts()) {
        json["parts"].push_back(JsonOf(part));
    }
    json["opening"] = JsonOf(opening);
    return json;
}
