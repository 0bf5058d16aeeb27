#include "base/desk/Desk.h"

#include <atomic>

#include "base/platform/MessageBox.h"

namespace {

/// Serves while no host has installed its own.
class DefaultHost final : public DeskHost {
public:
    void ShowMessage(const CString& text, MessageIcon icon) override { platform::ShowMessage(text, icon); }
    bool AskName(NameKind /*kind*/, const CString& /*dllType*/, CString& /*name*/) override { return false; }
};

std::atomic<DeskHost*> installedHost{nullptr};

} // namespace

DeskHost::~DeskHost() = default;

DeskHost* Desk::Install(DeskHost* host)
{
    return installedHost.exchange(host);
}

DeskHost& Desk::Host()
{
    static DefaultHost defaultHost;
    DeskHost* const host = installedHost.load();
    return host != nullptr ? *host : defaultHost;
}

void AfxMessageBox(const CString& text, MessageIcon icon)
{
    Desk::Host().ShowMessage(text, icon);
}

void AfxMessageBox(unsigned id, MessageIcon icon)
{
    CString text;
    text.LoadString(id);
    AfxMessageBox(text, icon);
}
