#pragma once

#include "Session.h"
#include "dbcheck/Findings.h"

/// Initialises every system that a group lists, each record once, and tries its geoid and post
/// models. What `findings` has of the records tells why one cannot be initialised. The result is
/// the number of systems.
std::size_t CheckSystems(Session& session, Findings& findings);
