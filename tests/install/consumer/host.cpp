// A host as an application of the suite is one: loads the module, asks the list for a creator and
// works through the abstract base class.
#include <dlfcn.h>

#include <cmath>
#include <cstdio>
#include <memory>

#include "base/files/FileObject.h"
#include "base/keys/KeyTables.h"
#include "base/registry/CreatorLists.h"
#include "base/registry/DataSearch.h"
#include "base/registry/ZorGeoCoordSysBase.h"

int main()
{
    void* module = dlopen(MODULE_FILE, RTLD_NOW | RTLD_LOCAL);
    if (module == nullptr) {
        std::fprintf(stderr, "%s\n", dlerror());
        return 1;
    }
    auto* registerModule = reinterpret_cast<void (*)()>(dlsym(module, "RegisterCoordSys"));
    if (registerModule == nullptr) {
        std::fprintf(stderr, "%s\n", dlerror());
        return 1;
    }
    DataSearch::GetDataSearch().SetDataPath(DataSearch::deliveredDatabase, CString::FromUtf8(DATA_DIR));
    DataSearch::GetDataSearch().SetDataPath(DataSearch::userDatabase, L"./");
    registerModule();

    ZorCoordSysICreator* creator = ZorGeoCoordSysList::GetCoordSysList().Find(L"ZORCoordSys");
    if (creator == nullptr) {
        std::fprintf(stderr, "the module registered no creator\n");
        return 1;
    }
    const std::unique_ptr<ZorGeoCoordSysBase> system(creator->Create());

    FileObject project;
    project.SetItem(FORMATS_SECTION, formatParamKeys[FormatKey::unitFormat], 0.0, true);
    if (!system->Init(L"World", L"WGS 84 - UTM zone 31N", L"", L"", L"", L"", L"", project, L"none", true)) {
        std::fprintf(stderr, "the installed database does not give the system\n");
        return 1;
    }
    double x = 0.0;
    double y = 0.0;
    system->SatGeoToGrid(0.0, 3.0, x, y, 0.0);
    // The origin of the zone: false easting and false northing by definition.
    if (std::abs(x - 500000.0) > 1e-6 || std::abs(y) > 1e-6) {
        std::fprintf(stderr, "origin of zone 31N comes out at %.6f %.6f\n", x, y);
        return 1;
    }
    std::puts("the installed module converts");
    return 0;
}
