#pragma once

#include <memory>
#include <string>

#include "Session.h"
#include "base/geoid/GeoidModel.h"

/// What the command line asks of a system, as UTF-8; empty means: as the system's record has it. No
/// system: the project's own, with its choice of corrections and unit where nothing else is asked.
struct SystemRequest {
    std::string group;
    std::string system;
    std::string geoidModel;
    std::string geoidFile;
    std::string chartDatum;
    std::string postModel;
    std::string postFile;
    std::string unit;
    std::string project;
    bool allowMissing = false;
};

/// A system that is ready to convert, every part of it known to work.
class OpenedSystem {
    std::unique_ptr<FileObject> m_project; // the coordinate system keeps a pointer to it
    friend OpenedSystem OpenSystem(Session& session, const SystemRequest& request);

public:
    SystemName name;
    /// As it was carried out, with what came from the project.
    SystemRequest request;
    std::unique_ptr<ZorGeoCoordSysBase> coordSys;
    /// A geoid is in force: a position without a geoid height is refused.
    bool hasGeoid = false;
    /// The post model in force, to ask whether it covers a position; null without one.
    std::unique_ptr<GeoidModel> postModel;
};

/// Finds the system, checks its record and initialises it. Throws ToolError: 2 when a name is
/// unknown or ambiguous, 3 when a part of the system is missing or broken (geoid and post models
/// only unless `allowMissing`, which goes on and says so), 5 when a record's name is taken by
/// another and a new one would have to be asked for.
OpenedSystem OpenSystem(Session& session, const SystemRequest& request);

/// The unit that is asked for, by its whole name; "none", which keeps the system's own, when none is.
/// Throws ToolError: 2 when it is unknown or ambiguous, 3 when its record is broken.
CString UnitOf(Session& session, const SystemRequest& request);
