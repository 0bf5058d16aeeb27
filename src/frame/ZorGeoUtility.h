#pragma once

#include <functional>
#include <vector>

#include "frame/BaseContract.h"

/// The directories that the module works in, one for the process.
///
/// Directories end with their separator, so that a file name can be appended; an unknown one is
/// empty, and a file name appended to it is relative to the current directory.
/// Filled on the main thread at start-up; only the first construction is safe between threads.
/// The order of the fields is part of the interface.
class ZorGeoUtility {
public:
    ZorGeoUtility();
    ZorGeoUtility(const ZorGeoUtility&);
    ZorGeoUtility& operator=(const ZorGeoUtility&);
    virtual ~ZorGeoUtility();

    /// The process's one object: all texts empty and not `initialised` until it is filled.
    static ZorGeoUtility& Get();
    /// The same, after a try to fill it unless it is filled. For constructors.
    static ZorGeoUtility& Filled();

    /// Fills the fields from the running executable and from DataSearch.
    /// 0 when the executable's name is not known, with every field untouched, or when a
    /// directory is not available, with the fields before it filled and `initialised` as it was.
    /// Nonzero otherwise.
    int Fill();

    /// Saves `file` under its own name, also when the file is read-only: the attribute is taken
    /// away for the save and put back after it.
    /// False when the attribute cannot be taken away (nothing is saved then, and a message box
    /// says so) or cannot be put back. The success of the save itself is not part of the result.
    bool GuardedSave(FileObject& file);
    using SetStatus = std::function<void(const CString& file, const CFileStatus& status)>;
    /// The same through an operation of CFile::SetStatus's contract.
    static bool GuardedSave(FileObject& file, const SetStatus& setStatus);
    /// The same without a message box and without an answer.
    static void QuietSave(const FileObject& file);

    /// Names of the directories under which the suite keeps its projects, in the order of their
    /// names. Empty when no fill succeeded, or when that directory is not available now.
    std::vector<CString> ProjectDirectories() const;

    CString mainDatabaseDir;    ///< delivered database
    CString userDatabaseDir;    ///< user database
    CString exeDirectory;       ///< running executable; older definition files stand there
    CString exeFileTitle;       ///< its name without directory and extension
    CString currentProjectName; ///< project that was open at the time of the fill
    CString projectDir;         ///< its directory
    CString path26Dir;
    bool initialised = false; ///< a fill succeeded; later changes of the suite are not seen
    FileObject scratchFile;
    CString projectsRootDir; ///< directory under which the projects lie
};
