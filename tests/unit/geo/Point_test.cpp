#include "base/geo/Point.h"

#include <gtest/gtest.h>

TEST(Point, HoldsThreeDoublesInOrder)
{
    const Point origin;
    EXPECT_EQ(origin.x, 0.0);
    EXPECT_EQ(origin.y, 0.0);
    EXPECT_EQ(origin.z, 0.0);
    const auto [x, y, z] = Point(1.0, 2.0, 3.0);
    EXPECT_EQ(x, 1.0);
    EXPECT_EQ(y, 2.0);
    EXPECT_EQ(z, 3.0);
}
