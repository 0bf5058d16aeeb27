#include "frame/ZorGeoUtility.h"

ZorGeoUtility::ZorGeoUtility() = default;
ZorGeoUtility::ZorGeoUtility(const ZorGeoUtility&) = default;
ZorGeoUtility& ZorGeoUtility::operator=(const ZorGeoUtility&) = default;
ZorGeoUtility::~ZorGeoUtility() = default;

namespace {

constexpr int kLongestExecutableName = 260;

struct DirectoryRow {
    unsigned number;
    CString ZorGeoUtility::*directory;
};

/// In the order in which they are asked for: the first one missing ends the fill.
constexpr DirectoryRow kDirectories[] = {{DataSearch::currentProject, &ZorGeoUtility::projectDir},
                                         {DataSearch::projectsRoot, &ZorGeoUtility::projectsRootDir},
                                         {DataSearch::deliveredDatabase, &ZorGeoUtility::mainDatabaseDir},
                                         {DataSearch::userDatabase, &ZorGeoUtility::userDatabaseDir},
                                         {DataSearch::temporary, &ZorGeoUtility::path26Dir}};

/// The read-only attribute of a file: away for a save, and back. Both are false when the file
/// system refuses; a file that is not read-only has nothing to do.
class ReadOnlyAttribute {
public:
    ReadOnlyAttribute(const CString& name, const ZorGeoUtility::SetStatus& setStatus)
        : m_name(name), m_setStatus(setStatus),
          m_set(CFile::GetStatus(name, m_status) && (m_status.attribute & CFileStatus::readOnly) != 0)
    {
    }
    bool Clear() { return !m_set || Set(m_status.attribute & ~CFileStatus::readOnly); }
    bool PutBack() { return !m_set || Set(m_status.attribute | CFileStatus::readOnly); }

private:
    bool Set(unsigned attribute)
    {
        m_status.attribute = attribute;
        try {
            m_setStatus(m_name, m_status);
        } catch (const CFileException&) {
            return false;
        }
        return true;
    }

    const CString& m_name;
    const ZorGeoUtility::SetStatus& m_setStatus;
    CFileStatus m_status;
    bool m_set;
};

} // namespace

ZorGeoUtility& ZorGeoUtility::Get()
{
    static ZorGeoUtility utility;
    return utility;
}

ZorGeoUtility& ZorGeoUtility::Filled()
{
    ZorGeoUtility& utility = Get();
    if (!utility.initialised) {
        utility.Fill();
    }
    return utility;
}

int ZorGeoUtility::Fill()
{
    CString executable;
    if (!ExecutablePath(executable) || executable.IsEmpty()) {
        return 0;
    }
    CString extension;
    // Kept: a longer name is cut, as the suite's programs have always seen it.
    SplitPath(executable.Left(kLongestExecutableName), exeDirectory, exeFileTitle, extension);

    const DataSearch& search = DataSearch::GetDataSearch();
    for (const DirectoryRow& row : kDirectories) {
        if (!search.GetDataPathInfo(row.number, this->*row.directory)) {
            return 0;
        }
    }
    currentProjectName = search.GetCurrentProjectName();
    initialised = true;
    return 1;
}

bool ZorGeoUtility::GuardedSave(FileObject& file)
{
    return GuardedSave(file, &CFile::SetStatus);
}

bool ZorGeoUtility::GuardedSave(FileObject& file, const SetStatus& setStatus)
{
    const CString name = file.GetFileName();
    ReadOnlyAttribute attribute(name, setStatus);
    if (!attribute.Clear()) {
        AfxMessageBox(L"Database file open for writing failed");
        return false;
    }
    // Kept: a save that fails (disk full) is not reported here; the database that is read again
    // afterwards shows what stands on the disk.
    file.FileSave(name, FileMode::saveExclusive);
    return attribute.PutBack();
}

void ZorGeoUtility::QuietSave(const FileObject& file)
{
    const CString name = file.GetFileName();
    const SetStatus setStatus = &CFile::SetStatus;
    ReadOnlyAttribute attribute(name, setStatus);
    attribute.Clear();
    file.FileSave(name, FileMode::saveExclusive);
    attribute.PutBack();
}

std::vector<CString> ZorGeoUtility::ProjectDirectories() const
{
    std::vector<CString> names;
    CString root;
    if (initialised && DataSearch::GetDataSearch().GetDataPathInfo(DataSearch::projectsRoot, root)) {
        CFile::ListDirectories(root.IsEmpty() ? CString(L".") : root, names);
    }
    return names;
}
