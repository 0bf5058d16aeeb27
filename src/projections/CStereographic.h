#pragma once

#include "projections/CProjection.h"

template <class C>
struct ParameterForm;

/// Oblique Stereographic by a double projection: ellipsoid to conformal sphere, sphere to plane.
///
/// IOGP guidance note 7-2, section "Oblique and Equatorial Stereographic" (EPSG method 9809).
///
/// Units: degrees in and out; eastings, northings, false origins and the radius of the sphere in the
/// system's linear unit. All derived fields keep the unit of the load.
/// Error: forward that of the arithmetic, below 1e-8 m within 1000 km of the origin. The inverse
/// latitude is off by x j^3 / 8, see Kept; docs/accuracy.md has the table.
/// Departs from the source: the difference of longitude is not folded, so a system must not lie
/// across 180 degrees from its origin; convergence and scale factors are those of the sphere.
/// Kept: x tan(j) / 2 in the inverse, where the source has x tan(j / 2): 0.1 m at 100 km east of the
/// Dutch origin. The radius in the scale factors is that of the sphere, not of the sphere times k0.
/// Singular: the north pole gives NaN, as does an origin at a pole.
/// Fails: on an unusable ellipsoid, and with a message on a scale factor below 0.8. The numeric
/// operations report nothing.
class CStereographic : public CProjection {
public:
    CStereographic();
    ~CStereographic() override;

    std::uint32_t InitConstants() override;
    bool LoadParameters(FileObject& file, const CString& section) override;
    bool SaveParameters(FileObject& file, const CString& section) override;
    void GeoToGrid(double latitude, double longitude, double& easting, double& northing) const override;
    void GridToGeo(double easting, double northing, double& latitude, double& longitude) const override;
    /// First order: the difference of longitude times the sine of the latitude, negative east of the
    /// origin in the north. The difference is not folded.
    void GridConvergence(double easting, double northing, double& convergence) const override;
    /// Second order in the distance from the origin.
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
    static const ParameterForm<CStereographic>& Form();

    double m_falseEasting = 0.0;
    double m_falseNorthing = 0.0;
    double m_scaleFactor = 0.0;
    double m_lonOrigin = 0.0;
    double m_latOrigin = 0.0;
    double m_R = 0.0; // radius of the conformal sphere
    double m_twoRk0 = 0.0;
    double m_n = 0.0;        // longitude on the sphere over longitude on the ellipsoid
    double m_halfLogC = 0.0; // what isometric latitudes are shifted by, half the logarithm of c
    double m_chi0 = 0.0;     // the origin's latitude on the sphere, radians
    double m_sinChi0 = 0.0;
    double m_cosChi0 = 0.0;
    double m_Lambda0 = 0.0; // longitude of origin, radians
    double m_e2 = 0.0;
    double m_g = 0.0; // g and h of the source
    double m_h = 0.0;
};
