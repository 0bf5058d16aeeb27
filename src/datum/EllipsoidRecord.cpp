#include "database/ZorGeoDatabase.h"
#include "datum/Ellipsoid.h"

bool Ellipsoid::LoadFrom(FileObject& file, const CString& section)
{
    name = section;
    if (!file.HasSection(section)) {
        return false;
    }
    double a = 0.0;
    double e2 = 0.0;
    try {
        file.GetItem(section, spheroidKeys[SpheroidKey::semiMajor], a);
        file.GetItem(section, spheroidKeys[SpheroidKey::eccSquared], e2);
    } catch (const CString&) {
        // A datum record that could not be read leaves its file in the mode that throws; here a
        // missing value counts as 0, which Set refuses.
    }
    return Set(a, e2) == good;
}

// Kept: the main file answers first here, unlike the look-up of a system. A datum therefore runs
// on the delivered ellipsoid even when the user file has one of the same name.
bool Ellipsoid::LoadFromDatabase(ZorGeoDatabase& database, const CString& section)
{
    return LoadFrom(database.GetMainFile(), section) || LoadFrom(database.GetUserFile(), section);
}
