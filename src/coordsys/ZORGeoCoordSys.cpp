#include "coordsys/ZORGeoCoordSys.h"

// The database, a member, fills the directories.
ZORGeoCoordSys::ZORGeoCoordSys() = default;

ZORGeoCoordSys::ZORGeoCoordSys(const ZORGeoCoordSys&) = default;
ZORGeoCoordSys& ZORGeoCoordSys::operator=(const ZORGeoCoordSys&) = default;
ZORGeoCoordSys::~ZORGeoCoordSys() = default;
