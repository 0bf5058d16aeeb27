#include "show/SystemParameters.h"

#include <algorithm>
#include <cmath>

#include <fmt/format.h>

#include "DatabaseText.h"
#include "SystemCheck.h"
#include "ToolError.h"
#include "base/keys/KeyTables.h"
#include "convert/PositionConverter.h"

namespace {

constexpr double kSmallestAxis = 6000000.0; // metres; the module uses no smaller ellipsoid
constexpr double kSameAxis = 1e-6;          // metres; an axis in metres has nine digits before that
constexpr int kRD = 2;

CString Wide(const std::string& text)
{
    return CString::FromUtf8(text);
}

/// The record of an ellipsoid, in the order of the files.
std::optional<EllipsoidParameters> EllipsoidRecord(const std::vector<const FileObject*>& files, const CString& name)
{
    const CString section = kEllipsoidPrefix + name;
    for (const FileObject* file : files) {
        EllipsoidParameters found{name.ToUtf8(), 0.0, 0.0};
        if (file->GetItem(section, spheroidKeys[SpheroidKey::semiMajor], found.a) &&
            file->GetItem(section, spheroidKeys[SpheroidKey::eccSquared], found.e2) && found.a >= kSmallestAxis &&
            found.e2 <= 1.0) {
            return found;
        }
    }
    return std::nullopt;
}

/// The two axes with which the ready object computes.
struct Axes {
    double a = 0.0;
    double b = 0.0;
};

Axes LiveAxes(const ZorGeoCoordSysBase& coordSys, bool satellite)
{
    Axes axes;
    double x = 0.0;
    double y = 0.0;
    double z = 0.0;
    coordSys.GeogsToCartesian(0.0, 0.0, 0.0, axes.a, y, z, satellite);
    coordSys.GeogsToCartesian(90.0, 0.0, 0.0, x, y, axes.b, satellite);
    return axes;
}

EllipsoidParameters Agreeing(std::optional<EllipsoidParameters> record, const CString& name, const Axes& live)
{
    if (!record || std::fabs(record->a - live.a) > kSameAxis || std::fabs(record->SemiMinor() - live.b) > kSameAxis) {
        throw ToolError(
            ExitStatus::unusable,
            fmt::format("the ellipsoid \"{}\" of the database is not the one that the system computes with; "
                        "make its records in the two files alike",
                        name.ToUtf8()));
    }
    return *record;
}

/// An ellipsoid of a datum: of the database, or of the record's own two numbers.
std::optional<EllipsoidParameters> DatumEllipsoid(const DatabaseFiles& files, const FileObject& file,
                                                  const CString& section, int nameKey, const CString& axisKey,
                                                  const CString& eccKey)
{
    CString name;
    file.GetItem(section, transParamKeys[static_cast<std::size_t>(nameKey)], name);
    if (auto record = EllipsoidRecord(files.MainFirst(kEllipsoidPrefix + name), name)) {
        return record;
    }
    EllipsoidParameters own{name.ToUtf8(), 0.0, 0.0};
    if (file.GetItem(section, axisKey, own.a) && file.GetItem(section, eccKey, own.e2)) {
        return own;
    }
    return std::nullopt;
}

DatumParameters ReadDatum(Session& session, ZorGeoCoordSysBase& coordSys)
{
    DatumParameters datum;
    CString name;
    coordSys.GetDtfName(name);
    datum.name = name.ToUtf8();
    datum.method = coordSys.GetDtfMethodName().ToUtf8();
    datum.description = session.Database().GetDtfDescription(name).ToUtf8();
    datum.on = Wide(datum.method) != kNoTransformation;
    if (!datum.on) {
        return datum;
    }
    auto& [dx, dy, dz] = datum.shift;
    auto& [rx, ry, rz] = datum.rotation;
    auto& [vx, vy, vz] = datum.shiftRate;
    auto& [wx, wy, wz] = datum.rotationRate;
    coordSys.GetDatumParameters(dx, dy, dz, rx, ry, rz, datum.scale, vx, vy, vz, wx, wy, wz, datum.scaleRate,
                                datum.epoch, datum.fixedHeight, datum.fixedHeightForward, datum.fixedHeightReverse);
    datum.moves = DatumMoves(coordSys);
    const DatabaseFiles& files = session.Files();
    const CString section = DatumSection(files, name);
    for (const FileObject* file : files.UserFirst(section)) {
        const auto source = DatumEllipsoid(files, *file, section, TransKey::source, L"SrcSma", L"SrcSe");
        const auto target = DatumEllipsoid(files, *file, section, TransKey::target, L"DstSma", L"DstSe");
        if (source && target) {
            datum.source = Agreeing(source, Wide(source->name), LiveAxes(coordSys, true));
            datum.target = *target;
            return datum;
        }
    }
    throw ToolError(
        ExitStatus::unusable,
        fmt::format("the ellipsoids of the datum transformation \"{}\" are not in the database", datum.name));
}

/// RD hands out no constants: they stand in its record, or are the Dutch grid's own.
struct DutchConstant {
    int index;
    double value;
};
constexpr DutchConstant kDutchConstants[] = {{ProjectionKey::latOrigin, 52.156160556},
                                             {ProjectionKey::lonOrigin, 5.387638889},
                                             {ProjectionKey::falseEasting, 155000.0},
                                             {ProjectionKey::falseNorthing, 463000.0},
                                             {ProjectionKey::scaleFactor, 0.9999079}};

double RDConstant(const DatabaseFiles& files, const CString& section, int index)
{
    double value = 0.0;
    for (const DutchConstant& row : kDutchConstants) {
        value = row.index == index ? row.value : value;
    }
    if (const auto found = files.UserFirst(section); !found.empty()) {
        found.front()->GetItem(section, projectionParamKeys[static_cast<std::size_t>(index)], value);
    }
    return value;
}

int IndexOfKey(const CString& key)
{
    const auto found = std::find(projectionParamKeys.begin(), projectionParamKeys.end(), key);
    return found == projectionParamKeys.end() ? -1 : static_cast<int>(found - projectionParamKeys.begin());
}

constexpr unsigned kKindText = 6;

ProjectionParameters ReadProjection(Session& session, ZorGeoCoordSysBase& coordSys)
{
    ProjectionParameters projection;
    CString name;
    coordSys.GetProjectionName(name);
    coordSys.GetProjectionType(projection.type);
    projection.name = name.ToUtf8();
    projection.method = coordSys.GetPrjMdName().ToUtf8();
    CStringArray labels;
    CArray<UINT, UINT> kinds;
    CStringArray keys;
    session.NewStaticData()->GetSelPrjMdResults(projection.type, labels, kinds, keys);
    CArray<double, double> values;
    CStringArray names;
    CStringArray texts;
    CArray<UINT, UINT> ignoredKinds;
    coordSys.GetProjectionConstants(values, names, texts, ignoredKinds);
    const CString section = kProjectionPrefix + name;
    for (int i = 0; i < keys.GetSize(); ++i) {
        ProjectionParameter parameter;
        parameter.index = IndexOfKey(keys[i]);
        parameter.key = keys[i].ToUtf8();
        parameter.label = labels[i].ToUtf8();
        parameter.kind = kinds[i];
        if (projection.type == kRD) {
            parameter.value = RDConstant(session.Files(), section, parameter.index);
        } else if (i < values.GetSize()) {
            parameter.value = values[i];
            parameter.text = parameter.kind == kKindText ? texts[i].ToUtf8() : std::string();
        }
        projection.all.push_back(parameter);
    }
    return projection;
}

GeoidParameters ReadGeoid(Session& session, const OpenedSystem& opened)
{
    GeoidParameters geoid;
    if (!opened.hasGeoid) {
        return geoid;
    }
    ZorGeoCoordSysBase& coordSys = *opened.coordSys;
    geoid.method = coordSys.GetGeoidModelMd().ToUtf8();
    if (coordSys.GetGeoidModelMd() == GeoidmodelTypeKeys[GeoidType::manual]) {
        geoid.separation = session.Database().GetGeoidManualSeparation(opened.name.group, opened.name.system);
    } else {
        geoid.grid = coordSys.GetGeoidGrid().ToUtf8();
        geoid.chartDatum = coordSys.GetGeoidChartDatum().ToUtf8();
    }
    return geoid;
}

PostParameters ReadPost(Session& session, const OpenedSystem& opened)
{
    ZorGeoDatabaseBase& database = session.Database();
    const auto& [group, system] = opened.name;
    PostParameters post;
    if (opened.postModel) {
        post.model = opened.coordSys->GetGridCorrectionModel().ToUtf8();
        post.file = opened.coordSys->GetGridCorrectionFile().ToUtf8();
    }
    if (database.HasPostCorrection(group, system)) {
        auto& [x, y, z] = post.shift.emplace();
        database.GetGridCorrection(group, system, x, y, z);
    }
    if (database.HasPostHorAdjust(group, system)) {
        HorizontalAdjust& adjust = post.horizontal.emplace();
        database.GetPostHorAdjust(group, system, adjust.originX, adjust.originY, adjust.rotation, adjust.scale);
        adjust.scale = adjust.scale == 0.0 ? 1.0 : adjust.scale; // as the module takes it
    }
    if (database.HasPostVertAdjust(group, system)) {
        VerticalAdjust& adjust = post.vertical.emplace();
        database.GetPostVertAdjust(group, system, adjust.originX, adjust.originY, adjust.slopeX, adjust.slopeY);
    }
    return post;
}

void ReadUnit(Session& session, ZorGeoCoordSysBase& coordSys, const SystemRequest& request, SystemParameters& out)
{
    CString name;
    CString suffix;
    coordSys.GetLinearUnitName(name);
    coordSys.GetLinearUnitMnem(suffix);
    coordSys.GetLinearUnitCnv(out.metresPerUnit);
    if (const CString asked = UnitOf(session, request); asked != kKeepUnit) {
        name = asked;
    }
    out.unitName = name.ToUtf8();
    out.unitSuffix = suffix.ToUtf8();
}

} // namespace

double EllipsoidParameters::SemiMinor() const
{
    return a * std::sqrt(1.0 - e2);
}

std::optional<double> EllipsoidParameters::InverseFlattening() const
{
    if (e2 == 0.0) {
        return std::nullopt;
    }
    // 1 - sqrt(1 - e2) without the loss of digits.
    return (1.0 + std::sqrt(1.0 - e2)) / e2;
}

double ProjectionParameters::operator[](int index) const
{
    for (const ProjectionParameter& parameter : all) {
        if (parameter.index == index) {
            return parameter.value;
        }
    }
    return 0.0;
}

std::string ProjectionParameters::Text(int index) const
{
    for (const ProjectionParameter& parameter : all) {
        if (parameter.index == index) {
            return parameter.text;
        }
    }
    return {};
}

SystemParameters ReadSystem(Session& session, const OpenedSystem& opened)
{
    ZorGeoCoordSysBase& coordSys = *opened.coordSys;
    SystemParameters out;
    out.group = opened.name.group.ToUtf8();
    out.system = opened.name.system.ToUtf8();
    const FileObject* const file = FileOfSystem(session.Files(), opened.name);
    out.custom = file == &session.Files().User();
    CString description;
    if (file != nullptr) {
        file->GetItem(kSystemPrefix + opened.name.system, kSystemDescription, description);
    }
    out.description = description.ToUtf8();
    ReadUnit(session, coordSys, opened.request, out);
    const CString ellipsoid = coordSys.GetEllipsoidName();
    out.ellipsoid = Agreeing(EllipsoidRecord(session.Files().UserFirst(kEllipsoidPrefix + ellipsoid), ellipsoid),
                             ellipsoid, LiveAxes(coordSys, false));
    out.datum = ReadDatum(session, coordSys);
    out.projection = ReadProjection(session, coordSys);
    out.geoid = ReadGeoid(session, opened);
    out.post = ReadPost(session, opened);
    return out;
}
