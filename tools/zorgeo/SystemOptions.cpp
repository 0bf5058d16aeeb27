#include "SystemOptions.h"

namespace {

constexpr const char* kGroup = "System";
constexpr const char* kOwnSystem = "-"; // in the place of the name

} // namespace

void AddSystemName(CLI::App& app, SystemRequest& request)
{
    app.add_option("SYSTEM", request.system,
                   "Name of the system, a part of it that no other has, or EPSG:CODE; with --project - or nothing is "
                   "the project's own");
    app.callback([&request] {
        if (request.system == kOwnSystem) {
            request.system.clear();
        }
        if (request.system.empty() && request.project.empty()) {
            throw CLI::RequiredError("SYSTEM");
        }
    });
}

void AddSystemOptions(CLI::App& app, SystemRequest& request)
{
    app.add_option("--project", request.project, "Project whose system, or whose backup of it, is used")
        ->type_name("FILE")
        ->group(kGroup);
    AddSystemSettings(app, request);
}

void AddSystemSettings(CLI::App& app, SystemRequest& request)
{
    const auto add = [&app](const char* name, std::string& value, const char* type, const char* help) {
        app.add_option(name, value, help)->type_name(type)->group(kGroup);
    };
    add("--group", request.group, "GROUP", "Group of the system, or a part of its name");
    add("--unit", request.unit, "UNIT", "Linear unit in place of the system's own");
    add("--geoid-model", request.geoidModel, "MODEL", "Geoid model in place of the system's own; --None-- for none");
    add("--geoid-file", request.geoidFile, "FILE", "File of the geoid model");
    add("--chart-datum", request.chartDatum, "TEXT", "Chart datum, given to the geoid model");
    add("--post-model", request.postModel, "MODEL", "Post correction model in place of the system's own; --None--");
    add("--post-file", request.postFile, "FILE", "File of the post correction model");
    app.add_flag("--allow-missing", request.allowMissing, "Go on without a model that cannot be used, and say so")
        ->group(kGroup);
}
