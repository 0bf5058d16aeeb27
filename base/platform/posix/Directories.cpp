#include "base/platform/Directories.h"

#include <pwd.h>
#include <unistd.h>

#include <array>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <system_error>

#ifndef ZORGEO_INSTALL_DATADIR
#define ZORGEO_INSTALL_DATADIR "/usr/local/share/zorgeo/"
#endif

namespace {

/// The value of a variable that holds an absolute path; empty otherwise.
std::string AbsolutePathIn(const char* variable)
{
    const char* const value = std::getenv(variable);
    return value != nullptr && value[0] == '/' ? value : "";
}

/// What the user database says, for a process that was started without HOME.
std::string HomeOfUser()
{
    std::array<char, 16384> buffer{};
    passwd record{};
    passwd* found = nullptr;
    const int error = getpwuid_r(getuid(), &record, buffer.data(), buffer.size(), &found);
    return error == 0 && found != nullptr && found->pw_dir != nullptr ? found->pw_dir : "";
}

std::string Home()
{
    const std::string home = AbsolutePathIn("HOME");
    return home.empty() ? HomeOfUser() : home;
}

/// `base`/`relative`, empty when there is no base.
CString Below(const std::string& base, const char* relative)
{
    if (base.empty()) {
        return {};
    }
    return CString::FromUtf8((std::filesystem::path(base) / relative).string());
}

} // namespace

namespace platform {

CString DeliveredDataDirectory()
{
    return CString::FromUtf8(ZORGEO_INSTALL_DATADIR);
}

CString UserDataDirectory()
{
    // As the XDG base directories are defined, a relative path in the variable is ignored.
    const std::string data = AbsolutePathIn("XDG_DATA_HOME");
    return data.empty() ? Below(Home(), ".local/share/zorgeo/") : Below(data, "zorgeo/");
}

CString ProjectsRootDirectory()
{
    return Below(Home(), "zorgeo-projects/");
}

CString ExecutableFile()
{
    std::error_code error;
    return CString::FromUtf8(std::filesystem::read_symlink("/proc/self/exe", error).string());
}

} // namespace platform
