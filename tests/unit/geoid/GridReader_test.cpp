#include "base/geoid/GridReader.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "base/geoid/GridFile.h"
#include "tests/support/GridFiles.h"
#include "tests/support/TempDirectory.h"

namespace {

std::string GtxBytes()
{
    return GtxFile().Bytes(Constant(40.0));
}

std::string Ntv2Bytes(ByteOrder order)
{
    Ntv2SubGrid grid;
    grid.north = Constant(1.0);
    grid.west = Constant(1.0);
    Ntv2File file;
    file.order = order;
    file.grids = {grid};
    return file.Bytes();
}

std::string PgmBytes()
{
    return PgmFile().Bytes([](int, int) { return 36000; });
}

std::string BritishText()
{
    return BritishFile().Text([](int, int) { return BritishFile::Node{90.0, -70.0, 50.0}; });
}

} // namespace

TEST(GridReader, TheContentsChooseTheFormatWhateverTheFileIsCalled)
{
    struct Row {
        std::string bytes;
        const wchar_t* format;
    };
    const TempDirectory directory;
    for (const Row& row :
         {Row{GtxBytes(), L"GTX"}, Row{Ntv2Bytes(ByteOrder::little), L"NTv2"}, Row{Ntv2Bytes(ByteOrder::big), L"NTv2"},
          Row{PgmBytes(), L"PGM"}, Row{BritishText(), L"British text grid"},
          Row{"Point,E,N,dE,dN,H,Flag\r\n" + BritishText(), L"British text grid"}}) {
        for (const char* name : {"grid.gtx", "grid.gsb", "grid.pgm", "grid.txt", "grid"}) {
            CString reason;
            const auto grid = OpenGrid(directory.Write(name, row.bytes), reason);
            ASSERT_TRUE(grid) << name << ": " << reason.ToUtf8();
            EXPECT_EQ(grid->Describe().format, row.format);
        }
    }
}

TEST(GridReader, RefusalsSayAsWhatTheFileWasReadAndWhatIsWrong)
{
    struct Row {
        std::string bytes;
        const wchar_t* reason;
    };
    const TempDirectory directory;
    for (const Row& row :
         {Row{"", L"it is empty"}, Row{"a short text", L"as a British text grid, as which any text is read: line 1: "},
          Row{GtxBytes() + "x", L"no mark of NTv2 or PGM: it is longer than"}, Row{"II*\1\2\3\4", L"as a GTX grid"},
          Row{Ntv2Bytes(ByteOrder::little).substr(0, 200), L"as an NTv2 grid: it ends before"},
          Row{PgmBytes() + "x", L"as a PGM geoid: it is longer than"}, Row{"P5", L"as a British text grid"}}) {
        CString reason;
        EXPECT_FALSE(OpenGrid(directory.Write("grid", row.bytes), reason));
        EXPECT_GE(reason.Find(row.reason), 0) << reason.ToUtf8();
    }
}

TEST(GridReader, AFileThatCannotBeReadIsRefusedWithItsReason)
{
    const TempDirectory directory;
    CString reason;
    EXPECT_FALSE(OpenGrid(directory.File("none.gtx"), reason));
    EXPECT_GE(reason.Find(L"no such file"), 0) << reason.ToUtf8();
    EXPECT_FALSE(OpenGrid(directory.Directory(), reason));
    EXPECT_GE(reason.Find(L"directory"), 0) << reason.ToUtf8();
}

TEST(GridReader, EveryBeginningOfAGridIsRefusedAndNotReadPastItsEnd)
{
    // Copied to memory of just that size, so that a sanitizer sees a step beyond.
    for (const std::string& whole : {GtxBytes(), Ntv2Bytes(ByteOrder::little), Ntv2Bytes(ByteOrder::big), PgmBytes()}) {
        for (std::size_t size = 0; size < whole.size(); ++size) {
            CString reason;
            const auto grid = ReadGrid(AsGrid(whole.substr(0, size)), reason);
            // An NTv2 file that lacks its end record is whole, and so is one with a piece of it.
            if (!grid) {
                EXPECT_FALSE(reason.IsEmpty()) << size;
            } else {
                EXPECT_EQ(grid->Describe().format, L"NTv2") << size;
                EXPECT_GE(size, whole.size() - 16) << size;
            }
        }
    }
}

TEST(GridReader, AGridInMemoryOutlivesItsFile)
{
    const TempDirectory directory;
    CString reason;
    const auto grid = OpenGrid(directory.Write("grid.gtx", GtxBytes()), reason);
    ASSERT_TRUE(grid);
    directory.Write("grid.gtx", "cut");
    EXPECT_EQ(grid->HeightAt({50.25, 4.25, 0.0, 0.0}).value(), 40.0);
}

// Larger than what is read whole: mapped. Sparse, so that it takes no disk.
TEST(GridReader, ALargeGridIsMappedAndReadAtItsEnds)
{
    const TempDirectory directory;
    GtxFile file;
    file.south = -90.0;
    file.west = 0.0;
    file.rows = 4321;
    file.columns = 8640;
    file.latitudeStep = 180.0 / (file.rows - 1);
    file.longitudeStep = 360.0 / file.columns;
    GtxFile none = file;
    none.rows = 0;
    std::string header = none.Bytes(Constant(0.0));
    ReplaceNumber(header, 32, std::int32_t{4321}, ByteOrder::big);
    directory.Write("large.gtx", header);
    const auto path = directory.Path() / "large.gtx";
    const std::uintmax_t size = 40 + 4ULL * 4321 * 8640;
    std::filesystem::resize_file(path, size);
    std::string node;
    AppendNumber(node, 12.5F, ByteOrder::big);
    {
        std::fstream last(path, std::ios::in | std::ios::out | std::ios::binary);
        last.seekp(static_cast<std::streamoff>(size - 4));
        last << node;
    }
    CString reason;
    auto grid = OpenGrid(directory.File("large.gtx"), reason);
    ASSERT_TRUE(grid) << reason.ToUtf8();
    EXPECT_EQ(grid->HeightAt({90.0, 360.0 - file.longitudeStep, 0.0, 0.0}).value(), 12.5);
    EXPECT_EQ(grid->HeightAt({-90.0, 0.0, 0.0, 0.0}).value(), 0.0);
#if !defined(_WIN32)
    std::filesystem::remove(path); // the bytes stay
    EXPECT_EQ(grid->HeightAt({90.0, 360.0 - file.longitudeStep, 0.0, 0.0}).value(), 12.5);
#endif
    grid.reset();
    directory.Write("large.gtx", header);
    std::filesystem::resize_file(path, size - 1);
    EXPECT_FALSE(OpenGrid(directory.File("large.gtx"), reason));
    EXPECT_GE(reason.Find(L"shorter"), 0) << reason.ToUtf8();
}
