#include "base/geoid/GeoidModelList.h"

#include <utility>

#include "base/geoid/GridModel.h"
#include "base/keys/KeyTables.h"

namespace {

template <unsigned short type>
GeoidModel* MakeGridModel()
{
    return new GridModel(type);
}

// A maker per type, in the order of the types.
template <std::size_t... places>
constexpr auto GridModelMakers(std::index_sequence<places...>)
{
    return std::array<GeoidModelList::Maker, sizeof...(places)>{
        &MakeGridModel<static_cast<unsigned short>(GeoidType::firstModel + places)>...};
}

constexpr auto kGridModelMakers =
    GridModelMakers(std::make_index_sequence<GeoidType::lastModel - GeoidType::firstModel + 1>());

} // namespace

GeoidModelList::GeoidModelList()
{
    unsigned short type = GeoidType::firstModel;
    for (const Maker maker : kGridModelMakers) {
        m_makers[type++] = maker;
    }
}

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

GeoidModelList::Maker GeoidModelList::MakerOf(unsigned short type) const
{
    const auto maker = m_makers.find(type);
    return maker == m_makers.end() ? nullptr : maker->second;
}
