// Geoid and post corrections: from the system's record and the arguments of Init into the record
// that the conversions compute with.

#include "coordsys/ZORGeoCoordSys.h"
#include "frame/RecordNames.h"

namespace {

// Numbers of the string table.
constexpr unsigned kGeoidFileNotOpened = 15365;
constexpr unsigned kGeoidModelError = 15398;

// Names of older databases, in exact case, for the British and Irish geoid of 2002: one method
// with a grid file per country.
struct OldGeoid {
    const wchar_t* method;
    const wchar_t* grid;
};
constexpr OldGeoid kOldGeoids[] = {{L"OSGM02 - GB", L"OSTN02_OSGM02_GB.txt"},
                                   {L"OSGM02 - NI", L"OSGM02_NI.txt"},
                                   {L"OSGM02 - RoI", L"OSGM02_RoI.txt"}};
constexpr const wchar_t* kOldGeoidMethod = L"OSGM";

// The post model that goes with them. Its file is the geoid's grid, which holds both.
constexpr const wchar_t* kOldPostModel = L"OSTN02";
constexpr const wchar_t* kOstnModel = L"OSTN";

} // namespace

bool ZORGeoCoordSys::IniGeoCorrections()
{
    IniGeoidSettings();
    if (m_hasGeoidModel) {
        IniGeoidModel();
    }
    IniPostShifts();
    IniPostHorAdjust();
    IniPostVertAdjust();
    IniPostModel();
    // A model that an earlier Init has left knows the unit of that time.
    m_corrections.TakeUnitOf(this);
    return true;
}

// Method and grid in effect: the system's, then what Init was told.
void ZORGeoCoordSys::IniGeoidSettings()
{
    m_geoidModelMd.Empty();
    m_geoidGrid.Empty();
    m_hasGeoidModel = m_database.HasGeoidModel(m_groupName, m_sysName);
    if (m_hasGeoidModel) {
        m_geoidModelMd = m_database.GetDefaultGeoidModelMd(m_groupName, m_sysName);
        m_geoidGrid = m_database.GetDefaultGeoidGrid(m_groupName, m_sysName);
        for (const OldGeoid& old : kOldGeoids) {
            if (m_geoidModelMd == old.method) {
                m_geoidModelMd = kOldGeoidMethod;
                m_geoidGrid = old.grid;
                break;
            }
        }
    }
    if (!m_geoidModelArg.IsEmpty()) {
        m_hasGeoidModel = true;
        m_geoidModelMd = m_geoidModelArg;
    }
    if (m_hasGeoidModel && !m_geoidFileArg.IsEmpty()) {
        m_geoidGrid = m_geoidFileArg;
    }
    if (m_geoidModelArg == kNoModel) {
        m_hasGeoidModel = false;
    }
}

// Kept: a system without a geoid does not come here, so the model or fixed separation of an
// earlier Init stays in force on the object; CloseCorrectionModels lets the model go.
void ZORGeoCoordSys::IniGeoidModel()
{
    if (m_geoidModelMd == GeoidmodelTypeKeys[GeoidType::manual]) {
        m_manualSeparation = m_database.GetGeoidManualSeparation(m_groupName, m_sysName);
        m_corrections.manualSeparation = m_manualSeparation;
        m_corrections.manualGeoid = true;
    } else if (!(m_geoidModelMd == GeoidmodelTypeKeys[GeoidType::none])) {
        if (!m_corrections.CreateGeoidModel(m_geoidModelMd, this) && !m_silent) {
            AfxMessageBox(kGeoidModelError);
        }
    }
    // Kept: a model that refused the system stays and gets its file; its own answers decide.
    GeoidModel* const model = m_corrections.pGeoidModel.get();
    if (model == nullptr) {
        return;
    }
    if (!model->SetModelFile(m_geoidGrid) && !m_silent) {
        CString text;
        text.LoadString(kGeoidFileNotOpened);
        CString message;
        message.Format(text, m_geoidGrid);
        AfxMessageBox(message, MessageIcon::exclamation);
    }
    model->SetChartDatum(m_chartDatum);
}

// Kept: without post shifts the object's own three stay as they were; they are what a backup
// writes and GetGridCorrectionPara shows.
void ZORGeoCoordSys::IniPostShifts()
{
    m_hasPostCorrection = m_database.HasPostCorrection(m_groupName, m_sysName);
    if (m_hasPostCorrection) {
        m_database.GetGridCorrection(m_groupName, m_sysName, m_postShiftX, m_postShiftY, m_postShiftZ);
        m_corrections.SetShifts(m_postShiftX, m_postShiftY, m_postShiftZ);
    } else {
        m_corrections.SetShifts(0.0, 0.0, 0.0);
    }
}

void ZORGeoCoordSys::IniPostHorAdjust()
{
    m_hasPostHorAdjust = m_database.HasPostHorAdjust(m_groupName, m_sysName);
    if (m_hasPostHorAdjust) {
        m_database.GetPostHorAdjust(m_groupName, m_sysName, m_horAdjustOriginX, m_horAdjustOriginY, m_horAdjustRotation,
                                    m_horAdjustScale);
        m_corrections.SetHorAdjust(m_horAdjustOriginX, m_horAdjustOriginY, m_horAdjustRotation, m_horAdjustScale);
    } else {
        m_corrections.ClearHorAdjust();
    }
}

void ZORGeoCoordSys::IniPostVertAdjust()
{
    m_hasPostVertAdjust = m_database.HasPostVertAdjust(m_groupName, m_sysName);
    if (m_hasPostVertAdjust) {
        m_database.GetPostVertAdjust(m_groupName, m_sysName, m_vertAdjustOriginX, m_vertAdjustOriginY,
                                     m_vertAdjustSlopeX, m_vertAdjustSlopeY);
        m_corrections.SetVertAdjust(m_vertAdjustOriginX, m_vertAdjustOriginY, m_vertAdjustSlopeX, m_vertAdjustSlopeY);
    } else {
        m_corrections.ClearVertAdjust();
    }
}

void ZORGeoCoordSys::IniPostModel()
{
    m_gridCorrectionFile = m_database.GetDefaultGridCorrectionFile(m_groupName, m_sysName);
    m_gridCorrectionModel = m_database.GetDefaultGridCorrectionModel(m_groupName, m_sysName);
    if (m_gridCorrectionModel == kOldPostModel) {
        m_gridCorrectionModel = kOstnModel;
        m_gridCorrectionFile = m_geoidGrid;
    }
    if (!m_postModelArg.IsEmpty()) {
        m_gridCorrectionModel = m_postModelArg;
    }
    if (!m_postFileArg.IsEmpty()) {
        m_gridCorrectionFile = m_postFileArg;
    }
    if (m_postModelArg == kNoModel) {
        m_gridCorrectionModel.Empty();
        m_gridCorrectionFile.Empty();
    }
    m_corrections.CreatePostModel(m_gridCorrectionModel, this);
    if (m_corrections.pPostModel) {
        // Kept: an unreadable file brings no message here; the model answers false instead.
        m_corrections.pPostModel->SetModelFile(m_gridCorrectionFile);
    }
}

void ZORGeoCoordSys::CloseCorrectionModels()
{
    m_corrections.pGeoidModel.reset();
    m_corrections.pPostModel.reset();
}

bool ZORGeoCoordSys::CalGeoidHeight(double latitude, double longitude, double x, double y, double& height,
                                    CString& message) const
{
    return m_corrections.GeoidHeight(latitude, longitude, x, y, height, message);
}

bool ZORGeoCoordSys::CalGeoidHeight(double latitude, double longitude, double x, double y, double& height) const
{
    CString dropped;
    return m_corrections.GeoidHeight(latitude, longitude, x, y, height, dropped);
}

bool ZORGeoCoordSys::CalPostXY(double x, double y, double& outX, double& outY, bool inverse) const
{
    double dropped = 0.0;
    return CalPostXYZ(x, y, 0.0, outX, outY, dropped, inverse);
}

bool ZORGeoCoordSys::CalPostXYZ(double x, double y, double z, double& outX, double& outY, double& outZ,
                                bool inverse) const
{
    m_corrections.PostXYZ(x, y, z, outX, outY, outZ, inverse);
    return true;
}
