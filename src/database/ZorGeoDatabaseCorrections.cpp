// Geoid and correction settings of a system: read from both files, written to the user file.

#include <initializer_list>

#include "database/RecordReaders.h"
#include "database/ZorGeoDatabase.h"
#include "frame/RecordNames.h"
#include "frame/ZorGeoUtility.h"

namespace {

struct WantedNumber {
    const CString& key;
    double& value;
};

/// Reads numbers of a system record; nothing when `file` is null.
void ReadNumbers(const FileObject* file, const CString& system, std::initializer_list<WantedNumber> wanted)
{
    if (!file) {
        return;
    }
    const CString section = kSystemPrefix + system;
    for (const WantedNumber& number : wanted) {
        file->GetItem(section, number.key, number.value);
    }
}

CString SupportedGeoidModels(const FileObject& file, const CString& group)
{
    CString methods;
    file.GetItem(kGroupPrefix + group, kSupportedGeoidMethods, methods);
    return methods;
}

} // namespace

// Readers.

bool ZorGeoDatabase::SystemFlag(const CString& group, const CString& system, const CString& key) const
{
    bool flag = false;
    if (const FileObject* file = FileOfSystem(group, system)) {
        file->GetItem(kSystemPrefix + system, key, flag);
    }
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
    ReadNumbers(FileOfSystem(group, system), system, {{kGeoidManual, separation}});
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
    ReadNumbers(FileOfSystem(group, system), system, {{kPostX, x}, {kPostY, y}, {kPostZ, z}});
}

void ZorGeoDatabase::GetPostHorAdjust(CString group, CString system, double& originX, double& originY, double& rotation,
                                      double& scale)
{
    ReadNumbers(FileOfSystem(group, system), system,
                {{kHorAdjustOriginX, originX},
                 {kHorAdjustOriginY, originY},
                 {kHorAdjustRotation, rotation},
                 {kHorAdjustScale, scale}});
}

void ZorGeoDatabase::GetPostVertAdjust(CString group, CString system, double& originX, double& originY, double& slopeX,
                                       double& slopeY)
{
    ReadNumbers(FileOfSystem(group, system), system,
                {{kVertAdjustOriginX, originX},
                 {kVertAdjustOriginY, originY},
                 {kVertAdjustSlopeX, slopeX},
                 {kVertAdjustSlopeY, slopeY}});
}

// Setters.

bool ZorGeoDatabase::CanBeSet(const CString& group, const CString& system) const
{
    return FindSystem(m_userFile, group, system) && m_userFile.HasSection(kSystemPrefix + system);
}

bool ZorGeoDatabase::SaveAndInit()
{
    ZorGeoUtility::Get().GuardedSave(m_userFile);
    return Init();
}

bool ZorGeoDatabase::SetGeoidModel(CString group, CString system, CString method, CString grid, bool use)
{
    if (!CanBeSet(group, system)) {
        return false;
    }
    const CString section = kSystemPrefix + system;
    m_userFile.SetItem(section, kGeoidUse, use, true);
    m_userFile.SetItem(section, kGeoidMethod, method, true);
    m_userFile.SetItem(section, kGeoidGrid, grid, true);
    return SaveAndInit();
}

bool ZorGeoDatabase::SetManualGeoidModel(CString group, CString system, CString method, double value, bool use)
{
    if (!CanBeSet(group, system)) {
        return false;
    }
    const CString section = kSystemPrefix + system;
    // Kept: the grid of an earlier setting stays, for the day on which the user goes back to it.
    m_userFile.SetItem(section, kGeoidUse, use, true);
    m_userFile.SetItem(section, kGeoidMethod, method, true);
    m_userFile.SetItem(section, kGeoidManual, value, true);
    return SaveAndInit();
}

bool ZorGeoDatabase::SetpostCorrections(CString group, CString system, double x, double y, double z, CString model,
                                        CString file, bool use)
{
    if (!CanBeSet(group, system)) {
        return false;
    }
    const CString section = kSystemPrefix + system;
    m_userFile.SetItem(section, kPostFile, file, true);
    m_userFile.SetItem(section, kPostModel, model, true);
    m_userFile.SetItem(section, kPostX, x, true);
    m_userFile.SetItem(section, kPostY, y, true);
    m_userFile.SetItem(section, kPostZ, z, true);
    m_userFile.SetItem(section, kPostUse, use, true);
    return SaveAndInit();
}
