// The chain of conversions. From satellite to grid a position goes through the datum, the post
// model's geographic shift, the projection, the post corrections and, its height alone, the
// geoid; from grid to satellite the same steps run backwards, the geoid last again.

#include "coordsys/ZORGeoCoordSys.h"
#include "datum/CDatumTransform.h"
#include "datum/Ellipsoid.h"
#include "projections/CProjection.h"

namespace {

struct Geographic {
    double latitude;
    double longitude;
    double height;
};

// Each step takes a position in place and leaves it when its part is missing or refuses.

void StepDatum(const CDatumTransform* datum, Geographic& position, bool inverse, double time)
{
    Geographic out{};
    if (datum != nullptr && datum->DoDtf(position.latitude, position.longitude, position.height, out.latitude,
                                         out.longitude, out.height, inverse, time)) {
        position = out;
    }
}

void StepToGrid(const CProjection* projection, double latitude, double longitude, double& x, double& y)
{
    if (projection != nullptr) {
        projection->GeoToGrid(latitude, longitude, x, y);
    }
}

void StepToGeo(const CProjection* projection, double x, double y, double& latitude, double& longitude)
{
    if (projection != nullptr) {
        projection->GridToGeo(x, y, latitude, longitude);
    }
}

void StepPost(const ZORGeoCoordSys& system, double& x, double& y, double& z, bool inverse)
{
    double outX = 0.0;
    double outY = 0.0;
    double outZ = 0.0;
    if (system.CalPostXYZ(x, y, z, outX, outY, outZ, inverse)) {
        x = outX;
        y = outY;
        z = outZ;
    }
}

void StepPost(const ZORGeoCoordSys& system, double& x, double& y, bool inverse)
{
    double z = 0.0;
    StepPost(system, x, y, z, inverse);
}

} // namespace

void ZORGeoCoordSys::SetUserIOLatLonOnSAT(int value)
{
    m_userIOLatLonOnSAT = value;
}

// Kept: any value but 0 selects the satellite frame, and this answers for 1 alone: with any other
// value it denies a frame that is in use.
bool ZORGeoCoordSys::GetUserIOLatLonOnSAT() const
{
    return m_userIOLatLonOnSAT == 1;
}

void ZORGeoCoordSys::UserIOGeoToGrid(double latitude, double longitude, double& x, double& y, double time) const
{
    if (m_userIOLatLonOnSAT == 0) {
        GeoToGrid(latitude, longitude, x, y, true);
    } else {
        SatGeoToGrid(latitude, longitude, x, y, time);
    }
}

void ZORGeoCoordSys::UserIOGridToGeo(double x, double y, double& latitude, double& longitude, double time) const
{
    if (m_userIOLatLonOnSAT == 0) {
        GridToGeo(x, y, latitude, longitude);
    } else {
        GridToSatGeo(x, y, latitude, longitude, time);
    }
}

void ZORGeoCoordSys::GeoToGrid(double latitude, double longitude, double height, double& x, double& y, double& z,
                               double time) const
{
    Geographic shifted{latitude, longitude, height};
    m_corrections.ShiftGeographic(shifted.latitude, shifted.longitude, false);
    StepToGrid(m_pProjection.get(), shifted.latitude, shifted.longitude, x, y);
    z = height;
    StepPost(*this, x, y, z, false);
    Geographic satellite = shifted;
    StepDatum(m_pDatum.get(), satellite, true, time);
    double geoid = 0.0;
    if (CalGeoidHeight(satellite.latitude, satellite.longitude, x, y, geoid)) {
        z = (z - height) + (satellite.height - geoid);
    }
}

// Kept: post corrections only where they are asked for, while GridToGeo always takes them off. For
// a system with post shifts the two are no round trip.
void ZORGeoCoordSys::GeoToGrid(double latitude, double longitude, double& x, double& y, bool post) const
{
    m_corrections.ShiftGeographic(latitude, longitude, false);
    StepToGrid(m_pProjection.get(), latitude, longitude, x, y);
    if (post) {
        StepPost(*this, x, y, false);
    }
}

void ZORGeoCoordSys::GridToGeo(double x, double y, double z, double& latitude, double& longitude, double& height,
                               double time) const
{
    StepPost(*this, x, y, z, true);
    StepToGeo(m_pProjection.get(), x, y, latitude, longitude);
    m_corrections.ShiftGeographic(latitude, longitude, true);
    height = z;
    Geographic satellite{latitude, longitude, z};
    StepDatum(m_pDatum.get(), satellite, true, time);
    double geoid = 0.0;
    if (CalGeoidHeight(satellite.latitude, satellite.longitude, x, y, geoid)) {
        height = (geoid + z) - (satellite.height - z);
    }
}

void ZORGeoCoordSys::GridToGeo(double x, double y, double& latitude, double& longitude) const
{
    StepPost(*this, x, y, true);
    StepToGeo(m_pProjection.get(), x, y, latitude, longitude);
    m_corrections.ShiftGeographic(latitude, longitude, true);
}

void ZORGeoCoordSys::SatGeoToGrid(double latitude, double longitude, double height, double& x, double& y, double& z,
                                  double time) const
{
    Geographic local{latitude, longitude, height};
    StepDatum(m_pDatum.get(), local, false, time);
    m_corrections.ShiftGeographic(local.latitude, local.longitude, false);
    StepToGrid(m_pProjection.get(), local.latitude, local.longitude, x, y);
    z = local.height;
    StepPost(*this, x, y, z, false);
    double geoid = 0.0;
    if (CalGeoidHeight(latitude, longitude, x, y, geoid)) {
        z = (z - local.height) + (height - geoid);
    }
}

void ZORGeoCoordSys::SatGeoToGrid(double latitude, double longitude, double& x, double& y, double time) const
{
    Geographic local{latitude, longitude, 0.0};
    StepDatum(m_pDatum.get(), local, false, time);
    m_corrections.ShiftGeographic(local.latitude, local.longitude, false);
    StepToGrid(m_pProjection.get(), local.latitude, local.longitude, x, y);
    StepPost(*this, x, y, false);
}

void ZORGeoCoordSys::GridToSatGeo(double x, double y, double z, double& latitude, double& longitude, double& height,
                                  double time) const
{
    StepPost(*this, x, y, z, true);
    StepToGeo(m_pProjection.get(), x, y, latitude, longitude);
    m_corrections.ShiftGeographic(latitude, longitude, true);
    Geographic satellite{latitude, longitude, z};
    StepDatum(m_pDatum.get(), satellite, true, time);
    latitude = satellite.latitude;
    longitude = satellite.longitude;
    height = satellite.height;
    double geoid = 0.0;
    if (CalGeoidHeight(latitude, longitude, x, y, geoid)) {
        height = geoid + z;
    }
}

void ZORGeoCoordSys::GridToSatGeo(double x, double y, double& latitude, double& longitude, double time) const
{
    StepPost(*this, x, y, true);
    StepToGeo(m_pProjection.get(), x, y, latitude, longitude);
    m_corrections.ShiftGeographic(latitude, longitude, true);
    Geographic satellite{latitude, longitude, 0.0};
    StepDatum(m_pDatum.get(), satellite, true, time);
    latitude = satellite.latitude;
    longitude = satellite.longitude;
}

void ZORGeoCoordSys::SatGeoToGeo(double satLatitude, double satLongitude, double satHeight, double& latitude,
                                 double& longitude, double& height, double time) const
{
    Geographic position{satLatitude, satLongitude, satHeight};
    StepDatum(m_pDatum.get(), position, false, time);
    latitude = position.latitude;
    longitude = position.longitude;
    height = position.height;
}

void ZORGeoCoordSys::GeoToSatGeo(double latitude, double longitude, double height, double& satLatitude,
                                 double& satLongitude, double& satHeight, double time) const
{
    Geographic position{latitude, longitude, height};
    StepDatum(m_pDatum.get(), position, true, time);
    satLatitude = position.latitude;
    satLongitude = position.longitude;
    satHeight = position.height;
}

void ZORGeoCoordSys::GridConvergence(double x, double y, double& convergence) const
{
    if (m_pProjection) {
        m_pProjection->GridConvergence(x, y, convergence);
    }
}

double ZORGeoCoordSys::PointScaleFactor(double x, double y) const
{
    return m_pProjection ? m_pProjection->PointScaleFactor(x, y) : 0.0;
}

void ZORGeoCoordSys::PointScaleFactor(double x, double y, double& factor) const
{
    if (m_pProjection) {
        m_pProjection->PointScaleFactor(x, y, factor);
    }
}

double ZORGeoCoordSys::LineScaleFactor(double x1, double y1, double x2, double y2) const
{
    return m_pProjection ? m_pProjection->LineScaleFactor(x1, y1, x2, y2) : 0.0;
}

void ZORGeoCoordSys::LineScaleFactor(double x1, double y1, double x2, double y2, double& factor) const
{
    if (m_pProjection) {
        m_pProjection->LineScaleFactor(x1, y1, x2, y2, factor);
    }
}

bool ZORGeoCoordSys::ProjectOffset(double& dx, double& dy, double x, double y)
{
    return m_pProjection && m_pProjection->ProjectOffset(dx, dy, x, y);
}

bool ZORGeoCoordSys::DoDtf(double latitude, double longitude, double height, double& outLatitude, double& outLongitude,
                           double& outHeight, bool inverse, double time) const
{
    return m_pDatum &&
           m_pDatum->DoDtf(latitude, longitude, height, outLatitude, outLongitude, outHeight, inverse, time);
}

bool ZORGeoCoordSys::DoDtfWGS84(double latitude, double longitude, double height, double& outLatitude,
                                double& outLongitude, double& outHeight, bool inverse, double time) const
{
    return DoDtf(latitude, longitude, height, outLatitude, outLongitude, outHeight, inverse, time);
}

bool ZORGeoCoordSys::DoDtf(double latitude, double longitude, double height, double& outLatitude, double& outLongitude,
                           double& outHeight, bool inverse, CString dtfName, double time)
{
    if (dtfName.IsEmpty()) {
        return DoDtf(latitude, longitude, height, outLatitude, outLongitude, outHeight, inverse, time);
    }
    // Kept: a name that gave nothing is not tried again until another name came between, nor is
    // one whose transformation went with a new Init. Live conversions must not search per position.
    if (dtfName.CompareNoCase(m_extraDtfName) != 0) {
        m_pExtraDtf.reset(CreateNewDtf(dtfName));
        m_extraDtfName = dtfName;
    }
    return m_pExtraDtf &&
           m_pExtraDtf->DoDtf(latitude, longitude, height, outLatitude, outLongitude, outHeight, inverse, time);
}

bool ZORGeoCoordSys::GeogsToCartesian(double latitude, double longitude, double height, double& x, double& y, double& z,
                                      bool satellite) const
{
    const Ellipsoid* const ellipsoid = satellite ? m_pSrcEllipsoid.get() : m_pEllipsoid.get();
    return ellipsoid != nullptr && ellipsoid->GeodeticToCartesian(latitude, longitude, height, x, y, z);
}

bool ZORGeoCoordSys::CartesianToGeogs(double x, double y, double z, double& latitude, double& longitude, double& height,
                                      bool satellite) const
{
    const Ellipsoid* const ellipsoid = satellite ? m_pSrcEllipsoid.get() : m_pEllipsoid.get();
    return ellipsoid != nullptr && ellipsoid->CartesianToGeodetic(x, y, z, latitude, longitude, height);
}
