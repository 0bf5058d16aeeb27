#include "base/registry/ZorGeoCoordSysBase.h"

ZorGeoCoordSysBase::ZorGeoCoordSysBase() = default;

ZorGeoCoordSysBase::ZorGeoCoordSysBase(const ZorGeoCoordSysBase&) = default;

ZorGeoCoordSysBase& ZorGeoCoordSysBase::operator=(const ZorGeoCoordSysBase&) = default;

ZorGeoCoordSysBase::~ZorGeoCoordSysBase() = default;
