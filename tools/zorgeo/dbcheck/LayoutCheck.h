#pragma once

#include "dbcheck/Findings.h"

/// Sections and keys that no reader of the database knows, keys of lists that are no serial
/// numbers, and values that are not what their key holds.
void CheckLayout(const FileObject& file, Findings& findings);
