#pragma once

#include "base/desk/Desk.h"

/// The tool in place of message boxes and dialogs: a message goes to standard error as one line,
/// and a question for a name is cancelled and remembered, since a filter has nobody to ask.
/// Installed for the life of the object.
class ToolDesk : public DeskHost {
public:
    ToolDesk();
    ~ToolDesk() override;
    ToolDesk(const ToolDesk&) = delete;
    ToolDesk& operator=(const ToolDesk&) = delete;

    void ShowMessage(const CString& text, MessageIcon icon) override;
    bool AskName(NameKind kind, const CString& dllType, CString& name) override;

    /// The name for which another was asked, empty when nothing was asked.
    const CString& AskedFor() const { return m_askedFor; }

private:
    DeskHost* m_earlier;
    CString m_askedFor;
};
