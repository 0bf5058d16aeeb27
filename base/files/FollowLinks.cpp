#include "base/files/FollowLinks.h"

#include <system_error>

#include "base/files/FileMode.h"

bool FollowLinks(std::filesystem::path& target, platform::FileFailure& failure)
{
    constexpr int mostLinks = 40; // as the Linux kernel follows

    for (int i = 0; i < mostLinks; ++i) {
        std::error_code error;
        if (!std::filesystem::is_symlink(std::filesystem::symlink_status(target, error))) {
            return true;
        }
        const std::filesystem::path link = std::filesystem::read_symlink(target, error);
        if (error) {
            failure = {FileErrorCode::notWritable, L"the symbolic link cannot be followed"};
            return false;
        }
        target = target.parent_path() / link;
    }
    failure = {FileErrorCode::notWritable, L"too many symbolic links"};
    return false;
}
