#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <utility>
#include <vector>

#include "tests/support/DatumRecords.h"
#include "tests/support/TempDirectory.h"

namespace {

const CString kSection = L"Dtf-Harbour Shift";

// Every parameter another number, so that a swap of two shows.
plain::Datum Numbered()
{
    return {.srcAxis = 6378137.0,
            .srcEcc = 0.00669438,
            .dstAxis = 6378388.0,
            .dstEcc = 0.00672267,
            .shift = {1.0, 2.0, 3.0},
            .rotation = {36.0, -72.0, 108.0},
            .scale = 7.0,
            .shiftRate = {8.0, 9.0, 10.0},
            .rotationRate = {3.6, -7.2, 10.8},
            .scaleRate = 14.0,
            .epoch = 2015.0,
            .has14 = true};
}

struct Parameters {
    double v[17] = {};
    bool fixedHeight = false;

    explicit Parameters(const CDatumTransform& datum)
    {
        datum.GetDtfParms(v[0], v[1], v[2], v[3], v[4], v[5], v[6], v[7], v[8], v[9], v[10], v[11], v[12], v[13], v[14],
                          fixedHeight, v[15], v[16], false);
    }
};

std::wstring Xml(const CDatumTransform& datum, const wchar_t* indent = L"")
{
    std::wostringstream stream;
    datum.DumpXml(stream, indent);
    return stream.str();
}

bool Throws(const FileObject& file)
{
    double value = 0.0;
    try {
        file.GetItem(L"nowhere", L"nothing", value);
        return false;
    } catch (const CString&) {
        return true;
    }
}

std::vector<std::pair<CString, CString>> EntriesOf(const FileObject& file, const CString& section)
{
    std::vector<std::pair<CString, CString>> entries;
    FobjSection cursor;
    CString key;
    CString value;
    for (bool more = file.GetFirstMapEntry(cursor, section, key, value); more;
         more = file.GetNextMapEntry(cursor, key, value)) {
        entries.emplace_back(key, value);
    }
    return entries;
}

// A file with the numbered record, and an empty database beside it.
class CDatumTransformRecord : public ::testing::Test {
protected:
    void Write(const CString& method) { WriteDatumTo(file, kSection, Numbered(), method); }
    bool Load() { return datum.Load(database, file, kSection); }

    FileObject file;
    ZorGeoDatabase database;
    CDatumTransform datum;
};

} // namespace

TEST_F(CDatumTransformRecord, LoadsAllFourteenParameters)
{
    for (const CString& method : {kMethodBursaWolfe14, kMethodHelmert14}) {
        Write(method);
        ASSERT_TRUE(Load());
        EXPECT_EQ(datum.GetName(), kSection);
        EXPECT_EQ(datum.GetMethodName(), method);
        EXPECT_TRUE(datum.IsInit());
        EXPECT_TRUE(datum.IsDtfOn());
        const Parameters p(datum);
        const double expected[] = {1, 2, 3, 36, -72, 108, 7, 8, 9, 10, 3.6, -7.2, 10.8, 14, 2015, 43, 0};
        for (int i = 0; i < 17; ++i) {
            EXPECT_EQ(p.v[i], expected[i]) << i;
        }
        EXPECT_FALSE(p.fixedHeight);
        EXPECT_FALSE(Throws(file));
    }
}

TEST_F(CDatumTransformRecord, CapitalsAreFoundByALowerCaseName)
{
    WriteDatumTo(file, L"DTF-HARBOUR SHIFT", Numbered(), kMethodBursaWolfe7);
    EXPECT_TRUE(Load());
    EXPECT_EQ(datum.GetName(), L"DTF-HARBOUR SHIFT");
    EXPECT_EQ(Parameters(datum).v[0], 1.0);
}

TEST_F(CDatumTransformRecord, NameAsGivenGoesBeforeCapitals)
{
    plain::Datum other = Numbered();
    other.shift.x = 99.0;
    WriteDatumTo(file, L"DTF-HARBOUR SHIFT", other, kMethodBursaWolfe7);
    Write(kMethodBursaWolfe7);
    EXPECT_TRUE(Load());
    EXPECT_EQ(datum.GetName(), kSection);
    EXPECT_EQ(Parameters(datum).v[0], 1.0);
}

TEST_F(CDatumTransformRecord, MissingSectionIsFalseAndKeepsTheNameAsked)
{
    EXPECT_FALSE(Load());
    EXPECT_EQ(datum.GetName(), kSection);
    EXPECT_FALSE(datum.IsInit());
    EXPECT_FALSE(Throws(file));
}

TEST_F(CDatumTransformRecord, NoMethodCountsAsBursaWolfe7)
{
    Write(kMethodBursaWolfe14);
    file.DeleteItem(kSection, kDatumMethod, false);
    EXPECT_TRUE(Load());
    EXPECT_EQ(datum.GetMethodName(), L"Bursa/Wolfe(7 Parameters)");
    EXPECT_EQ(Parameters(datum).v[14], 0.0);
}

TEST_F(CDatumTransformRecord, UnknownMethodCountsAsSevenParametersUnderItsOwnName)
{
    Write(L"Molodensky");
    EXPECT_TRUE(Load());
    EXPECT_EQ(datum.GetMethodName(), L"Molodensky");
    EXPECT_TRUE(datum.IsDtfOn());
    EXPECT_EQ(Parameters(datum).v[7], 0.0);
}

TEST_F(CDatumTransformRecord, NoTransformationNeedsNoOtherKey)
{
    file.SetItem(kSection, kDatumMethod, L"No Transformation", true);
    EXPECT_TRUE(Load());
    EXPECT_TRUE(datum.IsInit());
    EXPECT_FALSE(datum.IsDtfOn());
    EXPECT_EQ(datum.GetMethodName(), L"No Transformation");
    EXPECT_EQ(datum.SourceEllipsoid().status, -1);
    EXPECT_FALSE(Throws(file));
}

TEST_F(CDatumTransformRecord, Helmert7IgnoresRateKeys)
{
    Write(kMethodHelmert7);
    ASSERT_TRUE(file.HasKey(kSection, transParamKeys[TransKey::epoch]));
    EXPECT_TRUE(Load());
    const Parameters p(datum);
    for (int i = 7; i < 15; ++i) {
        EXPECT_EQ(p.v[i], 0.0) << i;
    }
    EXPECT_EQ(Xml(datum).find(L"shiftx_dt"), std::wstring::npos);
}

TEST_F(CDatumTransformRecord, SecondLoadForgetsTheRatesOfTheFirst)
{
    Write(kMethodBursaWolfe14);
    ASSERT_TRUE(Load());
    Write(kMethodBursaWolfe7);
    ASSERT_TRUE(Load());
    const Parameters p(datum);
    for (int i = 7; i < 15; ++i) {
        EXPECT_EQ(p.v[i], 0.0) << i;
    }
}

TEST_F(CDatumTransformRecord, ReadsTheFixedHeights)
{
    Write(kMethodBursaWolfe7);
    file.SetItem(kSection, transParamKeys[TransKey::fixedHeight], true, true);
    file.SetItem(kSection, transParamKeys[TransKey::fixedHeightForward], 12.5, true);
    file.SetItem(kSection, transParamKeys[TransKey::fixedHeightReverse], -3.5, true);
    EXPECT_TRUE(Load());
    const Parameters p(datum);
    EXPECT_TRUE(p.fixedHeight);
    EXPECT_EQ(p.v[15], 12.5);
    EXPECT_EQ(p.v[16], -3.5);
}

TEST_F(CDatumTransformRecord, RecordWithoutFixedHeightsHasTheSwitchOffAnd43)
{
    Write(kMethodBursaWolfe7);
    EXPECT_TRUE(Load());
    const Parameters p(datum);
    EXPECT_FALSE(p.fixedHeight);
    EXPECT_EQ(p.v[15], 43.0);
    EXPECT_EQ(p.v[16], 0.0);
}

// Each key in turn is taken out of a whole record.
TEST_F(CDatumTransformRecord, EveryRequiredKeyIsRequiredAndLeavesTheFileThrowing)
{
    std::vector<int> keys;
    for (int key = TransKey::shiftX; key <= TransKey::epoch; ++key) {
        if (key != 11) {
            keys.push_back(key);
        }
    }
    for (const int key : keys) {
        FileObject broken;
        WriteDatumTo(broken, kSection, Numbered(), kMethodBursaWolfe14);
        broken.DeleteItem(kSection, transParamKeys[static_cast<std::size_t>(key)], false);
        CDatumTransform loaded;
        EXPECT_FALSE(loaded.Load(database, broken, kSection)) << key;
        EXPECT_FALSE(loaded.IsInit()) << key;
        EXPECT_FALSE(loaded.IsDtfOn()) << key;
        EXPECT_TRUE(Throws(broken)) << key;
        double lat = 0.0, lon = 0.0, h = 0.0;
        EXPECT_TRUE(loaded.DoDtf(1.0, 2.0, 3.0, lat, lon, h, false, 0.0)) << key;
        EXPECT_EQ(lat, 1.0) << key;
    }
}

TEST_F(CDatumTransformRecord, TextThatIsNoNumberIsAMissingKey)
{
    Write(kMethodBursaWolfe7);
    file.SetItem(kSection, transParamKeys[TransKey::scale], L"twenty", true);
    EXPECT_FALSE(Load());
    EXPECT_FALSE(datum.IsInit());
}

TEST_F(CDatumTransformRecord, LoadBringsAThrowingFileBack)
{
    Write(kMethodBursaWolfe7);
    file.ThrowExceptions(true);
    EXPECT_TRUE(Load());
    EXPECT_FALSE(Throws(file));
}

TEST_F(CDatumTransformRecord, EllipsoidNamesAreRequired)
{
    for (const int key : {TransKey::source, TransKey::target}) {
        FileObject broken;
        WriteDatumTo(broken, kSection, Numbered(), kMethodBursaWolfe7);
        broken.DeleteItem(kSection, transParamKeys[static_cast<std::size_t>(key)], false);
        CDatumTransform loaded;
        EXPECT_FALSE(loaded.Load(database, broken, kSection));
        EXPECT_FALSE(loaded.IsInit());
        EXPECT_FALSE(Throws(broken));
    }
}

TEST_F(CDatumTransformRecord, EllipsoidsOfTheDatabaseGoBeforeTheRecordsNumbers)
{
    Write(kMethodBursaWolfe7);
    database.GetMainFile().SetItem(L"Elp-Source", L"SemiMajor", 6378206.4, true);
    database.GetMainFile().SetItem(L"Elp-Source", L"EccSqrd", 0.006768657997291, true);
    database.GetUserFile().SetItem(L"Elp-Source", L"SemiMajor", 6400000.0, true);
    database.GetUserFile().SetItem(L"Elp-Source", L"EccSqrd", 0.0, true);
    database.GetUserFile().SetItem(L"Elp-Target", L"SemiMajor", 6371000.0, true);
    database.GetUserFile().SetItem(L"Elp-Target", L"EccSqrd", 0.0, true);
    EXPECT_TRUE(Load());
    EXPECT_EQ(datum.SourceEllipsoid().semiMajor, 6378206.4);
    EXPECT_EQ(datum.DestEllipsoid().semiMajor, 6371000.0);
}

TEST_F(CDatumTransformRecord, SurvivesTheLossOfItsEllipsoidRecords)
{
    Write(kMethodBursaWolfe7);
    EXPECT_TRUE(Load());
    EXPECT_EQ(datum.SourceEllipsoid().name, L"Elp-Source");
    EXPECT_EQ(datum.SourceEllipsoid().semiMajor, 6378137.0);
    EXPECT_EQ(datum.SourceEllipsoid().eccSquared, 0.00669438);
    EXPECT_EQ(datum.DestEllipsoid().name, L"Elp-Target");
    EXPECT_EQ(datum.DestEllipsoid().semiMajor, 6378388.0);
    EXPECT_EQ(datum.DestEllipsoid().eccSquared, 0.00672267);
}

TEST_F(CDatumTransformRecord, NeedsANumberOfEachLostEllipsoid)
{
    for (const CString& key : {kDatumSourceAxis, kDatumSourceEcc, kDatumTargetAxis, kDatumTargetEcc}) {
        FileObject broken;
        WriteDatumTo(broken, kSection, Numbered(), kMethodBursaWolfe7);
        broken.DeleteItem(kSection, key, false);
        CDatumTransform loaded;
        EXPECT_FALSE(loaded.Load(database, broken, kSection)) << key.ToUtf8();
        EXPECT_FALSE(loaded.IsInit());
    }
}

TEST_F(CDatumTransformRecord, RefusedNumbersLoadAndDoNotConvert)
{
    Write(kMethodBursaWolfe7);
    file.SetItem(kSection, kDatumTargetAxis, 5000000.0, true);
    EXPECT_TRUE(Load());
    double lat = 0.0, lon = 0.0, h = 0.0;
    EXPECT_FALSE(datum.DoDtf(1.0, 2.0, 3.0, lat, lon, h, false, 0.0));
    EXPECT_EQ(lat, 0.0);
}

TEST_F(CDatumTransformRecord, MainFileGoesBeforeTheUserFile)
{
    plain::Datum mine = Numbered();
    mine.shift.x = 99.0;
    WriteDatumTo(database.GetUserFile(), kSection, mine, kMethodBursaWolfe7);
    EXPECT_TRUE(datum.Load(database, kSection));
    EXPECT_EQ(Parameters(datum).v[0], 99.0);
    WriteDatumTo(database.GetMainFile(), kSection, Numbered(), kMethodBursaWolfe7);
    EXPECT_TRUE(datum.Load(database, kSection));
    EXPECT_EQ(Parameters(datum).v[0], 1.0);
    EXPECT_FALSE(datum.Load(database, L"Dtf-Nowhere"));
    EXPECT_EQ(datum.GetName(), L"Dtf-Nowhere");
}

TEST_F(CDatumTransformRecord, BrokenMainRecordGivesWayToTheUserFile)
{
    WriteDatumTo(database.GetMainFile(), kSection, Numbered(), kMethodBursaWolfe7);
    database.GetMainFile().DeleteItem(kSection, transParamKeys[TransKey::scale], false);
    WriteDatumTo(database.GetUserFile(), kSection, Numbered(), kMethodBursaWolfe7);
    EXPECT_TRUE(datum.Load(database, kSection));
    EXPECT_TRUE(datum.IsInit());
}

TEST_F(CDatumTransformRecord, SavesEveryKeyInItsOrder)
{
    Write(kMethodHelmert14);
    ASSERT_TRUE(Load());
    FileObject saved;
    EXPECT_TRUE(datum.Save(saved, L""));
    using Entry = std::pair<CString, CString>;
    const auto key = [](int index) { return transParamKeys[static_cast<std::size_t>(index)]; };
    const std::vector<Entry> expected = {
        {L"Method name", L"Helmert(14 Parameters)"},
        {key(2), L"Source"},
        {key(3), L"Target"},
        {key(4), L"1"},
        {key(5), L"2"},
        {key(6), L"3"},
        {key(7), L"36"},
        {key(8), L"-72"},
        {key(9), L"108"},
        {key(10), L"7"},
        {key(12), L"8"},
        {key(13), L"9"},
        {key(14), L"10"},
        {key(15), L"3.6"},
        {key(16), L"-7.2"},
        {key(17), L"10.8"},
        {key(18), L"14"},
        {key(19), L"2015"},
        {L"SrcSma", L"6378137"},
        {L"SrcSe", L"0.00669438"},
        {L"DstSma", L"6378388"},
        {L"DstSe", L"0.00672267"},
        {key(20), L"0"},
        {key(21), L"43"},
        {key(22), L"0"},
    };
    EXPECT_EQ(EntriesOf(saved, kSection), expected);
}

TEST_F(CDatumTransformRecord, SavesZeroRatesForAMethodWithoutRates)
{
    Write(kMethodBursaWolfe7);
    ASSERT_TRUE(Load());
    EXPECT_TRUE(datum.Save(file, L"GEODESY_DTF_BACKUP"));
    for (int key = TransKey::shiftRateX; key <= TransKey::epoch; ++key) {
        double value = -1.0;
        EXPECT_TRUE(file.GetItem(L"GEODESY_DTF_BACKUP", transParamKeys[static_cast<std::size_t>(key)], value));
        EXPECT_EQ(value, 0.0);
    }
}

TEST_F(CDatumTransformRecord, ComesBackFromAFileAsItWas)
{
    const TempDirectory directory;
    Write(kMethodBursaWolfe14);
    file.SetItem(kSection, transParamKeys[TransKey::fixedHeight], true, true);
    ASSERT_TRUE(Load());
    const CString path = directory.File("datum.geo");
    ASSERT_TRUE(datum.Save(path, L""));

    FileObject read;
    ASSERT_TRUE(read.FileOpen(path, 32));
    CDatumTransform again;
    ASSERT_TRUE(again.Load(database, read, kSection));
    const Parameters before(datum);
    const Parameters after(again);
    for (int i = 0; i < 17; ++i) {
        EXPECT_EQ(after.v[i], before.v[i]) << i;
    }
    EXPECT_EQ(after.fixedHeight, before.fixedHeight);
    EXPECT_EQ(again.GetMethodName(), datum.GetMethodName());
    EXPECT_EQ(again.SourceEllipsoid().name, datum.SourceEllipsoid().name);
    EXPECT_EQ(Xml(again), Xml(datum));
    double a[3] = {}, b[3] = {};
    datum.DoDtf(52.0, 5.0, 10.0, a[0], a[1], a[2], false, 1e12);
    again.DoDtf(52.0, 5.0, 10.0, b[0], b[1], b[2], false, 1e12);
    EXPECT_EQ(a[0], b[0]);
    EXPECT_EQ(a[1], b[1]);
    EXPECT_EQ(a[2], b[2]);
}

TEST_F(CDatumTransformRecord, SavingKeepsTheOtherSectionsOfTheFile)
{
    const TempDirectory directory;
    const CString path = directory.File("datum.geo");
    FileObject first;
    first.SetItem(L"General", L"Datumtransf count", 1, true);
    ASSERT_TRUE(first.FileSave(path, 4113));
    Write(kMethodBursaWolfe7);
    ASSERT_TRUE(Load());
    ASSERT_TRUE(datum.Save(path, L"Dtf-Other"));
    FileObject read;
    ASSERT_TRUE(read.FileOpen(path, 32));
    EXPECT_TRUE(read.HasSection(L"General"));
    EXPECT_TRUE(read.HasSection(L"Dtf-Other"));
    EXPECT_FALSE(read.HasSection(kSection));
}

TEST_F(CDatumTransformRecord, SaveIntoAMissingDirectoryIsFalse)
{
    const TempDirectory directory;
    Write(kMethodBursaWolfe7);
    ASSERT_TRUE(Load());
    EXPECT_FALSE(datum.Save(directory.File("nowhere/datum.geo"), L""));
}

TEST_F(CDatumTransformRecord, XmlShowsWorkingRotationsInDegrees)
{
    Write(kMethodBursaWolfe7);
    ASSERT_TRUE(Load());
    EXPECT_EQ(Xml(datum, L" "), L" <datumtransform>\n"
                                L"   <name>Dtf-Harbour Shift</name>\n"
                                L"   <shiftx>1</shiftx>\n"
                                L"   <shifty>2</shifty>\n"
                                L"   <shiftz>3</shiftz>\n"
                                L"   <rotx>-0.01</rotx>\n"
                                L"   <roty>0.02</roty>\n"
                                L"   <rotz>-0.03</rotz>\n"
                                L"   <scale>7</scale>\n"
                                L"   <source_ellipsoid>\n"
                                L"     <ellipsoid>\n"
                                L"       <name>Elp-Source</name>\n"
                                L"       <semi_major_axis>6.38e+06</semi_major_axis>\n"
                                L"       <squared_eccentricity>0.00669438</squared_eccentricity>\n"
                                L"       <inverse_flattening>298.3</inverse_flattening>\n"
                                L"     </ellipsoid>\n"
                                L"   </source_ellipsoid>\n"
                                L"   <target_ellipsoid>\n"
                                L"     <ellipsoid>\n"
                                L"       <name>Elp-Target</name>\n"
                                L"       <semi_major_axis>6.38e+06</semi_major_axis>\n"
                                L"       <squared_eccentricity>0.00672267</squared_eccentricity>\n"
                                L"       <inverse_flattening>297</inverse_flattening>\n"
                                L"     </ellipsoid>\n"
                                L"   </target_ellipsoid>\n"
                                L" </datumtransform>\n");
}

TEST_F(CDatumTransformRecord, XmlShowsRatesAndFixedHeightsWhenTheyAreInUse)
{
    Write(kMethodBursaWolfe14);
    file.SetItem(kSection, transParamKeys[TransKey::fixedHeight], true, true);
    ASSERT_TRUE(Load());
    const std::wstring xml = Xml(datum);
    EXPECT_NE(xml.find(L"  <scale>7</scale>\n"
                       L"  <shiftx_dt>8</shiftx_dt>\n"
                       L"  <shifty_dt>9</shifty_dt>\n"
                       L"  <shiftz_dt>10</shiftz_dt>\n"
                       L"  <rotx_dt>-0.001</rotx_dt>\n"
                       L"  <roty_dt>0.002</roty_dt>\n"
                       L"  <rotz_dt>-0.003</rotz_dt>\n"
                       L"  <scale_dt>14</scale_dt>\n"
                       L"  <dtf_t0>2015</dtf_t0>\n"
                       L"  <source_ellipsoid>\n"),
              std::wstring::npos);
    EXPECT_NE(xml.find(L"  </target_ellipsoid>\n"
                       L"  <fixedHeightTransformation>\n"
                       L"  <fixedHeightForward>43</fixedHeightForward>\n"
                       L"  <fixedHeightReverse>0</fixedHeightReverse>\n"
                       L"  </fixedHeightTransformation>\n"
                       L"</datumtransform>\n"),
              std::wstring::npos);
}

TEST_F(CDatumTransformRecord, XmlKeepsTheStreamsNumberFormat)
{
    Write(kMethodBursaWolfe7);
    ASSERT_TRUE(Load());
    std::wostringstream stream;
    stream.setf(std::ios::fixed, std::ios::floatfield);
    stream.precision(5);
    datum.DumpXml(stream, L"");
    EXPECT_NE(stream.str().find(L"<shiftx>1.00000</shiftx>"), std::wstring::npos);
    EXPECT_EQ(stream.precision(), 5);
}
