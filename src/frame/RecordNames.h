#pragma once

#include "frame/BaseContract.h"

// Names of files, sections and keys that the module itself defines. They are the file format:
// the spelling stays, "statu", "coorection" and "horizonal" included. Keys that come from the
// suite's tables (transParamKeys and its kin) stand in base/keys/KeyTables.h.

/// Files.
inline const CString kMainDatabaseFile = L"zorgeodatabase.geo";
inline const CString kUserDatabaseFile = L"zorusergeobase.geo";
inline const CString kCatalogueFile = L"ZorProjectionStatic.dat";
inline const CString kProjectFile = L"project.prj";

/// Key under which the module registers, and its module type.
inline const CString kModuleKey = L"ZORCoordSys";

/// Prefixes of record sections.
inline const CString kGroupPrefix = L"Gp-";
inline const CString kSystemPrefix = L"Sys-";
inline const CString kDatumPrefix = L"Dtf-";
inline const CString kProjectionPrefix = L"Prj-";
inline const CString kEllipsoidPrefix = L"Elp-";

/// Index sections.
inline const CString kGeneralSection = L"General";
inline const CString kGroupsSection = L"Groups Section";
inline const CString kDatumsSection = L"DatumTransform Section";
inline const CString kProjectionsSection = L"Projections section";
inline const CString kEllipsoidsSection = L"Ellipsoids section";
inline const CString kUnitsSection = L"Units section";

/// Counters of the section "General"; "System count" also stands in each group.
inline const CString kGroupCount = L"Group count";
inline const CString kSystemCount = L"System count";
inline const CString kEllipsoidCount = L"Ellipsoid count";
inline const CString kDatumCount = L"Datumtransf count";
inline const CString kUnitCount = L"Unit count";
inline const CString kProjectionCount = L"Projection count";

/// Key of a group.
inline const CString kSupportedGeoidMethods = L"Supported geoid model methods";

/// Keys of a system.
inline const CString kSystemDatum = L"Datumtransform name";
inline const CString kSystemUnit = L"Unit name";
inline const CString kSystemEllipsoid = L"Ellipsoid name";
inline const CString kSystemProjection = L"Projection name";
inline const CString kSystemDescription = L"System description";
inline const CString kGeoidUse = L"Geoid model use statu";
inline const CString kGeoidManual = L"Manual input value";
inline const CString kGeoidGrid = L"Geoid model grid";
inline const CString kGeoidMethod = L"Geoid model method";
inline const CString kPostUse = L"Post coorection statu";
inline const CString kPostX = L"Post X coorection";
inline const CString kPostY = L"Post Y coorection";
inline const CString kPostZ = L"Post Z coorection";
inline const CString kPostFile = L"Post coorection file";
inline const CString kPostModel = L"Post coorection model";
inline const CString kHorAdjustUse = L"Post horizontal adjust statu";
inline const CString kHorAdjustOriginX = L"Post horizonal origin X";
inline const CString kHorAdjustOriginY = L"Post horizonal origin Y";
inline const CString kHorAdjustRotation = L"Post horizonal rotation";
inline const CString kHorAdjustScale = L"Post horizonal scale";
inline const CString kVertAdjustUse = L"Post vertical adjust statu";
inline const CString kVertAdjustOriginX = L"Post vertical origin X";
inline const CString kVertAdjustOriginY = L"Post vertical origin Y";
inline const CString kVertAdjustSlopeX = L"Post vertical slope X";
inline const CString kVertAdjustSlopeY = L"Post vertical slope Y";

/// Keys of a datum transformation beside transParamKeys.
inline const CString kDatumMethod = L"Method name";
inline const CString kDatumSourceAxis = L"SrcSma";
inline const CString kDatumSourceEcc = L"SrcSe";
inline const CString kDatumTargetAxis = L"DstSma";
inline const CString kDatumTargetEcc = L"DstSe";

/// Datum methods.
inline const CString kMethodNone = L"No Transformation";
inline const CString kMethodBursaWolfe7 = L"Bursa/Wolfe(7 Parameters)";
inline const CString kMethodHelmert7 = L"Helmert(7 Parameters)";
inline const CString kMethodBursaWolfe14 = L"Bursa/Wolfe(14 Parameters)";
inline const CString kMethodHelmert14 = L"Helmert(14 Parameters)";

/// Keys of a projection beside projectionParamKeys.
inline const CString kProjectionMethod = L"Projection method";
inline const CString kProjectionUnit = L"Unit name";

/// Keys of an ellipsoid: entries of spheroidKeys, named for the writers.
inline const CString kSemiMajor = L"SemiMajor";
inline const CString kEccSquared = L"EccSqrd";

/// Sections and keys of the projection catalogue.
inline const CString kCatalogueMethods = L"Projections-Section";
inline const CString kCatalogueHidden = L"NOTIMPLEMENT-SECTION";
inline const CString kCatalogueParameters = L"ParaStatic-Section";
inline const CString kCatalogueUnitFlag = L"Unitflag";

/// Sections and keys of a project.
inline const CString kGeodesyVersionKey = L"GeodesyVersion";
inline const CString kGeodesyVersion = L"1.0.1";
inline const CString kBackupSystem = L"CoordSystem";
inline const CString kBackupGroup = L"CoordSystem group";
inline const CString kBackupProjectionType = L"Projection type";
inline const CString kBackupProjectionMethod = L"Projection medthod";
inline const CString kDatumBackup = L"GEODESY_DTF_BACKUP";
inline const CString kProjectionBackup = L"GEODESY_PROJECTION_BACKUP";
inline const CString kEllipsoidBackup = L"ELLIPSOID_BACKUP"; ///< of the older generation too
/// Holds one key, whose value is no name: the unit's record as "Units section" has it.
inline const CString kUnitBackup = L"UINT_BACKUP";
inline const CString kUnitBackupRecord = L"Unit name";

/// Backups in a project of the older generation, and the unit table of that generation.
inline const CString kLegacyProjectionBackup = L"PROJECTION_BACKUP";
inline const CString kLegacyDatumBackup = L"DTF_BACKUP";
inline const CString kLegacyUnitsFile = L"Units.uni";
inline const CString kLegacyDefaults = L"Default";
inline const CString kLegacySystemUnits = L"System Units";

/// Defaults and words with a meaning.
inline const CString kUserGroup = L"User Defined Coordinate Systems";
inline const CString kDefaultSource = L"WGS84";
inline const CString kDefaultGroup = L"Netherlands";
inline const CString kDefaultSystem = L"ETRS 89 - RD (2008)";
inline const CString kKeepUnit = L"none";
inline const CString kNoModel = L"--None--";
inline const CString kMeterAlias = L"Meter";
inline const CString kMeters = L"Meters";
