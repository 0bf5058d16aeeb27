// Answers by name: attributes of systems, projections, datums, ellipsoids and units, tests for
// existence, defaults.

#include <cmath>

#include "database/RecordReaders.h"
#include "database/SectionWalks.h"
#include "database/ZorGeoDatabase.h"
#include "datum/Ellipsoid.h"
#include "frame/RecordNames.h"

namespace {

constexpr short kUnitDigits = 7;

} // namespace

// Systems.

const FileObject* ZorGeoDatabase::FileOfSystem(const CString& group, const CString& system) const
{
    for (const FileObject* file : {&m_mainFile, &m_userFile}) {
        if (FindSystem(*file, group, system)) {
            return file;
        }
    }
    return nullptr;
}

CString ZorGeoDatabase::SystemText(const CString& group, const CString& system, const CString& key) const
{
    CString text;
    ReadItems<CString>(FileOfSystem(group, system), kSystemPrefix + system, {{key, text}});
    return text;
}

CString ZorGeoDatabase::GetPrjNameByGroupAndSysNames(CString group, CString system)
{
    return SystemText(group, system, kSystemProjection);
}

CString ZorGeoDatabase::GetDtfNameByGroupAndSysNames(CString group, CString system)
{
    return SystemText(group, system, kSystemDatum);
}

CString ZorGeoDatabase::GetUnitNameByGroupAndSysNames(CString group, CString system)
{
    return SystemText(group, system, kSystemUnit);
}

CString ZorGeoDatabase::GetSystemUnit(CString group, CString system)
{
    return SystemText(group, system, kSystemUnit);
}

CString ZorGeoDatabase::GetPrjMdNameByGroupAndSysNames(CString group, CString system)
{
    return GetPrjMdNameByPrjName(SystemText(group, system, kSystemProjection));
}

bool ZorGeoDatabase::IsSystemCustom(CString group, CString system)
{
    return FindSystem(m_userFile, group, system);
}

bool ZorGeoDatabase::FindGroupAndSysByPrjName(CString projection, CString& group, CString& system)
{
    const FileObject* file = FileOfProjection(projection);
    if (!file) {
        return false;
    }
    CStringArray groups;
    GetAllGroupNames(groups, GeoDbBoth);
    CStringArray systems;
    // Kept: a record in the other file leaves the texts of the one before it, which did not match.
    SystemInfo info;
    for (const CString& groupName : groups) {
        GetAllSystemNamesByGroupName(systems, groupName);
        for (const CString& systemName : systems) {
            LoadSystemInfo(*file, systemName, info);
            if (info.projection.CompareNoCase(projection) == 0) {
                group = groupName;
                system = systemName;
                return true;
            }
        }
    }
    return false;
}

// Projections.

const FileObject* ZorGeoDatabase::FileOfProjection(const CString& name)
{
    if (HasProjection(name, GeoDbUser)) {
        return &m_userFile;
    }
    return HasProjection(name, GeoDbMain) ? &m_mainFile : nullptr;
}

const FileObject* ZorGeoDatabase::UserThenMainFile(const CString& section) const
{
    for (const FileObject* file : {&m_userFile, &m_mainFile}) {
        if (file->HasSection(section)) {
            return file;
        }
    }
    return nullptr;
}

CString ZorGeoDatabase::UserThenMainText(const CString& section, const CString& key) const
{
    CString text;
    ReadItems<CString>(UserThenMainFile(section), section, {{key, text}});
    return text;
}

CString ZorGeoDatabase::GetPrjMdNameByPrjName(CString projection)
{
    return UserThenMainText(kProjectionPrefix + projection, kProjectionMethod);
}

CString ZorGeoDatabase::GetPrjUnit(CString projection)
{
    return UserThenMainText(kProjectionPrefix + projection, kProjectionUnit);
}

bool ZorGeoDatabase::GetPrjUTMInfo(CString projection, CString& zone, CString& hemisphere)
{
    const CString section = kProjectionPrefix + projection;
    const FileObject* file = UserThenMainFile(section);
    if (!file) {
        return false;
    }
    ReadItems<CString>(file, section,
                       {{projectionParamKeys[ProjectionKey::hemisphere], hemisphere},
                        {projectionParamKeys[ProjectionKey::utmZone], zone}});
    return true;
}

int ZorGeoDatabase::GetPrjTypeByPrjName(CString projection)
{
    int type = 0;
    ReadItems<int>(FileOfProjection(projection), kProjectionPrefix + projection,
                   {{projectionParamKeys[ProjectionKey::type], type}});
    return type;
}

bool ZorGeoDatabase::GetPrjConstantsByName(CString projection, CArray<double, double>& values, CStringArray& names,
                                           CStringArray& texts, CArray<UINT, UINT>& kinds)
{
    const FileObject* file = FileOfProjection(projection);
    return file && ReadProjectionConstants(*file, kProjectionPrefix + projection, values, names, texts, kinds);
}

// Datum transformations.

bool ZorGeoDatabase::GetDtfParamByName(CString name, CString& method, double& shiftX, double& shiftY, double& shiftZ,
                                       double& rotX, double& rotY, double& rotZ, double& scale, double& shiftRateX,
                                       double& shiftRateY, double& shiftRateZ, double& rotRateX, double& rotRateY,
                                       double& rotRateZ, double& scaleRate, double& epoch, CString& source,
                                       CString& target, bool& fixedHeight, double& fixedHeightForward,
                                       double& fixedHeightReverse)
{
    const DatumRecordView out{method,
                              source,
                              target,
                              {&shiftX, &shiftY, &shiftZ, &rotX, &rotY, &rotZ, &scale, &shiftRateX, &shiftRateY,
                               &shiftRateZ, &rotRateX, &rotRateY, &rotRateZ, &scaleRate, &epoch},
                              fixedHeight,
                              fixedHeightForward,
                              fixedHeightReverse};
    return FindDtfByName(m_mainFile, name, out) || FindDtfByName(m_userFile, name, out);
}

bool ZorGeoDatabase::GetElpNamesByDtfName(CString name, CString& source, CString& target)
{
    const CString section = kDatumPrefix + name;
    const FileObject* file = UserThenMainFile(section);
    if (!file) {
        return false;
    }
    ReadItems<CString>(file, section,
                       {{transParamKeys[TransKey::source], source}, {transParamKeys[TransKey::target], target}});
    return true;
}

CString ZorGeoDatabase::GetDtfDescription(CString name)
{
    return UserThenMainText(kDatumPrefix + name, transParamKeys[TransKey::description]);
}

CString ZorGeoDatabase::GetDtfFilePathByDtfName(CString)
{
    return {};
}

CString ZorGeoDatabase::GetDatumKeyByName(CString)
{
    return L" ";
}

// Ellipsoids.

bool ZorGeoDatabase::FindElpsoidInFiles(const CString& name, double& semiMajor, double& eccSquared) const
{
    return FindElpsoid(m_mainFile, name, semiMajor, eccSquared) || FindElpsoid(m_userFile, name, semiMajor, eccSquared);
}

bool ZorGeoDatabase::GetElpParamByElpName(CString name, double& a, double& b, double& e, double&, double& f,
                                          double& invF)
{
    double eccSquared = 0.0;
    if (!FindElpsoidInFiles(name, a, eccSquared)) {
        return false;
    }
    Ellipsoid ellipsoid;
    if (ellipsoid.Set(a, eccSquared) == Ellipsoid::good) {
        invF = a / (a - ellipsoid.semiMinor);
    }
    // Kept: the flattening is formed from the inverse whatever stands there: the caller's own for
    // a refused ellipsoid, infinity for a sphere.
    f = 1.0 / invF;
    e = std::sqrt(eccSquared);
    b = ellipsoid.semiMinor;
    return true;
}

bool ZorGeoDatabase::GetElpsoidParametersByDtName(CString dtf, CString& target, double& a, double& b, double& e,
                                                  double& spare, double& f, double& invF)
{
    if (!FindTargetElp(m_mainFile, dtf, target) && !FindTargetElp(m_userFile, dtf, target)) {
        return false;
    }
    return GetElpParamByElpName(target, a, b, e, spare, f, invF);
}

CString ZorGeoDatabase::GetElpKeyByName(CString)
{
    return L"default";
}

CString ZorGeoDatabase::GetDefaultSrcElpName()
{
    return kDefaultSource;
}

// Units.

bool ZorGeoDatabase::GetUnitParametersByName(CString name, CString& key, CString& suffix, double& factor, short& digits)
{
    CString text;
    if (!FindUnit(m_mainFile, name, text, key) && !FindUnit(m_userFile, name, text, key)) {
        return false;
    }
    const CZorString items(text, L',', true, false);
    items.GetItem(0, factor);
    items.GetItem(1, suffix);
    digits = kUnitDigits;
    return true;
}

bool ZorGeoDatabase::CreateNewUnit(CString name, double factor, CString suffix, short)
{
    CString text;
    text.Format(L"%f%s%s", factor, L",", suffix);
    return m_userFile.SetItem(kUnitsSection, name, text, true);
}

// Existence.

bool ZorGeoDatabase::HasRecord(const CString& section, unsigned which) const
{
    return Ask(which, [&](const FileObject& file) { return file.HasSection(section); });
}

bool ZorGeoDatabase::HasGroup(CString name, unsigned which)
{
    return HasRecord(kGroupPrefix + name, which);
}

bool ZorGeoDatabase::HasSystem(CString name, unsigned which)
{
    return HasRecord(kSystemPrefix + name, which);
}

bool ZorGeoDatabase::HasDtf(CString name, unsigned which)
{
    return HasRecord(kDatumPrefix + name, which);
}

bool ZorGeoDatabase::HasEllpsoid(CString name, unsigned which)
{
    return HasRecord(kEllipsoidPrefix + name, which);
}

bool ZorGeoDatabase::HasProjection(CString name, unsigned which)
{
    return HasRecord(kProjectionPrefix + name, which);
}

bool ZorGeoDatabase::HasUint(CString name, unsigned which)
{
    return Ask(which, [&](const FileObject& file) {
        CString text;
        CString key;
        return FindUnit(file, name, text, key);
    });
}

// Defaults.

void ZorGeoDatabase::GetDefaultGroupAndSystem(CString& group, CString& system)
{
    group = kDefaultGroup;
    system = kDefaultSystem;
}
