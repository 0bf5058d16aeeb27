// Adding the record's system to the user database.

#include <algorithm>
#include <array>
#include <cmath>
#include <iterator>

#include "authoring/ZorGeoStaticDataFields.h"
#include "database/SerialKeys.h"
#include "database/ZorGeoDatabase.h"
#include "datum/DatumMethod.h"
#include "frame/ZorGeoUtility.h"

namespace {

/// Places in Counters, in the order in which the counters are written.
enum Counter : std::size_t { groups, systems, ellipsoids, datums, units, projections, counterCount };

constexpr const CString* kCounterKeys[counterCount] = {&kGroupCount, &kSystemCount, &kEllipsoidCount,
                                                       &kDatumCount, &kUnitCount,   &kProjectionCount};

/// The counters of the section "General": high-water marks of the serial keys.
class Counters {
public:
    /// 0 for each that the file lacks.
    explicit Counters(const FileObject& file)
    {
        for (std::size_t i = 0; i < counterCount; ++i) {
            m_counts[i] = ReadCount(file, kGeneralSection, *kCounterKeys[i]);
        }
    }
    CString NextSerial(Counter counter) const { return SerialBehind(m_counts[counter]); }
    /// To be counted when the counters are written.
    void Remember(Counter counter) { m_added[counter] = true; }
    void Write(FileObject& file) const
    {
        for (std::size_t i = 0; i < counterCount; ++i) {
            const int count = m_added[i] ? CountBehind(m_counts[i]) : m_counts[i];
            file.SetItem(kGeneralSection, *kCounterKeys[i], count, true);
        }
    }

private:
    std::array<int, counterCount> m_counts{};
    std::array<bool, counterCount> m_added{};
};

/// Keys of latitudes that no database holds a pole for.
const CString* const kOffPoleKeys[] = {&projectionParamKeys[ProjectionKey::latOrigin],
                                       &projectionParamKeys[ProjectionKey::southernParallel],
                                       &projectionParamKeys[ProjectionKey::northernParallel]};

constexpr double kPole = 90.0;             // degrees
constexpr double kOffPole = 89.9999999999; // 11 micrometres from it on the ground

// Kept: a pole moves by 1e-10 degrees, since the formulas of most projections have none; every
// database that was written holds it so.
double OffPole(const CString& key, double latitude)
{
    const bool moves = std::any_of(std::begin(kOffPoleKeys), std::end(kOffPoleKeys),
                                   [&](const CString* offPole) { return key == *offPole; });
    return moves && std::abs(latitude) == kPole ? std::copysign(kOffPole, latitude) : latitude;
}

void WriteEllipsoid(FileObject& file, const CString& name, double semiMajor, double ecc)
{
    const CString section = kEllipsoidPrefix + name;
    // Kept: no line in the list of ellipsoids and no count. Lists of ellipsoids offer the delivered
    // ones; a system's own is found by its name.
    file.CreateSection(section, true);
    file.SetItem(section, kSemiMajor, semiMajor, true);
    file.SetItem(section, kEccSquared, ecc * ecc, true);
}

} // namespace

/// One run of SaveDataToDB: the user file as it is being changed in memory, and the database as it
/// stood before. What is asked is about the state before the run. A step that answers false ends
/// the run, with the file on disk as it was.
struct ZorGeoStaticData::SaveRun {
    SaveRun(ZorGeoStaticData& owner, const FileObject& userFile) : record(owner), file(userFile), counters(userFile) {}

    bool AddGroup()
    {
        const CString section = kGroupPrefix + record.m_groupName;
        if (before.HasGroup(record.m_groupName, GeoDbBoth)) {
            return ListSystemInKnownGroup(section);
        }
        file.SetItem(kGroupsSection, counters.NextSerial(groups), record.m_groupName, true);
        if (!file.CreateSection(section, true)) {
            return false;
        }
        file.SetItem(section, L"1", record.m_sysName, true);
        file.SetItem(section, kSystemCount, L"1", true);
        counters.Remember(groups);
        return true;
    }

    bool AddSystem()
    {
        const bool isNew = !before.HasSystem(record.m_sysName, GeoDbBoth);
        if (isNew) {
            if (!file.CreateSection(kSystemPrefix + record.m_sysName, true)) {
                return false;
            }
            counters.Remember(systems);
        }
        return record.WriteNewSystem(&file, isNew);
    }

    bool AddDatum()
    {
        const CString& name = record.m_dtName;
        if (!before.HasDtf(name, GeoDbBoth)) {
            file.SetItem(kDatumsSection, counters.NextSerial(datums), name, true);
            if (!file.CreateSection(kDatumPrefix + name, true)) {
                return false;
            }
            counters.Remember(datums);
            record.WriteNewDtf(&file);
        }
        // A user's transformation is overwritten, a delivered one left alone.
        return !before.HasDtf(name, GeoDbUser) || record.WriteNewDtf(&file);
    }

    bool AddProjection()
    {
        const CString& name = record.m_prjName;
        if (before.HasProjection(name, GeoDbBoth)) {
            return true;
        }
        file.SetItem(kProjectionsSection, counters.NextSerial(projections), name, true);
        if (!file.CreateSection(kProjectionPrefix + name, true)) {
            return false;
        }
        counters.Remember(projections);
        return record.WriteProjectionInfo(&file);
    }

    void AddEllipsoids()
    {
        if (!before.HasEllpsoid(record.m_elpName, GeoDbBoth)) {
            WriteEllipsoid(file, record.m_elpName, record.m_elpSemiMajor, record.m_elpEcc);
        }
        if (!before.HasEllpsoid(record.m_srcElpName, GeoDbBoth)) {
            WriteEllipsoid(file, record.m_srcElpName, record.m_srcElpSemiMajor, record.m_srcElpEcc);
        }
    }

    void AddUnit()
    {
        if (before.HasUint(record.m_unitName, GeoDbBoth)) {
            return;
        }
        CString unit;
        unit.Format(L"%f", record.m_unitCnv);
        file.SetItem(kUnitsSection, record.m_unitName, unit + L"," + record.m_unitDescp, true);
        counters.Remember(units);
    }

    ZorGeoStaticData& record;
    FileObject file;
    Counters counters;
    ZorGeoDatabase before;

private:
    bool ListSystemInKnownGroup(const CString& section)
    {
        if (!file.HasSection(section)) {
            // Kept: a delivered group that gets its first system of the user is listed, but not
            // counted, so the next new group takes over its serial key.
            file.SetItem(kGroupsSection, counters.NextSerial(groups), record.m_groupName, true);
            if (!file.CreateSection(section, true)) {
                return false;
            }
        }
        const CString serial = SerialBehind(ReadCount(file, section, kSystemCount));
        if (!before.HasSystem(record.m_sysName, GeoDbBoth)) {
            file.SetItem(section, serial, record.m_sysName, true);
        }
        // Kept: the group's count grows also with a system that is known; gaps between serial keys
        // mean nothing.
        file.SetItem(section, kSystemCount, serial, true);
        return true;
    }
};

bool ZorGeoStaticData::SaveDataToDB()
{
    FileObject userFile;
    if (!userFile.FileOpen(ZorGeoUtility::Get().userDatabaseDir + kUserDatabaseFile, FileMode::openForReading)) {
        return false;
    }
    SaveRun run(*this, userFile);
    if (!run.before.Init() || m_groupName.IsEmpty() || !run.AddGroup() || !run.AddSystem() || !run.AddDatum() ||
        !run.AddProjection()) {
        return false;
    }
    run.AddEllipsoids();
    if (run.before.HasProjection(m_prjName, GeoDbUser)) {
        WriteProjectionInfo(&run.file);
    }
    run.AddUnit();
    run.counters.Write(run.file);
    return ZorGeoUtility::Get().GuardedSave(run.file);
}

bool ZorGeoStaticData::WriteNewSystem(FileObject* file, bool isNew)
{
    const CString section = kSystemPrefix + m_sysName;
    Fields::Write(*this, *file, section, Fields::systemNames);
    file->SetItem(section, kGeoidUse, m_useGeoid, true);
    if (m_geoidMethod == GeoidmodelTypeKeys[GeoidType::manual]) {
        file->SetItem(section, kGeoidManual, m_geoidManual, true);
    }
    if (isNew) {
        m_defGeoidGrid = m_geoidGrid;
        m_defGeoidMethod = m_geoidMethod;
    }
    // Kept: a known system gets the defaults back, so that the geoid that a project works with
    // does not take the place of the system's own.
    file->SetItem(section, kGeoidGrid, m_defGeoidGrid, true);
    file->SetItem(section, kGeoidMethod, m_defGeoidMethod, true);
    file->SetItem(section, coordsystemKeys[CoordsystemKey::chartDatum], m_geoidChartDatum, true);
    Fields::Write(*this, *file, section, Fields::postUse);
    Fields::Write(*this, *file, section, Fields::postCorrection);
    Fields::Write(*this, *file, section, Fields::postModel);
    Fields::Write(*this, *file, section, Fields::horAdjustUse);
    Fields::Write(*this, *file, section, Fields::horAdjust);
    Fields::Write(*this, *file, section, Fields::vertAdjustUse);
    Fields::Write(*this, *file, section, Fields::vertAdjust);
    return true;
}

bool ZorGeoStaticData::WriteProjectionInfo(FileObject* file)
{
    const CString section = kProjectionPrefix + m_prjName;
    file->SetItem(section, projectionParamKeys[ProjectionKey::type], static_cast<int>(m_prjType), true);
    file->SetItem(section, kProjectionMethod, m_prjMdName, true);
    file->SetItem(section, kProjectionUnit, m_unitName, true);
    for (int i = 0; i < m_prjParaValues.GetSize(); ++i) {
        // A label that the catalogue does not know gives an empty key, which is written as it is.
        const CString key = m_catalogue.FindParamKey(m_prjParaNames[i]);
        m_prjParaValues[i] = OffPole(key, m_prjParaValues[i]);
        file->SetItem(section, key, m_prjParaValues[i], true);
    }
    if (m_utmStatu) {
        for (const Fields::UtmText& row : Fields::utm) {
            file->SetItem(section, Fields::UtmKeyText(row.key), this->*row.field, true);
        }
    }
    return true;
}

bool ZorGeoStaticData::WriteNewDtf(FileObject* file)
{
    constexpr int kMethods = static_cast<int>(std::size(kDatumMethods));
    const CString section = kDatumPrefix + m_dtName;
    if (m_dtMdType == 0) {
        file->SetItem(section, kDatumMethod, m_dtMdName, true);
    } else if (m_dtMdType > 0 && m_dtMdType <= kMethods) {
        file->SetItem(section, kDatumMethod, kDatumMethods[m_dtMdType - 1].name, true);
        Fields::Write(*this, *file, section, Fields::datumEllipsoids);
        Fields::Write(*this, *file, section, Fields::datumParameters);
        file->SetItem(section, transParamKeys[TransKey::description], m_dtDescp, true);
        // Seven parameters do not move with time, whatever rates the record has.
        for (const Fields::DatumNumber& row : Fields::datumRates) {
            file->SetItem(section, Fields::KeyText(row.key),
                          m_dtMdType > kLastOfSevenParameters ? this->*row.field : 0.0, true);
        }
    }
    Fields::Write(*this, *file, section, Fields::fixedHeightUse);
    Fields::Write(*this, *file, section, Fields::fixedHeight);
    return true;
}
