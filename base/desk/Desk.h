#pragma once

#include "base/Export.h"
#include "base/text/CString.h"

/// Icon of a message box.
enum class MessageIcon { standard, exclamation };

/// Which kind of record a name is asked for.
enum class NameKind { system, datumTransformation, projection };

/// What shows messages and asks questions on behalf of the libraries. A host installs its own
/// with Desk::Install; without one, Windows shows a real message box, elsewhere the text goes
/// to stderr, and a question for a name is cancelled.
class ZORBASE_API DeskHost {
public:
    virtual ~DeskHost();
    virtual void ShowMessage(const CString& text, MessageIcon icon) = 0;
    /// Asks for a name that is not taken. `name` holds the present name on entry. False: the
    /// user cancelled, `name` untouched.
    virtual bool AskName(NameKind kind, const CString& dllType, CString& name) = 0;
};

class ZORBASE_API Desk {
public:
    /// Installs `host`, not owned; null brings the default back. Returns the earlier one, null
    /// for the default.
    static DeskHost* Install(DeskHost* host);
    static DeskHost& Host();
};

/// Shows a message box with an OK button.
ZORBASE_API void AfxMessageBox(const CString& text, MessageIcon icon = MessageIcon::standard);
/// Shows text number `id` of the string table; an unknown number shows an empty text.
ZORBASE_API void AfxMessageBox(unsigned id, MessageIcon icon = MessageIcon::standard);
