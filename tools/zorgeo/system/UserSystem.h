#pragma once

#include <chrono>
#include <string>

#include "NameFinder.h"
#include "Session.h"

/// How long a change waits for others to end theirs: each reads, writes and looks again.
constexpr std::chrono::milliseconds kChangePatience{60000};

/// The one system of the user database that the user means, as FindSystem finds it; without a group
/// the group of the user database that lists it. Throws ToolError (2) also when it is a delivered
/// one, which nothing changes.
SystemName FindUserSystem(Session& session, const std::string& group, const std::string& system);
