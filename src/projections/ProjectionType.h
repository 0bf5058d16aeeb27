#pragma once

/// The projection types, by the number that databases, backups and projects store.
namespace ProjectionType {

constexpr int unset = -1;
constexpr int transverseMercator = 0;
constexpr int utm = 1;
constexpr int rd = 2;
constexpr int lambert2Parallel = 3;
constexpr int mercator = 4;
constexpr int azimuthal = 5;
constexpr int gnomonic = 6;
constexpr int stereographic = 7;
constexpr int cassiniSoldner = 8;
constexpr int hotineA = 9;
constexpr int laborde = 10;
constexpr int nzmg = 11;
constexpr int lambert1Parallel = 12;
constexpr int hotineB = 13;
constexpr int polyconic = 14;
constexpr int universalPolar = 15;

/// The text of a type in descriptions; "Unknow type" for a number that is none.
const wchar_t* Text(int type);

/// The GeoTIFF coordinate transformation code of a type; 0 for a type that has none.
short GeoTiffCode(int type);

} // namespace ProjectionType
