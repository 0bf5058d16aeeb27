#pragma once

#include "base/text/CString.h"

// Names of files, sections and keys of the database, as a reader of the files needs them. They
// are the file format: the spelling stays, "statu", "coorection" and "horizonal" included.

inline const CString kMainDatabaseFile = L"zorgeodatabase.geo";
inline const CString kUserDatabaseFile = L"zorusergeobase.geo";
inline const CString kCatalogueFile = L"ZorProjectionStatic.dat";

inline const CString kGroupPrefix = L"Gp-";
inline const CString kSystemPrefix = L"Sys-";
inline const CString kDatumPrefix = L"Dtf-";
inline const CString kProjectionPrefix = L"Prj-";
inline const CString kEllipsoidPrefix = L"Elp-";
inline const CString kUnitsSection = L"Units section";

inline const CString kSystemDatum = L"Datumtransform name";
inline const CString kUnitName = L"Unit name";
inline const CString kSystemEllipsoid = L"Ellipsoid name";
inline const CString kSystemProjection = L"Projection name";
inline const CString kGeoidUse = L"Geoid model use statu";
inline const CString kGeoidMethod = L"Geoid model method";
inline const CString kGeoidManual = L"Manual input value";

inline const CString kDatumMethod = L"Method name";
inline const CString kNoTransformation = L"No Transformation";
inline const CString kFourteen = L"14 Parameters";

inline const CString kCatalogueMethods = L"Projections-Section";

/// Arguments of Init with a meaning.
inline const CString kKeepUnit = L"none";
inline const CString kNoModel = L"--None--";
