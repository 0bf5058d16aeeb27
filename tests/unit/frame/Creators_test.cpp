#include "frame/Creators.h"

#include <gtest/gtest.h>

#include <memory>

#include "database/ZorGeoDatabase.h"

namespace {

/// A class whose objects can be told to need more memory than there is.
class Greedy : public ZorGeoDatabase {
public:
    Greedy()
    {
        if (outOfMemory) {
            throw std::bad_alloc();
        }
    }
    static inline bool outOfMemory = false;
};

} // namespace

TEST(Creators, MakeANewObjectAtEachCall)
{
    ZorGeoDatabaseCreator<ZorGeoDatabase> creator;
    GeoDatabaseICreator& asSeen = creator;
    const std::unique_ptr<ZorGeoDatabaseBase> first(asSeen.Create());
    const std::unique_ptr<ZorGeoDatabaseBase> second(asSeen.Create());
    EXPECT_NE(dynamic_cast<ZorGeoDatabase*>(first.get()), nullptr);
    EXPECT_NE(first.get(), second.get());
}

TEST(Creators, GiveNullWhenMemoryIsShort)
{
    ZorGeoDatabaseCreator<Greedy> creator;
    Greedy::outOfMemory = true;
    EXPECT_EQ(creator.Create(), nullptr);
    Greedy::outOfMemory = false;
    EXPECT_NE(std::unique_ptr<ZorGeoDatabaseBase>(creator.Create()), nullptr);
}

TEST(Creators, HoldNothingButTheirOperations)
{
    EXPECT_EQ(sizeof(ZorGeoDatabaseCreator<ZorGeoDatabase>), sizeof(void*));
}
