#include <cmath>

#include "base/geo/Angles.h"
#include "base/keys/KeyTables.h"
#include "base/text/Numbers.h"
#include "system/KnownRecords.h"
#include "system/NewSystem.h"

namespace {

constexpr short kPlainUnitFormat = 3;
constexpr unsigned kSecondsDecimals = 7;
constexpr int kWidth = 11;

CString Wide(const std::string& utf8)
{
    return CString::FromUtf8(utf8);
}

void SetEllipsoids(ZorGeoStaticDataBase& record, const SystemParameters& system)
{
    const EllipsoidParameters& local = system.ellipsoid;
    const double inverse = local.InverseFlattening().value_or(HUGE_VAL);
    record.SetElpNameAndKey(Wide(local.name), CString());
    record.SetElpsoidParams(local.a, local.SemiMinor(), std::sqrt(local.e2), local.e2, 1.0 / inverse, inverse);
    // Where positions pass unchanged the satellite ellipsoid is the local one.
    const EllipsoidParameters& source = system.datum.on ? system.datum.source : local;
    record.SetSrcElpName(Wide(source.name));
    record.SetSrcElpsoidParams(source.a, std::sqrt(source.e2));
}

void SetDatum(ZorGeoStaticDataBase& record, const DatumParameters& datum)
{
    const CString method = Wide(datum.method);
    const auto& [dx, dy, dz] = datum.shift;
    const auto& [rx, ry, rz] = datum.rotation;
    const auto& [vx, vy, vz] = datum.shiftRate;
    const auto& [wx, wy, wz] = datum.rotationRate;
    record.SetDttransNameAndKey(Wide(datum.name), CString());
    record.SetDtTransferMdName(method, record.GetDtTransMethodByName(method));
    record.SetDtTransferParams(dx, dy, dz, rx, ry, rz, datum.scale, vx, vy, vz, wx, wy, wz, datum.scaleRate,
                               datum.epoch, datum.fixedHeight, datum.fixedHeightForward, datum.fixedHeightReverse);
    record.SetDtfDescp(Wide(datum.description));
}

CString TextOf(const ProjectionParameter& parameter)
{
    CString text;
    if (parameter.kind == kLongitudeParameter || parameter.kind == kLatitudeParameter) {
        const int kind = parameter.kind == kLongitudeParameter ? GeogsKind::longitude : GeogsKind::latitude;
        FormatGeogs(parameter.value, kSecondsDecimals, kWidth, kind, text, true, true);
        return text;
    }
    return Wide(numbers::ToText(parameter.value));
}

void SetProjection(ZorGeoStaticDataBase& record, const ProjectionParameters& projection)
{
    record.SetPrjMdName(Wide(projection.method));
    record.SetPrjNameAndType(Wide(projection.name), static_cast<short>(projection.type));
    CArray<double, double> values;
    CStringArray names;
    CStringArray texts;
    CArray<UINT, UINT> kinds;
    bool hasTexts = false;
    for (const ProjectionParameter& parameter : projection.all) {
        // Zone and hemisphere have their own place in the record.
        if (parameter.kind == kTextParameter) {
            hasTexts = true;
            continue;
        }
        values.Add(parameter.value);
        names.Add(Wide(parameter.label));
        texts.Add(TextOf(parameter));
        kinds.Add(parameter.kind);
    }
    record.SetPrjParams(values, names, texts, kinds);
    record.SetUTMStatu(hasTexts);
    record.SetUTMZone(Wide(projection.Text(ProjectionKey::utmZone)));
    record.SetUTMHemiSphere(Wide(projection.Text(ProjectionKey::hemisphere)));
}

void SetCorrections(ZorGeoStaticDataBase& record, const SystemParameters& system)
{
    const GeoidParameters& geoid = system.geoid;
    record.SetGeoModelParams(0, Wide(geoid.method), Wide(geoid.grid));
    record.SetGeoidChartDatum(Wide(geoid.chartDatum));
    record.SetGeoidManualInput(geoid.separation.value_or(0.0));
    const PostParameters& post = system.post;
    record.SetPostCorrtModel(Wide(post.model));
    record.SetPostCorrtFile(Wide(post.file));
    record.SetUsePostCorrctStatu(post.shift.has_value());
    const auto shift = post.shift.value_or(std::array<double, 3>{});
    record.SetPostCorrection(shift[0], shift[1], shift[2]);
    record.SetUsePostHorAdjustStatu(post.horizontal.has_value());
    const HorizontalAdjust horizontal = post.horizontal.value_or(HorizontalAdjust{});
    record.SetPostHorAdjust(horizontal.originX, horizontal.originY, horizontal.rotation, horizontal.scale);
    record.SetUsePostVertAdjustStatu(post.vertical.has_value());
    const VerticalAdjust vertical = post.vertical.value_or(VerticalAdjust{});
    record.SetPostVertAdjust(vertical.originX, vertical.originY, vertical.slopeX, vertical.slopeY);
}

} // namespace

std::unique_ptr<ZorGeoStaticDataBase> AuthoringRecordOf(const Session& session, const SystemParameters& system)
{
    auto record = session.NewStaticData();
    record->SetGroupNameAndKey(Wide(system.group), CString());
    record->SetSysNameAndKey(Wide(system.system), CString());
    record->SetUnitNameAndKey(Wide(system.unitName), CString());
    record->SetUnitParams(system.metresPerUnit, kPlainUnitFormat, Wide(system.unitSuffix));
    SetEllipsoids(*record, system);
    SetDatum(*record, system.datum);
    SetProjection(*record, system.projection);
    SetCorrections(*record, system);
    return record;
}
