#pragma once

#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

#include "base/text/CString.h"

/// A part of an area of use, degrees. West is above east where it reaches across 180 degrees.
struct AreaBox {
    double west = 0.0;
    double south = 0.0;
    double east = 0.0;
    double north = 0.0;

    /// Whether the place, in degrees, is inside or on the edge. Longitudes that are a turn apart are the
    /// same, and a pole has none: a box that reaches it holds it.
    bool Holds(double latitude, double longitude) const;
    /// Its part of the whole sphere.
    double Extent() const;
};

/// What the delivered table says of a system beside its record.
struct SystemArea {
    std::string name;
    std::vector<std::string> groups; ///< the first is that under which it stands foremost
    std::optional<int> code;         ///< of the EPSG Dataset
    std::optional<double> accuracy;  ///< of the transformation, metres; none when unknown or nothing is transformed
    std::vector<AreaBox> boxes;

    bool Holds(double latitude, double longitude) const;
    /// The part of the whole sphere that the boxes have together.
    double Extent() const;
};

/// The areas of use and EPSG codes of the delivered systems, from the table beside the main database.
class SystemAreas {
public:
    /// Reads the table in `dataDirectory` (with its trailing separator). Throws ToolError (3) when it
    /// cannot be read.
    explicit SystemAreas(const CString& dataDirectory);

    /// In the order of the table.
    const std::vector<SystemArea>& All() const { return m_systems; }
    /// The system of an EPSG code; null when the table has none.
    const SystemArea* OfCode(int code) const;
    /// The lines that were passed over, each as "file:line: what is wrong".
    const std::vector<std::string>& Faults() const { return m_faults; }

private:
    /// Adds a system of one box, or the box to the system of the line before. The result is what forbids it.
    const char* Add(SystemArea&& line);

    std::vector<SystemArea> m_systems;
    std::unordered_map<int, std::size_t> m_ofCode;
    std::vector<std::string> m_faults;
};

/// Why the EPSG system of this code is not in the delivered database, by the list of those left out
/// in `dataDirectory`; empty when the list does not have it or is not there.
std::string ReasonLeftOut(const CString& dataDirectory, int code);
