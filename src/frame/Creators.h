#pragma once

#include <new>

#include "frame/BaseContract.h"

// The creators that the module registers. The names are part of the interface.

/// A new Made, owned by the caller; null when memory is short.
template <typename Made>
Made* MakeOrNull()
{
    try {
        return new Made;
    } catch (const std::bad_alloc&) {
        return nullptr;
    }
}

template <typename CoordSys>
class ZorCoordSysCreator : public ZorCoordSysICreator {
public:
    ZorGeoCoordSysBase* Create() override { return MakeOrNull<CoordSys>(); }
};

template <typename StaticData>
class ZorGeoStaticbaseCreator : public GeoStaticICreator {
public:
    ZorGeoStaticDataBase* Create() override { return MakeOrNull<StaticData>(); }
};

template <typename Database>
class ZorGeoDatabaseCreator : public GeoDatabaseICreator {
public:
    ZorGeoDatabaseBase* Create() override { return MakeOrNull<Database>(); }
};
