// `zorgeo db check`: every kind of fault with its line, and what is no fault.

#include <algorithm>
#include <functional>

#include <fmt/format.h>
#include <nlohmann/json.hpp>

#include "CliTest.h"
#include "base/keys/KeyTables.h"

using namespace test_names;
using testing::AllOf;
using testing::HasSubstr;

namespace {

constexpr const char* kUserFile = "user/zorusergeobase.geo";

/// A user database as the program writes it: one group, system, datum and projection of its own.
const std::string kSource = transParamKeys[TransKey::source].ToUtf8();
const std::string kTarget = transParamKeys[TransKey::target].ToUtf8();
const std::string kOwn = R"([General]
Group count=1
System count=1
Datumtransf count=1
Projection count=1
[Groups Section]
1=Harbours
[Gp-Harbours]
1=Harbour Grid
System count=1
[Sys-Harbour Grid]
Datumtransform name=Harbour Shift
Ellipsoid name=Harbour ellipsoid
Projection name=Harbour TM
Unit name=Meters
[DatumTransform Section]
1=Harbour Shift
[Dtf-Harbour Shift]
Method name=Bursa/Wolfe(7 Parameters)
)" + kSource + "=WGS84\n" +
                         kTarget + R"(=Harbour ellipsoid
Shift X=1
Shift Y=2
Shift Z=3
Rotation X=0
Rotation Y=0
Rotation Z=0
Scale=0
[Elp-Harbour ellipsoid]
SemiMajor=6378200
EccSqrd=0.0067
[Projections section]
1=Harbour TM
[Prj-Harbour TM]
Projection type=0
Projection method=Transverse Mercator
Unit name=Meters
LatOrigin=0
LonOrigin=3
FalseEasting=500000
FalseNorthing=0
ScaleFactor=0.9996
)";

std::string Replaced(std::string text, const std::string& from, const std::string& to)
{
    const auto at = text.find(from);
    EXPECT_NE(at, std::string::npos) << from;
    return text.replace(at, from.size(), to);
}

} // namespace

class DbCheck : public CliTest {
protected:
    DbCheck()
    {
        EditedFile main(MainDatabase());
        main.file.DeleteItem(L"Gp-North Sea", L"6", false); // its geoid file is missing
        main.file.DeleteSection(L"Sys-Lost geoid");
    }

    ToolRun Check(const std::vector<std::string>& more = {}) const
    {
        std::vector<std::string> arguments = {"db", "check"};
        arguments.insert(arguments.end(), more.begin(), more.end());
        return Run(arguments);
    }

    using Edit = std::function<void(FileObject&)>;

    void ChangeMain(const Edit& edit) const
    {
        EditedFile main(MainDatabase());
        edit(main.file);
    }
};

TEST_F(DbCheck, ACleanDatabaseSaysNothing)
{
    const ToolRun run = Check();
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.out, "");
    EXPECT_EQ(run.err, "zorgeo: 7 systems, 0 faults, 0 notes\n");
    Write(kUserFile, kOwn);
    const ToolRun own = Check();
    EXPECT_EQ(own.status, 0);
    EXPECT_EQ(own.out, "");
    EXPECT_EQ(own.err, "zorgeo: 8 systems, 0 faults, 0 notes\n");
}

TEST_F(DbCheck, FaultsOfTheUserFileHaveTheirLines)
{
    struct Row {
        std::string from;
        std::string to;
        std::string section;
        std::string line;
    };
    const std::string takeOut = "; take it out";
    const std::vector<Row> rows = {
        // Sections and keys.
        {"[General]", "[Ellipsoids Section]\n1=x\n[General]", "Ellipsoids Section",
         "no reader knows such a section; right is \"Ellipsoids section\""},
        {"[General]", "[Datums]\n[General]", "Datums", "no reader knows such a section" + takeOut},
        {"Group count=1", "Group number=1\nGroup count=1", "General", "key \"Group number\" is unknown" + takeOut},
        {"Group count=1", "Group count=one", "General",
         "key \"Group count\": \"one\" is no count; right is a whole number, 0 or more"},
        {"1=Harbours", "01=Harbours", "Groups Section",
         "key \"01\" is unknown; right is a serial number, 1 or more, without a sign or zeros before it"},
        {"Unit name=Meters\n[Dat", "Unit Name=Meters\nUnit name=Meters\n[Dat", "Sys-Harbour Grid",
         "key \"Unit Name\" is unknown; right is \"Unit name\""},
        {"Shift X=1", "Shift=1\nShift X=1", "Dtf-Harbour Shift", "key \"Shift\" is unknown" + takeOut},
        // Lists.
        {"1=Harbours", "1=Harbours\n2=Lost", "Groups Section",
         "line 2 lists \"Lost\", and there is no section \"Gp-Lost\"; add the group, or take the line out"},
        {"1=Harbour Grid", "1=Harbour Grid\n2=Lost", "Gp-Harbours",
         "line 2 lists \"Lost\", and there is no section \"Sys-Lost\"; add the system, or take the line out"},
        {"1=Harbour Grid", "1=Harbour Grid\n2=Plain UTM", "Gp-Harbours",
         "line 2 lists \"Plain UTM\", and there is no section \"Sys-Plain UTM\" in this file; the other file has it "
         "and not the group; add the system, or take the line out"},
        {"1=Harbour Shift", "1=Harbour Shift\n2=Lost", "DatumTransform Section",
         "line 2 lists \"Lost\", and there is no section \"Dtf-Lost\"; add the datum transformation, or take the line "
         "out"},
        {"1=Harbours", "", "Gp-Harbours",
         "the group has no line in section \"Groups Section\"; add a line, or take the record out"},
        {"1=Harbour Shift", "", "Dtf-Harbour Shift",
         "the datum transformation has no line in section \"DatumTransform Section\"; add a line, or take the record "
         "out"},
        {"1=Harbour TM", "", "Prj-Harbour TM",
         "the projection has no line in section \"Projections section\"; add a line, or take the record out"},
        // References.
        {"Datumtransform name=Harbour Shift", "Datumtransform name=Lost", "Sys-Harbour Grid",
         "key \"Datumtransform name\" names \"Lost\", and there is no section \"Dtf-Lost\" in either file; add the "
         "record, or mend the name"},
        {"Ellipsoid name=Harbour ellipsoid\nP", "Ellipsoid name=Lost\nP", "Sys-Harbour Grid",
         "key \"Ellipsoid name\" names \"Lost\", and there is no section \"Elp-Lost\" in either file; add the record, "
         "or mend the name"},
        {"Projection name=Harbour TM", "Projection name=Lost", "Sys-Harbour Grid",
         "key \"Projection name\" names \"Lost\", and there is no section \"Prj-Lost\" in either file; add the record, "
         "or mend the name"},
        {"Unit name=Meters\n[Dat", "Unit name=Ells\n[Dat", "Sys-Harbour Grid",
         "key \"Unit name\" names \"Ells\", and there is no such unit in either file; add the record, or mend the "
         "name"},
        {"Unit name=Meters\nLat", "Unit name=Ells\nLat", "Prj-Harbour TM",
         "key \"Unit name\" names \"Ells\", and there is no such unit in either file; add the record, or mend the "
         "name"},
        {"Unit name=Meters\n[Dat", "[Dat", "Sys-Harbour Grid", "key \"Unit name\" is missing or empty; name a unit"},
        {kSource + "=WGS84", kSource + "=Lost", "Dtf-Harbour Shift",
         "key \"" + kSource +
             "\": its ellipsoid \"Lost\" has no record \"Elp-Lost\" in either database file; add the "
             "ellipsoid, or its numbers here under \"SrcSma\" and \"SrcSe\""},
        // Values.
        {"Shift Y=2", "Shift Y=two", "Dtf-Harbour Shift", "key \"Shift Y\": \"two\" is no number; give a number"},
        {"Shift Y=2\n", "", "Dtf-Harbour Shift", "key \"Shift Y\" is missing; give a number"},
        {"Scale=0", "Scale=0\nFixed height=perhaps", "Dtf-Harbour Shift",
         "key \"Fixed height\": \"perhaps\" is neither 1 nor 0; mend the record"},
        {"(7 Parameters)", "(14 Parameters)", "Dtf-Harbour Shift", "key \"Epoch\" is missing; give a number"},
        {"SemiMajor=6378200", "SemiMajor=5000000", "Elp-Harbour ellipsoid",
         "semi-major axis 5000000 and squared eccentricity 0.0067 are no ellipsoid of the Earth; right is an axis of "
         "6000000 metres or more and a squared eccentricity from 0 to below 1"},
        {"EccSqrd=0.0067\n", "", "Elp-Harbour ellipsoid", "key \"EccSqrd\" is missing; give a number"},
        {"LonOrigin=3\n", "", "Prj-Harbour TM", "key \"LonOrigin\" is missing; give a number"},
        {"Projection type=0", "Projection type=5", "Prj-Harbour TM",
         "the projection method \"Transverse Mercator\" (type 5) has no formulas in this module; take another method; "
         "see: zorgeo list methods"},
        {"Unit name=Meters\n[Dat", "Unit name=Meters\nPost coorection statu=1\nPost X coorection=1\n[Dat",
         "Sys-Harbour Grid",
         "key \"Post Y coorection\" is missing; mend the record or switch this correction off in it"},
        {"Unit name=Meters\n[Dat", "Unit name=Meters\nPost Z coorection=deep\n[Dat", "Sys-Harbour Grid",
         "key \"Post Z coorection\": \"deep\" is no number; give a number"},
        {"[Projections", "[Units section]\nEll=long,el\n[Projections", "Units section",
         "unit \"Ell\": \"long,el\" is no factor and suffix; mend the record"},
        {"[Projections", "[Units section]\nEll=0.68\n[Projections", "Units section",
         "unit \"Ell\": \"0.68\" has no suffix; right is a factor, a comma and a suffix: 0.3048,ft"},
        // What only shows when a system is made.
        {"ScaleFactor=0.9996", "ScaleFactor=0.5", "Sys-Harbour Grid",
         "the system cannot be initialised: section \"Prj-Harbour TM\" is at fault; mend what is told of it"},
        {"Shift Y=2\n", "", "Sys-Harbour Grid",
         "the system cannot be initialised: section \"Dtf-Harbour Shift\" is at fault; mend what is told of it"},
        {"Unit name=Meters\n[Dat",
         "Unit name=Meters\nGeoid model use statu=1\nGeoid model method=EGM2008\nGeoid model grid=lost.gtx\n[Dat",
         "Sys-Harbour Grid",
         "key \"Geoid model grid\": the file \"lost.gtx\" of the model \"EGM2008\" cannot be used"}};
    for (const Row& row : rows) {
        SCOPED_TRACE(row.line);
        Write(kUserFile, Replaced(kOwn, row.from, row.to));
        const ToolRun run = Check();
        EXPECT_EQ(run.status, 1);
        EXPECT_THAT("\n" + run.out,
                    HasSubstr(fmt::format("\n{}: section \"{}\": {}", Path(kUserFile), row.section, row.line)))
            << run.err;
    }
}

TEST_F(DbCheck, AParameterThatTheClassRefusesIsNamed)
{
    Write(kUserFile, Replaced(kOwn, "ScaleFactor=0.9996", "ScaleFactor=0.5"));
    EXPECT_THAT(Check().out,
                HasSubstr("section \"Prj-Harbour TM\": key \"ScaleFactor\": 0.5 is below 0.8, which Transverse "
                          "Mercator refuses; right is a factor near 1, 0.9996 for UTM\n"));
}

TEST_F(DbCheck, FaultsOfTheMainFileAreFound)
{
    ChangeMain([](FileObject& file) {
        file.SetItem(L"Elp-Sphere", L"SemiMajor", 6371000.0, true);
        file.SetItem(L"Elp-Sphere", L"EccSqrd", 0.0, true);
        file.SetItem(L"Sys-Plain UTM", L"Datumtransform name", L"Lost", true);
    });
    const ToolRun run = Check();
    EXPECT_EQ(run.status, 1);
    EXPECT_THAT(run.out, AllOf(HasSubstr(MainDatabase() + ": section \"Elp-Sphere\": the ellipsoid has no line in "
                                                          "section \"Ellipsoids section\"; "),
                               HasSubstr(MainDatabase() + ": section \"Sys-Plain UTM\": key \"Datumtransform name\" "
                                                          "names \"Lost\"")));
    EXPECT_THAT(run.err, HasSubstr("3 faults")); // and the system that cannot be initialised
}

TEST_F(DbCheck, ACatalogueWithoutTheTypeIsAFault)
{
    {
        EditedFile catalogue(Catalogue());
        catalogue.file.DeleteItem(L"Projections-Section", L"0", false);
        catalogue.file.SetItem(L"Projections-Section", L"4", L"Mercator", true);
    }
    const ToolRun run = Check();
    EXPECT_EQ(run.status, 1);
    EXPECT_THAT(run.out, HasSubstr("section \"Prj-UTM 31\": " + Catalogue() +
                                   ": the method of projection type 0 and its parameters are not listed; install the "
                                   "delivered catalogue again\n"));
}

TEST_F(DbCheck, WhatIsAllowedIsANote)
{
    struct Row {
        std::string from;
        std::string to;
        std::string section;
        std::string line;
    };
    const std::vector<Row> rows = {
        // Removing a group leaves its systems.
        {"1=Harbour Grid\n", "", "Sys-Harbour Grid",
         "the system is in no group: one that was removed leaves its systems behind; list it in a group, or take the "
         "record out"},
        // The program lists a delivered group without counting it.
        {"Group count=1", "Group count=0", "General",
         "key \"Group count\" is 0, and section \"Groups Section\" has a line 1: the next group takes over line 1, "
         "\"Harbours\"; right is 1 or more"},
        {"1=Harbour Grid", "5=Harbour Grid", "Gp-Harbours",
         "key \"System count\" is 1, and section \"Gp-Harbours\" has a line 5; right is 5 or more"},
        {"1=Harbour Shift", "1=Harbour Shift\n2=Moving", "DatumTransform Section",
         "line 2 lists \"Moving\", whose record is in the other file; it can be taken out"},
        {"1=Harbour Shift", "1=Harbour Shift\n2=Harbour Shift", "DatumTransform Section",
         "line 2 lists \"Harbour Shift\" once more; it can be taken out"},
        {"1=Harbour Shift", "1=Harbour Shift\n2=", "DatumTransform Section",
         "line 2 lists nothing; it can be taken out"},
        {kSource + "=WGS84", kSource + "=Gone\nSrcSma=6378137\nSrcSe=0.00669438", "Dtf-Harbour Shift",
         "key \"" + kSource + "\" names \"Gone\", which has no record; the numbers in this record stand in for it\n"},
        {"Method name=Bursa/Wolfe(7 Parameters)", "Method name=Guess", "Dtf-Harbour Shift",
         "key \"Method name\": \"Guess\" is no method and counts as 7 parameters; right is \"Bursa/Wolfe(7 "
         "Parameters)\" or another of the five methods"},
        {"Ellipsoid name=Harbour ellipsoid\nP", "Ellipsoid name=WGS84\nP", "Sys-Harbour Grid",
         "key \"Ellipsoid name\" is \"WGS84\", and its datum transformation \"Harbour Shift\" leads to \"Harbour "
         "ellipsoid\"; as a rule the two are the same"},
        {"Unit name=Meters\n[Dat", "Unit name=Feet\n[Dat", "Sys-Harbour Grid",
         "key \"Unit name\" is \"Feet\", and the lengths of its projection \"Harbour TM\" are in \"Meters\"; take a "
         "projection in the system's unit"},
        {"ScaleFactor=0.9996", "ScaleFactor=0.9996\n1stParallel=50", "Prj-Harbour TM",
         "key \"1stParallel\" is no parameter of projection type 0; it can be taken out"}};
    for (const Row& row : rows) {
        SCOPED_TRACE(row.line);
        Write(kUserFile, Replaced(kOwn, row.from, row.to));
        const ToolRun run = Check();
        EXPECT_EQ(run.status, 0) << run.out;
        EXPECT_THAT("\n" + run.out,
                    HasSubstr(fmt::format("\n{}: section \"{}\": note: {}", Path(kUserFile), row.section, row.line)));
    }
}

TEST_F(DbCheck, ANameInBothFilesForDifferentThingsIsANote)
{
    Write(kUserFile, "[Elp-WGS84]\nSemiMajor=6378137.0\nEccSqrd=0.0066\n[Units section]\nFeet=0.3048,ft\n"
                     "Meters=1.000000,m\n");
    const ToolRun run = Check();
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(
        run.out,
        fmt::format("{0}: section \"Elp-WGS84\": note: the main file has this ellipsoid too, with other content: key "
                    "\"EccSqrd\" is \"0.0066\" here and \"0.006694379990141317\" there; give one of the two another "
                    "name\n{0}: section \"Units section\": note: the main file has this unit too, with other content: "
                    "key \"Feet\" is \"0.3048,ft\" here and \"0.304800,ft\" there; give one of the two another "
                    "name\n",
                    Path(kUserFile)));
}

TEST_F(DbCheck, AnUnusedMissingGeoidIsNoFault)
{
    Write(kUserFile, Replaced(kOwn, "Unit name=Meters\n[Dat",
                              "Unit name=Meters\nGeoid model use statu=0\nGeoid model method=EGM2008\nGeoid model "
                              "grid=lost.gtx\n[Dat"));
    EXPECT_EQ(Check().status, 0);
}

TEST_F(DbCheck, AMissingGridOfThePostCorrectionIsAFault)
{
    Write(kUserFile,
          Replaced(kOwn, "Unit name=Meters\n[Dat",
                   "Unit name=Meters\nPost coorection statu=1\nPost X coorection=0\nPost Y coorection=0\nPost "
                   "Z coorection=0\nPost coorection model=NTv2\nPost coorection file=lost.gsb\n[Dat"));
    const ToolRun run = Check();
    EXPECT_EQ(run.status, 1);
    EXPECT_THAT(run.out,
                HasSubstr("section \"Sys-Harbour Grid\": key \"Post coorection file\": the file \"lost.gsb\" of the "
                          "model \"NTv2\" cannot be used"));
}

TEST_F(DbCheck, JsonHasTheSame)
{
    Write(kUserFile, Replaced(kOwn, "Shift Y=2", "Shift Y=two"));
    const ToolRun run = Check({"--json"});
    EXPECT_EQ(run.status, 1);
    const auto told = nlohmann::json::parse(run.out);
    EXPECT_EQ(told["systems"], 8);
    ASSERT_EQ(told["faults"].size(), 2U) << run.out;
    EXPECT_EQ(told["faults"][0]["file"], Path(kUserFile));
    EXPECT_EQ(told["faults"][0]["section"], "Dtf-Harbour Shift");
    EXPECT_EQ(told["faults"][0]["key"], "Shift Y");
    EXPECT_EQ(told["faults"][0]["what"], "key \"Shift Y\": \"two\" is no number");
    EXPECT_EQ(told["faults"][0]["remedy"], "give a number");
    EXPECT_EQ(told["faults"][1]["section"], "Sys-Harbour Grid");
}

TEST_F(DbCheck, AFileThatIsNoDatabaseEndsTheCheck)
{
    Write(kUserFile, "no section file");
    const ToolRun run = Check();
    EXPECT_EQ(run.status, 3);
    EXPECT_THAT(run.err, AllOf(HasSubstr(Path(kUserFile)), HasSubstr("line 1")));
}

TEST_F(DbCheck, ALineOfTheReportIsOneLineWhateverTheNames)
{
    Write(kUserFile, Replaced(kOwn, "Projection name=Harbour TM", "Projection name=Two\\{a}lines"));
    const std::string out = Check().out;
    EXPECT_EQ(std::count(out.begin(), out.end(), '\n'), 2) << out; // the name, the system
}

TEST_F(DbCheck, LooksAndChangesNothing)
{
    Write(kUserFile, Replaced(kOwn, "Shift Y=2\n", ""));
    const std::string user = Read(kUserFile);
    const std::string main = Read("data/zorgeodatabase.geo");
    Check();
    EXPECT_EQ(Read(kUserFile), user);
    EXPECT_EQ(Read("data/zorgeodatabase.geo"), main);
    EXPECT_THAT(FilesIn("user"), testing::ElementsAre("zorusergeobase.geo"));
}
