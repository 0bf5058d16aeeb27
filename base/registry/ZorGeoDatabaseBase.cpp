#include "base/registry/ZorGeoDatabaseBase.h"

ZorGeoDatabaseBase::ZorGeoDatabaseBase() = default;

ZorGeoDatabaseBase::ZorGeoDatabaseBase(const ZorGeoDatabaseBase&) = default;

ZorGeoDatabaseBase& ZorGeoDatabaseBase::operator=(const ZorGeoDatabaseBase&) = default;

ZorGeoDatabaseBase::~ZorGeoDatabaseBase() = default;
