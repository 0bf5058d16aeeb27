#pragma once

#include <map>

#include "base/Export.h"
#include "base/text/CString.h"

/// The suite's directories by number. The host sets them; a number that was not set has the
/// platform's default:
///
/// | Number            | Linux                                              | Windows                          |
/// |-------------------|----------------------------------------------------|----------------------------------|
/// | deliveredDatabase | where the package was installed,                   | the running program's directory  |
/// |                   | /usr/local/share/zorgeo/ as built by default       |                                  |
/// | currentProject    | the current directory                              | the same                         |
/// | projectsRoot      | $HOME/zorgeo-projects/                             | %USERPROFILE%\zorgeo-projects\   |
/// | userDatabase      | $XDG_DATA_HOME/zorgeo/, ~/.local/share/zorgeo/     | %APPDATA%\zorgeo\                |
/// |                   | when that is not set                               |                                  |
/// | temporary         | $TMPDIR/ or /tmp/                                  | the user's temporary directory   |
///
/// A default is found anew at each question. No directory is made, and none need exist.
class ZORBASE_API DataSearch {
public:
    static constexpr unsigned deliveredDatabase = 1;
    static constexpr unsigned currentProject    = 2;
    static constexpr unsigned projectsRoot      = 4;
    static constexpr unsigned userDatabase      = 10;
    static constexpr unsigned temporary         = 26;

    static DataSearch& GetDataSearch();

    /// Directory `number` with its trailing separator. False, output untouched, for a number
    /// that is not known, that was made unavailable, or whose default the platform cannot tell.
    bool GetDataPathInfo(unsigned number, CString& path) const;
    /// Name of the project that the suite has open, empty for none.
    CString GetCurrentProjectName() const;

    /// Sets a directory; a trailing separator is added when it is missing. An empty `path` is a
    /// setting too: file names are then relative to the current directory. Numbers other than
    /// those above may be set.
    void SetDataPath(unsigned number, const CString& path);
    /// GetDataPathInfo answers false for `number` from now on, until it is set again.
    void SetUnavailable(unsigned number);
    void SetCurrentProjectName(const CString& name);
    /// Back to the platform's defaults, and to no open project.
    void Reset();

private:
    struct Entry {
        bool available = true;
        CString path;
    };
    std::map<unsigned, Entry> m_entries;
    CString m_currentProject;
};
