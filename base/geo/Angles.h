#pragma once

#include "base/Export.h"
#include "base/text/CString.h"

/// pi / 180.
ZORBASE_API extern const double D_TO_R;

/// Folds an angle in degrees into the range of a longitude. An angle in [-180, 180] comes back
/// unchanged, bit for bit; any other is folded by an exact remainder into (-180, 180]. NaN and
/// infinity give NaN. (The spelling is part of the interface.)
ZORBASE_API double modgeo(double degrees);

/// azimuth = atan2(x, y) in degrees, measured from the axis of the second argument toward the
/// first; distance = the length of the vector.
ZORBASE_API void XYToPolar(double x, double y, double& azimuth, double& distance);

/// Turns the point (x, y) about (cx, cy) by `angle` degrees, clockwise for a positive angle:
/// about the origin outX = x cos + y sin, outY = -x sin + y cos. The outputs may be the inputs.
ZORBASE_API void Rotation2D(double cx, double cy, double x, double y, double angle, double& outX, double& outY);

/// The tolerance for numbers of the size of `value`: 1e-13 * max(1, |value|).
ZORBASE_API double Epsilon(double value);

/// What FormatGeogs writes.
namespace GeogsKind {
constexpr int latitude  = 10;
constexpr int longitude = 11;
}  // namespace GeogsKind

/// Writes an angle in decimal degrees as degrees, minutes, seconds and hemisphere:
/// 52°09'22.1780000"N, 005°23'15.5000000"E. `decimals` of the seconds (first of the two numbers;
/// the second, the width of the whole in older programs, has no effect). A carry runs through:
/// 59.99999999 seconds print as the next minute. False, `out` untouched, for a value that is not
/// finite or another kind.
/// `hemisphere` false gives a leading minus instead of the letter; `symbols` false gives blanks
/// instead of the degree, minute and second signs.
ZORBASE_API bool FormatGeogs(double value, unsigned decimals, int width, int kind, CString& out,
                             bool hemisphere, bool symbols);
