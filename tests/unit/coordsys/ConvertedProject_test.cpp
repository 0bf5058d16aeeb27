// Projects of the older generation, converted, initialised and used, with PROJ as the judge.

#include <gtest/gtest.h>

#include "tests/support/OldMachine.h"
#include "tests/support/ProjOracle.h"
#include "tests/unit/coordsys/CoordSysFixture.h"

namespace {

struct Case {
    const char* what;
    void (*change)(OldMachine& machine);
    std::string projection; ///< PROJ's words for it, on the local ellipsoid
    double metresPerUnit = 1.0;
    double latitude = 52.1;
    double longitude = 5.3;
};

const Case kCases[] = {
    {"Transverse Mercator of the definitions", [](OldMachine&) {},
     "+step +proj=tmerc +lat_0=0 +lon_0=5 +k_0=0.9996 +x_0=155000 +y_0=100 +a=6377397.155 +es=0.006674372231 "},
    {"two parallels, from the project's copy",
     [](OldMachine& machine) {
         machine.absent = {&machine.projectionDef, &machine.projectionUsr};
         OldMachine::Set(machine.survey, L"PROJECTION_BACKUP",
                         {{L"Projection type", L"3"},
                          {L"LatOrigin", L"50"},
                          {L"LonOrigin", L"4.5"},
                          {L"FalseEasting", L"150000"},
                          {L"FalseNorthing", L"-2000.5"},
                          {L"1stParallel", L"49.75"},
                          {L"2ndParallel", L"53.25"}});
     },
     "+step +proj=lcc +lat_0=50 +lon_0=4.5 +lat_1=49.75 +lat_2=53.25 +x_0=150000 +y_0=-2000.5 +a=6377397.155 "
     "+es=0.006674372231 "},
    {"UTM south of a project that says north",
     [](OldMachine& machine) {
         OldMachine::Set(machine.projectionDef, L"Old TM",
                         {{L"Projection type", L"1"},
                          {L"UTMZone", L"Zone  7     (141 W)"},
                          {L"Hemisphere", L"Northern"},
                          {L"FalseNorthing", L"10000000"}});
         AddProjection(machine.main, {.name = L"UTM Zone-07S",
                                      .type = 1,
                                      .method = L"Universal Transverse Mercator",
                                      .lonOrigin = -141.0,
                                      .falseNorthing = 10000000.0});
         machine.main.SetItem(L"Prj-UTM Zone-07S", L"UTMZone", L"Zone  7     (141 W)", true);
         machine.main.SetItem(L"Prj-UTM Zone-07S", L"Hemisphere", L"Southern", true);
     },
     "+step +proj=tmerc +lat_0=0 +lon_0=-141 +k_0=0.9996 +x_0=500000 +y_0=10000000 +a=6377397.155 "
     "+es=0.006674372231 ",
     1.0, -17.6, -140.2},
    {"Mercator in a unit of the older unit table",
     [](OldMachine& machine) {
         AddUnit(machine.user, L"Links", L"0.201168,lk");
         machine.survey.SetItem(L"UNITS", L"System Units", L"Fathoms", true);
         OldMachine::Set(machine.units, L"System Units", {{L"Fathoms", L"1.8288,fm"}});
         OldMachine::Set(machine.projectionDef, L"Old TM",
                         {{L"Projection type", L"4"}, {L"ScaleFactor", L"1"}, {L"LatTrueScale", L"42"}});
     },
     "+step +proj=merc +lon_0=5 +lat_ts=42 +x_0=283464 +y_0=182.88 +a=6377397.155 +es=0.006674372231 ", 1.8288},
    {"Cassini on an ellipsoid of the definitions",
     [](OldMachine& machine) {
         machine.survey.SetItem(L"SPHEROID", L"Spheroid", L"Local 1900", true);
         machine.datumDef.SetItem(L"Old Shift", L"Target ellipsoid", L"Local 1900", true);
         OldMachine::Set(machine.ellipsoidDef, L"Local 1900",
                         {{L"SemiMajor", L"6377397.155"}, {L"EccSqrd", L"0.006674372231"}});
         OldMachine::Set(machine.projectionDef, L"Old TM",
                         {{L"Projection type", L"8"}, {L"LatOrigin", L"51"}, {L"ScaleFactor", L"1"}});
     },
     "+step +proj=cass +lat_0=51 +lon_0=5 +x_0=155000 +y_0=100 +a=6377397.155 +es=0.006674372231 "},
};

} // namespace

TEST(ConvertedProject, GivesThePositionsOfItsParameters)
{
    for (const Case& c : kCases) {
        SCOPED_TRACE(c.what);
        OldMachine machine;
        machine.survey.SetItem(FORMATS_SECTION, formatParamKeys[FormatKey::unitFormat], 3.0, true);
        c.change(machine);
        machine.SaveAll();
        ZorGeoDatabase database;
        ASSERT_TRUE(database.Init());
        CString group, name;
        ASSERT_TRUE(database.ConvertProj2Geobase(machine.survey, group, name));

        ZORGeoCoordSys system;
        ASSERT_TRUE(system.Init(group, name, L"", L"", L"", L"", L"", machine.survey, L"none", true));
        EXPECT_FALSE(system.HasGeoidModel());
        double x = 0.0, y = 0.0, z = 0.0;
        const double height = 30.0;
        system.SatGeoToGrid(c.latitude, c.longitude, height / c.metresPerUnit, x, y, z, 0.0);

        const auto expected = ProjOracle(kProjSeven + c.projection)
                                  .Forward(ProjOracle::Radians(c.longitude), ProjOracle::Radians(c.latitude), height);
        EXPECT_NEAR(x * c.metresPerUnit, expected.x, 1e-3);
        EXPECT_NEAR(y * c.metresPerUnit, expected.y, 1e-3);
        EXPECT_NEAR(z * c.metresPerUnit, expected.z, 1e-3);
    }
}
