// The text form of section files, as docs/section-files.md tells it, through FileObject.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <tuple>
#include <vector>

#include "base/files/FileObject.h"
#include "tests/support/TempDirectory.h"

using namespace std::string_literals;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

namespace {

CString Wide(const std::string& utf8)
{
    return CString::FromUtf8(utf8);
}

// Every entry as section, key, value, and every section without a key as itself and two blanks.
using Entry = std::tuple<std::string, std::string, std::string>;

std::vector<Entry> EntriesOf(const FileObject& file)
{
    std::vector<Entry> entries;
    FobjSection sections;
    CString section;
    for (bool more = file.GetFirstSectionEntry(sections, section); more;
         more = file.GetNextSectionEntry(sections, section)) {
        FobjSection keys;
        CString key;
        CString value;
        bool another = file.GetFirstMapEntry(keys, section, key, value);
        if (!another) {
            entries.emplace_back(section.ToUtf8(), "", "");
        }
        for (; another; another = file.GetNextMapEntry(keys, key, value)) {
            entries.emplace_back(section.ToUtf8(), key.ToUtf8(), value.ToUtf8());
        }
    }
    return entries;
}

std::string WrittenText(const FileObject& file)
{
    const TempDirectory directory;
    EXPECT_TRUE(file.FileSave(directory.File("out.geo"), FileMode::saveExclusive)) << file.GetErrorText().ToUtf8();
    return directory.Read("out.geo");
}

struct Readable {
    std::string name;
    std::string text;
    std::vector<Entry> entries;
};

void PrintTo(const Readable& row, std::ostream* out)
{
    *out << row.name;
}

class SectionTextRead : public testing::TestWithParam<Readable> {};

TEST_P(SectionTextRead, GivesItsEntries)
{
    const TempDirectory directory;
    FileObject file;
    ASSERT_TRUE(file.FileOpen(directory.Write("a.geo", GetParam().text), FileMode::openForReading))
        << file.GetErrorText().ToUtf8();
    EXPECT_EQ(EntriesOf(file), GetParam().entries);
}

const Readable kReadable[] = {
    {"Empty", "", {}},
    {"ByteOrderMarkAlone", "\xEF\xBB\xBF", {}},
    {"BlankLines", "\n  \n\t\n", {}},
    {"OneEntry", "[General]\nGroup count=1\n", {{"General", "Group count", "1"}}},
    {"ByteOrderMark", "\xEF\xBB\xBF[s]\nk=v\n", {{"s", "k", "v"}}},
    {"CarriageReturns", "[s]\r\nk=v\r\n\r\nl=w\r\n", {{"s", "k", "v"}, {"s", "l", "w"}}},
    {"NoLineEndAtTheEnd", "[s]\nk=v", {{"s", "k", "v"}}},
    {"CarriageReturnAtTheEnd", "[s]\r\nk=v\r", {{"s", "k", "v"}}},
    {"CarriageReturnAlone", "\r", {}},
    {"Comments", "; one\n[s]\n  ; two = 2\nk=v ; part of the value\n", {{"s", "k", "v ; part of the value"}}},
    {"EmptySection", "[s]\n[t]\nk=v\n", {{"s", "", ""}, {"t", "k", "v"}}},
    {"EmptyNames", "[]\n=\n", {{"", "", ""}}},
    {"BlanksAround", " [ s ] \n\t k \t= v  w \t\n", {{"s", "k", "v  w"}}},
    {"EqualsInTheValue", "[s]\nk=a=b\n", {{"s", "k", "a=b"}}},
    {"BracketsInside", "[a]b]\nk[0]=[x]\n", {{"a]b", "k[0]", "[x]"}}},
    {"Escapes",
     "[\\{20}s]\n\\{5B}k\\{3d}=C:\\\\a\\{A}\\{1F600}\\{0000e9}\\{0}\n",
     {{" s", "[k=", "C:\\a\n\xF0\x9F\x98\x80\xC3\xA9\0"s}}},
    {"CapitalsDiffer", "[s]\nk=1\nK=2\n[S]\nk=3\n", {{"s", "k", "1"}, {"s", "K", "2"}, {"S", "k", "3"}}},
    {"ReplacementCharacter", "[s]\nk=\xEF\xBF\xBD\n", {{"s", "k", "\xEF\xBF\xBD"}}},
    {"NoBreakSpaceIsNoBlank", "[s]\nk=\xC2\xA0v\n", {{"s", "k", "\xC2\xA0v"}}},
};

INSTANTIATE_TEST_SUITE_P(Texts, SectionTextRead, testing::ValuesIn(kReadable),
                         [](const auto& tested) { return tested.param.name; });

struct Malformed {
    std::string name;
    std::string text;
    int line;
    std::string reason;
};

void PrintTo(const Malformed& row, std::ostream* out)
{
    *out << row.name;
}

class SectionTextRefused : public testing::TestWithParam<Malformed> {};

TEST_P(SectionTextRefused, TellsLineAndReason)
{
    const TempDirectory directory;
    const CString name = directory.Write("bad.geo", GetParam().text);
    FileObject file;
    EXPECT_FALSE(file.FileOpen(name, FileMode::openForReading));
    EXPECT_FALSE(file.FileInitialised());
    EXPECT_THAT(EntriesOf(file), IsEmpty());
    EXPECT_EQ(file.GetErrorStatus(), static_cast<int>(FileErrorCode::malformed));
    EXPECT_EQ(file.GetErrorLine(), GetParam().line);
    EXPECT_THAT(file.GetErrorText().ToUtf8(), HasSubstr(GetParam().reason));
    EXPECT_THAT(file.GetErrorText().ToUtf8(), HasSubstr("line " + std::to_string(GetParam().line)));
    EXPECT_THAT(file.GetErrorText().ToUtf8(), HasSubstr(name.ToUtf8()));
}

const Malformed kMalformed[] = {
    {"NeitherSectionNorKey", "[s]\nk=v\n\nhello\n", 4, "neither a section nor a key"},
    {"KeyBeforeAnySection", "; c\nk=v\n", 2, "before the first section"},
    {"OpenBracket", "[s\nk=v\n", 1, "must end in ']'"},
    {"OpenBracketAlone", "[\n", 1, "must end in ']'"},
    {"OpenBracketWithEquals", "[s]\n[k=v\n", 2, "must end in ']'"},
    {"KeyTwice", "[s]\n\nk=1\nl=2\nk=1\n", 5, "key \"k\" stands here and in line 3"},
    {"KeyTwiceByEscape", "[s]\nk=1\n\\{6b}=2\n", 3, "key \"k\" stands here and in line 2"},
    {"SectionTwice", "[s]\nk=1\n[t]\n; c\n[s]\n", 5, "section \"s\" stands here and in line 1"},
    {"EmptySectionTwice", "[s]\n[s]\n", 2, "section \"s\" stands here and in line 1"},
    {"LoneContinuationByte", "[s]\nk=\x80\n", 2, "not UTF-8"},
    {"OverlongSlash", "[s]\n\nk=\xC0\xAF\n", 3, "not UTF-8"},
    {"Surrogate", "[s]\nk=\xED\xA0\x80\n", 2, "not UTF-8"},
    {"BeyondUnicode", "[s]\nk=\xF4\x90\x80\x80\n", 2, "not UTF-8"},
    {"CutShort", "[s]\nk=\xE2\x82", 2, "not UTF-8"},
    {"Latin1", "[s]\n; \xE9t\xE9\n", 2, "not UTF-8"},
    {"Zero", "[s]\nk=a\0b\n"s, 2, "control character U+0000"},
    {"Utf16", "\xFF\xFE[\0s\0"s, 1, "not UTF-8"},
    {"LoneCarriageReturn", "[s]\rk=v\r", 1, "control character U+000D"},
    {"TwoCarriageReturns", "[s]\nk=v\r\r\n", 2, "control character U+000D"},
    {"TwoCarriageReturnsAtTheEnd", "[s]\nk=v\r\r", 2, "control character U+000D"},
    {"ControlCharacterInComment", "; \x1A\n", 1, "control character U+001A"},
    {"UnknownEscape", "[s]\nk=C:\\temp\n", 2, "a backslash must be followed"},
    {"BackslashAtTheEnd", "[s]\nk=a\\\n", 2, "a backslash must be followed"},
    {"EscapedSectionEnd", "[s\\]\n", 1, "a backslash must be followed"},
    {"EscapeWithoutDigits", "[s]\nk=\\{}\n", 2, "a backslash must be followed"},
    {"EscapeWithoutEnd", "[s]\nk=\\{20\n", 2, "a backslash must be followed"},
    {"EscapeOfSevenDigits", "[s]\nk=\\{0000020}\n", 2, "a backslash must be followed"},
    {"EscapedSurrogate", "[s]\nk=\\{d800}\n", 2, "a backslash must be followed"},
    {"EscapeBeyondUnicode", "[s]\nk=\\{110000}\n", 2, "a backslash must be followed"},
    {"EscapeWithSign", "[s]\nk=\\{-1}\n", 2, "a backslash must be followed"},
    {"EscapeWithBlank", "[s]\nk=\\{ 20}\n", 2, "a backslash must be followed"},
    {"SecondByteOrderMark", "\xEF\xBB\xBF\xEF\xBB\xBF[s]\n", 1, "neither a section nor a key"},
};

INSTANTIATE_TEST_SUITE_P(Texts, SectionTextRefused, testing::ValuesIn(kMalformed),
                         [](const auto& tested) { return tested.param.name; });

// A key of a section with many keys is found by hash, not by comparing.
TEST(SectionText, TellsTheLinesOfADuplicateAmongMany)
{
    std::string text = "[s]\n";
    for (int i = 0; i < 1000; ++i) {
        text += "key " + std::to_string(i) + "=\n";
    }
    const TempDirectory directory;
    FileObject file;
    EXPECT_FALSE(file.FileOpen(directory.Write("a.geo", text + "key 700=\n"), FileMode::openForReading));
    EXPECT_EQ(file.GetErrorLine(), 1002);
    EXPECT_THAT(file.GetErrorText().ToUtf8(), HasSubstr("in line 702"));
}

TEST(SectionText, IsWrittenPlainAndInOrder)
{
    FileObject file;
    file.SetItem(L"Units section", L"Meters", L"1.000000,m", true);
    file.SetItem(L"General", L"Group count", 2, true);
    file.SetItem(L"Units section", L"Feet", L"0.304800,ft", true);
    file.CreateSection(L"Empty", false);
    EXPECT_EQ(WrittenText(file), "[Units section]\nMeters=1.000000,m\nFeet=0.304800,ft\n"
                                 "\n[General]\nGroup count=2\n"
                                 "\n[Empty]\n");
}

TEST(SectionText, OfAnEmptyFileIsEmpty)
{
    EXPECT_EQ(WrittenText(FileObject()), "");
}

TEST(SectionText, EscapesOnlyWhatWouldReadOtherwise)
{
    FileObject file;
    file.SetItem(L" s]", L"[a=b;", L"=[;]\\", true);
    file.SetItem(L" s]", L";", L" in  side ", true);
    file.SetItem(L" s]", L"a;[", Wide("caf\xC3\xA9\t\n\xC2\x85"), true);
    EXPECT_EQ(WrittenText(file), "[\\{20}s]]\n"
                                 "\\{5b}a\\{3d}b;==[;]\\\\\n"
                                 "\\{3b}=\\{20}in  side\\{20}\n"
                                 "a;[=caf\xC3\xA9\\{9}\\{a}\\{85}\n");
}

// Texts that a careless writer would lose or change.
const std::string kHardTexts[] = {
    "",
    " ",
    "  ",
    "\t",
    "\n",
    "\r\n",
    "a\rb",
    "=",
    "==",
    "a=b",
    "[",
    "]",
    "[a]",
    ";",
    "; a",
    "a;b",
    "\\",
    "\\\\",
    "\\{20}",
    "a\\",
    "\\]",
    " a",
    "a ",
    " a b ",
    "\0"s,
    "a\0b"s,
    "\x1A",
    "\x7F",
    "\xEF\xBB\xBF",
    "\xEF\xBB\xBF"
    "a",
    "\xC2\xA0",
    "\xC2\x85",
    "\xE2\x80\xA8",
    "\xE2\x80\xA9",
    "\xEF\xBF\xBD",
    "\xEF\xBF\xBE",
    "\xF4\x8F\xBF\xBF",
    "\xF0\x9F\x98\x80",
    "}",
    "{",
    "C:\\new\\table.gsb",
    "\\\\server\\share",
};

TEST(SectionText, ReadsBackAnySectionKeyAndValue)
{
    FileObject file;
    std::vector<Entry> entries;
    for (const std::string& section : kHardTexts) {
        for (const std::string& key : kHardTexts) {
            const std::string& value = kHardTexts[entries.size() % std::size(kHardTexts)];
            entries.emplace_back(section, key, value);
            ASSERT_TRUE(file.SetItem(Wide(section), Wide(key), Wide(value), true));
        }
    }
    const TempDirectory directory;
    ASSERT_TRUE(file.FileSave(directory.File("a.geo"), FileMode::saveExclusive));
    // Another name, so that the text is read and not taken from what was written.
    std::filesystem::rename(directory.Path() / "a.geo", directory.Path() / "b.geo");
    FileObject again;
    ASSERT_TRUE(again.FileOpen(directory.File("b.geo"), FileMode::openForReading)) << again.GetErrorText().ToUtf8();
    EXPECT_EQ(EntriesOf(again), entries);
}

TEST(SectionText, ReadsBackEveryCodePoint)
{
    FileObject file;
    std::vector<Entry> entries;
    std::string escape;
    for (unsigned long code = 0; code <= 0x10FFFF; ++code) {
        if (code == 0xD800) {
            code = 0xE000; // surrogates are no text
        }
        // UTF-8 by The Unicode Standard, table 3-6, independent of the encoder under test.
        std::string text;
        const auto put = [&text](unsigned long byte) { text += static_cast<char>(byte); };
        if (code < 0x80) {
            put(code);
        } else if (code < 0x800) {
            put(0xC0 + code / 0x40);
            put(0x80 + code % 0x40);
        } else if (code < 0x10000) {
            put(0xE0 + code / 0x1000);
            put(0x80 + code / 0x40 % 0x40);
            put(0x80 + code % 0x40);
        } else {
            put(0xF0 + code / 0x40000);
            put(0x80 + code / 0x1000 % 0x40);
            put(0x80 + code / 0x40 % 0x40);
            put(0x80 + code % 0x40);
        }
        // All of the first plane's beginning as whole values, of the others a sample.
        if (code < 0x3100 || code % 0x100 >= 0xFE) {
            entries.emplace_back("s", std::to_string(code), text);
            ASSERT_TRUE(file.SetItem(L"s", Wide(std::to_string(code)), text, true)) << code;
        }
        escape += text;
    }
    entries.emplace_back("all", "code points", escape);
    ASSERT_TRUE(file.SetItem(L"all", L"code points", escape, true));

    const TempDirectory directory;
    ASSERT_TRUE(file.FileSave(directory.File("a.geo"), FileMode::saveExclusive));
    std::filesystem::rename(directory.Path() / "a.geo", directory.Path() / "b.geo");
    FileObject again;
    ASSERT_TRUE(again.FileOpen(directory.File("b.geo"), FileMode::openForReading)) << again.GetErrorText().ToUtf8();
    EXPECT_TRUE(EntriesOf(again) == entries);
}

} // namespace
