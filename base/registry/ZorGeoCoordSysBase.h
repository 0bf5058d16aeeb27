#pragma once

#include <iosfwd>
#include <list>
#include <string>
#include <utility>

#include "base/Export.h"
#include "base/text/CArray.h"
#include "base/text/CString.h"
#include "base/text/CStringA.h"
#include "base/text/CStringArray.h"

class CDatumTransform;
class FileObject;
class ZorGeoDatabaseBase;

/// A coordinate system as a host sees it: one named system, bound to one project.
///
/// Latitudes and longitudes are decimal degrees, north and east positive; heights, eastings and
/// northings are in the system's linear unit; `time` is milliseconds since 1970, 0 for the
/// present moment. The contract of each operation stands at the class that implements it; the
/// order of the virtual operations and all names are part of the interface.
class ZORBASE_API ZorGeoCoordSysBase {
public:
    ZorGeoCoordSysBase();
    ZorGeoCoordSysBase(const ZorGeoCoordSysBase&);
    ZorGeoCoordSysBase& operator=(const ZorGeoCoordSysBase&);

    virtual ~ZorGeoCoordSysBase();
    virtual bool IsInit() = 0;
    virtual bool Init(CString group, CString system, CString geoidModel, CString geoidFile, CString chartDatum,
                      CString postModel, CString postFile, CString projectFile, CString unit) = 0;
    virtual bool Init(CString group, CString system, CString geoidModel, CString geoidFile, CString chartDatum,
                      CString postModel, CString postFile, FileObject& project, CString unit, bool silent) = 0;
    virtual bool Save(FileObject& project) = 0;
    virtual bool SaveBackup(FileObject& project) = 0;
    virtual void CloseCorrectionModels() = 0;
    virtual ZorGeoDatabaseBase& GetGeoDatabase() = 0;
    virtual bool GetDatumFilePath(CString& path) = 0;
    virtual bool GetGroupName(CString& name) = 0;
    virtual void GetSysName(CString& name) = 0;
    virtual CString GetGeoidModelName() = 0;
    virtual CString GetGeoidModelFileName() = 0;
    virtual void GetDtfName(CString& name) = 0;
    virtual CString GetEllipsoidName() = 0;
    virtual CString GetSrcElpName() = 0;
    virtual CString GetPostModelName() = 0;
    virtual CString GetPostModelFileName() = 0;
    virtual void GetProjectionName(CString& name) = 0;
    virtual void GetProjectionType(int& type) = 0;
    virtual bool GetDatumParameters(double& shiftX, double& shiftY, double& shiftZ, double& rotX, double& rotY,
                                    double& rotZ, double& scale, double& shiftRateX, double& shiftRateY,
                                    double& shiftRateZ, double& rotRateX, double& rotRateY, double& rotRateZ,
                                    double& scaleRate, double& t0, bool& fixedHeight, double& fixedHeightForward,
                                    double& fixedHeightReverse) = 0;
    virtual bool GetLinearUnitName(CString& name) = 0;
    virtual bool GetLinearUnitParameters(double& factor, short& format, CString& mnemonic) = 0;
    virtual bool GetLinearUnitCnv(double& factor) = 0;
    virtual bool GetLinearUnitMnem(CString& mnemonic) = 0;
    virtual bool GetProjectionConstants(CArray<double, double>& values, CStringArray& names, CStringArray& texts,
                                        CArray<UINT, UINT>& kinds) = 0;
    virtual bool SetCoordSysUnit(CString unit) = 0;
    virtual CString GetDtfMethodName() = 0;
    virtual bool GetEllipsoid(double& a, double& eccentricity, double& inverseFlattening) const = 0;
    virtual bool GetEllipsoidAllParameters(double& a, double& b, double& eccentricity, double& reserved,
                                           double& flattening, double& inverseFlattening) = 0;
    virtual CString GetPrjMdName() = 0;
    virtual void SetUserIOLatLonOnSAT(int value) = 0;
    virtual bool GetUserIOLatLonOnSAT() const = 0;
    virtual void UserIOGeoToGrid(double latitude, double longitude, double& x, double& y, double time) const = 0;
    virtual void UserIOGridToGeo(double x, double y, double& latitude, double& longitude, double time) const = 0;
    virtual void GeoToGrid(double latitude, double longitude, double height, double& x, double& y, double& z,
                           double time) const = 0;
    virtual void GeoToGrid(double latitude, double longitude, double& x, double& y, bool post) const = 0;
    virtual void GridToGeo(double x, double y, double z, double& latitude, double& longitude, double& height,
                           double time) const = 0;
    virtual void GridToGeo(double x, double y, double& latitude, double& longitude) const = 0;
    virtual void SatGeoToGrid(double latitude, double longitude, double height, double& x, double& y, double& z,
                              double time) const = 0;
    virtual void SatGeoToGrid(double latitude, double longitude, double& x, double& y, double time) const = 0;
    virtual void GridToSatGeo(double x, double y, double z, double& latitude, double& longitude, double& height,
                              double time) const = 0;
    virtual void GridToSatGeo(double x, double y, double& latitude, double& longitude, double time) const = 0;
    virtual void SatGeoToGeo(double satLatitude, double satLongitude, double satHeight, double& latitude,
                             double& longitude, double& height, double time) const = 0;
    virtual void GeoToSatGeo(double latitude, double longitude, double height, double& satLatitude,
                             double& satLongitude, double& satHeight, double time) const = 0;
    virtual void GridConvergence(double x, double y, double& convergence) const = 0;
    virtual double PointScaleFactor(double x, double y) const = 0;
    virtual void PointScaleFactor(double x, double y, double& factor) const = 0;
    virtual double LineScaleFactor(double x1, double y1, double x2, double y2) const = 0;
    virtual void LineScaleFactor(double x1, double y1, double x2, double y2, double& factor) const = 0;
    virtual void DumpProjectionXml(std::wostream& stream, const std::wstring indent, int unused) const = 0;
    virtual void DumpDatumXml(std::wostream& stream, const std::wstring indent) = 0;
    virtual void DumpEllipsoidXml(std::wostream& stream, const std::wstring indent) = 0;
    virtual void DumpGeoidXml(std::wostream& stream, const std::wstring indent) = 0;
    virtual void DumpPostCorrectionXml(std::wostream& stream, const std::wstring indent) = 0;
    virtual bool DoDtf(double latitude, double longitude, double height, double& outLatitude, double& outLongitude,
                       double& outHeight, bool inverse, CString dtfName, double time) = 0;
    virtual bool DoDtfWGS84(double latitude, double longitude, double height, double& outLatitude,
                            double& outLongitude, double& outHeight, bool inverse, double time) const = 0;
    virtual bool ProjectOffset(double& dx, double& dy, double x, double y) = 0;
    virtual bool SaveDtfFileObjToDB(FileObject* file, CString name) = 0;
    virtual bool CreateDtfFileObj(CString name, FileObject& file) = 0;
    virtual void GetGeoKeys(std::list<std::pair<int, short>>& shortKeys,
                            std::list<std::pair<int, double>>& doubleKeys) = 0;
    virtual bool GeogsToCartesian(double latitude, double longitude, double height, double& x, double& y, double& z,
                                  bool satellite) const = 0;
    virtual bool CartesianToGeogs(double x, double y, double z, double& latitude, double& longitude, double& height,
                                  bool satellite) const = 0;
    virtual CString GetGeoidModelMd() = 0;
    virtual CString GetGeoidGrid() = 0;
    virtual CString GetGeoidChartDatum() = 0;
    virtual void GetGridCorrectionPara(double& x, double& y, double& z) = 0;
    virtual CString GetGridCorrectionFile() = 0;
    virtual CString GetGridCorrectionModel() = 0;
    virtual bool HasGeoidModel() = 0;
    virtual bool CalGeoidHeight(double latitude, double longitude, double x, double y, double& height,
                                CString& message) const = 0;
    virtual bool CalGeoidHeight(double latitude, double longitude, double x, double y, double& height) const = 0;
    virtual bool CalPostXY(double x, double y, double& outX, double& outY, bool inverse) const = 0;
    virtual bool CalPostXYZ(double x, double y, double z, double& outX, double& outY, double& outZ,
                            bool inverse) const = 0;
    virtual CString GetGDALProj4CoordSysText() = 0;
    virtual bool GetFauParameters(CStringA& zone, CStringA& hemisphere, double& falseNorthing) = 0;
    virtual CDatumTransform* CreateNewDtf(CString name) = 0;
};
