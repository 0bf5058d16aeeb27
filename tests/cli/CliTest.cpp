#include "CliTest.h"

#include <algorithm>
#include <filesystem>
#include <sstream>

CliTest::CliTest()
{
    std::filesystem::create_directories(Path("data"));
    std::filesystem::create_directories(Path("user"));
    WriteTestDatabase(Path("data"));
}

std::vector<std::string> CliTest::FilesIn(const std::string& directory) const
{
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(Path(directory))) {
        names.push_back(entry.path().filename().string());
    }
    std::sort(names.begin(), names.end());
    return names;
}

ToolRun CliTest::Run(std::vector<std::string> arguments, const ToolStreams& streams) const
{
    for (const std::string& argument : {std::string("--data"), Path("data"), std::string("--user"), Path("user")}) {
        arguments.push_back(argument);
    }
    return RunTool(arguments, streams);
}

ToolRun CliTest::ConvertFrom(const std::string& system, const std::string& from, const std::string& to,
                             const std::string& input, std::vector<std::string> more) const
{
    std::vector<std::string> arguments = {"convert", system, "--from", from, "--to", to};
    arguments.insert(arguments.end(), more.begin(), more.end());
    ToolStreams streams;
    streams.input = input;
    return Run(arguments, streams);
}

ToolRun CliTest::Convert(const std::string& system, const std::string& input, std::vector<std::string> more) const
{
    return ConvertFrom(system, "sat", "grid", input, std::move(more));
}

std::vector<double> CliTest::Numbers(const std::string& line)
{
    std::istringstream stream(line);
    std::vector<double> numbers;
    for (double number = 0.0; stream >> number;) {
        numbers.push_back(number);
    }
    return numbers;
}
