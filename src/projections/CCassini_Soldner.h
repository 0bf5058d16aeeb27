#pragma once

#include "projections/CProjection.h"
#include "projections/EvenSines.h"
#include "projections/MeridianArc.h"

template <class C>
struct ParameterForm;

/// Cassini-Soldner.
///
/// The ellipsoidal form of Snyder, Map Projections: A Working Manual (1987), pp. 92-95, eq. 13-7 to
/// 13-13, over the short meridian arc (eq. 3-21) with a footpoint by the rectifying latitude (eq.
/// 3-26); EPSG method 9806. The scale factors are lengths on the grid over lengths on the
/// ellipsoid: Robbins, Long lines on the spheroid, Empire Survey Review 125 (1962).
///
/// Units: degrees in and out; eastings, northings, false origins in the system's linear unit. The
/// arc of the latitude of origin and the radius of the footpoint keep the unit of the load, a_u
/// follows the unit factor of the moment.
/// Error: of the series, back 0.4 mm within 1 degree of the central meridian and 3 mm within 2; the
/// way there and back misses by what the tangent leaves, below. docs/accuracy.md has the table. Farther
/// out the series diverge.
/// Departs from the source: the northing.
/// Kept: the tangent t, where the source has its square, in the term of the northing in A^4: 10 mm
/// at 2 degrees and a latitude of 10, nothing at 45, 54 mm at 60, more in the south; the inverse has
/// the square. The scale factor is read, saved, listed and tested, and enters no formula.
/// Fails: on an unusable ellipsoid, and with message 15364 on a scale factor below 0.8. The numeric
/// operations report nothing.
class CCassini_Soldner : public CProjection {
public:
    CCassini_Soldner();
    ~CCassini_Soldner() override;

    std::uint32_t InitConstants() override;
    bool LoadParameters(FileObject& file, const CString& section) override;
    bool SaveParameters(FileObject& file, const CString& section) override;
    void GeoToGrid(double latitude, double longitude, double& easting, double& northing) const override;
    void GridToGeo(double easting, double northing, double& latitude, double& longitude) const override;
    /// The direction on the grid of the point one arc second to the north.
    void GridConvergence(double easting, double northing, double& convergence) const override;
    /// Of the grid line of 1000 units that runs west to east through the point: 1 near enough, away
    /// from the central meridian too, unlike the scale from south to north.
    double PointScaleFactor(double easting, double northing) const override;
    void PointScaleFactor(double easting, double northing, double& factor) const override;
    /// Grid over geodesic distance. NaN for a line of no length, and for a line within 1e-13 radians
    /// of a meridian that is not exactly on it.
    double LineScaleFactor(double easting1, double northing1, double easting2, double northing2) const override;
    void LineScaleFactor(double easting1, double northing1, double easting2, double northing2,
                         double& factor) const override;
    bool GetProjectionConstants(CArray<double, double>& values, CStringArray& names, CStringArray& texts,
                                CArray<UINT, UINT>& kinds) const override;
    void GetGeoKeys(std::list<std::pair<int, short>>& codes,
                    std::list<std::pair<int, double>>& parameters) const override;
    void DumpParametersXml(std::wostream& stream, const std::wstring& indent) const override;

private:
    static const ParameterForm<CCassini_Soldner>& Form();
    /// The meridian distance on the grid's unit, `phi` in radians with sine and cosine.
    double Arc(double phi, double s, double c) const;

    double m_falseEasting = 0.0;
    double m_falseNorthing = 0.0;
    double m_scaleFactor = 0.0;
    double m_lonOrigin = 0.0;
    double m_latOrigin = 0.0;
    ShortMeridianArc m_arc;  // c0 to c6
    EvenSines m_footpoint;   // d1 to d4
    double m_M0 = 0.0;       // arc of the latitude of origin
    double m_muRadius = 0.0; // a_u c0
};
