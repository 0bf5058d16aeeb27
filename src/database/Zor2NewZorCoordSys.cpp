// The order of the steps, the system's record, counts and saving.

#include "database/Zor2NewZorCoordSys.h"

#include "database/SerialKeys.h"
#include "database/ZorGeoDatabase.h"
#include "frame/RecordNames.h"
#include "frame/ZorGeoUtility.h"

Zor2NewZorCoordSys::Zor2NewZorCoordSys(FileObject* project) : m_project(project) {}

Zor2NewZorCoordSys::~Zor2NewZorCoordSys()
{
    if (m_userFile.FileInitialised()) {
        m_userFile.FileClose();
    }
}

bool Zor2NewZorCoordSys::Convert(FileObject* project)
{
    if (project == nullptr) {
        return false;
    }
    m_project = project;
    m_projectFileName = project->GetFileName();
    if (!OpenDatabase(true)) {
        return false;
    }
    m_sysName = NameOfProjectDirectory();
    // Kept: no other rule makes names. A system of that name is the conversion done before, or is
    // taken for it.
    if (m_database->HasSystem(m_sysName, GeoDbBoth)) {
        return true;
    }
    AddGroup();
    AddSystemToGroup();
    if (!AddDatumName() || !AddEllipsoidName() || !AddUnitName() || !AddProjectionName() ||
        !AddEllipsoidRecord(m_elpName, true) || !AddDatumRecord() || !AddProjectionRecord()) {
        return false;
    }
    WriteSystem();
    WriteCounts();
    ZorGeoUtility::QuietSave(m_userFile);
    return true;
}

bool Zor2NewZorCoordSys::CreateNewDtf(const CString& name)
{
    if (!OpenDatabase(false)) {
        return false;
    }
    // Kept: the count is not raised, so the next transformation that is added takes over this
    // line of the list. The record itself stays, and is found by its name.
    AddLine(kDatumsSection, kDatumCount, name, m_dtfAdded);
    if (!CopyDatumFromDefinitions(name, true)) {
        return false;
    }
    ZorGeoUtility::QuietSave(m_userFile);
    return true;
}

// Opens the user file and the database beside it.
bool Zor2NewZorCoordSys::OpenDatabase(bool makeUserFile)
{
    m_userDir = ZorGeoUtility::Filled().userDatabaseDir;
    m_userFilePath = m_userDir + kUserDatabaseFile;
    if (!m_userFile.FileOpen(m_userFilePath, FileMode::openForReading) &&
        !(makeUserFile && m_userFile.FileOpen(m_userFilePath, FileMode::createNew))) {
        return false;
    }
    m_database = std::make_unique<ZorGeoDatabase>();
    return m_database->Init();
}

// Projects are told apart by their directories alone; the file is called "project.prj" in all.
CString Zor2NewZorCoordSys::NameOfProjectDirectory() const
{
    const int separatorAndFile = 1 + kProjectFile.GetLength();
    const std::wstring directory = m_projectFileName.Left(m_projectFileName.GetLength() - separatorAndFile).Std();
    // Without a separator npos + 1 is 0, the whole.
    return CString(directory.substr(directory.find_last_of(L"/\\") + 1));
}

void Zor2NewZorCoordSys::WriteSystem()
{
    const CString section = kSystemPrefix + m_sysName;
    m_userFile.SetItem(section, kSystemDatum, m_dtfName, true);
    m_userFile.SetItem(section, kSystemUnit, m_unitName, true);
    // Kept: a number where every other system has a name. Older projects had no geoid model, and
    // readers take the text "0" for a model that is unknown, which is none.
    m_userFile.SetItem(section, kGeoidMethod, 0, true);
    m_userFile.SetItem(section, kSystemEllipsoid, m_elpName, true);
    m_userFile.SetItem(section, kSystemProjection, m_prjName, true);
}

void Zor2NewZorCoordSys::WriteCounts()
{
    struct CountRow {
        const CString& key;
        bool added;
    };
    const auto raised = [](int count, bool added) { return added ? CountBehind(count) : count; };
    for (const CountRow& row : {CountRow{kGroupCount, m_groupAdded}, CountRow{kSystemCount, m_systemAdded},
                                CountRow{kDatumCount, m_dtfAdded}, CountRow{kEllipsoidCount, m_elpAdded}}) {
        m_userFile.SetItem(kGeneralSection, row.key, raised(ReadCount(m_userFile, kGeneralSection, row.key), row.added),
                           true);
    }
    // Kept: units and projections share one variable, so "Unit count" goes on from the projections
    // where the file counts those, and "Projection count" starts again. The numbers serve to make
    // serial keys and nothing else.
    int count = 0;
    ReadItem(m_userFile, kGeneralSection, kUnitCount, count);
    ReadItem(m_userFile, kGeneralSection, kProjectionCount, count);
    m_userFile.SetItem(kGeneralSection, kUnitCount, raised(count, m_unitAdded), true);
    m_userFile.SetItem(kGeneralSection, kProjectionCount, m_prjAdded ? 1 : 0, true);
}

bool Zor2NewZorCoordSys::ProjectHas(const CString& section) const
{
    return m_project != nullptr && m_project->HasSection(section);
}
