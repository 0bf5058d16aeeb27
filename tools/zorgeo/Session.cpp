#include "Session.h"

#include <filesystem>
#include <unordered_set>

#include <fmt/format.h>

#include "DatabaseText.h"
#include "ToolError.h"
#include "UserDirectory.h"
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

CString DataDirectoryOf(const CommonOptions& options)
{
    const std::string directory = options.dataDirectory.empty() ? DefaultDataDirectory() : options.dataDirectory;
    const CString path = WithSeparator(CString::FromUtf8(directory));
    DataSearch::GetDataSearch().SetDataPath(DataSearch::deliveredDatabase, path);
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

std::vector<CString> EachOnce(const CStringArray& all)
{
    std::vector<CString> names;
    std::unordered_set<CString> seen;
    for (const CString& name : all) {
        if (seen.insert(name).second) {
            names.push_back(name);
        }
    }
    return names;
}

} // namespace

Session::Session(const CommonOptions& options)
    : m_dataDirectory(DataDirectoryOf(options)), m_userDirectory(UserDirectoryOf(options))
{
    MakeUserDirectory(m_userDirectory);
    m_files = std::make_unique<DatabaseFiles>(m_dataDirectory, m_userDirectory);
    m_module = std::make_unique<ModuleLoader>(options.module);
    OpenDatabase();
}

void Session::Reopen()
{
    m_files = std::make_unique<DatabaseFiles>(m_dataDirectory, m_userDirectory);
    OpenDatabase();
}

void Session::OpenDatabase()
{
    m_database = Make<ZorGeoDatabaseBase>(ZorGeoDatabaseBaseList::GetGeoDatabaseList().Find(kModuleKey), "database");
    if (!m_database->Init()) {
        // Both files were read a moment ago; what is left is the creation of the user file.
        throw ToolError(ExitStatus::unusable,
                        fmt::format("{}{}: the user database cannot be opened or made; name a directory that can be "
                                    "written with --user",
                                    m_userDirectory.ToUtf8(), kUserDatabaseFile.ToUtf8()));
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
    return EachOnce(all);
}

std::vector<CString> Session::Systems(const CString& group)
{
    CStringArray all;
    m_database->GetAllSystemNamesByGroupName(all, group);
    return EachOnce(all);
}
