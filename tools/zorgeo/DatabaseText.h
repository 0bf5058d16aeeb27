#pragma once

#include "base/text/CString.h"

// Names of files, sections and keys of the database, as a reader of the files needs them. They
// are the file format: the spelling stays, "statu", "coorection" and "horizonal" included.

inline const CString kMainDatabaseFile = L"zorgeodatabase.geo";
inline const CString kUserDatabaseFile = L"zorusergeobase.geo";
inline const CString kCatalogueFile = L"ZorProjectionStatic.dat";

/// Beside the main database: areas of use and EPSG codes of its systems; EPSG systems that it has not.
inline const CString kAreasFile = L"zorgeosystems.tsv";
inline const CString kLeftOutFile = L"left-out.tsv";

inline const CString kGroupPrefix = L"Gp-";
inline const CString kSystemPrefix = L"Sys-";
inline const CString kDatumPrefix = L"Dtf-";
inline const CString kProjectionPrefix = L"Prj-";
inline const CString kEllipsoidPrefix = L"Elp-";
inline const CString kUnitsSection = L"Units section";

inline const CString kGeneralSection = L"General";
inline const CString kGroupsSection = L"Groups Section";
inline const CString kDatumsSection = L"DatumTransform Section";
inline const CString kProjectionsSection = L"Projections section";
inline const CString kEllipsoidsSection = L"Ellipsoids section";
inline const CString kGroupCount = L"Group count";
inline const CString kSystemCount = L"System count";
inline const CString kEllipsoidCount = L"Ellipsoid count";
inline const CString kDatumCount = L"Datumtransf count";
inline const CString kUnitCount = L"Unit count";
inline const CString kProjectionCount = L"Projection count";
inline const CString kGroupGeoids = L"Supported geoid model methods";

inline const CString kSystemDatum = L"Datumtransform name";
inline const CString kUnitName = L"Unit name";
/// A name that Init mends: "Meter", in any case of letters, is "Meters".
inline const CString kMeterAlias = L"Meter";
inline const CString kMeters = L"Meters";
inline const CString kSystemEllipsoid = L"Ellipsoid name";
inline const CString kSystemProjection = L"Projection name";
inline const CString kProjectionMethod = L"Projection method";
inline const CString kSystemDescription = L"System description";
inline const CString kGeoidUse = L"Geoid model use statu";
inline const CString kGeoidMethod = L"Geoid model method";
inline const CString kGeoidManual = L"Manual input value";
inline const CString kGeoidGrid = L"Geoid model grid";
inline const CString kPostFile = L"Post coorection file";
inline const CString kPostModel = L"Post coorection model";

inline const CString kDatumMethod = L"Method name";
inline const CString kDatumSourceAxis = L"SrcSma";
inline const CString kDatumSourceEcc = L"SrcSe";
inline const CString kDatumTargetAxis = L"DstSma";
inline const CString kDatumTargetEcc = L"DstSe";
inline const CString kNoTransformation = L"No Transformation";
inline const CString kFourteen = L"14 Parameters";

inline const CString kCatalogueMethods = L"Projections-Section";

/// Arguments of Init with a meaning.
inline const CString kKeepUnit = L"none";
inline const CString kNoModel = L"--None--";
