#include "base/keys/KeyTables.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace {

template <std::size_t size>
std::vector<CString> Texts(const std::array<CString, size>& table)
{
    return {table.begin(), table.end()};
}

struct FixedText {
    int index;
    std::string_view text;
};

template <std::size_t size>
void ExpectTexts(const std::array<CString, size>& table, const std::vector<FixedText>& rows)
{
    for (const FixedText& row : rows) {
        EXPECT_EQ(table.at(static_cast<std::size_t>(row.index)).ToUtf8(), row.text) << row.index;
    }
}

/// Searches of the catalogue and of the model names run without regard to case.
void ExpectDistinct(const std::vector<CString>& texts)
{
    std::set<CString> seen;
    for (const CString& text : texts) {
        CString upper = text;
        upper.MakeUpper();
        EXPECT_FALSE(text.IsEmpty());
        EXPECT_TRUE(seen.insert(upper).second) << text.ToUtf8();
    }
}

/// What a record holds beside the table's keys.
std::vector<CString> With(std::vector<CString> texts, const std::vector<CString>& others)
{
    texts.insert(texts.end(), others.begin(), others.end());
    return texts;
}

} // namespace

TEST(KeyTables, KeysAreDistinctWithinTheirSection)
{
    ExpectDistinct(With(Texts(coordsystemKeys), {L"GeodesyVersion"}));
    ExpectDistinct(Texts(formatParamKeys));
    ExpectDistinct(With(Texts(projectionParamKeys), {L"Projection method", L"Unit name"}));
    ExpectDistinct(With(Texts(transParamKeys), {L"Method name", L"SrcSma", L"SrcSe", L"DstSma", L"DstSe"}));
    ExpectDistinct(Texts(spheroidKeys));
}

TEST(KeyTables, SystemRecordCanHoldTheChartDatum)
{
    // The one entry of the project's table that also stands in a system record.
    const CString& chartDatum = coordsystemKeys[CoordsystemKey::chartDatum];
    for (const wchar_t* const key : {L"Datumtransform name", L"Unit name", L"Ellipsoid name", L"Projection name",
                                     L"System description", L"Geoid model method", L"Geoid model grid"}) {
        EXPECT_NE(chartDatum.CompareNoCase(key), 0);
    }
}

TEST(KeyTables, CoordinateSystemKeys)
{
    ExpectTexts(coordsystemKeys, {{7, "Group name"},
                                  {8, "System name"},
                                  {10, "Linear unit"},
                                  {12, "Module"},
                                  {13, "Geoid method"},
                                  {14, "Geoid grid"},
                                  {15, "Chart datum"},
                                  {16, "Post model"},
                                  {17, "Post file"}});
}

TEST(KeyTables, ProjectionKeys)
{
    ExpectTexts(projectionParamKeys, {{0, "Projection name"},
                                      {1, "Projection type"},
                                      {2, "Projection"},
                                      {3, "LatOrigin"},
                                      {4, "LonOrigin"},
                                      {5, "FalseEasting"},
                                      {6, "FalseNorthing"},
                                      {7, "ScaleFactor"},
                                      {8, "1stParallel"},
                                      {9, "2ndParallel"},
                                      {11, "UTMZone"},
                                      {12, "Hemisphere"},
                                      {16, "GridSkew"},
                                      {17, "InitialAzimuth"},
                                      {18, "LatTrueScale"},
                                      {20, "EastingAtCentre"},
                                      {21, "NorthingAtCentre"},
                                      {22, "HotineGridSkew"}});
}

TEST(KeyTables, DatumTransformationKeys)
{
    ExpectTexts(transParamKeys, {{0, "Datum transformation"},
                                 {1, "Description"},
                                 {2, "Source"},
                                 {3, "Target ellipsoid"},
                                 {4, "Shift X"},
                                 {5, "Shift Y"},
                                 {6, "Shift Z"},
                                 {7, "Rotation X"},
                                 {8, "Rotation Y"},
                                 {9, "Rotation Z"},
                                 {10, "Scale"},
                                 {12, "Shift rate X"},
                                 {13, "Shift rate Y"},
                                 {14, "Shift rate Z"},
                                 {15, "Rotation rate X"},
                                 {16, "Rotation rate Y"},
                                 {17, "Rotation rate Z"},
                                 {18, "Scale rate"},
                                 {19, "Epoch"},
                                 {20, "Fixed height"},
                                 {21, "Fixed height forward"},
                                 {22, "Fixed height reverse"}});
}

TEST(KeyTables, EllipsoidAndFormatKeys)
{
    ExpectTexts(spheroidKeys, {{0, "Ellipsoid name"}, {1, "Spheroid"}, {2, "SemiMajor"}, {3, "EccSqrd"}});
    ExpectTexts(formatParamKeys, {{0, "Format"}, {1, "Unit format"}});
}

TEST(KeyTables, ModelNamesHaveTheirNumbers)
{
    ExpectTexts(GeoidmodelTypeKeys, {{0, "None"},
                                     {1, "Manual"},
                                     {2, "OSGM"},
                                     {3, "Grid Model"},
                                     {4, "OSTN"},
                                     {5, "NTv2"},
                                     {6, "SWEN"},
                                     {7, "EGM96"},
                                     {8, "EGM2008"}});
}

TEST(KeyTables, NoModelIsNamedLikeAnotherOrLikeAnOldName)
{
    // The old names are mapped to entries only because the table does not have them.
    ExpectDistinct(With(Texts(GeoidmodelTypeKeys), {L"OSGM02 - GB", L"OSGM02 - NI", L"OSGM02 - RoI", L"OSTN02",
                                                    L"Grid Model Geoid Model", L"Sweden Swen01l", L"--None--"}));
}

TEST(KeyTables, Sections)
{
    EXPECT_EQ(CString(COORDSYSTEM_SECTION), L"COORDINATE SYSTEM");
    EXPECT_EQ(CString(COORDSYSTEM_BACKUP_SECTION), L"COORDINATE SYSTEM BACKUP");
    EXPECT_EQ(CString(FORMATS_SECTION), L"FORMATS");
    EXPECT_EQ(CString(TRANSFORMATION_SECTION), L"TRANSFORMATION");
    EXPECT_EQ(CString(PROJECTION_SECTION), L"PROJECTION");
    EXPECT_EQ(CString(SPHEROID_SECTION), L"SPHEROID");
    EXPECT_EQ(CString(UNITS_SECTION), L"UNITS");
}

TEST(KeyTables, SectionsOfAProjectAreDistinct)
{
    ExpectDistinct({COORDSYSTEM_SECTION, COORDSYSTEM_BACKUP_SECTION, FORMATS_SECTION, TRANSFORMATION_SECTION,
                    PROJECTION_SECTION, SPHEROID_SECTION, UNITS_SECTION, L"GEODESY_DTF_BACKUP",
                    L"GEODESY_PROJECTION_BACKUP", L"DTF_BACKUP", L"PROJECTION_BACKUP", L"ELLIPSOID_BACKUP",
                    L"UINT_BACKUP"});
}

TEST(KeyTables, FilesOfTheOlderGenerationAreDistinct)
{
    EXPECT_EQ(TRANS_DEF_FILENAME, L"Datums.def");
    EXPECT_EQ(TRANS_USR_FILENAME, L"Datums.usr");
    EXPECT_EQ(PROJECTION_DEF_FILENAME, L"Projections.def");
    EXPECT_EQ(PROJECTION_USR_FILENAME, L"Projections.usr");
    EXPECT_EQ(ELLIPSOID_DEF_FILENAME, L"Ellipsoids.def");
    EXPECT_EQ(ELLIPSOID_USR_FILENAME, L"Ellipsoids.usr");
    ExpectDistinct({TRANS_DEF_FILENAME, TRANS_USR_FILENAME, PROJECTION_DEF_FILENAME, PROJECTION_USR_FILENAME,
                    ELLIPSOID_DEF_FILENAME, ELLIPSOID_USR_FILENAME});
}
