#pragma once

#include <optional>
#include <string>
#include <vector>

#include "SystemOpener.h"
#include "show/SystemParameters.h"

/// A place on the satellite ellipsoid, degrees.
struct Place {
    double latitude = 0.0;
    double longitude = 0.0;
};

/// A sheet about one system, to be printed and signed: what it is, every parameter in the module's
/// own words (`description`, its bytes), worked examples that another program can be checked with,
/// and a place to sign. The examples are at `about`, else beside the projection's origin. The same
/// system gives the same sheet: no date, no path, no version stands in it.
std::string MakeSheet(const SystemParameters& system, const OpenedSystem& opened, const std::string& description,
                      const std::optional<Place>& about);

/// The module's lines with tabs and line ends made fit for paper, values in one column.
std::string InColumns(const std::string& description);

/// Half a degree north-east and south-west of the origin of the projection, or of what stands for it.
std::vector<Place> ExamplePlaces(const SystemParameters& system);
