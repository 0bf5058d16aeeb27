#pragma once

#include <cmath>

#include "frame/BaseContract.h"
#include "projections/HotineAposphere.h"

/// The turn between the rectified axes and those of the grid.
class HotineSkew {
public:
    explicit HotineSkew(double degrees = 0.0) : m_s(std::sin(degrees * D_TO_R)), m_c(std::cos(degrees * D_TO_R)) {}

    double East(const HotineAposphere::Rectified& at) const { return m_s * at.u + m_c * at.v; }
    double North(const HotineAposphere::Rectified& at) const { return m_c * at.u - m_s * at.v; }
    /// From the offsets of the grid.
    HotineAposphere::Rectified Rectified(double dE, double dN) const
    {
        return {m_c * dN + m_s * dE, m_c * dE - m_s * dN};
    }

private:
    double m_s, m_c;
};
