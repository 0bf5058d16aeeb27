#pragma once

#include <cstdint>
#include <iosfwd>
#include <string>

#include "frame/BaseContract.h"

class ZorGeoDatabase;

/// A reference ellipsoid, and the conversion between geodetic and geocentric cartesian positions
/// on it (IOGP guidance note 7-2, geographic/geocentric conversions).
///
/// Units: axes and X, Y, Z in metres; latitude and longitude in decimal degrees, north and east
/// positive; heights in the system's linear unit, whose length is the unit factor.
/// Error: latitude within 1e-13 degrees, height within 1e-8 m from 11 km below the ellipsoid to
/// 2000 km above, within 3e-8 m at 40000 km. Closer to the equator than 1e-9 degrees the height
/// is left to the stop rule: 1e-20 m / sin(lat).
/// Singularities: the axis of rotation gives NaN, see CartesianToGeodetic. Within 50 km of the
/// earth's centre the iteration need not settle.
class Ellipsoid {
public:
    CString name;             ///< section name of the record, "Elp-" included; empty if only Set was used
    double semiMajor = 0.0;   ///< a, metres
    double eccSquared = 0.0;  ///< e2, the squared first eccentricity
    double semiMinor = 0.0;   ///< b, metres; 0 until a Set succeeded
    std::int32_t status = -1; ///< notSet, good, axisTooSmall or eccentricityTooLarge
    std::int32_t valid = 0;   ///< 1 after a Set that succeeded

    static constexpr std::int32_t notSet = -1;
    static constexpr std::int32_t good = 0;
    static constexpr std::int32_t axisTooSmall = 1;
    static constexpr std::int32_t eccentricityTooLarge = 2;

    /// Stores a (metres) and e2 and returns the new status: good, axisTooSmall when a is less
    /// than 6000000, eccentricityTooLarge when e2 is greater than 1, which wins over the axis.
    /// `semiMinor` and `valid` change only when the status is good.
    int Set(double a, double e2);

    /// Sets name to `section` and the rest from that section. False when the file has no such
    /// section (only the name has then changed), or when Set refused the two values; a value that
    /// cannot be read counts as 0.
    bool LoadFrom(FileObject& file, const CString& section);
    /// The same from the main file, then from the user file. False when both failed.
    bool LoadFromDatabase(ZorGeoDatabase& database, const CString& section);
    /// Writes a and e2 into `section`. Cannot fail.
    bool SaveTo(FileObject& file, const CString& section) const;
    /// Writes name, axis, squared eccentricity and inverse flattening, each line begun with
    /// `indent`. The stream's precision is restored; the name is not escaped.
    void DumpXml(std::wostream& stream, const std::wstring& indent) const;

    /// False, outputs untouched, when the status is not good.
    bool GeodeticToCartesian(double lat, double lon, double h, double& X, double& Y, double& Z) const;
    /// False, outputs untouched, when the status is not good; false with the outputs stored when
    /// 20 rounds did not bring the iteration to a standstill, which can happen by the last bit of
    /// the arithmetic and then takes nothing from the position. On the axis of rotation (X = Y = 0, Z
    /// not 0) latitude and height are NaN and the result is true.
    bool CartesianToGeodetic(double X, double Y, double Z, double& lat, double& lon, double& h) const;

    /// 1 / f = a / (a - b). False, `value` untouched, when `valid` is 0.
    bool GetInverseFlattening(double& value) const;
    void GetParameters(double& a, double& e2) const;
    double GetSemiMajor(bool inSystemUnits) const;
    double GetSemiMinor(bool inSystemUnits) const;

    /// The length in metres of the system's linear unit: one value for the process, 1 at load,
    /// read at each conversion. 0 is stored as 1.
    static void SetUnitFactor(double factor);
    static double UnitFactor() { return s_unitFactor; }

    /// The text without a leading "Elp-" in any case of letters.
    static CString StripElpPrefix(CString text);
    /// -1 when v is negative, else 1.
    static double Sign(double v);
    /// |magnitude| with the sign of `sign`, by the rule of Sign.
    static double CopySign(double magnitude, double sign);

private:
    bool LatitudeAndHeight(double p, double Z, double& lat, double& h) const;
    double NearFixedPoint(double b, double K2, double Z) const;
    bool PlainLatitudeAndHeight(double p, double Z, double& lat, double& h) const;

    static double s_unitFactor;
};
