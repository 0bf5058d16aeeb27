#pragma once

#include <vector>

#include "projections/CProjection.h"

/// Conversions of a projection by value, for tests.
struct GridPosition {
    double easting = 0.0;
    double northing = 0.0;
};
struct GeoPosition {
    double latitude = 0.0;
    double longitude = 0.0;
};

inline GridPosition ToGrid(const CProjection& projection, double latitude, double longitude)
{
    GridPosition grid;
    projection.GeoToGrid(latitude, longitude, grid.easting, grid.northing);
    return grid;
}

inline GeoPosition ToGeo(const CProjection& projection, double easting, double northing)
{
    GeoPosition geo;
    projection.GridToGeo(easting, northing, geo.latitude, geo.longitude);
    return geo;
}

inline double ConvergenceAt(const CProjection& projection, double easting, double northing)
{
    double convergence = 1e9;
    projection.GridConvergence(easting, northing, convergence);
    return convergence;
}

/// The constants of a projection as vectors.
struct ConstantsOf {
    std::vector<double> values;
    std::vector<CString> names;
    std::vector<CString> texts;
    std::vector<UINT> kinds;

    explicit ConstantsOf(const CProjection& projection)
    {
        CArray<double, double> v;
        CStringArray n;
        CStringArray t;
        CArray<UINT, UINT> k;
        projection.GetProjectionConstants(v, n, t, k);
        values.assign(v.begin(), v.end());
        names.assign(n.begin(), n.end());
        texts.assign(t.begin(), t.end());
        kinds.assign(k.begin(), k.end());
    }
};

/// The keys of a section in the file's order.
inline std::vector<CString> KeysOf(FileObject& file, const CString& section)
{
    std::vector<CString> keys;
    FobjSection cursor;
    CString key;
    CString value;
    for (bool more = file.GetFirstMapEntry(cursor, section, key, value); more;
         more = file.GetNextMapEntry(cursor, key, value)) {
        keys.push_back(key);
    }
    return keys;
}
