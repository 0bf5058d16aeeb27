#pragma once

#include <string>
#include <vector>

#include <nlohmann/json.hpp>

#include "project/ProjectComparison.h"
#include "project/ProjectFile.h"
#include "project/ProjectReport.h"

/// What `project open` would do.
struct Opening {
    std::vector<Renaming> asks; ///< the names that it would ask for, with the first free ones
    std::vector<NewRecord> adds;
    std::string refusal; ///< why it cannot be opened at all; empty when it can
};

/// A project beside the database.
struct ProjectStatus {
    std::string file;
    ProjectReference reference;
    const ProjectComparison& comparison;
    Opening opening;

    bool Agrees() const;
    std::string AsText() const;
    nlohmann::ordered_json AsJson() const;
};

/// The name of the form and its version: the number grows when a reader of the old one would read
/// wrongly or not find what it looks for; what is only added leaves it.
constexpr const char* kStatusSchema = "zorgeo.project.status/1";
