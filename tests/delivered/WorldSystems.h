#pragma once

#include <string>
#include <vector>

#include "base/text/CString.h"

/// An area of use, degrees; `west` is above `east` where it reaches across 180 degrees.
struct AreaBox {
    double west = 0.0;
    double south = 0.0;
    double east = 0.0;
    double north = 0.0;
};

/// A system of the delivered database: what its record and the side file say.
struct WorldSystem {
    CString name;
    CString group;     ///< the first of its groups
    int code = 0;      ///< EPSG, of one system alone; 0 for the regional ones and the default
    int published = 0; ///< EPSG, with which its description begins, theirs too
    std::vector<AreaBox> boxes;
    int transformation = 0; ///< EPSG, from the name of its datum transformation; 0 for none
    std::string kind;       ///< projection method, unit and whether its grid is turned
};

/// The systems that the side file lists, in its order. Throws when a file cannot be read or
/// disagrees with the other.
std::vector<WorldSystem> ReadWorldSystems();

/// One system for each kind, and the default.
std::vector<WorldSystem> SampleOf(const std::vector<WorldSystem>& systems);
