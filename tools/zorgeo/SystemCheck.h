#pragma once

#include <optional>
#include <string>

#include "DatabaseFiles.h"
#include "Session.h"

/// Looks at everything that a system's record names, in the database's files: group and record,
/// unit, ellipsoid, projection with its parameters, datum transformation with its ellipsoids, and
/// the switched-on corrections. Much of this the module reads without looking at the result, so
/// that a missing number would count as 0 and no position would tell.
///
/// Throws ToolError (3) at the first fault with the file, the section, the key and the remedy.
void CheckSystemRecord(const DatabaseFiles& files, const SystemName& name);

/// What is wrong with one record, with its file, section and key; none for a record that can be used.
using RecordFault = std::optional<std::string>;
RecordFault EllipsoidFault(const FileObject& file, const CString& section);
RecordFault ProjectionFault(const FileObject& file, const CString& section);
RecordFault DatumFault(const DatabaseFiles& files, const FileObject& file, const CString& section);

/// The file from which Init takes the system: the user file when it has both sections, else the main
/// file. Null when neither has.
const FileObject* FileOfSystem(const DatabaseFiles& files, const SystemName& name);

/// The section of a datum: as named, or with the part between " - " and ":" left out, as older
/// records name it.
CString DatumSection(const DatabaseFiles& files, const CString& name);

/// Whether group and system have their records in one and the same file, as Init demands.
bool HasSystemRecord(const DatabaseFiles& files, const SystemName& name);

/// The unit `unit`, as a system or --unit names it, is there and is a factor above 0 and a suffix.
void CheckUnit(const DatabaseFiles& files, const CString& unit, const std::string& namedBy);
