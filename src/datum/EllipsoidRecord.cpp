#include "database/ZorGeoDatabase.h"
#include "datum/Ellipsoid.h"
#include "frame/ReadItem.h"

bool Ellipsoid::LoadFrom(FileObject& file, const CString& section)
{
    name = section;
    if (!file.HasSection(section)) {
        return false;
    }
    // A missing value counts as 0: Set refuses it for the axis, and for e2 it makes a sphere.
    double a = 0.0;
    double e2 = 0.0;
    ReadItem(file, section, spheroidKeys[SpheroidKey::semiMajor], a);
    ReadItem(file, section, spheroidKeys[SpheroidKey::eccSquared], e2);
    return Set(a, e2) == good;
}

// Kept: the main file answers first here, unlike the look-up of a system. A datum therefore runs
// on the delivered ellipsoid even when the user file has one of the same name.
bool Ellipsoid::LoadFromDatabase(ZorGeoDatabase& database, const CString& section)
{
    return LoadFrom(database.GetMainFile(), section) || LoadFrom(database.GetUserFile(), section);
}
