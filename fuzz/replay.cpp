// Runs a fuzzer on files, or on every file of directories, instead of on made-up inputs.

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <exception>
#include <filesystem>
#include <fstream>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace {

namespace fs = std::filesystem;

void Replay(const fs::path& path)
{
    std::ifstream file(path, std::ios::binary);
    file.exceptions(std::ios::badbit | std::ios::failbit);
    std::vector<char> bytes(fs::file_size(path));
    file.read(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    std::printf("%s: %zu bytes\n", path.filename().string().c_str(), bytes.size());
    std::fflush(stdout); // the last line names the file that failed
    const std::vector<std::uint8_t> input(bytes.begin(), bytes.end());
    LLVMFuzzerTestOneInput(input.data(), input.size());
}

} // namespace

int main(int count, char** arguments)
try {
    int replayed = 0;
    for (int i = 1; i < count; ++i) {
        if (!fs::is_directory(arguments[i])) {
            Replay(arguments[i]);
            ++replayed;
            continue;
        }
        for (const fs::directory_entry& entry : fs::directory_iterator(arguments[i])) {
            Replay(entry.path());
            ++replayed;
        }
    }
    std::printf("%d inputs\n", replayed);
    return replayed > 0 ? 0 : 1;
} catch (const std::exception& error) {
    std::fprintf(stderr, "replay: %s\n", error.what());
    return 1;
}
