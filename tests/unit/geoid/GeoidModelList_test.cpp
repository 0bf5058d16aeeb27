#include "base/geoid/GeoidModelList.h"

#include <gtest/gtest.h>

#include <initializer_list>
#include <memory>
#include <type_traits>

#include "tests/support/TestGeoidModels.h"

namespace {

using Types = std::initializer_list<unsigned short>;

std::unique_ptr<GeoidModel> Make(unsigned short type)
{
    return std::unique_ptr<GeoidModel>(GeoidModelList::GetGeoidModelList().Create(type));
}

} // namespace

TEST(GeoidModelList, IsOneForTheProcess)
{
    EXPECT_EQ(&GeoidModelList::GetGeoidModelList(), &GeoidModelList::GetGeoidModelList());
}

TEST(GeoidModelList, MakesWhatWasRegisteredAndGivesItAway)
{
    const TestGeoidSettings settings = ConstantGeoid(43.5);
    {
        const ScopedGeoidModel<7> registered(settings);
        EXPECT_TRUE(GeoidModelList::GetGeoidModelList().Has(7));
        const auto first = Make(7);
        const auto second = Make(7);
        ASSERT_TRUE(first);
        ASSERT_TRUE(second);
        EXPECT_NE(first, second);
        EXPECT_EQ(settings.calls->made, 2);
        EXPECT_EQ(settings.calls->destroyed, 0);
    }
    EXPECT_EQ(settings.calls->destroyed, 2);
}

TEST(GeoidModelList, GivesNullForATypeWithoutAModel)
{
    const ScopedGeoidModel<7> registered(ConstantGeoid(43.5));
    for (const unsigned short type : Types{0, 1, 2, 6, 8, 31, 32, 65535}) {
        EXPECT_FALSE(Make(type)) << type;
        EXPECT_FALSE(GeoidModelList::GetGeoidModelList().Has(type)) << type;
    }
}

TEST(GeoidModelList, NullTakesTheModelsOfATypeOut)
{
    {
        const ScopedGeoidModel<31> registered(ConstantGeoid(1.0));
    }
    EXPECT_FALSE(GeoidModelList::GetGeoidModelList().Has(31));
    EXPECT_FALSE(Make(31));
    // A type that is empty already may be emptied again.
    EXPECT_TRUE(GeoidModelList::GetGeoidModelList().Register(31, nullptr));
}

TEST(GeoidModelList, ALaterMakerReplacesTheEarlier)
{
    const TestGeoidSettings settings = ConstantGeoid(1.0);
    const ScopedGeoidModel<5> registered(settings);
    EXPECT_TRUE(GeoidModelList::GetGeoidModelList().Register(5, []() -> GeoidModel* { return nullptr; }));
    EXPECT_FALSE(Make(5));
    EXPECT_EQ(settings.calls->made, 0);
}

TEST(GeoidModelList, TakesTypes2To31Alone)
{
    GeoidModelList& list = GeoidModelList::GetGeoidModelList();
    const GeoidModelList::Maker none = []() -> GeoidModel* { return nullptr; };
    for (const unsigned short type : Types{0, 1, 32, 65535}) {
        EXPECT_FALSE(list.Register(type, none)) << type;
        EXPECT_FALSE(list.Has(type)) << type;
    }
    for (const unsigned short type : Types{2, 31}) {
        EXPECT_TRUE(list.Register(type, none)) << type;
        EXPECT_TRUE(list.Has(type)) << type;
        list.Register(type, nullptr);
    }
}

TEST(GeoidModel, IsAnAbstractInterfaceDestroyedThroughItsBase)
{
    EXPECT_TRUE(std::is_abstract_v<GeoidModel>);
    EXPECT_TRUE(std::has_virtual_destructor_v<GeoidModel>);
}
