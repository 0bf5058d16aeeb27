#include "ToolDesk.h"

#include "Output.h"

ToolDesk::ToolDesk() : m_earlier(Desk::Install(this)) {}
ToolDesk::~ToolDesk()
{
    Desk::Install(m_earlier);
}

void ToolDesk::ShowMessage(const CString& text, MessageIcon)
{
    CString line = text;
    line.Replace(L"\n\n", L" ");
    line.Replace(L"\n", L" ");
    Remark(line.ToUtf8());
}

bool ToolDesk::AskName(NameKind, const CString&, CString& name)
{
    m_askedFor = name;
    return false;
}
