#pragma once

#include <string>
#include <vector>

#include "Session.h"
#include "ToolDesk.h"

/// What to do about a record of the project whose name the database has for another.
enum class OnConflict {
    ask,   ///< on a terminal; nobody can be asked elsewhere
    fail,  ///< nobody is asked
    suffix ///< NAME (2), NAME (3)...: the first free one
};

/// One record of the project under its new name.
struct Renaming {
    NameKind kind;
    CString from;
    CString to;
};

/// "projection", "datum transformation" or "system".
const char* TextOf(NameKind kind);

/// The tool's answers while the module opens a project. Names are free when neither file of the
/// session's database has them.
class NamingDesk : public ToolDesk {
public:
    /// A quiet one says nothing: neither the module's messages nor the names that it gives.
    NamingDesk(Session& session, OnConflict policy, bool quiet) : m_session(session), m_policy(policy), m_quiet(quiet)
    {
    }

    void ShowMessage(const CString& text, MessageIcon icon) override;
    bool AskName(NameKind kind, const CString& dllType, CString& name) override;

    /// In the order in which they were asked for.
    const std::vector<Renaming>& Renamed() const { return m_renamed; }
    /// Why no name was given, with the remedy; empty when all were.
    const std::string& Refusal() const { return m_refusal; }

private:
    bool IsFree(NameKind kind, const CString& name);
    CString FirstFree(NameKind kind, const CString& name);
    bool AskOnTerminal(NameKind kind, const CString& taken, const CString& suggestion, CString& answer);

    Session& m_session;
    OnConflict m_policy;
    bool m_quiet;
    std::vector<Renaming> m_renamed;
    std::string m_refusal;
};
