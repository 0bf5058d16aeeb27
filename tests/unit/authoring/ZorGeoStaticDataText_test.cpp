#include <gtest/gtest.h>

#include <memory>
#include <stdexcept>
#include <string>

#include "authoring/ZorGeoStaticData.h"
#include "tests/support/CommaLocale.h"
#include "tests/support/ModuleTexts.h"
#include "tests/unit/authoring/HarbourRecord.h"
#include "tests/unit/authoring/StaticDataProbe.h"

namespace {

constexpr const char* kHead = "SYSTEM: Harbour Grid\r\n"
                              "\r\n"
                              "Bessel 1841\r\n"
                              "\tSemi-Major Axis6377397.155\r\n"
                              "\tInv. Flattening299.1528128\r\n"
                              "\tSquared eccentricity0.0625\r\n"
                              "\r\n"
                              "DATUMTRANSFORMATION : Harbour Shift\r\n"
                              "\tDatum Transformation from WGS84: \r\n";
constexpr const char* kSevenParameters = "\tShift X(m):   -565.7346\r\n"
                                         "\tShift Y(m):   -50.4058\r\n"
                                         "\tShift Z(m):   -465.2895\r\n"
                                         "\tRotation X(sec):   0.2\r\n"
                                         "\tRotation Y(sec):   -0.15\r\n"
                                         "\tRotation Z(sec):   0.3\r\n"
                                         "\tScale factor[ppm]:   -4.07244\r\n";
constexpr const char* kRates = "\tShift X(m):   0.011\r\n"
                               "\tShift Y(m):   -0.022\r\n"
                               "\tShift Z(m):   0.015\r\n"
                               "\tRotation X(sec):   0.0011\r\n"
                               "\tRotation Y(sec):   -0.0022\r\n"
                               "\tRotation Z(sec):   0.0015\r\n"
                               "\tScale factor[ppm]:   0.003\r\n"
                               "\tScale factor[ppm]:   2010.5\r\n";
constexpr const char* kToProjection = "\tSatellite ellipsoid:   WGS84\r\n"
                                      "\tLocal ellipsoid:   Bessel 1841\r\n"
                                      "\tDescription: by the port\r\n"
                                      "\r\n"
                                      "GEOID MODEL: \r\n"
                                      "\tGeoid Model Method: EGM96\r\n"
                                      "\tGeo Grid: egm96.gtx\r\n"
                                      "\tChart Datum: LAT\r\n"
                                      "\r\n"
                                      "UNIT:  Meters\r\n"
                                      "\tMetric Conversion Factor:1.000000\r\n"
                                      "\tDescription: m\r\n"
                                      "\r\n"
                                      "PROJECTION: Harbour TM\r\n"
                                      "\tMethod:  Transverse Mercator\r\n";
constexpr const char* kParameters = "\tLongitude of Origin:shown\r\n"
                                    "\tLatitude of Origin:shown\r\n"
                                    "\tFalse Easting:shown\r\n"
                                    "\tFalse Northing:shown\r\n"
                                    "\tScale Factor at the Central Meridian:shown\r\n"
                                    "\tGrid Skew:shown\r\n";
constexpr const char* kUtm = "\tUTM Zone: Zone 31\r\n"
                             "\tHemisphere: N\r\n";
constexpr const char* kPostHead = "\r\n"
                                  "POST CORRECTIONS: \r\n"
                                  "\t";
constexpr const char* kPost = "X Correction: 1.500000\r\n"
                              "\tY Correction: 2.500000\r\n"
                              "\tZ Correction: 3.500000\r\n"
                              "\r\n";
constexpr const char* kHorAdjust = "\tHor. adjust origin easting: 100.500000\r\n"
                                   "\tHor. adjust origin northing: 200.500000\r\n"
                                   "\tHor. adjust rotation(sec): 0.750000\r\n"
                                   "\tHor. adjust scale: 1.000100\r\n"
                                   "\r\n";
constexpr const char* kVertAdjust = "\tVert. adjust origin easting: 300.500000\r\n"
                                    "\tVert. adjust origin northing: 400.500000\r\n"
                                    "\tVert. adjust slope easting(ppm): 5.500000\r\n"
                                    "\tVert. adjust slope northing(ppm): 6.500000\r\n"
                                    "\r\n";
constexpr const char* kModel = "\tCorrection model: Grid Model\r\n"
                               "\tCorrection file: post.gsb\r\n";

std::string Method(const std::string& name)
{
    return "\tMethod:  " + name + "\r\n";
}

std::string Joined(std::initializer_list<std::string> parts)
{
    std::string text;
    for (const std::string& part : parts) {
        text += part;
    }
    return text;
}

/// The suite's display unit of datum rotations, set for a test's lifetime.
class RotationUnit {
public:
    RotationUnit(double factor, double offset) { Set(factor, offset); }
    ~RotationUnit() { Set(1.0, 0.0); }
    RotationUnit(const RotationUnit&) = delete;
    RotationUnit& operator=(const RotationUnit&) = delete;

private:
    static void Set(double factor, double offset)
    {
        StaticFormats::GetUnitCnv().SetUnit(CZorUnitCnv::datumRotation, factor, offset, L"", L"", L"\"");
    }
};

class DumpSysinfoText : public testing::Test {
protected:
    DumpSysinfoText()
    {
        record.SetElpsoidParams(6377397.155, 6356078.9628, 0.25, 99.0, 98.0, 299.1528128);
        record.SetUTMZone(L"Zone 31");
        record.SetUTMHemiSphere(L"N");
        // No part of the report.
        record.SetSystemDescp(L"unshown");
        record.SetGeoidDescp(L"unshown");
        record.SetDefaultGeoidMethod(L"unshown");
        record.SetDefaultPostModel(L"unshown");
    }
    std::string Text() { return record.DumpSysinfoText().ToUtf8(); }

    const RotationUnit seconds{1.0, 0.0};
    const ModuleTexts texts;
    HarbourDatabase database;
    HarbourRecord record;
};

TEST_F(DumpSysinfoText, SevenParametersWithAllCorrections)
{
    EXPECT_EQ(Text(), Joined({kHead, Method("Bursa/Wolfe(7 Parameters)"), kSevenParameters, kToProjection, kParameters,
                              kPostHead, kPost, kHorAdjust, kVertAdjust, kModel}));
}

TEST_F(DumpSysinfoText, DatumLinesFollowTheMethodNumber)
{
    for (const int type : {-1, 0, 1, 2, 3, 4, 5}) {
        record.SetDtTransferMdName(L"as chosen", type);
        EXPECT_EQ(Text(),
                  Joined({kHead, type != 0 ? Method("as chosen") + kSevenParameters : "", type > 2 ? kRates : "",
                          kToProjection, kParameters, kPostHead, kPost, kHorAdjust, kVertAdjust, kModel}))
            << type;
    }
}

TEST_F(DumpSysinfoText, RatesBearTheLabelsOfTheParametersAndTheEpochThatOfTheScale)
{
    record.SetDtTransferMdName(L"Bursa/Wolfe(14 Parameters)", 3);
    const std::string text = Text();
    EXPECT_NE(text.find(std::string(kSevenParameters) + kRates + "\tSatellite"), std::string::npos);
    EXPECT_EQ(text.find("Datum Epoch: "), std::string::npos);
    EXPECT_EQ(text.find("Rate of change per Year"), std::string::npos);
}

TEST_F(DumpSysinfoText, WithoutCorrectionsTheModelIsIndentedTwice)
{
    record.SetUsePostCorrctStatu(false);
    record.SetUsePostHorAdjustStatu(false);
    record.SetUsePostVertAdjustStatu(false);
    EXPECT_TRUE(Text().ends_with("\r\nPOST CORRECTIONS: \r\n\t\tCorrection model: Grid Model\r\n"
                                 "\tCorrection file: post.gsb\r\n"));
}

TEST_F(DumpSysinfoText, CorrectionsAreShownByTheirSwitches)
{
    for (int switches = 0; switches < 8; ++switches) {
        const bool post = (switches & 1) != 0;
        const bool hor = (switches & 2) != 0;
        const bool vert = (switches & 4) != 0;
        record.SetUsePostCorrctStatu(post);
        record.SetUsePostHorAdjustStatu(hor);
        record.SetUsePostVertAdjustStatu(vert);
        EXPECT_TRUE(Text().ends_with(Joined(
            {kParameters, kPostHead, post ? kPost : "", hor ? kHorAdjust : "", vert ? kVertAdjust : "", kModel})))
            << switches;
    }
}

TEST_F(DumpSysinfoText, ProjectionWithoutParametersAndZoneLeavesAnEmptyLine)
{
    TestParameters().Set(record);
    EXPECT_NE(Text().find("\tMethod:  Transverse Mercator\r\n\r\nPOST CORRECTIONS: \r\n"), std::string::npos);
}

TEST_F(DumpSysinfoText, ZoneAndHemisphereFollowTheParameters)
{
    record.SetUTMStatu(true);
    EXPECT_NE(Text().find(Joined({kToProjection, kParameters, kUtm, kPostHead})), std::string::npos);
    TestParameters().Set(record);
    EXPECT_NE(Text().find(Joined({kToProjection, kUtm, kPostHead})), std::string::npos);
}

TEST_F(DumpSysinfoText, NewRecordGivesTheWholeReport)
{
    ZorGeoStaticData empty;
    EXPECT_EQ(empty.DumpSysinfoText().ToUtf8(), "SYSTEM: \r\n\r\n"
                                                "\r\n"
                                                "\tSemi-Major Axis0\r\n"
                                                "\tInv. Flattening0\r\n"
                                                "\tSquared eccentricity0\r\n\r\n"
                                                "DATUMTRANSFORMATION : \r\n"
                                                "\tDatum Transformation from WGS84: \r\n"
                                                "\tSatellite ellipsoid:   WGS84\r\n"
                                                "\tLocal ellipsoid:   \r\n"
                                                "\tDescription: \r\n\r\n"
                                                "GEOID MODEL: \r\n"
                                                "\tGeoid Model Method: \r\n"
                                                "\tGeo Grid: \r\n"
                                                "\tChart Datum: \r\n\r\n"
                                                "UNIT:  \r\n"
                                                "\tMetric Conversion Factor:0.000000\r\n"
                                                "\tDescription: \r\n\r\n"
                                                "PROJECTION: \r\n"
                                                "\tMethod:  \r\n"
                                                "\r\n"
                                                "POST CORRECTIONS: \r\n"
                                                "\t\tCorrection model: \r\n"
                                                "\tCorrection file: \r\n");
}

TEST_F(DumpSysinfoText, TitleOfTheEllipsoidIsTheHostsToSupply)
{
    static constexpr StringTableEntry kHostTexts[] = {{15351, L"ELLIPSOID: "}, {0, nullptr}};
    ASSERT_TRUE(ZORSUITE::LoadDLLResourceDLL(this, kHostTexts));
    const std::string text = Text();
    ZORSUITE::UnloadDLLResourceDLL(this);
    EXPECT_TRUE(text.starts_with("SYSTEM: Harbour Grid\r\n\r\nELLIPSOID: Bessel 1841\r\n"));
}

// What is left are the values, their indents and the line ends.
TEST(DumpSysinfoTextAlone, LabelsThatCannotBeLoadedAreEmpty)
{
    ZorGeoStaticData empty;
    empty.SetSysNameAndKey(L"Harbour Grid", L"");
    EXPECT_EQ(empty.DumpSysinfoText().ToUtf8(), "Harbour Grid\r\n\r\n"
                                                "\r\n\t0\r\n\t0\r\n\t0\r\n\r\n"
                                                "\r\n\tWGS84: \r\n\tWGS84\r\n\t\r\n\t\r\n\r\n"
                                                "\r\n\t\r\n\t\r\n\t\r\n\r\n"
                                                "\r\n\t0.000000\r\n\t\r\n\r\n"
                                                "\r\n\t\r\n\r\n"
                                                "\r\n\t\t\r\n\t\r\n");
}

// Fourteen significant digits and six decimals, as the C library's printf writes these values.
TEST_F(DumpSysinfoText, NumbersHaveFourteenDigitsOrSixDecimals)
{
    HarbourDatum datum;
    datum.parameters = {1.0 / 3.0, 123456789.123456789, 1e-7, 2.0 / 3.0, 1e20, -0.0, 1e5};
    datum.Set(record);
    record.SetElpsoidParams(6378137.0, 0.0, 0.0818191908426215, 0.0, 0.0, 298.257223563);
    record.SetUnitCnvValue(0.30480060960121922);
    record.SetPostCorrection(1e-7, -1234567.8912345, 1e15);
    const std::string text = Text();
    for (const char* line : {"\tSemi-Major Axis6378137\r\n", "\tInv. Flattening298.257223563\r\n",
                             "\tSquared eccentricity0.0066943799901413\r\n", "\tShift X(m):   0.33333333333333\r\n",
                             "\tShift Y(m):   123456789.12346\r\n", "\tShift Z(m):   1e-07\r\n",
                             "\tRotation X(sec):   0.66666666666667\r\n", "\tRotation Y(sec):   1e+20\r\n",
                             "\tScale factor[ppm]:   100000\r\n", "\tMetric Conversion Factor:0.304801\r\n",
                             "\tX Correction: 0.000000\r\n", "\tY Correction: -1234567.891235\r\n",
                             "\tZ Correction: 1000000000000000.000000\r\n"}) {
        EXPECT_NE(text.find(line), std::string::npos) << line;
    }
}

TEST_F(DumpSysinfoText, RotationsComeInTheirDisplayUnit)
{
    const RotationUnit turned(-1.0, 0.5);
    record.SetDtTransferMdName(L"Helmert(14 Parameters)", 4);
    const std::string text = Text();
    for (const char* line :
         {"\tRotation X(sec):   0.3\r\n", "\tRotation Y(sec):   0.65\r\n", "\tRotation Z(sec):   0.2\r\n",
          "\tRotation X(sec):   0.4989\r\n", "\tRotation Y(sec):   0.5022\r\n", "\tRotation Z(sec):   0.4985\r\n",
          "\tShift X(m):   -565.7346\r\n", "\tScale factor[ppm]:   -4.07244\r\n",
          "\tHor. adjust rotation(sec): 0.750000\r\n"}) {
        EXPECT_NE(text.find(line), std::string::npos) << line;
    }
}

TEST_F(DumpSysinfoText, NumbersDoNotDependOnTheLocale)
{
    const std::string before = Text();
    const CommaLocale commas;
    EXPECT_EQ(Text(), before);
}

TEST_F(DumpSysinfoText, CatalogueAndDatabaseAreNotAsked)
{
    const std::string before = Text();
    std::filesystem::remove_all(database.Directory().Path() / "main");
    std::filesystem::remove_all(database.Directory().Path() / "user");
    EXPECT_EQ(Text(), before);
}

TEST_F(DumpSysinfoText, ParameterWithoutATextIsRefused)
{
    TestParameters parameters({{L"Latitude of Origin", 52.5}});
    parameters.texts.RemoveAll();
    parameters.Set(record);
    EXPECT_THROW(record.DumpSysinfoText(), std::invalid_argument);
}

TEST_F(DumpSysinfoText, TextsBeyondTheNamesAreNotShown)
{
    TestParameters parameters({{L"Latitude of Origin", 52.5}});
    parameters.texts.Add(L"unshown");
    parameters.Set(record);
    EXPECT_EQ(Text().find("unshown"), std::string::npos);
}

TEST(BuildIndentString, IsTabs)
{
    EXPECT_EQ(ZorGeoStaticDataProbe::Indent(-1), L"");
    EXPECT_EQ(ZorGeoStaticDataProbe::Indent(0), L"");
    EXPECT_EQ(ZorGeoStaticDataProbe::Indent(1), L"\t");
    EXPECT_EQ(ZorGeoStaticDataProbe::Indent(3), L"\t\t\t");
}

} // namespace
