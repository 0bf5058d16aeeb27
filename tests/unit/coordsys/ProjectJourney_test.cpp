// A project goes from one machine to another: saved and backed up where its system is delivered,
// opened where the system is missing or its names are taken by other content.

#include <bit>
#include <cmath>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <map>
#include <memory>

#include "tests/support/TestGeoidModels.h"
#include "tests/unit/coordsys/BackupFixture.h"

namespace {

using Bits = std::vector<std::uint64_t>;

constexpr double kTime = 1.7e12; // milliseconds since 1970: 2023-11-14

// What a system makes of positions around a place, both ways, to the last bit.
Bits CoordinatesOf(const ZORGeoCoordSys& system, double latitude, double longitude)
{
    Bits bits;
    const auto keep = [&](std::initializer_list<double> values) {
        for (const double value : values) {
            EXPECT_TRUE(std::isfinite(value));
            bits.push_back(std::bit_cast<std::uint64_t>(value));
        }
    };
    for (const double step : {-0.7, -0.013, 0.0, 0.31, 1.1}) {
        const double lat = latitude + step;
        const double lon = longitude - 0.6 * step + 0.01;
        double x = 0.0, y = 0.0, z = 0.0, satLat = 0.0, satLon = 0.0, satHeight = 0.0, convergence = 0.0;
        system.SatGeoToGrid(lat, lon, 43.21, x, y, z, kTime);
        keep({x, y, z});
        system.GridToSatGeo(x, y, z, satLat, satLon, satHeight, kTime);
        keep({satLat, satLon, satHeight});
        system.GeoToGrid(lat, lon, 43.21, x, y, z, kTime);
        keep({x, y, z});
        system.GridConvergence(x, y, convergence);
        keep({convergence, system.PointScaleFactor(x, y)});
    }
    return bits;
}

struct Place {
    double latitude;
    double longitude;
};

using Numbers = std::vector<std::pair<int, double>>;

enum class Correction { none, shifts, horAdjust, vertAdjust, manualGeoid, geoidModel, postModel, all };

// One system on its way.
struct Traveller {
    std::string name;
    int type;
    CString method;
    Numbers parameters; ///< by index in projectionParamKeys
    Place place;
    CString datum;
    Correction correction = Correction::all;
    CString hemisphere = {};
    CString zone = {};
    /// Empty: the coordinates are the same to the last bit. Else why they are not.
    std::string differs = {};
    /// Empty: what was restored equals the backup. Else why each opening asks again.
    std::string asksAgain = {};

    CString Text(const wchar_t* prefix) const { return prefix + CString::FromUtf8(name); }
    CString System() const { return Text(L""); }
    CString Projection() const { return Text(L"Projection of "); }
    CString Datum() const { return Text(L"Datum of "); }
};

const Numbers kTm = {{3, 49.0}, {4, 5.0}, {5, 400000.0}, {6, -100000.0}, {7, 0.9996012717}, {16, 0.25}};
const Place kTmPlace = {52.0, 5.5};

// A system of every type with all corrections, the datum methods in turn.
std::vector<Traveller> SystemsOfEveryType()
{
    const std::string kZone = "the restored record has no zone and hemisphere, which the comparison asks for";
    const std::string kNoConstants = "an RD projection lists no constants, so that its restored record has none";
    return {
        {"Transverse Mercator", 0, L"Transverse Mercator", kTm, kTmPlace, kMethodBursaWolfe7},
        {.name = "Universal Transverse Mercator",
         .type = 1,
         .method = L"Universal Transverse Mercator",
         .parameters = {{3, 0.0}, {4, 3.0}, {5, 500000.0}, {6, 0.0}, {7, 0.9996}},
         .place = {52.0, 3.5},
         .datum = kMethodHelmert7,
         .hemisphere = L"Northern",
         .zone = L"Zone 31     (  3 E)",
         .asksAgain = kZone},
        {.name = "RD by its defaults",
         .type = 2,
         .method = L"RD",
         .parameters = {{3, 52.156160556}, {4, 5.387638889}, {5, 155000.0}, {6, 463000.0}, {7, 0.9999079}},
         .place = {52.3, 5.2},
         .datum = kMethodBursaWolfe14,
         .asksAgain = kNoConstants},
        {.name = "RD of its own",
         .type = 2,
         .method = L"RD",
         .parameters = {{3, 52.15616055555555}, {4, 5.38763888888889}, {5, 0.0}, {6, 0.0}, {7, 0.9999079}},
         .place = {52.3, 5.2},
         .datum = kMethodHelmert14,
         .differs = kNoConstants + ", and the Dutch grid's own parameters take their place",
         .asksAgain = kNoConstants},
        {.name = "RD without parameters",
         .type = 2,
         .method = L"RD",
         .parameters = {},
         .place = {52.3, 5.2},
         .datum = kMethodNone,
         .asksAgain = kNoConstants + ", while the backup names the defaults"},
        {"Lambert 2 Parallel",
         3,
         L"Lambert 2 Parallel",
         {{3, 46.5}, {4, 3.0}, {5, 700000.0}, {6, 6600000.0}, {8, 44.0}, {9, 49.0}},
         {47.0, 2.0},
         kMethodHelmert14},
        {"Mercator",
         4,
         L"Mercator",
         {{3, 0.0}, {4, 110.0}, {5, 3900000.0}, {6, 900000.0}, {7, 0.997}, {16, 0.5}, {18, 1.0}},
         {-3.0, 112.0},
         kMethodNone},
        {"Stereographic",
         7,
         L"Stereographic",
         {{3, 52.15616055555555}, {4, 5.38763888888889}, {5, 155000.0}, {6, 463000.0}, {7, 0.9999079}},
         {52.3, 5.2},
         kMethodBursaWolfe7},
        {"Cassini",
         8,
         L"Cassini_Soldner",
         {{3, 10.4416666666}, {4, -61.3333333333}, {5, 430000.0}, {6, 325000.0}, {7, 1.0}},
         {10.0, -61.5},
         kMethodHelmert7},
        {"Hotine A",
         9,
         L"Hotine Oblique Mercator(A)",
         {{3, 4.0}, {4, 115.0}, {5, 0.0}, {6, 0.0}, {7, 0.99984}, {17, 53.3158209722}, {22, 53.1301023611}},
         {5.0, 116.0},
         kMethodBursaWolfe14},
        {"Lambert 1 Parallel",
         12,
         L"Lambert 1 Parallel",
         {{3, 18.0}, {4, -77.0}, {5, 250000.0}, {6, 150000.0}, {7, 1.0}},
         {17.9, -76.9},
         kMethodHelmert14},
        {"Hotine B",
         13,
         L"Hotine Oblique Mercator(B)",
         {{3, 4.0},
          {4, 115.0},
          {20, 590476.87},
          {21, 442857.65},
          {7, 0.99984},
          {17, 53.3158209722},
          {22, 53.1301023611}},
         {5.0, 116.0},
         kMethodNone},
        {"Polyconic",
         14,
         L"Polyconic",
         {{3, 0.0}, {4, -54.0}, {5, 5000000.0}, {6, 10000000.0}},
         {-6.0, -45.0},
         kMethodBursaWolfe7},
        {.name = "South Polar",
         .type = 15,
         .method = L"Universal Polar Stereographic",
         .parameters = {{5, 2000000.0}, {6, 2000000.0}, {7, 0.994}},
         .place = {-80.0, 40.0},
         .datum = kMethodHelmert7,
         .hemisphere = L"Southern"},
        {.name = "North Polar",
         .type = 15,
         .method = L"Universal Polar Stereographic",
         .parameters = {{5, 2000000.0}, {6, 2000000.0}, {7, 0.994}},
         .place = {80.0, 40.0},
         .datum = kMethodBursaWolfe14,
         .hemisphere = L"Northern",
         .differs = "texts are no constants: the hemisphere is written as a number, and what is not Northern is south"},
        {.name = "Origin on the pole",
         .type = 0,
         .method = L"Transverse Mercator",
         .parameters = {{3, 90.0}, {4, 5.0}, {5, 0.0}, {6, 0.0}, {7, 1.0}},
         .place = {80.0, 5.5},
         .datum = kMethodBursaWolfe7,
         .differs = "the writer moves a latitude of 90 degrees to 89.9999999999"},
    };
}

// Every datum method without corrections, and every correction for itself.
std::vector<Traveller> Travellers()
{
    std::vector<Traveller> all = SystemsOfEveryType();
    for (const CString& method :
         {kMethodNone, kMethodBursaWolfe7, kMethodHelmert7, kMethodBursaWolfe14, kMethodHelmert14}) {
        all.push_back({method.ToUtf8(), 0, L"Transverse Mercator", kTm, kTmPlace, method, Correction::none});
    }
    const std::pair<const char*, Correction> corrections[] = {{"Shifts", Correction::shifts},
                                                              {"Horizontal adjust", Correction::horAdjust},
                                                              {"Vertical adjust", Correction::vertAdjust},
                                                              {"Fixed geoid", Correction::manualGeoid},
                                                              {"Geoid model", Correction::geoidModel},
                                                              {"Post model", Correction::postModel}};
    for (const auto& [name, correction] : corrections) {
        all.push_back({name, 0, L"Transverse Mercator", kTm, kTmPlace, kMethodHelmert7, correction});
    }
    return all;
}

void AddTravellersDatum(FileObject& file, const Traveller& traveller)
{
    AddDatum(file, {.name = traveller.Datum(),
                    .method = traveller.datum,
                    .parameters = {-565.7346, -50.4058, -465.2895, 1.9, -0.35, 0.3, -4.07244},
                    .rates = {0.011, -0.022, 0.015, 0.0011, -0.0022, 0.0015, 0.003, 2010.0}});
    // Every second one is for fixed heights.
    if (traveller.name.size() % 2 == 1) {
        const CString section = kDatumPrefix + traveller.Datum();
        file.SetItem(section, transParamKeys[TransKey::fixedHeight], true, true);
        file.SetItem(section, transParamKeys[TransKey::fixedHeightForward], 43.0, true);
        file.SetItem(section, transParamKeys[TransKey::fixedHeightReverse], 0.5, true);
    }
}

void AddTravellersProjection(FileObject& file, const Traveller& traveller)
{
    const CString section = kProjectionPrefix + traveller.Projection();
    AddToIndex(file, kProjectionsSection, traveller.Projection());
    file.SetItem(section, projectionParamKeys[ProjectionKey::type], traveller.type, true);
    file.SetItem(section, kProjectionMethod, traveller.method, true);
    file.SetItem(section, kProjectionUnit, L"Meters", true);
    for (const auto& [index, value] : traveller.parameters) {
        file.SetItem(section, projectionParamKeys.at(static_cast<std::size_t>(index)), value, true);
    }
    if (!traveller.hemisphere.IsEmpty()) {
        file.SetItem(section, projectionParamKeys[ProjectionKey::hemisphere], traveller.hemisphere, true);
        file.SetItem(section, projectionParamKeys[ProjectionKey::utmZone], traveller.zone, true);
    }
}

void AddCorrections(FileObject& file, const Traveller& traveller)
{
    const CString section = kSystemPrefix + traveller.System();
    const auto has = [&](Correction correction) {
        return traveller.correction == correction ||
               (traveller.correction == Correction::all && correction != Correction::geoidModel);
    };
    const auto set = [&](std::initializer_list<std::pair<const CString&, double>> numbers) {
        for (const auto& [key, value] : numbers) {
            file.SetItem(section, key, value, true);
        }
    };
    if (has(Correction::shifts)) {
        set({{kPostUse, 1.0}, {kPostX, 1.2345}, {kPostY, -9.8765}, {kPostZ, 0.111}});
    }
    if (has(Correction::horAdjust)) {
        set({{kHorAdjustUse, 1.0},
             {kHorAdjustOriginX, 123456.7},
             {kHorAdjustOriginY, 765432.1},
             {kHorAdjustRotation, 12.34},
             {kHorAdjustScale, 1.0000123}});
    }
    if (has(Correction::vertAdjust)) {
        set({{kVertAdjustUse, 1.0},
             {kVertAdjustOriginX, 111111.1},
             {kVertAdjustOriginY, 222222.2},
             {kVertAdjustSlopeX, 3.3},
             {kVertAdjustSlopeY, -4.4}});
    }
    if (has(Correction::manualGeoid)) {
        set({{kGeoidUse, 1.0}, {kGeoidManual, 41.234}});
        file.SetItem(section, kGeoidMethod, L"Manual", true);
    }
    if (has(Correction::geoidModel)) {
        set({{kGeoidUse, 1.0}});
        file.SetItem(section, kGeoidMethod, L"EGM96", true);
        file.SetItem(section, kGeoidGrid, L"egm96.gtx", true);
    }
    if (has(Correction::postModel)) {
        file.SetItem(section, kPostModel, L"OSTN", true);
        file.SetItem(section, kPostFile, L"ostn.txt", true);
    }
}

// What every delivered main file has.
void AddCommonRecords(TestDatabase& database)
{
    AddEllipsoid(database.main, kTestWgs84);
    AddEllipsoid(database.main, kTestBessel);
    AddUnit(database.main, L"Meters", L"1.000000,m");
    database.project.SetItem(FORMATS_SECTION, formatParamKeys[FormatKey::unitFormat], 3.0, true);
}

bool InitFromProject(ZORGeoCoordSys& system, const CString& projectFile)
{
    // A host passes on what the project says.
    const FileObject project = Opened(projectFile);
    const auto text = [&](int key) {
        return TextIn(project, COORDSYSTEM_SECTION, coordsystemKeys.at(static_cast<std::size_t>(key)));
    };
    return system.Init(text(CoordsystemKey::group), text(CoordsystemKey::system), text(CoordsystemKey::geoidMethod),
                       text(CoordsystemKey::geoidGrid), text(CoordsystemKey::chartDatum),
                       text(CoordsystemKey::postModel), text(CoordsystemKey::postFile), projectFile, L"none");
}

// The projects of all travellers, made on a machine that has their systems, with what the
// systems made of positions there.
class HomePort {
public:
    HomePort()
    {
        TestDatabase database;
        AddCommonRecords(database);
        for (const Traveller& traveller : Travellers()) {
            AddTravellersDatum(database.main, traveller);
            AddTravellersProjection(database.main, traveller);
            AddSystem(database.main, {.group = kGroup,
                                      .name = traveller.System(),
                                      .datum = traveller.Datum(),
                                      .projection = traveller.Projection()});
            AddCorrections(database.main, traveller);
        }
        database.Save();
        for (const Traveller& traveller : Travellers()) {
            ZORGeoCoordSys system;
            FileObject project = database.project;
            EXPECT_TRUE(InitOpen(system, project, traveller.System(), true)) << traveller.name;
            system.Save(project);
            system.SaveBackup(project);
            EXPECT_TRUE(project.FileSave(CString::FromUtf8(Project(traveller).string()), FileMode::saveExclusive));
            m_coordinates[traveller.name] = CoordinatesOf(system, traveller.place.latitude, traveller.place.longitude);
        }
    }

    std::filesystem::path Project(const Traveller& traveller) const
    {
        return m_projects.Path() / std::to_string(std::hash<std::string>{}(traveller.name));
    }
    const Bits& Coordinates(const Traveller& traveller) const { return m_coordinates.at(traveller.name); }

private:
    TempDirectory m_projects;
    std::map<std::string, Bits> m_coordinates;
};

// A machine that a project comes to: the suite's database without the systems, or with others
// under the names of their systems, projections and datum transformations.
class Destination : public TestDatabase {
public:
    explicit Destination(bool namesTaken)
    {
        AddCommonRecords(*this);
        for (const Traveller& traveller : Travellers()) {
            if (!namesTaken) {
                break;
            }
            AddProjection(main, {.name = traveller.Projection(), .falseEasting = 1.0});
            AddDatum(main, {.name = traveller.Datum(), .parameters = {1.0, 2.0, 3.0}});
            AddSystem(main, {.group = kGroup,
                             .name = traveller.System(),
                             .datum = traveller.Datum(),
                             .projection = traveller.Projection()});
        }
        Save();
    }
    // The project arrives, and the user file is empty.
    void Receive(const std::filesystem::path& file) const
    {
        Directory().Write("user/zorusergeobase.geo", "");
        std::filesystem::copy_file(file, Directory().Path() / "project/project.prj",
                                   std::filesystem::copy_options::overwrite_existing);
    }
};

class ProjectJourney : public testing::Test {
protected:
    static void SetUpTestSuite()
    {
        TestGeoidSettings geoid = ConstantGeoid(39.5);
        TestGeoidSettings post = ConstantGeoid(0.0);
        post.gridShift = LinearShift(0.5, 1e-6, -0.25, 2e-6);
        s_models = std::make_unique<Models>(geoid, post);
        s_texts = std::make_unique<ModuleTexts>();
        s_home = std::make_unique<HomePort>();
    }
    static void TearDownTestSuite()
    {
        s_destination.reset();
        s_home.reset();
        s_texts.reset();
        s_models.reset();
    }

    // Opens the traveller's project there, twice.
    void Travel(const Traveller& traveller, bool namesTaken, const Kinds& asked, const Kinds& askedAgain);

private:
    struct Models {
        Models(const TestGeoidSettings& geoid, const TestGeoidSettings& post) : egm96(geoid), ostn(post) {}
        ScopedGeoidModel<7> egm96;
        ScopedGeoidModel<4> ostn;
    };
    static const Destination& TheDestination(bool namesTaken)
    {
        if (!s_destination || s_namesTaken != namesTaken) {
            s_destination.reset(); // directories are the process's: one machine at a time
            s_destination = std::make_unique<Destination>(namesTaken);
            s_namesTaken = namesTaken;
        }
        return *s_destination;
    }

    static inline std::unique_ptr<Models> s_models;
    static inline std::unique_ptr<ModuleTexts> s_texts;
    static inline std::unique_ptr<HomePort> s_home;
    static inline std::unique_ptr<Destination> s_destination;
    static inline bool s_namesTaken = false;
};

void ProjectJourney::Travel(const Traveller& traveller, bool namesTaken, const Kinds& asked, const Kinds& askedAgain)
{
    SCOPED_TRACE(traveller.name);
    const Destination& destination = TheDestination(namesTaken);
    destination.Receive(s_home->Project(traveller));
    const std::string delivered = BytesOf(destination)[0];
    {
        ScriptedDesk desk;
        for (const wchar_t* name : {L"First", L"Second", L"Third", L"Fourth"}) {
            desk.Answer(name);
        }
        ZORGeoCoordSys system;
        ASSERT_TRUE(InitFromProject(system, destination.ProjectFile()));
        EXPECT_TRUE(desk.messages.empty());
        EXPECT_EQ(KindsOf(desk), asked);
        const Bits here = CoordinatesOf(system, traveller.place.latitude, traveller.place.longitude);
        EXPECT_EQ(here == s_home->Coordinates(traveller), traveller.differs.empty()) << traveller.differs;
    }
    const auto settled = BytesOf(destination);
    EXPECT_EQ(settled[0], delivered);
    ScriptedDesk desk; // cancels
    ZORGeoCoordSys again;
    EXPECT_EQ(InitFromProject(again, destination.ProjectFile()), traveller.asksAgain.empty()) << traveller.asksAgain;
    EXPECT_TRUE(desk.messages.empty());
    EXPECT_EQ(KindsOf(desk), askedAgain) << traveller.asksAgain;
    EXPECT_EQ(BytesOf(destination), settled);
}

} // namespace

TEST_F(ProjectJourney, ToWhereTheSystemIsMissing)
{
    for (const Traveller& traveller : Travellers()) {
        // What was restored is compared with the backup at the end of the same Init.
        const bool settles = traveller.asksAgain.empty();
        Travel(traveller, false, settles ? Kinds{} : Kinds{NameKind::projection, NameKind::system},
               settles ? Kinds{} : Kinds{NameKind::projection});
    }
}

TEST_F(ProjectJourney, ToWhereItsNamesAreTaken)
{
    for (const Traveller& traveller : Travellers()) {
        Travel(traveller, true, {NameKind::projection, NameKind::datumTransformation, NameKind::system},
               traveller.asksAgain.empty() ? Kinds{} : Kinds{NameKind::projection});
    }
}

// Where the two machines differ in what the comparison does not look at, or the writer does not
// write to the last bit, the coordinates are others: silently, but where a question is named.
namespace {

using Change = void (*)(BackupDatabase&);

// A squared eccentricity that the square of its root is not, and so near to the middle of two
// numbers of the arithmetic that the semi-minor axis shows it. Of most ellipsoids nothing is seen.
constexpr double kNotItsRootSquared = 0.006674372231001813;

struct Departure {
    const char* why;
    Change home;     ///< to the machine that the project comes from
    Change there;    ///< to the machine that it comes to
    bool systemGone; ///< the system is missing there
    Kinds asked = {};
    InitArguments arguments = {};
    bool opens = true;
    bool same = false; ///< nothing differs, so the coordinates are the same
};

void Nothing(BackupDatabase&) {}

const Departure kDepartures[] = {
    {.why = "nothing", .home = Nothing, .there = Nothing, .systemGone = false, .same = true},
    {.why = "nothing, and the system is missing", .home = Nothing, .there = Nothing, .systemGone = true, .same = true},
    {"an ellipsoid that is missing is written by the square of its eccentricity, which can be a bit beside",
     [](BackupDatabase& d) {
         AddEllipsoid(d.main, {L"Own", 6377397.155, kNotItsRootSquared});
         d.SetSystemItem(kSevenSystem, kSystemEllipsoid, CString(L"Own"));
         d.main.SetItem(kDatumPrefix + L"Seven", transParamKeys[TransKey::target], L"Own", true);
     },
     [](BackupDatabase& d) { d.main.DeleteSection(kDatumPrefix + L"Seven"); }, true},
    {"a unit that is missing is written with six decimals",
     [](BackupDatabase& d) {
         AddUnit(d.main, L"US Survey Feet", L"0.3048006096012192,ftUS");
         d.main.SetItem(kProjectionPrefix + L"TM 5 East", kProjectionUnit, L"US Survey Feet", true);
         d.SetSystemItem(kSevenSystem, kSystemUnit, CString(L"US Survey Feet"));
     },
     [](BackupDatabase& d) {
         d.main.SetItem(kProjectionPrefix + L"TM 5 East", kProjectionUnit, L"US Survey Feet", true);
     },
     true},
    {"ellipsoids are compared by name", Nothing,
     [](BackupDatabase& d) { d.main.SetItem(kEllipsoidPrefix + L"Bessel 1841", kSemiMajor, 6377492.018, true); },
     false},
    {"units are compared by name", Nothing, [](BackupDatabase& d) { AddUnit(d.main, L"Meters", L"1.000001,m"); },
     false},
    {"parameters of a projection are compared with a tolerance", Nothing,
     [](BackupDatabase& d) {
         d.main.SetItem(kProjectionPrefix + L"TM 5 East", projectionParamKeys[ProjectionKey::falseEasting],
                        500000.000001, true);
     },
     false},
    {"corrections that are off in the backup equal those that are on", Nothing,
     [](BackupDatabase& d) {
         d.SetSystemItem(kSevenSystem, kPostUse, true);
         d.SetSystemItem(kSevenSystem, kPostX, 10.0);
     },
     false},
    {"the geoid is not compared", Nothing,
     [](BackupDatabase& d) {
         d.SetSystemItem(kSevenSystem, kGeoidUse, true);
         d.SetSystemItem(kSevenSystem, kGeoidMethod, CString(L"Manual"));
         d.SetSystemItem(kSevenSystem, kGeoidManual, 41.0);
     },
     false},
    {"the post model is not compared", Nothing,
     [](BackupDatabase& d) { d.SetSystemItem(kSevenSystem, kPostModel, CString(L"OSTN")); }, false},
    {"a fixed separation is not restored when the system's own method is another",
     [](BackupDatabase& d) {
         d.SetSystemItem(kSevenSystem, kGeoidUse, true);
         d.SetSystemItem(kSevenSystem, kGeoidMethod, CString(L"EGM96"));
         d.SetSystemItem(kSevenSystem, kGeoidManual, 41.0);
     },
     Nothing,
     true,
     {},
     {.geoidModel = L"Manual"}},
    {"a restored transformation goes to the system's ellipsoid, whatever its own target was",
     [](BackupDatabase& d) {
         AddEllipsoid(d.main, {L"Airy 1830", 6377563.396, 0.0066705400741492318});
         d.main.SetItem(kDatumPrefix + L"Seven", transParamKeys[TransKey::target], L"Airy 1830", true);
     },
     [](BackupDatabase& d) { d.main.DeleteSection(kDatumPrefix + L"Seven"); }, true},
    {"of a method without a number the name alone is written, so that the record does not load",
     [](BackupDatabase& d) { d.main.SetItem(kDatumPrefix + L"Seven", kDatumMethod, L"Molodensky", true); },
     [](BackupDatabase& d) { d.main.DeleteSection(kDatumPrefix + L"Seven"); },
     true,
     {},
     {},
     false},
};

} // namespace

TEST(ProjectJourneyDeparture, OtherCoordinatesOfTheSameProject)
{
    TestGeoidSettings post = ConstantGeoid(0.0);
    post.gridShift = ConstantShift(1.0, 2.0);
    const ScopedGeoidModel<4> ostn(post);
    const ScopedGeoidModel<7> egm96(ConstantGeoid(40.0));
    for (const Departure& row : kDepartures) {
        SCOPED_TRACE(row.why);
        FileObject project;
        Bits home;
        {
            BackupDatabase database;
            row.home(database);
            ZORGeoCoordSys system;
            MakeReady(system, database, kSevenSystem, row.arguments);
            system.Save(database.project);
            system.SaveBackup(database.project);
            project.ApplyDifference(database.project);
            home = CoordinatesOf(system, 52.0, 5.5);
        }
        BackupDatabase database;
        row.there(database);
        database.Save();
        if (row.systemGone) {
            database.RemoveSystem(kSevenSystem);
        }
        ScriptedDesk desk;
        ZORGeoCoordSys system;
        EXPECT_EQ(InitOpen(system, project, kSevenSystem, false, row.arguments), row.opens);
        EXPECT_EQ(KindsOf(desk), row.asked);
        if (row.opens) {
            EXPECT_EQ(CoordinatesOf(system, 52.0, 5.5) == home, row.same);
        }
    }
}
