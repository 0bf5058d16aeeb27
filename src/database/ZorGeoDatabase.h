#pragma once

#include <initializer_list>
#include <vector>

#include "frame/BaseContract.h"
#include "frame/Export.h"

/// The coordinate system database: the delivered main file and the user file.
///
/// Records are found by name: the section of a record is a prefix and its name, and records
/// refer to each other by name, across the two files. The main file is never written.
/// A delivered datum, ellipsoid, unit or system answers before a user's of the same name; for a
/// projection, for the description of a datum and for the ellipsoid names of a datum the user's
/// answers first. Each operation tells where it differs.
///
/// A miss is no error: the result is neutral (false, empty, 0) and outputs stay untouched, where
/// nothing else is said. Nothing throws, also when a file was left in FileObject's mode that does;
/// Init ends that mode. Lists keep the order of the file, main file first, and are emptied before
/// they are filled. Names are compared exactly where nothing else is said.
/// Used on one thread; nothing here locks.
/// The order of the virtual operations and of the fields, and all names, are part of the interface.
class ZORCOORDSYS_API ZorGeoDatabase : public ZorGeoDatabaseBase {
public:
    /// Takes the directories from ZorGeoUtility, filling it when it is not; opens nothing.
    ZorGeoDatabase();
    /// A copy holds both files as they stand in memory.
    ZorGeoDatabase(const ZorGeoDatabase&);
    ZorGeoDatabase& operator=(const ZorGeoDatabase&);

    ~ZorGeoDatabase() override;

    /// Closes what is open, opens both files and lists the names of their datum transformations
    /// and projections. A user file that is missing or malformed is made anew, empty;
    /// a malformed one stands beside it then under the next free name, "zorusergeobase.geo.old-1".
    /// False when the main file cannot be opened, the user file not be made, or another process
    /// keeps the user file or made it at the same time.
    /// Kept: a second Init appends to the list of datum names, while the lists of their
    /// ellipsoids start afresh.
    bool Init() override;

    /// Unit `name`, in any case of letters; `key` is its name as spelt in the file, `factor`
    /// metres per unit, `digits` always 7. `suffix` comes without blanks at its ends.
    bool GetUnitParametersByName(CString name, CString& key, CString& suffix, double& factor, short& digits) override;

    /// Lists; false with `out` untouched while a file is not open. A name in both files comes
    /// twice. A list from an index section holds the index alone: a name without its record is
    /// listed, a record without its line is not.
    /// Groups; for another `which` false with `out` emptied.
    bool GetAllGroupNames(CStringArray& out, geodb_type which) override;
    bool GetAllSystemNamesByGroupName(CStringArray& out, CString group) override;
    /// Every system record, also those that no group names.
    bool GetAllSystemNames(CStringArray& out) override;
    bool GetAllDtfNames(CStringArray& out) override;
    bool GetAllUnitNames(CStringArray& out) override;
    bool GetAllEllipsoidNames(CStringArray& out) override;
    bool GetAllProjectionNames(CStringArray& out) override;

    /// The first system of the first group that uses `projection`, in any case of letters.
    /// Asks only system records of the file in which the projection stands, the user file first.
    bool FindGroupAndSysByPrjName(CString projection, CString& group, CString& system) override;
    /// Name of the projection of a system; empty for a miss, as are the like below.
    CString GetPrjNameByGroupAndSysNames(CString group, CString system) override;
    /// Projections of a method, appended to `out`, which is not emptied. True.
    bool GetAllPrjNamesByMdName(std::vector<CString>& out, CString method) override;
    /// Datum transformations between two ellipsoids, the source in any case of letters. True.
    bool GetDtfNamesByElps(CStringArray& out, CString source, CString target) override;
    /// Datum transformations whose target, or source, is `ellipsoid`. True.
    bool GetAllDtfNamesByOneElp(CStringArray& out, CString ellipsoid, bool asTarget) override;
    CString GetDtfNameByGroupAndSysNames(CString group, CString system) override;
    CString GetUnitNameByGroupAndSysNames(CString group, CString system) override;
    CString GetPrjMdNameByGroupAndSysNames(CString group, CString system) override;

    /// Attributes of a projection; the user file answers first.
    CString GetPrjMdNameByPrjName(CString projection) override;
    CString GetPrjUnit(CString projection) override;
    /// The constants as the projection's class lists them, without an ellipsoid. False, outputs
    /// untouched, when there is no such record, no class for its type or no place in the catalogue
    /// for one of its constants; a catalogue without the method gives none, and true. A class that
    /// lists nothing without an ellipsoid leaves the outputs untouched, and the result is true.
    bool GetPrjConstantsByName(CString projection, CArray<double, double>& values, CStringArray& names,
                               CStringArray& texts, CArray<UINT, UINT>& kinds) override;
    int GetPrjTypeByPrjName(CString projection) override;
    /// True when there is such a record, also when it has no zone or hemisphere.
    bool GetPrjUTMInfo(CString projection, CString& zone, CString& hemisphere) override;

    /// A single blank.
    CString GetDatumKeyByName(CString name) override;
    /// Axes in metres, e the first eccentricity. `spare` is never written. With an axis below
    /// 6000000 m or a squared eccentricity above 1, b is 0, `invF` stays and f is 1 / `invF`.
    bool GetElpParamByElpName(CString name, double& a, double& b, double& e, double& spare, double& f,
                              double& invF) override;
    /// The same for the target ellipsoid of a datum transformation.
    bool GetElpsoidParametersByDtName(CString dtf, CString& target, double& a, double& b, double& e, double& spare,
                                      double& f, double& invF) override;
    /// Shifts in metres, rotations in arc seconds, scale in ppm, rates per year. A value that the
    /// record lacks leaves its output, but rates, epoch, fixed height and its two values are
    /// then 0.
    bool GetDtfParamByName(CString name, CString& method, double& shiftX, double& shiftY, double& shiftZ, double& rotX,
                           double& rotY, double& rotZ, double& scale, double& shiftRateX, double& shiftRateY,
                           double& shiftRateZ, double& rotRateX, double& rotRateY, double& rotRateZ, double& scaleRate,
                           double& epoch, CString& source, CString& target, bool& fixedHeight,
                           double& fixedHeightForward, double& fixedHeightReverse) override;
    /// The user file answers first.
    bool GetElpNamesByDtfName(CString name, CString& source, CString& target) override;
    /// Empty.
    CString GetDtfFilePathByDtfName(CString name) override;
    /// The user file answers first.
    CString GetDtfDescription(CString name) override;
    /// "default".
    CString GetElpKeyByName(CString name) override;
    /// "WGS84".
    CString GetDefaultSrcElpName() override;

    /// Whether a project does not name its group and system yet. One that cannot be read is not
    /// old: false.
    bool IsOldZorProject(const CString& path) override;
    /// Adds the system of a project of the older generation to the user file, in the group "User
    /// Defined Coordinate Systems", under the name of the project's directory; a system that has
    /// that name already is taken for it. The project is not changed. Then starts anew with Init,
    /// whose result it gives.
    /// False, outputs and user file untouched, when a section of the project is missing or a
    /// record is found neither in the older definition files nor in the project's backup.
    bool ConvertProj2Geobase(FileObject& project, CString& group, CString& system) override;

    /// Whether the record stands in the user file (1), the main file (2) or either (3).
    /// Kept: for any other `which` the result is true.
    bool HasGroup(CString name, unsigned which) override;
    bool HasSystem(CString name, unsigned which) override;
    bool HasDtf(CString name, unsigned which) override;
    bool HasEllpsoid(CString name, unsigned which) override;
    /// In any case of letters.
    bool HasUint(CString name, unsigned which) override;
    bool HasProjection(CString name, unsigned which) override;
    /// Whether at least two projects use the record, the current one being counted as one, or at least two systems of
    /// the user file's groups whose records stand in the file that `which` names. Reads every
    /// project file anew, and leaves out those that cannot be read.
    bool HasDtfUsedInMoreSystem(CString name, unsigned which) override;
    bool HasProjectionUsedInMoreSystem(CString name, unsigned which) override;

    /// Descriptions as text, for people to read: lines that end with CR LF, tabs before them,
    /// labels from the module's string table (a label that cannot be loaded is empty), numbers with
    /// up to 14 digits in any locale. A value that a record lacks is shown as 0 or not at all, and
    /// for a name without a record all are; empty only where that is said.
    /// Empty when neither file gives the target ellipsoid. The parameters come from the main file,
    /// where it has the record. Rotations go through the process's unit converter, which keeps what
    /// the method set there: the sign turned for Helmert methods.
    CString DumpDatumfText(CString name, bool title) override;
    /// The inverse flattening of an ellipsoid that GetElpParamByElpName refuses is 0.
    CString DumpElpText(CString name) override;
    /// A system with all its parts; empty when neither file's group lists it. What is given stands
    /// in the place of the system's own: method or model, and their files; an empty text leaves those.
    /// The chart datum is shown as given. There is no file without a method or model. Between the
    /// blocks stands a CR alone.
    CString DumpSystemText(CString group, CString system, CString geoidMethod, CString geoidGrid, CString chartDatum,
                           CString correctionModel, CString correctionFile) override;
    /// The method comes from the user file, the parameters from the main file, where that has it.
    CString DumpPrjText(CString name) override;
    /// The projection of a system; empty when neither file's group lists it.
    CString DumpPrjText(CString group, CString system, bool title) override;
    CString DumpUnitText(CString name) override;

    /// Settings of a system. The readers ask the main file first.
    CString GetDefaultGeoidModelMd(CString group, CString system) override;
    /// The methods that the group allows, from the main file alone; the system has no effect.
    CString GetSupportedGeoidModels(CString group, CString system) override;
    /// The same from the user file alone.
    CString GetCustomSupportedGeoidModels(CString group, CString system) override;
    CString GetDefaultGeoidGrid(CString group, CString system) override;
    void GetGridCorrection(CString group, CString system, double& x, double& y, double& z) override;
    void GetPostHorAdjust(CString group, CString system, double& originX, double& originY, double& rotation,
                          double& scale) override;
    void GetPostVertAdjust(CString group, CString system, double& originX, double& originY, double& slopeX,
                           double& slopeY) override;
    CString GetDefaultGridCorrectionFile(CString group, CString system) override;
    CString GetDefaultGridCorrectionModel(CString group, CString system) override;
    /// Whether the feature is switched on; false for a miss.
    bool HasGeoidModel(CString group, CString system) override;
    bool HasPostCorrection(CString group, CString system) override;
    bool HasPostHorAdjust(CString group, CString system) override;
    bool HasPostVertAdjust(CString group, CString system) override;
    /// The three setters change a system of the user file, save that file and start anew with
    /// Init, whose result they give; what a save could not write is lost then. False, nothing
    /// changed, for a system that is not in the user file.
    bool SetGeoidModel(CString group, CString system, CString method, CString grid, bool use) override;
    /// Leaves the geoid grid of an earlier setting.
    bool SetManualGeoidModel(CString group, CString system, CString method, double value, bool use) override;
    double GetGeoidManualSeparation(CString group, CString system) override;
    bool SetpostCorrections(CString group, CString system, double x, double y, double z, CString model, CString file,
                            bool use) override;

    /// Takes a system out of a group of the user file, with its record, and with its projection
    /// when no other system uses that; an empty `system` takes the group out and leaves the
    /// records of its systems. Saves the user file and starts anew with Init, whose result it
    /// gives; what a save could not write is back then.
    /// Projects are not asked: HasProjectionUsedInMoreSystem is for callers who want to know.
    /// False, nothing changed, for a group or system that is not in the user file.
    bool RemoveSystem(CString group, CString system) override;
    /// "Netherlands" and "ETRS 89 - RD (2008)", whether or not the database has them.
    void GetDefaultGroupAndSystem(CString& group, CString& system) override;
    /// Puts a unit of `factor` metres into the user file in memory, six decimals; `digits` has no
    /// effect. It is neither saved nor counted: a later Init before a save loses it.
    bool CreateNewUnit(CString name, double factor, CString suffix, short digits) override;
    /// The same as DumpSystemText without the names of system, datum transformation and projection.
    CString DumpSystemIDText(CString group, CString system, CString geoidMethod, CString geoidGrid, CString chartDatum,
                             CString correctionModel, CString correctionFile) override;
    /// The same as GetUnitNameByGroupAndSysNames.
    CString GetSystemUnit(CString group, CString system) override;
    /// Whether the user file's group lists the system, in any case of letters.
    bool IsSystemCustom(CString group, CString system) override;
    /// Does nothing. True.
    bool GetAllDatumKeys(CStringArray& out) override;

    /// Opens both files and does nothing else. A user file that was made anew stays as it was
    /// made. False as Init.
    bool InternalInit();

    FileObject& GetMainFile();
    FileObject& GetUserFile();

private:
    bool OpenFiles(bool& userFileMade);
    bool BothOpen() const;
    /// The user file (1) or the main file (2), else null.
    const FileObject* FileNamed(unsigned which) const;
    void FindAllElpNamesInDtf(const FileObject& file);
    void FindAllPrjNamesAndMethods(const FileObject& file);
    /// Makes the lists of projections as the files stood at Init, unless it has been done.
    void ListProjections();

    bool AllValues(const CString& section, CStringArray& out) const;

    /// Asks the file that `which` names, or both, the user file first.
    /// Kept: a `which` that names no file is answered with true, so that a caller who does not say
    /// which file takes no name for free.
    template <typename Test>
    bool Ask(unsigned which, Test test) const
    {
        if (const FileObject* file = FileNamed(which)) {
            return test(*file);
        }
        return which != GeoDbBoth || test(m_userFile) || test(m_mainFile);
    }
    bool HasRecord(const CString& section, unsigned which) const;
    /// The main file, else the user file, whose group lists the system; null when neither does.
    const FileObject* FileOfSystem(const CString& group, const CString& system) const;
    /// The user file, else the main file, that has the projection; null when neither does.
    const FileObject* FileOfProjection(const CString& name);
    /// The user file, else the main file, that has the section; null when neither does.
    const FileObject* UserThenMainFile(const CString& section) const;
    CString UserThenMainText(const CString& section, const CString& key) const;
    CString SystemText(const CString& group, const CString& system, const CString& key) const;
    bool SystemFlag(const CString& group, const CString& system, const CString& key) const;
    bool FindElpsoidInFiles(const CString& name, double& semiMajor, double& eccSquared) const;

    struct Setting;
    /// Writes settings of a system of the user file, in their order, and saves. As the setters.
    bool ChangeSystem(const CString& group, const CString& system, std::initializer_list<Setting> settings);
    bool SaveAndInit();

    /// Whether the record of `system` in `file` names the datum transformation, or the projection,
    /// in any case of letters.
    static bool HasDtfInSystem(const FileObject& file, const CString& system, const CString& name);
    static bool HasPrjInSystem(const FileObject& file, const CString& system, const CString& name);
    /// Whether at least two systems that the user file's groups list do so. A system in two groups
    /// counts twice.
    bool IsDtfUsedInMoreSystems(const FileObject& file, const CString& name);
    bool IsPrjUsedInMoreSystems(const FileObject& file, const CString& name);
    /// Whether the system of at least two projects on the disk does so, as this database resolves
    /// it. The current project counts as one whatever it uses.
    bool HasOneMoreZorProjectUseTheDtf(const CString& name);
    bool HasOneMoreZorProjectUseThePrj(const CString& name);

    CString MethodAndParametersText(const CString& projection);
    struct ShownCorrections;
    static CString DumpGeoidModelText(const FileObject& file, const CString& system, const ShownCorrections& shown);
    CString DescribeSystem(const CString& group, const CString& system, const ShownCorrections& shown, bool titles);

    CString m_mainPath;
    CString m_userPath;
    FileObject m_mainFile;
    FileObject m_userFile;
    std::vector<FileObject> m_filesOfPrjNames; ///< still to be listed, main file first
    std::vector<CString> m_prjNames;
    std::vector<CString> m_prjMethods;
    std::vector<CString> m_spare; ///< holds a place in the order of the fields; always empty
    std::vector<CString> m_dtfTargetElps;
    std::vector<CString> m_dtfSourceElps;
    std::vector<CString> m_dtfNames;
};
