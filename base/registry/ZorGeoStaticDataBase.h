#pragma once

#include "base/Export.h"
#include "base/text/CArray.h"
#include "base/text/CString.h"
#include "base/text/CStringArray.h"

class ZorGeoDatabaseBase;

/// One coordinate system as plain values, as an editor fills it. The contract of each operation
/// stands at the class that implements it; the order of the virtual operations and all names,
/// their spelling included, are part of the interface.
class ZORBASE_API ZorGeoStaticDataBase {
public:
    ZorGeoStaticDataBase();
    ZorGeoStaticDataBase(const ZorGeoStaticDataBase&) = delete;
    ZorGeoStaticDataBase& operator=(const ZorGeoStaticDataBase&) = delete;

    virtual ~ZorGeoStaticDataBase();
    virtual bool SaveDataToDB() = 0;
    virtual int GetDtfMdType(CString name) = 0;
    virtual void GetAllDtTransMdNames(CStringArray& out) = 0;
    virtual int GetDtTransMethodByName(CString name) = 0;
    virtual void GetAllPrjMdNames(CStringArray& out) = 0;
    virtual short GetPrjType() = 0;
    virtual int GetPrjType(CString method) = 0;
    virtual bool BeUTMPrj(int type) = 0;
    virtual int CheckSystemIsEqual(ZorGeoDatabaseBase* database) = 0;
    virtual int CheckDtfIsEqual(ZorGeoDatabaseBase* database) = 0;
    virtual int CheckProjectionIsEqual(ZorGeoDatabaseBase* database) = 0;
    virtual void GetSelPrjMdResults(int type, CStringArray& names, CArray<UINT, UINT>& numbers, CStringArray& keys) = 0;
    virtual void SetSysNameAndKey(CString name, CString key) = 0;
    virtual void SetGroupNameAndKey(CString name, CString key) = 0;
    virtual void SetDttransNameAndKey(CString name, CString key) = 0;
    virtual void SetElpNameAndKey(CString name, CString key) = 0;
    virtual void SetUnitNameAndKey(CString name, CString key) = 0;
    virtual void SetPrjNameAndType(CString name, short type) = 0;
    virtual void SetDtFilePath(CString path) = 0;
    virtual void SetDtTransferMdName(CString name, int type) = 0;
    virtual void SetUnitParams(double cnv, short type, CString descp) = 0;
    virtual void SetUnitCnvValue(double cnv) = 0;
    virtual void SetDtTransferParams(double shiftX, double shiftY, double shiftZ, double rotX, double rotY, double rotZ,
                                     double scale, double rateShiftX, double rateShiftY, double rateShiftZ,
                                     double rateRotX, double rateRotY, double rateRotZ, double rateScale, double epoch,
                                     bool fixedHeight, double fixedHeightFwd, double fixedHeightRev) = 0;
    virtual void SetPrjParams(CArray<double, double>& values, CStringArray& names, CStringArray& texts,
                              CArray<UINT, UINT>& kinds) = 0;
    virtual void SetElpsoidParams(double semiMajor, double semiMinor, double ecc, double eccSqrd, double flat,
                                  double invFlat) = 0;
    virtual void SetSrcElpsoidParams(double semiMajor, double ecc) = 0;
    virtual void SetGeoModelParams(long type, CString method, CString grid) = 0;
    virtual CString GetGroupName() = 0;
    virtual CString GetSysName() = 0;
    virtual CString GetDttransName() = 0;
    virtual CString GetPrjMdName() = 0;
    virtual CString GetPrjName() = 0;
    virtual CString GetDttransMdName() = 0;
    virtual CString GetElpName() = 0;
    virtual CString GetUnitName() = 0;
    virtual CString GetDtFilePath() = 0;
    virtual void GetUnitCnvValue(double& cnv) = 0;
    virtual bool GetPrjParams(CArray<double, double>& values, CStringArray& names, CArray<UINT, UINT>& kinds) = 0;
    virtual void SetSystemDescp(CString text) = 0;
    virtual void SetDtfDescp(CString text) = 0;
    virtual void SetUnitDescp(CString text) = 0;
    virtual void SetGeoidDescp(CString text) = 0;
    virtual CString GetSystemDescp() = 0;
    virtual CString GetDtfDescp() = 0;
    virtual CString GetUnitDescp() = 0;
    virtual CString GetGeoidDescp() = 0;
    virtual CString DumpSysinfoText() = 0;
    virtual void SetSrcElpName(CString name) = 0;
    virtual CString GetSrcElpName() = 0;
    virtual void SetPrjMdName(CString name) = 0;
    virtual void SetDefaultGeoidMethod(CString method) = 0;
    virtual void SetDefaultGeoidGrid(CString grid) = 0;
    virtual CString GetDefaultGeoidMethod() = 0;
    virtual CString GetDefaultGeoidGrid() = 0;
    virtual void SetGeoidManualInput(double value) = 0;
    virtual void SetGeoidMethod(CString method) = 0;
    virtual void SetGeoidGrid(CString grid) = 0;
    virtual void SetGeoidChartDatum(CString text) = 0;
    virtual CString GetGeoidMethod() = 0;
    virtual CString GetGeoidGrid() = 0;
    virtual CString GetGeoidChartDatum() = 0;
    virtual void SetDefaultPostModel(CString model) = 0;
    virtual void SetDefaultPostModelFile(CString file) = 0;
    virtual CString GetDefaultPostModel() = 0;
    virtual CString GetDefaultPostModelFile() = 0;
    virtual void SetPostCorrection(double x, double y, double z) = 0;
    virtual void GetPostCorrection(double& x, double& y, double& z) = 0;
    virtual void SetPostHorAdjust(double originX, double originY, double rotation, double scale) = 0;
    virtual void GetPostHorAdjust(double& originX, double& originY, double& rotation, double& scale) = 0;
    virtual void SetPostVertAdjust(double originX, double originY, double slopeX, double slopeY) = 0;
    virtual void GetPostVertAdjust(double& originX, double& originY, double& slopeX, double& slopeY) = 0;
    virtual void SetPostCorrtFile(CString file) = 0;
    virtual CString GetPostCorrtFile() = 0;
    virtual void SetPostCorrtModel(CString model) = 0;
    virtual CString GetPostCorrtModel() = 0;
    virtual void SetPostCorrtType(int type) = 0;
    virtual int GetPostCorrtType() = 0;
    virtual void SetUseGeoidModelStatu(bool use) = 0;
    virtual bool GetUseGeoiModelStatu() = 0;
    virtual void SetUsePostCorrctStatu(bool use) = 0;
    virtual bool GetUsePostCorrctStatu() = 0;
    virtual void SetUsePostHorAdjustStatu(bool use) = 0;
    virtual void SetUsePostVertAdjustStatu(bool use) = 0;
    virtual bool GetUsePostHorAdjustStatu() = 0;
    virtual bool GetUsePostVertAdjustStatu() = 0;
    virtual void SetNoDtf(CString name) = 0;
    virtual void SetUTMZone(CString zone) = 0;
    virtual void SetUTMHemiSphere(CString hemisphere) = 0;
    virtual CString GetUTMZone() = 0;
    virtual CString GetUTMHemiSphere() = 0;
    virtual void SetUTMStatu(bool utm) = 0;
    virtual bool GetUTMStatu() = 0;
    virtual bool CanPrjUnitChange(int type) = 0;
    virtual ZorGeoStaticDataBase* Copy() = 0;
};
