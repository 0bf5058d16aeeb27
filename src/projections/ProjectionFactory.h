#pragma once

#include <cstdint>

#include "projections/CProjection.h"

/// Makes a projection from the type number that databases and projects store.
class ProjectionFactory {
public:
    virtual ~ProjectionFactory();

    /// A new projection, without ellipsoid and parameters; the caller owns it. Null for a number
    /// above 15, for a type that has a name and no class, and when memory is short.
    static CProjection* CreateProjectionByType(std::uint32_t type);
};
