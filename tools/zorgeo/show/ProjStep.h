#pragma once

#include <string>

#include "show/SystemParameters.h"

/// One operation in PROJ's notation, "+proj=cart +a=6378388 +es=0.00672...".
class ProjStep {
public:
    explicit ProjStep(const char* operation) : m_text(std::string("+proj=") + operation) {}

    /// The shortest decimal that reads back to the same double, without an exponent: PROJ takes the
    /// letter of one for a hemisphere in an angle.
    ProjStep& With(const char* parameter, double value);
    /// The same unless it is 0, PROJ's own value in its absence.
    ProjStep& WithUnlessZero(const char* parameter, double value);
    ProjStep& With(const char* parameter, const char* value);
    ProjStep& Flag(const char* name);
    ProjStep& On(const EllipsoidParameters& ellipsoid);

    const std::string& Text() const { return m_text; }

private:
    std::string m_text;
};
