#include "base/geoid/GeoidModelList.h"

#include "base/keys/KeyTables.h"

GeoidModelList& GeoidModelList::GetGeoidModelList()
{
    static GeoidModelList list;
    return list;
}

GeoidModel* GeoidModelList::Create(const unsigned short& type) const
{
    const auto maker = m_makers.find(type);
    return maker == m_makers.end() ? nullptr : maker->second();
}

bool GeoidModelList::Register(unsigned short type, Maker maker)
{
    if (type < GeoidType::firstModel || type > GeoidType::lastModel) {
        return false;
    }
    if (maker == nullptr) {
        m_makers.erase(type);
    } else {
        m_makers[type] = maker;
    }
    return true;
}

bool GeoidModelList::Has(unsigned short type) const
{
    return m_makers.contains(type);
}
