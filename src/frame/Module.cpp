// The entry of the module. The only file that knows every class.

#include "frame/Module.h"

#include "authoring/ZorGeoStaticData.h"
#include "coordsys/ZORGeoCoordSys.h"
#include "database/ZorGeoDatabase.h"
#include "frame/BaseContract.h"
#include "frame/Creators.h"
#include "frame/RecordNames.h"
#include "resources/StringTable.h"

namespace {

#if !defined(_WIN32)
/// Makes the module's texts reachable while it is loaded. (On Windows they are resources of the
/// library.)
class LoadedTexts {
public:
    LoadedTexts() { ZORSUITE::LoadDLLResourceDLL(this, ModuleStringTable()); }
    ~LoadedTexts() { ZORSUITE::UnloadDLLResourceDLL(this); }
    LoadedTexts(const LoadedTexts&) = delete;
    LoadedTexts& operator=(const LoadedTexts&) = delete;
};
const LoadedTexts loadedTexts;
#endif

bool coordSysNotRegistered = true;

} // namespace

void RegisterCoordSys()
{
    if (!coordSysNotRegistered) {
        return;
    }
    ZorGeoCoordSysList::GetCoordSysList().RegisterGeoCoordSys(kModuleKey, new ZorCoordSysCreator<ZORGeoCoordSys>);
    ZorGeoStaticDatabaseList::GetGeoStaticDataList().RegisterGeoStaicDatabase(
        kModuleKey, new ZorGeoStaticbaseCreator<ZorGeoStaticData>);
    ZorGeoDatabaseBaseList::GetGeoDatabaseList().RegisterGeoDatabase(kModuleKey,
                                                                     new ZorGeoDatabaseCreator<ZorGeoDatabase>);
    coordSysNotRegistered = false;
}

void UnRegisterCoordSys()
{
    // Kept: the order differs from that of registering, and the guard stays down, so that a
    // process that has unregistered does not register again.
    ZorGeoCoordSysList::GetCoordSysList().UnRegisterGeoCoordSys(kModuleKey);
    ZorGeoDatabaseBaseList::GetGeoDatabaseList().UnRegisterGeoDatabase(kModuleKey);
    ZorGeoStaticDatabaseList::GetGeoStaticDataList().UnRegisterGeoStaicDatabase(kModuleKey);
}
