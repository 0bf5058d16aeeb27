#pragma once

#include <gtest/gtest.h>

#include <string>

#include "coordsys/ZORGeoCoordSys.h"
#include "tests/support/ModuleTexts.h"
#include "tests/support/ScriptedDesk.h"
#include "tests/support/TestDatabase.h"

inline const CString kGroup = L"Harbours";
/// A datum of seven parameters, one of fourteen, and none.
inline const CString kSevenSystem = L"Harbour Grid";
inline const CString kFourteenSystem = L"Moving Grid";
inline const CString kPlainSystem = L"Plain Grid";

/// The two transformations and the projection of these systems, in PROJ's words. Rotations are
/// small, so that the order in which PROJ applies them shows below a tenth of a millimetre.
inline const std::string kProjSource = "+step +proj=cart +a=6378137 +es=0.00669437999014 ";
inline const std::string kProjTarget = "+step +inv +proj=cart +a=6377397.155 +es=0.006674372231 ";
inline const std::string kProjSeven =
    "+proj=pipeline " + kProjSource +
    "+step +proj=helmert +x=-565.7346 +y=-50.4058 +z=-465.2895 +rx=0.2 +ry=-0.15 +rz=0.3 +s=-4.07244 "
    "+convention=position_vector +exact " +
    kProjTarget;
inline const std::string kProjFourteen =
    "+proj=pipeline " + kProjSource +
    "+step +proj=helmert +x=-565.7346 +y=-50.4058 +z=-465.2895 +rx=0.2 +ry=-0.15 +rz=0.3 +s=-4.07244 "
    "+dx=0.011 +dy=-0.022 +dz=0.015 +drx=0.0011 +dry=-0.0022 +drz=0.0015 +ds=0.003 +t_epoch=2010 "
    "+convention=position_vector +exact " +
    kProjTarget;
inline const std::string kProjGrid =
    "+step +proj=tmerc +lat_0=0 +lon_0=5 +k_0=0.9996 +x_0=500000 +y_0=0 +a=6377397.155 +es=0.006674372231 ";

/// Three delivered systems of one group, in the main file; the user file is empty. Not saved yet:
/// add what a test needs, then Save, or let MakeReady do it.
class SurveyDatabase : public TestDatabase {
public:
    SurveyDatabase()
    {
        const std::array<double, 7> parameters = {-565.7346, -50.4058, -465.2895, 0.2, -0.15, 0.3, -4.07244};
        AddEllipsoid(main, kTestWgs84);
        AddEllipsoid(main, kTestBessel);
        AddDatum(main, {.name = L"Seven", .parameters = parameters});
        AddDatum(main, {.name = L"Fourteen",
                        .method = kMethodBursaWolfe14,
                        .parameters = parameters,
                        .rates = {0.011, -0.022, 0.015, 0.0011, -0.0022, 0.0015, 0.003, 2010.0}});
        AddDatum(main, {.name = L"No datum", .method = kMethodNone});
        AddProjection(main, {.name = L"TM 5 East"});
        AddUnit(main, L"Meters", L"1.000000,m");
        AddUnit(main, L"Feet", L"0.304800,ft");
        AddSystem(main, {.group = kGroup, .name = kSevenSystem, .datum = L"Seven", .projection = L"TM 5 East"});
        AddSystem(main, {.group = kGroup, .name = kFourteenSystem, .datum = L"Fourteen", .projection = L"TM 5 East"});
        AddSystem(main, {.group = kGroup, .name = kPlainSystem, .datum = L"No datum", .projection = L"TM 5 East"});
        project.SetItem(FORMATS_SECTION, formatParamKeys[FormatKey::unitFormat], 3.0, true);
    }

    /// Sets one key of a system of the main file.
    template <typename Value>
    void SetSystemItem(const CString& system, const CString& key, const Value& value)
    {
        main.SetItem(kSystemPrefix + system, key, value, true);
    }
};

/// A catalogue whose section of a Transverse Mercator has not the places of its parameters.
struct UnfitCatalogue {
    const char* what;
    void (*spoil)(FileObject& catalogue);

    void Write(const TestDatabase& database) const
    {
        FileObject catalogue;
        ASSERT_TRUE(
            catalogue.FileOpen(database.Directory().File("main/ZorProjectionStatic.dat"), FileMode::openForReading));
        spoil(catalogue);
        ASSERT_TRUE(catalogue.FileSave(L"", FileMode::saveExclusive));
    }
};
inline const UnfitCatalogue kUnfitCatalogues[] = {
    {"no Unitflag", [](FileObject& c) { c.DeleteItem(L"Transverse Mercator", L"Unitflag", false); }},
    {"no entry",
     [](FileObject& c) {
         c.DeleteSection(L"Transverse Mercator");
         c.CreateSection(L"Transverse Mercator", true);
     }},
    {"no section", [](FileObject& c) { c.DeleteSection(L"Transverse Mercator"); }},
    {"no list of methods", [](FileObject& c) { c.DeleteSection(kCatalogueMethods); }}};

/// What a project asks for beside the system.
struct InitArguments {
    CString geoidModel = {};
    CString geoidFile = {};
    CString chartDatum = {};
    CString postModel = {};
    CString postFile = {};
    CString unit = L"none";
};

/// Init on the open project.
inline bool InitOpen(ZORGeoCoordSys& system, FileObject& project, const CString& name, bool silent,
                     const InitArguments& arguments = {})
{
    return system.Init(kGroup, name, arguments.geoidModel, arguments.geoidFile, arguments.chartDatum,
                       arguments.postModel, arguments.postFile, project, arguments.unit, silent);
}

/// Init by the project's file name.
inline bool InitNamed(ZORGeoCoordSys& system, const CString& projectFile, const CString& name,
                      const InitArguments& arguments = {})
{
    return system.Init(kGroup, name, arguments.geoidModel, arguments.geoidFile, arguments.chartDatum,
                       arguments.postModel, arguments.postFile, projectFile, arguments.unit);
}

/// Saves the database and makes a system ready, without message boxes and without the comparison with a backup.
inline void MakeReady(ZORGeoCoordSys& system, SurveyDatabase& database, const CString& name,
                      const InitArguments& arguments = {})
{
    database.Save();
    ASSERT_TRUE(InitOpen(system, database.project, name, true, arguments));
}
