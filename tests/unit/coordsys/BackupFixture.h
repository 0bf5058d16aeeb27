#pragma once

#include <array>
#include <filesystem>
#include <string>
#include <utility>
#include <vector>

#include "authoring/ZorGeoStaticData.h"
#include "tests/unit/coordsys/CoordSysFixture.h"

/// The private operations around a project's backup.
struct ZORGeoCoordSysProbe {
    /// Has the system work on an open project, as Init does.
    static void SetProject(ZORGeoCoordSys& system, FileObject& project)
    {
        system.m_externalProjectFile = true;
        system.m_pProjectFile = std::shared_ptr<FileObject>(&project, [](FileObject*) {});
    }
    static bool OpenDatabase(ZORGeoCoordSys& system) { return system.OpenDatabase(); }
    static bool CreateRecord(ZORGeoCoordSys& system, ZorGeoStaticDataBase& record)
    {
        return system.CreateGeoStaticDataFromBackup(record);
    }
    static bool RestoreBackup(ZORGeoCoordSys& system, const CString& group, const CString& name)
    {
        return system.RestoreBackup(group, name);
    }
    static void FileObjectSave(ZORGeoCoordSys& system, FileObject& file) { system.FileObjectSave(file); }
    static bool HasVertAdjust(const ZORGeoCoordSys& system) { return system.m_hasPostVertAdjust; }
};

using Items = std::vector<std::pair<std::string, std::string>>;

/// Keys and values of a section, in the order of the file.
inline Items ItemsOf(const FileObject& file, const CString& section)
{
    Items items;
    FobjSection cursor;
    CString key;
    CString value;
    for (bool more = file.GetFirstMapEntry(cursor, section, key, value); more;
         more = file.GetNextMapEntry(cursor, key, value)) {
        items.emplace_back(key.ToUtf8(), value.ToUtf8());
    }
    return items;
}

inline std::vector<std::string> KeysOf(const FileObject& file, const CString& section)
{
    std::vector<std::string> keys;
    for (const auto& item : ItemsOf(file, section)) {
        keys.push_back(item.first);
    }
    return keys;
}

inline CString TextIn(const FileObject& file, const CString& section, const CString& key)
{
    CString text = L"(missing)";
    file.GetItem(section, key, text);
    return text;
}

inline double NumberIn(const FileObject& file, const CString& section, const CString& key)
{
    double number = -777.0;
    file.GetItem(section, key, number);
    return number;
}

/// Main file, user file and project as they stand on the disk.
inline std::array<std::string, 3> BytesOf(const TestDatabase& database)
{
    const TempDirectory& directory = database.Directory();
    return {directory.Read("main/zorgeodatabase.geo"), directory.Read("user/zorusergeobase.geo"),
            directory.Read("project/project.prj")};
}

inline FileObject Opened(const CString& path)
{
    FileObject file;
    EXPECT_TRUE(file.FileOpen(path, FileMode::openForReading)) << path.ToUtf8();
    return file;
}

/// What the user was asked to name, in order.
using Kinds = std::vector<NameKind>;
inline Kinds KindsOf(const ScriptedDesk& desk)
{
    Kinds kinds;
    for (const ScriptedDesk::Question& question : desk.questions) {
        kinds.push_back(question.kind);
    }
    return kinds;
}

inline CString NameOf(ZORGeoCoordSys& system)
{
    CString name;
    system.GetSysName(name);
    return name;
}

/// A database whose projection names its unit, as written records do: a project's backup of one
/// of its systems equals it.
class BackupDatabase : public SurveyDatabase {
public:
    BackupDatabase() { main.SetItem(kProjectionPrefix + L"TM 5 East", kProjectionUnit, L"Meters", true); }

    /// Writes reference and backup of a system of this database into the project; all files are
    /// saved.
    void SaveBackupOf(const CString& name)
    {
        ZORGeoCoordSys system;
        MakeReady(system, *this, name);
        EXPECT_TRUE(system.Save(project));
        EXPECT_TRUE(system.SaveBackup(project));
        Save();
    }
    /// Takes a system's record and its line in the group out of the main file, which is saved.
    void RemoveSystem(const CString& name)
    {
        main.DeleteSection(kSystemPrefix + name);
        for (const auto& [key, value] : ItemsOf(main, kGroupPrefix + kGroup)) {
            if (CString::FromUtf8(value) == name) {
                main.DeleteItem(kGroupPrefix + kGroup, CString::FromUtf8(key), false);
            }
        }
        Save();
    }
    template <typename Value>
    void SetBackupItem(const CString& key, const Value& value)
    {
        project.SetItem(COORDSYSTEM_BACKUP_SECTION, key, value, true);
    }

    ModuleTexts texts;
};
