#include "base/registry/DataSearch.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <initializer_list>
#include <map>
#include <optional>
#include <string>

#include "base/files/SplitPath.h"
#include "tests/support/TempDirectory.h"

namespace {

/// The directory as UTF-8; nothing when the search refuses.
std::optional<std::string> Directory(const DataSearch& search, unsigned number)
{
    CString path = L"as it was";
    if (search.GetDataPathInfo(number, path)) {
        return path.ToUtf8();
    }
    EXPECT_EQ(path, L"as it was");
    return std::nullopt;
}

std::string WithSeparator(const std::string& path)
{
    return ::WithSeparator(CString::FromUtf8(path)).ToUtf8();
}

} // namespace

TEST(DataSearch, HasItsNumbers)
{
    EXPECT_EQ(DataSearch::deliveredDatabase, 1u);
    EXPECT_EQ(DataSearch::currentProject, 2u);
    EXPECT_EQ(DataSearch::projectsRoot, 4u);
    EXPECT_EQ(DataSearch::userDatabase, 10u);
    EXPECT_EQ(DataSearch::temporary, 26u);
}

TEST(DataSearch, IsOneForTheProcess)
{
    EXPECT_EQ(&DataSearch::GetDataSearch(), &DataSearch::GetDataSearch());
}

TEST(DataSearch, GivesWhatWasSetWithATrailingSeparator)
{
    const std::string separator(1, static_cast<char>(std::filesystem::path::preferred_separator));
    DataSearch search;
    search.SetDataPath(4, L"projects");
    EXPECT_EQ(Directory(search, 4), "projects" + separator);
    search.SetDataPath(4, CString::FromUtf8("surveys" + separator));
    EXPECT_EQ(Directory(search, 4), "surveys" + separator);
}

TEST(DataSearch, AnEmptyDirectoryCanBeSet)
{
    DataSearch search;
    search.SetDataPath(1, L"");
    EXPECT_EQ(Directory(search, 1), "");
}

TEST(DataSearch, RefusesAnUnknownNumberUntilItIsSet)
{
    DataSearch search;
    for (const unsigned number : {0u, 3u, 5u, 25u, 27u, 4294967295u}) {
        EXPECT_EQ(Directory(search, number), std::nullopt) << number;
    }
    search.SetDataPath(3, L"x/");
    EXPECT_TRUE(Directory(search, 3).has_value());
}

TEST(DataSearch, RefusesWhatWasMadeUnavailableUntilItIsSetAgain)
{
    DataSearch search;
    search.SetUnavailable(2);
    EXPECT_EQ(Directory(search, 2), std::nullopt);
    search.SetDataPath(2, L"x/");
    EXPECT_EQ(Directory(search, 2), "x/");
    search.SetUnavailable(2);
    EXPECT_EQ(Directory(search, 2), std::nullopt);
}

TEST(DataSearch, HoldsTheNameOfTheOpenProject)
{
    DataSearch search;
    EXPECT_TRUE(search.GetCurrentProjectName().IsEmpty());
    search.SetCurrentProjectName(L"Harbour 2024");
    EXPECT_EQ(search.GetCurrentProjectName(), L"Harbour 2024");
}

TEST(DataSearch, ResetBringsTheDefaultsBack)
{
    DataSearch search;
    const auto before = Directory(search, 2);
    search.SetDataPath(2, L"x/");
    search.SetUnavailable(26);
    search.SetDataPath(99, L"y/");
    search.SetCurrentProjectName(L"Harbour 2024");
    search.Reset();
    EXPECT_EQ(Directory(search, 2), before);
    EXPECT_TRUE(Directory(search, 26).has_value());
    EXPECT_EQ(Directory(search, 99), std::nullopt);
    EXPECT_TRUE(search.GetCurrentProjectName().IsEmpty());
}

TEST(DataSearchDefaults, CurrentProjectIsTheCurrentDirectory)
{
    const DataSearch search;
    EXPECT_EQ(Directory(search, 2), WithSeparator(std::filesystem::current_path().string()));
    const TempDirectory elsewhere;
    const auto here = std::filesystem::current_path();
    std::filesystem::current_path(elsewhere.Path());
    EXPECT_EQ(Directory(search, 2), WithSeparator(std::filesystem::current_path().string()));
    std::filesystem::current_path(here);
}

#if !defined(_WIN32)

#include <pwd.h>
#include <unistd.h>

namespace {

/// Sets environment variables (null: takes one out) and brings the earlier ones back.
class ScopedEnvironment {
public:
    ScopedEnvironment(std::initializer_list<std::pair<const char*, const char*>> variables)
    {
        for (const auto& [name, value] : variables) {
            const char* const earlier = std::getenv(name);
            m_earlier[name] = earlier != nullptr ? std::optional<std::string>(earlier) : std::nullopt;
            Set(name, value);
        }
    }
    ~ScopedEnvironment()
    {
        for (const auto& [name, value] : m_earlier) {
            Set(name.c_str(), value ? value->c_str() : nullptr);
        }
    }
    ScopedEnvironment(const ScopedEnvironment&) = delete;
    ScopedEnvironment& operator=(const ScopedEnvironment&) = delete;

private:
    static void Set(const char* name, const char* value)
    {
        if (value != nullptr) {
            setenv(name, value, 1);
        } else {
            unsetenv(name);
        }
    }
    std::map<std::string, std::optional<std::string>> m_earlier;
};

} // namespace

TEST(DataSearchDefaults, DeliveredDatabaseIsAnAbsoluteDirectoryOfThePackage)
{
    const auto directory = Directory(DataSearch(), 1);
    ASSERT_TRUE(directory.has_value());
    EXPECT_EQ(directory->front(), '/');
    EXPECT_TRUE(directory->ends_with("/zorgeo/")) << *directory;
}

TEST(DataSearchDefaults, UserDatabaseFollowsTheDesktopConvention)
{
    const DataSearch search;
    {
        const ScopedEnvironment environment{{"XDG_DATA_HOME", "/data/of/anna"}, {"HOME", "/home/anna"}};
        EXPECT_EQ(Directory(search, 10), "/data/of/anna/zorgeo/");
    }
    {
        const ScopedEnvironment environment{{"XDG_DATA_HOME", nullptr}, {"HOME", "/home/anna"}};
        EXPECT_EQ(Directory(search, 10), "/home/anna/.local/share/zorgeo/");
    }
    // A path that is not absolute is no setting.
    for (const char* const ignored : {"", "data", "./data"}) {
        const ScopedEnvironment environment{{"XDG_DATA_HOME", ignored}, {"HOME", "/home/anna/"}};
        EXPECT_EQ(Directory(search, 10), "/home/anna/.local/share/zorgeo/") << ignored;
    }
}

TEST(DataSearchDefaults, ProjectsLieInTheHomeDirectory)
{
    const ScopedEnvironment environment{{"HOME", "/home/anna"}};
    EXPECT_EQ(Directory(DataSearch(), 4), "/home/anna/zorgeo-projects/");
}

TEST(DataSearchDefaults, WithoutHomeTheUserDatabaseOfTheSystemIsAsked)
{
    const ScopedEnvironment environment{{"HOME", nullptr}, {"XDG_DATA_HOME", nullptr}};
    // A user that the system does not know has no directory; none is made up.
    const passwd* const user = getpwuid(getuid());
    const auto expected =
        user != nullptr ? std::optional(user->pw_dir + std::string("/.local/share/zorgeo/")) : std::nullopt;
    EXPECT_EQ(Directory(DataSearch(), 10), expected);
}

TEST(DataSearchDefaults, HomeWithLettersBeyondAscii)
{
    const ScopedEnvironment environment{{"HOME", "/home/Jos\xC3\xA9"}};
    EXPECT_EQ(Directory(DataSearch(), 4), "/home/Jos\xC3\xA9/zorgeo-projects/");
}

TEST(DataSearchDefaults, TemporaryDirectoryIsTheSystems)
{
    const TempDirectory place;
    const std::string name = place.Path().string();
    const ScopedEnvironment environment{{"TMPDIR", name.c_str()}};
    EXPECT_EQ(Directory(DataSearch(), 26), name + "/");
}

#endif
