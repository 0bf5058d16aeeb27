#pragma once

#include "base/Export.h"
#include "base/desk/Desk.h"
#include "base/text/CString.h"

/// The modal dialog that asks for a name that is not yet taken. Exactly one of the three Set
/// operations is called; it says what the name is for and gives the present one.
class ZORBASE_API NewSysNameDlg {
public:
    static constexpr int ok     = 1;
    static constexpr int cancel = 2;

    explicit NewSysNameDlg(void* parent = nullptr);
    ~NewSysNameDlg();

    void SetSystemName(const CString& name);
    void SetDtfName(const CString& name);
    void SetPrjName(const CString& name);
    void SetDllType(const CString& type);
    CString GetName() const;
    /// `ok` or `cancel`.
    int DoModal();

private:
    NameKind m_kind = NameKind::system;
    CString m_name;
    CString m_dllType;
};
