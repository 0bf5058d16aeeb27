#pragma once

#include <cmath>

#include "tests/support/PlainGeocentric.h"

/// The datum transformation step by step, every sine taken at every position. Shares no code with
/// the production class.
namespace plain {

struct Datum {
    double srcAxis = 0.0, srcEcc = 0.0;
    double dstAxis = 0.0, dstEcc = 0.0;
    Cartesian shift{};        ///< metres
    Cartesian rotation{};     ///< arc seconds as stored: position vector rotation
    double scale = 0.0;       ///< parts per million
    Cartesian shiftRate{};    ///< metres per year
    Cartesian rotationRate{}; ///< arc seconds per year
    double scaleRate = 0.0;   ///< parts per million per year
    double epoch = 0.0;       ///< decimal year; 0 or no rates: constant parameters
    bool has14 = false;
};

/// Clockwise by `angle` degrees.
inline void Turn(double& x, double& y, double angle)
{
    const double c = std::cos(kDegree * angle);
    const double s = std::sin(kDegree * angle);
    const double turnedX = x * c + y * s;
    const double turnedY = -x * s + y * c;
    x = turnedX;
    y = turnedY;
}

inline Cartesian Rotation3D(Cartesian p, const Cartesian& rotation, bool inverse)
{
    if (inverse) {
        Turn(p.x, p.y, rotation.z);
        Turn(p.y, p.z, rotation.x);
        Turn(p.x, p.z, -rotation.y);
    } else {
        Turn(p.x, p.z, -rotation.y);
        Turn(p.y, p.z, rotation.x);
        Turn(p.x, p.y, rotation.z);
    }
    return p;
}

/// `milliseconds` since 1970.
inline Geodetic Transform(const Datum& datum, double unit, double lat, double lon, double h, bool inverse,
                          double milliseconds = 0.0)
{
    double dt = 0.0;
    if (datum.has14 && datum.epoch != 0.0) {
        dt = milliseconds / (1000.0 * 86400.0 * 365.25) + 1970.0 - datum.epoch;
    }
    const double S = 1.0 + (datum.scale + datum.scaleRate * dt) / 1e6;
    const auto at = [dt](double value, double rate) { return value + dt * rate; };
    const Cartesian T{at(datum.shift.x, datum.shiftRate.x), at(datum.shift.y, datum.shiftRate.y),
                      at(datum.shift.z, datum.shiftRate.z)};
    Cartesian R{-at(datum.rotation.x, datum.rotationRate.x) / 3600.0,
                -at(datum.rotation.y, datum.rotationRate.y) / 3600.0,
                -at(datum.rotation.z, datum.rotationRate.z) / 3600.0};
    if (inverse) {
        const Cartesian P = GeodeticToCartesian(datum.dstAxis, datum.dstEcc, unit, lat, lon, h);
        const Cartesian Q{(P.x - T.x) / S, (P.y - T.y) / S, (P.z - T.z) / S};
        const Cartesian C = Rotation3D(Q, {-R.x, -R.y, -R.z}, true);
        return CartesianToGeodetic(datum.srcAxis, datum.srcEcc, unit, C.x, C.y, C.z);
    }
    const Cartesian P = GeodeticToCartesian(datum.srcAxis, datum.srcEcc, unit, lat, lon, h);
    const Cartesian Q = Rotation3D(P, R, false);
    return CartesianToGeodetic(datum.dstAxis, datum.dstEcc, unit, S * Q.x + T.x, S * Q.y + T.y, S * Q.z + T.z);
}

} // namespace plain
