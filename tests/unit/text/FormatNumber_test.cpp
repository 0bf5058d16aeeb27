#include "base/text/FormatNumber.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <bit>
#include <climits>
#include <clocale>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <limits>
#include <locale>
#include <random>
#include <string>
#include <vector>

#include "base/text/CString.h"

// The outside word on every number here is the C library's snprintf in the "C" locale.

namespace {

template <typename Number>
std::string Expected(const std::string& format, Number number)
{
    std::string text(4000, '\0');
    const int length = std::snprintf(text.data(), text.size(), format.c_str(), number);
    text.resize(static_cast<std::size_t>(length));
    return text;
}

// The f or e directive that the C standard (7.21.6.1) tells %#g to be for this number. Asked of
// the library by way of it, since some glibc lose the zeros of a number that is rounded up to a
// power of ten: 999999.5 with %#g.
std::string WithoutGeneral(const std::string& format, double number)
{
    const std::size_t point = std::min(format.find('.'), format.size() - 1);
    const std::string digits = format.substr(point, format.size() - 1 - point);
    const int given = digits.empty() ? 6 : std::atoi(digits.c_str() + 1);
    const int precision = std::max(given, 1);

    const std::string scientific = Expected("%." + std::to_string(precision - 1) + "e", number);
    const int exponent = std::atoi(scientific.c_str() + scientific.find('e') + 1);
    const bool fixed = exponent >= -4 && exponent < precision;
    const std::string conversion = format.back() == 'G' ? "FE" : "fe";
    return format.substr(0, point) + '.' + std::to_string(precision - 1 - (fixed ? exponent : 0)) +
           conversion[fixed ? 0 : 1];
}

template <typename Number>
std::string Formatted(const std::string& format, Number number)
{
    CString text;
    text.Format(CString::FromUtf8(format), number);
    return text.ToUtf8();
}

template <typename Number>
void ExpectAsTheLibrary(const std::string& format, Number number)
{
    std::string asked = format;
    if constexpr (std::is_floating_point_v<Number>) {
        if (std::isfinite(number) && format.find('#') != format.npos &&
            (format.back() == 'g' || format.back() == 'G')) {
            asked = WithoutGeneral(format, number);
        }
    }
    ASSERT_EQ(Formatted(format, number), Expected(asked, number)) << format << " of " << number;
}

// Every selection of the flags.
std::vector<std::string> Selections(const std::string& flags)
{
    std::vector<std::string> selections{""};
    for (const char flag : flags) {
        for (std::size_t i = 0, size = selections.size(); i < size; ++i) {
            selections.push_back(selections[i] + flag);
        }
    }
    return selections;
}

const std::vector<std::string> sizes{"", "1", "2", "8", "14", "30"};
const std::vector<std::string> precisions{"", ".", ".0", ".1", ".3", ".8", ".14", ".25"};

template <typename Number>
void ExpectAllAsTheLibrary(const std::string& flags, const std::string& conversion, const std::vector<Number>& numbers)
{
    for (const std::string& selection : Selections(flags)) {
        for (const std::string& width : sizes) {
            for (const std::string& precision : precisions) {
                for (const Number number : numbers) {
                    ExpectAsTheLibrary("%" + selection + width + precision + conversion, number);
                }
            }
        }
    }
}

const std::vector<double> doubles{0.0,
                                  -0.0,
                                  1.0,
                                  -1.0,
                                  0.5,
                                  1.5,
                                  2.5,
                                  0.125,
                                  0.1,
                                  -0.3048,
                                  9.9999999,
                                  99999.95,
                                  999999.5,
                                  1e-4,
                                  9.99995e-5,
                                  0.9996012717,
                                  6378137.0,
                                  -6356752.314245179,
                                  1e15,
                                  1e16,
                                  123456789012345678.0,
                                  1e22,
                                  1e23,
                                  1e100,
                                  std::numeric_limits<double>::max(),
                                  std::numeric_limits<double>::min(),
                                  std::numeric_limits<double>::denorm_min(),
                                  std::numeric_limits<double>::epsilon(),
                                  std::numeric_limits<double>::infinity(),
                                  -std::numeric_limits<double>::infinity(),
                                  std::numeric_limits<double>::quiet_NaN(),
                                  -std::numeric_limits<double>::quiet_NaN()};

TEST(FormatNumber, FloatingConversionsAreTheLibrarys)
{
    for (const char* conversion : {"f", "F", "e", "E", "g", "G"}) {
        ExpectAllAsTheLibrary("-+ #0", conversion, doubles);
    }
}

TEST(FormatNumber, TheAlternateGeneralFormKeepsItsZeros)
{
    EXPECT_EQ(Formatted("%#g", 999999.5), "1.00000e+06");
    EXPECT_EQ(Formatted("%#.3g", 9.999e-5), "0.000100");
    EXPECT_EQ(Formatted("%#.3g", 9.994e-5), "9.99e-05");
    EXPECT_EQ(Formatted("%#.0g", 7.0), "7.");
    EXPECT_EQ(Formatted("%#g", 0.0), "0.00000");
}

TEST(FormatNumber, SignedConversionsAreTheLibrarys)
{
    const std::vector<long long> numbers{0, 1, -1, 9, -10, 4711, -123456789, INT_MAX, INT_MIN, LLONG_MAX, LLONG_MIN};
    for (const char* conversion : {"lld", "lli"}) {
        ExpectAllAsTheLibrary("-+ 0", conversion, numbers);
    }
}

TEST(FormatNumber, UnsignedConversionsAreTheLibrarys)
{
    const std::vector<unsigned long long> numbers{0, 1, 7, 8, 255, 0xDEADBEEF, UINT_MAX, ULLONG_MAX};
    ExpectAllAsTheLibrary("-0", "llu", numbers);
    for (const char* conversion : {"llx", "llX", "llo"}) {
        ExpectAllAsTheLibrary("-#0", conversion, numbers);
    }
}

TEST(FormatNumber, ANegativeNumberWrittenUnsignedHasTheBitsOfItsType)
{
    for (const char* conversion : {"u", "x", "X", "o"}) {
        ExpectAsTheLibrary(std::string("%") + conversion, -1);
        ExpectAsTheLibrary(std::string("%l") + conversion, -2L);
        ExpectAsTheLibrary(std::string("%ll") + conversion, -3LL);
        // Promoted to int, as in a call of printf.
        ASSERT_EQ(Formatted(std::string("%") + conversion, short{-1}),
                  Expected(std::string("%") + conversion, int{-1}));
    }
}

TEST(FormatNumber, AnUnsignedNumberIsNeverTakenForANegativeOne)
{
    EXPECT_EQ(Formatted("%d", 4294967295U), "4294967295");
    EXPECT_EQ(Formatted("%+d", 18446744073709551615ULL), "+18446744073709551615");
    EXPECT_EQ(Formatted("%d", true), "1");
}

TEST(FormatNumber, PrecisionsBeyondEveryDigitAreTheLibrarys)
{
    const double numbers[] = {0.1,
                              1.0 / 3,
                              12345.678,
                              std::numeric_limits<double>::max(),
                              std::numeric_limits<double>::denorm_min(),
                              0x1.fffffffffffffp-1022};
    for (const char* format : {"%.340f", "%.767e", "%.1074f", "%.1075f", "%.2000f", "%.2000e", "%.2000E", "%.2000g",
                               "%#.2000g", "%-2500.1500e|", "%02500.1500f", "%#.1074G"}) {
        for (const double number : numbers) {
            ExpectAsTheLibrary(format, number);
        }
    }
}

// A format for a double with everything drawn at random.
std::string RandomFormat(std::mt19937_64& random)
{
    std::string format = "%";
    for (const char flag : {'-', '+', ' ', '#', '0'}) {
        if (random() % 4 == 0) {
            format += flag;
        }
    }
    if (random() % 2 == 0) {
        // Not one that begins with 0, the flag.
        format += std::to_string(random() % 40 + 1);
    }
    if (random() % 4 != 0) {
        format += '.' + std::to_string(random() % 24);
    }
    return format + "fFeEgG"[random() % 6];
}

TEST(FormatNumber, RandomDoublesAreTheLibrarys)
{
    std::mt19937_64 random(7);
    for (int i = 0; i < 40000; ++i) {
        const auto bits = random();
        // All doubles, and those of a survey: degrees and metres with some decimals.
        const double any = std::bit_cast<double>(bits);
        const double common = static_cast<double>(static_cast<std::int64_t>(bits) >> 32) / 1000;
        ExpectAsTheLibrary(RandomFormat(random), i % 2 == 0 ? any : common);
    }
}

TEST(FormatNumber, RandomIntegersAreTheLibrarys)
{
    std::mt19937_64 random(11);
    for (int i = 0; i < 20000; ++i) {
        const auto bits = random() >> (random() % 64);
        const auto number = static_cast<long long>(bits);
        const auto width = std::to_string(random() % 30 + 1);
        const auto digits = random() % 2 == 0 ? std::string() : "." + std::to_string(random() % 25);
        ExpectAsTheLibrary("%" + width + digits + "lld", i % 3 == 0 ? -number : number);
        ExpectAsTheLibrary("%#0" + width + digits + (i % 2 == 0 ? "llx" : "llo"), bits);
    }
}

TEST(FormatNumber, FloatingConversionsTakeIntegers)
{
    EXPECT_EQ(Formatted("%f", 1), "1.000000");
    EXPECT_EQ(Formatted("%.3f", -7LL), "-7.000");
    EXPECT_EQ(Formatted("%.14g", 6378137U), "6378137");
    EXPECT_EQ(Formatted("%e", 18446744073709551615ULL), Expected("%e", 18446744073709551615.0));
    EXPECT_EQ(Formatted("%g", 0.5F), "0.5");
}

// Decimal comma and grouped thousands, as a host with another language may set.
class Commas : public std::numpunct<wchar_t> {
    wchar_t do_decimal_point() const override { return L','; }
    wchar_t do_thousands_sep() const override { return L'.'; }
    std::string do_grouping() const override { return "\3"; }
};

class NarrowCommas : public std::numpunct<char> {
    char do_decimal_point() const override { return ','; }
    char do_thousands_sep() const override { return '.'; }
    std::string do_grouping() const override { return "\3"; }
};

TEST(FormatNumber, NoLocaleChangesANumber)
{
    // The C library's locale changes too where one with a comma is installed.
    const std::string before = std::setlocale(LC_ALL, nullptr);
    const std::locale earlier =
        std::locale::global(std::locale(std::locale(std::locale(), new Commas), new NarrowCommas));
    for (const char* name : {"de_DE.UTF-8", "de_DE.utf8", "de_DE", "fr_FR.UTF-8", "nl_NL.UTF-8", "German"}) {
        if (std::setlocale(LC_ALL, name) != nullptr) {
            break;
        }
    }
    const std::string fixed = Formatted("%.2f", 1234567.25);
    const std::string general = Formatted("%#.14g", -0.5);
    const std::string integer = Formatted("%d", 1234567);
    std::locale::global(earlier);
    std::setlocale(LC_ALL, before.c_str());

    EXPECT_EQ(fixed, "1234567.25");
    EXPECT_EQ(general, "-0.50000000000000");
    EXPECT_EQ(integer, "1234567");
}

} // namespace
