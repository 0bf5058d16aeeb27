#pragma once

#include <algorithm>
#include <cmath>
#include <numbers>

#include "base/Export.h"
#include "base/text/CString.h"

/// pi / 180: degrees to radians. (This name and those below are part of the interface.)
inline constexpr double D_TO_R = std::numbers::pi / 180.0;

/// The part of modgeo for angles outside [-180, 180].
ZORBASE_API double FoldDegrees(double degrees);

/// Folds an angle in degrees into the range of a longitude. An angle in [-180, 180] comes back
/// unchanged, bit for bit; any other is folded by an exact remainder into (-180, 180]. NaN and
/// infinity give NaN.
inline double modgeo(double degrees)
{
    return degrees >= -180.0 && degrees <= 180.0 ? degrees : FoldDegrees(degrees);
}

/// azimuth = atan2(x, y) in degrees, measured from the axis of the second argument toward the
/// first, in [-180, 180]; distance = the length of the vector. The outputs may be the inputs.
/// Cannot fail.
inline void XYToPolar(double x, double y, double& azimuth, double& distance)
{
    azimuth = std::atan2(x, y) / D_TO_R;
    distance = std::hypot(x, y);
}

/// Turns the point (x, y) about (cx, cy) by `angle` degrees, clockwise for a positive angle:
/// about the origin outX = x cos + y sin, outY = -x sin + y cos. The outputs may be the inputs.
/// Cannot fail.
inline void Rotation2D(double cx, double cy, double x, double y, double angle, double& outX, double& outY)
{
    const double c = std::cos(angle * D_TO_R);
    const double s = std::sin(angle * D_TO_R);
    const double u = x - cx;
    const double v = y - cy;
    outX = u * c + v * s + cx;
    outY = v * c - u * s + cy;
}

/// The tolerance for numbers of the size of `value`: 1e-13 * max(1, |value|). Infinity has an
/// infinite one; NaN has that of 1.
inline double Epsilon(double value)
{
    return 1e-13 * std::max(1.0, std::abs(value));
}

/// What FormatGeogs writes.
namespace GeogsKind {
constexpr int latitude = 10;
constexpr int longitude = 11;
} // namespace GeogsKind

/// The most decimals of the seconds that FormatGeogs writes.
constexpr unsigned kMaxGeogsDecimals = 20;

/// Writes an angle in decimal degrees as degrees, minutes, seconds and hemisphere:
/// 52°09'22.1780000"N, 005°23'15.5000000"E. Degrees have two digits in a latitude, three in a
/// longitude, more where the value asks for them: nothing is folded and nothing refused as out
/// of range.
/// `decimals` of the seconds; `width`, that of the whole in older programs, has no effect.
/// What is rounded, half away from zero, is the shortest decimal that reads back to `value`, so
/// the text is that of the number as it was typed; the carry runs through, and 59.99999999
/// seconds print as the next minute. An angle that rounds to zero is north or east.
/// `hemisphere` false gives a leading minus instead of the letter; `symbols` false gives blanks
/// instead of the degree, minute and second signs, and no blank at the end.
/// False, `out` untouched, for a value that is not finite, for another kind and for more than
/// kMaxGeogsDecimals.
ZORBASE_API bool FormatGeogs(double value, unsigned decimals, int width, int kind, CString& out, bool hemisphere,
                             bool symbols);
