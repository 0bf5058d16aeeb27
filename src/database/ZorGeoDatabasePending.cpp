// Operations whose slots stand before their bodies: removal and usage across projects, text
// descriptions, conversion of older projects.

#include "database/ZorGeoDatabase.h"
#include "frame/NotBuilt.h"

bool ZorGeoDatabase::IsOldZorProject(const CString&)
{
    NotBuilt("ZorGeoDatabase::IsOldZorProject");
}

bool ZorGeoDatabase::ConvertProj2Geobase(FileObject&, CString&, CString&)
{
    NotBuilt("ZorGeoDatabase::ConvertProj2Geobase");
}

bool ZorGeoDatabase::HasDtfUsedInMoreSystem(CString, unsigned)
{
    NotBuilt("ZorGeoDatabase::HasDtfUsedInMoreSystem");
}

bool ZorGeoDatabase::HasProjectionUsedInMoreSystem(CString, unsigned)
{
    NotBuilt("ZorGeoDatabase::HasProjectionUsedInMoreSystem");
}

CString ZorGeoDatabase::DumpDatumfText(CString, bool)
{
    NotBuilt("ZorGeoDatabase::DumpDatumfText");
}

CString ZorGeoDatabase::DumpElpText(CString)
{
    NotBuilt("ZorGeoDatabase::DumpElpText");
}

CString ZorGeoDatabase::DumpSystemText(CString, CString, CString, CString, CString, CString, CString)
{
    NotBuilt("ZorGeoDatabase::DumpSystemText");
}

CString ZorGeoDatabase::DumpPrjText(CString)
{
    NotBuilt("ZorGeoDatabase::DumpPrjText");
}

CString ZorGeoDatabase::DumpPrjText(CString, CString, bool)
{
    NotBuilt("ZorGeoDatabase::DumpPrjText");
}

CString ZorGeoDatabase::DumpUnitText(CString)
{
    NotBuilt("ZorGeoDatabase::DumpUnitText");
}

bool ZorGeoDatabase::RemoveSystem(CString, CString)
{
    NotBuilt("ZorGeoDatabase::RemoveSystem");
}

CString ZorGeoDatabase::DumpSystemIDText(CString, CString, CString, CString, CString, CString, CString)
{
    NotBuilt("ZorGeoDatabase::DumpSystemIDText");
}

bool ZorGeoDatabase::IsSystemCustom(CString, CString)
{
    NotBuilt("ZorGeoDatabase::IsSystemCustom");
}
