#include "RunTool.h"

#include <array>
#include <csignal>
#include <stdexcept>
#include <thread>

#include <fcntl.h>
#include <pty.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

struct Pipe {
    std::array<int, 2> ends{-1, -1};
    Pipe()
    {
        if (::pipe2(ends.data(), O_CLOEXEC) != 0) {
            throw std::runtime_error("no pipe");
        }
    }
    ~Pipe()
    {
        Close(0);
        Close(1);
    }
    Pipe(const Pipe&) = delete;
    Pipe& operator=(const Pipe&) = delete;
    void Close(std::size_t end)
    {
        if (ends[end] >= 0) {
            ::close(ends[end]);
        }
        ends[end] = -1;
    }
};

std::string ReadAll(int file)
{
    std::string text;
    std::array<char, 65536> buffer{};
    for (ssize_t count = 0; (count = ::read(file, buffer.data(), buffer.size())) > 0;) {
        text.append(buffer.data(), static_cast<std::size_t>(count));
    }
    return text;
}

void WriteAll(int file, const std::string& text)
{
    std::size_t done = 0;
    while (done < text.size()) {
        const ssize_t count = ::write(file, text.data() + done, text.size() - done);
        if (count <= 0) {
            return; // the program need not read everything
        }
        done += static_cast<std::size_t>(count);
    }
}

[[noreturn]] void Become(const std::vector<std::string>& arguments)
{
    std::vector<char*> argv;
    std::string program = ZORGEO_TOOL;
    argv.push_back(program.data());
    std::vector<std::string> copies = arguments;
    for (std::string& argument : copies) {
        argv.push_back(argument.data());
    }
    argv.push_back(nullptr);
    ::execv(argv[0], argv.data());
    ::_exit(127);
}

[[noreturn]] void BecomeTool(const std::vector<std::string>& arguments, const ToolStreams& streams, Pipe& in, Pipe& out,
                             Pipe& err)
{
    std::signal(SIGPIPE, SIG_DFL);
    const int input = streams.inputFile.empty() ? in.ends[0] : ::open(streams.inputFile.c_str(), O_RDONLY);
    ::dup2(input, 0);
    if (streams.out == ToolStreams::Out::closed) {
        ::close(1);
    } else if (streams.out == ToolStreams::Out::file) {
        ::dup2(::open(streams.outFile.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0666), 1);
    } else {
        ::dup2(out.ends[1], 1);
    }
    ::dup2(err.ends[1], 2);
    Become(arguments);
}

ToolRun Finish(pid_t child)
{
    ToolRun run;
    int status = 0;
    rusage usage = {};
    ::wait4(child, &status, 0, &usage);
    run.status = WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status);
    run.residentKiB = usage.ru_maxrss;
    return run;
}

/// On a pseudo terminal, which gives the input back as a terminal does.
ToolRun RunOnTerminal(const std::vector<std::string>& arguments, const std::string& input)
{
    int screen = -1;
    const pid_t child = ::forkpty(&screen, nullptr, nullptr, nullptr);
    if (child == 0) {
        Become(arguments);
    }
    if (child < 0) {
        throw std::runtime_error("no terminal");
    }
    WriteAll(screen, input);
    const std::string shown = ReadAll(screen); // ends when the program closes its side
    ::close(screen);
    ToolRun run = Finish(child);
    run.out = shown;
    return run;
}

} // namespace

ToolRun RunTool(const std::vector<std::string>& arguments, const ToolStreams& streams)
{
    std::signal(SIGPIPE, SIG_IGN);
    if (streams.terminal) {
        return RunOnTerminal(arguments, streams.input);
    }
    Pipe in;
    Pipe out;
    Pipe err;
    const pid_t child = ::fork();
    if (child == 0) {
        BecomeTool(arguments, streams, in, out, err);
    }
    in.Close(0);
    out.Close(1);
    err.Close(1);
    if (streams.out == ToolStreams::Out::brokenPipe) {
        out.Close(0);
    }
    ToolRun run;
    {
        const std::jthread writer([&] {
            WriteAll(in.ends[1], streams.input);
            in.Close(1);
        });
        const std::jthread errReader([&] { run.err = ReadAll(err.ends[0]); });
        run.out = out.ends[0] >= 0 ? ReadAll(out.ends[0]) : std::string();
    }
    const ToolRun ended = Finish(child);
    run.status = ended.status;
    run.residentKiB = ended.residentKiB;
    return run;
}
