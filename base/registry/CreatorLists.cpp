#include "base/registry/CreatorLists.h"

namespace {

template <typename Creator>
using Creators = std::map<CString, std::unique_ptr<Creator>>;

template <typename Creator>
void Put(Creators<Creator>& creators, const CString& key, Creator* creator)
{
    // The creator that stands there may be handed over once more; resetting would destroy it.
    if (creator != nullptr && creators[key].get() != creator) {
        creators[key].reset(creator);
    }
}

template <typename Creator>
Creator* Get(const Creators<Creator>& creators, const CString& key)
{
    const auto entry = creators.find(key);
    return entry == creators.end() ? nullptr : entry->second.get();
}

// The lists live until the process ends and are not destroyed then: the code of a creator that
// was never unregistered may have been unloaded with its module.
template <typename List, typename Make>
List& Immortal(Make make)
{
    static List* const list = make();
    return *list;
}

} // namespace

ZorGeoCoordSysList::ZorGeoCoordSysList() = default;

ZorGeoCoordSysList& ZorGeoCoordSysList::GetCoordSysList()
{
    return Immortal<ZorGeoCoordSysList>([] { return new ZorGeoCoordSysList; });
}

void ZorGeoCoordSysList::RegisterGeoCoordSys(CString key, ZorCoordSysICreator* creator)
{
    Put(m_creators, key, creator);
}

bool ZorGeoCoordSysList::UnRegisterGeoCoordSys(CString key)
{
    return m_creators.erase(key) != 0;
}

ZorCoordSysICreator* ZorGeoCoordSysList::Find(const CString& key) const
{
    return Get(m_creators, key);
}

int ZorGeoCoordSysList::GetCount() const
{
    return static_cast<int>(m_creators.size());
}

ZorGeoDatabaseBaseList::ZorGeoDatabaseBaseList() = default;

ZorGeoDatabaseBaseList& ZorGeoDatabaseBaseList::GetGeoDatabaseList()
{
    return Immortal<ZorGeoDatabaseBaseList>([] { return new ZorGeoDatabaseBaseList; });
}

void ZorGeoDatabaseBaseList::RegisterGeoDatabase(CString key, GeoDatabaseICreator* creator)
{
    Put(m_creators, key, creator);
}

bool ZorGeoDatabaseBaseList::UnRegisterGeoDatabase(CString key)
{
    return m_creators.erase(key) != 0;
}

GeoDatabaseICreator* ZorGeoDatabaseBaseList::Find(const CString& key) const
{
    return Get(m_creators, key);
}

int ZorGeoDatabaseBaseList::GetCount() const
{
    return static_cast<int>(m_creators.size());
}

ZorGeoStaticDatabaseList::ZorGeoStaticDatabaseList() = default;

ZorGeoStaticDatabaseList& ZorGeoStaticDatabaseList::GetGeoStaticDataList()
{
    return Immortal<ZorGeoStaticDatabaseList>([] { return new ZorGeoStaticDatabaseList; });
}

void ZorGeoStaticDatabaseList::RegisterGeoStaicDatabase(CString key, GeoStaticICreator* creator)
{
    Put(m_creators, key, creator);
}

bool ZorGeoStaticDatabaseList::UnRegisterGeoStaicDatabase(CString key)
{
    return m_creators.erase(key) != 0;
}

GeoStaticICreator* ZorGeoStaticDatabaseList::Find(const CString& key) const
{
    return Get(m_creators, key);
}

int ZorGeoStaticDatabaseList::GetCount() const
{
    return static_cast<int>(m_creators.size());
}
