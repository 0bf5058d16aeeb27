#pragma once

#include "projections/CProjection.h"

template <class C>
struct ParameterForm;

/// The Dutch grid (Rijksdriehoeksmeting): Gauss's conformal mapping of the ellipsoid on a sphere, then
/// the oblique stereographic from the sphere to the plane, by distance and azimuth from the origin.
///
/// Heuvelink, De stereografische kaartprojectie in hare toepassing bij de Rijksdriehoeksmeting (1918);
/// the same mapping as EPSG method 9809.
///
/// Units: degrees in and out; eastings, northings, false origins and the radius of the sphere in the
/// system's linear unit. All derived fields keep the unit of the load.
/// Error: forward that of the arithmetic; the inverse stops at a correction of 2e-12 radians, which
/// leaves less than 1e-7 m.
/// Departs from the source: convergence and scale factors are of first and second order.
/// Kept: every parameter is optional, with that of the Dutch grid in its place; the scale factors do
/// not know the record's scale factor and assume metres; neither latitude nor longitude is folded.
/// Singular: GridToGeo at the false origin gives the longitude of origin and a latitude of NaN;
/// GeoToGrid leaves its outputs alone at the antipode. The inverse holds between longitudes -90 and 90
/// and within 90 degrees of the origin's; beyond longitude 90 on the sphere, east or west of Greenwich,
/// it gives that longitude for a latitude.
/// Fails: only on an unusable ellipsoid. The numeric operations report nothing.
class RDProjection : public CProjection {
public:
    RDProjection();
    ~RDProjection() override;

    std::uint32_t InitConstants() override;
    /// A key that is missing gives its default and does not fail the load. Without an entry of the
    /// catalogue no constants are listed, and the load goes on.
    bool LoadParameters(FileObject& file, const CString& section) override;
    bool SaveParameters(FileObject& file, const CString& section) override;
    void GeoToGrid(double latitude, double longitude, double& easting, double& northing) const override;
    void GridToGeo(double easting, double northing, double& latitude, double& longitude) const override;
    /// First order: the difference of longitude times the sine of the latitude, negative east of the
    /// origin in the north. The difference is not folded.
    void GridConvergence(double easting, double northing, double& convergence) const override;
    /// Second order in the distance from the false origin.
    double PointScaleFactor(double easting, double northing) const override;
    void PointScaleFactor(double easting, double northing, double& factor) const override;
    /// Simpson's rule over the reciprocals of the point scale factors.
    double LineScaleFactor(double easting1, double northing1, double easting2, double northing2) const override;
    void LineScaleFactor(double easting1, double northing1, double easting2, double northing2,
                         double& factor) const override;
    /// Hands out nothing, the outputs stay as they are. True when the status is 0.
    bool GetProjectionConstants(CArray<double, double>& values, CStringArray& names, CStringArray& texts,
                                CArray<UINT, UINT>& kinds) const override;
    /// Appends nothing.
    void GetGeoKeys(std::list<std::pair<int, short>>& codes,
                    std::list<std::pair<int, double>>& parameters) const override;
    void DumpParametersXml(std::wostream& stream, const std::wstring& indent) const override;

private:
    static const ParameterForm<RDProjection>& Form();

    double m_falseEasting = 0.0;
    double m_falseNorthing = 0.0;
    double m_scaleFactor = 0.0;
    double m_lonOrigin = 0.0;
    double m_latOrigin = 0.0;
    double m_e2 = 0.0;
    double m_n = 0.0;  // longitude on the sphere over longitude on the ellipsoid
    double m_R = 0.0;  // radius of the sphere
    double m_m = 0.0;  // isometric latitude on the sphere less n times that on the ellipsoid
    double m_b0 = 0.0; // latitude of the origin on the sphere, radians
    double m_sinB0 = 0.0;
    double m_cosB0 = 0.0;
    double m_Lambda0 = 0.0; // longitude of origin, radians
};
