#include "convert/Columns.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "ToolError.h"

namespace {

ColumnRequest Request(const std::string& list, Frame from = Frame::sat)
{
    ColumnRequest request;
    request.from = from;
    if (!list.empty()) {
        ReadColumnList(list, request);
    }
    return request;
}

struct DelimiterRow {
    const char* line;
    char delimiter;
    bool height;
};

} // namespace

TEST(Columns, DelimiterIsTheOneUnderWhichTheFirstLineReads)
{
    constexpr DelimiterRow kRows[] = {{"52.1 5.3", ' ', false},
                                      {"52.1\t5.3", '\t', false},
                                      {"  52.1   5.3\t7 ", ' ', true},
                                      {"52.1,5.3,7", ',', true},
                                      {"52.1;5.3;7", ';', true},
                                      {"52.1 5.3 7 depth, sand", ' ', true},
                                      {"52.1,5.3,P 7", ',', false},
                                      {"52 09 22N, 5 23 15E", ',', false},
                                      {"52.1, 5.3; 9", ';', false},
                                      {"oops,5", ',', false},
                                      {"oops", ' ', false}};
    for (const DelimiterRow& row : kRows) {
        const Layout layout = FindLayout(Request(""), row.line, "input");
        EXPECT_EQ(layout.delimiter, row.delimiter) << row.line;
        EXPECT_EQ(layout.hasHeight, row.height) << row.line;
    }
}

TEST(Columns, NumbersAndHeaderNamesFindTheirPlaces)
{
    const Layout byNumber = FindLayout(Request("lon=3,lat=5,t=1"), "2024.5,a,3.0,b,56.0", "input");
    EXPECT_EQ(byNumber.slots, (std::vector<signed char>{3, -1, 1, -1, 0}));
    EXPECT_EQ(byNumber.order, (std::vector<int>{1, 0}));
    EXPECT_TRUE(byNumber.hasTime);
    EXPECT_FALSE(byNumber.hasHeader);
    const Layout byName = FindLayout(Request("lat=Latitude,lon=longitude,h=3"), "LATITUDE;Longitude;z", "input");
    EXPECT_EQ(byName.slots, (std::vector<signed char>{0, 1, 2}));
    EXPECT_EQ(byName.delimiter, ';');
    EXPECT_TRUE(byName.hasHeader);
}

TEST(Columns, AHeaderWithoutTheNameIsRefused)
{
    try {
        FindLayout(Request("lat=Latitude,lon=Longitude"), "Lat,Lon", "in.csv");
        FAIL();
    } catch (const ToolError& error) {
        EXPECT_EQ(error.Status(), ExitStatus::usage);
        EXPECT_THAT(error.what(), testing::HasSubstr("in.csv: the header line has no column \"Latitude\""));
    }
}

TEST(Columns, ListsThatSayTooLittleOrTooMuchAreRefused)
{
    for (const char* list : {"lat=1", "lat=1,lon=1", "lat=0,lon=2", "lat=1,lon=2,E=3", "lat,lon", "lat=1,lat=2,lon=3",
                             "lat=,lon=2", "lat=1,lon=99999"}) {
        EXPECT_THROW(Request(list), ToolError) << list;
    }
    EXPECT_THROW(Request("X=1,Y=2", Frame::satXyz), ToolError);
    EXPECT_NO_THROW(Request("t=4"));
}

TEST(Columns, FieldsLeaveTheBlanksAroundThem)
{
    const Layout layout = FindLayout(Request("lat=1,lon=2"), "1,2", "input");
    const std::string line = "  52.1 ,\t5.3 , rest";
    std::array<Field, Slot::count> fields;
    SplitLine(layout, line.data(), line.data() + line.size(), fields);
    EXPECT_EQ(fields[0].Text(), "52.1");
    EXPECT_EQ(fields[1].Text(), "5.3");
    EXPECT_EQ(fields[2].begin, nullptr);
}
