// The names that the older project gives: the system in its group, a line in each index section,
// and the unit, whose line is its record.

#include <cmath>

#include "database/SectionWalks.h"
#include "database/SerialKeys.h"
#include "database/Zor2NewZorCoordSys.h"
#include "database/ZorGeoDatabase.h"
#include "frame/RecordNames.h"
#include "frame/ZorGeoUtility.h"

namespace {

/// How far two numbers of one ellipsoid may differ, in tolerances of numbers of that size: 6
/// micrometres for an axis, 1e-12 for a squared eccentricity.
constexpr double kSameEllipsoid = 10.0;

// False for NaN: such a record is not the same.
bool IsSame(double databaseValue, double projectValue)
{
    return std::abs(databaseValue - projectValue) < kSameEllipsoid * Epsilon(projectValue);
}

bool ReadEllipsoid(const FileObject& file, const CString& section, double& a, double& e2)
{
    return ReadItem(file, section, spheroidKeys[SpheroidKey::semiMajor], a) &&
           ReadItem(file, section, spheroidKeys[SpheroidKey::eccSquared], e2);
}

CString UnitName(const CString& name)
{
    return name.CompareNoCase(kMeterAlias) == 0 ? kMeters : name;
}

} // namespace

bool Zor2NewZorCoordSys::IsListed(const CString& section, const CString& name) const
{
    CString key;
    return FindKeyInSection(m_userFile, section, name, key);
}

// Adds a line behind what "General" has counted.
void Zor2NewZorCoordSys::AddLine(const CString& section, const CString& countKey, const CString& name, bool& added)
{
    m_userFile.SetItem(section, SerialBehind(ReadCount(m_userFile, kGeneralSection, countKey)), name, true);
    added = true;
}

// The name of a record whose own name is taken.
CString Zor2NewZorCoordSys::NameOfClash(const CString& name) const
{
    return m_sysName + L"(" + name + L")";
}

void Zor2NewZorCoordSys::AddGroup()
{
    if (!IsListed(kGroupsSection, kUserGroup)) {
        AddLine(kGroupsSection, kGroupCount, kUserGroup, m_groupAdded);
    }
}

void Zor2NewZorCoordSys::AddSystemToGroup()
{
    const CString section = kGroupPrefix + kUserGroup;
    const CString serial = SerialBehind(ReadCount(m_userFile, section, kSystemCount));
    m_userFile.SetItem(section, kSystemCount, serial, true);
    m_userFile.SetItem(section, serial, m_sysName, true);
    m_systemAdded = true;
}

bool Zor2NewZorCoordSys::AddDatumName()
{
    if (!ProjectHas(TRANSFORMATION_SECTION)) {
        return false;
    }
    ReadProject(TRANSFORMATION_SECTION, transParamKeys[TransKey::datumKey], m_dtfName);
    // Kept: the record that is listed is used as it is, whatever the project's copy holds.
    if (IsListed(kDatumsSection, m_dtfName)) {
        return true;
    }
    if (m_dtfName.IsEmpty()) {
        m_dtfName = m_sysName + L"- no dtf name";
    } else if (m_userFile.HasSection(kDatumPrefix + m_dtfName)) {
        m_dtfName = NameOfClash(m_dtfName);
    }
    AddLine(kDatumsSection, kDatumCount, m_dtfName, m_dtfAdded);
    return true;
}

bool Zor2NewZorCoordSys::AddEllipsoidName()
{
    if (!ProjectHas(SPHEROID_SECTION)) {
        return false;
    }
    ReadProject(SPHEROID_SECTION, spheroidKeys[SpheroidKey::legacyName], m_elpName);
    for (const geodb_type which : {GeoDbMain, GeoDbUser}) {
        if (!m_database->HasEllpsoid(m_elpName, which)) {
            continue;
        }
        if (!ProjectHas(kEllipsoidBackup)) {
            return false;
        }
        if (HasEllipsoidOfProject(which == GeoDbMain ? m_database->GetMainFile() : m_database->GetUserFile())) {
            return true;
        }
    }
    if (m_database->HasEllpsoid(m_elpName, GeoDbBoth)) {
        m_elpName = NameOfClash(m_elpName);
    }
    AddLine(kEllipsoidsSection, kEllipsoidCount, m_elpName, m_elpAdded);
    return true;
}

// Whether the record in `file` has the numbers of the project's copy.
bool Zor2NewZorCoordSys::HasEllipsoidOfProject(const FileObject& file) const
{
    double projectA = 0.0;
    double projectE2 = 0.0;
    double a = 0.0;
    double e2 = 0.0;
    return ReadEllipsoid(*m_project, kEllipsoidBackup, projectA, projectE2) &&
           ReadEllipsoid(file, kEllipsoidPrefix + m_elpName, a, e2) && IsSame(a, projectA) && IsSame(e2, projectE2);
}

bool Zor2NewZorCoordSys::AddUnitName()
{
    if (!ProjectHas(UNITS_SECTION) || !ReadProject(UNITS_SECTION, kLegacySystemUnits, m_unitName)) {
        return false;
    }
    m_unitName = UnitName(m_unitName);
    if (m_database->HasUint(m_unitName, GeoDbBoth)) {
        return true;
    }
    const auto isUnit = [&](const CString& unit, const CString&) { return unit.CompareNoCase(m_unitName) == 0; };
    if (FindEntry(m_userFile, kUnitsSection, isUnit)) {
        return true;
    }
    m_unitAdded = true;
    return AddUnit();
}

// Takes the project's unit over from the unit table of the older generation.
bool Zor2NewZorCoordSys::AddUnit()
{
    FileObject table;
    if (!table.FileOpen(ZorGeoUtility::Get().mainDatabaseDir + kLegacyUnitsFile, FileMode::openForReading)) {
        return false;
    }
    CString name;
    if (!ReadProject(UNITS_SECTION, kLegacySystemUnits, name)) {
        ReadItem(table, kLegacyDefaults, kLegacySystemUnits, name);
    }
    name = UnitName(name);
    // Kept: a unit that the table lacks is taken over without factor and suffix.
    CString text;
    ReadItem(table, kLegacySystemUnits, name, text);
    // Kept: a user file that has never had a unit gets none.
    return m_userFile.HasSection(kUnitsSection) && m_userFile.SetItem(kUnitsSection, name, text, true);
}

bool Zor2NewZorCoordSys::AddProjectionName()
{
    if (!ProjectHas(PROJECTION_SECTION)) {
        return false;
    }
    ReadProject(PROJECTION_SECTION, projectionParamKeys[ProjectionKey::legacyName], m_prjName);
    if (IsListed(kProjectionsSection, m_prjName)) {
        return true;
    }
    if (m_userFile.HasSection(kProjectionPrefix + m_prjName)) {
        m_prjName = NameOfClash(m_prjName);
    }
    AddLine(kProjectionsSection, kProjectionCount, m_prjName, m_prjAdded);
    return true;
}
