#include "base/registry/ZorGeoStaticDataBase.h"

ZorGeoStaticDataBase::ZorGeoStaticDataBase() = default;

ZorGeoStaticDataBase::~ZorGeoStaticDataBase() = default;
