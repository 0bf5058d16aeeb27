#pragma once

#include <string>
#include <vector>

#include "Session.h"

/// Who else depends on a system of the user database.
struct SystemUse {
    std::string projection;                   ///< its own, empty when it is a delivered one, which nothing removes
    std::string datum;                        ///< likewise
    std::vector<std::string> projects;        ///< directories of projects that name the system
    std::vector<std::string> groups;          ///< other groups that list it: they share its record
    std::vector<std::string> projectionUsers; ///< "system (group G)" of others with that projection
    std::vector<std::string> datumUsers;
    /// Projects that could not be looked into, with the reason.
    std::vector<std::string> unread;
    /// The module found a use of projection or datum that is none of those above.
    bool otherwise = false;

    bool InUse() const;
};

/// Looks through both database files and the projects on the disk, and asks the module.
SystemUse UseOf(Session& session, const SystemName& name);
