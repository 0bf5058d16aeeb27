#include "convert/PlaceText.h"

#include <gtest/gtest.h>

namespace {

struct PlaceRow {
    const char* text;
    double latitude;
    double longitude;
};

constexpr PlaceRow kPlaces[] = {{"52.37,4.90", 52.37, 4.9},
                                {"-33.9, 18.4", -33.9, 18.4},
                                {"0,-180", 0.0, -180.0},
                                {"90,360", 90.0, 360.0},
                                {"52d22'12\"N,4d54'E", 52.37, 4.9},
                                {"S33:54,W070:30", -33.9, -70.5},
                                {" 52 22.2 N , 4 54 E ", 52.37, 4.9}};

struct FaultRow {
    const char* text;
    const char* fault;
};

constexpr FaultRow kFaults[] = {{"", "not two angles with a comma between them"},
                                {"52.37", "not two angles with a comma between them"},
                                {"52.37 4.90", "not two angles with a comma between them"},
                                {"52,37,4,90", "not two angles with a comma between them"},
                                {"52.37,", "no angle"},
                                {"north,east", "no angle"},
                                {"4.9E,52.37N", "a latitude with a letter of longitude"},
                                {"52.37N,4.9N", "a longitude with a letter of latitude"},
                                {"-52.37N,4.9", "an angle with both a sign and a hemisphere letter"},
                                {"52:60,4.9", "minutes of 60 or more"},
                                {"90.1,4.9", "latitude beyond 90 degrees"},
                                {"52.37,360.1", "longitude beyond 360 degrees"},
                                {"nan,4.9", "a number that is not finite"}};

} // namespace

TEST(PlaceText, ReadsDecimalAnglesAndPartsOfDegrees)
{
    for (const PlaceRow& row : kPlaces) {
        double latitude = -1.0;
        double longitude = -1.0;
        EXPECT_EQ(ReadPlace(row.text, latitude, longitude), nullptr) << row.text;
        EXPECT_NEAR(latitude, row.latitude, 1e-12) << row.text;
        EXPECT_NEAR(longitude, row.longitude, 1e-12) << row.text;
    }
}

TEST(PlaceText, TellsWhatIsWrongAndLeavesTheOutputs)
{
    for (const FaultRow& row : kFaults) {
        double latitude = -1.0;
        double longitude = -2.0;
        EXPECT_STREQ(ReadPlace(row.text, latitude, longitude), row.fault) << row.text;
        EXPECT_EQ(latitude, -1.0) << row.text;
        EXPECT_EQ(longitude, -2.0) << row.text;
    }
}
