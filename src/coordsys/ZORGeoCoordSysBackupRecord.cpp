// A project's backup as an authoring record, in which form it is compared with the database.
//
// Only the sections that SaveBackup writes are read: for a project of the older generation datum
// and projection keep the values that a missing key has.

#include <array>
#include <cmath>
#include <cstddef>
#include <span>

#include "authoring/ZorGeoStaticData.h"
#include "coordsys/ZORGeoCoordSys.h"
#include "datum/DatumMethod.h"
#include "frame/ReadItem.h"
#include "frame/RecordNames.h"
#include "projections/ProjectionType.h"

namespace {

constexpr short kUnitFormat = 3;

/// One section of a project. A key that cannot be read gives the value named as missing.
class Section {
public:
    Section(const FileObject& file, const CString& name) : m_file(file), m_name(name) {}

    template <typename Value>
    Value Get(const CString& key, Value missing) const
    {
        return ItemOr(m_file, m_name, key, missing);
    }
    CString Text(const CString& key) const { return Get(key, CString()); }
    double Number(const CString& key) const { return Get(key, 0.0); }
    bool Flag(const CString& key) const { return Get(key, false); }
    template <typename Value>
    bool Read(const CString& key, Value& value) const
    {
        return ReadItem(m_file, m_name, key, value);
    }
    bool Has(const CString& key) const { return m_file.HasKey(m_name, key); }

private:
    const FileObject& m_file;
    CString m_name;
};

void FillLocalEllipsoid(ZorGeoStaticDataBase& record, const Section& ellipsoid)
{
    const double a = ellipsoid.Number(spheroidKeys[SpheroidKey::semiMajor]);
    const double e2 = ellipsoid.Number(spheroidKeys[SpheroidKey::eccSquared]);
    const double b = a * std::sqrt(1.0 - e2);
    const double inverseFlattening = a / (a - b);
    // Kept: no squared eccentricity in the record; who needs it squares the eccentricity.
    record.SetElpsoidParams(a, b, std::sqrt(e2), 0.0, 1.0 / inverseFlattening, inverseFlattening);
}

void FillSourceEllipsoid(ZorGeoStaticDataBase& record, const Section& datum)
{
    record.SetSrcElpsoidParams(datum.Number(kDatumSourceAxis), std::sqrt(datum.Number(kDatumSourceEcc)));
    record.SetSrcElpName(datum.Text(transParamKeys[TransKey::source]));
}

// Reads keys that follow each other in transParamKeys.
void ReadNumbers(const Section& datum, std::size_t firstKey, std::span<double> numbers)
{
    for (double& number : numbers) {
        number = datum.Number(transParamKeys[firstKey++]);
    }
}

void FillTransformation(ZorGeoStaticDataBase& record, const Section& backup, const Section& datum)
{
    // A record of the time when there was one method does not name it.
    const CString method = datum.Has(kDatumMethod) ? datum.Text(kDatumMethod) : kMethodBursaWolfe7;
    std::array<double, 7> p{};
    std::array<double, 8> rates{};
    if (!(method == kMethodNone)) {
        ReadNumbers(datum, TransKey::shiftX, p);
    }
    if (HasRates(method)) {
        ReadNumbers(datum, TransKey::shiftRateX, rates);
    }
    const bool fixedHeight = datum.Flag(transParamKeys[TransKey::fixedHeight]);
    const double forward = datum.Number(transParamKeys[TransKey::fixedHeightForward]);
    const double reverse = datum.Number(transParamKeys[TransKey::fixedHeightReverse]);
    record.SetDttransNameAndKey(backup.Text(kSystemDatum), L"");
    record.SetDtTransferMdName(method, record.GetDtTransMethodByName(method));
    record.SetDtTransferParams(p[0], p[1], p[2], p[3], p[4], p[5], p[6], rates[0], rates[1], rates[2], rates[3],
                               rates[4], rates[5], rates[6], rates[7], fixedHeight, forward, reverse);
}

void FillProjectionParameters(ZorGeoStaticDataBase& record, const Section& projection, int type)
{
    CStringArray names;
    CArray<UINT, UINT> kinds;
    CStringArray keys;
    record.GetSelPrjMdResults(type, names, kinds, keys);
    CArray<double, double> values;
    for (int i = 0; i < keys.GetSize(); ++i) {
        // Kept: behind a key that is missing the values move up against their names, so that the
        // comparison finds a difference and the user is asked.
        if (double value = 0.0; projection.Read(keys[i], value)) {
            values.Add(value);
        }
    }
    CStringArray noTexts;
    record.SetPrjParams(values, names, noTexts, kinds);
}

void FillProjection(ZorGeoStaticDataBase& record, const Section& backup, const Section& projection)
{
    record.SetPrjMdName(backup.Text(kBackupProjectionMethod));
    const int type = backup.Get(kBackupProjectionType, 0);
    record.SetPrjNameAndType(backup.Text(kSystemProjection), static_cast<short>(type));
    FillProjectionParameters(record, projection, type);
    if (type == ProjectionType::utm) {
        record.SetUTMStatu(true);
        record.SetUTMZone(projection.Text(projectionParamKeys[ProjectionKey::utmZone]));
        record.SetUTMHemiSphere(projection.Text(projectionParamKeys[ProjectionKey::hemisphere]));
    }
}

// Kept: factor and suffix come from a table of units in the project, which projects as a rule do
// not have; the comparison goes by the unit's name.
void FillUnit(ZorGeoStaticDataBase& record, const Section& backup, const Section& units)
{
    const CString name = backup.Text(kSystemUnit);
    const CZorString items(units.Text(name), L',', true, false);
    double factor = 0.0;
    CString suffix;
    items.GetItem(0, factor);
    items.GetItem(1, suffix);
    record.SetUnitNameAndKey(name, L"");
    record.SetUnitParams(factor, kUnitFormat, suffix);
}

void FillGeoid(ZorGeoStaticDataBase& record, const Section& backup)
{
    const CString method = backup.Text(kGeoidMethod);
    record.SetUseGeoidModelStatu(backup.Flag(kGeoidUse));
    record.SetGeoidMethod(method);
    record.SetGeoidGrid(backup.Text(kGeoidGrid));
    if (method == GeoidmodelTypeKeys[GeoidType::manual]) {
        record.SetGeoidManualInput(backup.Number(kGeoidManual));
    }
}

void FillPostCorrections(ZorGeoStaticDataBase& record, const Section& backup)
{
    const bool use = backup.Flag(kPostUse);
    record.SetUsePostCorrctStatu(use);
    if (use) {
        record.SetPostCorrection(backup.Number(kPostX), backup.Number(kPostY), backup.Number(kPostZ));
    }
    record.SetPostCorrtFile(backup.Text(kPostFile));
    record.SetPostCorrtModel(backup.Text(kPostModel));
}

void FillHorAdjust(ZorGeoStaticDataBase& record, const Section& backup)
{
    const bool use = backup.Flag(kHorAdjustUse);
    record.SetUsePostHorAdjustStatu(use);
    if (use) {
        record.SetPostHorAdjust(backup.Number(kHorAdjustOriginX), backup.Number(kHorAdjustOriginY),
                                backup.Number(kHorAdjustRotation), backup.Get(kHorAdjustScale, 1.0));
    } else {
        record.SetPostHorAdjust(0.0, 0.0, 0.0, 1.0);
    }
}

void FillVertAdjust(ZorGeoStaticDataBase& record, const Section& backup, bool withValues)
{
    record.SetUsePostVertAdjustStatu(backup.Flag(kVertAdjustUse));
    if (withValues) {
        record.SetPostVertAdjust(backup.Number(kVertAdjustOriginX), backup.Number(kVertAdjustOriginY),
                                 backup.Number(kVertAdjustSlopeX), backup.Number(kVertAdjustSlopeY));
    } else {
        record.SetPostVertAdjust(0.0, 0.0, 0.0, 0.0);
    }
}

} // namespace

// Fills `record` from the project's backup. False, nothing set, without a project or a backup in it.
bool ZORGeoCoordSys::CreateGeoStaticDataFromBackup(ZorGeoStaticDataBase& record)
{
    if (!m_pProjectFile || !m_pProjectFile->HasSection(COORDSYSTEM_BACKUP_SECTION)) {
        return false;
    }
    const FileObject& project = *m_pProjectFile;
    const Section backup(project, COORDSYSTEM_BACKUP_SECTION);
    const Section datum(project, kDatumBackup);
    record.SetGroupNameAndKey(backup.Text(kBackupGroup), L"");
    record.SetSysNameAndKey(backup.Text(kBackupSystem), L"");
    record.SetElpNameAndKey(backup.Text(kSystemEllipsoid), L"");
    FillLocalEllipsoid(record, Section(project, kEllipsoidBackup));
    FillSourceEllipsoid(record, datum);
    FillTransformation(record, backup, datum);
    FillProjection(record, backup, Section(project, kProjectionBackup));
    FillUnit(record, backup, Section(project, kUnitsSection));
    FillGeoid(record, backup);
    FillPostCorrections(record, backup);
    FillHorAdjust(record, backup);
    // Kept: it is this object that says whether the plane's values count. A new object, which looks
    // for its system, has none yet and compares zeros under the backup's own flag.
    FillVertAdjust(record, backup, m_hasPostVertAdjust);
    return true;
}
