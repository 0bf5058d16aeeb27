#include "base/text/Numbers.h"

#include <gtest/gtest.h>

#include <bit>
#include <climits>
#include <clocale>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <limits>
#include <random>
#include <string>

namespace {

constexpr double infinity = std::numeric_limits<double>::infinity();

struct Written {
    double value;
    const char* text;
};

const Written written[] = {
    {0.0, "0"},
    {-0.0, "-0"},
    {1.0, "1"},
    {0.1, "0.1"},
    {0.9996012717, "0.9996012717"},
    {6378137.0, "6378137"},
    {-6356752.314245179, "-6356752.314245179"},
    {1.0 / 3, "0.3333333333333333"},
    {1e23, "1e+23"},
    {5e-324, "5e-324"},
    {1.7976931348623157e308, "1.7976931348623157e+308"},
    {-2.2250738585072014e-308, "-2.2250738585072014e-308"},
    {infinity, "inf"},
    {-infinity, "-inf"},
    {std::numeric_limits<double>::quiet_NaN(), "nan"},
    {-std::numeric_limits<double>::quiet_NaN(), "nan"},
};

TEST(Numbers, WritesTheShortestText)
{
    for (const Written& row : written) {
        EXPECT_EQ(numbers::ToText(row.value), row.text);
        double back = 0;
        EXPECT_TRUE(numbers::Read(row.text, back)) << row.text;
        EXPECT_TRUE(back == row.value || std::isnan(row.value)) << row.text;
        EXPECT_TRUE(std::signbit(back) == std::signbit(row.value) || std::isnan(row.value)) << row.text;
        EXPECT_EQ(std::isnan(back), std::isnan(row.value)) << row.text;
    }
}

TEST(Numbers, EveryDoubleReadsBackTheSame)
{
    std::mt19937_64 random(3);
    for (int i = 0; i < 100000; ++i) {
        const double value = std::bit_cast<double>(random());
        if (!std::isfinite(value)) {
            continue;
        }
        const std::string text = numbers::ToText(value);
        double back = 0;
        ASSERT_TRUE(numbers::Read(text, back)) << text;
        ASSERT_EQ(std::bit_cast<std::uint64_t>(back), std::bit_cast<std::uint64_t>(value)) << text;
        // The C library reads the same number from it.
        ASSERT_EQ(std::strtod(text.c_str(), nullptr), value) << text;
    }
}

struct Readable {
    const char* text;
    double value;
};

const Readable readable[] = {
    {"1", 1},
    {"+1", 1},
    {"-1.5", -1.5},
    {".5", 0.5},
    {"5.", 5},
    {"1e3", 1000},
    {"1E+3", 1000},
    {"-1e-3", -0.001},
    {" \t1.5\r\n", 1.5},
    {"007", 7},
    {"inf", infinity},
    {"-INF", -infinity},
    {"+Inf", infinity},
    {"infinity", infinity},
    {"0e999999", 0},
    {"4.9406564584124654e-324", 5e-324},
    {"0.1000000000000000055511151231257827021181583404541015625", 0.1},
};

TEST(Numbers, ReadsDecimals)
{
    for (const Readable& row : readable) {
        double value = 9.5;
        EXPECT_TRUE(numbers::Read(row.text, value)) << row.text;
        EXPECT_EQ(value, row.value) << row.text;
    }
    double value = 0;
    EXPECT_TRUE(numbers::Read("NaN", value));
    EXPECT_TRUE(std::isnan(value));
}

TEST(Numbers, RefusesWhatIsNoDecimalWhole)
{
    for (const char* text : {"",
                             " ",
                             "x",
                             "1x",
                             "1 2",
                             "1,5",
                             "1.5.5",
                             "--1",
                             "+-1",
                             "-+1",
                             "++1",
                             "1e",
                             "1e+",
                             "e5",
                             ".",
                             "+",
                             "-",
                             "0x10",
                             "1e999",
                             "-1e999",
                             "1e-400",
                             "-1e-999999999",
                             "infin",
                             "nan(1)",
                             "1.5f",
                             "1'000",
                             "1_0",
                             "\xC2\xA0"
                             "1",
                             "1e5.5"}) {
        double value = 9.5;
        EXPECT_FALSE(numbers::Read(text, value)) << text;
        EXPECT_EQ(value, 9.5) << text;
    }
    double value = 9.5;
    EXPECT_FALSE(numbers::Read(std::string_view("1\0", 2), value));
    EXPECT_EQ(value, 9.5);
}

TEST(Numbers, AFloatHasItsOwnRange)
{
    float value = 9.5F;
    EXPECT_FALSE(numbers::Read("1e39", value));
    EXPECT_FALSE(numbers::Read("1e-46", value));
    EXPECT_EQ(value, 9.5F);
    EXPECT_TRUE(numbers::Read("0.1", value));
    EXPECT_EQ(value, 0.1F);
    EXPECT_TRUE(numbers::Read("-3.4028235e38", value));
    EXPECT_EQ(value, -std::numeric_limits<float>::max());
    EXPECT_TRUE(numbers::Read("0", value));
    EXPECT_EQ(value, 0.0F);
}

template <typename Number>
class Integers : public testing::Test {
};
using IntegerTypes = testing::Types<int, long, long long, unsigned, unsigned long, unsigned long long>;
TYPED_TEST_SUITE(Integers, IntegerTypes);

TYPED_TEST(Integers, ReadTheirRangeAndNoMore)
{
    using Limits = std::numeric_limits<TypeParam>;
    for (const TypeParam limit : {Limits::min(), Limits::max(), TypeParam{0}, TypeParam{42}}) {
        TypeParam value = 7;
        EXPECT_TRUE(numbers::Read(std::to_string(limit), value));
        EXPECT_EQ(value, limit);
        EXPECT_TRUE(numbers::Read(" " + std::to_string(limit) + "\n", value));
    }
    TypeParam value = 7;
    EXPECT_TRUE(numbers::Read("+5", value));
    EXPECT_EQ(value, TypeParam{5});
    EXPECT_TRUE(numbers::Read("007", value));
    EXPECT_EQ(value, TypeParam{7});
    // One digit more than the largest.
    EXPECT_FALSE(numbers::Read(std::to_string(Limits::max()) + "0", value));
    EXPECT_FALSE(numbers::Read("99999999999999999999999999", value));
    EXPECT_FALSE(numbers::Read("-99999999999999999999999999", value));
    for (const char* text : {"", " ", "x", "1x", "1.0", "1e3", "--1", "+-1", "+", "-", "0x10", "1 2"}) {
        EXPECT_FALSE(numbers::Read(text, value)) << text;
    }
    EXPECT_EQ(value, TypeParam{7});
    EXPECT_EQ(numbers::Read("-1", value), std::is_signed_v<TypeParam>);
}

TEST(Numbers, AnIntStopsAtItsLastValue)
{
    int value = 7;
    EXPECT_FALSE(numbers::Read("2147483648", value));
    EXPECT_FALSE(numbers::Read("-2147483649", value));
    unsigned positive = 7;
    EXPECT_FALSE(numbers::Read("4294967296", positive));
    EXPECT_EQ(value, 7);
    EXPECT_EQ(positive, 7U);
}

TEST(Numbers, ReadsTruth)
{
    for (const char* text : {"1", "true", "True", "TRUE", " 1 "}) {
        bool value = false;
        EXPECT_TRUE(numbers::Read(text, value)) << text;
        EXPECT_TRUE(value) << text;
    }
    for (const char* text : {"0", "false", "False", "FALSE", "\t0"}) {
        bool value = true;
        EXPECT_TRUE(numbers::Read(text, value)) << text;
        EXPECT_FALSE(value) << text;
    }
    for (const char* text : {"", "2", "-1", "01", "yes", "t", "truee", "1.0"}) {
        bool value = true;
        EXPECT_FALSE(numbers::Read(text, value)) << text;
        value = false;
        EXPECT_FALSE(numbers::Read(text, value)) << text;
        EXPECT_FALSE(value) << text;
    }
}

TEST(Numbers, NoLocaleChangesThem)
{
    const std::string before = std::setlocale(LC_ALL, nullptr);
    for (const char* name : {"de_DE.UTF-8", "de_DE.utf8", "de_DE", "fr_FR.UTF-8", "nl_NL.UTF-8", "German"}) {
        if (std::setlocale(LC_ALL, name) != nullptr) {
            break;
        }
    }
    const std::string text = numbers::ToText(1234.5);
    double value = 0;
    const bool point = numbers::Read("1234.5", value);
    double other = 0;
    const bool comma = numbers::Read("1234,5", other);
    std::setlocale(LC_ALL, before.c_str());

    EXPECT_EQ(text, "1234.5");
    EXPECT_TRUE(point);
    EXPECT_EQ(value, 1234.5);
    EXPECT_FALSE(comma);
}

TEST(Numbers, TheLeadingIntegerIsAtois)
{
    for (const char* text : {"", "7", "-7", "+7", "  \t\n12", "31U", "Zone 31", "- 7", "--7", "+-7", "00012", "7.9",
                             "1e3", "2147483647", "-2147483648", "0x10", "  3 E)"}) {
        EXPECT_EQ(numbers::LeadingInteger(CString::FromUtf8(text)), std::atoi(text)) << text;
    }
}

TEST(Numbers, TheLeadingIntegerStopsAtTheRangeOfInt)
{
    for (const wchar_t* text :
         {L"2147483648", L"2147483649", L"2147483650", L"99999999999999999999999", L"21474836470x"}) {
        EXPECT_EQ(numbers::LeadingInteger(text), INT_MAX);
        EXPECT_EQ(numbers::LeadingInteger(CString(L"-") + text), INT_MIN);
    }
    EXPECT_EQ(numbers::LeadingInteger(L"-2147483647"), -INT_MAX);
}

TEST(Numbers, OnlyPlainDigitsLead)
{
    // Arabic-Indic three.
    EXPECT_EQ(numbers::LeadingInteger(L"1\u0663"), 1);
    EXPECT_EQ(numbers::LeadingInteger(L"\u0663"), 0);
}

} // namespace
