#pragma once

#include <string>
#include <utility>
#include <vector>

#include "Session.h"
#include "datum/CartesianForm.h"

/// The record of a datum transformation in a section file: what of it has a meaning for its method.
struct DatumRecord {
    CString method;
    CString source; ///< names of the ellipsoids
    CString target;
    /// By key: shifts, rotations, scale, for 14 parameters rates and epoch, and the fixed heights
    /// when these are in use.
    std::vector<std::pair<CString, double>> numbers;
    bool on = true;     ///< false: positions pass unchanged
    bool moves = false; ///< rates that take effect

    DatumRecord(const FileObject& file, const CString& section);
};

/// What is different in `there` from `here`, each "KEY is A in WHERE and B in OTHER"; empty when nothing is.
std::vector<std::string> DifferencesOf(const DatumRecord& there, const std::string& where, const DatumRecord& here,
                                       const std::string& other);

/// A transformation of the database, from the file that the module takes it from: the main one first.
struct NamedDatum {
    CString name;
    const FileObject* file;
    CString section;
};

/// Finds the transformation that the user means and looks at its record. Throws ToolError: 2 when
/// the name is unknown or ambiguous, 3 with file, section, key and remedy when the record cannot
/// be used.
NamedDatum FindDatum(Session& session, const std::string& wanted);

/// The ellipsoid on which a usable record's positions stand, source or target: the database's of
/// that name, else the record's own.
CartesianForm EllipsoidOf(const DatabaseFiles& files, const NamedDatum& datum, bool target);

/// Makes transformations by name, without any system; lengths are metres.
class DatumDesk {
public:
    explicit DatumDesk(const Session& session);
    ZorGeoCoordSysBase& CoordSys() const { return *m_coordSys; }

private:
    FileObject m_project; // the coordinate system keeps a pointer to it
    std::unique_ptr<ZorGeoCoordSysBase> m_coordSys;
};
