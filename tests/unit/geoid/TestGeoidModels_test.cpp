#include "tests/support/TestGeoidModels.h"

#include <gtest/gtest.h>

#include <limits>
#include <sstream>

// The models that other tests lean on.

TEST(TestGeoidModel, GivesAConstantHeightAndNoShift)
{
    const TestGeoidSettings settings = ConstantGeoid(43.5);
    const TestGeoidModel model(settings);
    double height = 0.0;
    CString message;
    EXPECT_TRUE(model.CalGeoidHeight(52.0, 5.0, 1.0, 2.0, height, message));
    EXPECT_EQ(height, 43.5);
    double d1 = 7.0;
    double d2 = 8.0;
    EXPECT_FALSE(model.CalGridShift(1.0, 2.0, d1, d2, false));
    EXPECT_FALSE(model.CalGeoShift(1.0, 2.0, d1, d2, false));
    EXPECT_EQ(d1, 7.0);
    EXPECT_EQ(d2, 8.0);
    ASSERT_EQ(settings.calls->heights.size(), 1u);
    EXPECT_EQ(settings.calls->heights[0].northing, 2.0);
}

TEST(TestGeoidModel, GridIsBilinearAndRefusesOutside)
{
    TestHeightGrid grid;
    grid.south = 50.0;
    grid.west = 4.0;
    grid.step = 0.5;
    grid.rows = 2;
    grid.columns = 3;
    grid.heights = {10.0, 20.0, 40.0, 30.0, 50.0, 60.0};
    double height = -1.0;
    // Nodes, the middle of an edge and of a cell, by hand.
    EXPECT_TRUE(grid.HeightAt(50.0, 4.0, height));
    EXPECT_EQ(height, 10.0);
    EXPECT_TRUE(grid.HeightAt(50.5, 5.0, height));
    EXPECT_EQ(height, 60.0);
    EXPECT_TRUE(grid.HeightAt(50.0, 4.75, height));
    EXPECT_EQ(height, 30.0);
    EXPECT_TRUE(grid.HeightAt(50.25, 4.25, height));
    EXPECT_EQ(height, 27.5);
    height = -1.0;
    EXPECT_FALSE(grid.HeightAt(49.999, 4.5, height));
    EXPECT_FALSE(grid.HeightAt(50.25, 5.001, height));
    EXPECT_FALSE(grid.HeightAt(std::numeric_limits<double>::quiet_NaN(), 4.5, height));
    EXPECT_EQ(height, -1.0);
}

TEST(TestGeoidModel, ShiftsByTheRuleGivenAndRecordsTheCalls)
{
    TestGeoidSettings settings;
    settings.gridShift = LinearShift(1.0, 0.5, 2.0, 0.25);
    settings.geoShift = ConstantShift(0.1, 0.2);
    const TestGeoidModel model(settings);
    double d1 = 0.0;
    double d2 = 0.0;
    EXPECT_TRUE(model.CalGridShift(10.0, 20.0, d1, d2, true));
    EXPECT_EQ(d1, 6.0);
    EXPECT_EQ(d2, 7.0);
    EXPECT_TRUE(model.CalGeoShift(10.0, 20.0, d1, d2, false));
    EXPECT_EQ(d1, 0.1);
    EXPECT_EQ(d2, 0.2);
    ASSERT_EQ(settings.calls->gridShifts.size(), 1u);
    EXPECT_TRUE(settings.calls->gridShifts[0].inverse);
    ASSERT_EQ(settings.calls->geoShifts.size(), 1u);
    EXPECT_FALSE(settings.calls->geoShifts[0].inverse);
}

TEST(TestGeoidModel, TakesAFileOrRefusesIt)
{
    TestGeoidSettings settings = ConstantGeoid(1.0);
    TestGeoidModel willing(settings);
    EXPECT_TRUE(willing.SetModelFile(L"a.gtx"));
    EXPECT_EQ(willing.GetModelFile(), L"a.gtx");
    std::wostringstream xml;
    willing.DumpXml(xml, L"  ");
    EXPECT_EQ(CString(xml.str()), L"  <testgeoid>a.gtx</testgeoid>\n");

    settings.acceptsFile = false;
    TestGeoidModel unwilling(settings);
    EXPECT_FALSE(unwilling.SetModelFile(L"b.gtx"));
    EXPECT_TRUE(unwilling.GetModelFile().IsEmpty());
    EXPECT_EQ(settings.calls->files.size(), 2u);
}
