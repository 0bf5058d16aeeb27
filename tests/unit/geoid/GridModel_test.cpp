#include "base/geoid/GridModel.h"

#include <gtest/gtest.h>

#include <sstream>
#include <thread>

#include "base/geoid/GeoidModelList.h"
#include "base/keys/KeyTables.h"
#include "base/registry/DataSearch.h"
#include "tests/support/AllocationCount.h"
#include "tests/support/GridFiles.h"
#include "tests/support/TempDirectory.h"

namespace {

constexpr unsigned short kEgm96 = 7;

// One file of every format, which cover the same ground: 50 to 51 N, 4 to 6 E, and 0 to 2 km.
class GridModelTest : public testing::Test {
protected:
    GridModelTest()
    {
        GtxFile gtx;
        gtx.rows = 3;
        gtx.columns = 5;
        m_directory.Write("heights.gtx", gtx.Bytes([](int row, int column) { return 40.0 + row + 0.5 * column; }));
        Ntv2SubGrid grid;
        grid.south = 50.0 * 3600;
        grid.east = -6.0 * 3600;
        grid.columns = 3;
        grid.north = [](int row, int column) { return 36.0 + row + column; };
        grid.west = [](int row, int) { return -18.0 + row; };
        Ntv2File ntv2;
        ntv2.grids = {grid};
        m_directory.Write("shifts.gsb", ntv2.Bytes());
        m_directory.Write("world.pgm", PgmFile().Bytes([](int row, int column) { return 36000 + row + column; }));
        m_directory.Write("british.txt", BritishFile().Text([](int row, int column) {
            return BritishFile::Node{90.0 + 0.25 * column, -70.0 - 0.5 * row, 50.0 + 0.25 * row};
        }));
        m_directory.Write("broken.gtx", gtx.Bytes(Constant(1.0)) + "x");
    }

    CString File(const char* name) const { return m_directory.File(name); }

    const TempDirectory m_directory;
};

} // namespace

TEST_F(GridModelTest, EveryTypeReadsEveryFormat)
{
    struct Row {
        const char* file;
        bool height, geoShift, gridShift;
    };
    for (unsigned short type = GeoidType::firstModel; type <= GeoidType::lastModel; ++type) {
        for (const Row& row : {Row{"heights.gtx", true, false, false}, Row{"shifts.gsb", false, true, false},
                               Row{"world.pgm", true, false, false}, Row{"british.txt", true, false, true}}) {
            const std::unique_ptr<GeoidModel> model(GeoidModelList::GetGeoidModelList().Create(type));
            ASSERT_TRUE(model->InitModel(nullptr));
            ASSERT_TRUE(model->SetModelFile(File(row.file)));
            EXPECT_EQ(model->GetModelFile(), File(row.file));
            double a = -1.0;
            double b = -2.0;
            CString message;
            EXPECT_EQ(model->CalGeoidHeight(50.5, 5.0, 500.0, 500.0, a, message), row.height) << row.file;
            EXPECT_EQ(a == -1.0, !row.height) << "untouched when refused";
            for (const bool inverse : {false, true}) {
                a = -1.0;
                EXPECT_EQ(model->CalGeoShift(50.5, 5.0, a, b, inverse), row.geoShift) << row.file;
                EXPECT_EQ(a == -1.0 && b == -2.0, !row.geoShift);
                b = -2.0;
                a = -1.0;
                EXPECT_EQ(model->CalGridShift(500.0, 500.0, a, b, inverse), row.gridShift) << row.file;
                EXPECT_EQ(a == -1.0 && b == -2.0, !row.gridShift);
                b = -2.0;
            }
        }
    }
}

TEST_F(GridModelTest, AnswersInDegreesAndMetres)
{
    GridModel model(kEgm96);
    ASSERT_TRUE(model.SetModelFile(File("heights.gtx")));
    double height = 0.0;
    CString message;
    ASSERT_TRUE(model.CalGeoidHeight(50.5, 5.0, 0.0, 0.0, height, message));
    EXPECT_NEAR(height, 42.0, 1e-12); // second row, third column
    EXPECT_TRUE(message.IsEmpty());
    ASSERT_TRUE(model.SetModelFile(File("shifts.gsb")));
    double first = 0.0;
    double second = 0.0;
    ASSERT_TRUE(model.CalGeoShift(50.0, 5.0, first, second, false));
    EXPECT_NEAR(first, 37.0 / 3600, 1e-12); // second column from the east
    EXPECT_NEAR(second, 18.0 / 3600, 1e-12);
    double back1 = 0.0;
    double back2 = 0.0;
    ASSERT_TRUE(model.CalGeoShift(50.5, 5.0, first, second, false));
    ASSERT_TRUE(model.CalGeoShift(50.5 + first, 5.0 + second, back1, back2, true));
    EXPECT_NEAR(back1, first, 9e-11);
    EXPECT_NEAR(back2, second, 9e-11);
    ASSERT_TRUE(model.SetModelFile(File("british.txt")));
    ASSERT_TRUE(model.CalGridShift(1000.0, 1000.0, first, second, false));
    EXPECT_NEAR(first, 90.25, 1e-9);
    EXPECT_NEAR(second, -70.5, 1e-9);
    ASSERT_TRUE(model.CalGeoidHeight(0.0, 0.0, 1000.0, 1000.0, height, message));
    EXPECT_NEAR(height, 50.25, 1e-9);
}

TEST_F(GridModelTest, AFileThatIsRefusedLeavesNoGridAndAReason)
{
    GridModel model(kEgm96);
    EXPECT_TRUE(model.Reason().IsEmpty());
    EXPECT_EQ(model.Grid(), nullptr);
    for (const auto& [file, reason] : std::vector<std::pair<CString, const wchar_t*>>{
             {File("none.gtx"), L"no such file"}, {File("broken.gtx"), L"longer"}, {CString(), L"no file is named"}}) {
        ASSERT_TRUE(model.SetModelFile(File("heights.gtx")));
        EXPECT_TRUE(model.Reason().IsEmpty());
        EXPECT_FALSE(model.SetModelFile(file));
        EXPECT_GE(model.Reason().Find(reason), 0) << model.Reason().ToUtf8();
        EXPECT_EQ(model.Grid(), nullptr);
        EXPECT_TRUE(model.GetModelFile().IsEmpty());
        double height = -1.0;
        CString message;
        EXPECT_FALSE(model.CalGeoidHeight(50.5, 5.0, 0.0, 0.0, height, message))
            << "the earlier grid is no longer asked";
        EXPECT_EQ(height, -1.0);
        EXPECT_FALSE(model.CalGeoShift(50.5, 5.0, height, height, false));
        EXPECT_FALSE(model.CalGridShift(50.5, 5.0, height, height, false));
    }
}

TEST_F(GridModelTest, ABareNameIsLookedForInTheDataDirectories)
{
    DataSearch& search = DataSearch::GetDataSearch();
    search.SetDataPath(DataSearch::userDatabase, m_directory.File("user"));
    search.SetDataPath(DataSearch::deliveredDatabase, m_directory.Directory());
    GridModel model(kEgm96);
    EXPECT_TRUE(model.SetModelFile(L"heights.gtx"));
    EXPECT_EQ(model.GetModelFile(), File("heights.gtx"));
    m_directory.Write("user/heights.gtx", m_directory.Read("heights.gtx"));
    EXPECT_TRUE(model.SetModelFile(L"heights.gtx"));
    EXPECT_EQ(model.GetModelFile(), File("user/heights.gtx")) << "the user's goes first";
    EXPECT_FALSE(model.SetModelFile(L"elsewhere/heights.gtx"));
    search.Reset();
}

TEST_F(GridModelTest, DumpsNameFileFormatAndChartDatum)
{
    GridModel model(kEgm96);
    std::wostringstream bare;
    model.DumpXml(bare, L"  ");
    EXPECT_EQ(CString(bare.str()), L"  <geoidmodel>\n    <name>EGM96</name>\n  </geoidmodel>\n");
    const CString file = m_directory.Write("a & b.gtx", m_directory.Read("heights.gtx"));
    ASSERT_TRUE(model.SetModelFile(file));
    model.SetChartDatum(L"<LAT>");
    std::wostringstream whole;
    model.DumpXml(whole, L"");
    EXPECT_EQ(CString(whole.str()), L"<geoidmodel>\n  <name>EGM96</name>\n  <filename>" + m_directory.Directory() +
                                        L"a &amp; b.gtx</filename>\n  <format>GTX</format>\n  "
                                        L"<chartdatum>&lt;LAT&gt;</chartdatum>\n</geoidmodel>\n");
}

#if !defined(_WIN32)
TEST_F(GridModelTest, CalculationsAllocateNothing)
{
    for (const char* file : {"heights.gtx", "shifts.gsb", "world.pgm", "british.txt"}) {
        GridModel model(kEgm96);
        ASSERT_TRUE(model.SetModelFile(File(file)));
        double a = 0.0;
        double b = 0.0;
        CString message;
        const long before = AllocationCount();
        // Inside, outside, and where no format has anything.
        for (const double place : {50.5, 0.5, 999.0, 1e30}) {
            model.CalGeoidHeight(place, 5.0, place, place, a, message);
            for (const bool inverse : {false, true}) {
                model.CalGeoShift(place, 5.0, a, b, inverse);
                model.CalGridShift(place, place, a, b, inverse);
            }
        }
        EXPECT_EQ(AllocationCount(), before) << file;
    }
}
#endif

TEST_F(GridModelTest, ServesSeveralThreads)
{
    for (const char* file : {"heights.gtx", "shifts.gsb", "world.pgm", "british.txt"}) {
        GridModel model(kEgm96);
        ASSERT_TRUE(model.SetModelFile(File(file)));
        const auto sumOf = [&model] {
            double sum = 0.0;
            CString message;
            for (int i = 0; i < 1000; ++i) {
                double a = 0.0;
                double b = 0.0;
                model.CalGeoidHeight(50.0 + i * 0.001, 4.0 + i * 0.002, i, i, a, message);
                sum += a;
                if (model.CalGeoShift(50.0 + i * 0.001, 4.0 + i * 0.002, a, b, true) ||
                    model.CalGridShift(i, i, a, b, true)) {
                    sum += a + b;
                }
            }
            return sum;
        };
        const double alone = sumOf();
        std::vector<double> sums(4);
        std::vector<std::thread> threads;
        for (double& sum : sums) {
            threads.emplace_back([&sum, &sumOf] { sum = sumOf(); });
        }
        for (std::thread& thread : threads) {
            thread.join();
        }
        for (const double sum : sums) {
            EXPECT_EQ(sum, alone);
        }
    }
}
