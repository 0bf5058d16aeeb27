// The plain setters and getters of the record, by subject.

#include "authoring/ZorGeoStaticData.h"

// Names and keys.

void ZorGeoStaticData::SetSysNameAndKey(CString name, CString key)
{
    m_sysName = name;
    m_sysKey = key;
}

void ZorGeoStaticData::SetGroupNameAndKey(CString name, CString key)
{
    m_groupName = name;
    m_groupKey = key;
}

void ZorGeoStaticData::SetDttransNameAndKey(CString name, CString key)
{
    m_dtName = name;
    m_dtKey = key;
}

void ZorGeoStaticData::SetUnitNameAndKey(CString name, CString key)
{
    m_unitName = name;
    m_unitKey = key;
}

void ZorGeoStaticData::SetPrjNameAndType(CString name, short type)
{
    m_prjName = name;
    m_prjType = type;
}

CString ZorGeoStaticData::GetGroupName()
{
    return m_groupName;
}
CString ZorGeoStaticData::GetSysName()
{
    return m_sysName;
}
CString ZorGeoStaticData::GetDttransName()
{
    return m_dtName;
}
CString ZorGeoStaticData::GetElpName()
{
    return m_elpName;
}
CString ZorGeoStaticData::GetUnitName()
{
    return m_unitName;
}
CString ZorGeoStaticData::GetPrjName()
{
    return m_prjName;
}
short ZorGeoStaticData::GetPrjType()
{
    return m_prjType;
}

// Descriptions.

void ZorGeoStaticData::SetSystemDescp(CString text)
{
    m_sysDescp = text;
}
void ZorGeoStaticData::SetDtfDescp(CString text)
{
    m_dtDescp = text;
}
void ZorGeoStaticData::SetUnitDescp(CString text)
{
    m_unitDescp = text;
}
void ZorGeoStaticData::SetGeoidDescp(CString text)
{
    m_geoidDescp = text;
}
CString ZorGeoStaticData::GetSystemDescp()
{
    return m_sysDescp;
}
CString ZorGeoStaticData::GetDtfDescp()
{
    return m_dtDescp;
}
CString ZorGeoStaticData::GetUnitDescp()
{
    return m_unitDescp;
}
CString ZorGeoStaticData::GetGeoidDescp()
{
    return m_geoidDescp;
}

// Datum transformation.

void ZorGeoStaticData::SetDtFilePath(CString path)
{
    m_dtFilePath = path;
}
CString ZorGeoStaticData::GetDtFilePath()
{
    return m_dtFilePath;
}

void ZorGeoStaticData::SetDtTransferMdName(CString name, int type)
{
    m_dtMdName = name;
    m_dtMdType = type;
}

CString ZorGeoStaticData::GetDttransMdName()
{
    return m_dtMdName;
}

void ZorGeoStaticData::SetDtTransferParams(double shiftX, double shiftY, double shiftZ, double rotX, double rotY,
                                           double rotZ, double scale, double rateShiftX, double rateShiftY,
                                           double rateShiftZ, double rateRotX, double rateRotY, double rateRotZ,
                                           double rateScale, double epoch, bool fixedHeight, double fixedHeightFwd,
                                           double fixedHeightRev)
{
    m_shiftX = shiftX;
    m_shiftY = shiftY;
    m_shiftZ = shiftZ;
    m_rotX = rotX;
    m_rotY = rotY;
    m_rotZ = rotZ;
    m_scale = scale;
    m_rateShiftX = rateShiftX;
    m_rateShiftY = rateShiftY;
    m_rateShiftZ = rateShiftZ;
    m_rateRotX = rateRotX;
    m_rateRotY = rateRotY;
    m_rateRotZ = rateRotZ;
    m_rateScale = rateScale;
    m_datumEpoch = epoch;
    m_useFixedHeight = fixedHeight;
    m_fixedHeightFwd = fixedHeightFwd;
    m_fixedHeightRev = fixedHeightRev;
}

// Ellipsoids.

void ZorGeoStaticData::SetElpsoidParams(double semiMajor, double semiMinor, double ecc, double eccSqrd, double flat,
                                        double invFlat)
{
    m_elpSemiMajor = semiMajor;
    m_elpSemiMinor = semiMinor;
    m_elpEcc = ecc;
    m_elpEccSqrd = eccSqrd;
    m_elpFlat = flat;
    m_elpInvFlat = invFlat;
}

void ZorGeoStaticData::SetSrcElpsoidParams(double semiMajor, double ecc)
{
    m_srcElpSemiMajor = semiMajor;
    m_srcElpEcc = ecc;
}

void ZorGeoStaticData::SetSrcElpName(CString name)
{
    m_srcElpName = name;
}
CString ZorGeoStaticData::GetSrcElpName()
{
    return m_srcElpName;
}

// Unit.

void ZorGeoStaticData::SetUnitParams(double cnv, short type, CString descp)
{
    m_unitCnv = cnv;
    m_unitType = type;
    m_unitDescp = descp;
}

void ZorGeoStaticData::SetUnitCnvValue(double cnv)
{
    m_unitCnv = cnv;
}
void ZorGeoStaticData::GetUnitCnvValue(double& cnv)
{
    cnv = m_unitCnv;
}

// Projection.

void ZorGeoStaticData::SetPrjMdName(CString name)
{
    m_prjMdName = name;
}
CString ZorGeoStaticData::GetPrjMdName()
{
    return m_prjMdName;
}

void ZorGeoStaticData::SetPrjParams(CArray<double, double>& values, CStringArray& names, CStringArray& texts,
                                    CArray<UINT, UINT>& kinds)
{
    m_prjParaNames.Copy(names);
    m_prjParaTexts.Copy(texts);
    m_prjParaValues.Copy(values);
    m_prjParaKinds.Copy(kinds);
}

bool ZorGeoStaticData::GetPrjParams(CArray<double, double>& values, CStringArray& names, CArray<UINT, UINT>& kinds)
{
    if (m_prjParaNames.IsEmpty()) {
        return false;
    }
    values.Copy(m_prjParaValues);
    names.Copy(m_prjParaNames);
    kinds.Copy(m_prjParaKinds);
    return true;
}

void ZorGeoStaticData::SetUTMZone(CString zone)
{
    m_utmZone = zone;
}
void ZorGeoStaticData::SetUTMHemiSphere(CString hemisphere)
{
    m_utmHemisphere = hemisphere;
}
CString ZorGeoStaticData::GetUTMZone()
{
    return m_utmZone;
}
CString ZorGeoStaticData::GetUTMHemiSphere()
{
    return m_utmHemisphere;
}
void ZorGeoStaticData::SetUTMStatu(bool utm)
{
    m_utmStatu = utm;
}
bool ZorGeoStaticData::GetUTMStatu()
{
    return m_utmStatu;
}

// Geoid.

void ZorGeoStaticData::SetGeoModelParams(long, CString method, CString grid)
{
    m_defGeoidMethod = method;
    m_geoidMethod = method;
    m_defGeoidGrid = grid;
    m_geoidGrid = grid;
    m_useGeoid = !method.IsEmpty();
}

void ZorGeoStaticData::SetDefaultGeoidMethod(CString method)
{
    m_defGeoidMethod = method;
}
void ZorGeoStaticData::SetDefaultGeoidGrid(CString grid)
{
    m_defGeoidGrid = grid;
}
CString ZorGeoStaticData::GetDefaultGeoidMethod()
{
    return m_defGeoidMethod;
}
CString ZorGeoStaticData::GetDefaultGeoidGrid()
{
    return m_defGeoidGrid;
}
void ZorGeoStaticData::SetGeoidManualInput(double value)
{
    m_geoidManual = value;
}
void ZorGeoStaticData::SetGeoidMethod(CString method)
{
    m_geoidMethod = method;
}
void ZorGeoStaticData::SetGeoidGrid(CString grid)
{
    m_geoidGrid = grid;
}
void ZorGeoStaticData::SetGeoidChartDatum(CString text)
{
    m_geoidChartDatum = text;
}
CString ZorGeoStaticData::GetGeoidMethod()
{
    return m_geoidMethod;
}
CString ZorGeoStaticData::GetGeoidGrid()
{
    return m_geoidGrid;
}
CString ZorGeoStaticData::GetGeoidChartDatum()
{
    return m_geoidChartDatum;
}
void ZorGeoStaticData::SetUseGeoidModelStatu(bool use)
{
    m_useGeoid = use;
}
bool ZorGeoStaticData::GetUseGeoiModelStatu()
{
    return m_useGeoid;
}

// Post corrections.

void ZorGeoStaticData::SetDefaultPostModel(CString model)
{
    m_defPostModel = model;
}
void ZorGeoStaticData::SetDefaultPostModelFile(CString file)
{
    m_defPostFile = file;
}
CString ZorGeoStaticData::GetDefaultPostModel()
{
    return m_defPostModel;
}
CString ZorGeoStaticData::GetDefaultPostModelFile()
{
    return m_defPostFile;
}

void ZorGeoStaticData::SetPostCorrection(double x, double y, double z)
{
    m_postX = x;
    m_postY = y;
    m_postZ = z;
}

void ZorGeoStaticData::GetPostCorrection(double& x, double& y, double& z)
{
    x = m_postX;
    y = m_postY;
    z = m_postZ;
}

void ZorGeoStaticData::SetPostHorAdjust(double originX, double originY, double rotation, double scale)
{
    m_horOriginX = originX;
    m_horOriginY = originY;
    m_horRotation = rotation;
    m_horScale = scale;
}

void ZorGeoStaticData::GetPostHorAdjust(double& originX, double& originY, double& rotation, double& scale)
{
    originX = m_horOriginX;
    originY = m_horOriginY;
    rotation = m_horRotation;
    scale = m_horScale;
}

void ZorGeoStaticData::SetPostVertAdjust(double originX, double originY, double slopeX, double slopeY)
{
    m_vertOriginX = originX;
    m_vertOriginY = originY;
    m_vertSlopeX = slopeX;
    m_vertSlopeY = slopeY;
}

void ZorGeoStaticData::GetPostVertAdjust(double& originX, double& originY, double& slopeX, double& slopeY)
{
    originX = m_vertOriginX;
    originY = m_vertOriginY;
    slopeX = m_vertSlopeX;
    slopeY = m_vertSlopeY;
}

void ZorGeoStaticData::SetPostCorrtFile(CString file)
{
    m_postFile = file;
}
CString ZorGeoStaticData::GetPostCorrtFile()
{
    return m_postFile;
}
void ZorGeoStaticData::SetPostCorrtModel(CString model)
{
    m_postModel = model;
}
CString ZorGeoStaticData::GetPostCorrtModel()
{
    return m_postModel;
}
void ZorGeoStaticData::SetPostCorrtType(int type)
{
    m_postType = type;
}
int ZorGeoStaticData::GetPostCorrtType()
{
    return m_postType;
}
void ZorGeoStaticData::SetUsePostCorrctStatu(bool use)
{
    m_usePost = use;
}
bool ZorGeoStaticData::GetUsePostCorrctStatu()
{
    return m_usePost;
}
void ZorGeoStaticData::SetUsePostHorAdjustStatu(bool use)
{
    m_useHorAdjust = use;
}
bool ZorGeoStaticData::GetUsePostHorAdjustStatu()
{
    return m_useHorAdjust;
}
void ZorGeoStaticData::SetUsePostVertAdjustStatu(bool use)
{
    m_useVertAdjust = use;
}
bool ZorGeoStaticData::GetUsePostVertAdjustStatu()
{
    return m_useVertAdjust;
}
