#pragma once

#include <memory>
#include <string>
#include <vector>

#include "CommonOptions.h"
#include "DatabaseFiles.h"
#include "ModuleLoader.h"
#include "base/registry/ZorGeoCoordSysBase.h"
#include "base/registry/ZorGeoDatabaseBase.h"
#include "base/registry/ZorGeoStaticDataBase.h"

/// One system of the database, by its two names.
struct SystemName {
    CString group;
    CString system;
};

/// What every command works with: the directories, the files, the module and its objects.
class Session {
public:
    /// Sets the directories, checks the files, loads the module and opens the database. Throws
    /// ToolError (3) saying which of these is at fault and what to do.
    explicit Session(const CommonOptions& options);

    /// Reads the files afresh and takes a new database object: what stands on the disk now. Throws
    /// as the constructor does.
    void Reopen();

    /// With their trailing separators.
    const CString& DataDirectory() const { return m_dataDirectory; }
    const CString& UserDirectory() const { return m_userDirectory; }
    const DatabaseFiles& Files() const { return *m_files; }
    ZorGeoDatabaseBase& Database() { return *m_database; }
    std::unique_ptr<ZorGeoCoordSysBase> NewCoordSys() const;
    std::unique_ptr<ZorGeoStaticDataBase> NewStaticData() const;

    /// All groups, main file first, each once.
    std::vector<CString> Groups();
    /// The systems of a group, each once.
    std::vector<CString> Systems(const CString& group);

private:
    void OpenDatabase();

    CString m_dataDirectory;
    CString m_userDirectory;
    std::unique_ptr<DatabaseFiles> m_files;
    std::unique_ptr<ModuleLoader> m_module;
    std::unique_ptr<ZorGeoDatabaseBase> m_database;
};
