#include "base/geoid/BritishTextGrid.h"

#include <gtest/gtest.h>

#include <limits>

#include "tests/support/GridFiles.h"

namespace {

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kTiny = 1e-9;
constexpr const char* kHeaderLine = "Point_ID,ETRS89_Easting,ETRS89_Northing,E_Shift,N_Shift,Height,Datum\n";

// Shifts of the size and slope of the national ones.
BritishFile::Node Sloping(int row, int column)
{
    return {90.0 + 0.25 * column + 0.125 * row, -70.0 - 0.5 * row + 0.0625 * column,
            50.0 + 0.25 * row - 0.125 * column};
}

BritishFile At651(int columns = 3, int rows = 2)
{
    BritishFile file;
    file.west = 651;
    file.south = 313;
    file.columns = columns;
    file.rows = rows;
    return file;
}

std::unique_ptr<BritishTextGrid> Load(const std::string& text)
{
    CString reason;
    auto grid = BritishTextGrid::Load(AsGrid(text), reason);
    EXPECT_TRUE(grid) << reason.ToUtf8();
    return grid;
}

std::optional<double> HeightOf(const BritishTextGrid& grid, double easting, double northing)
{
    return grid.HeightAt({0.0, 0.0, easting, northing});
}

} // namespace

TEST(BritishTextGrid, IsBilinearInTheKilometreInEveryFormOfTheFile)
{
    BritishFile crlf = At651();
    crlf.lineEnd = "\r\n";
    BritishFile header = At651();
    header.header = kHeaderLine;
    const std::string plain = At651().Text(Sloping);
    for (const std::string& text : {plain, plain.substr(0, plain.size() - 1), plain + "\n \r\n", crlf.Text(Sloping),
                                    header.Text(Sloping), "\xEF\xBB\xBF" + header.Text(Sloping)}) {
        const auto grid = Load(text);
        struct Row {
            double easting, northing, east, north, height;
        };
        // Nodes, the middle of an edge, of a cell, the last corner, by hand.
        for (const Row& row :
             {Row{651000.0, 313000.0, 90.0, -70.0, 50.0}, Row{652000.0, 313000.0, 90.25, -69.9375, 49.875},
              Row{651000.0, 314000.0, 90.125, -70.5, 50.25}, Row{653000.0, 314000.0, 90.625, -70.375, 50.0},
              Row{651500.0, 313000.0, 90.125, -69.96875, 49.9375},
              Row{652500.0, 313500.0, 90.4375, -70.15625, 49.9375}}) {
            const auto shift = grid->GridShiftAt(row.easting, row.northing, false);
            ASSERT_TRUE(shift) << row.easting << " " << row.northing;
            EXPECT_NEAR(shift->first, row.east, kTiny);
            EXPECT_NEAR(shift->second, row.north, kTiny);
            EXPECT_NEAR(HeightOf(*grid, row.easting, row.northing).value(), row.height, kTiny);
        }
    }
}

TEST(BritishTextGrid, InverseTakesTheShiftThatLedHere)
{
    const auto grid = Load(At651(6, 6).Text(Sloping));
    for (double easting = 651050.0; easting < 655800.0; easting += 137.0) {
        for (double northing = 313200.0; northing < 318000.0; northing += 151.0) {
            const auto out = grid->GridShiftAt(easting, northing, false);
            ASSERT_TRUE(out);
            const auto back = grid->GridShiftAt(easting + out->first, northing + out->second, true);
            ASSERT_TRUE(back) << easting << " " << northing;
            EXPECT_NEAR(easting + out->first - back->first, easting, 1e-5);
            EXPECT_NEAR(northing + out->second - back->second, northing, 1e-5);
        }
    }
}

TEST(BritishTextGrid, GivesNothingOutsideTheGridOrTheModel)
{
    const auto grid = Load(At651(4, 4).Text([](int row, int column) {
        if (row == 1 && column == 1) {
            return BritishFile::Node{0.0, 0.0, 0.0, 0};
        }
        if (row == 3 && column == 3) {
            return BritishFile::Node{0.0, 0.0, 0.0, 1}; // no flag says so, the values do
        }
        if (row == 3 && column == 0) {
            return BritishFile::Node{90.0, -70.0, 50.0, 0}; // the flag says so
        }
        return Sloping(row, column);
    }));
    struct Row {
        double easting, northing;
        bool given;
    };
    for (const Row& row :
         {Row{650999.99, 313500.0, false}, Row{654000.01, 313500.0, false}, Row{651500.0, 312999.99, false},
          Row{651500.0, 316000.01, false}, Row{kNaN, 313500.0, false}, Row{651500.0, kNaN, false},
          Row{652000.0, 314000.0, false}, Row{651500.0, 313500.0, false}, Row{652500.0, 314500.0, false},
          Row{651000.0, 313500.0, true}, // the edge of a cell whose other side is outside
          Row{652000.0, 313000.0, true}, Row{653500.0, 313500.0, true}, Row{653500.0, 315500.0, false},
          Row{651000.0, 316000.0, false}, Row{651500.0, 315500.0, false}, Row{653000.0, 315500.0, true}}) {
        EXPECT_EQ(grid->GridShiftAt(row.easting, row.northing, false).has_value(), row.given)
            << row.easting << " " << row.northing;
        EXPECT_EQ(HeightOf(*grid, row.easting, row.northing).has_value(), row.given)
            << row.easting << " " << row.northing;
    }
    EXPECT_FALSE(grid->GridShiftAt(651050.0, 313020.0, true)) << "it came from beyond the western edge";
}

TEST(BritishTextGrid, DescribesItself)
{
    const auto grid = Load(At651().Text(Sloping));
    EXPECT_TRUE(grid->HasHeights());
    EXPECT_TRUE(grid->HasGridShifts());
    EXPECT_FALSE(grid->HasGeoShifts());
    const GridDescription description = grid->Describe();
    EXPECT_FALSE(description.geographic);
    ASSERT_EQ(description.parts.size(), 1u);
    EXPECT_EQ(description.parts[0].west, 651000.0);
    EXPECT_EQ(description.parts[0].east, 653000.0);
    EXPECT_EQ(description.parts[0].north, 314000.0);
    EXPECT_EQ(description.parts[0].rows, 2u);
}

TEST(BritishTextGrid, RefusesABrokenTextWithLineAndReason)
{
    const std::string good = At651().Text(Sloping);
    const auto replaced = [&good](const std::string& from, const std::string& to) {
        std::string text = good;
        const auto at = text.find(from);
        EXPECT_NE(at, std::string::npos) << from;
        return text.replace(at, from.size(), to);
    };
    const auto lineEnd = good.find('\n');
    const auto lastLine = good.rfind('\n', good.size() - 2) + 1;
    struct Row {
        const char* what;
        std::string text;
        const wchar_t* reason;
    };
    const std::vector<Row> rows = {
        {"nothing", "", L"no node"},
        {"a header alone", kHeaderLine, L"no node"},
        {"words", "Dear all,\nhello\n", L"line 2: it is not seven numbers"},
        {"words without a comma", "hello\n", L"line 1: it is not seven numbers"},
        {"two headers", std::string(kHeaderLine) + kHeaderLine + good, L"line 2: it is not seven numbers"},
        {"a node too few", good.substr(0, lastLine), L"last row is cut short"},
        {"a line cut short", good.substr(0, good.size() - 4), L"line 6: it is not seven numbers"},
        {"six numbers", replaced(",1\n", "\n"), L"line 1: it is not seven numbers"},
        {"eight numbers", replaced(",1\n", ",1,1\n"), L"line 1: it is not seven numbers"},
        {"a decimal comma", replaced("90.250000", "90,250000"), L"line 2: it is not seven numbers"},
        {"NaN", replaced("90.250000", "nan"), L"line 2: it is not seven numbers"},
        {"infinity", replaced("90.250000", "inf"), L"line 2: it is not seven numbers"},
        {"a number of no place", replaced("90.250000", "1e300"), L"line 2: it is not seven numbers"},
        {"off the kilometre", replaced("1,651000,", "1,651001,"), L"line 1: its node does not lie on whole kilometres"},
        {"a node missing in the first row", replaced("2,652000,", "2,653000,"), L"line 2: its node is not the next"},
        {"a node missing later", good.substr(0, good.find("5,652000")) + good.substr(lastLine),
         L"line 5: its node is not the next"},
        {"a node twice", good.substr(0, lineEnd + 1) + good, L"line 2: its node is not the next"},
        {"from north to south", replaced("4,651000,314000", "4,651000,312000"), L"line 4: its node is not the next"}};
    for (const Row& row : rows) {
        CString reason;
        EXPECT_FALSE(BritishTextGrid::Load(AsGrid(row.text), reason)) << row.what;
        EXPECT_GE(reason.Find(row.reason), 0) << row.what << ": " << reason.ToUtf8();
    }
}
