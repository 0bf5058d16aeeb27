#pragma once

#include "base/Export.h"
#include "base/desk/Desk.h"
#include "base/text/CString.h"

/// The modal dialog that asks for a name that is not yet taken. Exactly one of the three Set
/// operations is called; it says what the name is for and gives the present one.
///
/// The question goes to the desk's host. An answer is taken when it is not empty and the database
/// of the module that SetDllType names, found through ZorGeoDatabaseBaseList, has no record of
/// that kind and name; another answer is reported as in use and asked for again. With no such
/// module every name is taken as free.
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
    /// The name given; before DoModal and after a cancel, the present one.
    CString GetName() const;
    /// `ok`, or `cancel` when the user cancelled or `maxQuestions` answers were no free name.
    int DoModal();

    /// So that a host which always gives the same answer cannot hold the program up.
    static constexpr int maxQuestions = 10;

private:
    bool IsFree(const CString& name) const;

    NameKind m_kind = NameKind::system;
    CString m_name;
    CString m_dllType;
};
