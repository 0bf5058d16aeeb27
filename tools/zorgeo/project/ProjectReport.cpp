#include "project/ProjectReport.h"

#include <fmt/format.h>
#include <nlohmann/json.hpp>

#include "DatabaseText.h"
#include "Output.h"

namespace {

struct KindRow {
    const CString& prefix;
    const char* kind;
};
const KindRow kKinds[] = {{kGroupPrefix, "group"},
                          {kSystemPrefix, "system"},
                          {kDatumPrefix, "datum transformation"},
                          {kProjectionPrefix, "projection"},
                          {kEllipsoidPrefix, "ellipsoid"}};

void AddUnits(const FileObject& before, const FileObject& after, std::vector<NewRecord>& records)
{
    FobjSection walk;
    CString unit;
    CString record;
    for (bool more = after.GetFirstMapEntry(walk, kUnitsSection, unit, record); more;
         more = after.GetNextMapEntry(walk, unit, record)) {
        if (!before.HasKey(kUnitsSection, unit)) {
            records.push_back({"unit", unit.ToUtf8()});
        }
    }
}

std::string WhatChanged(const Workbench::Changes& changed)
{
    if (changed.database && changed.project) {
        return "user database, project";
    }
    return changed.database ? "user database" : changed.project ? "project" : "nothing";
}

std::string ReportText(const ProjectReport& report)
{
    std::string text = fmt::format("file     {}\ngroup    {}\nsystem   {}\n", report.file, report.name.group.ToUtf8(),
                                   report.name.system.ToUtf8());
    for (const Renaming& row : report.renamed) {
        text += fmt::format("renamed  {} \"{}\" to \"{}\"\n", TextOf(row.kind), row.from.ToUtf8(), row.to.ToUtf8());
    }
    for (const NewRecord& row : report.added) {
        text += fmt::format("added    {} \"{}\"\n", row.kind, row.name);
    }
    return text + "changed  " + WhatChanged(report.changed) + "\n";
}

nlohmann::ordered_json ReportJson(const ProjectReport& report)
{
    nlohmann::ordered_json json = {{"schema", kReportSchema},
                                   {"file", report.file},
                                   {"group", report.name.group.ToUtf8()},
                                   {"system", report.name.system.ToUtf8()}};
    json["renamed"] = nlohmann::ordered_json::array();
    for (const Renaming& row : report.renamed) {
        json["renamed"].push_back({{"kind", TextOf(row.kind)}, {"from", row.from.ToUtf8()}, {"to", row.to.ToUtf8()}});
    }
    json["added"] = nlohmann::ordered_json::array();
    for (const NewRecord& row : report.added) {
        json["added"].push_back({{"kind", row.kind}, {"name", row.name}});
    }
    json["changed"] = {{"database", report.changed.database}, {"project", report.changed.project}};
    return json;
}

} // namespace

std::vector<NewRecord> NewRecords(const FileObject& before, const FileObject& after)
{
    std::vector<NewRecord> records;
    FobjSection walk;
    CString section;
    for (bool more = after.GetFirstSectionEntry(walk, section); more; more = after.GetNextSectionEntry(walk, section)) {
        for (const KindRow& row : kKinds) {
            const int length = row.prefix.GetLength();
            if (section.Left(length) == row.prefix && !before.HasSection(section)) {
                records.push_back({row.kind, section.Mid(length).ToUtf8()});
            }
        }
    }
    AddUnits(before, after, records);
    return records;
}

void Tell(const ProjectReport& report, bool json)
{
    WriteToStdout(json ? ReportJson(report).dump(2) + "\n" : ReportText(report));
}
