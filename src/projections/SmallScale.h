#pragma once

#include "frame/BaseContract.h"

/// The refusal of a grid whose scale factor is so small that it is taken for a record that lacks it.
namespace SmallScale {

constexpr double kSmallest = 0.8;

/// Shows a message and gives true when `scaleFactor` is refused.
inline bool RefusedWithMessage(double scaleFactor)
{
    // Kept: one text for all projections, with the name of the Cassini projection in it.
    constexpr unsigned kText = 15364;
    if (!(scaleFactor < kSmallest)) {
        return false;
    }
    AfxMessageBox(kText);
    return true;
}

} // namespace SmallScale
