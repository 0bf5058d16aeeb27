#include "authoring/ZorGeoStaticData.h"

// The fields that a copy takes over, by type.
//
// Kept: the list is not complete. Fixed heights, the manual geoid separation, the default post
// model and file, and the numbers of the source ellipsoid start afresh in a copy: who makes a new
// system from one has to set them.
struct ZorGeoStaticData::CopiedFields {
    using Record = ZorGeoStaticData;

    static constexpr CString Record::*texts[] = {
        &Record::m_sysName,       &Record::m_sysKey,          &Record::m_groupKey,     &Record::m_groupName,
        &Record::m_elpKey,        &Record::m_elpName,         &Record::m_srcElpName,   &Record::m_unitKey,
        &Record::m_unitName,      &Record::m_prjName,         &Record::m_prjMdName,    &Record::m_utmZone,
        &Record::m_utmHemisphere, &Record::m_dtName,          &Record::m_dtKey,        &Record::m_dtMdName,
        &Record::m_dtFilePath,    &Record::m_dtDescp,         &Record::m_geoidDescp,   &Record::m_sysDescp,
        &Record::m_unitDescp,     &Record::m_defGeoidMethod,  &Record::m_defGeoidGrid, &Record::m_geoidMethod,
        &Record::m_geoidGrid,     &Record::m_geoidChartDatum, &Record::m_postFile,     &Record::m_postModel};

    static constexpr double Record::*numbers[] = {
        &Record::m_shiftX,       &Record::m_shiftY,       &Record::m_shiftZ,      &Record::m_rotX,
        &Record::m_rotY,         &Record::m_rotZ,         &Record::m_scale,       &Record::m_rateShiftX,
        &Record::m_rateShiftY,   &Record::m_rateShiftZ,   &Record::m_rateRotX,    &Record::m_rateRotY,
        &Record::m_rateRotZ,     &Record::m_rateScale,    &Record::m_datumEpoch,  &Record::m_unitCnv,
        &Record::m_elpSemiMajor, &Record::m_elpSemiMinor, &Record::m_elpEcc,      &Record::m_elpEccSqrd,
        &Record::m_elpFlat,      &Record::m_elpInvFlat,   &Record::m_postX,       &Record::m_postY,
        &Record::m_postZ,        &Record::m_horOriginX,   &Record::m_horOriginY,  &Record::m_horRotation,
        &Record::m_horScale,     &Record::m_vertOriginX,  &Record::m_vertOriginY, &Record::m_vertSlopeX,
        &Record::m_vertSlopeY};

    static constexpr bool Record::*flags[] = {&Record::m_utmStatu, &Record::m_useHorAdjust, &Record::m_useVertAdjust,
                                              &Record::m_usePost, &Record::m_useGeoid};

    static constexpr int Record::*types[] = {&Record::m_dtMdType, &Record::m_postType};
    static constexpr short Record::*shortTypes[] = {&Record::m_prjType, &Record::m_unitType};

    template <typename Fields>
    static void Copy(const Fields& fields, const Record& from, Record& to)
    {
        for (const auto field : fields) {
            to.*field = from.*field;
        }
    }
};

ZorGeoStaticDataBase* ZorGeoStaticData::Copy()
{
    auto* const copy = new ZorGeoStaticData;
    CopiedFields::Copy(CopiedFields::texts, *this, *copy);
    CopiedFields::Copy(CopiedFields::numbers, *this, *copy);
    CopiedFields::Copy(CopiedFields::flags, *this, *copy);
    CopiedFields::Copy(CopiedFields::types, *this, *copy);
    CopiedFields::Copy(CopiedFields::shortTypes, *this, *copy);
    copy->SetPrjParams(m_prjParaValues, m_prjParaNames, m_prjParaTexts, m_prjParaKinds);
    return copy;
}
