#include "dbcheck/RecordKinds.h"

#include <algorithm>
#include <cstddef>

#include "DatabaseText.h"
#include "RecordCheck.h"
#include "base/keys/KeyTables.h"
#include "base/text/Numbers.h"

namespace {

using Keys = std::vector<KnownKey>;

template <typename Table>
void AddRange(Keys& keys, const Table& table, int from, int to, KeyHolds kind)
{
    for (auto i = static_cast<std::size_t>(from); i <= static_cast<std::size_t>(to); ++i) {
        keys.push_back({table[i], kind});
    }
}

Keys SystemKeys()
{
    Keys keys = {{kSystemDatum, KeyHolds::text},
                 {kUnitName, KeyHolds::text},
                 {kSystemEllipsoid, KeyHolds::text},
                 {kSystemProjection, KeyHolds::text},
                 {kGeoidUse, KeyHolds::boolean},
                 {kGeoidManual, KeyHolds::number},
                 {kGeoidGrid, KeyHolds::text},
                 {kGeoidMethod, KeyHolds::text},
                 {coordsystemKeys[CoordsystemKey::chartDatum], KeyHolds::text},
                 {kSystemDescription, KeyHolds::text},
                 {kPostFile, KeyHolds::text},
                 {kPostModel, KeyHolds::text}};
    for (const CorrectionSwitch& row : CorrectionSwitches()) {
        keys.push_back({row.statusKey, KeyHolds::boolean});
        for (const CString& key : row.keys) {
            keys.push_back({key, KeyHolds::number});
        }
    }
    return keys;
}

Keys DatumKeys()
{
    Keys keys = {{kDatumMethod, KeyHolds::text},       {transParamKeys[TransKey::fixedHeight], KeyHolds::boolean},
                 {kDatumSourceAxis, KeyHolds::number}, {kDatumSourceEcc, KeyHolds::number},
                 {kDatumTargetAxis, KeyHolds::number}, {kDatumTargetEcc, KeyHolds::number}};
    AddRange(keys, transParamKeys, TransKey::description, TransKey::target, KeyHolds::text);
    AddRange(keys, transParamKeys, TransKey::shiftX, TransKey::scale, KeyHolds::number);
    // A key of the record that nothing reads.
    keys.push_back({transParamKeys[TransKey::scale + 1], KeyHolds::text});
    AddRange(keys, transParamKeys, TransKey::shiftRateX, TransKey::epoch, KeyHolds::number);
    AddRange(keys, transParamKeys, TransKey::fixedHeightForward, TransKey::fixedHeightReverse, KeyHolds::number);
    return keys;
}

Keys ProjectionKeys()
{
    using namespace ProjectionKey;
    Keys keys = {{projectionParamKeys[type], KeyHolds::number},
                 {kProjectionMethod, KeyHolds::text},
                 {kUnitName, KeyHolds::text},
                 {projectionParamKeys[utmZone], KeyHolds::text},
                 {projectionParamKeys[hemisphere], KeyHolds::text}};
    AddRange(keys, projectionParamKeys, latOrigin, northernParallel, KeyHolds::number);
    AddRange(keys, projectionParamKeys, gridSkew, latTrueScale, KeyHolds::number);
    AddRange(keys, projectionParamKeys, eastingAtCentre, hotineGridSkew, KeyHolds::number);
    return keys;
}

Keys EllipsoidKeys()
{
    return {{spheroidKeys[SpheroidKey::semiMajor], KeyHolds::number},
            {spheroidKeys[SpheroidKey::eccSquared], KeyHolds::number}};
}

} // namespace

const std::vector<RecordKind>& RecordKinds()
{
    static const std::vector<RecordKind> kinds = {
        {"group", kGroupPrefix, kGroupsSection, kGroupCount, {}},
        {"system", kSystemPrefix, {}, {}, SystemKeys()},
        {"datum transformation", kDatumPrefix, kDatumsSection, kDatumCount, DatumKeys()},
        {"projection", kProjectionPrefix, kProjectionsSection, kProjectionCount, ProjectionKeys()},
        {"ellipsoid", kEllipsoidPrefix, kEllipsoidsSection, kEllipsoidCount, EllipsoidKeys()}};
    return kinds;
}

const RecordKind* KindOf(const CString& section)
{
    for (const RecordKind& kind : RecordKinds()) {
        if (section.Left(kind.prefix.GetLength()) == kind.prefix) {
            return &kind;
        }
    }
    return nullptr;
}

const RecordKind* KindListedIn(const CString& section)
{
    for (const RecordKind& kind : RecordKinds()) {
        if (!kind.index.IsEmpty() && section == kind.index) {
            return &kind;
        }
    }
    return nullptr;
}

std::optional<long long> SerialOf(const CString& key)
{
    const std::string text = key.ToUtf8();
    long long serial = 0;
    const bool good = numbers::Read(text, serial) && serial > 0 && std::to_string(serial) == text;
    return good ? std::optional(serial) : std::nullopt;
}

bool IsGroupSetting(const CString& key)
{
    return key.CompareNoCase(kSystemCount) == 0 || key.CompareNoCase(kGroupGeoids) == 0;
}
