#pragma once

#include "projections/CProjection.h"

template <class C>
struct ParameterForm;

/// Mercator, with a latitude of origin, a latitude of true scale and a scale factor.
///
/// The ellipsoidal form of Snyder, Map Projections: A Working Manual (1987), pp. 38-47; the inverse
/// is his fixed point, eq. 7-9. EPSG methods 9804 (latitude of true scale 0) and 9805 (scale
/// factor 1).
///
/// Units: degrees in and out; eastings, northings and false origins in the system's linear unit.
/// Everything follows the ellipsoid and the unit factor of the moment: there are no derived fields.
/// Error: forward that of the arithmetic. The inverse stops at a correction of 0.001 / a_u radians,
/// a millimetre on the ground when the unit is the metre; what is left is below 0.01 mm.
/// Departs from the source: the northing is counted from the latitude of origin; the latitude of
/// true scale divides, and the scale factor multiplies after it; neither excludes the other.
/// Kept: the grid skew is read, saved and listed, and enters no formula. Longitudes are not folded,
/// neither way, so that a chart can run across 180 degrees.
/// Fails: only on an unusable ellipsoid. The numeric operations report nothing.
class CMERprj : public CProjection {
public:
    CMERprj();
    ~CMERprj() override;

    std::uint32_t InitConstants() override;
    bool LoadParameters(FileObject& file, const CString& section) override;
    bool SaveParameters(FileObject& file, const CString& section) override;
    /// At a latitude of 90 the northing is large and finite.
    void GeoToGrid(double latitude, double longitude, double& easting, double& northing) const override;
    void GridToGeo(double easting, double northing, double& latitude, double& longitude) const override;
    /// 0 everywhere.
    void GridConvergence(double easting, double northing, double& convergence) const override;
    double PointScaleFactor(double easting, double northing) const override;
    void PointScaleFactor(double easting, double northing, double& factor) const override;
    /// Simpson's rule over the reciprocals of the point scale factors.
    double LineScaleFactor(double easting1, double northing1, double easting2, double northing2) const override;
    void LineScaleFactor(double easting1, double northing1, double easting2, double northing2,
                         double& factor) const override;
    bool GetProjectionConstants(CArray<double, double>& values, CStringArray& names, CStringArray& texts,
                                CArray<UINT, UINT>& kinds) const override;
    void GetGeoKeys(std::list<std::pair<int, short>>& codes,
                    std::list<std::pair<int, double>>& parameters) const override;
    void DumpParametersXml(std::wostream& stream, const std::wstring& indent) const override;

private:
    static const ParameterForm<CMERprj>& Form();

    /// The isometric latitude of a latitude in degrees.
    double Isometric(double latitude) const;
    /// What the true scale on a parallel divides the map of true scale on the equator by: the
    /// semi-major axis over the parallel's radius. 1 on the equator.
    double Widening(double latitude) const;

    double m_falseEasting = 0.0;
    double m_falseNorthing = 0.0;
    double m_scaleFactor = 0.0;
    double m_lonOrigin = 0.0;
    double m_latOrigin = 0.0;
    double m_latTrueScale = 0.0;
    double m_gridSkew = 0.0;
};
