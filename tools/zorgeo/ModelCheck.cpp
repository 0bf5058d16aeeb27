#include "ModelCheck.h"

#include <fmt/format.h>

#include "DatabaseText.h"
#include "base/geoid/GeoidModelList.h"
#include "base/geoid/GridModel.h"
#include "base/keys/KeyTables.h"

namespace {

/// The names of geoid models in older records and what they mean today.
struct OldModelName {
    const wchar_t* old;
    int type;
};
constexpr OldModelName kOldModelNames[] = {{L"Grid Model Geoid Model", GeoidType::gridModel},
                                           {L"Sweden Swen01l", GeoidType::swen}};

/// The type number of a model, 0 for a name that stands for none, -1 for an unknown one.
int ModelType(const CString& name, bool oldNamesToo)
{
    if (name.IsEmpty() || name == GeoidmodelTypeKeys[GeoidType::none] || name == kNoModel) {
        return 0;
    }
    for (int type = GeoidType::firstModel; type <= GeoidType::lastModel; ++type) {
        if (name.CompareNoCase(GeoidmodelTypeKeys[static_cast<std::size_t>(type)]) == 0) {
            return type;
        }
    }
    for (const OldModelName& row : kOldModelNames) {
        if (oldNamesToo && name == row.old) {
            return row.type;
        }
    }
    return -1;
}

/// What a model is for.
enum class ModelUse { heights, shifts };

/// Why a model whose file was read does not serve: a grid of something else. Empty when it does, or
/// when the model does not tell.
std::string MisfitOf(const GridModel* model, ModelUse use)
{
    if (model == nullptr || model->Grid() == nullptr) {
        return {};
    }
    const CorrectionGrid& grid = *model->Grid();
    const bool serves = use == ModelUse::heights ? grid.HasHeights() : grid.HasGeoShifts() || grid.HasGridShifts();
    return serves ? std::string()
                  : fmt::format("it is a grid ({}) without {}", grid.Describe().format.ToUtf8(),
                                use == ModelUse::heights ? "geoid heights" : "shifts");
}

/// A model of our own with the same file as the system's, to know that it can be made and read.
/// Null with `fault` set otherwise.
std::unique_ptr<GeoidModel> TryModel(ZorGeoCoordSysBase& coordSys, const CString& name, const CString& file, int type,
                                     ModelUse use, std::string& fault)
{
    if (type < 0) {
        fault = fmt::format("there is no model \"{}\"; see: zorgeo list geoids", name.ToUtf8());
        return nullptr;
    }
    std::unique_ptr<GeoidModel> model(GeoidModelList::GetGeoidModelList().Create(static_cast<unsigned short>(type)));
    if (!model || !model->InitModel(&coordSys)) {
        fault = fmt::format("the model \"{}\" has no reader in this program; see: zorgeo list geoids", name.ToUtf8());
        return nullptr;
    }
    const auto* const gridModel = dynamic_cast<const GridModel*>(model.get());
    const bool opened = model->SetModelFile(file);
    if (!opened && file.IsEmpty()) {
        fault = fmt::format("the model \"{}\" has no file", name.ToUtf8());
        return nullptr;
    }
    const std::string reason =
        !opened && gridModel != nullptr ? gridModel->Reason().ToUtf8() : MisfitOf(gridModel, use);
    if (!opened || !reason.empty()) {
        fault = fmt::format("the file \"{}\" of the model \"{}\" cannot be used{}{}", file.ToUtf8(), name.ToUtf8(),
                            reason.empty() ? "" : ": ", reason);
        return nullptr;
    }
    return model;
}

} // namespace

ModelState TryGeoid(const DatabaseFiles& files, const SystemName& name, ZorGeoCoordSysBase& coordSys)
{
    ModelState state;
    const CString method = coordSys.GetGeoidModelMd();
    const bool manual = method == GeoidmodelTypeKeys[GeoidType::manual];
    const int type = ModelType(method, true);
    state.inForce = coordSys.HasGeoidModel() && (type != 0 || manual);
    if (!state.inForce) {
        return state;
    }
    if (!manual) {
        state.model = TryModel(coordSys, method, coordSys.GetGeoidGrid(), type, ModelUse::heights, state.fault);
        return state;
    }
    const CString section = kSystemPrefix + name.system;
    double separation = 0.0;
    for (const FileObject* file : files.MainFirst(section)) {
        if (file->GetItem(section, kGeoidManual, separation)) {
            return state;
        }
    }
    state.fault = fmt::format("section \"{}\" has no number under \"{}\"", section.ToUtf8(), kGeoidManual.ToUtf8());
    return state;
}

ModelState TryPostModel(ZorGeoCoordSysBase& coordSys)
{
    ModelState state;
    const CString name = coordSys.GetGridCorrectionModel();
    const int type = ModelType(name, false);
    state.inForce = type != 0;
    if (state.inForce) {
        state.model = TryModel(coordSys, name, coordSys.GetGridCorrectionFile(), type, ModelUse::shifts, state.fault);
    }
    return state;
}
