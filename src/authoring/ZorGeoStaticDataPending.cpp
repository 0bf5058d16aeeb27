// Operations whose slots stand before their bodies: the writer into the user database, the
// comparison with the database, the description text.

#include "authoring/ZorGeoStaticData.h"
#include "frame/NotBuilt.h"

bool ZorGeoStaticData::SaveDataToDB()
{
    NotBuilt("ZorGeoStaticData::SaveDataToDB");
}

int ZorGeoStaticData::CheckSystemIsEqual(ZorGeoDatabaseBase*)
{
    NotBuilt("ZorGeoStaticData::CheckSystemIsEqual");
}

int ZorGeoStaticData::CheckDtfIsEqual(ZorGeoDatabaseBase*)
{
    NotBuilt("ZorGeoStaticData::CheckDtfIsEqual");
}

int ZorGeoStaticData::CheckProjectionIsEqual(ZorGeoDatabaseBase*)
{
    NotBuilt("ZorGeoStaticData::CheckProjectionIsEqual");
}

CString ZorGeoStaticData::DumpSysinfoText()
{
    NotBuilt("ZorGeoStaticData::DumpSysinfoText");
}
