#include "system/SystemUse.h"

#include <algorithm>

#include <fmt/format.h>

#include "DatabaseText.h"
#include "base/files/CFile.h"
#include "base/files/SplitPath.h"
#include "base/keys/KeyTables.h"
#include "base/registry/DataSearch.h"

namespace {

const CString kProjectFile = L"project.prj";

/// Without regard to case, as the database looks systems up.
bool SameName(const CString& one, const CString& other)
{
    return one.CompareNoCase(other) == 0;
}

/// A record that the user file has; empty for a delivered one.
CString OwnRecord(const DatabaseFiles& files, const SystemName& name, const CString& key, const CString& prefix)
{
    CString record;
    files.User().GetItem(kSystemPrefix + name.system, key, record);
    return files.User().HasSection(prefix + record) ? record : CString();
}

std::vector<std::string> GroupsOf(Session& session, const CString& system)
{
    std::vector<std::string> groups;
    for (const CString& group : session.Groups()) {
        const std::vector<CString> systems = session.Systems(group);
        if (std::any_of(systems.begin(), systems.end(), [&](const CString& one) { return SameName(one, system); })) {
            groups.push_back(group.ToUtf8());
        }
    }
    return groups;
}

std::string Listed(Session& session, const CString& system)
{
    const std::vector<std::string> groups = GroupsOf(session, system);
    return groups.empty() ? fmt::format("{} (in no group)", system.ToUtf8())
                          : fmt::format("{} (group {})", system.ToUtf8(), groups.front());
}

/// The other systems of both files whose record names `record` under `key`.
std::vector<std::string> UsersOf(Session& session, const SystemName& name, const CString& key, const CString& record)
{
    std::vector<std::string> users;
    if (record.IsEmpty()) {
        return users;
    }
    for (const FileObject* file : {&session.Files().Main(), &session.Files().User()}) {
        FobjSection walk;
        CString section;
        for (bool more = file->GetFirstSectionEntry(walk, section); more;
             more = file->GetNextSectionEntry(walk, section)) {
            CString named;
            const CString system = section.Mid(kSystemPrefix.GetLength());
            if (section.Left(kSystemPrefix.GetLength()) == kSystemPrefix && !SameName(system, name.system) &&
                file->GetItem(section, key, named) && SameName(named, record)) {
                users.push_back(Listed(session, system));
            }
        }
    }
    return users;
}

void LookThroughProjects(const SystemName& name, SystemUse& use)
{
    CString root;
    std::vector<CString> directories;
    if (!DataSearch::GetDataSearch().GetDataPathInfo(DataSearch::projectsRoot, root) ||
        !CFile::ListDirectories(root, directories)) {
        return;
    }
    for (const CString& directory : directories) {
        const CString path = WithSeparator(root + directory) + kProjectFile;
        if (!CFile::Exists(path)) {
            continue;
        }
        FileObject project;
        if (!project.FileOpen(path, FileMode::openForReading)) {
            use.unread.push_back(fmt::format("{}: {}", path.ToUtf8(), project.GetErrorText().ToUtf8()));
            continue;
        }
        CString group;
        CString system;
        if (project.GetItem(CString(COORDSYSTEM_SECTION), coordsystemKeys[CoordsystemKey::group], group) &&
            project.GetItem(CString(COORDSYSTEM_SECTION), coordsystemKeys[CoordsystemKey::system], system) &&
            SameName(group, name.group) && SameName(system, name.system)) {
            use.projects.push_back((root + directory).ToUtf8());
        }
    }
}

} // namespace

bool SystemUse::InUse() const
{
    return otherwise || !projects.empty() || !groups.empty() || !projectionUsers.empty() || !datumUsers.empty();
}

SystemUse UseOf(Session& session, const SystemName& name)
{
    SystemUse use;
    const CString projection = OwnRecord(session.Files(), name, kSystemProjection, kProjectionPrefix);
    const CString datum = OwnRecord(session.Files(), name, kSystemDatum, kDatumPrefix);
    use.projection = projection.ToUtf8();
    use.datum = datum.ToUtf8();
    for (const std::string& group : GroupsOf(session, name.system)) {
        if (!SameName(CString::FromUtf8(group), name.group)) {
            use.groups.push_back(group);
        }
    }
    use.projectionUsers = UsersOf(session, name, kSystemProjection, projection);
    use.datumUsers = UsersOf(session, name, kSystemDatum, datum);
    LookThroughProjects(name, use);
    ZorGeoDatabaseBase& database = session.Database();
    use.otherwise =
        !use.InUse() && ((!projection.IsEmpty() && database.HasProjectionUsedInMoreSystem(projection, GeoDbUser)) ||
                         (!datum.IsEmpty() && database.HasDtfUsedInMoreSystem(datum, GeoDbUser)));
    return use;
}
