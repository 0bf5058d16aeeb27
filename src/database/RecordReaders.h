#pragma once

#include <array>
#include <initializer_list>

#include "frame/BaseContract.h"
#include "frame/ReadItem.h"

class CProjection;

// Readings of single records of one database file. An output whose key the record lacks stays as
// it was, where nothing else is said. None of them throws, also on a file in the mode that does.

/// A key and where its value goes.
template <typename Value>
struct WantedItem {
    const CString& key;
    Value& value;
};

/// Reads keys of one section; nothing when `file` is null.
template <typename Value>
void ReadItems(const FileObject* file, const CString& section, std::initializer_list<WantedItem<Value>> wanted)
{
    if (!file) {
        return;
    }
    for (const WantedItem<Value>& item : wanted) {
        ReadItem(*file, section, item.key, item.value);
    }
}

/// The texts of a system record by which it refers to other records.
struct SystemInfo {
    CString datum;
    CString unit;
    CString ellipsoid;
    CString geoidMethod;
    CString projection;
    CString description;
};

/// Where the values of a datum transformation record go.
struct DatumRecordView {
    CString& method;
    CString& source;
    CString& target;
    /// Shift X, Y, Z (metres), rotation X, Y, Z (arc seconds), scale (ppm), the seven rates of
    /// these per year, and the epoch.
    std::array<double*, 15> numbers;
    bool& fixedHeight;
    double& fixedHeightForward;
    double& fixedHeightReverse;
};

/// What came of loading a projection from its record.
enum class ProjectionLoad {
    loaded,
    refused,   ///< record, ellipsoid or catalogue will not do; it lists the constants that it has
    unlistable ///< the catalogue has no place for one of the constants; they are not complete
};

/// Whether `group` lists `system`, in any case of letters.
bool FindSystem(const FileObject& file, const CString& group, const CString& system);
/// Reads what a system record names; nothing when there is no such record.
void LoadSystemInfo(const FileObject& file, const CString& system, SystemInfo& info);
/// Text of unit `name`, in any case of letters, and its name as spelt in the file. False, outputs
/// untouched, when there is none.
bool FindUnit(const FileObject& file, const CString& name, CString& value, CString& key);
/// Semi-major axis (metres) and squared eccentricity. False, outputs untouched, when the record
/// or one of the two is missing.
bool FindElpsoid(const FileObject& file, const CString& name, double& semiMajor, double& eccSquared);
/// Target ellipsoid of a datum transformation. False, output untouched, when it cannot be read.
bool FindTargetElp(const FileObject& file, const CString& dtfName, CString& target);
/// The section of a datum transformation in the older style of names: "Dtf-A - B:C" is kept as
/// "Dtf-A - C". A name that does not have that form comes back as it is.
CString ShortenedDatumSection(CString section);
/// Reads a datum transformation record. False, outputs untouched, when there is none.
/// Rates, epoch, fixed height and its two values are 0 when the record lacks them.
/// Kept: see the shortened name at the body.
bool FindDtfByName(const FileObject& file, const CString& name, const DatumRecordView& out);
/// Lets `projection`, new, load itself from its record.
ProjectionLoad LoadProjection(CProjection& projection, const FileObject& file, const CString& section);
/// The constants of a projection record, as CProjection::GetProjectionConstants gives them without
/// an ellipsoid. False, outputs untouched, when there is no class for its type, 0 when it tells
/// none, or no place in the catalogue for one of the constants.
bool ReadProjectionConstants(const FileObject& file, const CString& section, CArray<double, double>& values,
                             CStringArray& names, CStringArray& texts, CArray<UINT, UINT>& kinds);
