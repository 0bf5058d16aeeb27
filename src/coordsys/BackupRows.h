#pragma once

#include <span>
#include <variant>

#include "coordsys/ZORGeoCoordSys.h"
#include "frame/ReadItem.h"
#include "frame/RecordNames.h"

/// The rows of COORDSYSTEM_BACKUP_SECTION in a project: which field stands under which key, in the
/// groups that are written, or read back, together.
struct ZORGeoCoordSys::BackupRows {
    using System = ZORGeoCoordSys;

    struct Row {
        const CString& key;
        std::variant<CString System::*, double System::*, bool System::*, int System::*> field;
    };

    static constexpr Row identity[] = {{kBackupSystem, &System::m_sysName}, {kBackupGroup, &System::m_groupName}};
    static constexpr Row recordNames[] = {{kSystemDatum, &System::m_dtfName},
                                          {kSystemProjection, &System::m_projectionName}};
    static constexpr Row projectionType[] = {{kBackupProjectionType, &System::m_projectionType}};
    static constexpr Row partNames[] = {{kBackupProjectionMethod, &System::m_projectionMethod},
                                        {kSystemUnit, &System::m_unitName},
                                        {kSystemEllipsoid, &System::m_ellipsoidName}};
    static constexpr Row geoidUse[] = {{kGeoidUse, &System::m_hasGeoidModel}};
    static constexpr Row geoid[] = {{kGeoidMethod, &System::m_geoidModelMd}, {kGeoidGrid, &System::m_geoidGrid}};
    static constexpr Row geoidManual[] = {{kGeoidManual, &System::m_manualSeparation}};
    static constexpr Row postShifts[] = {
        {kPostX, &System::m_postShiftX}, {kPostY, &System::m_postShiftY}, {kPostZ, &System::m_postShiftZ}};
    static constexpr Row postModel[] = {{kPostFile, &System::m_gridCorrectionFile},
                                        {kPostModel, &System::m_gridCorrectionModel}};
    static constexpr Row postUse[] = {{kPostUse, &System::m_hasPostCorrection}};
    static constexpr Row adjusts[] = {
        {kHorAdjustUse, &System::m_hasPostHorAdjust},       {kHorAdjustOriginX, &System::m_horAdjustOriginX},
        {kHorAdjustOriginY, &System::m_horAdjustOriginY},   {kHorAdjustRotation, &System::m_horAdjustRotation},
        {kHorAdjustScale, &System::m_horAdjustScale},       {kVertAdjustUse, &System::m_hasPostVertAdjust},
        {kVertAdjustOriginX, &System::m_vertAdjustOriginX}, {kVertAdjustOriginY, &System::m_vertAdjustOriginY},
        {kVertAdjustSlopeX, &System::m_vertAdjustSlopeX},   {kVertAdjustSlopeY, &System::m_vertAdjustSlopeY}};

    static void Write(const System& system, FileObject& project, std::span<const Row> rows)
    {
        for (const Row& row : rows) {
            std::visit([&](auto field) { project.SetItem(COORDSYSTEM_BACKUP_SECTION, row.key, system.*field, true); },
                       row.field);
        }
    }

    /// A field whose key is missing stays as it is.
    static void Read(System& system, const FileObject& project, std::span<const Row> rows)
    {
        for (const Row& row : rows) {
            std::visit([&](auto field) { ReadItem(project, COORDSYSTEM_BACKUP_SECTION, row.key, system.*field); },
                       row.field);
        }
    }
};
