#pragma once

#include "projections/CProjection.h"
#include "projections/LambertCone.h"

template <class C>
struct ParameterForm;

/// Lambert conformal conic with two standard parallels.
///
/// The formulas of LambertCone; the constants from the lengths of both parallels, Snyder, Map
/// Projections: A Working Manual (1987), pp. 107-109; EPSG method 9802.
///
/// Units: degrees in and out; eastings, northings, false origins and radii in the system's linear
/// unit. The radii keep the unit of the load; only the scale factors follow the unit factor of the
/// moment.
/// Error: forward that of the arithmetic. Inverse in latitude 0.9 mm at 45 degrees, 3.1 mm at 70;
/// docs/accuracy.md has the table.
/// Departs from the source: isometric latitude in place of t; the inverse stops after two Newton
/// passes on the sine of the latitude; the angle at the apex stays within 90 degrees.
/// Fails: on an unusable ellipsoid, and silently on a southern parallel or origin. The numeric
/// operations report nothing; equal parallels have no cone and give NaN throughout.
class CLambert2Pprj : public CProjection, private LambertCone {
public:
    CLambert2Pprj();
    ~CLambert2Pprj() override;

    std::uint32_t InitConstants() override;
    bool LoadParameters(FileObject& file, const CString& section) override;
    bool SaveParameters(FileObject& file, const CString& section) override;
    void GeoToGrid(double latitude, double longitude, double& easting, double& northing) const override;
    void GridToGeo(double easting, double northing, double& latitude, double& longitude) const override;
    /// Negative east of the central meridian; NaN at the apex.
    void GridConvergence(double easting, double northing, double& convergence) const override;
    double PointScaleFactor(double easting, double northing) const override;
    void PointScaleFactor(double easting, double northing, double& factor) const override;
    /// Simpson's rule over the point scale factors.
    double LineScaleFactor(double easting1, double northing1, double easting2, double northing2) const override;
    void LineScaleFactor(double easting1, double northing1, double easting2, double northing2,
                         double& factor) const override;
    bool GetProjectionConstants(CArray<double, double>& values, CStringArray& names, CStringArray& texts,
                                CArray<UINT, UINT>& kinds) const override;
    void GetGeoKeys(std::list<std::pair<int, short>>& codes,
                    std::list<std::pair<int, double>>& parameters) const override;
    void DumpParametersXml(std::wostream& stream, const std::wstring& indent) const override;

    /// The parallel of smallest scale, degrees, and the scale factor there; formed by InitConstants.
    double GetCentralParallel() const { return m_centralParallel; }
    double GetCentralScaleFactor() const { return m_centralScale; }

private:
    static const ParameterForm<CLambert2Pprj>& Form();

    double m_northernParallel = 0.0;
    double m_southernParallel = 0.0;
    double m_centralParallel = 0.0;
    double m_centralScale = 0.0;
};
