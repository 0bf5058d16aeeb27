#pragma once

#include "projections/CProjection.h"
#include "projections/LambertCone.h"

template <class C>
struct ParameterForm;

/// Lambert conformal conic with one standard parallel, the latitude of origin, and a scale factor.
///
/// The formulas of LambertCone; EPSG method 9801.
///
/// Units: degrees in and out; eastings, northings, false origins and radii in the system's linear
/// unit. The radii keep the unit of the load; only the scale factors follow the unit factor of the
/// moment.
/// Error: that of CLambert2Pprj.
/// Departs from the source: as CLambert2Pprj does; and the line scale factor is that of a
/// Transverse Mercator grid with northings for eastings, of second order in the distance from the
/// standard parallel along the central meridian.
/// Fails: on an unusable ellipsoid, and silently on a southern origin. The numeric operations
/// report nothing; an origin on the equator has no cone and gives NaN.
class CLambert1Pprj : public CProjection, private LambertCone {
public:
    CLambert1Pprj();
    ~CLambert1Pprj() override;

    /// Also puts the scale factor of the formed cone in the place of the loaded one; the two are
    /// equal up to rounding.
    std::uint32_t InitConstants() override;
    bool LoadParameters(FileObject& file, const CString& section) override;
    bool SaveParameters(FileObject& file, const CString& section) override;
    void GeoToGrid(double latitude, double longitude, double& easting, double& northing) const override;
    void GridToGeo(double easting, double northing, double& latitude, double& longitude) const override;
    /// Negative east of the central meridian; NaN at the apex.
    void GridConvergence(double easting, double northing, double& convergence) const override;
    double PointScaleFactor(double easting, double northing) const override;
    void PointScaleFactor(double easting, double northing, double& factor) const override;
    /// Second order in the distance from the standard parallel.
    double LineScaleFactor(double easting1, double northing1, double easting2, double northing2) const override;
    void LineScaleFactor(double easting1, double northing1, double easting2, double northing2,
                         double& factor) const override;
    bool GetProjectionConstants(CArray<double, double>& values, CStringArray& names, CStringArray& texts,
                                CArray<UINT, UINT>& kinds) const override;
    void GetGeoKeys(std::list<std::pair<int, short>>& codes,
                    std::list<std::pair<int, double>>& parameters) const override;
    void DumpParametersXml(std::wostream& stream, const std::wstring& indent) const override;

private:
    static const ParameterForm<CLambert1Pprj>& Form();
    void TakeOriginForParallel() { m_parallel = m_latOrigin; }

    double m_parallel = 0.0;
    double m_scaleFactor = 0.0;
};
