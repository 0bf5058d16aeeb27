#pragma once

#include <string>
#include <vector>

#include "Session.h"
#include "base/files/FileObject.h"
#include "project/NamingDesk.h"
#include "project/Workbench.h"

/// A record that came into the user database.
struct NewRecord {
    std::string kind;
    std::string name;
};

/// The records of `after` that `before` has not, in the order of the file.
std::vector<NewRecord> NewRecords(const FileObject& before, const FileObject& after);

/// What a command has done to a project.
struct ProjectReport {
    std::string file;
    SystemName name;
    std::vector<Renaming> renamed;
    std::vector<NewRecord> added;
    Workbench::Changes changed;
};

/// The name of the form and its version: the number grows when a reader of the old one would read
/// wrongly.
constexpr const char* kReportSchema = "zorgeo.project.report/1";

/// Tells it on standard output, as lines or as JSON.
void Tell(const ProjectReport& report, bool json);
