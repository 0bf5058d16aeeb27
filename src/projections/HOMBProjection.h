#pragma once

#include "projections/CProjection.h"
#include "projections/HotineAposphere.h"
#include "projections/HotineSkew.h"

struct HotineOrigin;

template <class C>
struct HotineForm;

/// Hotine Oblique Mercator, variant B: u counts from the projection centre, and the false origin is
/// the easting and northing there.
///
/// Hotine, The orthomorphic projection of the spheroid, Empire Survey Review 62-66 (1946-47), in
/// the form of Snyder, Map Projections: A Working Manual (1987), pp. 66-75, alternate B, with the
/// rule for an azimuth of 90 degrees of IOGP guidance note 7-2; EPSG method 9815. The inverse takes
/// the closed series of the conformal latitude (eq. 3-5).
///
/// Units: degrees in and out; eastings, northings, false origin in the system's linear unit. The
/// axis keeps the unit of the load.
/// Error: forward that of the arithmetic; back 0.02 mm. Within 90 degrees of the natural origin, along
/// the aposphere; a longitude that comes out farther than 90 degrees from the centre is brought
/// back by 180 / B. There is no other folding.
/// Singular: at azimuth 90 the scale factors are 0 / 0 on the meridian of the centre, and lose 1e-9
/// a metre from it. Only the exact longitude of the centre counts as on that meridian.
/// Kept: e in thirteen digits in the inverse; F = D without a clamp where rounding makes D of a centre
/// on the equator less than 1, which makes every result NaN; asin(1) at azimuth 90 for southern centres
/// too, where the source has asin(-1); the scale factor under the name of the skew in XML; key 3094
/// twice.
/// Fails: on an unusable ellipsoid, and on a semi-major axis below kShortestAxis system units;
/// the status stays 0 all the same. An azimuth whose sine exceeds D makes every result NaN. The
/// numeric operations report nothing.
class HOMBProjection : public CProjection {
public:
    HOMBProjection();
    ~HOMBProjection() override;

    std::uint32_t InitConstants() override;
    bool LoadParameters(FileObject& file, const CString& section) override;
    bool SaveParameters(FileObject& file, const CString& section) override;
    void GeoToGrid(double latitude, double longitude, double& easting, double& northing) const override;
    void GridToGeo(double easting, double northing, double& latitude, double& longitude) const override;
    /// The direction on the grid of the point one arc second to the north.
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
    friend struct HotineForm<HOMBProjection>;
    static const HotineOrigin kOrigin;

    bool IsAcross() const;
    HotineAposphere::Rectified ToRectified(double easting, double northing) const;

    double m_falseEasting = 0.0;
    double m_falseNorthing = 0.0;
    double m_scaleFactor = 0.0;
    double m_lonCentre = 0.0;
    double m_latCentre = 0.0;
    double m_azimuth = 0.0;
    double m_gridSkew = 0.0;
    HotineSkew m_skew;
    HotineAposphere m_aposphere;
    double m_originU = 0.0;  // |uc|, negative in the south
    double m_halfTurn = 0.0; // 180 / B, degrees
};
