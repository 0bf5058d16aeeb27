#pragma once

#include <string>
#include <vector>

#include "DatabaseFiles.h"

// What is wrong with single records of the database, whichever system names them. Only looks.

/// One thing that is wrong with a record.
struct RecordFlaw {
    CString key;        ///< empty: the record as a whole
    std::string what;   ///< what is wrong; names the key when there is one
    std::string remedy; ///< what would be right
};
using RecordFlaws = std::vector<RecordFlaw>;

/// "FILE: section "NAME"".
std::string PlaceOf(const FileObject& file, const CString& section);

/// The keys of a section that are missing or hold no finite number.
RecordFlaws NumberFlaws(const FileObject& file, const CString& section, const std::vector<CString>& keys);

/// The key, when it is there, is neither 1 nor 0.
RecordFlaws BooleanFlaws(const FileObject& file, const CString& section, const CString& key);

RecordFlaws EllipsoidFlaws(const FileObject& file, const CString& section);
/// Type number, and the parameters that the class of this type cannot do without.
RecordFlaws ProjectionFlaws(const FileObject& file, const CString& section);
/// The catalogue does not list the type of the projection or has no parameters of it: such a
/// projection loads nothing. Empty for a record without a type.
RecordFlaws CatalogueFlaws(const DatabaseFiles& files, const FileObject& file, const CString& section);
/// Parameters of the method and both ellipsoids, which stand in the database or, as two numbers,
/// in the record itself.
RecordFlaws DatumFlaws(const DatabaseFiles& files, const FileObject& file, const CString& section);
/// The unit's factor, in the section of units.
RecordFlaws UnitFlaws(const FileObject& file, const CString& unit);
/// A switch of a system's record and the numbers that it brings into force.
struct CorrectionSwitch {
    CString statusKey;
    std::vector<CString> keys;
};
/// Those of the post corrections.
const std::vector<CorrectionSwitch>& CorrectionSwitches();
/// The switches of a system's corrections, and the numbers that those switched on need.
RecordFlaws SwitchFlaws(const FileObject& file, const CString& section);

/// Whether a datum's ellipsoid has no record that can be used, and the numbers in the datum's own
/// record stand in for it. `target` asks for the target ellipsoid, else for the source.
bool DatumUsesOwnEllipsoid(const DatabaseFiles& files, const FileObject& file, const CString& section, bool target);
