#include "base/geoid/GeoidModelList.h"

#include <gtest/gtest.h>

#include <initializer_list>
#include <memory>
#include <sstream>
#include <type_traits>

#include "base/geoid/GridModel.h"
#include "base/keys/KeyTables.h"
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

TEST(GeoidModelList, GivesNullForATypeThatIsNoModel)
{
    for (const unsigned short type : Types{0, 1, 32, 65535}) {
        EXPECT_FALSE(Make(type)) << type;
        EXPECT_FALSE(GeoidModelList::GetGeoidModelList().Has(type)) << type;
        EXPECT_EQ(GeoidModelList::GetGeoidModelList().MakerOf(type), nullptr) << type;
    }
}

TEST(GeoidModelList, ServesEveryTypeByGridFilesFromTheStart)
{
    for (unsigned short type = GeoidType::firstModel; type <= GeoidType::lastModel; ++type) {
        EXPECT_TRUE(GeoidModelList::GetGeoidModelList().Has(type)) << type;
        const auto model = Make(type);
        ASSERT_TRUE(dynamic_cast<GridModel*>(model.get())) << type;
        std::wostringstream xml;
        model->DumpXml(xml, L"");
        EXPECT_EQ(CString(xml.str()),
                  L"<geoidmodel>\n  <name>" + GeoidmodelTypeKeys[type] + L"</name>\n</geoidmodel>\n");
    }
}

TEST(GeoidModelList, NullTakesTheModelsOfATypeOut)
{
    {
        const ScopedNoGeoidModel<31> empty;
        EXPECT_FALSE(GeoidModelList::GetGeoidModelList().Has(31));
        EXPECT_FALSE(Make(31));
        // A type that is empty already may be emptied again.
        EXPECT_TRUE(GeoidModelList::GetGeoidModelList().Register(31, nullptr));
    }
    EXPECT_TRUE(Make(31));
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
        const GeoidModelList::Maker before = list.MakerOf(type);
        EXPECT_TRUE(list.Register(type, none)) << type;
        EXPECT_TRUE(list.Has(type)) << type;
        EXPECT_EQ(list.MakerOf(type), none) << type;
        list.Register(type, before);
    }
}

TEST(GeoidModel, IsAnAbstractInterfaceDestroyedThroughItsBase)
{
    EXPECT_TRUE(std::is_abstract_v<GeoidModel>);
    EXPECT_TRUE(std::has_virtual_destructor_v<GeoidModel>);
}
