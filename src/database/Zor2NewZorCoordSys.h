#pragma once

#include <memory>

#include "frame/BaseContract.h"
#include "frame/ReadItem.h"

class ZorGeoDatabase;

/// Brings the coordinate system of a project of the older generation, or one datum transformation
/// of that generation, into the user database. Serves one conversion.
///
/// The older generation kept its records in six section files beside the program, a delivered and
/// a user file for ellipsoids, projections and datum transformations each, with the record's name
/// as the section; a project names its records in four sections and holds copies of them.
///
/// Everything happens in memory until the end: after a false the user file stands on the disk as
/// it was, but that Convert makes an empty one when it was missing. Whether records exist is asked
/// of the database as it stood before. Nothing is shown and nothing throws. A save that fails is
/// not told.
/// (The spelling of the names is part of the interface.)
class Zor2NewZorCoordSys {
public:
    /// `project`, which must outlive this object, holds the copies that CreateNewDtf may need; null
    /// for none.
    explicit Zor2NewZorCoordSys(FileObject* project = nullptr);
    virtual ~Zor2NewZorCoordSys();
    Zor2NewZorCoordSys(const Zor2NewZorCoordSys&) = delete;
    Zor2NewZorCoordSys& operator=(const Zor2NewZorCoordSys&) = delete;

    /// Adds the project's system to the group "User Defined Coordinate Systems" of the user file,
    /// under the name of the directory in which the project lies. True, nothing written, when
    /// either file has a system of that name.
    /// False for a null project, and when the database cannot be opened, a section of the project
    /// is missing, or a record is found nowhere.
    bool Convert(FileObject* project);
    /// The name of the system, after Convert.
    const CString& SystemName() const { return m_sysName; }

    /// Adds the datum transformation `name` of the older definition files to the user file, and its
    /// ellipsoids where the database lacks them. "Datumtransf count" stays.
    /// False when the database cannot be opened or neither definition file has the record.
    bool CreateNewDtf(const CString& name);

private:
    bool OpenDatabase(bool makeUserFile);
    CString NameOfProjectDirectory() const;

    // What the project names: lines in the index sections. Each is false when the project has not
    // what it asks for.
    void AddGroup();
    void AddSystemToGroup();
    bool AddDatumName();
    bool AddEllipsoidName();
    bool AddUnitName();
    bool AddUnit();
    bool AddProjectionName();
    bool IsListed(const CString& section, const CString& name) const;
    void AddLine(const CString& section, const CString& countKey, const CString& name, bool& added);
    CString NameOfClash(const CString& name) const;
    bool HasEllipsoidOfProject(const FileObject& file) const;

    // The records. Each is false when no source has the record.
    bool AddEllipsoidRecord(const CString& name, bool useProject);
    bool CopyEllipsoid(const FileObject& source, const CString& section);
    bool AddDatumRecord();
    bool CopyDatumFromDefinitions(const CString& section, bool keepName);
    bool CopyDatum(const FileObject& source, CString section, bool keepName);
    void AddEllipsoidOfDatum(const CString& name, const CString& axisKey, const CString& eccKey);
    bool AddProjectionRecord();
    bool CopyProjection(const FileObject& source, const CString& section);
    void NameUtmProjection(const FileObject& source, const CString& section);
    void WriteSystem();

    void WriteCounts();

    bool ProjectHas(const CString& section) const;
    template <typename Value>
    bool ReadProject(const CString& section, const CString& key, Value& value) const;

    FileObject m_userFile; ///< apart from the one of m_database
    FileObject* m_project;
    CString m_userFilePath;
    CString m_projectFileName;
    CString m_userDir;
    CString m_sysName; ///< also the prefix of a record whose name is taken
    CString m_dtfName;
    CString m_elpName;
    CString m_prjName;
    CString m_unitName;
    /// Which counts to raise at the end.
    bool m_systemAdded = false;
    bool m_prjAdded = false;
    bool m_elpAdded = false;
    bool m_dtfAdded = false;
    bool m_unitAdded = false;
    bool m_groupAdded = false;
    std::unique_ptr<ZorGeoDatabase> m_database; ///< as it stood before
};

template <typename Value>
bool Zor2NewZorCoordSys::ReadProject(const CString& section, const CString& key, Value& value) const
{
    return m_project != nullptr && ReadItem(*m_project, section, key, value);
}
