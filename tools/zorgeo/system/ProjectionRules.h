#pragma once

#include <functional>
#include <string>

#include "show/SystemParameters.h"

/// What a projection class refuses, cannot compute with, or would compute wrongly with and not tell,
/// as far as each number by itself is in its range. `fault` gets the parameter's index of
/// projectionParamKeys and what is wrong and would be right.
/// A value that is NaN, or a text that is empty, is not known: no rule tells of it.
///
/// `a` is the semi-major axis in system units, `e2` the squared eccentricity.
void CheckProjectionRules(const ProjectionParameters& projection, double a, double e2, double metresPerUnit,
                          const std::function<void(int index, const std::string& what)>& fault);

/// The text under which the module keeps a UTM zone: "Zone 31     (  3 E)".
std::string ZoneText(int zone);
