#include "database/Zor2NewZorCoordSys.h"

#include <gtest/gtest.h>

#include <string>

#include "database/ZorGeoDatabase.h"
#include "tests/support/OldMachine.h"
#include "tests/support/ScriptedDesk.h"

namespace {

const CString kGroupSection = L"Gp-User Defined Coordinate Systems";

/// Converts the project as a host does, and tells what came of it.
struct Conversion {
    explicit Conversion(OldMachine& machine)
    {
        machine.SaveAll();
        Run(machine);
    }
    void Run(OldMachine& machine)
    {
        ZorGeoDatabase database;
        EXPECT_TRUE(database.Init());
        before = machine.UserText();
        done = database.ConvertProj2Geobase(machine.survey, group, system);
        EXPECT_TRUE(desk.messages.empty());
        if (!done) {
            EXPECT_EQ(machine.UserText(), before);
            EXPECT_EQ(group, L"group");
            EXPECT_EQ(system, L"system");
        }
    }

    ScriptedDesk desk;
    CString group = L"group";
    CString system = L"system";
    std::string before;
    bool done = false;
};

} // namespace

TEST(Zor2NewZorCoordSys, WritesTheWholeSystemInItsOrder)
{
    OldMachine machine;
    const Conversion conversion(machine);
    EXPECT_TRUE(conversion.done);
    EXPECT_EQ(conversion.group, L"User Defined Coordinate Systems");
    EXPECT_EQ(conversion.system, L"Survey1");
    EXPECT_EQ(machine.UserText(), R"([Groups Section]
1=User Defined Coordinate Systems

[Gp-User Defined Coordinate Systems]
System count=1
1=Survey1

[DatumTransform Section]
1=Old Shift

[Projections section]
1=Old TM

[Dtf-Old Shift]
Method name=Bursa/Wolfe(7 Parameters)
Source=WGS84
Target ellipsoid=Bessel 1841
Shift X=-565.7346
Shift Y=-50.4058
Shift Z=-465.2895
Rotation X=0.2
Rotation Y=-0.15
Rotation Z=0.3
Scale=-4.07244
Description=North Sea

[Prj-Old TM]
Projection type=0
Unit name=Meters
Projection method=Transverse Mercator
LatOrigin=0
LonOrigin=5
FalseEasting=155000
FalseNorthing=100
ScaleFactor=0.9996

[Sys-Survey1]
Datumtransform name=Old Shift
Unit name=Meters
Geoid model method=0
Ellipsoid name=Bessel 1841
Projection name=Old TM

[General]
Group count=1
System count=1
Datumtransf count=1
Ellipsoid count=0
Unit count=0
Projection count=1
)");
}

TEST(Zor2NewZorCoordSys, LeavesTheProjectAsItIs)
{
    OldMachine machine;
    machine.SaveAll();
    const std::string before = machine.Directory().Read("Survey1/project.prj");
    EXPECT_TRUE(Conversion(machine).done);
    EXPECT_EQ(machine.Directory().Read("Survey1/project.prj"), before);
}

// Names of systems.

TEST(Zor2NewZorCoordSys, NamesTheSystemAfterTheProjectsDirectory)
{
    struct Case {
        const char* file;
        const wchar_t* name;
    };
    // The end is cut by its length, whatever the file is called.
    const Case cases[] = {
        {"Survey1/project.prj", L"Survey1"},
        {"Wreck 12.b/project.prj", L"Wreck 12.b"},
        {"Survey3/PROJECT.PRJ", L"Survey3"},
        {"Survey4/anotherone.prj", L"an"},
#if !defined(_WIN32)
        {"C:\\surveys\\Survey2\\project.prj", L"Survey2"},
        {"D\u00e9pot/project.prj", L"D\u00e9pot"},
#endif
    };
    for (const Case& c : cases) {
        OldMachine machine;
        machine.SaveAll();
        const CString copy = machine.Directory().Write(c.file, machine.Directory().Read("Survey1/project.prj"));
        ASSERT_TRUE(machine.survey.FileOpen(copy, FileMode::openForReading));
        Zor2NewZorCoordSys converter;
        EXPECT_TRUE(converter.Convert(&machine.survey));
        EXPECT_EQ(converter.SystemName(), c.name) << c.file;
        EXPECT_TRUE(machine.HasOnDisk(L"Sys-" + CString(c.name))) << c.file;
    }
}

TEST(Zor2NewZorCoordSys, SecondConversionChangesNothing)
{
    OldMachine machine;
    Conversion conversion(machine);
    ASSERT_TRUE(conversion.done);
    const std::string first = machine.UserText();
    // Also when the project has changed meanwhile.
    machine.survey.SetItem(L"PROJECTION", L"Projection", L"Another", true);
    conversion.group.Empty();
    conversion.Run(machine);
    EXPECT_TRUE(conversion.done);
    EXPECT_EQ(conversion.group, L"User Defined Coordinate Systems");
    EXPECT_EQ(conversion.system, L"Survey1");
    EXPECT_EQ(machine.UserText(), first);
}

TEST(Zor2NewZorCoordSys, SystemOfThatNameInEitherFileIsTakenForConverted)
{
    for (FileObject OldMachine::*file : {&OldMachine::main, &OldMachine::user}) {
        OldMachine machine;
        AddSystem(machine.*file, {.group = L"Harbours", .name = L"Survey1"});
        const Conversion conversion(machine);
        EXPECT_TRUE(conversion.done);
        EXPECT_EQ(conversion.group, L"User Defined Coordinate Systems") << "whatever group it stands in";
        EXPECT_EQ(machine.UserText(), conversion.before);
    }
}

TEST(Zor2NewZorCoordSys, NullProjectIsRefused)
{
    OldMachine machine;
    machine.SaveAll();
    EXPECT_FALSE(Zor2NewZorCoordSys().Convert(nullptr));
}

TEST(Zor2NewZorCoordSys, ProjectInTheThrowingModeConverts)
{
    OldMachine machine;
    machine.survey.DeleteItem(L"TRANSFORMATION", L"Datum transformation", false);
    machine.datumUsr = machine.datumDef;
    OldMachine::SetDatum(machine.survey, L"DTF_BACKUP");
    machine.survey.ThrowExceptions(true);
    EXPECT_TRUE(Conversion(machine).done);
}

// The group.

TEST(Zor2NewZorCoordSys, GroupIsListedOnce)
{
    OldMachine machine;
    machine.user.SetItem(L"Groups Section", L"3", L"USER DEFINED coordinate systems", true);
    machine.user.SetItem(L"General", L"Group count", 3, true);
    machine.user.SetItem(kGroupSection, L"System count", L"7", true);
    ASSERT_TRUE(Conversion(machine).done);
    EXPECT_EQ(machine.OnDisk(L"Groups Section", L"4"), "<none>");
    EXPECT_EQ(machine.OnDisk(L"General", L"Group count"), "3");
    EXPECT_EQ(machine.OnDisk(kGroupSection, L"System count"), "8");
    EXPECT_EQ(machine.OnDisk(kGroupSection, L"8"), "Survey1");
}

TEST(Zor2NewZorCoordSys, GroupTakesTheSerialBehindTheCount)
{
    OldMachine machine;
    machine.user.SetItem(L"Groups Section", L"1", L"Harbours", true);
    machine.user.SetItem(L"General", L"Group count", 5, true);
    ASSERT_TRUE(Conversion(machine).done);
    EXPECT_EQ(machine.OnDisk(L"Groups Section", L"6"), "User Defined Coordinate Systems");
    EXPECT_EQ(machine.OnDisk(L"Groups Section", L"1"), "Harbours");
    EXPECT_EQ(machine.OnDisk(L"General", L"Group count"), "6");
}

// What a project must have.

TEST(Zor2NewZorCoordSys, MissingSectionEndsTheConversion)
{
    for (const wchar_t* section : {L"TRANSFORMATION", L"SPHEROID", L"UNITS", L"PROJECTION", L"ELLIPSOID_BACKUP"}) {
        OldMachine machine;
        machine.survey.DeleteSection(section);
        EXPECT_FALSE(Conversion(machine).done) << CString(section).ToUtf8();
    }
    OldMachine machine;
    machine.survey.DeleteItem(L"UNITS", L"System Units", false);
    EXPECT_FALSE(Conversion(machine).done) << "a section of units without a unit";
}

TEST(Zor2NewZorCoordSys, EmptyUserFileIsMadeWhenThereWasNone)
{
    OldMachine machine;
    machine.SaveAll();
    std::filesystem::remove(machine.Directory().Path() / "user/zorusergeobase.geo");
    Zor2NewZorCoordSys converter;
    EXPECT_TRUE(converter.Convert(&machine.survey));
    EXPECT_EQ(machine.OnDisk(kGroupSection, L"1"), "Survey1");

    std::filesystem::remove(machine.Directory().Path() / "user/zorusergeobase.geo");
    machine.survey.DeleteSection(L"UNITS");
    EXPECT_FALSE(Zor2NewZorCoordSys().Convert(&machine.survey));
    EXPECT_TRUE(CFile::Exists(machine.UserFile()));
    EXPECT_EQ(machine.UserText(), "") << "a conversion that fails leaves it empty";
}

TEST(Zor2NewZorCoordSys, DatabaseThatCannotBeOpenedEndsTheConversion)
{
    OldMachine machine;
    machine.SaveAll();
    std::filesystem::remove(machine.Directory().Path() / "main/zorgeodatabase.geo");
    EXPECT_FALSE(Zor2NewZorCoordSys().Convert(&machine.survey));

    OldMachine without;
    without.SaveAll();
    std::filesystem::remove_all(without.Directory().Path() / "user");
    EXPECT_FALSE(Zor2NewZorCoordSys().Convert(&without.survey));
}

// Datum names.

TEST(Zor2NewZorCoordSys, DatumWithoutANameIsNamedAfterTheSystem)
{
    for (const bool keyIsThere : {true, false}) {
        OldMachine machine;
        machine.survey.SetItem(L"TRANSFORMATION", L"Datum transformation", L"", true);
        if (!keyIsThere) {
            machine.survey.DeleteItem(L"TRANSFORMATION", L"Datum transformation", false);
        }
        OldMachine::SetDatum(machine.survey, L"DTF_BACKUP");
        ASSERT_TRUE(Conversion(machine).done);
        EXPECT_EQ(machine.OnDisk(L"DatumTransform Section", L"1"), "Survey1- no dtf name");
        EXPECT_EQ(machine.OnDisk(L"Sys-Survey1", L"Datumtransform name"), "Survey1- no dtf name");
        EXPECT_EQ(machine.OnDisk(L"Dtf-Survey1- no dtf name", L"Shift X"), "-565.7346");
    }
}

TEST(Zor2NewZorCoordSys, DatumThatIsListedIsUsedAsItIs)
{
    OldMachine machine;
    machine.user.SetItem(L"DatumTransform Section", L"4", L"OLD SHIFT", true);
    machine.user.SetItem(L"Dtf-OLD SHIFT", L"Shift X", 1.5, true);
    machine.user.SetItem(L"General", L"Datumtransf count", 4, true);
    ASSERT_TRUE(Conversion(machine).done);
    EXPECT_EQ(machine.OnDisk(L"DatumTransform Section", L"5"), "<none>");
    EXPECT_EQ(machine.OnDisk(L"Dtf-OLD SHIFT", L"Shift X"), "1.5");
    EXPECT_FALSE(machine.HasOnDisk(L"Dtf-Old Shift"));
    EXPECT_EQ(machine.OnDisk(L"General", L"Datumtransf count"), "4");
    EXPECT_EQ(machine.OnDisk(L"Sys-Survey1", L"Datumtransform name"), "Old Shift");
}

TEST(Zor2NewZorCoordSys, DatumThatIsTakenButNotListedIsRenamed)
{
    OldMachine machine;
    machine.user.SetItem(L"Dtf-Old Shift", L"Shift X", 1.5, true);
    EXPECT_FALSE(Conversion(machine).done) << "no source has it under its new name";

    OldMachine::SetDatum(machine.survey, L"DTF_BACKUP");
    machine.survey.SetItem(L"DTF_BACKUP", L"Shift X", L"-1", true);
    ASSERT_TRUE(Conversion(machine).done);
    EXPECT_EQ(machine.OnDisk(L"DatumTransform Section", L"1"), "Survey1(Old Shift)");
    EXPECT_EQ(machine.OnDisk(L"Sys-Survey1", L"Datumtransform name"), "Survey1(Old Shift)");
    EXPECT_EQ(machine.OnDisk(L"Dtf-Survey1(Old Shift)", L"Shift X"), "-1");
    EXPECT_EQ(machine.OnDisk(L"Dtf-Old Shift", L"Shift X"), "1.5");
}

TEST(Zor2NewZorCoordSys, DeliveredDatumOfThatNameDoesNotCount)
{
    OldMachine machine;
    AddDatum(machine.main, {.name = L"Old Shift"});
    ASSERT_TRUE(Conversion(machine).done);
    EXPECT_EQ(machine.OnDisk(L"DatumTransform Section", L"1"), "Old Shift");
    EXPECT_EQ(machine.OnDisk(L"Dtf-Old Shift", L"Shift X"), "-565.7346");
}

// Datum records.

TEST(Zor2NewZorCoordSys, DatumComesFromTheFirstSourceThatHasIt)
{
    struct Source {
        FileObject OldMachine::*file;
        const wchar_t* section;
        const wchar_t* shift;
    };
    const Source sources[] = {{&OldMachine::datumDef, L"Old Shift", L"1"},
                              {&OldMachine::datumUsr, L"Old Shift", L"2"},
                              {&OldMachine::survey, L"DTF_BACKUP", L"3"}};
    for (std::size_t first = 0; first <= std::size(sources); ++first) {
        OldMachine machine;
        machine.datumDef.DeleteSection(L"Old Shift");
        for (std::size_t i = first; i < std::size(sources); ++i) {
            OldMachine::SetDatum(machine.*sources[i].file, sources[i].section);
            (machine.*sources[i].file).SetItem(sources[i].section, L"Shift X", sources[i].shift, true);
        }
        const Conversion conversion(machine);
        ASSERT_EQ(conversion.done, first < std::size(sources)) << "and found nowhere it ends the conversion";
        if (conversion.done) {
            EXPECT_EQ(machine.OnDisk(L"Dtf-Old Shift", L"Shift X"), CString(sources[first].shift).ToUtf8());
        }
    }
}

TEST(Zor2NewZorCoordSys, DatumFilesThatAreMissingArePassedOver)
{
    OldMachine machine;
    machine.absent = {&machine.datumDef, &machine.datumUsr};
    OldMachine::SetDatum(machine.survey, L"DTF_BACKUP");
    ASSERT_TRUE(Conversion(machine).done);
    EXPECT_EQ(machine.OnDisk(L"Dtf-Old Shift", L"Rotation Z"), "0.3");
}

TEST(Zor2NewZorCoordSys, DatumInCapitalsIsFoundAndKeepsTheProjectsSpelling)
{
    for (FileObject OldMachine::*file : {&OldMachine::datumDef, &OldMachine::datumUsr}) {
        OldMachine machine;
        machine.datumDef.DeleteSection(L"Old Shift");
        OldMachine::SetDatum(machine.*file, L"OLD SHIFT");
        ASSERT_TRUE(Conversion(machine).done);
        EXPECT_EQ(machine.OnDisk(L"Dtf-Old Shift", L"Shift Z"), "-465.2895");
    }
    OldMachine machine;
    machine.datumDef.DeleteSection(L"Old Shift");
    OldMachine::SetDatum(machine.datumDef, L"old shift");
    EXPECT_FALSE(Conversion(machine).done) << "no other case is tried";
}

TEST(Zor2NewZorCoordSys, DatumIsAlwaysBursaWolfeOfSevenParameters)
{
    OldMachine machine;
    machine.datumDef.SetItem(L"Old Shift", L"Method name", L"Helmert(7 Parameters)", true);
    ASSERT_TRUE(Conversion(machine).done);
    EXPECT_EQ(machine.OnDisk(L"Dtf-Old Shift", L"Method name"), "Bursa/Wolfe(7 Parameters)");
    EXPECT_EQ(machine.OnDisk(L"Dtf-Old Shift", L"Epoch"), "<none>");
}

TEST(Zor2NewZorCoordSys, NumberThatTheOldDatumLacksIsZero)
{
    OldMachine machine;
    machine.datumDef.DeleteItem(L"Old Shift", L"Rotation Y", false);
    machine.datumDef.SetItem(L"Old Shift", L"Scale", L"4,07", true);
    machine.datumDef.DeleteItem(L"Old Shift", L"Description", false);
    ASSERT_TRUE(Conversion(machine).done);
    EXPECT_EQ(machine.OnDisk(L"Dtf-Old Shift", L"Rotation Y"), "0");
    EXPECT_EQ(machine.OnDisk(L"Dtf-Old Shift", L"Scale"), "0");
    EXPECT_EQ(machine.OnDisk(L"Dtf-Old Shift", L"Description"), "");
    EXPECT_EQ(machine.OnDisk(L"Dtf-Old Shift", L"Rotation Z"), "0.3");
}

TEST(Zor2NewZorCoordSys, SectionOfTheDatumsBareNameKeepsItsRecordOut)
{
    OldMachine machine;
    machine.user.CreateSection(L"Old Shift", true);
    ASSERT_TRUE(Conversion(machine).done);
    EXPECT_EQ(machine.OnDisk(L"DatumTransform Section", L"1"), "Old Shift");
    EXPECT_FALSE(machine.HasOnDisk(L"Dtf-Old Shift"));
}

// Ellipsoids of a datum.

TEST(Zor2NewZorCoordSys, EllipsoidsOfTheDatumComeFromTheProjectsCopyFirst)
{
    OldMachine machine;
    OldMachine::Set(machine.datumDef, L"Old Shift", {{L"Source", L"WGS 72"}, {L"Target ellipsoid", L"Airy"}});
    OldMachine::Set(machine.ellipsoidDef, L"WGS 72", {{L"SemiMajor", L"1"}, {L"EccSqrd", L"2"}});
    OldMachine::Set(machine.ellipsoidDef, L"Airy", {{L"SemiMajor", L"3"}, {L"EccSqrd", L"4"}});
    OldMachine::Set(
        machine.survey, L"DTF_BACKUP",
        {{L"SrcSma", L"6378135"}, {L"SrcSe", L"0.0066"}, {L"DstSma", L"6377563.396"}, {L"DstSe", L"0.0067"}});
    ASSERT_TRUE(Conversion(machine).done);
    EXPECT_EQ(machine.OnDisk(L"Elp-WGS 72", L"SemiMajor"), "6378135");
    EXPECT_EQ(machine.OnDisk(L"Elp-WGS 72", L"EccSqrd"), "0.0066");
    EXPECT_EQ(machine.OnDisk(L"Elp-Airy", L"SemiMajor"), "6377563.396");
    EXPECT_EQ(machine.OnDisk(L"Elp-Airy", L"EccSqrd"), "0.0067");
    EXPECT_FALSE(machine.HasOnDisk(L"Ellipsoids section")) << "they are not listed";
    EXPECT_EQ(machine.OnDisk(L"Sys-Survey1", L"Ellipsoid name"), "Airy") << "the system follows the target";
}

TEST(Zor2NewZorCoordSys, EllipsoidsOfTheDatumComeFromTheDefinitionsNext)
{
    // Without a copy in the project, and with half of one.
    for (const bool half : {false, true}) {
        OldMachine machine;
        OldMachine::Set(machine.datumDef, L"Old Shift",
                        {{L"Source", L"WGS 72"}, {L"Target ellipsoid", L"Airy"}});
        OldMachine::Set(machine.ellipsoidDef, L"WGS 72", {{L"SemiMajor", L"6378135"}, {L"EccSqrd", L"0.0066"}});
        OldMachine::Set(machine.ellipsoidUsr, L"Airy", {{L"SemiMajor", L"6377563.396"}, {L"EccSqrd", L"0.0067"}});
        if (half) {
            OldMachine::Set(machine.survey, L"DTF_BACKUP", {{L"SrcSma", L"1"}, {L"DstSe", L"2"}});
        }
        ASSERT_TRUE(Conversion(machine).done);
        EXPECT_EQ(machine.OnDisk(L"Elp-WGS 72", L"SemiMajor"), "6378135");
        EXPECT_EQ(machine.OnDisk(L"Elp-Airy", L"EccSqrd"), "0.0067");
    }
}

TEST(Zor2NewZorCoordSys, EllipsoidOfTheDatumThatNobodyHasStaysMissing)
{
    OldMachine machine;
    machine.datumDef.SetItem(L"Old Shift", L"Target ellipsoid", L"Nowhere 1900", true);
    ASSERT_TRUE(Conversion(machine).done) << "the project's copy of its own ellipsoid is not taken for it";
    EXPECT_FALSE(machine.HasOnDisk(L"Elp-Nowhere 1900"));
    EXPECT_EQ(machine.OnDisk(L"Sys-Survey1", L"Ellipsoid name"), "Nowhere 1900");
}

TEST(Zor2NewZorCoordSys, EllipsoidOfTheDatumThatTheDatabaseHasIsNotCopied)
{
    OldMachine machine;
    OldMachine::Set(machine.survey, L"DTF_BACKUP",
                    {{L"SrcSma", L"1"}, {L"SrcSe", L"1"}, {L"DstSma", L"1"}, {L"DstSe", L"1"}});
    ASSERT_TRUE(Conversion(machine).done);
    EXPECT_FALSE(machine.HasOnDisk(L"Elp-WGS84"));
    EXPECT_FALSE(machine.HasOnDisk(L"Elp-Bessel 1841"));
}

// The ellipsoid of the system.

TEST(Zor2NewZorCoordSys, EllipsoidWithTheSameNumbersIsTheDatabases)
{
    struct Case {
        double da;
        double de2;
        bool same;
    };
    // Ten tolerances are 1e-12 of the axis, 6.4 micrometres, and 1e-12 of the squared eccentricity.
    const Case cases[] = {{0.0, 0.0, true},    {6e-6, 0.0, true},    {-6e-6, 9e-13, true}, {7e-6, 0.0, false},
                          {0.0, 2e-12, false}, {0.0, -2e-12, false}, {100.0, 0.0, false}};
    for (FileObject OldMachine::*file : {&OldMachine::main, &OldMachine::user}) {
        for (const Case& c : cases) {
            OldMachine machine;
            machine.main.DeleteSection(L"Elp-Bessel 1841");
            machine.datumDef.SetItem(L"Old Shift", L"Target ellipsoid", L"WGS84", true);
            (machine.*file).SetItem(L"Elp-Bessel 1841", L"SemiMajor", kTestBessel.a + c.da, true);
            (machine.*file).SetItem(L"Elp-Bessel 1841", L"EccSqrd", kTestBessel.e2 + c.de2, true);
            ASSERT_TRUE(Conversion(machine).done);
            EXPECT_EQ(machine.HasOnDisk(L"Ellipsoids section"), !c.same) << c.da << " " << c.de2;
            EXPECT_EQ(machine.HasOnDisk(L"Elp-Survey1(Bessel 1841)"), !c.same) << c.da << " " << c.de2;
            EXPECT_EQ(machine.OnDisk(L"General", L"Ellipsoid count"), c.same ? "0" : "1");
        }
    }
}

TEST(Zor2NewZorCoordSys, EllipsoidWithOtherNumbersIsANewRecordFromTheProject)
{
    OldMachine machine;
    machine.survey.SetItem(L"ELLIPSOID_BACKUP", L"SemiMajor", L"6377000.5", true);
    machine.user.SetItem(L"DatumTransform Section", L"1", L"Old Shift", true);
    // Definitions have the plain name alone.
    OldMachine::Set(machine.ellipsoidDef, L"Bessel 1841", {{L"SemiMajor", L"1"}, {L"EccSqrd", L"2"}});
    ASSERT_TRUE(Conversion(machine).done);
    EXPECT_EQ(machine.OnDisk(L"Ellipsoids section", L"1"), "Survey1(Bessel 1841)");
    EXPECT_EQ(machine.OnDisk(L"Elp-Survey1(Bessel 1841)", L"SemiMajor"), "6377000.5");
    EXPECT_EQ(machine.OnDisk(L"Elp-Survey1(Bessel 1841)", L"EccSqrd"), "0.006674372231");
    EXPECT_EQ(machine.OnDisk(L"Sys-Survey1", L"Ellipsoid name"), "Survey1(Bessel 1841)");
}

TEST(Zor2NewZorCoordSys, KnownEllipsoidNeedsTheProjectsCopy)
{
    OldMachine machine;
    machine.survey.DeleteSection(L"ELLIPSOID_BACKUP");
    OldMachine::Set(machine.ellipsoidDef, L"Survey1(Bessel 1841)",
                    {{L"SemiMajor", L"6377000"}, {L"EccSqrd", L"0.0066"}});
    EXPECT_FALSE(Conversion(machine).done) << "also where the definitions have one of the new name";
}

TEST(Zor2NewZorCoordSys, EllipsoidFollowsTheTargetOfANewDatum)
{
    OldMachine machine;
    machine.survey.SetItem(L"ELLIPSOID_BACKUP", L"SemiMajor", L"6377000.5", true);
    ASSERT_TRUE(Conversion(machine).done);
    EXPECT_TRUE(machine.HasOnDisk(L"Elp-Survey1(Bessel 1841)"));
    EXPECT_EQ(machine.OnDisk(L"Sys-Survey1", L"Ellipsoid name"), "Bessel 1841");
}

TEST(Zor2NewZorCoordSys, SecondFileIsAskedWhenTheFirstHasOtherNumbers)
{
    OldMachine machine;
    machine.main.SetItem(L"Elp-Bessel 1841", L"SemiMajor", 6377000.0, true);
    AddEllipsoid(machine.user, kTestBessel);
    ASSERT_TRUE(Conversion(machine).done);
    EXPECT_EQ(machine.OnDisk(L"Ellipsoids section", L"2"), "<none>");
    EXPECT_EQ(machine.OnDisk(L"Sys-Survey1", L"Ellipsoid name"), "Bessel 1841");
}

TEST(Zor2NewZorCoordSys, HalfACopyOfTheEllipsoidIsAnotherEllipsoid)
{
    OldMachine machine;
    machine.survey.DeleteItem(L"ELLIPSOID_BACKUP", L"EccSqrd", false);
    EXPECT_FALSE(Conversion(machine).done) << "and no source has its record";
}

TEST(Zor2NewZorCoordSys, EllipsoidThatTheDatabaseLacksComesFromTheFirstSourceThatHasIt)
{
    struct Source {
        FileObject OldMachine::*file;
        const wchar_t* section;
        const wchar_t* axis;
    };
    const Source sources[] = {{&OldMachine::ellipsoidDef, L"Local 1900", L"6378001"},
                              {&OldMachine::ellipsoidUsr, L"Local 1900", L"6378002"},
                              {&OldMachine::survey, L"ELLIPSOID_BACKUP", L"6378003"}};
    for (std::size_t first = 0; first <= std::size(sources); ++first) {
        OldMachine machine;
        machine.survey.SetItem(L"SPHEROID", L"Spheroid", L"Local 1900", true);
        machine.survey.DeleteSection(L"ELLIPSOID_BACKUP");
        machine.user.SetItem(L"DatumTransform Section", L"1", L"Old Shift", true);
        for (std::size_t i = first; i < std::size(sources); ++i) {
            OldMachine::Set(machine.*sources[i].file, sources[i].section,
                            {{L"SemiMajor", sources[i].axis}, {L"EccSqrd", L"0.0066"}});
        }
        const Conversion conversion(machine);
        ASSERT_EQ(conversion.done, first < std::size(sources));
        if (conversion.done) {
            EXPECT_EQ(machine.OnDisk(L"Ellipsoids section", L"1"), "Local 1900");
            EXPECT_EQ(machine.OnDisk(L"Elp-Local 1900", L"SemiMajor"), CString(sources[first].axis).ToUtf8());
            EXPECT_EQ(machine.OnDisk(L"Elp-Local 1900", L"EccSqrd"), "0.0066");
            EXPECT_EQ(machine.OnDisk(L"Sys-Survey1", L"Ellipsoid name"), "Local 1900");
        }
    }
}

TEST(Zor2NewZorCoordSys, RecordWithHalfItsNumbersIsPassedOver)
{
    OldMachine machine;
    machine.survey.SetItem(L"SPHEROID", L"Spheroid", L"Local 1900", true);
    OldMachine::Set(machine.ellipsoidDef, L"Local 1900", {{L"SemiMajor", L"6378001"}, {L"EccSqrd", L"none"}});
    ASSERT_TRUE(Conversion(machine).done);
    EXPECT_EQ(machine.OnDisk(L"Elp-Local 1900", L"SemiMajor"), "6377397.155") << "the project's";
}

TEST(Zor2NewZorCoordSys, NewEllipsoidNeedsTheDeliveredDefinitions)
{
    OldMachine machine;
    machine.survey.SetItem(L"SPHEROID", L"Spheroid", L"Local 1900", true);
    OldMachine::Set(machine.ellipsoidUsr, L"Local 1900", {{L"SemiMajor", L"6378001"}, {L"EccSqrd", L"0.0066"}});
    machine.absent = {&machine.ellipsoidDef};
    EXPECT_FALSE(Conversion(machine).done);
    machine.absent = {&machine.ellipsoidUsr};
    EXPECT_TRUE(Conversion(machine).done) << "the user's are not needed";
    EXPECT_EQ(machine.OnDisk(L"Elp-Local 1900", L"SemiMajor"), "6377397.155");
}

// Units.

TEST(Zor2NewZorCoordSys, MeterBecomesMeters)
{
    for (const wchar_t* unit : {L"Meter", L"METER", L"meter"}) {
        OldMachine machine;
        machine.survey.SetItem(L"UNITS", L"System Units", unit, true);
        ASSERT_TRUE(Conversion(machine).done);
        EXPECT_EQ(machine.OnDisk(L"Sys-Survey1", L"Unit name"), "Meters");
        EXPECT_EQ(machine.OnDisk(L"Prj-Old TM", L"Unit name"), "Meters");
        EXPECT_EQ(machine.OnDisk(L"General", L"Unit count"), "0");
    }
}

TEST(Zor2NewZorCoordSys, KnownUnitKeepsTheProjectsSpelling)
{
    for (FileObject OldMachine::*file : {&OldMachine::main, &OldMachine::user}) {
        OldMachine machine;
        AddUnit(machine.*file, L"Feet", L"0.304800,ft");
        machine.survey.SetItem(L"UNITS", L"System Units", L"FEET", true);
        ASSERT_TRUE(Conversion(machine).done);
        EXPECT_EQ(machine.OnDisk(L"Sys-Survey1", L"Unit name"), "FEET");
        EXPECT_EQ(machine.OnDisk(L"Units section", L"FEET"), "<none>");
        EXPECT_EQ(machine.OnDisk(L"General", L"Unit count"), "0");
    }
}

TEST(Zor2NewZorCoordSys, NewUnitComesFromTheUnitTable)
{
    OldMachine machine;
    AddUnit(machine.user, L"Links", L"0.201168,lk");
    machine.survey.SetItem(L"UNITS", L"System Units", L"Fathoms", true);
    OldMachine::Set(machine.units, L"System Units", {{L"Fathoms", L"1.8288,fm"}});
    ASSERT_TRUE(Conversion(machine).done);
    EXPECT_EQ(machine.OnDisk(L"Units section", L"Fathoms"), "1.8288,fm");
    EXPECT_EQ(machine.OnDisk(L"Sys-Survey1", L"Unit name"), "Fathoms");
    EXPECT_EQ(machine.OnDisk(L"General", L"Unit count"), "1");
}

TEST(Zor2NewZorCoordSys, MeterIsTakenOverAsMetersWhereTheDatabaseHasNoMetre)
{
    OldMachine machine;
    machine.main.DeleteSection(L"Units section");
    AddUnit(machine.user, L"Links", L"0.201168,lk");
    machine.survey.SetItem(L"UNITS", L"System Units", L"Meter", true);
    OldMachine::Set(machine.units, L"System Units", {{L"Meter", L"wrong"}, {L"Meters", L"1,m"}});
    ASSERT_TRUE(Conversion(machine).done);
    EXPECT_EQ(machine.OnDisk(L"Units section", L"Meters"), "1,m");
}

TEST(Zor2NewZorCoordSys, UnitThatTheTableLacksIsTakenOverEmpty)
{
    OldMachine machine;
    AddUnit(machine.user, L"Links", L"0.201168,lk");
    machine.survey.SetItem(L"UNITS", L"System Units", L"Cubits", true);
    OldMachine::Set(machine.units, L"Default", {{L"System Units", L"Meters"}});
    ASSERT_TRUE(Conversion(machine).done);
    EXPECT_EQ(machine.OnDisk(L"Units section", L"Cubits"), "");
}

TEST(Zor2NewZorCoordSys, NewUnitNeedsTheUnitTableAndAUserFileThatHasUnits)
{
    OldMachine machine;
    machine.survey.SetItem(L"UNITS", L"System Units", L"Fathoms", true);
    OldMachine::Set(machine.units, L"System Units", {{L"Fathoms", L"1.8288,fm"}});
    EXPECT_FALSE(Conversion(machine).done) << "a user file that has never had a unit";
    AddUnit(machine.user, L"Links", L"0.201168,lk");
    machine.absent = {&machine.units};
    EXPECT_FALSE(Conversion(machine).done) << "no table";
}

// Projection names.

TEST(Zor2NewZorCoordSys, ProjectionThatIsListedIsWrittenOver)
{
    OldMachine machine;
    machine.user.SetItem(L"Projections section", L"2", L"OLD TM", true);
    machine.user.SetItem(L"Prj-Old TM", L"LonOrigin", 9.0, true);
    machine.user.SetItem(L"Prj-Old TM", L"GridSkew", 1.0, true);
    ASSERT_TRUE(Conversion(machine).done);
    EXPECT_EQ(machine.OnDisk(L"Projections section", L"1"), "<none>");
    EXPECT_EQ(machine.OnDisk(L"Prj-Old TM", L"LonOrigin"), "5");
    EXPECT_EQ(machine.OnDisk(L"Prj-Old TM", L"GridSkew"), "1") << "what the old record lacks stays";
    EXPECT_EQ(machine.OnDisk(L"General", L"Projection count"), "0");
}

TEST(Zor2NewZorCoordSys, ProjectionThatIsTakenButNotListedIsRenamed)
{
    OldMachine machine;
    machine.user.SetItem(L"Prj-Old TM", L"LonOrigin", 9.0, true);
    ASSERT_TRUE(Conversion(machine).done);
    EXPECT_EQ(machine.OnDisk(L"Projections section", L"1"), "Survey1(Old TM)");
    EXPECT_EQ(machine.OnDisk(L"Sys-Survey1", L"Projection name"), "Survey1(Old TM)");
    EXPECT_EQ(machine.OnDisk(L"Prj-Survey1(Old TM)", L"LonOrigin"), "5") << "found under its old name";
    EXPECT_EQ(machine.OnDisk(L"Prj-Old TM", L"LonOrigin"), "9");
}

// Projection records.

TEST(Zor2NewZorCoordSys, EveryTypeComesOutWithItsMethodAndParameters)
{
    struct Case {
        const wchar_t* type;
        const char* method;
        std::set<std::string> parameters;
    };
    const std::set<std::string> scaled = {"LatOrigin", "LonOrigin", "FalseEasting", "FalseNorthing", "ScaleFactor"};
    const Case cases[] = {
        {L"0", "Transverse Mercator", scaled},
        {L"2", "RD", {}},
        {L"3",
         "Lambert 2 Parallel",
         {"LatOrigin", "LonOrigin", "FalseEasting", "FalseNorthing", "1stParallel", "2ndParallel"}},
        {L"4", "Mercator", {"LatOrigin", "LonOrigin", "FalseEasting", "FalseNorthing", "ScaleFactor", "LatTrueScale"}},
        {L"8", "Cassini_Soldner", scaled},
        {L"12", "Lambert 1 Parallel", scaled},
        {L"14", "Polyconic", {"LatOrigin", "LonOrigin", "FalseEasting", "FalseNorthing"}},
    };
    const char* const all[] = {"LatOrigin",   "LonOrigin",   "FalseEasting", "FalseNorthing", "ScaleFactor",
                               "1stParallel", "2ndParallel", "LatTrueScale", "GridSkew"};
    for (const Case& c : cases) {
        OldMachine machine;
        int value = 0;
        for (const char* key : all) {
            machine.projectionDef.SetItem(L"Old TM", CString::FromUtf8(key), ++value + 0.5, true);
        }
        machine.projectionDef.SetItem(L"Old TM", L"Projection type", c.type, true);
        ASSERT_TRUE(Conversion(machine).done) << c.method;
        EXPECT_EQ(machine.OnDisk(L"Prj-Old TM", L"Projection type"), CString(c.type).ToUtf8());
        EXPECT_EQ(machine.OnDisk(L"Prj-Old TM", L"Projection method"), c.method);
        EXPECT_EQ(machine.OnDisk(L"Prj-Old TM", L"Unit name"), "Meters");
        value = 0;
        for (const char* key : all) {
            const std::string expected = std::to_string(++value) + ".5";
            EXPECT_EQ(machine.OnDisk(L"Prj-Old TM", CString::FromUtf8(key)),
                      c.parameters.contains(key) ? expected : "<none>")
                << c.method << " " << key;
        }
        // A record that lacks a parameter of its type is none.
        const FileObject whole = machine.projectionDef;
        for (const std::string& key : c.parameters) {
            machine.projectionDef = whole;
            machine.projectionDef.DeleteItem(L"Old TM", CString::FromUtf8(key), false);
            EXPECT_FALSE(Conversion(machine).done) << c.method << " without " << key;
        }
    }
}

TEST(Zor2NewZorCoordSys, TypeWithoutASuccessorEndsTheConversion)
{
    OldMachine machine;
    for (const wchar_t* type : {L"5", L"6", L"7", L"9", L"10", L"11", L"13", L"15", L"16", L"-1", L"0.5", L""}) {
        machine.projectionDef.SetItem(L"Old TM", L"Projection type", type, true);
        EXPECT_FALSE(Conversion(machine).done) << CString(type).ToUtf8();
    }
}

TEST(Zor2NewZorCoordSys, ProjectionComesFromTheFirstSourceThatHasIt)
{
    struct Source {
        FileObject OldMachine::*file;
        const wchar_t* section;
        const wchar_t* meridian;
    };
    const Source sources[] = {{&OldMachine::projectionDef, L"Old TM", L"1"},
                              {&OldMachine::projectionUsr, L"Old TM", L"2"},
                              {&OldMachine::survey, L"PROJECTION_BACKUP", L"3"}};
    // A source is passed over when it has no such record and when the record will not do.
    for (const bool refused : {false, true}) {
        for (std::size_t first = 0; first <= std::size(sources); ++first) {
            OldMachine machine;
            machine.projectionDef.DeleteSection(L"Old TM");
            for (std::size_t i = 0; i < std::size(sources); ++i) {
                FileObject& file = machine.*sources[i].file;
                if (i >= first || refused) {
                    OldMachine::SetTransverseMercator(file, sources[i].section);
                    file.SetItem(sources[i].section, L"LonOrigin", sources[i].meridian, true);
                }
                if (i < first && refused) {
                    file.SetItem(sources[i].section, L"Projection type", L"5", true);
                }
            }
            const Conversion conversion(machine);
            ASSERT_EQ(conversion.done, first < std::size(sources));
            if (conversion.done) {
                EXPECT_EQ(machine.OnDisk(L"Prj-Old TM", L"LonOrigin"), CString(sources[first].meridian).ToUtf8());
                EXPECT_EQ(machine.OnDisk(L"Prj-Old TM", L"Projection type"), "0");
            }
        }
    }
}

TEST(Zor2NewZorCoordSys, ProjectionFilesThatAreMissingArePassedOver)
{
    OldMachine machine;
    machine.absent = {&machine.projectionDef, &machine.projectionUsr};
    OldMachine::SetTransverseMercator(machine.survey, L"PROJECTION_BACKUP");
    ASSERT_TRUE(Conversion(machine).done);
    EXPECT_EQ(machine.OnDisk(L"Prj-Old TM", L"FalseNorthing"), "100");
}

// UTM.

TEST(Zor2NewZorCoordSys, UtmIsNamedByZoneAndFalseNorthing)
{
    struct Case {
        const wchar_t* zone;
        const wchar_t* hemisphere;
        const wchar_t* falseNorthing; ///< null for a record without it
        const char* name;
    };
    const Case cases[] = {
        {L"Zone 31     (  3 E)", L"Northern", L"0", "UTM Zone-31N"},
        {L"Zone 31     (  3 E)", L"Southern", L"10000000", "UTM Zone-31S"},
        // The false northing wins over the word.
        {L"Zone 31     (  3 E)", L"Southern", L"0", "UTM Zone-31N"},
        {L"Zone 31     (  3 E)", L"SOUTHERN", L"0", "UTM Zone-31N"},
        {L"Zone 31     (  3 E)", L"Northern", L"10000000", "UTM Zone-31S"},
        {L"Zone 31     (  3 E)", L"Northern", L"0.001", "UTM Zone-31S"},
        {L"Zone 31     (  3 E)", L"Northern", nullptr, "UTM Zone-31N"},
        {L"Zone 31     (  3 E)", L"Southern", nullptr, "UTM Zone-31N"},
        // Words that were stored as numbers.
        {L"Zone 31     (  3 E)", L"1", L"0", "UTM Zone-31N"},
        {L"Zone 31     (  3 E)", L"2", L"10000000", "UTM Zone-31S"},
        {L"Zone 31     (  3 E)", L"2", L"0", "UTM Zone-31N"},
        {L"Zone 31     (  3 E)", L"1", L"10000000", "UTM Zone-31S"},
        // Any other word is the south.
        {L"Zone 31     (  3 E)", L"northern", L"0", "UTM Zone-31S"},
        {L"Zone 31     (  3 E)", L"", L"0", "UTM Zone-31S"},
        // Two digits; what stands in the last parenthesis is no zone.
        {L"Zone  7     (141 W)", L"Northern", L"0", "UTM Zone-07N"},
        {L"Zone 7 (141 W)", L"Northern", L"0", "UTM Zone-07N"},
        {L"Zone 60     (177 E)", L"Southern", L"10000000", "UTM Zone-60S"},
        {L"Zone 9 (x) (129 W)", L"Northern", L"0", "UTM Zone-09N"},
        {L"Zone 31", L"Northern", L"0", "UTM Zone-31N"},
        {L"", L"Northern", L"0", "UTM Zone-00N"},
    };
    OldMachine machine;
    for (const Case& c : cases) {
        machine.projectionDef.DeleteSection(L"Old TM");
        OldMachine::Set(machine.projectionDef, L"Old TM",
                        {{L"Projection type", L"1"}, {L"UTMZone", c.zone}, {L"Hemisphere", c.hemisphere}});
        if (c.falseNorthing) {
            machine.projectionDef.SetItem(L"Old TM", L"FalseNorthing", c.falseNorthing, true);
        }
        ASSERT_TRUE(Conversion(machine).done);
        EXPECT_EQ(machine.OnDisk(L"Sys-Survey1", L"Projection name"), c.name);
    }
}

TEST(Zor2NewZorCoordSys, LineOfAUtmProjectionStaysWithoutASection)
{
    OldMachine machine;
    machine.projectionDef.SetItem(L"Old TM", L"Projection type", L"1", true);
    machine.user.SetItem(L"General", L"Projection count", 6, true);
    ASSERT_TRUE(Conversion(machine).done);
    EXPECT_EQ(machine.OnDisk(L"Projections section", L"7"), "Old TM");
    EXPECT_FALSE(machine.HasOnDisk(L"Prj-Old TM"));
    EXPECT_EQ(machine.OnDisk(L"General", L"Projection count"), "1") << "and it is counted";
}

TEST(Zor2NewZorCoordSys, RecordUnderTheOldNameOfAUtmProjectionGoes)
{
    OldMachine machine;
    machine.projectionDef.SetItem(L"Old TM", L"Projection type", L"1", true);
    machine.user.SetItem(L"Projections section", L"1", L"Old TM", true);
    machine.user.SetItem(L"Prj-Old TM", L"LonOrigin", 9.0, true);
    ASSERT_TRUE(Conversion(machine).done);
    EXPECT_FALSE(machine.HasOnDisk(L"Prj-Old TM"));
    EXPECT_EQ(machine.OnDisk(L"Projections section", L"1"), "Old TM");
}

// Counts.

TEST(Zor2NewZorCoordSys, CountsAreRaisedByWhatWasAdded)
{
    OldMachine machine;
    machine.survey.SetItem(L"SPHEROID", L"Spheroid", L"Airy 1830", true);
    for (const auto& [key, count] :
         {std::pair{L"Group count", 10}, {L"System count", 20}, {L"Datumtransf count", 30}, {L"Ellipsoid count", 40}}) {
        machine.user.SetItem(L"General", key, count, true);
    }
    ASSERT_TRUE(Conversion(machine).done);
    EXPECT_EQ(machine.OnDisk(L"General", L"Group count"), "11");
    EXPECT_EQ(machine.OnDisk(L"General", L"System count"), "21");
    EXPECT_EQ(machine.OnDisk(L"General", L"Datumtransf count"), "31");
    EXPECT_EQ(machine.OnDisk(L"General", L"Ellipsoid count"), "41");
    EXPECT_EQ(machine.OnDisk(L"Groups Section", L"11"), "User Defined Coordinate Systems");
    EXPECT_EQ(machine.OnDisk(L"DatumTransform Section", L"31"), "Old Shift");
    EXPECT_EQ(machine.OnDisk(L"Ellipsoids section", L"41"), "Airy 1830");
    EXPECT_EQ(machine.OnDisk(kGroupSection, L"1"), "Survey1") << "the group has a count of its own";
}

TEST(Zor2NewZorCoordSys, UnitCountGoesOnFromTheProjectionCount)
{
    struct Case {
        const char* units; ///< null for a file without that count
        const char* projections;
        bool newUnit;
        bool listed; ///< the projection
        const char* unitsAfter;
        const char* projectionsAfter;
    };
    const Case cases[] = {{"20", "5", false, false, "5", "1"},      {"20", "5", true, false, "6", "1"},
                          {"20", "5", false, true, "5", "0"},       {"20", nullptr, false, false, "20", "1"},
                          {"20", nullptr, true, true, "21", "0"},   {nullptr, "5", false, false, "5", "1"},
                          {nullptr, nullptr, false, true, "0", "0"}};
    for (const Case& c : cases) {
        OldMachine machine;
        AddUnit(machine.user, L"Links", L"0.201168,lk");
        if (c.units) {
            machine.user.SetItem(L"General", L"Unit count", c.units, true);
        }
        if (c.projections) {
            machine.user.SetItem(L"General", L"Projection count", c.projections, true);
        }
        if (c.newUnit) {
            machine.survey.SetItem(L"UNITS", L"System Units", L"Fathoms", true);
        }
        if (c.listed) {
            machine.user.SetItem(L"Projections section", L"1", L"Old TM", true);
        }
        ASSERT_TRUE(Conversion(machine).done);
        EXPECT_EQ(machine.OnDisk(L"General", L"Unit count"), c.unitsAfter);
        EXPECT_EQ(machine.OnDisk(L"General", L"Projection count"), c.projectionsAfter);
    }
}

TEST(Zor2NewZorCoordSys, EntryOfASerialThatIsTakenIsReplaced)
{
    OldMachine machine;
    machine.user.SetItem(L"Projections section", L"1", L"Earlier", true);
    ASSERT_TRUE(Conversion(machine).done);
    EXPECT_EQ(machine.OnDisk(L"Projections section", L"1"), "Old TM");
}

TEST(Zor2NewZorCoordSys, GreatestCountIsFollowedByTheLeast)
{
    OldMachine machine;
    machine.user.SetItem(L"General", L"Datumtransf count", 2147483647, true);
    ASSERT_TRUE(Conversion(machine).done);
    EXPECT_EQ(machine.OnDisk(L"DatumTransform Section", L"-2147483648"), "Old Shift");
}

// Saving.

TEST(Zor2NewZorCoordSys, ReadOnlyUserFileIsWrittenAndLeftReadOnly)
{
    OldMachine machine;
    machine.SaveAll();
    CFileStatus status;
    ASSERT_TRUE(CFile::GetStatus(machine.UserFile(), status));
    status.attribute |= CFileStatus::readOnly;
    CFile::SetStatus(machine.UserFile(), status);
    EXPECT_TRUE(Zor2NewZorCoordSys().Convert(&machine.survey));
    EXPECT_TRUE(machine.HasOnDisk(L"Sys-Survey1"));
    ASSERT_TRUE(CFile::GetStatus(machine.UserFile(), status));
    EXPECT_NE(status.attribute & CFileStatus::readOnly, 0u);
}

TEST(Zor2NewZorCoordSys, SaveThatFailsIsNotTold)
{
    ScriptedDesk desk;
    OldMachine machine;
    machine.SaveAll();
    // A database that is open when its directory goes: the files are read, then cannot be written.
    class VanishingProject : public FileObject {
    public:
        using FileObject::GetItem;
        bool GetItem(const CString& section, const CString& key, CString& value) const override
        {
            if (section == UNITS_SECTION) {
                std::filesystem::remove_all(directory);
            }
            return FileObject::GetItem(section, key, value);
        }
        std::filesystem::path directory;
    } project;
    ASSERT_TRUE(project.FileOpen(machine.survey.GetFileName(), FileMode::openForReading));
    project.directory = machine.Directory().Path() / "user";
    EXPECT_TRUE(Zor2NewZorCoordSys().Convert(&project));
    EXPECT_FALSE(CFile::Exists(machine.UserFile()));
    EXPECT_TRUE(desk.messages.empty());
}

// One datum transformation.

TEST(Zor2NewZorCoordSys, NewDatumIsAddedUnderItsNameAndNotCounted)
{
    for (FileObject OldMachine::*file : {&OldMachine::datumDef, &OldMachine::datumUsr}) {
        OldMachine machine;
        machine.datumDef.DeleteSection(L"Old Shift");
        OldMachine::SetDatum(machine.*file, L"Old Shift");
        machine.user.SetItem(L"General", L"Datumtransf count", 3, true);
        machine.SaveAll();
        EXPECT_TRUE(Zor2NewZorCoordSys().CreateNewDtf(L"Old Shift"));
        EXPECT_EQ(machine.UserText(), R"([General]
Datumtransf count=3

[DatumTransform Section]
4=Old Shift

[Dtf-Old Shift]
Method name=Bursa/Wolfe(7 Parameters)
Source=WGS84
Target ellipsoid=Bessel 1841
Shift X=-565.7346
Shift Y=-50.4058
Shift Z=-465.2895
Rotation X=0.2
Rotation Y=-0.15
Rotation Z=0.3
Scale=-4.07244
Description=North Sea
)");
    }
}

TEST(Zor2NewZorCoordSys, NewDatumInCapitalsIsAddedUnderTheNameAskedFor)
{
    OldMachine machine;
    OldMachine::SetDatum(machine.datumUsr, L"TOOL SHIFT");
    machine.SaveAll();
    EXPECT_TRUE(Zor2NewZorCoordSys().CreateNewDtf(L"Tool Shift"));
    EXPECT_TRUE(machine.HasOnDisk(L"Dtf-Tool Shift"));
    EXPECT_EQ(machine.OnDisk(L"DatumTransform Section", L"1"), "Tool Shift");
}

TEST(Zor2NewZorCoordSys, NewDatumBringsItsEllipsoids)
{
    OldMachine machine;
    machine.datumDef.SetItem(L"Old Shift", L"Target ellipsoid", L"Airy 1830", true);
    machine.datumDef.SetItem(L"Old Shift", L"Source", L"WGS 72", true);
    OldMachine::Set(machine.survey, L"DTF_BACKUP", {{L"SrcSma", L"6378135"}, {L"SrcSe", L"0.0066"}});
    machine.SaveAll();
    EXPECT_TRUE(Zor2NewZorCoordSys(&machine.survey).CreateNewDtf(L"Old Shift"));
    EXPECT_EQ(machine.OnDisk(L"Elp-Airy 1830", L"SemiMajor"), "6377563.396") << "from the definitions";
    EXPECT_EQ(machine.OnDisk(L"Elp-WGS 72", L"SemiMajor"), "6378135") << "from the project's copy";
}

TEST(Zor2NewZorCoordSys, NewDatumThatNobodyHasLeavesTheUserFile)
{
    OldMachine machine;
    OldMachine::SetDatum(machine.survey, L"DTF_BACKUP");
    machine.user.SetItem(L"General", L"Datumtransf count", 3, true);
    machine.SaveAll();
    const std::string before = machine.UserText();
    EXPECT_FALSE(Zor2NewZorCoordSys(&machine.survey).CreateNewDtf(L"Unknown")) << "the project's copy is not asked";
    EXPECT_EQ(machine.UserText(), before);
}

TEST(Zor2NewZorCoordSys, NewDatumMakesNoUserFile)
{
    OldMachine machine;
    machine.SaveAll();
    std::filesystem::remove(machine.Directory().Path() / "user/zorusergeobase.geo");
    EXPECT_FALSE(Zor2NewZorCoordSys().CreateNewDtf(L"Old Shift"));
    EXPECT_FALSE(CFile::Exists(machine.UserFile()));
    machine.SaveAll();
    std::filesystem::remove(machine.Directory().Path() / "main/zorgeodatabase.geo");
    EXPECT_FALSE(Zor2NewZorCoordSys().CreateNewDtf(L"Old Shift"));
}
