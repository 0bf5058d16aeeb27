#include "SystemAreas.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "ToolError.h"
#include "tests/support/TempDirectory.h"

namespace {

class SystemAreasTest : public testing::Test {
protected:
    CString Directory() const { return CString::FromUtf8((m_directory.Path() / "").string()); }
    std::string File() const { return (m_directory.Path() / "zorgeosystems.tsv").string(); }
    SystemAreas Read(const std::string& text) const
    {
        m_directory.Write("zorgeosystems.tsv", text);
        return SystemAreas(Directory());
    }

    TempDirectory m_directory;
};

struct BoxRow {
    AreaBox box; // west, south, east, north
    double latitude;
    double longitude;
    bool holds;
};

constexpr AreaBox kHolland{3.2, 50.75, 7.22, 53.7};
constexpr AreaBox kFiji{176.81, -20.81, -178.15, -12.42}; // across 180 degrees
constexpr AreaBox kZone1{-180.0, 0.0, -174.0, 84.0};
constexpr AreaBox kRoss{150.0, -90.0, -150.0, -76.0}; // to the pole, across 180 degrees
constexpr AreaBox kWorld{-180.0, -80.0, 180.0, 84.0};
constexpr AreaBox kGreenwich{0.0, -1.0, 6.0, 1.0};

constexpr BoxRow kBoxes[] = {
    {kHolland, 52.37, 4.9, true},    {kHolland, 52.37, 364.9, true}, // a turn on
    {kHolland, 52.37, -355.1, true}, {kHolland, 50.75, 3.2, true},   // edges belong to it
    {kHolland, 53.7, 7.22, true},    {kHolland, 53.71, 5.0, false},  {kHolland, 52.0, 7.23, false},
    {kFiji, -17.8, 178.4, true},     {kFiji, -17.8, 180.0, true},    {kFiji, -17.8, -180.0, true},
    {kFiji, -17.8, -179.0, true},    {kFiji, -17.8, 181.0, true},    {kFiji, -17.8, -178.0, false},
    {kFiji, -17.8, 0.0, false},      {kZone1, 10.0, 180.0, true}, // the same meridian as -180
    {kZone1, 10.0, 179.9, false},    {kZone1, 10.0, 186.0, true},    {kRoss, -80.0, 180.0, true},
    {kRoss, -80.0, 0.0, false},      {kRoss, -90.0, 0.0, true}, // at the pole every longitude is the same place
    {kWorld, 0.0, 180.0, true},      {kWorld, 0.0, -360.0, true},    {kWorld, 85.0, 0.0, false},
    {kGreenwich, 0.0, 0.0, true},    {kGreenwich, 0.0, 360.0, true}};

struct FaultRow {
    const char* line;
    const char* fault;
};

constexpr FaultRow kFaults[] = {
    {"Grid\tGroup\t1\t0\t0\t1\t1", "not eight fields apart by tabs"},
    {"Grid\tGroup\t1\t0\t0\t1\t1\t\t", "not eight fields apart by tabs"},
    {"Grid", "not eight fields apart by tabs"},
    {"\tGroup\t1\t0\t0\t1\t1\t", "a system without a name"},
    {"Grid\t\t1\t0\t0\t1\t1\t", "a group without a name"},
    {"Grid\tGroup;\t1\t0\t0\t1\t1\t", "a group without a name"},
    {"Grid\tGroup\tx1\t0\t0\t1\t1\t", "the EPSG code is no whole number above 0"},
    {"Grid\tGroup\t-1\t0\t0\t1\t1\t", "the EPSG code is no whole number above 0"},
    {"Grid\tGroup\t99999999999\t0\t0\t1\t1\t", "the EPSG code is no whole number above 0"},
    {"Grid\tGroup\t1\t\t0\t1\t1\t", "an edge of the box is no latitude within 90 or longitude within 180 degrees"},
    {"Grid\tGroup\t1\t0\t0\t181\t1\t", "an edge of the box is no latitude within 90 or longitude within 180 degrees"},
    {"Grid\tGroup\t1\t0\t0\t1\t90.5\t", "an edge of the box is no latitude within 90 or longitude within 180 degrees"},
    {"Grid\tGroup\t1\t0\t1\t1\t0\t", "the south edge of the box is north of the north edge"},
    {"Grid\tGroup\t1\t0\t0\t1\t1\tgood", "the accuracy is no number of metres"},
    {"Grid\tGroup\t1\t0\t0\t1\t1\t-2", "the accuracy is no number of metres"},
    {"Good\tGroup\t8\t0\t0\t1\t1\t", "groups, code or accuracy differ from those of the same system above"},
    {"Good\tOther\t7\t0\t0\t1\t1\t", "groups, code or accuracy differ from those of the same system above"},
    {"Grid\tGroup\t7\t0\t0\t1\t1\t", "the EPSG code is that of another system above"}};

} // namespace

TEST(AreaBox, HoldsPlacesAcrossTheDateLineAndAtThePoles)
{
    for (const BoxRow& row : kBoxes) {
        EXPECT_EQ(row.box.Holds(row.latitude, row.longitude), row.holds)
            << row.box.west << " " << row.box.south << ": " << row.latitude << "," << row.longitude;
    }
}

// A hemisphere is half the sphere; a zone of 6 degrees from the equator to 30 north has
// 6 / 360 * sin(30) / 2 = 1 / 240 of it.
TEST(AreaBox, ExtentIsThePartOfTheSphere)
{
    EXPECT_NEAR((AreaBox{-180.0, 0.0, 180.0, 90.0}.Extent()), 0.5, 1e-15);
    EXPECT_NEAR((AreaBox{0.0, 0.0, 6.0, 30.0}.Extent()), 1.0 / 240.0, 1e-15);
    EXPECT_NEAR((AreaBox{177.0, 0.0, -177.0, 30.0}.Extent()), 1.0 / 240.0, 1e-15);
}

TEST_F(SystemAreasTest, ReadsNameGroupsCodeBoxesAccuracy)
{
    const SystemAreas areas = Read("# name\tgroups\n"
                                   "\n"
                                   "Harbour grid\tEurope;North Sea\t28992\t3.2\t50.75\t7.22\t53.7\t0.5\r\n"
                                   "Two seas\tWorld\t\t-10\t-5\t0\t5\t\n"
                                   "Two seas\tWorld\t\t100\t0\t110\t30\t");
    EXPECT_TRUE(areas.Faults().empty());
    ASSERT_EQ(areas.All().size(), 2U);
    const SystemArea& harbour = areas.All()[0];
    EXPECT_EQ(harbour.name, "Harbour grid");
    EXPECT_THAT(harbour.groups, testing::ElementsAre("Europe", "North Sea"));
    EXPECT_EQ(harbour.code, 28992);
    EXPECT_EQ(harbour.accuracy, 0.5);
    ASSERT_EQ(harbour.boxes.size(), 1U);
    EXPECT_EQ(harbour.boxes[0].west, 3.2);
    EXPECT_EQ(harbour.boxes[0].south, 50.75);
    EXPECT_EQ(harbour.boxes[0].east, 7.22);
    EXPECT_EQ(harbour.boxes[0].north, 53.7);
    const SystemArea& seas = areas.All()[1];
    EXPECT_FALSE(seas.code);
    EXPECT_FALSE(seas.accuracy);
    ASSERT_EQ(seas.boxes.size(), 2U);
    EXPECT_TRUE(seas.Holds(0.0, -5.0));
    EXPECT_TRUE(seas.Holds(10.0, 105.0));
    EXPECT_FALSE(seas.Holds(10.0, 50.0));
    EXPECT_NEAR(seas.Extent(), seas.boxes[0].Extent() + seas.boxes[1].Extent(), 1e-15);
    EXPECT_EQ(areas.OfCode(28992), &harbour);
    EXPECT_EQ(areas.OfCode(28991), nullptr);
}

TEST_F(SystemAreasTest, TellsBadLinesByFileAndLineAndReadsTheOthers)
{
    for (const FaultRow& row : kFaults) {
        const SystemAreas areas = Read(std::string("# a comment\nGood\tGroup\t7\t0\t0\t1\t1\t\n") + row.line +
                                       "\nLast\tGroup\t9\t0\t0\t1\t1\t\n");
        EXPECT_THAT(areas.Faults(), testing::ElementsAre(File() + ":3: " + row.fault)) << row.line;
        EXPECT_EQ(areas.All().size(), 2U) << row.line;
        EXPECT_NE(areas.OfCode(9), nullptr) << row.line;
    }
}

TEST_F(SystemAreasTest, AMissingTableIsNamedWithTheRemedy)
{
    try {
        const SystemAreas areas(Directory());
        FAIL() << "read a table that is not there";
    } catch (const ToolError& error) {
        EXPECT_EQ(error.Status(), ExitStatus::unusable);
        EXPECT_THAT(error.what(), testing::HasSubstr(File() + ": no such file; name the directory"));
    }
}

TEST_F(SystemAreasTest, TheDeliveredTableHasNoFaults)
{
    const SystemAreas areas(CString::FromUtf8(ZORGEO_DATA_DIR));
    EXPECT_THAT(areas.Faults(), testing::IsEmpty());
    ASSERT_NE(areas.OfCode(28992), nullptr);
    EXPECT_EQ(areas.OfCode(28992)->name, "Amersfoort - RD New"); // EPSG 28992 is "Amersfoort / RD New"
}

TEST_F(SystemAreasTest, TellsWhyASystemWasLeftOut)
{
    EXPECT_EQ(ReasonLeftOut(Directory(), 2065), ""); // no list
    m_directory.Write("left-out.tsv", "# EPSG code\tname\tmethod\treason\n"
                                      "20650\tFirst\tNone\tanother\n"
                                      "2065\tS-JTSK\tKrovak\tKrovak: no class for the method\n");
    EXPECT_EQ(ReasonLeftOut(Directory(), 2065), "Krovak: no class for the method");
    EXPECT_EQ(ReasonLeftOut(Directory(), 206), "");
}
