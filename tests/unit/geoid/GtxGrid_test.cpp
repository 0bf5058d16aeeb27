#include "base/geoid/GtxGrid.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <limits>

#include "tests/support/GridFiles.h"

namespace {

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr float kNoData = -88.8888F;
constexpr double kTiny = 1e-12;

std::unique_ptr<GtxGrid> Load(const GtxFile& file, const NodeRule& value)
{
    CString reason;
    auto grid = GtxGrid::Load(AsGrid(file.Bytes(value)), reason);
    EXPECT_TRUE(grid) << reason.ToUtf8();
    return grid;
}

std::optional<double> HeightOf(const GtxGrid& grid, double latitude, double longitude)
{
    return grid.HeightAt({latitude, longitude, 0.0, 0.0});
}

// Rows of 10 20 40 and 30 50 60 from latitude 50 and longitude 4, half a degree apart.
double SixValues(int row, int column)
{
    constexpr double values[2][3] = {{10.0, 20.0, 40.0}, {30.0, 50.0, 60.0}};
    return values[row][column];
}

} // namespace

TEST(GtxGrid, IsBilinearFromTheSouthWest)
{
    const auto grid = Load({}, SixValues);
    struct Row {
        double latitude, longitude, height;
    };
    // Nodes, middles of edges and cells, by hand; the last two a turn away.
    for (const Row& row : {Row{50.0, 4.0, 10.0}, Row{50.0, 5.0, 40.0}, Row{50.5, 4.0, 30.0}, Row{50.5, 5.0, 60.0},
                           Row{50.0, 4.75, 30.0}, Row{50.25, 4.0, 20.0}, Row{50.25, 4.25, 27.5}, Row{50.5, 4.9, 58.0},
                           Row{50.25, 364.25, 27.5}, Row{50.25, -355.75, 27.5}}) {
        const auto height = HeightOf(*grid, row.latitude, row.longitude);
        ASSERT_TRUE(height) << row.latitude << " " << row.longitude;
        EXPECT_NEAR(*height, row.height, kTiny) << row.latitude << " " << row.longitude;
    }
}

TEST(GtxGrid, AStepOfTenDigitsReachesTheEdge)
{
    GtxFile file; // nodes of a minute of arc: 600 steps that are 2.4e-6 of one short together
    file.south = 40.0;
    file.latitudeStep = 0.0166666666;
    file.rows = 601;
    const auto grid = Load(file, [](int row, int) { return row == 600 ? 7.0 : 0.0; });
    const auto height = HeightOf(*grid, 50.0, 4.0);
    ASSERT_TRUE(height);
    EXPECT_NEAR(*height, 7.0, kTiny);
    EXPECT_FALSE(HeightOf(*grid, 50.000001, 4.0));
}

TEST(GtxGrid, GivesNothingOutside)
{
    const auto grid = Load({}, SixValues);
    for (const auto& [latitude, longitude] : std::vector<std::pair<double, double>>{{49.999999, 4.5},
                                                                                    {50.500001, 4.5},
                                                                                    {50.2, 3.999999},
                                                                                    {50.2, 5.000001},
                                                                                    {kNaN, 4.5},
                                                                                    {50.2, kNaN},
                                                                                    {90.0, 4.5},
                                                                                    {50.2, 184.5}}) {
        EXPECT_FALSE(HeightOf(*grid, latitude, longitude)) << latitude << " " << longitude;
    }
}

TEST(GtxGrid, AnEdgeIsInsideInSpiteOfRounding)
{
    GtxFile file;
    file.south = 0.1;
    file.west = 0.1;
    file.latitudeStep = 0.1;
    file.longitudeStep = 0.1;
    file.rows = 7;
    file.columns = 7;
    const auto grid = Load(file, [](int row, int column) { return row + 10.0 * column; });
    double edge = 0.0;
    for (int i = 0; i < 7; ++i) {
        edge += 0.1; // 0.7 with the rounding of six additions
    }
    ASSERT_NE(edge, 0.1 + 6 * 0.1);
    EXPECT_NEAR(HeightOf(*grid, edge, edge).value(), 66.0, 1e-9);
    EXPECT_NEAR(HeightOf(*grid, 0.7, 0.7).value(), 66.0, 1e-9);
}

TEST(GtxGrid, NodesWithoutDataGiveWayToTheOthersByWeight)
{
    const auto grid = Load({}, [](int row, int column) {
        return row == 1 && column == 0 ? static_cast<double>(kNoData) : SixValues(row, column);
    });
    // Cell of 10 20 / none 50 with weights 0.375 0.125 / 0.375 0.125.
    const double mean = (0.375 * 10.0 + 0.125 * 20.0 + 0.125 * 50.0) / 0.625;
    EXPECT_NEAR(HeightOf(*grid, 50.25, 4.125).value(), mean, kTiny);
    EXPECT_FALSE(HeightOf(*grid, 50.5, 4.0)) << "the node itself";
    EXPECT_NEAR(HeightOf(*grid, 50.0, 4.0).value(), 10.0, kTiny) << "another node of the cell";
    EXPECT_NEAR(HeightOf(*grid, 50.5, 4.4).value(), 50.0, kTiny) << "the edge between it and 50";
    EXPECT_NEAR(HeightOf(*grid, 50.25, 4.75).value(), 42.5, kTiny) << "the next cell";
}

TEST(GtxGrid, AllMarksForNoDataAreKnown)
{
    for (const double mark : {static_cast<double>(kNoData), -2147479936.0, 1000.001, -1e30, kNaN,
                              std::numeric_limits<double>::infinity()}) {
        const auto grid = Load({}, Constant(mark));
        EXPECT_FALSE(HeightOf(*grid, 50.25, 4.25)) << mark;
        EXPECT_FALSE(HeightOf(*grid, 50.0, 4.0)) << mark;
    }
    const auto deep = Load({}, Constant(-88.88));
    EXPECT_NEAR(HeightOf(*deep, 50.25, 4.25).value(), -88.88, 1e-5) << "a height near the mark is one";
    EXPECT_NEAR(HeightOf(*Load({}, Constant(1000.0)), 50.25, 4.25).value(), 1000.0, kTiny);
}

TEST(GtxGrid, ColumnsAllRoundTheEarthCloseTheCircle)
{
    GtxFile file;
    file.south = -90.0;
    file.west = -180.0;
    file.latitudeStep = 90.0;
    file.longitudeStep = 60.0;
    file.rows = 3;
    file.columns = 6;
    const auto grid = Load(file, [](int row, int column) { return 10.0 * row + column; });
    struct Row {
        double latitude, longitude, height;
    };
    for (const Row& row :
         {Row{0.0, -180.0, 10.0}, Row{0.0, 180.0, 10.0}, Row{0.0, 120.0, 15.0}, Row{0.0, 150.0, 12.5},
          Row{0.0, -210.0, 12.5}, Row{0.0, 510.0, 12.5}, Row{0.0, 179.99999, 10.0}, Row{90.0, 120.0, 25.0},
          Row{-90.0, 180.0, 0.0}, Row{45.0, 150.0, 17.5}, Row{0.0, 360.0, 13.0}, Row{0.0, -1e-15, 13.0}}) {
        const auto height = HeightOf(*grid, row.latitude, row.longitude);
        ASSERT_TRUE(height) << row.latitude << " " << row.longitude;
        EXPECT_NEAR(*height, row.height, 1e-6) << row.latitude << " " << row.longitude;
    }
    EXPECT_FALSE(HeightOf(*grid, 90.001, 0.0));
    EXPECT_FALSE(HeightOf(*grid, 0.0, std::numeric_limits<double>::infinity()));
}

TEST(GtxGrid, CrossesTheAntimeridian)
{
    GtxFile file; // 170 E to 170 W
    file.west = 170.0;
    file.longitudeStep = 10.0;
    const auto grid = Load(file, SixValues);
    EXPECT_NEAR(HeightOf(*grid, 50.0, 180.0).value(), 20.0, kTiny);
    EXPECT_NEAR(HeightOf(*grid, 50.0, -180.0).value(), 20.0, kTiny);
    EXPECT_NEAR(HeightOf(*grid, 50.0, -175.0).value(), 30.0, kTiny);
    EXPECT_NEAR(HeightOf(*grid, 50.0, 175.0).value(), 15.0, kTiny);
    EXPECT_FALSE(HeightOf(*grid, 50.0, -169.9));
    EXPECT_FALSE(HeightOf(*grid, 50.0, 169.9));
}

TEST(GtxGrid, TakesLongitudesOf0To360)
{
    GtxFile file; // 356 to 357 E is 4 to 3 W
    file.west = 356.0;
    const auto grid = Load(file, SixValues);
    EXPECT_NEAR(HeightOf(*grid, 50.0, -3.5).value(), 20.0, kTiny);
    EXPECT_NEAR(HeightOf(*grid, 50.0, 356.5).value(), 20.0, kTiny);
    EXPECT_FALSE(HeightOf(*grid, 50.0, 3.5));
    EXPECT_EQ(grid->Describe().parts.at(0).west, -4.0);
}

TEST(GtxGrid, OneRowOrColumnIsAGrid)
{
    GtxFile file;
    file.rows = 1;
    const auto row = Load(file, SixValues);
    EXPECT_NEAR(HeightOf(*row, 50.0, 4.25).value(), 15.0, kTiny);
    EXPECT_FALSE(HeightOf(*row, 50.1, 4.25));
    file.columns = 1;
    EXPECT_NEAR(HeightOf(*Load(file, SixValues), 50.0, 4.0).value(), 10.0, kTiny);
}

TEST(GtxGrid, RefusesABrokenHeaderWithItsReason)
{
    const std::string good = GtxFile().Bytes(SixValues);
    const auto with = [&good](std::size_t at, auto number) {
        std::string bytes = good;
        ReplaceNumber(bytes, at, number, ByteOrder::big);
        return bytes;
    };
    constexpr std::size_t south = 0, west = 8, stepNorth = 16, stepEast = 24, rows = 32, columns = 36;
    const auto both = [&with](std::int32_t r, std::int32_t c) {
        std::string bytes = with(rows, r);
        ReplaceNumber(bytes, columns, c, ByteOrder::big);
        return bytes;
    };
    const auto world = [&both](std::int32_t r, std::int32_t c) {
        std::string bytes = both(r, c);
        ReplaceNumber(bytes, stepNorth, 1e-9, ByteOrder::big);
        ReplaceNumber(bytes, stepEast, 1e-9, ByteOrder::big);
        return bytes;
    };
    struct Row {
        const char* what;
        std::string bytes;
        const wchar_t* reason;
    };
    const std::vector<Row> table = {
        {"nothing", "", L"header"},
        {"cut in the header", good.substr(0, 39), L"header"},
        {"header alone", good.substr(0, 40), L"shorter"},
        {"a node too few", good.substr(0, good.size() - 4), L"shorter"},
        {"a byte too few", good.substr(0, good.size() - 1), L"shorter"},
        {"a byte too many", good + "x", L"longer"},
        {"a row too few", with(rows, std::int32_t{1}), L"longer"},
        {"no rows", with(rows, std::int32_t{0}), L"not above 0"},
        {"rows negative", with(rows, std::int32_t{-2}), L"not above 0"},
        {"columns negative", with(columns, std::int32_t{-2147483647}), L"not above 0"},
        {"both negative", both(-2, -3), L"not above 0"},
        {"a product beyond 32 bits", world(65536, 65536), L"shorter"},
        {"a product beyond 63 bits", world(2147483647, 2147483647), L"shorter"},
        {"latitude beyond", with(south, 90.1), L"latitude"},
        {"latitude NaN", with(south, kNaN), L"latitude"},
        {"longitude beyond", with(west, -360.5), L"longitude"},
        {"longitude NaN", with(west, kNaN), L"longitude"},
        {"step nought", with(stepNorth, 0.0), L"step"},
        {"step negative", with(stepEast, -0.5), L"step"},
        {"step NaN", with(stepEast, kNaN), L"step"},
        {"step infinite", with(stepNorth, std::numeric_limits<double>::infinity()), L"step"},
        {"beyond the pole", with(stepNorth, 41.0), L"pole"},
        {"more than round", with(stepEast, 181.0), L"more than once"},
        {"the other byte order", std::string(good.rbegin(), good.rend()), L""}};
    for (const Row& row : table) {
        CString reason;
        EXPECT_FALSE(GtxGrid::Load(AsGrid(row.bytes), reason)) << row.what;
        EXPECT_FALSE(reason.IsEmpty());
        EXPECT_GE(reason.Find(row.reason), 0) << row.what << ": " << reason.ToUtf8();
    }
}
