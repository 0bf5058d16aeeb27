#pragma once

#include "base/Export.h"

/// The suite's time. Milliseconds since 1970 January 1, 0 h.
class ZORBASE_API CExTime {
public:
    /// The present time, from the system clock or from what SetSource installed. Cannot fail.
    /// May be called from several threads.
    static double GetCurTime();

    using Source = double (*)();
    /// Installs another clock, for tests and replays; null brings the system clock back.
    static void SetSource(Source source);
};
