// What a host asks of a system: names, numbers, its unit. Only SetCoordSysUnit changes anything.

#include <cmath>

#include "coordsys/ZORGeoCoordSys.h"
#include "datum/CDatumTransform.h"
#include "datum/Ellipsoid.h"
#include "projections/CProjection.h"

ZorGeoDatabaseBase& ZORGeoCoordSys::GetGeoDatabase()
{
    return m_database;
}

CString ZORGeoCoordSys::GetDatabasePath() const
{
    return {};
}

bool ZORGeoCoordSys::GetDatumFilePath(CString&)
{
    return true;
}

// Kept: false is the answer, also with the name filled in: the name tells, not the answer.
bool ZORGeoCoordSys::GetGroupName(CString& name)
{
    name = m_groupName;
    return false;
}

void ZORGeoCoordSys::GetSysName(CString& name)
{
    name = m_sysName;
}

CString ZORGeoCoordSys::GetGeoidModelName()
{
    return m_geoidModelArg;
}

CString ZORGeoCoordSys::GetGeoidModelFileName()
{
    return m_geoidFileArg;
}

void ZORGeoCoordSys::GetDtfName(CString& name)
{
    name = m_dtfName;
}

CString ZORGeoCoordSys::GetEllipsoidName()
{
    return m_ellipsoidName;
}

CString ZORGeoCoordSys::GetSrcElpName()
{
    return m_pDatum ? m_pDatum->GetDftSourceEllipsName() : CString();
}

CString ZORGeoCoordSys::GetPostModelName()
{
    return m_postModelArg;
}

CString ZORGeoCoordSys::GetPostModelFileName()
{
    return m_postFileArg;
}

void ZORGeoCoordSys::GetProjectionName(CString& name)
{
    name = m_projectionName;
}

void ZORGeoCoordSys::GetProjectionType(int& type)
{
    type = m_projectionType;
}

CString ZORGeoCoordSys::GetDtfMethodName()
{
    return m_pDatum ? m_pDatum->GetMethodName() : CString();
}

CString ZORGeoCoordSys::GetPrjMdName()
{
    return m_projectionMethod;
}

CString ZORGeoCoordSys::GetGeoidModelMd()
{
    return m_geoidModelMd;
}

CString ZORGeoCoordSys::GetGeoidGrid()
{
    return m_geoidGrid;
}

CString ZORGeoCoordSys::GetGeoidChartDatum()
{
    return m_chartDatum;
}

CString ZORGeoCoordSys::GetGridCorrectionFile()
{
    return m_gridCorrectionFile;
}

CString ZORGeoCoordSys::GetGridCorrectionModel()
{
    return m_gridCorrectionModel;
}

bool ZORGeoCoordSys::HasGeoidModel()
{
    return m_hasGeoidModel;
}

void ZORGeoCoordSys::GetGridCorrectionPara(double& x, double& y, double& z)
{
    x = m_postShiftX;
    y = m_postShiftY;
    z = m_postShiftZ;
}

bool ZORGeoCoordSys::GetDatumParameters(double& shiftX, double& shiftY, double& shiftZ, double& rotX, double& rotY,
                                        double& rotZ, double& scale, double& shiftRateX, double& shiftRateY,
                                        double& shiftRateZ, double& rotRateX, double& rotRateY, double& rotRateZ,
                                        double& scaleRate, double& t0, bool& fixedHeight, double& fixedHeightForward,
                                        double& fixedHeightReverse)
{
    if (!m_pDatum) {
        return false;
    }
    const bool inSystemUnits = false;
    m_pDatum->GetDtfParms(shiftX, shiftY, shiftZ, rotX, rotY, rotZ, scale, shiftRateX, shiftRateY, shiftRateZ, rotRateX,
                          rotRateY, rotRateZ, scaleRate, t0, fixedHeight, fixedHeightForward, fixedHeightReverse,
                          inSystemUnits);
    return true;
}

bool ZORGeoCoordSys::GetLinearUnitName(CString& name)
{
    name = m_unitName;
    return true;
}

bool ZORGeoCoordSys::GetLinearUnitParameters(double& factor, short& format, CString& mnemonic)
{
    factor = m_unit.factor;
    format = m_unit.format;
    mnemonic = m_unit.mnemonic;
    return true;
}

bool ZORGeoCoordSys::GetLinearUnitCnv(double& factor)
{
    factor = m_unit.factor;
    return true;
}

bool ZORGeoCoordSys::GetLinearUnitMnem(CString& mnemonic)
{
    mnemonic = m_unit.mnemonic;
    return true;
}

bool ZORGeoCoordSys::GetProjectionConstants(CArray<double, double>& values, CStringArray& names, CStringArray& texts,
                                            CArray<UINT, UINT>& kinds)
{
    return m_pProjection && m_pProjection->GetProjectionConstants(values, names, texts, kinds);
}

bool ZORGeoCoordSys::GetEllipsoid(double& a, double& eccentricity, double& inverseFlattening) const
{
    if (!m_pEllipsoid) {
        return false;
    }
    m_pEllipsoid->GetInverseFlattening(inverseFlattening);
    a = m_pEllipsoid->semiMajor;
    eccentricity = std::sqrt(m_pEllipsoid->eccSquared);
    return true;
}

bool ZORGeoCoordSys::GetEllipsoidAllParameters(double& a, double& b, double& eccentricity, double& reserved,
                                               double& flattening, double& inverseFlattening)
{
    if (!GetEllipsoid(a, eccentricity, inverseFlattening)) {
        return false;
    }
    b = m_pEllipsoid->semiMinor;
    flattening = 1.0 / inverseFlattening;
    reserved = 0.0;
    return true;
}

// The axes of ellipsoids and the shifts of the datum are metres and stay, the correction models are
// told the unit, and the projection's constants come in it, so that it is made again.
// Kept: the projection comes from the main file first, the reverse of Init. Where both files have
// it, a change of unit brings the delivered one.
bool ZORGeoCoordSys::SetCoordSysUnit(CString unit)
{
    if (!ReadUnit(unit)) {
        return false;
    }
    Ellipsoid::SetUnitFactor(m_unit.factor);
    CDatumTransform::SetUnitCnv(m_unit.factor);
    m_corrections.TakeUnitOf(this);
    return CreateProjection(m_database.GetMainFile()) || CreateProjection(m_database.GetUserFile());
}
