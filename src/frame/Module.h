#pragma once

#include "frame/Export.h"

// The two functions of the module. A host that loads it at run time finds them by these plain
// names; the spelling is part of the interface.
extern "C" {

/// Puts the module's creators into the three lists of the base layer, under "ZORCoordSys"; the
/// lists own them. Acts once in a process: a further call does nothing, also when
/// UnRegisterCoordSys came between. Cannot fail.
ZORCOORDSYS_API void RegisterCoordSys();

/// Takes what stands under "ZORCoordSys" out of the three lists, whoever put it there. Cannot
/// fail.
ZORCOORDSYS_API void UnRegisterCoordSys();
}
