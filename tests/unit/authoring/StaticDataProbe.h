#pragma once

#include <array>

#include "authoring/ZorGeoStaticData.h"

/// The values of a record that no getter shows.
struct ZorGeoStaticDataProbe {
    static std::array<double, 15> Datum(const ZorGeoStaticData& r)
    {
        return {r.m_shiftX,   r.m_shiftY,   r.m_shiftZ,     r.m_rotX,       r.m_rotY,
                r.m_rotZ,     r.m_scale,    r.m_rateShiftX, r.m_rateShiftY, r.m_rateShiftZ,
                r.m_rateRotX, r.m_rateRotY, r.m_rateRotZ,   r.m_rateScale,  r.m_datumEpoch};
    }
    static std::array<double, 3> FixedHeight(const ZorGeoStaticData& r)
    {
        return {r.m_useFixedHeight ? 1.0 : 0.0, r.m_fixedHeightFwd, r.m_fixedHeightRev};
    }
    /// In the order of SetElpsoidParams.
    static std::array<double, 6> Ellipsoid(const ZorGeoStaticData& r)
    {
        return {r.m_elpSemiMajor, r.m_elpSemiMinor, r.m_elpEcc, r.m_elpEccSqrd, r.m_elpFlat, r.m_elpInvFlat};
    }
    static std::array<double, 2> SourceEllipsoid(const ZorGeoStaticData& r)
    {
        return {r.m_srcElpSemiMajor, r.m_srcElpEcc};
    }
    static double GeoidManual(const ZorGeoStaticData& r) { return r.m_geoidManual; }
    static int DatumType(const ZorGeoStaticData& r) { return r.m_dtMdType; }
    static short UnitType(const ZorGeoStaticData& r) { return r.m_unitType; }
    static const CStringArray& ParameterTexts(const ZorGeoStaticData& r) { return r.m_prjParaTexts; }
    static std::array<CString, 5> Keys(const ZorGeoStaticData& r)
    {
        return {r.m_sysKey, r.m_groupKey, r.m_dtKey, r.m_elpKey, r.m_unitKey};
    }
    static CString FindStaticData(ZorGeoStaticData& r, int index, UINT& kind) { return r.FindStaticData(index, kind); }
    static int FindStaticDataSize(ZorGeoStaticData& r, int type) { return r.FindStaticDataSize(type); }
    static CString Indent(int count) { return ZorGeoStaticData::BuildIndentString(count); }
};
