#include <filesystem>
#include <fstream>

#include "CliTest.h"

using namespace test_names;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::UnorderedElementsAre;

class ConvertFiles : public CliTest {
protected:
    ToolRun RunFiles(const std::vector<std::string>& more, const ToolStreams& streams = {}) const
    {
        std::vector<std::string> arguments = {"convert", kPlain, "--from", "sat", "--to", "grid"};
        arguments.insert(arguments.end(), more.begin(), more.end());
        return Run(arguments, streams);
    }
};

TEST_F(ConvertFiles, SeveralInputsComeOneAfterTheOther)
{
    Write("a.txt", "0 3 a"); // no line end: the next input begins a line of its own
    Write("b.csv", "0,3,b\n");
    ToolStreams streams;
    streams.input = "0;3;c\n";
    const ToolRun run = RunFiles({Path("a.txt"), "-", Path("b.csv")}, streams);
    EXPECT_EQ(run.status, 0) << run.err;
    EXPECT_EQ(run.out, "500000.000 0.000 a\n500000.000;0.000;c\n500000.000,0.000,b\n");
}

TEST_F(ConvertFiles, MessagesNameTheInputAndItsLine)
{
    Write("a.txt", "0 3\nx 3\n");
    Write("b.txt", "0 3\n0 3\ny 3\n");
    const ToolRun run = RunFiles({Path("a.txt"), Path("b.txt")});
    EXPECT_EQ(run.status, 1);
    EXPECT_THAT(run.err,
                HasSubstr(Path("a.txt") + ":2: lat is no angle: x 3\n" + Path("b.txt") + ":3: lat is no angle: y 3\n"));
}

TEST_F(ConvertFiles, EveryInputHasItsOwnHeader)
{
    Write("a.csv", "la,lo\n0,3\n");
    Write("b.csv", "lo;la\n3;0\n");
    EXPECT_EQ(RunFiles({Path("a.csv"), Path("b.csv"), "--columns", "lat=la,lon=lo"}).out,
              "E,N\n500000.000,0.000\nE;N\n500000.000;0.000\n");
}

TEST_F(ConvertFiles, AMissingInputEndsBeforeAnythingIsWritten)
{
    Write("a.txt", "0 3\n");
    const ToolRun run = RunFiles({Path("a.txt"), Path("none.txt")});
    EXPECT_EQ(run.status, 4);
    EXPECT_EQ(run.out, "");
    EXPECT_THAT(run.err, HasSubstr(Path("none.txt") + ": No such file or directory"));
    const ToolRun directory = RunFiles({Path("data")});
    EXPECT_EQ(directory.status, 4);
    EXPECT_THAT(directory.err, HasSubstr("Is a directory"));
}

TEST_F(ConvertFiles, AnOutputFileAppearsWhole)
{
    Write("in.txt", "0 3\n");
    Write("out/old.txt", "old");
    const ToolRun run = RunFiles({Path("in.txt"), "-o", Path("out/new.txt")});
    EXPECT_EQ(run.status, 0) << run.err;
    EXPECT_EQ(run.out, "");
    EXPECT_EQ(Read("out/new.txt"), "500000.000 0.000\n");
    EXPECT_THAT(FilesIn("out"), ElementsAre("new.txt", "old.txt"));
    EXPECT_EQ(RunFiles({Path("in.txt"), "-o", Path("out/old.txt")}).status, 0);
    EXPECT_EQ(Read("out/old.txt"), "500000.000 0.000\n");
}

TEST_F(ConvertFiles, AnInputCanBeItsOwnOutput)
{
    Write("both.txt", "0 3\n");
    EXPECT_EQ(RunFiles({Path("both.txt"), "--output", Path("both.txt")}).status, 0);
    EXPECT_EQ(Read("both.txt"), "500000.000 0.000\n");
}

TEST_F(ConvertFiles, AFailedRunLeavesTheOldOutputAndNothingElse)
{
    Write("in.txt", "0 3\nx 3\n");
    Write("header.csv", "a,b\n");
    Write("out/old.txt", "old");
    EXPECT_EQ(RunFiles({Path("in.txt"), "--bad", "stop", "-o", Path("out/old.txt")}).status, 1);
    EXPECT_EQ(RunFiles({Path("header.csv"), "--columns", "lat=x,lon=y", "-o", Path("out/new.txt")}).status, 2);
    EXPECT_EQ(Read("out/old.txt"), "old");
    EXPECT_THAT(FilesIn("out"), ElementsAre("old.txt"));
}

TEST_F(ConvertFiles, AnOutputWithBadLinesIsWhole)
{
    Write("in.txt", "0 3\nx 3\n");
    EXPECT_EQ(RunFiles({Path("in.txt"), "-o", Path("out.txt")}).status, 1);
    EXPECT_EQ(Read("out.txt"), "500000.000 0.000\n* *\n");
}

TEST_F(ConvertFiles, AnOutputThatCannotBeMadeIsNamed)
{
    const ToolRun run = RunFiles({"-o", Path("none/out.txt")});
    EXPECT_EQ(run.status, 4);
    EXPECT_THAT(run.err, HasSubstr(Path("none/out.txt") + ": No such file or directory"));
    EXPECT_EQ(RunFiles({"-o", Path("data")}).status, 4);
}

TEST_F(ConvertFiles, ALinkToAnOutputStaysALink)
{
    Write("real.txt", "old");
    std::filesystem::create_symlink(Path("real.txt"), Path("link.txt"));
    Write("in.txt", "0 3\n");
    EXPECT_EQ(RunFiles({Path("in.txt"), "-o", Path("link.txt")}).status, 0);
    EXPECT_TRUE(std::filesystem::is_symlink(Path("link.txt")));
    EXPECT_EQ(Read("real.txt"), "500000.000 0.000\n");
}

TEST_F(ConvertFiles, AClosedOutputIsAnError)
{
    ToolStreams streams;
    streams.input = "0 3\n";
    streams.out = ToolStreams::Out::closed;
    const ToolRun run = RunFiles({}, streams);
    EXPECT_EQ(run.status, 4);
    EXPECT_THAT(run.err, HasSubstr("standard output is closed"));
}

TEST_F(ConvertFiles, AReaderThatWentAwayIsAnError)
{
    ToolStreams streams;
    for (int i = 0; i < 50000; ++i) {
        streams.input += "0 3\n";
    }
    streams.out = ToolStreams::Out::brokenPipe;
    const ToolRun run = RunFiles({}, streams);
    EXPECT_EQ(run.status, 4);
    EXPECT_THAT(run.err, HasSubstr("standard output: Broken pipe"));
}

TEST_F(ConvertFiles, AFullDiskIsAnError)
{
    if (!std::filesystem::exists("/dev/full")) {
        GTEST_SKIP() << "no /dev/full here";
    }
    ToolStreams streams;
    streams.input = "0 3\n";
    streams.out = ToolStreams::Out::file;
    streams.outFile = "/dev/full";
    EXPECT_EQ(RunFiles({}, streams).status, 4);
    streams.out = ToolStreams::Out::captured;
    const ToolRun device = RunFiles({"-o", "/dev/full"}, streams);
    EXPECT_EQ(device.status, 4);
    EXPECT_THAT(device.err, HasSubstr("/dev/full: No space left on device"));
}

TEST_F(ConvertFiles, MemoryDoesNotGrowWithTheInput)
{
    constexpr int kLines = 2000000;
    [[maybe_unused]] constexpr long kMostKiB = 32 * 1024;
    constexpr int kLinesAtOnce = 10000;
    std::string some;
    for (int i = 0; i < kLinesAtOnce; ++i) {
        some += "56.12345678 3.12345678 45.123\n";
    }
    {
        std::ofstream file(Path("long.txt"), std::ios::binary);
        for (int i = 0; i < kLines / kLinesAtOnce; ++i) {
            file << some;
        }
    }
    const ToolRun run = RunFiles({Path("long.txt"), "-o", Path("converted.txt")});
    EXPECT_EQ(run.status, 0) << run.err;
    EXPECT_EQ(std::filesystem::file_size(Path("converted.txt")),
              std::uintmax_t{kLines} * std::string("507673.951 6219930.123 45.123\n").size());
#if !defined(__SANITIZE_ADDRESS__) && !defined(__SANITIZE_THREAD__)
    EXPECT_LT(run.residentKiB, kMostKiB);
#endif
}
