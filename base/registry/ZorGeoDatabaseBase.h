#pragma once

#include <vector>

#include "base/Export.h"
#include "base/text/CArray.h"
#include "base/text/CString.h"
#include "base/text/CStringArray.h"

class FileObject;

/// Which file of the database a question asks.
enum geodb_type : unsigned { GeoDbUser = 1, GeoDbMain = 2, GeoDbBoth = 3 };

/// A coordinate system database as a host sees it. The contract of each operation stands at the
/// class that implements it; the order of the virtual operations and all names are part of the
/// interface.
class ZORBASE_API ZorGeoDatabaseBase {
public:
    ZorGeoDatabaseBase();
    ZorGeoDatabaseBase(const ZorGeoDatabaseBase&);
    ZorGeoDatabaseBase& operator=(const ZorGeoDatabaseBase&);

    virtual ~ZorGeoDatabaseBase();
    virtual bool Init() = 0;
    virtual bool GetUnitParametersByName(CString name, CString& key, CString& suffix, double& factor, short& digits) = 0;
    virtual bool GetAllGroupNames(CStringArray& out, geodb_type which) = 0;
    virtual bool GetAllSystemNamesByGroupName(CStringArray& out, CString group) = 0;
    virtual bool GetAllSystemNames(CStringArray& out) = 0;
    virtual bool GetAllDtfNames(CStringArray& out) = 0;
    virtual bool GetAllUnitNames(CStringArray& out) = 0;
    virtual bool GetAllEllipsoidNames(CStringArray& out) = 0;
    virtual bool GetAllProjectionNames(CStringArray& out) = 0;
    virtual bool FindGroupAndSysByPrjName(CString projection, CString& group, CString& system) = 0;
    virtual CString GetPrjNameByGroupAndSysNames(CString group, CString system) = 0;
    virtual bool GetAllPrjNamesByMdName(std::vector<CString>& out, CString method) = 0;
    virtual bool GetDtfNamesByElps(CStringArray& out, CString source, CString target) = 0;
    virtual bool GetAllDtfNamesByOneElp(CStringArray& out, CString ellipsoid, bool asTarget) = 0;
    virtual CString GetDtfNameByGroupAndSysNames(CString group, CString system) = 0;
    virtual CString GetUnitNameByGroupAndSysNames(CString group, CString system) = 0;
    virtual CString GetPrjMdNameByGroupAndSysNames(CString group, CString system) = 0;
    virtual CString GetPrjMdNameByPrjName(CString projection) = 0;
    virtual CString GetPrjUnit(CString projection) = 0;
    virtual bool GetPrjConstantsByName(CString projection, CArray<double, double>& values, CStringArray& names,
                                       CStringArray& texts, CArray<UINT, UINT>& kinds) = 0;
    virtual int GetPrjTypeByPrjName(CString projection) = 0;
    virtual bool GetPrjUTMInfo(CString projection, CString& zone, CString& hemisphere) = 0;
    virtual CString GetDatumKeyByName(CString name) = 0;
    virtual bool GetElpParamByElpName(CString name, double& a, double& b, double& e, double& spare, double& f,
                                      double& invF) = 0;
    virtual bool GetElpsoidParametersByDtName(CString dtf, CString& target, double& a, double& b, double& e,
                                              double& spare, double& f, double& invF) = 0;
    virtual bool GetDtfParamByName(CString name, CString& method, double& shiftX, double& shiftY, double& shiftZ,
                                   double& rotX, double& rotY, double& rotZ, double& scale, double& shiftRateX,
                                   double& shiftRateY, double& shiftRateZ, double& rotRateX, double& rotRateY,
                                   double& rotRateZ, double& scaleRate, double& epoch, CString& source,
                                   CString& target, bool& fixedHeight, double& fixedHeightForward,
                                   double& fixedHeightReverse) = 0;
    virtual bool GetElpNamesByDtfName(CString name, CString& source, CString& target) = 0;
    virtual CString GetDtfFilePathByDtfName(CString name) = 0;
    virtual CString GetDtfDescription(CString name) = 0;
    virtual CString GetElpKeyByName(CString name) = 0;
    virtual CString GetDefaultSrcElpName() = 0;
    virtual bool IsOldZorProject(const CString& path) = 0;
    virtual bool ConvertProj2Geobase(FileObject& project, CString& group, CString& system) = 0;
    virtual bool HasGroup(CString name, unsigned which) = 0;
    virtual bool HasSystem(CString name, unsigned which) = 0;
    virtual bool HasDtf(CString name, unsigned which) = 0;
    virtual bool HasEllpsoid(CString name, unsigned which) = 0;
    virtual bool HasUint(CString name, unsigned which) = 0;
    virtual bool HasProjection(CString name, unsigned which) = 0;
    virtual bool HasDtfUsedInMoreSystem(CString name, unsigned which) = 0;
    virtual bool HasProjectionUsedInMoreSystem(CString name, unsigned which) = 0;
    virtual CString DumpDatumfText(CString name, bool title) = 0;
    virtual CString DumpElpText(CString name) = 0;
    virtual CString DumpSystemText(CString group, CString system, CString geoidMethod, CString geoidGrid,
                                   CString chartDatum, CString correctionModel, CString correctionFile) = 0;
    virtual CString DumpPrjText(CString name) = 0;
    virtual CString DumpPrjText(CString group, CString system, bool title) = 0;
    virtual CString DumpUnitText(CString name) = 0;
    virtual CString GetDefaultGeoidModelMd(CString group, CString system) = 0;
    virtual CString GetSupportedGeoidModels(CString group, CString system) = 0;
    virtual CString GetCustomSupportedGeoidModels(CString group, CString system) = 0;
    virtual CString GetDefaultGeoidGrid(CString group, CString system) = 0;
    virtual void GetGridCorrection(CString group, CString system, double& x, double& y, double& z) = 0;
    virtual void GetPostHorAdjust(CString group, CString system, double& originX, double& originY, double& rotation,
                                  double& scale) = 0;
    virtual void GetPostVertAdjust(CString group, CString system, double& originX, double& originY, double& slopeX,
                                   double& slopeY) = 0;
    virtual CString GetDefaultGridCorrectionFile(CString group, CString system) = 0;
    virtual CString GetDefaultGridCorrectionModel(CString group, CString system) = 0;
    virtual bool HasGeoidModel(CString group, CString system) = 0;
    virtual bool HasPostCorrection(CString group, CString system) = 0;
    virtual bool HasPostHorAdjust(CString group, CString system) = 0;
    virtual bool HasPostVertAdjust(CString group, CString system) = 0;
    virtual bool SetGeoidModel(CString group, CString system, CString method, CString grid, bool use) = 0;
    virtual bool SetManualGeoidModel(CString group, CString system, CString method, double value, bool use) = 0;
    virtual double GetGeoidManualSeparation(CString group, CString system) = 0;
    virtual bool SetpostCorrections(CString group, CString system, double x, double y, double z, CString model,
                                    CString file, bool use) = 0;
    virtual bool RemoveSystem(CString group, CString system) = 0;
    virtual void GetDefaultGroupAndSystem(CString& group, CString& system) = 0;
    virtual bool CreateNewUnit(CString name, double factor, CString suffix, short digits) = 0;
    virtual CString DumpSystemIDText(CString group, CString system, CString geoidMethod, CString geoidGrid,
                                     CString chartDatum, CString correctionModel, CString correctionFile) = 0;
    virtual CString GetSystemUnit(CString group, CString system) = 0;
    virtual bool IsSystemCustom(CString group, CString system) = 0;
    virtual bool GetAllDatumKeys(CStringArray& out) = 0;
};
