// The two files of the database: opening, and the lists of names made then.

#include <utility>

#include "database/SectionWalks.h"
#include "database/ZorGeoDatabase.h"
#include "frame/ReadItem.h"
#include "frame/RecordNames.h"
#include "frame/ZorGeoUtility.h"

ZorGeoDatabase::ZorGeoDatabase()
{
    const ZorGeoUtility& utility = ZorGeoUtility::Filled();
    m_mainPath = utility.mainDatabaseDir;
    m_userPath = utility.userDatabaseDir;
}

ZorGeoDatabase::ZorGeoDatabase(const ZorGeoDatabase&) = default;
ZorGeoDatabase& ZorGeoDatabase::operator=(const ZorGeoDatabase&) = default;

ZorGeoDatabase::~ZorGeoDatabase()
{
    if (m_mainFile.FileInitialised()) {
        m_mainFile.FileClose();
    }
    // Kept: the main file is closed once more for the user file, which is let go by its own
    // destructor; what was not saved is gone either way.
    if (m_userFile.FileInitialised()) {
        m_mainFile.FileClose();
    }
}

bool ZorGeoDatabase::Init()
{
    for (FileObject* file : {&m_mainFile, &m_userFile}) {
        if (file->FileInitialised()) {
            file->FileClose();
        }
    }
    bool userFileMade = false;
    if (!OpenFiles(userFileMade)) {
        return false;
    }
    if (userFileMade) {
        m_userFile.FileOpen(m_userPath + kUserDatabaseFile, FileMode::openForReading);
    }
    // Kept: m_dtfNames is not emptied, so the names of an earlier Init stand before the new ones;
    // the ellipsoids at an index belong to the name there as long as the files begin alike.
    for (std::vector<CString>* list : {&m_prjNames, &m_prjMethods, &m_spare, &m_dtfTargetElps, &m_dtfSourceElps}) {
        list->clear();
    }
    m_filesOfPrjNames.clear();
    for (const FileObject* file : {&m_mainFile, &m_userFile}) {
        FindAllElpNamesInDtf(*file);
        m_filesOfPrjNames.push_back(*file);
    }
    return true;
}

// Thousands of projections are named, and few who open a database ask for them: the files stay as
// they are now, in copies that cost a pointer, until somebody does.
void ZorGeoDatabase::ListProjections()
{
    for (const FileObject& file : std::exchange(m_filesOfPrjNames, {})) {
        FindAllPrjNamesAndMethods(file);
    }
}

bool ZorGeoDatabase::InternalInit()
{
    bool userFileMade = false;
    return OpenFiles(userFileMade);
}

FileObject& ZorGeoDatabase::GetMainFile()
{
    return m_mainFile;
}

FileObject& ZorGeoDatabase::GetUserFile()
{
    return m_userFile;
}

bool ZorGeoDatabase::OpenFiles(bool& userFileMade)
{
    // A datum record that could not be loaded may have left its file throwing. The module's own
    // readings do not care; a host that reads the files starts anew.
    m_mainFile.ThrowExceptions(false);
    m_userFile.ThrowExceptions(false);
    if (!m_mainFile.FileOpen(m_mainPath + kMainDatabaseFile, FileMode::openForReading)) {
        return false;
    }
    const CString userFile = m_userPath + kUserDatabaseFile;
    if (m_userFile.FileOpen(userFile, FileMode::openForReading)) {
        return true;
    }
    userFileMade = m_userFile.FileOpen(userFile, FileMode::createNew);
    return userFileMade;
}

bool ZorGeoDatabase::BothOpen() const
{
    return m_mainFile.FileInitialised() && m_userFile.FileInitialised();
}

const FileObject* ZorGeoDatabase::FileNamed(unsigned which) const
{
    if (which == GeoDbUser) {
        return &m_userFile;
    }
    return which == GeoDbMain ? &m_mainFile : nullptr;
}

void ZorGeoDatabase::FindAllElpNamesInDtf(const FileObject& file)
{
    CString section;
    // Kept: a record without an ellipsoid's name is listed with that of the record before it.
    CString source;
    CString target;
    ForEachListedName(file, kDatumsSection, [&](CString& name) {
        section = kDatumPrefix;
        section += name;
        // Most records have the first key, which saves asking for the section.
        if (!ReadItem(file, section, transParamKeys[TransKey::target], target) && !file.HasSection(section)) {
            return;
        }
        ReadItem(file, section, transParamKeys[TransKey::source], source);
        m_dtfTargetElps.push_back(target);
        m_dtfSourceElps.push_back(source);
        m_dtfNames.push_back(std::move(name));
    });
}

void ZorGeoDatabase::FindAllPrjNamesAndMethods(const FileObject& file)
{
    CString section;
    // Kept: a record without a method is listed with that of the record before it.
    CString method;
    ForEachListedName(file, kProjectionsSection, [&](CString& name) {
        section = kProjectionPrefix;
        section += name;
        if (!ReadItem(file, section, kProjectionMethod, method) && !file.HasSection(section)) {
            return;
        }
        m_prjNames.push_back(std::move(name));
        m_prjMethods.push_back(method);
    });
}
