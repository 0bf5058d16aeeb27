#include "base/text/CaseMapping.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <string>

namespace {

struct Sums {
    int changed = 0;
    std::uint64_t products = 0;
};

Sums SumsOf(char32_t (*mapping)(char32_t) noexcept)
{
    Sums sums;
    for (char32_t code = 0; code <= unicode::kLastCodePoint; ++code) {
        const char32_t mapped = mapping(code);
        if (mapped != code) {
            ++sums.changed;
            sums.products += std::uint64_t{code} * mapped;
        }
    }
    return sums;
}

struct Whole {
    const char* what;
    char32_t (*mapping)(char32_t) noexcept;
    int changed;
    std::uint64_t products;
};

// Counted with Perl's Unicode::UCD 14.0: prop_invmap of Simple_Uppercase_Mapping,
// Simple_Lowercase_Mapping and Simple_Case_Folding.
const Whole whole[] = {
    {"upper", unicode::ToUpper, 1450, 2084820780662},
    {"lower", unicode::ToLower, 1433, 2084384907829},
    {"fold", unicode::Fold, 1454, 2084836764568},
};

TEST(CaseMapping, IsUnicodesSimpleMappingAsAWhole)
{
    for (const Whole& row : whole) {
        const Sums sums = SumsOf(row.mapping);
        EXPECT_EQ(sums.changed, row.changed) << row.what;
        EXPECT_EQ(sums.products, row.products) << row.what;
    }
}

struct Mapping {
    const char* what;
    char32_t code;
    char32_t upper;
    char32_t lower;
    char32_t fold;
};

// UnicodeData.txt and CaseFolding.txt, status C and S.
const Mapping mappings[] = {
    {"digit", U'7', U'7', U'7', U'7'},
    {"at sign, before A", U'@', U'@', U'@', U'@'},
    {"bracket, behind Z", U'[', U'[', U'[', U'['},
    {"a", U'a', U'A', U'a', U'a'},
    {"Z", U'Z', U'Z', U'z', U'z'},
    {"micro sign", 0xB5, 0x39C, 0xB5, 0x3BC},
    {"sharp s has no simple upper", 0xDF, 0xDF, 0xDF, 0xDF},
    {"e acute", 0xE9, 0xC9, 0xE9, 0xE9},
    {"division sign amid the letters", 0xF7, 0xF7, 0xF7, 0xF7},
    {"y diaeresis", 0xFF, 0x178, 0xFF, 0xFF},
    {"I with dot, no simple folding", 0x130, 0x130, U'i', 0x130},
    {"dotless i", 0x131, U'I', 0x131, 0x131},
    {"long s", 0x17F, U'S', 0x17F, U's'},
    {"title case dz", 0x1C5, 0x1C4, 0x1C6, 0x1C6},
    {"Sigma", 0x3A3, 0x3A3, 0x3C3, 0x3C3},
    {"final sigma", 0x3C2, 0x3A3, 0x3C2, 0x3C3},
    {"Cyrillic io", 0x451, 0x401, 0x451, 0x451},
    {"Cherokee folds to upper", 0xAB70, 0x13A0, 0xAB70, 0x13A0},
    {"alpha with psili and ypogegrammeni", 0x1F80, 0x1F88, 0x1F80, 0x1F80},
    {"alpha with psili and prosgegrammeni", 0x1F88, 0x1F88, 0x1F80, 0x1F80},
    {"capital sharp s", 0x1E9E, 0x1E9E, 0xDF, 0xDF},
    {"Kelvin sign", 0x212A, 0x212A, U'k', U'k'},
    {"fi ligature", 0xFB01, 0xFB01, 0xFB01, 0xFB01},
    {"Deseret long i", 0x10400, 0x10400, 0x10428, 0x10428},
    {"beyond Unicode", 0x110000, 0x110000, 0x110000, 0x110000},
};

TEST(CaseMapping, MapsOneCharacterToOne)
{
    for (const Mapping& row : mappings) {
        EXPECT_EQ(unicode::ToUpper(row.code), row.upper) << row.what;
        EXPECT_EQ(unicode::ToLower(row.code), row.lower) << row.what;
        EXPECT_EQ(unicode::Fold(row.code), row.fold) << row.what;
    }
}

TEST(CaseMapping, MapsSurrogatePairsInPlace)
{
    std::u16string text = u"x\U00010428\U0001F600z";
    unicode::MapInPlace(text.data(), text.size(), unicode::ToUpper);
    EXPECT_EQ(text, u"X\U00010400\U0001F600Z");
    unicode::MapInPlace(text.data(), text.size(), unicode::ToLower);
    EXPECT_EQ(text, u"x\U00010428\U0001F600z");
}

TEST(CaseMapping, ComparesInEitherWidth)
{
    EXPECT_EQ(unicode::CompareNoCase<char16_t>(u"a\U00010428", u"A\U00010400"), 0);
    EXPECT_EQ(unicode::CompareNoCase<char32_t>(U"a\U00010428", U"A\U00010400"), 0);
    EXPECT_LT(unicode::CompareNoCase<char16_t>(u"\uE000", u"\U00010400"), 0);
    EXPECT_LT(unicode::CompareNoCase<char32_t>(U"\uE000", U"\U00010400"), 0);
    EXPECT_LT(unicode::CompareNoCase<char16_t>(u"a", u"AB"), 0);
    EXPECT_GT(unicode::CompareNoCase<char16_t>(u"ab", u"A"), 0);
}

} // namespace
