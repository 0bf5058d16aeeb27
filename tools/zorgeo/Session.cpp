#include "Session.h"

#include <algorithm>
#include <filesystem>

#include <fmt/format.h>

#include "DatabaseText.h"
#include "ToolError.h"
#include "base/files/SplitPath.h"
#include "base/registry/CreatorLists.h"
#include "base/registry/DataSearch.h"
#include "platform/Platform.h"

namespace {

const CString kModuleKey = L"ZORCoordSys";

std::string DefaultDataDirectory()
{
    const auto installed = host::ExecutableDirectory() / ZORGEO_INSTALLED_DATADIR;
    std::error_code ignored;
    if (std::filesystem::exists(installed / kMainDatabaseFile.ToUtf8(), ignored)) {
        return host::Utf8Of(installed.lexically_normal());
    }
    return ZORGEO_SOURCE_DATADIR;
}

CString DataDirectory(const CommonOptions& options)
{
    const std::string directory = options.dataDirectory.empty() ? DefaultDataDirectory() : options.dataDirectory;
    const CString path = WithSeparator(CString::FromUtf8(directory));
    DataSearch::GetDataSearch().SetDataPath(DataSearch::deliveredDatabase, path);
    return path;
}

CString UserDirectory(const CommonOptions& options)
{
    DataSearch& search = DataSearch::GetDataSearch();
    if (!options.userDirectory.empty()) {
        search.SetDataPath(DataSearch::userDatabase, WithSeparator(CString::FromUtf8(options.userDirectory)));
    }
    CString path;
    if (!search.GetDataPathInfo(DataSearch::userDatabase, path) || path.IsEmpty()) {
        throw ToolError(ExitStatus::unusable, "there is no directory for the user database; name one with --user");
    }
    std::error_code error;
    std::filesystem::create_directories(host::PathOf(path.ToUtf8()), error);
    if (error && !std::filesystem::is_directory(host::PathOf(path.ToUtf8()))) {
        throw ToolError(ExitStatus::unusable,
                        fmt::format("{}: the directory of the user database cannot be made ({}); name another with "
                                    "--user",
                                    path.ToUtf8(), error.message()));
    }
    return path;
}

/// A new object from the creator that the module registered.
template <typename Product, typename Creator>
std::unique_ptr<Product> Make(Creator* creator, const char* what)
{
    std::unique_ptr<Product> product(creator == nullptr ? nullptr : creator->Create());
    if (!product) {
        throw ToolError(ExitStatus::unusable, fmt::format("the module registered no {}", what));
    }
    return product;
}

void AddOnce(std::vector<CString>& names, const CString& name)
{
    if (std::find(names.begin(), names.end(), name) == names.end()) {
        names.push_back(name);
    }
}

} // namespace

Session::Session(const CommonOptions& options)
{
    const CString data = DataDirectory(options);
    const CString user = UserDirectory(options);
    m_files = std::make_unique<DatabaseFiles>(data, user);
    m_module = std::make_unique<ModuleLoader>(options.module);
    m_database = Make<ZorGeoDatabaseBase>(ZorGeoDatabaseBaseList::GetGeoDatabaseList().Find(kModuleKey), "database");
    if (!m_database->Init()) {
        // Both files were read a moment ago; what is left is the creation of the user file.
        throw ToolError(ExitStatus::unusable,
                        fmt::format("{}{}: the user database cannot be opened or made; name a directory that can be "
                                    "written with --user",
                                    user.ToUtf8(), kUserDatabaseFile.ToUtf8()));
    }
}

std::unique_ptr<ZorGeoCoordSysBase> Session::NewCoordSys() const
{
    return Make<ZorGeoCoordSysBase>(ZorGeoCoordSysList::GetCoordSysList().Find(kModuleKey), "coordinate system");
}

std::unique_ptr<ZorGeoStaticDataBase> Session::NewStaticData() const
{
    return Make<ZorGeoStaticDataBase>(ZorGeoStaticDatabaseList::GetGeoStaticDataList().Find(kModuleKey),
                                      "authoring record");
}

std::vector<CString> Session::Groups()
{
    CStringArray all;
    m_database->GetAllGroupNames(all, GeoDbBoth);
    std::vector<CString> names;
    for (const CString& name : all) {
        AddOnce(names, name);
    }
    return names;
}

std::vector<CString> Session::Systems(const CString& group)
{
    CStringArray all;
    m_database->GetAllSystemNamesByGroupName(all, group);
    std::vector<CString> names;
    for (const CString& name : all) {
        AddOnce(names, name);
    }
    return names;
}
