// A program that links the module and uses its exported classes by name.
#include <cmath>
#include <cstdio>

#include "base/files/FileObject.h"
#include "base/keys/KeyTables.h"
#include "base/registry/DataSearch.h"
#include "coordsys/ZORGeoCoordSys.h"
#include "datum/CDatumTransform.h"

int main()
{
    DataSearch::GetDataSearch().SetDataPath(DataSearch::deliveredDatabase, CString::FromUtf8(DATA_DIR));
    DataSearch::GetDataSearch().SetDataPath(DataSearch::userDatabase, L"./");
    FileObject project;
    project.SetItem(FORMATS_SECTION, formatParamKeys[FormatKey::unitFormat], 0.0, true);
    ZORGeoCoordSys system;
    if (!system.Init(L"North Sea", L"ED50 - UTM zone 31N (North Sea)", L"", L"", L"", L"", L"", project, L"none", true)) {
        std::fprintf(stderr, "the installed database does not give the system\n");
        return 1;
    }
    const CDatumTransform untouched;
    double latitude = 0.0;
    double longitude = 0.0;
    double height = 0.0;
    // A transformation that was never loaded passes positions through.
    if (!untouched.DoDtf(56.0, 3.0, 10.0, latitude, longitude, height, false, 0.0) || latitude != 56.0 ||
        longitude != 3.0 || height != 10.0) {
        return 1;
    }
    std::puts("the exported classes link");
    return 0;
}
