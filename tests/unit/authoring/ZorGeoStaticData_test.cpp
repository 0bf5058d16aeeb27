#include "authoring/ZorGeoStaticData.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <memory>

#include "tests/support/ModuleTexts.h"
#include "tests/support/TestDatabase.h"
#include "tests/unit/authoring/StaticDataProbe.h"

namespace {

using Record = ZorGeoStaticData;
using Probe = ZorGeoStaticDataProbe;

const std::array<double, 15> kDatumNumbers = {1.0, 2.0,  3.0,  4.0,  5.0,  6.0,  7.0,   8.0,
                                              9.0, 10.0, 11.0, 12.0, 13.0, 14.0, 2010.0};

void SetDatumNumbers(Record& record)
{
    const auto& n = kDatumNumbers;
    record.SetDtTransferParams(n[0], n[1], n[2], n[3], n[4], n[5], n[6], n[7], n[8], n[9], n[10], n[11], n[12], n[13],
                               n[14], true, 44.0, 3.0);
}

const CString kMethodList[] = {L"No Transformation", L"Bursa/Wolfe(7 Parameters) - Position vector rotation",
                               L"Helmert(7 Parameters) - Coordinate frame rotation",
                               L"Bursa/Wolfe(14 Parameters) - Position vector rotation",
                               L"Helmert(14 Parameters) - Coordinate frame rotation"};

// Setter and getter of one text.
struct TextRow {
    const char* name;
    void (*set)(Record&, const CString&);
    CString (*get)(Record&);
};

const TextRow kTexts[] = {
    {"system name", [](Record& r, const CString& t) { r.SetSysNameAndKey(t, L"k"); },
     [](Record& r) { return r.GetSysName(); }},
    {"group name", [](Record& r, const CString& t) { r.SetGroupNameAndKey(t, L"k"); },
     [](Record& r) { return r.GetGroupName(); }},
    {"datum name", [](Record& r, const CString& t) { r.SetDttransNameAndKey(t, L"k"); },
     [](Record& r) { return r.GetDttransName(); }},
    {"unit name", [](Record& r, const CString& t) { r.SetUnitNameAndKey(t, L"k"); },
     [](Record& r) { return r.GetUnitName(); }},
    {"projection name", [](Record& r, const CString& t) { r.SetPrjNameAndType(t, 1); },
     [](Record& r) { return r.GetPrjName(); }},
    {"datum method", [](Record& r, const CString& t) { r.SetDtTransferMdName(t, 1); },
     [](Record& r) { return r.GetDttransMdName(); }},
    {"datum file", [](Record& r, const CString& t) { r.SetDtFilePath(t); },
     [](Record& r) { return r.GetDtFilePath(); }},
    {"projection method", [](Record& r, const CString& t) { r.SetPrjMdName(t); },
     [](Record& r) { return r.GetPrjMdName(); }},
    {"system description", [](Record& r, const CString& t) { r.SetSystemDescp(t); },
     [](Record& r) { return r.GetSystemDescp(); }},
    {"datum description", [](Record& r, const CString& t) { r.SetDtfDescp(t); },
     [](Record& r) { return r.GetDtfDescp(); }},
    {"unit suffix", [](Record& r, const CString& t) { r.SetUnitDescp(t); }, [](Record& r) { return r.GetUnitDescp(); }},
    {"unit suffix with factor", [](Record& r, const CString& t) { r.SetUnitParams(0.3048, 3, t); },
     [](Record& r) { return r.GetUnitDescp(); }},
    {"geoid description", [](Record& r, const CString& t) { r.SetGeoidDescp(t); },
     [](Record& r) { return r.GetGeoidDescp(); }},
    {"source ellipsoid", [](Record& r, const CString& t) { r.SetSrcElpName(t); },
     [](Record& r) { return r.GetSrcElpName(); }},
    {"default geoid method", [](Record& r, const CString& t) { r.SetDefaultGeoidMethod(t); },
     [](Record& r) { return r.GetDefaultGeoidMethod(); }},
    {"default geoid grid", [](Record& r, const CString& t) { r.SetDefaultGeoidGrid(t); },
     [](Record& r) { return r.GetDefaultGeoidGrid(); }},
    {"geoid method", [](Record& r, const CString& t) { r.SetGeoidMethod(t); },
     [](Record& r) { return r.GetGeoidMethod(); }},
    {"geoid grid", [](Record& r, const CString& t) { r.SetGeoidGrid(t); }, [](Record& r) { return r.GetGeoidGrid(); }},
    {"chart datum", [](Record& r, const CString& t) { r.SetGeoidChartDatum(t); },
     [](Record& r) { return r.GetGeoidChartDatum(); }},
    {"default post model", [](Record& r, const CString& t) { r.SetDefaultPostModel(t); },
     [](Record& r) { return r.GetDefaultPostModel(); }},
    {"default post file", [](Record& r, const CString& t) { r.SetDefaultPostModelFile(t); },
     [](Record& r) { return r.GetDefaultPostModelFile(); }},
    {"post file", [](Record& r, const CString& t) { r.SetPostCorrtFile(t); },
     [](Record& r) { return r.GetPostCorrtFile(); }},
    {"post model", [](Record& r, const CString& t) { r.SetPostCorrtModel(t); },
     [](Record& r) { return r.GetPostCorrtModel(); }},
    {"zone", [](Record& r, const CString& t) { r.SetUTMZone(t); }, [](Record& r) { return r.GetUTMZone(); }},
    {"hemisphere", [](Record& r, const CString& t) { r.SetUTMHemiSphere(t); },
     [](Record& r) { return r.GetUTMHemiSphere(); }},
};

struct FlagRow {
    const char* name;
    void (*set)(Record&, bool);
    bool (*get)(Record&);
};

const FlagRow kFlags[] = {
    {"utm", [](Record& r, bool on) { r.SetUTMStatu(on); }, [](Record& r) { return r.GetUTMStatu(); }},
    {"geoid", [](Record& r, bool on) { r.SetUseGeoidModelStatu(on); },
     [](Record& r) { return r.GetUseGeoiModelStatu(); }},
    {"post", [](Record& r, bool on) { r.SetUsePostCorrctStatu(on); },
     [](Record& r) { return r.GetUsePostCorrctStatu(); }},
    {"horizontal adjust", [](Record& r, bool on) { r.SetUsePostHorAdjustStatu(on); },
     [](Record& r) { return r.GetUsePostHorAdjustStatu(); }},
    {"vertical adjust", [](Record& r, bool on) { r.SetUsePostVertAdjustStatu(on); },
     [](Record& r) { return r.GetUsePostVertAdjustStatu(); }},
};

std::array<double, 3> PostOf(ZorGeoStaticDataBase& record)
{
    std::array<double, 3> v{};
    record.GetPostCorrection(v[0], v[1], v[2]);
    return v;
}

std::array<double, 4> HorOf(ZorGeoStaticDataBase& record)
{
    std::array<double, 4> v{};
    record.GetPostHorAdjust(v[0], v[1], v[2], v[3]);
    return v;
}

std::array<double, 4> VertOf(ZorGeoStaticDataBase& record)
{
    std::array<double, 4> v{};
    record.GetPostVertAdjust(v[0], v[1], v[2], v[3]);
    return v;
}

CStringArray Texts(std::initializer_list<const wchar_t*> items)
{
    CStringArray out;
    for (const wchar_t* item : items) {
        out.Add(item);
    }
    return out;
}

// Parameters of a projection in parallel arrays.
struct Parameters {
    CArray<double, double> values;
    CStringArray names;
    CStringArray texts;
    CArray<UINT, UINT> kinds;
};

Parameters TwoParameters()
{
    Parameters p;
    p.values.Add(5.0);
    p.values.Add(52.0);
    p.names = Texts({L"Longitude of Origin", L"Latitude of Origin"});
    p.texts = Texts({L"5 E", L"52 N"});
    p.kinds.Add(1);
    p.kinds.Add(2);
    return p;
}

} // namespace

TEST(ZorGeoStaticData, NewRecordIsEmptyButForTheSourceEllipsoidAndTheScale)
{
    Record record;
    for (const TextRow& row : kTexts) {
        if (std::string_view(row.name) != "source ellipsoid") {
            EXPECT_TRUE(row.get(record).IsEmpty()) << row.name;
        }
    }
    EXPECT_EQ(record.GetSrcElpName(), L"WGS84");
    EXPECT_TRUE(record.GetElpName().IsEmpty());
    for (const FlagRow& row : kFlags) {
        EXPECT_FALSE(row.get(record)) << row.name;
    }
    EXPECT_EQ(record.GetPrjType(), 0);
    EXPECT_EQ(record.GetPostCorrtType(), 0);
    double factor = -1.0;
    record.GetUnitCnvValue(factor);
    EXPECT_EQ(factor, 0.0);
    EXPECT_EQ(PostOf(record), (std::array<double, 3>{}));
    EXPECT_EQ(HorOf(record), (std::array<double, 4>{0.0, 0.0, 0.0, 1.0}));
    EXPECT_EQ(VertOf(record), (std::array<double, 4>{}));
    EXPECT_EQ(Probe::Datum(record), (std::array<double, 15>{}));
    EXPECT_EQ(Probe::DatumType(record), 0);
    EXPECT_EQ(Probe::FixedHeight(record), (std::array<double, 3>{}));
    EXPECT_EQ(Probe::Ellipsoid(record), (std::array<double, 6>{}));
    EXPECT_EQ(Probe::SourceEllipsoid(record), (std::array<double, 2>{}));
    EXPECT_EQ(Probe::GeoidManual(record), 0.0);
    EXPECT_EQ(Probe::UnitType(record), 0);
    for (const CString& key : Probe::Keys(record)) {
        EXPECT_TRUE(key.IsEmpty());
    }
}

TEST(ZorGeoStaticData, NewRecordFillsTheDirectories)
{
    TestDatabase database;
    ZorGeoUtility::Get() = ZorGeoUtility();
    const Record record;
    EXPECT_TRUE(ZorGeoUtility::Get().initialised);
}

TEST(ZorGeoStaticData, TextsComeBackFromTheirOwnSetterAlone)
{
    for (const TextRow& row : kTexts) {
        Record record;
        row.set(record, L"a text");
        EXPECT_EQ(row.get(record), L"a text") << row.name;
        int filled = 0;
        for (const TextRow& other : kTexts) {
            filled += other.get(record) == L"a text" ? 1 : 0;
        }
        const bool readTwice = std::string_view(row.name).starts_with("unit suffix");
        EXPECT_EQ(filled, readTwice ? 2 : 1) << row.name;
    }
}

TEST(ZorGeoStaticData, KeysAreKeptBesideTheirNames)
{
    TestDatabase database;
    Record record;
    record.SetSysNameAndKey(L"n", L"1");
    record.SetGroupNameAndKey(L"n", L"2");
    record.SetDttransNameAndKey(L"n", L"3");
    record.SetElpNameAndKey(L"n", L"4");
    record.SetUnitNameAndKey(L"n", L"5");
    EXPECT_EQ(Probe::Keys(record), (std::array<CString, 5>{L"1", L"2", L"3", L"4", L"5"}));
    const std::unique_ptr<ZorGeoStaticDataBase> copy(record.Copy());
    EXPECT_EQ(Probe::Keys(dynamic_cast<Record&>(*copy)), Probe::Keys(record));
    EXPECT_EQ(copy->GetElpName(), L"n");
}

TEST(ZorGeoStaticData, FlagsComeBackFromTheirOwnSetterAlone)
{
    for (const FlagRow& row : kFlags) {
        Record record;
        row.set(record, true);
        for (const FlagRow& other : kFlags) {
            EXPECT_EQ(other.get(record), &other == &row) << row.name << ", " << other.name;
        }
        row.set(record, false);
        EXPECT_FALSE(row.get(record));
    }
}

TEST(ZorGeoStaticData, NumbersComeBack)
{
    Record record;
    record.SetPrjNameAndType(L"TM", 12);
    EXPECT_EQ(record.GetPrjType(), 12);
    record.SetPostCorrtType(7);
    EXPECT_EQ(record.GetPostCorrtType(), 7);
    record.SetDtTransferMdName(L"Helmert(7 Parameters)", 2);
    EXPECT_EQ(Probe::DatumType(record), 2);
    record.SetSrcElpsoidParams(6378137.0, 0.0818);
    EXPECT_EQ(Probe::SourceEllipsoid(record), (std::array<double, 2>{6378137.0, 0.0818}));
    record.SetGeoidManualInput(41.5);
    EXPECT_EQ(Probe::GeoidManual(record), 41.5);
    double factor = 0.0;
    record.SetUnitParams(0.3048, 5, L"ft");
    EXPECT_EQ(Probe::UnitType(record), 5);
    record.GetUnitCnvValue(factor);
    EXPECT_EQ(factor, 0.3048);
    record.SetUnitCnvValue(1.8288);
    record.GetUnitCnvValue(factor);
    EXPECT_EQ(factor, 1.8288);
    EXPECT_EQ(record.GetUnitDescp(), L"ft");
    record.SetPostCorrection(1.0, 2.0, 3.0);
    EXPECT_EQ(PostOf(record), (std::array<double, 3>{1.0, 2.0, 3.0}));
    record.SetPostHorAdjust(1.0, 2.0, 3.0, 4.0);
    EXPECT_EQ(HorOf(record), (std::array<double, 4>{1.0, 2.0, 3.0, 4.0}));
    record.SetPostVertAdjust(5.0, 6.0, 7.0, 8.0);
    EXPECT_EQ(VertOf(record), (std::array<double, 4>{5.0, 6.0, 7.0, 8.0}));
    EXPECT_EQ(HorOf(record), (std::array<double, 4>{1.0, 2.0, 3.0, 4.0}));
}

// Datum methods.

TEST(ZorGeoStaticData, MethodListIsThatOfTheStringTable)
{
    const ModuleTexts texts;
    Record record;
    CStringArray names = Texts({L"emptied"});
    record.GetAllDtTransMdNames(names);
    ASSERT_EQ(names.GetSize(), 5);
    for (int i = 0; i < 5; ++i) {
        EXPECT_EQ(names[i], kMethodList[i]);
    }
}

TEST(ZorGeoStaticData, MethodListWithoutStringTableIsOfEmptyTexts)
{
    Record record;
    CStringArray names;
    record.GetAllDtTransMdNames(names);
    ASSERT_EQ(names.GetSize(), 5);
    for (const CString& name : names) {
        EXPECT_TRUE(name.IsEmpty());
    }
    EXPECT_EQ(record.GetDtfMdType(L"Helmert(7 Parameters)"), -1);
}

TEST(ZorGeoStaticData, MethodNumbersByListAndByBareName)
{
    struct Case {
        CString name;
        int inList;
        int bare;
    };
    const ModuleTexts texts;
    Record record;
    for (const Case& row : {Case{L"No Transformation", 0, 0}, Case{L"Bursa/Wolfe(7 Parameters)", 1, 1},
                            Case{L"Helmert(7 Parameters)", 2, 2}, Case{L"Bursa/Wolfe(14 Parameters)", 3, 3},
                            Case{L"Helmert(14 Parameters)", 4, 4}, Case{kMethodList[1], 1, 0},
                            Case{kMethodList[2], 2, 0}, Case{kMethodList[3], 3, 0}, Case{kMethodList[4], 4, 0},
                            Case{L"", 0, 0}, Case{L"helmert(7 parameters)", -1, 0}, Case{L"Molodensky", -1, 0},
                            Case{L"Parameters", 1, 0}, Case{L"Helmert", 2, 0}, Case{L"Coordinate frame", 2, 0}}) {
        EXPECT_EQ(record.GetDtfMdType(row.name), row.inList) << row.name.ToUtf8();
        EXPECT_EQ(record.GetDtTransMethodByName(row.name), row.bare) << row.name.ToUtf8();
    }
}

TEST(ZorGeoStaticData, DatumParametersGoInTheirOrder)
{
    Record record;
    EXPECT_EQ(Probe::Datum(record), (std::array<double, 15>{}));
    EXPECT_EQ(Probe::FixedHeight(record), (std::array<double, 3>{}));
    SetDatumNumbers(record);
    EXPECT_EQ(Probe::Datum(record), kDatumNumbers);
    EXPECT_EQ(Probe::FixedHeight(record), (std::array<double, 3>{1.0, 44.0, 3.0}));
}

// The name changes and the parameters go; the number of the method stays.
TEST(ZorGeoStaticData, NoDatumIsAnIdentityOfTheSevenParameterMethod)
{
    const ModuleTexts texts;
    Record record;
    record.SetDtTransferMdName(L"Helmert(14 Parameters)", 4);
    SetDatumNumbers(record);
    record.SetNoDtf(L"Nothing to do");
    EXPECT_EQ(record.GetDttransMdName(), kMethodList[1]);
    EXPECT_EQ(record.GetDttransName(), L"Nothing to do");
    EXPECT_EQ(Probe::Datum(record), (std::array<double, 15>{}));
    EXPECT_EQ(Probe::FixedHeight(record), (std::array<double, 3>{}));
    EXPECT_EQ(Probe::DatumType(record), 4);
}

TEST(ZorGeoStaticData, NoDatumWithoutStringTableHasAnEmptyMethod)
{
    Record record;
    record.SetDtTransferMdName(L"Helmert(14 Parameters)", 4);
    record.SetNoDtf(L"Nothing to do");
    EXPECT_TRUE(record.GetDttransMdName().IsEmpty());
}

TEST(ZorGeoStaticData, UtmIsTypeOne)
{
    Record record;
    EXPECT_TRUE(record.BeUTMPrj(1));
    for (const int type : {-1, 0, 2, 15, 257}) {
        EXPECT_FALSE(record.BeUTMPrj(type)) << type;
    }
}

// Projection parameters.

TEST(ZorGeoStaticData, ParametersAreReplacedAndReturnedWithoutTexts)
{
    Record record;
    Parameters in = TwoParameters();
    record.SetPrjParams(in.values, in.names, in.texts, in.kinds);
    record.SetPrjParams(in.values, in.names, in.texts, in.kinds);
    Parameters out;
    out.values.Add(99.0);
    out.names.Add(L"emptied");
    out.kinds.Add(9);
    EXPECT_TRUE(record.GetPrjParams(out.values, out.names, out.kinds));
    ASSERT_EQ(out.values.GetSize(), 2);
    EXPECT_EQ(out.values[1], 52.0);
    ASSERT_EQ(out.names.GetSize(), 2);
    EXPECT_EQ(out.names[0], L"Longitude of Origin");
    ASSERT_EQ(out.kinds.GetSize(), 2);
    EXPECT_EQ(out.kinds[1], 2u);
}

TEST(ZorGeoStaticData, RecordWithoutParametersLeavesTheOutputs)
{
    Record record;
    Parameters out = TwoParameters();
    EXPECT_FALSE(record.GetPrjParams(out.values, out.names, out.kinds));
    EXPECT_EQ(out.values.GetSize(), 2);
    EXPECT_EQ(out.names.GetSize(), 2);
    EXPECT_EQ(out.kinds.GetSize(), 2);
    // Names decide: values without names are none.
    Parameters nameless = TwoParameters();
    nameless.names.RemoveAll();
    record.SetPrjParams(nameless.values, nameless.names, nameless.texts, nameless.kinds);
    EXPECT_FALSE(record.GetPrjParams(out.values, out.names, out.kinds));
}

// Geoid.

TEST(ZorGeoStaticData, GeoidParametersGoToDefaultAndWorkingFields)
{
    Record record;
    record.SetGeoModelParams(5, L"EGM96", L"egm96.gtx");
    EXPECT_EQ(record.GetGeoidMethod(), L"EGM96");
    EXPECT_EQ(record.GetDefaultGeoidMethod(), L"EGM96");
    EXPECT_EQ(record.GetGeoidGrid(), L"egm96.gtx");
    EXPECT_EQ(record.GetDefaultGeoidGrid(), L"egm96.gtx");
    EXPECT_TRUE(record.GetUseGeoiModelStatu());
    record.SetGeoModelParams(5, L"", L"");
    EXPECT_TRUE(record.GetGeoidMethod().IsEmpty());
    EXPECT_TRUE(record.GetDefaultGeoidMethod().IsEmpty());
    EXPECT_TRUE(record.GetGeoidGrid().IsEmpty());
    EXPECT_TRUE(record.GetDefaultGeoidGrid().IsEmpty());
    EXPECT_FALSE(record.GetUseGeoiModelStatu());
}

// Ellipsoid.

TEST(ZorGeoStaticData, EllipsoidNameFillsTheParametersFromTheDatabase)
{
    TestDatabase database;
    AddEllipsoid(database.user, kTestBessel);
    database.Save();
    Record record;
    record.SetElpsoidParams(1.0, 2.0, 3.0, 4.0, 5.0, 6.0);
    EXPECT_EQ(Probe::Ellipsoid(record), (std::array<double, 6>{1.0, 2.0, 3.0, 4.0, 5.0, 6.0}));
    record.SetElpNameAndKey(L"Bessel 1841", L"key");
    EXPECT_EQ(record.GetElpName(), L"Bessel 1841");
    const std::array<double, 6> bessel = Probe::Ellipsoid(record);
    EXPECT_EQ(bessel[0], 6377397.155);
    EXPECT_NEAR(bessel[1], 6356078.963, 1e-3);
    EXPECT_NEAR(bessel[2], 0.0816968312, 1e-9);
    EXPECT_EQ(bessel[3], 4.0) << "the squared eccentricity is left alone";
    EXPECT_NEAR(bessel[4], 1.0 / 299.1528128, 1e-10);
    EXPECT_NEAR(bessel[5], 299.1528128, 1e-4);
}

TEST(ZorGeoStaticData, UnknownEllipsoidAndMissingDatabaseLeaveTheParameters)
{
    TestDatabase database;
    database.Save();
    Record record;
    record.SetElpsoidParams(1.0, 2.0, 3.0, 4.0, 5.0, 6.0);
    record.SetElpNameAndKey(L"no such ellipsoid", L"key");
    EXPECT_EQ(record.GetElpName(), L"no such ellipsoid");
    EXPECT_EQ(Probe::Ellipsoid(record), (std::array<double, 6>{1.0, 2.0, 3.0, 4.0, 5.0, 6.0}));
    std::filesystem::remove(database.MainFile().ToUtf8());
    record.SetElpNameAndKey(L"Bessel 1841", L"key");
    EXPECT_EQ(record.GetElpName(), L"Bessel 1841");
    EXPECT_EQ(Probe::Ellipsoid(record), (std::array<double, 6>{1.0, 2.0, 3.0, 4.0, 5.0, 6.0}));
}

// The catalogue.

TEST(ZorGeoStaticData, CatalogueAnswersThroughTheRecord)
{
    TestDatabase database;
    Record record;
    CStringArray names;
    record.GetAllPrjMdNames(names);
    EXPECT_GT(names.GetSize(), 10);
    EXPECT_EQ(names[0], L"Transverse Mercator");
    EXPECT_EQ(record.GetPrjType(L"TRANSVERSE mercator"), 0);
    EXPECT_EQ(record.GetPrjType(L"Azimuthal"), 5) << "hidden in lists, known by name";
    EXPECT_EQ(record.GetPrjType(L"no such method"), -1);
    EXPECT_EQ(Probe::FindStaticDataSize(record, 0), 6);
    EXPECT_TRUE(record.CanPrjUnitChange(0));
    EXPECT_FALSE(record.CanPrjUnitChange(1));
    CArray<UINT, UINT> kinds;
    CStringArray keys = Texts({L"kept in front"});
    record.GetSelPrjMdResults(0, names, kinds, keys);
    ASSERT_EQ(names.GetSize(), 6);
    EXPECT_EQ(names[0], L"Longitude of Origin");
    EXPECT_EQ(kinds[0], 1u);
    ASSERT_EQ(keys.GetSize(), 7);
    EXPECT_EQ(keys[1], L"LonOrigin");
    UINT kind = 0;
    EXPECT_EQ(Probe::FindStaticData(record, ProjectionKey::latOrigin, kind), L"Latitude of Origin");
    EXPECT_EQ(kind, 2u);
}

TEST(ZorGeoStaticData, WithoutCatalogueTheAnswersAreNeutral)
{
    TestDatabase database;
    std::filesystem::remove(database.Directory().Path() / "main" / "ZorProjectionStatic.dat");
    Record record;
    CStringArray names = Texts({L"emptied"});
    record.GetAllPrjMdNames(names);
    EXPECT_TRUE(names.IsEmpty());
    EXPECT_EQ(record.GetPrjType(L"Transverse Mercator"), -1);
    EXPECT_EQ(Probe::FindStaticDataSize(record, 0), 0);
    EXPECT_FALSE(record.CanPrjUnitChange(0));
    UINT kind = 7;
    EXPECT_TRUE(Probe::FindStaticData(record, 3, kind).IsEmpty());
}

// Copy.

TEST(ZorGeoStaticData, CopyTakesTextsOver)
{
    for (const TextRow& row : kTexts) {
        Record record;
        row.set(record, L"a text");
        const std::unique_ptr<ZorGeoStaticDataBase> copy(record.Copy());
        const bool left =
            std::string_view(row.name) == "default post model" || std::string_view(row.name) == "default post file";
        EXPECT_EQ(row.get(dynamic_cast<Record&>(*copy)), left ? L"" : L"a text") << row.name;
    }
}

TEST(ZorGeoStaticData, CopyTakesFlagsNumbersAndParametersOver)
{
    for (const FlagRow& row : kFlags) {
        Record record;
        row.set(record, true);
        const std::unique_ptr<ZorGeoStaticDataBase> copy(record.Copy());
        EXPECT_TRUE(row.get(dynamic_cast<Record&>(*copy))) << row.name;
    }
    Record record;
    record.SetPrjNameAndType(L"TM", 12);
    record.SetUnitParams(0.3048, 5, L"ft");
    record.SetPostCorrtType(7);
    record.SetPostCorrection(1.0, 2.0, 3.0);
    record.SetPostHorAdjust(1.0, 2.0, 3.0, 4.0);
    record.SetPostVertAdjust(5.0, 6.0, 7.0, 8.0);
    Parameters in = TwoParameters();
    record.SetPrjParams(in.values, in.names, in.texts, in.kinds);
    const std::unique_ptr<ZorGeoStaticDataBase> copy(record.Copy());
    EXPECT_EQ(copy->GetPrjType(), 12);
    EXPECT_EQ(copy->GetPostCorrtType(), 7);
    double factor = 0.0;
    copy->GetUnitCnvValue(factor);
    EXPECT_EQ(factor, 0.3048);
    EXPECT_EQ(PostOf(*copy), (std::array<double, 3>{1.0, 2.0, 3.0}));
    EXPECT_EQ(HorOf(*copy), (std::array<double, 4>{1.0, 2.0, 3.0, 4.0}));
    EXPECT_EQ(VertOf(*copy), (std::array<double, 4>{5.0, 6.0, 7.0, 8.0}));
    Parameters out;
    EXPECT_TRUE(copy->GetPrjParams(out.values, out.names, out.kinds));
    EXPECT_EQ(out.values.GetSize(), 2);
    EXPECT_EQ(out.names[1], L"Latitude of Origin");
    EXPECT_EQ(Probe::ParameterTexts(dynamic_cast<Record&>(*copy))[1], L"52 N");
}

TEST(ZorGeoStaticData, CopyTakesDatumAndEllipsoidNumbersOver)
{
    Record record;
    record.SetDtTransferMdName(L"Helmert(14 Parameters)", 4);
    SetDatumNumbers(record);
    record.SetElpsoidParams(1.0, 2.0, 3.0, 4.0, 5.0, 6.0);
    record.SetUnitParams(0.3048, 5, L"ft");
    const std::unique_ptr<ZorGeoStaticDataBase> made(record.Copy());
    const Record& copy = dynamic_cast<Record&>(*made);
    EXPECT_EQ(Probe::DatumType(copy), 4);
    EXPECT_EQ(Probe::Datum(copy), kDatumNumbers);
    EXPECT_EQ(Probe::Ellipsoid(copy), Probe::Ellipsoid(record));
    EXPECT_EQ(Probe::UnitType(copy), 5);
}

TEST(ZorGeoStaticData, CopyLeavesFixedHeightsManualGeoidAndSourceNumbersOut)
{
    Record record;
    SetDatumNumbers(record);
    record.SetGeoidManualInput(41.5);
    record.SetSrcElpsoidParams(6378137.0, 0.0818);
    const std::unique_ptr<ZorGeoStaticDataBase> made(record.Copy());
    const Record& copy = dynamic_cast<Record&>(*made);
    EXPECT_EQ(Probe::FixedHeight(copy), (std::array<double, 3>{}));
    EXPECT_EQ(Probe::GeoidManual(copy), 0.0);
    EXPECT_EQ(Probe::SourceEllipsoid(copy), (std::array<double, 2>{}));
}

TEST(ZorGeoStaticData, CopyHasItsOwnMethodList)
{
    Record record; // before the texts were reachable
    const ModuleTexts texts;
    const std::unique_ptr<ZorGeoStaticDataBase> copy(record.Copy());
    CStringArray names;
    copy->GetAllDtTransMdNames(names);
    EXPECT_EQ(names[4], kMethodList[4]);
    EXPECT_EQ(names.GetSize(), 5);
}

TEST(ZorGeoStaticData, CopyStandsAlone)
{
    const TestDatabase database;
    auto record = std::make_unique<Record>();
    record->SetSysNameAndKey(L"first", L"");
    const std::unique_ptr<ZorGeoStaticDataBase> copy(record->Copy());
    record->SetSysNameAndKey(L"second", L"");
    EXPECT_EQ(record->GetPrjType(L"Transverse Mercator"), 0);
    record.reset();
    EXPECT_EQ(copy->GetSysName(), L"first");
    EXPECT_EQ(copy->GetPrjType(L"Mercator"), 4) << "with a catalogue of its own";
}
