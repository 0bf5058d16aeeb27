// The grids that are installed with PROJ, with PROJ as the judge: 1 micrometre for heights, 0.01 mm
// for shifts.

#include <gtest/gtest.h>

#include <proj.h>

#include <random>

#include "base/geoid/GridFile.h"
#include "tests/support/ProjOracle.h"

namespace {

constexpr double kHeightTolerance = 1e-6;   // metres
constexpr double kShiftTolerance = 9.0e-11; // degrees of a great circle: 0.01 mm
// PROJ keeps the shifts of nodes as 32-bit radians: more than the tolerance for those of New Zealand.
constexpr double kProjRounding = 6e-8;
constexpr int kRandomPlaces = 5000;

std::string Directory()
{
#if defined(_WIN32)
    return "Z:/usr/share/proj/";
#else
    return "/usr/share/proj/";
#endif
}

std::unique_ptr<const CorrectionGrid> Open(const std::string& name)
{
    CString reason;
    auto grid = OpenGrid(CString::FromUtf8(Directory() + name), reason);
    EXPECT_TRUE(grid) << name << ": " << reason.ToUtf8();
    return grid;
}

struct GeoPlace {
    double latitude;
    double longitude;
};

// Nodes, edges and corners all round, the surroundings of the edges outside, and random places.
std::vector<GeoPlace> PlacesOf(const GridDescription::Part& part)
{
    std::vector<GeoPlace> places;
    std::mt19937 random(20071); // NOLINT: the same places at each run
    std::uniform_real_distribution<double> latitude(part.south - part.stepNorth, part.north + part.stepNorth);
    std::uniform_real_distribution<double> longitude(part.west - part.stepEast, part.east + part.stepEast);
    for (int i = 0; i < kRandomPlaces; ++i) {
        places.push_back({latitude(random), longitude(random)});
    }
    const std::size_t rowStride = 1 + part.rows / 40;
    const std::size_t columnStride = 1 + part.columns / 40;
    for (std::size_t row = 0; row < part.rows; row += rowStride) {
        const double at = part.south + static_cast<double>(row) * part.stepNorth;
        for (std::size_t column = 0; column < part.columns; column += columnStride) {
            places.push_back({at, part.west + static_cast<double>(column) * part.stepEast}); // nodes
        }
        places.push_back({at + part.stepNorth / 3, part.west}); // edges, also beyond the corner
        places.push_back({at + part.stepNorth / 3, part.east});
    }
    for (std::size_t column = 0; column < part.columns; column += columnStride) {
        const double at = part.west + static_cast<double>(column) * part.stepEast + part.stepEast / 3;
        places.push_back({part.south, at});
        places.push_back({part.north, at});
    }
    for (const double outside : {0.0, 0.001}) {
        places.push_back({part.south - outside, part.west - outside});
        places.push_back({part.south - outside, part.east + outside});
        places.push_back({part.north + outside, part.west - outside});
        places.push_back({part.north + outside, part.east + outside});
    }
    return places;
}

// PROJ gives values up to a hundred-thousandth of a step beyond the edge, and rounds.
bool NearEdge(const GridDescription::Part& part, const GeoPlace& at)
{
    const auto near = [](double value, double edge, double step) { return std::fabs(value - edge) < 1e-4 * step; };
    return near(at.latitude, part.south, part.stepNorth) || near(at.latitude, part.north, part.stepNorth) ||
           near(at.longitude, part.west, part.stepEast) || near(at.longitude, part.east, part.stepEast);
}

bool LiesOutside(const GridDescription::Part& part, const GeoPlace& at)
{
    return at.latitude < part.south || at.latitude > part.north || at.longitude < part.west || at.longitude > part.east;
}

} // namespace

TEST(RealGrids, Egm96HeightsAreThoseOfProj)
{
    const auto grid = Open("egm96_15.gtx");
    ASSERT_TRUE(grid);
    const ProjOracle proj("+proj=vgridshift +multiplier=1 +grids=" + Directory() + "egm96_15.gtx");
    const GridDescription::Part part = grid->Describe().parts.at(0);
    EXPECT_EQ(part.rows, 721u);
    EXPECT_EQ(part.columns, 1440u);
    std::vector<GeoPlace> places = PlacesOf(part);
    // Across the antimeridian, between the last column and the first, and at the poles.
    for (double latitude = -90.0; latitude <= 90.0; latitude += 7.5) {
        for (const double longitude : {179.75, 179.8, 179.9, 179.99, 180.0, -180.0, -179.99, -179.9}) {
            places.push_back({latitude, longitude});
        }
    }
    int compared = 0;
    for (const GeoPlace& at : places) {
        const auto height = grid->HeightAt({at.latitude, at.longitude, 0.0, 0.0});
        if (std::fabs(at.latitude) > 90.0) {
            EXPECT_FALSE(height) << at.latitude;
            continue;
        }
        ASSERT_TRUE(height) << at.latitude << " " << at.longitude;
        const auto there = proj.Forward(ProjOracle::Radians(at.longitude), ProjOracle::Radians(at.latitude));
        EXPECT_NEAR(*height, there.z, kHeightTolerance) << at.latitude << " " << at.longitude;
        ++compared;
    }
    EXPECT_GT(compared, kRandomPlaces);
}

TEST(RealGrids, Egm96PolesAreThePublishedOnes)
{
    const auto grid = Open("egm96_15.gtx");
    ASSERT_TRUE(grid);
    for (double longitude = -180.0; longitude <= 180.0; longitude += 30.1) {
        EXPECT_NEAR(grid->HeightAt({90.0, longitude, 0.0, 0.0}).value(), 13.606, 5e-4);
        EXPECT_NEAR(grid->HeightAt({-90.0, longitude, 0.0, 0.0}).value(), -29.534, 5e-4);
    }
}

TEST(RealGrids, ShiftsAreThoseOfProjInBothDirections)
{
    struct Row {
        const char* name;
        std::size_t rows, columns;
    };
    for (const Row& row :
         {Row{"BETA2007.gsb", 84, 62}, Row{"ntf_r93.gsb", 111, 156}, Row{"nzgd2kgrid0005.gsb", 141, 141},
          Row{"CHENYX06a.gsb", 313, 661}, Row{"CHENYX06_etrs.gsb", 313, 661}}) {
        const auto grid = Open(row.name);
        ASSERT_TRUE(grid);
        const GridDescription::Part part = grid->Describe().parts.at(0);
        EXPECT_EQ(part.rows, row.rows);
        EXPECT_EQ(part.columns, row.columns);
        const ProjOracle proj("+proj=hgridshift +grids=" + Directory() + row.name);
        for (const bool inverse : {false, true}) {
            int compared = 0;
            for (const GeoPlace& at : PlacesOf(part)) {
                const double x = ProjOracle::Radians(at.longitude);
                const double y = ProjOracle::Radians(at.latitude);
                const auto there = inverse ? proj.Inverse(x, y) : proj.Forward(x, y);
                const auto shift = grid->GeoShiftAt(at.latitude, at.longitude, inverse);
                if (NearEdge(part, at) && std::isfinite(there.x) != shift.has_value()) {
                    continue;
                }
                // Where the way back leaves the grid, PROJ makes do with its first step.
                if (inverse && !shift &&
                    LiesOutside(part, {ProjOracle::Degrees(there.y), ProjOracle::Degrees(there.x)})) {
                    continue;
                }
                ASSERT_EQ(shift.has_value(), std::isfinite(there.x))
                    << row.name << " " << at.latitude << " " << at.longitude << (inverse ? " inverse" : "");
                if (shift) {
                    const double sign = inverse ? -1.0 : 1.0;
                    const double tolerance =
                        std::max(kShiftTolerance, kProjRounding * std::hypot(shift->first, shift->second));
                    EXPECT_NEAR(at.latitude + sign * shift->first, ProjOracle::Degrees(there.y), tolerance)
                        << row.name << " " << at.latitude << " " << at.longitude << (inverse ? " inverse" : "");
                    const double east = at.longitude + sign * shift->second - ProjOracle::Degrees(there.x);
                    EXPECT_NEAR(std::remainder(east, 360.0) * std::cos(y), 0.0, tolerance)
                        << row.name << " " << at.latitude << " " << at.longitude << (inverse ? " inverse" : "");
                    ++compared;
                }
            }
            EXPECT_GT(compared, kRandomPlaces / 2) << row.name;
        }
    }
}

struct ExactShift {
    const char* name;
    double latitude;
    double longitude;
    double north; // seconds
    double east;
};

// Interpolated in exact fractions by tests/data/geoid/ntv2_shifts.py.
constexpr ExactShift kExactShifts[] = {
    {"nzgd2kgrid0005.gsb", -36.5, 175.25, 6.5143609046936035, 0.7034974992275238},
    {"nzgd2kgrid0005.gsb", -41.4968, 167.3607, 6.470243318359374, 0.24838161963665542},
    {"nzgd2kgrid0005.gsb", -40.19, 170.125, 6.410840797424317, 0.41186418384313567},
    {"nzgd2kgrid0005.gsb", -47.99, 178.003, 5.849442748546599, 1.215670107126235},
    {"BETA2007.gsb", 52.5, 13.4, -5.060113048553466, -6.275499916076661},
    {"BETA2007.gsb", 48.1374, 11.5755, -3.2913755235500335, -4.9701260418596265},
    {"BETA2007.gsb", 54.8, 8.3, -6.058004188537597, -3.380317974090577},
    {"BETA2007.gsb", 47.31, 9.99, -2.996663749694825, -4.078873097419739},
    {"CHENYX06a.gsb", 46.951, 7.4386, 0.0020701993496716263, 0.0038657308383286365},
    {"CHENYX06a.gsb", 47.5, 9.1, -0.011299000121653087, 0.03917599841952324},
};

TEST(RealGrids, ShiftsAreThoseOfTheNodesInExactFractions)
{
    for (const ExactShift& row : kExactShifts) {
        const auto grid = Open(row.name);
        ASSERT_TRUE(grid);
        const auto shift = grid->GeoShiftAt(row.latitude, row.longitude, false);
        ASSERT_TRUE(shift) << row.name;
        EXPECT_NEAR(shift->first * 3600, row.north, 1e-10) << row.name;
        EXPECT_NEAR(shift->second * 3600, row.east, 1e-10) << row.name;
    }
}

TEST(RealGrids, InverseLeadsBackExactly)
{
    for (const char* name : {"BETA2007.gsb", "ntf_r93.gsb", "nzgd2kgrid0005.gsb", "CHENYX06a.gsb"}) {
        const auto grid = Open(name);
        ASSERT_TRUE(grid);
        int compared = 0;
        for (const GeoPlace& at : PlacesOf(grid->Describe().parts.at(0))) {
            const auto out = grid->GeoShiftAt(at.latitude, at.longitude, false);
            const auto back =
                out ? grid->GeoShiftAt(at.latitude + out->first, at.longitude + out->second, true) : std::nullopt;
            if (back) {
                EXPECT_NEAR(back->first, out->first, kShiftTolerance) << name;
                EXPECT_NEAR(back->second, out->second, kShiftTolerance) << name;
                ++compared;
            }
        }
        EXPECT_GT(compared, kRandomPlaces / 2) << name;
    }
}
