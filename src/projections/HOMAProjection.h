#pragma once

#include "projections/CProjection.h"
#include "projections/HotineAposphere.h"
#include "projections/HotineSkew.h"

struct HotineOrigin;

template <class C>
struct HotineForm;

/// Hotine Oblique Mercator, variant A: u counts from the natural origin, where the initial line
/// meets the equator of the aposphere, and the false origin is there.
///
/// Hotine, The orthomorphic projection of the spheroid, Empire Survey Review 62-66 (1946-47), in
/// the form of Snyder, Map Projections: A Working Manual (1987), pp. 66-75, alternate A; EPSG
/// method 9812. The inverse takes the closed series of the conformal latitude (eq. 3-5).
///
/// Units: degrees in and out; eastings, northings, false origin in the system's linear unit. The
/// axis keeps the unit of the load.
/// Error: forward that of the arithmetic; back 0.02 mm, and 1.7e-10 of the distance from the initial
/// line: 0.1 mm at 600 km. Within 90 degrees of the natural origin, along the aposphere; there is no folding.
/// Departs from the source: D below 1, which rounding makes of a centre on the equator, counts as 1.
/// Kept: the short value of e in the inverse; the convergence, see GridConvergence; the scale factor
/// under the name of the skew in XML; key 3094 twice.
/// Fails: on an unusable ellipsoid, and on a semi-major axis below kShortestAxis system units;
/// the status stays 0 all the same. The numeric operations report nothing.
class HOMAProjection : public CProjection {
public:
    HOMAProjection();
    ~HOMAProjection() override;

    std::uint32_t InitConstants() override;
    bool LoadParameters(FileObject& file, const CString& section) override;
    bool SaveParameters(FileObject& file, const CString& section) override;
    void GeoToGrid(double latitude, double longitude, double& easting, double& northing) const override;
    void GridToGeo(double easting, double northing, double& latitude, double& longitude) const override;
    /// Closed, with ln Ec added where the angle of the grid has it taken off: near it for a centre at
    /// the equator (2e-5 degrees in Malaya), 0.02 degrees off in Alaska. The skew angle is taken off
    /// without folding.
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
    friend struct HotineForm<HOMAProjection>;
    static const HotineOrigin kOrigin;

    double m_falseEasting = 0.0;
    double m_falseNorthing = 0.0;
    double m_scaleFactor = 0.0;
    double m_lonCentre = 0.0;
    double m_latCentre = 0.0;
    double m_azimuth = 0.0;
    double m_gridSkew = 0.0;
    HotineSkew m_skew;
    HotineAposphere m_aposphere;
};
