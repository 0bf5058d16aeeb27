#pragma once

#include "DatabaseFiles.h"
#include "dbcheck/Findings.h"

/// The lists of both files against the records: lines without a record, records without a line, and
/// the counts from which the next line's key is made.
void CheckLists(const DatabaseFiles& files, Findings& findings);
