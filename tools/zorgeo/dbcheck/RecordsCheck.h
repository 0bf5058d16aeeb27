#pragma once

#include "Session.h"
#include "dbcheck/Findings.h"

/// Every record by itself, and what it refers to: references to what is in neither file, numbers
/// and ellipsoids out of range, datum transformations that do not load, projections without a
/// parameter or with one that their class refuses, units that are none, and names that stand in
/// both files for different things.
void CheckRecords(Session& session, Findings& findings);
