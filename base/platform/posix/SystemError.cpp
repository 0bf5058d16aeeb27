#include "base/platform/posix/SystemError.h"

#include <cerrno>

namespace platform {

namespace {

struct ErrorText {
    int error;
    const wchar_t* text;
};

constexpr ErrorText kErrorTexts[] = {
    {ENOENT, L"there is no such file or directory"},
    {ENOTDIR, L"a part of the path is no directory"},
    {EISDIR, L"it is a directory"},
    {EACCES, L"access is denied"},
    {EPERM, L"access is denied"},
    {EROFS, L"the file system is read-only"},
    {ENOSPC, L"the disk is full"},
    {EDQUOT, L"the disk quota is used up"},
    {EFBIG, L"the file would be larger than the system allows"},
    {EIO, L"the device failed"},
    {ENAMETOOLONG, L"the name is too long"},
    {ELOOP, L"too many symbolic links"},
    {EMFILE, L"too many files are open"},
    {ENFILE, L"too many files are open"},
    {ENOMEM, L"out of memory"},
};

} // namespace

CString ReasonOf(int error)
{
    for (const ErrorText& row : kErrorTexts) {
        if (row.error == error) {
            return row.text;
        }
    }
    CString text;
    text.Format(L"system error %d", error);
    return text;
}

bool FailBySystem(FileErrorCode code, FileFailure& failure)
{
    failure = {code, ReasonOf(errno)};
    return false;
}

} // namespace platform
