#pragma once

#include "Session.h"
#include "base/files/FileObject.h"

/// Looks whether the records that a project's system has in the database give the project's
/// positions. Opening compares ellipsoids and units by name alone, and a restored record can lose
/// something on the way: the hemisphere of a polar grid, digits of a unit.
///
/// Throws ToolError (3) naming each value that would move positions, with what both sides have and
/// what to do. A project without a backup has nothing to compare.
void CheckCarriedOver(Session& session, const FileObject& project);
