#include <cmath>
#include <functional>

#include "tests/unit/authoring/StaticDataProbe.h"
#include "tests/unit/coordsys/BackupFixture.h"

namespace {

using Record = ZorGeoStaticData;
using RecordProbe = ZorGeoStaticDataProbe;

const CString kBackup = COORDSYSTEM_BACKUP_SECTION;

const CString& DatumKey(int index)
{
    return transParamKeys.at(static_cast<std::size_t>(index));
}

// A project's backup, written key by key as older programs wrote it.
class WrittenBackup : public TestDatabase {
public:
    WrittenBackup()
    {
        AddEllipsoid(main, kTestBessel);
        Save();
        Set(kBackup, L"CoordSystem", CString(L"Old Harbour"));
        Set(kBackup, L"CoordSystem group", CString(L"Harbours"));
        Set(kBackup, L"Datumtransform name", CString(L"Old Datum"));
        Set(kBackup, L"Projection name", CString(L"Old TM"));
        Set(kBackup, L"Projection type", 0);
        Set(kBackup, L"Projection medthod", CString(L"Transverse Mercator"));
        Set(kBackup, L"Unit name", CString(L"Fathoms"));
        Set(kBackup, L"Ellipsoid name", CString(L"Bessel 1841"));
        Set(L"ELLIPSOID_BACKUP", L"SemiMajor", 6378206.4);
        Set(L"ELLIPSOID_BACKUP", L"EccSqrd", 0.0064);
        SetDatum(L"Method name", kMethodBursaWolfe14);
        SetDatum(DatumKey(2), CString(L"WGS84"));
        SetDatum(L"SrcSma", 6378137.0);
        SetDatum(L"SrcSe", 0.0064);
        for (int key = 4; key <= 10; ++key) {
            SetDatum(DatumKey(key), key + 0.5);
        }
        for (int key = 12; key <= 19; ++key) {
            SetDatum(DatumKey(key), key + 0.5);
        }
        SetDatum(DatumKey(20), true);
        SetDatum(DatumKey(21), 44.0);
        SetDatum(DatumKey(22), 3.0);
        for (int key : {4, 3, 5, 6, 7, 16}) {
            Set(L"GEODESY_PROJECTION_BACKUP", projectionParamKeys.at(static_cast<std::size_t>(key)), key * 10.0);
        }
        Set(kBackup, L"Geoid model use statu", true);
        Set(kBackup, L"Geoid model method", CString(L"Manual"));
        Set(kBackup, L"Geoid model grid", CString(L"geoid.gtx"));
        Set(kBackup, L"Manual input value", 41.25);
        Set(kBackup, L"Post coorection statu", true);
        Set(kBackup, L"Post X coorection", 1.0);
        Set(kBackup, L"Post Y coorection", 2.0);
        Set(kBackup, L"Post Z coorection", 3.0);
        Set(kBackup, L"Post coorection file", CString(L"post.txt"));
        Set(kBackup, L"Post coorection model", CString(L"OSTN"));
        Set(kBackup, L"Post horizontal adjust statu", true);
        Set(kBackup, L"Post horizonal origin X", 11.0);
        Set(kBackup, L"Post horizonal origin Y", 12.0);
        Set(kBackup, L"Post horizonal rotation", 13.0);
        Set(kBackup, L"Post horizonal scale", 1.5);
        Set(kBackup, L"Post vertical adjust statu", true);
        Set(kBackup, L"Post vertical origin X", 21.0);
        Set(kBackup, L"Post vertical origin Y", 22.0);
        Set(kBackup, L"Post vertical slope X", 23.0);
        Set(kBackup, L"Post vertical slope Y", 24.0);
    }

    template <typename Value>
    void Set(const CString& section, const CString& key, const Value& value)
    {
        project.SetItem(section, key, value, true);
    }
    template <typename Value>
    void SetDatum(const CString& key, const Value& value)
    {
        Set(L"GEODESY_DTF_BACKUP", key, value);
    }
    void Delete(const CString& section, const CString& key) { EXPECT_TRUE(project.DeleteItem(section, key, false)); }

    // The record that a new object makes of it.
    void Read(Record& record)
    {
        ZORGeoCoordSys system;
        ZORGeoCoordSysProbe::SetProject(system, project);
        EXPECT_TRUE(ZORGeoCoordSysProbe::CreateRecord(system, record));
    }

    ModuleTexts texts;
};

struct Parameters {
    explicit Parameters(Record& record) { listed = record.GetPrjParams(values, names, kinds); }
    std::vector<double> Values() const
    {
        std::vector<double> all;
        for (int i = 0; i < values.GetSize(); ++i) {
            all.push_back(values[i]);
        }
        return all;
    }
    CArray<double, double> values;
    CStringArray names;
    CArray<UINT, UINT> kinds;
    bool listed = false;
};

std::array<double, 4> HorAdjust(Record& record)
{
    std::array<double, 4> v{};
    record.GetPostHorAdjust(v[0], v[1], v[2], v[3]);
    return v;
}

std::array<double, 4> VertAdjust(Record& record)
{
    std::array<double, 4> v{};
    record.GetPostVertAdjust(v[0], v[1], v[2], v[3]);
    return v;
}

std::array<double, 3> PostShifts(Record& record)
{
    std::array<double, 3> v{};
    record.GetPostCorrection(v[0], v[1], v[2]);
    return v;
}

constexpr std::array<double, 15> kNoDatum{};

} // namespace

TEST(ZORGeoCoordSysBackupRecord, NeedsAProjectWithABackup)
{
    TestDatabase database;
    Record record;
    record.SetSysNameAndKey(L"as it was", L"key");
    record.SetPostHorAdjust(1.0, 2.0, 3.0, 4.0);
    ZORGeoCoordSys system;
    EXPECT_FALSE(ZORGeoCoordSysProbe::CreateRecord(system, record));
    database.project.SetItem(COORDSYSTEM_SECTION, L"Group name", L"Harbours", true);
    database.project.SetItem(kDatumBackup, kDatumMethod, kMethodHelmert7, true);
    ZORGeoCoordSysProbe::SetProject(system, database.project);
    EXPECT_FALSE(ZORGeoCoordSysProbe::CreateRecord(system, record));
    EXPECT_EQ(record.GetSysName(), L"as it was");
    EXPECT_EQ(HorAdjust(record), (std::array<double, 4>{1.0, 2.0, 3.0, 4.0}));
    database.project.CreateSection(kBackup, true);
    EXPECT_TRUE(ZORGeoCoordSysProbe::CreateRecord(system, record));
}

TEST(ZORGeoCoordSysBackupRecord, ReadsEveryKey)
{
    WrittenBackup backup;
    Record record;
    record.SetSysNameAndKey(L"", L"key");
    record.SetGroupNameAndKey(L"", L"key");
    record.SetDttransNameAndKey(L"", L"key");
    record.SetElpNameAndKey(L"", L"key");
    record.SetUnitNameAndKey(L"", L"key");
    backup.Read(record);
    EXPECT_EQ(record.GetSysName(), L"Old Harbour");
    EXPECT_EQ(record.GetGroupName(), L"Harbours");
    EXPECT_EQ(record.GetElpName(), L"Bessel 1841");
    EXPECT_EQ(RecordProbe::Keys(record), (std::array<CString, 5>{}));
    EXPECT_EQ(RecordProbe::SourceEllipsoid(record), (std::array<double, 2>{6378137.0, 0.08}));
    EXPECT_EQ(record.GetSrcElpName(), L"WGS84");
    EXPECT_EQ(record.GetDttransName(), L"Old Datum");
    EXPECT_EQ(record.GetDttransMdName(), kMethodBursaWolfe14);
    EXPECT_EQ(RecordProbe::DatumType(record), 3);
    EXPECT_EQ(RecordProbe::Datum(record), (std::array<double, 15>{4.5, 5.5, 6.5, 7.5, 8.5, 9.5, 10.5, 12.5, 13.5, 14.5,
                                                                  15.5, 16.5, 17.5, 18.5, 19.5}));
    EXPECT_EQ(RecordProbe::FixedHeight(record), (std::array<double, 3>{1.0, 44.0, 3.0}));
    EXPECT_EQ(record.GetPrjMdName(), L"Transverse Mercator");
    EXPECT_EQ(record.GetPrjName(), L"Old TM");
    EXPECT_EQ(record.GetPrjType(), 0);
    EXPECT_FALSE(record.GetUTMStatu());
    EXPECT_EQ(record.GetUnitName(), L"Fathoms");
    EXPECT_TRUE(record.GetUseGeoiModelStatu());
    EXPECT_EQ(record.GetGeoidMethod(), L"Manual");
    EXPECT_EQ(record.GetGeoidGrid(), L"geoid.gtx");
    EXPECT_EQ(RecordProbe::GeoidManual(record), 41.25);
    EXPECT_TRUE(record.GetUsePostCorrctStatu());
    EXPECT_EQ(PostShifts(record), (std::array<double, 3>{1.0, 2.0, 3.0}));
    EXPECT_EQ(record.GetPostCorrtFile(), L"post.txt");
    EXPECT_EQ(record.GetPostCorrtModel(), L"OSTN");
    EXPECT_TRUE(record.GetUsePostHorAdjustStatu());
    EXPECT_EQ(HorAdjust(record), (std::array<double, 4>{11.0, 12.0, 13.0, 1.5}));
    EXPECT_TRUE(record.GetUsePostVertAdjustStatu());
}

TEST(ZORGeoCoordSysBackupRecord, ListsTheParametersInTheCataloguesOrder)
{
    WrittenBackup backup;
    Record record;
    backup.Read(record);
    const Parameters parameters(record);
    EXPECT_TRUE(parameters.listed);
    EXPECT_EQ(parameters.Values(), (std::vector<double>{40.0, 30.0, 50.0, 60.0, 70.0, 160.0}));
    ASSERT_EQ(parameters.names.GetSize(), 6);
    EXPECT_EQ(parameters.names[0], L"Longitude of Origin");
    EXPECT_EQ(parameters.names[5], L"Grid Skew");
    ASSERT_EQ(parameters.kinds.GetSize(), 6);
    EXPECT_EQ(parameters.kinds[0], 1u);
    EXPECT_EQ(parameters.kinds[1], 2u);
    EXPECT_TRUE(RecordProbe::ParameterTexts(record).IsEmpty());
}

TEST(ZORGeoCoordSysBackupRecord, ValuesBehindAMissingParameterMoveUp)
{
    WrittenBackup backup;
    backup.Delete(kProjectionBackup, projectionParamKeys[ProjectionKey::falseEasting]);
    backup.Set(kProjectionBackup, projectionParamKeys[ProjectionKey::scaleFactor], CString(L"no number"));
    Record record;
    backup.Read(record);
    const Parameters parameters(record);
    EXPECT_EQ(parameters.Values(), (std::vector<double>{40.0, 30.0, 60.0, 160.0}));
    EXPECT_EQ(parameters.names.GetSize(), 6);
    EXPECT_EQ(parameters.kinds.GetSize(), 6);
}

TEST(ZORGeoCoordSysBackupRecord, MissingKeysGiveTheirStartValues)
{
    TestDatabase database;
    database.project.CreateSection(kBackup, true);
    ZORGeoCoordSys system;
    ZORGeoCoordSysProbe::SetProject(system, database.project);
    Record record;
    EXPECT_TRUE(ZORGeoCoordSysProbe::CreateRecord(system, record));
    EXPECT_EQ(record.GetSysName(), L"");
    EXPECT_EQ(record.GetSrcElpName(), L"") << "not the default of a new record";
    EXPECT_EQ(record.GetDttransMdName(), kMethodBursaWolfe7);
    EXPECT_EQ(RecordProbe::DatumType(record), 1);
    EXPECT_EQ(RecordProbe::Datum(record), kNoDatum);
    EXPECT_EQ(RecordProbe::FixedHeight(record), (std::array<double, 3>{}));
    EXPECT_EQ(record.GetPrjType(), 0);
    EXPECT_TRUE(Parameters(record).Values().empty());
    EXPECT_FALSE(record.GetUseGeoiModelStatu());
    EXPECT_FALSE(record.GetUsePostCorrctStatu());
    EXPECT_EQ(HorAdjust(record), (std::array<double, 4>{0.0, 0.0, 0.0, 1.0}));
    EXPECT_EQ(VertAdjust(record), (std::array<double, 4>{}));
}

TEST(ZORGeoCoordSysBackupRecord, ProjectWithoutADatumSection)
{
    WrittenBackup backup;
    backup.project.DeleteSection(kDatumBackup);
    Record record;
    backup.Read(record);
    EXPECT_EQ(record.GetDttransMdName(), kMethodBursaWolfe7);
    EXPECT_EQ(RecordProbe::Datum(record), kNoDatum);
    EXPECT_EQ(record.GetSrcElpName(), L"");
    EXPECT_EQ(record.GetDttransName(), L"Old Datum");
}

TEST(ZORGeoCoordSysBackupRecord, SectionsOfTheOlderGenerationAreNotRead)
{
    WrittenBackup backup;
    backup.project.DeleteSection(kDatumBackup);
    backup.project.DeleteSection(kProjectionBackup);
    backup.Set(L"DTF_BACKUP", DatumKey(4), 1.0);
    backup.Set(L"PROJECTION_BACKUP", projectionParamKeys[ProjectionKey::lonOrigin], 1.0);
    Record record;
    backup.Read(record);
    EXPECT_EQ(RecordProbe::Datum(record), kNoDatum);
    EXPECT_TRUE(Parameters(record).Values().empty());
}

TEST(ZORGeoCoordSysBackupRecord, DatumMethodSaysWhichParametersAreRead)
{
    struct Case {
        CString method;
        int number;
        bool seven;
        bool rates;
    };
    for (const Case& row : {Case{kMethodNone, 0, false, false}, Case{kMethodBursaWolfe7, 1, true, false},
                            Case{kMethodHelmert7, 2, true, false}, Case{kMethodBursaWolfe14, 3, true, true},
                            Case{kMethodHelmert14, 4, true, true}, Case{L"Molodensky", 0, true, false},
                            Case{L"helmert(7 parameters)", 0, true, false}, Case{L"", 0, true, false}}) {
        WrittenBackup backup;
        backup.SetDatum(kDatumMethod, row.method);
        Record record;
        backup.Read(record);
        EXPECT_EQ(record.GetDttransMdName(), row.method);
        EXPECT_EQ(RecordProbe::DatumType(record), row.number) << row.method.ToUtf8();
        const auto datum = RecordProbe::Datum(record);
        EXPECT_EQ(datum[0], row.seven ? 4.5 : 0.0) << row.method.ToUtf8();
        EXPECT_EQ(datum[6], row.seven ? 10.5 : 0.0) << row.method.ToUtf8();
        EXPECT_EQ(datum[7], row.rates ? 12.5 : 0.0) << row.method.ToUtf8();
        EXPECT_EQ(datum[14], row.rates ? 19.5 : 0.0) << row.method.ToUtf8();
        EXPECT_EQ(RecordProbe::FixedHeight(record), (std::array<double, 3>{1.0, 44.0, 3.0})) << row.method.ToUtf8();
    }
}

TEST(ZORGeoCoordSysBackupRecord, EllipsoidOfTheBackupTakesThePlaceOfTheDatabases)
{
    WrittenBackup backup;
    Record record;
    backup.Read(record);
    const auto e = RecordProbe::Ellipsoid(record);
    // By hand: e2 = 0.0064, e = 0.08; b = a sqrt(0.9936); 1/f = 1 / (1 - sqrt(0.9936)).
    EXPECT_EQ(e[0], 6378206.4);
    EXPECT_NEAR(e[1], 6378206.4 * 0.99679486355016898, 1e-8);
    EXPECT_EQ(e[2], 0.08);
    EXPECT_EQ(e[3], 0.0) << "the squared eccentricity is left out";
    EXPECT_NEAR(e[4], 0.0032051364498310177, 1e-16);
    EXPECT_NEAR(e[5], 311.99919742971, 1e-9);
}

TEST(ZORGeoCoordSysBackupRecord, SphereHasAnInfiniteInverseFlattening)
{
    WrittenBackup backup;
    backup.Set(kEllipsoidBackup, kEccSquared, 0.0);
    Record record;
    backup.Read(record);
    const auto e = RecordProbe::Ellipsoid(record);
    EXPECT_EQ(e[1], 6378206.4);
    EXPECT_EQ(e[4], 0.0);
    EXPECT_TRUE(std::isinf(e[5]));
}

TEST(ZORGeoCoordSysBackupRecord, NegativeSquaresGiveNoNumberAndNoFailure)
{
    WrittenBackup backup;
    backup.Set(kEllipsoidBackup, kEccSquared, -0.01);
    backup.SetDatum(kDatumSourceEcc, -0.01);
    Record record;
    backup.Read(record);
    EXPECT_TRUE(std::isnan(RecordProbe::Ellipsoid(record)[2]));
    EXPECT_TRUE(std::isnan(RecordProbe::SourceEllipsoid(record)[1]));
}

TEST(ZORGeoCoordSysBackupRecord, UniversalTransverseMercatorHasZoneAndHemisphere)
{
    for (const int type : {1, 0, 15}) {
        WrittenBackup backup;
        backup.Set(kBackup, L"Projection type", type);
        backup.Set(kProjectionBackup, projectionParamKeys[11], CString(L"Zone 31     (  3 E)"));
        backup.Set(kProjectionBackup, projectionParamKeys[12], CString(L"Northern"));
        Record record;
        backup.Read(record);
        EXPECT_EQ(record.GetPrjType(), type);
        EXPECT_EQ(record.GetUTMStatu(), type == 1);
        EXPECT_EQ(record.GetUTMZone(), type == 1 ? L"Zone 31     (  3 E)" : L"");
        EXPECT_EQ(record.GetUTMHemiSphere(), type == 1 ? L"Northern" : L"");
    }
}

TEST(ZORGeoCoordSysBackupRecord, TypeUnknownToTheCatalogueHasNoParameters)
{
    WrittenBackup backup;
    backup.Set(kBackup, L"Projection type", 99);
    Record record;
    backup.Read(record);
    EXPECT_EQ(record.GetPrjType(), 99);
    EXPECT_FALSE(Parameters(record).listed);
}

TEST(ZORGeoCoordSysBackupRecord, UnitComesFromATableInTheProject)
{
    struct Case {
        const wchar_t* text; ///< null: no such table
        double factor;
        const wchar_t* suffix;
    };
    for (const Case& row : {Case{nullptr, 0.0, L""}, Case{L"1.828800,fm", 1.8288, L"fm"}, Case{L"", 0.0, L""},
                            Case{L",fm", 0.0, L"fm"}, Case{L"2.5", 2.5, L""}}) {
        WrittenBackup backup;
        backup.Set(kUnitBackup, kUnitBackupRecord, CString(L"9.0,not this")); // nor the database's
        AddUnit(backup.main, L"Fathoms", L"8.0,nor this");
        backup.Save();
        if (row.text) {
            backup.Set(L"Units section", L"Fathoms", CString(row.text));
        }
        Record record;
        backup.Read(record);
        double factor = -1.0;
        record.GetUnitCnvValue(factor);
        EXPECT_EQ(factor, row.factor);
        EXPECT_EQ(record.GetUnitDescp(), row.suffix);
        EXPECT_EQ(RecordProbe::UnitType(record), 3);
        EXPECT_EQ(record.GetUnitName(), L"Fathoms");
    }
}

TEST(ZORGeoCoordSysBackupRecord, FixedSeparationCountsForTheManualMethodAlone)
{
    WrittenBackup backup;
    backup.Set(kBackup, L"Geoid model method", CString(L"EGM96"));
    Record record;
    backup.Read(record);
    EXPECT_EQ(RecordProbe::GeoidManual(record), 0.0);
    EXPECT_EQ(record.GetGeoidMethod(), L"EGM96");
    EXPECT_EQ(record.GetGeoidGrid(), L"geoid.gtx");
    // The use of the geoid has no say in it.
    WrittenBackup unused;
    unused.Set(kBackup, L"Geoid model use statu", false);
    Record manual;
    unused.Read(manual);
    EXPECT_FALSE(manual.GetUseGeoiModelStatu());
    EXPECT_EQ(RecordProbe::GeoidManual(manual), 41.25);
}

TEST(ZORGeoCoordSysBackupRecord, CorrectionsThatAreOffLeaveTheirValuesUnread)
{
    WrittenBackup backup;
    backup.Set(kBackup, L"Post coorection statu", false);
    backup.Set(kBackup, L"Post horizontal adjust statu", false);
    Record record;
    backup.Read(record);
    EXPECT_FALSE(record.GetUsePostCorrctStatu());
    EXPECT_EQ(PostShifts(record), (std::array<double, 3>{}));
    EXPECT_EQ(record.GetPostCorrtFile(), L"post.txt");
    EXPECT_FALSE(record.GetUsePostHorAdjustStatu());
    EXPECT_EQ(HorAdjust(record), (std::array<double, 4>{0.0, 0.0, 0.0, 1.0}));
}

TEST(ZORGeoCoordSysBackupRecord, HorizontalScaleThatIsMissingIsOne)
{
    WrittenBackup backup;
    backup.Delete(kBackup, L"Post horizonal scale");
    Record record;
    backup.Read(record);
    EXPECT_EQ(HorAdjust(record), (std::array<double, 4>{11.0, 12.0, 13.0, 1.0}));
}

TEST(ZORGeoCoordSysBackupRecord, PlaneCountsByTheObjectsOwnFlagAndNotTheBackups)
{
    // A new object has no plane: zeros under the backup's flag.
    WrittenBackup backup;
    Record fresh;
    backup.Read(fresh);
    EXPECT_TRUE(fresh.GetUsePostVertAdjustStatu());
    EXPECT_EQ(VertAdjust(fresh), (std::array<double, 4>{}));
    // An object that has one reads the values, also when the backup's flag is off.
    BackupDatabase database;
    database.SetSystemItem(kSevenSystem, kVertAdjustUse, true);
    database.project.ApplyDifference(backup.project);
    database.SetBackupItem(kVertAdjustUse, false);
    ZORGeoCoordSys system;
    MakeReady(system, database, kSevenSystem);
    Record ready;
    EXPECT_TRUE(ZORGeoCoordSysProbe::CreateRecord(system, ready));
    EXPECT_FALSE(ready.GetUsePostVertAdjustStatu());
    EXPECT_EQ(VertAdjust(ready), (std::array<double, 4>{21.0, 22.0, 23.0, 24.0}));
}

TEST(ZORGeoCoordSysBackupRecord, ProjectInTheModeThatThrowsIsNoException)
{
    TestDatabase database;
    database.project.CreateSection(kBackup, true);
    database.project.ThrowExceptions(true);
    ZORGeoCoordSys system;
    ZORGeoCoordSysProbe::SetProject(system, database.project);
    Record record;
    bool made = false;
    EXPECT_NO_THROW(made = ZORGeoCoordSysProbe::CreateRecord(system, record));
    EXPECT_TRUE(made);
}
