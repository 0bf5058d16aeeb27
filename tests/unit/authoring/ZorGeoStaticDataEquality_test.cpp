#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <memory>
#include <stdexcept>
#include <string>

#include "authoring/ZorGeoStaticData.h"
#include "database/ZorGeoDatabase.h"
#include "tests/support/ModuleTexts.h"
#include "tests/unit/authoring/HarbourRecord.h"

namespace {

constexpr int kDiffers = 0;
constexpr int kEqual = 1;
constexpr int kNoRecord = 2;
constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

/// The bare name of each method, by number.
const CString kMethods[] = {L"No Transformation", L"Bursa/Wolfe(7 Parameters)", L"Helmert(7 Parameters)",
                            L"Bursa/Wolfe(14 Parameters)", L"Helmert(14 Parameters)"};

/// A record whose description is the one that a comparison of its method wants for equality, and
/// a database whose user file holds the record's system.
class Equality : public testing::Test {
public:
    Equality()
    {
        record.SetDtfDescp(L"");
        SaveAndOpen();
    }
    /// Saves the record and reads the database anew.
    void SaveAndOpen()
    {
        database.SetUserText("");
        ASSERT_TRUE(record.SaveDataToDB());
        read = std::make_unique<ZorGeoDatabase>();
        ASSERT_TRUE(read->Init());
    }
    /// The method by number, as an editor sets it that shows bare names.
    void SetMethod(int number)
    {
        record.SetDtTransferMdName(kMethods[number], number);
        record.SetDtfDescp(L"");
        SaveAndOpen();
    }
    int System() { return record.CheckSystemIsEqual(read.get()); }
    int Projection() { return record.CheckProjectionIsEqual(read.get()); }
    int Datum() { return record.CheckDtfIsEqual(read.get()); }

    /// Answer of a check while one key of the user file has another value.
    template <typename Value>
    int With(int (Equality::*check)(), const CString& section, const CString& key, const Value& value)
    {
        const FileObject before = read->GetUserFile();
        read->GetUserFile().SetItem(section, key, value, true);
        const int answer = (this->*check)();
        read->GetUserFile() = before;
        return answer;
    }
    /// The same while the user file lacks one key.
    int Without(int (Equality::*check)(), const CString& section, const CString& key)
    {
        const FileObject before = read->GetUserFile();
        EXPECT_TRUE(read->GetUserFile().DeleteItem(section, key, false)) << key.ToUtf8();
        const int answer = (this->*check)();
        read->GetUserFile() = before;
        return answer;
    }
    template <typename Value>
    int SystemWith(const CString& key, const Value& value)
    {
        return With(&Equality::System, kSystemSection, key, value);
    }
    template <typename Value>
    int ProjectionWith(const CString& key, const Value& value)
    {
        return With(&Equality::Projection, kProjectionSection, key, value);
    }
    template <typename Value>
    int DatumWith(int key, const Value& value)
    {
        return With(&Equality::Datum, kDatumSection, transParamKeys[static_cast<std::size_t>(key)], value);
    }
    int DatumWithout(int key)
    {
        return Without(&Equality::Datum, kDatumSection, transParamKeys[static_cast<std::size_t>(key)]);
    }

    const CString kSystemSection = L"Sys-Harbour Grid";
    const CString kProjectionSection = L"Prj-Harbour TM";
    const CString kDatumSection = L"Dtf-Harbour Shift";
    const ModuleTexts texts;
    HarbourDatabase database;
    HarbourRecord record;
    std::unique_ptr<ZorGeoDatabase> read;
};

TEST_F(Equality, SavedSystemEqualsItsRecord)
{
    EXPECT_EQ(System(), kEqual);
    EXPECT_EQ(Projection(), kEqual);
    EXPECT_EQ(Datum(), kEqual);
}

TEST_F(Equality, NameWithoutRecordIsTold)
{
    record.SetSysNameAndKey(L"harbour grid", L"");
    record.SetPrjNameAndType(L"harbour tm", 0);
    record.SetDttransNameAndKey(L"harbour shift", L"");
    EXPECT_EQ(System(), kNoRecord);
    EXPECT_EQ(Projection(), kNoRecord);
    EXPECT_EQ(Datum(), kNoRecord);
}

TEST_F(Equality, EmptyNameLooksForThePrefixAlone)
{
    record.SetDttransNameAndKey(L"", L"");
    EXPECT_EQ(Datum(), kNoRecord);
    EXPECT_EQ(With(&Equality::Datum, L"Dtf-", L"Method name", L"Bursa/Wolfe(7 Parameters)"), kDiffers);
}

TEST_F(Equality, WithoutADatabaseThereIsNoRecord)
{
    EXPECT_EQ(record.CheckSystemIsEqual(nullptr), kNoRecord);
    EXPECT_EQ(record.CheckProjectionIsEqual(nullptr), kNoRecord);
    EXPECT_EQ(record.CheckDtfIsEqual(nullptr), kNoRecord);
    ZorGeoDatabase closed;
    EXPECT_EQ(record.CheckSystemIsEqual(&closed), kNoRecord);
}

TEST_F(Equality, UserFileHidesTheMainFile)
{
    FileObject& user = read->GetUserFile();
    FileObject& main = read->GetMainFile();
    main = user;
    // Both equal, main differs, user differs, user lacks the record.
    EXPECT_EQ(System(), kEqual);
    main.SetItem(kSystemSection, L"Unit name", L"other", true);
    main.SetItem(kProjectionSection, L"Unit name", L"other", true);
    main.SetItem(kDatumSection, L"Method name", L"other", true);
    EXPECT_EQ(System(), kEqual);
    EXPECT_EQ(Projection(), kEqual);
    EXPECT_EQ(Datum(), kEqual);
    std::swap(user, main);
    EXPECT_EQ(System(), kDiffers);
    EXPECT_EQ(Projection(), kDiffers);
    EXPECT_EQ(Datum(), kDiffers);
    for (const CString& section : {kSystemSection, kProjectionSection, kDatumSection}) {
        ASSERT_TRUE(user.DeleteSection(section));
    }
    EXPECT_EQ(System(), kEqual) << "of the main file";
    EXPECT_EQ(Projection(), kEqual);
    EXPECT_EQ(Datum(), kEqual);
}

TEST_F(Equality, ChecksWriteNothing)
{
    const std::string before = database.UserText();
    System();
    Projection();
    Datum();
    EXPECT_EQ(database.UserText(), before);
}

// Systems.

TEST_F(Equality, NamesOfASystemCountWithTheirCapitals)
{
    EXPECT_EQ(SystemWith(L"Datumtransform name", L"harbour shift"), kDiffers);
    EXPECT_EQ(SystemWith(L"Unit name", L"METERS"), kDiffers);
    EXPECT_EQ(SystemWith(L"Ellipsoid name", L"Bessel 1841 "), kDiffers);
    EXPECT_EQ(SystemWith(L"Projection name", L""), kDiffers);
    for (const wchar_t* key : {L"Datumtransform name", L"Unit name", L"Ellipsoid name", L"Projection name"}) {
        EXPECT_EQ(Without(&Equality::System, kSystemSection, key), kDiffers);
    }
    record.SetUnitNameAndKey(L"", L"");
    EXPECT_EQ(Without(&Equality::System, kSystemSection, L"Unit name"), kEqual) << "missing counts as empty";
}

TEST_F(Equality, SomeSettingsOfASystemDoNotCount)
{
    record.SetGroupNameAndKey(L"other", L"");
    record.SetSystemDescp(L"other");
    record.SetPostCorrtType(9);
    EXPECT_EQ(System(), kEqual);
    EXPECT_EQ(SystemWith(L"Geoid model use statu", false), kEqual);
    EXPECT_EQ(SystemWith(L"Geoid model method", L"other"), kEqual);
    EXPECT_EQ(SystemWith(L"Geoid model grid", L"other"), kEqual);
    EXPECT_EQ(SystemWith(L"Manual input value", 9.0), kEqual);
    EXPECT_EQ(SystemWith(L"Chart datum", L"other"), kEqual);
    EXPECT_EQ(SystemWith(L"Post coorection file", L"other"), kEqual);
    EXPECT_EQ(SystemWith(L"Post coorection model", L"other"), kEqual);
    EXPECT_EQ(SystemWith(L"System description", L"other"), kEqual);
}

struct NumberKey {
    const wchar_t* key;
    double value; ///< the record's
};

// One step of the last binary digit is a difference, and so is NaN.
TEST_F(Equality, NumbersOfASystemAreComparedExactly)
{
    for (const NumberKey& row :
         {NumberKey{L"Post X coorection", 1.5}, NumberKey{L"Post Y coorection", 2.5},
          NumberKey{L"Post Z coorection", 3.5}, NumberKey{L"Post horizonal origin X", 100.5},
          NumberKey{L"Post horizonal origin Y", 200.5}, NumberKey{L"Post horizonal rotation", 0.75},
          NumberKey{L"Post horizonal scale", 1.0001}, NumberKey{L"Post vertical origin X", 300.5},
          NumberKey{L"Post vertical origin Y", 400.5}, NumberKey{L"Post vertical slope X", 5.5},
          NumberKey{L"Post vertical slope Y", 6.5}}) {
        const std::string what = CString(row.key).ToUtf8();
        EXPECT_EQ(SystemWith(row.key, row.value), kEqual) << what;
        EXPECT_EQ(SystemWith(row.key, std::nextafter(row.value, 1000.0)), kDiffers) << what;
        EXPECT_EQ(SystemWith(row.key, kNaN), kDiffers) << what;
        EXPECT_EQ(SystemWith(row.key, L"no number"), kDiffers) << what;
        EXPECT_EQ(Without(&Equality::System, kSystemSection, row.key), kDiffers) << what;
    }
}

TEST_F(Equality, NanInTheRecordDiffersFromNan)
{
    record.SetPostHorAdjust(kNaN, 200.5, 0.75, 1.0001);
    EXPECT_EQ(SystemWith(L"Post horizonal origin X", kNaN), kDiffers);
}

TEST_F(Equality, MissingNumbersOfASystemCountAsZeroAndTheScaleAsOne)
{
    record.SetPostCorrection(0.0, 0.0, 0.0);
    record.SetPostHorAdjust(0.0, 0.0, 0.0, 1.0);
    record.SetPostVertAdjust(0.0, 0.0, 0.0, 0.0);
    for (const wchar_t* key :
         {L"Post X coorection", L"Post Y coorection", L"Post Z coorection", L"Post horizonal origin X",
          L"Post horizonal origin Y", L"Post horizonal rotation", L"Post horizonal scale", L"Post vertical origin X",
          L"Post vertical origin Y", L"Post vertical slope X", L"Post vertical slope Y"}) {
        ASSERT_TRUE(read->GetUserFile().DeleteItem(kSystemSection, key, false));
    }
    EXPECT_EQ(System(), kEqual);
    record.SetPostHorAdjust(0.0, 0.0, 0.0, 1.0001);
    EXPECT_EQ(System(), kDiffers);
    record.SetPostHorAdjust(0.0, 0.0, 0.0, 0.0);
    EXPECT_EQ(System(), kDiffers);
}

TEST_F(Equality, RecordWithCorrectionsOffEqualsASystemWithThemOn)
{
    record.SetUsePostCorrctStatu(false);
    EXPECT_EQ(System(), kEqual);
    EXPECT_EQ(SystemWith(L"Post X coorection", 99.0), kEqual);
    EXPECT_EQ(SystemWith(L"Post coorection statu", false), kEqual);
}

TEST_F(Equality, CorrectionsOffInTheDatabaseDifferOnlyWhenNoneIsZero)
{
    FileObject& user = read->GetUserFile();
    user.SetItem(kSystemSection, L"Post coorection statu", false, true);
    EXPECT_EQ(System(), kDiffers) << "the values are the same, and none is 0";
    struct Case {
        double x, y, z;
    };
    for (const Case& c : {Case{0.0, 2.5, 3.5}, Case{1.5, 0.0, 3.5}, Case{1.5, 2.5, 0.0}, Case{0.0, 0.0, 0.0}}) {
        record.SetPostCorrection(c.x, c.y, c.z);
        EXPECT_EQ(System(), kDiffers) << "the values differ";
        const FileObject before = user;
        user.SetItem(kSystemSection, L"Post X coorection", c.x, true);
        user.SetItem(kSystemSection, L"Post Y coorection", c.y, true);
        user.SetItem(kSystemSection, L"Post Z coorection", c.z, true);
        EXPECT_EQ(System(), kEqual);
        EXPECT_EQ(Without(&Equality::System, kSystemSection, L"Post coorection statu"), kEqual) << "missing is off";
        user = before;
    }
}

TEST_F(Equality, AdjustmentsCountBySwitchAndOnlyWhileOn)
{
    EXPECT_EQ(SystemWith(L"Post horizontal adjust statu", false), kDiffers);
    EXPECT_EQ(SystemWith(L"Post vertical adjust statu", false), kDiffers);
    EXPECT_EQ(Without(&Equality::System, kSystemSection, L"Post horizontal adjust statu"), kDiffers);
    EXPECT_EQ(Without(&Equality::System, kSystemSection, L"Post vertical adjust statu"), kDiffers);
    record.SetUsePostHorAdjustStatu(false);
    EXPECT_EQ(System(), kDiffers);
    record.SetUsePostVertAdjustStatu(false);
    FileObject& user = read->GetUserFile();
    user.SetItem(kSystemSection, L"Post horizontal adjust statu", false, true);
    EXPECT_EQ(System(), kDiffers) << "the vertical one is still on";
    user.SetItem(kSystemSection, L"Post vertical adjust statu", false, true);
    EXPECT_EQ(System(), kEqual);
    EXPECT_EQ(SystemWith(L"Post horizonal scale", 5.0), kEqual);
    EXPECT_EQ(SystemWith(L"Post vertical slope X", 5.0), kEqual);
    EXPECT_EQ(Without(&Equality::System, kSystemSection, L"Post horizontal adjust statu"), kEqual) << "missing is off";
}

// Projections.

TEST_F(Equality, TypeMethodAndUnitOfAProjectionCount)
{
    EXPECT_EQ(ProjectionWith(L"Projection type", 1), kDiffers);
    EXPECT_EQ(ProjectionWith(L"Projection method", L"transverse mercator"), kDiffers);
    EXPECT_EQ(ProjectionWith(L"Unit name", L"meters"), kDiffers);
    EXPECT_EQ(Without(&Equality::Projection, kProjectionSection, L"Projection type"), kEqual) << "0 when missing";
    EXPECT_EQ(Without(&Equality::Projection, kProjectionSection, L"Projection method"), kDiffers);
    EXPECT_EQ(Without(&Equality::Projection, kProjectionSection, L"Unit name"), kDiffers);
    EXPECT_EQ(ProjectionWith(L"Projection name", L"other"), kEqual);
}

TEST_F(Equality, TypesAreComparedBySixteenBits)
{
    EXPECT_EQ(ProjectionWith(L"Projection type", 65536), kEqual);
    EXPECT_EQ(ProjectionWith(L"Projection type", 65537), kDiffers);
}

// 1e-13 of a hundred times the value: 5.25e-11 degrees of the longitude, 5e-6 of the easting.
TEST_F(Equality, ParametersOfAProjectionHaveATolerance)
{
    struct Case {
        const wchar_t* key;
        double value;
        double within;
        double beyond;
    };
    for (const Case& c :
         {Case{L"LonOrigin", 5.25, 5.2e-11, 5.4e-11}, Case{L"LatOrigin", 52.5, 5.2e-10, 5.4e-10},
          Case{L"FalseEasting", 500000.5, 4.9e-6, 5.1e-6}, Case{L"FalseNorthing", -1000.5, 0.98e-8, 1.05e-8},
          Case{L"ScaleFactor", 0.9996, 0.98e-11, 1.02e-11}, Case{L"GridSkew", 0.125, 1.2e-12, 1.3e-12}}) {
        const std::string what = CString(c.key).ToUtf8();
        for (const double sign : {1.0, -1.0}) {
            EXPECT_EQ(ProjectionWith(c.key, c.value + sign * c.within), kEqual) << what;
            EXPECT_EQ(ProjectionWith(c.key, c.value + sign * c.beyond), kDiffers) << what;
        }
        EXPECT_EQ(ProjectionWith(c.key, kNaN), kDiffers) << what;
        EXPECT_EQ(Without(&Equality::Projection, kProjectionSection, c.key), kDiffers) << what;
    }
}

TEST_F(Equality, ParameterOfZeroHasTheToleranceOfOne)
{
    TestParameters({{L"Grid Skew", 0.0}}).Set(record);
    EXPECT_EQ(ProjectionWith(L"GridSkew", 0.9e-13), kEqual);
    EXPECT_EQ(ProjectionWith(L"GridSkew", 1.1e-13), kDiffers);
    EXPECT_EQ(Without(&Equality::Projection, kProjectionSection, L"GridSkew"), kEqual) << "0 when missing";
}

TEST_F(Equality, NanAsAParameterDiffersFromNan)
{
    TestParameters({{L"Grid Skew", kNaN}}).Set(record);
    EXPECT_EQ(Projection(), kDiffers);
    EXPECT_EQ(ProjectionWith(L"GridSkew", kNaN), kDiffers);
}

TEST_F(Equality, ToleranceTakesThePoleForTheLatitudeBesideIt)
{
    TestParameters({{L"Latitude of Origin", 90.0}}).Set(record);
    EXPECT_EQ(ProjectionWith(L"LatOrigin", 89.9999999999), kEqual);
    EXPECT_EQ(ProjectionWith(L"LatOrigin", 89.99999999), kDiffers);
    TestParameters({{L"Latitude of Origin", -90.0}}).Set(record);
    EXPECT_EQ(ProjectionWith(L"LatOrigin", -89.9999999999), kEqual);
}

TEST_F(Equality, ParametersThatOnlyTheDatabaseHasGoUnnoticed)
{
    EXPECT_EQ(ProjectionWith(L"LatTrueScale", 12.0), kEqual);
    TestParameters().Set(record);
    EXPECT_EQ(Projection(), kEqual) << "by type, method and unit alone";
    EXPECT_EQ(ProjectionWith(L"LonOrigin", 77.0), kEqual);
    EXPECT_EQ(ProjectionWith(L"Unit name", L"Feet"), kDiffers);
}

TEST_F(Equality, ParameterWithoutAKeyIsReadUnderAnEmptyOne)
{
    TestParameters({{L"No such label", 12.5}}).Set(record);
    EXPECT_EQ(Projection(), kDiffers);
    EXPECT_EQ(ProjectionWith(L"", 12.5), kEqual);
}

TEST_F(Equality, ZoneAndHemisphereCountForUtmAlone)
{
    record.SetUTMZone(L"31");
    record.SetUTMHemiSphere(L"N");
    EXPECT_EQ(ProjectionWith(L"UTMZone", L"32"), kEqual);
    record.SetUTMStatu(true);
    EXPECT_EQ(Projection(), kDiffers) << "the database has neither";
    SaveAndOpen();
    EXPECT_EQ(Projection(), kEqual);
    EXPECT_EQ(ProjectionWith(L"UTMZone", L"32"), kDiffers);
    EXPECT_EQ(ProjectionWith(L"Hemisphere", L"n"), kDiffers);
    EXPECT_EQ(Without(&Equality::Projection, kProjectionSection, L"UTMZone"), kDiffers);
}

TEST_F(Equality, MoreParametersThanNamesAreRefused)
{
    TestParameters parameters({{L"Latitude of Origin", 52.5}});
    parameters.values.Add(1.0);
    parameters.Set(record);
    EXPECT_THROW(Projection(), std::invalid_argument);
}

// Datum transformations.

TEST_F(Equality, MethodNameCountsWithItsCapitals)
{
    record.SetDtTransferMdName(L"bursa/wolfe(7 parameters)", 1);
    EXPECT_EQ(Datum(), kDiffers);
    EXPECT_EQ(With(&Equality::Datum, kDatumSection, L"Method name", L"bursa/wolfe(7 parameters)"), kEqual)
        << "a method that no list knows has no parameters to compare";
}

// The file has the bare name.
TEST_F(Equality, MethodNumberOfADerivedClassDoesNotCount)
{
    class OwnNumbers : public HarbourRecord {
    public:
        int GetDtfMdType(CString) override { return 0; }
    };
    OwnNumbers own;
    own.SetDtfDescp(L"");
    EXPECT_EQ(own.CheckDtfIsEqual(read.get()), kEqual);
    read->GetUserFile().SetItem(kDatumSection, transParamKeys[TransKey::shiftX], 99.0, true);
    EXPECT_EQ(own.CheckDtfIsEqual(read.get()), kDiffers);
}

TEST_F(Equality, ListTextOfAMethodDiffers)
{
    record.SetDtTransferMdName(L"Bursa/Wolfe(7 Parameters) - Position vector rotation", 1);
    EXPECT_EQ(Datum(), kDiffers);
}

TEST_F(Equality, ParametersOfADatumAreComparedExactly)
{
    const double values[] = {-565.7346, -50.4058, -465.2895, 0.2, -0.15, 0.3, -4.07244};
    for (const int method : {1, 2, 3, 4}) {
        SetMethod(method);
        EXPECT_EQ(Datum(), kEqual) << method;
        for (int i = 0; i < 7; ++i) {
            const int key = TransKey::shiftX + i;
            EXPECT_EQ(DatumWith(key, values[i]), kEqual);
            EXPECT_EQ(DatumWith(key, std::nextafter(values[i], 1000.0)), kDiffers) << method << ' ' << i;
            EXPECT_EQ(DatumWith(key, kNaN), kDiffers) << method << ' ' << i;
            EXPECT_EQ(DatumWithout(key), kDiffers) << method << ' ' << i;
        }
        EXPECT_EQ(DatumWith(TransKey::source, L"wgs84"), kDiffers) << method;
        EXPECT_EQ(DatumWith(TransKey::target, L"bessel 1841"), kDiffers) << method;
        EXPECT_EQ(DatumWithout(TransKey::source), kDiffers) << method;
        EXPECT_EQ(DatumWithout(TransKey::target), kDiffers) << method;
    }
}

TEST_F(Equality, MissingParametersOfADatumCountAsZero)
{
    HarbourDatum datum;
    datum.parameters = {};
    datum.rates = {};
    datum.Set(record);
    SetMethod(4);
    for (const int key : {4, 5, 6, 7, 8, 9, 10, 12, 13, 14, 15, 16, 17, 18, 19}) {
        EXPECT_EQ(DatumWithout(key), kEqual) << key;
    }
}

TEST_F(Equality, RatesAndEpochCountWithFourteenParametersAlone)
{
    const double rates[] = {0.011, -0.022, 0.015, 0.0011, -0.0022, 0.0015, 0.003, 2010.5};
    for (const int method : {1, 2, 3, 4}) {
        SetMethod(method);
        const bool counts = method > 2;
        for (int i = 0; i < 8; ++i) {
            const int key = TransKey::shiftRateX + i;
            EXPECT_EQ(DatumWith(key, rates[i]), kEqual) << method << ' ' << i;
            EXPECT_EQ(DatumWith(key, std::nextafter(rates[i], 9000.0)), counts ? kDiffers : kEqual)
                << method << ' ' << i;
            EXPECT_EQ(DatumWithout(key), counts ? kDiffers : kEqual) << method << ' ' << i;
        }
    }
}

TEST_F(Equality, DescriptionInTheDatabaseMakesSevenParametersDiffer)
{
    for (const int method : {1, 2}) {
        SetMethod(method);
        record.SetDtfDescp(L"by the port");
        EXPECT_EQ(Datum(), kEqual) << "empty in the database, whatever the record's";
        EXPECT_TRUE(record.GetDtfDescp().IsEmpty()) << "the database's description is the record's now";
        record.SetDtfDescp(L"by the port");
        EXPECT_EQ(DatumWith(TransKey::description, L"by the port"), kDiffers) << "also when both are the same";
        EXPECT_EQ(record.GetDtfDescp(), L"by the port");
        EXPECT_EQ(DatumWith(TransKey::description, L"of the port"), kDiffers);
        EXPECT_EQ(record.GetDtfDescp(), L"of the port");
        EXPECT_EQ(DatumWithout(TransKey::description), kDiffers) << "without the key the record's own counts";
        EXPECT_EQ(record.GetDtfDescp(), L"of the port");
        record.SetDtfDescp(L"");
        EXPECT_EQ(DatumWithout(TransKey::description), kEqual);
    }
}

// Read before anything is compared.
TEST_F(Equality, DescriptionStaysInTheRecordAlsoWhenParametersDiffer)
{
    FileObject& user = read->GetUserFile();
    user.SetItem(kDatumSection, transParamKeys[TransKey::shiftX], 9.0, true);
    user.SetItem(kDatumSection, transParamKeys[TransKey::description], L"of the port", true);
    EXPECT_EQ(Datum(), kDiffers);
    EXPECT_EQ(record.GetDtfDescp(), L"of the port");
    record.SetDtfDescp(L"");
    user.SetItem(kDatumSection, L"Method name", L"other", true);
    EXPECT_EQ(Datum(), kDiffers);
    EXPECT_TRUE(record.GetDtfDescp().IsEmpty()) << "the method is compared before";
}

TEST_F(Equality, DescriptionsOfFourteenParametersAreComparedAndStay)
{
    for (const int method : {3, 4}) {
        SetMethod(method);
        EXPECT_EQ(DatumWithout(TransKey::description), kEqual);
        record.SetDtfDescp(L"by the port");
        EXPECT_EQ(DatumWith(TransKey::description, L"by the port"), kEqual);
        EXPECT_EQ(DatumWith(TransKey::description, L"By the port"), kDiffers);
        EXPECT_EQ(DatumWithout(TransKey::description), kDiffers);
        EXPECT_EQ(record.GetDtfDescp(), L"by the port");
    }
}

TEST_F(Equality, WithoutParametersOnlyTheFixedHeightCounts)
{
    for (const wchar_t* method : {L"No Transformation", L"Molodensky"}) {
        record.SetDtTransferMdName(method, 0);
        record.SetDtfDescp(L"by the port");
        SaveAndOpen();
        EXPECT_EQ(Datum(), kEqual);
        EXPECT_EQ(DatumWith(TransKey::shiftX, 9.0), kEqual);
        EXPECT_EQ(DatumWith(TransKey::source, L"other"), kEqual);
        EXPECT_EQ(DatumWith(TransKey::description, L"other"), kEqual);
        EXPECT_EQ(record.GetDtfDescp(), L"by the port");
        EXPECT_EQ(DatumWith(TransKey::fixedHeight, false), kDiffers);
        EXPECT_EQ(DatumWith(TransKey::fixedHeightForward, 9.0), kDiffers);
    }
}

TEST_F(Equality, FixedHeightCountsBySwitchAndOnlyWhileOn)
{
    for (const int method : {0, 1, 2, 3, 4}) {
        SetMethod(method);
        EXPECT_EQ(Datum(), kEqual) << method;
        EXPECT_EQ(DatumWith(TransKey::fixedHeight, false), kDiffers) << method;
        EXPECT_EQ(DatumWithout(TransKey::fixedHeight), kDiffers) << method;
        EXPECT_EQ(DatumWith(TransKey::fixedHeightForward, std::nextafter(44.25, 50.0)), kDiffers) << method;
        EXPECT_EQ(DatumWith(TransKey::fixedHeightReverse, std::nextafter(-43.5, 0.0)), kDiffers) << method;
        EXPECT_EQ(DatumWithout(TransKey::fixedHeightForward), kDiffers) << method;
    }
    HarbourDatum datum;
    datum.fixedHeight = false;
    datum.Set(record);
    EXPECT_EQ(Datum(), kDiffers);
    SetMethod(1);
    EXPECT_EQ(DatumWith(TransKey::fixedHeightForward, 9.0), kEqual);
    EXPECT_EQ(DatumWithout(TransKey::fixedHeight), kEqual) << "missing is off";
}

// The tolerance is the projection's alone.
TEST_F(Equality, DifferenceThatAParameterMayHaveIsOneInAShift)
{
    EXPECT_EQ(ProjectionWith(L"LatOrigin", 52.5 + 5e-10), kEqual);
    EXPECT_EQ(DatumWith(TransKey::shiftX, -565.7346 + 5e-10), kDiffers);
}

// A broken datum record can leave the database's files so.
TEST_F(Equality, FilesThatThrowAreReadAsOthers)
{
    read->GetUserFile().ThrowExceptions(true);
    read->GetUserFile().DeleteItem(kSystemSection, L"Post horizonal scale", false);
    record.SetPostHorAdjust(100.5, 200.5, 0.75, 1.0);
    EXPECT_EQ(System(), kEqual);
    EXPECT_EQ(Without(&Equality::Datum, kDatumSection, transParamKeys[TransKey::description]), kEqual);
    EXPECT_EQ(ProjectionWith(L"GridSkew", L"no number"), kDiffers);
}

} // namespace
