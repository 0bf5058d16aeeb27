#include "projections/SmallArgument.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace {

constexpr double kRelative = 4.5e-16; // two units of the last place

template <class Fast, class Library>
void ExpectAgrees(Fast fast, Library library, double end)
{
    for (int i = -1000; i <= 1000; ++i) {
        const double x = end * i / 1000.0;
        const double expected = static_cast<double>(library(static_cast<long double>(x)));
        EXPECT_NEAR(fast(x), expected, kRelative * std::fabs(expected)) << x;
    }
}

// Twice the bound: within it the series answers, beyond it the library.
TEST(SmallArgument, AgreesWithTheLibraryOnBothSidesOfTheBounds)
{
    using namespace SmallArgument;
    ExpectAgrees(
        Atanh, [](long double x) { return std::atanh(x); }, 2.0 * kBoundOfAtanh);
    ExpectAgrees(
        Atan, [](long double x) { return std::atan(x); }, 2.0 * kBound);
    ExpectAgrees(
        Tanh, [](long double x) { return std::tanh(x); }, 2.0 * kBound);
    ExpectAgrees(
        Tan, [](long double x) { return std::tan(x); }, 2.0 * kBound);
}

TEST(SmallArgument, LeavesTheRestToTheLibrary)
{
    EXPECT_EQ(SmallArgument::Atanh(1.0), std::numeric_limits<double>::infinity());
    EXPECT_EQ(SmallArgument::Tanh(-1e300), -1.0);
    EXPECT_EQ(SmallArgument::Atan(1.0), std::atan(1.0));
    EXPECT_EQ(SmallArgument::Tan(1.0), std::tan(1.0));
    for (const auto function : {SmallArgument::Atanh, SmallArgument::Atan, SmallArgument::Tanh, SmallArgument::Tan}) {
        EXPECT_TRUE(std::isnan(function(std::numeric_limits<double>::quiet_NaN())));
    }
    EXPECT_TRUE(std::isnan(SmallArgument::Atanh(1.5)));
}

TEST(SmallArgument, KeepsTheSignOfZero)
{
    EXPECT_TRUE(std::signbit(SmallArgument::Atanh(-0.0)));
    EXPECT_FALSE(std::signbit(SmallArgument::Tanh(0.0)));
}

} // namespace
