#pragma once

#include <filesystem>
#include <functional>
#include <optional>
#include <string>

#include "CommonOptions.h"
#include "ToolError.h"
#include "UserDatabaseLock.h"
#include "base/text/CString.h"

/// Copies of the user database and of one project, on which the module works in their place: what
/// fails or is cancelled half way has changed nothing, and what opening a project would do can be
/// seen without doing it. The copies are in a temporary directory, which goes with the object and
/// when the user ends the program.
class Workbench {
public:
    enum class Use {
        look,  ///< nothing is taken back
        change ///< holds the user database's lock, until it is destroyed
    };
    /// Throws ToolError: 3 when user database or project cannot be read or the lock not be had, 4
    /// when the copies cannot be made.
    Workbench(const CommonOptions& options, const std::string& project, Use use);
    ~Workbench();
    Workbench(const Workbench&) = delete;
    Workbench& operator=(const Workbench&) = delete;

    /// Does the work of a command. In the messages of a ToolError that ends it the originals stand
    /// in the place of the copies.
    ExitStatus Run(const std::function<ExitStatus()>& work) const;

    /// A message with the originals in the place of the copies.
    std::string InTermsOfOriginals(std::string text) const;
    /// The options with the copy's directory in the place of the user directory.
    const CommonOptions& Options() const { return m_options; }
    /// The copy, in a directory of the same name as the original's.
    const std::string& Project() const { return m_project.copy; }

    struct Changes {
        bool database = false;
        bool project = false;
    };
    /// What the work has changed so far, by content.
    Changes Look() const;
    /// Puts what changed in the place of the originals, each whole or not at all: the user database
    /// first, so that no project names what is not there. Throws ToolError (4), with the project
    /// as it was, when one cannot be written or was changed by another program meanwhile.
    Changes Publish() const;

private:
    struct Copied {
        std::string original;
        std::string copy;
        std::string originalBytes; ///< as they were read; also those of a missing file
        std::string copyBytes;
    };
    void CopyDatabase(const CString& directory);
    void CopyProject(const std::string& project);

    std::optional<UserDatabaseLock> m_lock;
    CommonOptions m_options;
    std::filesystem::path m_directory;
    Copied m_database;
    Copied m_project;
};
