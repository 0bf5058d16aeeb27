#include "projections/NumericConvergence.h"

#include "projections/CProjection.h"

double NumericConvergence(const CProjection& projection, double easting, double northing)
{
    constexpr double kStep = 1.0 / 3600.0; // degrees; 31 m on the ground
    double latitude = 0.0;
    double longitude = 0.0;
    projection.GridToGeo(easting, northing, latitude, longitude);
    double eastingNorth = 0.0;
    double northingNorth = 0.0;
    projection.GeoToGrid(latitude + kStep, longitude, eastingNorth, northingNorth);
    double azimuth = 0.0;
    double distance = 0.0;
    XYToPolar(eastingNorth - easting, northingNorth - northing, azimuth, distance);
    return modgeo(azimuth);
}
