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

/// False when the file system refuses.
bool SetAttribute(const ZorGeoUtility::SetStatus& setStatus, const CString& name, CFileStatus& status,
                  unsigned attribute)
{
    status.attribute = attribute;
    try {
        setStatus(name, status);
    } catch (const CFileException&) {
        return false;
    }
    return true;
}

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
    CFileStatus status;
    const bool readOnly = CFile::GetStatus(name, status) && (status.attribute & CFileStatus::readOnly) != 0;
    const unsigned attribute = status.attribute;
    if (readOnly && !SetAttribute(setStatus, name, status, attribute & ~CFileStatus::readOnly)) {
        AfxMessageBox(L"Database file open for writing failed");
        return false;
    }
    // Kept: a save that fails (disk full) is not reported here; the database that is read again
    // afterwards shows what stands on the disk.
    file.FileSave(name, FileMode::saveExclusive);
    return !readOnly || SetAttribute(setStatus, name, status, attribute);
}
