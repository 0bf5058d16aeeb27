#include "coordsys/ZORGeoCoordSys.h"

#include "frame/ZorGeoUtility.h"

ZORGeoCoordSys::ZORGeoCoordSys()
{
    ZorGeoUtility& directories = ZorGeoUtility::Get();
    if (!directories.initialised) {
        directories.Fill();
    }
}

ZORGeoCoordSys::ZORGeoCoordSys(const ZORGeoCoordSys&) = default;
ZORGeoCoordSys& ZORGeoCoordSys::operator=(const ZORGeoCoordSys&) = default;
ZORGeoCoordSys::~ZORGeoCoordSys() = default;
