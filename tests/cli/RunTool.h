#pragma once

#include <string>
#include <vector>

/// What a run of the program left.
struct ToolRun {
    int status = -1; ///< exit status; minus the signal when one ended it
    std::string out;
    std::string err;
    long residentKiB = 0; ///< the most memory that it held
};

/// How its streams are set up.
struct ToolStreams {
    std::string input;     ///< standard input
    std::string inputFile; ///< standard input comes from this file instead
    enum class Out { captured, closed, brokenPipe, file } out = Out::captured;
    std::string outFile; ///< for Out::file
    /// The program runs on a terminal, where `input` is typed; `out` is then all that it shows.
    bool terminal = false;
};

/// Runs the built program and waits for it.
ToolRun RunTool(const std::vector<std::string>& arguments, const ToolStreams& streams = {});
