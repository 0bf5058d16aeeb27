#pragma once

#include <proj.h>

#include <memory>
#include <string>

/// PROJ's own reading of an EPSG system and of the transformation that is published for it: the
/// judge of the delivered records. Longitudes are from Greenwich, angles in degrees.
class PublishedSystem {
public:
    struct Pair {
        double first = 0.0;  ///< easting or westing, or latitude
        double second = 0.0; ///< northing or southing, or longitude
        double height = 0.0; ///< metres
    };

    /// `transformation` 0: positions pass unchanged. Throws when PROJ does not know a code.
    PublishedSystem(PJ_CONTEXT* context, int code, int transformation);

    /// Of the grid, in its own unit: easting (westing) first.
    Pair ToGrid(double latitude, double longitude) const;
    Pair FromGrid(double easting, double northing) const;
    /// The position on WGS 84 of one on the system's datum at height 0, by the parameters as they
    /// are published, in the published direction. For those published from WGS 84 this is the
    /// inverse, exact for small-angle rotations too.
    Pair ToSatellite(double latitude, double longitude) const;

private:
    using Object = std::unique_ptr<PJ, PJ* (*)(PJ*)>;

    void ReadMeridian(PJ_CONTEXT* context, const PJ* geographic);
    void ReadAxes(PJ_CONTEXT* context, const PJ* projected, const PJ* geographic);
    void MakeRoad(PJ_CONTEXT* context, const PJ* projected, int transformation);

    Object m_conversion{nullptr, proj_destroy};
    Object m_road{nullptr, proj_destroy};
    bool m_roadFromSatellite = false;
    double m_meridian = 0.0;
    double m_degreesPerAngle = 1.0;
    bool m_latitudeFirst = true;
    bool m_eastingFirst = true;
};
