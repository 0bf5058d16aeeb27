#pragma once

#include "base/Export.h"

class ZorGeoCoordSysBase;
class ZorGeoDatabaseBase;
class ZorGeoStaticDataBase;

// What a module registers so that a host can ask for objects. The object that Create returns
// belongs to the caller; null when it could not be made. The order of the virtual operations is
// part of the interface, and so are the names.

class ZORBASE_API ZorCoordSysICreator {
public:
    virtual ZorGeoCoordSysBase* Create() = 0;
    virtual ~ZorCoordSysICreator();
};

class ZORBASE_API GeoStaticICreator {
public:
    virtual ZorGeoStaticDataBase* Create() = 0;
    virtual ~GeoStaticICreator();
};

class ZORBASE_API GeoDatabaseICreator {
public:
    virtual ZorGeoDatabaseBase* Create() = 0;
    virtual ~GeoDatabaseICreator();
};
