#include "base/text/Utf8.h"

#include <gtest/gtest.h>

#include <random>
#include <string>
#include <vector>

namespace {

template <typename Unit>
std::string Encoded(const std::basic_string<Unit>& text)
{
    std::string out;
    utf8::Append(std::basic_string_view<Unit>(text), out);
    return out;
}

template <typename Unit>
std::vector<char32_t> CodesOf(const std::string& bytes)
{
    const std::basic_string<Unit> text = utf8::Decode<Unit>(bytes);
    std::vector<char32_t> codes;
    for (std::size_t position = 0; position < text.size();) {
        codes.push_back(unicode::Next<Unit>(text, position));
    }
    return codes;
}

template <typename Unit>
class Utf8 : public testing::Test {
};
using Widths = testing::Types<char16_t, char32_t, wchar_t>;
TYPED_TEST_SUITE(Utf8, Widths);

constexpr char32_t R = 0xFFFD;

struct Case {
    const char* what;
    std::string bytes;
    std::vector<char32_t> codes;
};

const Case cases[] = {
    {"nothing", "", {}},
    {"ASCII", "Datum", {U'D', U'a', U't', U'u', U'm'}},
    {"ASCII longer than a machine word, then more",
     "0123456789\xC2\xB0"
     "0123456789",
     {U'0', U'1', U'2', U'3', U'4', U'5', U'6', U'7', U'8', U'9', 0xB0,
      U'0', U'1', U'2', U'3', U'4', U'5', U'6', U'7', U'8', U'9'}},
    {"a zero byte", std::string("a\0b", 3), {U'a', 0, U'b'}},
    // The Unicode Standard, table 3-6 and its ends of ranges.
    {"U+0430", "\xD0\xB0", {0x430}},
    {"U+4E8C", "\xE4\xBA\x8C", {0x4E8C}},
    {"U+10302", "\xF0\x90\x8C\x82", {0x10302}},
    {"first and last of two bytes", "\xC2\x80\xDF\xBF", {0x80, 0x7FF}},
    {"first and last of three bytes", "\xE0\xA0\x80\xEF\xBF\xBF", {0x800, 0xFFFF}},
    {"around the surrogates", "\xED\x9F\xBF\xEE\x80\x80", {0xD7FF, 0xE000}},
    {"first and last of four bytes", "\xF0\x90\x80\x80\xF4\x8F\xBF\xBF", {0x10000, 0x10FFFF}},
    {"byte order mark", "\xEF\xBB\xBFx", {0xFEFF, U'x'}},
    // The Unicode Standard, tables 3-8 to 3-11.
    {"non-shortest forms", "\xC0\xAF\xE0\x80\xBF\xF0\x81\x82\x41", {R, R, R, R, R, R, R, R, 0x41}},
    {"surrogates", "\xED\xA0\x80\xED\xBF\xBF\xED\xAF\x41", {R, R, R, R, R, R, R, R, 0x41}},
    {"other ill-formed sequences", "\xF4\x91\x92\x93\xFF\x41\x80\xBF\x42", {R, R, R, R, R, 0x41, R, R, 0x42}},
    {"truncated sequences", "\xE1\x80\xE2\xF0\x91\x92\xF1\xBF\x41", {R, R, R, R, 0x41}},
    // Sequences that end with the text.
    {"a first byte alone", "a\xC3", {U'a', R}},
    {"two of three bytes", "\xE2\x82", {R}},
    {"three of four bytes", "\xF0\x9F\x98", {R}},
    {"a following byte alone", "\x80", {R}},
    {"bytes that never occur", "\xC1\xF5\xF8\xFE\xFF", {R, R, R, R, R}},
    {"truncated before a whole one", "\xE2\x82\xE2\x82\xAC", {R, 0x20AC}},
};

TYPED_TEST(Utf8, DecodesAsTheStandardTells)
{
    for (const Case& row : cases) {
        EXPECT_EQ(CodesOf<TypeParam>(row.bytes), row.codes) << row.what;
    }
}

TYPED_TEST(Utf8, EveryScalarValueKeepsItsBytes)
{
    std::basic_string<TypeParam> text;
    for (char32_t code = 0; code <= unicode::kLastCodePoint; ++code) {
        if (unicode::IsScalarValue(code)) {
            TypeParam units[2];
            text.append(units, static_cast<std::size_t>(unicode::Put(units, code) - units));
        }
    }
    const std::string bytes = Encoded(text);
    // 128 of one byte, 1920 of two, 61440 of three, 1048576 of four.
    EXPECT_EQ(bytes.size(), 128U + 2 * 1920U + 3 * 61440U + 4 * 1048576U);
    EXPECT_TRUE(utf8::Decode<TypeParam>(bytes) == text);
}

TYPED_TEST(Utf8, UnpairedSurrogatesAreReplaced)
{
    const std::basic_string<TypeParam> text{TypeParam('a'), TypeParam(0xD800), TypeParam('b'), TypeParam(0xDC00),
                                            TypeParam(0xD801)};
    EXPECT_EQ(Encoded(text), "a\xEF\xBF\xBD"
                             "b\xEF\xBF\xBD\xEF\xBF\xBD");
}

TEST(Utf8Of32Bits, NumbersBeyondUnicodeAreReplaced)
{
    EXPECT_EQ(Encoded(std::u32string{0x110000, 0xFFFFFFFF, U'x'}), "\xEF\xBF\xBD\xEF\xBF\xBDx");
}

TYPED_TEST(Utf8, AppendsBehindWhatIsThere)
{
    std::string out = "key=";
    utf8::Append(std::basic_string_view<TypeParam>(utf8::Decode<TypeParam>("\xC3\xA9tat")), out);
    EXPECT_EQ(out, "key=\xC3\xA9tat");
}

// A byte string in which well-formed, truncated and impossible sequences all occur.
std::string RandomBytes(std::mt19937& random)
{
    static constexpr unsigned char telling[] = {0x00, 0x41, 0x7F, 0x80, 0x8F, 0x90, 0x9F, 0xA0, 0xBF, 0xC0, 0xC2,
                                                0xDF, 0xE0, 0xE1, 0xED, 0xEE, 0xEF, 0xF0, 0xF1, 0xF4, 0xF5, 0xFF};
    std::string bytes(random() % 24, '\0');
    for (char& byte : bytes) {
        const auto draw = random();
        byte = static_cast<char>(draw % 4 == 0 ? draw >> 8 & 0xFF : telling[(draw >> 8) % std::size(telling)]);
    }
    return bytes;
}

TYPED_TEST(Utf8, RandomBytesBecomeStableText)
{
    std::mt19937 random(20240229);
    for (int i = 0; i < 20000; ++i) {
        const std::string bytes = RandomBytes(random);
        const std::basic_string<TypeParam> text = utf8::Decode<TypeParam>(bytes);
        const std::string cleaned = Encoded(text);
        ASSERT_TRUE(utf8::Decode<TypeParam>(cleaned) == text) << testing::PrintToString(bytes);
        // Both widths tell the same.
        ASSERT_EQ(cleaned, Encoded(utf8::Decode<char32_t>(bytes))) << testing::PrintToString(bytes);
        // What was well-formed came through unchanged.
        if (cleaned.find("\xEF\xBF\xBD") == cleaned.npos) {
            ASSERT_EQ(cleaned, bytes);
        }
    }
}

} // namespace
