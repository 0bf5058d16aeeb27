// How long FileOpen takes on a section file of the size of the delivered database: 75 000 lines
// in 4 MB. Bounds: 40 ms for a file that was never parsed, 1 ms for one that was.

#include <benchmark/benchmark.h>

#include <chrono>
#include <filesystem>
#include <fstream>
#include <string>
#include <thread>

#include "base/files/FileObject.h"

namespace {

namespace fs = std::filesystem;

constexpr int kSections = 7500;
constexpr int kKeys = 8;             // beside the section's own line and the blank one before it
constexpr double kColdBound = 40e-3; // seconds
constexpr double kParsedBound = 1e-3;

std::string DatabaseText()
{
    std::string text;
    for (int section = 0; section < kSections; ++section) {
        text += "\n[Sys-Coordinate system of the benchmark - zone " + std::to_string(section) + "]\n";
        for (int key = 0; key < kKeys; ++key) {
            text += "Parameter with a name of its own " + std::to_string(key) + "=";
            text += std::to_string(6378137.0 + section * 1e-3 + key) + " and a few words\n";
        }
    }
    return text;
}

/// A database on the disk that can take new names, and is removed at the end.
class Database {
public:
    Database() { std::ofstream(m_path, std::ios::binary) << DatabaseText(); }
    ~Database() { fs::remove(m_path); }
    Database(const Database&) = delete;
    Database& operator=(const Database&) = delete;

    /// A name under which nothing has been parsed.
    void Rename()
    {
        const fs::path next = PathOf(++m_number);
        fs::rename(m_path, next);
        m_path = next;
    }
    /// Until a change of the file could not go unseen.
    void Rest() const { std::this_thread::sleep_for(std::chrono::milliseconds(2100)); }
    CString Name() const { return CString::FromUtf8(m_path.string()); }

private:
    static fs::path PathOf(int number)
    {
        const auto start = std::chrono::steady_clock::now().time_since_epoch().count();
        static const std::string run = "zorgeo-bench-" + std::to_string(start) + "-";
        return fs::temp_directory_path() / (run + std::to_string(number) + ".geo");
    }

    int m_number = 0;
    fs::path m_path = PathOf(0);
};

bool Open(const CString& name)
{
    FileObject file;
    const bool opened = file.FileOpen(name, FileMode::openForReading);
    benchmark::DoNotOptimize(file);
    return opened;
}

void Cold(benchmark::State& state)
{
    Database database;
    for (auto _ : state) {
        state.PauseTiming();
        database.Rename();
        const CString name = database.Name();
        state.ResumeTiming();
        if (!Open(name)) {
            state.SkipWithError("the database does not open");
            break;
        }
    }
    state.counters["bound_ms"] = kColdBound * 1e3;
}

void OpenAgain(benchmark::State& state, const Database& database)
{
    const CString name = database.Name();
    for (auto _ : state) {
        if (!Open(name)) {
            state.SkipWithError("the database does not open");
            break;
        }
    }
    state.counters["bound_ms"] = kParsedBound * 1e3;
}

void Parsed(benchmark::State& state)
{
    const Database database;
    database.Rest();
    Open(database.Name());
    OpenAgain(state, database);
}

// Written within the last two seconds: recognised by its bytes.
void ParsedAndYoung(benchmark::State& state)
{
    const Database database;
    Open(database.Name());
    OpenAgain(state, database);
}

BENCHMARK(Cold)->Unit(benchmark::kMillisecond);
BENCHMARK(Parsed)->Unit(benchmark::kMillisecond);
BENCHMARK(ParsedAndYoung)->Unit(benchmark::kMillisecond)->MinTime(0.5);

} // namespace

BENCHMARK_MAIN();
