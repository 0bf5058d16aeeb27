#pragma once

#include "frame/BaseContract.h"

// What the text descriptions of records are made of. Labels, tabs and line ends are part of the
// interface: hosts show them, and compare them line by line.

/// Labels of the descriptions, by their number in the string table.
namespace TextId {
constexpr unsigned ellipsoidTitle = 15351, semiMajor = 15352, inverseFlattening = 15355, eccSquared = 15363,
                   system = 15357, description = 15366;
constexpr unsigned unit = 15358, unitFactor = 15359, unitSuffix = 15360;
constexpr unsigned datum = 15367, datumFrom = 15368, method = 15362, shiftX = 15369, shiftY = 15370, shiftZ = 15371,
                   rotationX = 15372, rotationY = 15373, rotationZ = 15374, scale = 15375, datumEpoch = 15401,
                   ratesPerYear = 15402, satelliteEllipsoid = 15377, localEllipsoid = 15378;
constexpr unsigned projection = 15380, projectionUnit = 15379, systemProjection = 15361, utmZone = 15390,
                   hemisphere = 15391;
constexpr unsigned geoidModel = 15381, geoidMethod = 15382, geoidGrid = 15383, chartDatum = 15399;
constexpr unsigned postCorrections = 15384, postX = 15385, postY = 15386, postZ = 15387, correctionModel = 15388,
                   correctionFile = 15389;
constexpr unsigned horOriginX = 15403, horOriginY = 15404, horRotation = 15405, horScale = 15406;
constexpr unsigned vertOriginX = 15407, vertOriginY = 15408, vertSlopeX = 15409, vertSlopeY = 15410;
} // namespace TextId

inline constexpr const wchar_t* kTextLineEnd = L"\r\n";
/// Ends the last line of a block: an empty line follows.
inline constexpr const wchar_t* kTextBlockEnd = L"\r\n\r\n";

/// A text of the string table; empty when it cannot be loaded.
inline CString LabelText(unsigned id)
{
    CString text;
    text.LoadString(id);
    return text;
}

/// `levels` tabs; none for a number below 1.
inline CString BuildIndentString(int levels)
{
    return {L'\t', levels};
}

/// The number with up to 14 significant digits.
inline CString GeneralText(double number)
{
    CString text;
    text.Format(L"%.14g", number);
    return text;
}

/// One line: tabs, label and value with nothing between them, line end.
inline CString TextLine(int levels, unsigned label, const CString& value, const wchar_t* end = kTextLineEnd)
{
    return BuildIndentString(levels) + LabelText(label) + value + end;
}
