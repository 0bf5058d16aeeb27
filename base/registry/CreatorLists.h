#pragma once

#include <map>
#include <memory>

#include "base/Export.h"
#include "base/registry/Creators.h"
#include "base/text/CString.h"

// The three process-wide lists through which hosts get objects from whichever module
// registered. Register takes the creator over, in place of an earlier one under that key, which
// it destroys; a null creator changes nothing. Unregister destroys the creator, and is false when
// there was none. Keys are exact. "Staic" is the operation's spelling.

class ZORBASE_API ZorGeoCoordSysList {
public:
    static ZorGeoCoordSysList& GetCoordSysList();
    ZorGeoCoordSysList(const ZorGeoCoordSysList&)            = delete;
    ZorGeoCoordSysList& operator=(const ZorGeoCoordSysList&) = delete;

    void RegisterGeoCoordSys(CString key, ZorCoordSysICreator* creator);
    bool UnRegisterGeoCoordSys(CString key);
    /// The creator under `key`, still owned by the list; null when there is none.
    ZorCoordSysICreator* Find(const CString& key) const;
    int GetCount() const;

private:
    ZorGeoCoordSysList();
    std::map<CString, std::unique_ptr<ZorCoordSysICreator>> m_creators;
};

class ZORBASE_API ZorGeoDatabaseBaseList {
public:
    static ZorGeoDatabaseBaseList& GetGeoDatabaseList();
    ZorGeoDatabaseBaseList(const ZorGeoDatabaseBaseList&)            = delete;
    ZorGeoDatabaseBaseList& operator=(const ZorGeoDatabaseBaseList&) = delete;

    void RegisterGeoDatabase(CString key, GeoDatabaseICreator* creator);
    bool UnRegisterGeoDatabase(CString key);
    GeoDatabaseICreator* Find(const CString& key) const;
    int GetCount() const;

private:
    ZorGeoDatabaseBaseList();
    std::map<CString, std::unique_ptr<GeoDatabaseICreator>> m_creators;
};

class ZORBASE_API ZorGeoStaticDatabaseList {
public:
    static ZorGeoStaticDatabaseList& GetGeoStaticDataList();
    ZorGeoStaticDatabaseList(const ZorGeoStaticDatabaseList&)            = delete;
    ZorGeoStaticDatabaseList& operator=(const ZorGeoStaticDatabaseList&) = delete;

    void RegisterGeoStaicDatabase(CString key, GeoStaticICreator* creator);
    bool UnRegisterGeoStaicDatabase(CString key);
    GeoStaticICreator* Find(const CString& key) const;
    int GetCount() const;

private:
    ZorGeoStaticDatabaseList();
    std::map<CString, std::unique_ptr<GeoStaticICreator>> m_creators;
};
