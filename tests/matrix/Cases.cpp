#include "tests/matrix/Cases.h"

#include <array>
#include <fstream>
#include <sstream>

#include "base/keys/KeyTables.h"

namespace matrix {

namespace {

using Text = std::string;

const Text kGroup = "Harbours";
const Text kSystem = "Harbour Grid";
const Text kDatum = "Harbour Shift";
const Text kProjection = "Harbour Projection";
const Text kEllipsoid = "Bessel 1841";
// Names that records of the main and of the user file have.
const std::array<Text, 3> kOfMain = {"Main Grid", "Main Shift", "Main Projection"};
const std::array<Text, 3> kOfUser = {"User Grid", "User Shift", "User Projection"};

const Text kBackup = CString(COORDSYSTEM_BACKUP_SECTION).ToUtf8();
const Text kReference = CString(COORDSYSTEM_SECTION).ToUtf8();
const Text kFormats = CString(FORMATS_SECTION).ToUtf8();

Text DatumKey(int index)
{
    return transParamKeys[static_cast<std::size_t>(index)].ToUtf8();
}
Text ProjectionKeyText(int index)
{
    return projectionParamKeys[static_cast<std::size_t>(index)].ToUtf8();
}
Text SystemKey(int index)
{
    return coordsystemKeys[static_cast<std::size_t>(index)].ToUtf8();
}

bool HasParameters(const Text& method)
{
    return method != "No Transformation";
}
bool HasRates(const Text& method)
{
    return method.find("(14") != Text::npos;
}

struct ProjectionValues {
    Text method;
    std::vector<std::pair<int, double>> numbers; ///< in the order of saving
};
ProjectionValues ValuesOf(int type)
{
    switch (type) {
    case 1:
        return {"Universal Transverse Mercator", {{3, 0}, {4, 3}, {5, 500000}, {6, 0}, {7, 0.9996}, {16, 0}}};
    case 3:
        return {"Lambert 2 Parallel", {{3, 49}, {4, 5.5}, {5, 150000.25}, {6, 5000000}, {8, 49.5}, {9, 51.25}}};
    default:
        return {"Transverse Mercator", {{3, 1.5}, {4, 5.25}, {5, 500000}, {6, -12.5}, {7, 0.9996}, {16, 0}}};
    }
}

/// A projection's parameters under `section`, the false easting moved by `shift`.
void AddParameters(SectionFile& file, const Text& section, int type, double shift)
{
    for (const auto& [key, value] : ValuesOf(type).numbers) {
        file.Set(section, ProjectionKeyText(key),
                 NumberText(key == ProjectionKey::falseEasting ? value + shift : value));
    }
    if (type == 1) {
        file.Set(section, ProjectionKeyText(ProjectionKey::hemisphere), "Northern");
        file.Set(section, ProjectionKeyText(ProjectionKey::utmZone), "Zone 31     (  3 E)");
    }
}

/// A datum transformation's values under `section`, shift X moved by `shift`.
void AddTransformation(SectionFile& file, const Text& section, const Text& method, double shift)
{
    file.Set(section, "Method name", method);
    if (!HasParameters(method)) {
        return;
    }
    file.Set(section, DatumKey(TransKey::source), "WGS84");
    file.Set(section, DatumKey(TransKey::target), kEllipsoid);
    const std::array<double, 7> values = {-565.7346 + shift, -50.4058, -465.2895, 0.2, -0.15, 0.3, -4.07244};
    for (int i = 0; i < 7; ++i) {
        file.Set(section, DatumKey(TransKey::shiftX + i), NumberText(values[static_cast<std::size_t>(i)]));
    }
    const std::array<double, 8> rates = {0.011, -0.022, 0.015, 0.0011, -0.0022, 0.0015, 0.003, 2010};
    for (int i = 0; i < 8 && HasRates(method); ++i) {
        file.Set(section, DatumKey(TransKey::shiftRateX + i), NumberText(rates[static_cast<std::size_t>(i)]));
    }
}

void AddToIndex(SectionFile& file, const Text& section, const Text& counter, const Text& name)
{
    const Text serial = std::to_string(file.Create(section).items.size() + 1);
    file.Set(section, serial, name);
    file.Set("General", counter, serial);
}

void AddProjection(SectionFile& file, const Text& name, int type, double shift)
{
    const Text section = "Prj-" + name;
    AddToIndex(file, "Projections section", "Projection count", name);
    file.Set(section, ProjectionKeyText(ProjectionKey::type), std::to_string(type));
    file.Set(section, "Projection method", ValuesOf(type).method);
    file.Set(section, "Unit name", "Meters");
    AddParameters(file, section, type, shift);
    // A key that may be missing, and is.
    file.Remove(section, ProjectionKeyText(ProjectionKey::gridSkew));
}

void AddDatum(SectionFile& file, const Text& name, const Text& method, double shift, bool described)
{
    const Text section = "Dtf-" + name;
    AddToIndex(file, "DatumTransform Section", "Datumtransf count", name);
    AddTransformation(file, section, method, shift);
    if (described) {
        file.Set(section, DatumKey(TransKey::description), "Of the harbour survey");
    }
}

void AddSystem(SectionFile& file, const Text& name, const Text& datum, const Text& projection, double shift)
{
    const Text section = "Sys-" + name;
    file.Set(section, "Datumtransform name", datum);
    file.Set(section, "Unit name", "Meters");
    file.Set(section, "Ellipsoid name", kEllipsoid);
    file.Set(section, "Projection name", projection);
    file.Set(section, "Post coorection statu", "1");
    file.Set(section, "Post X coorection", "1.5");
    file.Set(section, "Post Y coorection", "2.5");
    file.Set(section, "Post Z coorection", NumberText(3.5 + shift));
}

void AddGroup(SectionFile& file, const Text& group, const std::vector<Text>& systems)
{
    AddToIndex(file, "Groups Section", "Group count", group);
    const Text section = "Gp-" + group;
    for (std::size_t i = 0; i < systems.size(); ++i) {
        file.Set(section, std::to_string(i + 1), systems[i]);
    }
    file.Set(section, "System count", std::to_string(systems.size()));
    const Text* const before = file.Find("General", "System count");
    file.Set("General", "System count", std::to_string((before ? std::stoul(*before) : 0) + systems.size()));
}

void AddEllipsoid(SectionFile& file, const Text& name, double a, double e2)
{
    file.Set("Elp-" + name, "SemiMajor", NumberText(a));
    file.Set("Elp-" + name, "EccSqrd", NumberText(e2));
}

/// The records of a database file that have nothing to do with the project.
void AddOthers(SectionFile& file, const std::array<Text, 3>& names, double shift)
{
    AddGroup(file, names[0] + "s", {names[0]});
    AddSystem(file, names[0], names[1], names[2], shift);
    AddDatum(file, names[1], "Bursa/Wolfe(7 Parameters)", shift, false);
    AddProjection(file, names[2], 0, shift);
}

/// What `each` says of one database file. `shift` is by how much its records differ if they do.
void AddRecords(SectionFile& file, const Case& each, State Places::*place, double shift)
{
    const State projection = each.projection.*place, datum = each.datum.*place, system = each.system.*place;
    if (each.groups == Groups::everywhere || (each.groups == Groups::withSystem && system != State::absent)) {
        AddGroup(file, kGroup, system == State::absent ? std::vector<Text>{} : std::vector{kSystem});
    }
    if (system != State::absent) {
        const bool elsewhere = system == State::differs && each.difference == Difference::reference;
        AddSystem(file, kSystem, elsewhere ? kOfMain[1] : kDatum, elsewhere ? kOfMain[2] : kProjection,
                  system == State::differs && !elsewhere ? shift : 0);
    }
    if (datum != State::absent) {
        AddDatum(file, kDatum, each.datumMethod, datum == State::differs ? shift : 0, each.described);
        if (datum == State::differs && !HasParameters(each.datumMethod)) {
            file.Set("Dtf-" + kDatum, DatumKey(TransKey::fixedHeight), "1");
        }
    }
    if (projection != State::absent) {
        AddProjection(file, kProjection, each.projectionType, projection == State::differs ? shift : 0);
    }
}

SectionFile Catalogue()
{
    std::ostringstream text;
    text << std::ifstream(ZORGEO_DATA_DIR "ZorProjectionStatic.dat", std::ios::binary).rdbuf();
    return SectionFile::Parsed(text.str());
}

void AddBackupSystem(SectionFile& project, const Case& each)
{
    const std::vector<SectionFile::Item> items = {
        {"CoordSystem", kSystem},
        {"CoordSystem group", kGroup},
        {"Datumtransform name", kDatum},
        {"Projection name", kProjection},
        {"Projection type", std::to_string(each.projectionType)},
        {"Projection medthod", ValuesOf(each.projectionType).method},
        {"Unit name", "Meters"},
        {"Ellipsoid name", kEllipsoid},
        {"Geoid model use statu", "0"},
        {"Post X coorection", "1.5"},
        {"Post Y coorection", "2.5"},
        {"Post Z coorection", "3.5"},
        {"Post coorection file", ""},
        {"Post coorection model", ""},
        {"Post coorection statu", "1"},
        {"Post horizontal adjust statu", "0"},
        {"Post horizonal origin X", "0"},
        {"Post horizonal origin Y", "0"},
        {"Post horizonal rotation", "0"},
        {"Post horizonal scale", "1"},
        {"Post vertical adjust statu", "0"},
        {"Post vertical origin X", "0"},
        {"Post vertical origin Y", "0"},
        {"Post vertical slope X", "0"},
        {"Post vertical slope Y", "0"},
    };
    for (const auto& [key, value] : items) {
        project.Set(kBackup, key, value);
    }
}

void AddBackupParts(SectionFile& project, const Case& each, const Text& projection, const Text& datum, double shift)
{
    AddParameters(project, projection, each.projectionType, shift);
    project.Set(projection, ProjectionKeyText(ProjectionKey::type), std::to_string(each.projectionType));
    AddTransformation(project, datum, each.datumMethod, shift);
    for (int i = 0; i < 8 && !HasRates(each.datumMethod); ++i) {
        project.Set(datum, DatumKey(TransKey::shiftRateX + i), "0");
    }
    project.Set(datum, "SrcSma", NumberText(6378137.0));
    project.Set(datum, "SrcSe", NumberText(0.00669437999014));
    project.Set(datum, "DstSma", NumberText(6377397.155));
    project.Set(datum, "DstSe", NumberText(0.006674372231));
    project.Set(datum, DatumKey(TransKey::fixedHeight), "0");
    project.Set(datum, DatumKey(TransKey::fixedHeightForward), "43");
    project.Set(datum, DatumKey(TransKey::fixedHeightReverse), "0");
}

SectionFile ProjectOf(const Case& each)
{
    SectionFile project;
    project.Set(kFormats, formatParamKeys[FormatKey::unitFormat].ToUtf8(), "3");
    project.Set(kReference, SystemKey(CoordsystemKey::group), kGroup);
    project.Set(kReference, SystemKey(CoordsystemKey::system), kSystem);
    project.Set(kReference, "GeodesyVersion", "1.0.1");
    AddBackupSystem(project, each);
    project.Set("UINT_BACKUP", "Unit name", "1.000000,m");
    project.Set("ELLIPSOID_BACKUP", "SemiMajor", NumberText(6377397.155));
    project.Set("ELLIPSOID_BACKUP", "EccSqrd", NumberText(0.006674372231));
    if (each.sections != Sections::older) {
        AddBackupParts(project, each, "GEODESY_PROJECTION_BACKUP", "GEODESY_DTF_BACKUP", 0);
    }
    if (each.sections != Sections::current) {
        AddBackupParts(project, each, "PROJECTION_BACKUP", "DTF_BACKUP", each.sections == Sections::both ? 700 : 0);
    }
    project.Set("Host's own", "Vessel", "Surveyor");
    return project;
}

const char* KindWord(NameKind kind)
{
    return kind == NameKind::system ? "Grid" : kind == NameKind::projection ? "Projection" : "Shift";
}
Text FreeName(const rules::Question& question, int init)
{
    return "New " + Text(KindWord(question.kind)) + " " + std::to_string(init) + "." + std::to_string(question.dialog);
}
Text OneOf(const std::array<Text, 3>& names, NameKind kind)
{
    return names[kind == NameKind::system ? 0 : kind == NameKind::projection ? 2 : 1];
}

// --- Tweaks ---

void SetInBoth(rules::Machine& m, const Text& key, const Text& value)
{
    for (SectionFile* const file : {&m.user, &m.main}) {
        if (file->Has("Sys-" + kSystem)) {
            file->Set("Sys-" + kSystem, key, value);
        }
    }
}
void SetBackup(rules::Machine& m, const Text& key, const Text& value)
{
    m.project.Set(kBackup, key, value);
}
void SetAdjust(rules::Machine& m, bool inProject, bool inDatabase, const std::vector<SectionFile::Item>& items)
{
    for (const auto& [key, value] : items) {
        if (inProject) {
            SetBackup(m, key, value);
        }
        if (inDatabase) {
            SetInBoth(m, key, value);
        }
    }
}
const std::vector<SectionFile::Item> kHorizontal = {{"Post horizontal adjust statu", "1"},
                                                    {"Post horizonal origin X", "155000"},
                                                    {"Post horizonal origin Y", "463000"},
                                                    {"Post horizonal rotation", "0.75"},
                                                    {"Post horizonal scale", "1.00001"}};
const std::vector<SectionFile::Item> kVertical = {{"Post vertical adjust statu", "1"},
                                                  {"Post vertical origin X", "155000"},
                                                  {"Post vertical origin Y", "463000"},
                                                  {"Post vertical slope X", "2.5"},
                                                  {"Post vertical slope Y", "-1.5"}};
const std::vector<SectionFile::Item> kFixedSeparation = {{"Geoid model use statu", "1"},
                                                         {"Geoid model method", "Manual"},
                                                         {"Geoid model grid", "of-old.gtx"},
                                                         {"Manual input value", "43.25"}};

const std::array kCorrections = {
    Tweak{"PostOffInProject", [](rules::Machine& m) { SetBackup(m, "Post coorection statu", "0"); }},
    Tweak{"PostOffInDatabase", [](rules::Machine& m) { SetInBoth(m, "Post coorection statu", "0"); }},
    Tweak{"PostOffInDatabaseOneZero",
          [](rules::Machine& m) {
              SetInBoth(m, "Post coorection statu", "0");
              SetInBoth(m, "Post Y coorection", "0");
              SetBackup(m, "Post Y coorection", "0");
          }},
    Tweak{"PostOffEverywhere",
          [](rules::Machine& m) {
              SetBackup(m, "Post coorection statu", "0");
              SetInBoth(m, "Post coorection statu", "0");
          }},
    Tweak{"HorizontalInProject", [](rules::Machine& m) { SetAdjust(m, true, false, kHorizontal); }},
    Tweak{"HorizontalInDatabase", [](rules::Machine& m) { SetAdjust(m, false, true, kHorizontal); }},
    Tweak{"HorizontalInBoth", [](rules::Machine& m) { SetAdjust(m, true, true, kHorizontal); }},
    Tweak{"HorizontalScaleMissing",
          [](rules::Machine& m) {
              SetAdjust(m, true, true, kHorizontal);
              SetBackup(m, "Post horizonal scale", "1");
              for (SectionFile* const file : {&m.user, &m.main}) {
                  if (file->Has("Sys-" + kSystem)) {
                      file->Remove("Sys-" + kSystem, "Post horizonal scale");
                  }
              }
          }},
    Tweak{"VerticalInProject", [](rules::Machine& m) { SetAdjust(m, true, false, kVertical); }},
    Tweak{"VerticalInDatabase", [](rules::Machine& m) { SetAdjust(m, false, true, kVertical); }},
    Tweak{"VerticalInBoth", [](rules::Machine& m) { SetAdjust(m, true, true, kVertical); }},
    Tweak{"AdjustsInBoth",
          [](rules::Machine& m) {
              SetAdjust(m, true, true, kHorizontal);
              SetAdjust(m, true, true, kVertical);
          }},
    Tweak{"SeparationInProject", [](rules::Machine& m) { SetAdjust(m, true, false, kFixedSeparation); }},
    Tweak{"SeparationInDatabase", [](rules::Machine& m) { SetAdjust(m, false, true, kFixedSeparation); }},
    Tweak{"SeparationInBoth", [](rules::Machine& m) { SetAdjust(m, true, true, kFixedSeparation); }},
    Tweak{"PostModelOfProject",
          [](rules::Machine& m) {
              SetBackup(m, "Post coorection file", "harbour.txt");
              SetBackup(m, "Post coorection model", "A model of old");
          }},
};

const std::array kOddities = {
    Tweak{"NoBackup", [](rules::Machine& m) { m.project.Remove(kBackup); }},
    Tweak{"NoUnitBackup", [](rules::Machine& m) { m.project.Remove("UINT_BACKUP"); }},
    Tweak{"NoEllipsoidBackup", [](rules::Machine& m) { m.project.Remove("ELLIPSOID_BACKUP"); }},
    Tweak{"SmallEllipsoidBackup", [](rules::Machine& m) { m.project.Set("ELLIPSOID_BACKUP", "SemiMajor", "5999999"); }},
    Tweak{"NoFormats", [](rules::Machine& m) { m.project.Remove(kFormats); }},
    Tweak{"NoProjectionBackup", [](rules::Machine& m) { m.project.Remove("GEODESY_PROJECTION_BACKUP"); }},
    Tweak{"NoDatumBackup", [](rules::Machine& m) { m.project.Remove("GEODESY_DTF_BACKUP"); }},
    Tweak{"ScaleFactorTooSmall",
          [](rules::Machine& m) { m.project.Set("GEODESY_PROJECTION_BACKUP", "ScaleFactor", "0.75"); }},
    Tweak{"ProjectionTypeWithoutClass", [](rules::Machine& m) { SetBackup(m, "Projection type", "10"); }},
    Tweak{"ValuesMoveUpBehindAMissingKey",
          [](rules::Machine& m) {
              const SectionFile::Section whole = m.project.Create("GEODESY_PROJECTION_BACKUP");
              for (const auto& [key, value] : whole.items) {
                  m.project.Set("PROJECTION_BACKUP", key, value);
              }
              m.project.Remove("GEODESY_PROJECTION_BACKUP", "LatOrigin");
          }},
    Tweak{"DatumBackupLacksAShift",
          [](rules::Machine& m) { m.project.Remove("GEODESY_DTF_BACKUP", DatumKey(TransKey::shiftY)); }},
    Tweak{"DatumBackupLacksAShiftOlderOneIsWhole",
          [](rules::Machine& m) {
              const SectionFile::Section whole = m.project.Create("GEODESY_DTF_BACKUP");
              for (const auto& [key, value] : whole.items) {
                  m.project.Set("DTF_BACKUP", key, value);
              }
              m.project.Remove("GEODESY_DTF_BACKUP", DatumKey(TransKey::shiftY));
          }},
    Tweak{"DatumBackupWithoutMethod",
          [](rules::Machine& m) { m.project.Remove("GEODESY_DTF_BACKUP", "Method name"); }},
    Tweak{"FixedHeight",
          [](rules::Machine& m) {
              m.project.Set("GEODESY_DTF_BACKUP", DatumKey(TransKey::fixedHeight), "1");
              m.project.Set("GEODESY_DTF_BACKUP", DatumKey(TransKey::fixedHeightForward), "44.5");
          }},
    Tweak{"NoTransformationWithFixedHeight",
          [](rules::Machine& m) {
              m.project.Set("GEODESY_DTF_BACKUP", "Method name", "No Transformation");
              m.project.Set("GEODESY_DTF_BACKUP", DatumKey(TransKey::fixedHeight), "1");
          }},
    Tweak{"UnknownMethod",
          [](rules::Machine& m) { m.project.Set("GEODESY_DTF_BACKUP", "Method name", "Molodensky"); }},
    Tweak{"LatitudeOfThePole",
          [](rules::Machine& m) { m.project.Set("GEODESY_PROJECTION_BACKUP", "LatOrigin", "90"); }},
    Tweak{"LatitudeOfTheSouthPole",
          [](rules::Machine& m) { m.project.Set("GEODESY_PROJECTION_BACKUP", "LatOrigin", "-90"); }},
    Tweak{"FalseEastingWithinTheTolerance",
          [](rules::Machine& m) { m.project.Set("GEODESY_PROJECTION_BACKUP", "FalseEasting", "500000.000001"); }},
    Tweak{"FalseEastingOutsideTheTolerance",
          [](rules::Machine& m) { m.project.Set("GEODESY_PROJECTION_BACKUP", "FalseEasting", "500000.00001"); }},
    Tweak{"MethodInOtherCapitals",
          [](rules::Machine& m) { SetBackup(m, "Projection medthod", "transverse mercator"); }},
    Tweak{"UnitUnknownToTheDatabase",
          [](rules::Machine& m) {
              m.main.Remove("Units section", "Meters");
              m.project.Set("UINT_BACKUP", "Unit name", "1.25,hm");
          }},
    Tweak{"LocalEllipsoidUnknownToTheDatabase", [](rules::Machine& m) { m.main.Remove("Elp-" + kEllipsoid); }},
    Tweak{"BothEllipsoidsUnknownToTheDatabase",
          [](rules::Machine& m) {
              m.main.Remove("Elp-" + kEllipsoid);
              m.main.Remove("Elp-WGS84");
          }},
    Tweak{"EmptyUserFile", [](rules::Machine& m) { m.user = {}; }},
    Tweak{"OldStyleDatumName",
          [](rules::Machine& m) {
              SetBackup(m, "Datumtransform name", "Harbour - Land: Shift");
              SetInBoth(m, "Datumtransform name", "Harbour - Land: Shift");
              AddDatum(m.main, "Harbour -  Shift", "Bursa/Wolfe(7 Parameters)", 0, false);
          }},
    Tweak{"SystemHiddenByOneWithoutItsGroup",
          [](rules::Machine& m) {
              AddSystem(m.user, kSystem, kDatum, kProjection, 0);
              m.main.Remove("Sys-" + kSystem);
              if (!m.main.Has("Gp-" + kGroup)) {
                  AddGroup(m.main, kGroup, {kSystem});
              }
              AddSystem(m.main, kSystem, kOfMain[1], kOfMain[2], 0);
          }},
};

// --- Making lists ---

constexpr std::array kStates = {State::absent, State::equal, State::differs};

/// `each` with a willing user, and with those other answers that make a difference: cancels at every
/// dialog that comes.
void AddWithAnswers(std::vector<Case>& cases, Case each, bool withTaken, bool withCancels)
{
    rules::Machine machine = MachineOf(each);
    machine.open = machine.project;
    rules::Object object;
    const int dialogs = rules::Init(machine, object, CallOf(each, machine.project), UserOf(each, 1)).Dialogs();
    cases.push_back(each);
    if (withTaken && dialogs > 0) {
        each.answers = Answers::takenFirst;
        cases.push_back(each);
    }
    each.answers = Answers::cancel;
    for (each.cancelAt = 1; withCancels && each.cancelAt <= dialogs; ++each.cancelAt) {
        cases.push_back(each);
    }
}

std::string PlacesName(const Places& places)
{
    constexpr const char* letters = "aed"; // absent, equal, differs
    return {letters[static_cast<int>(places.user)], letters[static_cast<int>(places.main)]};
}
const char* MethodName(const Text& method)
{
    return !HasParameters(method)  ? "None"
           : method.front() == 'H' ? (HasRates(method) ? "Helmert14" : "Helmert7")
           : HasRates(method)      ? "Bursa14"
                                   : "Bursa7";
}

} // namespace

std::string NameOf(const Case& each)
{
    constexpr const char* groups[] = {"GroupOfSystem", "NoGroup", "GroupEverywhere"};
    constexpr const char* differences[] = {"Value", "Reference"};
    constexpr const char* sections[] = {"Current", "Older", "Both"};
    constexpr const char* forms[] = {"ByName", "Open", "OpenSilent"};
    constexpr const char* answers[] = {"Free",        "TakenFirst", "TakenAlways", "TakenOfMain",
                                       "TakenOfUser", "Unchanged",  "CancelAt"};
    std::string name = Text("Prj_") + PlacesName(each.projection) + "_Dtf_" + PlacesName(each.datum) + "_Sys_" +
                       PlacesName(each.system) + differences[static_cast<int>(each.difference)] + "_" +
                       groups[static_cast<int>(each.groups)] + "_" + sections[static_cast<int>(each.sections)] +
                       "_Type" + std::to_string(each.projectionType) + "_" + MethodName(each.datumMethod) +
                       (each.described ? "Described" : "") + "_" + (each.tweak ? each.tweak->name : "") + "_" +
                       forms[static_cast<int>(each.form)] + (each.sameObject ? "Twice" : "") +
                       (each.unit == "none" ? "" : each.unit) + "_" + answers[static_cast<int>(each.answers)];
    return each.cancelAt > 0 ? name + std::to_string(each.cancelAt) : name;
}

rules::Machine MachineOf(const Case& each)
{
    static const SectionFile catalogue = Catalogue();
    rules::Machine machine;
    machine.catalogue = catalogue;
    machine.main.Set("Units section", "Meters", "1.000000,m");
    machine.main.Set("Units section", "Feet", "0.304800,ft");
    AddEllipsoid(machine.main, "WGS84", 6378137.0, 0.00669437999014);
    AddEllipsoid(machine.main, kEllipsoid, 6377397.155, 0.006674372231);
    AddOthers(machine.main, kOfMain, 10);
    AddOthers(machine.user, kOfUser, 20);
    AddRecords(machine.main, each, &Places::main, 100);
    AddRecords(machine.user, each, &Places::user, 200);
    machine.project = ProjectOf(each);
    if (each.tweak) {
        each.tweak->apply(machine);
    }
    machine.dialogKnowsDatabase = each.answers != Answers::takenOfMain && each.answers != Answers::takenOfUser &&
                                  each.answers != Answers::unchanged;
    return machine;
}

rules::User WillingUser(int init)
{
    return [init](const rules::Question& question) { return std::optional(FreeName(question, init)); };
}

rules::User UserOf(const Case& each, int init)
{
    return [each, init](const rules::Question& question) -> std::optional<Text> {
        switch (each.answers) {
        case Answers::free:
            break;
        case Answers::takenFirst: {
            const std::array<Text, 4> first = {question.presentName, OneOf(kOfMain, question.kind),
                                               OneOf(kOfUser, question.kind), ""};
            if (question.attempt <= 4) {
                return first[static_cast<std::size_t>(question.attempt - 1)];
            }
            break;
        }
        case Answers::takenAlways:
            return OneOf(kOfUser, question.kind);
        case Answers::takenOfMain:
            return OneOf(kOfMain, question.kind);
        case Answers::takenOfUser:
            return OneOf(kOfUser, question.kind);
        case Answers::unchanged:
            return question.presentName;
        case Answers::cancel:
            if (question.dialog >= each.cancelAt) {
                return std::nullopt;
            }
            break;
        }
        return FreeName(question, init);
    };
}

rules::Call CallOf(const Case& each, const SectionFile& project)
{
    // A host opens the system that the project refers to.
    const auto referred = [&](int key) {
        const Text* const found = project.Find(kReference, SystemKey(key));
        return found ? *found : Text();
    };
    return {each.form == Form::byName, each.form == Form::openSilent, referred(CoordsystemKey::group),
            referred(CoordsystemKey::system), each.unit};
}

std::vector<Case> EveryCombination()
{
    struct Opening {
        Form form;
        Sections sections;
        bool withTaken, withCancels;
    };
    constexpr std::array openings = {
        Opening{Form::byName, Sections::current, true, true}, Opening{Form::open, Sections::current, false, true},
        Opening{Form::openSilent, Sections::current, false, false}, Opening{Form::byName, Sections::older, false, true},
        Opening{Form::open, Sections::older, true, false}};
    std::vector<Case> cases;
    const auto placed = [](int state, int where) {
        const State there = kStates[static_cast<std::size_t>(state)];
        return Places{where != 1 ? there : State::absent, where != 0 ? there : State::absent};
    };
    // user file, main file, both
    for (int where = 0; where < 3; ++where) {
        for (int i = where == 0 ? 0 : 1; i < 27; ++i) { // nothing anywhere: once
            Case each;
            each.projection = placed(i % 3, where);
            each.datum = placed(i / 3 % 3, where);
            each.system = placed(i / 9, where);
            for (const Groups groups : {Groups::withSystem, Groups::nowhere}) {
                if (groups == Groups::nowhere && i < 9) {
                    continue; // the group of an absent system is nowhere already
                }
                for (const Opening& opening : openings) {
                    each.groups = groups;
                    each.form = opening.form;
                    each.sections = opening.sections;
                    each.sameObject = (i + where) % 2 == 0;
                    AddWithAnswers(cases, each, opening.withTaken, opening.withCancels);
                }
            }
        }
    }
    return cases;
}

std::vector<Case> EveryPlace()
{
    std::vector<Case> cases;
    const auto places = [](int i) {
        return Places{kStates[static_cast<std::size_t>(i % 3)], kStates[static_cast<std::size_t>(i / 3)]};
    };
    // Nine pairs of states for each record. The step has no factor in common with nine.
    for (int i = 0; i < 729; i += 4) {
        Case each;
        each.projection = places(i % 9);
        each.datum = places(i / 9 % 9);
        each.system = places(i / 81);
        each.groups = Groups::everywhere;
        each.difference = Difference::reference;
        each.form = i % 8 == 0 ? Form::byName : Form::open;
        each.sections = i % 5 == 0 ? Sections::both : Sections::current;
        cases.push_back(each);
    }
    return cases;
}

std::vector<Case> EveryKind()
{
    std::vector<Case> cases;
    for (const char* method : {"No Transformation", "Bursa/Wolfe(7 Parameters)", "Helmert(7 Parameters)",
                               "Bursa/Wolfe(14 Parameters)", "Helmert(14 Parameters)"}) {
        for (const int type : {0, 1, 3}) {
            for (const State state : kStates) {
                for (const bool inUser : {true, false}) {
                    for (const bool described : {false, true}) {
                        Case each;
                        each.datumMethod = method;
                        each.projectionType = type;
                        each.described = described;
                        const Places places = inUser ? Places{state, State::absent} : Places{State::absent, state};
                        each.projection = each.datum = places;
                        each.system =
                            inUser ? Places{State::equal, State::absent} : Places{State::absent, State::equal};
                        if (state == State::absent) {
                            each.system = {};
                        }
                        if (state == State::absent && (described || !inUser)) {
                            continue;
                        }
                        cases.push_back(each);
                        if (!described) {
                            each.sections = Sections::older;
                            cases.push_back(each);
                        }
                    }
                }
            }
        }
    }
    return cases;
}

std::vector<Case> EveryTweak()
{
    std::vector<Case> cases;
    constexpr Places nowhere{}, user{State::equal, State::absent}, main{State::absent, State::equal},
        both{State::equal, State::equal};
    const auto add = [&](const Tweak& tweak) {
        for (const Places& places : {nowhere, user, main, both}) {
            for (const Groups groups : {Groups::withSystem, Groups::nowhere}) {
                for (const Form form : {Form::byName, Form::open, Form::openSilent}) {
                    // By name in all of them; of the others those in which most happens.
                    const bool inMainAlone = places.main == State::equal && places.user == State::absent;
                    if (form != Form::byName && !(groups == Groups::nowhere && inMainAlone)) {
                        continue;
                    }
                    Case each;
                    each.projection = each.datum = each.system = places;
                    each.groups = groups;
                    each.form = form;
                    each.tweak = &tweak;
                    each.sameObject = form == Form::open;
                    cases.push_back(each);
                }
            }
        }
    };
    for (const Tweak& tweak : kCorrections) {
        add(tweak);
    }
    for (const Tweak& tweak : kOddities) {
        add(tweak);
    }
    // Answers that a dialog which looks nothing up lets through.
    for (const State state : {State::equal, State::differs}) {
        for (const bool inUser : {true, false}) {
            for (const Groups groups : {Groups::withSystem, Groups::nowhere}) {
                for (const Answers answers :
                     {Answers::takenAlways, Answers::takenOfMain, Answers::takenOfUser, Answers::unchanged}) {
                    for (const Form form : {Form::byName, Form::openSilent}) {
                        Case each;
                        each.projection = each.datum =
                            inUser ? Places{State::differs, State::absent} : Places{State::absent, State::differs};
                        each.system = inUser ? Places{state, State::absent} : Places{State::absent, state};
                        each.groups = groups;
                        each.answers = answers;
                        each.form = form;
                        cases.push_back(each);
                    }
                }
            }
        }
    }
    // A unit other than the system's own, and one that is not known.
    for (const char* unit : {"Feet", "Fathoms", "NONE"}) {
        for (const Places& places : {nowhere, user, main}) {
            for (const Form form : {Form::byName, Form::open}) {
                Case each;
                each.projection = each.datum = each.system = places;
                each.unit = unit;
                each.form = form;
                cases.push_back(each);
            }
        }
    }
    return cases;
}

} // namespace matrix
