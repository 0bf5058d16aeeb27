#include "base/registry/DataSearch.h"

#include <filesystem>
#include <string>
#include <system_error>

#include "base/files/SplitPath.h"
#include "base/platform/Directories.h"
#include "base/platform/Platform.h"

namespace {

CString CurrentDirectory()
{
    std::error_code error;
    return platform::TextOf(std::filesystem::current_path(error));
}

CString TemporaryDirectory()
{
    std::error_code error;
    return platform::TextOf(std::filesystem::temp_directory_path(error));
}

struct Default {
    unsigned number;
    CString (*directory)();
};
constexpr Default kDefaults[] = {
    {DataSearch::deliveredDatabase, platform::DeliveredDataDirectory},
    {DataSearch::currentProject, CurrentDirectory},
    {DataSearch::projectsRoot, platform::ProjectsRootDirectory},
    {DataSearch::userDatabase, platform::UserDataDirectory},
    {DataSearch::temporary, TemporaryDirectory},
};

/// The platform's directory for `number`, empty when it has none.
CString DefaultDirectory(unsigned number)
{
    for (const Default& entry : kDefaults) {
        if (entry.number == number) {
            return WithSeparator(entry.directory());
        }
    }
    return {};
}

} // namespace

DataSearch& DataSearch::GetDataSearch()
{
    static DataSearch search;
    return search;
}

bool DataSearch::GetDataPathInfo(unsigned number, CString& path) const
{
    const auto entry = m_entries.find(number);
    if (entry != m_entries.end()) {
        if (entry->second.available) {
            path = entry->second.path;
        }
        return entry->second.available;
    }
    const CString directory = DefaultDirectory(number);
    if (directory.IsEmpty()) {
        return false;
    }
    path = directory;
    return true;
}

CString DataSearch::GetCurrentProjectName() const
{
    return m_currentProject;
}

void DataSearch::SetDataPath(unsigned number, const CString& path)
{
    m_entries[number] = {true, WithSeparator(path)};
}

void DataSearch::SetUnavailable(unsigned number)
{
    m_entries[number] = {false, CString()};
}

void DataSearch::SetCurrentProjectName(const CString& name)
{
    m_currentProject = name;
}

void DataSearch::Reset()
{
    m_entries.clear();
    m_currentProject.Empty();
}
