#include "UserDirectory.h"

#include <filesystem>

#include <fmt/format.h>

#include "ToolError.h"
#include "base/files/SplitPath.h"
#include "base/registry/DataSearch.h"
#include "platform/Platform.h"

CString UserDirectoryOf(const CommonOptions& options)
{
    DataSearch& search = DataSearch::GetDataSearch();
    if (!options.userDirectory.empty()) {
        search.SetDataPath(DataSearch::userDatabase, WithSeparator(CString::FromUtf8(options.userDirectory)));
    }
    CString path;
    if (!search.GetDataPathInfo(DataSearch::userDatabase, path) || path.IsEmpty()) {
        throw ToolError(ExitStatus::unusable, "there is no directory for the user database; name one with --user");
    }
    return path;
}

void MakeUserDirectory(const CString& directory)
{
    const std::filesystem::path path = host::PathOf(directory.ToUtf8());
    std::error_code error;
    std::filesystem::create_directories(path, error);
    if (error && !std::filesystem::is_directory(path)) {
        throw ToolError(ExitStatus::unusable,
                        fmt::format("{}: the directory of the user database cannot be made ({}); name another with "
                                    "--user",
                                    directory.ToUtf8(), error.message()));
    }
}
