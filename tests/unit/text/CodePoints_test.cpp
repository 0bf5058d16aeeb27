#include "base/text/CodePoints.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

template <typename Unit>
std::basic_string<Unit> Units(std::initializer_list<char32_t> codes)
{
    std::basic_string<Unit> text;
    for (const char32_t code : codes) {
        Unit buffer[2];
        text.append(buffer, static_cast<std::size_t>(unicode::Put(buffer, code) - buffer));
    }
    return text;
}

template <typename Unit>
class CodePoints : public testing::Test {
};
using Widths = testing::Types<char16_t, char32_t, wchar_t>;
TYPED_TEST_SUITE(CodePoints, Widths);

TYPED_TEST(CodePoints, EveryScalarValueReadsBack)
{
    for (char32_t code = 0; code <= unicode::kLastCodePoint; ++code) {
        if (!unicode::IsScalarValue(code)) {
            continue;
        }
        const auto text = Units<TypeParam>({code});
        std::size_t position = 0;
        ASSERT_EQ(unicode::Next<TypeParam>(text, position), code);
        ASSERT_EQ(position, text.size());
    }
}

TYPED_TEST(CodePoints, OrderIsThatOfTheNumbersInEveryWidth)
{
    // In UTF-16 the units of U+10000 (D800 DC00) lie below U+E000 and U+FFFD.
    const std::vector<char32_t> rising{U'\0',  U'A',   U'a',   0x7F,    0x80,    0xFFF,   0xD7FF,
                                       0xE000, 0xFFFD, 0xFFFF, 0x10000, 0x10001, 0x1F600, 0x10FFFF};
    for (std::size_t i = 0; i < rising.size(); ++i) {
        for (std::size_t j = 0; j < rising.size(); ++j) {
            const int expected = i < j ? -1 : i > j ? 1 : 0;
            const auto a = Units<TypeParam>({U'x', rising[i]});
            const auto b = Units<TypeParam>({U'x', rising[j]});
            EXPECT_EQ(unicode::Compare<TypeParam>(a, b), expected) << i << ' ' << j;
        }
    }
}

TYPED_TEST(CodePoints, APrefixComesFirst)
{
    const auto longer = Units<TypeParam>({U'a', U'b'});
    const auto shorter = Units<TypeParam>({U'a'});
    EXPECT_EQ(unicode::Compare<TypeParam>(shorter, longer), -1);
    EXPECT_EQ(unicode::Compare<TypeParam>(longer, shorter), 1);
    EXPECT_EQ(unicode::Compare<TypeParam>({}, shorter), -1);
    EXPECT_EQ(unicode::Compare<TypeParam>({}, {}), 0);
}

TYPED_TEST(CodePoints, CountAndPrefixNeverSplitACharacter)
{
    const auto text = Units<TypeParam>({U'a', 0x1F600, 0xE9, 0x10FFFF});
    EXPECT_EQ(unicode::Count<TypeParam>(text), 4U);
    EXPECT_EQ(unicode::Prefix<TypeParam>(text, 0), Units<TypeParam>({}));
    EXPECT_EQ(unicode::Prefix<TypeParam>(text, 2), Units<TypeParam>({U'a', 0x1F600}));
    EXPECT_EQ(unicode::Prefix<TypeParam>(text, 4), text);
    EXPECT_EQ(unicode::Prefix<TypeParam>(text, 9), text);
}

TEST(CodePointsOfUtf16, SupplementaryCharactersAreSurrogatePairs)
{
    // The Unicode Standard, table 3-5: U+10302 is D800 DF02.
    EXPECT_EQ(Units<char16_t>({0x10302}), (std::u16string{0xD800, 0xDF02}));
    EXPECT_EQ(Units<char16_t>({0x10FFFF}), (std::u16string{0xDBFF, 0xDFFF}));
}

TEST(CodePointsOfUtf16, AnUnpairedSurrogateStandsForItself)
{
    const std::u16string text{0xDC00, 0xD800, u'x', 0xD800, 0xD801, 0xDBFF, 0xE000, 0xD83D};
    std::size_t position = 0;
    std::vector<char32_t> codes;
    while (position < text.size()) {
        codes.push_back(unicode::Next<char16_t>(text, position));
    }
    EXPECT_EQ(codes, (std::vector<char32_t>{0xDC00, 0xD800, U'x', 0xD800, 0xD801, 0xDBFF, 0xE000, 0xD83D}));
}

} // namespace
