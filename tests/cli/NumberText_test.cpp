#include "convert/NumberText.h"

#include <cmath>
#include <string>

#include <gtest/gtest.h>

namespace {

struct AngleRow {
    const char* text;
    AngleKind kind;
    double degrees;
};

constexpr AngleKind kLat = AngleKind::latitude;
constexpr AngleKind kLon = AngleKind::longitude;

// 52 9 22.178 is 52 + 9/60 + 22.178/3600 = 52.156160555...; 5 23 15.5 is 5.387638888...
constexpr double kNorth = 52.15616055555556;
constexpr double kEast = 5.387638888888889;

constexpr AngleRow kAngles[] = {{"52.156161", kLat, 52.156161},
                                {"-52.5", kLat, -52.5},
                                {"+52.5", kLat, 52.5},
                                {"5e1", kLat, 50.0},
                                {"52.5N", kLat, 52.5},
                                {"52.5S", kLat, -52.5},
                                {"52.5 s", kLat, -52.5},
                                {"S52.5", kLat, -52.5},
                                {"w 5.25", kLon, -5.25},
                                {"52.5\xC2\xB0", kLat, 52.5},
                                {"52\xC2\xB0"
                                 "09'22.178\"N",
                                 kLat, kNorth},
                                {"52\xC2\xB0 09' 22.178\" N", kLat, kNorth},
                                {"52\xC2\xB0"
                                 "09\xE2\x80\xB2"
                                 "22.178\xE2\x80\xB3N",
                                 kLat, kNorth},
                                {"52d09'22.178\"N", kLat, kNorth},
                                {"52d9'22.178''S", kLat, -kNorth},
                                {"52:09:22.178N", kLat, kNorth},
                                {"52:09:22.178", kLat, kNorth},
                                {"-52:09:22.178", kLat, -kNorth},
                                {"52 09 22.178N", kLat, kNorth},
                                {"N52 09 22.178", kLat, kNorth},
                                {"52-09-22.178N", kLat, kNorth},
                                {"N52 09.37", kLat, 52.0 + 9.37 / 60.0},
                                {"52d09.37'N", kLat, 52.0 + 9.37 / 60.0},
                                {"005\xC2\xB0"
                                 "23'15.5\"E",
                                 kLon, kEast},
                                {"5 23 15.5W", kLon, -kEast},
                                {"0 0 1S", kLat, -1.0 / 3600.0}};

struct BadRow {
    const char* text;
    AngleKind kind;
};
constexpr BadRow kNoAngles[] = {{"", kLat},          {"abc", kLat},          {"N", kLat},
                                {"52.5E", kLat},     {"5.5N", kLon},         {"-52.5S", kLat},
                                {"52:60:00N", kLat}, {"52:10:60N", kLat},    {"52.5:10N", kLat},
                                {"52:10.5:3", kLat}, {"52 10 20 30N", kLat}, {"52,5", kLat},
                                {"52.5x", kLat},     {"1e999", kLat},        {"nan", kLat},
                                {"inf", kLat},       {"0x1p3", kLat},        {"--5", kLat},
                                {"N52N", kLat},      {"52'N", kLat},         {"+-5", kLat}};

} // namespace

TEST(NumberText, ReadsAnglesInEverySpelling)
{
    for (const AngleRow& row : kAngles) {
        double degrees = std::nan("");
        EXPECT_EQ(ReadAngle(row.text, row.kind, degrees), nullptr) << row.text;
        EXPECT_NEAR(degrees, row.degrees, 1e-13) << row.text;
    }
}

TEST(NumberText, RefusesWhatIsNoAngleOfThatKind)
{
    for (const BadRow& row : kNoAngles) {
        double degrees = 0.0;
        EXPECT_NE(ReadAngle(row.text, row.kind, degrees), nullptr) << row.text;
    }
}

TEST(NumberText, ReadsWholeNumbersTextsOnly)
{
    double value = 0.0;
    EXPECT_EQ(ReadNumber("+463000.25", value), nullptr);
    EXPECT_EQ(value, 463000.25);
    for (const char* text : {"", "+", "1,5", "12m", " 1", "1 ", "inf", "nan", "1e400", "+-1", "1.2.3"}) {
        EXPECT_NE(ReadNumber(text, value), nullptr) << text;
    }
}

TEST(NumberText, ReadsTimes)
{
    double time = 0.0;
    // 2024-07-01 is 19905 days after 1970-01-01.
    EXPECT_EQ(ReadEpoch("2024-07-01", time), nullptr);
    EXPECT_EQ(time, 19905.0 * 86400e3);
    EXPECT_EQ(ReadEpoch("2024-07-01T12:30:15.5Z", time), nullptr);
    EXPECT_EQ(time, 19905.0 * 86400e3 + 45015.5e3);
    EXPECT_EQ(ReadEpoch("2024-07-01 06:00", time), nullptr);
    EXPECT_EQ(time, 19905.0 * 86400e3 + 21600e3);
    // Half a year of 365.25 days more than 54 of them.
    EXPECT_EQ(ReadEpoch("2024.5", time), nullptr);
    EXPECT_NEAR(time, 54.5 * 365.25 * 86400e3, 1.0);
    EXPECT_NEAR(DecimalYear(time), 2024.5, 1e-12);
}

TEST(NumberText, ATimeIsNeverTheZeroThatMeansNow)
{
    double time = 0.0;
    EXPECT_EQ(ReadEpoch("1970-01-01", time), nullptr);
    EXPECT_NE(time, 0.0);
    EXPECT_EQ(ReadEpoch("1970", time), nullptr);
    EXPECT_NE(time, 0.0);
}

TEST(NumberText, RefusesWhatIsNoTime)
{
    double time = 0.0;
    for (const char* text : {"", "tomorrow", "2024-13-01", "2024-02-30", "2024-07", "2024-07-01T", "2024-07-01T25:00",
                             "2024-07-01T12:0x", "1719835200000", "1899.9", "2200", "24.5", "nan"}) {
        EXPECT_NE(ReadEpoch(text, time), nullptr) << text;
    }
}
