#include "projections/EvenSines.h"

#include <gtest/gtest.h>

#include <cmath>

namespace {

TEST(EvenSines, IsTheSumOfTheSines)
{
    const double a[] = {2.5e-3, -3.5e-5, 0.25, -1.0};
    const EvenSines sum(a[0], a[1], a[2], a[3]);
    for (double x = -7.0; x <= 7.0; x += 0.01) {
        const double expected =
            a[0] * std::sin(2.0 * x) + a[1] * std::sin(4.0 * x) + a[2] * std::sin(6.0 * x) + a[3] * std::sin(8.0 * x);
        EXPECT_NEAR(sum(std::sin(x), std::cos(x)), expected, 1e-14) << x;
    }
}

TEST(EvenSines, IsNothingWithoutCoefficients)
{
    EXPECT_EQ(EvenSines()(0.6, 0.8), 0.0);
}

} // namespace
