// Every system of the delivered database through the exact exports of `zorgeo show`, run by PROJ at
// random places of its area of use in both directions, against the tool's own conversion. They agree
// to a millimetre, or to what the table of reasons below says for the projection and the place.

#include <gtest/gtest.h>
#include <proj.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <memory>
#include <random>
#include <set>
#include <string>

#include "ToolError.h"
#include "base/keys/KeyTables.h"
#include "convert/PositionConverter.h"
#include "show/CrsExport.h"
#include "show/ProjPipeline.h"
#include "tests/support/TempDirectory.h"

namespace {

using namespace ProjectionKey;

constexpr double kMillimetre = 0.001;
constexpr double kRadiansPerDegree = 0.017453292519943295;
constexpr double kMetresPerDegree = 111319.5;
constexpr int kPlaces = 12;
constexpr int kSlices = 8;
constexpr double kYear = 2027.25;
constexpr double kMillisecondsOfYear = (kYear - 1970.0) * 365.25 * 86400.0 * 1000.0;

using Context = std::unique_ptr<PJ_CONTEXT, PJ_CONTEXT* (*)(PJ_CONTEXT*)>;
using Object = std::unique_ptr<PJ, PJ* (*)(PJ*)>;

enum class Way { forward, back };

/// Where a system is used, degrees; east may be beyond 180.
struct Box {
    double south, west, north, east;
};

/// Places of the systems that have no EPSG code of their own.
struct OwnBox {
    const char* system;
    Box box;
};
const OwnBox kOwnBoxes[] = {
    {"Example - harbour grid with post corrections", {51.0, 3.5, 52.5, 5.0}},
    {"Example - UTM zone 31N with a fixed geoid separation", {50.0, 0.0, 60.0, 6.0}},
};

// --- The reasons --------------------------------------------------------------------------------
// Metres on the ground by which PROJ and the module may differ beyond a millimetre, by projection.

struct Spot {
    double latitude = 0.0;
    double fromMeridian = 0.0; ///< degrees of longitude from the origin, folded
    double fromOrigin = 0.0;   ///< metres from the false origin
};

double Sine(double degrees)
{
    return std::sin(degrees * kRadiansPerDegree);
}
double Tangent(double degrees)
{
    return std::tan(degrees * kRadiansPerDegree);
}

// The series of the module ends; both algorithms of PROJ leave it beyond 5 degrees, by the eighth power.
double SeriesEnds(const SystemParameters&, const Spot& at, Way)
{
    const double d = std::fabs(at.fromMeridian);
    return d > 5.0 ? 0.0025 * std::pow(d / 6.0, 8.0) : 0.0;
}

// Two passes of Newton leave e^8 sin^7 cos of the latitude.
double TwoPasses(const SystemParameters& system, const Spot& at, Way way)
{
    const double s = std::fabs(Sine(at.latitude));
    const double left = std::pow(system.ellipsoid.e2, 4.0) * std::pow(s, 7.0) * std::sqrt(1.0 - s * s);
    return way == Way::back ? 1.1 * left * system.ellipsoid.a : 0.0;
}

// tan(j) / 2 in place of tan(j / 2): x j^3 / 8, with j = x tan(lat0) / R, largest due east and west.
double HalfTangent(const SystemParameters& system, const Spot& at, Way way)
{
    const double j = at.fromOrigin * Tangent(system.projection[latOrigin]) / 6.37e6;
    return way == Way::back ? 1.1 * at.fromOrigin * std::fabs(j * j * j) / 8.0 : 0.0;
}

// The tangent of the latitude in place of its square in the northing's A^4 (Snyder 1987, eq. 13-8),
// and the end of the inverse series.
double TangentForSquare(const SystemParameters& system, const Spot& at, Way way)
{
    const double t = Tangent(at.latitude);
    const double A = at.fromMeridian * kRadiansPerDegree * std::cos(at.latitude * kRadiansPerDegree);
    const double forward = system.ellipsoid.a * std::fabs(t * (t * t - t)) * std::pow(A, 4.0) / 24.0;
    return way == Way::forward ? 1.1 * forward : 0.004 * std::pow(at.fromMeridian / 2.0, 4.0);
}

// Back: the pass before the last, within 1e-9 radians. Forward: rounding near the equator.
double PassBeforeLast(const SystemParameters&, const Spot& at, Way way)
{
    const double equator = std::fabs(at.latitude) < 0.01 ? 0.016 : 0.0;
    return way == Way::back ? 0.007 + equator : equator;
}

struct Reason {
    int type;
    double (*metres)(const SystemParameters&, const Spot&, Way);
};
constexpr Reason kReasons[] = {{0, SeriesEnds},       {1, SeriesEnds}, {3, TwoPasses},      {7, HalfTangent},
                               {8, TangentForSquare}, {12, TwoPasses}, {14, PassBeforeLast}};

double Allowed(const SystemParameters& system, const Spot& at, Way way)
{
    double allowed = kMillimetre;
    for (const Reason& reason : kReasons) {
        allowed += reason.type == system.projection.type ? reason.metres(system, at, way) : 0.0;
    }
    return allowed;
}

// A pipeline is told not to fold longitudes about the meridian of origin for these types, as the
// module does not; a reference system cannot say so, and lies a full turn away there.
bool IsAFullTurnAway(const SystemParameters& system, double longitude)
{
    constexpr std::array<int, 6> kUnfolded = {2, 4, 7, 9, 13, 14};
    return std::fabs(longitude - system.projection[lonOrigin]) > 180.0 &&
           std::find(kUnfolded.begin(), kUnfolded.end(), system.projection.type) != kUnfolded.end();
}

enum class Sayable { yes, no, either };

/// Whether a coordinate reference system can say this system, by its parameters. Rotations count by
/// half their square on the ground; a tenth about a millimetre is left open.
Sayable InReferenceSystem(const SystemParameters& system)
{
    const double skew = system.projection.type == 4 ? 0.0 : std::fabs(system.projection[gridSkew]);
    const PostParameters& post = system.post;
    const auto& [rx, ry, rz] = system.datum.rotation;
    const double turn = std::hypot(rx, ry, rz) / 3600.0 * kRadiansPerDegree;
    const double stretch = turn * turn / 2.0 * 6.378e6 / kMillimetre;
    if (system.datum.fixedHeight || system.datum.moves || !system.geoid.method.empty() || !post.model.empty() ||
        post.shift || post.horizontal || post.vertical ||
        (system.datum.on && system.datum.target.a != system.ellipsoid.a) || (skew != 0.0 && skew != 180.0) ||
        stretch > 1.1) {
        return Sayable::no;
    }
    return stretch > 0.9 ? Sayable::either : Sayable::yes;
}

std::string TextOrNone(const SystemParameters& system, CrsNotation notation)
{
    try {
        return MakeCrs(system, notation).text;
    } catch (const ToolError& error) {
        EXPECT_EQ(error.Status(), ExitStatus::unusable);
        return {};
    }
}

// --- Systems and places ---------------------------------------------------------------------------

/// One slice of the systems: opening a system walks the database, and slices run side by side.
class ExportsAgainstProj : public testing::TestWithParam<int> {
protected:
    ExportsAgainstProj() : m_context(proj_context_create(), proj_context_destroy)
    {
        proj_log_level(m_context.get(), PJ_LOG_NONE);
    }

    // The module registers once in a process.
    static void SetUpTestSuite()
    {
        s_user = std::make_unique<TempDirectory>();
        CommonOptions options;
        options.dataDirectory = ZORGEO_DATA_DIR;
        options.userDirectory = s_user->Path().string();
        s_session = std::make_unique<Session>(options);
    }
    static void TearDownTestSuite()
    {
        s_session.reset();
        s_user.reset();
    }

    /// Calls `test` with every system of this slice, once; the number of all of them.
    template <typename Test>
    int ForEverySystem(Test test)
    {
        std::set<CString> seen;
        for (const CString& group : s_session->Groups()) {
            for (const CString& name : s_session->Systems(group)) {
                const bool mine = static_cast<int>(seen.size()) % kSlices == GetParam();
                if (!seen.insert(name).second || !mine) {
                    continue;
                }
                SystemRequest request;
                request.group = group.ToUtf8();
                request.system = name.ToUtf8();
                SCOPED_TRACE(request.system);
                const OpenedSystem opened = OpenSystem(*s_session, request);
                test(ReadSystem(*s_session, opened), opened);
            }
        }
        return static_cast<int>(seen.size());
    }

    /// From the EPSG code at the head of the description; none for an unknown system.
    Box AreaOf(const SystemParameters& system)
    {
        for (const OwnBox& own : kOwnBoxes) {
            if (system.system == own.system) {
                return own.box;
            }
        }
        Box box{0.0, 0.0, 0.0, 0.0};
        const std::string code = system.description.substr(0, 5) == "EPSG " ? system.description.substr(5) : "";
        const Object crs(proj_create_from_database(m_context.get(), "EPSG",
                                                   code.substr(0, code.find_first_not_of("0123456789")).c_str(),
                                                   PJ_CATEGORY_CRS, 0, nullptr),
                         proj_destroy);
        EXPECT_TRUE(crs) << "no area of use: " << system.description;
        if (crs) {
            proj_get_area_of_use(m_context.get(), crs.get(), &box.west, &box.south, &box.east, &box.north, nullptr);
            box.east += box.east < box.west ? 360.0 : 0.0;
        }
        return box;
    }

    Object Operation(const std::string& text) const
    {
        return {proj_create(m_context.get(), text.c_str()), proj_destroy};
    }

    /// From the frame to which a system is bound, or from its own geographic one, to its grid.
    Object Conversion(const PJ* crs) const
    {
        const bool bound = proj_get_type(crs) == PJ_TYPE_BOUND_CRS;
        const Object from(bound ? proj_get_target_crs(m_context.get(), crs)
                                : proj_crs_get_geodetic_crs(m_context.get(), crs),
                          proj_destroy);
        return {proj_create_crs_to_crs_from_pj(m_context.get(), from.get(), crs, nullptr, nullptr), proj_destroy};
    }

    Context m_context;
    inline static std::unique_ptr<TempDirectory> s_user;
    inline static std::unique_ptr<Session> s_session;
};

class Places {
public:
    explicit Places(const Box& box)
        : m_latitude(std::max(box.south, -89.9), std::min(box.north, 89.9)), m_longitude(box.west, box.east)
    {
    }
    Position Next()
    {
        const double longitude = m_longitude(m_random);
        return {m_latitude(m_random), longitude > 180.0 ? longitude - 360.0 : longitude, m_height(m_random)};
    }

private:
    std::mt19937 m_random{20271119};
    std::uniform_real_distribution<double> m_latitude;
    std::uniform_real_distribution<double> m_longitude;
    std::uniform_real_distribution<double> m_height{-100.0, 400.0};
};

Spot SpotOf(const SystemParameters& system, const Position& sat, const Position& grid)
{
    const double x = grid[0] - system.projection[falseEasting];
    const double y = grid[1] - system.projection[falseNorthing];
    return {sat[0], std::remainder(sat[1] - system.projection[lonOrigin], 360.0),
            std::hypot(x, y) * system.metresPerUnit};
}

/// Metres between two grid positions, or two satellite ones.
double GridMiss(const Position& a, const PJ_COORD& b, double metresPerUnit, bool height)
{
    return metresPerUnit * std::hypot(a[0] - b.xyz.x, a[1] - b.xyz.y, height ? a[2] - b.xyz.z : 0.0);
}
double SatMiss(const Position& a, const PJ_COORD& b, double metresPerUnit, bool height)
{
    const double east = std::remainder(a[1] - b.xyz.y, 360.0) * std::cos(a[0] * kRadiansPerDegree);
    return std::hypot((a[0] - b.xyz.x) * kMetresPerDegree, east * kMetresPerDegree,
                      height ? (a[2] - b.xyz.z) * metresPerUnit : 0.0);
}

/// Both directions of a PROJ operation, latitude first, against the tool's conversion; with heights
/// a pipeline, without a reference system.
void Compare(const SystemParameters& system, const OpenedSystem& opened, PJ* operation, const Box& area, bool height)
{
    const PositionConverter toGrid(opened, {Frame::sat, Frame::grid, false, height});
    const PositionConverter toSat(opened, {Frame::grid, Frame::sat, false, height});
    Places places(area);
    for (int i = 0; i < kPlaces; ++i) {
        const Position sat = places.Next();
        if (!height && IsAFullTurnAway(system, sat[1])) {
            continue;
        }
        Position grid{};
        Position back{};
        std::string detail;
        ASSERT_EQ(toGrid.Convert(sat, height, kMillisecondsOfYear, grid, detail), nullptr) << detail;
        ASSERT_EQ(toSat.Convert(grid, height, kMillisecondsOfYear, back, detail), nullptr) << detail;
        const double z = height ? sat[2] : 0.0;
        const double zGrid = height ? grid[2] : 0.0;
        const PJ_COORD there = proj_trans(operation, PJ_FWD, proj_coord(sat[0], sat[1], z, kYear));
        const PJ_COORD again = proj_trans(operation, PJ_INV, proj_coord(grid[0], grid[1], zGrid, kYear));
        const Spot at = SpotOf(system, sat, grid);
        EXPECT_LE(GridMiss(grid, there, system.metresPerUnit, height), Allowed(system, at, Way::forward))
            << "to the grid from " << sat[0] << " " << sat[1] << " " << sat[2];
        EXPECT_LE(SatMiss(back, again, system.metresPerUnit, height), Allowed(system, at, Way::back))
            << "from the grid of " << sat[0] << " " << sat[1] << " " << sat[2];
    }
}

} // namespace

namespace {

struct Notations {
    std::string wkt;
    std::string json;
};

Notations InBothNotations(const SystemParameters& system)
{
    const Notations both{TextOrNone(system, CrsNotation::wkt2), TextOrNone(system, CrsNotation::projjson)};
    EXPECT_EQ(both.wkt.empty(), both.json.empty());
    if (const Sayable sayable = InReferenceSystem(system); sayable != Sayable::either) {
        EXPECT_EQ(both.wkt.empty(), sayable == Sayable::no);
    }
    return both;
}

} // namespace

TEST_P(ExportsAgainstProj, GivePositionsOfConvert)
{
    const int count = ForEverySystem([this](const SystemParameters& system, const OpenedSystem& opened) {
        const Box area = AreaOf(system);
        const Object pipeline = Operation(MakeProjPipeline(system).text);
        ASSERT_TRUE(pipeline) << proj_context_errno_string(m_context.get(), proj_context_errno(m_context.get()));
        Compare(system, opened, pipeline.get(), area, true);
        const Notations both = InBothNotations(system);
        for (const std::string& text : {both.wkt, both.json}) {
            if (!text.empty()) {
                const Object crs = Operation(text);
                ASSERT_TRUE(crs);
                const Object operation = Conversion(crs.get());
                ASSERT_TRUE(operation);
                Compare(system, opened, operation.get(), area, false);
            }
        }
    });
    EXPECT_GE(count, 39);
}

INSTANTIATE_TEST_SUITE_P(Slices, ExportsAgainstProj, testing::Range(0, kSlices));
