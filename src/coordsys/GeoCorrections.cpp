#include "coordsys/GeoCorrections.h"

#include <cmath>
#include <utility>

#include "frame/XmlLines.h"

namespace {

constexpr double kSecondsPerDegree = 3600.0;
constexpr double kPartsPerMillion = 1000000.0;

// Geoid models that older databases call by another name.
struct OldName {
    const wchar_t* name;
    int type;
};
constexpr OldName kOldNames[] = {{L"Grid Model Geoid Model", GeoidType::gridModel},
                                 {L"Sweden Swen01l", GeoidType::swen}};

const CString& ModelName(int type)
{
    return GeoidmodelTypeKeys[static_cast<std::size_t>(type)];
}

int TypeOfOldName(const CString& name)
{
    for (const OldName& old : kOldNames) {
        if (name == old.name) {
            return GeoCorrections::ModelType(ModelName(old.type));
        }
    }
    return -1;
}

std::shared_ptr<GeoidModel> CreateModel(int type)
{
    return std::shared_ptr<GeoidModel>(GeoidModelList::GetGeoidModelList().Create(static_cast<unsigned short>(type)));
}

} // namespace

int GeoCorrections::ModelType(const CString& name)
{
    for (int type = GeoidType::firstModel; type <= GeoidType::lastModel; ++type) {
        if (name.CompareNoCase(ModelName(type)) == 0) {
            return type;
        }
    }
    return -1;
}

bool GeoCorrections::CreateGeoidModel(const CString& name, ZorGeoCoordSysBase* coordSys)
{
    geoidModelName = name;
    manualGeoid = false;
    geoidType = ModelType(name);
    if (geoidType == -1) {
        geoidType = TypeOfOldName(name);
    }
    if (geoidType == -1) {
        return false;
    }
    pGeoidModel = CreateModel(geoidType);
    return pGeoidModel && pGeoidModel->InitModel(coordSys);
}

void GeoCorrections::CreatePostModel(const CString& name, ZorGeoCoordSysBase* coordSys)
{
    pPostModel.reset();
    postType = ModelType(name);
    if (postType == -1) {
        return;
    }
    pPostModel = CreateModel(postType);
    if (pPostModel) {
        pPostModel->InitModel(coordSys);
    }
}

void GeoCorrections::TakeUnitOf(ZorGeoCoordSysBase* coordSys)
{
    for (std::shared_ptr<GeoidModel>* model : {&pGeoidModel, &pPostModel}) {
        *model = GridModel::InUnitOf(coordSys, std::move(*model));
    }
}

void GeoCorrections::SetShifts(double x, double y, double z)
{
    shiftX = x;
    shiftY = y;
    shiftZ = z;
}

void GeoCorrections::SetHorAdjust(double originX, double originY, double rotation, double scale)
{
    horAdjust = true;
    horOriginX = originX;
    horOriginY = originY;
    SetRotation(rotation);
    horScale = scale == 0.0 ? 1.0 : scale;
}

void GeoCorrections::ClearHorAdjust()
{
    SetHorAdjust(0.0, 0.0, 0.0, 1.0);
    horAdjust = false;
}

void GeoCorrections::SetRotation(double arcSeconds)
{
    const double angle = -arcSeconds / kSecondsPerDegree * D_TO_R;
    horRotation = arcSeconds;
    horCos = std::cos(angle);
    horSin = std::sin(angle);
}

void GeoCorrections::SetVertAdjust(double originX, double originY, double slopeX, double slopeY)
{
    vertAdjust = true;
    vertOriginX = originX;
    vertOriginY = originY;
    vertSlopeX = slopeX / kPartsPerMillion;
    vertSlopeY = slopeY / kPartsPerMillion;
}

void GeoCorrections::ClearVertAdjust()
{
    SetVertAdjust(0.0, 0.0, 0.0, 0.0);
    vertAdjust = false;
}

void GeoCorrections::AdjustXY(double x, double y, double& outX, double& outY, bool inverse) const
{
    if (!horAdjust) {
        outX = inverse ? x - shiftX : x + shiftX;
        outY = inverse ? y - shiftY : y + shiftY;
    } else if (!inverse) {
        const double u = x - horOriginX;
        const double v = y - horOriginY;
        outX = (u * horCos - v * horSin) * horScale + shiftX + horOriginX;
        outY = (u * horSin + v * horCos) * horScale + shiftY + horOriginY;
    } else {
        const double u = (x - horOriginX - shiftX) / horScale;
        const double v = (y - horOriginY - shiftY) / horScale;
        outX = u * horCos + v * horSin + horOriginX;
        outY = v * horCos - u * horSin + horOriginY;
    }
}

// Height of the inclined plane above its origin; 0 when there is none.
double GeoCorrections::PlaneHeight(double x, double y) const
{
    return vertAdjust ? (x - vertOriginX) * vertSlopeX + (y - vertOriginY) * vertSlopeY : 0.0;
}

// Kept: the model corrects first in both directions, at the position that comes in, and the
// adjust follows: the way back is not the exact mirror of the way out where the model's correction
// differs from place to place.
void GeoCorrections::PostXYZ(double x, double y, double z, double& outX, double& outY, double& outZ, bool inverse) const
{
    double dx = 0.0;
    double dy = 0.0;
    if (pPostModel && pPostModel->CalGridShift(x, y, dx, dy, inverse)) {
        x = inverse ? x - dx : x + dx;
        y = inverse ? y - dy : y + dy;
    }
    if (inverse) {
        outZ = z - shiftZ - PlaneHeight(x, y);
        AdjustXY(x, y, outX, outY, true);
    } else {
        AdjustXY(x, y, outX, outY, false);
        outZ = z + shiftZ + PlaneHeight(outX, outY);
    }
}

bool GeoCorrections::GeoidHeight(double latitude, double longitude, double x, double y, double& height,
                                 CString& message) const
{
    if (manualGeoid) {
        height = manualSeparation;
        return true;
    }
    return pGeoidModel && pGeoidModel->CalGeoidHeight(latitude, longitude, x, y, height, message);
}

// The way back is taken at the position that it corrects; there is no iteration.
void GeoCorrections::ShiftGeographic(double& latitude, double& longitude, bool inverse) const
{
    double dlat = 0.0;
    double dlon = 0.0;
    if (pPostModel && pPostModel->CalGeoShift(latitude, longitude, dlat, dlon, inverse)) {
        latitude = inverse ? latitude - dlat : latitude + dlat;
        longitude = inverse ? longitude - dlon : longitude + dlon;
    }
}

void GeoCorrections::DumpGeoidXml(std::wostream& stream, const std::wstring& indent) const
{
    if (pGeoidModel) {
        pGeoidModel->DumpXml(stream, indent);
    }
    if (geoidType != GeoidType::manual) {
        return;
    }
    // Kept: the definition of the element of a fixed separation, in its spelling and with the blanks
    // before its end. A fixed separation has no model type, so none is written.
    const XmlLines outer(stream, indent);
    const XmlLines xml = outer.Inner();
    outer.Tag(L"<geoidmodel>");
    xml.Element(L"name", ModelName(GeoidType::manual));
    xml.Tag(L"<seperation>" + XmlNumber(stream, manualSeparation) + L"  </seperation>");
    outer.Tag(L"</geoidmodel>");
}

void GeoCorrections::DumpPostXml(std::wostream& stream, const std::wstring& indent) const
{
    const XmlLines outer(stream, indent);
    DumpPostModelXml(outer);
    DumpPostAdjustXml(outer);
}

void GeoCorrections::DumpPostModelXml(const XmlLines& outer) const
{
    if (postType < 0) {
        return;
    }
    const XmlLines xml = outer.Inner();
    outer.Tag(L"<postcorrectionmodel>");
    xml.Element(L"name", ModelName(postType));
    if (!postFileName.IsEmpty()) {
        xml.Element(L"filename", postFileName);
    }
    outer.Tag(L"</postcorrectionmodel>");
}

void GeoCorrections::DumpPostAdjustXml(const XmlLines& outer) const
{
    if (shiftX == 0.0 && shiftY == 0.0 && shiftZ == 0.0 && !horAdjust && !vertAdjust) {
        return;
    }
    const XmlLines xml = outer.Inner();
    outer.Tag(L"<postcorrection>");
    xml.Element(L"shiftx", shiftX);
    xml.Element(L"shifty", shiftY);
    xml.Element(L"shiftz", shiftZ);
    if (horAdjust) {
        xml.Element(L"hororgx", horOriginX);
        xml.Element(L"hororgy", horOriginY);
        xml.Element(L"horrotate", horRotation);
        xml.Element(L"horscale", horScale);
    }
    if (vertAdjust) {
        xml.Element(L"vertorgx", vertOriginX);
        xml.Element(L"vertorgy", vertOriginY);
        // Plain numbers, where databases hold parts per million.
        xml.Element(L"vertslopex", vertSlopeX);
        xml.Element(L"vertslopey", vertSlopeY);
    }
    outer.Tag(L"</postcorrection>");
}
