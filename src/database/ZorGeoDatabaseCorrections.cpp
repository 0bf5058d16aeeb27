// Geoid and correction settings of a system: read from both files, written to the user file.

#include <initializer_list>
#include <variant>

#include "database/RecordReaders.h"
#include "database/ZorGeoDatabase.h"
#include "frame/RecordNames.h"
#include "frame/ZorGeoUtility.h"

namespace {

CString SupportedGeoidModels(const FileObject& file, const CString& group)
{
    CString methods;
    ReadItem(file, kGroupPrefix + group, kSupportedGeoidMethods, methods);
    return methods;
}

} // namespace

// Readers.

bool ZorGeoDatabase::SystemFlag(const CString& group, const CString& system, const CString& key) const
{
    bool flag = false;
    ReadItems<bool>(FileOfSystem(group, system), kSystemPrefix + system, {{key, flag}});
    return flag;
}

CString ZorGeoDatabase::GetDefaultGeoidModelMd(CString group, CString system)
{
    return SystemText(group, system, kGeoidMethod);
}

CString ZorGeoDatabase::GetDefaultGeoidGrid(CString group, CString system)
{
    return SystemText(group, system, kGeoidGrid);
}

CString ZorGeoDatabase::GetDefaultGridCorrectionFile(CString group, CString system)
{
    return SystemText(group, system, kPostFile);
}

CString ZorGeoDatabase::GetDefaultGridCorrectionModel(CString group, CString system)
{
    return SystemText(group, system, kPostModel);
}

CString ZorGeoDatabase::GetSupportedGeoidModels(CString group, CString)
{
    return SupportedGeoidModels(m_mainFile, group);
}

CString ZorGeoDatabase::GetCustomSupportedGeoidModels(CString group, CString)
{
    return SupportedGeoidModels(m_userFile, group);
}

double ZorGeoDatabase::GetGeoidManualSeparation(CString group, CString system)
{
    double separation = 0.0;
    ReadItems<double>(FileOfSystem(group, system), kSystemPrefix + system, {{kGeoidManual, separation}});
    return separation;
}

bool ZorGeoDatabase::HasGeoidModel(CString group, CString system)
{
    return SystemFlag(group, system, kGeoidUse);
}

bool ZorGeoDatabase::HasPostCorrection(CString group, CString system)
{
    return SystemFlag(group, system, kPostUse);
}

bool ZorGeoDatabase::HasPostHorAdjust(CString group, CString system)
{
    return SystemFlag(group, system, kHorAdjustUse);
}

bool ZorGeoDatabase::HasPostVertAdjust(CString group, CString system)
{
    return SystemFlag(group, system, kVertAdjustUse);
}

void ZorGeoDatabase::GetGridCorrection(CString group, CString system, double& x, double& y, double& z)
{
    ReadItems<double>(FileOfSystem(group, system), kSystemPrefix + system, {{kPostX, x}, {kPostY, y}, {kPostZ, z}});
}

void ZorGeoDatabase::GetPostHorAdjust(CString group, CString system, double& originX, double& originY, double& rotation,
                                      double& scale)
{
    ReadItems<double>(FileOfSystem(group, system), kSystemPrefix + system,
                      {{kHorAdjustOriginX, originX},
                       {kHorAdjustOriginY, originY},
                       {kHorAdjustRotation, rotation},
                       {kHorAdjustScale, scale}});
}

void ZorGeoDatabase::GetPostVertAdjust(CString group, CString system, double& originX, double& originY, double& slopeX,
                                       double& slopeY)
{
    ReadItems<double>(FileOfSystem(group, system), kSystemPrefix + system,
                      {{kVertAdjustOriginX, originX},
                       {kVertAdjustOriginY, originY},
                       {kVertAdjustSlopeX, slopeX},
                       {kVertAdjustSlopeY, slopeY}});
}

// Setters.

/// What a setter writes under a key of a system.
struct ZorGeoDatabase::Setting {
    const CString& key;
    std::variant<bool, double, CString> value;
};

bool ZorGeoDatabase::ChangeSystem(const CString& group, const CString& system, std::initializer_list<Setting> settings)
{
    const CString section = kSystemPrefix + system;
    if (!FindSystem(m_userFile, group, system) || !m_userFile.HasSection(section)) {
        return false;
    }
    for (const Setting& setting : settings) {
        std::visit([&](const auto& value) { m_userFile.SetItem(section, setting.key, value, true); }, setting.value);
    }
    return SaveAndInit();
}

bool ZorGeoDatabase::SaveAndInit()
{
    ZorGeoUtility::Get().GuardedSave(m_userFile);
    return Init();
}

bool ZorGeoDatabase::SetGeoidModel(CString group, CString system, CString method, CString grid, bool use)
{
    return ChangeSystem(group, system, {{kGeoidUse, use}, {kGeoidMethod, method}, {kGeoidGrid, grid}});
}

bool ZorGeoDatabase::SetManualGeoidModel(CString group, CString system, CString method, double value, bool use)
{
    // Kept: the grid of an earlier setting stays, for the day on which the user goes back to it.
    return ChangeSystem(group, system, {{kGeoidUse, use}, {kGeoidMethod, method}, {kGeoidManual, value}});
}

bool ZorGeoDatabase::SetpostCorrections(CString group, CString system, double x, double y, double z, CString model,
                                        CString file, bool use)
{
    return ChangeSystem(
        group, system,
        {{kPostFile, file}, {kPostModel, model}, {kPostX, x}, {kPostY, y}, {kPostZ, z}, {kPostUse, use}});
}
