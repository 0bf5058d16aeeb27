#pragma once

#include <iosfwd>

#include "datum/Ellipsoid.h"
#include "frame/BaseContract.h"
#include "frame/Export.h"

class ZorGeoDatabase;

/// A datum transformation: a three-dimensional similarity of geocentric cartesian positions with
/// 7 parameters, or with 14, the 7 and their yearly rates at an epoch (IOGP guidance note 7-2,
/// EPSG methods 1033 and 1053).
///
/// Forward goes from the source, the satellite ellipsoid, to the destination, the local one;
/// inverse goes back. The parameters are those of the forward direction, with rotations by the
/// position vector convention whatever the method is called.
/// Units: decimal degrees, heights in the system's linear unit, shifts in metres, stored
/// rotations in arc seconds, scale in parts per million, rates per year of 365.25 days.
/// Departs from the source: the three rotations are applied one after the other (about Y, X, Z),
/// not as the small-angle matrix.
/// One object serves several threads as long as none of them loads it or sets a unit.
/// (The spelling of the names is part of the interface.)
class ZORCOORDSYS_API CDatumTransform {
public:
    CDatumTransform();
    CDatumTransform(const CDatumTransform&);
    CDatumTransform& operator=(const CDatumTransform&);
    ~CDatumTransform();

    /// The record was read.
    bool IsInit() const;
    /// The transformation does something.
    bool IsDtfOn() const;
    /// Section name of the record, "Dtf-" included.
    const CString& GetName() const;
    CString GetMethodName() const;
    const Ellipsoid& SourceEllipsoid() const { return m_srcEllipsoid; }
    const Ellipsoid& DestEllipsoid() const { return m_dstEllipsoid; }
    void GetDtfSourceEllips(double& a, double& e2) const;
    void GetDtfDestEllips(double& a, double& e2) const;
    /// Names without "Elp-".
    CString GetDftSourceEllipsName() const;
    CString GetDftDestEllipsName() const;
    /// The parameters as stored. With `inSystemUnits` the shifts and their rates are divided by
    /// the unit factor m_unitCnv; the fixed heights are in system units anyway.
    void GetDtfParms(double& shiftX, double& shiftY, double& shiftZ, double& rotSecX, double& rotSecY, double& rotSecZ,
                     double& scale, double& shiftRateX, double& shiftRateY, double& shiftRateZ, double& rotRateSecX,
                     double& rotRateSecY, double& rotRateSecZ, double& scaleRate, double& t0, bool& fixedHeight,
                     double& fixedHeightForward, double& fixedHeightReverse, bool inSystemUnits) const;
    /// 0 is stored as 1.
    static void SetUnitCnv(double factor);

    /// Transforms a position. `time` is in milliseconds since 1970, 0 for the present; it is read
    /// only when the record has 14 parameters and an epoch. An object that is off or was never
    /// loaded gives the inputs back. Allocates nothing.
    /// False, outputs untouched, when one of the two ellipsoids is not usable.
    bool DoDtf(double lat, double lon, double h, double& outLat, double& outLon, double& outH, bool inverse,
               double time) const;

    /// Reads the record from the main file, then from the user file. False when both failed.
    bool Load(ZorGeoDatabase& database, const CString& section);
    /// Reads the record from `file`, under the name as given or in capitals; its ellipsoids come
    /// from the database, or from the numbers in the record. False, with IsInit false, when the
    /// section, a required key or an ellipsoid is missing; a missing required key leaves `file`
    /// in the mode that throws.
    bool Load(ZorGeoDatabase& database, FileObject& file, const CString& section);
    /// Writes the record into the file of that name. False when the file cannot be written.
    bool Save(const CString& fileName, CString section) const;
    /// Writes the record into `section`, or under its own name when that is empty. Cannot fail.
    bool Save(FileObject& file, CString section) const;
    void DumpXml(std::wostream& stream, const wchar_t* indent) const;

    /// The length in metres of the system's linear unit; serves GetDtfParms alone. One value for
    /// the process, 1 at load.
    static double m_unitCnv;

private:
    /// Sines and cosines of the plane rotations about the three axes: what of a rotation does not
    /// depend on the position.
    struct PlaneRotations {
        double sinX = 0.0, cosX = 1.0;
        double sinY = 0.0, cosY = 1.0;
        double sinZ = 0.0, cosZ = 1.0;

        PlaneRotations() = default;
        explicit PlaneRotations(const Point& rotation);
        PlaneRotations Reversed() const;
        Point Apply(const Point& in, bool inverse) const;
    };
    double YearsSinceEpoch(double time) const;
    void Transform(double lat, double lon, double h, bool inverse, double years, double& outLat, double& outLon,
                   double& outH) const;
    Point RotationAt(double years) const;
    Point RotatedAt(double years, const Point& in, bool inverse) const;
    /// Turns `in` by three angles in degrees: about Y, X, Z, or with `inverse` about Z, X, Y.
    void Rotation3D(const Point& in, const Point& rotation, Point& out, bool inverse) const;

    void SetRotations(const Point& seconds, const Point& secondsPerYear);
    bool LoadRecord(ZorGeoDatabase& database, FileObject& file);
    bool LoadEllipsoids(ZorGeoDatabase& database, FileObject& file);

    CString m_name;
    Ellipsoid m_srcEllipsoid;
    Ellipsoid m_dstEllipsoid;
    double m_shiftX = 0.0; ///< metres
    double m_shiftY = 0.0;
    double m_shiftZ = 0.0;
    double m_rotX = 0.0; ///< as used: degrees, -stored / 3600
    double m_rotY = 0.0;
    double m_rotZ = 0.0;
    double m_rotSecX = 0.0; ///< as stored: arc seconds
    double m_rotSecY = 0.0;
    double m_rotSecZ = 0.0;
    double m_scale = 0.0;      ///< parts per million
    bool m_dtfOn = false;      ///< the transformation does something
    bool m_init = false;       ///< the record was read
    double m_shiftRateX = 0.0; ///< metres per year
    double m_shiftRateY = 0.0;
    double m_shiftRateZ = 0.0;
    double m_rotRateX = 0.0; ///< as used: degrees per year, -stored / 3600
    double m_rotRateY = 0.0;
    double m_rotRateZ = 0.0;
    double m_rotRateSecX = 0.0; ///< as stored: arc seconds per year
    double m_rotRateSecY = 0.0;
    double m_rotRateSecZ = 0.0;
    double m_scaleRate = 0.0;           ///< parts per million per year
    double m_t0 = 0.0;                  ///< epoch, decimal year; 0 for none
    bool m_has14Parameters = false;     ///< the rates are in use
    bool m_fixedHeight = false;         ///< the horizontal position is transformed at a fixed height
    double m_fixedHeightForward = 43.0; ///< system units
    double m_fixedHeightReverse = 0.0;  ///< system units
    CString m_methodName;
    PlaneRotations m_rotations; ///< of the rotation at the epoch; formed by Load
};
