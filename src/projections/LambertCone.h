#pragma once

/// What the two Lambert conformal conic projections have in common: the origin, the cone, and the
/// formulas that use them.
///
/// Thomas, Conformal Projections in Geodesy and Cartography (US Coast and Geodetic Survey Special
/// Publication 251, 1952), by the isometric latitude. Degrees in and out; eastings, northings and
/// radii in the system's linear unit. `e2` is the squared eccentricity, `a` the semi-major axis in
/// that unit. Nothing fails: what has no value comes out as infinity or NaN.
class LambertCone {
protected:
    LambertCone() = default;
    ~LambertCone() = default;

    /// A parallel of latitude, with what the constants need of it.
    struct Parallel {
        Parallel(double latitude, double e2);
        double sine;
        double cosine;
        double W; ///< semi-major axis over the radius of curvature in the prime vertical
        double L; ///< isometric latitude
    };

    /// The mapping radius constant that leaves `parallel` its true length. Needs m_n.
    double TrueRadius(const Parallel& parallel, double a) const;
    /// Takes the mapping radius constant and forms the radii and N0; `central` is the parallel of
    /// least scale. Needs m_n.
    void SetRadii(double K, const Parallel& central, double e2);
    /// The scale factor at the central parallel. Needs the radii.
    double CentralScale(const Parallel& central, double a) const;

    void Forward(double e2, double latitude, double longitude, double& easting, double& northing) const;
    /// Stops after two Newton passes: the latitude is too large by e^8 sin^7 cos (of the latitude),
    /// 0.5e-9 radians (3.1 mm) at most on the ellipsoids of the earth.
    void Inverse(double e2, double easting, double northing, double& latitude, double& longitude) const;
    double Convergence(double easting, double northing) const;
    double PointScale(double e2, double a, double easting, double northing) const;

    double m_latOrigin = 0.0;
    double m_lonOrigin = 0.0;
    double m_falseEasting = 0.0;
    double m_falseNorthing = 0.0;

    double m_n = 0.0;  // cone constant
    double m_K = 0.0;  // mapping radius constant
    double m_N0 = 0.0; // northing of the central parallel on the central meridian
    double m_RF = 0.0; // radius of the latitude of origin
    double m_R0 = 0.0; // radius of the central parallel

private:
    /// The distance southward from the apex, along the central meridian.
    double SouthOfApex(double northing) const { return m_RF - northing + m_falseNorthing; }
};
