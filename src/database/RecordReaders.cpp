#include "database/RecordReaders.h"

#include <memory>
#include <stdexcept>

#include "database/SectionWalks.h"
#include "frame/RecordNames.h"
#include "projections/CProjection.h"
#include "projections/ProjectionFactory.h"

namespace {

struct SystemInfoRow {
    const CString& key;
    CString SystemInfo::*text;
};

// The datum's name is asked for twice, as it always was; the second answer is the same.
constexpr SystemInfoRow kSystemInfo[] = {
    {kSystemDatum, &SystemInfo::datum},
    {kSystemUnit, &SystemInfo::unit},
    {kSystemEllipsoid, &SystemInfo::ellipsoid},
    {kGeoidMethod, &SystemInfo::geoidMethod},
    {kSystemDatum, &SystemInfo::datum},
    {kSystemProjection, &SystemInfo::projection},
    {kSystemDescription, &SystemInfo::description},
};

/// Keys of DatumRecordView::numbers: what every method has, then what moves with time.
constexpr std::array<std::size_t, 15> kNumberKeys = {
    TransKey::shiftX,   TransKey::shiftY,   TransKey::shiftZ,     TransKey::rotX,       TransKey::rotY,
    TransKey::rotZ,     TransKey::scale,    TransKey::shiftRateX, TransKey::shiftRateY, TransKey::shiftRateZ,
    TransKey::rotRateX, TransKey::rotRateY, TransKey::rotRateZ,   TransKey::scaleRate,  TransKey::epoch};
constexpr std::size_t kFirstRate = 7;
static_assert(kNumberKeys.size() == std::tuple_size_v<decltype(DatumRecordView::numbers)>);

} // namespace

CString ShortenedDatumSection(CString section)
{
    const int dash = section.Find(L" - ");
    const int colon = section.Find(L":");
    if (dash > 0 && colon > dash + 3) {
        section.Delete(dash + 3, colon - dash - 2);
    }
    return section;
}

bool FindSystem(const FileObject& file, const CString& group, const CString& system)
{
    // Kept: "System count" is compared like a name, so a system that is named by that number
    // counts as listed.
    CString key;
    return FindKeyInSection(file, kGroupPrefix + group, system, key);
}

void LoadSystemInfo(const FileObject& file, const CString& system, SystemInfo& info)
{
    const CString section = kSystemPrefix + system;
    if (!file.HasSection(section)) {
        return;
    }
    for (const SystemInfoRow& row : kSystemInfo) {
        ReadItem(file, section, row.key, info.*row.text);
    }
}

bool FindUnit(const FileObject& file, const CString& name, CString& value, CString& key)
{
    return FindEntry(file, kUnitsSection, [&](const CString& unit, const CString& text) {
        if (unit.CompareNoCase(name) != 0) {
            return false;
        }
        value = text;
        key = unit;
        return true;
    });
}

bool FindElpsoid(const FileObject& file, const CString& name, double& semiMajor, double& eccSquared)
{
    const CString section = kEllipsoidPrefix + name;
    double a = 0.0;
    double e2 = 0.0;
    if (!file.HasSection(section) || !ReadItem(file, section, spheroidKeys[SpheroidKey::semiMajor], a) ||
        !ReadItem(file, section, spheroidKeys[SpheroidKey::eccSquared], e2)) {
        return false;
    }
    semiMajor = a;
    eccSquared = e2;
    return true;
}

bool FindTargetElp(const FileObject& file, const CString& dtfName, CString& target)
{
    const CString section = kDatumPrefix + dtfName;
    return file.HasSection(section) && ReadItem(file, section, transParamKeys[TransKey::target], target);
}

bool FindDtfByName(const FileObject& file, const CString& name, const DatumRecordView& out)
{
    // Kept: a name of the form "A - B: C" whose record stands under "A -  C" is found, but read
    // under the name as given, so that it answers with its rates 0 and the rest untouched.
    const CString section = kDatumPrefix + name;
    if (!file.HasSection(section) && !file.HasSection(ShortenedDatumSection(section))) {
        return false;
    }
    ReadItem(file, section, kDatumMethod, out.method);
    ReadItem(file, section, transParamKeys[TransKey::source], out.source);
    ReadItem(file, section, transParamKeys[TransKey::target], out.target);
    for (std::size_t i = 0; i < kFirstRate; ++i) {
        ReadItem(file, section, transParamKeys[kNumberKeys[i]], *out.numbers[i]);
    }
    for (std::size_t i = kFirstRate; i < kNumberKeys.size(); ++i) {
        *out.numbers[i] = 0.0;
    }
    for (std::size_t i = kFirstRate; i < kNumberKeys.size(); ++i) {
        ReadItem(file, section, transParamKeys[kNumberKeys[i]], *out.numbers[i]);
    }
    out.fixedHeight = false;
    out.fixedHeightForward = 0.0;
    out.fixedHeightReverse = 0.0;
    ReadItem(file, section, transParamKeys[TransKey::fixedHeight], out.fixedHeight);
    ReadItem(file, section, transParamKeys[TransKey::fixedHeightForward], out.fixedHeightForward);
    ReadItem(file, section, transParamKeys[TransKey::fixedHeightReverse], out.fixedHeightReverse);
    return true;
}

ProjectionLoad LoadProjection(CProjection& projection, const FileObject& file, const CString& section)
{
    // A projection asks for keys that its record may lack, and `file` may be in the mode that throws.
    FileObject quiet = file;
    quiet.ThrowExceptions(false);
    try {
        return projection.LoadParameters(quiet, section) ? ProjectionLoad::loaded : ProjectionLoad::refused;
    } catch (const std::invalid_argument&) {
        return ProjectionLoad::unlistable;
    }
}

bool ReadProjectionConstants(const FileObject& file, const CString& section, CArray<double, double>& values,
                             CStringArray& names, CStringArray& texts, CArray<UINT, UINT>& kinds)
{
    int type = 0;
    ReadItem(file, section, projectionParamKeys[ProjectionKey::type], type);
    const std::unique_ptr<CProjection> projection(
        ProjectionFactory::CreateProjectionByType(static_cast<std::uint32_t>(type)));
    // Without an ellipsoid the load is refused at its end, with the constants complete.
    if (!projection || LoadProjection(*projection, file, section) == ProjectionLoad::unlistable) {
        return false;
    }
    projection->GetProjectionConstants(values, names, texts, kinds);
    return true;
}
