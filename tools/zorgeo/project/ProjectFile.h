#pragma once

#include <string>

#include "Session.h"
#include "SystemOpener.h"
#include "base/files/FileObject.h"

/// What a project says of its system beside the backup: the names, and its own choice of
/// corrections and unit, empty for the system's.
struct ProjectReference {
    SystemName name;
    CString geoidModel;
    CString geoidFile;
    CString chartDatum;
    CString postModel;
    CString postFile;
    CString unit;
};

/// Opens a project. Throws ToolError (3) with file, section and remedy when it cannot be read or is none.
FileObject OpenProject(const std::string& path);

/// The reference as far as it goes.
ProjectReference PeekReference(const FileObject& project);
/// The reference. Throws ToolError (3) with file, section, key and remedy when a name is missing.
ProjectReference ReadReference(const FileObject& project);

bool HasBackup(const FileObject& project);

/// The reference's names are those of a whole system of the database. Throws ToolError (3) with the
/// remedy otherwise.
void CheckKnown(const DatabaseFiles& files, const FileObject& project, const SystemName& name);

/// The backup is there and whole. Throws ToolError (3) with file, section, key and remedy otherwise.
void CheckBackup(const DatabaseFiles& files, const FileObject& project);

/// The reference as a request; what `request` asks for itself stays. The unit is asked for when it
/// is another than the system's own.
void TakeReference(Session& session, const FileObject& project, SystemRequest& request);

/// The section of formats, without which no project can be opened, when it is missing.
void AddFormats(FileObject& project);

/// The system's reference with `unit` as the project's; "none" is the system's own.
void WriteReference(FileObject& project, ZorGeoCoordSysBase& coordSys, const CString& unit);

/// The whole system as the database has it, in place of an earlier backup, of which nothing stays.
/// Throws ToolError (3) when the system cannot be initialised.
void WriteBackup(Session& session, FileObject& project, const SystemName& name);

/// Writes the project, whole or not at all. Throws ToolError (4).
void SaveProject(const FileObject& project, const std::string& path);
