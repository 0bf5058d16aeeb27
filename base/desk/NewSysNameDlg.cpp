#include "base/desk/NewSysNameDlg.h"

#include <memory>

#include "base/registry/CreatorLists.h"
#include "base/registry/ZorGeoDatabaseBase.h"

namespace {

bool HasRecord(ZorGeoDatabaseBase& database, NameKind kind, const CString& name)
{
    switch (kind) {
    case NameKind::system:
        return database.HasSystem(name, GeoDbBoth);
    case NameKind::datumTransformation:
        return database.HasDtf(name, GeoDbBoth);
    case NameKind::projection:
        return database.HasProjection(name, GeoDbBoth);
    }
    return false;
}

/// The opened database of the module registered as `dllType`; null when there is none.
std::unique_ptr<ZorGeoDatabaseBase> DatabaseOf(const CString& dllType)
{
    GeoDatabaseICreator* const creator = ZorGeoDatabaseBaseList::GetGeoDatabaseList().Find(dllType);
    std::unique_ptr<ZorGeoDatabaseBase> database(creator != nullptr ? creator->Create() : nullptr);
    if (database && !database->Init()) {
        database.reset();
    }
    return database;
}

} // namespace

NewSysNameDlg::NewSysNameDlg(void* /*parent*/) {}

NewSysNameDlg::~NewSysNameDlg() = default;

void NewSysNameDlg::SetSystemName(const CString& name)
{
    m_kind = NameKind::system;
    m_name = name;
}

void NewSysNameDlg::SetDtfName(const CString& name)
{
    m_kind = NameKind::datumTransformation;
    m_name = name;
}

void NewSysNameDlg::SetPrjName(const CString& name)
{
    m_kind = NameKind::projection;
    m_name = name;
}

void NewSysNameDlg::SetDllType(const CString& type)
{
    m_dllType = type;
}

CString NewSysNameDlg::GetName() const
{
    return m_name;
}

int NewSysNameDlg::DoModal()
{
    CString name = m_name;
    for (int question = 0; question < maxQuestions; ++question) {
        if (!Desk::Host().AskName(m_kind, m_dllType, name)) {
            return cancel;
        }
        if (IsFree(name)) {
            m_name = name;
            return ok;
        }
        AfxMessageBox(L"The name \"" + name + L"\" is already in use or empty.", MessageIcon::exclamation);
    }
    return cancel;
}

bool NewSysNameDlg::IsFree(const CString& name) const
{
    if (name.IsEmpty()) {
        return false;
    }
    const std::unique_ptr<ZorGeoDatabaseBase> database = DatabaseOf(m_dllType);
    return !database || !HasRecord(*database, m_kind, name);
}
