#include <cmath>
#include <limits>
#include <sstream>

#include "tests/unit/coordsys/CoordSysFixture.h"

namespace {

struct DatumParameters {
    double p[15] = {};
    bool fixed = true;
    double forward = -1.0;
    double reverse = -1.0;
    bool given = false;
};

DatumParameters DatumOf(ZORGeoCoordSys& system)
{
    DatumParameters d;
    double* p = d.p;
    d.given = system.GetDatumParameters(p[0], p[1], p[2], p[3], p[4], p[5], p[6], p[7], p[8], p[9], p[10], p[11], p[12],
                                        p[13], p[14], d.fixed, d.forward, d.reverse);
    return d;
}

CString Into(void (ZORGeoCoordSys::*get)(CString&), ZORGeoCoordSys& system)
{
    CString text = L"unset";
    (system.*get)(text);
    return text;
}

double NorthingAt52(const ZORGeoCoordSys& system)
{
    double x = 0.0, y = 0.0;
    system.GeoToGrid(52.0, 5.0, x, y, false);
    return y;
}

} // namespace

TEST(ZORGeoCoordSysQueries, NewObjectAnswersEverything)
{
    ZORGeoCoordSys system;
    EXPECT_FALSE(system.IsInit());
    EXPECT_FALSE(system.HasGeoidModel());
    for (CString (ZORGeoCoordSys::*get)() :
         {&ZORGeoCoordSys::GetGeoidModelName, &ZORGeoCoordSys::GetGeoidModelFileName, &ZORGeoCoordSys::GetEllipsoidName,
          &ZORGeoCoordSys::GetSrcElpName, &ZORGeoCoordSys::GetPostModelName, &ZORGeoCoordSys::GetPostModelFileName,
          &ZORGeoCoordSys::GetDtfMethodName, &ZORGeoCoordSys::GetPrjMdName, &ZORGeoCoordSys::GetGeoidModelMd,
          &ZORGeoCoordSys::GetGeoidGrid, &ZORGeoCoordSys::GetGeoidChartDatum, &ZORGeoCoordSys::GetGridCorrectionFile,
          &ZORGeoCoordSys::GetGridCorrectionModel}) {
        EXPECT_TRUE((system.*get)().IsEmpty());
    }
    for (void (ZORGeoCoordSys::*get)(CString&) :
         {&ZORGeoCoordSys::GetSysName, &ZORGeoCoordSys::GetDtfName, &ZORGeoCoordSys::GetProjectionName}) {
        EXPECT_TRUE(Into(get, system).IsEmpty());
    }
    EXPECT_TRUE(system.GetDatabasePath().IsEmpty());
    int type = -1;
    system.GetProjectionType(type);
    EXPECT_EQ(type, 0);
    double factor = 0.0;
    EXPECT_TRUE(system.GetLinearUnitCnv(factor));
    EXPECT_EQ(factor, 1.0);
    double a = 7.0, b = 7.0, e = 7.0, reserved = 7.0, f = 7.0, invF = 7.0;
    EXPECT_FALSE(system.GetEllipsoid(a, e, invF));
    EXPECT_FALSE(system.GetEllipsoidAllParameters(a, b, e, reserved, f, invF));
    EXPECT_EQ(a + b + e + reserved + f + invF, 42.0);
    CString text = L"unset";
    short format = 7;
    EXPECT_TRUE(system.GetLinearUnitName(text));
    EXPECT_EQ(text, L"");
    text = L"unset";
    EXPECT_TRUE(system.GetLinearUnitMnem(text));
    EXPECT_EQ(text, L"");
    text = L"unset";
    EXPECT_TRUE(system.GetLinearUnitParameters(factor, format, text));
    EXPECT_EQ(factor, 1.0);
    EXPECT_EQ(format, 0);
    EXPECT_EQ(text, L"");
    text = L"unset";
    EXPECT_FALSE(system.GetGroupName(text));
    EXPECT_EQ(text, L"");
    double x = 7.0, y = 7.0, z = 7.0;
    system.GetGridCorrectionPara(x, y, z);
    EXPECT_TRUE(x == 0.0 && y == 0.0 && z == 0.0);
    EXPECT_FALSE(system.SetCoordSysUnit(L"Meters")) << "there is no project";
}

TEST(ZORGeoCoordSysQueries, MissingDatumAndProjectionLeaveTheOutputs)
{
    ZORGeoCoordSys system;
    const DatumParameters d = DatumOf(system);
    EXPECT_FALSE(d.given);
    for (const double p : d.p) {
        EXPECT_EQ(p, 0.0) << "as it was";
    }
    EXPECT_TRUE(d.fixed);
    EXPECT_EQ(d.forward, -1.0);
    EXPECT_EQ(d.reverse, -1.0);
    CArray<double, double> values;
    CStringArray names, texts;
    CArray<UINT, UINT> kinds;
    values.Add(3.5);
    names.Add(L"kept");
    texts.Add(L"kept");
    kinds.Add(3u);
    EXPECT_FALSE(system.GetProjectionConstants(values, names, texts, kinds));
    EXPECT_EQ(values[0], 3.5);
    EXPECT_EQ(names[0], L"kept");
    EXPECT_EQ(texts[0], L"kept");
    EXPECT_EQ(kinds[0], 3u);
}

TEST(ZORGeoCoordSysQueries, NamesOfAReadySystem)
{
    SurveyDatabase database;
    ZORGeoCoordSys system;
    MakeReady(system, database, kSevenSystem);
    EXPECT_EQ(Into(&ZORGeoCoordSys::GetSysName, system), kSevenSystem);
    EXPECT_EQ(Into(&ZORGeoCoordSys::GetDtfName, system), L"Seven");
    EXPECT_EQ(Into(&ZORGeoCoordSys::GetProjectionName, system), L"TM 5 East");
    EXPECT_EQ(system.GetEllipsoidName(), L"Bessel 1841");
    EXPECT_EQ(system.GetSrcElpName(), L"WGS84");
    EXPECT_EQ(system.GetDtfMethodName(), L"Bursa/Wolfe(7 Parameters)");
    EXPECT_EQ(system.GetPrjMdName(), L"Transverse Mercator");
    int type = -1;
    system.GetProjectionType(type);
    EXPECT_EQ(type, 0);
    CString text;
    EXPECT_TRUE(system.GetLinearUnitName(text));
    EXPECT_EQ(text, L"Meters");
    EXPECT_TRUE(system.GetLinearUnitMnem(text));
    EXPECT_EQ(text, L"m");
    double factor = 0.0;
    short format = 0;
    EXPECT_TRUE(system.GetLinearUnitParameters(factor, format, text));
    EXPECT_EQ(factor, 1.0);
    EXPECT_EQ(format, 3);
    EXPECT_EQ(text, L"m");
    CStringArray systems;
    EXPECT_TRUE(system.GetGeoDatabase().GetAllSystemNames(systems));
    EXPECT_EQ(systems.GetSize(), 3);
    EXPECT_TRUE(system.GetDatabasePath().IsEmpty());
}

TEST(ZORGeoCoordSysQueries, GroupNameIsFilledAndTheAnswerFalse)
{
    SurveyDatabase database;
    ZORGeoCoordSys system;
    MakeReady(system, database, kSevenSystem);
    CString group;
    EXPECT_FALSE(system.GetGroupName(group));
    EXPECT_EQ(group, kGroup);
}

TEST(ZORGeoCoordSysQueries, DatumFilePathIsLeftAlone)
{
    ZORGeoCoordSys system;
    CString path = L"unchanged";
    EXPECT_TRUE(system.GetDatumFilePath(path));
    EXPECT_EQ(path, L"unchanged");
}

TEST(ZORGeoCoordSysQueries, DatumParametersAreAsStoredInAnyUnit)
{
    SurveyDatabase database;
    const CString section = kDatumPrefix + L"Fourteen";
    database.main.SetItem(section, transParamKeys[TransKey::fixedHeight], true, true);
    database.main.SetItem(section, transParamKeys[TransKey::fixedHeightForward], 44.0, true);
    database.main.SetItem(section, transParamKeys[TransKey::fixedHeightReverse], 3.0, true);
    ZORGeoCoordSys system;
    MakeReady(system, database, kFourteenSystem, {.unit = L"Feet"});
    const DatumParameters d = DatumOf(system);
    const double expected[15] = {-565.7346, -50.4058, -465.2895, 0.2,     -0.15,  0.3,   -4.07244, 0.011,
                                 -0.022,    0.015,    0.0011,    -0.0022, 0.0015, 0.003, 2010.0};
    EXPECT_TRUE(d.given);
    for (int i = 0; i < 15; ++i) {
        EXPECT_EQ(d.p[i], expected[i]) << i;
    }
    EXPECT_TRUE(d.fixed);
    EXPECT_EQ(d.forward, 44.0);
    EXPECT_EQ(d.reverse, 3.0);
}

TEST(ZORGeoCoordSysQueries, EllipsoidGivesTheEccentricityItself)
{
    SurveyDatabase database;
    ZORGeoCoordSys system;
    MakeReady(system, database, kSevenSystem);
    double a = 0.0, b = 0.0, e = 0.0, reserved = 7.0, f = 0.0, invF = 0.0;
    EXPECT_TRUE(system.GetEllipsoid(a, e, invF));
    // Bessel 1841: 1 / f = 299.1528128, b = 6356078.963.
    EXPECT_EQ(a, 6377397.155);
    EXPECT_NEAR(e, 0.0816968312, 1e-9);
    EXPECT_NEAR(invF, 299.1528128, 1e-4);
    EXPECT_TRUE(system.GetEllipsoidAllParameters(a, b, e, reserved, f, invF));
    EXPECT_EQ(a, 6377397.155);
    EXPECT_NEAR(b, 6356078.963, 1e-3);
    EXPECT_NEAR(e, 0.0816968312, 1e-9);
    EXPECT_EQ(reserved, 0.0);
    EXPECT_NEAR(f, 1.0 / 299.1528128, 1e-10);
    EXPECT_NEAR(invF, 299.1528128, 1e-4);
}

TEST(ZORGeoCoordSysQueries, SphereHasInfiniteInverseFlattening)
{
    SurveyDatabase database;
    AddEllipsoid(database.main, {L"Sphere", 6371000.0, 0.0});
    database.SetSystemItem(kPlainSystem, kSystemEllipsoid, CString(L"Sphere"));
    ZORGeoCoordSys system;
    MakeReady(system, database, kPlainSystem);
    double a = 0.0, b = 0.0, e = 7.0, reserved = 7.0, f = 7.0, invF = 7.0;
    EXPECT_TRUE(system.GetEllipsoidAllParameters(a, b, e, reserved, f, invF));
    EXPECT_EQ(b, 6371000.0);
    EXPECT_EQ(e, 0.0);
    EXPECT_EQ(invF, std::numeric_limits<double>::infinity());
    EXPECT_EQ(f, 0.0);
}

// The projection refuses an unusable ellipsoid, so Init fails, and the ellipsoid stays to be asked.
TEST(ZORGeoCoordSysQueries, UnusableEllipsoidLeavesTheInverseFlattening)
{
    SurveyDatabase database;
    AddEllipsoid(database.main, {L"Too small", 5000000.0, 0.0025});
    database.SetSystemItem(kPlainSystem, kSystemEllipsoid, CString(L"Too small"));
    database.Save();
    ZORGeoCoordSys system;
    EXPECT_FALSE(InitOpen(system, database.project, kPlainSystem, true));
    double a = 0.0, b = 7.0, e = 0.0, reserved = 7.0, f = 0.0, invF = 4.0;
    EXPECT_TRUE(system.GetEllipsoidAllParameters(a, b, e, reserved, f, invF));
    EXPECT_EQ(a, 5000000.0);
    EXPECT_EQ(b, 0.0);
    EXPECT_EQ(e, 0.05);
    EXPECT_EQ(invF, 4.0);
    EXPECT_EQ(f, 0.25);
}

TEST(ZORGeoCoordSysQueries, ProjectionConstantsComeInTheCataloguesOrder)
{
    SurveyDatabase database;
    ZORGeoCoordSys system;
    MakeReady(system, database, kPlainSystem);
    CArray<double, double> values;
    CStringArray names, texts;
    CArray<UINT, UINT> kinds;
    EXPECT_TRUE(system.GetProjectionConstants(values, names, texts, kinds));
    const double expected[] = {5.0, 0.0, 500000.0, 0.0, 0.9996, 0.0};
    ASSERT_EQ(values.GetSize(), 6);
    for (int i = 0; i < 6; ++i) {
        EXPECT_EQ(values[i], expected[i]) << i;
    }
    EXPECT_EQ(names[0], L"Longitude of Origin");
    EXPECT_EQ(kinds[0], 1u);
    EXPECT_EQ(texts.GetSize(), 6);
    std::list<std::pair<int, short>> codes;
    std::list<std::pair<int, double>> parameters;
    system.GetGeoKeys(codes, parameters);
    EXPECT_EQ(codes.size(), 3u);
    EXPECT_EQ(codes.back(), (std::pair<int, short>{3075, short{1}}));
}

// The unit.

TEST(ZORGeoCoordSysQueries, NewUnitChangesTheGridAndNotTheName)
{
    SurveyDatabase database;
    ZORGeoCoordSys system;
    MakeReady(system, database, kPlainSystem);
    const double metres = NorthingAt52(system);
    EXPECT_TRUE(system.SetCoordSysUnit(L"Feet"));
    CString text;
    system.GetLinearUnitName(text);
    EXPECT_EQ(text, L"Meters");
    system.GetLinearUnitMnem(text);
    EXPECT_EQ(text, L"ft");
    double factor = 0.0;
    system.GetLinearUnitCnv(factor);
    EXPECT_EQ(factor, 0.3048);
    EXPECT_NEAR(NorthingAt52(system) * 0.3048, metres, 1e-6);
    EXPECT_EQ(Ellipsoid::UnitFactor(), 0.3048);
    EXPECT_EQ(CDatumTransform::m_unitCnv, 0.3048);
    EXPECT_TRUE(system.SetCoordSysUnit(L"Meters"));
    EXPECT_EQ(NorthingAt52(system), metres);
}

// Beside it the axes stay metres: the ellipsoid and the datum are those of before.
TEST(ZORGeoCoordSysQueries, NewUnitLeavesEllipsoidAndDatum)
{
    SurveyDatabase database;
    ZORGeoCoordSys system;
    MakeReady(system, database, kSevenSystem);
    EXPECT_TRUE(system.SetCoordSysUnit(L"Feet"));
    double a = 0.0, e = 0.0, invF = 0.0;
    EXPECT_TRUE(system.GetEllipsoid(a, e, invF));
    EXPECT_EQ(a, 6377397.155);
    EXPECT_EQ(DatumOf(system).p[0], -565.7346);
    double x = 0.0, y = 0.0, z = 0.0;
    EXPECT_TRUE(system.GeogsToCartesian(0.0, 0.0, 1000.0, x, y, z, false));
    EXPECT_NEAR(x, 6377397.155 + 304.8, 1e-6) << "heights are in the new unit";
}

TEST(ZORGeoCoordSysQueries, UnitOfFactorZeroCountsAsTheMetre)
{
    SurveyDatabase database;
    AddUnit(database.main, L"Nothing", L"0,no");
    ZORGeoCoordSys system;
    MakeReady(system, database, kPlainSystem, {.unit = L"Feet"});
    EXPECT_TRUE(system.SetCoordSysUnit(L"Nothing"));
    double factor = 7.0;
    system.GetLinearUnitCnv(factor);
    EXPECT_EQ(factor, 0.0) << "as the record has it";
    EXPECT_EQ(Ellipsoid::UnitFactor(), 1.0);
    EXPECT_EQ(CDatumTransform::m_unitCnv, 1.0);
}

TEST(ZORGeoCoordSysQueries, UnitOfTheRecordIsNamedAfterInitWithAnother)
{
    SurveyDatabase database;
    ZORGeoCoordSys system;
    MakeReady(system, database, kPlainSystem, {.unit = L"Feet"});
    CString name;
    system.GetLinearUnitName(name);
    EXPECT_EQ(name, L"Meters");
    double factor = 0.0;
    system.GetLinearUnitCnv(factor);
    EXPECT_EQ(factor, 0.3048);
}

TEST(ZORGeoCoordSysQueries, UnknownUnitChangesNothing)
{
    SurveyDatabase database;
    ZORGeoCoordSys system;
    MakeReady(system, database, kPlainSystem, {.unit = L"Feet"});
    const double feet = NorthingAt52(system);
    database.project.SetItem(FORMATS_SECTION, formatParamKeys[FormatKey::unitFormat], 5.0, true);
    EXPECT_FALSE(system.SetCoordSysUnit(L"Cubits"));
    EXPECT_FALSE(system.SetCoordSysUnit(L"meters")) << "the name counts in exact case";
    EXPECT_FALSE(system.SetCoordSysUnit(L"Meter")) << "the old spelling is mended in records alone";
    double factor = 0.0;
    short format = 0;
    CString mnemonic;
    system.GetLinearUnitParameters(factor, format, mnemonic);
    EXPECT_EQ(factor, 0.3048);
    EXPECT_EQ(format, 3) << "the project's of Init";
    EXPECT_EQ(mnemonic, L"ft");
    CString name;
    system.GetLinearUnitName(name);
    EXPECT_EQ(name, L"Meters");
    EXPECT_EQ(Ellipsoid::UnitFactor(), 0.3048);
    EXPECT_EQ(CDatumTransform::m_unitCnv, 0.3048);
    EXPECT_EQ(NorthingAt52(system), feet);
}

TEST(ZORGeoCoordSysQueries, UnitComesFromTheMainFileFirst)
{
    SurveyDatabase database;
    AddUnit(database.user, L"Feet", L"0.3,uf");
    AddUnit(database.user, L"Fathoms", L"1.8288,fm");
    ZORGeoCoordSys system;
    MakeReady(system, database, kPlainSystem);
    double factor = 0.0;
    EXPECT_TRUE(system.SetCoordSysUnit(L"Feet"));
    system.GetLinearUnitCnv(factor);
    EXPECT_EQ(factor, 0.3048);
    EXPECT_TRUE(system.SetCoordSysUnit(L"Fathoms"));
    system.GetLinearUnitCnv(factor);
    EXPECT_EQ(factor, 1.8288);
}

// Init takes the user's projection, a change of unit the delivered one of the same name.
TEST(ZORGeoCoordSysQueries, ProjectionComesFromTheMainFileFirstWhenTheUnitChanges)
{
    SurveyDatabase database;
    AddProjection(database.user, {.name = L"TM 5 East", .falseEasting = 300000.0});
    ZORGeoCoordSys system;
    MakeReady(system, database, kPlainSystem);
    double x = 0.0, y = 0.0;
    system.GeoToGrid(52.0, 5.0, x, y, false);
    EXPECT_EQ(x, 300000.0);
    EXPECT_TRUE(system.SetCoordSysUnit(L"Meters"));
    system.GeoToGrid(52.0, 5.0, x, y, false);
    EXPECT_EQ(x, 500000.0);
    // Known to the user file alone, it comes from there.
    database.main.DeleteSection(kProjectionPrefix + L"TM 5 East");
    MakeReady(system, database, kPlainSystem, {.unit = L"Feet"});
    system.GeoToGrid(52.0, 5.0, x, y, false);
    EXPECT_EQ(x, 300000.0);
}

TEST(ZORGeoCoordSysQueries, UnitNeedsTheProjectsFormats)
{
    SurveyDatabase database;
    ZORGeoCoordSys system;
    MakeReady(system, database, kPlainSystem);
    database.project.DeleteSection(FORMATS_SECTION);
    EXPECT_FALSE(system.SetCoordSysUnit(L"Feet"));
    double factor = 0.0;
    system.GetLinearUnitCnv(factor);
    EXPECT_EQ(factor, 1.0);
}

TEST(ZORGeoCoordSysQueries, UnitStaysChangedWhenTheProjectionCannotBeMade)
{
    SurveyDatabase database;
    ZORGeoCoordSys system;
    MakeReady(system, database, kPlainSystem);
    dynamic_cast<ZorGeoDatabase&>(system.GetGeoDatabase())
        .GetMainFile()
        .SetItem(kProjectionPrefix + L"TM 5 East", projectionParamKeys[ProjectionKey::type], 5, true);
    EXPECT_FALSE(system.SetCoordSysUnit(L"Feet"));
    double factor = 0.0;
    system.GetLinearUnitCnv(factor);
    EXPECT_EQ(factor, 0.3048);
    EXPECT_EQ(Ellipsoid::UnitFactor(), 0.3048);
    EXPECT_EQ(CDatumTransform::m_unitCnv, 0.3048);
    EXPECT_EQ(system.PointScaleFactor(500000.0, 5760000.0), 0.0) << "no projection is left";
}

TEST(ZORGeoCoordSysQueries, UnitStaysChangedWhenTheCatalogueHasNoPlacesForTheConstants)
{
    for (const UnfitCatalogue& unfit : kUnfitCatalogues) {
        SurveyDatabase database;
        ZORGeoCoordSys system;
        MakeReady(system, database, kPlainSystem);
        unfit.Write(database);
        bool answer = true;
        EXPECT_NO_THROW(answer = system.SetCoordSysUnit(L"Feet")) << unfit.what;
        EXPECT_FALSE(answer) << unfit.what;
        double factor = 0.0;
        system.GetLinearUnitCnv(factor);
        EXPECT_EQ(factor, 0.3048) << unfit.what;
        EXPECT_EQ(system.PointScaleFactor(500000.0, 5760000.0), 0.0) << "no projection is left";
    }
}

// A host that loads a broken datum from the system's own database leaves both its files throwing.
TEST(ZORGeoCoordSysQueries, UnitChangesOnADatabaseThatABrokenDatumHasLeftThrowing)
{
    SurveyDatabase database;
    AddUnit(database.user, L"Fathoms", L"1.8288,fm");
    AddProjection(database.user, {.name = L"User TM"});
    database.SetSystemItem(kPlainSystem, kSystemProjection, CString(L"User TM"));
    for (FileObject* file : {&database.main, &database.user}) {
        file->SetItem(kDatumPrefix + L"Broken", kDatumMethod, kMethodHelmert7, true);
    }
    ZORGeoCoordSys system;
    MakeReady(system, database, kPlainSystem);
    CDatumTransform broken;
    ASSERT_FALSE(broken.Load(dynamic_cast<ZorGeoDatabase&>(system.GetGeoDatabase()), kDatumPrefix + L"Broken"));
    bool answer = false;
    ASSERT_NO_THROW(answer = system.SetCoordSysUnit(L"Fathoms"));
    EXPECT_TRUE(answer);
    double factor = 0.0;
    system.GetLinearUnitCnv(factor);
    EXPECT_EQ(factor, 1.8288);
    double x = 0.0, y = 0.0;
    system.GeoToGrid(52.0, 5.0, x, y, false);
    EXPECT_EQ(x, 500000.0);
    ASSERT_NO_THROW(answer = system.SetCoordSysUnit(L"Cubits"));
    EXPECT_FALSE(answer);
}

TEST(ZORGeoCoordSysQueries, UnitChangeReadsTheProjectsFormatAgain)
{
    SurveyDatabase database;
    ZORGeoCoordSys system;
    MakeReady(system, database, kPlainSystem);
    database.project.SetItem(FORMATS_SECTION, formatParamKeys[FormatKey::unitFormat], 5.7, true);
    EXPECT_TRUE(system.SetCoordSysUnit(L"Feet"));
    double factor = 0.0;
    short format = 0;
    CString mnemonic;
    system.GetLinearUnitParameters(factor, format, mnemonic);
    EXPECT_EQ(format, 5);
}

TEST(ZORGeoCoordSysQueries, UnitOfAProjectWithoutAFormatHasFormatZero)
{
    SurveyDatabase database;
    ZORGeoCoordSys system;
    MakeReady(system, database, kPlainSystem);
    database.project.DeleteItem(FORMATS_SECTION, formatParamKeys[FormatKey::unitFormat], false);
    database.project.CreateSection(FORMATS_SECTION, true);
    EXPECT_TRUE(system.SetCoordSysUnit(L"Feet"));
    double factor = 0.0;
    short format = 7;
    CString mnemonic;
    system.GetLinearUnitParameters(factor, format, mnemonic);
    EXPECT_EQ(format, 0);
}

TEST(ZORGeoCoordSysQueries, UnitRecordThatCannotBeReadKeepsTheEarlierFactor)
{
    SurveyDatabase database;
    AddUnit(database.main, L"Broken", L"one third");
    ZORGeoCoordSys system;
    MakeReady(system, database, kPlainSystem, {.unit = L"Feet"});
    EXPECT_TRUE(system.SetCoordSysUnit(L"Broken"));
    double factor = 0.0;
    system.GetLinearUnitCnv(factor);
    EXPECT_EQ(factor, 0.3048);
    EXPECT_EQ(Ellipsoid::UnitFactor(), 0.3048);
}
