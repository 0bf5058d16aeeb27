#pragma once

#include "base/text/CString.h"

// Sections and keys of a project's backup of its system. They are the file format: the spelling
// stays, "medthod" and "UINT" included. What has the same key in the database's records stands in
// DatabaseText.h.

inline const CString kUnitBackup = L"UINT_BACKUP"; // one key, kUnitName: the unit's record
inline const CString kEllipsoidBackup = L"ELLIPSOID_BACKUP";
inline const CString kProjectionBackup = L"GEODESY_PROJECTION_BACKUP";
inline const CString kDatumBackup = L"GEODESY_DTF_BACKUP";
/// Of the older generation, which serve when the two above are missing.
inline const CString kOldProjectionBackup = L"PROJECTION_BACKUP";
inline const CString kOldDatumBackup = L"DTF_BACKUP";

inline const CString kBackupSystem = L"CoordSystem";
inline const CString kBackupGroup = L"CoordSystem group";
inline const CString kBackupProjectionType = L"Projection type";
inline const CString kBackupProjectionMethod = L"Projection medthod";

/// The unit's name in the older generation's section of units.
inline const CString kOldUnitName = L"System Units";
/// The name that every project file of the older generation has.
inline const CString kProjectFileName = L"project.prj";
