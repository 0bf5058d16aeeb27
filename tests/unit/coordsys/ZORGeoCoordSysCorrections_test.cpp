#include <cmath>

#include "tests/support/TestGeoidModels.h"
#include "tests/unit/coordsys/CoordSysFixture.h"

namespace {

const CString kModelText = L"Error in geoid model settings - check coordinate system geoid model setting and select "
                           L"proper geoid model";

void GiveGeoid(SurveyDatabase& database, const CString& method, const CString& grid)
{
    database.SetSystemItem(kPlainSystem, kGeoidUse, true);
    database.SetSystemItem(kPlainSystem, kGeoidMethod, method);
    database.SetSystemItem(kPlainSystem, kGeoidGrid, grid);
}

void GivePostModel(SurveyDatabase& database, const CString& model, const CString& file)
{
    database.SetSystemItem(kPlainSystem, kPostModel, model);
    database.SetSystemItem(kPlainSystem, kPostFile, file);
}

struct GeoidAnswer {
    bool given = false;
    double height = -1.0;
};

GeoidAnswer GeoidOf(const ZORGeoCoordSys& system)
{
    GeoidAnswer answer;
    answer.given = system.CalGeoidHeight(52.0, 5.0, 500000.0, 5760000.0, answer.height);
    return answer;
}

} // namespace

TEST(ZORGeoCoordSysCorrections, SystemsOwnGeoidIsMadeWithItsGridAndTheChartDatum)
{
    TestGeoidSettings settings = ConstantGeoid(43.5);
    const ScopedGeoidModel<7> egm96(settings);
    SurveyDatabase database;
    GiveGeoid(database, L"EGM96", L"egm96.pgm");
    ZORGeoCoordSys system;
    MakeReady(system, database, kPlainSystem, {.chartDatum = L"LAT"});
    EXPECT_TRUE(system.HasGeoidModel());
    EXPECT_EQ(system.GetGeoidModelMd(), L"EGM96");
    EXPECT_EQ(system.GetGeoidGrid(), L"egm96.pgm");
    EXPECT_EQ(system.GetGeoidChartDatum(), L"LAT");
    EXPECT_EQ(system.GetGeoidModelName(), L"") << "nothing was asked for";
    EXPECT_EQ(settings.calls->inits, std::vector<ZorGeoCoordSysBase*>{&system});
    EXPECT_EQ(settings.calls->files, std::vector<CString>{L"egm96.pgm"});
    EXPECT_EQ(settings.calls->chartDatums, std::vector<CString>{L"LAT"});
    EXPECT_EQ(GeoidOf(system).height, 43.5);
}

TEST(ZORGeoCoordSysCorrections, ProjectOverridesGeoidAndFile)
{
    TestGeoidSettings egm96 = ConstantGeoid(1.0);
    TestGeoidSettings egm08 = ConstantGeoid(2.0);
    const ScopedGeoidModel<7> model96(egm96);
    const ScopedGeoidModel<8> model08(egm08);
    SurveyDatabase database;
    GiveGeoid(database, L"EGM96", L"egm96.pgm");
    ZORGeoCoordSys system;
    MakeReady(system, database, kPlainSystem, {.geoidModel = L"EGM2008", .geoidFile = L"egm08.pgm"});
    EXPECT_EQ(system.GetGeoidModelMd(), L"EGM2008");
    EXPECT_EQ(system.GetGeoidGrid(), L"egm08.pgm");
    EXPECT_EQ(system.GetGeoidModelName(), L"EGM2008");
    EXPECT_EQ(system.GetGeoidModelFileName(), L"egm08.pgm");
    EXPECT_EQ(GeoidOf(system).height, 2.0);
    EXPECT_EQ(egm96.calls->made, 0);
}

TEST(ZORGeoCoordSysCorrections, GeoidFileWithoutAGeoidIsNotUsed)
{
    SurveyDatabase database;
    ZORGeoCoordSys system;
    MakeReady(system, database, kPlainSystem, {.geoidFile = L"egm08.pgm"});
    EXPECT_FALSE(system.HasGeoidModel());
    EXPECT_EQ(system.GetGeoidGrid(), L"");
    EXPECT_EQ(system.GetGeoidModelFileName(), L"egm08.pgm");
}

TEST(ZORGeoCoordSysCorrections, NoneSwitchesTheGeoidOff)
{
    TestGeoidSettings settings = ConstantGeoid(43.5);
    const ScopedGeoidModel<7> egm96(settings);
    SurveyDatabase database;
    GiveGeoid(database, L"EGM96", L"egm96.pgm");
    ZORGeoCoordSys system;
    MakeReady(system, database, kPlainSystem, {.geoidModel = L"--None--"});
    EXPECT_FALSE(system.HasGeoidModel());
    EXPECT_EQ(settings.calls->made, 0);
    EXPECT_FALSE(GeoidOf(system).given);
    EXPECT_EQ(GeoidOf(system).height, -1.0);
}

TEST(ZORGeoCoordSysCorrections, NoneInAnotherCaseIsTheNameOfAModel)
{
    const ModuleTexts texts;
    ScriptedDesk desk;
    SurveyDatabase database;
    GiveGeoid(database, L"EGM96", L"egm96.pgm");
    database.Save();
    ZORGeoCoordSys system;
    InitOpen(system, database.project, kPlainSystem, false, {.geoidModel = L"--none--"});
    EXPECT_TRUE(system.HasGeoidModel());
    ASSERT_EQ(desk.messages.size(), 1u);
    EXPECT_EQ(desk.messages[0].text, kModelText);
}

TEST(ZORGeoCoordSysCorrections, GeoidsOf2002AreMapped)
{
    struct Case {
        const wchar_t* method;
        const wchar_t* file;
        const wchar_t* effective;
        const wchar_t* grid;
    };
    for (const Case& row :
         {Case{L"OSGM02 - GB", L"", L"OSGM", L"OSTN02_OSGM02_GB.txt"},
          Case{L"OSGM02 - NI", L"", L"OSGM", L"OSGM02_NI.txt"}, Case{L"OSGM02 - RoI", L"", L"OSGM", L"OSGM02_RoI.txt"},
          Case{L"OSGM02 - GB", L"mine.txt", L"OSGM", L"mine.txt"},
          Case{L"osgm02 - gb", L"", L"osgm02 - gb", L"stored.txt"}}) {
        TestGeoidSettings settings = ConstantGeoid(50.0);
        const ScopedGeoidModel<2> osgm(settings);
        SurveyDatabase database;
        GiveGeoid(database, row.method, L"stored.txt");
        ZORGeoCoordSys system;
        MakeReady(system, database, kPlainSystem, {.geoidFile = row.file});
        EXPECT_EQ(system.GetGeoidModelMd(), row.effective);
        EXPECT_EQ(system.GetGeoidGrid(), row.grid);
    }
}

TEST(ZORGeoCoordSysCorrections, NameGivenByTheProjectIsNotMapped)
{
    SurveyDatabase database;
    ZORGeoCoordSys system;
    MakeReady(system, database, kPlainSystem, {.geoidModel = L"OSGM02 - GB"});
    EXPECT_EQ(system.GetGeoidModelMd(), L"OSGM02 - GB");
    EXPECT_EQ(system.GetGeoidGrid(), L"");
}

TEST(ZORGeoCoordSysCorrections, FixedSeparationNeedsNoModel)
{
    SurveyDatabase database;
    GiveGeoid(database, L"Manual", L"");
    database.SetSystemItem(kPlainSystem, kGeoidManual, 41.25);
    database.Save();
    ScriptedDesk desk;
    ZORGeoCoordSys system;
    InitOpen(system, database.project, kPlainSystem, false);
    EXPECT_TRUE(system.HasGeoidModel());
    EXPECT_EQ(GeoidOf(system).height, 41.25);
    CString message;
    double height = 0.0;
    EXPECT_TRUE(system.CalGeoidHeight(52.0, 5.0, 0.0, 0.0, height, message));
    EXPECT_EQ(height, 41.25);
    EXPECT_TRUE(desk.messages.empty());
}

TEST(ZORGeoCoordSysCorrections, MethodNoneMakesNothing)
{
    const ModuleTexts texts;
    ScriptedDesk desk;
    SurveyDatabase database;
    GiveGeoid(database, L"None", L"");
    database.Save();
    ZORGeoCoordSys system;
    InitOpen(system, database.project, kPlainSystem, false);
    EXPECT_TRUE(system.HasGeoidModel());
    EXPECT_FALSE(GeoidOf(system).given);
    EXPECT_TRUE(desk.messages.empty());
}

TEST(ZORGeoCoordSysCorrections, ModelsMessageComesBack)
{
    TestGeoidSettings settings = ConstantGeoid(43.5);
    settings.message = L"edge of the grid";
    const ScopedGeoidModel<7> egm96(settings);
    SurveyDatabase database;
    ZORGeoCoordSys system;
    MakeReady(system, database, kPlainSystem, {.geoidModel = L"EGM96"});
    CString message;
    double height = 0.0;
    EXPECT_TRUE(system.CalGeoidHeight(52.0, 5.0, 6.0, 7.0, height, message));
    EXPECT_EQ(message, L"edge of the grid");
    const auto& call = settings.calls->heights.back();
    EXPECT_EQ(call.latitude, 52.0);
    EXPECT_EQ(call.longitude, 5.0);
    EXPECT_EQ(call.easting, 6.0);
    EXPECT_EQ(call.northing, 7.0);
}

TEST(ZORGeoCoordSysCorrections, ModelThatCannotBeMadeIsToldUnlessSilent)
{
    struct Case {
        const wchar_t* method;
        bool acceptsInit;
        bool answers;
    };
    const ModuleTexts texts;
    for (const Case& row : {Case{L"no such model", true, false}, Case{GeoidmodelTypeKeys[30].GetString(), true, false},
                            Case{L"EGM96", false, true}}) {
        for (const bool silent : {false, true}) {
            TestGeoidSettings settings = ConstantGeoid(43.5);
            settings.acceptsInit = row.acceptsInit;
            const ScopedGeoidModel<7> egm96(settings);
            const ScopedNoGeoidModel<30> noReader;
            ScriptedDesk desk;
            SurveyDatabase database;
            GiveGeoid(database, row.method, L"file.gtx");
            database.Save();
            ZORGeoCoordSys system;
            InitOpen(system, database.project, kPlainSystem, silent);
            EXPECT_TRUE(system.IsInit());
            EXPECT_TRUE(system.HasGeoidModel());
            ASSERT_EQ(desk.messages.size(), silent ? 0u : 1u);
            if (!silent) {
                EXPECT_EQ(desk.messages[0].text, kModelText);
                EXPECT_EQ(desk.messages[0].icon, MessageIcon::standard);
            }
            EXPECT_EQ(GeoidOf(system).given, row.answers) << "a model that refused stays and decides itself";
        }
    }
}

TEST(ZORGeoCoordSysCorrections, GeoidFileThatCannotBeOpenedIsToldUnlessSilent)
{
    const ModuleTexts texts;
    for (const bool silent : {false, true}) {
        TestGeoidSettings settings = ConstantGeoid(43.5);
        settings.acceptsFile = false;
        const ScopedGeoidModel<7> egm96(settings);
        ScriptedDesk desk;
        SurveyDatabase database;
        GiveGeoid(database, L"EGM96", L"100%sure.gtx");
        database.Save();
        ZORGeoCoordSys system;
        InitOpen(system, database.project, kPlainSystem, silent);
        ASSERT_EQ(desk.messages.size(), silent ? 0u : 1u);
        if (!silent) {
            EXPECT_EQ(desk.messages[0].text,
                      L"Could not open geoid model file:\n\n100%sure.gtx\n\nCheck the coordinate "
                      L"system in the project configuration.");
            EXPECT_EQ(desk.messages[0].icon, MessageIcon::exclamation);
        }
        EXPECT_EQ(settings.calls->chartDatums.size(), 1u);
        EXPECT_TRUE(GeoidOf(system).given) << "the model decides";
    }
}

TEST(ZORGeoCoordSysCorrections, EarlierGeoidStaysInForceForASystemWithout)
{
    TestGeoidSettings settings = ConstantGeoid(43.5);
    const ScopedGeoidModel<7> egm96(settings);
    SurveyDatabase database;
    ZORGeoCoordSys system;
    MakeReady(system, database, kSevenSystem, {.geoidModel = L"EGM96"});
    MakeReady(system, database, kPlainSystem);
    EXPECT_FALSE(system.HasGeoidModel());
    EXPECT_EQ(GeoidOf(system).height, 43.5);
    EXPECT_EQ(settings.calls->destroyed, 0);
    MakeReady(system, database, kPlainSystem, {.geoidModel = L"EGM96"});
    EXPECT_EQ(settings.calls->destroyed, 1) << "a model made again takes its place";
}

TEST(ZORGeoCoordSysCorrections, FixedSeparationStaysInForceUntilAModelIsMade)
{
    const ScopedGeoidModel<7> egm96(ConstantGeoid(43.5));
    SurveyDatabase database;
    GiveGeoid(database, L"Manual", L"");
    database.SetSystemItem(kPlainSystem, kGeoidManual, 41.25);
    ZORGeoCoordSys system;
    MakeReady(system, database, kPlainSystem);
    MakeReady(system, database, kSevenSystem);
    EXPECT_FALSE(system.HasGeoidModel());
    EXPECT_EQ(GeoidOf(system).height, 41.25);
    system.CloseCorrectionModels();
    EXPECT_EQ(GeoidOf(system).height, 41.25);
    MakeReady(system, database, kSevenSystem, {.geoidModel = L"EGM96"});
    EXPECT_EQ(GeoidOf(system).height, 43.5);
}

TEST(ZORGeoCoordSysCorrections, CloseGivesBothModelsBack)
{
    TestGeoidSettings geoid = ConstantGeoid(43.5);
    TestGeoidSettings post;
    post.gridShift = ConstantShift(3.0, 4.0);
    const ScopedGeoidModel<7> egm96(geoid);
    const ScopedGeoidModel<4> ostn(post);
    SurveyDatabase database;
    ZORGeoCoordSys system;
    MakeReady(system, database, kPlainSystem, {.geoidModel = L"EGM96", .postModel = L"OSTN"});
    double x = 0.0, y = 0.0;
    EXPECT_TRUE(system.CalPostXY(1.0, 1.0, x, y, false));
    EXPECT_EQ(x, 4.0);
    system.CloseCorrectionModels();
    EXPECT_EQ(geoid.calls->destroyed, 1);
    EXPECT_EQ(post.calls->destroyed, 1);
    EXPECT_FALSE(GeoidOf(system).given);
    EXPECT_TRUE(system.CalPostXY(1.0, 1.0, x, y, false));
    EXPECT_EQ(x, 1.0);
    EXPECT_TRUE(system.HasGeoidModel()) << "nothing else changes";
    system.CloseCorrectionModels();
    EXPECT_EQ(geoid.calls->destroyed, 1);
}

TEST(ZORGeoCoordSysCorrections, PostShiftsOfTheSystem)
{
    SurveyDatabase database;
    database.SetSystemItem(kPlainSystem, kPostUse, true);
    database.SetSystemItem(kPlainSystem, kPostX, 10.0);
    database.SetSystemItem(kPlainSystem, kPostY, 20.0);
    database.SetSystemItem(kPlainSystem, kPostZ, 1.0);
    ZORGeoCoordSys system;
    MakeReady(system, database, kPlainSystem);
    double x = -1.0, y = -1.0, z = -1.0;
    EXPECT_TRUE(system.CalPostXYZ(0.0, 0.0, 0.0, x, y, z, false));
    EXPECT_EQ(x, 10.0);
    EXPECT_EQ(y, 20.0);
    EXPECT_EQ(z, 1.0);
    EXPECT_TRUE(system.CalPostXYZ(10.0, 20.0, 1.0, x, y, z, true));
    EXPECT_EQ(x, 0.0);
    EXPECT_EQ(y, 0.0);
    EXPECT_EQ(z, 0.0);
    double px = 0.0, py = 0.0, pz = 0.0;
    system.GetGridCorrectionPara(px, py, pz);
    EXPECT_EQ(px, 10.0);
    EXPECT_EQ(py, 20.0);
    EXPECT_EQ(pz, 1.0);
    // The next system has none: nothing is corrected, while the object's three numbers stay.
    MakeReady(system, database, kSevenSystem);
    EXPECT_TRUE(system.CalPostXYZ(0.0, 0.0, 0.0, x, y, z, false));
    EXPECT_EQ(x, 0.0);
    EXPECT_EQ(z, 0.0);
    system.GetGridCorrectionPara(px, py, pz);
    EXPECT_EQ(px, 10.0);
}

TEST(ZORGeoCoordSysCorrections, StoredShiftsThatAreOffDoNothing)
{
    SurveyDatabase database;
    database.SetSystemItem(kPlainSystem, kPostUse, false);
    database.SetSystemItem(kPlainSystem, kPostX, 10.0);
    ZORGeoCoordSys system;
    MakeReady(system, database, kPlainSystem);
    double x = -1.0, y = -1.0;
    EXPECT_TRUE(system.CalPostXY(0.0, 0.0, x, y, false));
    EXPECT_EQ(x, 0.0);
}

// By hand: a quarter turn about (100, 50); u, v become v, -u.
TEST(ZORGeoCoordSysCorrections, HorizontalAdjustOfTheSystem)
{
    struct Case {
        double scale;
        double x;
        double y;
    };
    for (const Case& row : {Case{2.0, 108.0, 44.0}, Case{0.0, 104.0, 47.0}}) {
        SurveyDatabase database;
        database.SetSystemItem(kPlainSystem, kHorAdjustUse, true);
        database.SetSystemItem(kPlainSystem, kHorAdjustOriginX, 100.0);
        database.SetSystemItem(kPlainSystem, kHorAdjustOriginY, 50.0);
        database.SetSystemItem(kPlainSystem, kHorAdjustRotation, 90.0 * 3600.0);
        database.SetSystemItem(kPlainSystem, kHorAdjustScale, row.scale);
        ZORGeoCoordSys system;
        MakeReady(system, database, kPlainSystem);
        double x = 0.0, y = 0.0, z = 0.0;
        EXPECT_TRUE(system.CalPostXYZ(103.0, 54.0, 9.0, x, y, z, false));
        EXPECT_NEAR(x, row.x, 1e-12);
        EXPECT_NEAR(y, row.y, 1e-12);
        EXPECT_EQ(z, 9.0);
        double flatX = 0.0, flatY = 0.0;
        EXPECT_TRUE(system.CalPostXY(103.0, 54.0, flatX, flatY, false));
        EXPECT_EQ(flatX, x);
        EXPECT_EQ(flatY, y);
        EXPECT_TRUE(system.CalPostXY(x, y, flatX, flatY, true));
        EXPECT_NEAR(flatX, 103.0, 1e-12);
        MakeReady(system, database, kSevenSystem);
        EXPECT_TRUE(system.CalPostXY(103.0, 54.0, flatX, flatY, false));
        EXPECT_EQ(flatX, 103.0) << "the next system has no adjust";
    }
}

TEST(ZORGeoCoordSysCorrections, VerticalAdjustOfTheSystem)
{
    SurveyDatabase database;
    database.SetSystemItem(kPlainSystem, kVertAdjustUse, true);
    database.SetSystemItem(kPlainSystem, kVertAdjustOriginX, 0.0);
    database.SetSystemItem(kPlainSystem, kVertAdjustOriginY, 10.0);
    database.SetSystemItem(kPlainSystem, kVertAdjustSlopeX, 1000.0);
    database.SetSystemItem(kPlainSystem, kVertAdjustSlopeY, 500.0);
    ZORGeoCoordSys system;
    MakeReady(system, database, kPlainSystem);
    double x = 0.0, y = 0.0, z = 0.0;
    EXPECT_TRUE(system.CalPostXYZ(100.0, 10.0, 5.0, x, y, z, false));
    EXPECT_NEAR(z, 5.1, 1e-12);
    EXPECT_TRUE(system.CalPostXYZ(100.0, 30.0, 5.0, x, y, z, false));
    EXPECT_NEAR(z, 5.11, 1e-12);
    EXPECT_TRUE(system.CalPostXYZ(100.0, 30.0, 5.11, x, y, z, true));
    EXPECT_NEAR(z, 5.0, 1e-12);
    MakeReady(system, database, kSevenSystem);
    EXPECT_TRUE(system.CalPostXYZ(100.0, 10.0, 5.0, x, y, z, false));
    EXPECT_EQ(z, 5.0) << "the next system has no adjust";
}

TEST(ZORGeoCoordSysCorrections, PostModelOfTheSystem)
{
    TestGeoidSettings settings;
    settings.gridShift = ConstantShift(3.0, -4.0);
    const ScopedGeoidModel<5> ntv2(settings);
    SurveyDatabase database;
    GivePostModel(database, L"ntv2", L"shifts.gsb");
    ZORGeoCoordSys system;
    MakeReady(system, database, kPlainSystem);
    EXPECT_EQ(system.GetGridCorrectionModel(), L"ntv2");
    EXPECT_EQ(system.GetGridCorrectionFile(), L"shifts.gsb");
    EXPECT_EQ(system.GetPostModelName(), L"");
    EXPECT_EQ(settings.calls->inits, std::vector<ZorGeoCoordSysBase*>{&system});
    EXPECT_EQ(settings.calls->files, std::vector<CString>{L"shifts.gsb"});
    EXPECT_TRUE(settings.calls->chartDatums.empty());
    double x = 0.0, y = 0.0;
    EXPECT_TRUE(system.CalPostXY(10.0, 10.0, x, y, false));
    EXPECT_EQ(x, 13.0);
    EXPECT_EQ(y, 6.0);
    EXPECT_TRUE(system.CalPostXY(13.0, 6.0, x, y, true));
    EXPECT_EQ(x, 10.0);
    EXPECT_EQ(y, 10.0);
}

TEST(ZORGeoCoordSysCorrections, PostModelOf2002TakesTheGeoidsGrid)
{
    TestGeoidSettings osgm = ConstantGeoid(50.0);
    TestGeoidSettings ostn;
    const ScopedGeoidModel<2> geoid(osgm);
    const ScopedGeoidModel<4> post(ostn);
    SurveyDatabase database;
    GiveGeoid(database, L"OSGM02 - GB", L"");
    GivePostModel(database, L"OSTN02", L"ignored.txt");
    ZORGeoCoordSys system;
    MakeReady(system, database, kPlainSystem);
    EXPECT_EQ(system.GetGridCorrectionModel(), L"OSTN");
    EXPECT_EQ(system.GetGridCorrectionFile(), L"OSTN02_OSGM02_GB.txt");
    EXPECT_EQ(ostn.calls->files, std::vector<CString>{L"OSTN02_OSGM02_GB.txt"});
    GivePostModel(database, L"ostn02", L"kept.txt");
    MakeReady(system, database, kPlainSystem);
    EXPECT_EQ(system.GetGridCorrectionModel(), L"ostn02") << "in exact case only";
    EXPECT_EQ(system.GetGridCorrectionFile(), L"kept.txt");
}

TEST(ZORGeoCoordSysCorrections, ProjectOverridesPostModelAndFile)
{
    TestGeoidSettings ntv2;
    TestGeoidSettings ostn;
    const ScopedGeoidModel<5> modelNtv2(ntv2);
    const ScopedGeoidModel<4> modelOstn(ostn);
    SurveyDatabase database;
    GivePostModel(database, L"NTv2", L"shifts.gsb");
    ZORGeoCoordSys system;
    MakeReady(system, database, kPlainSystem, {.postModel = L"OSTN"});
    EXPECT_EQ(system.GetGridCorrectionModel(), L"OSTN");
    EXPECT_EQ(system.GetGridCorrectionFile(), L"shifts.gsb");
    MakeReady(system, database, kPlainSystem, {.postFile = L"mine.gsb"});
    EXPECT_EQ(system.GetGridCorrectionModel(), L"NTv2");
    EXPECT_EQ(system.GetGridCorrectionFile(), L"mine.gsb");
    EXPECT_EQ(system.GetPostModelFileName(), L"mine.gsb");
    EXPECT_EQ(ostn.calls->destroyed, 1) << "a post model is replaced always";
    MakeReady(system, database, kPlainSystem, {.postModel = L"--None--", .postFile = L"mine.gsb"});
    EXPECT_EQ(system.GetGridCorrectionModel(), L"");
    EXPECT_EQ(system.GetGridCorrectionFile(), L"");
    EXPECT_EQ(system.GetPostModelName(), L"--None--");
    EXPECT_EQ(ntv2.calls->destroyed, 1);
}

TEST(ZORGeoCoordSysCorrections, PostModelTroubleIsNotTold)
{
    const ModuleTexts texts;
    ScriptedDesk desk;
    TestGeoidSettings settings;
    settings.gridShift = ConstantShift(3.0, 4.0);
    settings.acceptsInit = false;
    settings.acceptsFile = false;
    const ScopedGeoidModel<5> ntv2(settings);
    SurveyDatabase database;
    database.Save();
    ZORGeoCoordSys system;
    double x = 0.0, y = 0.0;
    InitOpen(system, database.project, kPlainSystem, false, {.postModel = L"NTv2", .postFile = L"none.gsb"});
    EXPECT_TRUE(system.CalPostXY(0.0, 0.0, x, y, false));
    EXPECT_EQ(x, 3.0) << "the model stays and decides";
    InitOpen(system, database.project, kPlainSystem, false, {.postModel = L"no such model"});
    EXPECT_TRUE(system.CalPostXY(0.0, 0.0, x, y, false));
    EXPECT_EQ(x, 0.0);
    EXPECT_TRUE(desk.messages.empty());
}
