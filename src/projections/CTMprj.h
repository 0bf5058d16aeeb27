#pragma once

#include "projections/CProjection.h"

template <class C>
struct ParameterForm;

/// Transverse Mercator.
///
/// The series of Redfearn, Transverse Mercator Formulae, Empire Survey Review 69 (1948), over a
/// meridian arc in powers of the third flattening n (Helmert 1880, in the form of the Ordnance
/// Survey and NIMA TM 8358.2), written as polynomials in the sine and cosine of the latitude. The
/// grid may be turned about the false origin by a skew angle.
///
/// Units: degrees in and out; eastings, northings, false origins, G and M0 in the system's linear
/// unit. G and M0 keep the unit of the load, a_u follows the unit factor of the moment.
/// Error: against the exact projection 0.02 mm within 3 degrees of the central meridian and 2 mm
/// within 6, forward and back; docs/accuracy.md has the table. Farther out the series diverge.
/// Departs from the source: the northing ends with the term in L^4 inside its bracket, one short
/// of Redfearn's; convergence and scale factors are of the first order that counts.
/// Kept: 721 in the last term of the inverse longitude, where the published series has 720; the
/// convergence is negative east of the central meridian in the north.
/// Fails: on an unusable ellipsoid, and silently on a scale factor below 0.8. The numeric
/// operations report nothing; without scale factor or radius GridToGeo gives (0, 0).
class CTMprj : public CProjection {
public:
    CTMprj();
    ~CTMprj() override;

    std::uint32_t InitConstants() override;
    bool LoadParameters(FileObject& file, const CString& section) override;
    bool SaveParameters(FileObject& file, const CString& section) override;
    void GeoToGrid(double latitude, double longitude, double& easting, double& northing) const override;
    void GridToGeo(double easting, double northing, double& latitude, double& longitude) const override;
    /// First order: the difference of longitude times the sine of the latitude, less the grid skew.
    void GridConvergence(double easting, double northing, double& convergence) const override;
    /// Second order in the distance from the false easting. The grid skew does not enter.
    double PointScaleFactor(double easting, double northing) const override;
    void PointScaleFactor(double easting, double northing, double& factor) const override;
    double LineScaleFactor(double easting1, double northing1, double easting2, double northing2) const override;
    void LineScaleFactor(double easting1, double northing1, double easting2, double northing2,
                         double& factor) const override;
    bool GetProjectionConstants(CArray<double, double>& values, CStringArray& names, CStringArray& texts,
                                CArray<UINT, UINT>& kinds) const override;
    void GetGeoKeys(std::list<std::pair<int, short>>& codes,
                    std::list<std::pair<int, double>>& parameters) const override;
    void DumpParametersXml(std::wostream& stream, const std::wstring& indent) const override;

protected:
    explicit CTMprj(std::int32_t type);

private:
    static const ParameterForm<CTMprj>& Form();

    double m_falseEasting = 0.0;
    double m_falseNorthing = 0.0;
    double m_scaleFactor = 0.0;
    double m_lonOrigin = 0.0;
    double m_latOrigin = 0.0;
    double m_gridSkew = 0.0;

protected:
    /// Set by a class that has sized the constants itself before it calls LoadParameters.
    bool m_sized = false;

private:
    // Coefficients of a polynomial in the squared cosine, lowest power first.
    struct ArcPolynomial {
        double k1 = 0.0, k2 = 0.0, k3 = 0.0, k4 = 0.0;
        double operator()(double cosSquared) const;
    };
    static ArcPolynomial PolynomialOfSines(double sin2, double sin4, double sin6, double sin8);

    double m_G = 0.0;          // rectifying radius
    ArcPolynomial m_arc;       // a1 to a4
    ArcPolynomial m_footpoint; // b1 to b4
    double m_sigma0 = 0.0;     // rectifying latitude of the latitude of origin, radians
    double m_M0 = 0.0;         // k0 G sigma0
    double m_secondEcc2 = 0.0; // e2 / (1 - e2)
    double m_sinSkew = 0.0;
    double m_cosSkew = 0.0;
};
