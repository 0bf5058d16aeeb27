#include "base/files/FileObject.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstring>
#include <limits>
#include <string>
#include <type_traits>
#include <vector>

#include "tests/support/TempDirectory.h"

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

namespace {

constexpr int Status(FileErrorCode code)
{
    return static_cast<int>(code);
}

std::vector<std::string> SectionsOf(const FileObject& file)
{
    std::vector<std::string> names;
    FobjSection cursor;
    CString name;
    for (bool more = file.GetFirstSectionEntry(cursor, name); more; more = file.GetNextSectionEntry(cursor, name)) {
        names.push_back(name.ToUtf8());
    }
    return names;
}

std::vector<std::string> KeysOf(const FileObject& file, const CString& section)
{
    std::vector<std::string> keys;
    FobjSection cursor;
    CString key;
    CString value;
    for (bool more = file.GetFirstMapEntry(cursor, section, key, value); more;
         more = file.GetNextMapEntry(cursor, key, value)) {
        keys.push_back(key.ToUtf8() + "=" + value.ToUtf8());
    }
    return keys;
}

std::string Value(const FileObject& file, const CString& section, const CString& key)
{
    std::string value = "(none)";
    file.GetItem(section, key, value);
    return value;
}

std::vector<std::string> FilesIn(const TempDirectory& directory)
{
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(directory.Path())) {
        names.push_back(entry.path().filename().string());
    }
    std::sort(names.begin(), names.end());
    return names;
}

FileObject WithValue(const std::string& text)
{
    FileObject file;
    EXPECT_TRUE(file.SetItem(L"s", L"k", text, true));
    return file;
}

// What a GetItem of this type gives for `text`; `before` when it refuses.
template <typename Type>
Type Got(const std::string& text, Type before, bool& result)
{
    Type value = before;
    result = WithValue(text).GetItem(L"s", L"k", value);
    return value;
}

struct IntegerRow {
    const char* text;
    bool isInteger;
    long long value;
};

TEST(FileObject, ReadsIntegersAndRefusesWhatIsNone)
{
    const IntegerRow rows[] = {
        {"0", true, 0},      {"17", true, 17}, {"-3", true, -3},  {" 5 ", true, 5},  {"1.5", false, 0},
        {"1,5", false, 0},   {"", false, 0},   {"abc", false, 0}, {"1e3", false, 0}, {"0x10", false, 0},
        {"12 13", false, 0}, {"5m", false, 0}, {"--1", false, 0},
    };
    for (const IntegerRow& row : rows) {
        SCOPED_TRACE(row.text);
        const long long expected = row.isInteger ? row.value : 99;
        bool result = false;
        EXPECT_EQ(Got<int>(row.text, 99, result), expected);
        EXPECT_EQ(result, row.isInteger);
        EXPECT_EQ(Got<long>(row.text, 99, result), expected);
        EXPECT_EQ(result, row.isInteger);
        EXPECT_EQ(Got<long long>(row.text, 99, result), expected);
        EXPECT_EQ(result, row.isInteger);
        const bool isUnsigned = row.isInteger && row.value >= 0;
        const unsigned long long positive = isUnsigned ? static_cast<unsigned long long>(row.value) : 99;
        EXPECT_EQ(Got<unsigned>(row.text, 99, result), positive);
        EXPECT_EQ(result, isUnsigned);
        EXPECT_EQ(Got<unsigned long>(row.text, 99, result), positive);
        EXPECT_EQ(result, isUnsigned);
        EXPECT_EQ(Got<unsigned long long>(row.text, 99, result), positive);
        EXPECT_EQ(result, isUnsigned);
    }
}

TEST(FileObject, RefusesIntegersThatDoNotFit)
{
    bool result = true;
    EXPECT_EQ(Got<int>("2147483648", 7, result), 7);
    EXPECT_FALSE(result);
    EXPECT_EQ(Got<long long>("2147483648", 7, result), 2147483648LL);
    EXPECT_TRUE(result);
    EXPECT_EQ(Got<unsigned>("4294967296", 7, result), 7U);
    EXPECT_FALSE(result);
    EXPECT_EQ(Got<unsigned long long>("18446744073709551616", 7, result), 7U);
    EXPECT_FALSE(result);
}

struct DoubleRow {
    const char* text;
    bool isNumber;
    double value;
};

TEST(FileObject, ReadsDoublesWithAPointOnly)
{
    const DoubleRow rows[] = {
        {"1.5", true, 1.5},  {"1e-3", true, 0.001}, {"-0", true, -0.0},  {"6378137", true, 6378137.0},
        {"1E3", true, 1000}, {" 2.5", true, 2.5},   {"1,5", false, 0},   {"", false, 0},
        {"1.5m", false, 0},  {"1 5", false, 0},     {"1e999", false, 0},
    };
    for (const DoubleRow& row : rows) {
        SCOPED_TRACE(row.text);
        bool result = false;
        EXPECT_EQ(Got<double>(row.text, 99, result), row.isNumber ? row.value : 99);
        EXPECT_EQ(result, row.isNumber);
        EXPECT_EQ(Got<float>(row.text, 99, result), row.isNumber ? static_cast<float>(row.value) : 99);
        EXPECT_EQ(result, row.isNumber);
    }
}

TEST(FileObject, ReadsBooleansAsDigitOrWord)
{
    for (const char* text : {"1", "true", "True", "TRUE"}) {
        bool result = false;
        EXPECT_TRUE(Got<bool>(text, false, result)) << text;
        EXPECT_TRUE(result) << text;
    }
    for (const char* text : {"0", "false", "FALSE"}) {
        bool result = false;
        EXPECT_FALSE(Got<bool>(text, true, result)) << text;
        EXPECT_TRUE(result) << text;
    }
    for (const char* text : {"2", "", "yes", "truex", "1.0"}) {
        bool result = true;
        EXPECT_TRUE(Got<bool>(text, true, result)) << text;
        EXPECT_FALSE(result) << text;
    }
}

// Bits, not values: -0 stays -0.
TEST(FileObject, ReadsBackTheSameDouble)
{
    const double values[] = {0.0,
                             -0.0,
                             0.1,
                             1.0 / 3.0,
                             89.9999999999,
                             6378137.0,
                             0.00669437999014,
                             1e22,
                             5e-324,
                             std::numeric_limits<double>::max(),
                             std::numeric_limits<double>::min(),
                             std::numeric_limits<double>::infinity(),
                             -std::numeric_limits<double>::infinity()};
    for (const double value : values) {
        FileObject file;
        ASSERT_TRUE(file.SetItem(L"s", L"k", value, true));
        double back = 99;
        EXPECT_TRUE(file.GetItem(L"s", L"k", back)) << value;
        EXPECT_EQ(std::memcmp(&value, &back, sizeof value), 0) << value << " came back as " << back;
    }
    FileObject file;
    ASSERT_TRUE(file.SetItem(L"s", L"k", std::nan(""), true));
    double back = 0;
    EXPECT_TRUE(file.GetItem(L"s", L"k", back));
    EXPECT_TRUE(std::isnan(back));
}

TEST(FileObject, WritesEveryTypeAsItsText)
{
    FileObject file;
    const auto text = [&file] { return Value(file, L"s", L"k"); };
    const std::string narrow = "narrow \xC3\xA9";
    EXPECT_TRUE(file.SetItem(L"s", L"k", narrow, true));
    EXPECT_EQ(text(), narrow);
    EXPECT_TRUE(file.SetItem(L"s", L"k", CStringA("a"), true));
    EXPECT_EQ(text(), "a");
    EXPECT_TRUE(file.SetItem(L"s", L"k", "c", true));
    EXPECT_EQ(text(), "c");
    EXPECT_TRUE(file.SetItem(L"s", L"k", static_cast<const char*>(nullptr), true));
    EXPECT_EQ(text(), "");
    EXPECT_TRUE(file.SetItem(L"s", L"k", CString(L"w\x00E9"), true));
    EXPECT_EQ(text(), "w\xC3\xA9");
    EXPECT_TRUE(file.SetItem(L"s", L"k", L"literal", true));
    EXPECT_EQ(text(), "literal");
    EXPECT_TRUE(file.SetItem(L"s", L"k", static_cast<const wchar_t*>(nullptr), true));
    EXPECT_EQ(text(), "");
    EXPECT_TRUE(file.SetItem(L"s", L"k", 4294967295UL, true));
    EXPECT_EQ(text(), "4294967295");
    EXPECT_TRUE(file.SetItem(L"s", L"k", 18446744073709551615ULL, true));
    EXPECT_EQ(text(), "18446744073709551615");
    EXPECT_TRUE(file.SetItem(L"s", L"k", std::numeric_limits<long long>::min(), true));
    EXPECT_EQ(text(), "-9223372036854775808");
    EXPECT_TRUE(file.SetItem(L"s", L"k", 0.1, true));
    EXPECT_EQ(text(), "0.1");
    EXPECT_TRUE(file.SetItem(L"s", L"k", true, true));
    EXPECT_EQ(text(), "1");
    EXPECT_TRUE(file.SetItem(L"s", L"k", false, true));
    EXPECT_EQ(text(), "0");
    EXPECT_TRUE(file.SetItem(L"s", L"k", 3000000000U, true));
    EXPECT_EQ(text(), "3000000000");
    EXPECT_TRUE(file.SetItem(L"s", L"k", std::numeric_limits<int>::min(), true));
    EXPECT_EQ(text(), "-2147483648");
    EXPECT_TRUE(file.SetItem(L"s", L"k", -5L, true));
    EXPECT_EQ(text(), "-5");
}

TEST(FileObject, RefusesNarrowTextThatIsNoUtf8)
{
    FileObject file = WithValue("old");
    for (const char* text : {"\xE9", "ab\xC3", "\xED\xA0\x80", "a\xFFz"}) {
        EXPECT_FALSE(file.SetItem(L"s", L"k", text, true));
        EXPECT_FALSE(file.SetItem(L"new", L"k", text, true));
    }
    EXPECT_EQ(Value(file, L"s", L"k"), "old");
    EXPECT_FALSE(file.HasSection(L"new"));
}

TEST(FileObject, SetItemWithoutCreateChangesOnlyWhatIsThere)
{
    FileObject file = WithValue("old");
    EXPECT_FALSE(file.SetItem(L"s", L"other", 1, false));
    EXPECT_FALSE(file.SetItem(L"t", L"k", 1, false));
    EXPECT_THAT(KeysOf(file, L"s"), ElementsAre("k=old"));
    EXPECT_FALSE(file.HasSection(L"t"));
    EXPECT_TRUE(file.SetItem(L"s", L"k", L"new", false));
    EXPECT_EQ(Value(file, L"s", L"k"), "new");
}

TEST(FileObject, KeepsTheOutputWhenAReadFails)
{
    const FileObject file = WithValue("text");
    CString text = L"before";
    std::string narrow = "before";
    double number = 43.0;
    bool flag = true;
    EXPECT_FALSE(file.GetItem(L"s", L"missing", text));
    EXPECT_FALSE(file.GetItem(L"missing", L"k", narrow));
    EXPECT_FALSE(file.GetItem(L"s", L"k", number));
    EXPECT_FALSE(file.GetItem(L"s", L"k", flag));
    EXPECT_EQ(text, L"before");
    EXPECT_EQ(narrow, "before");
    EXPECT_EQ(number, 43.0);
    EXPECT_TRUE(flag);
}

TEST(FileObject, TellsCapitalsApart)
{
    FileObject file;
    file.SetItem(L"Units section", L"Meters", 1, true);
    EXPECT_FALSE(file.HasSection(L"Units Section"));
    EXPECT_FALSE(file.HasKey(L"Units section", L"meters"));
    EXPECT_TRUE(file.HasKey(L"Units section", L"Meters"));
}

TEST(FileObject, ExceptionsModeThrowsATextThatNamesFileSectionAndKey)
{
    const TempDirectory directory;
    const CString name = directory.Write("a.geo", "[Dtf-A]\nscale=big\n");
    FileObject file;
    ASSERT_TRUE(file.FileOpen(name, FileMode::openForReading));
    file.ThrowExceptions(true);
    double value = 7.0;
    for (const wchar_t* key : {L"scale", L"shift"}) {
        try {
            file.GetItem(L"Dtf-A", key, value);
            FAIL() << "nothing was thrown";
        } catch (const CString& thrown) {
            EXPECT_THAT(thrown.ToUtf8(), HasSubstr(name.ToUtf8()));
            EXPECT_THAT(thrown.ToUtf8(), HasSubstr("\"Dtf-A\""));
            EXPECT_THAT(thrown.ToUtf8(), HasSubstr(CString(key).ToUtf8()));
        }
    }
    EXPECT_EQ(value, 7.0);
    CString text;
    EXPECT_TRUE(file.GetItem(L"Dtf-A", L"scale", text));
    file.ThrowExceptions(false);
    EXPECT_FALSE(file.GetItem(L"Dtf-A", L"shift", value));
}

TEST(FileObject, ExceptionsModeIsCopiedAndOutlivesAnOpening)
{
    const TempDirectory directory;
    const CString name = directory.Write("a.geo", "");
    FileObject file;
    file.ThrowExceptions(true);
    ASSERT_TRUE(file.FileOpen(name, FileMode::openForReading));
    const FileObject copy(file);
    FileObject assigned;
    assigned = file;
    int value = 0;
    EXPECT_THROW(file.GetItem(L"s", L"k", value), CString);
    EXPECT_THROW(copy.GetItem(L"s", L"k", value), CString);
    EXPECT_THROW(assigned.GetItem(L"s", L"k", value), CString);
    // Only a GetItem throws.
    EXPECT_FALSE(file.SetItem(L"s", L"k", 1, false));
    EXPECT_FALSE(file.HasKey(L"s", L"k"));
}

TEST(FileObject, CopiesAreIndependent)
{
    FileObject file;
    for (int i = 0; i < 40; ++i) {
        file.SetItem(L"s", CString::FromUtf8(std::to_string(i)), i, true);
    }
    FileObject copy(file);
    FileObject assigned;
    assigned.SetItem(L"old", L"k", 1, true);
    assigned = file;
    assigned = *&assigned;
    copy.SetItem(L"s", L"7", 700, true);
    copy.DeleteSection(L"t");
    file.DeleteItem(L"s", L"8", false);
    assigned.SetItem(L"t", L"k", 1, true);
    EXPECT_EQ(Value(file, L"s", L"7"), "7");
    EXPECT_EQ(Value(copy, L"s", L"7"), "700");
    EXPECT_EQ(Value(assigned, L"s", L"7"), "7");
    EXPECT_FALSE(file.HasKey(L"s", L"8"));
    EXPECT_EQ(Value(copy, L"s", L"8"), "8");
    EXPECT_EQ(Value(assigned, L"s", L"8"), "8");
    EXPECT_FALSE(file.HasSection(L"t"));
    EXPECT_FALSE(assigned.HasSection(L"old"));
}

TEST(FileObject, KeepsTheOrderThroughChanges)
{
    FileObject file;
    for (const wchar_t* key : {L"a", L"b", L"c", L"d"}) {
        file.SetItem(L"s", key, 1, true);
        file.SetItem(key, L"k", 1, true);
    }
    file.SetItem(L"s", L"b", 2, true);
    EXPECT_TRUE(file.DeleteItem(L"s", L"c", false));
    file.SetItem(L"s", L"c", 3, true);
    EXPECT_TRUE(file.DeleteSection(L"a"));
    file.CreateSection(L"a", false);
    EXPECT_THAT(KeysOf(file, L"s"), ElementsAre("a=1", "b=2", "d=1", "c=3"));
    EXPECT_THAT(SectionsOf(file), ElementsAre("s", "b", "c", "d", "a"));
}

// Beyond a dozen names, look-up goes through a table that every change has to keep right.
TEST(FileObject, FindsEveryNameThroughManyChanges)
{
    constexpr int count = 300;
    const auto name = [](int i) { return CString::FromUtf8("name " + std::to_string(i)); };
    FileObject file;
    for (int i = 0; i < count; ++i) {
        file.SetItem(name(i), L"k", i, true);
        file.SetItem(L"all", name(i), i, true);
    }
    for (int i = 0; i < count; i += 3) {
        EXPECT_TRUE(file.DeleteSection(name(i)));
        EXPECT_TRUE(file.DeleteItem(L"all", name(i), false));
    }
    for (int i = 0; i < count; i += 6) {
        file.SetItem(L"all", name(i), -i, true);
    }
    for (int i = 0; i < count; ++i) {
        SCOPED_TRACE(i);
        EXPECT_EQ(file.HasSection(name(i)), i % 3 != 0);
        int value = 99999;
        const bool there = i % 3 != 0 || i % 6 == 0;
        EXPECT_EQ(file.GetItem(L"all", name(i), value), there);
        EXPECT_EQ(value, !there ? 99999 : i % 6 == 0 ? -i : i);
    }
    EXPECT_EQ(KeysOf(file, L"all").size(), 250U);
    EXPECT_EQ(SectionsOf(file).size(), 201U);
}

TEST(FileObject, CreateSectionTellsWhetherItExisted)
{
    FileObject file = WithValue("v");
    EXPECT_TRUE(file.CreateSection(L"new", false));
    EXPECT_FALSE(file.CreateSection(L"new", false));
    EXPECT_FALSE(file.CreateSection(L"s", false));
    EXPECT_TRUE(file.CreateSection(L"s", true));
    EXPECT_TRUE(file.CreateSection(L"newer", true));
    EXPECT_THAT(KeysOf(file, L"s"), ElementsAre("k=v"));
    EXPECT_THAT(SectionsOf(file), ElementsAre("s", "new", "newer"));
}

TEST(FileObject, DeleteItemTakesTheEmptySectionOnlyWhenAsked)
{
    FileObject file;
    file.SetItem(L"s", L"a", 1, true);
    file.SetItem(L"s", L"b", 1, true);
    file.SetItem(L"t", L"a", 1, true);
    EXPECT_TRUE(file.DeleteItem(L"s", L"a", true));
    EXPECT_TRUE(file.HasSection(L"s"));
    EXPECT_TRUE(file.DeleteItem(L"s", L"b", true));
    EXPECT_FALSE(file.HasSection(L"s"));
    EXPECT_TRUE(file.DeleteItem(L"t", L"a", false));
    EXPECT_TRUE(file.HasSection(L"t"));
    EXPECT_FALSE(file.DeleteItem(L"t", L"a", true));
    EXPECT_FALSE(file.DeleteItem(L"u", L"a", true));
    EXPECT_TRUE(file.HasSection(L"t"));
    EXPECT_FALSE(file.DeleteSection(L"u"));
}

TEST(FileObject, WalksEndWithUntouchedOutputs)
{
    FileObject file = WithValue("v");
    file.CreateSection(L"empty", false);
    FobjSection cursor;
    CString name = L"before";
    CString key = L"before";
    CString value = L"before";
    EXPECT_FALSE(FileObject().GetFirstSectionEntry(cursor, name));
    EXPECT_FALSE(file.GetFirstMapEntry(cursor, L"empty", key, value));
    EXPECT_FALSE(file.GetNextMapEntry(cursor, key, value));
    EXPECT_FALSE(file.GetFirstMapEntry(cursor, L"missing", key, value));
    EXPECT_FALSE(file.GetNextMapEntry(cursor, key, value));
    FobjSection unused;
    EXPECT_FALSE(file.GetNextMapEntry(unused, key, value));
    EXPECT_FALSE(file.GetNextSectionEntry(unused, name));
    EXPECT_EQ(name, L"before");
    EXPECT_EQ(key, L"before");
    EXPECT_EQ(value, L"before");

    EXPECT_TRUE(file.GetFirstMapEntry(cursor, L"s", key, value));
    EXPECT_FALSE(file.GetNextMapEntry(cursor, key, value));
    EXPECT_FALSE(file.GetNextMapEntry(cursor, key, value));
    EXPECT_EQ(key, L"k");
    EXPECT_EQ(value, L"v");
}

TEST(FileObject, AWalkOfOneKindIsNotGoneOnWithAsTheOther)
{
    const FileObject file = WithValue("v");
    FobjSection cursor;
    CString name;
    CString key;
    CString value;
    ASSERT_TRUE(file.GetFirstSectionEntry(cursor, name));
    EXPECT_FALSE(file.GetNextMapEntry(cursor, key, value));
    ASSERT_TRUE(file.GetFirstMapEntry(cursor, L"s", key, value));
    EXPECT_FALSE(file.GetNextSectionEntry(cursor, name));
}

TEST(FileObject, AWalkSeesTheContentsThatItStartedOn)
{
    FileObject file;
    for (const wchar_t* key : {L"a", L"b", L"c"}) {
        file.SetItem(L"s", key, key, true);
    }
    FobjSection cursor;
    CString key;
    CString value;
    ASSERT_TRUE(file.GetFirstMapEntry(cursor, L"s", key, value));
    FobjSection copy(cursor);
    file.DeleteItem(L"s", L"b", false);
    file.SetItem(L"s", L"c", L"changed", true);
    ASSERT_TRUE(file.GetNextMapEntry(cursor, key, value));
    EXPECT_EQ(key, L"b");
    file.FileClose();
    ASSERT_TRUE(file.GetNextMapEntry(cursor, key, value));
    EXPECT_EQ(key, L"c");
    EXPECT_EQ(value, L"c");
    EXPECT_FALSE(file.GetNextMapEntry(cursor, key, value));
    ASSERT_TRUE(file.GetNextMapEntry(copy, key, value));
    EXPECT_EQ(key, L"b");
}

// They would become U+FFFD, and two names would become one.
TEST(FileObject, RefusesUnpairedSurrogates)
{
    const CString replacement(L'\xFFFD', 1);
    FileObject file;
    ASSERT_TRUE(file.SetItem(replacement, replacement, replacement, true));
    ASSERT_TRUE(file.SetItem(L"s", L"k", L"v", true));
    for (const int unit : {0xD800, 0xDBFF, 0xDC00, 0xDFFF}) {
        SCOPED_TRACE(unit);
        const CString ill(static_cast<wchar_t>(unit), 1);
        for (const CString& text : {ill, L"a" + ill, ill + L"a"}) {
            for (const bool create : {true, false}) {
                EXPECT_FALSE(file.SetItem(L"s", L"k", text, create));
                EXPECT_FALSE(file.SetItem(L"s", L"k", text.GetString(), create));
                EXPECT_FALSE(file.SetItem(L"s", text, L"v", create));
                EXPECT_FALSE(file.SetItem(text, L"k", L"v", create));
                EXPECT_FALSE(file.SetItem(text, L"k", 1.5, create));
            }
            EXPECT_FALSE(file.CreateSection(text, true));
        }
        CString value;
        EXPECT_FALSE(file.HasSection(ill));
        EXPECT_FALSE(file.HasKey(replacement, ill));
        EXPECT_FALSE(file.GetItem(replacement, ill, value));
        EXPECT_FALSE(file.DeleteItem(replacement, ill, true));
        EXPECT_FALSE(file.DeleteSection(ill));
    }
    EXPECT_THAT(SectionsOf(file), ElementsAre("\xEF\xBF\xBD", "s"));
    EXPECT_THAT(KeysOf(file, L"s"), ElementsAre("k=v"));
    EXPECT_TRUE(file.SetItem(L"s", CString::FromUtf8("\xF0\x9F\x98\x80"), L"a pair", true));
}

TEST(FileObject, ApplyDifferenceTakesOverWhatItNames)
{
    FileObject file;
    file.SetItem(L"s", L"a", 1, true);
    file.SetItem(L"s", L"b", 2, true);
    file.SetItem(L"t", L"a", 3, true);
    FileObject difference;
    difference.SetItem(L"s", L"b", 20, true);
    difference.SetItem(L"s", L"c", 30, true);
    difference.CreateSection(L"u", false);
    EXPECT_TRUE(file.ApplyDifference(difference));
    EXPECT_THAT(KeysOf(file, L"s"), ElementsAre("a=1", "b=20", "c=30"));
    EXPECT_THAT(KeysOf(file, L"t"), ElementsAre("a=3"));
    EXPECT_THAT(SectionsOf(file), ElementsAre("s", "t", "u"));
    difference.SetItem(L"s", L"b", 99, true);
    EXPECT_EQ(Value(file, L"s", L"b"), "20");
    EXPECT_TRUE(file.ApplyDifference(file));
    EXPECT_THAT(KeysOf(file, L"s"), ElementsAre("a=1", "b=20", "c=30"));
}

TEST(FileObject, OpensAndClosesAFile)
{
    const TempDirectory directory;
    const CString name = directory.Write("some.thing.geo", "[s]\nk=v\n");
    FileObject file;
    EXPECT_FALSE(file.FileInitialised());
    EXPECT_EQ(file.GetFileName(), L"");
    ASSERT_TRUE(file.FileOpen(name, FileMode::openForReading));
    EXPECT_TRUE(file.FileInitialised());
    EXPECT_EQ(file.GetErrorStatus(), 0);
    EXPECT_EQ(file.GetErrorText(), L"");
    EXPECT_EQ(file.GetErrorLine(), 0);
    EXPECT_EQ(file.GetFileName(), name);
    EXPECT_EQ(file.GetFileTitle(), L"some.thing");
    EXPECT_EQ(Value(file, L"s", L"k"), "v");
    file.FileClose();
    EXPECT_FALSE(file.FileInitialised());
    EXPECT_FALSE(file.HasSection(L"s"));
    EXPECT_EQ(file.GetFileName(), L"");
    EXPECT_EQ(file.GetFileTitle(), L"");
    file.FileClose();
}

TEST(FileObject, AFailedOpeningClosesWhatWasOpen)
{
    const TempDirectory directory;
    FileObject file;
    ASSERT_TRUE(file.FileOpen(directory.Write("a.geo", "[s]\nk=v\n"), FileMode::openForReading));
    EXPECT_FALSE(file.FileOpen(directory.File("missing.geo"), FileMode::openForReading));
    EXPECT_FALSE(file.FileInitialised());
    EXPECT_FALSE(file.HasSection(L"s"));
    EXPECT_EQ(file.GetFileName(), L"");
    EXPECT_EQ(file.GetErrorStatus(), Status(FileErrorCode::notFound));
    EXPECT_THAT(file.GetErrorText().ToUtf8(), HasSubstr("missing.geo"));
    ASSERT_TRUE(file.FileOpen(directory.File("a.geo"), FileMode::openForReading));
    EXPECT_EQ(file.GetErrorStatus(), 0);
    EXPECT_EQ(file.GetErrorText(), L"");
}

TEST(FileObject, OpeningAgainForgetsChangesThatWereNotSaved)
{
    const TempDirectory directory;
    const CString name = directory.Write("a.geo", "[s]\nk=v\n");
    FileObject file;
    ASSERT_TRUE(file.FileOpen(name, FileMode::openForReading));
    file.SetItem(L"s", L"k", L"changed", true);
    file.SetItem(L"t", L"k", L"new", true);
    ASSERT_TRUE(file.FileOpen(file.GetFileName(), FileMode::openForReading));
    EXPECT_THAT(SectionsOf(file), ElementsAre("s"));
    EXPECT_EQ(Value(file, L"s", L"k"), "v");
}

TEST(FileObject, RefusesWhatIsNoFile)
{
    const TempDirectory directory;
    directory.Write("file.geo", "");
    struct Row {
        CString path;
        FileErrorCode code;
    };
    const Row rows[] = {
        {L"", FileErrorCode::notFound},
        {directory.File("missing.geo"), FileErrorCode::notFound},
        {directory.File("missing/a.geo"), FileErrorCode::notFound},
        {directory.File("file.geo/a.geo"), FileErrorCode::notFound},
        {directory.Directory(), FileErrorCode::notReadable},
        {directory.File("file.geo") + L'\0' + L"x", FileErrorCode::notFound},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.path.ToUtf8());
        FileObject file;
        EXPECT_FALSE(file.FileOpen(row.path, FileMode::openForReading));
        EXPECT_EQ(file.GetErrorStatus(), Status(row.code));
        EXPECT_FALSE(file.GetErrorText().IsEmpty());
        EXPECT_EQ(file.GetErrorLine(), 0);
    }
}

TEST(FileObject, RefusesAFileBeyondTheLimitWithoutReadingIt)
{
    const TempDirectory directory;
    const CString name = directory.Write("huge.geo", "");
    std::filesystem::resize_file(directory.Path() / "huge.geo", (std::uintmax_t{1} << 30) + 1); // all hole
    FileObject file;
    EXPECT_FALSE(file.FileOpen(name, FileMode::openForReading));
    EXPECT_EQ(file.GetErrorStatus(), Status(FileErrorCode::notReadable));
    EXPECT_THAT(file.GetErrorText().ToUtf8(), HasSubstr("larger than 1 GiB"));
}

TEST(FileObject, Mode4097MakesANewEmptyFile)
{
    const TempDirectory directory;
    const CString name = directory.File("new.geo");
    FileObject file;
    ASSERT_TRUE(file.FileOpen(name, 4097)) << file.GetErrorText().ToUtf8();
    EXPECT_TRUE(file.FileInitialised());
    EXPECT_EQ(file.GetFileName(), name);
    EXPECT_TRUE(std::filesystem::exists(directory.Path() / "new.geo"));
    EXPECT_EQ(directory.Read("new.geo"), "");
    FileObject reader;
    EXPECT_TRUE(reader.FileOpen(name, 32));
    EXPECT_THAT(SectionsOf(reader), IsEmpty());
}

TEST(FileObject, Mode4097SetsAsideWhatThereWas)
{
    const TempDirectory directory;
    const CString name = directory.Write("a.geo", "[s]\nk=v\n");
    FileObject file;
    ASSERT_TRUE(file.FileOpen(name, 32));
    ASSERT_TRUE(file.FileOpen(name, 4097));
    EXPECT_FALSE(file.HasSection(L"s"));
    EXPECT_EQ(directory.Read("a.geo"), "");
    EXPECT_THAT(FilesIn(directory), ElementsAre("a.geo", "a.geo.old-1"));
    EXPECT_EQ(directory.Read("a.geo.old-1"), "[s]\nk=v\n");
    ASSERT_TRUE(file.FileOpen(name, 32));
    EXPECT_FALSE(file.HasSection(L"s"));
}

// As the database opens its user file.
TEST(FileObject, Mode4097KeepsEveryMalformedFileByteForByte)
{
    const TempDirectory directory;
    const std::string texts[] = {"[s]\nk=1\nk=2\n", std::string("\xFF\xFE\0 no text", 11), "[s]\nk=C:\\temp\n"};
    directory.Write("a.geo.old-2", "somebody's own");
    FileObject file;
    for (const std::string& text : texts) {
        const CString name = directory.Write("a.geo", text);
        ASSERT_FALSE(file.FileOpen(name, 32));
        ASSERT_TRUE(file.FileOpen(name, 4097)) << file.GetErrorText().ToUtf8();
        ASSERT_TRUE(file.FileOpen(name, 32));
        EXPECT_EQ(directory.Read("a.geo"), "");
    }
    EXPECT_THAT(FilesIn(directory), ElementsAre("a.geo", "a.geo.old-1", "a.geo.old-2", "a.geo.old-3", "a.geo.old-4"));
    EXPECT_EQ(directory.Read("a.geo.old-1"), texts[0]);
    EXPECT_EQ(directory.Read("a.geo.old-2"), "somebody's own");
    EXPECT_EQ(directory.Read("a.geo.old-3"), texts[1]);
    EXPECT_EQ(directory.Read("a.geo.old-4"), texts[2]);
}

TEST(FileObject, Mode4097LeavesAnEmptyFile)
{
    const TempDirectory directory;
    FileObject file;
    ASSERT_TRUE(file.FileOpen(directory.Write("a.geo", ""), 4097));
    EXPECT_TRUE(file.FileInitialised());
    EXPECT_THAT(FilesIn(directory), ElementsAre("a.geo"));
}

TEST(FileObject, Mode4097FailsWhenEveryNameForTheOldFileIsTaken)
{
    const TempDirectory directory;
    const CString name = directory.Write("a.geo", "[s]\n");
    for (int number = 1; number < 1000; ++number) {
        directory.Write("a.geo.old-" + std::to_string(number), "");
    }
    FileObject file;
    EXPECT_FALSE(file.FileOpen(name, 4097));
    EXPECT_EQ(file.GetErrorStatus(), Status(FileErrorCode::notWritable));
    EXPECT_EQ(directory.Read("a.geo"), "[s]\n");
    EXPECT_EQ(FilesIn(directory).size(), 1000U);
}

// Two programs start for the first time: neither finds the file, and both set about making it.
TEST(FileObject, Mode4097LeavesAFileThatCameToBeSinceItWasMissed)
{
    const TempDirectory directory;
    const CString name = directory.File("a.geo");
    FileObject early;
    FileObject late;
    ASSERT_FALSE(early.FileOpen(name, 32));
    ASSERT_FALSE(late.FileOpen(name, 32));
    ASSERT_TRUE(early.FileOpen(name, 4097));
    early.SetItem(L"s", L"k", L"v", true);
    ASSERT_TRUE(early.FileSave(L"", 4113));

    EXPECT_FALSE(late.FileOpen(name, 4097));
    EXPECT_EQ(late.GetErrorStatus(), Status(FileErrorCode::inUse));
    EXPECT_FALSE(late.FileInitialised());
    EXPECT_EQ(directory.Read("a.geo"), "[s]\nk=v\n");
    EXPECT_THAT(FilesIn(directory), ElementsAre("a.geo"));
    EXPECT_TRUE(late.FileOpen(name, 32));
    EXPECT_TRUE(late.FileOpen(name, 4097)); // asked for with the file in view
    EXPECT_THAT(FilesIn(directory), ElementsAre("a.geo", "a.geo.old-1"));
}

TEST(FileObject, Mode4097TakesAFileThatBothMissedAndOneMadeEmpty)
{
    const TempDirectory directory;
    const CString name = directory.File("a.geo");
    FileObject early;
    FileObject late;
    ASSERT_FALSE(early.FileOpen(name, 32));
    ASSERT_FALSE(late.FileOpen(name, 32));
    EXPECT_TRUE(early.FileOpen(name, 4097));
    EXPECT_TRUE(late.FileOpen(name, 4097));
    EXPECT_THAT(FilesIn(directory), ElementsAre("a.geo"));
}

TEST(FileObject, Mode4097FailsWhereNothingCanBeCreated)
{
    const TempDirectory directory;
    FileObject file;
    EXPECT_FALSE(file.FileOpen(directory.File("missing/a.geo"), 4097));
    EXPECT_FALSE(file.FileInitialised());
    EXPECT_EQ(file.GetErrorStatus(), Status(FileErrorCode::notWritable));
    EXPECT_FALSE(file.FileOpen(L"", 4097));
    EXPECT_EQ(file.GetErrorStatus(), Status(FileErrorCode::notWritable));
}

class Watched : public FileObject {
public:
    bool answer = true;
    int calls = 0;

protected:
    bool AfterFileOpen() override
    {
        ++calls;
        EXPECT_TRUE(FileInitialised());
        EXPECT_TRUE(HasSection(L"s"));
        return answer;
    }
};

TEST(FileObject, AfterFileOpenCanRefuseTheContents)
{
    const TempDirectory directory;
    const CString name = directory.Write("a.geo", "[s]\nk=v\n");
    Watched file;
    EXPECT_TRUE(file.FileOpen(name, FileMode::openForReading));
    EXPECT_EQ(file.calls, 1);
    file.answer = false;
    EXPECT_FALSE(file.FileOpen(name, FileMode::openForReading));
    EXPECT_EQ(file.calls, 2);
    EXPECT_FALSE(file.FileInitialised());
    EXPECT_FALSE(file.HasSection(L"s"));
    EXPECT_EQ(file.GetErrorStatus(), Status(FileErrorCode::refused));
    EXPECT_FALSE(file.FileOpen(directory.File("missing.geo"), FileMode::openForReading));
    EXPECT_TRUE(file.FileOpen(directory.File("new.geo"), FileMode::createNew));
    EXPECT_EQ(file.calls, 2);
}

TEST(FileObject, SavesUnderItsOwnNameAndUnderAnother)
{
    const TempDirectory directory;
    const CString name = directory.Write("a.geo", "[s]\nk=v\n");
    FileObject file;
    ASSERT_TRUE(file.FileOpen(name, FileMode::openForReading));
    file.SetItem(L"s", L"k", L"new", true);
    EXPECT_TRUE(file.FileSave(L"", 4113));
    EXPECT_EQ(directory.Read("a.geo"), "[s]\nk=new\n");
    EXPECT_TRUE(file.FileSave(directory.File("b.geo"), 4113));
    EXPECT_EQ(directory.Read("b.geo"), "[s]\nk=new\n");
    EXPECT_EQ(file.GetFileName(), name);
    EXPECT_EQ(file.GetErrorStatus(), 0);
    FileObject reader;
    ASSERT_TRUE(reader.FileOpen(name, 32));
    EXPECT_EQ(Value(reader, L"s", L"k"), "new");
}

// A datum is saved into a file whose opening nobody looked at.
TEST(FileObject, SavesWhatWasNeverOpened)
{
    const TempDirectory directory;
    FileObject file;
    EXPECT_FALSE(file.FileOpen(directory.File("new.geo"), 32));
    file.SetItem(L"Dtf-A", L"k", 1, true);
    EXPECT_TRUE(file.FileSave(directory.File("new.geo"), 4113));
    EXPECT_EQ(directory.Read("new.geo"), "[Dtf-A]\nk=1\n");
    EXPECT_FALSE(file.FileSave(L"", 4113));
    EXPECT_EQ(file.GetErrorStatus(), Status(FileErrorCode::notWritable));
}

TEST(FileObject, KeepsItsFullNameWhenTheWorkingDirectoryChanges)
{
    const TempDirectory directory;
    directory.Write("a.geo", "[s]\nk=v\n");
    const auto before = std::filesystem::current_path();
    std::filesystem::current_path(directory.Path());
    FileObject file;
    const bool opened = file.FileOpen(L"a.geo", 32);
    std::filesystem::current_path(before);
    ASSERT_TRUE(opened);
    EXPECT_EQ(file.GetFileName(), directory.File("a.geo"));
    file.SetItem(L"s", L"k", L"w", true);
    EXPECT_TRUE(file.FileSave(L"", 4113));
    EXPECT_EQ(directory.Read("a.geo"), "[s]\nk=w\n");
}

TEST(FileObject, TakesNamesOutsideAscii)
{
    const TempDirectory directory;
    const CString name = CString::FromUtf8((directory.Path() / "").string() + "Gr\xC3\xB6nland \xE6\xB5\xB7.geo");
    FileObject file;
    file.SetItem(L"s", L"k", 1, true);
    ASSERT_TRUE(file.FileSave(name, 4113)) << file.GetErrorText().ToUtf8();
    FileObject reader;
    EXPECT_TRUE(reader.FileOpen(name, 32));
    EXPECT_EQ(reader.GetFileTitle(), CString::FromUtf8("Gr\xC3\xB6nland \xE6\xB5\xB7"));
}

// A file system's clock moves in steps; two writings within one look alike but for the bytes.
TEST(FileObject, SeesEveryRewritingOfTheSameSize)
{
    const TempDirectory directory;
    for (int i = 0; i < 60; ++i) {
        const std::string digits = std::to_string(1000 + i);
        const CString name = directory.Write("a.geo", "[s]\nk=" + digits + "\n");
        FileObject file;
        ASSERT_TRUE(file.FileOpen(name, 32));
        ASSERT_EQ(Value(file, L"s", L"k"), digits);
    }
}

TEST(FileObject, SeesARewritingWithTheOldTimePutBack)
{
    const TempDirectory directory;
    const CString name = directory.Write("a.geo", "[s]\nk=1\n");
    const auto time = std::filesystem::last_write_time(directory.Path() / "a.geo");
    FileObject file;
    ASSERT_TRUE(file.FileOpen(name, 32));
    directory.Write("a.geo", "[s]\nk=2\n");
    std::filesystem::last_write_time(directory.Path() / "a.geo", time);
    ASSERT_TRUE(file.FileOpen(name, 32));
    EXPECT_EQ(Value(file, L"s", L"k"), "2");
}

TEST(FileObject, ParsesAFileAgainThatWasMalformed)
{
    const TempDirectory directory;
    const CString name = directory.Write("a.geo", "[s]\nkv\n\n");
    FileObject file;
    EXPECT_FALSE(file.FileOpen(name, 32));
    directory.Write("a.geo", "[s]\nk=v\n");
    EXPECT_TRUE(file.FileOpen(name, 32));
    directory.Write("a.geo", "[s]\nk v\n");
    EXPECT_FALSE(file.FileOpen(name, 32));
}

TEST(FileObject, AChangeDoesNotReachOtherOpeningsOfTheFile)
{
    const TempDirectory directory;
    const CString name = directory.Write("a.geo", "[s]\nk=v\n");
    FileObject first;
    FileObject second;
    ASSERT_TRUE(first.FileOpen(name, 32));
    first.SetItem(L"s", L"k", L"changed", true);
    ASSERT_TRUE(second.FileOpen(name, 32));
    EXPECT_EQ(Value(second, L"s", L"k"), "v");
    ASSERT_TRUE(first.FileSave(L"", 4113));
    first.SetItem(L"s", L"k", L"changed again", true);
    EXPECT_EQ(Value(second, L"s", L"k"), "v");
    ASSERT_TRUE(second.FileOpen(name, 32));
    EXPECT_EQ(Value(second, L"s", L"k"), "changed");
}

TEST(FileObject, HasTheDeclaredCopiesAndNoConversionBetweenTypes)
{
    static_assert(std::has_virtual_destructor_v<FileObject>);
    static_assert(std::is_copy_constructible_v<FileObject>);
    static_assert(std::is_copy_assignable_v<FileObject>);
    FileObject file;
    file.SetItem(L"s", L"word", L"true", true); // not the overload for bool
    EXPECT_EQ(Value(file, L"s", L"word"), "true");
}

} // namespace
