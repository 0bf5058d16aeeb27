// The text descriptions of every kind of record, byte by byte, against what
// scripts/make_text_goldens.py renders from the same files in a way of its own.

#include <filesystem>
#include <fstream>
#include <functional>
#include <map>
#include <sstream>
#include <stdexcept>
#include <tuple>

#include "tests/support/CommaLocale.h"
#include "tests/support/ModuleTexts.h"
#include "tests/unit/database/DatabaseFixture.h"

namespace {

namespace fs = std::filesystem;

const fs::path kTexts = fs::path(ZORGEO_SOURCE_DIR) / "tests" / "data" / "texts";

std::string ContentOf(const fs::path& path)
{
    std::ifstream file(path, std::ios::binary);
    if (!file) {
        throw std::runtime_error("cannot read " + path.string());
    }
    std::ostringstream content;
    content << file.rdbuf();
    return content.str();
}

std::vector<std::string> Split(const std::string& text, char separator)
{
    std::vector<std::string> items(1);
    for (const char c : text) {
        if (c == separator) {
            items.emplace_back();
        } else {
            items.back() += c;
        }
    }
    return items;
}

/// Text behind the visible form.
std::string Unescaped(const std::string& visible)
{
    std::string text;
    for (std::size_t i = 0; i < visible.size(); ++i) {
        if (visible[i] != '\\') {
            text += visible[i];
            continue;
        }
        const char escape = visible.at(++i);
        text += escape == 't' ? '\t' : escape == 'r' ? '\r' : escape == 'n' ? '\n' : escape;
    }
    return text;
}

struct Call {
    std::vector<std::string> arguments; ///< the operation first
    std::string expected;
};

struct Golden {
    std::string mainFile;
    std::string userFile;
    std::vector<Call> calls;
};

Golden ReadGolden(const fs::path& path)
{
    Golden golden;
    std::istringstream lines(ContentOf(path));
    for (std::string line; std::getline(lines, line);) {
        if (!line.empty() && line.back() == '\r') {
            line.pop_back(); // of a checkout with other line ends
        }
        if (line.starts_with("main ")) {
            golden.mainFile = line.substr(5);
        } else if (line.starts_with("user ")) {
            golden.userFile = line.substr(5);
        } else if (line.starts_with("call ")) {
            golden.calls.push_back({Split(line.substr(5), '|'), {}});
        } else if (line.starts_with("|")) {
            golden.calls.at(golden.calls.size() - 1).expected += Unescaped(line.substr(1));
        }
    }
    return golden;
}

using Arguments = std::vector<CString>;
using Operation = std::function<CString(ZorGeoDatabaseBase&, const Arguments&)>;

bool Titled(const CString& argument)
{
    return argument == L"1";
}

/// By name and number of arguments.
const std::map<std::pair<std::string, std::size_t>, Operation> kOperations = {
    {{"DumpElpText", 1}, [](auto& d, const auto& a) { return d.DumpElpText(a[0]); }},
    {{"DumpUnitText", 1}, [](auto& d, const auto& a) { return d.DumpUnitText(a[0]); }},
    {{"DumpDatumfText", 2}, [](auto& d, const auto& a) { return d.DumpDatumfText(a[0], Titled(a[1])); }},
    {{"DumpPrjText", 1}, [](auto& d, const auto& a) { return d.DumpPrjText(a[0]); }},
    {{"DumpPrjText", 3}, [](auto& d, const auto& a) { return d.DumpPrjText(a[0], a[1], Titled(a[2])); }},
    {{"DumpSystemText", 7},
     [](auto& d, const auto& a) { return d.DumpSystemText(a[0], a[1], a[2], a[3], a[4], a[5], a[6]); }},
    {{"DumpSystemIDText", 7},
     [](auto& d, const auto& a) { return d.DumpSystemIDText(a[0], a[1], a[2], a[3], a[4], a[5], a[6]); }},
};

using Parameter = std::tuple<const char*, const char*>;

class ZorGeoDatabaseTextGoldens : public DatabaseTest, public testing::WithParamInterface<Parameter> {
protected:
    /// Opens the files that the golden file names, and makes its calls.
    void Compare()
    {
        const auto& [directory, subject] = GetParam();
        const Golden golden = ReadGolden(kTexts / directory / (std::string(subject) + ".golden"));
        mainDirectory.Write("zorgeodatabase.geo", ContentOf(kTexts / golden.mainFile));
        userDirectory.Write("zorusergeobase.geo", ContentOf(kTexts / golden.userFile));
        mainDirectory.Write("ZorProjectionStatic.dat",
                            ContentOf(fs::path(ZORGEO_DATA_DIR) / "ZorProjectionStatic.dat"));
        ZorGeoDatabase database;
        ASSERT_TRUE(database.Init());
        EXPECT_GE(golden.calls.size(), 12u);
        for (const Call& call : golden.calls) {
            Compare(database, call);
        }
    }

private:
    static void Compare(ZorGeoDatabase& database, const Call& call)
    {
        Arguments arguments;
        for (std::size_t i = 1; i < call.arguments.size(); ++i) {
            arguments.push_back(CString::FromUtf8(call.arguments[i]));
        }
        const Operation& operation = kOperations.at({call.arguments[0], arguments.size()});
        StaticFormats::GetUnitCnv().SetUnit(CZorUnitCnv::datumRotation, 1.0, 0.0, L"", L"", L"");
        EXPECT_EQ(operation(database, arguments).ToUtf8(), call.expected) << testing::PrintToString(call.arguments);
    }

    ModuleTexts m_texts;
};

std::string NameOf(const testing::TestParamInfo<Parameter>& info)
{
    return std::string(std::get<1>(info.param)) + "_" + std::get<0>(info.param);
}

} // namespace

TEST_P(ZorGeoDatabaseTextGoldens, AreMatchedByteForByte)
{
    Compare();
}

TEST_P(ZorGeoDatabaseTextGoldens, AreMatchedInAnyLocale)
{
    const CommaLocale locale;
    Compare();
}

INSTANTIATE_TEST_SUITE_P(, ZorGeoDatabaseTextGoldens,
                         testing::Combine(testing::Values("records_delivered", "records_of_the_user"),
                                          testing::Values("ellipsoids", "units", "datums", "projections", "systems",
                                                          "systems_unnamed", "systems_overridden")),
                         NameOf);
