#include "convert/FixedNumber.h"

#include <charconv>
#include <cmath>
#include <limits>
#include <random>
#include <string>

#include <gtest/gtest.h>

namespace {

std::string Fixed(double value, int decimals)
{
    char room[kFixedNumberRoom];
    return std::string(room, WriteFixed(room, value, decimals));
}

std::string ByStandard(double value, int decimals)
{
    char room[kFixedNumberRoom];
    return std::string(room, std::to_chars(room, room + sizeof room, value, std::chars_format::fixed, decimals).ptr);
}

} // namespace

TEST(FixedNumber, WritesWhatTheStandardWrites)
{
    std::mt19937_64 random(20240701);
    std::uniform_real_distribution<double> mantissa(0.0, 1.0);
    for (int i = 0; i < 300000; ++i) {
        const int decimals = static_cast<int>(random() % (kMostDecimals + 1));
        const double value = std::ldexp(mantissa(random), static_cast<int>(random() % 80) - 40);
        ASSERT_EQ(Fixed(value, decimals), ByStandard(value, decimals)) << decimals;
        if (ByStandard(-value, decimals).find_first_not_of("-0.") != std::string::npos) {
            ASSERT_EQ(Fixed(-value, decimals), ByStandard(-value, decimals)) << decimals;
        }
    }
}

TEST(FixedNumber, RoundsTiesFromTheExactBinaryValue)
{
    struct Row {
        double value;
        int decimals;
        const char* text;
    };
    // 0.5, 2.5 and 0.125 are exact: ties go to even. 1.005 and 8.345 are not: what they really
    // are decides.
    constexpr Row kRows[] = {{0.5, 0, "0"},
                             {1.5, 0, "2"},
                             {2.5, 0, "2"},
                             {0.125, 2, "0.12"},
                             {0.375, 2, "0.38"},
                             {1.005, 2, "1.00"},
                             {8.345, 2, "8.35"},
                             {999.9995, 3, "1000.000"},
                             {0.9999999999, 3, "1.000"}};
    for (const Row& row : kRows) {
        EXPECT_EQ(Fixed(row.value, row.decimals), row.text) << row.value;
    }
}

TEST(FixedNumber, NothingHasNoSign)
{
    EXPECT_EQ(Fixed(-0.0, 3), "0.000");
    EXPECT_EQ(Fixed(-0.0004, 3), "0.000");
    EXPECT_EQ(Fixed(-0.0005, 3), "-0.001"); // the double is a little more than five
    EXPECT_EQ(Fixed(-0.5, 0), "0");
    EXPECT_EQ(Fixed(-1e-300, 15), "0.000000000000000");
}

TEST(FixedNumber, LargestNumbersFit)
{
    EXPECT_EQ(Fixed(std::numeric_limits<double>::max(), 15).size(), 309U + 1U + 15U);
    EXPECT_EQ(Fixed(-1e22, 1), "-10000000000000000000000.0");
    EXPECT_EQ(Fixed(2251799813685249.5, 1), "2251799813685249.5");
}
