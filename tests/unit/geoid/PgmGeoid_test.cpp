#include "base/geoid/PgmGeoid.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <fstream>
#include <limits>

#include "tests/support/GridFiles.h"
#include "tests/support/TempDirectory.h"

namespace {

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kMicrometre = 1e-6;

// Any pixels serve: the rule holds for all. The same as in tests/data/geoid/pgm_heights.py.
int Pixel(int row, int column)
{
    return 20000 + (row * 7919 + column * 10473 + row * column * 31) % 30011;
}

PgmFile Synthetic()
{
    PgmFile file;
    file.width = 24;
    file.height = 13;
    return file;
}

std::optional<double> HeightOf(const PgmGeoid& geoid, double latitude, double longitude)
{
    return geoid.HeightAt({latitude, longitude, 0.0, 0.0});
}

CString ReasonOf(const std::string& bytes)
{
    CString reason;
    EXPECT_FALSE(PgmGeoid::Load(AsGrid(bytes), reason));
    return reason;
}

} // namespace

struct PgmHeight {
    double latitude;
    double longitude;
    double height;
};

// Worked out in exact fractions by tests/data/geoid/pgm_heights.py, which also asks GeoidEval.
constexpr PgmHeight kHeights[] = {
    {0.0, 0.0, 28.0589625},
    {90.0, 0.0, -26.6585},
    {90.0, 77.0, -10.245},
    {-90.0, 0.0, -6.6515},
    {-90.0, -123.0, 6.107},
    {89.99, 12.5, -26.65913910962471},
    {80.0, 187.25, 11.75080435633214},
    {75.0, 30.0, 21.8998125},
    {74.999, 30.0, 21.898157408301106},
    {-74.0, 100.0, -32.11677433333333},
    {-75.0, 100.0, -31.487543010752688},
    {-80.5, 359.9, -5.444499697968945},
    {-89.99, 5.0, -6.643671250938823},
    {52.25, 4.75, 10.904093708333333},
    {52.25, 364.75, 10.904093708333333},
    {52.25, -355.25, 10.904093708333333},
    {-33.3, 151.2, 17.775321756000036},
    {10.0, 359.999, -12.787194210038646},
    {10.0, -0.001, -12.787194210038624},
    {10.0, 180.0, 23.551187962962963},
    {10.0, -180.0, 23.551187962962963},
    {10.0, 179.5, 14.551668166666667},
    {45.0, 345.0, 32.2284},
    {0.001, 7.5, 23.174985166632222},
    {-0.001, 7.5, 23.175139266632222},
    {60.1, 299.9, -19.06044700429632},
    {-45.0, 15.0, 18.003},
    {30.0, 52.5, -27.3965625},
    {29.5, 53.0, -25.188326907407408},
    {-15.0, -75.0, 27.622425},
};

TEST(PgmGeoid, FitsTheCubicOfTwelvePixelsInEveryCellAndAtThePoles)
{
    CString reason;
    const auto geoid = PgmGeoid::Load(AsGrid(Synthetic().Bytes(Pixel)), reason);
    ASSERT_TRUE(geoid) << reason.ToUtf8();
    for (const PgmHeight& row : kHeights) {
        const auto height = HeightOf(*geoid, row.latitude, row.longitude);
        ASSERT_TRUE(height) << row.latitude << " " << row.longitude;
        EXPECT_NEAR(*height, row.height, kMicrometre) << row.latitude << " " << row.longitude;
    }
}

#if !defined(_WIN32)
TEST(PgmGeoid, AgreesWithGeoidEvalAllOverTheEarth)
{
    const TempDirectory directory;
    const std::string bytes = Synthetic().Bytes(Pixel);
    directory.Write("synthetic.pgm", bytes);
    CString reason;
    const auto geoid = PgmGeoid::Load(AsGrid(bytes), reason);
    ASSERT_TRUE(geoid);
    std::vector<std::pair<double, double>> places;
    std::string lines;
    // Steps that are no fraction of a cell, and every node with its surroundings.
    for (double latitude = -90.0; latitude <= 90.0; latitude += 4.7) {
        for (double longitude = -180.0; longitude < 360.0; longitude += 11.3) {
            places.emplace_back(latitude, longitude);
        }
    }
    for (int row = 0; row < 13; ++row) {
        for (int column = 0; column < 24; ++column) {
            places.emplace_back(90.0 - 15.0 * row, 15.0 * column);
        }
    }
    for (const auto& [latitude, longitude] : places) {
        lines += std::to_string(latitude) + " " + std::to_string(longitude) + "\n";
    }
    directory.Write("places.txt", lines);
    const std::string command = std::string(ZORGEO_GEOIDEVAL) + " -n synthetic -d " + directory.Path().string() +
                                " --input-file " + (directory.Path() / "places.txt").string() + " --output-file " +
                                (directory.Path() / "heights.txt").string();
    ASSERT_EQ(std::system(command.c_str()), 0); // NOLINT: a fixed command
    std::ifstream heights(directory.Path() / "heights.txt");
    std::size_t count = 0;
    for (double expected = 0.0; heights >> expected; ++count) {
        // What was written with six decimals, as GeoidEval read it.
        const double latitude = std::stod(std::to_string(places.at(count).first));
        const double longitude = std::stod(std::to_string(places[count].second));
        const auto height = HeightOf(*geoid, latitude, longitude);
        ASSERT_TRUE(height);
        EXPECT_NEAR(*height, expected, 0.00005 + kMicrometre) << latitude << " " << longitude;
    }
    EXPECT_EQ(count, places.size());
    EXPECT_GT(count, 2000u);
}
#endif

TEST(PgmGeoid, HeightAtAPoleIsTheSameAllAlongACell)
{
    CString reason;
    const auto geoid = PgmGeoid::Load(AsGrid(Synthetic().Bytes(Pixel)), reason);
    ASSERT_TRUE(geoid);
    for (const double pole : {90.0, -90.0}) {
        const auto first = HeightOf(*geoid, pole, 30.0);
        for (const double longitude : {32.0, 38.5, 44.9}) {
            EXPECT_NEAR(*HeightOf(*geoid, pole, longitude), *first, kMicrometre);
        }
    }
}

TEST(PgmGeoid, TakesTheSmallestImage)
{
    PgmFile file;
    file.width = 2;
    file.height = 3;
    CString reason;
    const auto geoid = PgmGeoid::Load(AsGrid(file.Bytes([](int, int) { return 36000; })), reason);
    ASSERT_TRUE(geoid) << reason.ToUtf8();
    // A cubic through equal values is that value: -108 + 0.003 * 36000.
    for (const double latitude : {90.0, 12.0, 0.0, -45.0, -90.0}) {
        for (const double longitude : {0.0, 179.0, 181.0, -1.0}) {
            EXPECT_NEAR(*HeightOf(*geoid, latitude, longitude), 0.0, kMicrometre);
        }
    }
}

TEST(PgmGeoid, RefusesWhatIsNoPosition)
{
    CString reason;
    const auto geoid = PgmGeoid::Load(AsGrid(Synthetic().Bytes(Pixel)), reason);
    ASSERT_TRUE(geoid);
    constexpr double inf = std::numeric_limits<double>::infinity();
    for (const auto& [latitude, longitude] : std::vector<std::pair<double, double>>{
             {90.0001, 0.0}, {-91.0, 0.0}, {kNaN, 0.0}, {0.0, kNaN}, {inf, 0.0}, {0.0, inf}, {0.0, -inf}}) {
        EXPECT_FALSE(HeightOf(*geoid, latitude, longitude)) << latitude << " " << longitude;
    }
}

TEST(PgmGeoid, HasHeightsAndNoShifts)
{
    CString reason;
    const auto geoid = PgmGeoid::Load(AsGrid(Synthetic().Bytes(Pixel)), reason);
    ASSERT_TRUE(geoid);
    EXPECT_TRUE(geoid->HasHeights());
    EXPECT_FALSE(geoid->HasGeoShifts());
    EXPECT_FALSE(geoid->HasGridShifts());
    EXPECT_FALSE(geoid->GeoShiftAt(1.0, 2.0, false));
    EXPECT_FALSE(geoid->GridShiftAt(1.0, 2.0, false));
    const GridDescription description = geoid->Describe();
    EXPECT_EQ(description.format, L"PGM");
    ASSERT_EQ(description.parts.size(), 1u);
    EXPECT_EQ(description.parts[0].rows, 13u);
    EXPECT_EQ(description.parts[0].columns, 24u);
    EXPECT_EQ(description.parts[0].stepNorth, 15.0);
    EXPECT_EQ(description.parts[0].stepEast, 15.0);
    EXPECT_EQ(description.parts[0].east, 345.0);
}

TEST(PgmGeoid, RefusesABrokenHeaderWithItsReason)
{
    const std::string good = Synthetic().Bytes(Pixel);
    const auto replaced = [&good](const std::string& from, const std::string& to) {
        std::string bytes = good;
        const auto at = bytes.find(from);
        EXPECT_NE(at, std::string::npos) << from;
        return bytes.replace(at, from.size(), to);
    };
    struct Row {
        const char* what;
        std::string bytes;
        const wchar_t* reason;
    };
    const std::vector<Row> rows = {
        {"nothing", "", L"first line is not P5"},
        {"the mark alone", "P5", L"no size"},
        {"another image", replaced("P5", "P6"), L"first line is not P5"},
        {"cut in the comments", good.substr(0, 40), L"no size"},
        {"no offset", replaced("# Offset -108\n", ""), L"Offset and Scale"},
        {"no scale", replaced("# Scale 0.003\n", ""), L"Offset and Scale"},
        {"offset no number", replaced("Offset -108", "Offset -1x8"), L"Offset is no number"},
        {"offset infinite", replaced("Offset -108", "Offset inf"), L"Offset is no number"},
        {"scale nought", replaced("Scale 0.003", "Scale 0"), L"Scale is no number above 0"},
        {"scale negative", replaced("Scale 0.003", "Scale -1"), L"Scale is no number above 0"},
        {"scale far too large", replaced("Scale 0.003", "Scale 1e300"), L"no heights of a geoid"},
        {"offset far too large", replaced("Offset -108", "Offset -1e300"), L"no heights of a geoid"},
        {"another origin", replaced("90N 0E", "90N 180W"), L"Origin"},
        {"areas", replaced("AreaOrPoint Point", "AreaOrPoint Area"), L"areas"},
        {"width odd", replaced("24 13", "25 13"), L"from pole to pole"},
        {"height even", replaced("24 13", "24 12"), L"from pole to pole"},
        {"width nought", replaced("24 13", "0 13"), L"no size"},
        {"height negative", replaced("24 13", "24 -13"), L"no size"},
        {"height missing", replaced("24 13", "24 "), L"not of 16 bits"},
        {"size too large for its product", replaced("24 13", "9223372036854775806 9223372036854775807"), L"no size"},
        {"lying size", replaced("24 13", "16777216 16777215"), L"shorter"},
        {"eight bits", replaced("65535", "255"), L"not of 16 bits"},
        {"ends with its header", good.substr(0, good.find("65535") + 5), L"ends with its header"},
        {"a pixel too few", good.substr(0, good.size() - 2), L"shorter"},
        {"a byte too few", good.substr(0, good.size() - 1), L"shorter"},
        {"a byte too many", good + "x", L"longer"}};
    for (const Row& row : rows) {
        EXPECT_GE(ReasonOf(row.bytes).Find(row.reason), 0) << row.what << ": " << ReasonOf(row.bytes).ToUtf8();
    }
}
