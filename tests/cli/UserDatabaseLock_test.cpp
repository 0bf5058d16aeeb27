#include <optional>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <sys/wait.h>
#include <unistd.h>

#include "ToolError.h"
#include "UserDatabaseLock.h"
#include "tests/support/TempDirectory.h"

using namespace std::chrono_literals;

namespace {

std::string RefusalOf(const CString& directory)
{
    try {
        const UserDatabaseLock lock(directory, 0ms);
    } catch (const ToolError& error) {
        EXPECT_EQ(error.Status(), ExitStatus::unusable);
        return error.what();
    }
    return {};
}

} // namespace

class UserDatabaseLockTest : public testing::Test {
protected:
    TempDirectory m_directory;
    CString m_user = m_directory.File("user/");
};

TEST_F(UserDatabaseLockTest, OneHolderAtATime)
{
    {
        const UserDatabaseLock lock(m_user, 0ms);
        EXPECT_THAT(RefusalOf(m_user),
                    testing::AllOf(testing::HasSubstr((m_user + L"zorusergeobase.lock").ToUtf8()),
                                   testing::HasSubstr("another zorgeo"), testing::HasSubstr("try again")));
    }
    EXPECT_EQ(RefusalOf(m_user), "");
}

TEST_F(UserDatabaseLockTest, TheEndOfAProcessGivesItBack)
{
    const pid_t child = ::fork();
    if (child == 0) {
        const auto* const held = new UserDatabaseLock(m_user, 0ms);
        ::_exit(held != nullptr ? 0 : 1);
    }
    int status = -1;
    ASSERT_EQ(::waitpid(child, &status, 0), child);
    ASSERT_EQ(status, 0);
    EXPECT_EQ(RefusalOf(m_user), "");
}

TEST_F(UserDatabaseLockTest, ADirectoryThatCannotBeMadeIsNamed)
{
    m_directory.Write("file", "");
    EXPECT_THAT(RefusalOf(m_directory.File("file/user/")), testing::HasSubstr("file/user"));
}
