#include "UserDatabaseLock.h"

#include <cerrno>
#include <thread>

#include <fmt/format.h>

#include "ToolError.h"
#include "UserDirectory.h"
#include "platform/Platform.h"

namespace {

const CString kLockFile = L"zorusergeobase.lock";
constexpr std::chrono::milliseconds kPause{20};

} // namespace

UserDatabaseLock::UserDatabaseLock(const CString& userDirectory, std::chrono::milliseconds patience)
{
    MakeUserDirectory(userDirectory);
    const std::string name = (userDirectory + kLockFile).ToUtf8();
    const auto end = std::chrono::steady_clock::now() + patience;
    for (m_file = host::OpenLocked(host::PathOf(name)); m_file < 0; m_file = host::OpenLocked(host::PathOf(name))) {
        if (errno != EWOULDBLOCK) {
            throw ToolError(ExitStatus::unusable,
                            fmt::format("{}: {}; the user database cannot be changed there, name another directory "
                                        "with --user",
                                        name, host::ErrorText(errno)));
        }
        if (std::chrono::steady_clock::now() >= end) {
            throw ToolError(ExitStatus::unusable,
                            fmt::format("{}: another zorgeo has been changing the user database for more than {} "
                                        "seconds; nothing was changed, try again when it is done",
                                        name, std::chrono::duration<double>(patience).count()));
        }
        std::this_thread::sleep_for(kPause);
    }
}

UserDatabaseLock::~UserDatabaseLock()
{
    host::Close(m_file);
}
