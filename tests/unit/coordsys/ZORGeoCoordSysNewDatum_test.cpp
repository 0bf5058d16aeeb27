#include <gtest/gtest.h>

#include <cmath>
#include <memory>

#include "tests/support/OldMachine.h"
#include "tests/support/ProjOracle.h"
#include "tests/unit/coordsys/CoordSysFixture.h"

namespace {

/// Shift X of a transformation; NaN for none.
double ShiftX(const CDatumTransform* datum)
{
    double d[15] = {};
    bool fixed = false;
    double forward = 0.0, reverse = 0.0;
    if (!datum) {
        return std::nan("");
    }
    datum->GetDtfParms(d[0], d[1], d[2], d[3], d[4], d[5], d[6], d[7], d[8], d[9], d[10], d[11], d[12], d[13], d[14],
                       fixed, forward, reverse, false);
    return d[0];
}

/// The delivered systems on a machine that has the older definition files too. A system is ready.
class NewDatum : public testing::Test {
protected:
    NewDatum()
    {
        AddDatum(machine.main, {.name = L"Seven", .parameters = {1.0}});
        AddDatum(machine.main, {.name = L"Both", .parameters = {2.0}});
        AddDatum(machine.user, {.name = L"Both", .parameters = {3.0}});
        AddDatum(machine.user, {.name = L"Mine", .parameters = {4.0}});
        AddDatum(machine.user, {.name = L"Broken"});
        machine.user.DeleteItem(L"Dtf-Broken", transParamKeys[TransKey::scale], false);
        machine.user.SetItem(kGeneralSection, kDatumCount, 3, true);
        AddProjection(machine.main, {.name = L"TM 5 East"});
        AddUnit(machine.main, L"Feet", L"0.304800,ft");
        AddSystem(machine.main, {.group = kGroup, .name = kSevenSystem, .datum = L"Seven", .projection = L"TM 5 East"});
        machine.survey.SetItem(FORMATS_SECTION, formatParamKeys[FormatKey::unitFormat], 3.0, true);
    }
    void MakeReady(const CString& unit = L"none")
    {
        machine.SaveAll();
        ASSERT_TRUE(InitOpen(system, machine.survey, kSevenSystem, true, {.unit = unit}));
        before = machine.UserText();
    }
    double ShiftOfNew(const wchar_t* name)
    {
        return ShiftX(std::unique_ptr<CDatumTransform>(system.CreateNewDtf(name)).get());
    }
    /// A file with one transformation of shift 7, as another machine gives it away.
    static FileObject Given(const CString& section)
    {
        FileObject file;
        OldMachine::SetDatum(file, section);
        file.SetItem(section, kDatumMethod, kMethodHelmert7, true);
        file.SetItem(section, transParamKeys[TransKey::shiftX], 7.0, true);
        return file;
    }

    ScriptedDesk desk;
    OldMachine machine;
    ZORGeoCoordSys system;
    std::string before;
};

} // namespace

// CreateNewDtf.

TEST_F(NewDatum, IsMadeFromTheMainFileFirst)
{
    MakeReady();
    EXPECT_EQ(ShiftOfNew(L"Both"), 2.0);
    EXPECT_EQ(ShiftOfNew(L"Mine"), 4.0);
    EXPECT_EQ(ShiftOfNew(L"Seven"), 1.0);
    EXPECT_EQ(machine.UserText(), before);
}

TEST_F(NewDatum, IsReady)
{
    MakeReady();
    const std::unique_ptr<CDatumTransform> datum(system.CreateNewDtf(L"Mine"));
    ASSERT_TRUE(datum);
    EXPECT_TRUE(datum->IsInit());
    EXPECT_EQ(datum->GetName(), L"Dtf-Mine");
    EXPECT_EQ(datum->GetDftDestEllipsName(), L"Bessel 1841");
}

TEST_F(NewDatum, SetsTheUnitOfTheProcess)
{
    MakeReady(L"Feet");
    CDatumTransform::SetUnitCnv(9.0);
    EXPECT_EQ(system.CreateNewDtf(L"Nowhere"), nullptr);
    EXPECT_EQ(CDatumTransform::m_unitCnv, 9.0) << "not for one that is not made";
    EXPECT_EQ(ShiftOfNew(L"Mine"), 4.0);
    EXPECT_EQ(CDatumTransform::m_unitCnv, 0.3048);
    machine.main.SetItem(kUnitsSection, L"Feet", L"0,none", true);
    MakeReady(L"Feet");
    EXPECT_EQ(ShiftOfNew(L"Mine"), 4.0);
    EXPECT_EQ(CDatumTransform::m_unitCnv, 1.0) << "a factor of 0 is taken as 1";
}

TEST_F(NewDatum, TakesAnUnknownNameOverFromTheDefinitions)
{
    MakeReady();
    EXPECT_EQ(ShiftOfNew(L"Old Shift"), -565.7346);
    EXPECT_EQ(machine.OnDisk(kDatumsSection, L"4"), "Old Shift");
    EXPECT_EQ(machine.OnDisk(kGeneralSection, kDatumCount), "3");
    EXPECT_EQ(machine.OnDisk(L"Dtf-Old Shift", kDatumMethod), "Bursa/Wolfe(7 Parameters)");
    EXPECT_TRUE(system.GetGeoDatabase().HasDtf(L"Old Shift", GeoDbUser)) << "the database was opened again";
    // The second time it is the database's.
    const std::string once = machine.UserText();
    EXPECT_EQ(ShiftOfNew(L"Old Shift"), -565.7346);
    EXPECT_EQ(machine.UserText(), once);
}

TEST_F(NewDatum, TakesItsEllipsoidFromTheProjectsCopy)
{
    machine.datumDef.SetItem(L"Old Shift", L"Target ellipsoid", L"Local 1900", true);
    OldMachine::Set(machine.survey, kLegacyDatumBackup, {{L"DstSma", L"6377000"}, {L"DstSe", L"0.0066"}});
    MakeReady();
    const std::unique_ptr<CDatumTransform> datum(system.CreateNewDtf(L"Old Shift"));
    ASSERT_TRUE(datum);
    double a = 0.0, e2 = 0.0;
    datum->GetDtfDestEllips(a, e2);
    EXPECT_EQ(a, 6377000.0);
    EXPECT_EQ(e2, 0.0066);
}

TEST_F(NewDatum, NameThatNobodyHasGivesNullAndLeavesTheFiles)
{
    MakeReady();
    const std::string mainBefore = machine.Directory().Read("main/zorgeodatabase.geo");
    EXPECT_EQ(system.CreateNewDtf(L"Nowhere"), nullptr);
    EXPECT_EQ(machine.UserText(), before);
    EXPECT_EQ(machine.Directory().Read("main/zorgeodatabase.geo"), mainBefore);
    EXPECT_TRUE(desk.messages.empty());
}

TEST_F(NewDatum, RecordThatDoesNotLoadGivesNull)
{
    MakeReady();
    EXPECT_EQ(system.CreateNewDtf(L"Broken"), nullptr);
    // Nor does one that was taken over, when nobody has its ellipsoid.
    machine.datumDef.SetItem(L"Old Shift", L"Target ellipsoid", L"Nowhere 1900", true);
    MakeReady();
    EXPECT_EQ(system.CreateNewDtf(L"Old Shift"), nullptr);
    EXPECT_TRUE(machine.HasOnDisk(L"Dtf-Old Shift"));
    EXPECT_TRUE(desk.messages.empty());
}

TEST_F(NewDatum, ObjectThatWasNeverSetUpGivesNull)
{
    machine.SaveAll();
    EXPECT_EQ(system.CreateNewDtf(L"Nowhere"), nullptr);
    EXPECT_TRUE(desk.messages.empty());
}

// The conversion with a name.

TEST_F(NewDatum, PositionsAreTransformedByName)
{
    const TestDatum away{.name = L"Away", .parameters = {-565.7346, -50.4058, -465.2895, 0.2, -0.15, 0.3, -4.07244}};
    AddDatum(machine.user, away);
    MakeReady();
    const ProjOracle oracle(kProjSeven);
    struct Position {
        double latitude, longitude, height;
    };
    // A delivered record and one of the definition files, of the same parameters.
    for (const wchar_t* name : {L"Away", L"Old Shift"}) {
        for (const Position& p : {Position{52.0, 5.0, 40.0}, {-33.0, 151.0, -20.0}, {10.0, -179.5, 1000.0}}) {
            const auto local =
                oracle.Forward(ProjOracle::Radians(p.longitude), ProjOracle::Radians(p.latitude), p.height);
            double lat = 0.0, lon = 0.0, h = 0.0;
            ASSERT_TRUE(system.DoDtf(p.latitude, p.longitude, p.height, lat, lon, h, false, name, 0.0));
            // A tenth of a millimetre, PROJ's order of rotations.
            EXPECT_NEAR(lat, ProjOracle::Degrees(local.y), 2e-9);
            EXPECT_NEAR(lon, ProjOracle::Degrees(local.x), 2e-9);
            EXPECT_NEAR(h, local.z, 2e-4);
            double backLat = 0.0, backLon = 0.0, backH = 0.0;
            ASSERT_TRUE(system.DoDtf(lat, lon, h, backLat, backLon, backH, true, name, 0.0));
            EXPECT_NEAR(backLat, p.latitude, 1e-10);
            EXPECT_NEAR(backLon, p.longitude, 1e-10);
            EXPECT_NEAR(backH, p.height, 1e-5);
        }
    }
    double a = -1.0, b = -1.0, c = -1.0;
    EXPECT_FALSE(system.DoDtf(52.0, 5.0, 0.0, a, b, c, false, L"Nowhere", 0.0));
    EXPECT_EQ(a, -1.0);
}

TEST_F(NewDatum, NamedTransformationIsKeptBetweenCalls)
{
    class Counting : public ZORGeoCoordSys {
    public:
        CDatumTransform* CreateNewDtf(CString name) override
        {
            ++made;
            return ZORGeoCoordSys::CreateNewDtf(name);
        }
        int made = 0;
    } counting;
    machine.SaveAll();
    ASSERT_TRUE(InitOpen(counting, machine.survey, kSevenSystem, true));
    double a = 0.0, b = 0.0, c = 0.0;
    for (const wchar_t* name : {L"Mine", L"Mine", L"MINE"}) {
        EXPECT_TRUE(counting.DoDtf(52.0, 5.0, 0.0, a, b, c, false, name, 0.0));
    }
    EXPECT_EQ(counting.made, 1);
    EXPECT_FALSE(counting.DoDtf(52.0, 5.0, 0.0, a, b, c, false, L"Nowhere", 0.0));
    EXPECT_FALSE(counting.DoDtf(52.0, 5.0, 0.0, a, b, c, false, L"Nowhere", 0.0));
    EXPECT_EQ(counting.made, 2) << "a failed name is not tried again";
    EXPECT_TRUE(counting.DoDtf(52.0, 5.0, 0.0, a, b, c, false, L"Mine", 0.0));
    EXPECT_EQ(counting.made, 3);
}

// CreateDtfFileObj.

TEST_F(NewDatum, IsWrittenIntoAFileFromTheFirstPlaceThatHasIt)
{
    AddDatum(machine.main, {.name = L"Old style", .parameters = {11.0}});
    AddDatum(machine.user, {.name = L"Old style", .parameters = {12.0}});
    OldMachine::SetDatum(machine.main, L"Old style");
    machine.main.SetItem(L"Old style", L"Shift X", 13.0, true);
    OldMachine::SetDatum(machine.user, L"Old style");
    machine.user.SetItem(L"Old style", L"Shift X", 14.0, true);
    struct Place {
        FileObject OldMachine::*file;
        const wchar_t* section;
    };
    const Place places[] = {{&OldMachine::main, L"Dtf-Old style"},
                            {&OldMachine::user, L"Dtf-Old style"},
                            {&OldMachine::main, L"Old style"},
                            {&OldMachine::user, L"Old style"}};
    double shift = 11.0;
    for (const Place& place : places) {
        MakeReady();
        FileObject target;
        ASSERT_TRUE(system.CreateDtfFileObj(L"Old style", target));
        double written = 0.0;
        EXPECT_TRUE(target.GetItem(L"Dtf-Old style", L"Shift X", written)) << "always with the prefix";
        EXPECT_EQ(written, shift);
        EXPECT_FALSE(target.HasSection(L"Old style"));
        shift += 1.0;
        (machine.*place.file).DeleteSection(place.section);
    }
    MakeReady();
    FileObject target;
    EXPECT_FALSE(system.CreateDtfFileObj(L"Old style", target));
    CString section;
    FobjSection cursor;
    EXPECT_FALSE(target.GetFirstSectionEntry(cursor, section)) << "nothing was written";
    EXPECT_EQ(machine.UserText(), before);
}

TEST_F(NewDatum, DefinitionFilesAreNotAskedForAFile)
{
    MakeReady();
    FileObject target;
    EXPECT_FALSE(system.CreateDtfFileObj(L"Old Shift", target));
}

// SaveDtfFileObjToDB.

TEST_F(NewDatum, IsTakenFromAFileIntoTheUserFile)
{
    MakeReady();
    FileObject given = Given(L"Dtf-Given");
    EXPECT_TRUE(system.SaveDtfFileObjToDB(&given, L"Given"));
    EXPECT_EQ(machine.OnDisk(kDatumsSection, L"4"), "Given");
    EXPECT_EQ(machine.OnDisk(kGeneralSection, kDatumCount), "4");
    EXPECT_EQ(machine.OnDisk(L"Dtf-Given", L"Shift X"), "7");
    EXPECT_EQ(machine.OnDisk(L"Dtf-Given", kDatumMethod), "Helmert(7 Parameters)");
    EXPECT_EQ(machine.OnDisk(L"Dtf-Given", L"Target ellipsoid"), "Bessel 1841");
    // The database sees it at once; its lists of names by the next Init.
    EXPECT_TRUE(system.GetGeoDatabase().HasDtf(L"Given", GeoDbUser));
    EXPECT_EQ(ShiftOfNew(L"Given"), 7.0);
    CStringArray names;
    system.GetGeoDatabase().GetDtfNamesByElps(names, L"WGS84", L"Bessel 1841");
    for (const CString& name : names) {
        EXPECT_NE(name, L"Given");
    }
    FileObject second = Given(L"Dtf-Second");
    EXPECT_TRUE(system.SaveDtfFileObjToDB(&second, L"Second"));
    EXPECT_EQ(machine.OnDisk(kDatumsSection, L"5"), "Second");
}

TEST_F(NewDatum, FirstOneOfAUserFileIsCountedFromNothing)
{
    for (const wchar_t* section : {L"General", L"DatumTransform Section", L"Dtf-Both", L"Dtf-Mine", L"Dtf-Broken"}) {
        ASSERT_TRUE(machine.user.DeleteSection(section));
    }
    MakeReady();
    FileObject given = Given(L"Dtf-Given");
    EXPECT_TRUE(system.SaveDtfFileObjToDB(&given, L"Given"));
    EXPECT_EQ(machine.OnDisk(kDatumsSection, L"1"), "Given");
    EXPECT_EQ(machine.OnDisk(kGeneralSection, kDatumCount), "1");
}

TEST_F(NewDatum, SectionWithoutAPrefixIsTakenAndGetsIt)
{
    MakeReady();
    FileObject given = Given(L"Given");
    EXPECT_TRUE(system.SaveDtfFileObjToDB(&given, L"Given"));
    EXPECT_EQ(machine.OnDisk(L"Dtf-Given", L"Shift X"), "7");
    EXPECT_FALSE(machine.HasOnDisk(L"Given"));
}

TEST_F(NewDatum, SectionWithThePrefixGoesBeforeTheBareName)
{
    MakeReady();
    FileObject given = Given(L"Given");
    OldMachine::SetDatum(given, L"Dtf-Given");
    EXPECT_TRUE(system.SaveDtfFileObjToDB(&given, L"Given"));
    EXPECT_EQ(machine.OnDisk(L"Dtf-Given", L"Shift X"), "-565.7346");
}

TEST_F(NewDatum, SectionInCapitalsKeepsThem)
{
    MakeReady();
    FileObject given = Given(L"DTF-GIVEN");
    EXPECT_TRUE(system.SaveDtfFileObjToDB(&given, L"Given"));
    EXPECT_EQ(machine.OnDisk(kDatumsSection, L"4"), "DTF-GIVEN") << "a prefix in capitals is part of the name";
    EXPECT_TRUE(machine.HasOnDisk(L"Dtf-DTF-GIVEN"));
}

TEST_F(NewDatum, KnownNameIsNotReplaced)
{
    MakeReady();
    for (const wchar_t* name : {L"Seven", L"Mine", L"Both"}) {
        FileObject given = Given(L"Dtf-" + CString(name));
        EXPECT_TRUE(system.SaveDtfFileObjToDB(&given, name));
    }
    EXPECT_EQ(machine.UserText(), before);
    EXPECT_EQ(ShiftOfNew(L"Mine"), 4.0);
}

TEST_F(NewDatum, WhatDoesNotLoadIsNotTaken)
{
    MakeReady();
    FileObject lacking = Given(L"Dtf-Given");
    lacking.DeleteItem(L"Dtf-Given", L"Shift Z", false);
    EXPECT_FALSE(system.SaveDtfFileObjToDB(&lacking, L"Given"));
    FileObject empty;
    EXPECT_FALSE(system.SaveDtfFileObjToDB(&empty, L"Given"));
    EXPECT_FALSE(system.SaveDtfFileObjToDB(nullptr, L"Given"));
    EXPECT_EQ(machine.UserText(), before);
}

TEST_F(NewDatum, ReadOnlyUserFileIsWrittenAndLeftReadOnly)
{
    MakeReady();
    CFileStatus status;
    ASSERT_TRUE(CFile::GetStatus(machine.UserFile(), status));
    status.attribute |= CFileStatus::readOnly;
    CFile::SetStatus(machine.UserFile(), status);
    FileObject given = Given(L"Dtf-Given");
    EXPECT_TRUE(system.SaveDtfFileObjToDB(&given, L"Given"));
    EXPECT_TRUE(machine.HasOnDisk(L"Dtf-Given"));
    ASSERT_TRUE(CFile::GetStatus(machine.UserFile(), status));
    EXPECT_NE(status.attribute & CFileStatus::readOnly, 0u);
    EXPECT_TRUE(desk.messages.empty());
}

TEST_F(NewDatum, SaveThatFailsIsNotTold)
{
    MakeReady();
    std::filesystem::remove_all(machine.Directory().Path() / "user");
    FileObject given = Given(L"Dtf-Given");
    EXPECT_TRUE(system.SaveDtfFileObjToDB(&given, L"Given"));
    EXPECT_TRUE(system.GetGeoDatabase().HasDtf(L"Given", GeoDbUser)) << "in memory";
    EXPECT_FALSE(CFile::Exists(machine.UserFile()));
}

TEST_F(NewDatum, IsCarriedToAnotherMachineWithoutItsEllipsoids)
{
    AddEllipsoid(machine.main, {L"Local 1900", 6377000.5, 0.0066});
    AddDatum(machine.main, {.name = L"Carried", .target = L"Local 1900", .parameters = {21.0, 22.0, 23.0}});
    MakeReady();
    FileObject carried;
    ASSERT_TRUE(system.CreateDtfFileObj(L"Carried", carried));
    EXPECT_FALSE(carried.HasSection(L"Elp-Local 1900"));

    // The other machine has no such ellipsoid.
    machine.main.DeleteSection(L"Elp-Local 1900");
    machine.main.DeleteSection(L"Dtf-Carried");
    MakeReady();
    ASSERT_TRUE(system.SaveDtfFileObjToDB(&carried, L"Carried"));
    EXPECT_EQ(machine.OnDisk(L"Dtf-Carried", L"Target ellipsoid"), "Local 1900");
    EXPECT_EQ(machine.OnDisk(L"Dtf-Carried", L"DstSma"), "6377000.5");
    EXPECT_FALSE(machine.HasOnDisk(L"Elp-Local 1900"));
    const std::unique_ptr<CDatumTransform> datum(system.CreateNewDtf(L"Carried"));
    ASSERT_TRUE(datum);
    double a = 0.0, e2 = 0.0;
    datum->GetDtfDestEllips(a, e2);
    EXPECT_EQ(a, 6377000.5);
    EXPECT_EQ(e2, 0.0066);
}
