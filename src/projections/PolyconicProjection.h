#pragma once

#include "projections/CProjection.h"
#include "projections/GeodesicLineScale.h"
#include "projections/MeridianArc.h"

template <class C>
struct ParameterForm;

/// Polyconic, as the American surveys have it.
///
/// The ellipsoidal form of Snyder, Map Projections: A Working Manual (1987), pp. 124-137, eq. 18-12
/// to 18-25, over the short meridian arc (eq. 3-21); EPSG method 9818. The scale factors are
/// lengths on the grid over lengths on the ellipsoid, as those of CCassini_Soldner.
///
/// Units: degrees in and out; eastings, northings, false origins in the system's linear unit. The
/// axis keeps the unit of the load. Longitudes are not folded, neither way.
/// Error: forward 0.8 mm by the arc; by the difference 1 - cos, up to 15 mm in the northing between
/// 1e-7 and 1e-5 degrees from the equator. The inverse answers with the latitude before its last
/// correction, which is 1e-9 radians at most: 7 mm on the ground, 0.012 degrees in the convergence.
/// Departs from the source: the equator is what lies within 1e-10 degrees of it.
/// Singular: back from the line N = FN - M0 the longitude is NaN unless the latitude of origin is 0.
/// Kept: the inverse's line of the equator is sought at M0 - y and answered with the latitude of
/// origin; C multiplies in the denominator of Newton's correction, where the source divides by it,
/// which costs passes and leaves the root.
/// Fails: on an unusable ellipsoid, and on a semi-major axis below kShortestAxis system units;
/// the status stays 0 all the same. The numeric operations report nothing.
class PolyconicProjection : public CProjection {
public:
    PolyconicProjection();
    ~PolyconicProjection() override;

    std::uint32_t InitConstants() override;
    bool LoadParameters(FileObject& file, const CString& section) override;
    bool SaveParameters(FileObject& file, const CString& section) override;
    void GeoToGrid(double latitude, double longitude, double& easting, double& northing) const override;
    void GridToGeo(double easting, double northing, double& latitude, double& longitude) const override;
    /// The direction on the grid of the point one arc second to the north.
    void GridConvergence(double easting, double northing, double& convergence) const override;
    /// Of the grid line of 1000 units that runs west to east through the point.
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
    static const ParameterForm<PolyconicProjection>& Form();
    /// An end of a line; the equator gives way to the parallel of kEquator.
    GeodesicLineScale::End EndAt(double easting, double northing) const;

    double m_a = 0.0; // a_u
    double m_e2 = 0.0;
    double m_falseEasting = 0.0;
    double m_falseNorthing = 0.0;
    double m_lonOrigin = 0.0;
    double m_latOrigin = 0.0;
    double m_M0 = 0.0; // arc of the latitude of origin
    ShortMeridianArc m_arc;
};
