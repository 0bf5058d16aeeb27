#pragma once

#include "projections/CProjection.h"

/// The Dutch grid (Rijksdriehoeksmeting) by power series between latitude and longitude on the Bessel
/// ellipsoid, in arc seconds, and the grid, in metres.
///
/// Of the type of RDProjection, which the factory makes for it; nothing reads or shows parameters here.
///
/// Units: degrees in and out, metres. The ellipsoid must be usable and enters no formula.
/// Error: within 0.12 mm of the projection forward and 0.16 mm back, over the Netherlands; of no use
/// elsewhere.
/// Kept: saves nothing but its type number.
/// Fails: only on an unusable ellipsoid. The numeric operations report nothing.
class CRDprj : public CProjection {
public:
    CRDprj();
    ~CRDprj() override;

    std::uint32_t InitConstants() override;
    /// Reads nothing. False without the section, and on an unusable ellipsoid.
    bool LoadParameters(FileObject& file, const CString& section) override;
    /// Writes the type number; the result is that of the write.
    bool SaveParameters(FileObject& file, const CString& section) override;
    void GeoToGrid(double latitude, double longitude, double& easting, double& northing) const override;
    void GridToGeo(double easting, double northing, double& latitude, double& longitude) const override;
    /// First order: the difference of longitude times the sine of the latitude, negative in the east.
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
};
