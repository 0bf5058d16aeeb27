#include "system/KnownRecords.h"

#include <algorithm>

#include "DatabaseText.h"
#include "base/keys/KeyTables.h"

namespace {

CString Wide(const std::string& utf8)
{
    return CString::FromUtf8(utf8);
}

std::optional<double> Number(const FileObject& file, const CString& section, const CString& key)
{
    double value = 0.0;
    return file.GetItem(section, key, value) ? std::optional(value) : std::nullopt;
}

EllipsoidParameters EllipsoidOfDatum(Session& session, const FileObject& file, const CString& section,
                                     const CString& name, const CString& axisKey, const CString& eccKey)
{
    if (auto known = EllipsoidInDatabase(session, name.ToUtf8())) {
        return *known;
    }
    return {name.ToUtf8(), Number(file, section, axisKey).value_or(0.0), Number(file, section, eccKey).value_or(0.0)};
}

} // namespace

std::optional<UnitParameters> UnitInDatabase(Session& session, const std::string& name)
{
    CString spelling;
    CString suffix;
    double factor = 0.0;
    short digits = 0;
    if (!session.Database().GetUnitParametersByName(Wide(name), spelling, suffix, factor, digits)) {
        return std::nullopt;
    }
    return UnitParameters{spelling.IsEmpty() ? name : spelling.ToUtf8(), suffix.ToUtf8(), factor};
}

std::optional<EllipsoidParameters> EllipsoidInDatabase(Session& session, const std::string& name)
{
    const CString section = kEllipsoidPrefix + Wide(name);
    for (const FileObject* file : session.Files().UserFirst(section)) {
        const auto axis = Number(*file, section, spheroidKeys[SpheroidKey::semiMajor]);
        const auto ecc = Number(*file, section, spheroidKeys[SpheroidKey::eccSquared]);
        if (axis && ecc) {
            return EllipsoidParameters{name, *axis, *ecc};
        }
    }
    return std::nullopt;
}

std::optional<DatumParameters> DatumInDatabase(Session& session, const std::string& name)
{
    const CString section = kDatumPrefix + Wide(name);
    const auto files = session.Files().UserFirst(section);
    if (files.empty()) {
        return std::nullopt;
    }
    DatumParameters datum;
    CString method;
    CString source;
    CString target;
    auto& [dx, dy, dz] = datum.shift;
    auto& [rx, ry, rz] = datum.rotation;
    auto& [vx, vy, vz] = datum.shiftRate;
    auto& [wx, wy, wz] = datum.rotationRate;
    session.Database().GetDtfParamByName(Wide(name), method, dx, dy, dz, rx, ry, rz, datum.scale, vx, vy, vz, wx, wy,
                                         wz, datum.scaleRate, datum.epoch, source, target, datum.fixedHeight,
                                         datum.fixedHeightForward, datum.fixedHeightReverse);
    datum.name = name;
    datum.method = method.ToUtf8();
    datum.description = session.Database().GetDtfDescription(Wide(name)).ToUtf8();
    datum.on = method != kNoTransformation;
    const bool still = datum.shiftRate == std::array<double, 3>{} && datum.rotationRate == std::array<double, 3>{} &&
                       datum.scaleRate == 0.0;
    datum.moves = method.Find(kFourteen) >= 0 && !still;
    datum.source = EllipsoidOfDatum(session, *files.front(), section, source, L"SrcSma", L"SrcSe");
    datum.target = EllipsoidOfDatum(session, *files.front(), section, target, L"DstSma", L"DstSe");
    return datum;
}

ProjectionParameters ParametersOfType(Session& session, int type)
{
    CStringArray labels;
    CArray<UINT, UINT> kinds;
    CStringArray keys;
    session.NewStaticData()->GetSelPrjMdResults(type, labels, kinds, keys);
    ProjectionParameters parameters;
    parameters.type = type;
    for (int i = 0; i < keys.GetSize(); ++i) {
        const auto found = std::find(projectionParamKeys.begin(), projectionParamKeys.end(), keys[i]);
        ProjectionParameter parameter;
        parameter.index = static_cast<int>(found - projectionParamKeys.begin());
        parameter.key = keys[i].ToUtf8();
        parameter.label = labels[i].ToUtf8();
        parameter.kind = kinds[i];
        parameters.all.push_back(parameter);
    }
    return parameters;
}

std::optional<KnownProjection> ProjectionInDatabase(Session& session, const std::string& name)
{
    const CString section = kProjectionPrefix + Wide(name);
    const auto files = session.Files().UserFirst(section);
    if (files.empty()) {
        return std::nullopt;
    }
    const FileObject& file = *files.front();
    int type = -1;
    file.GetItem(section, projectionParamKeys[ProjectionKey::type], type);
    KnownProjection known{ParametersOfType(session, type), {}};
    CString method;
    CString unit;
    file.GetItem(section, kProjectionMethod, method);
    file.GetItem(section, kUnitName, unit);
    known.parameters.name = name;
    known.parameters.method = method.ToUtf8();
    known.unit = unit.ToUtf8();
    for (ProjectionParameter& parameter : known.parameters.all) {
        CString text;
        if (parameter.kind == kTextParameter && file.GetItem(section, Wide(parameter.key), text)) {
            parameter.text = text.ToUtf8();
        } else if (parameter.kind != kTextParameter) {
            file.GetItem(section, Wide(parameter.key), parameter.value);
        }
    }
    return known;
}

bool HasRecord(const DatabaseFiles& files, const CString& prefix, const std::string& name)
{
    return !files.UserFirst(prefix + Wide(name)).empty();
}

std::string FileOfRecord(const DatabaseFiles& files, const CString& prefix, const std::string& name)
{
    return files.User().HasSection(prefix + Wide(name)) ? "the user database" : "the main database";
}

std::optional<std::string> NameInOtherCase(const DatabaseFiles& files, const CString& prefix, const std::string& name)
{
    const CString wanted = prefix + Wide(name);
    for (const FileObject* file : {&files.Main(), &files.User()}) {
        FobjSection walk;
        CString section;
        for (bool more = file->GetFirstSectionEntry(walk, section); more;
             more = file->GetNextSectionEntry(walk, section)) {
            if (section != wanted && section.Left(prefix.GetLength()) == prefix && section.CompareNoCase(wanted) == 0) {
                return section.Mid(prefix.GetLength()).ToUtf8();
            }
        }
    }
    return std::nullopt;
}
