#pragma once

#include <map>

#include "base/Export.h"
#include "base/text/CString.h"

/// The suite's directories by number. The host sets them; a number that was not set has the
/// platform's default, told at DefaultDirectory.
class ZORBASE_API DataSearch {
public:
    static constexpr unsigned deliveredDatabase = 1;
    static constexpr unsigned currentProject    = 2;
    static constexpr unsigned projectsRoot      = 4;
    static constexpr unsigned userDatabase      = 10;
    static constexpr unsigned temporary         = 26;

    static DataSearch& GetDataSearch();

    /// Directory `number` with its trailing separator. False, output untouched, for a number
    /// that is not known or that was made unavailable.
    bool GetDataPathInfo(unsigned number, CString& path) const;
    /// Name of the project that the suite has open, empty for none.
    CString GetCurrentProjectName() const;

    /// Sets a directory; a trailing separator is added when it is missing.
    void SetDataPath(unsigned number, const CString& path);
    /// GetDataPathInfo answers false for `number` from now on.
    void SetUnavailable(unsigned number);
    void SetCurrentProjectName(const CString& name);
    /// Back to the platform's defaults.
    void Reset();

private:
    struct Entry {
        bool available = true;
        CString path;
    };
    std::map<unsigned, Entry> m_entries;
    CString m_currentProject;
};
