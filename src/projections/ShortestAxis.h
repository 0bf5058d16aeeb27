#pragma once

/// The shortest semi-major axis, counted in system units, that the Hotine and the polyconic classes
/// take: a shorter one is taken for a slip of unit.
// Kept: asked after the division by the unit. A system in a unit of more than 1.063 m, the chain
// for one, is refused.
constexpr double kShortestAxis = 6000000.0;
