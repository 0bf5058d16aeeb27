#pragma once

#include "projections/CProjection.h"
#include "projections/ConformalLatitude.h"

template <class C>
struct ParameterForm;

/// Universal Polar Stereographic: a fixed pole at the false origin, longitude of origin 0, the
/// hemisphere as a text.
///
/// Snyder, Map Projections: A Working Manual (1987), pp. 160-162, eq. 21-33 with the scale factor at
/// the pole; EPSG method 9810. The inverse takes the latitude from the closed series of the conformal
/// latitude, eq. 3-5.
///
/// Units: degrees in and out; eastings, northings and false origins in the system's linear unit. All
/// derived fields keep the unit of the load.
/// Error: forward that of the arithmetic. The inverse latitude is within 3e-11 degrees (0.003 mm) down
/// to latitude 60; docs/accuracy.md has the table.
/// Departs from the source: 11500 in the series, where Snyder has 11520 (0.002 mm).
/// Kept: any hemisphere but the exact text "Northern" is the southern one. The scale factor at the
/// pole itself is 0.
/// Singular: the axis through the pole along longitudes 90 and -90, where the northing is the false
/// northing, has no inverse: it gives the far pole at longitude 0, and an infinite scale factor.
/// Beside longitude 180 the inverse loses digits: 1 m from that meridian and 1000 km from the pole it
/// is off by up to 0.3 mm, 1 mm from it by up to 0.3 m.
/// Fails: on an unusable ellipsoid, and with a message on a scale factor below 0.8. The numeric
/// operations report nothing.
class UniversalPolarStereographic : public CProjection {
public:
    UniversalPolarStereographic();
    ~UniversalPolarStereographic() override;

    std::uint32_t InitConstants() override;
    bool LoadParameters(FileObject& file, const CString& section) override;
    bool SaveParameters(FileObject& file, const CString& section) override;
    void GeoToGrid(double latitude, double longitude, double& easting, double& northing) const override;
    void GridToGeo(double easting, double northing, double& latitude, double& longitude) const override;
    /// Exact: the longitude, negative in the north, positive in the south.
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
    static const ParameterForm<UniversalPolarStereographic>& Form();

    /// Polar coordinates of a grid point.
    struct Polar {
        double lam; // longitude, radians
        double rho; // distance from the pole
    };
    Polar AboutPole(double easting, double northing) const;
    /// The latitude (radians) at a distance from the pole, positive on the side of the hemisphere.
    double LatitudeAt(double rho) const;

    double m_falseEasting = 0.0;
    double m_falseNorthing = 0.0;
    double m_scaleFactor = 0.0;
    CString m_hemisphere;
    bool m_north = false;
    double m_C = 0.0; // rho = C k0 exp(-isometric latitude)
    ConformalLatitudeSeries m_series;
    double m_a = 0.0;
    double m_e2 = 0.0;
};
