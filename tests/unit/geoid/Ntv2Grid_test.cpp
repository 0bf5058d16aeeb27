#include "base/geoid/Ntv2Grid.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <limits>

#include "tests/support/GridFiles.h"
#include "tests/support/ProjOracle.h"
#include "tests/support/TempDirectory.h"

namespace {

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kSeconds = 3600.0;
constexpr double kTiny = 1e-12;

std::unique_ptr<Ntv2Grid> Load(const Ntv2File& file)
{
    CString reason;
    auto grid = Ntv2Grid::Load(AsGrid(file.Bytes()), reason);
    EXPECT_TRUE(grid) << reason.ToUtf8();
    return grid;
}

// 4 to 6 E, 50 to 51 N, one degree a step.
Ntv2SubGrid Plain()
{
    Ntv2SubGrid grid;
    grid.south = 50.0 * kSeconds;
    grid.east = -6.0 * kSeconds;
    grid.columns = 3;
    grid.north = [](int row, int column) { return 1.0 + row + 10.0 * column; };
    grid.west = [](int row, int column) { return 2.0 - row + 4.0 * column; };
    return grid;
}

Ntv2SubGrid Child(const std::string& name, const std::string& parent, double south, double west, double size,
                  double north)
{
    Ntv2SubGrid grid;
    grid.name = name;
    grid.parent = parent;
    grid.south = south * kSeconds;
    grid.east = -(west + size) * kSeconds;
    grid.latitudeStep = size / 2 * kSeconds;
    grid.longitudeStep = size / 2 * kSeconds;
    grid.rows = 3;
    grid.columns = 3;
    grid.north = Constant(north);
    grid.west = Constant(0.0);
    return grid;
}

double NorthSeconds(const Ntv2Grid& grid, double latitude, double longitude)
{
    const auto shift = grid.GeoShiftAt(latitude, longitude, false);
    return shift ? shift->first * kSeconds : kNaN;
}

} // namespace

TEST(Ntv2Grid, RowsGoFromEastToWestAndShiftsCountWestPositive)
{
    for (const ByteOrder order : {ByteOrder::little, ByteOrder::big}) {
        Ntv2File file;
        file.order = order;
        file.grids = {Plain()};
        const auto grid = Load(file);
        struct Row {
            double latitude, longitude, north, east;
        };
        // The first node of a row is the easternmost. By hand: nodes, the middle of an edge, of a cell.
        for (const Row& row : {Row{50.0, 6.0, 1.0, -2.0}, Row{50.0, 5.0, 11.0, -6.0}, Row{50.0, 4.0, 21.0, -10.0},
                               Row{51.0, 6.0, 2.0, -1.0}, Row{51.0, 4.0, 22.0, -9.0}, Row{50.0, 5.5, 6.0, -4.0},
                               Row{50.5, 4.5, 16.5, -7.5}}) {
            const auto shift = grid->GeoShiftAt(row.latitude, row.longitude, false);
            ASSERT_TRUE(shift) << row.latitude << " " << row.longitude;
            EXPECT_NEAR(shift->first * kSeconds, row.north, 1e-9) << row.latitude << " " << row.longitude;
            EXPECT_NEAR(shift->second * kSeconds, row.east, 1e-9) << row.latitude << " " << row.longitude;
        }
    }
}

TEST(Ntv2Grid, GivesNothingOutsideAndForNaN)
{
    Ntv2File file;
    file.grids = {Plain()};
    const auto grid = Load(file);
    for (const bool inverse : {false, true}) {
        for (const auto& [latitude, longitude] : std::vector<std::pair<double, double>>{
                 {49.99999, 5.0}, {51.00001, 5.0}, {50.5, 3.99999}, {50.5, 6.00001}, {kNaN, 5.0}, {50.5, kNaN}}) {
            EXPECT_FALSE(grid->GeoShiftAt(latitude, longitude, inverse)) << latitude << " " << longitude;
        }
    }
}

TEST(Ntv2Grid, InverseTakesTheShiftThatLedHere)
{
    Ntv2SubGrid steep = Plain(); // tens of seconds that change by seconds from node to node
    Ntv2File file;
    file.grids = {steep};
    const auto grid = Load(file);
    for (double latitude = 50.03; latitude < 50.95; latitude += 0.09) {
        for (double longitude = 4.1; longitude < 5.95; longitude += 0.13) {
            const auto out = grid->GeoShiftAt(latitude, longitude, false);
            ASSERT_TRUE(out);
            const double toLatitude = latitude + out->first;
            const double toLongitude = longitude + out->second;
            const auto back = grid->GeoShiftAt(toLatitude, toLongitude, true);
            ASSERT_TRUE(back) << latitude << " " << longitude;
            // 0.01 mm is 9e-11 degrees.
            EXPECT_NEAR(toLatitude - back->first, latitude, 9e-11);
            EXPECT_NEAR(toLongitude - back->second, longitude, 9e-11);
        }
    }
}

TEST(Ntv2Grid, InverseThatLeavesTheGridIsRefused)
{
    Ntv2SubGrid grid = Plain();
    grid.north = Constant(60.0);
    grid.west = Constant(0.0);
    Ntv2File file;
    file.grids = {grid};
    // A minute north of the southern edge: the position came from the edge itself; nearer, from beyond.
    const auto loaded = Load(file);
    EXPECT_TRUE(loaded->GeoShiftAt(50.0 + 61.0 / kSeconds, 5.0, true));
    EXPECT_FALSE(loaded->GeoShiftAt(50.0 + 59.0 / kSeconds, 5.0, true));
}

TEST(Ntv2Grid, TheDeepestSubGridServes)
{
    Ntv2SubGrid top = Plain();
    top.north = Constant(1.0);
    top.west = Constant(0.0);
    Ntv2File file;
    // The grandchild stands before its uncle, a second top grid beside, one whose parent is missing.
    file.grids = {top,
                  Child("CHILD", "GRID", 50.2, 4.4, 0.4, 2.0),
                  Child("INNER", "CHILD", 50.3, 4.5, 0.2, 3.0),
                  Child("UNCLE", "GRID", 50.2, 5.2, 0.4, 4.0),
                  Child("BESIDE", "NONE", 52.0, 4.0, 1.0, 5.0),
                  Child("ORPHAN", "LOST", 54.0, 4.0, 1.0, 6.0),
                  Child("OVER", "NONE", 50.0, 4.0, 1.0, 7.0)};
    for (const ByteOrder order : {ByteOrder::little, ByteOrder::big}) {
        file.order = order;
        const auto grid = Load(file);
        struct Row {
            double latitude, longitude, north;
        };
        for (const Row& row : {Row{50.1, 4.1, 1.0}, Row{50.25, 4.45, 2.0}, Row{50.4, 4.6, 3.0}, Row{50.4, 5.4, 4.0},
                               Row{52.5, 4.5, 5.0}, Row{54.5, 4.5, 6.0}, Row{50.9, 4.05, 1.0}}) {
            EXPECT_NEAR(NorthSeconds(*grid, row.latitude, row.longitude), row.north, 1e-9)
                << row.latitude << " " << row.longitude;
        }
        // On its border a position belongs to the inner grid.
        EXPECT_NEAR(NorthSeconds(*grid, 50.3, 4.6), 3.0, 1e-9);
        EXPECT_NEAR(NorthSeconds(*grid, 50.5, 4.7), 3.0, 1e-9);
        EXPECT_TRUE(std::isnan(NorthSeconds(*grid, 51.5, 4.5))) << "between the top grids";
        EXPECT_EQ(grid->Describe().parts.size(), 7u);
        EXPECT_EQ(grid->Describe().parts[2].parent, L"CHILD");
    }
}

TEST(Ntv2Grid, OnABorderOfNeighboursTheDeepestStillServes)
{
    Ntv2SubGrid top = Plain();
    top.north = Constant(1.0);
    top.west = Constant(0.0);
    Ntv2File file;
    // Two children share the meridian of 5 degrees; the second has a child that reaches it.
    file.grids = {top, Child("A", "GRID", 50.4, 4.6, 0.4, 2.0), Child("B", "GRID", 50.4, 5.0, 0.4, 3.0),
                  Child("C", "B", 50.5, 5.0, 0.2, 4.0)};
    const auto grid = Load(file);
    EXPECT_NEAR(NorthSeconds(*grid, 50.6, 5.0), 4.0, 1e-9);
    EXPECT_NEAR(NorthSeconds(*grid, 50.45, 5.0), 2.0, 1e-9) << "of equally deep ones the first in the file";
    EXPECT_NEAR(NorthSeconds(*grid, 50.6, 4.9), 2.0, 1e-9);
}

TEST(Ntv2Grid, AGridThatNamesItselfOrALaterOneIsATopGrid)
{
    Ntv2File file;
    file.grids = {Child("A", "B", 50.0, 4.0, 1.0, 1.0), Child("B", "B", 50.0, 4.0, 2.0, 2.0)};
    const auto grid = Load(file);
    EXPECT_NEAR(NorthSeconds(*grid, 50.5, 4.5), 1.0, 1e-9);
    EXPECT_NEAR(NorthSeconds(*grid, 51.5, 5.5), 2.0, 1e-9);
}

TEST(Ntv2Grid, InverseStaysInItsSubGridWhereSubGridsDoNotMeet)
{
    Ntv2SubGrid top = Plain();
    top.north = Constant(-36.0);
    top.west = Constant(0.0);
    Ntv2File file;
    file.grids = {top, Child("CHILD", "GRID", 50.2, 4.4, 0.4, 36.0)};
    const auto grid = Load(file);
    // 0.005 degrees north of the child's south edge. Its own shift leads 0.01 back, into the parent;
    // the parent's leads 0.01 on, into the child: no position leads here in exact terms. What the
    // child gives cannot be had either, since 0.01 back lies outside it.
    EXPECT_FALSE(grid->GeoShiftAt(50.205, 4.6, true));
    // North of its north edge in the parent: the parent leads 0.01 on, the child as well (from inside).
    const auto shift = grid->GeoShiftAt(50.605, 4.6, true);
    ASSERT_TRUE(shift);
    const auto there = grid->GeoShiftAt(50.605 - shift->first, 4.6, false);
    ASSERT_TRUE(there);
    EXPECT_NEAR(there->first, shift->first, 1e-12);
    // South of its south edge: forward from here leads nowhere near; the parent's own answer serves.
    const auto fallback = grid->GeoShiftAt(50.195, 4.6, true);
    ASSERT_TRUE(fallback);
    EXPECT_NEAR(fallback->first, -0.01, 1e-9);
}

TEST(Ntv2Grid, CrossesTheAntimeridianAndTakesAnyTurn)
{
    for (const double turn : {0.0, 360.0}) {
        Ntv2SubGrid grid = Plain();
        grid.east = (-190.0 + turn) * kSeconds; // 170 E to 170 W, two steps of ten degrees
        grid.longitudeStep = 10.0 * kSeconds;
        Ntv2File file;
        file.grids = {grid};
        const auto loaded = Load(file);
        EXPECT_NEAR(NorthSeconds(*loaded, 50.0, -170.0), 1.0, 1e-9) << turn;
        EXPECT_NEAR(NorthSeconds(*loaded, 50.0, 180.0), 11.0, 1e-9) << turn;
        EXPECT_NEAR(NorthSeconds(*loaded, 50.0, -180.0), 11.0, 1e-9) << turn;
        EXPECT_NEAR(NorthSeconds(*loaded, 50.0, 175.0), 16.0, 1e-9) << turn;
        EXPECT_NEAR(NorthSeconds(*loaded, 50.0, 190.0), 1.0, 1e-9) << turn;
        EXPECT_TRUE(std::isnan(NorthSeconds(*loaded, 50.0, -169.0))) << turn;
    }
}

TEST(Ntv2Grid, ReachesAPole)
{
    Ntv2SubGrid grid = Plain();
    grid.south = 89.0 * kSeconds;
    Ntv2File file;
    file.grids = {grid};
    const auto loaded = Load(file);
    EXPECT_NEAR(NorthSeconds(*loaded, 90.0, 6.0), 2.0, 1e-9);
    EXPECT_TRUE(std::isnan(NorthSeconds(*loaded, 90.01, 6.0)));
}

TEST(Ntv2Grid, ANodeThatIsNoNumberGivesNothing)
{
    Ntv2SubGrid grid = Plain();
    grid.north = [](int row, int column) { return row == 0 && column == 0 ? kNaN : 1.0; };
    Ntv2File file;
    file.grids = {grid};
    const auto loaded = Load(file);
    EXPECT_FALSE(loaded->GeoShiftAt(50.5, 5.5, false));
    EXPECT_TRUE(loaded->GeoShiftAt(50.5, 4.5, false));
    // Nodes are counted from the south-east: this edge of the cell has no weight in it.
    EXPECT_TRUE(loaded->GeoShiftAt(51.0, 5.5, false));
}

TEST(Ntv2Grid, AShiftOfNothingIsData)
{
    Ntv2SubGrid grid = Plain();
    grid.north = Constant(0.0);
    grid.west = Constant(0.0);
    Ntv2File file;
    file.grids = {grid};
    const auto shift = Load(file)->GeoShiftAt(50.5, 5.5, false);
    ASSERT_TRUE(shift);
    EXPECT_EQ(shift->first, 0.0);
}

TEST(Ntv2Grid, AgreesWithProjOnSubGridsOfBothByteOrders)
{
    Ntv2SubGrid top = Plain();
    top.latitudeStep = top.longitudeStep = 720.0;
    top.rows = 11;
    top.columns = 11;
    top.north = [](int row, int column) { return 3.0 + 0.02 * row * row - 0.01 * row * column; };
    top.west = [](int row, int column) { return -2.0 + 0.03 * column * column + 0.01 * row; };
    Ntv2SubGrid child = Child("CHILD", "GRID", 50.8, 4.8, 0.4, 0.0);
    child.latitudeStep = child.longitudeStep = 144.0;
    child.rows = child.columns = 11;
    child.north = [](int row, int column) { return 2.0 + 0.01 * row - 0.02 * column; };
    child.west = [](int row, int column) { return -1.0 + 0.015 * column + 0.005 * row * row; };
    const TempDirectory directory;
    for (const ByteOrder order : {ByteOrder::little, ByteOrder::big}) {
        Ntv2File file;
        file.order = order;
        file.grids = {top, child};
        const std::string name = order == ByteOrder::big ? "big.gsb" : "little.gsb";
        directory.Write(name, file.Bytes());
        const ProjOracle proj("+proj=hgridshift +grids=" + (directory.Path() / name).string());
        const auto grid = Load(file);
        for (double latitude = 50.05; latitude < 51.97; latitude += 0.043) {
            for (double longitude = 4.03; longitude < 5.97; longitude += 0.037) {
                const auto shift = grid->GeoShiftAt(latitude, longitude, false);
                ASSERT_TRUE(shift);
                const auto there = proj.Forward(ProjOracle::Radians(longitude), ProjOracle::Radians(latitude));
                EXPECT_NEAR(latitude + shift->first, ProjOracle::Degrees(there.y), 9e-11);
                EXPECT_NEAR(longitude + shift->second, ProjOracle::Degrees(there.x), 9e-11);
            }
        }
    }
}

TEST(Ntv2Grid, TheEndRecordMayBeMissing)
{
    Ntv2File file;
    file.grids = {Plain()};
    file.hasEnd = false;
    EXPECT_NEAR(NorthSeconds(*Load(file), 50.0, 6.0), 1.0, 1e-9);
}

TEST(Ntv2Grid, DescribesItself)
{
    Ntv2File file;
    file.grids = {Plain()};
    const auto grid = Load(file);
    EXPECT_TRUE(grid->HasGeoShifts());
    EXPECT_FALSE(grid->HasHeights());
    EXPECT_FALSE(grid->HasGridShifts());
    const GridDescription description = grid->Describe();
    EXPECT_EQ(description.format, L"NTv2");
    ASSERT_EQ(description.parts.size(), 1u);
    const GridDescription::Part& part = description.parts[0];
    EXPECT_EQ(part.name, L"GRID");
    EXPECT_EQ(part.parent, L"NONE");
    EXPECT_NEAR(part.south, 50.0, kTiny);
    EXPECT_NEAR(part.north, 51.0, kTiny);
    EXPECT_NEAR(part.west, 4.0, kTiny);
    EXPECT_NEAR(part.east, 6.0, kTiny);
    EXPECT_NEAR(part.stepEast, 1.0, kTiny);
    EXPECT_EQ(part.rows, 2u);
    EXPECT_EQ(part.columns, 3u);
}

TEST(Ntv2Grid, RefusesABrokenHeaderWithItsReason)
{
    constexpr std::size_t record = 16, value = 8, sub = 11 * record;
    for (const ByteOrder order : {ByteOrder::little, ByteOrder::big}) {
        Ntv2File file;
        file.order = order;
        file.grids = {Plain(), Child("CHILD", "GRID", 50.2, 4.4, 0.4, 2.0)};
        const std::string good = file.Bytes();
        const std::size_t second = sub + sub + 6 * 16; // header of the second sub-grid
        const auto with = [&](std::size_t at, auto number) {
            std::string bytes = good;
            ReplaceNumber(bytes, at + value, number, order);
            return bytes;
        };
        const auto renamed = [&](std::size_t at, const std::string& text) {
            std::string bytes = good;
            return bytes.replace(at, text.size(), text);
        };
        const auto vast = [&] {
            // A billion nodes a side by steps of nearly nothing, and a count to match what fits in it.
            std::string bytes = with(sub + 8 * record, 3600.0 / (1 << 29));
            ReplaceNumber(bytes, sub + 9 * record + value, 7200.0 / (1 << 29), order);
            return bytes;
        }();
        struct Row {
            const char* what;
            std::string bytes;
            const wchar_t* reason;
        };
        const std::vector<Row> rows = {
            {"nothing", "", L"shorter than the header"},
            {"cut in the overview", good.substr(0, 175), L"shorter than the header"},
            {"overview alone", good.substr(0, 176), L"before the header of a sub-grid"},
            {"cut in a sub-grid's header", good.substr(0, sub + 100), L"before the header of a sub-grid"},
            {"a node too few", good.substr(0, second - 1), L"\"GRID\" is cut short"},
            {"second sub-grid missing", good.substr(0, second), L"before the header of a sub-grid"},
            {"cut in the second sub-grid", good.substr(0, second + sub + 8 * 16 + 15), L"\"CHILD\" is cut short"},
            {"another length of headers", with(0, std::int32_t{12}), L"11 records"},
            {"another length of sub-headers", with(record, std::int32_t{10}), L"11 records"},
            {"degrees", renamed(3 * record + value, "DEGREES "), L"\"DEGREES\""},
            {"no sub-grid", with(2 * record, std::int32_t{0}), L"number of sub-grids"},
            {"a negative number", with(2 * record, std::int32_t{-1}), L"number of sub-grids"},
            {"far too many", with(2 * record, std::int32_t{2147483647}), L"number of sub-grids"},
            {"one too few", with(2 * record, std::int32_t{1}), L"too small"},
            {"one too many", with(2 * record, std::int32_t{3}), L"before the header of a sub-grid"},
            {"no sub-grid where one should be", renamed(second, "SOMETHIN"), L"should begin is none"},
            {"south beyond", with(sub + 4 * record, -90.5 * kSeconds), L"not on the Earth"},
            {"south NaN", with(sub + 4 * record, kNaN), L"not on the Earth"},
            {"north beyond", with(sub + 5 * record, 91.0 * kSeconds), L"not on the Earth"},
            {"east NaN", with(sub + 6 * record, kNaN), L"not on the Earth"},
            {"west infinite", with(sub + 7 * record, std::numeric_limits<double>::infinity()), L"not on the Earth"},
            {"more than round", with(sub + 7 * record, 400.0 * kSeconds), L"not on the Earth"},
            {"upside down", with(sub + 5 * record, 49.0 * kSeconds), L"whole number"},
            {"west of itself", with(sub + 6 * record, -3.0 * kSeconds), L"whole number"},
            {"step nought", with(sub + 8 * record, 0.0), L"whole number"},
            {"step negative", with(sub + 9 * record, -3600.0), L"whole number"},
            {"step NaN", with(sub + 9 * record, kNaN), L"whole number"},
            {"step that does not divide", with(sub + 9 * record, 3000.0), L"whole number"},
            {"step of next to nothing", with(sub + 9 * record, 1e-300), L"whole number"},
            {"too few nodes", with(sub + 10 * record, std::int32_t{5}), L"another number of nodes"},
            {"a negative count", with(sub + 10 * record, std::int32_t{-6}), L"another number of nodes"},
            {"a vast extent", vast, L"another number of nodes"},
        };
        for (const Row& row : rows) {
            CString reason;
            EXPECT_FALSE(Ntv2Grid::Load(AsGrid(row.bytes), reason)) << row.what;
            EXPECT_GE(reason.Find(row.reason), 0) << row.what << ": " << reason.ToUtf8();
        }
    }
}
