#pragma once

#include <array>

#include "base/Export.h"
#include "base/text/CString.h"

// Every section, key and file text that the suite's libraries share. The texts are part of the
// file formats; the spelling of the names is part of the interface.

/// Keys of COORDSYSTEM_SECTION in a project.
ZORBASE_API extern const std::array<CString, 18> coordsystemKeys;
/// Keys of FORMATS_SECTION in a project.
ZORBASE_API extern const std::array<CString, 2> formatParamKeys;
/// Keys of a projection record.
ZORBASE_API extern const std::array<CString, 23> projectionParamKeys;
/// Keys of a datum transformation record.
ZORBASE_API extern const std::array<CString, 23> transParamKeys;
/// Keys of an ellipsoid record.
ZORBASE_API extern const std::array<CString, 4> spheroidKeys;
/// Names of the geoid and correction models; the index is the type number.
ZORBASE_API extern const std::array<CString, 32> GeoidmodelTypeKeys;

namespace CoordsystemKey {
constexpr int group = 7, system = 8, unit = 10, module = 12, geoidMethod = 13, geoidGrid = 14, chartDatum = 15,
              postModel = 16, postFile = 17;
}
namespace FormatKey {
constexpr int unitFormat = 1;
}
namespace ProjectionKey {
constexpr int name = 0, type = 1, legacyName = 2, latOrigin = 3, lonOrigin = 4, falseEasting = 5, falseNorthing = 6,
              scaleFactor = 7, southernParallel = 8, northernParallel = 9, utmZone = 11, hemisphere = 12,
              gridSkew = 16, initialAzimuth = 17, latTrueScale = 18, eastingAtCentre = 20, northingAtCentre = 21,
              hotineGridSkew = 22;
}
namespace TransKey {
constexpr int datumKey = 0, description = 1, source = 2, target = 3, shiftX = 4, shiftY = 5, shiftZ = 6, rotX = 7,
              rotY = 8, rotZ = 9, scale = 10, shiftRateX = 12, shiftRateY = 13, shiftRateZ = 14, rotRateX = 15,
              rotRateY = 16, rotRateZ = 17, scaleRate = 18, epoch = 19, fixedHeight = 20, fixedHeightForward = 21,
              fixedHeightReverse = 22;
}
namespace SpheroidKey {
constexpr int name = 0, legacyName = 1, semiMajor = 2, eccSquared = 3;
}
namespace GeoidType {
constexpr int none = 0, manual = 1, firstModel = 2, gridModel = 3, swen = 6, lastModel = 31;
}

/// Project sections.
ZORBASE_API extern const wchar_t* const COORDSYSTEM_SECTION;
ZORBASE_API extern const wchar_t* const COORDSYSTEM_BACKUP_SECTION;
ZORBASE_API extern const wchar_t* const FORMATS_SECTION;
/// Sections of the older generation's projects.
ZORBASE_API extern const wchar_t* const TRANSFORMATION_SECTION;
ZORBASE_API extern const wchar_t* const PROJECTION_SECTION;
ZORBASE_API extern const wchar_t* const SPHEROID_SECTION;
ZORBASE_API extern const wchar_t* const UNITS_SECTION;
/// Definition files of the older generation, delivered and user.
ZORBASE_API extern const CString TRANS_DEF_FILENAME, TRANS_USR_FILENAME;
ZORBASE_API extern const CString PROJECTION_DEF_FILENAME, PROJECTION_USR_FILENAME;
ZORBASE_API extern const CString ELLIPSOID_DEF_FILENAME, ELLIPSOID_USR_FILENAME;
