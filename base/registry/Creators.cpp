#include "base/registry/Creators.h"

ZorCoordSysICreator::~ZorCoordSysICreator() = default;

GeoStaticICreator::~GeoStaticICreator() = default;

GeoDatabaseICreator::~GeoDatabaseICreator() = default;
