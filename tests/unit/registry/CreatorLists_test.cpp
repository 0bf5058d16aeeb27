#include "base/registry/CreatorLists.h"

#include <gtest/gtest.h>

#include <type_traits>

#include "base/registry/ZorGeoCoordSysBase.h"
#include "base/registry/ZorGeoDatabaseBase.h"
#include "base/registry/ZorGeoStaticDataBase.h"

namespace {

/// A creator that makes nothing and counts how many of its kind live.
template <typename Base, typename Product>
class CountingCreator final : public Base {
public:
    CountingCreator() { ++alive; }
    ~CountingCreator() override { --alive; }
    CountingCreator(const CountingCreator&) = delete;
    CountingCreator& operator=(const CountingCreator&) = delete;
    Product* Create() override { return nullptr; }

    static inline int alive = 0;
};

/// The three lists under one set of names, so that one set of tests holds for each.
struct CoordSysTraits {
    using Creator = CountingCreator<ZorCoordSysICreator, ZorGeoCoordSysBase>;
    static auto& List() { return ZorGeoCoordSysList::GetCoordSysList(); }
    static void Register(const CString& key, ZorCoordSysICreator* creator) { List().RegisterGeoCoordSys(key, creator); }
    static bool Unregister(const CString& key) { return List().UnRegisterGeoCoordSys(key); }
};
struct DatabaseTraits {
    using Creator = CountingCreator<GeoDatabaseICreator, ZorGeoDatabaseBase>;
    static auto& List() { return ZorGeoDatabaseBaseList::GetGeoDatabaseList(); }
    static void Register(const CString& key, GeoDatabaseICreator* creator) { List().RegisterGeoDatabase(key, creator); }
    static bool Unregister(const CString& key) { return List().UnRegisterGeoDatabase(key); }
};
struct StaticDataTraits {
    using Creator = CountingCreator<GeoStaticICreator, ZorGeoStaticDataBase>;
    static auto& List() { return ZorGeoStaticDatabaseList::GetGeoStaticDataList(); }
    static void Register(const CString& key, GeoStaticICreator* creator)
    {
        List().RegisterGeoStaicDatabase(key, creator);
    }
    static bool Unregister(const CString& key) { return List().UnRegisterGeoStaicDatabase(key); }
};

template <typename Traits>
class CreatorList : public testing::Test {
protected:
    using Creator = typename Traits::Creator;
    void TearDown() override
    {
        Traits::Unregister(L"A");
        Traits::Unregister(L"B");
        EXPECT_EQ(Traits::List().GetCount(), 0);
        EXPECT_EQ(Creator::alive, 0);
    }
};

using Lists = testing::Types<CoordSysTraits, DatabaseTraits, StaticDataTraits>;
TYPED_TEST_SUITE(CreatorList, Lists);

} // namespace

TYPED_TEST(CreatorList, IsOneForTheProcess)
{
    EXPECT_EQ(&TypeParam::List(), &TypeParam::List());
}

TYPED_TEST(CreatorList, FindsACreatorUnderItsExactKey)
{
    auto* const a = new typename TypeParam::Creator;
    auto* const b = new typename TypeParam::Creator;
    TypeParam::Register(L"A", a);
    TypeParam::Register(L"B", b);
    EXPECT_EQ(TypeParam::List().Find(L"A"), a);
    EXPECT_EQ(TypeParam::List().Find(L"B"), b);
    EXPECT_EQ(TypeParam::List().Find(L"a"), nullptr);
    EXPECT_EQ(TypeParam::List().Find(L""), nullptr);
    EXPECT_EQ(TypeParam::List().GetCount(), 2);
}

TYPED_TEST(CreatorList, ASecondCreatorReplacesAndDestroysTheFirst)
{
    auto* const second = new typename TypeParam::Creator;
    TypeParam::Register(L"A", new typename TypeParam::Creator);
    TypeParam::Register(L"A", second);
    EXPECT_EQ(TypeParam::Creator::alive, 1);
    EXPECT_EQ(TypeParam::List().Find(L"A"), second);
    EXPECT_EQ(TypeParam::List().GetCount(), 1);
}

TYPED_TEST(CreatorList, TheSameCreatorHandedOverAgainStays)
{
    auto* const creator = new typename TypeParam::Creator;
    TypeParam::Register(L"A", creator);
    TypeParam::Register(L"A", creator);
    EXPECT_EQ(TypeParam::Creator::alive, 1);
    EXPECT_EQ(TypeParam::List().Find(L"A"), creator);
}

TYPED_TEST(CreatorList, ANullCreatorChangesNothing)
{
    TypeParam::Register(L"B", nullptr);
    EXPECT_EQ(TypeParam::List().GetCount(), 0);
    auto* const creator = new typename TypeParam::Creator;
    TypeParam::Register(L"A", creator);
    TypeParam::Register(L"A", nullptr);
    EXPECT_EQ(TypeParam::List().Find(L"A"), creator);
}

TYPED_TEST(CreatorList, UnregisterDestroysAndIsFalseWhenThereIsNone)
{
    EXPECT_FALSE(TypeParam::Unregister(L"A"));
    TypeParam::Register(L"A", new typename TypeParam::Creator);
    EXPECT_TRUE(TypeParam::Unregister(L"A"));
    EXPECT_EQ(TypeParam::Creator::alive, 0);
    EXPECT_EQ(TypeParam::List().Find(L"A"), nullptr);
    EXPECT_FALSE(TypeParam::Unregister(L"A"));
}

TEST(CreatorLists, AreNotCopied)
{
    EXPECT_FALSE(std::is_copy_constructible_v<ZorGeoCoordSysList>);
    EXPECT_FALSE(std::is_copy_constructible_v<ZorGeoDatabaseBaseList>);
    EXPECT_FALSE(std::is_copy_constructible_v<ZorGeoStaticDatabaseList>);
}

TEST(BaseClasses, AreAbstractAndDestroyedThroughTheBase)
{
    EXPECT_TRUE(std::is_abstract_v<ZorGeoCoordSysBase> && std::has_virtual_destructor_v<ZorGeoCoordSysBase>);
    EXPECT_TRUE(std::is_abstract_v<ZorGeoDatabaseBase> && std::has_virtual_destructor_v<ZorGeoDatabaseBase>);
    EXPECT_TRUE(std::is_abstract_v<ZorGeoStaticDataBase> && std::has_virtual_destructor_v<ZorGeoStaticDataBase>);
    EXPECT_TRUE(std::is_abstract_v<ZorCoordSysICreator> && std::has_virtual_destructor_v<ZorCoordSysICreator>);
    EXPECT_TRUE(std::is_abstract_v<GeoDatabaseICreator> && std::has_virtual_destructor_v<GeoDatabaseICreator>);
    EXPECT_TRUE(std::is_abstract_v<GeoStaticICreator> && std::has_virtual_destructor_v<GeoStaticICreator>);
}

TEST(BaseClasses, HoldNothingButTheirTableOfOperations)
{
    EXPECT_EQ(sizeof(ZorGeoCoordSysBase), sizeof(void*));
    EXPECT_EQ(sizeof(ZorGeoDatabaseBase), sizeof(void*));
    EXPECT_EQ(sizeof(ZorGeoStaticDataBase), sizeof(void*));
    EXPECT_EQ(sizeof(ZorCoordSysICreator), sizeof(void*));
    EXPECT_EQ(sizeof(GeoDatabaseICreator), sizeof(void*));
    EXPECT_EQ(sizeof(GeoStaticICreator), sizeof(void*));
}
