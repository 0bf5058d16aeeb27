#pragma once

#include <memory>

#include "coordsys/GeoCorrections.h"
#include "coordsys/ZorGeoUnit.h"
#include "database/ZorGeoDatabase.h"
#include "frame/BaseContract.h"
#include "frame/Export.h"

class CDatumTransform;
class CProjection;
class Ellipsoid;
class ZorGeoStaticData;

/// One named coordinate system of the database, bound to one project.
///
/// Frames: *satellite* is geographic on the source ellipsoid of the datum transformation (WGS84 as
/// a rule), *local* is geographic on the system's own ellipsoid, *grid* is easting and northing of
/// the projection with a height above the geoid when a geoid is in use. Latitudes and longitudes
/// are decimal degrees, north and east positive; heights, eastings and northings are in the
/// system's linear unit; `time` is milliseconds since 1970, 0 for the present moment, and matters
/// to transformations of 14 parameters alone.
///
/// Init reads everything; after it the conversions touch no file, allocate nothing (but for the
/// remark of a geoid model) and lock nothing. A part that is missing or refuses is skipped and its
/// step changes nothing: the chain goes on with what it had, and outputs that no step wrote keep
/// the caller's value.
///
/// Threads: the const operations of a ready object may run on several threads at once, as long as
/// none calls Init, SetCoordSysUnit, ProjectOffset or the DoDtf with a name. The unit factors of
/// Ellipsoid and CDatumTransform are the process's, so two systems of different units in one
/// process disturb each other.
///
/// Copies are shallow: a copy shares ellipsoids, projection, datum transformations, models and
/// project file with its source. The last owner frees them.
///
/// (The spelling of names and the order of virtual operations are part of the interface.)
class ZORCOORDSYS_API ZORGeoCoordSys : public ZorGeoCoordSysBase {
public:
    ZORGeoCoordSys();
    ZORGeoCoordSys(const ZORGeoCoordSys&);
    ZORGeoCoordSys& operator=(const ZORGeoCoordSys&);

    ~ZORGeoCoordSys() override;
    /// True once an Init has built all parts; stays true when a later Init fails.
    bool IsInit() override;
    /// Finds `system` of `group` and builds its parts, user file first, then main file. The model
    /// arguments override the system's geoid and post correction settings unless they are empty;
    /// the literal "--None--" switches a model off. `projectFile` is a full file name, empty for
    /// the suite's current project. `unit` is a unit's name; "none" in any case of letters keeps
    /// the system's own.
    /// A system that the database lacks, or holds with other values than the project's backup, is
    /// written from the backup into the user database. The user names each record whose name is
    /// taken; the new names go into the project, which is saved.
    /// False, after a message, when the project or the database cannot be opened. False without
    /// one when the system or one of its parts is not found or does not load, when `unit` is not
    /// known (all parts are then built), when the project has no backup of the system (all parts are
    /// then built and IsInit is true), or when the user cancels a question.
    bool Init(CString group, CString system, CString geoidModel, CString geoidFile, CString chartDatum,
              CString postModel, CString postFile, CString projectFile, CString unit) override;
    /// The same on an open project, which must outlive this object or its next Init of this form.
    /// `silent` keeps message boxes back, also in later calls of the other form, and leaves out
    /// the comparison with the project's backup. A null project gives false and no message.
    bool Init(CString group, CString system, CString geoidModel, CString geoidFile, CString chartDatum,
              CString postModel, CString postFile, FileObject& project, CString unit, bool silent) override;
    /// Writes into the project which system it uses: group, system, and the models, chart datum and
    /// unit that go with it. For a system that Init has set up. True; saving the file is the host's.
    bool Save(FileObject& project) override;
    /// Writes the whole system into the project, so that it can be opened where the database lacks
    /// it. Keys and sections that a run does not write keep what they held. For a system that Init
    /// has set up. True; saving the file is the host's.
    /// Kept: a system with a geoid model answers HasGeoidModel afterwards as the database says of
    /// it; one without goes on without.
    bool SaveBackup(FileObject& project) override;
    /// Gives the geoid and post models back. A fixed geoid separation stays in force.
    void CloseCorrectionModels() override;
    ZorGeoDatabaseBase& GetGeoDatabase() override;
    /// True; leaves its argument alone.
    bool GetDatumFilePath(CString& path) override;
    /// Fills its argument and answers false, always.
    bool GetGroupName(CString& name) override;
    void GetSysName(CString& name) override;
    /// Geoid model and file, post model and file as Init was given them. The ones in effect are
    /// GetGeoidModelMd, GetGeoidGrid, GetGridCorrectionModel and GetGridCorrectionFile.
    CString GetGeoidModelName() override;
    CString GetGeoidModelFileName() override;
    void GetDtfName(CString& name) override;
    CString GetEllipsoidName() override;
    /// Source ellipsoid of the datum transformation, without prefix; empty without a datum.
    CString GetSrcElpName() override;
    CString GetPostModelName() override;
    CString GetPostModelFileName() override;
    void GetProjectionName(CString& name) override;
    void GetProjectionType(int& type) override;
    /// Shifts in metres, rotations in arc seconds as stored, scale in parts per million, their
    /// yearly rates, epoch as a decimal year, fixed heights. False, outputs untouched, without a
    /// datum.
    bool GetDatumParameters(double& shiftX, double& shiftY, double& shiftZ, double& rotX, double& rotY, double& rotZ,
                            double& scale, double& shiftRateX, double& shiftRateY, double& shiftRateZ, double& rotRateX,
                            double& rotRateY, double& rotRateZ, double& scaleRate, double& t0, bool& fixedHeight,
                            double& fixedHeightForward, double& fixedHeightReverse) override;
    /// The unit of the system's record, also after SetCoordSysUnit. True.
    bool GetLinearUnitName(CString& name) override;
    /// Of the unit in effect. True.
    bool GetLinearUnitParameters(double& factor, short& format, CString& mnemonic) override;
    bool GetLinearUnitCnv(double& factor) override;
    bool GetLinearUnitMnem(CString& mnemonic) override;
    /// The projection's parameters as parallel arrays. False, outputs untouched, without one.
    bool GetProjectionConstants(CArray<double, double>& values, CStringArray& names, CStringArray& texts,
                                CArray<UINT, UINT>& kinds) override;
    /// Changes the linear unit of a ready object to a unit of the database, main file first.
    /// False, nothing changed, when the project has no section of formats or the unit is not
    /// known. False with the unit changed, and possibly no projection, when the projection cannot
    /// be made again.
    bool SetCoordSysUnit(CString unit) override;
    /// Empty without a datum.
    CString GetDtfMethodName() override;
    /// Semi-major axis in metres and eccentricity (the square root of e2) of the local ellipsoid.
    /// The inverse flattening is left alone on an unusable ellipsoid. False, outputs untouched,
    /// without an ellipsoid.
    bool GetEllipsoid(double& a, double& eccentricity, double& inverseFlattening) const override;
    /// The same with both axes; flattening is 1 / inverseFlattening as it then stands; `reserved`
    /// becomes 0.
    bool GetEllipsoidAllParameters(double& a, double& b, double& eccentricity, double& reserved, double& flattening,
                                   double& inverseFlattening) override;
    CString GetPrjMdName() override;
    /// Which frame the UserIO operations call geographic: 0 local, else satellite.
    void SetUserIOLatLonOnSAT(int value) override;
    /// Whether that value is exactly 1.
    bool GetUserIOLatLonOnSAT() const override;
    void UserIOGeoToGrid(double latitude, double longitude, double& x, double& y, double time) const override;
    void UserIOGridToGeo(double x, double y, double& latitude, double& longitude, double time) const override;
    void GeoToGrid(double latitude, double longitude, double height, double& x, double& y, double& z,
                   double time) const override;
    /// Post corrections only when `post` is true, while the way back always takes them off.
    void GeoToGrid(double latitude, double longitude, double& x, double& y, bool post) const override;
    void GridToGeo(double x, double y, double z, double& latitude, double& longitude, double& height,
                   double time) const override;
    void GridToGeo(double x, double y, double& latitude, double& longitude) const override;
    void SatGeoToGrid(double latitude, double longitude, double height, double& x, double& y, double& z,
                      double time) const override;
    void SatGeoToGrid(double latitude, double longitude, double& x, double& y, double time) const override;
    void GridToSatGeo(double x, double y, double z, double& latitude, double& longitude, double& height,
                      double time) const override;
    void GridToSatGeo(double x, double y, double& latitude, double& longitude, double time) const override;
    void SatGeoToGeo(double satLatitude, double satLongitude, double satHeight, double& latitude, double& longitude,
                     double& height, double time) const override;
    void GeoToSatGeo(double latitude, double longitude, double height, double& satLatitude, double& satLongitude,
                     double& satHeight, double time) const override;
    /// Degrees; untouched without a projection.
    void GridConvergence(double x, double y, double& convergence) const override;
    /// 0 without a projection; the forms with an output leave it alone then.
    double PointScaleFactor(double x, double y) const override;
    void PointScaleFactor(double x, double y, double& factor) const override;
    double LineScaleFactor(double x1, double y1, double x2, double y2) const override;
    void LineScaleFactor(double x1, double y1, double x2, double y2, double& factor) const override;
    /// Fragments of XML, each line begun with the indent; the host writes the document around them.
    /// Numbers follow the stream's precision and flags, with a decimal point in any locale. A part
    /// that is missing writes nothing. Texts of the database are not escaped.
    void DumpProjectionXml(std::wostream& stream, const std::wstring indent, int unused) const override;
    void DumpDatumXml(std::wostream& stream, const std::wstring indent) override;
    void DumpEllipsoidXml(std::wostream& stream, const std::wstring indent) override;
    void DumpGeoidXml(std::wostream& stream, const std::wstring indent) override;
    void DumpPostCorrectionXml(std::wostream& stream, const std::wstring indent) override;
    /// Transforms by the datum transformation `dtfName`, made when another name is asked for than
    /// the last time (any case of letters) and kept; by the system's own for an empty name. False,
    /// outputs untouched, when it cannot be made or refuses.
    bool DoDtf(double latitude, double longitude, double height, double& outLatitude, double& outLongitude,
               double& outHeight, bool inverse, CString dtfName, double time) override;
    /// Satellite to local; `inverse` local to satellite. False, outputs untouched, without a datum
    /// or when it refuses.
    bool DoDtfWGS84(double latitude, double longitude, double height, double& outLatitude, double& outLongitude,
                    double& outHeight, bool inverse, double time) const override;
    /// Scales an offset on the ground to the grid at (x, y). The factor of the last place serves
    /// again within 1000 units of it in each axis. False, offset untouched, without a projection.
    bool ProjectOffset(double& dx, double& dy, double x, double y) override;
    /// Takes datum transformation `name` of `file` into the user file of the database and saves
    /// that; the lists by ellipsoids do not show it before the next Init. Ellipsoids do not come along:
    /// for those that the database lacks the record holds four numbers. True also when the
    /// database knows the name already, whatever its record holds, and when the save fails.
    /// False, nothing changed, for a null file or one from which the record does not load.
    bool SaveDtfFileObjToDB(FileObject* file, CString name) override;
    /// Writes datum transformation `name` of the database, main file first, into `file`. False,
    /// `file` untouched, when it does not load.
    bool CreateDtfFileObj(CString name, FileObject& file) override;
    /// Appends the projection's GeoTIFF keys; nothing without a projection.
    void GetGeoKeys(std::list<std::pair<int, short>>& shortKeys,
                    std::list<std::pair<int, double>>& doubleKeys) override;
    /// Cartesian metres of a position on the satellite or the local ellipsoid, and back. False,
    /// outputs untouched, without that ellipsoid or when it is unusable.
    bool GeogsToCartesian(double latitude, double longitude, double height, double& x, double& y, double& z,
                          bool satellite) const override;
    bool CartesianToGeogs(double x, double y, double z, double& latitude, double& longitude, double& height,
                          bool satellite) const override;
    CString GetGeoidModelMd() override;
    CString GetGeoidGrid() override;
    CString GetGeoidChartDatum() override;
    void GetGridCorrectionPara(double& x, double& y, double& z) override;
    CString GetGridCorrectionFile() override;
    CString GetGridCorrectionModel() override;
    bool HasGeoidModel() override;
    /// Geoid height at a position on the satellite ellipsoid whose grid position is (x, y). False,
    /// `height` untouched, without a geoid or when the model has no answer there; `message` then
    /// may tell why.
    bool CalGeoidHeight(double latitude, double longitude, double x, double y, double& height,
                        CString& message) const override;
    bool CalGeoidHeight(double latitude, double longitude, double x, double y, double& height) const override;
    /// Post model, shifts and adjusts of a grid position; `inverse` takes them off. True, always.
    bool CalPostXY(double x, double y, double& outX, double& outY, bool inverse) const override;
    bool CalPostXYZ(double x, double y, double z, double& outX, double& outY, double& outZ,
                    bool inverse) const override;
    /// The system in PROJ.4's words, datum transformation to WGS84 included. Empty for a projection
    /// that has no such text. Throws std::invalid_argument when the text needs a constant that the
    /// projection does not list, as before Init.
    CString GetGDALProj4CoordSysText() override;
    /// Of a UTM system: zone number, "n" or "s", and the false northing in metres, 0 or 10000000.
    /// False, outputs untouched, for any other system.
    bool GetFauParameters(CStringA& zone, CStringA& hemisphere, double& falseNorthing) override;
    /// A new datum transformation from the database, main file first, owned by the caller. A name
    /// that the database lacks is taken over from the older definition files, which adds it to the
    /// user file. Null when nobody has it, with the files as they were, or when it does not load.
    CDatumTransform* CreateNewDtf(CString name) override;

    /// Empty, always: the files have names of their own.
    CString GetDatabasePath() const;
    /// DoDtfWGS84 under its plain name.
    bool DoDtf(double latitude, double longitude, double height, double& outLatitude, double& outLongitude,
               double& outHeight, bool inverse, double time) const;

private:
    bool OpenDatabase();
    void StoreArguments(const CString& group, const CString& system, const CString& geoidModel,
                        const CString& geoidFile, const CString& chartDatum, const CString& postModel,
                        const CString& postFile);
    bool BuildSystem(const CString& unit);
    bool FindSystem();
    bool IniZorCoordSys(const FileObject& file, const CString& group, const CString& system);
    bool ReadUnit(const CString& unit);
    bool CreateEllipsoid(const FileObject& file);
    bool CreateProjection(const FileObject& file);
    bool CreateTransformation(FileObject& file);
    bool CreateObjects();
    void DeleteObjects();
    bool BuildParts(const CString& unit);
    bool FindRestoredSystem();
    short UnitFormat() const;
    std::shared_ptr<CProjection> NewProjection() const;

    bool IniGeoCorrections();
    void IniGeoidSettings();
    void IniGeoidModel();
    void IniPostShifts();
    void IniPostHorAdjust();
    void IniPostVertAdjust();
    void IniPostModel();

    struct BackupRows;
    void SaveGeoidBackup(FileObject& project);
    void FileObjectSave(FileObject& file);

    bool SaveDtfToDB(const CDatumTransform* datum);

    bool RestoreBackupCheckNameConflict();
    bool CheckDataBaseWithProjectBackup(const CString& unit);
    bool RestoreBackup(const CString& group, const CString& system);
    void ReadBackupSettings();
    bool RestoreUnit();
    bool RestoreEllipsoid();
    bool RestoreProjection();
    bool RestoreTransformation();
    bool SaveBackupToDB(const CString& group, const CString& system);
    void DescribeEllipsoids(ZorGeoStaticData& record);
    void DescribeTransformation(ZorGeoStaticData& record);
    void DescribeProjectionAndUnit(ZorGeoStaticData& record);
    void DescribeCorrections(ZorGeoStaticData& record);
    bool CreateGeoStaticDataFromBackup(ZorGeoStaticDataBase& record);

    /// Tests reach what no interface shows.
    friend struct ZORGeoCoordSysProbe;

    std::shared_ptr<FileObject> m_pProjectFile; ///< the caller's when m_externalProjectFile
    ZorGeoDatabase m_database;
    bool m_silent = false;
    CString m_projectFileName;
    CString m_sysName;
    CString m_groupName;
    CString m_projectionName;
    CString m_projectionMethod;
    CString m_ellipsoidName;
    CString m_dtfName;
    CString m_unitName;
    int m_projectionType = 0;
    bool m_isInit = false;
    CString m_geoidModelArg;
    CString m_geoidFileArg;
    CString m_chartDatum;
    CString m_postModelArg;
    CString m_postFileArg;
    CString m_geoidModelMd;
    CString m_geoidGrid;
    double m_postShiftX = 0.0;
    double m_postShiftY = 0.0;
    double m_postShiftZ = 0.0;
    CString m_gridCorrectionFile;
    CString m_gridCorrectionModel;
    bool m_hasGeoidModel = false;
    bool m_hasPostCorrection = false;
    bool m_hasPostHorAdjust = false;
    double m_horAdjustOriginX = 0.0;
    double m_horAdjustOriginY = 0.0;
    double m_horAdjustRotation = 0.0;
    double m_horAdjustScale = 0.0;
    bool m_hasPostVertAdjust = false;
    double m_vertAdjustOriginX = 0.0;
    double m_vertAdjustOriginY = 0.0;
    double m_vertAdjustSlopeX = 0.0;
    double m_vertAdjustSlopeY = 0.0;
    std::shared_ptr<Ellipsoid> m_pEllipsoid;
    std::shared_ptr<CProjection> m_pProjection;
    std::shared_ptr<CDatumTransform> m_pDatum;
    ZorGeoUnit m_unit;
    GeoCorrections m_corrections;
    std::shared_ptr<Ellipsoid> m_pSrcEllipsoid;
    CString m_extraDtfName;
    std::shared_ptr<CDatumTransform> m_pExtraDtf;
    bool m_externalProjectFile = false;
    double m_manualSeparation = 0.0;
    int m_userIOLatLonOnSAT = 0;
};
