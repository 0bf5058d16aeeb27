#include <memory>
#include <optional>

#include "tests/support/TestGeoidModels.h"
#include "tests/unit/coordsys/CoordSysFixture.h"

namespace {

const CString kProjectText = L"Cannot open the project!";
const CString kDatabaseText = L"Cannot open coordinate system database!";

CString ProjectionOf(ZORGeoCoordSys& system)
{
    CString name;
    system.GetProjectionName(name);
    return name;
}

double FactorOf(ZORGeoCoordSys& system)
{
    double factor = 0.0;
    system.GetLinearUnitCnv(factor);
    return factor;
}

// Easting of a place on the central meridian of the test systems: 500000 when the system converts.
double EastingOnMeridian(const ZORGeoCoordSys& system)
{
    double x = -1.0;
    double y = -1.0;
    system.GeoToGrid(52.0, 5.0, x, y, false);
    return x;
}

bool HasEllipsoid(const ZORGeoCoordSys& system)
{
    double a = 0.0, e = 0.0, inverseFlattening = 0.0;
    return system.GetEllipsoid(a, e, inverseFlattening);
}

// A file that opens as no section file.
void Spoil(const CString& path)
{
    std::ofstream(path.ToUtf8(), std::ios::binary) << "no section file\n";
}

} // namespace

TEST(ZORGeoCoordSysInit, NewObjectFillsTheDirectories)
{
    TestDatabase database;
    ZorGeoUtility::Get() = ZorGeoUtility();
    const ZORGeoCoordSys system;
    EXPECT_TRUE(ZorGeoUtility::Get().initialised);
    EXPECT_EQ(ZorGeoUtility::Get().projectDir + L"project.prj", database.ProjectFile());
}

TEST(ZORGeoCoordSysInit, BuildsTheSystemOfBothFilesFromTheUserFile)
{
    SurveyDatabase database;
    AddProjection(database.user, {.name = L"User TM"});
    AddSystem(database.user, {.group = kGroup, .name = kSevenSystem, .datum = L"Seven", .projection = L"User TM"});
    ZORGeoCoordSys system;
    MakeReady(system, database, kSevenSystem);
    EXPECT_EQ(ProjectionOf(system), L"User TM");
}

TEST(ZORGeoCoordSysInit, TakesEachPartFromTheFileThatHasIt)
{
    SurveyDatabase database;
    AddProjection(database.user, {.name = L"User TM"});
    database.SetSystemItem(kSevenSystem, kSystemProjection, CString(L"User TM"));
    ZORGeoCoordSys system;
    MakeReady(system, database, kSevenSystem);
    EXPECT_TRUE(system.IsInit());
    EXPECT_EQ(EastingOnMeridian(system), 500000.0);
}

TEST(ZORGeoCoordSysInit, UserRecordsOfPartsBeatDeliveredOnes)
{
    SurveyDatabase database;
    AddEllipsoid(database.user, {L"Bessel 1841", 6377492.0, 0.0067});
    AddProjection(database.user, {.name = L"TM 5 East", .falseEasting = 300000.0});
    AddDatum(database.user, {.name = L"Seven", .parameters = {1.0, 2.0, 3.0}});
    ZORGeoCoordSys system;
    MakeReady(system, database, kSevenSystem);
    double a = 0.0, e = 0.0, inverseFlattening = 0.0;
    EXPECT_TRUE(system.GetEllipsoid(a, e, inverseFlattening));
    EXPECT_EQ(a, 6377492.0);
    EXPECT_EQ(EastingOnMeridian(system), 300000.0);
    double p[15] = {}, forward = 0.0, reverse = 0.0;
    bool fixed = false;
    EXPECT_TRUE(system.GetDatumParameters(p[0], p[1], p[2], p[3], p[4], p[5], p[6], p[7], p[8], p[9], p[10], p[11],
                                          p[12], p[13], p[14], fixed, forward, reverse));
    EXPECT_EQ(p[2], 3.0);
}

TEST(ZORGeoCoordSysInit, DeliveredProjectionServesWhenTheUserRecordDoesNotLoad)
{
    SurveyDatabase database;
    AddProjection(database.user, {.name = L"TM 5 East", .scaleFactor = 0.5}); // refused below 0.8
    ZORGeoCoordSys system;
    MakeReady(system, database, kSevenSystem);
    EXPECT_EQ(EastingOnMeridian(system), 500000.0);
}

// A datum record without one of its keys leaves its file in the mode that throws; the settings of
// a system of that file must still read as missing.
TEST(ZORGeoCoordSysInit, DeliveredDatumServesWhenTheUserRecordLacksAKey)
{
    SurveyDatabase database;
    AddSystem(database.user, {.group = kGroup, .name = L"User Grid", .datum = L"Seven", .projection = L"TM 5 East"});
    database.user.SetItem(kDatumPrefix + L"Seven", transParamKeys[TransKey::shiftX], 1.0, true);
    ZORGeoCoordSys system;
    database.Save();
    bool ready = false;
    ASSERT_NO_THROW(ready = InitOpen(system, database.project, L"User Grid", true, {.unit = L"Feet"}));
    EXPECT_TRUE(ready);
    EXPECT_EQ(FactorOf(system), 0.3048);
}

TEST(ZORGeoCoordSysInit, ReadsMeterInAnyCaseAsMeters)
{
    for (const wchar_t* spelt : {L"Meter", L"METER", L"meter", L"Meters"}) {
        SurveyDatabase database;
        database.SetSystemItem(kPlainSystem, kSystemUnit, CString(spelt));
        ZORGeoCoordSys system;
        MakeReady(system, database, kPlainSystem);
        CString name;
        system.GetLinearUnitName(name);
        EXPECT_EQ(name, L"Meters") << CString(spelt).ToUtf8();
        EXPECT_EQ(FactorOf(system), 1.0);
    }
}

TEST(ZORGeoCoordSysInit, LooksAUnitUpInTheMainFileFirst)
{
    SurveyDatabase database;
    AddUnit(database.user, L"Meters", L"3.0,x");
    AddUnit(database.user, L"Fathoms", L"1.8288,fm");
    ZORGeoCoordSys system;
    MakeReady(system, database, kPlainSystem);
    EXPECT_EQ(FactorOf(system), 1.0);
    database.SetSystemItem(kPlainSystem, kSystemUnit, CString(L"Fathoms"));
    MakeReady(system, database, kPlainSystem);
    EXPECT_EQ(FactorOf(system), 1.8288);
}

TEST(ZORGeoCoordSysInit, TruncatesTheFormatNumberOfTheProject)
{
    struct Case {
        double stored;
        short format;
    };
    for (const Case& row : {Case{3.0, 3}, Case{3.9, 3}, Case{-2.9, -2}, Case{1e9, 0}, Case{NAN, 0}}) {
        SurveyDatabase database;
        database.project.SetItem(FORMATS_SECTION, formatParamKeys[FormatKey::unitFormat], row.stored, true);
        ZORGeoCoordSys system;
        MakeReady(system, database, kPlainSystem);
        double factor = 0.0;
        short format = -1;
        CString mnemonic;
        EXPECT_TRUE(system.GetLinearUnitParameters(factor, format, mnemonic));
        EXPECT_EQ(format, row.format) << row.stored;
        EXPECT_EQ(mnemonic, L"m");
    }
}

TEST(ZORGeoCoordSysInit, NoneInAnyCaseKeepsTheSystemsUnit)
{
    for (const wchar_t* unit : {L"none", L"NONE", L"None"}) {
        SurveyDatabase database;
        database.SetSystemItem(kPlainSystem, kSystemUnit, CString(L"Feet"));
        ZORGeoCoordSys system;
        MakeReady(system, database, kPlainSystem, {.unit = unit});
        EXPECT_EQ(FactorOf(system), 0.3048);
    }
}

TEST(ZORGeoCoordSysInit, SetsTheUnitFactorsOfTheProcess)
{
    SurveyDatabase database;
    AddUnit(database.main, L"Nothing", L"0.0,x");
    ZORGeoCoordSys system;
    MakeReady(system, database, kSevenSystem, {.unit = L"Feet"});
    EXPECT_EQ(Ellipsoid::UnitFactor(), 0.3048);
    EXPECT_EQ(CDatumTransform::m_unitCnv, 0.3048);
    MakeReady(system, database, kSevenSystem);
    EXPECT_EQ(Ellipsoid::UnitFactor(), 1.0);
    EXPECT_EQ(CDatumTransform::m_unitCnv, 1.0);
    Ellipsoid::SetUnitFactor(2.0);
    CDatumTransform::SetUnitCnv(2.0);
    database.SetSystemItem(kSevenSystem, kSystemUnit, CString(L"Nothing"));
    MakeReady(system, database, kSevenSystem);
    EXPECT_EQ(FactorOf(system), 0.0);
    EXPECT_EQ(Ellipsoid::UnitFactor(), 1.0);
    EXPECT_EQ(CDatumTransform::m_unitCnv, 1.0);
}

TEST(ZORGeoCoordSysInit, OpensTheSuitesProjectWhenNoneIsNamed)
{
    const ModuleTexts texts;
    ScriptedDesk desk;
    SurveyDatabase database;
    database.Save();
    ZORGeoCoordSys system;
    InitNamed(system, L"", kSevenSystem);
    EXPECT_TRUE(system.IsInit());
    EXPECT_TRUE(desk.messages.empty());
    std::filesystem::remove(database.ProjectFile().ToUtf8());
    EXPECT_FALSE(InitNamed(system, L"", kSevenSystem));
    ASSERT_EQ(desk.messages.size(), 1u);
}

TEST(ZORGeoCoordSysInit, ProjectWithoutBackupGivesFalseWithAllPartsBuilt)
{
    SurveyDatabase database;
    database.Save();
    ScriptedDesk desk;
    ZORGeoCoordSys named;
    EXPECT_FALSE(InitNamed(named, database.ProjectFile(), kSevenSystem));
    EXPECT_TRUE(named.IsInit());
    EXPECT_EQ(EastingOnMeridian(named), 500000.0);
    ZORGeoCoordSys open;
    EXPECT_FALSE(InitOpen(open, database.project, kSevenSystem, false));
    EXPECT_TRUE(open.IsInit());
    EXPECT_EQ(EastingOnMeridian(open), 500000.0);
    ZORGeoCoordSys silent;
    EXPECT_TRUE(InitOpen(silent, database.project, kSevenSystem, true));
    EXPECT_TRUE(desk.messages.empty());
    EXPECT_TRUE(desk.questions.empty());
}

// "A - B:C" of older databases is kept as "A - C".
TEST(ZORGeoCoordSysInit, FindsDatumsOfTheOlderStyleOfNames)
{
    struct Case {
        const wchar_t* named;
        const wchar_t* kept;
        bool found;
    };
    for (const Case& row :
         {Case{L"A - B: C", L"A -  C", true}, Case{L"A - B:C", L"A - C", true}, Case{L"A - B: C", L"A - C", false},
          Case{L"A-B: C", L"A- C", false}, Case{L"A - B C", L"A - C", false}, Case{L"A - :C", L"A - C", false},
          Case{L"A: - C", L"A - C", false}, Case{L"A - B - C:D", L"A - D", true}}) {
        SurveyDatabase database;
        AddDatum(database.main, {.name = row.kept, .parameters = {11.0}});
        database.SetSystemItem(kSevenSystem, kSystemDatum, CString(row.named));
        database.Save();
        ZORGeoCoordSys system;
        EXPECT_EQ(InitOpen(system, database.project, kSevenSystem, true), row.found) << CString(row.named).ToUtf8();
        EXPECT_EQ(system.IsInit(), row.found);
        CString name;
        system.GetDtfName(name);
        EXPECT_EQ(name, row.named);
    }
}

TEST(ZORGeoCoordSysInit, ExactNameOfADatumIsTakenBeforeTheOlderStyle)
{
    SurveyDatabase database;
    AddDatum(database.main, {.name = L"A -  C", .parameters = {11.0}});
    AddDatum(database.main, {.name = L"A - B: C", .method = kMethodNone});
    database.SetSystemItem(kSevenSystem, kSystemDatum, CString(L"A - B: C"));
    ZORGeoCoordSys system;
    MakeReady(system, database, kSevenSystem);
    EXPECT_EQ(system.GetDtfMethodName(), L"No Transformation");
}

TEST(ZORGeoCoordSysInit, LeavesAGivenProjectAlive)
{
    SurveyDatabase database;
    database.Save();
    auto project = std::make_unique<FileObject>(database.project);
    {
        ZORGeoCoordSys system;
        EXPECT_TRUE(InitOpen(system, *project, kSevenSystem, true));
        EXPECT_TRUE(InitOpen(system, *project, kPlainSystem, true));
    }
    EXPECT_TRUE(project->HasSection(FORMATS_SECTION));
}

TEST(ZORGeoCoordSysInit, KeepsReadingAGivenProjectWhenOneIsNamedLater)
{
    const ModuleTexts texts;
    ScriptedDesk desk;
    SurveyDatabase database;
    database.Save();
    ZORGeoCoordSys system;
    ASSERT_FALSE(InitOpen(system, database.project, kSevenSystem, false));
    EXPECT_FALSE(InitNamed(system, database.Directory().File("no such project.prj"), kPlainSystem));
    EXPECT_TRUE(desk.messages.empty());
    EXPECT_EQ(EastingOnMeridian(system), 500000.0);
    EXPECT_FALSE(InitNamed(system, database.Directory().File("no such project.prj"), kPlainSystem));
    ASSERT_EQ(desk.messages.size(), 1u) << "the second call by name has let it go";
    EXPECT_EQ(desk.messages[0].text, kProjectText);
    EXPECT_TRUE(database.project.HasSection(FORMATS_SECTION));
}

// A reference that is none, as a host's null pointer makes it.
__attribute__((no_sanitize("undefined"), noinline)) static bool InitOnNothing(ZORGeoCoordSys& system,
                                                                              FileObject* volatile& nothing)
{
    return InitOpen(system, *nothing, kSevenSystem, false);
}

TEST(ZORGeoCoordSysInit, NullProjectGivesFalseAndNoMessage)
{
    ScriptedDesk desk;
    SurveyDatabase database;
    database.Save();
    ZORGeoCoordSys system;
    FileObject* volatile nothing = nullptr;
    EXPECT_FALSE(InitOnNothing(system, nothing));
    EXPECT_TRUE(desk.messages.empty());
    EXPECT_FALSE(system.IsInit());
    EXPECT_TRUE(InitOpen(system, database.project, kSevenSystem, true));
}

TEST(ZORGeoCoordSysInit, MissingProjectIsToldUnlessSilent)
{
    const ModuleTexts texts;
    ScriptedDesk desk;
    SurveyDatabase database;
    database.Save();
    ZORGeoCoordSys system;
    const CString missing = database.Directory().File("missing.prj");
    EXPECT_FALSE(InitNamed(system, missing, kSevenSystem));
    ASSERT_EQ(desk.messages.size(), 1u);
    EXPECT_EQ(desk.messages[0].text, kProjectText);
    EXPECT_EQ(desk.messages[0].icon, MessageIcon::standard);
    EXPECT_FALSE(system.IsInit());
    EXPECT_FALSE(HasEllipsoid(system));
    // Silence that a call on an open project asked for stays; the call after it still has that
    // project, the next one opens its own.
    EXPECT_TRUE(InitOpen(system, database.project, kSevenSystem, true));
    InitNamed(system, missing, kSevenSystem);
    EXPECT_FALSE(InitNamed(system, missing, kSevenSystem));
    EXPECT_EQ(desk.messages.size(), 1u);
}

TEST(ZORGeoCoordSysInit, UnreadableDatabaseIsToldUnlessSilent)
{
    struct Case {
        bool spoilMain;
        bool open;
        bool silent;
        std::size_t messages;
    };
    const ModuleTexts texts;
    for (const Case& row : {Case{true, false, false, 1}, Case{true, true, false, 1}, Case{true, true, true, 0},
                            Case{false, false, false, 1}}) {
        ScriptedDesk desk;
        SurveyDatabase database;
        database.Save();
        if (row.spoilMain) {
            Spoil(database.MainFile());
        } else { // a user file that can be neither opened nor made
            std::filesystem::remove_all(database.Directory().Path() / "user");
        }
        ZORGeoCoordSys system;
        EXPECT_FALSE(row.open ? InitOpen(system, database.project, kSevenSystem, row.silent)
                              : InitNamed(system, database.ProjectFile(), kSevenSystem));
        ASSERT_EQ(desk.messages.size(), row.messages);
        if (row.messages == 1) {
            EXPECT_EQ(desk.messages[0].text, kDatabaseText);
            EXPECT_EQ(desk.messages[0].icon, MessageIcon::standard);
        }
        EXPECT_FALSE(system.IsInit());
        EXPECT_FALSE(HasEllipsoid(system));
    }
}

TEST(ZORGeoCoordSysInit, WhatIsNotFoundGivesFalseWithoutMessage)
{
    struct Case {
        const char* what;
        void (*spoil)(SurveyDatabase&);
        bool ellipsoidBuilt;
    };
    const Case cases[] = {
        {"group", [](SurveyDatabase& d) { d.main.DeleteSection(kGroupPrefix + kGroup); }, false},
        {"system", [](SurveyDatabase& d) { d.main.DeleteSection(kSystemPrefix + kSevenSystem); }, false},
        {"unit", [](SurveyDatabase& d) { d.main.DeleteItem(kUnitsSection, L"Meters", false); }, false},
        {"formats", [](SurveyDatabase& d) { d.project.DeleteSection(FORMATS_SECTION); }, false},
        {"ellipsoid", [](SurveyDatabase& d) { d.main.DeleteSection(kEllipsoidPrefix + L"Bessel 1841"); }, false},
        {"projection", [](SurveyDatabase& d) { d.main.DeleteSection(kProjectionPrefix + L"TM 5 East"); }, true},
        {"class for the projection",
         [](SurveyDatabase& d) {
             d.main.SetItem(kProjectionPrefix + L"TM 5 East", projectionParamKeys[ProjectionKey::type], 5, true);
         },
         true},
        {"parameter of the projection",
         [](SurveyDatabase& d) {
             d.main.DeleteItem(kProjectionPrefix + L"TM 5 East", projectionParamKeys[ProjectionKey::latOrigin], false);
         },
         true},
        {"datum", [](SurveyDatabase& d) { d.main.DeleteSection(kDatumPrefix + L"Seven"); }, true},
        {"parameter of the datum",
         [](SurveyDatabase& d) { d.main.DeleteItem(kDatumPrefix + L"Seven", transParamKeys[TransKey::scale], false); },
         true},
    };
    for (const Case& row : cases) {
        for (const bool silent : {false, true}) {
            ScriptedDesk desk;
            SurveyDatabase database;
            row.spoil(database);
            database.Save();
            ZORGeoCoordSys system;
            EXPECT_FALSE(InitOpen(system, database.project, kSevenSystem, silent)) << row.what;
            EXPECT_FALSE(InitNamed(system, database.ProjectFile(), kSevenSystem)) << row.what;
            EXPECT_TRUE(desk.messages.empty()) << row.what;
            EXPECT_FALSE(system.IsInit()) << row.what;
            EXPECT_EQ(HasEllipsoid(system), row.ellipsoidBuilt) << row.what;
            CString name;
            system.GetSysName(name);
            EXPECT_EQ(name, kSevenSystem) << row.what;
        }
    }
}

TEST(ZORGeoCoordSysInit, CatalogueWithoutPlacesForTheConstantsGivesFalse)
{
    for (const UnfitCatalogue& unfit : kUnfitCatalogues) {
        ScriptedDesk desk;
        SurveyDatabase database;
        database.Save();
        unfit.Write(database);
        ZORGeoCoordSys system;
        bool answer = true;
        EXPECT_NO_THROW(answer = InitOpen(system, database.project, kPlainSystem, true)) << unfit.what;
        EXPECT_FALSE(answer) << unfit.what;
        EXPECT_FALSE(system.IsInit()) << unfit.what;
        EXPECT_EQ(EastingOnMeridian(system), -1.0) << unfit.what;
    }
}

TEST(ZORGeoCoordSysInit, ProjectInTheModeThatThrowsIsNoException)
{
    SurveyDatabase database;
    database.project.DeleteItem(FORMATS_SECTION, formatParamKeys[FormatKey::unitFormat], false);
    database.project.SetItem(FORMATS_SECTION, L"Other", 1, true);
    database.Save();
    database.project.ThrowExceptions(true);
    ZORGeoCoordSys system;
    bool answer = false;
    ASSERT_NO_THROW(answer = InitOpen(system, database.project, kPlainSystem, true));
    EXPECT_TRUE(answer);
    ASSERT_NO_THROW(answer = system.SetCoordSysUnit(L"Feet"));
    EXPECT_TRUE(answer);
    EXPECT_EQ(FactorOf(system), 0.3048);
    CString text;
    EXPECT_THROW(database.project.GetItem(FORMATS_SECTION, L"None", text), CString) << "the host's own mode";
}

TEST(ZORGeoCoordSysInit, UnknownUnitGivesFalseWithAllPartsBuilt)
{
    ScriptedDesk desk;
    SurveyDatabase database;
    database.Save();
    ZORGeoCoordSys system;
    EXPECT_FALSE(InitOpen(system, database.project, kSevenSystem, true, {.unit = L"Cubits"}));
    EXPECT_TRUE(system.IsInit());
    EXPECT_EQ(EastingOnMeridian(system), 500000.0);
    EXPECT_EQ(FactorOf(system), 1.0);
    EXPECT_TRUE(desk.messages.empty());
}

TEST(ZORGeoCoordSysInit, StaysInitialisedWhenALaterCallFails)
{
    SurveyDatabase database;
    ZORGeoCoordSys system;
    MakeReady(system, database, kSevenSystem);
    EXPECT_FALSE(InitOpen(system, database.project, L"No such system", true));
    EXPECT_TRUE(system.IsInit());
    EXPECT_FALSE(HasEllipsoid(system));
    EXPECT_EQ(EastingOnMeridian(system), -1.0) << "nothing converts, nothing breaks";
    EXPECT_TRUE(InitOpen(system, database.project, kPlainSystem, true));
    EXPECT_EQ(EastingOnMeridian(system), 500000.0);
}

TEST(ZORGeoCoordSysInit, CopiesShareTheirPartsAndTheLastOwnerFreesThem)
{
    TestGeoidSettings settings = ConstantGeoid(40.0);
    const ScopedGeoidModel<7> egm96(settings);
    SurveyDatabase database;
    auto source = std::make_unique<ZORGeoCoordSys>();
    MakeReady(*source, database, kSevenSystem, {.geoidModel = L"EGM96"});
    std::optional<ZORGeoCoordSys> copy(*source);
    ZORGeoCoordSys assigned;
    assigned = *source;
    double dx = 1.0, dy = 1.0;
    EXPECT_TRUE(source->ProjectOffset(dx, dy, 500000.0, 5760000.0));
    // The point scale factor that the source computed serves its copies: one projection.
    double copied = 1.0, ignored = 1.0;
    EXPECT_TRUE(copy->ProjectOffset(copied, ignored, 500999.0, 5760000.0));
    EXPECT_EQ(copied, dx);
    source.reset();
    EXPECT_EQ(settings.calls->destroyed, 0);
    EXPECT_EQ(EastingOnMeridian(*copy), 500000.0);
    EXPECT_EQ(EastingOnMeridian(assigned), 500000.0);
    double geoid = 0.0;
    EXPECT_TRUE(copy->CalGeoidHeight(52.0, 5.0, 0.0, 0.0, geoid));
    copy.reset();
    EXPECT_TRUE(assigned.CalGeoidHeight(52.0, 5.0, 0.0, 0.0, geoid));
    EXPECT_EQ(settings.calls->destroyed, 0);
    assigned = ZORGeoCoordSys();
    EXPECT_EQ(settings.calls->destroyed, 1);
}

TEST(ZORGeoCoordSysInit, CopyGoesOnWhenItsSourceIsInitialisedAgain)
{
    SurveyDatabase database;
    database.Save();
    ZORGeoCoordSys source;
    EXPECT_FALSE(InitNamed(source, database.ProjectFile(), kSevenSystem));
    ZORGeoCoordSys copy(source);
    EXPECT_FALSE(InitNamed(source, database.ProjectFile(), L"No such system"));
    EXPECT_EQ(EastingOnMeridian(source), -1.0);
    EXPECT_EQ(EastingOnMeridian(copy), 500000.0);
    EXPECT_TRUE(copy.SetCoordSysUnit(L"Feet")) << "the project is shared, too";
}
