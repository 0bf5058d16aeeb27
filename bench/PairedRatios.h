#pragma once

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstdio>
#include <map>
#include <string>
#include <vector>

/// Prints what Google Benchmark prints, and behind it the ratio of each pair of roads named
/// "NAME/zorgeo" and "NAME/proj": how many times as fast ours is, from the medians of repetitions
/// that the run interleaves.
class PairedRatios : public benchmark::ConsoleReporter {
public:
    void ReportRuns(const std::vector<Run>& reports) override
    {
        ConsoleReporter::ReportRuns(reports);
        for (const Run& run : reports) {
            if (run.run_type == Run::RT_Iteration && !run.error_occurred) {
                m_times[run.run_name.function_name].push_back(run.GetAdjustedCPUTime());
            }
        }
    }

    void Finalize() override
    {
        std::printf("\n%-44s %12s %12s %14s\n", "road", "zorgeo ns", "PROJ ns", "times as fast");
        for (const auto& [name, times] : m_times) {
            const std::size_t slash = name.rfind("/zorgeo");
            if (slash == std::string::npos) {
                continue;
            }
            const auto other = m_times.find(name.substr(0, slash) + "/proj");
            if (other == m_times.end()) {
                continue;
            }
            const double ours = Median(times);
            const double proj = Median(other->second);
            std::printf("%-44s %12.1f %12.1f %14.2f\n", name.substr(0, slash).c_str(), ours, proj, proj / ours);
        }
    }

private:
    static double Median(std::vector<double> values)
    {
        std::sort(values.begin(), values.end());
        return values[values.size() / 2];
    }

    std::map<std::string, std::vector<double>> m_times;
};

/// Runs the registered benchmarks interleaved, five repetitions each, and prints the ratios.
inline int RunPaired(int argc, char** argv)
{
    std::vector<std::string> owned(argv, argv + argc);
    owned.insert(owned.begin() + 1, {"--benchmark_enable_random_interleaving=true", "--benchmark_repetitions=5",
                                     "--benchmark_min_time=0.1", "--benchmark_report_aggregates_only=false"});
    std::vector<char*> arguments;
    for (std::string& text : owned) {
        arguments.push_back(text.data());
    }
    int count = static_cast<int>(arguments.size());
    benchmark::Initialize(&count, arguments.data());
    PairedRatios reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    return 0;
}
