#pragma once

#include "frame/BaseContract.h"
#include "frame/Export.h"
#include "frame/RecordNames.h"
#include "projections/ProjectionCatalogue.h"

/// One coordinate system as plain values: what an editor fills, and what a project's backup is
/// compared as. It holds what the records of a system, its datum transformation, projection,
/// ellipsoids and unit hold, and has no link to a running coordinate system.
///
/// Units: ellipsoid axes and datum shifts in metres, rotations in arc seconds, scale in parts per
/// million, rates per year, the epoch as a decimal year. Eccentricities are the eccentricity
/// itself, not its square. The setters store and report nothing.
/// One thread per record.
/// (The spelling of names and the order of virtual operations are part of the interface.)
class ZORCOORDSYS_API ZorGeoStaticData : public ZorGeoStaticDataBase {
public:
    ZorGeoStaticData();

    ~ZorGeoStaticData() override;
    /// Adds the system to the user file of the database: group, system, datum transformation,
    /// projection, both ellipsoids and unit, each as far as neither file has it. The
    /// system's settings, and a datum transformation and a projection of the user file, are written
    /// anew. Nothing else changes on disk; what the record holds changes as the private writers tell.
    /// False, with the user file untouched, when it or the database cannot be opened, the name of
    /// the group is empty, a section cannot be made for a name, or the file is read-only and stays
    /// so; false too when a file that was read-only cannot be made so again. A value that no file
    /// can hold (text with an unpaired surrogate) is left out without a word. Whether the save
    /// itself succeeded is not part of the result: see ZorGeoUtility::GuardedSave.
    /// Throws as WriteProjectionInfo, with the user file untouched.
    /// A database that the caller has open does not see the system before its next Init.
    bool SaveDataToDB() override;
    /// Index of the first entry of the method list that contains `name`, capitals included: bare
    /// name and list text alike. -1 when none does, 0 for an empty name.
    int GetDtfMdType(CString name) override;
    /// The method list: five texts as an editor shows them.
    void GetAllDtTransMdNames(CStringArray& out) override;
    /// Number of a bare method name, capitals included; 0 for anything else, list texts too.
    int GetDtTransMethodByName(CString name) override;
    /// Projection methods of the catalogue that are not hidden; empty without a catalogue.
    void GetAllPrjMdNames(CStringArray& out) override;
    short GetPrjType() override;
    /// Type number of a method of the catalogue, in any case of letters; -1 when it has none.
    int GetPrjType(CString method) override;
    /// Whether `type` is 1.
    bool BeUTMPrj(int type) override;
    /// The record beside that of the same name in `database`, a ZorGeoDatabase, whose user file
    /// answers first: 0 differs, 1 equal, 2 no record of that name. Values are compared exactly,
    /// capitals included, and NaN differs from everything; the parameters of a projection have a
    /// tolerance. What counts and what does not stands at ZorGeoStaticDataEquality.cpp.
    int CheckSystemIsEqual(ZorGeoDatabaseBase* database) override;
    /// Puts the database's description into a record of a method of seven parameters.
    int CheckDtfIsEqual(ZorGeoDatabaseBase* database) override;
    /// Throws std::invalid_argument when there are more values than names.
    int CheckProjectionIsEqual(ZorGeoDatabaseBase* database) override;
    /// Parameters of a projection type, in display order: names, kinds, keys. `keys` is appended to.
    void GetSelPrjMdResults(int type, CStringArray& names, CArray<UINT, UINT>& numbers, CStringArray& keys) override;
    void SetSysNameAndKey(CString name, CString key) override;
    void SetGroupNameAndKey(CString name, CString key) override;
    void SetDttransNameAndKey(CString name, CString key) override;
    /// Also fills the ellipsoid's parameters from the database under `name`, all but the squared
    /// eccentricity; they keep their values when the database cannot be opened or has no such
    /// ellipsoid.
    void SetElpNameAndKey(CString name, CString key) override;
    void SetUnitNameAndKey(CString name, CString key) override;
    void SetPrjNameAndType(CString name, short type) override;
    void SetDtFilePath(CString path) override;
    void SetDtTransferMdName(CString name, int type) override;
    void SetUnitParams(double cnv, short type, CString descp) override;
    void SetUnitCnvValue(double cnv) override;
    void SetDtTransferParams(double shiftX, double shiftY, double shiftZ, double rotX, double rotY, double rotZ,
                             double scale, double rateShiftX, double rateShiftY, double rateShiftZ, double rateRotX,
                             double rateRotY, double rateRotZ, double rateScale, double epoch, bool fixedHeight,
                             double fixedHeightFwd, double fixedHeightRev) override;
    /// Takes the place of all parameters that the record had.
    void SetPrjParams(CArray<double, double>& values, CStringArray& names, CStringArray& texts,
                      CArray<UINT, UINT>& kinds) override;
    void SetElpsoidParams(double semiMajor, double semiMinor, double ecc, double eccSqrd, double flat,
                          double invFlat) override;
    void SetSrcElpsoidParams(double semiMajor, double ecc) override;
    /// Method and grid, as default and in use; a geoid is in use when the method is not empty. The
    /// type is ignored.
    void SetGeoModelParams(long type, CString method, CString grid) override;
    CString GetGroupName() override;
    CString GetSysName() override;
    CString GetDttransName() override;
    CString GetPrjMdName() override;
    CString GetPrjName() override;
    CString GetDttransMdName() override;
    CString GetElpName() override;
    CString GetUnitName() override;
    CString GetDtFilePath() override;
    void GetUnitCnvValue(double& cnv) override;
    /// False, outputs untouched, while the record has no parameters.
    bool GetPrjParams(CArray<double, double>& values, CStringArray& names, CArray<UINT, UINT>& kinds) override;
    void SetSystemDescp(CString text) override;
    void SetDtfDescp(CString text) override;
    void SetUnitDescp(CString text) override;
    void SetGeoidDescp(CString text) override;
    CString GetSystemDescp() override;
    CString GetDtfDescp() override;
    CString GetUnitDescp() override;
    CString GetGeoidDescp() override;
    /// The report that a user reads before confirming a new system, lines ended by CR LF. Rotations
    /// come in the display unit of datum rotations, what else is a number as it is stored.
    /// Throws std::invalid_argument when parameters have fewer texts than names.
    CString DumpSysinfoText() override;
    void SetSrcElpName(CString name) override;
    CString GetSrcElpName() override;
    void SetPrjMdName(CString name) override;
    void SetDefaultGeoidMethod(CString method) override;
    void SetDefaultGeoidGrid(CString grid) override;
    CString GetDefaultGeoidMethod() override;
    CString GetDefaultGeoidGrid() override;
    void SetGeoidManualInput(double value) override;
    void SetGeoidMethod(CString method) override;
    void SetGeoidGrid(CString grid) override;
    void SetGeoidChartDatum(CString text) override;
    CString GetGeoidMethod() override;
    CString GetGeoidGrid() override;
    CString GetGeoidChartDatum() override;
    void SetDefaultPostModel(CString model) override;
    void SetDefaultPostModelFile(CString file) override;
    CString GetDefaultPostModel() override;
    CString GetDefaultPostModelFile() override;
    void SetPostCorrection(double x, double y, double z) override;
    void GetPostCorrection(double& x, double& y, double& z) override;
    void SetPostHorAdjust(double originX, double originY, double rotation, double scale) override;
    void GetPostHorAdjust(double& originX, double& originY, double& rotation, double& scale) override;
    void SetPostVertAdjust(double originX, double originY, double slopeX, double slopeY) override;
    void GetPostVertAdjust(double& originX, double& originY, double& slopeX, double& slopeY) override;
    void SetPostCorrtFile(CString file) override;
    CString GetPostCorrtFile() override;
    void SetPostCorrtModel(CString model) override;
    CString GetPostCorrtModel() override;
    void SetPostCorrtType(int type) override;
    int GetPostCorrtType() override;
    void SetUseGeoidModelStatu(bool use) override;
    bool GetUseGeoiModelStatu() override;
    void SetUsePostCorrctStatu(bool use) override;
    bool GetUsePostCorrctStatu() override;
    void SetUsePostHorAdjustStatu(bool use) override;
    void SetUsePostVertAdjustStatu(bool use) override;
    bool GetUsePostHorAdjustStatu() override;
    bool GetUsePostVertAdjustStatu() override;
    /// Names a datum transformation without parameters of its own: the seven parameter method, all
    /// parameters 0. The method number stays.
    void SetNoDtf(CString name) override;
    void SetUTMZone(CString zone) override;
    void SetUTMHemiSphere(CString hemisphere) override;
    CString GetUTMZone() override;
    CString GetUTMHemiSphere() override;
    void SetUTMStatu(bool utm) override;
    bool GetUTMStatu() override;
    /// Whether the catalogue lets the linear unit of a type be changed; false without an answer.
    bool CanPrjUnitChange(int type) override;
    /// A new record, owned by the caller, with most of this one; what it leaves out stands at
    /// ZorGeoStaticDataCopy.cpp.
    ZorGeoStaticDataBase* Copy() override;

private:
    struct CopiedFields;
    struct Fields;
    struct SaveRun;
    struct Comparison;
    struct Report;

    // Parts of SaveDataToDB: write the record into `file`, in memory. True.
    /// A system that is not new keeps the geoid that the database has for it, from the default
    /// fields; for a new one the fields in use become the default.
    bool WriteNewSystem(FileObject* file, bool isNew);
    /// Latitudes of 90 degrees move off the pole, in the record too. Throws std::invalid_argument
    /// when there are more values than names.
    bool WriteProjectionInfo(FileObject* file);
    bool WriteNewDtf(FileObject* file);
    /// GetDtfMdType, whatever a class built on this one makes of that.
    int GetDtfType(const CString& name) const;
    /// Display name of entry `index` of projectionParamKeys, and its kind: 1 a longitude, 2 a
    /// latitude, else a plain number. Empty without a catalogue or an entry.
    CString FindStaticData(int index, UINT& kind);
    /// Number of parameters of a projection type; 0 when the catalogue does not list it.
    int FindStaticDataSize(int type);
    /// The parameters of a datum transformation, as its method wants them compared.
    bool SameDatumParameters(const FileObject& file, const CString& section);
    /// `count` tabs, none below 1.
    static CString BuildIndentString(int count);

    /// Tests look at the values that no getter shows.
    friend struct ZorGeoStaticDataProbe;

    CString m_sysName;
    CString m_sysKey;
    CString m_groupKey;
    CString m_groupName;
    CString m_elpKey;
    CString m_elpName;
    CString m_srcElpName = kDefaultSource;
    CString m_unitKey;
    CString m_unitName;
    CString m_prjName;
    CString m_prjMdName;
    CString m_utmZone;
    CString m_utmHemisphere;
    bool m_utmStatu = false; ///< the projection is a UTM one: zone and hemisphere count
    CString m_dtName;
    CString m_dtKey;
    CString m_dtMdName; ///< as chosen: an entry of m_dtMdNames or a bare method name
    int m_dtMdType = 0; ///< 0 none, 1 and 2 seven parameters, 3 and 4 fourteen
    CString m_dtFilePath;
    CString m_dtDescp;
    CString m_geoidDescp;
    CString m_sysDescp;
    CStringArray m_dtMdNames;
    CStringArray m_spareNames; ///< holds a place in the order of the fields; always empty
    short m_prjType = 0;
    double m_shiftX = 0.0;
    double m_shiftY = 0.0;
    double m_shiftZ = 0.0;
    double m_rotX = 0.0;
    double m_rotY = 0.0;
    double m_rotZ = 0.0;
    double m_scale = 0.0;
    double m_rateShiftX = 0.0;
    double m_rateShiftY = 0.0;
    double m_rateShiftZ = 0.0;
    double m_rateRotX = 0.0;
    double m_rateRotY = 0.0;
    double m_rateRotZ = 0.0;
    double m_rateScale = 0.0;
    double m_datumEpoch = 0.0;
    bool m_useFixedHeight = false;
    double m_fixedHeightFwd = 0.0;
    double m_fixedHeightRev = 0.0;
    double m_unitCnv = 0.0; ///< metres per unit
    double m_elpSemiMajor = 0.0;
    double m_elpSemiMinor = 0.0;
    double m_elpEcc = 0.0;
    double m_elpEccSqrd = 0.0;
    double m_elpFlat = 0.0;
    double m_elpInvFlat = 0.0;
    short m_unitType = 0; ///< number of the unit's display format
    CString m_unitDescp;  ///< the unit's suffix
    ProjectionCatalogue m_catalogue;
    // The projection's parameters: four parallel arrays.
    CStringArray m_prjParaNames;
    CStringArray m_prjParaTexts;
    CArray<double, double> m_prjParaValues;
    CArray<UINT, UINT> m_prjParaKinds;
    CString m_defGeoidMethod;
    CString m_defGeoidGrid;
    CString m_geoidMethod;
    CString m_geoidGrid;
    CString m_geoidChartDatum;
    double m_geoidManual = 0.0;
    double m_postX = 0.0;
    double m_postY = 0.0;
    double m_postZ = 0.0;
    bool m_useHorAdjust = false;
    double m_horOriginX = 0.0;
    double m_horOriginY = 0.0;
    double m_horRotation = 0.0;
    double m_horScale = 1.0;
    bool m_useVertAdjust = false;
    double m_vertOriginX = 0.0;
    double m_vertOriginY = 0.0;
    double m_vertSlopeX = 0.0;
    double m_vertSlopeY = 0.0;
    CString m_defPostModel;
    CString m_defPostFile;
    CString m_postFile;
    CString m_postModel;
    int m_postType = 0;
    bool m_usePost = false;
    bool m_useGeoid = false;
    double m_srcElpSemiMajor = 0.0;
    double m_srcElpEcc = 0.0;
};
